#include "richtext/xlsx/xlsx_sheet.h"

#include <algorithm>
#include <numeric>
#include <optional>

#include <QDateTime>

#include "richtext/text/text_decoder.h"
#include "richtext/xlsx/number_format.h"

namespace snipdeck {
namespace {

constexpr int kMostRows = 1'048'576;
constexpr int kMostColumns = 16'384;
constexpr std::size_t kMostCells = 2'000'000;
constexpr std::size_t kMostMerges = 20'000;
constexpr int kProgressStep = 500;  // rows

/// The day number of a date that is written out; nothing for what is none.
std::optional<double> DayNumber(const QString& date, bool since1904) {
  constexpr double kMillisecondsPerDay = 86'400'000;
  const QDateTime first(since1904 ? QDate(1904, 1, 1) : QDate(1899, 12, 30), QTime(0, 0), Qt::UTC);
  QDateTime written = QDateTime::fromString(date, Qt::ISODateWithMs);
  written.setTimeSpec(Qt::UTC);
  if (!written.isValid() || written < first) return std::nullopt;
  return static_cast<double>(first.msecsTo(written)) / kMillisecondsPerDay;
}

class SheetReader {
 public:
  SheetReader(XlsxSheet& sheet, const QByteArray& part, const XlsxWorkbook& workbook,
              const std::function<bool(double)>& progress)
      : m_sheet(sheet), m_xml(part), m_workbook(workbook), m_progress(progress), m_size(part.size()) {}

  bool Read() {
    if (!m_xml.EnterRoot()) return true;
    while (!m_cancelled && m_xml.readNextStartElement()) {
      if (m_xml.Is("sheetData")) {
        while (!m_cancelled && m_xml.readNextStartElement()) Row();
      } else if (m_xml.Is("mergeCells")) {
        while (m_xml.readNextStartElement()) Merge();
      } else {
        m_xml.skipCurrentElement();
      }
    }
    return !m_cancelled;
  }

 private:
  void Row() {
    const int named = m_xml.Number("r") - 1;
    m_row = named >= 0 ? std::min(named, kMostRows - 1) : m_row + 1;
    m_column = -1;
    if (m_progress && ++m_rowsRead % kProgressStep == 0)
      m_cancelled = !m_progress(static_cast<double>(m_xml.characterOffset()) /
                                static_cast<double>(std::max<qsizetype>(m_size, 1)));
    while (m_xml.readNextStartElement()) {
      if (m_xml.Is("c")) {
        Cell();
      } else {
        m_xml.skipCurrentElement();
      }
    }
  }

  void Cell() {
    const int named = CellPlace(m_xml.Value("r")).second;
    m_column = named >= 0 ? named : m_column + 1;
    const QString type = m_xml.Value("t");
    const XlsxWorkbook::Look look = m_workbook.LookOf(m_xml.Number("s"));
    QString value;
    XlsxSheet::Cell cell;
    while (m_xml.readNextStartElement()) {
      if (m_xml.Is("v")) {
        value = m_xml.readElementText(QXmlStreamReader::SkipChildElements);
      } else if (m_xml.Is("is")) {
        cell.text = ReadSheetText(m_xml);
      } else {
        m_xml.skipCurrentElement();
      }
    }
    cell.bold = look.bold;
    cell.italic = look.italic;
    if (!value.isEmpty()) Show(cell, type, value, look);
    Keep(std::move(cell));
  }

  std::optional<double> NumberOf(const QString& type, const QString& value) const {
    if (type == QLatin1String("d")) return DayNumber(value, m_workbook.CountsFrom1904());
    bool isNumber = type.isEmpty() || type == QLatin1String("n");
    const double number = isNumber ? value.toDouble(&isNumber) : 0;
    return isNumber ? std::optional(number) : std::nullopt;
  }

  void Show(XlsxSheet::Cell& cell, const QString& type, const QString& value, const XlsxWorkbook::Look& look) {
    if (type == QLatin1String("s")) {
      cell.text = m_workbook.Text(value.toInt());
    } else if (type == QLatin1String("b")) {
      cell.text = value == QLatin1String("1") ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
    } else if (const std::optional<double> number = NumberOf(type, value)) {
      cell.text = FormatCellNumber(*number, look.numberFormat, m_workbook.CountsFrom1904());
      cell.isNumber = true;
    } else {
      cell.text = CleanText(value);
    }
  }

  void Keep(XlsxSheet::Cell&& cell) {
    if (cell.text.isEmpty() || m_column >= kMostColumns) return;
    if (++m_cells > kMostCells) {
      m_sheet.isCut = true;
      return;
    }
    m_sheet.columns = std::max(m_sheet.columns, m_column + 1);
    m_sheet.rows[m_row].insert_or_assign(m_column, std::move(cell));
  }

  void Merge() {
    const QString place = m_xml.Value("ref");
    const auto [row, column] = CellPlace(place.section(u':', 0, 0));
    const auto [lastRow, lastColumn] = CellPlace(place.section(u':', 1, 1));
    if (row >= 0 && lastRow >= row && lastColumn >= column && m_sheet.merges.size() < kMostMerges)
      m_sheet.merges.push_back({row, column, lastRow, lastColumn});
    m_xml.skipCurrentElement();
  }

  XlsxSheet& m_sheet;
  XmlPart m_xml;
  const XlsxWorkbook& m_workbook;
  const std::function<bool(double)>& m_progress;
  const qsizetype m_size;
  int m_row = -1;
  int m_column = -1;
  int m_rowsRead = 0;
  std::size_t m_cells = 0;
  bool m_cancelled = false;
};

}  // namespace

bool XlsxSheet::Read(const QByteArray& part, const XlsxWorkbook& workbook,
                     const std::function<bool(double)>& progress) {
  return SheetReader(*this, part, workbook, progress).Read();
}

std::size_t XlsxSheet::CellCount() const {
  return std::accumulate(rows.begin(), rows.end(), std::size_t{0},
                         [](std::size_t sum, const auto& row) { return sum + row.second.size(); });
}

std::pair<int, int> CellPlace(QStringView reference) {
  int column = 0;
  qsizetype i = 0;
  for (; i < reference.size() && reference[i].isLetter() && column < kMostColumns; ++i) {
    const char16_t letter = reference[i].toUpper().unicode();
    if (letter < u'A' || letter > u'Z') return {-1, -1};
    column = column * 26 + letter - u'A' + 1;
  }
  bool isNumber = false;
  const int row = reference.mid(i).toInt(&isNumber);
  if (!isNumber || row < 1 || row > kMostRows || column < 1 || column > kMostColumns) return {-1, -1};
  return {row - 1, column - 1};
}

}  // namespace snipdeck
