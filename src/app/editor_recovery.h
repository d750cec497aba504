#pragma once

#include <memory>

#include <QElapsedTimer>
#include <QTimer>

#include "app/recovery_file.h"
#include "app/tracked_text.h"
#include "platform/page_geometry.h"

namespace snipdeck {

class frm_RTF_HTM;

/// A document that was changed but not saved when a run ended without closing.
struct LostDocument {
  /// Of its file, as the editor knew it.
  QString path;
  QList<RecoveryRecord> steps;

  bool IsEmpty() const { return steps.isEmpty(); }
};

/// Keeps the editor's document in a file of its own for as long as it is changed: soon after each edit, a long text
/// when the typing pauses.
class EditorRecovery : public QObject {
  Q_OBJECT

 public:
  explicit EditorRecovery(const QString& path);

  /// Once, before the editor is used: what a run that ended without closing has left.
  LostDocument TakeOver();
  /// The user has heard of it, and the program still runs.
  void LostWasTold() { m_file.StartSucceeded(); }
  /// Puts the text of a lost document, and its page, into an empty control.
  static void Replay(const LostDocument& lost, RichTextControl& control);

  /// From here on edits in the window's document are kept. The window outlives this.
  void Track(frm_RTF_HTM& window);
  /// Writes down everything now.
  void Flush();
  /// There is nothing to recover any more.
  void Forget();

 private:
  void Restart();
  void FlushSoon();
  bool WriteHeading();

  RecoveryFile m_file;
  QTimer m_timer;
  QElapsedTimer m_unwrittenSince;
  frm_RTF_HTM* m_window = nullptr;
  std::unique_ptr<TrackedText> m_text;
  /// Nothing of the present document has been written yet.
  bool m_isFresh = true;
  PageGeometry m_writtenPage;
};

}  // namespace snipdeck
