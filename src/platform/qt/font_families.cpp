#include "platform/qt/font_families.h"

#include <QFontDatabase>

namespace snipdeck {

// Where several foundries make a family, the system lists it once for each, with the maker in brackets.
QStringList FontFamilyNames() {
  QStringList names;
  for (const QString& listed : QFontDatabase::families()) {
    const QString name = listed.section(QStringLiteral(" ["), 0, 0);
    if (!name.startsWith(u'[') && !names.contains(name)) names << name;
  }
  return names;
}

}  // namespace snipdeck
