#include "richtext/html/html_cleaner.h"

#include <algorithm>

#include <QSet>

#include "richtext/html/html_attributes.h"
#include "richtext/html/html_elements.h"
#include "richtext/html/html_entities.h"
#include "richtext/html/html_lines.h"
#include "richtext/html/html_pictures.h"
#include "richtext/html/html_style_sheet.h"
#include "richtext/html/html_table_sizes.h"
#include "richtext/html/html_tokenizer.h"
#include "richtext/html/html_variety.h"

namespace snipdeck {
namespace {

constexpr qsizetype kMaxDepth = 100;
constexpr int kMaxTableDepth = 8;
// Pages that consist of little but tags would take minutes; those with a text between them are kept whole.
constexpr qsizetype kMaxElements = 100'000;
constexpr qsizetype kCharactersPerElement = 10;
// Qt walks over a list whenever an item joins it, so that long ones go on as a further list; in a page that is full of
// them, sooner.
constexpr int kMaxItemsInList = 250;
constexpr int kManyItems = 5000;
constexpr int kMaxItemsWhereMany = 50;

// Blanks that show nothing are gone before Qt's importer sees the text; on its own it would take those of other
// scripts, too.
constexpr char kKeepBlanks[] = "<body style=\"white-space:pre-wrap\">";

struct OpenElement {
  QString name;
  QString startTag;  ///< As written; empty when only the contents are.
  QString endTag;
  TextStyle style;
  int items = 0;  ///< Of a list, since it was begun or went on as another one.
  int next = 1;   ///< The number of its next item.
  bool isBlock = false;
  bool isHidden = false;
};

bool IsCell(const QString& name) {
  return name == QLatin1String("td") || name == QLatin1String("th");
}

bool IsPartOfTable(const QString& name) {
  static const QSet<QString> kNames = {QStringLiteral("table"), QStringLiteral("tr"),     QStringLiteral("td"),
                                       QStringLiteral("th"),    QStringLiteral("thead"),  QStringLiteral("tbody"),
                                       QStringLiteral("tfoot"), QStringLiteral("caption")};
  return kNames.contains(name);
}

class Cleaner {
 public:
  explicit Cleaner(double basePoints) { m_style.basePoints = m_style.points = basePoints; }

  CleanHtml Clean(const HtmlPayload& payload) {
    m_base = QUrl(payload.source);
    const QStringView html(payload.html);
    m_maxElements = std::max(kMaxElements, html.size() / kCharactersPerElement);
    m_lines.SwitchOff(true);
    Feed(html.first(payload.begin));
    m_lines.SwitchOff(false);
    for (const OpenElement& element : std::as_const(m_open)) m_lines.Write(element.startTag);
    Feed(html.mid(payload.begin, payload.end - payload.begin));
    m_lines.EndText();
    CloseDownTo(0);
    m_clean.html = QLatin1String(kKeepBlanks) + m_lines.Take();
    Tell(m_depthCut, "elements nested too deep");
    Tell(m_elementsCut, "elements beyond the limit");
    Tell(m_picturesDropped, "pictures outside the page");
    return std::move(m_clean);
  }

 private:
  void Feed(QStringView html) {
    HtmlTokenizer tokenizer(html);
    for (HtmlToken token = tokenizer.Next(); token.kind != HtmlToken::Kind::End; token = tokenizer.Next()) {
      switch (token.kind) {
        case HtmlToken::Kind::Text:
          Text(token.text);
          break;
        case HtmlToken::Kind::StartTag:
          StartTag(token, tokenizer);
          break;
        case HtmlToken::Kind::EndTag:
          EndTag(token.name);
          break;
        default:
          break;
      }
    }
  }

  void Tell(int count, const char* what) {
    if (count > 0) m_clean.warnings.append(QStringLiteral("%1 %2 left out").arg(count).arg(QLatin1String(what)));
  }

  /// The style of what stands here.
  const TextStyle& Style() const { return m_open.isEmpty() ? m_style : m_open.last().style; }

  /// Rules for the whole page hold where its element was not copied, too.
  void SupplyBody() {
    if (m_open.isEmpty() && !m_sheet.IsEmpty()) Supply(QStringLiteral("body"));
  }

  void Text(QStringView text) {
    if (m_inHead) return;
    SupplyBody();
    QString characters = DecodeEntities(text, EntityPlace::Text);
    if (m_skipsLineEnd && characters.startsWith(u'\n')) characters.remove(0, 1);
    m_skipsLineEnd = false;
    m_lines.Text(characters, Style().blanks);
  }

