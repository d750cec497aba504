#pragma once

#include <memory>

#include "platform/qt/rich_text_control.h"
#include "storage/file_text.h"

namespace snipdeck {

/// The text of a control as the commands on files see it.
class ControlText : public FileText {
 public:
  /// `control`, and the panel that it lies in, outlive this.
  ControlText(RichTextControl& control, const QWidget& panel) : m_control(control), m_panel(panel) {}

  bool IsShown() const override { return m_panel.isVisible(); }
  bool Modified() const override { return m_control.Modified(); }
  void SetModified(bool modified) override { m_control.SetModified(modified); }
  Outcome LoadFile(const QString& path, FileFormat format) override;
  Outcome SaveFile(const QString& path, FileFormat format) override;
  bool HasSelection() const override { return m_control.SelLength() > 0; }
  void SelectAll() override;
  RichText Selection() const override { return m_control.SelRichText(); }
  void MoveCaretToStart() override { m_control.SetSelStart(0); }
  void MoveCaretToEnd() override;
  void Insert(const QString& text) override { m_control.SetSelText(text); }
  void Insert(const RichText& text) override { m_control.SetSelRichText(text); }
  void TakeFocus() override { m_control.setFocus(); }

 private:
  RichTextControl& m_control;
  const QWidget& m_panel;
};

/// A text that nobody sees, with `messages` for what its files fail in.
std::unique_ptr<FileText> MakeScratchText(MessageBox& messages, LongWork& longWork);

/// The six numbers of a control's page travel with a file. What the control has goes into the file; what a file that
/// was loaded says becomes the control's, and what it does not say comes from `page`.
void PageIntoAttributes(RichTextControl& control);
void PageFromAttributes(RichTextControl& control, PageGeometry page);

}  // namespace snipdeck
