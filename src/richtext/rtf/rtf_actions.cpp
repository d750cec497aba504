#include "richtext/rtf/rtf_actions.h"

#include "richtext/paragraph_borders.h"
#include "richtext/rtf/rtf_parser.h"

namespace snipdeck::rtf_actions {
namespace {

constexpr int kAutomaticSpace = 280;  // 14 points, as a browser's paragraph.
constexpr qsizetype kMaxTabs = 100;
constexpr qsizetype kMaxBorderWords = 400;

int Clamped(int twips) {
  return std::clamp(twips, -kMaxTwips, kMaxTwips);
}

void AddBorderWords(RtfParser& parser, const QByteArray& words) {
  QByteArray& borders = parser.State().paragraph.borders;
  if (borders.size() < kMaxBorderWords) borders += words;
}

QByteArray Word(const char* word, int value) {
  return QByteArray(word) + QByteArray::number(value);
}

}  // namespace

// Resets characters only; what \pard resets is the paragraph's.
void ResetCharacter(RtfParser& parser, int) {
  CharacterState& character = parser.State().character;
  const int link = character.link;
  const bool rightToLeft = character.rightToLeft;
  character = {};
  character.link = link;
  character.rightToLeft = rightToLeft;
}

void ResetParagraph(RtfParser& parser, int) {
  GroupState& state = parser.State();
  state.paragraph = {};
  state.inTable = false;
  state.tableLevel = 0;
  parser.Rows(1).SelectNoBorder();
}

void ParagraphStyle(RtfParser& parser, int number) {
  parser.Styles().ApplyParagraphStyle(number, parser.State());
}
void CharacterStyle(RtfParser& parser, int number) {
  parser.Styles().ApplyCharacterStyle(number, parser.State());
}

void AssociatedFont(RtfParser& parser, int number) {
  if (parser.State().character.rightToLeft) parser.State().character.associatedFont = std::clamp(number, 0, 1'000'000);
}

void Lower(RtfParser& parser, int halfPoints) {
  parser.State().character.raise = static_cast<std::int16_t>(-std::clamp(halfPoints, -3000, 3000));
}

void LeadingIndent(RtfParser& parser, int twips) {
  ParagraphState& paragraph = parser.State().paragraph;
  (paragraph.rightToLeft ? paragraph.rightIndent : paragraph.leftIndent) = Clamped(twips);
}

void TrailingIndent(RtfParser& parser, int twips) {
  ParagraphState& paragraph = parser.State().paragraph;
  (paragraph.rightToLeft ? paragraph.leftIndent : paragraph.rightIndent) = Clamped(twips);
}

void AutomaticSpaceBefore(RtfParser& parser, int on) {
  if (on) parser.State().paragraph.spaceBefore = kAutomaticSpace;
}

void AutomaticSpaceAfter(RtfParser& parser, int on) {
  if (on) parser.State().paragraph.spaceAfter = kAutomaticSpace;
}

void TabStop(RtfParser& parser, int twips) {
  ParagraphState& paragraph = parser.State().paragraph;
  const RtfTab tab{Clamped(twips), paragraph.pendingTab, paragraph.pendingLeader};
  paragraph.pendingTab = RtfTabKind::Left;
  paragraph.pendingLeader = 0;
  if (paragraph.tabs.size() >= kMaxTabs) return;
  auto place = std::lower_bound(paragraph.tabs.begin(), paragraph.tabs.end(), tab,
                                [](const RtfTab& a, const RtfTab& b) { return a.position < b.position; });
  if (place != paragraph.tabs.end() && place->position == tab.position) {
    *place = tab;
  } else {
    paragraph.tabs.insert(place, tab);
  }
}

void BarTab(RtfParser& parser, int) {
  parser.State().paragraph.pendingTab = RtfTabKind::Left;
  parser.State().paragraph.pendingLeader = 0;
}

void Outline(RtfParser& parser, int level) {
  parser.State().paragraph.outlineLevel = static_cast<std::int8_t>(level >= 0 && level < 9 ? level + 1 : 0);
}

void TableLevel(RtfParser& parser, int level) {
  GroupState& state = parser.State();
  state.tableLevel = std::clamp(level, 0, 32);
  if (level > 0) state.inTable = true;
}

void EndParagraph(RtfParser& parser, int) {
  if (RtfBody* body = parser.Body()) body->EndParagraph();
}

void EndSection(RtfParser& parser, int) {
  ++parser.Page().sectionsEnded;
  if (RtfBody* body = parser.Body()) body->EndSection();
}

void ContinuePage(RtfParser& parser, int) {
  if (RtfBody* body = parser.Body()) body->ContinuePage();
}

void BreakPage(RtfParser& parser, int) {
  if (RtfBody* body = parser.Body()) body->BreakPage();
}

void EndCell(RtfParser& parser, int) {
  if (RtfBody* body = parser.Body()) body->EndCell(1);
}

void EndNestedCell(RtfParser& parser, int) {
  if (RtfBody* body = parser.Body()) body->EndCell(std::max(2, parser.State().tableLevel));
}

void EndRow(RtfParser& parser, int) {
  if (RtfBody* body = parser.Body()) body->EndRow(1);
}

void EndNestedRow(RtfParser& parser, int) {
  if (RtfBody* body = parser.Body()) body->EndRow(std::max(2, parser.State().tableLevel));
}

void NestedRowWords(RtfParser& parser, int) {
  parser.State().nestedRow = true;
}

// The mark in the text comes before the group that says which kind of note it is.
void NoteNumber(RtfParser& parser, int) {
  const RtfNotes& notes = parser.Notes();
  const bool inside = parser.State().insideNote;
  parser.Emit(inside ? notes.MarkInside() : notes.MarkOfNext(parser.EndnoteComesNext()));
}

void Endnote(RtfParser& parser, int) {
  if (parser.State().insideNote) parser.Notes().BecomeEndnote();
}

void EndnoteNumbers(RtfParser& parser, int format) {
  parser.Notes().SetEndnoteFormat(format);
}

void SectionNumber(RtfParser& parser, int) {
  parser.Emit(QString::number(parser.Page().sectionsEnded + 1));
}

void BorderOfParagraph(RtfParser& parser, int side) {
  static constexpr const char* kSides[] = {"\\brdrt", "\\brdrl", "\\brdrb", "\\brdrr", "\\box", "\\brdrbtw"};
  parser.Rows(1).SelectNoBorder();
  parser.State().border = RtfBorderTarget::Paragraph;
  AddBorderWords(parser, kSides[std::clamp(side, 0, 5)]);
}

void BorderStyle(RtfParser& parser, int qtStyle) {
  const auto style = static_cast<QTextFrameFormat::BorderStyle>(qtStyle);
  if (parser.State().border == RtfBorderTarget::Paragraph)
    return AddBorderWords(parser, QByteArray("\\") + BorderWord(style));
  if (parser.State().border == RtfBorderTarget::Row) parser.CurrentRows().BorderStyle(style);
}

void BorderWidth(RtfParser& parser, int twips) {
  if (parser.State().border == RtfBorderTarget::Paragraph) {
    return AddBorderWords(parser, Word("\\brdrw", std::clamp(twips, 0, 255)));
  }
  if (parser.State().border == RtfBorderTarget::Row) parser.CurrentRows().BorderWidth(twips);
}

void BorderSpace(RtfParser& parser, int twips) {
  if (parser.State().border == RtfBorderTarget::Paragraph) AddBorderWords(parser, Word("\\brsp", Clamped(twips)));
}

void BorderColour(RtfParser& parser, int index) {
  if (parser.State().border == RtfBorderTarget::Paragraph) {
    const QRgb colour = parser.Colours().Find(index);
    if (index > 0 && qAlpha(colour)) AddBorderWords(parser, "\\brdrcf" + QColor::fromRgb(colour).name().toLatin1());
    return;
  }
  if (parser.State().border == RtfBorderTarget::Row) parser.CurrentRows().BorderColour(index);
}

void BorderOfSomethingElse(RtfParser& parser, int) {
  parser.State().border = RtfBorderTarget::None;
}

void AnsiCodePage(RtfParser& parser, int codePage) {
  if (codePage > 0) parser.SetCodePage(codePage);
}

void DefaultFont(RtfParser& parser, int number) {
  parser.Formats().SetDefaultFont(number);
}

}  // namespace snipdeck::rtf_actions
