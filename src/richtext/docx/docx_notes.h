#pragma once

#include <QStringList>

#include "richtext/rtf/rtf_list_numbering.h"

namespace snipdeck {

/// The notes in the order in which the text refers to them, which gives them their numbers.
class DocxNotes {
 public:
  /// The text refers to a note; returns what its mark shows.
  QString Refer(const QString& id, bool endnote) {
    QStringList& ids = endnote ? m_endnotes : m_footnotes;
    if (!ids.contains(id)) ids.append(id);
    return Mark(static_cast<int>(ids.indexOf(id)) + 1, endnote);
  }
  const QStringList& Ids(bool endnotes) const { return endnotes ? m_endnotes : m_footnotes; }
  /// Endnotes count i, ii, iii, as word processors do by themselves.
  static QString Mark(int number, bool endnote) { return FormatListNumber(number, endnote ? 2 : 0); }

 private:
  QStringList m_footnotes;
  QStringList m_endnotes;
};

}  // namespace snipdeck
