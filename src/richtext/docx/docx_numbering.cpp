#include "richtext/docx/docx_numbering.h"

#include <algorithm>

#include "richtext/docx/docx_properties.h"
#include "richtext/docx/docx_values.h"

namespace snipdeck {
namespace {

constexpr qsizetype kMostLists = 20'000;
constexpr qsizetype kLongestLabel = 60;

/// The label's text with places for numbers, as the counting of lists knows it: its length, then characters, of which the
/// numbers 0 to 8 stand for those of the levels.
QString LabelText(const QString& text) {
  QString label;
  const qsizetype end = std::min(text.size(), kLongestLabel);
  for (qsizetype i = 0; i < end; ++i) {
    const QChar next = i + 1 < end ? text[i + 1] : QChar();
    if (text[i] == u'%' && next >= u'1' && next <= u'9') {
      label += QChar(next.unicode() - u'1');
      ++i;
    } else if (text[i].unicode() >= 0x20) {
      label += text[i];
    }
  }
  return QChar(static_cast<char16_t>(label.size())) + label;
}

int LevelNumber(const XmlPart& xml) {
  return std::clamp(xml.Number("ilvl"), 0, kListLevels - 1);
}

}  // namespace

void DocxNumbering::Read(const QByteArray& part) {
  XmlPart xml(part);
  if (!xml.EnterRoot()) return;
  while (xml.readNextStartElement()) {
    if (xml.Is("abstractNum") && m_abstract.size() < kMostLists) {
      ReadAbstract(xml);
    } else if (xml.Is("num") && m_lists.size() < kMostLists) {
      ReadNumber(xml);
    } else {
      xml.skipCurrentElement();
    }
  }
}

void DocxNumbering::ReadAbstract(XmlPart& xml) {
  Levels& levels = m_abstract[xml.Number("abstractNumId")];
  while (xml.readNextStartElement()) {
    if (xml.Is("lvl")) {
      ReadLevel(xml, levels[static_cast<std::size_t>(LevelNumber(xml))]);
    } else {
      xml.skipCurrentElement();
    }
  }
}

void DocxNumbering::ReadLevel(XmlPart& xml, Level& level) {
  level = Level();
  level.layout.start = 0;
  while (xml.readNextStartElement()) {
    if (xml.Is("pPr")) {
      level.indents = ReadParagraphProperties(xml, DocxTheme(), [](XmlPart& section) {
                        return section.skipCurrentElement(), false;
                      }).format;
      continue;
    }
    if (xml.Is("start")) level.layout.start = std::clamp(xml.Number(), 0, 100'000);
    if (xml.Is("numFmt")) level.layout.format = NumberFormatFromWord(xml.Value());
    if (xml.Is("lvlText")) level.layout.text = LabelText(xml.Value());
    if (xml.Is("pStyle")) level.style = xml.Value();
    xml.skipCurrentElement();
  }
}

void DocxNumbering::ReadNumber(XmlPart& xml) {
  const int number = xml.Number("numId");
  List list;
  while (xml.readNextStartElement()) {
    if (xml.Is("lvlOverride")) {
      ReadOverride(xml, list);
      continue;
    }
    if (xml.Is("abstractNumId")) {
      list.list.id = xml.Number() + 1;
      list.levels = m_abstract.value(xml.Number());
    }
    xml.skipCurrentElement();
  }
  list.list.levelCount = kListLevels;
  for (std::size_t i = 0; i < list.levels.size(); ++i) {
    list.list.levels[i] = list.levels[i].layout;
    list.list.levels[i].leftIndent = static_cast<int>(list.levels[i].indents.leftMargin() * 15);
  }
  m_lists.insert(number, list);
}

void DocxNumbering::ReadOverride(XmlPart& xml, List& list) {
  Level& level = list.levels[static_cast<std::size_t>(LevelNumber(xml))];
  while (xml.readNextStartElement()) {
    if (xml.Is("lvl")) {
      ReadLevel(xml, level);
      continue;
    }
    if (xml.Is("startOverride")) {
      level.layout.start = std::clamp(xml.Number(), 0, 100'000);
      list.restarts = true;
    }
    xml.skipCurrentElement();
  }
}

const RtfList* DocxNumbering::Find(int number) const {
  const auto found = m_lists.constFind(number);
  return found == m_lists.constEnd() ? nullptr : &found->list;
}

bool DocxNumbering::Restarts(int number) const {
  const auto found = m_lists.constFind(number);
  return found != m_lists.constEnd() && found->restarts;
}

int DocxNumbering::LevelOfStyle(int number, const QString& styleId, int missing) const {
  const auto found = m_lists.constFind(number);
  if (found == m_lists.constEnd() || styleId.isEmpty()) return missing;
  const auto level = std::find_if(found->levels.begin(), found->levels.end(),
                                  [&](const Level& candidate) { return candidate.style == styleId; });
  return level == found->levels.end() ? missing : static_cast<int>(level - found->levels.begin());
}

QTextBlockFormat DocxNumbering::Indents(int number, int level) const {
  const auto found = m_lists.constFind(number);
  if (found == m_lists.constEnd() || level < 0 || level >= kListLevels) return {};
  QTextBlockFormat indents;
  const QTextBlockFormat& all = found->levels[static_cast<std::size_t>(level)].indents;
  if (all.hasProperty(QTextFormat::BlockLeftMargin)) indents.setLeftMargin(all.leftMargin());
  if (all.hasProperty(QTextFormat::TextIndent)) indents.setTextIndent(all.textIndent());
  return indents;
}

}  // namespace snipdeck
