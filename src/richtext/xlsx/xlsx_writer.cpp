#include "richtext/xlsx/xlsx_writer.h"

#include <cmath>
#include <cstring>
#include <map>

#include <QTemporaryDir>
#include <QTextDocument>
#include <QTextTable>

#include <xlsxwriter.h>

#include "platform/whole_file.h"
#include "richtext/document_walker.h"
#include "richtext/format_properties.h"
#include "richtext/format_values.h"
#include "richtext/list_labels.h"
#include "richtext/ooxml/xml_out.h"

namespace snipdeck {
namespace {

constexpr qsizetype kLongestCell = 32'767;  // UTF-16 units
constexpr lxw_row_t kMostRows = 1'048'576;
constexpr int kMostColumns = 16'384;

/// Characters of one look on their way into a cell.
struct Piece {
  QString text;
  QTextCharFormat format;
};

/// The looks of a workbook, each made once.
class Looks {
 public:
  explicit Looks(lxw_workbook* workbook) : m_workbook(workbook) {}

  lxw_format* Of(const QTextCharFormat& format, const QBrush& background, bool isCell) {
    const QString key = Key(format, background, isCell);
    lxw_format*& look = m_looks[key];
    if (!look) look = Make(format, background, isCell);
    return look;
  }

 private:
  static lxw_color_t Colour(const QBrush& brush) { return brush.color().rgb() & 0xFFFFFF; }
  static bool IsVisible(const QBrush& brush) { return brush.style() != Qt::NoBrush && brush.color().alpha() != 0; }
  static QString Family(const QTextCharFormat& format) { return format.fontFamilies().toStringList().value(0); }

  static QString Key(const QTextCharFormat& format, const QBrush& background, bool isCell) {
    const auto colour = [](const QBrush& brush) { return IsVisible(brush) ? brush.color().name() : QString(); };
    return QStringLiteral("%1|%2|%3|%4|%5|%6")
        .arg(Family(format), colour(format.foreground()), colour(background))
        .arg(HasPointSize(format) ? PointSize(format, QFont()) : 0)
        .arg((format.fontWeight() > QFont::Medium) + 2 * format.fontItalic() + 4 * format.fontStrikeOut() +
             8 * (format.underlineStyle() != QTextCharFormat::NoUnderline) + 16 * isCell)
        .arg(static_cast<int>(format.verticalAlignment()));
  }

  lxw_format* Make(const QTextCharFormat& format, const QBrush& background, bool isCell) const {
    lxw_format* const look = workbook_add_format(m_workbook);
    const QByteArray family = XmlText(Family(format)).left(100).toUtf8();
    if (!family.isEmpty()) format_set_font_name(look, family.constData());
    if (HasPointSize(format)) format_set_font_size(look, std::clamp(PointSize(format, QFont()), 1.0, 409.0));
    if (format.fontWeight() > QFont::Medium) format_set_bold(look);
    if (format.fontItalic()) format_set_italic(look);
    if (format.fontStrikeOut()) format_set_font_strikeout(look);
    if (format.underlineStyle() != QTextCharFormat::NoUnderline) format_set_underline(look, LXW_UNDERLINE_SINGLE);
    if (IsVisible(format.foreground())) format_set_font_color(look, Colour(format.foreground()));
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript)
      format_set_font_script(look, LXW_FONT_SUPERSCRIPT);
    if (format.verticalAlignment() == QTextCharFormat::AlignSubScript) format_set_font_script(look, LXW_FONT_SUBSCRIPT);
    if (!isCell) return look;
    if (IsVisible(background)) {
      format_set_pattern(look, LXW_PATTERN_SOLID);
      format_set_fg_color(look, Colour(background));
    }
    format_set_align(look, LXW_ALIGN_VERTICAL_TOP);
    return look;
  }

