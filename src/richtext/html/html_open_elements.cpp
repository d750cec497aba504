#include "richtext/html/html_open_elements.h"

#include <algorithm>

#include <QSet>

#include "richtext/html/html_elements.h"

namespace snipdeck {

bool IsCell(const QString& name) {
  return name == QLatin1String("td") || name == QLatin1String("th");
}

bool IsPartOfTable(const QString& name) {
  static const QSet<QString> kNames = {QStringLiteral("table"), QStringLiteral("tr"),     QStringLiteral("td"),
                                       QStringLiteral("th"),    QStringLiteral("thead"),  QStringLiteral("tbody"),
                                       QStringLiteral("tfoot"), QStringLiteral("caption")};
  return kNames.contains(name);
}

bool IsInRow(const OpenElements& open) {
  for (qsizetype i = open.size() - 1; i >= 0; --i) {
    if (open[i].name == QLatin1String("tr")) return true;
    if (open[i].name == QLatin1String("table")) return false;
  }
  return false;
}

bool IsInList(const OpenElements& open) {
  const QLatin1String tag(open.isEmpty() ? "" : ElementNamed(open.last().name).as);
  return tag == QLatin1String("ol") || tag == QLatin1String("ul");
}

bool IsBetweenCells(const OpenElements& open) {
  if (open.isEmpty()) return false;
  const QString& name = open.last().name;
  return open.last().isStray || (IsPartOfTable(name) && !IsCell(name) && name != QLatin1String("caption"));
}

qsizetype StayOpenBefore(const QString& name, const OpenElements& open) {
  // Parts of a table end the ones before them, whatever those left open; other elements end what they touch.
  const bool isOfTable = EndsByItself(QStringLiteral("td"), name);
  qsizetype keep = open.size();
  while (IsPartOfTable(name) && keep > 0 && open[keep - 1].isStray) --keep;
  for (qsizetype i = keep - 1; i >= 0 && open[i].name != QLatin1String("table"); --i) {
    if (!open[i].isBlock) continue;
    if (EndsByItself(open[i].name, name)) {
      keep = i;
    } else if (!isOfTable) {
      break;
    }
  }
  if (name != QLatin1String("table") || !IsBetweenCells(open)) return keep;
  while (keep > 0 && open[keep - 1].name != QLatin1String("table")) --keep;
  return std::max<qsizetype>(keep - 1, 0);
}

qsizetype StayOpenBehind(const QString& name, const OpenElements& open) {
  const bool isOfTable =
      name == QLatin1String("table") || name == QLatin1String("tr") || EndsByItself(name, QStringLiteral("tr"));
  for (qsizetype i = open.size() - 1; i >= 0; --i) {
    if (open[i].name == name) return i;
    if (open[i].name == QLatin1String("table") || (!isOfTable && IsFence(open[i].name))) break;
  }
  return open.size();
}

}  // namespace snipdeck
