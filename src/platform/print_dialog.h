#pragma once

#include <memory>

#include "platform/page_geometry.h"
#include "platform/result.h"

class QPainter;

namespace snipdeck {

/// A printer that is being given pages. Everything between Start and Finish is one job of the system's queue.
class PrintJob {
 public:
  virtual ~PrintJob() = default;

  /// Begins a new sheet. False when the printer does not take it; nothing is to be drawn then.
  virtual bool StartPage() = 0;
  /// Draws on the sheet that was begun last: the origin is the sheet's upper left corner, one unit is a twip.
  virtual QPainter& Painter() = 0;
  /// Hands the job over. A failure says in the system's words what stands in its way.
  virtual Outcome Finish() = 0;
};

/// What the print dialog starts with.
struct PrintOffer {
  int pages = 1;  ///< the document's; the range starts as 1 to this, and reaches no further
  PageGeometry geometry;
  QString title;  ///< of the job in the queue
};

/// What the user chose.
struct PrintRequest {
  int copies = 1;
  bool hasRange = false;
  int firstPage = 1;
  int lastPage = 1;
};

/// The system's print dialog.
class PrintDialog {
 public:
  /// The number with which a cancelled dialog reports itself.
  static constexpr int kCancelled = 32755;

  struct Answer {
    int error = 0;  ///< 0, kCancelled, or another number when there is nothing to print on
    PrintRequest request;
    std::unique_ptr<PrintJob> job;  ///< on the chosen printer; null after an error
  };

  virtual ~PrintDialog() = default;
  /// Returns when the user has answered.
  virtual Answer Show(const PrintOffer& offer) = 0;
};

}  // namespace snipdeck
