#include "app/editor_recovery.h"

#include "app/recovery_replay.h"
#include "editor/frm_rtf_htm.h"
#include "platform/qt/rich_text_control.h"

namespace snipdeck {

namespace {

// Targets of the records.
constexpr std::uint8_t kText = 1;
constexpr std::uint8_t kPath = 2;
constexpr std::uint8_t kPage = 3;

constexpr int kFlushDelay = 1000;     // milliseconds
constexpr int kLongestDelay = 20000;  // milliseconds
constexpr int kLongText = 300'000;    // characters; writing it down takes longer than a key may

RecoveryRecord TextRecord(std::uint8_t target, const QString& content) {
  return {.kind = RecoveryRecord::Kind::Whole, .target = target, .content = content.toUtf8()};
}

QString PageInWords(const PageGeometry& page) {
  return QStringLiteral("%1 %2 %3 %4 %5 %6")
      .arg(page.width)
      .arg(page.height)
      .arg(page.left)
      .arg(page.top)
      .arg(page.right)
      .arg(page.bottom);
}

PageGeometry PageFromWords(const QByteArray& words) {
  const QList<QByteArray> numbers = words.split(' ');
  const auto number = [&numbers](qsizetype i) { return numbers.value(i).toInt(); };
  return {number(0), number(1), number(2), number(3), number(4), number(5)};
}

}  // namespace

EditorRecovery::EditorRecovery(const QString& path) : m_file(path) {
  m_timer.setSingleShot(true);
  m_timer.setInterval(kFlushDelay);
  connect(&m_timer, &QTimer::timeout, this, &EditorRecovery::Flush);
}

LostDocument EditorRecovery::TakeOver() {
  LostDocument lost;
  for (const RecoveryRecord& record : m_file.TakeOver()) {
    if (record.target == kPath) {
      lost.path = QString::fromUtf8(record.content);
    } else {
      lost.steps.append(record);
    }
  }
  return lost;
}

void EditorRecovery::Replay(const LostDocument& lost, RichTextControl& control) {
  PageGeometry page;
  for (const RecoveryRecord& step : lost.steps) {
    if (step.target == kPage) {
      page = PageFromWords(step.content);
    } else {
      ReplayEdit(step, control);
    }
  }
  control.SetPage(page);  // a whole text takes the page of the one before with it
  control.ClearUndoHistory();
}

void EditorRecovery::Track(frm_RTF_HTM& window) {
  m_window = &window;
  connect(&window.Document(), &EditorDocument::Settled, this, &EditorRecovery::Forget);
  connect(&window, &frm_RTF_HTM::Closed, this, &EditorRecovery::Forget);
  Restart();
}

void EditorRecovery::Restart() {
  m_timer.stop();
  m_isFresh = true;
  m_unwrittenSince.invalidate();
  m_text = std::make_unique<TrackedText>(
      m_window->TextControl(), kText, [this] { FlushSoon(); }, nullptr);
}

void EditorRecovery::Forget() {
  m_file.Remove();
  if (m_window) Restart();
}

// A long text waits until nobody types, but not for ever.
void EditorRecovery::FlushSoon() {
  if (!m_unwrittenSince.isValid()) m_unwrittenSince.start();
  const bool isLong = m_window->TextControl().AsItStands().document()->characterCount() > kLongText;
  const bool mayWait = isLong && m_unwrittenSince.elapsed() < kLongestDelay;
  if (mayWait || !m_timer.isActive()) m_timer.start();
}

void EditorRecovery::Flush() {
  m_timer.stop();
  m_unwrittenSince.invalidate();
  if (!m_window || m_window->Document().ChangedMark() == 0) return;
  if (m_isFresh) m_text->MarkWhole();
  const auto edit = m_text->TakeEdit();
  if (!edit) return;
  const bool isWritten = WriteHeading() && m_file.Append(*edit);
  m_isFresh = m_isFresh && !isWritten;
  if (isWritten) return;
  // There was no room. The text is tried again as a whole.
  m_text->MarkWhole();
  FlushSoon();
}

bool EditorRecovery::WriteHeading() {
  if (m_isFresh && !m_file.Append(TextRecord(kPath, m_window->Document().FileName()))) return false;
  const PageGeometry page = m_window->TextControl().Page();
  if (!m_isFresh && page == m_writtenPage) return true;
  m_writtenPage = page;
  return m_file.Append(TextRecord(kPage, PageInWords(page)));
}

}  // namespace snipdeck
