#pragma once

#include <QStringList>

#include "platform/qt/control_companion.h"
#include "platform/qt/page_view/page_starts.h"

class QLabel;

namespace snipdeck {

/// Where the caret of a control stands. `page` is the page that the caret's line is printed on, `line` counts the lines
/// as they are shown from the first one with text of that page, and cells that stand side by side as one; `column`
/// counts the characters from the start of the line. All from 1; 0 for a page and a line that are not known yet.
struct CaretPlace {
  int page = 1;
  int line = 1;
  int column = 1;
};

/// Found by looking at no more than a few pages of lines, whatever the length of the text.
CaretPlace CaretPlaceIn(const RichTextControl& control, const PageStarts& pages);

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
  PageStarts m_pages;
};

}  // namespace snipdeck
