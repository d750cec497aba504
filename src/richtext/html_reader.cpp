#include "richtext/html_reader.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>
#include <QVariant>

#include "richtext/html_cleaner.h"
#include "richtext/text_decoder.h"

namespace snipdeck {
namespace {

/// Headings carry their size as a step beside the size in points that was given to them; only the points count.
void DropSizeSteps(QTextDocument& document) {
  struct Stretch {
    int begin;
    int end;
    QTextCharFormat format;
  };
  QList<Stretch> stretches;
  const auto note = [&](int begin, int length, QTextCharFormat format) {
    if (!format.hasProperty(QTextFormat::FontSizeAdjustment)) return;
    format.clearProperty(QTextFormat::FontSizeAdjustment);
    stretches.append({begin, begin + length, format});
  };
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    note(block.position(), 0, block.charFormat());
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      note(it.fragment().position(), it.fragment().length(), it.fragment().charFormat());
    }
  }
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  for (const Stretch& stretch : std::as_const(stretches)) {
    cursor.setPosition(stretch.begin);
    cursor.setPosition(stretch.end, QTextCursor::KeepAnchor);
    if (stretch.begin == stretch.end) {
      cursor.setBlockCharFormat(stretch.format);
    } else {
      cursor.setCharFormat(stretch.format);
    }
  }
  cursor.endEditBlock();
}

}  // namespace

QStringList ReadHtml(QByteArrayView html, QTextDocument& document) {
  HtmlPayload payload = ReadHtmlPayload(html);
  const CleanHtml clean = CleanUpHtml(payload);
  for (auto it = clean.pictures.cbegin(); it != clean.pictures.cend(); ++it) {
    document.addResource(QTextDocument::ImageResource, QUrl(it.key()), it.value());
  }
  document.setHtml(CleanText(clean.html));
  DropSizeSteps(document);
  return clean.warnings;
}

}  // namespace snipdeck
