#include "richtext/rtf/rtf_parser.h"

#include "richtext/rtf/rtf_actions.h"
#include "richtext/rtf/rtf_symbols.h"
#include "richtext/text/code_pages.h"

namespace snipdeck {
namespace {

// Deeper groups are counted, but share the state of the deepest one kept.
constexpr std::size_t kMaxDepth = 2000;
constexpr int kMaxRowLevels = 32;
constexpr int kTokensPerStep = 20'000;
constexpr qsizetype kMaxPendingBytes = 64 * 1024;

bool IsAscii(QByteArrayView bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

}  // namespace

RtfParser::RtfParser(QByteArrayView rtf, RtfBody::Sink bodySink, ReadFor purpose)
    : m_tokenizer(rtf), m_body(*this, std::move(bodySink)), m_purpose(purpose) {
  m_state.destination = m_state.body = &m_body;
}

void RtfParser::Run(const std::function<bool(double part)>& progress) {
  RtfToken token;
  int tokens = 0;
  const auto goesOn = [&] { return !progress || ++tokens % kTokensPerStep != 0 || progress(m_tokenizer.Part()); };
  const GroupState initial = m_state;
  do {
    m_done = false;
    while (!m_done && m_tokenizer.Next(token)) {
      Dispatch(token);
      if (!goesOn()) return;
    }
    FlushBytes(true);
    while (!m_stack.empty()) EndGroup();
    m_body.Close();
    m_state = initial;
    // Some programs put one stream behind the other.
  } while (m_tokenizer.SkipTo("{\\rtf"));
}

void RtfParser::RunInto(RtfDestination& root) {
  m_state.destination = &root;
  m_state.body = nullptr;
  Run();
}

void RtfParser::Dispatch(const RtfToken& token) {
  using Kind = RtfToken::Kind;
  if (m_fallback > 0 && SkipsFallback(token)) return;
  if (token.kind == Kind::Text) {
    ReadBytes(token.bytes);
    return ReadSecondHalf(token.bytes);
  }
  if (token.kind == Kind::Hex) {
    const char byte = static_cast<char>(token.value);
    return ReadBytes(QByteArrayView(&byte, 1));
  }
  FlushBytes(false);
  const bool optional = m_optional;
  m_optional = false;
  switch (token.kind) {
    case Kind::GroupStart:
      return StartGroup();
    case Kind::GroupEnd:
      return EndGroup();
    case Kind::Word:
      m_optional = optional;
      ReadWord(token);
      m_optional = false;
      return;
    case Kind::Symbol:
      return ReadSymbol(token.value);
    case Kind::Binary:
      return m_state.destination->Binary(token.bytes);
    default:
      return;
  }
}

// A \u is followed by characters for readers without Unicode; an escape and a word for a character count as one each.
// Anything else shows that the writer left them out: a \par, above all, must not be lost.
bool RtfParser::SkipsFallback(const RtfToken& token) {
  using Kind = RtfToken::Kind;
  if (token.kind == Kind::Hex || token.kind == Kind::Binary || (token.kind == Kind::Symbol && token.value > ' ')) {
    --m_fallback;
    return true;
  }
  if (token.kind == Kind::Word) {
    const RtfControlWord* entry = FindControlWord(token.word);
    const bool character = entry && entry->kind == RtfControlWord::Kind::Character && entry->argument > 0x2002;
    m_fallback = character ? m_fallback - 1 : 0;
    return character;
  }
  if (token.kind != Kind::Text) {
    m_fallback = 0;
    return false;
  }
  const qsizetype skipped = std::min<qsizetype>(m_fallback, token.bytes.size());
  m_fallback -= static_cast<int>(skipped);
  ReadBytes(token.bytes.sliced(skipped));
  return true;
}

void RtfParser::StartGroup() {
  if (m_stack.size() >= kMaxDepth) {
    if (m_excessDepth++ == 0) m_warnings.Add(QStringLiteral("groups nested too deeply"));
    return;
  }
  m_stack.push_back(m_state);
  m_state.destination->GroupStart();
}

void RtfParser::EndGroup() {
  if (m_excessDepth > 0) {
    --m_excessDepth;
    return;
  }
  if (m_stack.empty()) return;
  const bool hasOwn = !m_open.empty() && m_open.back().depth == m_stack.size();
  if (hasOwn) {
    CloseDestinations();
  } else if (m_state.destination == m_stack.back().destination) {
    m_state.destination->GroupEnd();
  }
  // The text's last paragraph may lack its end; its format still holds here.
  if (m_stack.size() == 1) m_body.Close();
  m_state = std::move(m_stack.back());
  m_stack.pop_back();
  m_done = m_stack.empty();
}

void RtfParser::CloseDestinations() {
  while (!m_open.empty() && m_open.back().depth == m_stack.size()) {
    const OpenDestination closing = std::move(m_open.back());
    m_open.pop_back();
    closing.destination->Close();
    m_state.destination = closing.destinationBefore;
    m_state.body = closing.bodyBefore;
  }
}

void RtfParser::Push(RtfDestination& destination, RtfBody* body, std::unique_ptr<RtfDestination> owned) {
  m_open.push_back({m_stack.size(), &destination, std::move(owned), m_state.destination, m_state.body});
  m_state.destination = &destination;
  m_state.body = body;
}

void RtfParser::Open(std::unique_ptr<RtfDestination> destination) {
  RtfDestination& receiver = *destination;
  Push(receiver, m_state.body, std::move(destination));
}

void RtfParser::OpenShared(RtfDestination& destination) {
  Push(destination, m_state.body, nullptr);
}

void RtfParser::OpenBody(std::unique_ptr<RtfBody> body) {
  RtfBody& receiver = *body;
  Push(receiver, &receiver, std::move(body));
}

void RtfParser::ReadWord(const RtfToken& token) {
  if (m_state.destination->Word(token.word, token.value, token.hasValue)) return;
  if (token.word == "u") return ReadUnicode(token.value);
  if (const RtfControlWord* entry = FindControlWord(token.word)) return ReadKnownWord(*entry, token);
  if (m_optional) Skip();
}

void RtfParser::ReadKnownWord(const RtfControlWord& entry, const RtfToken& token) {
  using Kind = RtfControlWord::Kind;
  switch (entry.kind) {
    case Kind::Flag:
      return entry.handler(*this, entry.argument);
    case Kind::Toggle:
      return entry.handler(*this, token.hasValue && token.value == 0 ? 0 : entry.argument);
    case Kind::Value:
      return entry.handler(*this, token.hasValue ? token.value : entry.argument);
    case Kind::Character:
      return EmitCharacter(entry.argument);
    case Kind::Destination:
      return entry.handler(*this, entry.argument);
    case Kind::Skip:
      return Skip();
  }
}

void RtfParser::ReadSymbol(int symbol) {
  switch (symbol) {
    case '*':
      m_optional = true;
      return;
    case '~':
      return EmitCharacter(0x00A0);
    case '-':
      return EmitCharacter(0x00AD);
    case '_':
      return EmitCharacter(0x2011);
    case '\r':
    case '\n':
      return rtf_actions::EndParagraph(*this, 0);
    case '\t':
      return EmitCharacter('\t');
    case '\\':
    case '{':
    case '}': {
      const char c = static_cast<char>(symbol);
      return ReadBytes(QByteArrayView(&c, 1));
    }
    default:
      return;
  }
}

void RtfParser::ReadUnicode(int value) {
  FlushBytes(true);
  m_fallback = m_state.unicodeSkip;
  if (value < 0) value += 0x10000;
  const RtfFont* font = m_fonts.Find(m_formats.EffectiveFont(m_state.character));
  if (font && font->symbol != RtfSymbolFont::None && (value & 0xFF00) == 0xF000) {
    return EmitCharacter(SymbolToUnicode(font->symbol, value & 0xFF));
  }
  EmitCharacter(value);
}

void RtfParser::EmitCharacter(int unicode) {
  m_bytes.clear();  // The first half of a character whose second half never came.
  if (unicode < 0x10000) {
    const QChar c(static_cast<char16_t>(unicode));
    return Emit(QStringView(&c, 1));
  }
  if (unicode > 0x10FFFF) return;
  const QChar pair[2] = {QChar::highSurrogate(static_cast<char32_t>(unicode)),
                         QChar::lowSurrogate(static_cast<char32_t>(unicode))};
  Emit(QStringView(pair, 2));
}

void RtfParser::Emit(QStringView text) {
  if (!text.isEmpty()) m_state.destination->Text(text);
}

int RtfParser::CodePage() const {
  return m_fonts.CodePage(m_formats.EffectiveFont(m_state.character), m_codePage);
}

void RtfParser::ReadBytes(QByteArrayView bytes) {
  if (bytes.isEmpty() || m_state.destination->Raw(bytes)) return;
  const int codePage = CodePage();
  if (!m_bytes.isEmpty() && codePage != m_bytesCodePage) FlushBytes(true);
  if (m_bytes.size() > kMaxPendingBytes) FlushBytes(false);
  m_bytesCodePage = codePage;
  m_bytes.append(bytes);
}

// The second byte of a character that is not escaped may look like a backslash or a brace.
void RtfParser::ReadSecondHalf(QByteArrayView bytes) {
  if (bytes.isEmpty() || static_cast<signed char>(bytes.back()) >= 0) return;
  FlushBytes(false);
  if (m_bytes.size() != 1) return;
  const char next = m_tokenizer.Ahead(1).isEmpty() ? '\0' : m_tokenizer.Ahead(1)[0];
  const char pair[] = {m_bytes.back(), next};
  const QString character = DecodeCodePage(m_bytesCodePage, QByteArrayView(pair, 2));
  if (character.size() == 1 && character[0] != QChar::ReplacementCharacter) ReadBytes(m_tokenizer.TakeSpecialByte());
}

// Half a character at the end waits for its other half, which may follow in another group.
void RtfParser::FlushBytes(bool final) {
  if (m_bytes.isEmpty()) return;
  const qsizetype rest = final ? 0 : IncompleteTail(m_bytesCodePage, m_bytes);
  if (rest == m_bytes.size()) return;
  Decode(QByteArrayView(m_bytes).chopped(rest));
  m_bytes = m_bytes.right(rest);
}

void RtfParser::Decode(QByteArrayView bytes) {
  const RtfFont* font = m_fonts.Find(m_formats.EffectiveFont(m_state.character));
  if (font && font->symbol != RtfSymbolFont::None && m_state.destination->ShowsText()) {
    QString symbols;
    for (const char c : bytes) symbols.append(QChar(SymbolToUnicode(font->symbol, static_cast<unsigned char>(c))));
    return Emit(symbols);
  }
  if (IsAscii(bytes)) return Emit(QString::fromLatin1(bytes));
  Emit(DecodeCodePage(m_bytesCodePage, bytes));
}

int RtfParser::ParagraphFormat(const ParagraphState& paragraph, QString& label) {
  const RtfListItem item = m_numbering.Item(paragraph, m_shownLabel);
  if (item.list < 0) label = m_shownLabel;
  m_shownLabel.clear();
  return m_formats.Paragraph(paragraph, item);
}

bool RtfParser::EndnoteComesNext() const {
  constexpr qsizetype kLookAhead = 600;
  const QByteArrayView ahead = m_tokenizer.Ahead(kLookAhead);
  const qsizetype note = ahead.indexOf(QByteArrayView("\\footnote"));
  const qsizetype mark = ahead.indexOf(QByteArrayView("\\ftnalt"));
  return note >= 0 && mark > note && mark - note < 20;
}

RtfRows& RtfParser::Rows(int level) {
  const std::size_t index = static_cast<std::size_t>(std::clamp(level, 1, kMaxRowLevels) - 1);
  while (m_rows.size() <= index) m_rows.emplace_back(m_colours);
  return m_rows[index];
}

}  // namespace snipdeck
