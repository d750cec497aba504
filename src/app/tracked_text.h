#pragma once

#include <functional>
#include <optional>

#include <QObject>

#include "app/edited_range.h"
#include "app/recovery_record.h"
#include "platform/qt/rich_text_control.h"

namespace snipdeck {

/// Notes which part of one text the user changes, so that only that part has to be written down.
class TrackedText : public QObject {
  Q_OBJECT

 public:
  /// `target` is the text's number in recovery records; `onEdit` runs after each edit that is noted.
  TrackedText(RichTextControl& control, std::uint8_t target, std::function<void()> onEdit, QObject* parent);

  /// While true, changes are not noted: whoever makes them writes them down himself. Nor is what belongs to such a
  /// change and is still being filled in afterwards.
  void SetPaused(bool paused);
  /// Notes the text as changed from beginning to end.
  void MarkWhole();
  /// What was changed since the last call; nothing where nothing was, or while the text is still being filled in.
  std::optional<RecoveryRecord> TakeEdit();
  /// As TakeEdit, but of a long edit only the first part, which takes a few milliseconds; each record is one step on
  /// the way to the present text.
  std::optional<RecoveryRecord> TakePart();
  /// All of the text has been replaced since, and that is written down elsewhere.
  void DropEdit();
  bool HasEdit() const { return !m_edited.IsEmpty(); }
  /// Fills in what is missing of a text that was changed, so that its edit can be taken.
  void Complete() const;

 private:
  void Note(int position, int removed, int added);
  std::optional<RecoveryRecord> Take(int mostCharacters);
  RecoveryRecord Whole() const;
  std::optional<RecoveryRecord> Splice(int mostCharacters);

  RichTextControl& m_control;
  std::uint8_t m_target;
  std::function<void()> m_onEdit;
  EditedRange m_edited;
  bool m_needsWhole = false;
  bool m_paused = false;
  bool m_fillsNoted = false;    ///< What is being filled in was begun before this was paused.
  bool m_fillsUnnoted = false;  ///< What is being filled in was begun while this was paused.
};

}  // namespace snipdeck
