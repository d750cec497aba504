#pragma once

#include <memory>
#include <span>
#include <vector>

#include <QElapsedTimer>
#include <QTimer>

#include "platform/clipboard.h"
#include "platform/x11/echo_filter.h"
#include "platform/x11/selection_transfer.h"

namespace snipdeck {

/// Hands out the properties in which owners put their data. A property comes back only when nothing more can arrive in
/// it.
class PropertyPool {
 public:
  explicit PropertyPool(XConnection& connection) : m_connection(connection) {}
  xcb_atom_t Take();
  void GiveBack(xcb_atom_t property) { m_free.push_back(property); }

 private:
  XConnection& m_connection;
  std::vector<xcb_atom_t> m_free;
  int m_made = 0;
};

/// Reads what one change put on the clipboard: the list of targets, the owner's secrecy hint, then rich text, text and
/// file list side by side. Finished() comes exactly once, also when the owner hangs, lies or dies.
class SnapshotReader : public QObject {
  Q_OBJECT

 public:
  /// `time` is that of the owner's claim; `origin` has no targets yet.
  SnapshotReader(XConnection& connection, PropertyPool& pool, xcb_timestamp_t time, CopyOrigin origin,
                 TransferLimits limits);
  /// For a copy of this program's own, which TakeOwn() tells.
  SnapshotReader(XConnection& connection, PropertyPool& pool, CopyOrigin origin);
  ~SnapshotReader() override;

  void HandleNotify(const xcb_selection_notify_event_t& event);
  void HandleProperty(const xcb_property_notify_event_t& event);
  bool WaitsForOwn() const { return m_stage == Stage::Own; }
  /// Finishes it with contents that needed no reading, offered under these targets.
  void TakeOwn(ClipboardSnapshot contents, const std::vector<QByteArray>& targets);
  /// A newer change has come: what is not read soon is given up.
  void Supersede();
  /// The owner's window is gone: what has not arrived never will.
  void OwnerGone();

  bool IsFinished() const { return m_stage == Stage::Finished; }
  /// Newer changes that came before it was finished. What it read may have come from the owner after any of them.
  int ChangesWhileRead() const { return m_changesWhileRead; }
  bool IsSecret() const { return m_isSecret; }
  /// Whether IsSecret() is the last word.
  bool KnowsSecrecy() const { return m_stage >= Stage::Contents; }
  /// Whether IsSecret() was learnt before any newer change, and so from this copy's own owner.
  bool SecrecyIsItsOwn() const { return KnowsSecrecy() && m_changesUntilSecrecy == 0; }
  /// False if nothing could be read, or if the contents are secret.
  bool HasContents() const;
  const ClipboardSnapshot& Snapshot() const { return m_snapshot; }
  /// Complete once the list of targets has been read.
  const CopyOrigin& Origin() const { return m_origin; }

 signals:
  void Finished();

 private:
  enum class Stage { Targets, Secrecy, Contents, Own, Finished };

  SelectionTransfer* Ask(const QByteArray& target);
  void AskForTargets();
  void AskForContents();
  void AskForNextRichText();
  void Advance();
  void TargetsArrived();
  void AskForSecrecy();
  void SecrecyArrived();
  void NoteOrigin();
  void ContentsArrived();
  bool IsOffered(const char* target);
  bool AnyOffered(std::span<const char* const> targets);
  void NoteKinds();
  void Progressed();
  void AbandonAll(const QString& why);
  void Finish();

  XConnection& m_connection;
  PropertyPool& m_pool;
  xcb_timestamp_t m_time = XCB_CURRENT_TIME;
  CopyOrigin m_origin;
  TransferLimits m_limits;
  Stage m_stage = Stage::Targets;
  int m_changesWhileRead = 0;
  int m_changesUntilSecrecy = 0;
  bool m_isSecret = false;
  std::vector<std::unique_ptr<SelectionTransfer>> m_transfers;
  std::vector<xcb_atom_t> m_offered;
  std::vector<QByteArray> m_richTextLeft;
  SelectionTransfer* m_targets = nullptr;
  SelectionTransfer* m_secrecy = nullptr;
  std::vector<QByteArray> m_secrecyLeft;
  SelectionTransfer* m_richText = nullptr;
  SelectionTransfer* m_text = nullptr;
  SelectionTransfer* m_files = nullptr;
  QByteArray m_richTextTarget;
  QByteArray m_textTarget;
  ClipboardSnapshot m_snapshot;
  QTimer m_stallTimer;
  QTimer m_supersededTimer;
};

}  // namespace snipdeck
