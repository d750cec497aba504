#include "platform/qt/dialogs/pick_list.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace snipdeck {

PickList::PickList(const QStringList& proposals, const QString& accessibleName, QWidget* parent)
    : QWidget(parent), m_field(new QLineEdit(this)), m_list(new QListWidget(this)) {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  column->addWidget(m_field);
  column->addWidget(m_list);
  m_field->setAccessibleName(accessibleName);
  m_field->installEventFilter(this);
  m_list->setAccessibleName(accessibleName);
  m_list->setFocusPolicy(Qt::ClickFocus);  // the field walks through it
  m_list->setUniformItemSizes(true);
  m_list->addItems(proposals);
  setFocusProxy(m_field);
  connect(m_field, &QLineEdit::textEdited, this, [this] {
    FollowField();
    emit Changed();
  });
  connect(m_list, &QListWidget::currentTextChanged, this, [this](const QString& text) {
    if (text.isEmpty()) return;
    m_field->setText(text);
    emit Changed();
  });
}

QString PickList::Value() const {
  return m_field->text().trimmed();
}

void PickList::SetValue(const QString& value) {
  m_field->setText(value);
  FollowField();
}

// The first proposal that begins with what the field says; the field itself stays as it was typed.
void PickList::FollowField() {
  const QSignalBlocker quiet(m_list);
  const QString typed = Value();
  QList<QListWidgetItem*> found;
  if (!typed.isEmpty()) found = m_list->findItems(typed, Qt::MatchFixedString);
  if (found.isEmpty() && !typed.isEmpty()) found = m_list->findItems(typed, Qt::MatchStartsWith);
  m_list->setCurrentItem(found.isEmpty() ? nullptr : found.first());
  if (!found.isEmpty()) m_list->scrollToItem(found.first(), QAbstractItemView::PositionAtTop);
}

bool PickList::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
      QCoreApplication::sendEvent(m_list, event);
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace snipdeck
