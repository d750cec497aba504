#include "capture/box_keys.h"

#include <QKeyEvent>

namespace snipdeck {

namespace {

constexpr int kShift = 1;
constexpr int kCtrl = 2;
constexpr int kAlt = 4;
/// Any sum of 3 or more, and any at all.
constexpr int kSeveral = -1;
constexpr int kAny = -2;

int ShiftSum(Qt::KeyboardModifiers modifiers) {
  int sum = 0;
  if (modifiers & Qt::ShiftModifier) sum += kShift;
  if (modifiers & Qt::ControlModifier) sum += kCtrl;
  if (modifiers & Qt::AltModifier) sum += kAlt;
  return sum;
}

bool Fits(int wanted, int shift) {
  if (wanted == kAny) return true;
  return wanted == kSeveral ? shift >= kShift + kCtrl : shift == wanted;
}

enum class Where { Everywhere, Boxes, Panels };
enum class Text { Stays, Changes };

}  // namespace

struct BoxKeys::Row {
  int key;
  int shift;
  /// Null where the key's own work is left to the control.
  Command command;
  Text text = Text::Stays;
  Where where = Where::Everywhere;
};

// The first row that fits counts.
const BoxKeys::Row BoxKeys::kRows[] = {
    {Qt::Key_S, kCtrl + kAlt, &BoxKeys::SwitchFocus},
    {Qt::Key_X, kAlt, &BoxKeys::SwitchFocus},
    {Qt::Key_V, kCtrl + kAlt, &BoxKeys::ShowClipboard},
    {Qt::Key_F7, kShift + kAlt, &BoxKeys::NextSidebarWidth},
    {Qt::Key_V, kCtrl, nullptr, Text::Changes},
    {Qt::Key_X, kCtrl, nullptr, Text::Changes},
    {Qt::Key_Backspace, kAny, nullptr, Text::Changes},
    {Qt::Key_Delete, kAny, nullptr, Text::Changes},
    {Qt::Key_B, kSeveral, &BoxKeys::ToggleBold, Text::Changes},
    {Qt::Key_I, kSeveral, &BoxKeys::ToggleItalic, Text::Changes},
    {Qt::Key_U, kSeveral, &BoxKeys::ToggleUnderline, Text::Changes},
    {Qt::Key_X, kSeveral, &BoxKeys::ToggleStrikeout, Text::Changes},
    {Qt::Key_0, kCtrl, &BoxKeys::ChooseFont, Text::Changes},
    {Qt::Key_1, kCtrl, &BoxKeys::ChooseFont, Text::Changes},
    {Qt::Key_4, kCtrl, &BoxKeys::ChooseParagraph, Text::Changes},
    {Qt::Key_F, kCtrl, &BoxKeys::Find},
    {Qt::Key_R, kCtrl, &BoxKeys::Replace},
    {Qt::Key_F3, kCtrl, &BoxKeys::ToggleFormatting},
    {Qt::Key_F3, kAlt, &BoxKeys::SwitchViewMode, Text::Stays, Where::Panels},
    {Qt::Key_A, kCtrl, &BoxKeys::SelectAll},
    {Qt::Key_Tab, 0, &BoxKeys::InsertTab, Text::Changes},
    {Qt::Key_Up, kCtrl, &BoxKeys::BoxAbove, Text::Stays, Where::Boxes},
    {Qt::Key_Down, kCtrl, &BoxKeys::BoxBelow, Text::Stays, Where::Boxes},
    {Qt::Key_L, kCtrl + kShift, &BoxKeys::PlaceLeft},
    {Qt::Key_R, kCtrl + kShift, &BoxKeys::PlaceRight},
    {Qt::Key_L, kCtrl + kAlt, &BoxKeys::FillLeft},
    {Qt::Key_R, kCtrl + kAlt, &BoxKeys::FillRight},
};

const BoxKeys::Row* BoxKeys::Find(int key, int shift, bool isBox) {
  for (const Row& row : kRows) {
    const bool isHere = row.where == Where::Everywhere || (row.where == Where::Boxes) == isBox;
    if (isHere && row.key == key && Fits(row.shift, shift)) return &row;
  }
  return nullptr;
}

bool BoxKeys::Handle(RichTextControl& control, const QKeyEvent& event) {
  const Row* row = Find(event.key(), ShiftSum(event.modifiers()), m_boxes.NumberOf(control) > 0);
  if (!row) return false;
  if (row->text == Text::Changes) m_boxes.BoxesAltered = true;
  if (!row->command) return false;
  (this->*row->command)(control);
  return true;
}

void BoxKeys::SwitchViewMode(RichTextControl& control) {
  if (control.ViewMode() == 0) {
    control.SetViewMode(2);
  } else if (control.ViewMode() == 2) {
    control.SetViewMode(0);
  }
}

void BoxKeys::SelectAll(RichTextControl& control) {
  control.SetSelStart(0);
  control.SetSelLength(-1);
}

void BoxKeys::FocusBoxAt(const RichTextControl& from, int distance) {
  const int index = m_boxes.NumberOf(from) - 1 + distance;
  m_boxes.Box((index + kBoxCount) % kBoxCount + 1).setFocus();
}

}  // namespace snipdeck
