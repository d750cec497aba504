#pragma once

#include "capture/box_set.h"
#include "storage/box_storage.h"

namespace snipdeck {

/// The boxes of the main window as their storage sees them.
class StoredBoxSet : public StoredBoxes {
 public:
  explicit StoredBoxSet(BoxSet& boxes) : m_boxes(boxes) {}

  bool AreShown() override {
    if (m_boxes.PanelIsShown()) m_boxes.ShowLeaveLargeView();
    return !m_boxes.PanelIsShown();
  }
  RichText Contents(int n) const override { return RichText::FromDocument(*m_boxes.Box(n).document()); }
  void SetSelection(int n, const RichText& text) override { m_boxes.Box(n).SetSelRichText(text); }
  RichText Captured(int n) const override { return m_boxes.CapturedRtf[static_cast<size_t>(n)]; }
  void SetAltered(bool altered) override { m_boxes.BoxesAltered = altered; }

 private:
  BoxSet& m_boxes;
};

}  // namespace snipdeck