  void StartTag(const HtmlToken& token, HtmlTokenizer& tokenizer) {
    m_skipsLineEnd = false;
    if (token.name == QLatin1String("style")) return m_sheet.Add(tokenizer.RawText(token.name));
    if (token.name == QLatin1String("base") && !ValueOf(token, "href").isEmpty()) {
      m_base = m_base.resolved(QUrl(ValueOf(token, "href")));
    }
    const HtmlElement element = ElementNamed(token.name);
    if (token.name == QLatin1String("head")) m_inHead = true;
    if (element.treatment == HtmlElement::Treatment::DropContent) {
      if (!token.closesItself) tokenizer.RawText(token.name);
      return;
    }
    if (element.treatment == HtmlElement::Treatment::Keep) m_inHead = false;
    if (token.name == QLatin1String("br")) return m_lines.Break();
    if (token.name == QLatin1String("hr")) return Rule();
    if (token.name == QLatin1String("img")) return Picture(token);
    if (element.treatment == HtmlElement::Treatment::Keep) Open(token, element);
  }

  void Rule() {
    CloseImplied(QStringLiteral("div"));
    m_lines.EndContents(m_open.size());
    m_lines.EndLine();
    m_lines.StartBlock(m_open.size());
    m_lines.Write(QStringLiteral("<hr>"));
    m_lines.NoteEndTag(m_open.size(), true);
  }

  void Picture(const HtmlToken& token) {
    const QString name = TakePicture(ValueOf(token, "src"), m_clean.pictures);
    m_inHead = false;
    if (name.isEmpty()) {
      ++m_picturesDropped;
      const QString alternative = ValueOf(token, "alt");
      if (!IsAddress(alternative)) m_lines.Text(alternative, TextStyle::Blanks::Collapse);
      return;
    }
    m_lines.Content();
    m_lines.Write(QLatin1String("<img src=") + Quoted(name) + PictureSize(token) + u'>');
  }

  void Open(const HtmlToken& token, const HtmlElement& element) {
    if (token.name != QLatin1String("body")) SupplyBody();
    CloseImplied(token.name);
    if (m_sizes.IsFull() && !m_leftTables) LeaveTables();
    SupplyTable(token.name);
    if (m_open.size() >= kMaxDepth || (token.name == QLatin1String("table") && m_tables >= kMaxTableDepth)) {
      ++m_depthCut;
      return;
    }
    if (++m_elements > m_maxElements) {
      ++m_elementsCut;
      return;
    }
    if (element.isBlock) m_lines.EndContents(m_open.size());
    if (token.name == QLatin1String("table") || (element.isBlock && !IsPartOfTable(token.name))) m_lines.EndLine();
    if (element.isBlock) m_lines.StartBlock(m_open.size());
    if (token.name == QLatin1String("li")) StartItem(ValueOf(token, "value"));
    Push(token, IsTooMany(token) ? ElementNamed(QStringLiteral("div")) : element);
  }

  /// A list goes on as another one where an item says its number, and where it becomes too long.
  void StartItem(const QString& value) {
    ++m_listItems;
    if (!IsInList()) return;
    OpenElement& list = m_open.last();
    bool isNumber = false;
    const int number = value.trimmed().toInt(&isNumber);
    const int limit = m_listItems > kManyItems ? kMaxItemsWhereMany : kMaxItemsInList;
    const bool isSaid = isNumber && number != list.next && m_listItems <= kManyItems;
    if (isSaid) list.next = std::clamp(number, 0, kMaxListStart);
    if (isSaid || list.items >= limit) {
      list.startTag = WithListStart(list.startTag, list.next);
      list.items = 0;
      m_lines.Write(list.endTag + list.startTag);
    }
    ++list.items;
    ++list.next;
  }

  bool IsInList() const {
    const QLatin1String tag(m_open.isEmpty() ? "" : ElementNamed(m_open.last().name).as);
    return tag == QLatin1String("ol") || tag == QLatin1String("ul");
  }

  /// Rows and cells beyond what tables can take are plain paragraphs, and so are items in the wrong place.
  bool IsTooMany(const HtmlToken& token) {
    if (token.name == QLatin1String("li")) return m_listItems > kManyItems && !IsInList();
    if (token.name == QLatin1String("tr")) StartRow();
    return m_sizes.IsFull() && IsPartOfTable(token.name);
  }

  void StartRow() {
    if (m_sizes.WantsFurtherTable()) {
      qsizetype table = m_open.size() - 1;
      while (table > 0 && m_open[table].name != QLatin1String("table")) --table;
      CloseDownTo(table + 1);
      m_lines.Write(m_open[table].endTag + m_open[table].startTag);
      m_sizes.StartFurtherTable();
    }
    m_sizes.StartRow();
  }

  /// A cell's spans, as attributes.
  QString Spans(const HtmlToken& cell) {
    const int columns = std::clamp(ValueOf(cell, "colspan").trimmed().toInt(), 1, HtmlTableSizes::kMaxColumnSpan);
    const int rows = std::clamp(ValueOf(cell, "rowspan").trimmed().toInt(), 1, HtmlTableSizes::kMaxRowSpan);
    if (!m_sizes.AddCell(columns, rows)) return {};
    return QStringLiteral(" colspan=\"%1\" rowspan=\"%2\"").arg(columns).arg(rows);
  }

  void LeaveTables() {
    m_leftTables = true;
    for (qsizetype i = 0; i < m_open.size() && m_tables > 0; ++i) {
      if (m_open[i].name == QLatin1String("table")) return CloseDownTo(i);
    }
  }

