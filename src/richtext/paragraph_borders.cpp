#include "richtext/paragraph_borders.h"

#include <algorithm>

#include "richtext/format_properties.h"

namespace snipdeck {
namespace {

constexpr int kUsualWidth = 15;
constexpr int kMostTwips = 1000;

// In the order of Qt's styles.
constexpr std::array<const char*, 11> kWords = {"brdrnone",  "brdrdot",    "brdrdash",    "brdrs",
                                                "brdrdb",    "brdrdashd",  "brdrdashdd",  "brdrengrave",
                                                "brdremboss", "brdrinset", "brdroutset"};

int StyleOf(QByteArrayView word) {
  const auto found = std::find_if(kWords.begin(), kWords.end(), [&](const char* known) { return word == known; });
  return found == kWords.end() ? -1 : static_cast<int>(found - kWords.begin());
}

/// Follows the words of a paragraph's borders: those that name a side, and those that describe the last one named.
class Reader {
 public:
  void Word(QByteArrayView word) {
    if (SelectSide(word)) return;
    if (const int style = StyleOf(word); style >= 0) return SetStyle(static_cast<QTextFrameFormat::BorderStyle>(style));
    if (word.startsWith("brdrcf#")) return Set(&BorderLine::colour, QColor(QLatin1String(word.sliced(6))));
    if (word.startsWith("brdrw")) return SetWidth(Number(word.sliced(5)));
    if (word.startsWith("brsp")) return Set(&BorderLine::space, Number(word.sliced(4)));
  }
  const ParagraphBorders& Borders() const { return m_borders; }

 private:
  static int Number(QByteArrayView digits) { return std::clamp(digits.toByteArray().toInt(), 0, kMostTwips); }

  bool SelectSide(QByteArrayView word) {
    static constexpr std::array<const char*, kBorderSides> kSides = {"brdrt", "brdrl", "brdrb", "brdrr", "brdrbtw"};
    const auto found = std::find_if(kSides.begin(), kSides.end(), [&](const char* side) { return word == side; });
    const bool isBox = word == "box";
    if (found == kSides.end() && !isBox) return false;
    m_first = isBox ? 0 : static_cast<std::size_t>(found - kSides.begin());
    m_last = isBox ? std::size_t(kBorderBetween) : m_first + 1;
    return true;
  }

  template <typename Value>
  void Set(Value BorderLine::*member, const Value& value) {
    for (std::size_t side = m_first; side < m_last; ++side) m_borders[side].*member = value;
  }
  void SetStyle(QTextFrameFormat::BorderStyle style) {
    Set(&BorderLine::style, style);
    const int known = m_first < m_last ? m_borders[m_first].width : 0;
    SetWidth(known > 0 ? known : kUsualWidth);
  }
  void SetWidth(int twips) {
    for (std::size_t side = m_first; side < m_last; ++side) {
      const bool isNone = m_borders[side].style == QTextFrameFormat::BorderStyle_None;
      m_borders[side].width = isNone ? 0 : twips;
    }
  }

  ParagraphBorders m_borders;
  std::size_t m_first = kBorderSides;
  std::size_t m_last = kBorderSides;
};

}  // namespace

ParagraphBorders BordersOf(const QTextBlockFormat& format) {
  Reader reader;
  const QList<QByteArray> words = format.stringProperty(kParagraphBorder).toLatin1().split('\\');
  for (const QByteArray& word : words) reader.Word(QByteArrayView(word).trimmed());
  return reader.Borders();
}

const char* BorderWord(QTextFrameFormat::BorderStyle style) {
  const auto index = static_cast<std::size_t>(style);
  return index < kWords.size() ? kWords[index] : "brdrs";
}

}  // namespace snipdeck
