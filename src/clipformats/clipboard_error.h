#pragma once

#include <cstdint>
#include <stdexcept>

#include <QString>

namespace snipdeck {

/// What cCustomClipboard throws: a number, the class that raised it and a text.
class ClipboardError : public std::runtime_error {
 public:
  ClipboardError(std::int32_t number, const char* description);

  std::int32_t Number() const { return m_number; }
  /// The program's executable name without its extension, then ".cCustomClipboard".
  QString Source() const;
  QString Description() const { return QString::fromLatin1(what()); }

 private:
  std::int32_t m_number;
};

/// Access to the clipboard before it was opened for a window.
class ClipboardNotOpenError : public ClipboardError {
 public:
  ClipboardNotOpenError();
};

/// An index outside an array's bounds, or any use of an array that has none.
class IndexOutOfRange : public ClipboardError {
 public:
  IndexOutOfRange();
};

/// A character that takes more than one byte in the system's code page.
class CharacterOverflow : public ClipboardError {
 public:
  CharacterOverflow();
};

}  // namespace snipdeck
