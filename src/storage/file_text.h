#pragma once

#include "platform/result.h"
#include "richtext/file_format.h"
#include "richtext/rich_text.h"

namespace snipdeck {

/// A text of the main window as the commands on files see it: the large view and the cumulative text with their panels,
/// and texts that nobody sees.
class FileText {
 public:
  virtual ~FileText() = default;

  virtual bool IsShown() const = 0;
  /// The user has changed it since it was last loaded or saved.
  virtual bool Modified() const = 0;
  virtual void SetModified(bool modified) = 0;

  /// Replace the whole text by a file's, whose page becomes the text's where it names one, or write it with its page. A
  /// failure leaves text and file as they were; the text itself tells the user about it.
  virtual Outcome LoadFile(const QString& path, FileFormat format) = 0;
  virtual Outcome SaveFile(const QString& path, FileFormat format) = 0;

  virtual bool HasSelection() const = 0;
  virtual void SelectAll() = 0;
  virtual RichText Selection() const = 0;
  virtual void MoveCaretToStart() = 0;
  virtual void MoveCaretToEnd() = 0;
  /// At the caret, which then stands behind what was inserted. Lines end with CR LF.
  virtual void Insert(const QString& text) = 0;
  virtual void Insert(const RichText& text) = 0;
  virtual void TakeFocus() = 0;
};

}  // namespace snipdeck
