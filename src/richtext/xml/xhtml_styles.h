#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace snipdeck {

/// The styles of a page that has them in style attributes, as classes: each different style of paragraphs is p1, p2, ...,
/// each of runs c1, c2, ... in the order in which the page comes to them.
class XhtmlStyles {
 public:
  /// The page with a class beside each style.
  QString Classify(const QString& html);
  /// The classes as a style sheet.
  QString Sheet() const;

 private:
  QString ClassOf(const QString& element, const QString& style);

  QHash<QString, QString> m_classes;
  QStringList m_rules;
  int m_paragraphs = 0;
  int m_runs = 0;
};

}  // namespace snipdeck
