#pragma once

#include <QWidget>

class QLineEdit;
class QListWidget;

namespace snipdeck {

/// A field with a list of proposals below it: a click in the list fills the field, and typing goes along in the list.
/// Up and Down in the field walk through the list.
class PickList : public QWidget {
  Q_OBJECT

 public:
  PickList(const QStringList& proposals, const QString& accessibleName, QWidget* parent = nullptr);

  QString Value() const;
  /// A value that is not proposed stands in the field alone.
  void SetValue(const QString& value);
  QLineEdit& Field() { return *m_field; }

 signals:
  void Changed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FollowField();

  QLineEdit* m_field;
  QListWidget* m_list;
};

}  // namespace snipdeck
