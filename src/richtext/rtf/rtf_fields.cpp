#include "richtext/rtf/rtf_fields.h"

#include <QRegularExpression>

#include "richtext/rtf/rtf_formats.h"
#include "richtext/rtf/rtf_parser.h"
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

// Those that say how a result is to look, as \* MERGEFORMAT.
QString WithoutGeneralSwitches(QString instruction) {
  static const QRegularExpression kSwitch(QStringLiteral("\\\\\\*\\s*(?:\"[^\"]*\"|\\S+)"));
  return instruction.remove(kSwitch);
}

QString ChosenEntry(const RtfFormField& form) {
  const int choice = form.Choice();
  return choice >= 0 && choice < static_cast<int>(form.entries.size()) ? form.entries[static_cast<size_t>(choice)]
                                                                       : QString();
}

/// Reads an equation from left to right: switches with their arguments, and text between them.
class EquationReader {
 public:
  explicit EquationReader(QStringView text) : m_text(text) {}

  QString Read(int depth) {
    QString shown;
    while (m_at < m_text.size()) {
      const QChar c = m_text.at(m_at);
      if (depth > 0 && (c == u',' || c == u';' || c == u')')) break;
      ++m_at;
      if (c != u'\\') {
        shown += c;
      } else if (m_at < m_text.size() && !m_text.at(m_at).isLetter()) {
        shown += m_text.at(m_at++);
      } else {
        shown += Switch(depth);
      }
    }
    return shown;
  }

 private:
  static constexpr int kMaxDepth = 20;

  QString Switch(int depth) {
    const QChar name = m_at < m_text.size() ? m_text.at(m_at).toLower() : QChar();
    static const QString kOfOptions = QStringLiteral("\\-. ");
    while (m_at < m_text.size() && (m_text.at(m_at).isLetterOrNumber() || kOfOptions.contains(m_text.at(m_at)))) ++m_at;
    if (m_at >= m_text.size() || m_text.at(m_at) != u'(' || depth >= kMaxDepth) return {};
    return Joined(name, Arguments(depth + 1));
  }

  QStringList Arguments(int depth) {
    QStringList arguments;
    do {
      ++m_at;
      arguments.append(Read(depth).trimmed());
    } while (m_at < m_text.size() && m_text.at(m_at) != u')');
    ++m_at;
    return arguments;
  }

  static QString Joined(QChar name, const QStringList& arguments) {
    if (name == u'f') return arguments.join(u'/');
    if (name == u'o') return arguments.last();  // over what stands above or around it
    if (name == u'r') return (arguments.size() > 1 ? arguments.first() : QString()) + QChar(0x221A) + arguments.last();
    if (name == u'b') return u'(' + arguments.join(u',') + u')';
    return arguments.join(name == u'a' || name == u'i' ? u' ' : u',');
  }

  QStringView m_text;
  qsizetype m_at = 0;
};

// On one line: "1/2" for a fraction, the text under a phonetic guide.
QString EquationText(const QString& instruction) {
  const QStringView afterName = QStringView(instruction).trimmed().sliced(2);
  return EquationReader(afterName).Read(0).trimmed();
}

}  // namespace

RtfField& RtfFields::Innermost() {
  if (!m_fields.empty()) return m_fields.back();
  m_stray.instruction.clear();  // and no more, since collectors may still refer to its entries
  return m_stray;
}

int RtfFields::Link() {
  return m_formats.AddLink(HyperlinkTarget(Innermost().instruction));
}

QString RtfFields::TextWithoutResult(const QString& section) const {
  if (m_fields.empty()) return {};
  const RtfField& field = m_fields.back();
  const QString instruction = WithoutGeneralSwitches(field.instruction);
  const QStringList words = SplitFieldInstruction(instruction);
  if (words.isEmpty()) return {};
  const QString name = words.first().toUpper();
  if (name == QLatin1String("SECTION")) return section;
  if (name == QLatin1String("FORMCHECKBOX")) return QString(QChar(field.form.Choice() ? 0x2612 : 0x2610));
  if (name == QLatin1String("FORMDROPDOWN")) return ChosenEntry(field.form);
  if (name == QLatin1String("EQ")) return EquationText(instruction);
  if (words.size() < 2) return {};
  if (name == QLatin1String("SYMBOL")) return SymbolOf(words);
  const bool button = name == QLatin1String("MACROBUTTON") || name == QLatin1String("GOTOBUTTON");
  return button ? words.mid(2).join(u' ') : QString();
}

bool RtfFormFieldReader::Word(std::string_view word, int value, bool) {
  constexpr std::size_t kMaxEntries = 100;
  if (word == "ffres") {
    m_form.choice = value;
  } else if (word == "ffdefres") {
    m_form.defaultChoice = value;
  } else if (word == "ffl" && m_form.entries.size() < kMaxEntries) {
    m_parser.Open(std::make_unique<RtfStringCollector>(m_form.entries.emplace_back()));
  } else {
    return false;
  }
  return true;
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
