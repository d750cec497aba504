#pragma once

#include <array>
#include <map>

#include <QHash>
#include <QTextBlock>
#include <QTextListFormat>

#include "richtext/rtf_output.h"

namespace snipdeck {

/// The lists of a text: numbers them as their paragraphs come by, and writes the two tables that describe them.
class RtfLists {
 public:
  /// The words that put the paragraph into its list, and its label as readers without lists show it. Nothing for a
  /// paragraph that has neither.
  void WriteParagraph(RtfOutput& out, const QTextBlock& block);
  void WriteTables(RtfOutput& out) const;

 private:
  struct List {
    int number;
    std::array<QTextListFormat, 9> levels;
  };
  List& ListFor(int id);

  std::map<int, List> m_lists;
};

}  // namespace snipdeck
