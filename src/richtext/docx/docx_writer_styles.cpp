#include "richtext/docx/docx_writer_styles.h"

#include <QFont>

#include "richtext/docx/docx_writer_properties.h"
#include "richtext/format_values.h"

namespace snipdeck {

QString DocxWriterStyles::Id(QStringList& names, const QString& name, char kind) {
  qsizetype index = names.indexOf(name);
  if (index < 0) {
    index = names.size();
    names.append(name);
  }
  return QLatin1Char(kind) + QString::number(index + 1);
}

void DocxWriterStyles::Write(XmlOut& out, const QStringList& names, const char* type, char kind) {
  for (qsizetype i = 0; i < names.size(); ++i) {
    out.Start("w:style");
    out.Attribute("w:type", QString::fromLatin1(type));
    out.Attribute("w:styleId", QLatin1Char(kind) + QString::number(i + 1));
    out.Value("w:name", names[i]);
    if (kind == 'P') out.Value("w:basedOn", "Normal");
    out.End();
  }
}

QByteArray DocxWriterStyles::Part(const QFont& defaults) const {
  XmlOut out;
  out.Start("w:styles");
  out.Attribute("xmlns:w", QString::fromLatin1(kWordNamespace));
  out.Start("w:docDefaults");
  out.Start("w:rPrDefault");
  out.Start("w:rPr");
  WriteFontAndSize(out, QTextCharFormat(), defaults);
  out.End();
  out.End();
  out.End();
  out.Start("w:style");
  out.Attribute("w:type", QStringLiteral("paragraph"));
  out.Attribute("w:default", 1);
  out.Attribute("w:styleId", QStringLiteral("Normal"));
  out.Value("w:name", "Normal");
  out.End();
  Write(out, m_paragraphs, "paragraph", 'P');
  Write(out, m_runs, "character", 'C');
  out.End();
  return out.Take();
}

}  // namespace snipdeck
