#pragma once

#include <QDialog>

class QCheckBox;
class QSpinBox;

namespace snipdeck {

class RichTextControl;

/// Asks for the size of a new table.
class TextInsertTableDialog : public QDialog {
  Q_OBJECT

 public:
  explicit TextInsertTableDialog(QWidget* parent = nullptr);

  int Rows() const;
  int Columns() const;
  bool HasLines() const;

 private:
  QSpinBox* m_rows;
  QSpinBox* m_columns;
  QCheckBox* m_lines;
};

/// Inserts the table that the user asks for; one undo step.
void RunInsertTableDialog(RichTextControl& control);

}  // namespace snipdeck
