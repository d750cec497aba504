#pragma once

#include <QHash>

#include "richtext/docx/docx_properties.h"

namespace snipdeck {

/// Lines, paddings and indents that a table says of itself or takes from its style; distances in twips.
struct DocxTableFormat {
  static constexpr int kInnerHorizontal = kCellSides;
  static constexpr int kInnerVertical = kCellSides + 1;
  std::array<std::optional<CellBorder>, kCellSides + 2> borders;
  std::array<std::optional<int>, kCellSides> padding;
  std::optional<int> indent;
  std::optional<Qt::Alignment> alignment;

  /// What `over` says counts before what this says.
  void Merge(const DocxTableFormat& over);
  /// Reads one child of a table's properties up to its end.
  void ReadProperty(XmlPart& xml);
};
/// Reads an element whose children are the lines of the sides; false ends for cells have the same.
void ReadBorders(XmlPart& xml, std::array<std::optional<CellBorder>, kCellSides + 2>& borders);
/// The same for the distances between lines and text.
void ReadPadding(XmlPart& xml, std::array<std::optional<int>, kCellSides>& padding);

/// The styles of a document. A style holds what the styles that it is based on say, and what it says itself.
class DocxStyles {
 public:
  struct Style {
    QString name;
    QTextCharFormat run;
    QTextBlockFormat paragraph;
    DocxTableFormat table;
  };

  /// Reads the part of the styles. Without one, text is of 10 points.
  void Read(const QByteArray& part, const DocxTheme& theme);

  /// The style of an id, else the default one of its kind; never null.
  const Style& Paragraph(const QString& id) const;
  const Style& Table(const QString& id) const;
  /// Null for a style that does not exist.
  const Style* Run(const QString& id) const;
  const QTextCharFormat& DefaultRun() const { return m_defaults.run; }
  const QTextBlockFormat& DefaultParagraph() const { return m_defaults.paragraph; }
  /// The level of a list that a style of paragraphs belongs to; -1 when it names none.
  static int ListOf(const Style& style);
  bool IsDefault(const Style& style) const { return &style == &Paragraph(QString()); }

 private:
  struct Entry {
    Style own;
    QString kind;
    QString base;
    bool resolved = false;
  };
  void ReadDefaults(XmlPart& xml, const DocxTheme& theme);
  void ReadStyle(XmlPart& xml, const DocxTheme& theme);
  void Resolve(Entry& entry, int depth);
  const Style& Find(const QString& id, const QString& kind) const;

  QHash<QString, Entry> m_entries;
  QHash<QString, QString> m_defaultIds;  ///< by kind
  Style m_defaults;
  Style m_none;
};

}  // namespace snipdeck
