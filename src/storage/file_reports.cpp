#include "storage/file_reports.h"

#include <QDir>

#include "storage/busy_pointer.h"

namespace snipdeck {

namespace {

const QString kLineEnd = QStringLiteral("\r\n");

}  // namespace

void FileReports::ShowFileNotFound(const QString& name) {
  const QStringList lines = {
      QStringLiteral("Cannot locate the following program/file:"),
      QString(),
      name.isEmpty() ? QStringLiteral("( Filename empty! )") : name,
      QString(),
      QStringLiteral("Check the path before the name and see whether"),
      QStringLiteral("the program/file exists on your hard disk."),
      QStringLiteral("(the error may be due to an unavailable"),
      QStringLiteral("minor option of the Quillmark suite)"),
  };
  m_messages.Show({.text = lines.join(kLineEnd),
                   .icon = MessageIcon::Critical,
                   .caption = QDir::toNativeSeparators(QDir::currentPath())});
  BusyPointer::RestoreNormal();
}

void FileReports::ShowFileError(const QString& name, const QString& reason) {
  const QString quote = QStringLiteral("\"");
  const QStringList lines = {
      QStringLiteral("Cannot save this file :"),
      QString(),
      name.trimmed().isEmpty() ? QStringLiteral("( no name specified or name is empty ! )") : name,
      QString(),
      QStringLiteral("The error was probably triggered for the following reason : "),
      QString(),
      reason.isEmpty() ? QStringLiteral("(unknown)") : quote + reason + quote,
      QString(),
  };
  BusyPointer::RestoreNormal();
  m_messages.Beep();
  m_messages.Show({.text = lines.join(kLineEnd), .icon = MessageIcon::Critical});
}

}  // namespace snipdeck
