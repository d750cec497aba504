#include "platform/x11/snapshot_reader.h"

#include "platform/x11/target_content.h"

namespace snipdeck {

namespace {

// Real owners offer a few dozen targets; a list beyond this is cut.
constexpr int kMaxTargets = 4096;
// Properties that hung owners keep; the oldest is used again beyond this.
constexpr int kMaxProperties = 512;

}  // namespace

xcb_atom_t PropertyPool::Take() {
  if (!m_free.empty()) {
    const xcb_atom_t property = m_free.back();
    m_free.pop_back();
    return property;
  }
  return m_connection.Atom("QM_SNIPDECK_" + QByteArray::number(m_made++ % kMaxProperties));
}

SnapshotReader::SnapshotReader(XConnection& connection, PropertyPool& pool, xcb_timestamp_t time, CopyOrigin origin,
                               TransferLimits limits)
    : m_connection(connection), m_pool(pool), m_time(time), m_origin(std::move(origin)), m_limits(limits) {
  for (QTimer* timer : {&m_stallTimer, &m_supersededTimer}) timer->setSingleShot(true);
  m_stallTimer.setInterval(m_limits.stallMs);
  m_supersededTimer.setInterval(m_limits.supersededMs);
  connect(&m_stallTimer, &QTimer::timeout, this, [this] { AbandonAll(QStringLiteral("the owner does not answer")); });
  connect(&m_supersededTimer, &QTimer::timeout, this, [this] { AbandonAll(QStringLiteral("a newer copy came")); });
  AskForTargets();
}

SnapshotReader::SnapshotReader(XConnection& connection, PropertyPool& pool, CopyOrigin origin)
    : m_connection(connection), m_pool(pool), m_origin(std::move(origin)), m_stage(Stage::Own) {}

void SnapshotReader::TakeOwn(ClipboardSnapshot contents, const std::vector<QByteArray>& targets) {
  m_snapshot = std::move(contents);
  for (const QByteArray& target : targets) m_offered.push_back(m_connection.Atom(target));
  NoteOrigin();
  Finish();
}

SnapshotReader::~SnapshotReader() {
  for (const auto& transfer : m_transfers) {
    if (transfer->PropertyIsFree()) m_pool.GiveBack(transfer->Property());
  }
}

SelectionTransfer* SnapshotReader::Ask(const QByteArray& target) {
  m_transfers.push_back(std::make_unique<SelectionTransfer>(m_connection, m_connection.Atom(target), m_pool.Take(),
                                                            m_time, m_limits.maxBytes));
  m_stallTimer.start();
  m_connection.Flush();
  return m_transfers.back().get();
}

void SnapshotReader::AskForTargets() {
  m_targets = Ask("TARGETS");
}

void SnapshotReader::HandleNotify(const xcb_selection_notify_event_t& event) {
  for (const auto& transfer : m_transfers) {
    if (transfer->HandleNotify(event)) return Progressed();
  }
}

void SnapshotReader::HandleProperty(const xcb_property_notify_event_t& event) {
  for (const auto& transfer : m_transfers) {
    if (transfer->HandleProperty(event)) return Progressed();
  }
}

void SnapshotReader::Supersede() {
  if (IsFinished() || WaitsForOwn()) return;
  if (m_changesWhileRead++ == 0) m_supersededTimer.start();
  if (!KnowsSecrecy()) ++m_changesUntilSecrecy;
}

void SnapshotReader::OwnerGone() {
  AbandonAll(QStringLiteral("the owner ended"));
}

bool SnapshotReader::HasContents() const {
  return m_snapshot.hasRichText || m_snapshot.hasText || m_snapshot.hasBitmap || m_snapshot.hasFileList;
}

void SnapshotReader::Progressed() {
  if (IsFinished()) return;
  m_stallTimer.start();
  Advance();
}

void SnapshotReader::AbandonAll(const QString& why) {
  if (IsFinished() || WaitsForOwn()) return;
  m_richTextLeft.clear();
  for (const auto& transfer : m_transfers) transfer->Abandon(why);
  Advance();
}

void SnapshotReader::Advance() {
  if (m_stage == Stage::Targets && m_targets->IsFinished()) TargetsArrived();
  if (m_stage == Stage::Secrecy && m_secrecy->IsFinished()) SecrecyArrived();
  if (m_stage == Stage::Contents) ContentsArrived();
}

void SnapshotReader::TargetsArrived() {
  if (m_targets->CurrentState() == SelectionTransfer::State::Failed) return Finish();
  const QByteArray& bytes = m_targets->Bytes();
  const auto count = std::min<qsizetype>(bytes.size() / qsizetype{sizeof(xcb_atom_t)}, kMaxTargets);
  m_offered.resize(static_cast<size_t>(count));
  std::memcpy(m_offered.data(), bytes.constData(), static_cast<size_t>(count) * sizeof(xcb_atom_t));
  NoteOrigin();
  for (const char* target : SecrecyTargets()) {
    if (IsOffered(target)) m_secrecyLeft.push_back(target);
  }
  m_stage = Stage::Secrecy;
  AskForSecrecy();
}

void SnapshotReader::NoteOrigin() {
  const auto offered = [this](std::span<const char* const> targets) {
    std::vector<xcb_atom_t> found;
    for (const char* target : targets) {
      if (IsOffered(target)) found.push_back(m_connection.Atom(target));
    }
    return found;
  };
  for (const auto targets : {RichTextTargets(), TextTargets(), ImageTargets(), OtherReadTargets()}) {
    const std::vector<xcb_atom_t> found = offered(targets);
    m_origin.readable.insert(m_origin.readable.end(), found.begin(), found.end());
  }
  std::sort(m_origin.readable.begin(), m_origin.readable.end());
  m_origin.targetCount = m_offered.size() - offered(ProtocolTargets()).size();
}

void SnapshotReader::AskForSecrecy() {
  if (m_secrecyLeft.empty()) return AskForContents();
  m_secrecy = Ask(m_secrecyLeft.back());
}

void SnapshotReader::SecrecyArrived() {
  // An owner that marks its contents but does not say how gets the benefit of the doubt: they stay unread.
  const bool told = m_secrecy->CurrentState() == SelectionTransfer::State::Done;
  m_isSecret = !told || MeansSecret(m_secrecyLeft.back(), m_secrecy->Bytes());
  if (m_isSecret) return Finish();
  m_secrecyLeft.pop_back();
  AskForSecrecy();
}

bool SnapshotReader::IsOffered(const char* target) {
  return std::find(m_offered.begin(), m_offered.end(), m_connection.Atom(target)) != m_offered.end();
}

bool SnapshotReader::AnyOffered(std::span<const char* const> targets) {
  return std::any_of(targets.begin(), targets.end(), [this](const char* target) { return IsOffered(target); });
}

void SnapshotReader::NoteKinds() {
  m_snapshot.hasBitmap = AnyOffered(ImageTargets());
  m_snapshot.hasFileList = IsOffered(kUriListTarget);
}

void SnapshotReader::AskForContents() {
  m_stage = Stage::Contents;
  NoteKinds();
  const bool textIsOnlyTheFileList = m_snapshot.hasFileList && AnyOffered(FileManagerTargets());
  if (!textIsOnlyTheFileList) {
    for (const char* target : TextTargets()) {
      if (m_textTarget.isEmpty() && IsOffered(target)) m_textTarget = target;
    }
    for (const char* target : RichTextTargets()) {
      if (IsOffered(target)) m_richTextLeft.push_back(target);
    }
    // A browser offers a copied image as an <img> in HTML too, but then without text.
    const bool htmlIsOnlyTheImage = m_snapshot.hasBitmap && m_textTarget.isEmpty();
    if (IsOffered(kHtmlTarget) && !htmlIsOnlyTheImage) m_richTextLeft.push_back(kHtmlTarget);
  }
  AskForNextRichText();
  if (!m_textTarget.isEmpty()) m_text = Ask(m_textTarget);
  if (m_snapshot.hasFileList) m_files = Ask(kUriListTarget);
}

void SnapshotReader::AskForNextRichText() {
  if (m_richTextLeft.empty()) return;
  m_richTextTarget = m_richTextLeft.front();
  m_richTextLeft.erase(m_richTextLeft.begin());
  m_richText = Ask(m_richTextTarget);
}

void SnapshotReader::ContentsArrived() {
  using State = SelectionTransfer::State;
  if (m_richText && m_richText->IsFinished() && !m_snapshot.hasRichText) {
    const bool isHtml = m_richTextTarget == kHtmlTarget;
    const QByteArray& bytes = m_richText->Bytes();
    if (m_richText->CurrentState() == State::Done && (isHtml ? !bytes.isEmpty() : LooksLikeRtf(bytes))) {
      m_snapshot.hasRichText = true;
      m_snapshot.richText = {isHtml ? RichTextPayload::Encoding::Html : RichTextPayload::Encoding::Rtf, bytes};
    } else if (!m_richTextLeft.empty()) {
      AskForNextRichText();
    }
  }
  for (const SelectionTransfer* transfer : {m_richText, m_text, m_files}) {
    if (transfer && !transfer->IsFinished()) return;
  }
  if (m_text && m_text->CurrentState() == State::Done) {
    m_snapshot.hasText = true;
    m_snapshot.text = DecodeText(m_textTarget, m_text->Bytes());
  }
  if (m_files && m_files->CurrentState() == State::Done) m_snapshot.files = DecodeUriList(m_files->Bytes());
  Finish();
}

void SnapshotReader::Finish() {
  m_stage = Stage::Finished;
  m_stallTimer.stop();
  m_supersededTimer.stop();
  emit Finished();
}

}  // namespace snipdeck
