#pragma once

#include <QDialog>

#include "dialogs/file_details.h"
#include "layout/fonts_and_colours.h"
#include "navigation/external_programs.h"
#include "platform/changed_document_question.h"
#include "platform/clipboard_writer.h"
#include "platform/qt/qt_window_geometry.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QMenuBar;
class QPushButton;

namespace snipdeck {

/// What the question about a changed document needs of the program. Everything outlives the question.
struct ClosingServices {
  Settings& settings;
  MessageBox& messages;
  ClipboardWriter& clipboard;
  Shell& shell;
  ExternalPrograms& programs;
  FontsAndColours& looks;
};

/// Asks what to do with a changed document that is about to close, and shows the details of its file.
class frmMyMsgBox : public QDialog {
  Q_OBJECT

 public:
  frmMyMsgBox(const ClosingServices& services, const QString& path, QWidget* owner);

  /// Cancel until the user has chosen something else.
  DocumentDecision Result() const { return m_result; }

 protected:
  void changeEvent(QEvent* event) override;
  void done(int code) override;

 private:
  void cmdYes_Click() { Decide(DocumentDecision::SaveAs); }
  void cmdNo_Click();
  void cmdCancel_Click() { Decide(DocumentDecision::Cancel); }
  void mnuSave_Click() { Decide(DocumentDecision::SaveDirectly); }
  void mnuFileInfo_Click();
  void mnuTrawler_Click();
  void mnuExplorer_Click();
  void chkDecisionConfirmNoSave_Click(bool checked);
  void Decide(DocumentDecision decision);

  QMenuBar* MakeMenus();
  QWidget* MakeDetails();
  QWidget* MakeChoices();
  QLayout* MakeAnswers();
  QLayout* MakePictureButtons();
  void ShowDetails();
  void KeepSize();

  ClosingServices m_services;
  FileDetails m_details;
  QtWindowGeometry m_geometry;
  DocumentDecision m_result = DocumentDecision::Cancel;
  QLineEdit* m_fileName;
  QLineEdit* m_filePath;
  QLabel* m_fileSize;
  QLabel* m_fileDate;
};

/// The question as the editor asks it: a window of its own each time.
class FileDetailsQuestion : public ChangedDocumentQuestion {
 public:
  explicit FileDetailsQuestion(const ClosingServices& services) : m_services(services) {}

  DocumentDecision Ask(const QString& path) override;

 private:
  ClosingServices m_services;
};

}  // namespace snipdeck
