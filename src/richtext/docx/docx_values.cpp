#include "richtext/docx/docx_values.h"

#include <algorithm>
#include <iterator>

#include "richtext/rtf/rtf_list_table.h"

namespace snipdeck {
namespace {

using Line = QTextCharFormat::UnderlineStyle;
using Border = QTextFrameFormat::BorderStyle;

struct UnderlineEntry {
  const char* word;
  Line style;
  UnderlineKind kind;
};
constexpr UnderlineEntry kUnderlines[] = {
    {"single", Line::SingleUnderline, UnderlineKind::Single},
    {"words", Line::SingleUnderline, UnderlineKind::WordsOnly},
    {"double", Line::SingleUnderline, UnderlineKind::Double},
    {"thick", Line::SingleUnderline, UnderlineKind::Thick},
    {"dotted", Line::DotLine, UnderlineKind::Single},
    {"dottedHeavy", Line::DotLine, UnderlineKind::ThickDotted},
    {"dash", Line::DashUnderline, UnderlineKind::Single},
    {"dashedHeavy", Line::DashUnderline, UnderlineKind::ThickDash},
    {"dashLong", Line::DashUnderline, UnderlineKind::LongDash},
    {"dashLongHeavy", Line::DashUnderline, UnderlineKind::ThickLongDash},
    {"dotDash", Line::DashDotLine, UnderlineKind::Single},
    {"dashDotHeavy", Line::DashDotLine, UnderlineKind::ThickDashDot},
    {"dotDotDash", Line::DashDotDotLine, UnderlineKind::Single},
    {"dashDotDotHeavy", Line::DashDotDotLine, UnderlineKind::ThickDashDotDot},
    {"wave", Line::WaveUnderline, UnderlineKind::Single},
    {"wavyHeavy", Line::WaveUnderline, UnderlineKind::HeavyWave},
    {"wavyDouble", Line::WaveUnderline, UnderlineKind::DoubleWave},
};

struct BorderEntry {
  const char* word;
  Border style;
};
// The first word of a style is the one that is written.
constexpr BorderEntry kBorders[] = {
    {"none", Border::BorderStyle_None},          {"nil", Border::BorderStyle_None},
    {"single", Border::BorderStyle_Solid},       {"dotted", Border::BorderStyle_Dotted},
    {"dashed", Border::BorderStyle_Dashed},      {"dashSmallGap", Border::BorderStyle_Dashed},
    {"double", Border::BorderStyle_Double},      {"triple", Border::BorderStyle_Double},
    {"dotDash", Border::BorderStyle_DotDash},    {"dotDotDash", Border::BorderStyle_DotDotDash},
    {"inset", Border::BorderStyle_Inset},        {"outset", Border::BorderStyle_Outset},
    {"threeDEmboss", Border::BorderStyle_Ridge}, {"threeDEngrave", Border::BorderStyle_Groove},
};

struct HighlightEntry {
  const char* word;
  QRgb colour;
};
constexpr HighlightEntry kHighlights[] = {
    {"black", 0xFF000000},    {"blue", 0xFF0000FF},       {"cyan", 0xFF00FFFF},      {"green", 0xFF00FF00},
    {"magenta", 0xFFFF00FF},  {"red", 0xFFFF0000},        {"yellow", 0xFFFFFF00},    {"white", 0xFFFFFFFF},
    {"darkBlue", 0xFF000080}, {"darkCyan", 0xFF008080},   {"darkGreen", 0xFF008000}, {"darkMagenta", 0xFF800080},
    {"darkRed", 0xFF800000},  {"darkYellow", 0xFF808000}, {"darkGray", 0xFF808080},  {"lightGray", 0xFFC0C0C0},
};

struct NumberEntry {
  const char* word;
  int format;
};
constexpr NumberEntry kNumbers[] = {
    {"decimal", 0},     {"upperRoman", 1},   {"lowerRoman", 2},         {"upperLetter", 3},
    {"lowerLetter", 4}, {"decimalZero", 22}, {"bullet", kNumberBullet}, {"none", kNumberNone},
};

template <typename Table>
auto FindWord(const Table& table, const QString& word) {
  return std::find_if(std::begin(table), std::end(table),
                      [&](const auto& entry) { return word == QLatin1String(entry.word); });
}

}  // namespace

DocxUnderline UnderlineFromWord(const QString& word) {
  const auto found = FindWord(kUnderlines, word);
  if (found != std::end(kUnderlines)) return {found->style, found->kind};
  return {word == QLatin1String("none") ? Line::NoUnderline : Line::SingleUnderline, UnderlineKind::Single};
}

const char* WordForUnderline(const QTextCharFormat& format) {
  Line style = format.underlineStyle();
  if (style == Line::NoUnderline) return nullptr;
  if (style == Line::SpellCheckUnderline) style = Line::WaveUnderline;
  auto kind = static_cast<UnderlineKind>(format.intProperty(kUnderlineKind));
  if (kind == UnderlineKind::None) kind = UnderlineKind::Single;
  const auto found = std::find_if(std::begin(kUnderlines), std::end(kUnderlines), [=](const UnderlineEntry& entry) {
    return entry.kind == kind && (kind != UnderlineKind::Single || entry.style == style);
  });
  return found == std::end(kUnderlines) ? "single" : found->word;
}

Border BorderFromWord(const QString& word) {
  const auto found = FindWord(kBorders, word);
  return found == std::end(kBorders) ? Border::BorderStyle_Solid : found->style;
}

const char* WordForBorder(Border style) {
  const auto found = std::find_if(std::begin(kBorders), std::end(kBorders),
                                  [=](const BorderEntry& entry) { return entry.style == style; });
  return found == std::end(kBorders) ? "single" : found->word;
}

QColor HighlightFromWord(const QString& word) {
  const auto found = FindWord(kHighlights, word);
  return found == std::end(kHighlights) ? QColor() : QColor::fromRgb(found->colour);
}

const char* WordForHighlight(QRgb colour) {
  const auto found = std::find_if(std::begin(kHighlights), std::end(kHighlights),
                                  [=](const HighlightEntry& entry) { return entry.colour == (colour | 0xFF000000); });
  return found == std::end(kHighlights) ? nullptr : found->word;
}

QColor ColourFromWord(const QString& word) {
  bool isNumber = false;
  const uint rgb = word.toUInt(&isNumber, 16);
  return isNumber && word.size() == 6 ? QColor::fromRgb(rgb) : QColor();
}

QString WordForColour(const QColor& colour) {
  return colour.name().mid(1).toUpper();
}

QChar LeaderFromWord(const QString& word) {
  if (word == QLatin1String("dot")) return u'.';
  if (word == QLatin1String("middleDot")) return QChar(0xB7);
  if (word == QLatin1String("hyphen")) return u'-';
  return word == QLatin1String("underscore") || word == QLatin1String("heavy") ? QChar(u'_') : QChar();
}

const char* WordForLeader(QChar leader) {
  switch (leader.unicode()) {
    case u'.':
      return "dot";
    case u'\u00B7':
      return "middleDot";
    case u'-':
    case u'=':
      return "hyphen";
    case u'_':
      return "underscore";
    default:
      return nullptr;
  }
}

int NumberFormatFromWord(const QString& word) {
  const auto found = FindWord(kNumbers, word);
  return found == std::end(kNumbers) ? 0 : found->format;
}

const char* WordForNumberFormat(QTextListFormat::Style style) {
  switch (style) {
    case QTextListFormat::ListDecimal:
      return "decimal";
    case QTextListFormat::ListUpperRoman:
      return "upperRoman";
    case QTextListFormat::ListLowerRoman:
      return "lowerRoman";
    case QTextListFormat::ListUpperAlpha:
      return "upperLetter";
    case QTextListFormat::ListLowerAlpha:
      return "lowerLetter";
    default:
      return "bullet";
  }
}

}  // namespace snipdeck
