#pragma once

#include <cstdint>

#include <QString>

namespace snipdeck {

/// What the user wants done with a changed document that is about to close.
enum class ClosingDecision : std::int16_t { Cancel = -1, No = 0, Yes = 1, SaveDirectly = 100 };

/// Asks about a changed document, with its name, folder, size and date. Every call returns when the user has decided.
class ClosingQuestion {
 public:
  virtual ~ClosingQuestion() = default;

  /// `path` is the document's whole path, of a file that need not exist; empty for none. Closing the window without
  /// deciding is Cancel.
  virtual ClosingDecision Ask(const QString& path) = 0;
};

/// The notice that is shown while a document is written.
class SavingNotice {
 public:
  virtual ~SavingNotice() = default;

  /// Shows the notice, painted, and returns at once; nothing where it is shown.
  virtual void ShowNotice() = 0;
  virtual void CloseNotice() = 0;
};

}  // namespace snipdeck
