#include "app/tracked_text.h"

#include <limits>

#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>

#include "richtext/rtf/rtf_writer.h"

namespace snipdeck {

namespace {

/// Up to so many characters a text is written down as a whole, which takes a few milliseconds.
constexpr int kShortText = 50'000;

/// Whether [begin, end) lies in one frame or table cell and holds no other; only then can it be replaced by itself.
bool IsPlainRun(const QTextDocument& document, int begin, int end) {
  auto* changeable = const_cast<QTextDocument*>(&document);
  QTextCursor from(changeable);
  from.setPosition(begin);
  QTextCursor to(changeable);
  to.setPosition(end);
  const QTextFrame* frame = from.currentFrame();
  if (frame != to.currentFrame()) return false;
  for (const QTextFrame* child : frame->childFrames()) {
    if (child->firstPosition() <= end && child->lastPosition() >= begin) return false;
  }
  return !from.currentTable() || from.currentTable()->cellAt(begin) == to.currentTable()->cellAt(end);
}

/// Where the paragraph's text ends.
int LastOf(const QTextBlock& block) {
  return block.position() + block.length() - 1;
}

/// The writer walks to its range from the start of the document; a copy goes there at once, but a long one costs more.
QByteArray RtfOf(const QTextDocument& document, int begin, int end) {
  return end - begin > 2 * kShortText ? WriteRtf(document, begin, end) : RichText::FromDocument(document, begin, end).Rtf();
}

}  // namespace

TrackedText::TrackedText(RichTextControl& control, std::uint8_t target, std::function<void()> onEdit, QObject* parent)
    : QObject(parent), m_control(control), m_target(target), m_onEdit(std::move(onEdit)) {
  connect(control.document(), &QTextDocument::contentsChange, this, &TrackedText::Note);
}

void TrackedText::SetPaused(bool paused) {
  m_paused = paused;
  const bool isFilling = m_control.IsFilling();
  if (paused)
    m_fillsNoted = isFilling && !m_fillsUnnoted;
  else
    m_fillsUnnoted = isFilling && !m_fillsNoted;
}

void TrackedText::Note(int position, int removed, int added) {
  if (m_paused || (m_fillsUnnoted && m_control.IsFilling())) return;
  m_fillsUnnoted = false;
  m_edited.Add(position, removed, added);
  m_onEdit();
}

void TrackedText::MarkWhole() {
  m_needsWhole = true;
  m_edited.Add(0, 0, 0);
}

void TrackedText::DropEdit() {
  m_edited.Clear();
  m_needsWhole = false;
}

std::optional<RecoveryRecord> TrackedText::TakeEdit() {
  return Take(std::numeric_limits<int>::max());
}

std::optional<RecoveryRecord> TrackedText::TakePart() {
  return Take(kShortText);
}

void TrackedText::Complete() const {
  if (HasEdit()) m_control.document();
}

std::optional<RecoveryRecord> TrackedText::Take(int mostCharacters) {
  if (m_edited.IsEmpty() || m_control.IsFilling()) return {};
  const bool isShort = m_control.document()->characterCount() <= kShortText;
  auto record = isShort || m_needsWhole ? std::optional<RecoveryRecord>() : Splice(mostCharacters);
  if (record) return record;
  DropEdit();
  return Whole();
}

RecoveryRecord TrackedText::Whole() const {
  RecoveryRecord record;
  record.kind = RecoveryRecord::Kind::Whole;
  record.target = m_target;
  record.encoding = RecoveryRecord::Encoding::Rtf;
  if (!m_control.document()->isEmpty()) record.content = WriteRtf(*m_control.document());
  return record;
}

std::optional<RecoveryRecord> TrackedText::Splice(int mostCharacters) {
  const QTextDocument& document = *m_control.document();
  const int last = document.characterCount() - 1;
  const QTextBlock first = document.findBlock(std::min(m_edited.Begin(), last));
  m_edited.StretchTo(first.position(), LastOf(document.findBlock(std::min(m_edited.End(), last))));
  if (!m_edited.EndAt(last)) return {};
  const int begin = m_edited.Begin();
  const bool isLong = m_edited.End() - begin > mostCharacters;
  const int end = isLong ? LastOf(document.findBlock(begin + mostCharacters)) : m_edited.End();
  if (!IsPlainRun(document, begin, m_edited.End())) return {};

  RecoveryRecord record;
  record.kind = RecoveryRecord::Kind::Splice;
  record.target = m_target;
  record.encoding = RecoveryRecord::Encoding::Rtf;
  record.begin = begin;
  record.removed = m_edited.Removed();
  record.content = RtfOf(document, begin, end);
  // Later splices count on the positions, so a part that does not come back with its length is not good enough.
  if (RichText::FromRtf(record.content).Length() != end - begin) return {};
  m_edited.DropUntil(end);
  return record;
}

}  // namespace snipdeck
