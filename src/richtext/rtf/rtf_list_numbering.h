#pragma once

#include <array>

#include "richtext/rtf/rtf_formats.h"
#include "richtext/rtf/rtf_list_table.h"

namespace snipdeck {

/// Counts the items of all lists while the text is read, and says how each paragraph joins a list of Qt's.
class RtfListNumbering {
 public:
  /// `formats` gets Qt's lists; their numbers count through it.
  RtfListNumbering(const ListDefinitions& lists, std::vector<QTextListFormat>& formats)
      : m_lists(lists), m_formats(formats) {}

  /// `shown` is the label that the stream wrote out for readers without lists. The item has no list when the stream
  /// does not define the paragraph's; the label is text then.
  RtfListItem Item(const ParagraphState& paragraph, const QString& shown);

 private:
  /// One Qt list: the items of one level that are counted together.
  struct Run {
    int list = -1;
    int count = 0;
    int next = 1;
  };
  struct Counters {
    std::array<Run, kListLevels> runs;
    std::array<bool, kListLevels> started{};
  };
  struct Label {
    int format = 0;
    int start = 1;
    QString prefix;
    QString suffix;
    QString whole;  ///< The whole label when it is more than one number with text around it.
  };
  RtfListItem FromTable(const ParagraphState& paragraph, const RtfList& list, const QString& shown);
  void TakeShownLabel(RtfListItem& item, const Label& label, int number, const QString& shown) const;
  RtfListItem FromOldNumbering(const ParagraphState& paragraph);
  Label LabelOf(const RtfList& list, int level, const Counters& counters) const;
  RtfListItem Join(Run& run, const Label& label, int number, int level, int id);

  const ListDefinitions& m_lists;
  std::vector<QTextListFormat>& m_formats;
  QHash<qint64, Counters> m_counters;
  int m_items = 0;
  RtfOldNumbering m_oldNumbering;
  Run m_oldRun;
};

/// `number` in the format \levelnfc names, as "iv" or "d"; decimal for formats that only other scripts have.
QString FormatListNumber(int number, int format);

}  // namespace snipdeck
