#pragma once

#include <QString>

class QTextDocument;

namespace snipdeck {

/// The characters [begin, end) of `document` as plain text; end -1 means to the end. Paragraphs and table rows are
/// separated by "\n", cells by a tab; a list paragraph starts with its number or bullet when `withLabels` asks for it.
QString WriteText(const QTextDocument& document, int begin = 0, int end = -1, bool withLabels = false);

}  // namespace snipdeck
