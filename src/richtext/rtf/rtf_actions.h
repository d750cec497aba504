#pragma once

namespace snipdeck {

class RtfParser;

/// What control words do that do more than set one attribute. All have the form of RtfControlWord::Handler.
namespace rtf_actions {

void ResetCharacter(RtfParser& parser, int);
void ResetParagraph(RtfParser& parser, int);
void ParagraphStyle(RtfParser& parser, int number);
void CharacterStyle(RtfParser& parser, int number);
void AssociatedFont(RtfParser& parser, int number);
void Lower(RtfParser& parser, int halfPoints);
void LeadingIndent(RtfParser& parser, int twips);
void TrailingIndent(RtfParser& parser, int twips);
void AutomaticSpaceBefore(RtfParser& parser, int on);
void AutomaticSpaceAfter(RtfParser& parser, int on);
void TabStop(RtfParser& parser, int twips);
void BarTab(RtfParser& parser, int);
void Outline(RtfParser& parser, int level);
void TableLevel(RtfParser& parser, int level);

void EndParagraph(RtfParser& parser, int);
void EndSection(RtfParser& parser, int);
void ContinuePage(RtfParser& parser, int);
void BreakPage(RtfParser& parser, int);
void EndCell(RtfParser& parser, int);
void EndNestedCell(RtfParser& parser, int);
void EndRow(RtfParser& parser, int);
void EndNestedRow(RtfParser& parser, int);
void NestedRowWords(RtfParser& parser, int);
void NoteNumber(RtfParser& parser, int);
void Endnote(RtfParser& parser, int);
void EndnoteNumbers(RtfParser& parser, int format);
void SectionNumber(RtfParser& parser, int);

void BorderOfParagraph(RtfParser& parser, int side);
void BorderStyle(RtfParser& parser, int qtStyle);
void BorderWidth(RtfParser& parser, int twips);
void BorderSpace(RtfParser& parser, int twips);
void BorderColour(RtfParser& parser, int index);
void BorderOfSomethingElse(RtfParser& parser, int);

void AnsiCodePage(RtfParser& parser, int codePage);
void DefaultFont(RtfParser& parser, int number);

}  // namespace rtf_actions
}  // namespace snipdeck
