#pragma once

#include <QString>

#include "platform/message_box.h"

namespace snipdeck {

/// The two messages about files that cannot be found or written. Both return when the user has read them, and never
/// fail.
class FileReports {
 public:
  explicit FileReports(MessageBox& messages) : m_messages(messages) {}

  /// A program or file is missing. Afterwards the mouse pointer is the normal one.
  void ShowFileNotFound(const QString& name);
  /// A file could not be written; `reason` is the platform's description of the failure, which may be empty. Afterwards
  /// the mouse pointer is the normal one.
  void ShowFileError(const QString& name, const QString& reason);

 private:
  MessageBox& m_messages;
};

}  // namespace snipdeck
