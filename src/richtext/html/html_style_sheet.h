#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include "richtext/html/css_filter.h"
#include "richtext/html/html_tokenizer.h"

namespace snipdeck {

/// What selectors choose an element by.
struct SelectorSubject {
  QString name;
  QString id;
  QStringList classes;

  static SelectorSubject Of(const HtmlToken& token);
};

/// The style sheets of a page: rules for names, classes, ids and what is inside of such. Rules for states, attributes,
/// neighbours and media cost much and say little for a document; they are left out.
class HtmlStyleSheet {
 public:
  void Add(QStringView sheet);
  bool IsEmpty() const { return m_rules.isEmpty(); }
  /// The declarations of all rules that hold for the last of `path`, which the others surround, the outermost first.
  QList<CssDeclaration> DeclarationsFor(const QList<SelectorSubject>& path);

 private:
  struct Part {
    SelectorSubject subject;  ///< "*" as a name fits all.
    bool isChild = false;     ///< Directly inside of what the part before fits.
  };
  struct Rule {
    QList<Part> parts;
    int weight = 0;
    QList<CssDeclaration> declarations;
  };

  void AddRule(const QString& selector, const QList<CssDeclaration>& declarations);
  QList<qsizetype> RulesThatMayFit(const SelectorSubject& subject) const;
  bool Fits(const Rule& rule, const QList<SelectorSubject>& path);

  QList<Rule> m_rules;
  QHash<QString, qsizetype> m_bySelector;
  QHash<QString, QList<qsizetype>> m_byKey;  ///< By what the last part needs most: "#id", ".class", the name or "*".
  QHash<QString, QList<qsizetype>> m_known;  ///< Rules that may fit, by subject.
  qint64 m_work = 0;
};

}  // namespace snipdeck
