#include "richtext/html/html_writer.h"

#include <limits>

#include <QHash>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>

#include "richtext/document_walker.h"
#include "richtext/format_properties.h"
#include "richtext/format_values.h"
#include "richtext/html/html_styles.h"
#include "richtext/pictures.h"

namespace snipdeck {
namespace {

QString ListTag(const QTextList& list) {
  switch (list.format().style()) {
    case QTextListFormat::ListDisc:
      return QStringLiteral("ul type=\"disc\"");
    case QTextListFormat::ListCircle:
      return QStringLiteral("ul type=\"circle\"");
    case QTextListFormat::ListSquare:
      return QStringLiteral("ul type=\"square\"");
    case QTextListFormat::ListLowerAlpha:
      return QStringLiteral("ol type=\"a\"");
    case QTextListFormat::ListUpperAlpha:
      return QStringLiteral("ol type=\"A\"");
    case QTextListFormat::ListLowerRoman:
      return QStringLiteral("ol type=\"i\"");
    case QTextListFormat::ListUpperRoman:
      return QStringLiteral("ol type=\"I\"");
    default:
      return QStringLiteral("ol");
  }
}

/// What a list counts from when `block` begins it.
int FirstNumber(const QTextBlock& block) {
  const QTextListFormat format = block.textList()->format();
  const int start = format.hasProperty(kListStart) ? format.intProperty(kListStart) : 1;
  return start + block.textList()->itemNumber(block);
}

/// HTML shows one blank for many, and takes wide and narrow blanks for plain ones, unless it is told otherwise.
bool NeedsBlanksKept(const QString& text) {
  const auto isSpecial = [](QChar character) {
    return character.isSpace() && character != u' ' && character != QChar::Nbsp && character != QChar::LineSeparator;
  };
  const auto isAtLineEnd = [&](qsizetype at) {
    return at == 0 || at + 1 == text.size() || text[at - 1] == QChar::LineSeparator ||
           text[at + 1] == QChar::LineSeparator || text[at - 1] == u' ';
  };
  for (qsizetype at = text.indexOf(u' '); at >= 0; at = text.indexOf(u' ', at + 1)) {
    if (isAtLineEnd(at)) return true;
  }
  return std::any_of(text.begin(), text.end(), isSpecial);
}

constexpr int kLevelWithoutItems = std::numeric_limits<int>::min();

class HtmlVisitor : public DocumentVisitor {
 public:
  explicit HtmlVisitor(const QTextDocument& document) : m_document(document) {}

  QString TakeHtml() {
    CloseLists(0);
    return std::move(m_html);
  }

  void BeginBlock(const QTextBlock& block) override {
    m_blockBegin = m_html.size();
    EnterList(block);
    const int heading = block.blockFormat().headingLevel();
    m_tag = block.textList()
                ? QStringLiteral("li")
                : (heading > 0 ? QLatin1Char('h') + QString::number(std::min(heading, 6)) : QStringLiteral("p"));
    m_html += QLatin1Char('<') + m_tag;
    if (block.blockFormat().layoutDirection() == Qt::RightToLeft) m_html += QLatin1String(" dir=\"rtl\"");
    QTextBlockFormat format = block.blockFormat();
    if (!block.textList()) format.setLeftMargin(format.leftMargin() + format.indent() * m_document.indentWidth());
    QString css = CssForParagraph(format);
    if (NeedsBlanksKept(block.text())) css += QLatin1String("white-space:pre-wrap;");
    m_html += QLatin1String(" style=\"") + css + QLatin1String("\">");
    m_empty = true;
    m_endsInBreak = false;
  }

  void EndBlock(const QTextBlock&, bool last) override {
    // The empty paragraph that Qt keeps behind a table at the very end, and the one of an empty text.
    const bool isOnlyEnd = last && m_empty && (m_afterTable || m_blockBegin == 0);
    m_afterTable = false;
    if (isOnlyEnd) return m_html.truncate(m_blockBegin);
    CloseLink();
    if (m_empty || m_endsInBreak) m_html += QLatin1String("<br>");  // the last one in a paragraph shows nothing
    m_html += QLatin1String("</") + m_tag + QLatin1String(">\n");
  }

  void Run(QStringView text, const QTextCharFormat& format, int index) override {
    if (format.boolProperty(kHiddenText)) return;
    EnterLink(format.anchorHref());
    const QString& css = CssOf(format, index);
    if (!css.isEmpty()) m_html += QLatin1String("<span style=\"") + css + QLatin1String("\">");
    m_html += EscapeHtml(text);
    if (!css.isEmpty()) m_html += QLatin1String("</span>");
    m_empty = false;
    m_endsInBreak = text.endsWith(QChar::LineSeparator);
  }

  void Image(const QTextImageFormat& format, int) override {
    EnterLink(format.anchorHref());
    const QByteArray png = PngOfPicture(m_document, format);
    m_html += QLatin1String("<img src=\"data:image/png;base64,") + QLatin1String(png.toBase64()) + QLatin1Char('"');
    const QSizeF size = ShownSize(m_document, format);
    m_html += QStringLiteral(" width=\"%1\" height=\"%2\">").arg(qRound(size.width())).arg(qRound(size.height()));
    m_empty = false;
    m_endsInBreak = false;
  }

