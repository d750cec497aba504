#include "richtext/html/html_elements.h"

#include <algorithm>

#include <QHash>
#include <QSet>

namespace snipdeck {
namespace {

using Treatment = HtmlElement::Treatment;

constexpr HtmlElement kInline(const char* as) {
  return {Treatment::Keep, as, false};
}
constexpr HtmlElement kBlock(const char* as) {
  return {Treatment::Keep, as, true};
}
constexpr HtmlElement kDropped = {Treatment::DropContent, "", false};
constexpr HtmlElement kVoid = {Treatment::Void, "", false};

const QHash<QString, HtmlElement>& Elements() {
  static const QHash<QString, HtmlElement> kElements = {{"a", kInline("a")},
                                                        {"b", kInline("b")},
                                                        {"strong", kInline("b")},
                                                        {"i", kInline("i")},
                                                        {"em", kInline("i")},
                                                        {"cite", kInline("i")},
                                                        {"dfn", kInline("i")},
                                                        {"var", kInline("i")},
                                                        {"u", kInline("u")},
                                                        {"ins", kInline("u")},
                                                        {"s", kInline("s")},
                                                        {"strike", kInline("s")},
                                                        {"del", kInline("s")},
                                                        {"sub", kInline("sub")},
                                                        {"sup", kInline("sup")},
                                                        {"big", kInline("span")},
                                                        {"small", kInline("span")},
                                                        {"font", kInline("span")},
                                                        {"span", kInline("span")},
                                                        {"mark", kInline("span")},
                                                        {"label", kInline("span")},
                                                        {"code", kInline("code")},
                                                        {"tt", kInline("tt")},
                                                        {"kbd", kInline("kbd")},
                                                        {"samp", kInline("samp")},
                                                        {"nobr", kInline("span")},
                                                        {"abbr", kInline("span")},
                                                        {"q", kInline("span")},
                                                        {"p", kBlock("p")},
                                                        {"div", kBlock("div")},
                                                        {"body", kBlock("div")},
                                                        {"section", kBlock("div")},
                                                        {"article", kBlock("div")},
                                                        {"header", kBlock("div")},
                                                        {"footer", kBlock("div")},
                                                        {"main", kBlock("div")},
                                                        {"nav", kBlock("div")},
                                                        {"aside", kBlock("div")},
                                                        {"figure", kBlock("div")},
                                                        {"figcaption", kBlock("div")},
                                                        {"address", kBlock("div")},
                                                        {"fieldset", kBlock("div")},
                                                        {"form", kBlock("div")},
                                                        {"legend", kBlock("div")},
                                                        {"details", kBlock("div")},
                                                        {"summary", kBlock("div")},
                                                        {"hgroup", kBlock("div")},
                                                        {"dialog", kBlock("div")},
                                                        {"search", kBlock("div")},
                                                        {"noframes", kBlock("div")},
                                                        {"center", kBlock("center")},
                                                        {"h1", kBlock("h1")},
                                                        {"h2", kBlock("h2")},
                                                        {"h3", kBlock("h3")},
                                                        {"h4", kBlock("h4")},
                                                        {"h5", kBlock("h5")},
                                                        {"h6", kBlock("h6")},
                                                        {"pre", kBlock("pre")},
                                                        {"xmp", kBlock("pre")},
                                                        {"listing", kBlock("pre")},
                                                        {"blockquote", kBlock("blockquote")},
                                                        {"ul", kBlock("ul")},
                                                        {"ol", kBlock("ol")},
                                                        {"menu", kBlock("ul")},
                                                        {"dir", kBlock("ul")},
                                                        {"li", kBlock("li")},
                                                        {"dl", kBlock("dl")},
                                                        {"dt", kBlock("dt")},
                                                        {"dd", kBlock("dd")},
                                                        {"table", kBlock("table")},
                                                        {"thead", kBlock("thead")},
                                                        {"tbody", kBlock("tbody")},
                                                        {"tfoot", kBlock("tfoot")},
                                                        {"tr", kBlock("tr")},
                                                        {"td", kBlock("td")},
                                                        {"th", kBlock("th")},
                                                        {"caption", kBlock("caption")},
                                                        {"script", kDropped},
                                                        {"title", kDropped},
                                                        {"xml", kDropped},
                                                        {"noscript", kDropped},
                                                        {"template", kDropped},
                                                        {"iframe", kDropped},
                                                        {"object", kDropped},
                                                        {"applet", kDropped},
                                                        {"audio", kDropped},
                                                        {"video", kDropped},
                                                        {"canvas", kDropped},
                                                        {"svg", kDropped},
                                                        {"datalist", kDropped},
                                                        {"meta", kVoid},
                                                        {"link", kVoid},
                                                        {"base", kVoid},
                                                        {"wbr", kVoid},
                                                        {"col", kVoid},
                                                        {"input", kVoid},
                                                        {"embed", kVoid},
                                                        {"source", kVoid},
                                                        {"param", kVoid},
                                                        {"area", kVoid},
                                                        {"track", kVoid},
                                                        {"frame", kVoid},
                                                        {"basefont", kVoid}};
  return kElements;
}

bool IsIn(const QString& name, std::initializer_list<const char*> names) {
  return std::any_of(names.begin(), names.end(), [&](const char* one) { return name == QLatin1String(one); });
}

}  // namespace

HtmlElement ElementNamed(const QString& name) {
  return Elements().value(name);
}

bool EndsByItself(const QString& open, const QString& next) {
  if (open == QLatin1String("p")) {
    return ElementNamed(next).isBlock && !IsIn(next, {"td", "th", "tr", "caption", "tbody", "thead", "tfoot"});
  }
  if (open == QLatin1String("li")) return next == QLatin1String("li");
  if (IsIn(open, {"dt", "dd"})) return IsIn(next, {"dt", "dd"});
  if (IsIn(open, {"td", "th", "caption"})) return IsIn(next, {"td", "th", "tr", "tbody", "thead", "tfoot"});
  if (open == QLatin1String("tr")) return IsIn(next, {"tr", "tbody", "thead", "tfoot"});
  if (IsIn(open, {"tbody", "thead", "tfoot"})) return IsIn(next, {"tbody", "thead", "tfoot"});
  return false;
}

bool IsFence(const QString& name) {
  return IsIn(name, {"td", "th", "table", "caption"});
}

}  // namespace snipdeck
