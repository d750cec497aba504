#pragma once

#include <QtGlobal>

class QTextDocument;

namespace snipdeck::test {

/// Fills an empty document with text, formats, lists, tables and pictures drawn from `seed`; the same seed gives the
/// same document. `size` is about the number of paragraphs.
void FillWithRandomText(QTextDocument& document, quint32 seed, int size);

}  // namespace snipdeck::test
