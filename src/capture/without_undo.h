#pragma once

#include <QTextDocument>

#include "platform/qt/rich_text_control.h"

namespace snipdeck {

/// While it lives, changes of the control are no steps of undo: noting them would cost time, and memory that grows with
/// every copy. Very long texts are then filled in bit by bit.
class WithoutUndo {
 public:
  explicit WithoutUndo(RichTextControl& control) : m_document(*control.AsItStands().document()) {
    m_document.setUndoRedoEnabled(false);
  }
  ~WithoutUndo() { m_document.setUndoRedoEnabled(true); }
  Q_DISABLE_COPY_MOVE(WithoutUndo)

 private:
  QTextDocument& m_document;
};

}  // namespace snipdeck
