#pragma once

#include <QList>
#include <QString>

#include "richtext/html/css_filter.h"

namespace snipdeck {

/// Whether HTML takes a character for one of the blanks that may show nothing. Hard spaces and those of other scripts are
/// text.
inline bool IsHtmlBlank(QChar one) { return QStringView(u" \t\r\n\f").contains(one); }

/// HTML as it is written, which knows what its last line holds: blanks and line breaks that show nothing are left out,
/// and an empty paragraph says that it is one. Qt's importer puts what follows the end of a block into the last line of
/// that block, unless it is in a block of its own; so loose text gets one. A depth is the number of elements that are
/// open.
class HtmlLines {
 public:
  /// While `isOff`, nothing is written and nothing is known of lines.
  void SwitchOff(bool isOff) { m_isOff = isOff; }
  bool IsOff() const { return m_isOff; }
  void Write(const QString& html);
  /// Puts HTML in front of what was written from `place` on.
  void Insert(qsizetype place, const QString& html) { m_html.insert(place, html); }
  /// Writes characters. Of the blanks among them, those that show nothing are left out; the others are written as they
  /// are to be seen, so that whoever reads the HTML must keep all of them. Only what ASCII calls a blank may show
  /// nothing.
  void Text(const QString& text, TextStyle::Blanks blanks);
  /// What follows is to be seen in the line.
  void Content();
  void Break();
  /// Ends the line without an element of its own, where there is any text in it.
  void EndPlainLine();
  /// Parts words in the line as cells of a table are parted in plain text.
  void PartPlainCells();
  /// A block is about to begin at `depth`.
  void StartBlock(qsizetype depth);
  /// The start tag of a block has been written.
  void NoteBlockTag() { m_blockTagEnd = m_isOff ? 0 : m_html.size() - 1; }
  /// A line break at the end of a paragraph shows nothing; alone in one, it says that the paragraph is empty.
  void EndBlock();
  /// Nothing more follows inside the elements that are open at `depth`.
  void EndContents(qsizetype depth);
  /// An end tag has been written, which leads back to `depth`.
  void NoteEndTag(qsizetype depth, bool isOfBlock);
  /// Between blocks, a line break ends the text in front of it, or is an empty paragraph of its own.
  void EndLine();
  /// A blank at the end of the whole text is part of it.
  void EndText() { m_blankAt = -1; }
  qsizetype Size() const { return m_html.size(); }
  QString Take() { return std::move(m_html); }

 private:
  void ForgetLine();
  void BeginLooseText();
  void Blank();
  void DropBlank();
  void DropNewline();
  void WriteKept(const QString& text);
  void MarkEmpty();

  QString m_html;
  bool m_isOff = false;
  bool m_hasContent = false;  ///< Since the last start or end of a block.
  bool m_lineIsEmpty = true;  ///< Since a block or a break.
  bool m_breakHadContent = false;
  int m_plainLines = 0;        ///< How many ends were written without an element.
  qsizetype m_lastBreak = -1;  ///< Where a line break stands that nothing follows yet.
  qsizetype m_blankAt = -1;    ///< Where a blank stands that nothing follows yet.
  qsizetype m_newlineAt = -1;  ///< Likewise, a line end that counts.
  qsizetype m_blockEnd = -1;   ///< Where a block ended that nothing follows yet.
  qsizetype m_depthAtBlockEnd = 0;
  QList<qsizetype> m_looseDepths;  ///< Of the blocks that were begun for loose text.
  qsizetype m_blockTagEnd = 0;     ///< Of the block that was begun last; 0 where one ended since.
};

}  // namespace snipdeck
