#pragma once

#include <array>

#include <QDialog>

#include "platform/page_geometry.h"

class QComboBox;
class QRadioButton;

namespace snipdeck {

class LengthBox;
class RichTextControl;

/// Paper size, orientation and margins of a document.
class TextPageSetupDialog : public QDialog {
  Q_OBJECT

 public:
  explicit TextPageSetupDialog(const PageGeometry& page, QWidget* parent = nullptr);

  PageGeometry Page() const;

 private:
  QWidget* MakePaperGroup();
  QWidget* MakeMarginGroup();
  void TakePaper(int index);
  void Turn();
  void ShowSize(double width, double height);
  void SizeHasChanged();

  QComboBox* m_paper;
  QRadioButton* m_upright;
  QRadioButton* m_wide;
  LengthBox* m_width;
  LengthBox* m_height;
  std::array<LengthBox*, 4> m_margins;
  bool m_isShowing = false;
};

/// Gives the document the page that the user chooses; one undo step.
void RunPageSetupDialog(RichTextControl& control);

}  // namespace snipdeck
