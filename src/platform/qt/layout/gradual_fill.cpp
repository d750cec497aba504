#include "platform/qt/layout/gradual_fill.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QScopedValueRollback>
#include <QTextDocument>
#include <QTextEdit>

namespace snipdeck {

namespace {

constexpr qsizetype kLongText = 200'000;  // characters; takes about 20 ms to put into a document
constexpr int kSlice = 15;                // milliseconds between the user's events

/// The user may be about to change the text.
bool IsInput(const QEvent& event) {
  switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::Drop:
      return true;
    default:
      return false;
  }
}

}  // namespace

bool GradualFill::Start(const RichText& text, QTextCursor& cursor) {
  const auto flow = text.Flow();
  const bool isLong = flow && text.Length() > kLongText && flow->pieces.size() > 1;
  if (!isLong || HasTables(*flow) || cursor.document()->isUndoRedoEnabled() || !cursor.atEnd()) return false;
  const bool isFollowed = m_control.hasFocus() && !cursor.document()->isEmpty();
  BegunLists lists;
  InsertFlowPiece(*flow, 0, cursor, lists);
  m_texts.push_back({flow, 1, std::move(lists), cursor, isFollowed});
  // What is added right there later on belongs behind this text.
  m_texts.back().end.setKeepPositionOnInsert(true);
  Watch(true);
  return true;
}

void GradualFill::Watch(bool watch) {
  for (QObject* object : {static_cast<QObject*>(&m_control), static_cast<QObject*>(m_control.viewport())}) {
    object->removeEventFilter(this);
    if (watch) object->installEventFilter(this);
  }
  if (watch) {
    m_timer.start(0, this);
  } else {
    m_timer.stop();
  }
}

bool GradualFill::eventFilter(QObject* watched, QEvent* event) {
  if (IsFilling() && IsInput(*event)) Finish();
  return QObject::eventFilter(watched, event);
}

void GradualFill::timerEvent(QTimerEvent*) {
  AddSome();
}

void GradualFill::AddSome() {
  QElapsedTimer clock;
  clock.start();
  while (IsFilling() && clock.elapsed() < kSlice) AddPart();
}

void GradualFill::AddPart() {
  // Who is told of this part asks for the whole text perhaps.
  if (m_isAdding) return;
  const QScopedValueRollback adding(m_isAdding, true);
  Growing& growing = m_texts.front();
  QTextDocument& document = *m_control.document();
  const bool hadUndo = document.isUndoRedoEnabled();
  document.setUndoRedoEnabled(false);
  QTextCursor cursor(&document);
  cursor.setPosition(growing.end.position());
  InsertFlowPiece(*growing.text, growing.nextPiece++, cursor, growing.lists);
  growing.end.setPosition(cursor.position());
  document.setUndoRedoEnabled(hadUndo);
  if (growing.nextPiece < growing.text->pieces.size()) return;
  const bool isFollowed = growing.isFollowed && m_control.textCursor().atEnd();
  m_texts.pop_front();
  if (isFollowed) m_control.ensureCursorVisible();
  if (!IsFilling()) Watch(false);
}

void GradualFill::Finish() {
  while (IsFilling() && !m_isAdding) AddPart();
}

void GradualFill::Cancel() {
  m_texts.clear();
  Watch(false);
}

}  // namespace snipdeck
