#pragma once

#include <QProcess>
#include <QStringList>

namespace snipdeck {

/// Another program that owns the clipboard until the object goes.
class Owner {
 public:
  explicit Owner(const QStringList& arguments) {
    m_process.start(QStringLiteral(CLIPBOARD_OWNER), arguments);
    if (!m_process.waitForStarted()) qFatal("%s does not start", CLIPBOARD_OWNER);
  }
  ~Owner() {
    m_process.kill();
    m_process.waitForFinished();
  }
  /// Returns when it owns the clipboard.
  void WaitTaken() {
    while (!m_output.contains("owns") && m_process.waitForReadyRead(5000)) m_output += m_process.readAll();
    if (!m_output.contains("owns")) qFatal("%s does not take the clipboard", CLIPBOARD_OWNER);
  }

 private:
  QProcess m_process;
  QByteArray m_output;
};

}  // namespace snipdeck
