#pragma once

#include <QList>
#include <QString>

#include "richtext/html/html_lines.h"
#include "richtext/html/html_open_elements.h"

namespace snipdeck {

/// The HTML of a page as it is written. Text that stands in a table and in none of its cells goes in front of the
/// table, as browsers show it.
class HtmlOutput {
 public:
  /// `open` are the elements that are open at any time.
  explicit HtmlOutput(const OpenElements& open) : m_open(open) {}

  /// While `isOff`, nothing is written.
  void SwitchOff(bool isOff);
  /// Writes the start tags of the open elements, all of which were opened while nothing was written.
  void WriteOpenElements();
  /// Where what stands here is written.
  HtmlLines& Here() { return IsBetweenCells(m_open) && !m_strays.isEmpty() ? m_strays.last().lines : m_page; }
  /// Where an element of this name is written that begins here.
  HtmlLines& For(const QString& name) { return IsPartOfTable(name) ? m_page : Here(); }
  /// Where an open element was written.
  HtmlLines& Of(const OpenElement& element) {
    return element.isStray && !m_strays.isEmpty() ? m_strays.last().lines : m_page;
  }
  void StartBlock(const QString& name);
  /// A block that is empty but for what is written until its end.
  void StartLoneBlock();
  void EndLoneBlock();
  void Rule();
  void Break();
  /// A break that is one only where something follows.
  void BreakBeforeMore();
  /// Something follows.
  void More();
  /// The start tag of a table is about to be written.
  void StartTable();
  /// The end tag of a table has been written.
  void EndTable();
  QString Take();

 private:
  struct StrayText {
    HtmlLines lines;
    qsizetype begin = 0;  ///< Of its table.
  };

  const OpenElements& m_open;
  HtmlLines m_page;
  QList<StrayText> m_strays;  ///< For each open table.
  bool m_owesBreak = false;
};

}  // namespace snipdeck
