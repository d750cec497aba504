#pragma once

#include "platform/print_dialog.h"

namespace snipdeck {

/// The print dialog of the desktop or, where it has none, Qt's. Besides the system's printers it offers to print into a PDF
/// file. It belongs to the window that is active when it opens.
class QtPrintDialog : public PrintDialog {
 public:
  Answer Show(const PrintOffer& offer) override;
};

}  // namespace snipdeck
