#pragma once

#include <vector>

#include <QTextCursor>

#include "richtext/text_flow.h"

class QTextDocument;

namespace snipdeck {

/// Writes flows into a document, one behind the other, in runs and within one edit block.
class DocumentBuilder {
 public:
  /// Into an empty document, without undo.
  DocumentBuilder(QTextDocument& document, const FlowFormats& formats);
  /// At `cursor`, outside of tables. The first paragraph joins the cursor's when that one has text. The cursor is null
  /// until TakeCursor: a document that has fewer to keep in place is quicker to fill. `lists` are gone on with.
  DocumentBuilder(QTextCursor& cursor, const FlowFormats& formats, BegunLists lists);
  ~DocumentBuilder();
  DocumentBuilder(const DocumentBuilder&) = delete;
  DocumentBuilder& operator=(const DocumentBuilder&) = delete;

  /// Writes whole paragraphs and tables; a flow ends with the end of a paragraph or with a table.
  void Append(const Flow& flow);
  /// The cursor, behind what was written; nothing can be written any more.
  QTextCursor TakeCursor();
  BegunLists TakeLists() { return std::move(m_lists); }

 private:
  /// What the next paragraph does with the block at the cursor.
  enum class Block { Fill, Join, Follow };
  struct Place {
    QTextCursor cursor;
    Block block = Block::Fill;
    int paragraphFormat = -1;  ///< Of the last paragraph that was begun here.
    QString pending;           ///< Text not yet in the document, all of one format, perhaps of several like paragraphs.
    int pendingFormat = -1;
  };
  void Write(Place& place, const Flow& flow);
  void WriteParagraph(Place& place, const Flow& flow, std::size_t firstItem, std::size_t end, qsizetype at);
  void StartBlock(Place& place, const FlowItem& mark);
  bool IsLikeParagraphBefore(const Place& place, const FlowItem& mark) const;
  void Flush(Place& place);
  void WriteTable(Place& place, const TableFlow& table);
  void WriteRows(Place& place, const TableFlow& table, std::size_t begin, std::size_t end);
  QTextBlockFormat BlockFormat(int index);
  void StartList(Place& place, int index);

  QTextDocument& m_document;
  const FlowFormats& m_formats;
  Place m_body;
  BegunLists m_lists;
  const bool m_hadUndo;
  int m_depth = 0;
};

}  // namespace snipdeck
