#include "dialogs/value_label.h"

#include <QLabel>

namespace snipdeck {

namespace {

constexpr int kMostShown = 64;  // characters of a value

QString Shortened(const QString& value) {
  if (value.size() <= kMostShown) return value;
  return value.left(kMostShown / 2) + QChar(0x2026) + value.right(kMostShown / 2 - 1);
}

}  // namespace

QLabel* MakeValueLabel(const QString& caption, const QString& value) {
  auto* label = new QLabel(Shortened(value));
  label->setAccessibleName(caption);
  label->setAccessibleDescription(value);
  label->setTextFormat(Qt::PlainText);
  if (label->text() != value) label->setToolTip(QStringLiteral("<qt>%1</qt>").arg(value.toHtmlEscaped()));
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

}  // namespace snipdeck
