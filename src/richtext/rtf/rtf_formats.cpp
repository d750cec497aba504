#include "richtext/rtf/rtf_formats.h"

#include "platform/units.h"
#include "richtext/format_properties.h"
#include "richtext/format_values.h"
#include "richtext/tab_leaders.h"

namespace snipdeck {
namespace {

constexpr double kHalfPoint = 0.5;
constexpr int kSingleLine = 240;
// One step of a list in Qt's documents, 40 pixels.
constexpr int kListStep = 600;

double Pixels(int twips) {
  return twips / kTwipsPerPixel;
}

struct UnderlineEntry {
  QTextCharFormat::UnderlineStyle style;
  UnderlineKind kind;  // Single where Qt's style says all.
};

UnderlineEntry UnderlineOf(RtfUnderline underline) {
  using Style = QTextCharFormat::UnderlineStyle;
  switch (underline) {
    case RtfUnderline::None:
      return {Style::NoUnderline, UnderlineKind::Single};
    case RtfUnderline::Single:
      return {Style::SingleUnderline, UnderlineKind::Single};
    case RtfUnderline::Words:
      return {Style::SingleUnderline, UnderlineKind::WordsOnly};
    case RtfUnderline::Double:
      return {Style::SingleUnderline, UnderlineKind::Double};
    case RtfUnderline::Dotted:
      return {Style::DotLine, UnderlineKind::Single};
    case RtfUnderline::Dash:
      return {Style::DashUnderline, UnderlineKind::Single};
    case RtfUnderline::DashDot:
      return {Style::DashDotLine, UnderlineKind::Single};
    case RtfUnderline::DashDotDot:
      return {Style::DashDotDotLine, UnderlineKind::Single};
    case RtfUnderline::Wave:
      return {Style::WaveUnderline, UnderlineKind::Single};
    case RtfUnderline::Thick:
      return {Style::SingleUnderline, UnderlineKind::Thick};
    case RtfUnderline::ThickDotted:
      return {Style::DotLine, UnderlineKind::ThickDotted};
    case RtfUnderline::ThickDash:
      return {Style::DashUnderline, UnderlineKind::ThickDash};
    case RtfUnderline::ThickDashDot:
      return {Style::DashDotLine, UnderlineKind::ThickDashDot};
    case RtfUnderline::ThickDashDotDot:
      return {Style::DashDotDotLine, UnderlineKind::ThickDashDotDot};
    case RtfUnderline::LongDash:
      return {Style::DashUnderline, UnderlineKind::LongDash};
    case RtfUnderline::ThickLongDash:
      return {Style::DashUnderline, UnderlineKind::ThickLongDash};
    case RtfUnderline::HeavyWave:
      return {Style::WaveUnderline, UnderlineKind::HeavyWave};
    case RtfUnderline::DoubleWave:
      return {Style::WaveUnderline, UnderlineKind::DoubleWave};
  }
  return {Style::NoUnderline, UnderlineKind::Single};
}

// Where text of no colour is shown white.
bool IsDark(QRgb ground) {
  constexpr int kDarkest = 64;
  return qAlpha(ground) > 0 && qGray(ground) < kDarkest;
}

bool IsShaded(const QTextFormat& format) {
  return format.background().style() != Qt::NoBrush;
}

QTextOption::TabType TabTypeOf(RtfTabKind kind) {
  switch (kind) {
    case RtfTabKind::Right:
      return QTextOption::RightTab;
    case RtfTabKind::Centre:
      return QTextOption::CenterTab;
    case RtfTabKind::Decimal:
      return QTextOption::DelimiterTab;
    case RtfTabKind::Left:
      break;
  }
  return QTextOption::LeftTab;
}

// Left and right are meant as they are seen, whichever way the paragraph runs.
void SetAlignment(QTextBlockFormat& format, const ParagraphState& state) {
  switch (state.alignment) {
    case RtfAlignment::Natural:
      return;
    case RtfAlignment::Centre:
      return format.setAlignment(Qt::AlignHCenter);
    case RtfAlignment::Justified:
      return format.setAlignment(Qt::AlignJustify);
    case RtfAlignment::Right:
      return format.setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
    case RtfAlignment::Left:
      if (state.rightToLeft) format.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
  }
}

}  // namespace

int RtfFormats::Character(const CharacterState& state) {
  if (m_lastIndex >= 0 && state == m_lastState) return m_lastIndex;
  const auto [entry, isNew] = m_characters.try_emplace(state, static_cast<int>(m_formats.characters.size()));
  if (isNew) m_formats.characters.push_back(MakeCharacter(state));
  m_lastState = state;
  m_lastIndex = entry->second;
  return m_lastIndex;
}

int RtfFormats::AddCharacter(const QTextCharFormat& format) {
  m_formats.characters.push_back(format);
  return static_cast<int>(m_formats.characters.size()) - 1;
}

int RtfFormats::Paragraph(const ParagraphState& state, const RtfListItem& item) {
  const bool plain = item.list < 0 && item.label.isEmpty();
  if (plain) {
    const auto found = m_paragraphs.find(state);
    if (found != m_paragraphs.end()) return found->second;
  }
  FlowFormats::Paragraph paragraph{MakeParagraph(state), item.list};
  const int steps = item.list < 0 ? 0 : item.level + 1;
  if (!plain) {
    paragraph.format.setTextIndent(0);
    paragraph.format.setLeftMargin(Pixels(item.textIndent - kListStep * steps));
    if (!item.label.isEmpty()) paragraph.format.setProperty(kListLabel, item.label);
  }
  if (!state.tabs.isEmpty()) {
    const double origin = TabOrigin(paragraph.format, steps, Pixels(kListStep));
    paragraph.format.setTabPositions(ShiftedTabs(paragraph.format.tabPositions(), -origin));
  }
  m_formats.paragraphs.push_back(paragraph);
  const int index = static_cast<int>(m_formats.paragraphs.size()) - 1;
  if (plain) m_paragraphs.emplace(state, index);
  return index;
}

int RtfFormats::WithoutSpaceAfter(int paragraph) {
  const auto known = m_withoutSpaceAfter.constFind(paragraph);
  if (known != m_withoutSpaceAfter.cend()) return *known;
  FlowFormats::Paragraph joined = m_formats.paragraphs[static_cast<std::size_t>(paragraph)];
  joined.format.clearProperty(QTextFormat::BlockBottomMargin);
  m_formats.paragraphs.push_back(std::move(joined));
  const int index = static_cast<int>(m_formats.paragraphs.size()) - 1;
  m_withoutSpaceAfter.insert(paragraph, index);
  return index;
}

void RtfFormats::ShowOn(QRgb ground, Flow& flow) {
  if (IsDark(ground)) TurnWhite(flow);
}

void RtfFormats::ShowOnShading(Flow& paragraph) {
  const auto end = std::prev(paragraph.items.end());
  const QBrush ground = m_formats.paragraphs[static_cast<std::size_t>(end->format)].format.background();
  if (ground.style() != Qt::NoBrush && IsDark(ground.color().rgba())) TurnWhite(paragraph.items.begin(), end);
}

void RtfFormats::TurnWhite(Flow& flow) {
  for (const auto& table : flow.tables) {
    for (RowFlow& row : table->rows) {
      for (std::size_t i = 0; i < row.cells.size(); ++i) {
        if (qAlpha(row.layout->cells[i].background) == 0) TurnWhite(row.cells[i]);
      }
    }
  }
  auto runs = flow.items.begin();
  for (auto item = runs; item != flow.items.end(); ++item) {
    if (item->kind == FlowItem::Kind::Run) continue;
    const bool isParagraph = item->kind == FlowItem::Kind::ParagraphEnd;
    if (isParagraph && !IsShaded(m_formats.paragraphs[static_cast<std::size_t>(item->format)].format)) {
      TurnWhite(runs, item);
    }
    runs = std::next(item);
  }
}

void RtfFormats::TurnWhite(Items::iterator run, Items::iterator paragraphEnd) {
  for (; run != paragraphEnd; ++run) run->format = White(run->format);
  paragraphEnd->length = White(paragraphEnd->length);
}

int RtfFormats::White(int character) {
  const auto known = m_white.constFind(character);
  if (known != m_white.cend()) return *known;
  QTextCharFormat format = m_formats.characters[static_cast<std::size_t>(character)];
  int white = character;
  if (!IsShaded(format) && format.foreground().style() == Qt::NoBrush && !format.isImageFormat()) {
    format.setForeground(Qt::white);
    white = AddCharacter(format);
  }
  m_white.insert(character, white);
  return white;
}

int RtfFormats::AddLink(const QString& target) {
  if (target.isEmpty()) return 0;
  if (m_links.isEmpty() || m_links.last() != target) m_links.append(target);
  return static_cast<int>(m_links.size());
}

void RtfFormats::SetStyleName(bool ofParagraph, int number, const QString& name) {
  (ofParagraph ? m_paragraphStyles : m_characterStyles).insert(number, name);
}

int RtfFormats::EffectiveFont(const CharacterState& state) const {
  if (state.rightToLeft && state.associatedFont >= 0) return state.associatedFont;
  return state.font >= 0 ? state.font : m_defaultFont;
}

QTextCharFormat RtfFormats::MakeCharacter(const CharacterState& state) const {
  QTextCharFormat format;
  SetFont(format, state);
  SetColours(format, state);
  SetEffects(format, state);
  if (state.link > 0 && state.link <= m_links.size()) {
    format.setAnchor(true);
    format.setAnchorHref(m_links.at(state.link - 1));
  }
  const QString style = m_characterStyles.value(state.style);
  if (!style.isEmpty()) format.setProperty(kCharStyleName, style);
  return format;
}

void RtfFormats::SetFont(QTextCharFormat& format, const CharacterState& state) const {
  const RtfFont* font = m_fonts.Find(EffectiveFont(state));
  if (font && !font->name.isEmpty()) {
    QStringList families{font->name};
    if (!font->alternative.isEmpty()) families.append(font->alternative);
    format.setFontFamilies(families);
  }
  format.setFontPointSize((state.rightToLeft ? state.associatedSize : state.size) * kHalfPoint);
  if (state.rightToLeft ? state.associatedBold : state.bold) format.setFontWeight(QFont::Bold);
  if (state.rightToLeft ? state.associatedItalic : state.italic) format.setFontItalic(true);
  if (state.scalePercent != 100) {
    format.setFontStretch(state.scalePercent);
    format.setProperty(kCharScalePercent, static_cast<int>(state.scalePercent));
  }
  if (state.spacing != 0) {
    format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
    format.setFontLetterSpacing(Pixels(state.spacing));
  }
}

void RtfFormats::SetColours(QTextCharFormat& format, const CharacterState& state) const {
  const QRgb foreground = m_colours.Find(state.foreground);
  if (qAlpha(foreground)) format.setForeground(QColor::fromRgba(foreground));
  const QRgb highlight = m_colours.Find(state.highlight);
  const QRgb background = m_colours.Find(state.background);
  if (state.highlight > 0 && qAlpha(highlight)) {
    format.setBackground(QColor::fromRgba(highlight));
    format.setProperty(kHighlight, true);
  } else if (state.background > 0 && qAlpha(background)) {
    format.setBackground(QColor::fromRgba(background));
    if (IsDark(background) && !qAlpha(foreground)) format.setForeground(Qt::white);
  }
}

void RtfFormats::SetEffects(QTextCharFormat& format, const CharacterState& state) const {
  const UnderlineEntry underline = UnderlineOf(state.underline);
  if (underline.style != QTextCharFormat::NoUnderline) {
    format.setUnderlineStyle(underline.style);
    if (underline.kind != UnderlineKind::Single) format.setProperty(kUnderlineKind, static_cast<int>(underline.kind));
    const QRgb colour = m_colours.Find(state.underlineColour);
    if (state.underlineColour > 0 && qAlpha(colour)) format.setUnderlineColor(QColor::fromRgba(colour));
  }
  if (state.strike || state.doubleStrike) format.setFontStrikeOut(true);
  if (state.doubleStrike) format.setProperty(kDoubleStrike, true);
  if (state.script == RtfScript::Super) format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
  if (state.script == RtfScript::Sub) format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
  if (state.raise != 0) {
    format.setBaselineOffset(state.raise * 100.0 / std::max<int>(state.size, 2));
    format.setProperty(kBaselineShift, static_cast<int>(state.raise));
  }
  if (state.letterCase == RtfCase::Capitals) format.setFontCapitalization(QFont::AllUppercase);
  if (state.letterCase == RtfCase::SmallCapitals) format.setFontCapitalization(QFont::SmallCaps);
  if (state.hidden) format.setProperty(kHiddenText, true);
  if (state.outline) format.setProperty(kOutline, true);
  if (state.shadow) format.setProperty(kShadow, true);
  if (state.emboss != 0) format.setProperty(kEmboss, static_cast<int>(state.emboss));
}

QTextBlockFormat RtfFormats::MakeParagraph(const ParagraphState& state) const {
  QTextBlockFormat format;
  SetAlignment(format, state);
  if (state.leftIndent) format.setLeftMargin(Pixels(state.leftIndent));
  if (state.rightIndent) format.setRightMargin(Pixels(state.rightIndent));
  if (state.firstLine) format.setTextIndent(Pixels(state.firstLine));
  SetSpacing(format, state);
  QList<QTextOption::Tab> tabs;
  for (const RtfTab& tab : state.tabs) {
    const QChar delimiter = tab.kind == RtfTabKind::Decimal ? QChar(u'.') : QChar();
    const QTextOption::Tab stop(Pixels(tab.position), TabTypeOf(tab.kind), delimiter);
    tabs.append(WithLeader(stop, QChar(tab.leader)));
  }
  if (!tabs.isEmpty()) format.setTabPositions(tabs);
  if (state.keepTogether) format.setProperty(kKeepTogether, true);
  if (state.keepWithNext) format.setProperty(kKeepWithNext, true);
  if (state.pageBreakBefore) format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
  if (state.rightToLeft) format.setLayoutDirection(Qt::RightToLeft);
  if (state.outlineLevel > 0) format.setHeadingLevel(std::min<int>(state.outlineLevel, 6));
  if (!state.borders.isEmpty()) format.setProperty(kParagraphBorder, QString::fromLatin1(state.borders));
  const QRgb shade = m_colours.Shade(state.shading, state.shadingForeground, state.shadingPercent);
  if (qAlpha(shade)) format.setBackground(QColor::fromRgba(shade));
  const QString style = m_paragraphStyles.value(state.style);
  if (!style.isEmpty()) format.setProperty(kParaStyleName, style);
  return format;
}

void RtfFormats::SetSpacing(QTextBlockFormat& format, const ParagraphState& state) const {
  if (state.spaceBefore) format.setTopMargin(Pixels(state.spaceBefore));
  if (state.spaceAfter) format.setBottomMargin(Pixels(state.spaceAfter));
  const int lines = state.lineSpacing;
  if (lines < 0) {
    format.setLineHeight(Pixels(-lines), QTextBlockFormat::FixedHeight);
  } else if (lines > 0 && !state.lineSpacingMultiple) {
    format.setLineHeight(Pixels(lines), QTextBlockFormat::MinimumHeight);
  } else if (lines > 0 && lines != kSingleLine) {
    format.setLineHeight(lines * 100.0 / kSingleLine, QTextBlockFormat::ProportionalHeight);
  }
}

}  // namespace snipdeck
