#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/saving_notice.h"

namespace snipdeck {

/// The notice while a document is written: a window that says so in its title and in its middle.
class frmSaving : public QWidget {
  Q_OBJECT

 public:
  /// Centred over `owner`, if there is one.
  explicit frmSaving(QWidget* owner);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// Shows the notice over the window that is in use.
class SavingWindow : public SavingNotice {
 public:
  ~SavingWindow() override { delete m_notice; }

  void Show() override;
  void Close() override;

 private:
  QPointer<frmSaving> m_notice;
};

}  // namespace snipdeck
