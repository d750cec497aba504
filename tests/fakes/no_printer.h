#pragma once

#include "platform/print_dialog.h"

namespace snipdeck {

/// A print dialog that the user always cancels.
class NoPrinter : public PrintDialog {
 public:
  Answer Show(const PrintOffer&) override { return {.error = kCancelled, .request = {}, .job = nullptr}; }
};

}  // namespace snipdeck
