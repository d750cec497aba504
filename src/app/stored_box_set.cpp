#include "app/stored_box_set.h"

#include "app/control_text.h"

namespace snipdeck {

namespace {

constexpr int kMargin = 240;    // twips
constexpr int kWholeSave = 38;  // the attribute that a save of a box sets
constexpr int kTrue = -1;

}  // namespace

StoredBoxSet::StoredBoxSet(BoxSet& boxes, MessageBox& messages, LongWork& longWork)
    : m_boxes(boxes), m_messages(messages), m_longWork(longWork) {}

bool StoredBoxSet::AreShown() {
  if (m_boxes.PanelIsShown()) m_boxes.ShowLeaveLargeView();
  return !m_boxes.PanelIsShown();
}

bool StoredBoxSet::CumulativeCovers() {
  const bool covers = m_boxes.Frame2->isVisible();
  if (covers) m_boxes.ShowLeaveLargeView();
  return covers;
}

Outcome StoredBoxSet::SaveFile(int n, const QString& path) {
  RichTextControl& box = m_boxes.Box(n);
  box.SetLoadSaveAttribute(kWholeSave, kTrue);
  return box.SaveFile(path, 0, FileFormat::Rtf);
}

void StoredBoxSet::LoadFile(int n, const QString& path, FileFormat format) {
  RichTextControl& box = m_boxes.Box(n);
  box.SetLoadSaveAttribute(kWholeSave, kTrue);
  PageGeometry page = box.Page();
  page.left = page.top = page.right = page.bottom = kMargin;
  // Only what it could not load: the storage itself tells what could not be saved.
  box.SetMessages(&m_messages);
  box.SetLongWork(&m_longWork);
  if (box.LoadFile(path, 0, format)) PageFromAttributes(box, page);
  box.SetLongWork(nullptr);
  box.SetMessages(nullptr);
}

}  // namespace snipdeck
