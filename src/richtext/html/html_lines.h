#pragma once

#include <QString>

namespace snipdeck {

/// HTML as it is written, which knows what its last line holds: blanks and line breaks that show nothing are left out, and
/// an empty paragraph says that it is one.
class HtmlLines {
 public:
  /// While `isOff`, nothing is written and nothing is known of lines.
  void SwitchOff(bool isOff) { m_isOff = isOff; }
  void Write(const QString& html);
  /// Blanks and line ends between elements part words; at the start and at the end of a block they show nothing.
  void Blank();
  /// What follows is to be seen in the line.
  void Content();
  void Break();
  void StartBlock();
  /// The start tag of a block has been written.
  void NoteBlockTag() { m_blockTagEnd = m_html.size() - 1; }
  /// A line break at the end of a paragraph shows nothing; alone in one, it says that the paragraph is empty.
  void EndBlock();
  /// Between blocks, a line break ends the text in front of it, or is an empty paragraph of its own.
  void EndLine();
  /// A blank at the end of the whole text is part of it.
  void EndText() { m_blankAt = -1; }
  QString Take() { return std::move(m_html); }

 private:
  void DropBlank();
  void MarkEmpty();

  QString m_html;
  bool m_isOff = false;
  bool m_hasContent = false;  ///< Since the last start or end of a block.
  bool m_breakHadContent = false;
  qsizetype m_lastBreak = -1;   ///< Where a line break stands that nothing follows yet.
  qsizetype m_blankAt = -1;     ///< Where a blank stands that nothing follows yet.
  qsizetype m_blockTagEnd = 0;  ///< Of the block that was begun last; 0 where one ended since.
};

}  // namespace snipdeck
