#include "richtext/rtf/rtf_fonts.h"

#include "richtext/text/code_pages.h"

namespace snipdeck {
namespace {

constexpr qsizetype kMaxFonts = 10000;
constexpr qsizetype kMaxNameLength = 256;
constexpr int kSymbolCharset = 2;

RtfSymbolFont SymbolKindOf(const RtfFont& font) {
  // A font without a charset of its own is one by its name.
  if (font.charset >= 0 && font.charset != kSymbolCharset) return RtfSymbolFont::None;
  const QString& name = font.name;
  if (name == QLatin1String("Symbol")) return RtfSymbolFont::Symbol;
  if (name == QLatin1String("Wingdings")) return RtfSymbolFont::Wingdings;
  for (const char* known :
       {"Wingdings", "Webdings", "Marlett", "ZapfDingbats", "Zapf Dingbats", "MT Extra", "Monotype Sorts"}) {
    if (name.startsWith(QLatin1String(known))) return RtfSymbolFont::Other;
  }
  return RtfSymbolFont::None;
}

// Before fonts had charsets, those for other scripts had names of their own; 0 where the name does not say.
int CodePageOfName(const QString& name) {
  struct Ending {
    const char* text;
    int codePage;
  };
  constexpr Ending kEndings[] = {{" Cyr", 1251},    {" CE", 1250},       {" Greek", 1253},   {" Tur", 1254},
                                 {" Baltic", 1257}, {" (Hebrew)", 1255}, {" (Arabic)", 1256}};
  for (const Ending& ending : kEndings) {
    if (name.endsWith(QLatin1String(ending.text))) return ending.codePage;
  }
  return 0;
}

}  // namespace

RtfSymbolFont RtfFonts::SymbolKind(const QString& name) {
  RtfFont font;
  font.name = name;
  return SymbolKindOf(font);
}

const RtfFont* RtfFonts::Find(int number) const {
  const auto found = m_fonts.constFind(number);
  return found == m_fonts.constEnd() ? nullptr : &*found;
}

int RtfFonts::CodePage(int number, int documentCodePage) const {
  const RtfFont* font = Find(number);
  if (!font && number == m_number) font = &m_current;  // Its own name, while the table is read.
  if (!font) return documentCodePage;
  if (font->codePage) return font->codePage;
  // Where all fonts are said to be Western, writers did not mean it; else a Western font beside others is one.
  const bool isWestern = font->charset == 0 && m_codePages.contains(documentCodePage);
  const int codePage = font->charset > 0 || isWestern ? CodePageOfCharset(font->charset) : 0;
  return codePage ? codePage : documentCodePage;
}

void RtfFonts::Text(QStringView text) {
  for (const QChar c : text) {
    if (c == QLatin1Char(';')) {
      Store();
    } else if (m_current.name.size() < kMaxNameLength) {
      m_current.name.append(c);
    }
  }
}

bool RtfFonts::Word(std::string_view word, int value, bool) {
  if (word == "f") {
    Store();
    m_number = value;
    return false;  // The name is decoded with the font's own charset.
  }
  if (word == "fcharset") {
    m_current.charset = value;
  } else if (word == "cpg") {
    m_current.codePage = value;
  } else {
    return false;
  }
  return true;
}

void RtfFonts::GroupStart() {
  if (m_number < 0) m_current = {};
}

void RtfFonts::Store() {
  m_current.name = m_current.name.trimmed();
  if (m_number >= 0 && (m_fonts.size() < kMaxFonts || m_fonts.contains(m_number))) {
    m_current.symbol = SymbolKindOf(m_current);
    if (m_current.charset < 0 && !m_current.codePage) m_current.codePage = CodePageOfName(m_current.name);
    if (m_current.charset > 0) m_codePages.insert(CodePageOfCharset(m_current.charset));
    RtfFont& font = m_fonts[m_number];
    // A second entry without a name only adds to the first.
    if (!m_current.name.isEmpty() || font.name.isEmpty()) font = m_current;
  }
  m_current = {};
  m_number = -1;
}

}  // namespace snipdeck
