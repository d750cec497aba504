#pragma once

#include <array>
#include <map>
#include <utility>

#include <QHash>
#include <QTextBlock>
#include <QTextListFormat>

#include "richtext/rtf/rtf_output.h"

namespace snipdeck {

/// The lists of a text: numbers them as their paragraphs come by, and writes the two tables that describe them.
class RtfLists {
 public:
  /// The words that put the paragraph into its list, and its label as readers without lists show it. Nothing for a
  /// paragraph that has neither.
  void WriteParagraph(RtfOutput& out, const QTextBlock& block);
  void WriteTables(RtfOutput& out) const;

 private:
  struct Level {
    QTextListFormat format;
    QString label;   ///< as the text's own writer showed it, where Qt's list cannot
    int start = -1;  ///< -1 until the first paragraph came
    void Take(const QTextListFormat& next, const QString& nextLabel);
  };
  struct List {
    int number;
    std::array<Level, 9> levels;
  };
  /// Paragraphs of one id with bullets of their own are a list for each bullet.
  using Key = std::pair<int, QString>;
  List& ListFor(const Key& key);
  static void WriteLevel(RtfOutput& out, const Level& level, int number);

  std::map<Key, List> m_lists;
};

}  // namespace snipdeck
