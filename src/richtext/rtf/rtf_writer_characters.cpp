#include "richtext/rtf/rtf_writer_characters.h"

#include <array>

#include "richtext/format_properties.h"
#include "richtext/format_values.h"

namespace snipdeck {
namespace {

const char* WordForKind(UnderlineKind kind) {
  constexpr std::array<const char*, 13> kWords = {"ulnone",    "ul",       "uldb",      "ulth",       "ulw",
                                                  "ulthd",     "ulthdash", "ulthdashd", "ulthdashdd", "ulldash",
                                                  "ulthldash", "ulhwave",  "ululdbwave"};
  const auto index = static_cast<size_t>(kind);
  return index < kWords.size() ? kWords[index] : "ul";
}

const char* WordForStyle(QTextCharFormat::UnderlineStyle style) {
  switch (style) {
    case QTextCharFormat::NoUnderline:
      return nullptr;
    case QTextCharFormat::DashUnderline:
      return "uldash";
    case QTextCharFormat::DotLine:
      return "uld";
    case QTextCharFormat::DashDotLine:
      return "uldashd";
    case QTextCharFormat::DashDotDotLine:
      return "uldashdd";
    case QTextCharFormat::WaveUnderline:
    case QTextCharFormat::SpellCheckUnderline:
      return "ulwave";
    default:
      return "ul";
  }
}

}  // namespace

const RtfOutput& RtfCharacterWords::For(const QTextCharFormat& format, int index) {
  const auto known = m_known.constFind(index);
  return known != m_known.cend() ? *known : *m_known.insert(index, Build(format));
}

RtfOutput RtfCharacterWords::Build(const QTextCharFormat& format) {
  RtfOutput out;
  out.Word("plain");
  const QString style = format.stringProperty(kCharStyleName);
  if (!style.isEmpty()) out.Word("cs", m_header.CharacterStyle(style));
  Font(out, format);
  out.WordIf(format.fontWeight() > QFont::Medium, "b");
  out.WordIf(format.fontItalic(), "i");
  Underline(out, format);
  Effects(out, format);
  Position(out, format);
  Colours(out, format);
  return out;
}

void RtfCharacterWords::Font(RtfOutput& out, const QTextCharFormat& format) {
  const QStringList families = FontFamilies(format, m_defaults);
  out.Word("f", m_header.Font(families.value(0), families.value(1)));
  out.Word("fs", qRound(2 * PointSize(format, m_defaults)));
}

void RtfCharacterWords::Underline(RtfOutput& out, const QTextCharFormat& format) {
  const char* word = WordForStyle(format.underlineStyle());
  if (word && format.hasProperty(kUnderlineKind)) {
    word = WordForKind(static_cast<UnderlineKind>(format.intProperty(kUnderlineKind)));
  }
  if (!word) return;
  out.Word(word);
  if (format.underlineColor().isValid()) out.Word("ulc", m_header.Colour(format.underlineColor()));
}

void RtfCharacterWords::Effects(RtfOutput& out, const QTextCharFormat& format) {
  if (format.fontStrikeOut()) {
    if (format.boolProperty(kDoubleStrike)) {
      out.Word("striked", 1);
    } else {
      out.Word("strike");
    }
  }
  out.WordIf(format.fontCapitalization() == QFont::AllUppercase, "caps");
  out.WordIf(format.fontCapitalization() == QFont::SmallCaps, "scaps");
  out.WordIf(format.boolProperty(kHiddenText), "v");
  out.WordIf(format.boolProperty(kOutline), "outl");
  out.WordIf(format.boolProperty(kShadow), "shad");
  out.WordIf(format.intProperty(kEmboss) > 0, "embo");
  out.WordIf(format.intProperty(kEmboss) < 0, "impr");
}

void RtfCharacterWords::Position(RtfOutput& out, const QTextCharFormat& format) {
  out.WordIf(format.verticalAlignment() == QTextCharFormat::AlignSuperScript, "super");
  out.WordIf(format.verticalAlignment() == QTextCharFormat::AlignSubScript, "sub");
  const int shift = format.intProperty(kBaselineShift);
  if (shift > 0) out.Word("up", shift);
  if (shift < 0) out.Word("dn", -shift);
  const int scale =
      format.hasProperty(kCharScalePercent) ? format.intProperty(kCharScalePercent) : format.fontStretch();
  if (scale > 0 && scale != 100) out.Word("charscalex", scale);
  if (format.fontLetterSpacingType() == QFont::AbsoluteSpacing && format.fontLetterSpacing() != 0) {
    out.Word("expndtw", TwipsFromLength(format.fontLetterSpacing()));
  }
}

void RtfCharacterWords::Colours(RtfOutput& out, const QTextCharFormat& format) {
  if (format.foreground().style() != Qt::NoBrush) out.Word("cf", m_header.Colour(format.foreground().color()));
  if (format.background().style() == Qt::NoBrush || format.background().color().alpha() == 0) return;
  const int colour = m_header.Colour(format.background().color());
  if (format.boolProperty(kHighlight)) {
    out.Word("highlight", colour);
    return;
  }
  // The first is how word processors shade characters, the second how small editors do.
  out.Word("chshdng", 0);
  out.Word("chcbpat", colour);
  out.Word("cb", colour);
}

}  // namespace snipdeck
