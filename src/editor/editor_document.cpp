#include "editor/editor_document.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <QTimer>

#include "editor/control_errors.h"
#include "platform/qt/rich_text_control.h"
#include "richtext/document_file.h"
#include "storage/busy_pointer.h"
#include "storage/file_reports.h"
#include "storage/file_types.h"

namespace snipdeck {

namespace {

const QString kUntitled = QStringLiteral("Untitled");
const QString kNewName = QStringLiteral("Untitled.rtf");
constexpr int kLeastNotice = 500;  // milliseconds

FileRequest OpenRequest() {
  return {.title = QStringLiteral("Load file from disk"),
          .fileName = QString(),
          .filters = {{QStringLiteral("RTF files (*.rtf)"), QStringLiteral("*.rtf")},
                      {QStringLiteral("Text files (*.txt)"), QStringLiteral("*.txt")},
                      {QStringLiteral("All files (*.*)"), QStringLiteral("*.*")}},
          .defaultExtension = {}};
}

FileRequest SaveRequest(const QString& name) {
  return {.title = QStringLiteral("Save text to disk"),
          .fileName = name,
          .filters = {{QStringLiteral("All files (*.*)"), QStringLiteral("*.*")}},
          .defaultExtension = {}};
}

// The window goes on being painted; keys and clicks wait.
void LetTimePass(int milliseconds) {
  if (milliseconds <= 0) return;
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec(QEventLoop::ExcludeUserInputEvents);
}

// In the order of the load/save attributes 0 to 5.
constexpr int PageGeometry::*kPageValues[] = {&PageGeometry::width, &PageGeometry::height, &PageGeometry::left,
                                              &PageGeometry::top,   &PageGeometry::right,  &PageGeometry::bottom};

// What the file does not say stays as it is.
void TakePageFromFile(RichTextControl& control) {
  PageGeometry page = control.Page();
  int attribute = 0;
  for (const auto value : kPageValues) {
    if (const int given = control.LoadSaveAttribute(attribute++); given > 0) page.*value = given;
  }
  // Setting it places every line anew.
  if (page != control.Page()) control.SetPage(page);
}

void GivePageToFile(RichTextControl& control) {
  const PageGeometry page = control.Page();
  int attribute = 0;
  for (const auto value : kPageValues) control.SetLoadSaveAttribute(attribute++, page.*value);
}

void SetMargins(RichTextControl& control, int twips) {
  PageGeometry page = control.Page();
  page.left = page.top = page.right = page.bottom = twips;
  control.SetPage(page);
}

/// The notice and the busy pointer, for as long as a file is being written and half a second at least.
class SavingShown {
 public:
  explicit SavingShown(SavingNotice& notice) : m_notice(notice) {
    m_notice.Show();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_since.start();
  }
  ~SavingShown() {
    LetTimePass(kLeastNotice - static_cast<int>(m_since.elapsed()));
    m_notice.Close();
  }
  SavingShown(const SavingShown&) = delete;
  SavingShown& operator=(const SavingShown&) = delete;

