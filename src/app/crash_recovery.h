#pragma once

#include <functional>
#include <optional>
#include <vector>

#include <QTimer>

#include "app/recovery_file.h"
#include "app/tracked_text.h"
#include "capture/box_set.h"
#include "platform/clipboard.h"

namespace snipdeck {

/// Keeps what the boxes hold in a file while the program runs: every copy at once, every edit of the boxes and of the
/// cumulative text within a second. A start after a crash gets it back. What is never captured never comes here.
class CrashRecovery : public QObject {
  Q_OBJECT

 public:
  CrashRecovery(BoxSet& boxes, const Clipboard& clipboard, const QString& path);

  /// Once, before the boxes are restored: fills `CapturedRtf`, the cumulative box and `CurrentBox` with what a run that
  /// ended without closing has left. False where there was nothing.
  bool Recover();
  /// From here on edits are kept.
  void StartTracking();
  /// The start has come to its end: what was recovered did no harm.
  void StartSucceeded() { m_file.StartSucceeded(); }
  /// Runs `process`, the handling of a clipboard change, and keeps the copy if it was captured. The copy that was
  /// captured last before a crash is not captured a second time when the next start finds it on the clipboard.
  void WhileCapturing(const std::function<void()>& process);
  /// Writes down all edits now.
  void Flush();
  /// At the end of a run that leaves nothing to recover.
  void Forget();

 private:
  RecoveryRecord PresentCopy() const;
  /// The copy's text in the cumulative text is written down with an edit of that, or else with the copy itself.
  void KeepCopy(bool joinsEdit);
  void FlushSoon();
  /// Writes some of the edits down; true where there are more.
  bool FlushPart();
  /// Whether there are edits that cannot be written down yet.
  bool IsWaiting() const;

  BoxSet& m_boxes;
  const Clipboard& m_clipboard;
  RecoveryFile m_file;
  std::vector<TrackedText*> m_texts;
  QTimer m_timer;
  std::optional<RecoveryRecord> m_lastCopyBefore;
};

}  // namespace snipdeck
