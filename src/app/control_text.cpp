#include "app/control_text.h"

#include <array>
#include <limits>

namespace snipdeck {

namespace {

// By the number of the attribute.
constexpr std::array kPage = {&PageGeometry::width, &PageGeometry::height, &PageGeometry::left,
                              &PageGeometry::top,   &PageGeometry::right,  &PageGeometry::bottom};

class ScratchText : public ControlText {
 public:
  explicit ScratchText(std::unique_ptr<RichTextControl> control)
      : ControlText(*control, *control), m_control(std::move(control)) {}

 private:
  std::unique_ptr<RichTextControl> m_control;
};

}  // namespace

void PageIntoAttributes(RichTextControl& control) {
  const PageGeometry page = control.Page();
  for (size_t i = 0; i < kPage.size(); ++i) control.SetLoadSaveAttribute(static_cast<int>(i), page.*kPage[i]);
}

void PageFromAttributes(RichTextControl& control, PageGeometry page) {
  for (size_t i = 0; i < kPage.size(); ++i) {
    const int value = control.LoadSaveAttribute(static_cast<int>(i));
    if (value > 0) page.*kPage[i] = value;
  }
  if (page == control.Page()) return;
  control.SetPage(page);
  // The page belongs to what was loaded: nobody wants to undo it.
  control.ClearUndoHistory();
}

Outcome ControlText::LoadFile(const QString& path, FileFormat format) {
  const PageGeometry before = m_control.Page();
  PageIntoAttributes(m_control);
  const Outcome loaded = m_control.LoadFile(path, 0, format);
  if (loaded) PageFromAttributes(m_control, before);
  return loaded;
}

Outcome ControlText::SaveFile(const QString& path, FileFormat format) {
  PageIntoAttributes(m_control);
  return m_control.SaveFile(path, 0, format);
}

void ControlText::SelectAll() {
  m_control.SetSelStart(0);
  m_control.SetSelLength(-1);
}

void ControlText::MoveCaretToEnd() {
  m_control.SetSelStart(std::numeric_limits<int>::max());
  // The keyboard may still be with a dialog.
  if (m_control.isVisible()) m_control.ensureCursorVisible();
}

std::unique_ptr<FileText> MakeScratchText(MessageBox& messages, LongWork& longWork) {
  auto control = std::make_unique<RichTextControl>();
  control->setObjectName(QStringLiteral("rtfTempText"));
  control->SetMessages(&messages);
  control->SetLongWork(&longWork);
  return std::make_unique<ScratchText>(std::move(control));
}

}  // namespace snipdeck
