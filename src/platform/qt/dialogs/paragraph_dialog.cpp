#include "platform/qt/dialogs/paragraph_dialog.h"

#include <cmath>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QTabWidget>
#include <QVBoxLayout>

#include "platform/qt/dialogs/check_choice.h"
#include "platform/qt/dialogs/length_box.h"
#include "platform/qt/dialogs/tab_stop_page.h"
#include "platform/qt/rich_text_control.h"

namespace snipdeck {

namespace {

constexpr double kWidestIndent = 2000;   // pixels
constexpr double kWidestSpacing = 2000;  // pixels
constexpr double kLowestLine = 1;        // pixels
constexpr double kDefaultHeight = 16;    // pixels: 12 points
constexpr double kDefaultMultiple = 3;

void AddRow(QGridLayout& grid, const QString& caption, QWidget* field, QWidget* beside = nullptr) {
  const int row = grid.rowCount();
  grid.addWidget(LabelFor(caption, field), row, 0);
  grid.addWidget(field, row, 1);
  if (beside) grid.addWidget(beside, row, 2);
}

bool HasHeight(LineSpacingRule rule) {
  return rule == LineSpacingRule::AtLeast || rule == LineSpacingRule::Exactly;
}

}  // namespace

TextParagraphDialog::TextParagraphDialog(const ParagraphTraits& traits, QWidget* parent)
    : QDialog(parent),
      m_alignment(new QComboBox),
      m_left(new LengthBox(LengthBox::Unit::Ruler, -kWidestIndent, kWidestIndent)),
      m_right(new LengthBox(LengthBox::Unit::Ruler, -kWidestIndent, kWidestIndent)),
      m_firstLine(new LengthBox(LengthBox::Unit::Ruler, -kWidestIndent, kWidestIndent)),
      m_before(new LengthBox(LengthBox::Unit::Points, 0, kWidestSpacing)),
      m_after(new LengthBox(LengthBox::Unit::Points, 0, kWidestSpacing)),
      m_rule(new QComboBox),
      m_multiple(new QDoubleSpinBox),
      m_height(new LengthBox(LengthBox::Unit::Points, kLowestLine, kWidestSpacing)),
      m_keepTogether(new QCheckBox(tr("&Keep lines together"))),
      m_keepWithNext(new QCheckBox(tr("Keep with &next paragraph"))),
      m_pageBreakBefore(new QCheckBox(tr("&Page break before"))),
      m_tabs(new TabStopPage) {
  setWindowTitle(tr("Paragraph"));
  setObjectName(QStringLiteral("ParagraphDialog"));
  auto* const pages = new QTabWidget;
  pages->addTab(MakeIndentPage(), tr("&Indents and spacing"));
  pages->addTab(m_tabs, tr("&Tab stops"));
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(pages);
  column->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(m_rule, &QComboBox::currentIndexChanged, this, &TextParagraphDialog::OfferAmount);
  Show(traits);
  m_alignment->setFocus();
}

QWidget* TextParagraphDialog::MakeIndentPage() {
  auto* const page = new QWidget;
  auto* const column = new QVBoxLayout(page);
  // In the order of ParagraphAlignment.
  m_alignment->addItems({tr("Left"), tr("Centred"), tr("Right"), tr("Justified")});
  auto* const top = new QGridLayout;
  AddRow(*top, tr("Ali&gnment"), m_alignment);
  top->setColumnStretch(2, 1);
  column->addLayout(top);
  column->addWidget(MakeIndentGroup());
  column->addWidget(MakeSpacingGroup());
  for (QCheckBox* box : {m_keepTogether, m_keepWithNext, m_pageBreakBefore}) column->addWidget(box);
  column->addStretch(1);
  return page;
}

QWidget* TextParagraphDialog::MakeIndentGroup() {
  auto* const group = new QGroupBox(tr("Indents"));
  auto* const grid = new QGridLayout(group);
  AddRow(*grid, tr("&Left"), m_left);
  AddRow(*grid, tr("&Right"), m_right);
  AddRow(*grid, tr("&First line"), m_firstLine);
  m_firstLine->setToolTip(tr("Counted from the left indent; a negative value lets the first line hang out"));
  grid->setColumnStretch(2, 1);
  return group;
}

QWidget* TextParagraphDialog::MakeSpacingGroup() {
  auto* const group = new QGroupBox(tr("Spacing"));
  auto* const grid = new QGridLayout(group);
  AddRow(*grid, tr("&Before"), m_before);
  AddRow(*grid, tr("&After"), m_after);
  // In the order of LineSpacingRule.
  m_rule->addItems({tr("Single"), tr("1.5 lines"), tr("Double"), tr("Multiple"), tr("At least"), tr("Exactly")});
  m_multiple->setRange(0.1, 20);
  m_multiple->setSingleStep(0.1);
  m_multiple->setAccessibleName(tr("Number of lines"));
  m_height->setAccessibleName(tr("Line height"));
  AddRow(*grid, tr("Line &spacing"), m_rule, m_multiple);
  grid->addWidget(m_height, grid->rowCount() - 1, 2);
  grid->setColumnStretch(3, 1);
  return group;
}

void TextParagraphDialog::Show(const ParagraphTraits& traits) {
  ShowChoice(*m_alignment, traits.alignment);
  m_left->SetLength(traits.left);
  m_right->SetLength(traits.right);
  m_firstLine->SetLength(traits.firstLine);
  m_before->SetLength(traits.before);
  m_after->SetLength(traits.after);
  ShowLines(traits.lines);
  ShowChecked(*m_keepTogether, traits.keepTogether);
  ShowChecked(*m_keepWithNext, traits.keepWithNext);
  ShowChecked(*m_pageBreakBefore, traits.pageBreakBefore);
  m_tabs->SetTabs(traits.tabs);
}

void TextParagraphDialog::ShowLines(const std::optional<LineSpacing>& lines) {
  m_givenLines = lines;
  m_multiple->setValue(lines && lines->rule == LineSpacingRule::Multiple ? lines->amount : kDefaultMultiple);
  m_height->SetLength(lines && HasHeight(lines->rule) ? lines->amount : kDefaultHeight);
  m_rule->setCurrentIndex(lines ? static_cast<int>(lines->rule) : -1);
  OfferAmount();
}

void TextParagraphDialog::OfferAmount() {
  const auto rule = ChoiceIn<LineSpacingRule>(*m_rule);
  m_multiple->setVisible(rule == LineSpacingRule::Multiple);
  m_height->setVisible(rule && HasHeight(*rule));
}

std::optional<LineSpacing> TextParagraphDialog::Lines() const {
  const auto rule = ChoiceIn<LineSpacingRule>(*m_rule);
  if (!rule) return std::nullopt;
  if (HasHeight(*rule)) return LineSpacing{*rule, m_height->Length().value_or(kDefaultHeight)};
  if (*rule != LineSpacingRule::Multiple) return LineSpacing{*rule, 0};
  // What was given stays exact, though the field shows it rounded.
  const double shown = m_multiple->value();
  const bool isGiven = m_givenLines && m_givenLines->rule == *rule && std::abs(m_givenLines->amount - shown) < 0.006;
  return isGiven ? *m_givenLines : LineSpacing{*rule, shown};
}

ParagraphTraits TextParagraphDialog::Traits() const {
  ParagraphTraits traits;
  traits.alignment = ChoiceIn<ParagraphAlignment>(*m_alignment);
  traits.left = m_left->Length();
  traits.right = m_right->Length();
  traits.firstLine = m_firstLine->Length();
  traits.before = m_before->Length();
  traits.after = m_after->Length();
  traits.lines = Lines();
  traits.keepTogether = CheckedIn(*m_keepTogether);
  traits.keepWithNext = CheckedIn(*m_keepWithNext);
  traits.pageBreakBefore = CheckedIn(*m_pageBreakBefore);
  traits.tabs = m_tabs->Tabs();
  return traits;
}

void RunParagraphDialog(RichTextControl& control) {
  const ParagraphTraits before = ParagraphTraits::OfSelection(control);
  TextParagraphDialog dialog(before, control.window());
  if (dialog.exec() != QDialog::Accepted || control.isReadOnly()) return;
  if (ApplyParagraphTraits(control, before, dialog.Traits())) emit control.Edited();
}

}  // namespace snipdeck
