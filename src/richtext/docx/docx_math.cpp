// What formulas hold, for DocxBody: they show in one line, with the signs that their layout stands for.

#include "richtext/docx/docx_body.h"

namespace snipdeck {
namespace {

/// What the properties of a formula's part say; a null string where they say nothing.
struct MathProperties {
  QString begin;
  QString end;
  QString separator;
  QString character;
  QString type;
};

MathProperties ReadMathProperties(XmlPart& xml) {
  MathProperties properties;
  while (xml.readNextStartElement()) {
    const QString value = xml.Value().left(4);
    if (xml.Is("begChr")) properties.begin = value.isNull() ? QString(QLatin1String("")) : value;
    if (xml.Is("endChr")) properties.end = value.isNull() ? QString(QLatin1String("")) : value;
    if (xml.Is("sepChr")) properties.separator = value;
    if (xml.Is("chr")) properties.character = value;
    if (xml.Is("type")) properties.type = xml.Value();
    xml.skipCurrentElement();
  }
  return properties;
}

QString Or(const QString& said, const QString& usual) {
  return said.isNull() ? usual : said;
}

bool IsProperties(const XmlPart& xml) {
  return xml.name().endsWith(QLatin1String("Pr"));
}

}  // namespace

void DocxBody::Math(XmlPart& xml) {
  if (xml.Is("d")) return MathBrackets(xml);
  if (xml.Is("nary") || xml.Is("acc")) return MathSign(xml, xml.Is("nary"));
  if (xml.Is("f")) return MathFraction(xml);
  if (xml.Is("m")) return MathList(xml, u"; ");
  if (xml.Is("mr")) return MathList(xml, u", ");
  if (xml.Is("eqArr")) {
    const bool outer = std::exchange(m_mathAligns, true);
    MathList(xml, u"\u2028");
    m_mathAligns = outer;
    return;
  }
  if (xml.Is("sup") || xml.Is("deg")) return MathShifted(xml, QTextCharFormat::AlignSuperScript);
  if (xml.Is("sub") || xml.Is("lim")) return MathShifted(xml, QTextCharFormat::AlignSubScript);
  if (IsProperties(xml)) return xml.skipCurrentElement();
  if (xml.Is("rad")) return MathRoot(xml);
  Inline(xml);
}

void DocxBody::MathBrackets(XmlPart& xml) {
  MathProperties properties;
  int count = 0;
  while (xml.readNextStartElement()) {
    if (IsProperties(xml)) {
      properties = ReadMathProperties(xml);
      continue;
    }
    AddText(count++ == 0 ? Or(properties.begin, QStringLiteral("(")) : Or(properties.separator, QStringLiteral("|")));
    Deeper(xml, &DocxBody::Inline);
  }
  if (count > 0) AddText(Or(properties.end, QStringLiteral(")")));
}

/// An operator such as a sum stands in front of its limits, an accent behind its letter.
void DocxBody::MathSign(XmlPart& xml, bool isOperator) {
  QString sign = isOperator ? QStringLiteral("\u222B") : QStringLiteral("\u0302");
  bool isFirst = true;
  while (xml.readNextStartElement()) {
    if (IsProperties(xml)) {
      sign = Or(ReadMathProperties(xml).character, sign);
      continue;
    }
    if (isOperator && std::exchange(isFirst, false)) AddText(sign);
    Deeper(xml, &DocxBody::InlineElement);
  }
  if (!isOperator) AddText(sign);
}

void DocxBody::MathFraction(XmlPart& xml) {
  bool hasBar = true;
  while (xml.readNextStartElement()) {
    if (IsProperties(xml)) {
      hasBar = ReadMathProperties(xml).type != QLatin1String("noBar");
      continue;
    }
    if (xml.Is("den")) AddText(hasBar ? u"/" : u" ");
    Deeper(xml, &DocxBody::Inline);
  }
}

void DocxBody::MathRoot(XmlPart& xml) {
  while (xml.readNextStartElement()) {
    if (xml.Is("e")) AddText(u"\u221A");
    Deeper(xml, &DocxBody::InlineElement);
  }
}

void DocxBody::MathList(XmlPart& xml, QStringView separator) {
  bool isFirst = true;
  while (xml.readNextStartElement()) {
    if (!IsProperties(xml) && !std::exchange(isFirst, false)) AddText(separator);
    Deeper(xml, &DocxBody::InlineElement);
  }
}

void DocxBody::MathShifted(XmlPart& xml, QTextCharFormat::VerticalAlignment alignment) {
  const auto outer = std::exchange(m_mathShift, alignment);
  Inline(xml);
  m_mathShift = outer;
}

}  // namespace snipdeck
