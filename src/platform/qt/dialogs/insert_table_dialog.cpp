#include "platform/qt/dialogs/insert_table_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QSpinBox>

#include "platform/qt/rich_text_control.h"
#include "platform/qt/table_work.h"

namespace snipdeck {
namespace {

constexpr int kMostRows = 500;
constexpr int kMostColumns = 60;  // of more, none would be wide enough for a letter

QSpinBox* NumberBox(const QString& name, int most, int value) {
  auto* const box = new QSpinBox;
  box->setRange(1, most);
  box->setValue(value);
  box->setAccelerated(true);
  box->setObjectName(name);
  return box;
}

}  // namespace

TextInsertTableDialog::TextInsertTableDialog(QWidget* parent)
    : QDialog(parent),
      m_rows(NumberBox(QStringLiteral("rows"), kMostRows, 3)),
      m_columns(NumberBox(QStringLiteral("columns"), kMostColumns, 3)),
      m_lines(new QCheckBox(tr("&Lines around the cells"))) {
  setWindowTitle(tr("Insert table"));
  setObjectName(QStringLiteral("InsertTableDialog"));
  m_lines->setChecked(true);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  auto* const form = new QFormLayout(this);
  form->addRow(tr("&Rows"), m_rows);
  form->addRow(tr("&Columns"), m_columns);
  form->addRow(m_lines);
  form->addRow(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  m_rows->selectAll();
}

int TextInsertTableDialog::Rows() const {
  return m_rows->value();
}
int TextInsertTableDialog::Columns() const {
  return m_columns->value();
}
bool TextInsertTableDialog::HasLines() const {
  return m_lines->isChecked();
}

void RunInsertTableDialog(RichTextControl& control) {
  TextInsertTableDialog dialog(control.window());
  if (dialog.exec() != QDialog::Accepted) return;
  QTextCursor cursor = control.textCursor();
  InsertTable(cursor, dialog.Rows(), dialog.Columns(), {dialog.HasLines() ? 1.0 : 0.0, Qt::black});
  control.setTextCursor(cursor);
  emit control.Edited();
}

}  // namespace snipdeck
