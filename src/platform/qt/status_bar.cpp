#include "platform/qt/status_bar.h"

#include <QAbstractTextDocumentLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QTextBlock>
#include <QTextFrame>
#include <QTextLayout>

#include "platform/qt/rich_text_control.h"
#include "richtext/format_properties.h"

namespace snipdeck {
namespace {

constexpr int kFontPixels = 12;  // fits the lowest status bar, 18 pixels
// A4 with margins of an inch, for a text that names no page.
constexpr int kDefaultPageHeight = 16838;
constexpr int kDefaultPageMargin = 1440;

// The height of the text on one page in pixels, as large as the text is laid out.
double PageTextHeight(const RichTextControl& control) {
  const double real = control.ScaleOfLayout().pageHeight;
  if (real > 0) return real;
  const QTextFrameFormat page = control.AsItStands().document()->rootFrame()->frameFormat();
  const auto twips = [&](int property, int fallback) {
    const int value = page.intProperty(property);
    return value > 0 ? value : fallback;
  };
  const int height = twips(kPageHeight, kDefaultPageHeight) - twips(kPageMarginTop, kDefaultPageMargin) -
                     twips(kPageMarginBottom, kDefaultPageMargin);
  return std::max(height, kTwipsPerInch) / kTwipsPerPixel * control.ZoomValue() / 100.0;
}

// Wrapped lines from the caret's line upwards whose top lies at or below `pageTop`.
int LinesSince(double pageTop, QTextBlock block, const QTextLine& caretLine) {
  const QAbstractTextDocumentLayout* const layout = block.document()->documentLayout();
  int lines = 0;
  int index = caretLine.lineNumber();
  while (block.isValid()) {
    const double top = layout->blockBoundingRect(block).top();
    for (; index >= 0; --index) {
      if (lines > 0 && top + block.layout()->lineAt(index).y() < pageTop) return lines;
      ++lines;
    }
    block = block.previous();
    if (!block.isValid()) break;
    layout->blockBoundingRect(block);  // which places its lines
    index = block.layout()->lineCount() - 1;
  }
  return lines;
}

int PageCount(const RichTextControl& control) {
  const double height = control.AsItStands().document()->size().height();
  return std::max(1, static_cast<int>(std::ceil(height / PageTextHeight(control))));
}

}  // namespace

CaretPlace CaretPlaceIn(const RichTextControl& control) {
  const QTextCursor caret = control.AsItStands().textCursor();
  const QTextBlock block = caret.block();
  const double blockTop = control.AsItStands().document()->documentLayout()->blockBoundingRect(block).top();
  const QTextLine line = block.layout()->lineForTextPosition(caret.positionInBlock());
  if (!line.isValid()) return {1, 1, caret.positionInBlock() + 1};

  const double pageHeight = PageTextHeight(control);
  const int page = static_cast<int>((blockTop + line.y()) / pageHeight);
  return {page + 1, LinesSince(page * pageHeight, block, line), caret.positionInBlock() - line.textStart() + 1};
}

TXStatusBar::TXStatusBar(QWidget* parent) : ControlCompanion(parent), m_place(new QLabel), m_extent(new QLabel) {
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
    return tr("Page %1   Line %2   Column %3").arg(place.page).arg(place.line).arg(place.column);
  const int values[] = {place.line, place.column, 1, place.page};
  QStringList fields;
  for (qsizetype i = 0; i < 4; ++i) fields.append(m_fieldLabels[i] + QString::number(values[i]));
  return fields.join(QStringLiteral("   "));
}

void TXStatusBar::Refresh() {
  const RichTextControl* const control = Control();
  const CaretPlace place = control ? CaretPlaceIn(*control) : CaretPlace();
  m_place->setText(control ? PlaceText(place) : QString());
  m_extent->setText(control ? tr("Pages: %1   Zoom: %2 %").arg(PageCount(*control)).arg(control->ZoomValue())
                            : QString());
}

}  // namespace snipdeck
