#include "navigation/program_search.h"

#include <algorithm>

namespace snipdeck {

namespace {

const QString kHomeFolder = QStringLiteral("C:\\Quillhome");
const QString kMirrorPrefix = QStringLiteral(":\\Drive_");
constexpr qsizetype kMirroredDrive = 9;  // where x:\Drive_d\rest has its d
constexpr char kFirstDrive = 'C';
constexpr char kLastDrive = 'Z';

/// d:\rest as it is called on the mirror drive x: x:\Drive_d\rest.
QString MirroredOn(QChar drive, const QString& path) {
  return drive + kMirrorPrefix + path.left(1) + path.mid(2);
}

}  // namespace

ProgramSearch::ProgramSearch(const FileLookup& files, const QString& ownFolder, QChar separator)
    : m_files(files), m_ownFolder(ownFolder), m_separator(separator) {}

QString ProgramSearch::FindProgram(const QString& program) const {
  if (program.isEmpty() || m_files.FileExists(program)) return program;
  if (const QString path = InHomeFolder(program); m_files.FileExists(path)) return path;
  if (const QString path = OnMirrorDrive(program); !path.isEmpty()) return path;
  if (const QString path = OnOwnDrive(program); m_files.FileExists(path)) return path;
  return InFolder(m_ownFolder, FileName(program));
}

QString ProgramSearch::ResolveProgramArgument(QString& argument) const {
  if (argument.isEmpty()) return argument;
  if (argument.size() > 1 && !HasSeparator(argument)) argument = InFolder(m_ownFolder, argument);
  QString result = argument;
  if (!m_files.FileExists(argument) && argument.indexOf(kMirrorPrefix, 1) >= 1)
    result = argument.mid(kMirroredDrive, 1) + u':' + argument.mid(kMirroredDrive + 1);
  if (!m_files.FileExists(result) && result.contains(u':')) {
    if (const QString path = OnMirrorDrive(result); !path.isEmpty()) result = path;
  }
  if (!m_files.FileExists(result) && !HasSeparator(argument)) result = InFolder(m_files.CurrentDirectory(), argument);
  return result;
}

QString ProgramSearch::FileName(const QString& path) const {
  return path.mid(LastSeparator(path) + 1);
}

qsizetype ProgramSearch::LastSeparator(const QString& path) const {
  return std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(m_separator));
}

QString ProgramSearch::InFolder(const QString& folder, const QString& name) const {
  return folder.endsWith(m_separator) ? folder + name : folder + m_separator + name;
}

QString ProgramSearch::InHomeFolder(const QString& program) const {
  return kHomeFolder + u'\\' + FileName(program);
}

/// Empty where no drive holds the file.
QString ProgramSearch::OnMirrorDrive(const QString& path) const {
  for (char drive = kFirstDrive; drive <= kLastDrive; ++drive) {
    if (const QString candidate = MirroredOn(QLatin1Char(drive), path); m_files.FileExists(candidate)) return candidate;
  }
  return {};
}

QString ProgramSearch::OnOwnDrive(const QString& program) const {
  return m_ownFolder.isEmpty() ? QString() : MirroredOn(m_ownFolder.front(), program);
}

}  // namespace snipdeck
