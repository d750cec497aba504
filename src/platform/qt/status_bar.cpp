#include "platform/qt/status_bar.h"

#include <algorithm>
#include <cmath>

#include <QAbstractTextDocumentLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QTextBlock>
#include <QTextLayout>

#include "platform/qt/rich_text_control.h"

namespace snipdeck {
namespace {

constexpr int kFontPixels = 12;       // fits the lowest status bar, 18 pixels
constexpr double kTallestRow = 2000;  // pixels of a table's row that are looked at above a page

/// A line of the text as it is shown, in the layout's units.
struct ShownLine {
  double top;
  double height;
};

QString Told(int number) {
  return number > 0 ? QString::number(number) : QStringLiteral("...");
}

/// Where a page begins: its place in the layout, and its first character.
struct PageTop {
  double y;
  int position;
};

// From the caret's line upwards, cell by cell where the text is a table.
QList<ShownLine> LinesSince(const PageTop& page, QTextBlock block, double caretTop) {
  const QAbstractTextDocumentLayout* const layout = block.document()->documentLayout();
  QList<ShownLine> lines;
  for (; block.isValid() && block.position() + block.length() > page.position; block = block.previous()) {
    const double top = layout->blockBoundingRect(block).top();  // which places its lines
    const int last = block.layout()->lineCount() - 1;
    for (int i = last; i >= 0; --i) {
      const QTextLine line = block.layout()->lineAt(i);
      const double lineTop = top + line.y();
      if (lineTop < page.y - kTallestRow) return lines;
      const int end = block.position() + line.textStart() + line.textLength() + (i == last ? 1 : 0);
      const bool isOnPage = lineTop >= page.y && end > page.position;
      if (isOnPage && lineTop <= caretTop) lines.append({lineTop, line.height()});
    }
  }
  return lines;
}

// Lines that stand side by side are one.
int CountRows(QList<ShownLine> lines) {
  std::sort(lines.begin(), lines.end(), [](const ShownLine& a, const ShownLine& b) { return a.top < b.top; });
  int rows = 0;
  double middle = 0;
  for (const ShownLine& line : lines) {
    if (rows > 0 && line.top < middle) continue;
    ++rows;
    middle = line.top + line.height / 2;
  }
  return rows;
}

int PageCount(const RichTextControl& control, const PageStarts& pages) {
  const double pageHeight = control.ScaleOfLayout().pageHeight;
  if (pageHeight <= 0) return pages.Count();
  const double height = control.AsItStands().document()->size().height();
  return std::max(1, static_cast<int>(std::ceil(height / pageHeight)));
}

}  // namespace

CaretPlace CaretPlaceIn(const RichTextControl& control, const PageStarts& pages) {
  const QTextCursor caret = control.AsItStands().textCursor();
  const QTextBlock block = caret.block();
  const double blockTop = control.AsItStands().document()->documentLayout()->blockBoundingRect(block).top();
  const QTextLine line = block.layout()->lineForTextPosition(caret.positionInBlock());
  if (!line.isValid()) return {1, 1, caret.positionInBlock() + 1};

  const double top = blockTop + line.y();
  const double pageHeight = control.ScaleOfLayout().pageHeight;
  const int page = pageHeight > 0 ? static_cast<int>((top + line.ascent()) / pageHeight) + 1 : pages.PageOf(caret.position());
  const int column = caret.positionInBlock() - line.textStart() + 1;
  if (page == 0) return {0, 0, column};
  const PageTop begin = pageHeight > 0 ? PageTop{(page - 1) * pageHeight, 0} : PageTop{0, pages.StartOf(page)};
  return {page, CountRows(LinesSince(begin, block, top)), column};
}

TXStatusBar::TXStatusBar(QWidget* parent)
    : ControlCompanion(parent), m_place(new QLabel), m_extent(new QLabel), m_pages([this] { ScheduleRefresh(); }) {
  setAccessibleName(tr("Status bar"));
  QFont small = font();
  small.setPixelSize(kFontPixels);
  setFont(small);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(4, 0, 10, 0);
  for (QLabel* label : {m_place, m_extent}) {
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    row->addWidget(label, label == m_place ? 3 : 2);
  }
  m_extent->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void TXStatusBar::SetFieldLabels(const QStringList& labels) {
  m_fieldLabels = labels;
  ScheduleRefresh();
}

QString TXStatusBar::PlaceText(const CaretPlace& place) const {
  if (m_fieldLabels.size() != 4)
    return tr("Page %1   Line %2   Column %3").arg(Told(place.page), Told(place.line), Told(place.column));
  const int values[] = {place.line, place.column, 1, place.page};
  QStringList fields;
  for (qsizetype i = 0; i < 4; ++i) fields.append(m_fieldLabels[i] + Told(values[i]));
  return fields.join(QStringLiteral("   "));
}

void TXStatusBar::Refresh() {
  const RichTextControl* const control = Control();
  if (!control) {
    m_place->clear();
    return m_extent->clear();
  }
  if (control->ScaleOfLayout().pageHeight <= 0) m_pages.LookAt(*control);
  m_place->setText(PlaceText(CaretPlaceIn(*control, m_pages)));
  const QString pages = Told(PageCount(*control, m_pages));
  m_extent->setText(tr("Pages: %1   Zoom: %2 %").arg(pages).arg(control->ZoomValue()));
}

}  // namespace snipdeck
