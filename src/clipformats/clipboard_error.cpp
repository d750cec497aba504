#include "clipformats/clipboard_error.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace snipdeck {

namespace {

constexpr std::int32_t kNotOpen = -2147219934;  // 0x80040622
constexpr std::int32_t kOverflow = 6;
constexpr std::int32_t kOutOfRange = 9;

}  // namespace

ClipboardError::ClipboardError(std::int32_t number, const char* description)
    : std::runtime_error(description), m_number(number) {}

QString ClipboardError::Source() const {
  return QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName() + QStringLiteral(".cCustomClipboard");
}

ClipboardNotOpenError::ClipboardNotOpenError()
    : ClipboardError(kNotOpen, "Attempt to access the clipboard when clipboard not Open.") {}

IndexOutOfRange::IndexOutOfRange() : ClipboardError(kOutOfRange, "Subscript out of range") {}

CharacterOverflow::CharacterOverflow() : ClipboardError(kOverflow, "Overflow") {}

}  // namespace snipdeck
