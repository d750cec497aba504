#pragma once

class QPoint;

namespace snipdeck {

class RichTextControl;

/// The context menu of a text, at a point of the screen. Returns when the user has chosen or closed it.
void ShowTextMenu(RichTextControl& control, const QPoint& at);

}  // namespace snipdeck
