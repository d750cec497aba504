#pragma once

#include <QStringList>
#include <QTest>

#include "platform/message_box.h"

namespace snipdeck {

/// Message boxes that a test announces beforehand. An unexpected one fails the test, and so does an expected one that
/// does not come.
class ScriptedMessages : public MessageBox {
 public:
  ~ScriptedMessages() override {
    if (!m_expected.isEmpty())
      QTest::qFail(qPrintable("message not shown: " + m_expected.join('|')), __FILE__, __LINE__);
  }
  void Expect(const QString& text) { m_expected.append(text); }

  void ShowInformation(const QString& text) override {
    if (m_expected.isEmpty() || m_expected.takeFirst() != text) {
      QTest::qFail(qPrintable("unexpected message: " + text), __FILE__, __LINE__);
    }
  }

 private:
  QStringList m_expected;
};

}  // namespace snipdeck
