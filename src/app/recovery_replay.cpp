#include "app/recovery_replay.h"

#include <array>
#include <vector>

#include <QTextDocument>

#include "capture/clipboard_capture.h"
#include "richtext/clipboard_text.h"

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

constexpr std::int16_t kCaptureAlways = 1;

ClipboardCapture CaptureOf(const RecordedClipboard& clipboard, BoxSet& boxes) {
  return ClipboardCapture(boxes, clipboard, kCaptureAlways);
}

/// Plays records, and none whose effects later ones have overwritten: of a hundred thousand copies twelve are in boxes.
class Player {
 public:
  Player(const QList<RecoveryRecord>& records, BoxSet& boxes)
      : m_records(records), m_boxes(boxes), m_inBox(records.size()), m_inCumulative(records.size()) {
    FindTraces();
  }

  void Play() {
    for (qsizetype i = 0; i < m_records.size(); ++i) Play(i);
    AppendCopies();
    for (int n = 1; n <= kBoxCount; ++n) TakeFromBox(n);
    m_boxes.TXTextControl2().ClearUndoHistory();
    ShowLatest();
  }

 private:
  using PerTarget = std::array<bool, RecoveryRecord::kCumulative + 1>;

  void FindTraces() {
    PerTarget overwritten{};
    for (qsizetype i = m_records.size(); i-- > 0;) {
      const RecoveryRecord& record = m_records[i];
      const bool appends = record.kind == RecoveryRecord::Kind::Capture;
      const bool isSplice = record.kind == RecoveryRecord::Kind::Splice;
      m_inBox[i] = !overwritten[record.target];
      m_inCumulative[i] = appends && !overwritten[RecoveryRecord::kCumulative];
      m_isSpliced[record.target] |= isSplice && m_inBox[i];
      overwritten[record.target] |= !isSplice;
      if (record.IsCopy() && !m_latest) m_latest = &record;
    }
  }

  void Play(qsizetype i) {
    const RecoveryRecord& record = m_records[i];
    if (m_inCumulative[i]) Append(record);
    if (!m_inBox[i]) return;
    if (record.target == RecoveryRecord::kCumulative) {
      AppendCopies();
      ReplayEdit(record, m_boxes.TXTextControl2());
    } else if (record.kind == RecoveryRecord::Kind::Splice) {
      ReplayEdit(record, m_boxes.Box(record.target));
    } else {
      FillBox(record);
    }
  }

  /// Plain copies go to the cumulative text together, since every insertion there takes its time. One that ends with half
  /// a line end would lose it that way.
  void Append(const RecoveryRecord& record) {
    const bool isPlain = record.encoding == RecoveryRecord::Encoding::Text && !record.content.endsWith('\r');
    if (!isPlain) AppendCopies();
    if (!isPlain) return CaptureOf(RecordedClipboard(record), m_boxes).AppendOnly();
    if (m_hasCopies) m_copies.content += '\n';
    m_copies.content += record.content;
    m_hasCopies = true;
  }

  void AppendCopies() {
    if (m_hasCopies) CaptureOf(RecordedClipboard(m_copies), m_boxes).AppendOnly();
    m_hasCopies = false;
    m_copies.content.clear();
  }

  /// Only a text that parts of are still to be replaced has to be in its box.
  void FillBox(const RecoveryRecord& record) {
    RichText& text = m_boxes.CapturedRtf[record.target];
    const RecordedClipboard clipboard(record);
    text = record.IsCopy() ? StagedFrom(clipboard)
           : record.content.isEmpty()                   ? RichText()
                                                        : RichText::FromRtf(record.content);
    if (!m_isSpliced[record.target]) return;
    m_boxes.Box(record.target).SetText(QString());
    m_boxes.Box(record.target).SetSelRichText(text);
  }

  static RichText StagedFrom(const Clipboard& clipboard) {
    const auto formatted = FormattedText(clipboard);
    return formatted ? *formatted : RichText::FromPlainText(clipboard.Text());
  }

  void TakeFromBox(int n) {
    if (!m_isSpliced[static_cast<size_t>(n)]) return;
    const QTextDocument& shown = *m_boxes.Box(n).document();
    m_boxes.CapturedRtf[static_cast<size_t>(n)] = shown.isEmpty() ? RichText() : RichText::FromDocument(shown);
    m_boxes.Box(n).SetText(QString());
  }

  void ShowLatest() {
    if (!m_latest) return;
    m_boxes.CurrentBox = m_latest->target;
    CaptureOf(RecordedClipboard(*m_latest), m_boxes).ShowAsLatest();
  }

  const QList<RecoveryRecord>& m_records;
  BoxSet& m_boxes;
  std::vector<bool> m_inBox, m_inCumulative;
  PerTarget m_isSpliced{};
  const RecoveryRecord* m_latest = nullptr;
  RecoveryRecord m_copies;
  bool m_hasCopies = false;
};

}  // namespace

void ReplayEdit(const RecoveryRecord& record, RichTextControl& control) {
  if (record.kind == RecoveryRecord::Kind::Whole) ReplayWhole(record, control);
  if (record.kind == RecoveryRecord::Kind::Splice) ReplaySplice(record, control);
}

void ReplayRecords(const QList<RecoveryRecord>& records, BoxSet& boxes) {
  Player(records, boxes).Play();
}

}  // namespace snipdeck
