#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace snipdeck {

/// The charset that a meta element or an XML declaration at the start of the bytes names, in small letters; empty when
/// none does.
QByteArray DeclaredCharset(QByteArrayView bytes);

/// Which of UTF-16 and UTF-32 a text without a byte order mark is, as a name for QStringDecoder; null for any other.
/// Tells by the zeros, which texts in no other encoding have.
const char* GuessWideEncoding(QByteArrayView bytes);

/// Whether the bytes, which may all be ASCII, hold the escape sequences by which Japanese mail changes to two bytes a
/// character.
bool IsShiftedByEscapes(QByteArrayView bytes);

/// The Windows code page of a text that is not Unicode, as far as its letters tell: 0 when it looks like one of western
/// Europe, or when it is too short to tell. Looks at some hundred thousand bytes at most.
int GuessCodePage(QByteArrayView bytes);

}  // namespace snipdeck
