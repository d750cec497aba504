#pragma once

#include <optional>

#include <QString>

#include "platform/units.h"

namespace snipdeck {

/// A font as the settings keep it.
struct FontChoice {
  QString name;
  double points = 0;
  bool bold = false;

  bool operator==(const FontChoice&) const = default;
};

/// The desktop's dialogs for fonts and colours. Every call returns when the user has answered.
class FontColourDialogs {
 public:
  virtual ~FontColourDialogs() = default;

  /// Among the screen's fonts. A cancelled dialog gives `preset` back as it was; one that could not be shown gives
  /// nothing.
  virtual std::optional<FontChoice> ChooseFont(const FontChoice& preset) = 0;
  /// A plain colour. `start` is selected first, -1 is no colour; `openFull` shows the part in which colours are mixed,
  /// whose slots for own colours begin black each time. kNoColour when the user cancels.
  virtual OleColour PickColour(OleColour start, bool openFull) = 0;
};

}  // namespace snipdeck
