#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QImage>
#include <QString>
#include <QStringList>

namespace snipdeck {

/// The character's code in code page 1252, '?' if it has none.
int CodeIn1252(char16_t character);

/// Text as a block of format 13 (UTF-16, little endian) or 1 (code page 1252): lines end with CR LF, a terminator
/// follows.
QByteArray UnicodeTextBlock(const QString& text);
QByteArray CodePageTextBlock(const QString& text);
/// The text up to the terminator, with line ends as X programs have them.
QString TextOfUnicodeBlock(QByteArrayView block);
QString TextOfCodePageBlock(QByteArrayView block);

/// Paths as a drop-files block (format 15) with wide characters.
QByteArray DropFilesBlock(const QStringList& paths);
/// The names in a drop-files block with characters of either width; none if it is malformed.
QStringList NamesOfDropFiles(QByteArrayView block);
/// The names as a list of addresses.
QByteArray UriListOf(const QStringList& paths);

/// A picture as a block of format 8, without a file's header; empty for a null picture.
QByteArray DibBlock(const QImage& picture);
/// The same with the header that makes it a BMP file; empty if the block is too short to be one.
QByteArray BmpOfDib(QByteArrayView block);

/// The kind of picture that `target` names, as picture readers call it; empty for one that is not read.
QByteArray PictureKind(const QByteArray& target);
/// Decodes a picture of the kind that `target` names (image/png, ...). Null if it is damaged, of another kind or larger
/// than 64 million pixels.
QImage DecodePicture(const QByteArray& target, const QByteArray& bytes);

}  // namespace snipdeck
