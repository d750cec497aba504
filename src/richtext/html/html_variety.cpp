#include "richtext/html/html_variety.h"

namespace snipdeck {
namespace {

// A font may come back in every run; a place and a table's widths are looked up a few times only.
constexpr qsizetype kMaxFamilies = 300;
constexpr qsizetype kMaxPlaces = 2000;
constexpr int kMaxTablesWithWidths = 2000;

}  // namespace

void HtmlVariety::Limit(QString& attributes) {
  LimitKind(attributes, QLatin1String("font-family:"), u';', m_families, kMaxFamilies);
  LimitKind(attributes, QLatin1String(" name=\""), u'"', m_places, kMaxPlaces);
  if (m_tables > kMaxTablesWithWidths) LimitKind(attributes, QLatin1String(" width=\""), u'"', m_widths, 0);
}

void HtmlVariety::LimitKind(QString& attributes, QLatin1String begin, QChar end, QSet<QString>& known,
                            qsizetype limit) const {
  for (qsizetype at = attributes.indexOf(begin); at >= 0; at = attributes.indexOf(begin, at)) {
    const qsizetype stop = attributes.indexOf(end, at + begin.size());
    if (stop < 0) return;
    const QString name = attributes.mid(at, stop + 1 - at);
    if (known.size() < limit) known.insert(name);
    if (known.contains(name)) {
      at = stop;
    } else {
      attributes.remove(at, name.size());
    }
  }
}

}  // namespace snipdeck
