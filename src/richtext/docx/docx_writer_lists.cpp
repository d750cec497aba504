#include "richtext/docx/docx_writer_lists.h"

#include <QTextList>

#include "richtext/docx/docx_values.h"
#include "richtext/docx/docx_writer_properties.h"
#include "richtext/format_properties.h"
#include "richtext/format_values.h"
#include "richtext/list_labels.h"

namespace snipdeck {

void DocxWriterLists::WriteParagraph(XmlOut& out, const QTextBlock& block) {
  const ListPlace place = PlaceInList(block);
  if (!place.id) return;
  const QTextListFormat format = block.textList()->format();
  const QString label = block.blockFormat().stringProperty(kListLabel);
  List& list = m_lists[{place.id, IsBullet(format) ? label : QString()}];
  if (list.number == 0) {
    list.number = static_cast<int>(m_lists.size());
    for (Level& level : list.levels) level.format.setStyle(QTextListFormat::ListDecimal);
  }
  Level& level = list.levels[static_cast<std::size_t>(place.level)];
  if (level.start < 0) level.start = format.hasProperty(kListStart) ? format.intProperty(kListStart) : 1;
  level.format = format;
  if (!label.isEmpty()) level.label = label;
  out.Start("w:numPr");
  out.Value("w:ilvl", place.level);
  out.Value("w:numId", list.number);
  out.End();
}

void DocxWriterLists::WriteLevel(XmlOut& out, const Level& level, int number) {
  constexpr int kStepTwips = 360;
  QString text;
  for (const LabelPiece& piece : PiecesOfLabel(level.format, level.label, number)) {
    text += piece.level >= 0 ? QLatin1Char('%') + QString::number(piece.level + 1) : piece.text;
  }
  out.Start("w:lvl");
  out.Attribute("w:ilvl", number);
  out.Value("w:start", level.start < 0 ? 1 : level.start);
  out.Value("w:numFmt", WordForNumberFormat(level.format.style()));
  out.Value("w:lvlText", text);
  out.Value("w:lvlJc", "left");
  out.Start("w:pPr");
  out.Empty("w:ind");
  out.Attribute("w:left", kStepTwips * 2 * (number + 1));
  out.Attribute("w:hanging", kStepTwips);
  out.End();
  out.End();
}

QByteArray DocxWriterLists::Part() const {
  XmlOut out;
  out.Start("w:numbering");
  out.Attribute("xmlns:w", QString::fromLatin1(kWordNamespace));
  for (const auto& [key, list] : m_lists) {
    out.Start("w:abstractNum");
    out.Attribute("w:abstractNumId", list.number);
    out.Value("w:multiLevelType", "multilevel");
    for (int i = 0; i < 9; ++i) WriteLevel(out, list.levels[static_cast<std::size_t>(i)], i);
    out.End();
  }
  for (const auto& [key, list] : m_lists) {
    out.Start("w:num");
    out.Attribute("w:numId", list.number);
    out.Value("w:abstractNumId", list.number);
    out.End();
  }
  out.End();
  return out.Take();
}

}  // namespace snipdeck
