#include "platform/x11/x11_clipboard_watch.h"

#include "platform/x11/clipboard_listener.h"
#include "platform/x11/own_contents.h"

namespace snipdeck {

X11ClipboardWatch::X11ClipboardWatch(TransferLimits limits, QObject* parent)
    : QObject(parent), m_listener(new ClipboardListener(limits)) {
  m_thread.setObjectName(QStringLiteral("clipboard"));
  m_listener->moveToThread(&m_thread);
  connect(&m_thread, &QThread::finished, m_listener, &QObject::deleteLater);
  connect(m_listener, &ClipboardListener::Told, this, &X11ClipboardWatch::TakeChange);
  connect(m_listener, &ClipboardListener::WantsOwnContents, this, &X11ClipboardWatch::AnswerOwnContents);
  m_thread.start();
  const auto open = [this, own = OwnClient()] { m_isWorking = m_listener->Open(own); };
  QMetaObject::invokeMethod(m_listener, open, Qt::BlockingQueuedConnection);
}

X11ClipboardWatch::~X11ClipboardWatch() {
  m_thread.quit();
  m_thread.wait();
}

void X11ClipboardWatch::StartWatching(Handler onChange) {
  m_onChange = std::move(onChange);
  if (IsWorking()) QMetaObject::invokeMethod(m_listener, &ClipboardListener::Start, Qt::BlockingQueuedConnection);
}

void X11ClipboardWatch::StopWatching() {
  m_onChange = nullptr;
  if (IsWorking()) QMetaObject::invokeMethod(m_listener, &ClipboardListener::Stop, Qt::BlockingQueuedConnection);
}

void X11ClipboardWatch::Hold(bool hold) {
  m_isHeld = hold;
  if (!hold) QMetaObject::invokeMethod(this, &X11ClipboardWatch::TellWaiting, Qt::QueuedConnection);
}

bool X11ClipboardWatch::HasFormat(ClipboardFormat format) const {
  switch (format) {
    case kFormatRichText:
      return m_current.hasRichText;
    case kFormatText:
    case kFormatUnicodeText:
      return m_current.hasText;
    case kFormatBitmap:
    case kFormatDib:
      return m_current.hasBitmap;
    case kFormatFileList:
      return m_current.hasFileList;
    default:
      return false;
  }
}

void X11ClipboardWatch::TakeChange(const std::optional<ClipboardSnapshot>& contents) {
  m_waiting.push_back(contents);
  TellWaiting();
}

void X11ClipboardWatch::TellWaiting() {
  // A handler may run an event loop, in which the next change arrives: that one waits for its turn.
  if (m_telling) return;
  m_telling = true;
  while (!m_waiting.empty() && !m_isHeld) {
    const std::optional<ClipboardSnapshot> change = std::move(m_waiting.front());
    m_waiting.pop_front();
    m_current = change.value_or(ClipboardSnapshot{});
    if (change && m_onChange) m_onChange();
  }
  m_telling = false;
}

void X11ClipboardWatch::AnswerOwnContents() {
  std::optional<ClipboardSnapshot> contents;
  std::vector<QByteArray> targets;
  if (const QMimeData* own = OwnMimeData()) {
    contents = SnapshotOfMimeData(*own);
    targets = TargetsOfMimeData(*own);
  }
  const auto answer = [listener = m_listener, contents, targets] { listener->TakeOwnContents(contents, targets); };
  QMetaObject::invokeMethod(m_listener, answer, Qt::QueuedConnection);
}

}  // namespace snipdeck
