#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include <QColor>
#include <QPointer>
#include <QString>
#include <QTextFormat>
#include <QTextList>

namespace snipdeck {

struct TableFlow;

/// A piece of text on its way into a document: characters, and what is to be done with them in order. Formats are
/// indexes into the FlowFormats that the builder gets. Lengths count UTF-16 units.
struct FlowItem {
  enum class Kind : std::uint8_t {
    Run,           ///< The next `length` characters, in character format `format`.
    ParagraphEnd,  ///< `format` is the paragraph's format, `length` the character format of its mark.
    Table,         ///< The next table.
  };
  Kind kind;
  std::int32_t format;
  std::int32_t length;
};

struct Flow {
  QString text;
  std::vector<FlowItem> items;
  std::vector<std::unique_ptr<TableFlow>> tables;

  bool IsEmpty() const { return items.empty(); }
  void AddRun(QStringView characters, int format);
  /// Puts characters before all others, in the format of the first run, else in `format`.
  void Prepend(const QString& characters, int format);
  void EndParagraph(int paragraphFormat, int markFormat);
  void AddTable(std::unique_ptr<TableFlow> table);
  void Append(Flow&& other);
  void Clear();
};

/// One side of a table cell; width 0 means none. Widths are in twips.
struct CellBorder {
  QTextFrameFormat::BorderStyle style = QTextFrameFormat::BorderStyle_Solid;
  std::int16_t width = 0;
  QRgb colour = 0xFF000000;
  bool operator==(const CellBorder&) const = default;
};

enum CellSide { kCellTop, kCellLeft, kCellBottom, kCellRight, kCellSides };

/// What a row says about one of its cells. Distances are in twips.
struct CellLayout {
  int right = 0;        ///< Distance of the right edge from the margin.
  QRgb background = 0;  ///< Transparent when there is none.
  std::array<CellBorder, kCellSides> borders;
  std::array<int, kCellSides> padding{};
  bool joinsLeft = false;   ///< Merged with the cell on its left.
  bool joinsAbove = false;  ///< Merged with the cell above it.
  QTextCharFormat::VerticalAlignment alignment = QTextCharFormat::AlignTop;
};

struct RowLayout {
  int left = 0;
  int gap = 0;  ///< Half the space between the texts of two cells.
  Qt::Alignment alignment = Qt::AlignLeft;
  bool header = false;
  int height = 0;  ///< The least height; negative: just that; 0: as its text needs.
  std::vector<CellLayout> cells;
};

struct RowFlow {
  std::shared_ptr<const RowLayout> layout;
  std::vector<Flow> cells;
};

struct TableFlow {
  std::vector<RowFlow> rows;
};

/// The lists of flows in the document that gets them, by their number in the formats; null where one has not been begun.
using BegunLists = std::vector<QPointer<QTextList>>;

/// The formats that flows name by index.
struct FlowFormats {
  struct Paragraph {
    QTextBlockFormat format;
    int list = -1;  ///< Index into `lists`; -1 for a paragraph outside of lists.
  };
  std::vector<QTextCharFormat> characters;
  std::vector<Paragraph> paragraphs;
  std::vector<QTextListFormat> lists;
};

}  // namespace snipdeck
