#pragma once

#include "capture/box_host.h"
#include "capture/box_keys.h"
#include "capture/box_set.h"

namespace snipdeck {

/// How the user works in the boxes: their keys, enlarging one, writing it back.
class BoxInteraction : public QObject {
  Q_OBJECT

 public:
  /// `storageFolder` is told in the brief help.
  BoxInteraction(BoxSet& boxes, MessageBox& messages, const QString& storageFolder, BoxHost host);

  /// Enlarges the box last worked in, or returns to the boxes without writing back.
  void ToggleFullScreen();
  void ShowBriefHelp();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Watch(RichTextControl& control);
  bool HandleClick(const RichTextControl& control);
  void NoteTyping(const RichTextControl& control, const QString& typed);
  void WriteBack();
  void LeaveLargeView();

  BoxSet& m_boxes;
  MessageBox& m_messages;
  const QString& m_storageFolder;
  BoxHost m_host;
  BoxKeys m_keys;
};

}  // namespace snipdeck