  lxw_workbook* const m_workbook;
  std::map<QString, lxw_format*> m_looks;
};

/// The value of text that is a number as a spreadsheet would show it by itself; nothing for any other.
std::optional<double> PlainNumber(const QString& text) {
  bool isNumber = false;
  const double number = text.toDouble(&isNumber);
  if (!isNumber || !std::isfinite(number) || QString::number(number, 'g', 10) != text) return std::nullopt;
  return number;
}

class XlsxVisitor : public DocumentVisitor {
 public:
  XlsxVisitor(lxw_workbook* workbook, const QTextDocument& document, const std::function<bool(double)>& progress)
      : m_sheet(workbook_add_worksheet(workbook, nullptr)), m_looks(workbook), m_document(document), m_progress(progress) {}

  bool IsCancelled() const { return m_cancelled; }

  void BeginBlock(const QTextBlock& block) override {
    if (InTable() && m_hasParagraph) Add(QStringLiteral("\n"), QTextCharFormat());
    m_hasParagraph = true;
    const QString label = ListLabel(block);
    if (!label.isEmpty()) Add(label + u' ', QTextCharFormat());
    Progress(block);
  }

  void EndBlock(const QTextBlock& block, bool) override {
    if (InTable()) return;
    m_background = block.blockFormat().background();
    WriteCell(m_row, 0, m_row, 0);
    ++m_row;
  }

  void Run(QStringView text, const QTextCharFormat& format, int) override {
    if (!format.boolProperty(kHiddenText)) Add(text.toString().replace(QChar::LineSeparator, u'\n'), format);
  }

  void BeginTable(const QTextTable&) override { ++m_depth; }
  void EndTable(const QTextTable&) override { --m_depth; }
  // A table inside of a cell shows in that cell, as lines with tabs.
  void EndRow(const QTextTable&, int) override {
    if (m_depth == 1) ++m_row;
  }
  void BeginRow(const QTextTable& table, int row) override {
    if (m_depth > 1 && m_hasParagraph) Add(QStringLiteral("\n"), QTextCharFormat());
    if (m_depth > 1) m_hasParagraph = false;
    if (m_depth == 1 && row == 0) SetWidths(table);
  }
  void BeginCell(const QTextTable&, const QTextTableCell& cell) override {
    if (m_depth > 1 && cell.column() > 0) Add(QStringLiteral("\t"), QTextCharFormat());
    m_hasParagraph = false;
  }
  void EndCell(const QTextTable&, const QTextTableCell& cell) override {
    if (m_depth > 1) return;
    m_background = cell.format().background();
    const auto last = [](lxw_row_t first, int span) { return first + static_cast<lxw_row_t>(span) - 1; };
    WriteCell(m_row, cell.column(), last(m_row, cell.rowSpan()), cell.column() + cell.columnSpan() - 1);
  }

 private:
  bool InTable() const { return m_depth > 0; }

  void Progress(const QTextBlock& block) {
    constexpr int kStep = 200;
    if (!m_progress || m_cancelled || block.blockNumber() % kStep != 0) return;
    m_cancelled = !m_progress(static_cast<double>(block.position()) / std::max(m_document.characterCount(), 1));
  }

  void Add(const QString& text, const QTextCharFormat& format) {
    const QString clean = XmlText(text);
    if (clean.isEmpty()) return;
    if (!m_pieces.empty() && m_pieces.back().format == format) {
      m_pieces.back().text += clean;
    } else {
      m_pieces.push_back({clean, format});
    }
  }

  // Columns of a later table do not change those of an earlier one.
  void SetWidths(const QTextTable& table) {
    constexpr double kPixelsPerCharacter = 7;
    const QList<QTextLength> widths = table.format().columnWidthConstraints();
    for (int column = m_columnsSet; column < std::min<qsizetype>(widths.size(), kMostColumns); ++column) {
      const auto place = static_cast<lxw_col_t>(column);
      if (widths[column].type() == QTextLength::FixedLength && widths[column].rawValue() > 0)
        worksheet_set_column(m_sheet, place, place, std::min(widths[column].rawValue() / kPixelsPerCharacter, 200.0),
                             nullptr);
    }
    m_columnsSet = std::max(m_columnsSet, static_cast<int>(widths.size()));
  }

