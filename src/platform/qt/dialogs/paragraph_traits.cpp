#include "platform/qt/dialogs/paragraph_traits.h"

#include <cmath>

#include "platform/qt/dialogs/selection_formats.h"
#include "platform/qt/paragraph_indents.h"
#include "platform/qt/rich_text_control.h"
#include "richtext/format_properties.h"

namespace snipdeck {

namespace {

constexpr double kPercent = 100;

struct Multiple {
  LineSpacingRule rule;
  double lines;
};
constexpr Multiple kMultiples[] = {
    {LineSpacingRule::Single, 1}, {LineSpacingRule::OneAndAHalf, 1.5}, {LineSpacingRule::Double, 2}};

ParagraphAlignment AlignmentOf(const QTextBlock& block) {
  const Qt::Alignment alignment = block.blockFormat().alignment();
  if (alignment & Qt::AlignHCenter) return ParagraphAlignment::Centre;
  if (alignment & Qt::AlignJustify) return ParagraphAlignment::Justified;
  const bool isAbsolute = alignment & Qt::AlignAbsolute;
  const bool startsRight = block.textDirection() == Qt::RightToLeft && !isAbsolute;
  const bool isTrailing = alignment & (Qt::AlignRight | Qt::AlignTrailing);
  return isTrailing != startsRight ? ParagraphAlignment::Right : ParagraphAlignment::Left;
}

// As it is seen, whichever way the text runs.
Qt::Alignment QtAlignmentOf(ParagraphAlignment alignment) {
  switch (alignment) {
    case ParagraphAlignment::Left:
      return Qt::AlignLeft | Qt::AlignAbsolute;
    case ParagraphAlignment::Centre:
      return Qt::AlignHCenter;
    case ParagraphAlignment::Right:
      return Qt::AlignRight | Qt::AlignAbsolute;
    case ParagraphAlignment::Justified:
      return Qt::AlignJustify;
  }
  return Qt::AlignLeft;
}

LineSpacing LinesOf(const QTextBlockFormat& format) {
  const double height = format.lineHeight();
  switch (format.lineHeightType()) {
    case QTextBlockFormat::MinimumHeight:
      return {LineSpacingRule::AtLeast, height};
    case QTextBlockFormat::FixedHeight:
      return {LineSpacingRule::Exactly, height};
    case QTextBlockFormat::ProportionalHeight:
      for (const Multiple& known : kMultiples)
        if (std::abs(height - known.lines * kPercent) < 0.5) return {known.rule, 0};
      return {LineSpacingRule::Multiple, height / kPercent};
    default:
      return {};
  }
}

void SetLines(QTextBlockFormat& change, const LineSpacing& lines) {
  if (lines.rule == LineSpacingRule::AtLeast)
    return change.setLineHeight(lines.amount, QTextBlockFormat::MinimumHeight);
  if (lines.rule == LineSpacingRule::Exactly) return change.setLineHeight(lines.amount, QTextBlockFormat::FixedHeight);
  double multiple = lines.amount;
  for (const Multiple& known : kMultiples)
    if (known.rule == lines.rule) multiple = known.lines;
  change.setLineHeight(multiple * kPercent, QTextBlockFormat::ProportionalHeight);
}

QList<QTextOption::Tab> Shifted(QList<QTextOption::Tab> tabs, double distance) {
  for (QTextOption::Tab& tab : tabs) tab.position += distance;
  return tabs;
}

template <typename T, typename Set>
void IfChanged(const std::optional<T>& before, const std::optional<T>& after, Set set) {
  if (after && after != before) set(*after);
}

QTextBlockFormat ChangeBetween(const ParagraphTraits& before, const ParagraphTraits& after) {
  QTextBlockFormat change;
  IfChanged(before.alignment, after.alignment, [&](auto alignment) { change.setAlignment(QtAlignmentOf(alignment)); });
  IfChanged(before.left, after.left, [&](double length) { change.setLeftMargin(length); });
  IfChanged(before.right, after.right, [&](double length) { change.setRightMargin(length); });
  IfChanged(before.firstLine, after.firstLine, [&](double length) { change.setTextIndent(length); });
  IfChanged(before.before, after.before, [&](double length) { change.setTopMargin(length); });
  IfChanged(before.after, after.after, [&](double length) { change.setBottomMargin(length); });
  IfChanged(before.lines, after.lines, [&](const LineSpacing& lines) { SetLines(change, lines); });
  IfChanged(before.keepTogether, after.keepTogether, [&](bool on) { change.setProperty(kKeepTogether, on); });
  IfChanged(before.keepWithNext, after.keepWithNext, [&](bool on) { change.setProperty(kKeepWithNext, on); });
  IfChanged(before.pageBreakBefore, after.pageBreakBefore, [&](bool on) {
    change.setPageBreakPolicy(on ? QTextFormat::PageBreak_AlwaysBefore : QTextFormat::PageBreak_Auto);
  });
  return change;
}

// Each paragraph counts its tab stops from a place of its own, which its indents may have moved just now.
void SetTabs(RichTextControl& control, const QList<QTextOption::Tab>& tabs) {
  for (const QTextBlock& block : SelectedBlocks(control)) {
    QTextBlockFormat change;
    change.setTabPositions(Shifted(tabs, -IndentsOf(block, 1).TabOrigin()));
    QTextCursor(block).mergeBlockFormat(change);
  }
}

}  // namespace

ParagraphTraits ParagraphTraits::Of(const QTextBlock& block) {
  const QTextBlockFormat format = block.blockFormat();
  ParagraphTraits traits;
  traits.alignment = AlignmentOf(block);
  traits.left = format.leftMargin();
  traits.right = format.rightMargin();
  traits.firstLine = format.textIndent();
  traits.before = format.topMargin();
  traits.after = format.bottomMargin();
  traits.lines = LinesOf(format);
  traits.keepTogether = format.boolProperty(kKeepTogether);
  traits.keepWithNext = format.boolProperty(kKeepWithNext);
  traits.pageBreakBefore = bool(format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore);
  traits.tabs = Shifted(format.tabPositions(), IndentsOf(block, 1).TabOrigin());
  return traits;
}

ParagraphTraits ParagraphTraits::OfSelection(const RichTextControl& control) {
  const QList<QTextBlock> blocks = SelectedBlocks(control);
  ParagraphTraits common = Of(blocks.first());
  for (const QTextBlock& block : blocks) {
    const ParagraphTraits other = Of(block);
    KeepCommon(common.alignment, other.alignment);
    KeepCommon(common.left, other.left);
    KeepCommon(common.right, other.right);
    KeepCommon(common.firstLine, other.firstLine);
    KeepCommon(common.before, other.before);
    KeepCommon(common.after, other.after);
    KeepCommon(common.lines, other.lines);
    KeepCommon(common.keepTogether, other.keepTogether);
    KeepCommon(common.keepWithNext, other.keepWithNext);
    KeepCommon(common.pageBreakBefore, other.pageBreakBefore);
    KeepCommon(common.tabs, other.tabs);
  }
  return common;
}

bool ApplyParagraphTraits(RichTextControl& control, const ParagraphTraits& before, const ParagraphTraits& after) {
  const QTextBlockFormat change = ChangeBetween(before, after);
  const bool changesTabs = after.tabs && after.tabs != before.tabs;
  if (change.propertyCount() == 0 && !changesTabs) return false;
  QTextCursor cursor = control.textCursor();
  cursor.beginEditBlock();
  cursor.mergeBlockFormat(change);
  if (changesTabs) SetTabs(control, *after.tabs);
  cursor.endEditBlock();
  return true;
}

}  // namespace snipdeck
