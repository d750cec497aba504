#include "richtext/docx/docx_writer_text.h"

#include "richtext/docx/docx_writer_properties.h"

namespace snipdeck {
namespace {

const char* ElementFor(QChar character) {
  switch (character.unicode()) {
    case u'\t':
      return "w:tab";
    case QChar::LineSeparator:
    case u'\n':
      return "w:br";
    case 0x2011:
      return "w:noBreakHyphen";
    case 0xAD:
      return "w:softHyphen";
    default:
      return nullptr;
  }
}

void WriteText(XmlOut& out, QStringView text) {
  if (text.isEmpty()) return;
  out.Start("w:t");
  out.Attribute("xml:space", QStringLiteral("preserve"));
  out.Text(text);
  out.End();
}

}  // namespace

void WriteRunText(XmlOut& out, QStringView text) {
  qsizetype begin = 0;
  for (qsizetype i = 0; i <= text.size(); ++i) {
    const char* const element = i < text.size() ? ElementFor(text[i]) : nullptr;
    if (i < text.size() && !element) continue;
    WriteText(out, text.mid(begin, i - begin));
    if (element) out.Empty(element);
    begin = i + 1;
  }
}

QByteArray PageTextPart(const char* root, const QString& text) {
  XmlOut out;
  out.Start(root);
  out.Attribute("xmlns:w", QString::fromLatin1(kWordNamespace));
  const auto paragraphs = QStringView(text).split(u'\n');
  for (const QStringView paragraph : paragraphs) {
    out.Start("w:p");
    out.Start("w:r");
    WriteRunText(out, paragraph);
    out.End();
    out.End();
  }
  out.End();
  return out.Take();
}

}  // namespace snipdeck
