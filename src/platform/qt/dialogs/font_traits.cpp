#include "platform/qt/dialogs/font_traits.h"

#include "platform/qt/dialogs/selection_formats.h"
#include "platform/qt/rich_text_control.h"
#include "richtext/format_properties.h"
#include "richtext/format_values.h"

namespace snipdeck {

namespace {

struct UnderlineEntry {
  UnderlineLook look;
  QTextCharFormat::UnderlineStyle style;
  UnderlineKind kind;
};
constexpr UnderlineEntry kUnderlines[] = {
    {UnderlineLook::None, QTextCharFormat::NoUnderline, UnderlineKind::None},
    {UnderlineLook::Single, QTextCharFormat::SingleUnderline, UnderlineKind::None},
    {UnderlineLook::Double, QTextCharFormat::SingleUnderline, UnderlineKind::Double},
    {UnderlineLook::WordsOnly, QTextCharFormat::SingleUnderline, UnderlineKind::WordsOnly},
    {UnderlineLook::Dotted, QTextCharFormat::DotLine, UnderlineKind::None},
    {UnderlineLook::Dashed, QTextCharFormat::DashUnderline, UnderlineKind::None},
    {UnderlineLook::Wave, QTextCharFormat::WaveUnderline, UnderlineKind::None},
};

UnderlineLook UnderlineOf(const QTextCharFormat& format) {
  auto kind = static_cast<UnderlineKind>(format.intProperty(kUnderlineKind));
  if (kind == UnderlineKind::Single || !format.fontUnderline()) kind = UnderlineKind::None;
  for (const UnderlineEntry& entry : kUnderlines)
    if (entry.style == format.underlineStyle() && entry.kind == kind) return entry.look;
  return UnderlineLook::Other;
}

StrikeLook StrikeOf(const QTextCharFormat& format) {
  if (!format.fontStrikeOut()) return StrikeLook::None;
  return format.boolProperty(kDoubleStrike) ? StrikeLook::Double : StrikeLook::Single;
}

QColor ColourOf(const QBrush& brush) {
  return brush.style() == Qt::NoBrush ? QColor() : brush.color();
}

void SetUnderline(QTextCharFormat& change, UnderlineLook look) {
  for (const UnderlineEntry& entry : kUnderlines) {
    if (entry.look != look) continue;
    change.setUnderlineStyle(entry.style);
    change.setProperty(kUnderlineKind, static_cast<int>(entry.kind));
  }
}

void SetStrike(QTextCharFormat& change, StrikeLook look) {
  change.setFontStrikeOut(look != StrikeLook::None);
  change.setProperty(kDoubleStrike, look == StrikeLook::Double);
}

void SetBackground(QTextCharFormat& change, const QColor& colour) {
  change.setBackground(colour.isValid() ? QBrush(colour) : QBrush());
  change.setProperty(kHighlight, colour.isValid());
}

/// Runs `set` with the value that `after` has and `before` has not.
template <typename T, typename Set>
void IfChanged(const std::optional<T>& before, const std::optional<T>& after, Set set) {
  if (after && after != before) set(*after);
}

}  // namespace

FontTraits FontTraits::Of(const QTextCharFormat& format, const QFont& defaults) {
  FontTraits traits;
  traits.family = FontFamilies(format, defaults).first();
  traits.points = PointSize(format, defaults);
  traits.bold = format.fontWeight() >= QFont::DemiBold;
  traits.italic = format.fontItalic();
  traits.underline = UnderlineOf(format);
  traits.strike = StrikeOf(format);
  traits.position = format.verticalAlignment();
  traits.capitals = format.fontCapitalization();
  traits.colour = ColourOf(format.foreground());
  traits.background = ColourOf(format.background());
  return traits;
}

FontTraits FontTraits::OfSelection(const RichTextControl& control) {
  const QFont defaults = control.document()->defaultFont();
  const QList<QTextCharFormat> formats = SelectedCharFormats(control);
  FontTraits common = Of(formats.first(), defaults);
  for (const QTextCharFormat& format : formats) {
    const FontTraits other = Of(format, defaults);
    KeepCommon(common.family, other.family);
    KeepCommon(common.points, other.points);
    KeepCommon(common.bold, other.bold);
    KeepCommon(common.italic, other.italic);
    KeepCommon(common.underline, other.underline);
    KeepCommon(common.strike, other.strike);
    KeepCommon(common.position, other.position);
    KeepCommon(common.capitals, other.capitals);
    KeepCommon(common.colour, other.colour);
    KeepCommon(common.background, other.background);
  }
  return common;
}

QTextCharFormat FontChange(const FontTraits& before, const FontTraits& after) {
  QTextCharFormat change;
  IfChanged(before.family, after.family, [&](const QString& name) { change.setFontFamilies({name}); });
  IfChanged(before.points, after.points, [&](double size) { change.setFontPointSize(size); });
  IfChanged(before.bold, after.bold, [&](bool on) { change.setFontWeight(on ? QFont::Bold : QFont::Normal); });
  IfChanged(before.italic, after.italic, [&](bool on) { change.setFontItalic(on); });
  IfChanged(before.underline, after.underline, [&](UnderlineLook look) { SetUnderline(change, look); });
  IfChanged(before.strike, after.strike, [&](StrikeLook look) { SetStrike(change, look); });
  IfChanged(before.position, after.position, [&](auto where) { change.setVerticalAlignment(where); });
  IfChanged(before.capitals, after.capitals, [&](auto how) { change.setFontCapitalization(how); });
  // A colour cannot be taken away by a change, but an empty brush stands for none.
  IfChanged(before.colour, after.colour,
            [&](const QColor& colour) { change.setForeground(colour.isValid() ? QBrush(colour) : QBrush()); });
  IfChanged(before.background, after.background, [&](const QColor& colour) { SetBackground(change, colour); });
  return change;
}

}  // namespace snipdeck
