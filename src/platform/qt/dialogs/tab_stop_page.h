#pragma once

#include <optional>

#include <QTextOption>
#include <QWidget>

class QComboBox;
class QListWidget;
class QPushButton;

namespace snipdeck {

class LengthBox;

/// A list of tab stops that the user adds to and removes from.
class TabStopPage : public QWidget {
  Q_OBJECT

 public:
  explicit TabStopPage(QWidget* parent = nullptr);

  /// Nothing: the paragraphs differ, and keep what they have unless the user changes the list.
  void SetTabs(const std::optional<QList<QTextOption::Tab>>& tabs);
  /// In their order.
  std::optional<QList<QTextOption::Tab>> Tabs() const;

 private:
  void ShowTabs();
  void ShowCurrent();
  void Add();
  void Remove();
  void Clear();

  LengthBox* m_position;
  QComboBox* m_kind;
  QListWidget* m_list;
  QPushButton* m_add;
  QPushButton* m_remove;
  QPushButton* m_clear;
  QList<QTextOption::Tab> m_tabs;
  bool m_differ = false;
};

}  // namespace snipdeck
