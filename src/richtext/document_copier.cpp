#include "richtext/document_copier.h"

#include <QHash>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTextFragment>
#include <QTextFrame>
#include <QTextList>
#include <QTextTable>
#include <QUrl>
#include <QVariant>

namespace snipdeck {
namespace {

void CopyPicture(const QTextDocument& source, const QTextCharFormat& format, QTextDocument& target) {
  if (!format.isImageFormat()) return;
  const QUrl name(format.toImageFormat().name());
  const QVariant picture = source.resource(QTextDocument::ImageResource, name);
  if (picture.isValid()) target.addResource(QTextDocument::ImageResource, name, picture);
}

void CopyPictures(const QTextDocument& source, QTextDocument& target) {
  const QList<QTextFormat> formats = source.allFormats();
  for (const QTextFormat& format : formats) CopyPicture(source, format.toCharFormat(), target);
}

/// Copies paragraphs outside tables and frames. Formats are looked up once an index: the format that the target gave
/// back shares its data with the target's collection, so that finding it there again costs next to nothing.
class RunCopier {
 public:
  RunCopier(const QTextDocument& source, QTextCursor& cursor) : m_source(source), m_cursor(cursor) {}

  void Copy(int begin, int end) {
    QTextBlock block = m_source.findBlock(begin);
    CopyRuns(block, begin, end);
    for (block = block.next(); block.isValid() && block.position() <= end; block = block.next()) {
      m_cursor.insertBlock(BlockFormat(block), block.charFormat());
      JoinList(block);
      CopyRuns(block, begin, end);
    }
  }

  /// Gives the caret's paragraph the format of `block`, its list included.
  void TakeFormat(const QTextBlock& block) {
    m_cursor.setBlockFormat(BlockFormat(block));
    if (!StartsCell()) m_cursor.setBlockCharFormat(block.charFormat());
    JoinList(block);
  }

 private:
  // The mark of a cell's first paragraph carries the format of the cell.
  bool StartsCell() const {
    const QTextTable* const table = m_cursor.currentTable();
    return table && table->cellAt(m_cursor).firstPosition() == m_cursor.block().position();
  }

  void CopyRuns(const QTextBlock& block, int begin, int end) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextFragment run = it.fragment();
      const int from = std::max(begin - run.position(), 0);
      const int to = std::min(end - run.position(), run.length());
      if (from < to) CopyRun(run, from, to);
    }
  }

  void CopyRun(const QTextFragment& run, int from, int to) {
    const QString text = run.text();
    const int index = run.charFormatIndex();
    const auto known = m_charFormats.constFind(index);
    const bool whole = from == 0 && to == run.length();
    m_cursor.insertText(whole ? text : text.mid(from, to - from),
                        known == m_charFormats.cend() ? run.charFormat() : *known);
    if (known != m_charFormats.cend()) return;
    m_charFormats.insert(index, m_cursor.charFormat());
    CopyPicture(m_source, run.charFormat(), *m_cursor.document());
  }

  const QTextBlockFormat& BlockFormat(const QTextBlock& block) {
    const auto known = m_blockFormats.constFind(block.blockFormatIndex());
    if (known != m_blockFormats.cend()) return *known;
    QTextBlockFormat format = block.blockFormat();
    format.clearProperty(QTextFormat::ObjectIndex);
    return *m_blockFormats.insert(block.blockFormatIndex(), format);
  }

  // From a list's second paragraph on, the cached block format already names the new list.
  void JoinList(const QTextBlock& block) {
    QTextList* const list = block.textList();
    if (!list) return;
    QTextList*& copy = m_lists[list];
    if (!copy) {
      copy = m_cursor.createList(list->format());
    } else if (m_cursor.currentList() != copy) {
      copy->add(m_cursor.block());
    }
    m_blockFormats.insert(block.blockFormatIndex(), m_cursor.blockFormat());
  }

  const QTextDocument& m_source;
  QTextCursor& m_cursor;
  QHash<int, QTextCharFormat> m_charFormats;
  QHash<int, QTextBlockFormat> m_blockFormats;
  QHash<QTextList*, QTextList*> m_lists;
};

/// Tables and frames are copied by Qt, whose structure characters only it can insert.
void CopyStructures(const QTextDocument& source, int begin, int end, QTextCursor& cursor) {
  QTextCursor selection(const_cast<QTextDocument*>(&source));
  selection.setPosition(begin);
  selection.setPosition(end, QTextCursor::KeepAnchor);
  CopyPictures(source, *cursor.document());
  cursor.insertFragment(selection.selection());
}

}  // namespace

void CopyText(const QTextDocument& source, int begin, int end, QTextCursor& cursor) {
  cursor.beginEditBlock();
  cursor.removeSelectedText();
  const QTextBlock first = source.findBlock(begin);
  const QTextBlock last = source.findBlock(end);
  const QTextBlockFormat targetFormat = cursor.blockFormat();
  const QTextCharFormat targetCharFormat = cursor.blockCharFormat();
  const bool intoEmpty = cursor.block().length() <= 1;
  const bool beforeText = !cursor.atBlockEnd();
  RunCopier copier(source, cursor);
  if (intoEmpty) copier.TakeFormat(first);
  if (source.rootFrame()->childFrames().isEmpty()) {
    copier.Copy(begin, end);
  } else {
    CopyStructures(source, begin, end, cursor);
  }
  if (beforeText && first != last) {
    cursor.setBlockFormat(targetFormat);
    cursor.setBlockCharFormat(targetCharFormat);
  }
  cursor.endEditBlock();
}

int EndOf(const QTextDocument& document) {
  return document.characterCount() - 1;
}

}  // namespace snipdeck
