#include "app/shut_down.h"

#include <cmath>

#include <QApplication>
#include <QDeadlineTimer>
#include <QScopedValueRollback>
#include <QTimer>

#include "richtext/html/html_writer.h"

namespace snipdeck {

namespace {

constexpr int kLongestMaximising = 500;  // milliseconds
constexpr int kWakeEvery = 10;           // milliseconds
constexpr std::int16_t kCumulativeMode = 1;

std::int32_t Whole(double twips) {
  return static_cast<std::int32_t>(std::nearbyint(twips));
}

Message Question(const QString& text) {
  return {.text = text, .icon = MessageIcon::Question, .buttons = MessageButtons::YesNoCancel};
}

}  // namespace

bool ShutDown::QueryUnload() {
  if (m_hasEnded) return true;
  if (m_isAsking) return false;
  const QScopedValueRollback asking(m_isAsking, true);
  ShowMaximisedIfMinimised();
  const bool goesOn = m_parts.settings.startWithCumulative == kCumulativeMode ? AskAboutCumulative() : AskAboutBoxes();
  // A forced end may have overtaken the question.
  if (m_hasEnded || !goesOn) return m_hasEnded;
  TakePlacement();
  m_parts.settingsFile.WriteSettings();
  // What could not be written comes back at the next start.
  if (!m_saveFailed) m_parts.recovery.Forget();
  Finish();
  return true;
}

void ShutDown::EndForced() {
  if (m_hasEnded) return;
  KeepForSessionEnd();
  if (!HoldsUnsaved()) m_parts.recovery.Forget();
  Finish();
}

// A failure has nobody to be told to.
void ShutDown::KeepForSessionEnd() {
  TakePlacement();
  m_parts.settingsFile.TryToWrite();
  m_parts.recovery.Flush();
}

// The window manager answers in its own time; the placement is read when it has, or when it takes too long.
void ShutDown::ShowMaximisedIfMinimised() {
  QMainWindow& window = m_parts.window;
  if (!window.isMinimized()) return;
  const QRect before = window.frameGeometry();
  window.setWindowState(Qt::WindowMaximized);
  const QDeadlineTimer deadline(kLongestMaximising);
  QTimer wake;
  wake.start(kWakeEvery);
  while (window.frameGeometry() == before && !deadline.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
}

bool ShutDown::AskAboutBoxes() {
  QCoreApplication::processEvents();
  m_parts.boxes.Frame1->hide();
  if (!m_parts.boxes.BoxesAltered) return true;
  // Saving is refused while a panel is shown.
  m_parts.boxes.Frame2->hide();
  m_parts.boxes.ShowAllBoxes();
  const MessageAnswer answer = m_parts.messages.Show(
      Question(QStringLiteral("Text boxes have been altered by user.\t\r\n\r\nSave before exiting QM Snipdeck ?\r\n")));
  if (answer == MessageAnswer::Yes) m_saveFailed = !m_parts.storage.SaveAll();
  return answer != MessageAnswer::Cancel;
}

bool ShutDown::AskAboutCumulative() {
  const MessageAnswer answer = m_parts.messages.Show(Question(QStringLiteral(
      "Save cumulative clipboard text box to\r\n\r\nWindows clipboard before exiting QM Snipdeck ?\r\n")));
  if (answer == MessageAnswer::Yes) PutCumulativeOnClipboard();
  return answer != MessageAnswer::Cancel;
}

void ShutDown::PutCumulativeOnClipboard() {
  RichTextControl& cumulative = m_parts.boxes.TXTextControl2();
  cumulative.SetSelStart(0);
  cumulative.SetSelLength(-1);
  m_parts.clipboard.EmptyClipboard();
  QCoreApplication::processEvents();
  const RichText text = cumulative.SelRichText();
  m_parts.clipboard.PutRichText({text.Rtf(), WriteHtml(text.Document()), text.PlainText()});
}

bool ShutDown::HoldsUnsaved() const {
  if (m_parts.settings.startWithCumulative != kCumulativeMode) return m_parts.boxes.BoxesAltered;
  return !m_parts.boxes.TXTextControl2().document()->isEmpty();
}

void ShutDown::TakePlacement() {
  Settings& settings = m_parts.settings;
  settings.mainTop = Whole(m_parts.geometry.Top());
  settings.mainLeft = Whole(m_parts.geometry.Left());
  settings.mainWidth = Whole(m_parts.geometry.Width());
  settings.mainHeight = Whole(m_parts.geometry.Height());
  settings.largeViewZoom = static_cast<std::int16_t>(m_parts.boxes.TXTextControl1().ZoomValue());
}

void ShutDown::Finish() {
  m_hasEnded = true;
  m_parts.watch.StopWatching();
  CloseOtherWindows();
  m_parts.clipboard.HandOverAtExit();
}

// The main window is closed by whoever asked for the end.
void ShutDown::CloseOtherWindows() {
  const QWidgetList windows = QApplication::topLevelWidgets();
  for (auto it = windows.rbegin(); it != windows.rend(); ++it) {
    if (*it != &m_parts.window && (*it)->isVisible()) (*it)->close();
  }
}

}  // namespace snipdeck
