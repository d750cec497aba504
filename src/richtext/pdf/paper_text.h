#pragma once

class QTextDocument;

namespace snipdeck {

/// Makes a copy of a text fit for a sheet of `dotsPerInch`, on which Qt's layout is to place it: takes out what is hidden,
/// and says in other words what Qt would not measure in dots or would draw in a wrong size there. The copy is good for
/// nothing else afterwards.
void PrepareForPaper(QTextDocument& copy, int dotsPerInch);

}  // namespace snipdeck
