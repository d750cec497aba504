#include "richtext/rtf/rtf_fields.h"

#include "richtext/rtf/rtf_formats.h"
#include "richtext/rtf/rtf_symbols.h"

namespace snipdeck {
namespace {

QString SymbolOf(const QStringList& words) {
  bool known = false;
  const int code = words.at(1).toInt(&known, 0);
  if (!known || code <= 0 || code > 0xFFFF) return {};
  const qsizetype fontAt = words.indexOf(QLatin1String("\\f")) + 1;
  const RtfSymbolFont font =
      fontAt > 0 && fontAt < words.size() ? RtfFonts::SymbolKind(words.at(fontAt)) : RtfSymbolFont::None;
  const bool isByte = code <= 0xFF && font != RtfSymbolFont::None;
  return QString(QChar(isByte ? SymbolToUnicode(font, code) : static_cast<char16_t>(code)));
}

}  // namespace

QString& RtfFields::Instruction() {
  if (!m_instructions.empty()) return m_instructions.back();
  m_stray.clear();
  return m_stray;
}

int RtfFields::Link() {
  return m_formats.AddLink(HyperlinkTarget(Instruction()));
}

QString RtfFields::TextWithoutResult(const QString& section) const {
  if (m_instructions.empty()) return {};
  const QStringList words = SplitFieldInstruction(m_instructions.back());
  if (words.isEmpty()) return {};
  const QString name = words.first().toUpper();
  if (name == QLatin1String("SECTION")) return section;
  if (words.size() < 2) return {};
  if (name == QLatin1String("SYMBOL")) return SymbolOf(words);
  const bool button = name == QLatin1String("MACROBUTTON") || name == QLatin1String("GOTOBUTTON");
  return button ? words.mid(2).join(u' ') : QString();
}

QStringList SplitFieldInstruction(const QString& instruction) {
  QStringList words;
  QString word;
  bool quoted = false;
  bool begun = false;
  for (qsizetype i = 0; i < instruction.size(); ++i) {
    const QChar c = instruction.at(i);
    const QChar next = i + 1 < instruction.size() ? instruction.at(i + 1) : QChar();
    if (c == u'\\' && (next == u'\\' || (quoted && next == u'"'))) {
      word.append(next);
      begun = true;
      ++i;
    } else if (c == u'"') {
      quoted = !quoted;
      begun = true;
    } else if (c.isSpace() && !quoted) {
      if (begun) words.append(word);
      word.clear();
      begun = false;
    } else {
      word.append(c);
      begun = true;
    }
  }
  if (begun) words.append(word);
  return words;
}

QString HyperlinkTarget(const QString& instruction) {
  const QStringList words = SplitFieldInstruction(instruction);
  if (words.isEmpty() || words.first().compare(QLatin1String("HYPERLINK"), Qt::CaseInsensitive) != 0) return {};
  QString target;
  QString place;
  for (qsizetype i = 1; i < words.size(); ++i) {
    const QString& word = words.at(i);
    if (word == QLatin1String("\\l") && i + 1 < words.size()) {
      place = words.at(++i);
    } else if ((word == QLatin1String("\\o") || word == QLatin1String("\\t")) && i + 1 < words.size()) {
      ++i;  // A tool tip or a frame.
    } else if (target.isEmpty() && !(word.size() == 2 && word.startsWith(u'\\'))) {
      target = word;
    }
  }
  if (!place.isEmpty()) target += QLatin1Char('#') + place;
  return target;
}

}  // namespace snipdeck
