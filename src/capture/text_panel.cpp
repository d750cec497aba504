#include "capture/text_panel.h"

#include <QLabel>
#include <QPainter>

#include "platform/units.h"

namespace snipdeck {

namespace {

constexpr int kCaptionLeft = 8;
constexpr int kCaptionHeight = 16;

}  // namespace

TextPanel::TextPanel(int number, QWidget* parent)
    : QFrame(parent),
      m_textControl(new RichTextControl(this)),
      m_buttonBar(new TXButtonBar(this)),
      m_ruler(new TXRuler(this)),
      m_statusBar(new TXStatusBar(this)),
      m_marginStrip(new QLabel(this)) {
  setObjectName(QStringLiteral("Frame%1").arg(number));
  m_textControl->setObjectName(QStringLiteral("TXTextControl%1").arg(number));
  m_buttonBar->setObjectName(QStringLiteral("TXButtonBar%1").arg(number));
  m_ruler->setObjectName(QStringLiteral("TXRuler%1").arg(number));
  m_statusBar->setObjectName(QStringLiteral("TXStatusBar%1").arg(number));
  m_marginStrip->setObjectName(number == 1 ? QStringLiteral("lblMargin") : QStringLiteral("lblMargin%1").arg(number));
  m_textControl->SetRulerHandle(m_ruler->WindowHandle());
  m_textControl->SetButtonBarHandle(m_buttonBar->WindowHandle());
  m_textControl->SetStatusBarHandle(m_statusBar->WindowHandle());
  setAutoFillBackground(true);
}

void TextPanel::SetCaption(const QString& caption) {
  m_caption = caption;
  setAccessibleName(caption.trimmed());
  update();
}

void TextPanel::Apply(const PanelPlacement& placement) {
  ApplyRect(*this, placement.panel);
  ApplyRect(*m_buttonBar, placement.buttonBar);
  ApplyRect(*m_ruler, placement.ruler);
  ApplyRect(*m_marginStrip, placement.marginStrip);
  ApplyRect(*m_textControl, placement.textControl);
  ApplyRect(*m_statusBar, placement.statusBar);
}

void TextPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const int middle = kCaptionHeight / 2;
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(0, middle, width() - 1, height() - middle - 1);
  const int captionWidth = painter.fontMetrics().horizontalAdvance(m_caption);
  painter.fillRect(kCaptionLeft, 0, captionWidth, kCaptionHeight, palette().window());
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(QRect(kCaptionLeft, 0, captionWidth + 1, kCaptionHeight), Qt::AlignVCenter, m_caption);
}

void ApplyRect(QWidget& widget, const TwipRect& rect) {
  // Edges snap rather than sizes, so that what ends at the same place in twips does so in pixels.
  const int left = PixelsFromTwips(rect.left);
  const int top = PixelsFromTwips(rect.top);
  const int width = rect.width < 0 ? widget.width() : PixelsFromTwips(rect.left + rect.width) - left;
  const int height = rect.height < 0 ? widget.height() : PixelsFromTwips(rect.top + rect.height) - top;
  widget.setGeometry(left, top, width, height);
}

}  // namespace snipdeck
