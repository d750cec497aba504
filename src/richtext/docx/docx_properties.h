#pragma once

#include <QTextCharFormat>

#include "richtext/format_properties.h"
#include "richtext/ooxml/xml_part.h"
#include "richtext/text_flow.h"

namespace snipdeck {

/// What styles and paragraphs say before it is known what holds in the end; never part of a finished document.
enum DocxProperty : int {
  kDocxStyle = QTextFormat::UserProperty + 900,  ///< QString: id of the style.
  kDocxList,        ///< int: number of the list; 0 for none, as a paragraph takes itself out of its style's list.
  kDocxLevel,       ///< int: level in the list.
  kDocxComplex,     ///< bool: the run is of a script that uses the next three.
  kDocxSize,        ///< int: half points
  kDocxBold,        ///< bool
  kDocxItalic,      ///< bool
  kDocxFont,        ///< QString
  kDocxDeleted,     ///< bool: the paragraph's mark was deleted while changes were tracked.
};

/// The fonts of the document's theme, by the names that runs call them.
class DocxTheme {
 public:
  void Read(const QByteArray& part);
  /// Empty for a name that the theme does not have.
  QString Font(const QString& name) const;

 private:
  QString m_major;
  QString m_minor;
};

/// Reads the element of the properties of a run, up to its end. What it does not say is not set.
QTextCharFormat ReadRunProperties(XmlPart& xml, const DocxTheme& theme);

struct DocxParagraph {
  QTextBlockFormat format;
  QTextCharFormat mark;       ///< Of the paragraph's own mark.
  bool endsSection = false;
  bool joinsNext = false;        ///< Its text begins the next paragraph.
  bool startsPageAfter = false;  ///< What follows the section begins on a new page.
  QByteArray borders;
};
/// The same for a paragraph. `section` gets the element of a section's properties while it is current.
template <typename Section>
DocxParagraph ReadParagraphProperties(XmlPart& xml, const DocxTheme& theme, Section section);

/// Properties of a run as the view and the writers know them: those of other scripts are chosen or dropped.
QTextCharFormat Finished(const QTextCharFormat& format);

/// Reads one child of the paragraph properties up to its end.
void ReadParagraphProperty(XmlPart& xml, DocxParagraph& paragraph);

/// The background that an element of shading gives; invalid where it gives none.
QColor ReadShading(const XmlPart& xml);
/// A line of a cell's or a table's border.
CellBorder ReadBorder(const XmlPart& xml);

template <typename Section>
DocxParagraph ReadParagraphProperties(XmlPart& xml, const DocxTheme& theme, Section section) {
  DocxParagraph paragraph;
  while (xml.readNextStartElement()) {
    if (xml.Is("rPr")) {
      paragraph.mark = ReadRunProperties(xml, theme);
    } else if (xml.Is("sectPr")) {
      paragraph.endsSection = true;
      paragraph.startsPageAfter = section(xml);
    } else {
      ReadParagraphProperty(xml, paragraph);
    }
  }
  if (!paragraph.borders.isEmpty())
    paragraph.format.setProperty(kParagraphBorder, QString::fromLatin1(paragraph.borders));
  return paragraph;
}

}  // namespace snipdeck
