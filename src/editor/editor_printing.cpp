#include "editor/editor_printing.h"

#include <algorithm>

#include <QCoreApplication>

#include "platform/message_box.h"
#include "platform/print_dialog.h"
#include "platform/qt/rich_text_control.h"

namespace snipdeck {

void EditorPrinting::Print(const QString& title, const std::function<void()>& toPageView) {
  if (m_control.ViewMode() == 0) toPageView();
  const int pageCount = m_control.PageCount();
  const PrintDialog::Answer answer = m_dialog.Show({.pages = pageCount, .geometry = m_control.Page(), .title = title});
  if (answer.error == PrintDialog::kCancelled) return;
  if (answer.error != 0 || !answer.job) return TellPrinterProblem();
  m_control.SetPrintDevice(answer.job.get());
  PrintPages(answer.request, *answer.job, pageCount);
  m_control.SetPrintDevice(nullptr);
  if (!answer.job->Finish()) TellPrinterProblem();
}

// Each copy whole, in the order of the pages. A page that fails does not keep the others from being printed.
void EditorPrinting::PrintPages(const PrintRequest& request, PrintJob& job, int pageCount) {
  const int first = request.hasRange ? std::max(1, request.firstPage) : 1;
  const int last = request.hasRange ? std::min(request.lastPage, pageCount) : pageCount;
  for (int copy = 1; copy <= request.copies; ++copy) {
    for (int page = first; page <= last; ++page) {
      QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
      if (job.StartPage()) m_control.PrintPage(page);
    }
  }
}

void EditorPrinting::TellPrinterProblem() {
  m_messages.Show({.text = QStringLiteral("There was a problem printing to your printer!\r\n\r\n"
                                          "Check that it is powered up, online and has enough paper.\r\n"),
                   .icon = MessageIcon::Exclamation});
}

}  // namespace snipdeck
