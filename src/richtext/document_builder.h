#pragma once

#include <vector>

#include <QTextCursor>

#include "richtext/text_flow.h"

class QTextDocument;
class QTextList;

namespace snipdeck {

/// Appends flows to a document, in runs, within one edit block and without undo. The document must be empty at first.
class DocumentBuilder {
 public:
  DocumentBuilder(QTextDocument& document, const FlowFormats& formats);
  ~DocumentBuilder();
  DocumentBuilder(const DocumentBuilder&) = delete;
  DocumentBuilder& operator=(const DocumentBuilder&) = delete;

  /// Writes whole paragraphs and tables; a flow ends with the end of a paragraph or with a table.
  void Append(const Flow& flow);

 private:
  /// Where a flow is written: `fresh` when the block at the cursor has not been used yet.
  struct Place {
    QTextCursor cursor;
    bool fresh = true;
  };
  void Write(Place& place, const Flow& flow);
  void WriteParagraph(Place& place, const Flow& flow, std::size_t firstItem, std::size_t end, qsizetype at);
  void WriteTable(Place& place, const TableFlow& table);
  void WriteRows(Place& place, const TableFlow& table, std::size_t begin, std::size_t end);
  QTextBlockFormat BlockFormat(int index);
  void StartList(Place& place, int index);

  QTextDocument& m_document;
  const FlowFormats& m_formats;
  Place m_body;
  std::vector<QTextList*> m_lists;  ///< Those that have been begun, by their number in the formats.
  bool m_hadUndo;
  int m_depth = 0;
};

}  // namespace snipdeck
