#include "richtext/html/html_tokenizer.h"

#include "richtext/html/html_entities.h"

namespace snipdeck {
namespace {

constexpr qsizetype kMaxAttributes = 64;

bool EndsName(QChar character) {
  return character.isSpace() || character == u'>' || character == u'/' || character == u'=' || character == u'<';
}

}  // namespace

HtmlToken HtmlTokenizer::Next() {
  if (AtEnd()) return {};
  if (m_html[m_at] != u'<') return Text();
  const QStringView rest = m_html.mid(m_at);
  if (rest.startsWith(u"<!--")) return Skip(u"-->");
  if (rest.startsWith(u"<!") || rest.startsWith(u"<?")) return Skip(u">");
  const QChar next = rest.size() > 1 ? rest[1] : QChar();
  const bool isTag = next.isLetter() || (next == u'/' && rest.size() > 2 && rest[2].isLetter());
  return isTag ? Tag() : Text();
}

HtmlToken HtmlTokenizer::Text() {
  // A "<" that starts no tag is a character.
  const qsizetype end = m_html.indexOf(u'<', m_at + 1);
  HtmlToken token{HtmlToken::Kind::Text, {}, m_html.mid(m_at, (end < 0 ? m_html.size() : end) - m_at), {}, false};
  m_at += token.text.size();
  return token;
}

HtmlToken HtmlTokenizer::Skip(QStringView terminator) {
  const qsizetype end = m_html.indexOf(terminator, m_at + 2);
  m_at = end < 0 ? m_html.size() : end + terminator.size();
  return {HtmlToken::Kind::Other, {}, {}, {}, false};
}

HtmlToken HtmlTokenizer::Tag() {
  HtmlToken token;
  ++m_at;
  token.kind = m_html[m_at] == u'/' ? HtmlToken::Kind::EndTag : HtmlToken::Kind::StartTag;
  if (token.kind == HtmlToken::Kind::EndTag) ++m_at;
  token.name = Name();
  Attributes(token);
  return token;
}

QString HtmlTokenizer::Name() {
  const qsizetype begin = m_at;
  while (!AtEnd() && !EndsName(m_html[m_at])) ++m_at;
  return m_html.mid(begin, m_at - begin).toString().toLower();
}

void HtmlTokenizer::Attributes(HtmlToken& token) {
  while (true) {
    SkipBlanks();
    if (AtEnd()) {  // cut in the tag, which then is none
      token.kind = HtmlToken::Kind::Other;
      return;
    }
    if (m_html[m_at] == u'<') return;
    if (m_html[m_at] == u'>') {
      ++m_at;
      return;
    }
    token.closesItself = m_html[m_at] == u'/';
    if (m_html[m_at] == u'/' || m_html[m_at] == u'=') {
      ++m_at;
      continue;
    }
    HtmlAttribute attribute{Name(), {}};
    SkipBlanks();
    if (!AtEnd() && m_html[m_at] == u'=') attribute.value = Value();
    if (token.attributes.size() < kMaxAttributes) token.attributes.append(attribute);
  }
}

QString HtmlTokenizer::Value() {
  ++m_at;
  SkipBlanks();
  if (AtEnd()) return {};
  const QChar quote = m_html[m_at];
  const bool quoted = quote == u'"' || quote == u'\'';
  const qsizetype begin = quoted ? m_at + 1 : m_at;
  qsizetype end = begin;
  if (quoted) {
    end = m_html.indexOf(quote, begin);
    if (end < 0) end = m_html.size();
  } else {
    while (end < m_html.size() && !m_html[end].isSpace() && m_html[end] != u'>') ++end;
  }
  m_at = std::min(end + quoted, m_html.size());
  return DecodeEntities(m_html.mid(begin, end - begin), EntityPlace::Attribute);
}

void HtmlTokenizer::SkipBlanks() {
  while (!AtEnd() && m_html[m_at].isSpace()) ++m_at;
}

QStringView HtmlTokenizer::RawText(const QString& name) {
  const QString closing = QLatin1String("</") + name;
  const qsizetype found = m_html.indexOf(closing, m_at, Qt::CaseInsensitive);
  const qsizetype end = found < 0 ? m_html.size() : found;
  const QStringView text = m_html.mid(m_at, end - m_at);
  const qsizetype after = m_html.indexOf(u'>', end);
  m_at = after < 0 ? m_html.size() : after + 1;
  return text;
}

}  // namespace snipdeck
