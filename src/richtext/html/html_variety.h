#pragma once

#include <QSet>
#include <QString>

namespace snipdeck {

/// Keeps the variety of a page within what Qt's importer can take. It finds fonts, named places and column widths of tables
/// among those it met before by comparing one after the other; see format_spread.h.
class HtmlVariety {
 public:
  void StartTable() { ++m_tables; }
  /// Takes out of an element's attributes what would be one too many of its kind.
  void Limit(QString& attributes);

 private:
  void LimitKind(QString& attributes, QLatin1String begin, QChar end, QSet<QString>& known, qsizetype limit) const;

  QSet<QString> m_families;
  QSet<QString> m_places;
  QSet<QString> m_widths;
  int m_tables = 0;
};

}  // namespace snipdeck
