#pragma once

#include <cstdint>
#include <functional>

#include <QObject>

#include "navigation/sidebar_grid.h"
#include "platform/message_box.h"
#include "platform/settings.h"

class QLabel;

namespace snipdeck {

/// What the sidebar asks of the main window.
struct SidebarHost {
  /// Runs the command of a row, 1 to 13.
  std::function<void(int)> runCommand;
  /// Lays the window out again.
  std::function<void()> layOut;
  /// Moves the focus between the text and the sidebar.
  std::function<void()> switchFocus;
};

/// Twips of so many pixels along an axis of the screen: 1 the horizontal one, any other the vertical one.
std::int32_t PixelsToTwips(std::int32_t inPixels, std::int16_t whichAxis);

/// The column of large command rows at the left edge of the main window. Whether it is shown and how wide it is are
/// kept in the settings.
class Sidebar : public QObject {
  Q_OBJECT

 public:
  /// Makes the grid and the strip above it as children of `window`, both hidden.
  Sidebar(QWidget& window, Settings& settings, MessageBox& messages, SidebarHost host);

  /// Once, when the main window has loaded.
  void Fill();
  /// Shows the rows in the font that the settings have now.
  void ApplyFont();
  void SetRowCaption(int row, const QString& caption);
  void SetRowEnabled(int row, bool enabled) { m_grid->SetRowEnabled(row, enabled); }
  void SetHandPointer(const QCursor& pointer) { m_grid->SetHandPointer(pointer); }
  /// Runs a row's command, and makes the row that was current before the current one again. A row outside 1 to 13 and a
  /// row that is greyed out do nothing.
  void RunRow(int row);

  /// With 1 the width goes one step on, from 7 to 0, and the window is laid out again; any other value applies the
  /// present step once more.
  void ToggleSideBarWidth(std::int16_t changeValue);
  /// Shows or hides the sidebar, and lays the window out again.
  void ToggleShown();
  bool IsShown() const { return m_settings.sidebarShown == 1; }
  /// In twips; the width of the step that was applied last.
  double Width() const { return m_width; }
  /// Shows or hides the widgets as the settings say, and gives the grid its height in twips. A negative height is not
  /// applied.
  void Place(double gridHeight);
  /// Marks the current row as selected and gives the grid the focus. Does nothing while the grid is hidden.
  void TakeFocus();

  SidebarGrid& Grid() { return *m_grid; }

 private:
  void ApplyWidth();
  void TellStandardWidth();
  QFont RowFont() const;

  Settings& m_settings;
  MessageBox& m_messages;
  SidebarHost m_host;
  QLabel* lblListBar;
  SidebarGrid* m_grid;
  double m_width;
};

}  // namespace snipdeck
