#include "capture/box_interaction.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include "platform/qt/alt_keys.h"

namespace snipdeck {

namespace {

const QString kEscape = QStringLiteral("\x1b");

bool IsCtrlClick(const QEvent& event) {
  if (event.type() != QEvent::MouseButtonPress) return false;
  const auto& mouse = static_cast<const QMouseEvent&>(event);
  return mouse.button() == Qt::LeftButton && mouse.modifiers() == Qt::ControlModifier;
}

}  // namespace

BoxInteraction::BoxInteraction(BoxSet& boxes, MessageBox& messages, const QString& storageFolder, BoxHost host)
    : QObject(&boxes),
      m_boxes(boxes),
      m_messages(messages),
      m_storageFolder(storageFolder),
      m_host(std::move(host)),
      m_keys(boxes, m_host) {
  for (int n = 1; n <= kBoxCount; ++n) Watch(m_boxes.Box(n));
  Watch(m_boxes.TXTextControl1());
  Watch(m_boxes.TXTextControl2());
}

void BoxInteraction::Watch(RichTextControl& control) {
  control.installEventFilter(this);
  control.viewport()->installEventFilter(this);
  connect(&control, &RichTextControl::Edited, this, [this] { m_boxes.BoxesAltered = true; });
}

bool BoxInteraction::eventFilter(QObject* watched, QEvent* event) {
  if (IsCtrlClick(*event)) {
    const auto* clicked = qobject_cast<RichTextControl*>(watched->parent());
    if (clicked && clicked->viewport() == watched) return HandleClick(*clicked);
  }
  auto* control = qobject_cast<RichTextControl*>(watched);
  if (control && event->type() == QEvent::KeyPress) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (m_keys.Handle(*control, key)) return true;
    if (!IsUnmeantText(key)) NoteTyping(*control, key.text());
  }
  if (control && event->type() == QEvent::InputMethod)
    NoteTyping(*control, static_cast<const QInputMethodEvent*>(event)->commitString());
  return QObject::eventFilter(watched, event);
}

// Characters that are typed count in the boxes alone.
void BoxInteraction::NoteTyping(const RichTextControl& control, const QString& typed) {
  if (m_boxes.NumberOf(control) > 0 && !typed.isEmpty() && typed != kEscape) m_boxes.BoxesAltered = true;
}

bool BoxInteraction::HandleClick(const RichTextControl& control) {
  if (&control == &m_boxes.TXTextControl2()) return false;
  if (&control == &m_boxes.TXTextControl1()) {
    WriteBack();
  } else {
    m_boxes.OpenBoxInLargeView(m_boxes.NumberOf(control));
  }
  return true;
}

void BoxInteraction::ToggleFullScreen() {
  m_boxes.Frame2->hide();
  if (!m_boxes.Frame1->isVisible()) {
    m_boxes.OpenBoxInLargeView(m_boxes.FocusedBox);
    m_boxes.TXTextControl1().setFocus();
  } else {
    m_boxes.Frame1->hide();
    m_boxes.ShowAllBoxes();
    m_boxes.Box(1).setFocus();
  }
}

void BoxInteraction::WriteBack() {
  // The text of all boxes must not replace the text of one.
  if (m_boxes.LargeViewHoldsAll) return LeaveLargeView();
  RichTextControl& large = m_boxes.TXTextControl1();
  large.SetSelStart(0);
  large.SetSelLength(-1);
  if (m_boxes.FocusedBox >= 1 && m_boxes.FocusedBox <= kBoxCount) {
    RichTextControl& box = m_boxes.Box(m_boxes.FocusedBox);
    box.SetText(QString());
    box.SetSelRichText(large.SelRichText());
    box.ClearUndoHistory();  // the step before would be the empty box
  }
  LeaveLargeView();
}

void BoxInteraction::LeaveLargeView() {
  m_boxes.Frame1->hide();
  m_boxes.ShowAllBoxes();
  m_boxes.FocusText();
}

void BoxInteraction::ShowBriefHelp() {
  m_messages.ShowInformation(QStringLiteral("Ctrl-Left Mouse Button expands a box to a full window.\r\n"
                                            "Ctrl-Left Mouse Button closes the full window again,\r\n"
                                            "writing back any changes made to text.\r\n"
                                            "\r\n"
                                            "Storage folder:  ") +
                             m_storageFolder);
}

}  // namespace snipdeck
