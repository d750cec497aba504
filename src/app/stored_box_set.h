#pragma once

#include "capture/box_set.h"
#include "capture/without_undo.h"
#include "platform/long_work.h"
#include "storage/box_storage.h"

namespace snipdeck {

/// The boxes of the main window as their storage sees them.
class StoredBoxSet : public StoredBoxes {
 public:
  /// All outlive this. `messages` is where a box tells what it could not load, which it does as long work; saving
  /// handles no events.
  StoredBoxSet(BoxSet& boxes, MessageBox& messages, LongWork& longWork);

  bool AreShown() override;
  bool CumulativeCovers() override;
  Outcome SaveFile(int n, const QString& path) override;
  void LoadFile(int n, const QString& path, FileFormat format) override;
  void SetSelection(int n, const RichText& text) override {
    const WithoutUndo withoutUndo(m_boxes.Box(n));
    m_boxes.Box(n).SetSelRichText(text);
  }
  RichText Captured(int n) const override { return m_boxes.CapturedRtf[static_cast<size_t>(n)]; }
  bool Altered() const override { return m_boxes.BoxesAltered; }
  void SetAltered(bool altered) override { m_boxes.BoxesAltered = altered; }

 private:
  BoxSet& m_boxes;
  MessageBox& m_messages;
  LongWork& m_longWork;
};

}  // namespace snipdeck
