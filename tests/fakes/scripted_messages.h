#pragma once

#include <QList>
#include <QTest>

#include "platform/message_box.h"

namespace snipdeck {

/// Message boxes that a test announces beforehand, with the answers. An unexpected one fails the test, and so does an
/// expected one that does not come.
class ScriptedMessages : public MessageBox {
 public:
  ~ScriptedMessages() override {
    for (const Step& step : m_expected)
      QTest::qFail(qPrintable("message not shown: " + step.message.text), __FILE__, __LINE__);
  }
  /// An OK box with an information icon.
  void Expect(const QString& text) { Expect({.text = text}, MessageAnswer::Ok); }
  /// A message that agrees in everything: text, icon, buttons, caption, default button.
  void Expect(const Message& message, MessageAnswer answer) { m_expected.append({message, answer}); }
  int Beeps() const { return m_beeps; }

  MessageAnswer Show(const Message& message) override {
    if (m_expected.isEmpty()) {
      QTest::qFail(qPrintable("unexpected message: " + message.text), __FILE__, __LINE__);
      return MessageAnswer::Cancel;
    }
    const Step step = m_expected.takeFirst();
    if (Words(step.message) != Words(message)) {
      QTest::qFail(qPrintable("shown: " + Words(message) + "\nexpected: " + Words(step.message)), __FILE__, __LINE__);
    }
    return step.answer;
  }
  void Beep() override { ++m_beeps; }

 private:
  struct Step {
    Message message;
    MessageAnswer answer;
  };

  static QString Words(const Message& message) {
    return QStringLiteral("[%1] %2 (icon %3, buttons %4, default %5)")
        .arg(message.caption, message.text)
        .arg(static_cast<int>(message.icon))
        .arg(static_cast<int>(message.buttons))
        .arg(static_cast<int>(message.defaultButton));
  }

  QList<Step> m_expected;
  int m_beeps = 0;
};

}  // namespace snipdeck
