#include "richtext/docx/docx_styles.h"

#include <algorithm>

#include <QRegularExpression>

namespace snipdeck {
namespace {

constexpr qsizetype kMostStyles = 10'000;
constexpr int kDeepest = 32;
constexpr double kPlainPoints = 10;

struct SideName {
  const char* name;
  int side;
};
constexpr SideName kSideNames[] = {
    {"top", kCellTop},     {"left", kCellLeft},   {"start", kCellLeft},
    {"bottom", kCellBottom}, {"right", kCellRight}, {"end", kCellRight},
    {"insideH", DocxTableFormat::kInnerHorizontal}, {"insideV", DocxTableFormat::kInnerVertical},
};

template <typename Array>
void MergeSides(Array& sides, const Array& over) {
  for (std::size_t i = 0; i < sides.size(); ++i) {
    if (over[i]) sides[i] = over[i];
  }
}

Qt::Alignment PlaceFromWord(const QString& word) {
  if (word == QLatin1String("center")) return Qt::AlignHCenter;
  return word == QLatin1String("right") || word == QLatin1String("end") ? Qt::AlignRight : Qt::AlignLeft;
}

/// Headings are known by their names where the style does not say that they are.
void SetHeadingByName(DocxStyles::Style& style) {
  static const QRegularExpression kHeading(QStringLiteral("^heading ([1-6])$"),
                                           QRegularExpression::CaseInsensitiveOption);
  if (style.paragraph.hasProperty(QTextFormat::HeadingLevel)) return;
  const QRegularExpressionMatch match = kHeading.match(style.name);
  if (match.hasMatch()) style.paragraph.setHeadingLevel(match.captured(1).toInt());
}

}  // namespace

void ReadBorders(XmlPart& xml, std::array<std::optional<CellBorder>, kCellSides + 2>& borders) {
  while (xml.readNextStartElement()) {
    for (const SideName& side : kSideNames) {
      if (xml.Is(side.name)) borders[static_cast<std::size_t>(side.side)] = ReadBorder(xml);
    }
    xml.skipCurrentElement();
  }
}

void ReadPadding(XmlPart& xml, std::array<std::optional<int>, kCellSides>& padding) {
  while (xml.readNextStartElement()) {
    for (const SideName& side : kSideNames) {
      if (xml.Is(side.name) && side.side < kCellSides)
        padding[static_cast<std::size_t>(side.side)] = std::clamp(xml.Twips("w"), 0, 5000);
    }
    xml.skipCurrentElement();
  }
}

void DocxTableFormat::Merge(const DocxTableFormat& over) {
  MergeSides(borders, over.borders);
  MergeSides(padding, over.padding);
  if (over.indent) indent = over.indent;
  if (over.alignment) alignment = over.alignment;
}

void DocxTableFormat::ReadProperty(XmlPart& xml) {
  if (xml.Is("tblBorders")) return ReadBorders(xml, borders);
  if (xml.Is("tblCellMar")) return ReadPadding(xml, padding);
  if (xml.Is("tblInd")) indent = std::clamp(xml.Twips("w"), -30'000, 30'000);
  if (xml.Is("jc")) alignment = PlaceFromWord(xml.Value());
  xml.skipCurrentElement();
}

void DocxStyles::Read(const QByteArray& part, const DocxTheme& theme) {
  m_defaults.run.setFontPointSize(kPlainPoints);
  XmlPart xml(part);
  if (!xml.EnterRoot()) return;
  while (xml.readNextStartElement()) {
    if (xml.Is("docDefaults")) {
      ReadDefaults(xml, theme);
    } else if (xml.Is("style") && m_entries.size() < kMostStyles) {
      ReadStyle(xml, theme);
    } else {
      xml.skipCurrentElement();
    }
  }
  for (Entry& entry : m_entries) Resolve(entry, 0);
}

void DocxStyles::ReadDefaults(XmlPart& xml, const DocxTheme& theme) {
  while (xml.readNextStartElement()) {
    while (xml.readNextStartElement()) {
      if (xml.Is("rPr")) {
        m_defaults.run.merge(ReadRunProperties(xml, theme));
      } else if (xml.Is("pPr")) {
        m_defaults.paragraph =
            ReadParagraphProperties(xml, theme, [](XmlPart& section) { return section.skipCurrentElement(), false; })
                .format;
      } else {
        xml.skipCurrentElement();
      }
    }
  }
}

void DocxStyles::ReadStyle(XmlPart& xml, const DocxTheme& theme) {
  Entry entry;
  const QString id = xml.Value("styleId");
  entry.kind = xml.Value("type");
  if (!xml.Value("default").isEmpty() && xml.IsOn("default")) m_defaultIds.insert(entry.kind, id);
  while (xml.readNextStartElement()) {
    if (xml.Is("rPr")) {
      entry.own.run = ReadRunProperties(xml, theme);
    } else if (xml.Is("pPr")) {
      entry.own.paragraph =
          ReadParagraphProperties(xml, theme, [](XmlPart& section) { return section.skipCurrentElement(), false; })
              .format;
    } else if (xml.Is("tblPr")) {
      while (xml.readNextStartElement()) entry.own.table.ReadProperty(xml);
    } else {
      if (xml.Is("name")) entry.own.name = xml.Value().left(256);
      if (xml.Is("basedOn")) entry.base = xml.Value();
      xml.skipCurrentElement();
    }
  }
  if (entry.kind == QLatin1String("paragraph")) SetHeadingByName(entry.own);
  m_entries.insert(id, entry);
}

// A style that is its own ancestor ends where the chain is deepest.
void DocxStyles::Resolve(Entry& entry, int depth) {
  if (entry.resolved || depth > kDeepest) return;
  entry.resolved = true;
  const auto base = m_entries.find(entry.base);
  if (base == m_entries.end() || base->kind != entry.kind) return;
  Resolve(*base, depth + 1);
  Style whole = base->own;
  whole.name = entry.own.name;
  whole.run.merge(entry.own.run);
  whole.paragraph.merge(entry.own.paragraph);
  whole.table.Merge(entry.own.table);
  entry.own = whole;
}

const DocxStyles::Style& DocxStyles::Find(const QString& id, const QString& kind) const {
  const auto named = m_entries.constFind(id);
  if (!id.isEmpty() && named != m_entries.constEnd() && named->kind == kind) return named->own;
  const auto usual = m_entries.constFind(m_defaultIds.value(kind));
  return usual == m_entries.constEnd() ? m_none : usual->own;
}

const DocxStyles::Style& DocxStyles::Paragraph(const QString& id) const {
  return Find(id, QStringLiteral("paragraph"));
}

const DocxStyles::Style& DocxStyles::Table(const QString& id) const {
  return Find(id, QStringLiteral("table"));
}

const DocxStyles::Style* DocxStyles::Run(const QString& id) const {
  const auto named = m_entries.constFind(id);
  return named == m_entries.constEnd() || named->kind != QLatin1String("character") ? nullptr : &named->own;
}

int DocxStyles::ListOf(const Style& style) {
  return style.paragraph.hasProperty(kDocxList) ? style.paragraph.intProperty(kDocxList) : -1;
}

}  // namespace snipdeck
