#include "app/frm_snipdeck.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QResizeEvent>

#include "app/menu_table.h"
#include "layout/main_window_layout.h"
#include "platform/units.h"

namespace snipdeck {

namespace {

constexpr QSize kFirstSize(1000, 750);  // pixels

constexpr TwipRect kFormatsLabelPlace{8880, 210, 735, 195};
constexpr TwipRect kFormatLabelPlace{9720, 180, 1695, 255};

}  // namespace

frmSnipdeck::frmSnipdeck(const MainWindowServices& services)
    : m_services(services),
      m_client(new QWidget(this)),
      m_boxes(new BoxSet(*m_client, services.messages)),
      m_capture(*m_boxes, services.clipboard, m_startWithCumulative),
      m_interaction(*m_boxes),
      m_views(*m_boxes) {
  setObjectName("frmSnipdeck");
  setWindowTitle(QString::fromLatin1(kProgramTitle));
  setCentralWidget(m_client);
  BuildMenus();
  PlaceFixedControls();
  SetTabOrder();
  resize(kFirstSize);
}

frmSnipdeck::~frmSnipdeck() = default;

void frmSnipdeck::BuildMenus() {
  for (const Menu& menu : MainMenus()) {
    QMenu* widget = menuBar()->addMenu(tr(menu.caption));
    widget->setObjectName(menu.name);
    for (const MenuEntry& entry : menu.entries) {
      if (!entry.name) {
        widget->addSeparator();
        continue;
      }
      QAction* action = widget->addAction(tr(entry.caption), this, entry.handler);
      action->setObjectName(entry.name);
      action->setShortcut(QKeySequence::fromString(QString::fromLatin1(entry.shortcut), QKeySequence::PortableText));
    }
  }
}

void frmSnipdeck::PlaceFixedControls() {
  ApplyRect(*m_boxes->lblFormats, kFormatsLabelPlace);
  ApplyRect(*m_boxes->lblFormat, kFormatLabelPlace);
  m_boxes->Box(1).move(PixelsFromTwips(MainWindowLayout::kGridLeft),
                       PixelsFromTwips(MainWindowLayout::kBoxOneFirstTop));
}

void frmSnipdeck::SetTabOrder() {
  for (int n = 1; n < kBoxCount; ++n) setTabOrder(&m_boxes->Box(n), &m_boxes->Box(n + 1));
  for (int n = 1; n <= kBoxCount; ++n) m_boxes->Box(n).installEventFilter(this);
  m_boxes->TXTextControl1().installEventFilter(this);
  m_boxes->TXTextControl2().installEventFilter(this);
}

void frmSnipdeck::ctlClipboard1_Changed() {
  m_capture.ProcessClipboard();
}

void frmSnipdeck::mnuCumulative_Click() {
  m_views.ToggleCumulative();
}

void frmSnipdeck::mnuExit_Click() {
  close();
}

void frmSnipdeck::mnuViewBoxLarge_Click() {
  m_interaction.ToggleFullScreen();
}

void frmSnipdeck::Form_Activate() {
  if (!FirstShow) return;
  FirstShow = false;
  if (m_startWithCumulative == 1) {
    m_views.ShowCumulative();
  } else {
    m_boxes->Box(1).setFocus();
  }
  // The watch tells what the clipboard holds at start as its first change.
  m_services.ctlClipboard1.StartWatching([this] { ctlClipboard1_Changed(); });
}

void frmSnipdeck::Form_Resize() {
  KeepMinimumSize();
  const double boxOneTop = TwipsFromPixels(m_boxes->Box(1).y());
  const auto placement =
      MainWindowLayout::Place(TwipsFromPixels(m_client->width()), TwipsFromPixels(m_client->height()),
                              MainWindowLayout::GridLeft(false, 0), boxOneTop);
  for (int n = 1; n <= kBoxCount; ++n) ApplyRect(m_boxes->Box(n), placement.boxes[static_cast<size_t>(n - 1)]);
  m_boxes->Frame1->Apply(placement.frame1);
  m_boxes->Frame2->Apply(placement.frame2);
}

void frmSnipdeck::KeepMinimumSize() {
  const QSize frame = frameGeometry().size() - size();
  setMinimumSize(PixelsFromTwips(MainWindowLayout::kMinOuterWidth) - frame.width(),
                 PixelsFromTwips(MainWindowLayout::kMinOuterHeight) - frame.height());
}

void frmSnipdeck::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) Form_Activate();
}

void frmSnipdeck::closeEvent(QCloseEvent* event) {
  m_services.ctlClipboard1.StopWatching();
  event->accept();
}

bool frmSnipdeck::eventFilter(QObject* watched, QEvent* event) {
  // The text controls claim keys of their own, such as Ctrl+Y, before menus see them; the menus' keys come first.
  if (event->type() == QEvent::ShortcutOverride) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const QKeySequence pressed(key->keyCombination());
    for (const QAction* action : findChildren<QAction*>()) {
      if (!action->shortcut().isEmpty() && action->shortcut() == pressed) {
        event->ignore();
        return true;
      }
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

void frmSnipdeck::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  Form_Resize();
}

void frmSnipdeck::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  Form_Resize();
}

}  // namespace snipdeck
