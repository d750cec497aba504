#include "richtext/ooxml/xml_part.h"

#include <algorithm>
#include <cmath>

namespace snipdeck {
namespace {

constexpr double kMost = 1e6;

struct Unit {
  const char* name;
  double twips;
};
constexpr Unit kUnits[] = {{"pt", 20}, {"in", 1440}, {"cm", 1440 / 2.54}, {"mm", 144 / 2.54}, {"pc", 240}, {"pi", 240}};

bool IsRelationship(QStringView space) {
  return space.endsWith(QLatin1String("/relationships"));
}

int Clamped(double number) {
  return static_cast<int>(std::lround(std::clamp(number, -kMost, kMost)));
}

}  // namespace

bool XmlPart::EnterRoot() {
  while (!atEnd()) {
    const TokenType token = readNext();
    if (token == StartElement) return true;
    if (token == DTD) raiseError(QStringLiteral("document type"));
  }
  return false;
}

QString XmlPart::Value(const char* attribute) const {
  for (const QXmlStreamAttribute& candidate : attributes()) {
    if (candidate.name() == QLatin1String(attribute) && !IsRelationship(candidate.namespaceUri())) {
      return candidate.value().toString();
    }
  }
  return {};
}

QString XmlPart::RelationshipId(const char* attribute) const {
  for (const QXmlStreamAttribute& candidate : attributes()) {
    if (candidate.name() == QLatin1String(attribute) && IsRelationship(candidate.namespaceUri())) {
      return candidate.value().toString();
    }
  }
  return {};
}

int XmlPart::Number(const char* attribute, int missing) const {
  bool isNumber = false;
  const double number = Value(attribute).toDouble(&isNumber);
  return isNumber && std::isfinite(number) ? Clamped(number) : missing;
}

int XmlPart::Twips(const char* attribute, int missing) const {
  const QString value = Value(attribute);
  for (const Unit& unit : kUnits) {
    if (!value.endsWith(QLatin1String(unit.name))) continue;
    bool isNumber = false;
    const double number = value.chopped(2).toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? Clamped(number * unit.twips) : missing;
  }
  return Number(attribute, missing);
}

bool XmlPart::IsOn(const char* attribute) const {
  const QString value = Value(attribute);
  return value != QLatin1String("0") && value != QLatin1String("false") && value != QLatin1String("off") &&
         value != QLatin1String("none");
}

}  // namespace snipdeck
