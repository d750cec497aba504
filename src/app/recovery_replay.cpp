#include "app/recovery_replay.h"

#include <QTextDocument>

#include "capture/clipboard_capture.h"

namespace snipdeck {

namespace {

/// The clipboard as it was when a recorded copy was captured.
class RecordedClipboard : public Clipboard {
 public:
  explicit RecordedClipboard(const RecoveryRecord& record) : m_record(record) {}

  bool HasFormat(ClipboardFormat format) const override {
    return format == (IsPlain() ? kFormatText : kFormatRichText);
  }
  RichTextPayload RichText() const override {
    if (IsPlain()) return {};
    const bool html = m_record.encoding == RecoveryRecord::Encoding::Html;
    return {html ? RichTextPayload::Encoding::Html : RichTextPayload::Encoding::Rtf, m_record.content};
  }
  QString Text() const override { return IsPlain() ? QString::fromUtf8(m_record.content) : QString(); }
  QStringList FileList() const override { return {}; }

 private:
  bool IsPlain() const { return m_record.encoding == RecoveryRecord::Encoding::Text; }

  const RecoveryRecord& m_record;
};

void ReplayCapture(const RecoveryRecord& record, BoxSet& boxes) {
  // The box of the copy is the one behind the current one.
  boxes.CurrentBox = static_cast<std::int16_t>(record.target - 1);
  const std::int16_t captureAlways = 1;
  const RecordedClipboard clipboard(record);
  ClipboardCapture(boxes, clipboard, captureAlways).ProcessClipboard();
}

void ReplayWhole(const RecoveryRecord& record, RichTextControl& control) {
  control.SetText(QString());
  if (!record.content.isEmpty()) control.SetSelRichText(RichText::FromRtf(record.content));
}

void ReplaySplice(const RecoveryRecord& record, RichTextControl& control) {
  const int last = control.document()->characterCount() - 1;
  QTextCursor cursor(control.document());
  cursor.setPosition(std::min(record.begin, last));
  cursor.setPosition(std::min(record.begin + record.removed, last), QTextCursor::KeepAnchor);
  RichText::FromRtf(record.content).InsertAt(cursor);
}

void Replay(const RecoveryRecord& record, BoxSet& boxes) {
  if (record.kind == RecoveryRecord::Kind::Capture) return ReplayCapture(record, boxes);
  ReplayEdit(record, record.target == RecoveryRecord::kCumulative ? boxes.TXTextControl2() : boxes.Box(record.target));
}

}  // namespace

void ReplayEdit(const RecoveryRecord& record, RichTextControl& control) {
  if (record.kind == RecoveryRecord::Kind::Whole) ReplayWhole(record, control);
  if (record.kind == RecoveryRecord::Kind::Splice) ReplaySplice(record, control);
}

void ReplayRecords(const QList<RecoveryRecord>& records, BoxSet& boxes) {
  for (const RecoveryRecord& record : records) Replay(record, boxes);
  for (int n = 1; n <= kBoxCount; ++n) {
    const QTextDocument& shown = *boxes.Box(n).document();
    boxes.CapturedRtf[static_cast<size_t>(n)] = shown.isEmpty() ? RichText() : RichText::FromDocument(shown);
    boxes.Box(n).SetText(QString());
  }
  boxes.TXTextControl2().ClearUndoHistory();
}

}  // namespace snipdeck
