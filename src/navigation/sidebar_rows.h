#pragma once

#include <array>
#include <cstdint>

namespace snipdeck {

/// One command row of the sidebar.
struct SidebarRow {
  const char* caption;
  /// Key of the row's 32 x 32 picture.
  const char* icon;
};

inline constexpr int kSidebarRowCount = 13;

/// Entry r - 1 is row r.
inline constexpr std::array<SidebarRow, kSidebarRowCount> kSidebarRows = {{
    {"Load text boxes", "edit-paste-5"},
    {"Boxes/full screen", "Monitor_(blue)"},
    {"Cumulative clipb.", "My docs 32"},
    {"Save all boxes", "_SaveAs_32x32"},
    {"Save text box", "_SaveAs_32x32-green"},
    {"Clipboard", "Paste"},
    {"Mini Trawler", "Trawler_32x32"},
    {"Windows Explorer", "Explorer_32x32"},
    {"Your browser", "Net Browser"},
    {"Topical notes", "Writer"},
    {"Settings", "settings"},
    {"Goto desktop", "Desktop_32x32"},
    {"Exit program", "Exit_32x32"},
}};

}  // namespace snipdeck
