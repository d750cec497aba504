#include "richtext/rtf/rtf_writer_lists.h"

#include <QTextList>

#include "richtext/format_properties.h"
#include "richtext/format_values.h"
#include "richtext/list_labels.h"

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

void WriteByte(RtfOutput& out, int byte) {
  out.Raw("\\'" + QByteArray::number(byte & 0xFF, 16).rightJustified(2, '0'));
}

/// The label with its length in front, then the places of the numbers in it.
void WriteLabel(RtfOutput& out, const QList<LabelPiece>& pieces) {
  QList<int> places;
  int length = 0;
  for (const LabelPiece& piece : pieces) {
    if (piece.level >= 0) places.append(length + 1);
    length += piece.level >= 0 ? 1 : static_cast<int>(piece.text.size());
  }
  out.OpenGroup("leveltext");
  WriteByte(out, length);
  for (const LabelPiece& piece : pieces) {
    if (piece.level >= 0) WriteByte(out, piece.level);
    out.Text(piece.text);
  }
  out.Raw(";");
  out.CloseGroup();
  out.OpenGroup("levelnumbers");
  for (const int place : places) WriteByte(out, place);
  out.Raw(";");
  out.CloseGroup();
}

}  // namespace

void RtfLists::WriteParagraph(RtfOutput& out, const QTextBlock& block) {
  const ListPlace place = PlaceInList(block);
  if (place.id) {
    const QString own = block.blockFormat().stringProperty(kListLabel);
    const QTextListFormat format = block.textList()->format();
    List& list = ListFor({place.id, IsBullet(format) ? own : QString()});
    list.levels[static_cast<size_t>(place.level)].Take(format, own);
    out.Word("ls", list.number);
    out.Word("ilvl", place.level);
  }
  const QString label = ListLabel(block);
  if (label.isEmpty()) return;
  out.OpenGroup("listtext");
  out.Text(label);
  out.Word("tab");
  out.CloseGroup();
}

RtfLists::List& RtfLists::ListFor(const Key& key) {
  const auto known = m_lists.find(key);
  if (known != m_lists.end()) return known->second;
  List list{static_cast<int>(m_lists.size()) + 1, {}};
  for (Level& level : list.levels) level.format.setStyle(QTextListFormat::ListDecimal);
  return m_lists.emplace(key, list).first->second;
}

// A long list is several of Qt's, which begin where the one before them ends.
void RtfLists::Level::Take(const QTextListFormat& next, const QString& nextLabel) {
  if (start < 0) start = next.hasProperty(kListStart) ? next.intProperty(kListStart) : 1;
  format = next;
  if (!nextLabel.isEmpty()) label = nextLabel;
}

void RtfLists::WriteLevel(RtfOutput& out, const Level& level, int number) {
  constexpr int kStepTwips = 360;
  const QTextListFormat& format = level.format;
  out.OpenGroup("listlevel");
  out.Word("levelnfc", NumberCode(format.style()));
  out.Word("levelnfcn", NumberCode(format.style()));
  out.Word("leveljc", 0);
  out.Word("levelfollow", 0);
  out.Word("levelstartat", level.start < 0 ? 1 : level.start);
  WriteLabel(out, PiecesOfLabel(format, level.label, number));
  out.Word("fi", -kStepTwips);
  out.Word("li", kStepTwips * 2 * (number + 1));
  out.CloseGroup();
}

void RtfLists::WriteTables(RtfOutput& out) const {
  if (m_lists.empty()) return;
  out.OpenOptional("listtable");
  for (const auto& [key, list] : m_lists) {
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
  for (const auto& [key, list] : m_lists) {
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
