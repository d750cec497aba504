#pragma once

#include <vector>

#include <QTextFormat>
#include <QVariant>

#include "richtext/text_flow.h"

class QTextCursor;
class QTextDocument;

namespace snipdeck {

/// A picture by the name that formats call it.
struct FlowPicture {
  QString name;
  QVariant content;  ///< A QImage, or the bytes of a file.
};

/// A whole text as its reader left it: a fraction of the size of a document, and quick to write into any number of
/// them.
struct FlowText {
  std::vector<Flow> pieces;  ///< In reading order, each of whole paragraphs and tables.
  FlowFormats formats;
  std::vector<FlowPicture> pictures;
  QTextFrameFormat page;  ///< What the text says of its page and of headers and footers, as properties.
};

/// Writes the text into an empty document, without undo.
void FillDocument(const FlowText& text, QTextDocument& document);

/// As CopyText does with a document; `cursor` must stand outside of tables and frames.
void InsertFlowText(const FlowText& text, QTextCursor& cursor);

/// The same with one piece; those before it have been inserted right before the cursor, with the same `lists`.
void InsertFlowPiece(const FlowText& text, std::size_t piece, QTextCursor& cursor, BegunLists& lists);

/// Whether a piece is so long that it takes some milliseconds to insert.
bool IsPieceFull(const Flow& piece);

/// Cuts pieces that are longer than that between their paragraphs; tables stay whole.
void CutPieces(FlowText& text);

/// Plain text, with paragraphs ending at "\n".
FlowText PlainFlow(QStringView text);

bool HasTables(const FlowText& text);

/// The characters that are not hidden, with "\n" between paragraphs and cells.
QString CharactersOf(const FlowText& text);

/// How many characters a document has for it, but for those that mark the structure of tables.
qsizetype LengthOf(const FlowText& text);

}  // namespace snipdeck
