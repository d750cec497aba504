#include "platform/qt/control_companion.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextDocument>

#include "platform/qt/rich_text_control.h"

namespace snipdeck {

void ControlCompanion::Follow(RichTextControl* control) {
  if (m_control) {
    m_control->disconnect(this);
    m_control->horizontalScrollBar()->disconnect(this);
    m_control->AsItStands().document()->disconnect(this);
    m_control->AsItStands().document()->documentLayout()->disconnect(this);
  }
  m_control = control;
  const auto refresh = [this] { ScheduleRefresh(); };
  if (control) {
    connect(control, &QTextEdit::cursorPositionChanged, this, refresh);
    connect(control, &QTextEdit::selectionChanged, this, refresh);
    connect(control, &QTextEdit::currentCharFormatChanged, this, refresh);
    connect(control, &QTextEdit::textChanged, this, refresh);
    connect(control, &RichTextControl::ZoomChanged, this, refresh);
    connect(control, &RichTextControl::ViewChanged, this, refresh);
    connect(control, &QObject::destroyed, this, refresh);
    connect(control->horizontalScrollBar(), &QScrollBar::valueChanged, this, refresh);
    connect(control->AsItStands().document(), &QTextDocument::documentLayoutChanged, this, &ControlCompanion::FollowLayout);
    FollowLayout();
  }
  ScheduleRefresh();
}

// A control takes another layout when its text becomes a very long one.
void ControlCompanion::FollowLayout() {
  connect(m_control->AsItStands().document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, this,
          &ControlCompanion::ScheduleRefresh);
}

void ControlCompanion::ScheduleRefresh() {
  if (m_scheduled || !isVisible()) return;
  m_scheduled = true;
  QMetaObject::invokeMethod(this, &ControlCompanion::RefreshNow, Qt::QueuedConnection);
}

void ControlCompanion::RefreshNow() {
  m_scheduled = false;
  if (isVisible()) Refresh();
}

void ControlCompanion::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  Refresh();
}

}  // namespace snipdeck
