#pragma once

#include <QMainWindow>

#include "editor/editor_document.h"
#include "navigation/external_programs.h"
#include "platform/clipboard.h"
#include "platform/print_dialog.h"
#include "platform/qt/qt_window_geometry.h"
#include "platform/screen.h"
#include "platform/settings.h"

class QEventLoop;

namespace snipdeck {

class RichTextControl;
class RulerGuide;
class TXButtonBar;
class TXRuler;
class TXStatusBar;

/// What the editor needs of the program around it. Everything outlives the window.
struct EditorServices {
  EditorDocument::Services document;
  PrintDialog& printDialog;
  const Clipboard& clipboard;
  ExternalPrograms& programs;
  Settings& settings;
  const Screen& screen;
  const WindowGeometry& mainWindow;
};

/// The text editor's window: it owns the controls; every handler is one call into the class that does the work.
class frm_RTF_HTM : public QMainWindow {
  Q_OBJECT

 public:
  frm_RTF_HTM(const EditorServices& services, QWidget* owner);
  ~frm_RTF_HTM() override;

  /// Shows the editor over the windows of the program, which do not answer until it closes, and returns then. While it
  /// is shown already, nothing happens.
  void ShowModal(OpenMode mode, const QString& path);
  /// The same with a changed document whose text `fill` puts into the control.
  void ShowRecovered(const QString& path, const std::function<void()>& fill);
  /// From now on a close asks nothing and loses what is not saved: the program is made to end.
  void SetEnding() { m_isEnding = true; }

  RichTextControl& TextControl() { return *ThisTextCtrl; }
  EditorDocument& Document() { return *m_document; }

  void mnuOpenFile_Click();
  void mnuNewFile_Click();
  void mnuSave_Click();
  void mnuSaveAs_Click();
  void mnuFile_Explorer_Click();
  void mnuFile_Print_Click();
  void mnuExit_Click();
  void mnuEdit_Find_Click();
  void mnuEdit_Replace_Click();
  void mnuEdit_AllFonts_Click();
  void mnuEdit_FormatInsert_Click();
  void mnuEdit_FormatTable_Click();
  void mnuEdit_TextBox_Click();
  void mnuEdit_Paragraph_Click();
  void mnuEdit_Bullets_Click();
  void mnuCentreOnScreen_Click();
  void mnuView_PageSettings_Click();
  void mnuView_Formatting_Click();
  void mnuView_PageView_Click();
  void cmdCopyButton_Click();
  void cmdCutButton_Click();
  void cmdPasteButton_Click();
  void SelectAll();
  void SwapCharacters();
  void PlainCharacters();
  void ToggleBold();
  void ToggleItalic();
  void ToggleUnderline();
  void GotoDesktop();
  void StartMiniTrawler();

 signals:
  /// The window has closed; the text it held is not needed any more.
  void Closed();

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void BuildControls();
  void PrepareControl();
  void Form_Load(const std::function<void()>& start);
  void Form_Resize();
  bool Form_QueryUnload();
  void PlaceAsSaved();
  void KeepPlacement();
  void UseClipboard(int action);
  bool HasMenuKey(const QKeyEvent& event) const;

  EditorServices m_services;
  QWidget* m_client;
  QWidget* picToolbar;
  TXButtonBar* TXButtonBar1;
  TXRuler* TXRuler1;
  RichTextControl* ThisTextCtrl;
  TXStatusBar* TXStatusBar1;
  EditorDocument* m_document;
  QtWindowGeometry m_geometry;
  QEventLoop* m_shown = nullptr;
  bool m_centresWhenActive = false;
  bool m_isEnding = false;
};

}  // namespace snipdeck
