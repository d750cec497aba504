#pragma once

#include <QTextCursor>

#include "platform/qt/rich_text_control.h"

namespace snipdeck {

/// What ended with a list item or a centred line must not make the text that comes next one.
inline void ResetLastParagraph(RichTextControl& control) {
  QTextCursor end(control.AsItStands().document());
  end.movePosition(QTextCursor::End);
  end.setBlockFormat(QTextBlockFormat());
  end.setBlockCharFormat(QTextCharFormat());
}

}  // namespace snipdeck
