#pragma once

#include <QHash>
#include <QSet>

#include "richtext/rtf/rtf_destination.h"

namespace snipdeck {

/// The kind of symbol font, whose bytes are no letters.
enum class RtfSymbolFont { None, Symbol, Wingdings, Other };

struct RtfFont {
  QString name;
  QString alternative;
  int charset = -1;  ///< -1: not said.
  int codePage = 0;  ///< From \cpg, or 0.
  RtfSymbolFont symbol = RtfSymbolFont::None;
};

/// The font table, as destination and as look-up.
class RtfFonts : public RtfDestination {
 public:
  /// Null for a number that the table does not have.
  const RtfFont* Find(int number) const;
  /// The code page of the font's characters; `documentCodePage` where the font does not say.
  int CodePage(int number, int documentCodePage) const;
  /// What kind of symbol font a name stands for.
  static RtfSymbolFont SymbolKind(const QString& name);
  /// Where the group of an alternative name goes.
  QString& Alternative() { return m_current.alternative; }

  void Text(QStringView text) override;
  bool Word(std::string_view word, int value, bool hasValue) override;
  void GroupStart() override;
  void GroupEnd() override { Store(); }
  void Close() override { Store(); }

 private:
  void Store();

  QHash<int, RtfFont> m_fonts;
  QSet<int> m_codePages;  ///< That fonts other than Western ones ask for.
  RtfFont m_current;
  int m_number = -1;
};

}  // namespace snipdeck
