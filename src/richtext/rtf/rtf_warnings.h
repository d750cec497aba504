#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace snipdeck {

/// What was dropped or repaired: each kind once, with how often it happened.
class RtfWarnings {
 public:
  void Add(const QString& what) { ++m_counts[what]; }
  QStringList List() const {
    QStringList list;
    for (auto it = m_counts.begin(); it != m_counts.end(); ++it) {
      list.append(it.value() == 1 ? it.key() : it.key() + QStringLiteral(" (%1 times)").arg(it.value()));
    }
    return list;
  }

 private:
  QMap<QString, int> m_counts;
};

}  // namespace snipdeck
