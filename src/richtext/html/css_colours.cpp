#include "richtext/html/css_colours.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include <QColor>
#include <QRegularExpression>

namespace snipdeck {
namespace {

QString Opaque(const QColor& colour, double alpha) {
  if (alpha <= 0) return QStringLiteral("transparent");
  const auto mixed = [alpha](int part) { return qRound(part * alpha + 255 * (1 - alpha)); };
  return alpha >= 1 ? colour.name() : QColor(mixed(colour.red()), mixed(colour.green()), mixed(colour.blue())).name();
}

/// "#rgb", "#rgba", "#rrggbb" and "#rrggbbaa": unlike Qt, CSS puts the alpha last.
QString FromDigits(const QString& word) {
  const bool isShort = word.size() <= 5;
  const qsizetype colour = isShort ? 4 : 7;
  const int width = isShort ? 1 : 2;
  if (word.size() != colour && word.size() != colour + width) return {};
  const QColor opaque(word.first(colour));
  if (!opaque.isValid()) return {};
  const double most = isShort ? 15 : 255;
  return Opaque(opaque, word.size() > colour ? word.mid(colour).toInt(nullptr, 16) / most : 1);
}

/// A number, or a percentage of `whole`.
std::optional<double> Part(QString word, double whole) {
  const bool isPercentage = word.endsWith(u'%');
  if (isPercentage) word.chop(1);
  bool isNumber = false;
  const double number = word.remove(QLatin1String("deg")).toDouble(&isNumber);
  if (!isNumber || !std::isfinite(number)) return std::nullopt;
  return isPercentage ? number * whole / 100 : number;
}

/// The numbers of "rgb(...)" and "hsl(...)", parted by commas or blanks.
QString FromFunction(const QString& word) {
  static const QRegularExpression kSeparators(QStringLiteral("[\\s,/()]+"));
  const QStringList words = word.split(kSeparators, Qt::SkipEmptyParts);
  if (words.size() < 4) return {};
  const bool isHsl = words[0].startsWith(QLatin1String("hsl"));
  const double whole = isHsl ? 1 : 255;
  const auto first = Part(words[1], whole), second = Part(words[2], whole), third = Part(words[3], whole);
  const auto alpha = words.size() > 4 ? Part(words[4], 1) : std::optional(1.0);
  if (!first || !second || !third || !alpha) return {};
  if (isHsl) {
    const double turn = *first / 360 - std::floor(*first / 360);
    return Opaque(QColor::fromHslF(static_cast<float>(turn), static_cast<float>(std::clamp(*second, 0.0, 1.0)),
                                   static_cast<float>(std::clamp(*third, 0.0, 1.0))),
                  *alpha);
  }
  const auto byte = [](double part) { return qRound(std::clamp(part, 0.0, 255.0)); };
  return Opaque(QColor(byte(*first), byte(*second), byte(*third)), *alpha);
}

}  // namespace

QString CssColour(const QString& value) {
  static const QRegularExpression kWord(QStringLiteral("#[0-9a-f]+|(?:rgb|hsl)a?\\([^)]*\\)|[a-z-]+"));
  for (auto it = kWord.globalMatch(value); it.hasNext();) {
    const QString word = it.next().captured(0);
    QString colour;
    if (word.startsWith(u'#')) {
      colour = FromDigits(word);
    } else if (word.contains(u'(')) {
      colour = FromFunction(word);
    } else if (word == QLatin1String("transparent")) {
      colour = word;
    } else if (const QColor named(word); named.isValid()) {
      colour = named.name();
    }
    if (!colour.isEmpty()) return colour;
  }
  return {};
}

}  // namespace snipdeck
