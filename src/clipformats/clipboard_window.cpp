#include "clipformats/clipboard_window.h"

#include <algorithm>
#include <cmath>

#include <QMenuBar>
#include <QVBoxLayout>

#include "platform/menu_colours.h"
#include "platform/qt/command_button.h"
#include "platform/qt/drawn_icon.h"
#include "platform/qt/menu_style.h"
#include "platform/units.h"

namespace snipdeck {

namespace {

constexpr double kRowTop = 60;
constexpr double kRowHeight = 400;

std::int32_t Whole(double twips) {
  return static_cast<std::int32_t>(std::nearbyint(twips));
}

}  // namespace

ClipboardWindow::ClipboardWindow(const QString& name, const KeptPlacement& kept, QWidget* parent)
    : QDialog(parent), m_kept(kept), m_client(new QWidget(this)), m_geometry(*this) {
  setObjectName(name);
  setWindowTitle(QStringLiteral("Current contents of Windows clipboard"));
  auto* bar = new QMenuBar(this);
  m_menu = bar->addMenu(tr("&Clipboard"));
  m_menu->setObjectName(QStringLiteral("mnuClipboard"));
  (new MenuStyle(kBlueMenus, this))->ApplyTo(*bar);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setMenuBar(bar);
  layout->addWidget(m_client);
}

CommandButton* ClipboardWindow::AddCommand(const WindowCommand& command, const std::function<void()>& handler) {
  QAction* entry = m_menu->addAction(tr(command.caption));
  entry->setObjectName(QString::fromLatin1(command.entry));
  entry->setIcon(DrawnIcon(QString::fromLatin1(command.icon), QColor(kBlueMenus.menuBarText)));
  auto* button = new CommandButton(QString::fromLatin1(command.icon), tr(command.toolTip), m_client);
  button->setObjectName(QString::fromLatin1(command.button));
  Apply(*button, {command.left, kRowTop, command.width, kRowHeight});
  connect(entry, &QAction::triggered, this, handler);
  connect(button, &CommandButton::clicked, this, handler);
  m_buttons.push_back(button);
  return button;
}

void ClipboardWindow::SetTabOrder() {
  const auto isLeft = [](const CommandButton* one, const CommandButton* other) { return one->x() < other->x(); };
  std::sort(m_buttons.begin(), m_buttons.end(), isLeft);
  for (std::size_t i = 1; i < m_buttons.size(); ++i) setTabOrder(m_buttons[i - 1], m_buttons[i]);
}

void ClipboardWindow::Place(const KeepOnScreenStep& keepOnScreen) {
  m_geometry.SetLeft(m_kept.left);
  m_geometry.SetTop(m_kept.top);
  m_geometry.SetWidth(m_kept.width);
  m_geometry.SetHeight(m_kept.height);
  keepOnScreen(m_geometry, m_kept);
}

void ClipboardWindow::SetSmallest(double width, double height) {
  m_smallest = QSize(PixelsFromTwips(width), PixelsFromTwips(height));
  KeepSmallest();
}

// The frame's width is known once the window has been shown.
void ClipboardWindow::KeepSmallest() {
  if (!m_smallest.isEmpty()) setMinimumSize(m_smallest - (frameGeometry().size() - size()));
}

double ClipboardWindow::ScaleWidth() const {
  return TwipsFromPixels(m_client->width());
}

double ClipboardWindow::ScaleHeight() const {
  return TwipsFromPixels(m_client->height());
}

void ClipboardWindow::Apply(QWidget& widget, const TwipPlace& place) {
  const int left = PixelsFromTwips(place.left);
  const int top = PixelsFromTwips(place.top);
  const int width = place.width < 0 ? widget.width() : PixelsFromTwips(place.left + place.width) - left;
  const int height = place.height < 0 ? widget.height() : PixelsFromTwips(place.top + place.height) - top;
  widget.setGeometry(left, top, width, height);
}

void ClipboardWindow::done(int result) {
  if (isVisible()) {
    m_kept.left = Whole(m_geometry.Left());
    m_kept.top = Whole(m_geometry.Top());
    m_kept.width = Whole(m_geometry.Width());
    m_kept.height = Whole(m_geometry.Height());
  }
  QDialog::done(result);
}

void ClipboardWindow::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
  KeepSmallest();
  m_geometry.FitFrame();
  Form_Activate();
}

void ClipboardWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  layout()->activate();
  Form_Resize();
}

void ClipboardWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  layout()->activate();
  Form_Resize();
}

}  // namespace snipdeck
