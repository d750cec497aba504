#include "platform/qt/printing/printer_job.h"

#include <QPageLayout>
#include <QPrinter>

#include "platform/qt/printing/cups_answer.h"
#include "platform/units.h"

namespace snipdeck {
namespace {

constexpr double kPointsPerTwip = 0.05;

bool PrintsIntoFile(const QPrinter& printer) {
  return !printer.outputFileName().isEmpty();
}

Failure NoPrinting(const QPrinter& printer, const QString& reason) {
  const QString name = PrintsIntoFile(printer) ? printer.outputFileName() : printer.printerName();
  return {Failure::Kind::Other, QObject::tr("%1 did not take the pages. %2").arg(name, reason).trimmed()};
}

}  // namespace

// Copies are sheets like any other, so the printer is not to make some of its own.
PrinterJob::PrinterJob(std::unique_ptr<QPrinter> printer) : m_printer(std::move(printer)) {
  m_printer->setCopyCount(1);
  m_printer->setFullPage(true);
}

PrinterJob::~PrinterJob() {
  if (m_painter.isActive()) m_printer->abort();
}

void PrinterJob::SetSheets(QPrinter& printer, const PageGeometry& geometry) {
  QSizeF size = QSizeF(geometry.width, geometry.height) * kPointsPerTwip;
  const bool isWide = size.width() > size.height();
  if (isWide) size.transpose();
  const QPageSize sheet(size, QPageSize::Point, QString(), QPageSize::FuzzyMatch);
  QPageLayout layout(sheet, isWide ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF());
  layout.setMode(QPageLayout::FullPageMode);
  printer.setPageLayout(layout);
  printer.setFullPage(true);
}

bool PrinterJob::Begin() {
  if (!m_painter.begin(m_printer.get())) return false;
  const double dotsPerTwip = m_printer->resolution() / static_cast<double>(kTwipsPerInch);
  m_painter.scale(dotsPerTwip, dotsPerTwip);
  return true;
}

bool PrinterJob::StartPage() {
  if (m_hasFailed) return false;
  m_hasFailed = m_painter.isActive() ? !m_printer->newPage() : !Begin();
  return !m_hasFailed;
}

// Without a page there is nothing to hand over.
Outcome PrinterJob::Finish() {
  const bool hasPages = m_painter.isActive();
  const bool ended = !hasPages || m_painter.end();
  const QString complaint = hasPages && !PrintsIntoFile(*m_printer) ? CupsComplaint() : QString();
  const bool isTaken = ended && complaint.isEmpty() && m_printer->printerState() != QPrinter::Error;
  if (m_hasFailed || !isTaken) return NoPrinting(*m_printer, complaint);
  return Done{};
}

}  // namespace snipdeck
