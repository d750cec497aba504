#include "richtext/html/html_cleaner.h"

#include <algorithm>

#include <QUrl>

#include "richtext/html/html_attributes.h"
#include "richtext/html/html_elements.h"
#include "richtext/html/html_entities.h"
#include "richtext/html/html_open_elements.h"
#include "richtext/html/html_output.h"
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

class Cleaner {
 public:
  explicit Cleaner(double basePoints) { m_style.basePoints = m_style.points = basePoints; }

  CleanHtml Clean(const HtmlPayload& payload) {
    m_base = QUrl(payload.source);
    const QStringView html(payload.html);
    m_maxElements = std::max(kMaxElements, html.size() / kCharactersPerElement);
    m_outside = true;
    m_output.SwitchOff(true);
    Feed(html.first(payload.begin));
    m_outside = false;
    WriteSurroundings();
    Feed(html.mid(payload.begin, payload.end - payload.begin));
    m_output.Here().EndText();
    CloseDownTo(0);
    m_clean.html = QLatin1String(kKeepBlanks) + m_output.Take();
    Tell(m_depthCut, "elements nested too deep shown as lines");
    Tell(m_elementsCut, "elements beyond the limit shown as lines");
    Tell(m_picturesDropped, "pictures outside the page left out");
    return std::move(m_clean);
  }

