#pragma once

#include <QString>

#include "platform/result.h"
#include "platform/x11/own_contents.h"
#include "platform/x11/x_connection.h"

namespace snipdeck {

/// Gives what this program has on the clipboard into other hands before it ends: to the clipboard manager if one runs
/// and takes it, otherwise to a small program that keeps it until somebody else copies.
class ClipboardHandover {
 public:
  /// `holderProgram` is the path of that program.
  explicit ClipboardHandover(QString holderProgram) : m_holderProgram(std::move(holderProgram)) {}

  /// Waits at most a second; Qt's events are handled meanwhile, the user's are not. Success if there was nothing to
  /// hand over.
  Outcome Run();

 private:
  bool GiveToManager(XConnection& connection, int milliseconds);
  Outcome GiveToHolder(XConnection& connection, int milliseconds);

  QString m_holderProgram;
};

}  // namespace snipdeck
