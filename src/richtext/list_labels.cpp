#include "richtext/list_labels.h"

#include <algorithm>

#include <QRegularExpression>
#include <QTextList>

#include "richtext/format_properties.h"

namespace snipdeck {
namespace {

constexpr qsizetype kLongest = 50;
constexpr int kMaxRoman = 4000;

/// Qt shows a full stop behind a number when the format does not say otherwise.
QString Suffix(const QTextListFormat& format) {
  return format.hasProperty(QTextFormat::ListNumberSuffix) ? format.numberSuffix().left(kLongest) : QStringLiteral(".");
}

QString Roman(int number) {
  static constexpr struct {
    int value;
    const char* letters;
  } kParts[] = {{1000, "m"}, {900, "cm"}, {500, "d"}, {400, "cd"}, {100, "c"}, {90, "xc"}, {50, "l"},
                {40, "xl"},  {10, "x"},   {9, "ix"},  {5, "v"},    {4, "iv"},  {1, "i"}};
  QString roman;
  for (const auto& part : kParts) {
    for (; number >= part.value; number -= part.value) roman += QLatin1String(part.letters);
  }
  return roman;
}

// a to z, then aa, bb, ...
QString Letters(int number) {
  const int repeat = std::min((number - 1) / 26 + 1, 30);
  return QString(repeat, QChar(u'a' + (number - 1) % 26));
}

/// Qt turns the number round for a paragraph that runs from right to left; files have it as it is read.
QString NumberInReadingOrder(const QTextBlock& block) {
  const QString shown = block.textList()->itemText(block);
  if (block.textDirection() != Qt::RightToLeft) return shown;
  const QTextListFormat format = block.textList()->format();
  const QString prefix = format.numberPrefix();
  const QString suffix = Suffix(format);
  if (!shown.startsWith(suffix) || !shown.endsWith(prefix)) return shown;
  return prefix + shown.mid(suffix.size(), shown.size() - suffix.size() - prefix.size()) + suffix;
}

QList<LabelPiece> PiecesOfNumbers(const QString& label, int level) {
  static const QRegularExpression kPiece(
      QStringLiteral("(\\d+|\\b[A-Za-z]\\b|\\b(?:[ivxlcdm]+|[IVXLCDM]+)\\b)|([^\\W\\d_]+|[\\W_]+)"));
  QList<LabelPiece> pieces;
  int numbers = 0;
  for (auto it = kPiece.globalMatch(label.left(kLongest)); it.hasNext();) {
    const QRegularExpressionMatch match = it.next();
    numbers += match.hasCaptured(1);
    pieces.append(match.hasCaptured(1) ? LabelPiece{{}, 0} : LabelPiece{match.captured(2), -1});
  }
  if (numbers < 1 || numbers > level + 1) return {};
  int next = level + 1 - numbers;
  for (LabelPiece& piece : pieces) {
    if (piece.level == 0) piece.level = next++;
  }
  return pieces;
}

}  // namespace

bool IsBullet(const QTextListFormat& format) {
  return format.style() > QTextListFormat::ListDecimal || format.style() < QTextListFormat::ListUpperRoman;
}

QString BulletOf(QTextListFormat::Style style) {
  if (style == QTextListFormat::ListCircle) return QStringLiteral("\u25E6");
  return style == QTextListFormat::ListSquare ? QStringLiteral("\u25AA") : QStringLiteral("\u2022");
}

QString ListNumber(int number, QTextListFormat::Style style) {
  const bool isRoman = style == QTextListFormat::ListLowerRoman || style == QTextListFormat::ListUpperRoman;
  const bool isLetters = style == QTextListFormat::ListLowerAlpha || style == QTextListFormat::ListUpperAlpha;
  const bool isUpper = style == QTextListFormat::ListUpperRoman || style == QTextListFormat::ListUpperAlpha;
  if (number < 1 || (isRoman && number >= kMaxRoman) || (!isRoman && !isLetters)) return QString::number(number);
  const QString signs = isRoman ? Roman(number) : Letters(number);
  return isUpper ? signs.toUpper() : signs;
}

QString ListLabel(const QTextBlock& block) {
  const QString own = block.blockFormat().stringProperty(kListLabel);
  const QTextList* const list = block.textList();
  if (!own.isEmpty() || !list) return own;
  const QTextListFormat format = list->format();
  if (IsBullet(format)) return BulletOf(format.style());
  if (!format.hasProperty(kListStart)) return NumberInReadingOrder(block);
  const int number = format.intProperty(kListStart) + list->itemNumber(block);
  return format.numberPrefix().left(kLongest) + ListNumber(number, format.style()) + Suffix(format);
}

void TakeLabelFromQt(QTextBlockFormat& format) {
  format.setProperty(QTextFormat::ListStyle, static_cast<int>(QTextListFormat::ListStyleUndefined));
}

bool IsLabelTakenFromQt(const QTextBlock& block) {
  const QTextBlockFormat format = block.blockFormat();
  return format.objectIndex() >= 0 && format.hasProperty(QTextFormat::ListStyle) &&
         format.intProperty(QTextFormat::ListStyle) == QTextListFormat::ListStyleUndefined;
}

QList<LabelPiece> PiecesOfLabel(const QTextListFormat& format, const QString& label, int level) {
  if (IsBullet(format)) return {{label.isEmpty() ? BulletOf(format.style()) : label.left(kLongest), -1}};
  QList<LabelPiece> pieces = PiecesOfNumbers(label, level);
  if (!pieces.isEmpty()) return pieces;
  return {{format.numberPrefix().left(kLongest), -1}, {{}, level}, {Suffix(format), -1}};
}

}  // namespace snipdeck
