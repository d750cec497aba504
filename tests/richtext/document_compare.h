#pragma once

#include <QString>
#include <QStringList>

class QTextDocument;

namespace snipdeck::test {

/// What a document shows, a line a thing: paragraphs, runs, pictures, tables, each with its formats in the units that
/// files count in. Neighbouring runs of equal formats are one run.
QStringList Describe(const QTextDocument& document);

/// The first thing in which two documents differ, in words; empty when they show the same text in the same formats.
QString FirstDifference(const QTextDocument& expected, const QTextDocument& actual);

}  // namespace snipdeck::test
