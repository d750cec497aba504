#include "richtext/ooxml/xml_out.h"

#include <algorithm>

namespace snipdeck {
namespace {

bool IsPlain(QChar c) {
  const char16_t code = c.unicode();
  if (code < 0x20) return code == u'\t' || code == u'\n';
  return !c.isSurrogate() && code < 0xFFFE;
}

}  // namespace

QString XmlText(QStringView text) {
  if (std::all_of(text.begin(), text.end(), IsPlain)) return text.toString();
  QString clean;
  clean.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
      clean.append(text.mid(i++, 2));
    } else if (IsPlain(text[i])) {
      clean += text[i];
    }
  }
  return clean;
}

XmlOut::XmlOut() {
  m_buffer.open(QIODevice::WriteOnly);
  m_writer.setDevice(&m_buffer);
  m_writer.writeStartDocument(QStringLiteral("1.0"), true);
}

void XmlOut::Value(const char* element, const QString& value) {
  Empty(element);
  const QString name = QString::fromLatin1(element);
  const qsizetype colon = name.indexOf(u':');
  Attribute(qPrintable(name.left(colon + 1) + QLatin1String("val")), value);
}

QByteArray XmlOut::Take() {
  m_writer.writeEndDocument();
  return m_buffer.data();
}

}  // namespace snipdeck
