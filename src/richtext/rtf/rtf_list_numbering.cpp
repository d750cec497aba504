#include "richtext/rtf/rtf_list_numbering.h"

#include <algorithm>

#include <QRegularExpression>

#include "richtext/format_properties.h"
#include "richtext/list_labels.h"
#include "richtext/rtf/rtf_symbols.h"

namespace snipdeck {
namespace {

// Qt walks over a list whenever an item joins it, so that long ones go on as a further list; in a text that is full of
// them, sooner.
constexpr int kMaxItemsInRun = 1000;
constexpr int kManyItems = 5000;
constexpr int kMaxItemsWhereMany = 64;
constexpr int kLeastTextIndent = 360;
constexpr int kOldListIndent = 360;

QTextListFormat::Style StyleOf(int format, const QString& bullet) {
  switch (format) {
    case 1:
      return QTextListFormat::ListUpperRoman;
    case 2:
      return QTextListFormat::ListLowerRoman;
    case 3:
      return QTextListFormat::ListUpperAlpha;
    case 4:
      return QTextListFormat::ListLowerAlpha;
    case kNumberBullet:
      break;
    default:
      return QTextListFormat::ListDecimal;
  }
  const char16_t c = bullet.isEmpty() ? u'\u2022' : bullet.at(0).unicode();
  if (c == u'o' || c == 0x25CB || c == 0x25E6 || c == 0xF06F) return QTextListFormat::ListCircle;
  if (c == 0x25AA || c == 0x25A0 || c == 0xF0A7 || c == 0xF06E) return QTextListFormat::ListSquare;
  return QTextListFormat::ListDisc;
}

// Signs of symbol fonts that no other font has are shown as the bullet that comes closest.
bool IsUsualBullet(const QString& text) {
  static const QString kUsual = QStringLiteral("\u2022\u00B7\u25CF\u25CB\u25E6\u25AA\u25A0o");
  if (text.isEmpty()) return true;
  return text.size() == 1 && (kUsual.contains(text) || (text[0].unicode() >> 12) == 0xF);
}

QChar SignOf(QChar c, RtfSymbolFont font) {
  const int code = c.unicode() >= 0xF000 ? c.unicode() - 0xF000 : c.unicode();
  return font == RtfSymbolFont::None || code > 0xFF ? c : QChar(SymbolToUnicode(font, code));
}

// Formats that lists number by themselves.
bool ListCounts(int format) {
  return format >= 0 && format <= 4;
}

// What was copied may begin in the middle of its list, as its label then says.
int FirstNumber(const RtfListLevel& layout, int level, const QString& shown) {
  constexpr int kDecimal = 0;
  const auto isPlaceholder = [](QChar c) { return c.unicode() < kListLevels; };
  const QString text = layout.text.mid(1);
  const auto last = std::find_if(text.rbegin(), text.rend(), isPlaceholder);
  if (layout.format != kDecimal || last == text.rend() || last->unicode() != level) return layout.start;
  static const QRegularExpression kLastNumber(QStringLiteral("(\\d{1,6})\\D*$"));
  const QRegularExpressionMatch number = kLastNumber.match(shown);
  return number.hasMatch() ? number.captured(1).toInt() : layout.start;
}

}  // namespace

QString FormatListNumber(int number, int format) {
  if (format == kNumberNone || format == kNumberBullet) return QString();
  const QString shown = ListNumber(number, StyleOf(format, QString()));
  return format == 22 && number < 10 ? QLatin1Char('0') + shown : shown;
}

RtfListItem RtfListNumbering::Item(const ParagraphState& paragraph, const QString& shown) {
  const RtfList* list = paragraph.list > 0 ? m_lists.Find(paragraph.list) : nullptr;
  if (list) return FromTable(paragraph, *list, shown);
  if (paragraph.numbering.kind != RtfOldNumbering::None) return FromOldNumbering(paragraph);
  return {};
}

RtfListItem RtfListNumbering::FromTable(const ParagraphState& paragraph, const RtfList& list, const QString& shown) {
  const int level = std::clamp(paragraph.listLevel, 0, kListLevels - 1);
  const auto at = static_cast<std::size_t>(level);
  const bool own = m_lists.Restarts(paragraph.list);
  Counters& counters = m_counters[own ? -paragraph.list - 1LL : static_cast<qint64>(list.id) + (1LL << 40)];
  const RtfListLevel& layout = list.levels[at];
  if (layout.format == kNumberNone && shown.trimmed().isEmpty()) return {};
  Run& run = counters.runs[at];
  if (!counters.started[at]) run = {-1, 0, FirstNumber(layout, level, shown)};
  counters.started[at] = true;
  for (std::size_t deeper = at + 1; deeper < kListLevels; ++deeper) counters.started[deeper] = false;
  const Label label = LabelOf(list, level, counters);
  const int number = run.next;
  RtfListItem item = Join(run, label, number, level, list.id);
  TakeShownLabel(item, label, number, shown.trimmed());
  const bool unsaid = paragraph.leftIndent == 0 && paragraph.firstLine == 0;
  item.textIndent = std::max(unsaid ? layout.leftIndent : paragraph.leftIndent, kLeastTextIndent);
  return item;
}

// What was shown where the text was copied counts more than what the tables yield: a copy of the third item begins
// with 3.
void RtfListNumbering::TakeShownLabel(RtfListItem& item, const Label& label, int number, const QString& shown) const {
  if (shown.isEmpty() || label.format == kNumberBullet) return;
  const QString counted =
      label.whole.isEmpty() ? label.prefix + FormatListNumber(number, label.format) + label.suffix : label.whole;
  if (counted.trimmed() != shown) item.label = shown;
}

RtfListNumbering::Label RtfListNumbering::LabelOf(const RtfList& list, int level, const Counters& counters) const {
  const RtfListLevel& layout = list.levels[static_cast<std::size_t>(level)];
  Label label;
  label.format = layout.format;
  label.start = layout.start;
  const QString text = layout.text.isEmpty() ? QString() : layout.text.mid(1, layout.text.at(0).unicode());
  int placeholders = 0;
  bool others = false;
  for (QChar c : text) {
    if (c.unicode() >= kListLevels) {
      if (label.format == kNumberBullet) c = SignOf(c, layout.symbols);
      (placeholders ? label.suffix : label.prefix).append(c);
      label.whole.append(c);
      continue;
    }
    const auto which = static_cast<std::size_t>(c.unicode());
    others |= static_cast<int>(which) != level || placeholders > 0;
    ++placeholders;
    const Run& run = counters.runs[which];
    const bool current = static_cast<int>(which) == level;
    const int number = !counters.started[which] ? list.levels[which].start : current ? run.next : run.next - 1;
    label.whole.append(FormatListNumber(number, list.levels[which].format));
  }
  if (label.format == kNumberBullet) label.prefix = label.whole;
  const bool usual = label.format == kNumberBullet ? IsUsualBullet(label.whole) : !others && placeholders == 1;
  if (usual) label.whole.clear();
  return label;
}

RtfListItem RtfListNumbering::Join(Run& run, const Label& label, int number, int level, int id) {
  const int limit = ++m_items > kManyItems ? kMaxItemsWhereMany : kMaxItemsInRun;
  if (run.list < 0 || run.count >= limit) {
    QTextListFormat format;
    const QString bullet = label.whole.isEmpty() ? label.prefix : label.whole;
    format.setStyle(StyleOf(label.format, bullet));
    format.setIndent(level + 1);
    if (label.format != kNumberBullet && label.whole.isEmpty()) {
      format.setNumberPrefix(label.prefix);
      format.setNumberSuffix(label.suffix);
    }
    if (id) format.setProperty(kListId, id);
    format.setProperty(kListLevel, level);
    if (number != 1) format.setProperty(kListStart, number);
    m_formats.push_back(format);
    run.list = static_cast<int>(m_formats.size()) - 1;
    run.count = 0;
  }
  ++run.count;
  run.next = number + 1;
  RtfListItem item{run.list, level, label.whole, 0};
  if (item.label.isEmpty() && label.format != kNumberBullet && !ListCounts(label.format)) {
    item.label = label.prefix + FormatListNumber(number, label.format) + label.suffix;
  }
  return item;
}

RtfListItem RtfListNumbering::FromOldNumbering(const ParagraphState& paragraph) {
  const RtfOldNumbering& numbering = paragraph.numbering;
  if (!(numbering == m_oldNumbering)) {
    m_oldNumbering = numbering;
    m_oldRun = {-1, 0, numbering.start};
  }
  Label label;
  const QString before = QString::fromUtf8(numbering.before);
  label.format = numbering.kind == RtfOldNumbering::Bullet ? kNumberBullet : numbering.format;
  label.prefix = before;
  label.suffix = QString::fromUtf8(numbering.after);
  if (label.format == kNumberBullet && !IsUsualBullet(before)) label.whole = before;
  RtfListItem item = Join(m_oldRun, label, m_oldRun.next, numbering.level, 0);
  item.textIndent = std::max(paragraph.leftIndent, kOldListIndent);
  return item;
}

}  // namespace snipdeck
