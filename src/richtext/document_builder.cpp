#include "richtext/document_builder.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>

#include "richtext/blank_lines.h"
#include "richtext/format_properties.h"
#include "richtext/list_labels.h"
#include "richtext/table_grid.h"

namespace snipdeck {
namespace {

// Qt numbers the cells of a table anew after each merge, so long tables go on in a further table.
constexpr std::size_t kMaxRowsMerged = 100;
constexpr std::size_t kMaxRowsPlain = 5000;
// Deeper tables are written as plain paragraphs: Qt's layout recurses.
constexpr int kMaxTableDepth = 12;
constexpr qsizetype kMostPending = 16 * 1024;

// A cell's format and that of its first paragraph's mark are one and the same: the former must not be lost to the
// latter.
void SetCellFormat(QTextTableCell& cell, const QTextTableCellFormat& format) {
  QTextCharFormat both = cell.format();
  both.clearBackground();
  both.merge(format);
  cell.setFormat(both);
}

void MarkSeam(QTextCursor& behindTable) {
  QTextBlockFormat seam;
  seam.setProperty(kTableGoesOn, true);
  behindTable.setBlockFormat(seam);
}

}  // namespace

DocumentBuilder::DocumentBuilder(QTextDocument& document, const FlowFormats& formats)
    : m_document(document), m_formats(formats), m_hadUndo(document.isUndoRedoEnabled()) {
  m_document.setUndoRedoEnabled(false);
  m_body.cursor = QTextCursor(&m_document);
  m_body.cursor.beginEditBlock();
}

DocumentBuilder::DocumentBuilder(QTextCursor& cursor, const FlowFormats& formats, BegunLists lists)
    : m_document(*cursor.document()),
      m_formats(formats),
      m_lists(std::move(lists)),
      m_hadUndo(m_document.isUndoRedoEnabled()) {
  m_body.block = cursor.block().length() > 1 ? Block::Join : Block::Fill;
  m_body.cursor.swap(cursor);
  m_body.cursor.beginEditBlock();
}

QTextCursor DocumentBuilder::TakeCursor() {
  QTextCursor cursor;
  if (!m_body.cursor.isNull()) m_body.cursor.endEditBlock();
  cursor.swap(m_body.cursor);
  return cursor;
}

DocumentBuilder::~DocumentBuilder() {
  TakeCursor();
  if (m_hadUndo != m_document.isUndoRedoEnabled()) m_document.setUndoRedoEnabled(m_hadUndo);
}

void DocumentBuilder::Append(const Flow& flow) {
  Write(m_body, flow);
}

void DocumentBuilder::Write(Place& place, const Flow& flow) {
  std::size_t paragraph = 0;
  std::size_t table = 0;
  qsizetype paragraphAt = 0;
  qsizetype at = 0;
  for (std::size_t i = 0; i < flow.items.size(); ++i) {
    const FlowItem& item = flow.items[i];
    if (item.kind == FlowItem::Kind::Run) {
      at += item.length;
      continue;
    }
    if (item.kind == FlowItem::Kind::Table) {
      WriteTable(place, *flow.tables[table++]);
    } else {
      WriteParagraph(place, flow, paragraph, i, paragraphAt);
    }
    paragraph = i + 1;
    paragraphAt = at;
  }
  Flush(place);
}

void DocumentBuilder::WriteParagraph(Place& place, const Flow& flow, std::size_t firstItem, std::size_t end,
                                     qsizetype at) {
  if (place.block != Block::Join) StartBlock(place, flow.items[end]);
  place.block = Block::Follow;
  for (std::size_t i = firstItem; i < end; ++i) {
    const FlowItem& run = flow.items[i];
    if (run.format != place.pendingFormat || place.pending.size() > kMostPending) Flush(place);
    place.pendingFormat = run.format;
    place.pending += QStringView(flow.text).sliced(at, run.length);
    at += run.length;
  }
}

// Each insertion costs Qt far more than its characters do.
void DocumentBuilder::Flush(Place& place) {
  if (place.pending.isEmpty()) return;
  place.cursor.insertText(place.pending, m_formats.characters[static_cast<std::size_t>(place.pendingFormat)]);
  place.pending.resize(0);  // keeps the memory
}

bool DocumentBuilder::IsLikeParagraphBefore(const Place& place, const FlowItem& mark) const {
  return place.block == Block::Follow && mark.format == place.paragraphFormat &&
         (place.pending.isEmpty() || mark.length == place.pendingFormat);
}

void DocumentBuilder::StartBlock(Place& place, const FlowItem& mark) {
  if (IsLikeParagraphBefore(place, mark)) {
    place.pending += QChar::ParagraphSeparator;
    place.pendingFormat = mark.length;
    return;
  }
  Flush(place);
  place.paragraphFormat = mark.format;
  const QTextCharFormat& markFormat = m_formats.characters[static_cast<std::size_t>(mark.length)];
  const QTextBlockFormat blockFormat = BlockFormat(mark.format);
  QTextCursor& cursor = place.cursor;
  if (place.block == Block::Fill) {
    cursor.setBlockFormat(blockFormat);
    // The mark of a cell's first paragraph shares its format with the cell, which must not be lost.
    m_depth > 0 ? cursor.mergeBlockCharFormat(markFormat) : cursor.setBlockCharFormat(markFormat);
  } else {
    cursor.insertBlock(blockFormat, markFormat);
  }
  StartList(place, mark.format);
}

// A paragraph of a list that exists joins it through its format.
QTextBlockFormat DocumentBuilder::BlockFormat(int index) {
  const FlowFormats::Paragraph& paragraph = m_formats.paragraphs[static_cast<std::size_t>(index)];
  QTextBlockFormat format = paragraph.format;
  if (paragraph.list < 0) return format;
  const QTextListFormat& listFormat = m_formats.lists[static_cast<std::size_t>(paragraph.list)];
  if (format.hasProperty(kListLabel) || listFormat.hasProperty(kListStart)) TakeLabelFromQt(format);
  if (m_lists.size() < m_formats.lists.size()) m_lists.resize(m_formats.lists.size());
  const QTextList* list = m_lists[static_cast<std::size_t>(paragraph.list)];
  if (list) format.setObjectIndex(list->objectIndex());
  return format;
}

void DocumentBuilder::StartList(Place& place, int index) {
  const int list = m_formats.paragraphs[static_cast<std::size_t>(index)].list;
  if (list < 0 || place.cursor.blockFormat().objectIndex() >= 0) return;
  m_lists[static_cast<std::size_t>(list)] = place.cursor.createList(m_formats.lists[static_cast<std::size_t>(list)]);
}

void DocumentBuilder::WriteTable(Place& place, const TableFlow& table) {
  if (table.rows.empty()) return;
  Flush(place);
  if (m_depth >= kMaxTableDepth) {
    for (const RowFlow& row : table.rows) {
      for (const Flow& cell : row.cells) Write(place, cell);
    }
    return;
  }
  ++m_depth;
  std::size_t begin = 0;
  while (begin < table.rows.size()) {
    const std::size_t limit = TableGrid::NeedsMerging(table, begin, kMaxRowsPlain) ? kMaxRowsMerged : kMaxRowsPlain;
    const std::size_t end = TableGrid::ChunkEnd(table, begin, limit);
    if (begin > 0) MarkSeam(place.cursor);
    WriteRows(place, table, begin, end);
    begin = end;
  }
  --m_depth;
}

void DocumentBuilder::WriteRows(Place& place, const TableFlow& table, std::size_t begin, std::size_t end) {
  const TableGrid grid(table, begin, end);
  if (place.block == Block::Follow) ShowBlankLine(place.cursor.block());
  QTextTable* inserted = place.cursor.insertTable(grid.Rows(), grid.Columns(), grid.Format());
  for (const TableGrid::Cell& cell : grid.Cells()) {
    if (cell.rowSpan > 1 || cell.columnSpan > 1) {
      inserted->mergeCells(cell.row, cell.column, cell.rowSpan, cell.columnSpan);
    }
  }
  for (const TableGrid::Cell& cell : grid.Cells()) {
    QTextTableCell target = inserted->cellAt(cell.row, cell.column);
    Place inside;
    inside.cursor = target.firstCursorPosition();
    for (const Flow* flow : cell.content) Write(inside, *flow);
    SetCellFormat(target, TableGrid::CellFormat(cell));
  }
  place.cursor.setPosition(inserted->lastPosition() + 1);
  place.cursor.setBlockFormat(QTextBlockFormat());
  place.block = Block::Fill;
}

}  // namespace snipdeck
