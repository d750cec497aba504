#pragma once

#include <QString>

namespace snipdeck {

class MessageBox;

/// Tells the user that the text control could not do something; `description` is the control's own for it.
void ShowControlError(const QString& description, MessageBox& messages);

}  // namespace snipdeck
