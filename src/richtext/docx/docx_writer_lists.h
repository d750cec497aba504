#pragma once

#include <array>
#include <map>

#include <QTextBlock>
#include <QTextListFormat>

#include "richtext/ooxml/xml_out.h"

namespace snipdeck {

/// The lists of a text, numbered as their paragraphs come by, and the part that describes them.
class DocxWriterLists {
 public:
  /// The element that puts the paragraph into its list; nothing for one outside of lists.
  void WriteParagraph(XmlOut& out, const QTextBlock& block);
  bool IsEmpty() const { return m_lists.empty(); }
  QByteArray Part() const;

 private:
  struct Level {
    QTextListFormat format;
    QString label;   ///< Of one of its paragraphs, where Qt's list cannot show it.
    int start = -1;  ///< -1 until the first paragraph came.
  };
  struct List {
    int number = 0;
    std::array<Level, 9> levels;
  };
  /// Paragraphs of one id with bullets of their own are a list for each bullet.
  using Key = std::pair<int, QString>;
  static void WriteLevel(XmlOut& out, const Level& level, int number);

  std::map<Key, List> m_lists;
};

}  // namespace snipdeck
