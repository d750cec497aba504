#pragma once

#include <QString>

namespace snipdeck {

/// What to do with a changed document that is about to be replaced or closed.
enum class DocumentDecision {
  Cancel = -1,
  Discard = 0,
  /// Under a name that the user chooses.
  SaveAs = 1,
  /// At once, under its own name.
  SaveDirectly = 100,
};

/// Asks the user about a changed document and shows the details of its file.
class ChangedDocumentQuestion {
 public:
  virtual ~ChangedDocumentQuestion() = default;

  /// Returns when the user has decided; a question that is closed without a choice is answered with Cancel. `path` need
  /// not name an existing file. While it is asked, the windows below do not answer.
  virtual DocumentDecision Ask(const QString& path) = 0;
};

}  // namespace snipdeck
