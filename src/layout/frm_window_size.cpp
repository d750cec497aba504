#include "layout/frm_window_size.h"

#include <algorithm>

#include <QFontDatabase>
#include <QGroupBox>
#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "layout/window_sizes.h"
#include "platform/qt/dialogs/dialog_button.h"

namespace snipdeck {

namespace {

constexpr int kEdge = 6;

template <std::size_t count>
QListWidget* MakeList(const char* name, const QString& accessibleName, const std::array<const char*, count>& entries,
                      int selected) {
  auto* list = new QListWidget;
  list->setObjectName(QString::fromLatin1(name));
  list->setAccessibleName(accessibleName);
  list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  for (const char* entry : entries) list->addItem(QString::fromLatin1(entry));
  list->setCurrentRow(std::clamp(selected, 0, static_cast<int>(count) - 1));
  return list;
}

constexpr int kRows = static_cast<int>(std::max(WindowSizes::kPresets.size(), WindowSizes::kPercents.size()));

// Every entry is shown, whatever font the list has been given, and both lists are equally high.
void FitEntries(QListWidget& list) {
  const int frame = 2 * list.frameWidth();
  list.setFixedSize(list.sizeHintForColumn(0) + list.fontMetrics().averageCharWidth() * 2 + frame,
                    list.sizeHintForRow(0) * kRows + frame);
}

// Styles paint what is selected alike in both lists; it pales where the keyboard is not.
void ShowKeyboard(QListWidget& list, bool isHere) {
  QPalette colours = list.parentWidget()->palette();
  if (!isHere) {
    const QColor text = colours.color(QPalette::Text);
    QColor pale = text;
    pale.setAlphaF(0.15F);
    colours.setColor(QPalette::Highlight, pale);
    colours.setColor(QPalette::HighlightedText, text);
  }
  list.setPalette(colours);
}

bool IsEnter(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const int key = static_cast<const QKeyEvent&>(event).key();
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

frmWindowSize::frmWindowSize(Settings& settings, QWidget* owner)
    : QDialog(owner),
      m_settings(settings),
      m_presets(MakeList("List1", tr("Places"), WindowSizes::kPresets, settings.windowPreset)),
      m_percents(MakeList("lstSize", tr("Percent of screen"), WindowSizes::kPercents, settings.windowPercent)) {
  setObjectName("frmWindowSize");
  setWindowTitle(tr("Program window size"));
  auto* column = new QVBoxLayout(this);
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->addWidget(MakeLists());
  column->addWidget(MakeButtons());
  for (QListWidget* list : {m_presets, m_percents}) {
    ShowKeyboard(*list, false);
    list->installEventFilter(this);
  }
  connect(m_presets, &QListWidget::itemDoubleClicked, this, &frmWindowSize::cmdOk_Click);
  connect(m_percents, &QListWidget::itemDoubleClicked, this, &frmWindowSize::cmdPercent_Click);
  m_presets->setFocus();
}

QWidget* frmWindowSize::MakeLists() {
  auto* frame = new QGroupBox(tr(" Choose size or percent of screen "));
  frame->setObjectName("Frame1");
  auto* row = new QHBoxLayout(frame);
  for (QListWidget* list : {m_presets, m_percents}) {
    FitEntries(*list);
    row->addWidget(list);
  }
  return frame;
}

QWidget* frmWindowSize::MakeButtons() {
  auto* buttons = new QWidget;
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(0, kEdge, 0, 0);
  const auto add = [&](const char* name, const QString& caption, const QString& toolTip, auto handler) {
    QPushButton* button = DialogButton(name, caption, toolTip);
    connect(button, &QPushButton::clicked, this, handler);
    row->addWidget(button);
    return button;
  };
  add("cmdOk", tr("&Size"), tr("Give the window the chosen place"), &frmWindowSize::cmdOk_Click)->setDefault(true);
  add("cmdPercent", tr("&Percent"), tr("Give the window the chosen percentage of the screen"),
      &frmWindowSize::cmdPercent_Click);
  add("cmdCancel", tr("&Cancel"), tr("Leave the window as it is"), &frmWindowSize::reject);
  return buttons;
}

void frmWindowSize::cmdOk_Click() {
  m_settings.windowPreset = static_cast<std::int16_t>(m_presets->currentRow());
  done(kPreset);
}

void frmWindowSize::cmdPercent_Click() {
  m_settings.windowPercent = static_cast<std::int16_t>(m_percents->currentRow());
  done(kPercent);
}

void frmWindowSize::FollowKeyboard(QListWidget& list, bool isHere) {
  ShowKeyboard(list, isHere);
  const auto name = &list == m_presets ? QStringLiteral("cmdOk") : QStringLiteral("cmdPercent");
  if (isHere) findChild<QPushButton*>(name)->setDefault(true);
}

bool frmWindowSize::eventFilter(QObject* watched, QEvent* event) {
  if (IsEnter(*event)) {
    if (watched == m_presets) {
      cmdOk_Click();
    } else {
      cmdPercent_Click();
    }
    return true;
  }
  auto& list = *static_cast<QListWidget*>(watched);
  if (event->type() == QEvent::FontChange) FitEntries(list);
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
    FollowKeyboard(list, event->type() == QEvent::FocusIn);
  return QDialog::eventFilter(watched, event);
}

}  // namespace snipdeck
