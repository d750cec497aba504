#include "richtext/docx/docx_writer_properties.h"

#include <algorithm>
#include <cmath>

#include <QTextList>

#include "richtext/docx/docx_values.h"
#include "richtext/format_properties.h"
#include "richtext/format_values.h"
#include "richtext/paragraph_borders.h"
#include "richtext/tab_leaders.h"

namespace snipdeck {
namespace {

constexpr int kLabelTwips = 360;
constexpr double kTwipsPerPercent = 2.4;  // of a line

bool IsVisible(const QBrush& brush) {
  return brush.style() != Qt::NoBrush && brush.color().alpha() != 0;
}

void EmptyIf(XmlOut& out, bool condition, const char* element) {
  if (condition) out.Empty(element);
}

void WriteEffects(XmlOut& out, const QTextCharFormat& format) {
  EmptyIf(out, format.fontWeight() > QFont::Medium, "w:b");
  EmptyIf(out, format.fontItalic(), "w:i");
  EmptyIf(out, format.fontCapitalization() == QFont::AllUppercase, "w:caps");
  EmptyIf(out, format.fontCapitalization() == QFont::SmallCaps, "w:smallCaps");
  EmptyIf(out, format.fontStrikeOut() && !format.boolProperty(kDoubleStrike), "w:strike");
  EmptyIf(out, format.fontStrikeOut() && format.boolProperty(kDoubleStrike), "w:dstrike");
  EmptyIf(out, format.boolProperty(kOutline), "w:outline");
  EmptyIf(out, format.boolProperty(kShadow), "w:shadow");
  EmptyIf(out, format.intProperty(kEmboss) > 0, "w:emboss");
  EmptyIf(out, format.intProperty(kEmboss) < 0, "w:imprint");
  EmptyIf(out, format.boolProperty(kHiddenText), "w:vanish");
}

void WriteSpacing(XmlOut& out, const QTextCharFormat& format) {
  if (format.fontLetterSpacingType() == QFont::AbsoluteSpacing && format.fontLetterSpacing() != 0)
    out.Value("w:spacing", TwipsFromLength(format.fontLetterSpacing()));
  const int scale =
      format.hasProperty(kCharScalePercent) ? format.intProperty(kCharScalePercent) : format.fontStretch();
  if (scale > 0 && scale != 100) out.Value("w:w", scale);
  if (format.intProperty(kBaselineShift) != 0) out.Value("w:position", format.intProperty(kBaselineShift));
}

const char* HighlightOf(const QTextCharFormat& format) {
  const bool isHighlight = IsVisible(format.background()) && format.boolProperty(kHighlight);
  return isHighlight ? WordForHighlight(format.background().color().rgb()) : nullptr;
}

void WriteUnderline(XmlOut& out, const QTextCharFormat& format) {
  const char* const word = WordForUnderline(format);
  if (!word) return;
  out.Value("w:u", word);
  if (format.underlineColor().isValid()) out.Attribute("w:color", WordForColour(format.underlineColor()));
}

void WriteBorders(XmlOut& out, const QTextBlockFormat& format) {
  if (!format.hasProperty(kParagraphBorder)) return;
  constexpr double kTwipsPerEighth = 2.5;
  static constexpr const char* kSides[] = {"w:top", "w:left", "w:bottom", "w:right", "w:between"};
  const ParagraphBorders lines = BordersOf(format);
  out.Start("w:pBdr");
  for (std::size_t side = 0; side < kBorderSides; ++side) {
    const BorderLine& line = lines[side];
    if (line.width <= 0) continue;
    out.Value(kSides[side], WordForBorder(line.style));
    out.Attribute("w:sz", static_cast<int>(std::lround(line.width / kTwipsPerEighth)));
    out.Attribute("w:space", line.space / 20);
    out.Attribute("w:color", line.colour.isValid() ? WordForColour(line.colour) : QStringLiteral("auto"));
  }
  out.End();
}

const char* WordForTab(QTextOption::TabType type) {
  switch (type) {
    case QTextOption::RightTab:
      return "right";
    case QTextOption::CenterTab:
      return "center";
    case QTextOption::DelimiterTab:
      return "decimal";
    default:
      return "left";
  }
}

void WriteTabs(XmlOut& out, const QList<QTextOption::Tab>& tabs) {
  if (tabs.isEmpty()) return;
  out.Start("w:tabs");
  for (const QTextOption::Tab& tab : tabs) {
    out.Value("w:tab", WordForTab(tab.type));
    if (const char* leader = WordForLeader(LeaderOf(tab))) out.Attribute("w:leader", QString::fromLatin1(leader));
    out.Attribute("w:pos", TwipsFromLength(tab.position));
  }
  out.End();
}

void WriteSpacingAround(XmlOut& out, const QTextBlockFormat& format) {
  const int above = TwipsFromLength(format.topMargin()), below = TwipsFromLength(format.bottomMargin());
  const int type = format.lineHeightType();
  const bool hasHeight = type == QTextBlockFormat::ProportionalHeight || type == QTextBlockFormat::FixedHeight ||
                         type == QTextBlockFormat::MinimumHeight;
  if (above == 0 && below == 0 && !hasHeight) return;
  out.Empty("w:spacing");
  if (above != 0) out.Attribute("w:before", above);
  if (below != 0) out.Attribute("w:after", below);
  if (!hasHeight) return;
  const bool isPart = type == QTextBlockFormat::ProportionalHeight;
  out.Attribute("w:line", isPart ? static_cast<int>(std::lround(format.lineHeight() * kTwipsPerPercent))
                                 : TwipsFromLength(format.lineHeight()));
  out.Attribute("w:lineRule", QLatin1String(isPart                                     ? "auto"
                                            : type == QTextBlockFormat::FixedHeight ? "exact"
                                                                                       : "atLeast"));
}

void WriteIndents(XmlOut& out, const QTextBlock& block, double indentWidth) {
  const QTextBlockFormat format = block.blockFormat();
  const QTextList* const list = block.textList();
  const int left = TwipsFromLength(format.leftMargin() + ListSteps(block) * indentWidth);
  const int right = TwipsFromLength(format.rightMargin());
  // A label hangs in front of its paragraph.
  const bool hangs = format.textIndent() == 0 && (list || format.hasProperty(kListLabel));
  const int first = hangs ? -std::clamp(left, 0, kLabelTwips) : TwipsFromLength(format.textIndent());
  if (left == 0 && right == 0 && first == 0 && !list) return;
  out.Empty("w:ind");
  out.Attribute("w:left", left);
  if (right != 0) out.Attribute("w:right", right);
  if (first < 0) out.Attribute("w:hanging", -first);
  if (first > 0) out.Attribute("w:firstLine", first);
}

/// In a paragraph from right to left, the format's left is where its lines begin.
void WriteAlignment(XmlOut& out, const QTextBlockFormat& format) {
  if (!format.hasProperty(QTextFormat::BlockAlignment)) return;
  const Qt::Alignment alignment = format.alignment();
  if (alignment & Qt::AlignJustify) return out.Value("w:jc", "both");
  if (alignment & Qt::AlignHCenter) return out.Value("w:jc", "center");
  const bool isTurned = format.layoutDirection() == Qt::RightToLeft && (alignment & Qt::AlignAbsolute);
  const bool isRight = bool(alignment & Qt::AlignRight) != isTurned;
  out.Value("w:jc", isRight ? "right" : "left");
}

void WriteOutline(XmlOut& out, const QTextBlockFormat& format) {
  constexpr int kNoLevel = 9;
  const bool hasStyle = !format.stringProperty(kParaStyleName).isEmpty();
  if (format.headingLevel() > 0) return out.Value("w:outlineLvl", format.headingLevel() - 1);
  if (hasStyle) out.Value("w:outlineLvl", kNoLevel);
}

}  // namespace

void WriteFont(XmlOut& out, const QTextCharFormat& format, const QFont& defaults) {
  const QString family = FontFamilies(format, defaults).value(0);
  out.Empty("w:rFonts");
  for (const char* script : {"w:ascii", "w:hAnsi", "w:eastAsia", "w:cs"}) out.Attribute(script, family);
}

void WriteSize(XmlOut& out, const QTextCharFormat& format, const QFont& defaults) {
  const int halfPoints = std::max(qRound(2 * PointSize(format, defaults)), 1);
  out.Value("w:sz", halfPoints);
  out.Value("w:szCs", halfPoints);
}

void WriteFontAndSize(XmlOut& out, const QTextCharFormat& format, const QFont& defaults) {
  WriteFont(out, format, defaults);
  WriteSize(out, format, defaults);
}

void WriteShading(XmlOut& out, const QBrush& background) {
  if (!IsVisible(background)) return;
  out.Value("w:shd", "clear");
  out.Attribute("w:color", QStringLiteral("auto"));
  out.Attribute("w:fill", WordForColour(background.color()));
}

void WriteRunProperties(XmlOut& out, const QTextCharFormat& format, const QFont& defaults, DocxWriterStyles& styles) {
  out.Start("w:rPr");
  const QString style = format.stringProperty(kCharStyleName);
  if (!style.isEmpty()) out.Value("w:rStyle", styles.Run(style));
  WriteFont(out, format, defaults);
  WriteEffects(out, format);
  if (format.foreground().style() != Qt::NoBrush)
    out.Value("w:color", WordForColour(format.foreground().color()));
  WriteSpacing(out, format);
  WriteSize(out, format, defaults);
  const char* const highlight = HighlightOf(format);
  if (highlight) out.Value("w:highlight", highlight);
  WriteUnderline(out, format);
  if (!highlight) WriteShading(out, format.background());
  if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript) out.Value("w:vertAlign", "superscript");
  if (format.verticalAlignment() == QTextCharFormat::AlignSubScript) out.Value("w:vertAlign", "subscript");
  out.End();
}