  void WriteCell(lxw_row_t row, int column, lxw_row_t lastRow, int lastColumn) {
    std::vector<Piece> pieces = std::exchange(m_pieces, {});
    m_hasParagraph = false;
    if (lastRow >= kMostRows || lastColumn >= kMostColumns || m_cancelled) return;
    const auto left = static_cast<lxw_col_t>(column), right = static_cast<lxw_col_t>(lastColumn);
    const QTextCharFormat first = pieces.empty() ? QTextCharFormat() : pieces.front().format;
    lxw_format* const look = m_looks.Of(pieces.size() == 1 ? first : QTextCharFormat(), m_background, true);
    QString text;
    for (const Piece& piece : pieces) text += piece.text;
    if (text.contains(u'\n')) format_set_text_wrap(look);
    if (lastRow > row || right > left) worksheet_merge_range(m_sheet, row, left, lastRow, right, "", look);
    if (text.isEmpty()) {
      if (m_background.style() != Qt::NoBrush) worksheet_write_blank(m_sheet, row, left, look);
      return;
    }
    const std::optional<double> number = InTable() ? PlainNumber(text) : std::nullopt;
    if (number) {
      worksheet_write_number(m_sheet, row, left, *number, look);
    } else if (pieces.size() == 1 || text.size() > kLongestCell || !WriteRich(pieces, row, left, look)) {
      WriteString(text, pieces.size() == 1 ? first.anchorHref() : QString(), row, left, look);
    }
  }

  bool WriteRich(const std::vector<Piece>& pieces, lxw_row_t row, lxw_col_t column, lxw_format* look) {
    std::vector<QByteArray> texts;
    std::vector<lxw_rich_string_tuple> parts;
    texts.reserve(pieces.size());
    for (const Piece& piece : pieces) {
      texts.push_back(piece.text.toUtf8());
      parts.push_back({m_looks.Of(piece.format, QBrush(), false), texts.back().data()});
    }
    std::vector<lxw_rich_string_tuple*> list;
    for (lxw_rich_string_tuple& part : parts) list.push_back(&part);
    list.push_back(nullptr);
    return worksheet_write_rich_string(m_sheet, row, column, list.data(), look) == LXW_NO_ERROR;
  }

  void WriteString(const QString& text, const QString& link, lxw_row_t row, lxw_col_t column, lxw_format* look) {
    const QByteArray utf8 = text.left(kLongestCell).toUtf8();
    const bool isLink = link.startsWith(QLatin1String("http")) &&
                        worksheet_write_url_opt(m_sheet, row, column, XmlText(link).toUtf8().constData(), look,
                                                utf8.constData(), nullptr) == LXW_NO_ERROR;
    if (!isLink) worksheet_write_string(m_sheet, row, column, utf8.constData(), look);
  }

  lxw_worksheet* const m_sheet;
  Looks m_looks;
  const QTextDocument& m_document;
  const std::function<bool(double)>& m_progress;
  std::vector<Piece> m_pieces;
  QBrush m_background;
  lxw_row_t m_row = 0;
  int m_depth = 0;
  int m_columnsSet = 0;
  bool m_hasParagraph = false;
  bool m_cancelled = false;
};

}  // namespace

Result<QByteArray> WriteXlsx(const QTextDocument& document, const std::function<bool(double)>& progress) {
  // The library writes to files only.
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("sheet.xlsx"));
  QByteArray temporary = QFile::encodeName(folder.path());
  const QByteArray name = QFile::encodeName(path);
  lxw_workbook_options options{};
  options.tmpdir = temporary.data();
  lxw_workbook* const workbook = folder.isValid() ? workbook_new_opt(name.constData(), &options) : nullptr;
  if (!workbook) return Failure{Failure::Kind::Other, QStringLiteral("No temporary file can be made.")};
  XlsxVisitor visitor(workbook, document, progress);
  WalkDocument(document, visitor);
  const lxw_error error = workbook_close(workbook);
  if (visitor.IsCancelled()) return Failure{Failure::Kind::Refused, QString()};
  if (error != LXW_NO_ERROR) return Failure{Failure::Kind::Other, QString::fromUtf8(lxw_strerror(error))};
  return ReadWholeFile(path);
}

}  // namespace snipdeck
