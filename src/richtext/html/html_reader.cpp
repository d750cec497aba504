#include "richtext/html/html_reader.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QUrl>
#include <QVariant>

#include "richtext/format_properties.h"
#include "richtext/format_values.h"
#include "richtext/html/html_attributes.h"
#include "richtext/html/html_cleaner.h"
#include "richtext/list_labels.h"
#include "richtext/text/text_decoder.h"

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

/// Qt's importer puts an empty paragraph between a table and the paragraph behind it.
void DropParagraphsBehindTables(QTextDocument& document) {
  constexpr QChar kEndOfFrame(0xFDD1);
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  for (QTextBlock block = document.lastBlock(); block.isValid(); block = block.previous()) {
    const QTextBlock next = block.next();
    if (block.length() > 1 || !next.isValid() || document.characterAt(block.position() - 1) != kEndOfFrame) continue;
    if (document.characterAt(block.position()) != QChar::ParagraphSeparator) continue;  // a further table or the end
    const QTextBlockFormat format = next.blockFormat();
    const QTextCharFormat mark = next.charFormat();
    cursor.setPosition(block.position());
    cursor.deleteChar();
    cursor.setBlockFormat(format);
    cursor.setBlockCharFormat(mark);
    block = cursor.block();
  }
  cursor.endEditBlock();
}

void TakeListStart(QTextList& list) {
  QTextListFormat format = list.format();
  if (!format.hasProperty(QTextFormat::ListNumberPrefix)) return;
  const int start = ListStartIn(format.numberPrefix());
  format.clearProperty(QTextFormat::ListNumberPrefix);
  if (start != 1 && !IsBullet(format)) format.setProperty(kListStart, start);
  list.setFormat(format);
}

/// Lists that do not begin with 1 are labelled by us, and every label has room beside its paragraph.
void TidyLists(QTextDocument& document) {
  constexpr double kLeastIndent = 24;
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    QTextList* const list = block.textList();
    if (!list) continue;
    TakeListStart(*list);
    const QTextBlockFormat before = block.blockFormat();
    QTextBlockFormat format = before;
    if (list->format().hasProperty(kListStart)) TakeLabelFromQt(format);
    format.setLeftMargin(std::max(format.leftMargin(), kLeastIndent - ListSteps(block) * document.indentWidth()));
    if (format == before) continue;
    cursor.setPosition(block.position());
    cursor.setBlockFormat(format);
  }
  cursor.endEditBlock();
}

}  // namespace

QStringList ReadHtml(QByteArrayView html, QTextDocument& document) {
  HtmlPayload payload = ReadHtmlPayload(html);
  const double points = document.defaultFont().pointSizeF();
  const CleanHtml clean = CleanUpHtml(payload, points > 0 ? points : TextStyle().basePoints);
  for (auto it = clean.pictures.cbegin(); it != clean.pictures.cend(); ++it) {
    document.addResource(QTextDocument::ImageResource, QUrl(it.key()), it.value());
  }
  document.setHtml(CleanText(clean.html));
  TidyLists(document);
  DropSizeSteps(document);
  DropParagraphsBehindTables(document);
  return clean.warnings;
}

}  // namespace snipdeck
