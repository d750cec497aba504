#pragma once

#include <vector>

#include <QList>
#include <QStringList>

#include "richtext/ooxml/xml_part.h"

namespace snipdeck {

/// What all sheets of a workbook share: the texts that cells name by number, and how numbers and cells look.
class XlsxWorkbook {
 public:
  struct Sheet {
    QString name;
    QString relationship;
  };
  struct Look {
    bool bold = false;
    bool italic = false;
    QString numberFormat;
  };

  void ReadWorkbook(const QByteArray& part);
  void ReadTexts(const QByteArray& part);
  void ReadStyles(const QByteArray& part);

  /// Those that show, in their order.
  const std::vector<Sheet>& Sheets() const { return m_sheets; }
  QString Text(int index) const { return m_texts.value(index); }
  /// The plainest look for a number that the workbook does not have.
  Look LookOf(int style) const { return m_looks.value(style); }
  bool CountsFrom1904() const { return m_since1904; }

 private:
  void ReadFonts(XmlPart& xml);
  void ReadLooks(XmlPart& xml, const QHash<int, QString>& formats);

  std::vector<Sheet> m_sheets;
  QStringList m_texts;
  QList<Look> m_fonts;
  QList<Look> m_looks;
  bool m_since1904 = false;
};

/// The text of an element that holds a text, or runs of one; what is only there for reading aloud is left out.
QString ReadSheetText(XmlPart& xml);

}  // namespace snipdeck
