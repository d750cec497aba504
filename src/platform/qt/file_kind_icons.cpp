#include "platform/qt/file_kind_icons.h"

#include <QApplication>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QStyle>

namespace snipdeck {

namespace {

QMimeType KindOf(const QFileInfo& info) {
  const QMimeDatabase kinds;
  if (info.isDir()) return kinds.mimeTypeForName(QStringLiteral("inode/directory"));
  const QList<QMimeType> byName = kinds.mimeTypesForFileName(info.fileName());
  return byName.isEmpty() ? kinds.mimeTypeForName(QStringLiteral("application/octet-stream")) : byName.first();
}

QIcon OfStyle(QStyle::StandardPixmap picture) {
  return QApplication::style()->standardIcon(picture);
}

}  // namespace

FileKindIcons::FileKindIcons() : m_folder(OfStyle(QStyle::SP_DirIcon)), m_file(OfStyle(QStyle::SP_FileIcon)) {}

QIcon FileKindIcons::icon(IconType type) const {
  switch (type) {
    case Computer:
      return OfStyle(QStyle::SP_ComputerIcon);
    case Desktop:
      return OfStyle(QStyle::SP_DesktopIcon);
    case Trashcan:
      return OfStyle(QStyle::SP_TrashIcon);
    case Network:
      return OfStyle(QStyle::SP_DriveNetIcon);
    case Drive:
      return OfStyle(QStyle::SP_DriveHDIcon);
    case Folder:
      return m_folder;
    case File:
      return m_file;
  }
  return m_file;
}

// Also called in the thread in which the dialog lists a folder.
QIcon FileKindIcons::icon(const QFileInfo& info) const {
  if (info.isDir()) return m_folder;
  const QMimeType kind = KindOf(info);
  return QIcon::fromTheme(kind.iconName(), QIcon::fromTheme(kind.genericIconName(), m_file));
}

QString FileKindIcons::type(const QFileInfo& info) const {
  return KindOf(info).comment();
}

}  // namespace snipdeck
