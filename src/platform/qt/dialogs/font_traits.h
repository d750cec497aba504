#pragma once

#include <optional>

#include <QColor>
#include <QTextCharFormat>

namespace snipdeck {

class RichTextControl;

enum class UnderlineLook { None, Single, Double, WordsOnly, Dotted, Dashed, Wave, Other };
enum class StrikeLook { None, Single, Double };

/// What the font dialog shows of characters. A trait without a value differs within the selection.
struct FontTraits {
  std::optional<QString> family;
  std::optional<double> points;
  std::optional<bool> bold;
  std::optional<bool> italic;
  std::optional<UnderlineLook> underline;
  std::optional<StrikeLook> strike;
  std::optional<QTextCharFormat::VerticalAlignment> position;
  std::optional<QFont::Capitalization> capitals;
  /// An invalid colour is that of the control, or no background.
  std::optional<QColor> colour;
  std::optional<QColor> background;

  bool operator==(const FontTraits&) const = default;

  /// Of one format; what it leaves open comes from `defaults`.
  static FontTraits Of(const QTextCharFormat& format, const QFont& defaults);
  /// What the whole selection of a control has in common.
  static FontTraits OfSelection(const RichTextControl& control);
};

/// What makes characters with the traits `before` have those of `after`; traits without a value stay as they are.
QTextCharFormat FontChange(const FontTraits& before, const FontTraits& after);

}  // namespace snipdeck
