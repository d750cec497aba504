#pragma once

#include <cstddef>
#include <vector>

#include <QDateTime>
#include <QLocale>

#include "richtext/xlsx/number_section.h"

namespace snipdeck {

/// The first day number that is no date any more.
inline constexpr double kLargestDay = 2958466;  // the day after the year 9999

/// A day number of a sheet, for the pieces of a format that name parts of its date and time. Fractions of a second are
/// rounded to the smallest part that the format shows.
class ShownDate {
 public:
  /// `number` is from 0 up to kLargestDay; `section` outlives the object.
  ShownDate(double number, const NumberSection& section, bool since1904);

  /// What the piece with this index shows.
  QString Show(std::size_t index) const;

 private:
  bool IsMinute(std::size_t index) const;
  QString Elapsed(const QString& word) const;
  QString Half(const QString& word) const;
  QString Day(int size) const;
  QString Month(int size) const;
  QString NameOf(const QString& name) const;

  const std::vector<FormatToken>& m_tokens;
  const QLocale& m_language;
  qint64 m_milliseconds = 0;  ///< since the day number 0
  QDate m_date;
  QTime m_time;
  bool m_isHalf = false;
};

}  // namespace snipdeck
