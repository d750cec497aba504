#include "platform/qt/qt_file_dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace snipdeck {

namespace {

bool MeansEveryFile(const QString& pattern) {
#ifdef Q_OS_WIN
  return pattern == QStringLiteral("*.*");
#else
  return pattern == QStringLiteral("*.*") || pattern == QStringLiteral("*.exe");
#endif
}

// "*.html;*.htm" as Qt writes it.
QString Patterns(const FileFilter& filter) {
  if (MeansEveryFile(filter.pattern)) return QStringLiteral("*");
  return QString(filter.pattern).replace(u';', u' ');
}

// The label as it is told, with the pattern behind it in brackets, which the dialog takes off again.
QStringList NameFilters(const QList<FileFilter>& filters) {
  QStringList names;
  for (const FileFilter& filter : filters) {
    names.append(QStringLiteral("%1 (%2)").arg(filter.label, Patterns(filter)));
  }
  return names;
}

// What a name without an ending gets while this filter is chosen.
QString ExtensionOf(const FileFilter& filter) {
  return MeansEveryFile(filter.pattern) ? QString() : filter.pattern.section(u';', 0, 0).section(u'.', -1);
}

// The kind of the proposed name is the one that is offered first.
void FollowKinds(QFileDialog& dialog, const FileRequest& request) {
  const QStringList names = NameFilters(request.filters);
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                   [&dialog, names, filters = request.filters](const QString& name) {
                     const qsizetype chosen = names.indexOf(name);
                     if (chosen >= 0) dialog.setDefaultSuffix(ExtensionOf(filters[chosen]));
                   });
  const QString proposed = QFileInfo(request.fileName.value_or(QString())).fileName();
  for (qsizetype i = 0; i < names.size(); ++i) {
    if (!QDir::match(Patterns(request.filters[i]).split(u' '), proposed)) continue;
    dialog.selectNameFilter(names[i]);
    dialog.setDefaultSuffix(ExtensionOf(request.filters[i]));
    return;
  }
}

QString OnlyChoice(const QFileDialog& dialog) {
  const QStringList chosen = dialog.selectedFiles();
  return chosen.isEmpty() ? QString() : QDir::toNativeSeparators(chosen.first());
}

// A name typed with its path may lead nowhere.
bool IsInFolder(const QFileDialog& dialog) {
  const QString folder = QFileInfo(OnlyChoice(dialog)).absolutePath();
  if (QFileInfo(folder).isDir()) return true;
  QMessageBox::warning(dialog.parentWidget(), dialog.windowTitle(),
                       QFileDialog::tr("This folder does not exist:\n\n%1\n\nCheck the path and try again.")
                           .arg(QDir::toNativeSeparators(folder)));
  return false;
}

/// Adds the usual ending to a name without one only where there is no file of just that name.
class OpenDialog : public QFileDialog {
 public:
  using QFileDialog::QFileDialog;

  void accept() override {
    const QString usual = defaultSuffix();
    setDefaultSuffix(QString());
    if (!QFileInfo::exists(OnlyChoice(*this))) setDefaultSuffix(usual);
    QFileDialog::accept();
    if (result() != Accepted) setDefaultSuffix(usual);
  }
};

}  // namespace

QString QtFileDialogs::OpenFile(const FileRequest& request) {
  OpenDialog dialog(QApplication::activeWindow());
  dialog.setFileMode(QFileDialog::ExistingFile);
  Prepare(dialog, request);
  return RunForFile(dialog);
}

QString QtFileDialogs::SaveFile(const FileRequest& request) {
  QFileDialog dialog(QApplication::activeWindow());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  Prepare(dialog, request);
  FollowKinds(dialog, request);
  return RunForFile(dialog);
}

QString QtFileDialogs::BrowseForFolder(const QString& title, const QString& start) {
  QFileDialog dialog(QApplication::activeWindow(), title, start);
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  dialog.setIconProvider(&m_icons);
  dialog.setHistory({});
  return dialog.exec() == QDialog::Accepted ? OnlyChoice(dialog) : QString();
}

void QtFileDialogs::Prepare(QFileDialog& dialog, const FileRequest& request) {
  dialog.setWindowTitle(request.title);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setIconProvider(&m_icons);
  dialog.setHistory({});
  if (!request.filters.isEmpty()) dialog.setNameFilters(NameFilters(request.filters));
  dialog.setDefaultSuffix(request.defaultExtension);
  const QFileInfo proposed(request.fileName.value_or(m_lastName));
  dialog.setDirectory(proposed.absoluteDir());
  dialog.selectFile(proposed.fileName());
}

QString QtFileDialogs::RunForFile(QFileDialog& dialog) {
  do {
    if (dialog.exec() != QDialog::Accepted) return {};
  } while (!IsInFolder(dialog));
  // With the question about an existing file two windows have gone at once, and some desktops then lose the third.
  if (QWidget* const owner = dialog.parentWidget()) owner->activateWindow();
  m_lastName = OnlyChoice(dialog);
  return m_lastName;
}

}  // namespace snipdeck
