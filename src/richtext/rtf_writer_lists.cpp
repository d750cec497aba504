#include "richtext/rtf_writer_lists.h"

#include <QTextList>

#include "richtext/format_properties.h"
#include "richtext/format_values.h"

namespace snipdeck {
namespace {

constexpr int kBulletCode = 23;

int NumberCode(QTextListFormat::Style style) {
  switch (style) {
    case QTextListFormat::ListDecimal:
      return 0;
    case QTextListFormat::ListUpperRoman:
      return 1;
    case QTextListFormat::ListLowerRoman:
      return 2;
    case QTextListFormat::ListUpperAlpha:
      return 3;
    case QTextListFormat::ListLowerAlpha:
      return 4;
    default:
      return kBulletCode;
  }
}

bool IsBullet(const QTextListFormat& format) {
  return NumberCode(format.style()) == kBulletCode;
}

/// Qt shows a full stop behind a number when the format does not say otherwise.
QString Suffix(const QTextListFormat& format) {
  return format.hasProperty(QTextFormat::ListNumberSuffix) ? format.numberSuffix().left(50) : QStringLiteral(".");
}

void WriteByte(RtfOutput& out, int byte) {
  out.Raw("\\'" + QByteArray::number(byte & 0xFF, 16).rightJustified(2, '0'));
}

/// The label with its length in front, and the place of the number in it.
void WriteLabel(RtfOutput& out, const QTextListFormat& format, int level) {
  const bool isBullet = IsBullet(format);
  const QString before = isBullet ? QString() : format.numberPrefix().left(50);
  const QString after = isBullet ? BulletOf(format.style()) : Suffix(format);
  out.OpenGroup("leveltext");
  WriteByte(out, static_cast<int>(before.size() + after.size()) + !isBullet);
  out.Text(before);
  if (!isBullet) WriteByte(out, level);
  out.Text(after);
  out.Raw(";");
  out.CloseGroup();
  out.OpenGroup("levelnumbers");
  if (!isBullet) WriteByte(out, static_cast<int>(before.size()) + 1);
  out.Raw(";");
  out.CloseGroup();
}

void WriteLevel(RtfOutput& out, const QTextListFormat& format, int level) {
  constexpr int kStepTwips = 360;
  out.OpenGroup("listlevel");
  out.Word("levelnfc", NumberCode(format.style()));
  out.Word("levelnfcn", NumberCode(format.style()));
  out.Word("leveljc", 0);
  out.Word("levelfollow", 0);
  out.Word("levelstartat", format.hasProperty(kListStart) ? format.intProperty(kListStart) : 1);
  WriteLabel(out, format, level);
  out.Word("fi", -kStepTwips);
  out.Word("li", kStepTwips * 2 * (level + 1));
  out.CloseGroup();
}

}  // namespace

void RtfLists::WriteParagraph(RtfOutput& out, const QTextBlock& block) {
  const ListPlace place = PlaceInList(block);
  QString label = block.blockFormat().stringProperty(kListLabel);
  if (place.id) {
    List& list = ListFor(place.id);
    list.levels[static_cast<size_t>(place.level)] = block.textList()->format();
    out.Word("ls", list.number);
    out.Word("ilvl", place.level);
    if (label.isEmpty()) label = ListLabel(block);
  }
  if (label.isEmpty()) return;
  out.OpenGroup("listtext");
  out.Text(label);
  out.Word("tab");
  out.CloseGroup();
}

RtfLists::List& RtfLists::ListFor(int id) {
  const auto known = m_lists.find(id);
  if (known != m_lists.end()) return known->second;
  List list{static_cast<int>(m_lists.size()) + 1, {}};
  for (QTextListFormat& level : list.levels) level.setStyle(QTextListFormat::ListDecimal);
  return m_lists.emplace(id, list).first->second;
}

void RtfLists::WriteTables(RtfOutput& out) const {
  if (m_lists.empty()) return;
  out.OpenOptional("listtable");
  for (const auto& [id, list] : m_lists) {
    out.OpenGroup("list");
    out.Word("listtemplateid", list.number);
    for (int level = 0; level < 9; ++level) WriteLevel(out, list.levels[static_cast<size_t>(level)], level);
    out.Raw("{\\listname ;}");
    out.Word("listid", list.number);
    out.CloseGroup();
    out.LineEnd();
  }
  out.CloseGroup();
  out.OpenOptional("listoverridetable");
  for (const auto& [id, list] : m_lists) {
    out.OpenGroup("listoverride");
    out.Word("listid", list.number);
    out.Word("listoverridecount", 0);
    out.Word("ls", list.number);
    out.CloseGroup();
  }
  out.CloseGroup();
  out.LineEnd();
}

}  // namespace snipdeck
