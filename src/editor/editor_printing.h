#pragma once

#include <functional>

#include <QString>

namespace snipdeck {

class MessageBox;
class PrintDialog;
class PrintJob;
class RichTextControl;
struct PrintRequest;

/// Prints a control's document page by page, as page view shows it.
class EditorPrinting {
 public:
  EditorPrinting(RichTextControl& control, PrintDialog& dialog, MessageBox& messages)
      : m_control(control), m_dialog(dialog), m_messages(messages) {}

  /// Asks what to print and prints it. `toPageView` switches to page view, which printing begins with.
  void Print(const QString& title, const std::function<void()>& toPageView);

 private:
  void PrintPages(const PrintRequest& request, PrintJob& job, int pageCount);
  void TellPrinterProblem();

  RichTextControl& m_control;
  PrintDialog& m_dialog;
  MessageBox& m_messages;
};

}  // namespace snipdeck
