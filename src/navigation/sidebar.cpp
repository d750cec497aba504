#include "navigation/sidebar.h"

#include <array>
#include <cmath>

#include <QLabel>

#include "navigation/sidebar_delegate.h"
#include "navigation/sidebar_rows.h"
#include "platform/units.h"

namespace snipdeck {

namespace {

constexpr double kLeft = 120;
constexpr double kStripTop = 560;
constexpr double kStripHeight = 210;
constexpr double kGridTop = 740;
constexpr double kFirstWidth = 2295;
constexpr std::int16_t kHorizontalAxis = 1;
constexpr int kStepCount = 8;
/// Step 0 is the width of the column.
constexpr std::array<double, kStepCount> kStepWidths = {0, 2000, 2150, 2300, 2450, 2600, 2750, 2900};

double StandardWidth() {
  return PixelsToTwips(SidebarGrid::kColumnWidth, kHorizontalAxis);
}

/// A step that the settings should not hold counts as the last one.
std::int16_t NextStep(std::int16_t step) {
  return step < 0 || step >= kStepCount - 1 ? 0 : static_cast<std::int16_t>(step + 1);
}

}  // namespace

std::int32_t PixelsToTwips(std::int32_t inPixels, std::int16_t) {
  // Device-independent pixels are square, and as many twips wide on every screen.
  return static_cast<std::int32_t>(std::nearbyint(inPixels * kTwipsPerPixel));
}

Sidebar::Sidebar(QWidget& window, Settings& settings, MessageBox& messages, SidebarHost host)
    : QObject(&window),
      m_settings(settings),
      m_messages(messages),
      m_host(std::move(host)),
      lblListBar(new QLabel(&window)),
      m_grid(new SidebarGrid(&window)),
      m_width(kFirstWidth) {
  lblListBar->setObjectName(QStringLiteral("lblListBar"));
  lblListBar->setAutoFillBackground(true);
  QPalette colours = lblListBar->palette();
  colours.setColor(QPalette::Window, kSidebarGrey);
  colours.setColor(QPalette::WindowText, kSidebarText);
  lblListBar->setPalette(colours);
  lblListBar->move(PixelsFromTwips(kLeft), PixelsFromTwips(kStripTop));
  m_grid->move(PixelsFromTwips(kLeft), PixelsFromTwips(kGridTop));
  lblListBar->hide();
  m_grid->hide();
  ApplyWidth();
  connect(m_grid, &SidebarGrid::RowChosen, this, &Sidebar::RunRow);
  connect(m_grid, &SidebarGrid::LeaveAsked, this, [this] { m_host.switchFocus(); });
}

void Sidebar::Fill() {
  m_grid->Fill(RowFont());
}

void Sidebar::ApplyFont() {
  for (int row = 0; row < m_grid->rowCount(); ++row)
    if (QTableWidgetItem* cell = m_grid->item(row, 0)) cell->setFont(RowFont());
}

QFont Sidebar::RowFont() const {
  QFont font = m_grid->font();
  if (!m_settings.sidebarFontName.isEmpty()) font.setFamily(m_settings.sidebarFontName);
  if (m_settings.sidebarFontSize > 0) font.setPointSize(m_settings.sidebarFontSize);
  font.setBold(m_settings.sidebarFontBold != 0);
  return font;
}

void Sidebar::SetRowCaption(int row, const QString& caption) {
  if (QTableWidgetItem* cell = m_grid->item(row - 1, 0)) cell->setText(caption);
}

void Sidebar::RunRow(int row) {
  const QTableWidgetItem* cell = m_grid->item(row - 1, 0);
  if (!cell || !(cell->flags() & Qt::ItemIsEnabled)) return;
  const int remembered = m_grid->CurrentRow();
  m_host.runCommand(row);
  m_grid->SelectRow(remembered);
}

void Sidebar::ToggleSideBarWidth(std::int16_t changeValue) {
  if (changeValue == 1) m_settings.sidebarWidthStep = NextStep(m_settings.sidebarWidthStep);
  ApplyWidth();
  if (changeValue != 1) return;
  if (m_width == StandardWidth()) TellStandardWidth();
  m_host.layOut();
}

void Sidebar::ApplyWidth() {
  const int step = m_settings.sidebarWidthStep;
  if (step == 0) m_width = StandardWidth();
  if (step > 0 && step < kStepCount) m_width = kStepWidths[static_cast<size_t>(step)];
  lblListBar->resize(PixelsFromTwips(m_width), PixelsFromTwips(kStripHeight));
  m_grid->resize(PixelsFromTwips(m_width), m_grid->height());
}

void Sidebar::TellStandardWidth() {
  m_messages.ShowInformation(QString::number(std::lround(m_width)) +
                             QStringLiteral(" is the standard width of the SideBar.\r\n\r\n"
                                            "However, you may need to widen it if a vertical scroll bar is visible."));
}

void Sidebar::ToggleShown() {
  m_settings.sidebarShown = IsShown() ? 0 : 1;
  m_host.layOut();
}

void Sidebar::Place(double gridHeight) {
  if (gridHeight >= 0) m_grid->resize(m_grid->width(), PixelsFromTwips(gridHeight));
  lblListBar->setVisible(IsShown());
  m_grid->setVisible(IsShown());
}

void Sidebar::TakeFocus() {
  if (!m_grid->isVisible()) return;
  m_grid->SelectRow(m_grid->CurrentRow());
  m_grid->setFocus();
}

}  // namespace snipdeck
