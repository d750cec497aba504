#include "clipformats/format_list.h"

#include <algorithm>

#include <QEvent>
#include <QFontDatabase>
#include <QHeaderView>
#include <QLocale>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "clipformats/format_content.h"

namespace snipdeck {

namespace {

constexpr qint64 kTimeForAll = 5000;  // milliseconds

constexpr int kLeastLines = 2;
// Of the height, list to contents.
const QList<int> kShares = {300, 200};

enum Column { kNumber, kName, kSize, kTime };

}  // namespace

FormatList::FormatList(ClipboardFunctions& functions, std::function<cCustomClipboard&()> clipboard, QWidget* parent)
    : QWidget(parent),
      m_functions(functions),
      m_clipboard(std::move(clipboard)),
      m_list(new QTreeWidget(this)),
      m_contents(new QPlainTextEdit(this)) {
  setObjectName(QStringLiteral("fraFormats"));
  m_list->setObjectName(QStringLiteral("lstFormats"));
  m_list->setAccessibleName(tr("Formats of the clipboard"));
  m_list->setHeaderLabels({tr("Number"), tr("Name"), tr("Size"), tr("Time")});
  m_list->setRootIsDecorated(false);
  m_list->setUniformRowHeights(true);
  m_list->header()->setSectionResizeMode(kNumber, QHeaderView::ResizeToContents);
  m_list->header()->setStretchLastSection(false);
  m_list->header()->setSectionResizeMode(kName, QHeaderView::Stretch);
  m_list->header()->setSectionResizeMode(kSize, QHeaderView::ResizeToContents);
  m_list->setMinimumHeight(m_list->header()->sizeHint().height() + 2 * m_list->fontMetrics().height());
  m_list->viewport()->installEventFilter(this);
  m_contents->setObjectName(QStringLiteral("txtFormat"));
  m_contents->setAccessibleName(tr("Contents of the chosen format"));
  m_contents->setReadOnly(true);
  m_contents->setTabChangesFocus(true);
  m_contents->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  m_contents->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  m_contents->setMinimumHeight(kLeastLines * m_contents->fontMetrics().lineSpacing());
  auto* halves = new QSplitter(Qt::Vertical, this);
  halves->addWidget(m_list);
  halves->addWidget(m_contents);
  halves->setSizes(kShares);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(halves);
  m_timer.setSingleShot(true);
  connect(&m_timer, &QTimer::timeout, this, &FormatList::ReadNext);
  connect(m_list, &QTreeWidget::currentItemChanged, this, &FormatList::ShowChosen);
}

void FormatList::Open(WindowHandle window) {
  if (m_isReading) return;
  m_window = window;
  m_next = 0;
  m_spent = 0;
  Fill();
  m_list->setFocus();
  m_timer.start(0);
}

void FormatList::Fill() {
  const QScopedValueRollback reading(m_isReading, true);
  m_formats.clear();
  m_list->clear();
  cCustomClipboard& clipboard = m_clipboard();
  const std::int32_t count = clipboard.GetCurrentFormats(m_window);
  for (std::int32_t i = 1; i <= count; ++i) {
    m_formats.push_back({.number = clipboard.GetCurrentFormatID(i), .name = clipboard.GetCurrentFormatName(i)});
    auto* row = new QTreeWidgetItem(m_list, {QString::number(m_formats.back().number), m_formats.back().name});
    row->setTextAlignment(kNumber, Qt::AlignRight | Qt::AlignVCenter);
    row->setTextAlignment(kSize, Qt::AlignRight | Qt::AlignVCenter);
  }
  m_contents->setPlainText(count == 0 ? WhyNone() : QString());
  FitColumns();
}

QString FormatList::WhyNone() const {
  const QString failure = m_functions.LastFailure();
  if (failure.isEmpty()) return tr("The clipboard holds nothing that can be listed.");
  return tr("The formats of the clipboard cannot be listed: %1.").arg(failure);
}

// Names get what the others leave, and at least half of it where they stand beside the reason of a failure.
void FormatList::FitColumns() {
  // Public in the base only.
  const QAbstractItemView& view = *m_list;
  const auto needed = [this, &view](Column column) {
    return std::max(m_list->header()->sectionSizeHint(column), view.sizeHintForColumn(column));
  };
  const int rest = m_list->viewport()->width() - needed(kNumber) - needed(kSize);
  m_list->setColumnWidth(kTime, std::min(needed(kTime), rest / 2));
}

// Each in a turn of its own, so that the window stays usable in between.
void FormatList::ReadNext() {
  while (m_next < m_formats.size() && m_formats[m_next].isRead) ++m_next;
  if (m_next >= m_formats.size() || m_isReading) return;
  if (m_spent >= kTimeForAll) {
    for (std::size_t i = m_next; i < m_formats.size(); ++i) ShowRow(i);
    return;
  }
  Read(m_next);
  m_timer.start(0);
}

void FormatList::Read(std::size_t index) {
  const QScopedValueRollback reading(m_isReading, true);
  ReadFormat(m_formats[index], m_clipboard(), m_functions, m_window);
  m_spent += m_formats[index].duration;
  ShowRow(index);
}

void FormatList::ShowRow(std::size_t index) {
  const FormatReading& format = m_formats[index];
  QTreeWidgetItem& row = *m_list->topLevelItem(static_cast<int>(index));
  const QString notYet = format.failure.isEmpty() ? tr("not read yet: choose it to read it") : format.failure;
  row.setToolTip(kTime, format.failure);
  if (!format.isRead) return row.setText(kTime, notYet);
  row.setText(kSize, format.failure.isEmpty() ? QLocale().toString(format.size) : QString());
  row.setText(kTime, format.failure.isEmpty() ? tr("%1 ms").arg(format.duration) : format.failure);
  FitColumns();
  if (m_list->currentItem() == &row) ShowChosen();
}

void FormatList::ShowChosen() {
  const int chosen = m_list->indexOfTopLevelItem(m_list->currentItem());
  if (chosen < 0) return;
  const auto index = static_cast<std::size_t>(chosen);
  if (!m_formats[index].isRead) {
    m_contents->clear();
    // ShowRow() comes back here when it has been read.
    if (!m_isReading) Read(index);
    return;
  }
  const FormatReading& format = m_formats[index];
  if (!format.failure.isEmpty()) return m_contents->setPlainText(format.failure);
  const FormatDescription described = DescribeBytes(format.number, format.head, format.head.size() == format.size);
  m_contents->setLineWrapMode(described.isText ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
  m_contents->setPlainText(described.words);
}

bool FormatList::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_list->viewport() && event->type() == QEvent::Resize) FitColumns();
  return QWidget::eventFilter(watched, event);
}

void FormatList::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  m_timer.stop();
}

}  // namespace snipdeck
