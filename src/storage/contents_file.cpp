#include "storage/contents_file.h"

#include <QFileInfo>

#include "richtext/document_file.h"
#include "storage/file_types.h"

namespace snipdeck {

namespace {

constexpr int kAsk = 1;

// Also what cannot be read as one: the text tells the user then.
bool IsFile(const QString& name) {
  const QFileInfo info(name);
  return !name.isEmpty() && info.exists() && !info.isDir();
}

}  // namespace

ContentsFile::ContentsFile(FileText& cumulative, FileDialogs& dialogs, MessageBox& messages, QString& contentsFileName)
    : m_cumulative(cumulative), m_dialogs(dialogs), m_messages(messages), m_contentsFileName(contentsFileName) {}

void ContentsFile::Get() {
  if (!m_cumulative.IsShown()) return;
  const Message question{.text = QStringLiteral("Text has been altered. Load file from disk nonetheless?\r\n"),
                         .icon = MessageIcon::Question,
                         .buttons = MessageButtons::YesNo};
  if (m_cumulative.Modified() && m_messages.Show(question) != MessageAnswer::Yes) return;
  LoadFileIntoCumulative(kAsk);
}

void ContentsFile::LoadFileIntoCumulative(int ask) {
  if (ask == kAsk && !Choose()) return;
  if (!IsFile(m_contentsFileName)) return;
  const bool wasModified = m_cumulative.Modified();
  const Outcome loaded = m_cumulative.LoadFile(m_contentsFileName, LoadFormatForName(m_contentsFileName, false));
  m_cumulative.MoveCaretToEnd();
  m_cumulative.TakeFocus();
  m_cumulative.SetModified(wasModified && !loaded && IsCancelled(loaded.Error()));
}

bool ContentsFile::Choose() {
  const QString name = m_dialogs.OpenFile({.title = QStringLiteral("Load file into text"),
                                           .fileName = m_contentsFileName,
                                           .filters = RtfAndAllFiles(),
                                           .defaultExtension = QStringLiteral("rtf")});
  if (name.isEmpty()) return false;
  if (IsFile(name)) m_contentsFileName = name;
  return true;
}

}  // namespace snipdeck
