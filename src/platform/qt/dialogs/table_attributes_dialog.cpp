#include "platform/qt/dialogs/table_attributes_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QSpinBox>
#include <QTextTable>
#include <QVBoxLayout>

#include "platform/qt/dialogs/check_choice.h"
#include "platform/qt/dialogs/colour_button.h"
#include "platform/qt/dialogs/length_box.h"
#include "platform/qt/rich_text_control.h"

namespace snipdeck {
namespace {

constexpr double kNarrowestColumn = 4;   // pixels
constexpr double kWidestColumn = 6000;   // pixels
constexpr double kThickestLine = 17;     // pixels, what RTF can say
constexpr double kWidestDistance = 480;  // pixels
constexpr int kMostAtOnce = 100;
constexpr Qt::AlignmentFlag kAlignments[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};

int AlignmentIndex(Qt::Alignment alignment) {
  if (alignment & Qt::AlignHCenter) return 1;
  return alignment & Qt::AlignRight ? 2 : 0;
}

// Fields in rows, each behind its caption.
class Rows {
 public:
  explicit Rows(QWidget* group) : m_grid(new QGridLayout(group)) { m_grid->setColumnStretch(2, 1); }

  void Add(const QString& caption, QWidget* field, QWidget* beside = nullptr) {
    m_grid->addWidget(LabelFor(caption, field), m_row, 0);
    m_grid->addWidget(field, m_row, 1);
    if (beside) m_grid->addWidget(beside, m_row, 2);
    ++m_row;
  }

 private:
  QGridLayout* m_grid;
  int m_row = 0;
};

}  // namespace

TextTableDialog::TextTableDialog(const TableTraits& traits, const QString& place, QWidget* parent)
    : QDialog(parent),
      m_given(traits),
      m_change(new QComboBox),
      m_count(new QSpinBox),
      m_alignment(new QComboBox),
      m_columnWidth(new LengthBox(LengthBox::Unit::Ruler, kNarrowestColumn, kWidestColumn)),
      m_shareWidth(new QCheckBox(tr("Columns &evenly from margin to margin"))),
      m_scope(new QComboBox),
      m_lineWidth(new LengthBox(LengthBox::Unit::Points, 0, kThickestLine)),
      m_lineColour(new ColourButton(tr("Black"), tr("Colour of the lines"))),
      m_shading(new ColourButton(tr("None"), tr("Shading"))),
      m_distance(new LengthBox(LengthBox::Unit::Ruler, 0, kWidestDistance)) {
  setWindowTitle(tr("Table"));
  setObjectName(QStringLiteral("TableAttributesDialog"));
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(new QLabel(place));
  column->addWidget(MakeTableGroup());
  column->addWidget(MakeCellGroup());
  column->addWidget(MakeChangeGroup());
  column->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(m_change, &QComboBox::currentIndexChanged, this, &TextTableDialog::OfferDetails);
  connect(m_shareWidth, &QCheckBox::toggled, this, &TextTableDialog::OfferDetails);
  m_alignment->setCurrentIndex(AlignmentIndex(traits.alignment));
  m_columnWidth->SetLength(traits.columnWidth);
  m_lineWidth->SetLength(traits.lines.width);
  m_lineColour->SetColour(traits.lines.colour);
  m_shading->SetColour(traits.shading);
  m_distance->SetLength(traits.distance);
  OfferDetails();
}

QWidget* TextTableDialog::MakeTableGroup() {
  auto* const group = new QGroupBox(tr("Table"));
  m_alignment->addItems({tr("Left"), tr("Centred"), tr("Right")});
  Rows rows(group);
  rows.Add(tr("Ali&gnment"), m_alignment);
  rows.Add(tr("&Width of this column"), m_columnWidth, m_shareWidth);
  return group;
}

QWidget* TextTableDialog::MakeCellGroup() {
  auto* const group = new QGroupBox(tr("Cells"));
  // In the order of TableScope.
  m_scope->addItems({tr("This cell"), tr("This row"), tr("This column"), tr("The whole table")});
  m_scope->setCurrentIndex(static_cast<int>(TableScope::Table));
  Rows rows(group);
  rows.Add(tr("Change &in"), m_scope);
  rows.Add(tr("&Lines"), m_lineWidth, m_lineColour);
  rows.Add(tr("&Shading"), m_shading);
  rows.Add(tr("&Distance to the text"), m_distance);
  return group;
}

QWidget* TextTableDialog::MakeChangeGroup() {
  auto* const group = new QGroupBox(tr("Rows and columns"));
  // In the order of TableChange.
  m_change->addItems({tr("Leave as they are"), tr("Insert rows above"), tr("Insert rows below"),
                      tr("Insert columns before"), tr("Insert columns after"), tr("Remove this row"),
                      tr("Remove this column"), tr("Remove the table")});
  m_count->setRange(1, kMostAtOnce);
  m_count->setAccessibleName(tr("How many"));
  m_count->setToolTip(tr("How many"));
  Rows rows(group);
  rows.Add(tr("&Rows and columns"), m_change, m_count);
  return group;
}

void TextTableDialog::OfferDetails() {
  const TableChange change = Change();
  m_count->setEnabled(change >= TableChange::RowsAbove && change <= TableChange::ColumnsAfter);
  m_columnWidth->setEnabled(!m_shareWidth->isChecked());
}

// A black line is what the given one is, too, where nobody chose a colour.
TableTraits TextTableDialog::Traits() const {
  TableTraits traits = m_given;
  const int alignment = m_alignment->currentIndex();
  if (alignment != AlignmentIndex(m_given.alignment)) traits.alignment = kAlignments[std::max(0, alignment)];
  traits.columnWidth = m_columnWidth->Length().value_or(m_given.columnWidth);
  traits.distance = m_distance->Length().value_or(m_given.distance);
  traits.lines.width = m_lineWidth->Length().value_or(m_given.lines.width);
  const QColor line = m_lineColour->Colour().value_or(m_given.lines.colour);
  traits.lines.colour = line.isValid() ? line : QColor(Qt::black);
  traits.shading = m_shading->Colour().value_or(m_given.shading);
  return traits;
}

TableScope TextTableDialog::Scope() const {
  return ChoiceIn<TableScope>(*m_scope).value_or(TableScope::Table);
}
TableChange TextTableDialog::Change() const {
  return ChoiceIn<TableChange>(*m_change).value_or(TableChange::None);
}
int TextTableDialog::Count() const {
  return m_count->value();
}
bool TextTableDialog::SharesWidth() const {
  return m_shareWidth->isChecked();
}

void RunTableAttributesDialog(RichTextControl& control) {
  QTextCursor cursor = control.textCursor();
  QTextTable* const table = TableWithSelection(cursor);
  if (!table) return;
  const QTextTableCell cell = table->cellAt(cursor);
  const TableTraits before = TraitsOf(*table, cursor);
  const QString place = QObject::tr("Row %1 of %2, column %3 of %4")
                            .arg(cell.row() + 1)
                            .arg(table->rows())
                            .arg(cell.column() + 1)
                            .arg(table->columns());
  TextTableDialog dialog(before, place, control.window());
  if (dialog.exec() != QDialog::Accepted) return;
  cursor.beginEditBlock();
  ApplyTableTraits(*table, cursor, before, dialog.Traits(), dialog.Scope());
  if (dialog.SharesWidth()) ShareWidth(*table);
  ChangeTable(*table, cursor, dialog.Change(), dialog.Count());
  cursor.endEditBlock();
  control.ensureCursorVisible();
  emit control.Edited();
}

}  // namespace snipdeck
