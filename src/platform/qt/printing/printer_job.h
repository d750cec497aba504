#pragma once

#include <memory>

#include <QPainter>

#include "platform/print_dialog.h"

class QPrinter;

namespace snipdeck {

/// A job on a printer, or into a PDF file where the printer's settings say so. Sheets have the document's size; the printer
/// gets each of them once, in the order in which they are begun.
class PrinterJob : public PrintJob {
 public:
  explicit PrinterJob(std::unique_ptr<QPrinter> printer);
  /// A job that was not finished is not printed.
  ~PrinterJob() override;

  bool StartPage() override;
  QPainter& Painter() override { return m_painter; }
  Outcome Finish() override;

  /// Gives `printer` sheets of the document's size without margins of its own, which the document has.
  static void SetSheets(QPrinter& printer, const PageGeometry& geometry);

 private:
  bool Begin();

  std::unique_ptr<QPrinter> m_printer;
  QPainter m_painter;
  bool m_hasFailed = false;
};

}  // namespace snipdeck
