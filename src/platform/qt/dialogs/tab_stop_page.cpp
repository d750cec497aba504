#include "platform/qt/dialogs/tab_stop_page.h"

#include <algorithm>
#include <cmath>

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "platform/qt/dialogs/length_box.h"

namespace snipdeck {

namespace {

constexpr double kFarthest = 2400;  // pixels
constexpr double kSamePlace = 0.5;  // two stops that are nearer than this are one

bool SamePlace(const QTextOption::Tab& tab, double position) {
  return std::abs(tab.position - position) < kSamePlace;
}

}  // namespace

TabStopPage::TabStopPage(QWidget* parent)
    : QWidget(parent),
      m_position(new LengthBox(LengthBox::Unit::Ruler, 0, kFarthest)),
      m_kind(new QComboBox),
      m_list(new QListWidget),
      m_add(new QPushButton(tr("&Add"))),
      m_remove(new QPushButton(tr("&Remove"))),
      m_clear(new QPushButton(tr("Remove a&ll"))) {
  // In the order of QTextOption::TabType.
  m_kind->addItems({tr("Left"), tr("Right"), tr("Centre"), tr("Decimal")});
  m_list->setAccessibleName(tr("Tab stops"));
  auto* const grid = new QGridLayout(this);
  auto* const positionLabel = new QLabel(tr("&Position"));
  positionLabel->setBuddy(m_position);
  auto* const kindLabel = new QLabel(tr("&Kind"));
  kindLabel->setBuddy(m_kind);
  grid->addWidget(positionLabel, 0, 0);
  grid->addWidget(m_position, 1, 0);
  grid->addWidget(kindLabel, 0, 1);
  grid->addWidget(m_kind, 1, 1);
  grid->addWidget(m_add, 1, 2);
  grid->addWidget(m_list, 2, 0, 3, 2);
  grid->addWidget(m_remove, 2, 2);
  grid->addWidget(m_clear, 3, 2);
  grid->setRowStretch(4, 1);
  connect(m_add, &QPushButton::clicked, this, &TabStopPage::Add);
  connect(m_remove, &QPushButton::clicked, this, &TabStopPage::Remove);
  connect(m_clear, &QPushButton::clicked, this, &TabStopPage::Clear);
  connect(m_list, &QListWidget::currentRowChanged, this, &TabStopPage::ShowCurrent);
  m_position->SetLength(0);
}

void TabStopPage::SetTabs(const std::optional<QList<QTextOption::Tab>>& tabs) {
  m_differ = !tabs;
  m_tabs = tabs.value_or(QList<QTextOption::Tab>());
  ShowTabs();
}

std::optional<QList<QTextOption::Tab>> TabStopPage::Tabs() const {
  if (m_differ) return std::nullopt;
  return m_tabs;
}

void TabStopPage::ShowTabs() {
  const QSignalBlocker quiet(m_list);
  m_list->clear();
  LengthBox words(LengthBox::Unit::Ruler, -kFarthest, kFarthest);
  for (const QTextOption::Tab& tab : m_tabs) {
    words.SetLength(tab.position);
    m_list->addItem(tr("%1, %2").arg(words.text(), m_kind->itemText(tab.type).toLower()));
  }
  m_remove->setEnabled(false);
  m_clear->setEnabled(!m_tabs.isEmpty() || m_differ);
}

void TabStopPage::ShowCurrent() {
  const int row = m_list->currentRow();
  m_remove->setEnabled(row >= 0);
  if (row < 0) return;
  m_position->SetLength(m_tabs[row].position);
  m_kind->setCurrentIndex(m_tabs[row].type);
}

// A stop at a place that has one already takes its place.
void TabStopPage::Add() {
  const double position = m_position->Length().value_or(0);
  const auto kind = static_cast<QTextOption::TabType>(m_kind->currentIndex());
  m_tabs.removeIf([position](const QTextOption::Tab& tab) { return SamePlace(tab, position); });
  m_tabs.append(QTextOption::Tab(position, kind, kind == QTextOption::DelimiterTab ? QLatin1Char('.') : QChar()));
  std::sort(m_tabs.begin(), m_tabs.end(), [](const auto& a, const auto& b) { return a.position < b.position; });
  m_differ = false;
  ShowTabs();
  m_position->setFocus();
  m_position->selectAll();
}

void TabStopPage::Remove() {
  const int row = m_list->currentRow();
  if (row < 0) return;
  m_tabs.removeAt(row);
  m_differ = false;
  ShowTabs();
  m_list->setCurrentRow(std::min<int>(row, m_list->count() - 1));
}

void TabStopPage::Clear() {
  m_tabs.clear();
  m_differ = false;
  ShowTabs();
}

}  // namespace snipdeck
