#pragma once

#include <QString>

namespace snipdeck {

/// What a spreadsheet shows for a number in a format as "#,##0.00;[Red]-0.00" or "dd/mm/yyyy". Names of months and days
/// are in the language that the format names, else English like the separators. `since1904` says from which day dates count.
QString FormatCellNumber(double number, const QString& format, bool since1904);

/// The format of a number that spreadsheets know without its being written down; empty for one that they do not.
QString BuiltInFormat(int number);

}  // namespace snipdeck
