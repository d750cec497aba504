#pragma once

#include <QHash>
#include <QStringList>

#include "richtext/ooxml/xml_out.h"

class QFont;

namespace snipdeck {

/// The styles that a text names. They carry names only: what their text looks like, it says itself.
class DocxWriterStyles {
 public:
  /// The id of a style, new where the name was not met before.
  QString Paragraph(const QString& name) { return Id(m_paragraphs, name, 'P'); }
  QString Run(const QString& name) { return Id(m_runs, name, 'C'); }
  /// The part of the styles.
  QByteArray Part(const QFont& defaults) const;

 private:
  static QString Id(QStringList& names, const QString& name, char kind);
  static void Write(XmlOut& out, const QStringList& names, const char* type, char kind);

  QStringList m_paragraphs;
  QStringList m_runs;
};

}  // namespace snipdeck
