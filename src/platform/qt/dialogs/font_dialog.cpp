#include "platform/qt/dialogs/font_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

#include "platform/qt/dialogs/check_choice.h"
#include "platform/qt/dialogs/colour_button.h"
#include "platform/qt/dialogs/pick_list.h"
#include "platform/qt/font_families.h"
#include "platform/qt/rich_text_control.h"

namespace snipdeck {

namespace {

constexpr double kLeastPoints = 1;
constexpr double kMostPoints = 400;
constexpr int kSampleHeight = 72;  // pixels
constexpr int kFamilyWidth = 240;
constexpr int kPointsWidth = 80;
constexpr int kSizes[] = {6, 7, 8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 28, 32, 36, 48, 72};

QStringList SizeNames() {
  QStringList names;
  for (const int size : kSizes) names << QString::number(size);
  return names;
}

}  // namespace

TextFontDialog::TextFontDialog(const FontTraits& traits, const QFont& defaults, QWidget* parent)
    : QDialog(parent),
      m_given(traits),
      m_defaults(defaults),
      m_family(new PickList(FontFamilyNames(), tr("Font"))),
      m_points(new PickList(SizeNames(), tr("Size in points"))),
      m_bold(new QCheckBox(tr("&Bold"))),
      m_italic(new QCheckBox(tr("&Italic"))),
      m_colour(new ColourButton(tr("Automatic"), tr("Text colour"))),
      m_background(new ColourButton(tr("None"), tr("Background"))),
      m_sample(new QTextEdit),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel)) {
  setWindowTitle(tr("Font"));
  setObjectName(QStringLiteral("FontDialog"));
  LayOut();
  Show(traits);
  FollowChoices();
  ShowSample();
  m_family->Field().selectAll();
  m_family->setFocus();
}

void TextFontDialog::LayOut() {
  m_family->setMinimumWidth(kFamilyWidth);
  m_points->setFixedWidth(kPointsWidth);
  auto* const grid = new QGridLayout;
  grid->addWidget(LabelFor(tr("&Font"), m_family), 0, 0);
  grid->addWidget(LabelFor(tr("&Size"), m_points), 0, 1);
  grid->addWidget(m_family, 1, 0);
  grid->addWidget(m_points, 1, 1);
  grid->addWidget(MakeEffects(), 0, 2, 2, 1);
  grid->setColumnStretch(0, 1);
  PrepareSample();
  auto* const column = new QVBoxLayout(this);
  column->addLayout(grid, 1);
  column->addWidget(m_sample);
  column->addWidget(m_buttons);
}

void TextFontDialog::FollowChoices() {
  connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  for (PickList* list : {m_family, m_points}) connect(list, &PickList::Changed, this, &TextFontDialog::ShowSample);
  for (QCheckBox* box : {m_bold, m_italic}) connect(box, &QCheckBox::stateChanged, this, &TextFontDialog::ShowSample);
  for (QComboBox* box : {m_underline, m_strike, m_position, m_capitals})
    connect(box, &QComboBox::currentIndexChanged, this, &TextFontDialog::ShowSample);
  for (ColourButton* button : {m_colour, m_background})
    connect(button, &ColourButton::ColourChosen, this, &TextFontDialog::ShowSample);
}

void TextFontDialog::PrepareSample() {
  m_sample->setReadOnly(true);
  m_sample->setFocusPolicy(Qt::NoFocus);
  m_sample->setFixedHeight(kSampleHeight);
  m_sample->setAccessibleName(tr("Sample"));
  QPalette paper = m_sample->palette();
  paper.setColor(QPalette::Base, Qt::white);
  paper.setColor(QPalette::Text, Qt::black);
  m_sample->setPalette(paper);
}

QComboBox* TextFontDialog::AddChoice(QGridLayout& grid, const QString& caption, const QStringList& choices) {
  auto* const box = new QComboBox;
  box->addItems(choices);
  const int row = grid.rowCount();
  grid.addWidget(LabelFor(caption, box), row, 0);
  grid.addWidget(box, row, 1);
  return box;
}