 private:
  /// The elements around the copied part.
  void WriteSurroundings() {
    m_hidden = 0;
    for (OpenElement& element : m_open) element.isHidden = false;
    m_output.SwitchOff(false);
    m_output.WriteOpenElements();
  }

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
    if (count > 0) m_clean.warnings.append(QStringLiteral("%1 %2").arg(count).arg(QLatin1String(what)));
  }

  /// The style of what stands here.
  const TextStyle& Style() const { return m_open.isEmpty() ? m_style : m_open.last().style; }

  /// Rules for the whole page hold where its element was not copied, too.
  void SupplyBody() {
    if (m_open.isEmpty() && !m_sheet.IsEmpty()) Supply(QStringLiteral("body"));
  }

  void Text(QStringView text) {
    if (m_inHead) return;
    QString characters = DecodeEntities(text, EntityPlace::Text);
    if (m_skipsLineEnd && characters.startsWith(u'\n')) characters.remove(0, 1);
    m_skipsLineEnd = false;
    if (!std::all_of(characters.cbegin(), characters.cend(), IsHtmlBlank)) {
      SupplyBody();
      m_output.More();
    } else if (IsBetweenCells(m_open)) {
      return;
    }
    m_output.Here().Text(characters, Style().blanks);
  }

  /// Browsers put a break of this class behind all that was copied; there, it is none.
  void Break(const QString& className) {
    if (className == QLatin1String("Apple-interchange-newline")) return m_output.BreakBeforeMore();
    m_output.Break();
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
    if (token.name == QLatin1String("br")) return Break(ValueOf(token, "class"));
    m_output.More();
    if (token.name == QLatin1String("hr")) return Rule();
    if (token.name == QLatin1String("img")) return Picture(token);
    if (element.treatment == HtmlElement::Treatment::Keep) Open(token, element);
  }

  void Rule() {
    CloseDownTo(StayOpenBefore(QStringLiteral("div"), m_open));
    m_output.Rule();
  }

  void Picture(const HtmlToken& token) {
    m_inHead = false;
    TextStyle style = Style();
    KeptAttributes(token, RulesFor(token), m_base, style);
    if (style.display == TextStyle::Display::None) return;
    const bool isBlock = style.display == TextStyle::Display::Block;
    if (isBlock) m_output.StartLoneBlock();
    WritePicture(token);
    if (isBlock) m_output.EndLoneBlock();
  }

  void WritePicture(const HtmlToken& token) {
    const QString name = TakePicture(ValueOf(token, "src"), m_clean.pictures);
    if (name.isEmpty()) {
      ++m_picturesDropped;
      const QString alternative = ValueOf(token, "alt");
      if (!IsAddress(alternative)) m_output.Here().Text(alternative, TextStyle::Blanks::Collapse);
      return;
    }
    m_output.Here().Content();
    m_output.Here().Write(QLatin1String("<img src=") + Quoted(name) + PictureSize(token) + u'>');
  }

  void Open(const HtmlToken& token, const HtmlElement& element) {
    const QString& name = token.name;
    if (name != QLatin1String("body")) SupplyBody();
    CloseDownTo(StayOpenBefore(name, m_open));
    if (m_sizes.IsFull() && !m_leftTables) LeaveTables();
    SupplyTable(name);
    if (IsBeyondLimits(name)) return WritePlain(name, element);
    OpenElement open = Prepared(token, element);
    if (open.isHidden && m_hidden++ == 0) m_output.SwitchOff(true);
    if (IsPartOfTable(name) && IsBetweenCells(m_open)) m_output.Here().EndPlainLine();
    if (open.isBlock) m_output.StartBlock(name);
    if (name == QLatin1String("li")) StartItem(ValueOf(token, "value"));
    if (name == QLatin1String("tr")) StartRow();
    Push(token, open);
    if (name == QLatin1String("q"))
      m_output.Here().Text(m_quotes++ % 2 ? QStringLiteral("\u2018") : QStringLiteral("\u201C"), open.style.blanks);
  }

  bool IsBeyondLimits(const QString& name) {
    if (m_sizes.IsFull() && IsPartOfTable(name)) return true;
    if (m_open.size() >= kMaxDepth || (name == QLatin1String("table") && m_tables >= kMaxTableDepth)) {
      ++m_depthCut;
      return true;
    }
    if (++m_elements <= m_maxElements) return false;
    if (!m_leftTables) LeaveTables();
    ++m_elementsCut;
    return true;
  }

  /// What is beyond the limits is lines and, for the cells of tables, words that are parted by tabs.
  void WritePlain(const QString& name, const HtmlElement& element) {
    if (IsCell(name)) return m_output.Here().PartPlainCells();
    if (element.isBlock) m_output.Here().EndPlainLine();
  }

  /// A list goes on as another one where an item says its number, and where it becomes too long.
  void StartItem(const QString& value) {
    ++m_listItems;
    if (!IsInList(m_open)) return;
    OpenElement& list = m_open.last();
    bool isNumber = false;
    const int number = value.trimmed().toInt(&isNumber);
    const int limit = m_listItems > kManyItems ? kMaxItemsWhereMany : kMaxItemsInList;
    const bool isSaid = isNumber && number != list.next && m_listItems <= kManyItems;
    if (isSaid) list.next = std::clamp(number, 0, kMaxListStart);
    if (isSaid || list.items >= limit) {
      list.startTag = WithListStart(list.startTag, list.next);
      list.items = 0;
      m_output.Here().Write(list.endTag + list.startTag);
    }
    ++list.items;
    ++list.next;
  }

  void StartRow() {
    if (m_sizes.WantsFurtherTable()) {
      qsizetype table = m_open.size() - 1;
      while (table > 0 && m_open[table].name != QLatin1String("table")) --table;
      CloseDownTo(table + 1);
      m_output.For(QStringLiteral("table")).Write(m_open[table].endTag + m_open[table].startTag);
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
    if (!IsPartOfTable(name) || name == QLatin1String("table") || name == QLatin1String("caption")) return;
    if (m_tables == 0) Supply(QStringLiteral("table"));
    if (isCell && !IsInRow(m_open)) Supply(QStringLiteral("tr"));
  }

  void Supply(const QString& name) {
    HtmlToken token;
    token.name = name;
    Push(token, Prepared(token, ElementNamed(name)));
  }

  OpenElement Prepared(const HtmlToken& token, const HtmlElement& element) {
    OpenElement open{token.name, {}, {}, Style()};
    QString attributes = KeptAttributes(token, RulesFor(token), m_base, open.style);
    m_variety.Limit(attributes);
    if (IsCell(token.name)) attributes += Spans(token);
    // Items in the wrong place take long where there are many.
    const bool isItemOfNothing = token.name == QLatin1String("li") && m_listItems >= kManyItems && !IsInList(m_open);
    const QLatin1String tag(isItemOfNothing ? "div" : element.as);
    open.startTag = QLatin1Char('<') + tag + attributes + u'>';
    open.endTag = QLatin1String("</") + tag + u'>';
    open.isBlock = element.isBlock;
    open.isHidden = open.style.display == TextStyle::Display::None;
    open.isStray = IsBetweenCells(m_open) && !IsPartOfTable(token.name);
    if (token.name == QLatin1String("ol")) open.next = ListStartOf(token);
    if (!element.isBlock && open.style.display == TextStyle::Display::Block) {
      open.isBlock = true;
      open.startTag.prepend(QLatin1String("<div>"));
      open.endTag.append(QLatin1String("</div>"));
    }
    return open;
  }

  void Push(const HtmlToken& token, const OpenElement& open) {
    HtmlLines& lines = m_output.For(token.name);
    if (token.name == QLatin1String("table")) {
      ++m_tables;
      m_sizes.StartTable();
      m_variety.StartTable();
      m_output.StartTable();
    }
    m_skipsLineEnd = open.startTag.startsWith(QLatin1String("<pre"));
    lines.Write(open.startTag);
    if (open.isBlock) lines.NoteBlockTag();
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

  void EndTag(const QString& name) {
    m_skipsLineEnd = false;
    if (name == QLatin1String("head")) m_inHead = false;
    if (name == QLatin1String("br")) return Break({});
    CloseDownTo(StayOpenBehind(name, m_open));
    if (m_elementsCut + m_depthCut > 0 && ElementNamed(name).isBlock && !IsCell(name)) m_output.Here().EndPlainLine();
  }

  void CloseDownTo(qsizetype count) {
    while (m_open.size() > count) Close();
  }

  void Close() {
    HtmlLines& lines = m_output.Of(m_open.last());
    if (m_open.last().name == QLatin1String("q"))
      lines.Text(--m_quotes % 2 ? QStringLiteral("\u2019") : QStringLiteral("\u201D"), Style().blanks);
    lines.EndContents(m_open.size());
    const OpenElement element = m_open.takeLast();
    m_path.removeLast();
    if (element.isBlock) lines.EndBlock();
    lines.Write(element.endTag);
    if (element.name == QLatin1String("table")) EndTable();
    lines.NoteEndTag(m_open.size(), element.isBlock);
    if (element.isHidden && --m_hidden == 0) m_output.SwitchOff(m_outside);
  }

  void EndTable() {
    --m_tables;
    m_sizes.EndTable();
    m_output.EndTable();
  }

  CleanHtml m_clean;
  HtmlStyleSheet m_sheet;
  TextStyle m_style;  ///< Outside of all elements.
  QUrl m_base;        ///< Of links.
  OpenElements m_open;
  HtmlOutput m_output{m_open};
  QList<SelectorSubject> m_path;  ///< The same elements, as style sheets see them.
  bool m_outside = false;         ///< In front of the copied part, where elements are only noted.
  bool m_inHead = false;
  bool m_skipsLineEnd = false;  ///< Directly behind the tag of preformatted text.
  int m_hidden = 0;             ///< Open elements that are not to be seen.
  int m_quotes = 0;
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
