#pragma once

#include <algorithm>

namespace snipdeck {

/// The part of a text that several edits have changed since it was last written down. Before `begin` nothing has
/// changed; behind the part, only the distance from the text's beginning has.
class EditedRange {
 public:
  bool IsEmpty() const { return m_begin < 0; }
  int Begin() const { return m_begin; }
  /// End of the part as it stands now.
  int End() const { return m_end; }
  /// How many characters it had when it was last written down.
  int Removed() const { return m_oldEnd - m_begin; }

  /// One edit: at `position` of the present text, `removed` characters made way for `added` ones.
  void Add(int position, int removed, int added) {
    if (IsEmpty()) {
      m_begin = position;
      m_end = m_oldEnd = position;
    }
    StretchTo(position, position + removed);
    m_end += added - removed;
  }

  /// Takes unchanged neighbours in, until the part spans [begin, end) of the present text at least.
  void StretchTo(int begin, int end) {
    m_begin = std::min(m_begin, begin);
    const int more = std::max(end - m_end, 0);
    m_end += more;
    m_oldEnd += more;
  }

  /// Leaves out what lies behind `last`: the end of the last paragraph, which is always there. False where the part did
  /// not reach so far before.
  bool EndAt(int last) {
    const int less = std::max(m_end - last, 0);
    m_end -= less;
    m_oldEnd -= less;
    return m_oldEnd >= m_begin && m_end >= m_begin;
  }

  /// The part up to `end` of the present text has been written down.
  void DropUntil(int end) {
    if (end >= m_end) return Clear();
    m_begin = m_oldEnd = end;
  }

  void Clear() { *this = {}; }

 private:
  int m_begin = -1;
  int m_end = 0;
  int m_oldEnd = 0;
};

}  // namespace snipdeck
