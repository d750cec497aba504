#pragma once

#include <QLabel>

#include "clipformats/clipboard_window_services.h"
#include "clipformats/plain_text_field.h"
#include "richtext/staged_text.h"

namespace snipdeck {

/// Through which the dialog hands over what the user retrieved.
struct Retrieval {
  StagedText& WhichTXControl;
  /// Shared by the dialogs that hand over a choice: 1 when the user retrieved the text, else 0.
  std::int16_t& dialogResult;
};

/// A modal dialog that shows the text on the clipboard in one of three styles, with all its formats, with its
/// characters and paragraphs alone, or as plain text, and lets the user take it in that style or save it.
class frmViewAndPaste : public ClipboardWindow {
  Q_OBJECT

 public:
  /// `showAllTypes` opens the window that shows every kind of contents, and returns when it is closed.
  frmViewAndPaste(const ClipboardWindowServices& services, const Retrieval& retrieval,
                  std::function<void(QWidget*)> showAllTypes, QWidget* parent);

  void cmdRetrieve_Click();
  void cmdBasicRTF_Click();
  void cmdSaveContents_Click();
  void cmdAllTypes_Click();
  void cmdExit_Click();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void Form_Activate() override;
  void Form_Resize() override;

 private:
  void AddCommands();
  void PrepareView(RichTextControl& view, const char* name, const QString& accessibleName);
  void Form_Load();
  void ReadClipboard();
  void ShowRichText(const RichText& text);
  void ShowPlainText();
  void ShowKindOnly();
  void ApplyTextStyle();

  ClipboardWindowServices m_services;
  Retrieval m_retrieval;
  std::function<void(QWidget*)> m_showAllTypes;
  CommandButton* cmdBasicRTF = nullptr;
  QLabel* Label1;
  RichTextControl* TXTextControl1;
  RichTextControl* RichTextBox1;
  PlainTextField* Text1;
  /// 0 full, 1 basic, 2 plain.
  int m_style = 0;
  bool m_isFirstShow = true;
  bool m_isActivating = false;
};

}  // namespace snipdeck
