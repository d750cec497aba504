#include "platform/qt/button_bar.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>

#include "platform/qt/font_families.h"
#include "platform/qt/rich_text_control.h"

namespace snipdeck {
namespace {

constexpr int kFontPixels = 13;  // fits the lowest button bar, 25 pixels
constexpr int kFamilyWidth = 170;
constexpr int kFamilyListWidth = 260;
constexpr int kSizeWidth = 62;
constexpr double kLargestPointSize = 400;
constexpr int kSizes[] = {6, 7, 8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 28, 32, 36, 48, 72};

struct AlignmentOf {
  Glyph glyph;
  Qt::AlignmentFlag alignment;
};
constexpr AlignmentOf kAlignments[] = {{Glyph::AlignLeft, Qt::AlignLeft},
                                       {Glyph::AlignCentre, Qt::AlignHCenter},
                                       {Glyph::AlignRight, Qt::AlignRight},
                                       {Glyph::AlignJustify, Qt::AlignJustify}};

// What the control draws the caret's text with: what the text leaves open comes from the control.
QFont FontAtCaret(const RichTextControl& control) {
  return control.currentCharFormat().font().resolve(control.AsItStands().document()->defaultFont());
}

// An entry that the user is working in is left alone.
void ShowIn(QComboBox& combo, const QString& value) {
  if (combo.hasFocus() || combo.view()->isVisible()) return;
  combo.setCurrentIndex(combo.findText(value));
  combo.setEditText(value);
  combo.lineEdit()->setCursorPosition(0);
}

QString SizeText(const QFont& font) {
  return font.pointSizeF() > 0 ? QLocale().toString(font.pointSizeF(), 'g', 4) : QString();
}

}  // namespace

TXButtonBar::TXButtonBar(QWidget* parent) : ControlCompanion(parent) {
  setAccessibleName(tr("Button bar"));
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(1);
  m_family = AddCombo(tr("Font"));
  m_family->setMaximumWidth(kFamilyWidth);
  m_family->view()->setMinimumWidth(kFamilyListWidth);
  m_size = AddCombo(tr("Font size in points"));
  m_size->setFixedWidth(kSizeWidth);
  for (const int size : kSizes) m_size->addItem(QString::number(size));
  row->setStretchFactor(m_family, 1);
  row->addSpacing(4);
  AddButton(Glyph::Bold, tr("Bold"));
  AddButton(Glyph::Italic, tr("Italic"));
  AddButton(Glyph::Underline, tr("Underline"));
  row->addSpacing(4);
  AddButton(Glyph::AlignLeft, tr("Align left"));
  AddButton(Glyph::AlignCentre, tr("Centre"));
  AddButton(Glyph::AlignRight, tr("Align right"));
  AddButton(Glyph::AlignJustify, tr("Justify"));
  row->addStretch(0);
  connect(m_family, &QComboBox::activated, this, &TXButtonBar::ApplyFamily);
  connect(m_size, &QComboBox::activated, this, &TXButtonBar::ApplySize);
}

QComboBox* TXButtonBar::AddCombo(const QString& toolTip) {
  auto* const combo = new QComboBox(this);
  QFont comboFont = font();
  comboFont.setPixelSize(kFontPixels);
  combo->setFont(comboFont);
  combo->setEditable(true);
  combo->setInsertPolicy(QComboBox::NoInsert);
  combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combo->setFocusPolicy(Qt::StrongFocus);
  combo->setToolTip(toolTip);
  combo->setAccessibleName(toolTip);
  combo->lineEdit()->setAccessibleName(toolTip);
  combo->installEventFilter(this);
  combo->lineEdit()->installEventFilter(this);
  layout()->addWidget(combo);
  return combo;
}

void TXButtonBar::AddButton(Glyph glyph, const QString& toolTip) {
  auto* const button = new GlyphButton(glyph, toolTip, this);
  m_buttons[static_cast<std::size_t>(glyph)] = button;
  layout()->addWidget(button);
  connect(button, &QToolButton::clicked, this, [this, glyph] { ApplyGlyph(glyph); });
}

// The list of fonts is long, so it is not read before somebody can see it.
void TXButtonBar::showEvent(QShowEvent* event) {
  if (m_family->count() == 0) m_family->addItems(FontFamilyNames());
  ControlCompanion::showEvent(event);
}

void TXButtonBar::resizeEvent(QResizeEvent* event) {
  ControlCompanion::resizeEvent(event);
  for (QComboBox* combo : {m_family, m_size}) combo->setFixedHeight(height());
  for (GlyphButton* button : m_buttons) button->setFixedSize(height(), height());
}

// Enter in a combo box that shows a value not in its list applies it too, and Escape leaves things as they are.
bool TXButtonBar::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return ControlCompanion::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  const bool isFamily = watched == m_family || watched == m_family->lineEdit();
  if (key == Qt::Key_Escape) {
    ReturnFocus();
    return true;
  }
  if (key != Qt::Key_Return && key != Qt::Key_Enter) return ControlCompanion::eventFilter(watched, event);
  if (isFamily)
    ApplyFamily();
  else
    ApplySize();
  return true;
}

void TXButtonBar::Refresh() {
  const RichTextControl* const control = Control();
  setEnabled(control != nullptr);
  const QFont caretFont = control ? FontAtCaret(*control) : QFont();
  ShowIn(*m_family, control ? caretFont.family() : QString());
  ShowIn(*m_size, control ? SizeText(caretFont) : QString());
  if (!control) return;
  Button(Glyph::Bold)->setChecked(control->Bold() != 0);
  Button(Glyph::Italic)->setChecked(control->Italic() != 0);
  Button(Glyph::Underline)->setChecked(control->Underline() != 0);
  const Qt::Alignment alignment = control->alignment();
  for (const AlignmentOf& entry : kAlignments) Button(entry.glyph)->setChecked(alignment.testFlag(entry.alignment));
}

void TXButtonBar::ApplyFamily() {
  const QString family = m_family->currentText().trimmed();
  if (Control() && !family.isEmpty()) {
    QTextCharFormat change;
    change.setFontFamilies({family});
    Control()->mergeCurrentCharFormat(change);
  }
  ReturnFocus();
}

void TXButtonBar::ApplySize() {
  bool isNumber = false;
  const double size = QLocale().toDouble(m_size->currentText(), &isNumber);
  if (Control() && isNumber && size >= 1) {
    QTextCharFormat change;
    change.setFontPointSize(std::min(size, kLargestPointSize));
    Control()->mergeCurrentCharFormat(change);
  }
  ReturnFocus();
}

void TXButtonBar::ApplyGlyph(Glyph glyph) {
  RichTextControl* const control = Control();
  if (!control) return;
  if (glyph == Glyph::Bold) control->SetBold(~control->Bold());
  if (glyph == Glyph::Italic) control->SetItalic(~control->Italic());
  if (glyph == Glyph::Underline) control->SetUnderline(~control->Underline());
  for (const AlignmentOf& entry : kAlignments)
    if (entry.glyph == glyph) control->setAlignment(entry.alignment);
  Refresh();
  ReturnFocus();
}

void TXButtonBar::ReturnFocus() {
  if (Control()) Control()->setFocus();
  ScheduleRefresh();
}

}  // namespace snipdeck
