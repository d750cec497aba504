#include "layout/system_colours.h"

#include <array>

namespace snipdeck {

namespace {

using P = QPalette;

struct SystemColour {
  P::ColorRole role;
  P::ColorGroup group = P::Active;
};

// By the index of the colour.
constexpr std::array kSystemColours = {
    SystemColour{P::Mid},                      // scroll bar
    SystemColour{P::Dark},                     // desktop
    SystemColour{P::Highlight},                // title of the active window
    SystemColour{P::Mid},                      // title of another window
    SystemColour{P::Window},                   // menu
    SystemColour{P::Base},                     // ground of texts
    SystemColour{P::Shadow},                   // frame of a window
    SystemColour{P::WindowText},               // text in menus
    SystemColour{P::Text},                     // text
    SystemColour{P::HighlightedText},          // text in the active window's title
    SystemColour{P::Window},                   // edge of the active window
    SystemColour{P::Window},                   // edge of another window
    SystemColour{P::Dark},                     // ground behind inner windows
    SystemColour{P::Highlight},                // selection
    SystemColour{P::HighlightedText},          // selected text
    SystemColour{P::Button},                   // face of a button
    SystemColour{P::Dark},                     // shadow of a button
    SystemColour{P::Text, P::Disabled},        // greyed text
    SystemColour{P::ButtonText},               // text on a button
    SystemColour{P::WindowText, P::Disabled},  // text in another window's title
    SystemColour{P::Light},                    // light edge of a button
    SystemColour{P::Shadow},                   // darkest shadow
    SystemColour{P::Midlight},                 // lighter face
    SystemColour{P::ToolTipText},              // text of a tool tip
    SystemColour{P::ToolTipBase},              // ground of a tool tip
    SystemColour{P::Button},                   // not used
    SystemColour{P::Link},                     // what is hot
    SystemColour{P::Highlight},                // second colour of the active window's title
    SystemColour{P::Mid},                      // second colour of another window's title
    SystemColour{P::Highlight},                // chosen entry of a menu
    SystemColour{P::Window},                   // menu bar
};

constexpr unsigned kPlain = 0x00;
constexpr unsigned kNearestPlain = 0x02;
constexpr unsigned kSystem = 0x80;

}  // namespace

std::optional<OleColour> TranslateColour(OleColour colour, const QPalette& palette) {
  const auto bits = static_cast<std::uint32_t>(colour);
  const unsigned kind = bits >> 24;
  const std::uint32_t rest = bits & 0xFFFFFF;
  if (kind == kPlain || kind == kNearestPlain) return static_cast<OleColour>(rest);
  if (kind != kSystem || rest >= kSystemColours.size()) return std::nullopt;
  const SystemColour& meant = kSystemColours[rest];
  const QColor shown = palette.color(meant.group, meant.role);
  return OleFromRgb(shown.red(), shown.green(), shown.blue());
}

}  // namespace snipdeck
