#pragma once

#include <optional>
#include <vector>

#include <QLocale>
#include <QString>

namespace snipdeck {

/// One piece of a number format: characters that show as they are, or a word that stands for a part of the number.
struct FormatToken {
  enum class Kind { Literal, Digits, Date, General, Text };
  Kind kind;
  QString text;
};

/// One section of a number format, split into its pieces.
class NumberSection {
 public:
  /// Which numbers the section is for, where it says so.
  struct Condition {
    QString sign;  ///< as "<" or ">="
    double limit = 0;

    bool Holds(double number) const;
  };

  explicit NumberSection(const QString& text);

  bool HasDate() const { return Has(FormatToken::Kind::Date); }
  bool HasDigits() const { return Has(FormatToken::Kind::Digits); }
  /// Shows the number as a cell without a format does.
  bool IsGeneral() const;
  const std::vector<FormatToken>& Tokens() const { return m_tokens; }
  const std::optional<Condition>& Only() const { return m_condition; }
  /// The language of the names of months and days.
  const QLocale& Language() const { return m_language; }

 private:
  bool Has(FormatToken::Kind kind) const;
  void Add(FormatToken::Kind kind, const QString& text);
  // Each of these takes the piece at `i` and returns where the next one begins.
  qsizetype Take(const QString& text, qsizetype i);
  qsizetype Literal(const QString& text, qsizetype next);
  qsizetype Quoted(const QString& text, qsizetype i);
  qsizetype Bracketed(const QString& text, qsizetype i);
  qsizetype Exponent(const QString& text, qsizetype i);
  template <typename Belongs>
  qsizetype Run(const QString& text, qsizetype i, FormatToken::Kind kind, Belongs belongs);
  void SetCurrency(const QString& inside);

  std::vector<FormatToken> m_tokens;
  std::optional<Condition> m_condition;
  QLocale m_language = QLocale::c();
};

/// The sections of a format, which semicolons outside of quotes divide.
std::vector<NumberSection> SectionsOf(const QString& format);

}  // namespace snipdeck