  void BeginTable(const QTextTable& table) override {
    CloseLists(0);
    m_lists.append(ListPlace());  // lists inside a cell nest in nothing outside it
    const QTextTableFormat format = table.format();
    m_html +=
        QStringLiteral("<table border=\"%1\" cellspacing=\"%2\" cellpadding=\"%3\" style=\"border-collapse:%4;\">\n")
            .arg(qRound(format.border()))
            .arg(qRound(format.cellSpacing()))
            .arg(qRound(format.cellPadding()))
            .arg(QLatin1String(format.borderCollapse() ? "collapse" : "separate"));
  }
  void EndTable(const QTextTable&) override {
    m_lists.removeLast();
    m_afterTable = true;
    m_html += QLatin1String("</table>\n");
  }
  void BeginRow(const QTextTable&, int) override { m_html += QLatin1String("<tr>"); }
  void EndRow(const QTextTable&, int) override { m_html += QLatin1String("</tr>\n"); }

  void BeginCell(const QTextTable&, const QTextTableCell& cell) override {
    m_html += QLatin1String("<td");
    if (cell.columnSpan() > 1) m_html += QStringLiteral(" colspan=\"%1\"").arg(cell.columnSpan());
    if (cell.rowSpan() > 1) m_html += QStringLiteral(" rowspan=\"%1\"").arg(cell.rowSpan());
    const QBrush background = cell.format().background();
    if (background.style() != Qt::NoBrush) m_html += QStringLiteral(" bgcolor=\"%1\"").arg(background.color().name());
    const QString css = CssForCell(cell.format().toTableCellFormat());
    if (!css.isEmpty()) m_html += QLatin1String(" style=\"") + css + u'"';
    m_html += QLatin1Char('>');
    m_floors.append(m_lists.size());
  }
  void EndCell(const QTextTable&, const QTextTableCell&) override {
    CloseLists(m_floors.takeLast());
    m_html += QLatin1String("</td>");
  }

 private:
  const QString& CssOf(const QTextCharFormat& format, int index) {
    const auto known = m_css.constFind(index);
    return known != m_css.cend() ? *known : *m_css.insert(index, CssForCharacters(format));
  }

  void EnterLink(const QString& target) {
    if (target == m_link) return;
    CloseLink();
    m_link = target;
    if (!target.isEmpty()) m_html += QLatin1String("<a href=\"") + EscapeHtml(target) + QLatin1String("\">");
  }

  void CloseLink() {
    if (!m_link.isEmpty()) m_html += QLatin1String("</a>");
    m_link.clear();
  }

  void EnterList(const QTextBlock& block) {
    const qsizetype floor = m_floors.isEmpty() ? 0 : m_floors.last();
    const ListPlace place = PlaceInList(block);
    if (!place.id) return CloseLists(floor);
    while (m_lists.size() > floor && m_lists.last().level > place.level) CloseLists(m_lists.size() - 1);
    if (m_lists.size() > floor && m_lists.last().level == place.level) {
      if (m_lists.last().id == place.id) return;
      CloseLists(m_lists.size() - 1);
    }
    for (int level = m_lists.size() > floor ? m_lists.last().level + 1 : 0; level < place.level; ++level) {
      OpenList({level, kLevelWithoutItems}, QStringLiteral("ul"));
    }
    QString tag = ListTag(*block.textList());
    const int first = FirstNumber(block);
    if (first != 1 && tag.startsWith(QLatin1String("ol"))) tag += QStringLiteral(" start=\"%1\"").arg(first);
    OpenList(place, tag);
  }

  void OpenList(const ListPlace& place, const QString& tag) {
    m_lists.append(place);
    m_closings.append(tag.left(2));
    m_html += QLatin1Char('<') + tag + QLatin1String(" style=\"margin:0;\">\n");
  }

  void CloseLists(qsizetype remaining) {
    while (m_lists.size() > remaining && m_lists.last().id) {
      m_lists.removeLast();
      m_html += QLatin1String("</") + m_closings.takeLast() + QLatin1String(">\n");
    }
  }

  const QTextDocument& m_document;
  QString m_html;
  QString m_tag;
  QString m_link;
  bool m_empty = true;
  bool m_endsInBreak = false;
  bool m_afterTable = false;
  qsizetype m_blockBegin = 0;
  QHash<int, QString> m_css;
  QList<ListPlace> m_lists;
  QStringList m_closings;
  QList<qsizetype> m_floors;
};

}  // namespace

QByteArray WriteHtml(const QTextDocument& document, int begin, int end) {
  HtmlVisitor visitor(document);
  WalkDocument(document, visitor, begin, end);
  QByteArray html = "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"></head><body>\n";
  html += visitor.TakeHtml().toUtf8();
  return html + "</body></html>\n";
}

}  // namespace snipdeck
