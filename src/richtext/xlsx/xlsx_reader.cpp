#include "richtext/xlsx/xlsx_reader.h"

#include <algorithm>

#include "richtext/ooxml/zip_package.h"
#include "richtext/xlsx/xlsx_sheet.h"

namespace snipdeck {
namespace {

constexpr std::size_t kMostInTable = 40'000;  // places of cells, empty ones too: what Qt's tables hold well
constexpr int kWidestTable = 100;
constexpr int kMostEmptyRows = 3;  // in a row
constexpr int kColumnWidth = 1440;
constexpr int kGap = 108;

enum CharacterFormat { kPlain, kBold, kItalic, kBoldItalic };
enum ParagraphFormat { kText, kNumber, kHeading };

FlowFormats Formats() {
  FlowFormats formats;
  formats.characters.resize(4);
  formats.characters[kBold].setFontWeight(QFont::Bold);
  formats.characters[kItalic].setFontItalic(true);
  formats.characters[kBoldItalic].setFontWeight(QFont::Bold);
  formats.characters[kBoldItalic].setFontItalic(true);
  formats.paragraphs.resize(3);
  formats.paragraphs[kNumber].format.setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
  formats.paragraphs[kHeading].format.setHeadingLevel(1);
  return formats;
}

int FormatOf(const XlsxSheet::Cell& cell) {
  return (cell.bold ? kBold : kPlain) + (cell.italic ? kItalic : kPlain);
}

void AddCell(Flow& flow, const XlsxSheet::Cell& cell) {
  QString text = cell.text;
  flow.AddRun(text.replace(u'\n', QChar::LineSeparator), FormatOf(cell));
  flow.EndParagraph(cell.isNumber ? kNumber : kText, FormatOf(cell));
}

/// Rows of the sheet that are shown, with gaps shortened: their numbers, -1 for an empty row.
std::vector<int> ShownRows(const XlsxSheet& sheet) {
  std::vector<int> rows;
  int next = sheet.rows.empty() ? 0 : sheet.rows.begin()->first;
  for (const auto& [row, cells] : sheet.rows) {
    for (int gap = std::min(row - next, kMostEmptyRows); gap > 0; --gap) rows.push_back(-1);
    rows.push_back(row);
    next = row + 1;
  }
  return rows;
}

class SheetTable {
 public:
  explicit SheetTable(const XlsxSheet& sheet) : m_sheet(sheet), m_plain(std::make_shared<RowLayout>(Layout({}))) {
    for (const XlsxSheet::Merge& merge : sheet.merges) {
      for (auto row = sheet.rows.lower_bound(merge.row); row != sheet.rows.end() && row->first <= merge.lastRow; ++row)
        m_merges[row->first].push_back(merge);
    }
  }

  std::unique_ptr<TableFlow> Make() const {
    auto table = std::make_unique<TableFlow>();
    for (const int row : ShownRows(m_sheet)) table->rows.push_back(Row(row));
    return table;
  }

 private:
  using Merges = std::vector<XlsxSheet::Merge>;

  RowFlow Row(int row) const {
    const auto merges = m_merges.find(row);
    RowFlow flow;
    flow.layout = merges == m_merges.end() ? m_plain : std::make_shared<const RowLayout>(Layout(merges->second, row));
    flow.cells.resize(static_cast<std::size_t>(m_sheet.columns));
    const auto found = m_sheet.rows.find(row);
    if (found == m_sheet.rows.end()) return flow;
    for (const auto& [column, cell] : found->second) AddCell(flow.cells[static_cast<std::size_t>(column)], cell);
    return flow;
  }

  RowLayout Layout(const Merges& merges, int row = -1) const {
    RowLayout layout;
    layout.left = -kGap;
    layout.gap = kGap;
    for (int column = 0; column < m_sheet.columns; ++column) {
      CellLayout cell;
      cell.right = layout.left + kColumnWidth * (column + 1);
      for (CellBorder& border : cell.borders) border = {QTextFrameFormat::BorderStyle_Solid, 15, 0xFFC0C0C0};
      for (const XlsxSheet::Merge& merge : merges) {
        if (column < merge.column || column > merge.lastColumn) continue;
        cell.joinsLeft = column > merge.column;
        cell.joinsAbove = row > merge.row && IsBelowShown(merge, row);
      }
      layout.cells.push_back(cell);
    }
    return layout;
  }

  /// A row that is not shown cannot be joined.
  bool IsBelowShown(const XlsxSheet::Merge& merge, int row) const {
    return row - 1 >= merge.row && m_sheet.rows.contains(row - 1);
  }

  const XlsxSheet& m_sheet;
  std::map<int, Merges> m_merges;
  std::shared_ptr<const RowLayout> m_plain;
};

/// Rows as lines with tabs between the cells.
void AddLines(Flow& flow, const XlsxSheet& sheet) {
  for (const int row : ShownRows(sheet)) {
    QString line;
    int column = 0;
    const auto found = sheet.rows.find(row);
    if (found != sheet.rows.end()) {
      for (const auto& [place, cell] : found->second) {
        line += QString(std::min(place - column, kWidestTable), u'\t') + cell.text;
        column = place;
      }
    }
    flow.AddRun(line.replace(u'\n', QChar::LineSeparator), kPlain);
    flow.EndParagraph(kText, kPlain);
  }
}

void AddSheet(Flow& flow, const XlsxSheet& sheet) {
  const std::size_t places = ShownRows(sheet).size() * static_cast<std::size_t>(sheet.columns);
  if (places == 0) return;
  if (places > kMostInTable || sheet.columns > kWidestTable) return AddLines(flow, sheet);
  flow.AddTable(SheetTable(sheet).Make());
  flow.EndParagraph(kText, kPlain);
}

}  // namespace

Result<FlowText> ReadXlsx(const QByteArray& bytes, QStringList& warnings,
                          const std::function<bool(double)>& progress) {
  Result<ZipPackage> opened = ZipPackage::Open(bytes);
  if (!opened) return opened.Error();
  ZipPackage& package = opened.Value();
  const QString main = package.MainPart(QStringLiteral("xl/workbook.xml"));
  const Result<QByteArray> part = package.Part(main);
  if (!part) return part.Error();
  const Relationships relationships = package.RelationshipsOf(main);
  const auto optional = [&](const char* type) { return package.OptionalPart(PartOfType(relationships, type)); };
  XlsxWorkbook workbook;
  workbook.ReadWorkbook(part.Value());
  if (workbook.Sheets().empty())
    return Failure{Failure::Kind::Malformed, QStringLiteral("The file has no sheets that can be read.")};
  workbook.ReadTexts(optional("sharedStrings"));
  workbook.ReadStyles(optional("styles"));
  FlowText text;
  text.formats = Formats();
  Flow& flow = text.pieces.emplace_back();
  for (const XlsxWorkbook::Sheet& sheet : workbook.Sheets()) {
    const Result<QByteArray> content = package.Part(relationships.value(sheet.relationship).target);
    if (!content) {
      if (content.Error().kind == Failure::Kind::TooLarge) return content.Error();
      warnings.append(QStringLiteral("sheet that cannot be read left out"));
      continue;
    }
    XlsxSheet cells;
    if (!cells.Read(content.Value(), workbook, progress))
      return Failure{Failure::Kind::Refused, QString()};
    if (cells.isCut) warnings.append(QStringLiteral("cells beyond two million left out"));
    if (workbook.Sheets().size() > 1) {
      flow.AddRun(sheet.name, kBold);
      flow.EndParagraph(kHeading, kBold);
    }
    AddSheet(flow, cells);
  }
  return text;
}

}  // namespace snipdeck
