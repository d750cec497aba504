#include "platform/qt/printing/qt_print_dialog.h"

#include <QApplication>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinter>
#include <QSpinBox>

#include "platform/qt/printing/printer_job.h"

namespace snipdeck {
namespace {

constexpr int kNoPrinter = 1;
/// Parts of Qt's dialog about the order and the choice of sheets, which are the program's affair: each copy whole, in the
/// order of the pages.
constexpr const char* kNotOffered[] = {"pagesRadioButton", "pagesLineEdit", "pageSetLabel",
                                       "pageSetCombo",     "collate",       "reverse"};

void Offer(QPrintDialog& dialog, int pages) {
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
  dialog.setOption(QAbstractPrintDialog::PrintCurrentPage, false);
  dialog.setOption(QAbstractPrintDialog::PrintCollateCopies, false);
  dialog.setMinMax(1, pages);
  dialog.setFromTo(1, pages);
  dialog.setPrintRange(QAbstractPrintDialog::AllPages);
  for (const char* const name : kNotOffered) {
    if (auto* const part = dialog.findChild<QWidget*>(QLatin1String(name))) part->hide();
  }
}

// Qt's dialog raises the last page to the first one where the user asked for none.
int LastPageIn(const QPrintDialog& dialog) {
  const auto* const box = dialog.findChild<QSpinBox*>(QStringLiteral("to"));
  return box ? std::min(box->value(), dialog.toPage()) : dialog.toPage();
}

PrintRequest RequestIn(const QPrintDialog& dialog, const QPrinter& printer) {
  PrintRequest request;
  request.copies = std::max(1, printer.copyCount());
  request.hasRange = dialog.printRange() == QAbstractPrintDialog::PageRange;
  request.firstPage = dialog.fromPage();
  request.lastPage = LastPageIn(dialog);
  return request;
}

}  // namespace

PrintDialog::Answer QtPrintDialog::Show(const PrintOffer& offer) {
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  printer->setDocName(QFileInfo(offer.title).fileName());
  printer->setCreator(QStringLiteral("QM_Snipdeck"));
  PrinterJob::SetSheets(*printer, offer.geometry);
  QPrintDialog dialog(printer.get(), QApplication::activeWindow());
  Offer(dialog, offer.pages);
  if (dialog.exec() != QDialog::Accepted) return {.error = kCancelled, .request = {}, .job = nullptr};
  const PrintRequest request = RequestIn(dialog, *printer);
  // The choice of a printer may bring paper of its own; the pages are those of the document.
  PrinterJob::SetSheets(*printer, offer.geometry);
  if (!printer->isValid()) return {.error = kNoPrinter, .request = {}, .job = nullptr};
  return {.error = 0, .request = request, .job = std::make_unique<PrinterJob>(std::move(printer))};
}

}  // namespace snipdeck
