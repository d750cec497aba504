#include "navigation/external_programs.h"

#include "storage/file_reports.h"

namespace snipdeck {

namespace {

const QString kMiniTrawler = QStringLiteral("C:\\Drive_G\\Quillhome\\QM_FileDesk\\QM_Pocket\\QM_Pocket.exe");
const QString kJotter = QStringLiteral("C:\\Drive_G\\Quillhome\\QM_Scribe\\QM_Scribe.exe");

QString WithoutQuotes(const QString& argument) {
  return argument.contains(u'"') ? argument.mid(1, argument.size() - 2) : argument;
}

QString QuotedIfBlank(const QString& argument) {
  return argument.contains(u' ') ? u'"' + argument + u'"' : argument;
}

QString WithoutOuterBlanks(QString text) {
  while (text.startsWith(u' ')) text.remove(0, 1);
  while (text.endsWith(u' ')) text.chop(1);
  return text;
}

/// Puts the current directory back where it was.
class CurrentDirectoryKept {
 public:
  explicit CurrentDirectoryKept(FileLookup& files) : m_files(files), m_directory(files.CurrentDirectory()) {}
  ~CurrentDirectoryKept() { m_files.SetCurrentDirectory(m_directory); }
  CurrentDirectoryKept(const CurrentDirectoryKept&) = delete;
  CurrentDirectoryKept& operator=(const CurrentDirectoryKept&) = delete;

 private:
  FileLookup& m_files;
  QString m_directory;
};

}  // namespace

ExternalPrograms::ExternalPrograms(const ProgramServices& services, ProgramSearch search, const Settings& settings)
    : m_services(services), m_search(std::move(search)), m_settings(settings) {}

void ExternalPrograms::LaunchProgram(const QString& program, QString argument) {
  argument = WithoutQuotes(argument);
  const QString path = m_search.FindProgram(program);
  if (!path.isEmpty() && !m_services.files.FileExists(path))
    return FileReports(m_services.messages).ShowFileNotFound(path);
  if (argument.isEmpty() && RaiseRunningCopy(path)) return;
  const QString word = QuotedIfBlank(m_search.ResolveProgramArgument(argument));
  m_services.shell.StartProgram(path, WithoutOuterBlanks(word));
}

bool ExternalPrograms::RaiseRunningCopy(const QString& program) {
  FillWindowList(m_services.windows, m_mainWindow, m_titles);
  QString name = m_search.FileName(program);
  if (name.endsWith(u".exe")) name.chop(4);
  const WindowHandle window = WindowTitled(m_titles, name);
  if (window != 0) m_services.windows.BringToForeground(window);
  return window != 0;
}

void ExternalPrograms::StartMiniTrawler(const QString& folder) {
  LaunchProgram(kMiniTrawler, folder);
}

void ExternalPrograms::StartJotter(const QString& argument) {
  LaunchProgram(kJotter, argument);
}

void ExternalPrograms::StartBrowser() {
  LaunchProgram(m_settings.customBrowser, {});
}

void ExternalPrograms::ExploreFolder(QString& folder, WindowHandle owner) {
  if (folder.isEmpty()) folder = m_services.files.CurrentDirectory();
  m_services.shell.ExploreFolder(folder, owner);
}

void ExternalPrograms::GotoDesktop() {
  m_services.shell.ToggleDesktop();
}

void ExternalPrograms::ShowStorageInTrawler() {
  const CurrentDirectoryKept kept(m_services.files);
  StartMiniTrawler(m_settings.storageFolder);
}

void ExternalPrograms::ExploreStorage() {
  const CurrentDirectoryKept kept(m_services.files);
  QString folder = m_settings.storageFolder;
  ExploreFolder(folder, m_mainWindow);
}

void ExternalPrograms::ShowCurrentInTrawler() {
  StartMiniTrawler(m_services.files.CurrentDirectory());
}

void ExternalPrograms::ExploreCurrent() {
  QString folder;
  ExploreFolder(folder, m_mainWindow);
}

}  // namespace snipdeck
