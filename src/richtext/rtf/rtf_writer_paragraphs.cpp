#include "richtext/rtf/rtf_writer_paragraphs.h"

#include <QTextList>

#include "richtext/format_properties.h"
#include "richtext/format_values.h"
#include "richtext/paragraph_borders.h"
#include "richtext/tab_leaders.h"

namespace snipdeck {
namespace {

constexpr int kLabelTwips = 360;

void NumberUnlessZero(RtfOutput& out, const char* word, int number) {
  if (number != 0) out.Word(word, number);
}

void Alignment(RtfOutput& out, Qt::Alignment alignment) {
  if (alignment & Qt::AlignJustify) return out.Word("qj");
  if (alignment & Qt::AlignHCenter) return out.Word("qc");
  out.Word(alignment & Qt::AlignRight ? "qr" : "ql");
}

void LineHeight(RtfOutput& out, const QTextBlockFormat& format) {
  constexpr double kTwipsPerPercent = 2.4;
  const int twips = TwipsFromLength(format.lineHeight());
  switch (format.lineHeightType()) {
    case QTextBlockFormat::ProportionalHeight:
      out.Word("sl", qRound(format.lineHeight() * kTwipsPerPercent));
      return out.Word("slmult", 1);
    case QTextBlockFormat::FixedHeight:
      out.Word("sl", -twips);
      return out.Word("slmult", 0);
    case QTextBlockFormat::MinimumHeight:
      out.Word("sl", twips);
      return out.Word("slmult", 0);
    default:
      return;
  }
}

const char* WordOfLeader(QChar leader) {
  switch (leader.unicode()) {
    case u'.':
      return "tldot";
    case u'\u00B7':
      return "tlmdot";
    case u'-':
      return "tlhyph";
    case u'_':
      return "tlul";
    case u'=':
      return "tleq";
    default:
      return nullptr;
  }
}

void Tabs(RtfOutput& out, const QList<QTextOption::Tab>& tabs) {
  for (const QTextOption::Tab& tab : tabs) {
    if (const char* leader = WordOfLeader(LeaderOf(tab))) out.Word(leader);
    out.WordIf(tab.type == QTextOption::RightTab, "tqr");
    out.WordIf(tab.type == QTextOption::CenterTab, "tqc");
    out.WordIf(tab.type == QTextOption::DelimiterTab, "tqdec");
    out.Word("tx", TwipsFromLength(tab.position));
  }
}

}  // namespace

const RtfOutput& RtfParagraphWords::For(const QTextBlock& block) {
  const int index = block.blockFormatIndex();
  const auto known = m_known.constFind(index);
  return known != m_known.cend() ? *known : *m_known.insert(index, Build(block));
}

RtfOutput RtfParagraphWords::Build(const QTextBlock& block) {
  const QTextBlockFormat format = block.blockFormat();
  RtfOutput out;
  out.Word("pard");
  const QString style = format.stringProperty(kParaStyleName);
  if (!style.isEmpty()) out.Word("s", m_header.ParagraphStyle(style));
  if (format.hasProperty(QTextFormat::LayoutDirection)) {
    out.Word(format.layoutDirection() == Qt::RightToLeft ? "rtlpar" : "ltrpar");
  }
  if (format.hasProperty(QTextFormat::BlockAlignment)) Alignment(out, format.alignment());
  Indents(out, block);
  Spacing(out, format);
  Tabs(out, ShiftedTabs(format.tabPositions(), TabOrigin(format, ListSteps(block), m_indentWidth)));
  Breaks(out, format);
  Decoration(out, format);
  return out;
}

void RtfParagraphWords::Indents(RtfOutput& out, const QTextBlock& block) {
  const QTextBlockFormat format = block.blockFormat();
  const QTextList* const list = block.textList();
  // A label hangs in front of its paragraph, as Qt shows it.
  const bool hangs = format.textIndent() == 0 && (list || format.hasProperty(kListLabel));
  const int left = TwipsFromLength(format.leftMargin() + ListSteps(block) * m_indentWidth);
  // Where a paragraph of a list says nothing, its list does.
  if (left != 0 || list) out.Word("li", left);
  NumberUnlessZero(out, "ri", TwipsFromLength(format.rightMargin()));
  const int first = hangs ? -std::clamp(left, 0, kLabelTwips) : TwipsFromLength(format.textIndent());
  if (first != 0 || list) out.Word("fi", first);
}

void RtfParagraphWords::Spacing(RtfOutput& out, const QTextBlockFormat& format) {
  NumberUnlessZero(out, "sb", TwipsFromLength(format.topMargin()));
  NumberUnlessZero(out, "sa", TwipsFromLength(format.bottomMargin()));
  LineHeight(out, format);
}

void RtfParagraphWords::Breaks(RtfOutput& out, const QTextBlockFormat& format) {
  out.WordIf(format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore, "pagebb");
  out.WordIf(format.boolProperty(kKeepTogether), "keep");
  out.WordIf(format.boolProperty(kKeepWithNext), "keepn");
  if (format.headingLevel() > 0) out.Word("outlinelevel", format.headingLevel() - 1);
}

void RtfParagraphWords::Decoration(RtfOutput& out, const QTextBlockFormat& format) {
  if (format.background().style() != Qt::NoBrush && format.background().color().alpha() != 0) {
    out.Word("cbpat", m_header.Colour(format.background().color()));
  }
  const QByteArray border = format.stringProperty(kParagraphBorder).toLatin1();
  if (border.isEmpty()) return;
  out.Raw(WithColourNumbers(border, [this](const QColor& colour) { return m_header.Colour(colour); }) + ' ');
}

}  // namespace snipdeck
