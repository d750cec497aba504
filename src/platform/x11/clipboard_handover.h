#pragma once

#include <QString>

#include "platform/result.h"
#include "platform/x11/own_contents.h"
#include "platform/x11/x_connection.h"

namespace snipdeck {

/// Gives what this program has on the clipboard into other hands before it ends: to a small program that keeps it until
/// somebody else copies, or, where that does not start, to the clipboard manager. The manager comes second because it
/// may hang, and Qt, which asks it at the end for what is still its own, waits five seconds for it.
class ClipboardHandover {
 public:
  /// `holderProgram` is the path of that program.
  explicit ClipboardHandover(QString holderProgram) : m_holderProgram(std::move(holderProgram)) {}

  /// Waits at most a second; Qt's events are handled meanwhile, the user's are not. Success if there was nothing to
  /// hand over.
  Outcome Run();

 private:
  Outcome GiveToHolder(XConnection& connection);
  bool GiveToManager(XConnection& connection, int milliseconds);

  QString m_holderProgram;
};

}  // namespace snipdeck
