#pragma once

#include <QDialog>

#include "platform/qt/dialogs/table_traits.h"

class QCheckBox;
class QComboBox;
class QSpinBox;

namespace snipdeck {

class ColourButton;
class LengthBox;
class RichTextControl;

/// The look of a table and of the cell with the caret, and changes of its rows and columns.
class TextTableDialog : public QDialog {
  Q_OBJECT

 public:
  /// `place` says which cell it is, in words.
  TextTableDialog(const TableTraits& traits, const QString& place, QWidget* parent = nullptr);

  TableTraits Traits() const;
  TableScope Scope() const;
  TableChange Change() const;
  int Count() const;
  bool SharesWidth() const;

 private:
  QWidget* MakeChangeGroup();
  QWidget* MakeTableGroup();
  QWidget* MakeCellGroup();
  void OfferDetails();

  const TableTraits m_given;
  QComboBox* m_change;
  QSpinBox* m_count;
  QComboBox* m_alignment;
  LengthBox* m_columnWidth;
  QCheckBox* m_shareWidth;
  QComboBox* m_scope;
  LengthBox* m_lineWidth;
  ColourButton* m_lineColour;
  ColourButton* m_shading;
  LengthBox* m_distance;
};

/// Changes the table with the caret as the user chooses; one undo step.
void RunTableAttributesDialog(RichTextControl& control);

}  // namespace snipdeck
