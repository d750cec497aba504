#pragma once

#include <QByteArrayView>
#include <QString>

namespace snipdeck {

/// A byte order mark and what it says; `size` 0 when there is none.
struct ByteOrderMark {
  const char* codec = nullptr;  ///< name for QStringDecoder
  int size = 0;                 ///< bytes
};
ByteOrderMark FindByteOrderMark(QByteArrayView bytes);

/// True when all bytes are correct UTF-8 (so is plain ASCII).
bool IsUtf8(QByteArrayView bytes);

/// The bytes of a text file as text: by the byte order mark, else UTF-8, UTF-16 or UTF-32 when they are that, else in the
/// encoding that the markup names, else in the code page that the letters tell, else in the locale's code page, which is taken as
/// windows-1252 where the locale itself is UTF-8. What cannot be decoded becomes U+FFFD.
QString DecodeText(QByteArrayView bytes);

/// Code page 1252, with the five unassigned bytes as control characters of the same number.
QString DecodeWindows1252(QByteArrayView bytes);

/// Text as a document may hold it: line ends of any kind become "\n"; NUL and the other control characters
/// that XML does not allow, halves of surrogate pairs and the characters by which documents mark their structure are
/// dropped.
QString CleanText(const QString& text);

}  // namespace snipdeck
