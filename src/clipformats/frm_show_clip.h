#pragma once

#include <memory>

#include <QLabel>

#include "clipformats/clipboard_window_services.h"
#include "clipformats/custom_clipboard.h"
#include "clipformats/format_list.h"
#include "clipformats/picture_view.h"
#include "platform/qt/rich_text_control.h"

namespace snipdeck {

/// Shows what the clipboard held when the window was made, in the most telling of four kinds: rich text, plain text, a
/// picture or names of files. Text can be selected and copied from it. Besides, it lists every format that the
/// clipboard holds, when the user asks for it.
class frmShowClip : public ClipboardWindow {
  Q_OBJECT

 public:
  /// Reads the clipboard; waits for its owner as ClipboardAccess says.
  frmShowClip(const ClipboardWindowServices& services, QWidget* parent);

  /// It waits for the clipboard's owner or for an answer at this moment, and must not be destroyed.
  bool IsBusy() const { return m_isBusy || lstFormats->IsReading(); }

  void cmdSelectAll_Click();
  void cmdCopy_Click();
  void cmdExit_Click();
  /// Shows the list of formats in place of the contents, and back.
  void cmdFormats_Click();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void Form_Activate() override;
  void Form_Resize() override;

 private:
  void AddCommands();
  void Form_Load();
  bool ShowRichText();
  bool ShowPlainText();
  void ShowPicture();
  void ShowFileNames();
  bool txtView_KeyDown(const QKeyEvent& key);
  void CopySelection();
  cCustomClipboard& Clipboard();

  ClipboardWindowServices m_services;
  std::unique_ptr<cCustomClipboard> m_clipboard;
  QLabel* lblFormat;
  QWidget* Frame1;
  RichTextControl* txtView;
  PictureView* picView;
  FormatList* lstFormats;
  bool m_isBusy = false;
};

}  // namespace snipdeck
