#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;

namespace snipdeck {

/// Shows how far some work is, and lets the user ask it to end; the dialog stays until the work has. It keeps the user
/// away from the program's other windows.
class ProgressDialog : public QDialog {
  Q_OBJECT

 public:
  ProgressDialog(const QString& what, QWidget* owner);

  /// From 0 to 1; below 0 is not known.
  void ShowPart(double part);
  /// Whether the user may still ask it to end, as at first.
  void SetCancellable(bool cancellable);
  void reject() override;

 signals:
  /// The user wants the work to end early.
  void Cancelled();

 private:
  QLabel* m_what;
  QProgressBar* m_bar;
  QPushButton* m_cancel;
};

}  // namespace snipdeck
