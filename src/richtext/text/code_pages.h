#pragma once

#include <QByteArrayView>
#include <QString>

namespace snipdeck {

inline constexpr int kCodePageLatin = 1252;
inline constexpr int kCodePageUtf8 = 65001;

/// Whether DecodeCodePage knows the Windows code page number.
bool IsKnownCodePage(int codePage);

/// The bytes as text; an unknown code page is read as 1252. Bytes without a meaning become U+FFFD.
QString DecodeCodePage(int codePage, QByteArrayView bytes);

/// How many bytes at the end begin a character that is not complete: 0 for single-byte code pages.
qsizetype IncompleteTail(int codePage, QByteArrayView bytes);

/// The code page of a Windows or Macintosh font charset (0 to 255), or 0 where the charset does not name one.
int CodePageOfCharset(int charset);

}  // namespace snipdeck
