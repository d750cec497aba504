#pragma once

namespace snipdeck {

class RtfParser;

/// What control words do that begin a group of its own kind. All have the form of RtfControlWord::Handler.
namespace rtf_openers {

void FontTable(RtfParser& parser, int);
void AlternativeFont(RtfParser& parser, int);
void ColourTable(RtfParser& parser, int);
void StyleSheet(RtfParser& parser, int);
void ListTable(RtfParser& parser, int);
void LevelText(RtfParser& parser, int);
void ListLabel(RtfParser& parser, int);
void OldNumbering(RtfParser& parser, int);
void Field(RtfParser& parser, int);
void FieldInstruction(RtfParser& parser, int);
void FieldResult(RtfParser& parser, int);
void Picture(RtfParser& parser, int);
void Footnote(RtfParser& parser, int);
void Header(RtfParser& parser, int isFooter);
void ShapeText(RtfParser& parser, int);
void ShapePropertyName(RtfParser& parser, int);
void ShapePropertyValue(RtfParser& parser, int);
void UnicodeOrNot(RtfParser& parser, int);
/// The group is one of the running text.
void Transparent(RtfParser& parser, int);

}  // namespace rtf_openers
}  // namespace snipdeck