  /// Rows and cells that were copied without what they belong to.
  void SupplyTable(const QString& name) {
    const bool isCell = IsCell(name);
    if (m_sizes.IsFull()) return;
    if (!isCell && name != QLatin1String("tr")) return;
    if (m_tables == 0) Supply(QStringLiteral("table"));
    if (isCell && !IsInRow()) Supply(QStringLiteral("tr"));
  }

  void Supply(const QString& name) {
    HtmlToken token;
    token.name = name;
    Push(token, ElementNamed(name));
  }

  bool IsInRow() const {
    for (qsizetype i = m_open.size() - 1; i >= 0; --i) {
      if (m_open[i].name == QLatin1String("tr")) return true;
      if (m_open[i].name == QLatin1String("table")) return false;
    }
    return false;
  }

  void Push(const HtmlToken& token, const HtmlElement& element) {
    OpenElement open{token.name, {}, {}, Style()};
    QString attributes = KeptAttributes(token, RulesFor(token), m_base, open.style);
    m_variety.Limit(attributes);
    if (IsCell(token.name)) attributes += Spans(token);
    open.startTag = QLatin1Char('<') + QLatin1String(element.as) + attributes + u'>';
    open.endTag = QLatin1String("</") + QLatin1String(element.as) + u'>';
    if (token.name == QLatin1String("table")) {
      ++m_tables;
      m_sizes.StartTable();
      m_variety.StartTable();
    }
    if (token.name == QLatin1String("ol")) open.next = ListStartOf(token);
    open.isBlock = ElementNamed(token.name).isBlock;
    m_skipsLineEnd = QLatin1String(element.as) == QLatin1String("pre");
    m_lines.Write(open.startTag);
    if (element.isBlock) m_lines.NoteBlockTag();
    m_open.append(open);
    m_path.append(SelectorSubject::Of(token));
  }

  /// What the style sheets say of an element that is about to be opened.
  QList<CssDeclaration> RulesFor(const HtmlToken& token) {
    if (m_sheet.IsEmpty()) return {};
    m_path.append(SelectorSubject::Of(token));
    const QList<CssDeclaration> rules = m_sheet.DeclarationsFor(m_path);
    m_path.removeLast();
    return rules;
  }

  void CloseImplied(const QString& next) {
    // Parts of a table end the ones before them, whatever those left open; other elements end what they touch.
    const bool ofTable = EndsByItself(QStringLiteral("td"), next);
    qsizetype keep = m_open.size();
    for (qsizetype i = m_open.size() - 1; i >= 0 && m_open[i].name != QLatin1String("table"); --i) {
      if (!m_open[i].isBlock) continue;
      if (EndsByItself(m_open[i].name, next)) {
        keep = i;
      } else if (!ofTable) {
        break;
      }
    }
    CloseDownTo(keep);
  }

  void EndTag(const QString& name) {
    m_skipsLineEnd = false;
    if (name == QLatin1String("head")) m_inHead = false;
    if (name == QLatin1String("br")) return m_lines.Break();
    const bool ofTable =
        name == QLatin1String("table") || name == QLatin1String("tr") || EndsByItself(name, QStringLiteral("tr"));
    for (qsizetype i = m_open.size() - 1; i >= 0; --i) {
      if (m_open[i].name == name) return CloseDownTo(i);
      if (m_open[i].name == QLatin1String("table") || (!ofTable && IsFence(m_open[i].name))) return;
    }
  }

  void CloseDownTo(qsizetype count) {
    while (m_open.size() > count) {
      m_lines.EndContents(m_open.size());
      const OpenElement element = m_open.takeLast();
      m_path.removeLast();
      if (element.isBlock) m_lines.EndBlock();
      if (element.name == QLatin1String("table")) {
        --m_tables;
        m_sizes.EndTable();
      }
      m_lines.Write(element.endTag);
      m_lines.NoteEndTag(m_open.size(), element.isBlock);
    }
  }

  CleanHtml m_clean;
  HtmlLines m_lines;  ///< Off in front of the copied part, where elements are noted.
  HtmlStyleSheet m_sheet;
  TextStyle m_style;  ///< Outside of all elements.
  QUrl m_base;        ///< Of links.
  QList<OpenElement> m_open;
  QList<SelectorSubject> m_path;  ///< The same elements, as style sheets see them.
  bool m_inHead = false;
  bool m_skipsLineEnd = false;  ///< Directly behind the tag of preformatted text.
  int m_tables = 0;
  qsizetype m_elements = 0;
  qsizetype m_maxElements = kMaxElements;
  int m_listItems = 0;
  HtmlTableSizes m_sizes;
  HtmlVariety m_variety;
  bool m_leftTables = false;
  int m_depthCut = 0;
  int m_elementsCut = 0;
  int m_picturesDropped = 0;
};

}  // namespace

CleanHtml CleanUpHtml(const HtmlPayload& payload, double basePoints) {
  return Cleaner(basePoints).Clean(payload);
}

}  // namespace snipdeck
