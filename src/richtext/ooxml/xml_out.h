#pragma once

#include <QBuffer>
#include <QXmlStreamWriter>

namespace snipdeck {

/// The text without what XML cannot hold: control characters, halves of surrogate pairs, noncharacters.
QString XmlText(QStringView text);

/// Writes XML into memory. Names come with their prefixes, whose namespaces the root declares.
class XmlOut {
 public:
  XmlOut();

  void Start(const char* element) { m_writer.writeStartElement(QLatin1String(element)); }
  void End() { m_writer.writeEndElement(); }
  void Attribute(const char* name, const QString& value) { m_writer.writeAttribute(QLatin1String(name), XmlText(value)); }
  void Attribute(const char* name, int value) { Attribute(name, QString::number(value)); }
  void Text(QStringView text) { m_writer.writeCharacters(XmlText(text)); }
  /// An element without contents or attributes.
  void Empty(const char* element) { m_writer.writeEmptyElement(QLatin1String(element)); }
  /// An element whose only attribute is its value.
  void Value(const char* element, const QString& value);
  void Value(const char* element, int value) { Value(element, QString::number(value)); }
  void Value(const char* element, const char* value) { Value(element, QString::fromLatin1(value)); }
  QByteArray Take();

 private:
  QBuffer m_buffer;
  QXmlStreamWriter m_writer;
};

}  // namespace snipdeck
