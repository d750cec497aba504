#include "richtext/list_labels.h"

#include <QRegularExpression>

#include "richtext/format_values.h"

namespace snipdeck {
namespace {

constexpr qsizetype kLongest = 50;

/// Qt shows a full stop behind a number when the format does not say otherwise.
QString Suffix(const QTextListFormat& format) {
  return format.hasProperty(QTextFormat::ListNumberSuffix) ? format.numberSuffix().left(kLongest) : QStringLiteral(".");
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

QList<LabelPiece> PiecesOfLabel(const QTextListFormat& format, const QString& label, int level) {
  if (IsBullet(format)) return {{label.isEmpty() ? BulletOf(format.style()) : label.left(kLongest), -1}};
  QList<LabelPiece> pieces = PiecesOfNumbers(label, level);
  if (!pieces.isEmpty()) return pieces;
  return {{format.numberPrefix().left(kLongest), -1}, {{}, level}, {Suffix(format), -1}};
}

}  // namespace snipdeck
