#include "app/crash_recovery.h"

#include <algorithm>
#include <span>
#include <utility>

#include "app/recovery_replay.h"

namespace snipdeck {

namespace {

constexpr int kFlushDelay = 1000;  // milliseconds after the first edit
constexpr int kPartDelay = 20;     // milliseconds between the parts of a long edit

}  // namespace

CrashRecovery::CrashRecovery(BoxSet& boxes, const Clipboard& clipboard, const QString& path)
    : m_boxes(boxes), m_clipboard(clipboard), m_file(path) {
  m_timer.setSingleShot(true);
  connect(&m_timer, &QTimer::timeout, this, [this] {
    const bool hasMore = FlushPart();
    if (hasMore)
      m_timer.start(kPartDelay);
    else if (IsWaiting())
      m_timer.start(kFlushDelay);
  });
}

bool CrashRecovery::Recover() {
  const QList<RecoveryRecord> records = m_file.TakeOver();
  ReplayRecords(records, m_boxes);
  const auto last =
      std::find_if(records.rbegin(), records.rend(), [](const RecoveryRecord& record) { return record.IsCopy(); });
  if (last != records.rend()) m_lastCopyBefore = *last;
  return !records.isEmpty();
}

void CrashRecovery::StartTracking() {
  const auto track = [this](RichTextControl& control, int target) {
    m_texts.push_back(new TrackedText(
        control, static_cast<std::uint8_t>(target), [this] { FlushSoon(); }, this));
  };
  for (int n = 1; n <= kBoxCount; ++n) track(m_boxes.Box(n), n);
  track(m_boxes.TXTextControl2(), RecoveryRecord::kCumulative);
}

void CrashRecovery::WhileCapturing(const std::function<void()>& process) {
  const auto lastCopyBefore = std::exchange(m_lastCopyBefore, std::nullopt);
  if (lastCopyBefore) {
    RecoveryRecord present = PresentCopy();
    present.target = lastCopyBefore->target;
    present.kind = lastCopyBefore->kind;
    if (present == *lastCopyBefore) return;
  }
  const std::int16_t before = m_boxes.CurrentBox;
  // A long edit of the cumulative text takes a while to write down: then the copy's text becomes a part of it.
  FlushPart();
  const bool joinsEdit = !m_texts.empty() && m_texts.back()->HasEdit();
  const std::span changed(m_texts.data(), m_texts.size() - (joinsEdit ? 1 : 0));
  for (TrackedText* text : changed) text->SetPaused(true);
  process();
  for (TrackedText* text : changed) text->SetPaused(false);
  if (m_boxes.CurrentBox != before) KeepCopy(joinsEdit);
}

RecoveryRecord CrashRecovery::PresentCopy() const {
  RecoveryRecord record;
  record.target = static_cast<std::uint8_t>(std::clamp<int>(m_boxes.CurrentBox, 1, kBoxCount));
  RichTextPayload payload = m_clipboard.RichText();
  if (payload.encoding == RichTextPayload::Encoding::None) {
    record.content = m_clipboard.Text().toUtf8();
  } else {
    const bool html = payload.encoding == RichTextPayload::Encoding::Html;
    record.encoding = html ? RecoveryRecord::Encoding::Html : RecoveryRecord::Encoding::Rtf;
    record.content = std::move(payload.bytes);
  }
  return record;
}

void CrashRecovery::KeepCopy(bool joinsEdit) {
  TrackedText* const box = m_texts.empty() ? nullptr : m_texts[static_cast<size_t>(m_boxes.CurrentBox - 1)];
  if (box) box->DropEdit();
  RecoveryRecord copy = PresentCopy();
  if (joinsEdit) copy.kind = RecoveryRecord::Kind::Filing;
  if (m_file.Append(copy) || !box) return;
  // There was no room. The texts are tried again as a whole, since only these are complete without this copy.
  box->MarkWhole();
  m_texts.back()->MarkWhole();
  FlushSoon();
}

void CrashRecovery::FlushSoon() {
  if (!m_timer.isActive()) m_timer.start(kFlushDelay);
}

void CrashRecovery::Flush() {
  m_timer.stop();
  for (const TrackedText* text : m_texts) text->Complete();
  while (FlushPart()) {
  }
}

bool CrashRecovery::IsWaiting() const {
  return std::any_of(m_texts.begin(), m_texts.end(), [](const TrackedText* text) { return text->HasEdit(); });
}

bool CrashRecovery::FlushPart() {
  bool hasMore = false;
  for (TrackedText* text : m_texts) {
    const auto edit = text->TakePart();
    if (!edit) continue;
    if (m_file.Append(*edit)) {
      hasMore |= text->HasEdit();
    } else {
      text->MarkWhole();
      FlushSoon();
    }
  }
  return hasMore;
}

void CrashRecovery::Forget() {
  m_timer.stop();
  m_texts.clear();
  m_file.Remove();
}

}  // namespace snipdeck