QWidget* TextFontDialog::MakeEffects() {
  auto* const group = new QGroupBox(tr("Effects"));
  auto* const grid = new QGridLayout(group);
  grid->addWidget(m_bold, 0, 0, 1, 2);
  grid->addWidget(m_italic, 1, 0, 1, 2);
  m_underline =
      AddChoice(*grid, tr("&Underline"),
                {tr("None"), tr("Single"), tr("Double"), tr("Words only"), tr("Dotted"), tr("Dashed"), tr("Wave")});
  m_strike = AddChoice(*grid, tr("S&trikeout"), {tr("None"), tr("Single"), tr("Double")});
  m_position = AddChoice(*grid, tr("&Position"), {tr("Normal"), tr("Superscript"), tr("Subscript")});
  m_capitals =
      AddChoice(*grid, tr("C&apitals"), {tr("As typed"), tr("All capitals"), tr("All small"), tr("Small capitals")});
  const int row = grid->rowCount();
  grid->addWidget(LabelFor(tr("&Colour"), m_colour), row, 0);
  grid->addWidget(m_colour, row, 1);
  grid->addWidget(LabelFor(tr("Back&ground"), m_background), row + 1, 0);
  grid->addWidget(m_background, row + 1, 1);
  grid->setRowStretch(row + 2, 1);
  return group;
}

void TextFontDialog::Show(const FontTraits& traits) {
  m_family->SetValue(traits.family.value_or(QString()));
  m_points->SetValue(traits.points ? QLocale().toString(*traits.points, 'g', 4) : QString());
  ShowChecked(*m_bold, traits.bold);
  ShowChecked(*m_italic, traits.italic);
  if (traits.underline == UnderlineLook::Other) m_underline->addItem(tr("Other"));
  ShowChoice(*m_underline, traits.underline);
  ShowChoice(*m_strike, traits.strike);
  ShowChoice(*m_position, traits.position);
  ShowChoice(*m_capitals, traits.capitals);
  m_colour->SetColour(traits.colour);
  m_background->SetColour(traits.background);
}

std::optional<double> TextFontDialog::Points() const {
  bool isNumber = false;
  const double points = QLocale().toDouble(m_points->Value(), &isNumber);
  if (!isNumber || points < kLeastPoints || points > kMostPoints) return std::nullopt;
  return points;
}

FontTraits TextFontDialog::Traits() const {
  FontTraits traits;
  if (!m_family->Value().isEmpty()) traits.family = m_family->Value();
  traits.points = Points();
  traits.bold = CheckedIn(*m_bold);
  traits.italic = CheckedIn(*m_italic);
  traits.underline = ChoiceIn<UnderlineLook>(*m_underline);
  traits.strike = ChoiceIn<StrikeLook>(*m_strike);
  traits.position = ChoiceIn<QTextCharFormat::VerticalAlignment>(*m_position);
  traits.capitals = ChoiceIn<QFont::Capitalization>(*m_capitals);
  traits.colour = m_colour->Colour();
  traits.background = m_background->Colour();
  return traits;
}

void TextFontDialog::ShowSample() {
  QTextCharFormat format;
  format.setFont(m_defaults, QTextCharFormat::FontPropertiesSpecifiedOnly);
  format.merge(FontChange({}, Traits()));
  m_sample->clear();
  QTextCursor cursor(m_sample->document());
  QTextBlockFormat centred;
  centred.setAlignment(Qt::AlignCenter);
  cursor.setBlockFormat(centred);
  cursor.insertText(tr("The quick brown fox, 0123456789"), format);
  m_buttons->button(QDialogButtonBox::Ok)->setEnabled(m_points->Value().isEmpty() || Points());
}

void RunFontDialog(RichTextControl& control) {
  const FontTraits before = FontTraits::OfSelection(control);
  TextFontDialog dialog(before, control.document()->defaultFont(), control.window());
  if (dialog.exec() != QDialog::Accepted || control.isReadOnly()) return;
  const QTextCharFormat change = FontChange(before, dialog.Traits());
  if (change.propertyCount() == 0) return;
  control.mergeCurrentCharFormat(change);
  emit control.Edited();
}

}  // namespace snipdeck
