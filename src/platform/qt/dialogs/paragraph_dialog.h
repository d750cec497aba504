#pragma once

#include <QDialog>

#include "platform/qt/dialogs/paragraph_traits.h"

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QGridLayout;
class QLabel;

namespace snipdeck {

class LengthBox;
class TabStopPage;

/// Alignment, indents, spacing, line spacing, breaks and tab stops of paragraphs.
class TextParagraphDialog : public QDialog {
  Q_OBJECT

 public:
  TextParagraphDialog(const ParagraphTraits& traits, QWidget* parent);

  /// As the user has chosen by now; what was mixed and was left alone has no value.
  ParagraphTraits Traits() const;

 private:
  QWidget* MakeIndentPage();
  QWidget* MakeIndentGroup();
  QWidget* MakeSpacingGroup();
  void Show(const ParagraphTraits& traits);
  void ShowLines(const std::optional<LineSpacing>& lines);
  void OfferAmount();
  std::optional<LineSpacing> Lines() const;

  std::optional<LineSpacing> m_givenLines;
  QComboBox* m_alignment;
  LengthBox* m_left;
  LengthBox* m_right;
  LengthBox* m_firstLine;
  LengthBox* m_before;
  LengthBox* m_after;
  QComboBox* m_rule;
  QDoubleSpinBox* m_multiple;
  LengthBox* m_height;
  QCheckBox* m_keepTogether;
  QCheckBox* m_keepWithNext;
  QCheckBox* m_pageBreakBefore;
  TabStopPage* m_tabs;
};

/// Lets the user change the paragraphs of the selection. One undo step.
void RunParagraphDialog(RichTextControl& control);

}  // namespace snipdeck
