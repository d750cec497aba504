#include "richtext/html/html_style_sheet.h"

#include <algorithm>
#include <optional>

#include <QRegularExpression>

namespace snipdeck {
namespace {

constexpr qsizetype kMaxRules = 5000;
constexpr qsizetype kMaxRulesOfKey = 200;
constexpr qsizetype kMaxParts = 8;
constexpr qsizetype kMaxClasses = 16;
constexpr qsizetype kMaxKnownSubjects = 5000;
// Comparisons of elements in all; beyond, only rules of one part are looked at.
constexpr qint64 kMaxWork = 10'000'000;

QString WithoutComments(QStringView sheet) {
  QString text;
  for (qsizetype at = 0; at < sheet.size();) {
    const qsizetype begin = sheet.indexOf(u"/*", at);
    text += sheet.mid(at, (begin < 0 ? sheet.size() : begin) - at);
    const qsizetype end = begin < 0 ? -1 : sheet.indexOf(u"*/", begin + 2);
    at = end < 0 ? sheet.size() : end + 2;
  }
  return text.remove(QLatin1String("<!--")).remove(QLatin1String("-->"));
}

/// The end of the block whose opening bracket stands before `from`.
qsizetype EndOfBlock(QStringView text, qsizetype from) {
  int depth = 1;
  for (qsizetype i = from; i < text.size(); ++i) {
    if (text[i] == u'{') ++depth;
    if (text[i] == u'}' && --depth == 0) return i;
  }
  return text.size();
}

/// The name, the classes and the id of one part of a selector.
SelectorSubject ParseSubject(const QString& word) {
  SelectorSubject subject;
  qsizetype at = 0;
  while (at < word.size()) {
    qsizetype end = at + 1;
    while (end < word.size() && word[end] != u'.' && word[end] != u'#') ++end;
    const QString piece = word.mid(at, end - at);
    if (piece[0] == u'#') {
      subject.id = piece.mid(1);
    } else if (piece[0] == u'.') {
      subject.classes.append(piece.mid(1));
    } else {
      subject.name = piece.toLower();
    }
    at = end;
  }
  return subject;
}

bool FitsSubject(const SelectorSubject& wanted, const SelectorSubject& element) {
  // The element of the whole page is not among those that are opened.
  const bool isPage = wanted.name == QLatin1String("html") && element.name == QLatin1String("body");
  const bool fitsAll = wanted.name.isEmpty() || wanted.name == QLatin1String("*");
  if (!fitsAll && wanted.name != element.name && !isPage) return false;
  if (!wanted.id.isEmpty() && wanted.id != element.id) return false;
  return std::all_of(wanted.classes.begin(), wanted.classes.end(),
                     [&](const QString& one) { return element.classes.contains(one); });
}

QString KeyOf(const SelectorSubject& subject) {
  if (!subject.id.isEmpty()) return u'#' + subject.id;
  if (!subject.classes.isEmpty()) return u'.' + subject.classes.first();
  return subject.name.isEmpty() ? QStringLiteral("*") : subject.name;
}

int WeightOf(const SelectorSubject& subject) {
  const bool isNamed = !subject.name.isEmpty() && subject.name != QLatin1String("*");
  return (subject.id.isEmpty() ? 0 : 10'000) + 100 * static_cast<int>(subject.classes.size()) + isNamed;
}

}  // namespace

SelectorSubject SelectorSubject::Of(const HtmlToken& token) {
  SelectorSubject subject{token.name, {}, {}};
  for (const HtmlAttribute& attribute : token.attributes) {
    if (attribute.name == QLatin1String("id")) subject.id = attribute.value.trimmed();
    if (attribute.name != QLatin1String("class")) continue;
    subject.classes = attribute.value.simplified().split(u' ', Qt::SkipEmptyParts);
    if (subject.classes.size() > kMaxClasses) subject.classes.resize(kMaxClasses);
  }
  return subject;
}

void HtmlStyleSheet::Add(QStringView sheet) {
  const QString text = WithoutComments(sheet);
  for (qsizetype at = 0; at < text.size();) {
    const qsizetype open = text.indexOf(u'{', at);
    if (open < 0) break;
    const qsizetype close = EndOfBlock(text, open + 1);
    const QStringView head = QStringView(text).mid(at, open - at);
    const QStringView selectors = head.mid(head.lastIndexOf(u';') + 1).trimmed();  // behind statements without a block
    at = close + 1;
    if (selectors.startsWith(u'@')) continue;
    const QList<CssDeclaration> declarations = ParseDeclarations(QStringView(text).mid(open + 1, close - open - 1));
    if (declarations.isEmpty()) continue;
    for (const QStringView selector : selectors.split(u',')) AddRule(selector.toString().simplified(), declarations);
  }
  m_known.clear();
}

void HtmlStyleSheet::AddRule(const QString& selector, const QList<CssDeclaration>& declarations) {
  static const QRegularExpression kPlain(QStringLiteral("^[\\w.#\\s*>-]{1,300}$"));
  if (const auto known = m_bySelector.constFind(selector); known != m_bySelector.cend()) {
    return Override(m_rules[*known].declarations, declarations);
  }
  if (m_rules.size() >= kMaxRules || !kPlain.match(selector).hasMatch()) return;
  Rule rule;
  rule.declarations = declarations;
  bool isChild = false;
  for (const QString& word : QString(selector).replace(u'>', QLatin1String(" > ")).split(u' ', Qt::SkipEmptyParts)) {
    if (word == QLatin1String(">")) {
      isChild = true;
      continue;
    }
    rule.parts.append({ParseSubject(word), isChild});
    rule.weight += WeightOf(rule.parts.last().subject);
    isChild = false;
  }
  if (rule.parts.isEmpty() || rule.parts.size() > kMaxParts) return;
  QList<qsizetype>& rules = m_byKey[KeyOf(rule.parts.last().subject)];
  if (rules.size() >= kMaxRulesOfKey) return;
  rules.append(m_rules.size());
  m_bySelector.insert(selector, m_rules.size());
  m_rules.append(rule);
}

QList<qsizetype> HtmlStyleSheet::RulesThatMayFit(const SelectorSubject& subject) const {
  QStringList keys = {QStringLiteral("*"), subject.name};
  if (!subject.id.isEmpty()) keys.append(u'#' + subject.id);
  if (subject.name == QLatin1String("body")) keys.append(QStringLiteral("html"));
  for (const QString& one : subject.classes) keys.append(u'.' + one);
  QList<qsizetype> rules;
  for (const QString& key : std::as_const(keys)) rules += m_byKey.value(key);
  rules.removeIf([&](qsizetype rule) { return !FitsSubject(m_rules[rule].parts.last().subject, subject); });
  std::sort(rules.begin(), rules.end(), [&](qsizetype a, qsizetype b) {
    return m_rules[a].weight != m_rules[b].weight ? m_rules[a].weight < m_rules[b].weight : a < b;
  });
  rules.erase(std::unique(rules.begin(), rules.end()), rules.end());
  return rules;
}

bool HtmlStyleSheet::Fits(const Rule& rule, const QList<SelectorSubject>& path) {
  qsizetype part = rule.parts.size() - 1;
  if (part > 0 && m_work > kMaxWork) return false;
  bool mustBeNext = rule.parts[part].isChild;
  for (qsizetype i = path.size() - 2; i >= 0 && part > 0; --i) {
    ++m_work;
    if (FitsSubject(rule.parts[part - 1].subject, path[i])) {
      --part;
      mustBeNext = rule.parts[part].isChild;
    } else if (mustBeNext) {
      return false;
    }
  }
  return part == 0;
}

QList<CssDeclaration> HtmlStyleSheet::DeclarationsFor(const QList<SelectorSubject>& path) {
  const SelectorSubject& subject = path.last();
  const QString key = subject.name + u'#' + subject.id + u'.' + subject.classes.join(u'.');
  auto known = m_known.constFind(key);
  if (known == m_known.cend()) {
    if (m_known.size() > kMaxKnownSubjects) m_known.clear();
    known = m_known.insert(key, RulesThatMayFit(subject));
  }
  QList<CssDeclaration> declarations;
  for (const qsizetype rule : *known) {
    if (Fits(m_rules[rule], path)) Override(declarations, m_rules[rule].declarations);
  }
  return declarations;
}

}  // namespace snipdeck
