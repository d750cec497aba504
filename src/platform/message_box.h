#pragma once

#include <QString>

namespace snipdeck {

/// The program's title, the caption of every message that does not name another.
inline constexpr char kProgramTitle[] = "QM_Snipdeck";

enum class MessageIcon { Information, Question, Exclamation, Critical };
/// The buttons of a message from left to right; the first is the default one unless the message names another.
enum class MessageButtons { Ok, YesNo, YesNoCancel };
enum class MessageAnswer { Ok, Yes, No, Cancel };

/// One message. Its text is shown as it is, without markup; its lines end with CR LF or "\n".
struct Message {
  QString text;
  MessageIcon icon = MessageIcon::Information;
  MessageButtons buttons = MessageButtons::Ok;
  QString caption = QString::fromLatin1(kProgramTitle);
  /// The button that Enter presses; Ok means the first one.
  MessageAnswer defaultButton = MessageAnswer::Ok;
};

/// Standard message boxes. Every call returns when the user has answered.
class MessageBox {
 public:
  virtual ~MessageBox() = default;

  /// A message that is closed without pressing a button is answered with Cancel where it has that button, with No where
  /// it has that one, and with Ok otherwise. The program's end closes it in the same way.
  virtual MessageAnswer Show(const Message& message) = 0;
  /// Sounds the system's beep and returns at once.
  virtual void Beep() = 0;

  /// An OK box with an information icon.
  void ShowInformation(const QString& text) { Show({.text = text}); }
};

}  // namespace snipdeck
