#pragma once

#include <QStringView>
#include <QTextBlock>
#include <QTextTableCell>

class QTextDocument;
class QTextFrame;
class QTextTable;

namespace snipdeck {

/// What a walk over a document meets, in reading order. A writer overrides what it writes.
class DocumentVisitor {
 public:
  virtual ~DocumentVisitor() = default;

  virtual void BeginBlock(const QTextBlock&) {}
  /// `last` is true for the last paragraph of its cell, frame or text.
  virtual void EndBlock(const QTextBlock&, bool /*last*/) {}
  /// Characters of one format; never holds an object replacement character of a picture.
  virtual void Run(QStringView /*text*/, const QTextCharFormat&, int /*formatIndex*/) {}
  virtual void Image(const QTextImageFormat&, int /*formatIndex*/) {}

  virtual void BeginTable(const QTextTable&) {}
  virtual void EndTable(const QTextTable&) {}
  virtual void BeginRow(const QTextTable&, int /*row*/) {}
  virtual void EndRow(const QTextTable&, int /*row*/) {}
  /// Called once a cell, at its upper left corner.
  virtual void BeginCell(const QTextTable&, const QTextTableCell&) {}
  virtual void EndCell(const QTextTable&, const QTextTableCell&) {}
  /// In place of a cell, in the rows below its first, where a cell of an upper row reaches down; once a row.
  virtual void CoveredCell(const QTextTable&, const QTextTableCell&) {}

  virtual void BeginFrame(const QTextFrame&) {}
  virtual void EndFrame(const QTextFrame&) {}
};

/// Walks the characters [begin, end) of `document`; end -1 means to the end. A range inside one cell is walked as plain
/// paragraphs; a range that reaches into several cells gives the rows that it touches. The empty paragraph that Qt
/// keeps in front of a table at the very start is not walked: no one wrote it.
void WalkDocument(const QTextDocument& document, DocumentVisitor& visitor, int begin = 0, int end = -1);

}  // namespace snipdeck
