#pragma once

#include <array>

#include <QHash>

#include "richtext/rtf/rtf_fonts.h"

namespace snipdeck {

inline constexpr int kListLevels = 9;
/// Number formats, as \levelnfc counts them.
inline constexpr int kNumberBullet = 23;
inline constexpr int kNumberNone = 255;

struct RtfListLevel {
  int format = 0;
  int start = 1;
  int leftIndent = 0;  ///< Twips
  int firstLine = 0;   ///< Twips
  RtfSymbolFont symbols = RtfSymbolFont::None;  ///< Of the label's font.
  QString text;  ///< As in the stream: its length, then characters, of which 0 to 8 stand for the levels' numbers.
};

struct RtfList {
  int id = 0;
  int levelCount = 0;
  std::array<RtfListLevel, kListLevels> levels;
};

/// The lists that a text defines, by the number that its paragraphs use.
class ListDefinitions {
 public:
  virtual ~ListDefinitions() = default;
  /// The list of a number, with what the number changes about it; null when there is none.
  virtual const RtfList* Find(int number) const = 0;
  /// Whether the number begins to count anew.
  virtual bool Restarts(int number) const = 0;
};

/// The list table and the list override table, as one destination.
class RtfListTable : public RtfDestination, public ListDefinitions {
 public:
  explicit RtfListTable(const RtfFonts& fonts) : m_fonts(fonts) {}

  const RtfList* Find(int overrideNumber) const override;
  bool Restarts(int overrideNumber) const override;
  /// Where the groups \leveltext go.
  QString& LevelText();

  bool Word(std::string_view word, int value, bool hasValue) override;

  void Close() override;

 private:
  struct Override {
    int listId = 0;
    bool restarts = false;
    RtfList list;  ///< The list as this override sees it.
    std::array<int, kListLevels> starts;
    std::array<bool, kListLevels> replaced;
  };
  bool LevelWord(std::string_view word, int value);
  bool OverrideWord(std::string_view word, int value);
  void FinishOverride();
  RtfListLevel* CurrentLevel();

  const RtfFonts& m_fonts;
  QHash<int, RtfList> m_lists;
  QHash<int, Override> m_overrides;
  RtfList m_list;
  Override m_override;
  int m_overrideNumber = 0;
  int m_overrideLevel = -1;
  bool m_inOverride = false;
  QString m_ignoredText;
};

}  // namespace snipdeck