 private:
  SavingNotice& m_notice;
  BusyPointer m_busy;
  QElapsedTimer m_since;
};

}  // namespace

EditorDocument::EditorDocument(RichTextControl& control, const Services& services)
    : m_control(control), m_services(services) {
  control.SetLongWork(&services.longWork);
  connect(&control, &QTextEdit::textChanged, this, [this] {
    if (!m_isReplacing) MarkChanged();
  });
  connect(&control, &RichTextControl::Error, this, [this](int, const QString& description, bool* isShown) {
    *isShown = false;
    ReportError(description);
  });
}

void EditorDocument::ReportError(const QString& description) {
  if (m_isSaving) {
    m_errorWhileSaving = description;
  } else {
    ShowControlError(description, m_services.messages);
  }
}

void EditorDocument::MarkChanged() {
  m_changedMark = 1;
}

void EditorDocument::Start(OpenMode mode, const QString& path) {
  EmptyText();
  m_fileName = mode == OpenMode::New ? kNewName : path;
  LoadDocument(mode);
  emit CaptionChanged(QStringLiteral("File: ") + m_fileName);
  Settle();
}

void EditorDocument::Resume(const QString& path, const std::function<void()>& fill) {
  EmptyText();
  m_fileName = path;
  LoadDocument(OpenMode::New);
  fill();
  emit CaptionChanged(QStringLiteral("File: ") + m_fileName);
  MarkChanged();
}

void EditorDocument::EmptyText() {
  const QScopedValueRollback replacing(m_isReplacing, true);
  m_control.SetText(QString());
  m_control.SetPageTextsToSave({});
  m_isUnread = false;
}

void EditorDocument::LoadDocument(OpenMode mode) {
  m_control.SetLoadSaveAttribute(37, 1);
  SetMargins(m_control, kTwipsPerInch);
  m_control.ClearUndoHistory();
  if (mode == OpenMode::New) return;
  if (m_fileName.isEmpty() || !QFileInfo(m_fileName).isFile())
    return FileReports(m_services.messages).ShowFileNotFound(m_fileName);
  LoadFile();
}

void EditorDocument::LoadFile() {
  const QScopedValueRollback replacing(m_isReplacing, true);
  m_isUnread = !m_control.LoadFile(m_fileName, 0, LoadFormatForName(m_fileName, false));
  if (!m_isUnread) m_control.SetPageTextsToSave(m_control.LoadedPageTexts());
  TakePageFromFile(m_control);
  m_control.ClearUndoHistory();
  m_control.SetSelStart(0);
}

void EditorDocument::Settle() {
  m_changedMark = 0;
  emit Settled();
}

void EditorDocument::Open() {
  if (!ConfirmDiscard()) return;
  const QString chosen = m_services.dialogs.OpenFile(OpenRequest());
  if (chosen.isEmpty()) return;
  EmptyText();
  m_fileName = chosen;
  LoadDocument(OpenMode::File);
  Settle();
  emit CaptionChanged(m_fileName);
}

void EditorDocument::New() {
  if (!ConfirmDiscard()) return;
  EmptyText();
  m_fileName = kNewName;
  Settle();
  emit CaptionChanged(kNewName);
}

void EditorDocument::Save() {
  if (m_fileName.contains(kUntitled) || m_isUnread) {
    SaveAs();
  } else {
    SaveDocument();
  }
}

void EditorDocument::SaveAs() {
  const QString chosen = m_services.dialogs.SaveFile(SaveRequest(m_fileName));
  if (chosen.isEmpty()) return;
  const QString before = std::exchange(m_fileName, chosen);
  if (SaveDocument()) {
    emit CaptionChanged(QStringLiteral("File :  ") + m_fileName);
  } else {
    m_fileName = before;
  }
}

bool EditorDocument::SaveDocument() {
  const Outcome written = WriteFile();
  if (written) {
    m_isUnread = false;
    Settle();
  } else if (!IsCancelled(written.Error())) {
    ShowControlError(std::exchange(m_errorWhileSaving, {}), m_services.messages);
  }
  return static_cast<bool>(written);
}

Outcome EditorDocument::WriteFile() {
  const QScopedValueRollback saving(m_isSaving, true);
  const SavingShown shown(m_services.notice);
  GivePageToFile(m_control);
  return m_control.SaveFile(m_fileName, 0, LoadFormatForName(m_fileName, false));
}

bool EditorDocument::ConfirmDiscard() {
  if (m_changedMark != 1) return true;
  if (m_isAsking) return false;
  const QScopedValueRollback asking(m_isAsking, true);
  QCoreApplication::processEvents();
  const DocumentDecision decision = m_services.question.Ask(m_fileName);
  if (decision == DocumentDecision::Discard) return true;
  if (decision == DocumentDecision::Cancel) return false;
  if (decision == DocumentDecision::SaveDirectly) {
    Save();
  } else {
    SaveAs();
  }
  return m_changedMark == 0;
}

}  // namespace snipdeck
