#include "platform/qt/dialogs/find_replace_dialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "platform/qt/alt_keys.h"
#include "platform/qt/dialogs/check_choice.h"
#include "platform/qt/rich_text_control.h"

namespace snipdeck {

namespace {

constexpr int kFieldWidth = 260;    // pixels
constexpr int kLongestTaken = 200;  // characters of a selection that become what is looked for
constexpr int kGap = 12;            // pixels between the dialog and what was found

bool IsOneLine(const QString& text) {
  return !text.isEmpty() && text.size() <= kLongestTaken && !text.contains(u'\n');
}

}  // namespace

void TextFindDialog::Open(RichTextControl& control, bool withReplace) {
  TextFindDialog* const dialog = For(control);
  dialog->ShowReplace(withReplace && !control.isReadOnly());
  dialog->TakeSelection();
  dialog->show();
  dialog->raise();
  dialog->activateWindow();
  dialog->m_what->setFocus();
  dialog->m_what->selectAll();
  dialog->KeepOutOfTheWay();
}

// The window of another text would look the same, so it makes room for this one.
TextFindDialog* TextFindDialog::For(RichTextControl& control) {
  static QPointer<TextFindDialog> last;
  if (last && &last->m_control == &control) return last;
  auto* const dialog = new TextFindDialog(control);
  if (last) {
    dialog->TakeOver(*last);
    last->hide();
    last->deleteLater();
  }
  last = dialog;
  return dialog;
}

void TextFindDialog::TakeOver(const TextFindDialog& other) {
  m_what->setText(other.m_what->text());
  m_with->setText(other.m_with->text());
  m_matchCase->setChecked(other.m_matchCase->isChecked());
  m_wholeWords->setChecked(other.m_wholeWords->isChecked());
  m_backwards->setChecked(other.m_backwards->isChecked());
  if (other.isVisible()) move(other.pos());
}

TextFindDialog::TextFindDialog(RichTextControl& control)
    : QDialog(&control),
      m_control(control),
      m_what(new QLineEdit),
      m_with(new QLineEdit),
      m_withLabel(LabelFor(tr("Re&place with"), m_with)),
      m_matchCase(new QCheckBox(tr("Match &case"))),
      m_wholeWords(new QCheckBox(tr("&Whole words only"))),
      m_backwards(new QCheckBox(tr("Search &backwards"))),
      m_find(new QPushButton(tr("&Find next"))),
      m_replace(new QPushButton(tr("&Replace"))),
      m_replaceAll(new QPushButton(tr("Replace &all"))),
      m_answer(new QLabel) {
  setObjectName(QStringLiteral("FindReplaceDialog"));
  Build();
  control.installEventFilter(this);
  for (QLineEdit* field : {m_what, m_with}) field->installEventFilter(this);
  connect(m_what, &QLineEdit::textChanged, this, &TextFindDialog::OfferButtons);
  connect(m_find, &QPushButton::clicked, this, &TextFindDialog::FindNext);
  connect(m_replace, &QPushButton::clicked, this, &TextFindDialog::ReplaceOne);
  connect(m_replaceAll, &QPushButton::clicked, this, &TextFindDialog::ReplaceAll);
  OfferButtons();
}

void TextFindDialog::Build() {
  m_what->setMinimumWidth(kFieldWidth);
  m_answer->setAccessibleName(tr("Result"));
  m_answer->setMinimumHeight(fontMetrics().height() + 4);
  m_find->setDefault(true);
  for (QPushButton* button : {m_replace, m_replaceAll}) button->setAutoDefault(false);
  auto* const close = new QPushButton(tr("Close"));
  close->setAutoDefault(false);
  connect(close, &QPushButton::clicked, this, &TextFindDialog::reject);

  auto* const fields = new QGridLayout;
  fields->addWidget(LabelFor(tr("Fi&nd what"), m_what), 0, 0);
  fields->addWidget(m_what, 0, 1);
  fields->addWidget(m_withLabel, 1, 0);
  fields->addWidget(m_with, 1, 1);
  fields->addWidget(m_matchCase, 2, 1);
  fields->addWidget(m_wholeWords, 3, 1);
  fields->addWidget(m_backwards, 4, 1);
  fields->addWidget(m_answer, 5, 0, 1, 2);
  fields->setRowStretch(6, 1);
  auto* const buttons = new QVBoxLayout;
  for (QPushButton* button : {m_find, m_replace, m_replaceAll, close}) buttons->addWidget(button);
  buttons->addStretch(1);
  auto* const row = new QHBoxLayout(this);
  row->addLayout(fields, 1);
  row->addLayout(buttons);
}

void TextFindDialog::ShowReplace(bool shown) {
  setWindowTitle(shown ? tr("Replace") : tr("Find"));
  for (QWidget* widget : std::initializer_list<QWidget*>{m_with, m_withLabel, m_replace, m_replaceAll})
    widget->setVisible(shown);
  Say(QString());
  adjustSize();
}

void TextFindDialog::TakeSelection() {
  const QString selected = m_control.SelText();
  if (IsOneLine(selected)) m_what->setText(selected);
}

void TextFindDialog::OfferButtons() {
  const bool hasText = !m_what->text().isEmpty();
  for (QPushButton* button : {m_find, m_replace, m_replaceAll}) button->setEnabled(hasText);
  Say(QString());
}

SearchPattern TextFindDialog::Pattern() const {
  return {m_what->text(), m_matchCase->isChecked(), m_wholeWords->isChecked()};
}

// The answer of the last search, also for those who hear it.
void TextFindDialog::Say(const QString& words) {
  m_answer->setText(words);
  m_answer->setAccessibleDescription(words);
}

void TextFindDialog::FindNext() {
  const bool backwards = m_backwards->isChecked();
  const QTextDocument& document = *m_control.document();
  const QTextCursor cursor = m_control.textCursor();
  const int from = backwards ? cursor.selectionStart() : cursor.selectionEnd();
  if (const auto match = FindMatch(document, Pattern(), from, backwards)) {
    Say(QString());
    return Select(*match);
  }
  const int otherEnd = backwards ? document.characterCount() - 1 : 0;
  if (const auto match = FindMatch(document, Pattern(), otherEnd, backwards)) {
    Say(backwards ? tr("Went on from the end of the text.") : tr("Went on from the start of the text."));
    return Select(*match);
  }
  QApplication::beep();
  Say(tr("Not found."));
}

bool TextFindDialog::SelectionMatches() const {
  const QTextCursor cursor = m_control.textCursor();
  const auto match = FindMatch(*m_control.document(), Pattern(), cursor.selectionStart(), false);
  return cursor.hasSelection() && match && match->begin == cursor.selectionStart() &&
         match->end == cursor.selectionEnd();
}

void TextFindDialog::ReplaceOne() {
  if (m_control.isReadOnly()) return;
  if (SelectionMatches()) {
    const int begin = m_control.SelStart();
    m_control.SetSelText(m_with->text());
    if (m_backwards->isChecked()) m_control.SetSelStart(begin);
    emit m_control.Edited();
  }
  FindNext();
}

void TextFindDialog::ReplaceAll() {
  if (m_control.isReadOnly()) return;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  const int count = ReplaceAllMatches(QTextCursor(m_control.document()), Pattern(), m_with->text());
  QApplication::restoreOverrideCursor();
  Say(count == 1 ? tr("1 replacement made.") : tr("%L1 replacements made.").arg(count));
  if (count > 0) emit m_control.Edited();
}

void TextFindDialog::Select(const TextMatch& match) {
  QTextCursor cursor = m_control.textCursor();
  cursor.setPosition(match.begin);
  cursor.setPosition(match.end, QTextCursor::KeepAnchor);
  m_control.setTextCursor(cursor);
  m_control.ensureCursorVisible();
  KeepOutOfTheWay();
}

// Below the selection, or above it where there is no room below.
void TextFindDialog::KeepOutOfTheWay() {
  const QRect caret = m_control.cursorRect();
  const QPoint corner = m_control.viewport()->mapToGlobal(caret.topLeft());
  const QRect found = QRect(corner, caret.size()).adjusted(-kGap, -kGap, kGap, kGap);
  const QRect mine = frameGeometry();
  if (!mine.intersects(found)) return;
  const QRect room = screen()->availableGeometry();
  const int below = found.bottom() + kGap;
  move(mine.left(),
       below + mine.height() <= room.bottom() ? below : std::max(room.top(), found.top() - mine.height() - kGap));
}

bool TextFindDialog::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &m_control && event->type() == QEvent::Hide && !event->spontaneous()) hide();
  const bool isKey = watched != &m_control && event->type() == QEvent::KeyPress;
  if (isKey && IsUnmeantText(*static_cast<QKeyEvent*>(event))) return true;
  return QDialog::eventFilter(watched, event);
}

void TextFindDialog::reject() {
  QDialog::reject();
  if (!m_control.isVisible()) return;
  m_control.activateWindow();
  m_control.setFocus();
}

}  // namespace snipdeck
