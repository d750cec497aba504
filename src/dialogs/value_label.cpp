#include "dialogs/value_label.h"

#include <QEvent>
#include <QLabel>

namespace snipdeck {

namespace {

constexpr int kMostWidth = 560;  // pixels of a value

/// Shows of a long value as much as fits, whatever its font.
class ValueLabel : public QLabel {
 public:
  explicit ValueLabel(const QString& value) : m_value(value) { ShowValue(); }

 protected:
  void changeEvent(QEvent* event) override {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) ShowValue();
  }

 private:
  void ShowValue() {
    setText(fontMetrics().elidedText(m_value, Qt::ElideMiddle, kMostWidth));
    setToolTip(text() == m_value ? QString() : QStringLiteral("<qt>%1</qt>").arg(m_value.toHtmlEscaped()));
  }

  QString m_value;
};

}  // namespace

QLabel* MakeValueLabel(const QString& caption, const QString& value) {
  auto* label = new ValueLabel(value);
  label->setAccessibleName(caption);
  label->setAccessibleDescription(value);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

}  // namespace snipdeck
