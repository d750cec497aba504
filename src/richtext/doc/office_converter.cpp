#include "richtext/doc/office_converter.h"

#ifdef Q_OS_UNIX
#include <csignal>
#include <unistd.h>
#endif

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>

#include "platform/whole_file.h"

namespace snipdeck {
namespace {

constexpr int kLongest = 120'000;  // milliseconds
constexpr int kLook = 100;         // milliseconds between two looks at whether to go on

QString FindOffice() {
  const QString inPath = QStandardPaths::findExecutable(QStringLiteral("soffice"));
  return inPath.isEmpty() ? QStandardPaths::findExecutable(QStringLiteral("libreoffice")) : inPath;
}

QStringList Arguments(const QDir& folder, const QString& to, const QString& input) {
  const QString profile = QUrl::fromLocalFile(folder.filePath(QStringLiteral("profile"))).toString();
  return {QStringLiteral("-env:UserInstallation=") + profile,
          QStringLiteral("--headless"),
          QStringLiteral("--norestore"),
          QStringLiteral("--nolockcheck"),
          QStringLiteral("--convert-to"),
          to,
          QStringLiteral("--outdir"),
          folder.filePath(QStringLiteral("out")),
          input};
}

/// LibreOffice is a script that starts a program that starts another; as a group they can be ended together.
void MakeGroup(QProcess& office) {
#ifdef Q_OS_UNIX
  office.setChildProcessModifier([] { setpgid(0, 0); });
#else
  Q_UNUSED(office);
#endif
}

void End(QProcess& office) {
#ifdef Q_OS_UNIX
  if (office.processId() > 0) kill(-static_cast<pid_t>(office.processId()), SIGKILL);
#endif
  office.kill();
  office.waitForFinished(kLook * 10);
}

/// Waits for the end of the process and ends it itself when it takes too long or is no longer wanted.
Outcome WaitFor(QProcess& office, const std::function<bool(double)>& progress) {
  QElapsedTimer elapsed;
  elapsed.start();
  while (!office.waitForFinished(kLook) && office.state() != QProcess::NotRunning) {
    const bool isLate = elapsed.elapsed() > kLongest;
    const bool isUnwanted = progress && !progress(static_cast<double>(elapsed.elapsed()) / kLongest);
    if (!isLate && !isUnwanted) continue;
    End(office);
    if (isUnwanted) return Failure{Failure::Kind::Refused, QString()};
    return Failure{Failure::Kind::TimedOut, QStringLiteral("LibreOffice did not convert the file in time.")};
  }
  return Done{};
}

}  // namespace

Result<QByteArray> ConvertWithOffice(const QByteArray& bytes, const QString& from, const QString& to,
                                     const std::function<bool(double)>& progress) {
  const QString program = FindOffice();
  if (program.isEmpty()) {
    return Failure{Failure::Kind::Unsupported,
                   QStringLiteral("Files of this kind are converted by LibreOffice. Please install LibreOffice Writer "
                                  "(on Debian the package libreoffice-writer) and try again.")};
  }
  const QTemporaryDir temporary;
  const QDir folder(temporary.path());
  const QString input = folder.filePath(QStringLiteral("text.") + from);
  const Outcome written = WriteWholeFile(input, bytes);
  if (!written) return written.Error();
  folder.mkdir(QStringLiteral("out"));
  QProcess office;
  office.setStandardOutputFile(QProcess::nullDevice());
  office.setStandardErrorFile(QProcess::nullDevice());
  office.setStandardInputFile(QProcess::nullDevice());
  MakeGroup(office);
  office.start(program, Arguments(folder, to, input));
  if (!office.waitForStarted()) return Failure{Failure::Kind::Other, office.errorString()};
  const Outcome finished = WaitFor(office, progress);
  if (!finished) return finished.Error();
  const Result<QByteArray> converted = ReadWholeFile(folder.filePath(QStringLiteral("out/text.") + to));
  if (!converted) return Failure{Failure::Kind::Malformed, QStringLiteral("The file is damaged, or not of this kind.")};
  return converted;
}

}  // namespace snipdeck
