#pragma once

#include <QString>

namespace snipdeck {

/// The program's title, the caption of every message that does not name another.
inline constexpr char kProgramTitle[] = "QM_Snipdeck";

/// Standard message boxes. Every call returns when the user has answered.
class MessageBox {
 public:
  virtual ~MessageBox() = default;

  /// An OK box with an information icon.
  virtual void ShowInformation(const QString& text) = 0;
};

}  // namespace snipdeck
