#include "dialogs/file_details.h"

#include <QDir>
#include <QFileInfo>

namespace snipdeck {

namespace {

// The first sign between two fields of a pattern; blanks do not separate.
QString SeparatorIn(const QString& pattern, const QString& otherwise) {
  bool isQuoted = false;
  for (const QChar c : pattern) {
    if (c == u'\'') isQuoted = !isQuoted;
    if (!isQuoted && c.isPunct() && c != u'\'') return c;
    if (!isQuoted && c.isSymbol()) return c;
  }
  return otherwise;
}

QString TimeText(const QTime& time, const QLocale& locale) {
  const QString separator = SeparatorIn(locale.timeFormat(QLocale::ShortFormat), QStringLiteral(":"));
  return time.toString(QStringLiteral("HH:mm:ss")).replace(u':', separator);
}

QString DateText(const QDate& date, const QLocale& locale) {
  const QString separator = SeparatorIn(locale.dateFormat(QLocale::ShortFormat), QStringLiteral("/"));
  return date.toString(QStringLiteral("dd/MM/yyyy")).replace(u'/', separator);
}

QString SizeText(qint64 bytes, const QLocale& locale) {
  if (bytes == 0) return {};
  // The language of programs has no groups of its own.
  QLocale grouping = locale.language() == QLocale::C ? QLocale(QLocale::English) : locale;
  grouping.setNumberOptions(grouping.numberOptions() & ~QLocale::OmitGroupSeparator);
  return grouping.toString(bytes);
}

}  // namespace

FileDetails FileDetails::Of(const QString& path, const QDateTime& now, const QLocale& locale) {
  FileDetails details;
  const QString native = QDir::toNativeSeparators(path);
  const qsizetype separator = native.lastIndexOf(QDir::separator());
  details.name = native.mid(separator + 1);
  details.folder = native.left(std::max<qsizetype>(separator, 0));
  const QFileInfo file(path);
  const bool exists = !path.isEmpty() && file.isFile();
  details.size = exists ? SizeText(file.size(), locale) : QStringLiteral("0");
  details.date =
      exists ? locale.toString(file.lastModified(), QLocale::ShortFormat) : QStringLiteral("(not yet saved!)");
  details.nowTime = TimeText(now.time(), locale);
  details.nowDate = DateText(now.date(), locale);
  return details;
}

QString FileDetails::Path() const {
  return folder.endsWith(QDir::separator()) ? folder + name : folder + QDir::separator() + name;
}

}  // namespace snipdeck
