#pragma once

#include <QFrame>

#include "layout/main_window_layout.h"
#include "platform/qt/button_bar.h"
#include "platform/qt/rich_text_control.h"
#include "platform/qt/ruler.h"
#include "platform/qt/status_bar.h"

class QLabel;

namespace snipdeck {

/// A panel that is laid over the box grid: a caption, a text control, and the control's ruler, button bar and status
/// bar.
class TextPanel : public QFrame {
  Q_OBJECT

 public:
  /// `number` is 1 or 2: it ends the names of the panel and its children.
  TextPanel(int number, QWidget* parent);

  RichTextControl& TextControl() { return *m_textControl; }
  QString Caption() const { return m_caption; }
  void SetCaption(const QString& caption);
  /// Moves the panel and its children; widths and heights that are negative are not applied.
  void Apply(const PanelPlacement& placement);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString m_caption;
  RichTextControl* m_textControl;
  TXButtonBar* m_buttonBar;
  TXRuler* m_ruler;
  TXStatusBar* m_statusBar;
  QLabel* m_marginStrip;
};

/// Puts `widget` at a place in twips; controls snap to whole pixels. A width or height that is negative is not applied.
void ApplyRect(QWidget& widget, const TwipRect& rect);

}  // namespace snipdeck