void WriteParagraphProperties(XmlOut& out, const QTextBlock& block, const QFont& defaults, double indentWidth,
                              DocxWriterStyles& styles, DocxWriterLists& lists) {
  const QTextBlockFormat format = block.blockFormat();
  out.Start("w:pPr");
  const QString style = format.stringProperty(kParaStyleName);
  if (!style.isEmpty()) out.Value("w:pStyle", styles.Paragraph(style));
  EmptyIf(out, format.boolProperty(kKeepWithNext), "w:keepNext");
  EmptyIf(out, format.boolProperty(kKeepTogether), "w:keepLines");
  EmptyIf(out, format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore, "w:pageBreakBefore");
  lists.WriteParagraph(out, block);
  WriteBorders(out, format);
  WriteShading(out, format.background());
  WriteTabs(out, ShiftedTabs(format.tabPositions(), TabOrigin(format, ListSteps(block), indentWidth)));
  EmptyIf(out, format.layoutDirection() == Qt::RightToLeft, "w:bidi");
  WriteSpacingAround(out, format);
  WriteIndents(out, block, indentWidth);
  WriteAlignment(out, format);
  WriteOutline(out, format);
  WriteRunProperties(out, block.charFormat(), defaults, styles);
  out.End();
}

}  // namespace snipdeck
