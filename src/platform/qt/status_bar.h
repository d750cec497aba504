#pragma once

#include <QStringList>

#include "platform/qt/control_companion.h"

class QLabel;

namespace snipdeck {

/// Where the caret of a control stands. `page` is the page that the caret's line is printed on; in the normal view, the
/// one that it would be printed on if the lines were printed as they are wrapped on the screen; `line` counts the wrapped lines from the top of that page, `column` the
/// characters from the start of that line. All from 1.
struct CaretPlace {
  int page = 1;
  int line = 1;
  int column = 1;
};

/// Found by looking at no more than a page of lines, whatever the length of the text.
CaretPlace CaretPlaceIn(const RichTextControl& control);

/// Tells page, line and column of the caret, the number of pages and the zoom.
class TXStatusBar : public ControlCompanion {
  Q_OBJECT

 public:
  explicit TXStatusBar(QWidget* parent = nullptr);

  TXStatusBar* WindowHandle() { return this; }
  /// What stands before the caret's line, column, section and page, in this order, in place of the usual words. A text
  /// is one section.
  void SetFieldLabels(const QStringList& labels);

 protected:
  void Refresh() override;

 private:
  QString PlaceText(const CaretPlace& place) const;

  QStringList m_fieldLabels;
  QLabel* m_place;
  QLabel* m_extent;
};

}  // namespace snipdeck
