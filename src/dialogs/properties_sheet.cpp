#include "dialogs/properties_sheet.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QMimeDatabase>

#include "dialogs/value_label.h"

namespace snipdeck {

namespace {

QString Words(const char* text) {
  return QCoreApplication::translate("PropertiesSheet", text);
}

QString TimeText(const QDateTime& time) {
  return time.isValid() ? QLocale().toString(time, QLocale::LongFormat) : Words("unknown");
}

// As "rwx" is told to people: what the user of the program may do.
QString RightsText(const QFileInfo& file) {
  QStringList rights;
  if (file.isReadable()) rights << Words("read");
  if (file.isWritable()) rights << Words("write");
  if (file.isExecutable()) rights << Words("start");
  return rights.isEmpty() ? Words("none") : rights.join(QStringLiteral(", "));
}

QString SizeText(qint64 bytes) {
  constexpr qint64 kLeastUnit = 1024;
  if (bytes < kLeastUnit) return QLocale().formattedDataSize(bytes);
  return Words("%1 (%L2 bytes)").arg(QLocale().formattedDataSize(bytes)).arg(bytes);
}

void AddRow(QFormLayout& form, const char* caption, const QString& value) {
  form.addRow(Words(caption), MakeValueLabel(Words(caption), value));
}

}  // namespace

void ShowPropertiesSheet(const QString& path, QWidget& owner) {
  const QFileInfo file(path);
  if (!file.exists()) return;
  auto* sheet = new QDialog(&owner);
  sheet->setAttribute(Qt::WA_DeleteOnClose);
  sheet->setObjectName(QStringLiteral("PropertiesSheet"));
  sheet->setWindowTitle(Words("Properties of %1").arg(file.fileName()));
  auto* form = new QFormLayout(sheet);
  AddRow(*form, "Name", file.fileName());
  AddRow(*form, "Folder", QDir::toNativeSeparators(file.absolutePath()));
  AddRow(*form, "Kind", QMimeDatabase().mimeTypeForFile(file, QMimeDatabase::MatchExtension).comment());
  AddRow(*form, "Size", SizeText(file.size()));
  AddRow(*form, "Created", TimeText(file.birthTime()));
  AddRow(*form, "Changed", TimeText(file.lastModified()));
  AddRow(*form, "Read", TimeText(file.lastRead()));
  AddRow(*form, "Owner", file.owner());
  AddRow(*form, "You may", RightsText(file));
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  QObject::connect(buttons, &QDialogButtonBox::rejected, sheet, &QDialog::close);
  form->addRow(buttons);
  sheet->open();
}

}  // namespace snipdeck
