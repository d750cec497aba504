#include "richtext/rtf/rtf_html.h"

#include "richtext/rtf/rtf_parser.h"

namespace snipdeck {
namespace {

// The word stands in the head of the stream, before its tables.
constexpr qsizetype kHeadBytes = 1000;

bool IsLineEnd(std::string_view word) {
  return word == "par" || word == "line";
}

QStringView EntityOf(QChar c) {
  switch (c.unicode()) {
    case u'<':
      return u"&lt;";
    case u'>':
      return u"&gt;";
    case u'&':
      return u"&amp;";
    case 0x00A0:
      return u"&nbsp;";
    default:
      return {};
  }
}

/// HTML as it stands, in a group of its own.
class Markup : public RtfDestination {
 public:
  explicit Markup(QString& html) : m_html(html) {}
  void Text(QStringView text) override { m_html.append(text); }
  bool Word(std::string_view word, int, bool) override {
    if (IsLineEnd(word)) m_html.append(u'\n');
    return false;
  }

 private:
  QString& m_html;
};

/// Text between the tags. What only RTF readers are to see is switched off and on by \htmlrtf.
class Wrapped : public RtfDestination {
 public:
  explicit Wrapped(RtfParser& parser) : m_parser(parser) {}

  void Text(QStringView text) override {
    if (m_parser.State().rtfOnly) return;
    for (const QChar c : text) {
      const QStringView entity = EntityOf(c);
      if (entity.isEmpty()) {
        m_html.append(c);
      } else {
        m_html.append(entity);
      }
    }
  }

  bool Word(std::string_view word, int value, bool hasValue) override {
    if (word == "htmlrtf") {
      m_parser.State().rtfOnly = !hasValue || value != 0;
    } else if (word == "htmltag") {
      m_parser.Open(std::make_unique<Markup>(m_html));
    } else if (IsLineEnd(word)) {
      if (!m_parser.State().rtfOnly) m_html.append(u'\n');
    } else {
      return false;
    }
    return true;
  }

  QByteArray Html() const { return "\xEF\xBB\xBF" + m_html.toUtf8(); }

 private:
  RtfParser& m_parser;
  QString m_html;
};

}  // namespace

bool WrapsHtml(QByteArrayView rtf) {
  return rtf.first(std::min(kHeadBytes, rtf.size())).indexOf(QByteArrayView("\\fromhtml1")) >= 0 &&
         rtf.indexOf(QByteArrayView("\\*\\htmltag")) >= 0;
}

QByteArray UnwrapHtml(QByteArrayView rtf) {
  RtfParser parser(
      rtf, [](Flow&&) {}, ReadFor::Box);
  Wrapped wrapped(parser);
  parser.RunInto(wrapped);
  return wrapped.Html();
}

}  // namespace snipdeck
