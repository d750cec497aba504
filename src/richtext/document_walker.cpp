#include "richtext/document_walker.h"

#include <algorithm>

#include <QTextDocument>
#include <QTextFragment>
#include <QTextFrame>
#include <QTextTable>

#include "richtext/format_properties.h"

namespace snipdeck {
namespace {

class Walk {
 public:
  Walk(DocumentVisitor& visitor, int begin, int end) : m_visitor(visitor), m_begin(begin), m_end(end) {}

  void Contents(QTextFrame::iterator it, int endOfContents) {
    if (IsOnlyStart(it)) ++it;
    for (; !it.atEnd(); ++it) {
      if (QTextFrame* const frame = it.currentFrame()) {
        if (Touches(frame->firstPosition(), frame->lastPosition())) Frame(*frame);
      } else {
        const QTextBlock block = it.currentBlock();
        // Qt looks both up in a tree.
        const int first = block.position();
        const int length = block.length();
        if (length == 1 && block.blockFormat().boolProperty(kTableGoesOn)) continue;
        if (Touches(first, first + length - 1)) Block(block, first, length, first + length > std::min(endOfContents, m_end));
      }
    }
  }

 private:
  /// The empty paragraph that Qt needs in front of a table which begins its text or cell.
  static bool IsOnlyStart(QTextFrame::iterator it) {
    if (it.atEnd() || it.currentFrame() || it.currentBlock().length() > 1) return false;
    ++it;
    return !it.atEnd() && qobject_cast<QTextTable*>(it.currentFrame());
  }

  bool Touches(int first, int last) const { return first <= m_end && last >= m_begin; }
  bool LiesWithin(int first, int last) const { return first <= m_begin && m_end <= last; }

  void Frame(const QTextFrame& frame) {
    if (const auto* table = qobject_cast<const QTextTable*>(&frame)) return Table(*table);
    if (LiesWithin(frame.firstPosition(), frame.lastPosition())) return Contents(frame.begin(), frame.lastPosition());
    m_visitor.BeginFrame(frame);
    Contents(frame.begin(), frame.lastPosition());
    m_visitor.EndFrame(frame);
  }

  void Table(const QTextTable& table) {
    const QTextTableCell at = table.cellAt(m_begin);
    if (at.isValid() && LiesWithin(at.firstPosition(), at.lastPosition())) {
      return Contents(at.begin(), at.lastPosition());
    }
    m_visitor.BeginTable(table);
    for (int row = 0; row < table.rows(); ++row) {
      if (RowTouches(table, row)) Row(table, row);
    }
    m_visitor.EndTable(table);
  }

  bool RowTouches(const QTextTable& table, int row) const {
    return Touches(table.cellAt(row, 0).firstPosition(), table.cellAt(row, table.columns() - 1).lastPosition());
  }

  void Row(const QTextTable& table, int row) {
    m_visitor.BeginRow(table, row);
    for (int column = 0; column < table.columns();) {
      const QTextTableCell cell = table.cellAt(row, column);
      if (cell.row() == row) {
        Cell(table, cell);
      } else {
        m_visitor.CoveredCell(table, cell);
      }
      column = std::max(column + 1, cell.column() + cell.columnSpan());
    }
    m_visitor.EndRow(table, row);
  }

  void Cell(const QTextTable& table, const QTextTableCell& cell) {
    m_visitor.BeginCell(table, cell);
    Contents(cell.begin(), cell.lastPosition());
    m_visitor.EndCell(table, cell);
  }

  void Block(const QTextBlock& block, int first, int length, bool last) {
    m_visitor.BeginBlock(block);
    if (length > 1) Runs(block, first);
    m_visitor.EndBlock(block, last);
  }

  void Runs(const QTextBlock& block, int first) {
    const QString text = block.text();
    int at = 0;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextFragment run = it.fragment();
      const int end = at + run.length();
      const int from = std::max(m_begin - first, at);
      const int to = std::min(m_end - first, end);
      if (from < to) Characters(run, QStringView(text).mid(from, to - from));
      at = end;
    }
  }

  void Characters(const QTextFragment& run, QStringView text) {
    const QTextCharFormat format = run.charFormat();
    if (!format.isImageFormat()) return m_visitor.Run(text, format, run.charFormatIndex());
    // Pictures of one format side by side share a fragment.
    for (const QChar character : text) {
      if (character == QChar::ObjectReplacementCharacter)
        m_visitor.Image(format.toImageFormat(), run.charFormatIndex());
    }
  }

  DocumentVisitor& m_visitor;
  const int m_begin;
  const int m_end;
};

}  // namespace

void WalkDocument(const QTextDocument& document, DocumentVisitor& visitor, int begin, int end) {
  const int last = document.characterCount() - 1;
  const int to = end < 0 ? last : std::min(end, last);
  Walk(visitor, std::clamp(begin, 0, to), to).Contents(document.rootFrame()->begin(), last);
}

}  // namespace snipdeck
