#pragma once

#include <QList>
#include <QString>

namespace snipdeck {

struct HtmlAttribute {
  QString name;   ///< lower case
  QString value;  ///< its entities as characters
};

struct HtmlToken {
  enum class Kind { Text, StartTag, EndTag, Other, End };  ///< Other: comments, declarations, instructions
  Kind kind = Kind::End;
  QString name;      ///< of a tag, lower case
  QStringView text;  ///< of a text, entities and all
  QList<HtmlAttribute> attributes;
  bool closesItself = false;
};

/// Cuts HTML into tags and text the forgiving way: any input gives tokens, and every step moves on.
class HtmlTokenizer {
 public:
  explicit HtmlTokenizer(QStringView html) : m_html(html) {}

  HtmlToken Next();
  /// Everything up to the end tag of `name`, which is passed over: for elements that hold no markup.
  QStringView RawText(const QString& name);
  /// Characters read so far.
  qsizetype Position() const { return m_at; }
  /// Goes on at `position`.
  void Seek(qsizetype position) { m_at = position; }

 private:
  HtmlToken Text();
  HtmlToken Tag();
  HtmlToken Skip(QStringView terminator);
  QString Name();
  void Attributes(HtmlToken& token);
  QString Value();
  void SkipBlanks();
  bool AtEnd() const { return m_at >= m_html.size(); }

  QStringView m_html;
  qsizetype m_at = 0;
};

}  // namespace snipdeck
