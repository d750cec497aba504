#include "app/editor_desk.h"

#include <utility>

namespace snipdeck {

namespace {

Message QuestionAbout(const LostDocument& lost) {
  return {.text = QStringLiteral("The program ended while this text was changed and not yet saved:\r\n\r\n%1\r\n\r\n"
                                 "Open it in the text editor as it was last?\r\n\r\n"
                                 "\"No\" forgets the changes, \"Cancel\" asks again later.")
                      .arg(lost.path),
          .icon = MessageIcon::Question,
          .buttons = MessageButtons::YesNoCancel};
}

}  // namespace

EditorDesk::EditorDesk(const EditorServices& services, QWidget& owner, const QString& recoveryPath)
    : m_services(services), m_owner(owner), m_recovery(recoveryPath) {}

frm_RTF_HTM& EditorDesk::Window() {
  if (!m_window) {
    m_window = new frm_RTF_HTM(m_services, &m_owner);
    m_recovery.Track(*m_window);
  }
  return *m_window;
}

void EditorDesk::NewTextFile() {
  Show(OpenMode::New, {});
}

void EditorDesk::OpenTopicalNotes() {
  Show(OpenMode::File, m_services.settings.topicalNotesFile);
}

void EditorDesk::Show(OpenMode mode, const QString& path) {
  if (AskAboutLost()) Window().ShowModal(mode, path);
}

void EditorDesk::TakeOverLost() {
  m_lost = m_recovery.TakeOver();
}

bool EditorDesk::AskAboutLost() {
  if (m_lost.IsEmpty()) return true;
  m_recovery.LostWasTold();
  const MessageAnswer answer = m_services.document.messages.Show(QuestionAbout(m_lost));
  if (answer == MessageAnswer::Cancel) return false;
  const LostDocument lost = std::exchange(m_lost, {});
  if (answer != MessageAnswer::Yes) {
    m_recovery.Forget();
    return true;
  }
  frm_RTF_HTM& window = Window();
  window.ShowRecovered(lost.path, [&] { EditorRecovery::Replay(lost, window.TextControl()); });
  return true;
}

void EditorDesk::AskAtStart() {
  if (!std::exchange(m_hasAsked, true)) AskAboutLost();
}

void EditorDesk::EndForced() {
  m_recovery.Flush();
  if (m_window) m_window->SetEnding();
}

}  // namespace snipdeck
