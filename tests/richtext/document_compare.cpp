#include "richtext/document_compare.h"

#include <QCryptographicHash>
#include <QImage>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>
#include <QUrl>

#include "richtext/document_walker.h"
#include "richtext/format_properties.h"
#include "richtext/list_labels.h"
#include "richtext/paragraph_borders.h"
#include "richtext/tab_leaders.h"

namespace snipdeck::test {
namespace {

int Twips(double pixels) {
  return qRound(pixels * 15);
}

QString ColourOf(const QBrush& brush) {
  return brush.style() == Qt::NoBrush || brush.color().alpha() == 0 ? QString() : brush.color().name();
}

/// Collects "name=value" of what is set.
class Facts {
 public:
  void Add(const char* name, const QString& value) {
    if (!value.isEmpty()) m_text += QStringLiteral(" %1=%2").arg(QLatin1String(name), value);
  }
  void Add(const char* name, int value) {
    if (value != 0) Add(name, QString::number(value));
  }
  QString Text() const { return m_text; }

 private:
  QString m_text;
};

/// The lines around a paragraph, whichever words say so: the formats have different ones for four equal lines.
QString Lines(const ParagraphBorders& borders) {
  QString text;
  for (std::size_t side = 0; side < borders.size(); ++side) {
    const BorderLine& line = borders[side];
    if (line.width == 0) continue;
    text += QStringLiteral("%1:%2/%3/%4/").arg(side).arg(int(line.style)).arg(line.width).arg(line.space);
    text += line.colour.isValid() ? line.colour.name() + u' ' : QStringLiteral("- ");
  }
  return text.trimmed();
}

QString Characters(const QTextCharFormat& format, const QFont& defaults) {
  Facts facts;
  const QStringList families = format.fontFamilies().toStringList();
  facts.Add("font", families.isEmpty() ? defaults.families().value(0) : families.first());
  double points = format.hasProperty(QTextFormat::FontPointSize) ? format.fontPointSize() : defaults.pointSizeF();
  if (format.hasProperty(QTextFormat::FontPixelSize)) points = format.intProperty(QTextFormat::FontPixelSize) * 0.75;
  facts.Add("halfpoints", qRound(points * 2));
  facts.Add("bold", format.fontWeight() > QFont::Medium);
  facts.Add("italic", format.fontItalic());
  if (format.underlineStyle() != QTextCharFormat::NoUnderline) {
    facts.Add("underline", int(format.underlineStyle()));
    facts.Add("kind", format.intProperty(kUnderlineKind));
    if (format.underlineColor().isValid()) facts.Add("linecolour", format.underlineColor().name());
  }
  facts.Add("strike", format.fontStrikeOut() + format.boolProperty(kDoubleStrike));
  const int align = format.verticalAlignment();
  facts.Add("script",
            align == QTextCharFormat::AlignSuperScript || align == QTextCharFormat::AlignSubScript ? align : 0);
  const int capitals = format.fontCapitalization();
  facts.Add("capitals", capitals == QFont::AllUppercase || capitals == QFont::SmallCaps ? capitals : 0);
  facts.Add("hidden", format.boolProperty(kHiddenText));
  facts.Add("outline", format.boolProperty(kOutline));
  facts.Add("shadow", format.boolProperty(kShadow));
  facts.Add("emboss", format.intProperty(kEmboss));
  facts.Add("shift", format.intProperty(kBaselineShift));
  const int stretch = format.hasProperty(QTextFormat::FontStretch) ? format.fontStretch() : 100;
  facts.Add("scale", stretch > 0 && stretch != 100 ? stretch : 0);
  if (format.fontLetterSpacingType() == QFont::AbsoluteSpacing) facts.Add("spacing", Twips(format.fontLetterSpacing()));
  facts.Add("colour", format.foreground().style() == Qt::NoBrush ? QString() : format.foreground().color().name());
  facts.Add("background", ColourOf(format.background()));
  facts.Add("highlight", !ColourOf(format.background()).isEmpty() && format.boolProperty(kHighlight));
  facts.Add("style", format.stringProperty(kCharStyleName));
  facts.Add("link", format.anchorHref());
  return facts.Text();
}

void LineHeight(Facts& facts, const QTextBlockFormat& format) {
  const int type = format.lineHeightType();
  if (type == QTextBlockFormat::ProportionalHeight && format.lineHeight() != 100) {
    facts.Add("line%", qRound(format.lineHeight() * 2.4));
  }
  if (type == QTextBlockFormat::FixedHeight) facts.Add("line", Twips(format.lineHeight()));
  if (type == QTextBlockFormat::MinimumHeight) facts.Add("line>", Twips(format.lineHeight()));
}

void Tabs(Facts& facts, const QTextBlockFormat& format) {
  QStringList tabs;
  for (const QTextOption::Tab& tab : format.tabPositions()) {
    const QChar leader = LeaderOf(tab);
    tabs.append(QStringLiteral("%1:%2").arg(int(tab.type)).arg(Twips(tab.position)) + (leader.isNull() ? QString() : leader));
  }
  facts.Add("tabs", tabs.join(u','));
}

void ListFacts(Facts& facts, const QTextBlock& block) {
  const QTextList* list = block.textList();
  const QString label = block.blockFormat().stringProperty(kListLabel);
  facts.Add("label", label);
  if (!list) return;
  facts.Add("list", -int(list->format().style()));
  facts.Add("level", list->format().indent());
  if (label.isEmpty() && !IsBullet(list->format())) facts.Add("number", ListLabel(block));
}

QString Paragraph(const QTextBlock& block, double indentWidth) {
  const QTextBlockFormat format = block.blockFormat();
  Facts facts;
  const Qt::Alignment alignment = format.alignment() & Qt::AlignHorizontal_Mask & ~Qt::AlignLeft & ~Qt::AlignAbsolute;
  facts.Add("align", int(alignment));
  const int steps = format.indent() + (block.textList() ? block.textList()->format().indent() : 0);
  facts.Add("left", Twips(format.leftMargin() + steps * indentWidth));
  facts.Add("right", Twips(format.rightMargin()));
  facts.Add("first", Twips(format.textIndent()));
  facts.Add("above", Twips(format.topMargin()));
  facts.Add("below", Twips(format.bottomMargin()));
  LineHeight(facts, format);
  Tabs(facts, format);
  facts.Add("newpage", bool(format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore));
  facts.Add("keep", format.boolProperty(kKeepTogether));
  facts.Add("keepnext", format.boolProperty(kKeepWithNext));
  facts.Add("righttoleft", format.layoutDirection() == Qt::RightToLeft);
  facts.Add("background", ColourOf(format.background()));
  facts.Add("border", Lines(BordersOf(format)));
  facts.Add("style", format.stringProperty(kParaStyleName));
  facts.Add("heading", format.headingLevel());
  ListFacts(facts, block);
  return facts.Text();
}

QString CellLines(const QTextTableCellFormat& format, const QTextTableFormat& table) {
  QStringList lines;
  for (int side = 0; side < 4; ++side) {
    const int style = QTextFormat::TableCellTopBorderStyle + side;
    const int width = QTextFormat::TableCellTopBorder + side;
    const bool own = format.hasProperty(style);
    const int kind = own ? format.intProperty(style) : int(table.borderStyle());
    const int twips = Twips(own ? format.doubleProperty(width) : table.border());
    lines.append(kind == 0 || twips == 0 ? QStringLiteral("-") : QStringLiteral("%1:%2").arg(kind).arg(twips));
  }
  return lines.join(u',');
}

QString RowHeight(const QTextTableCell& cell) {
  Facts facts;
  facts.Add("height", cell.format().intProperty(kRowHeight));
  return facts.Text();
}

class Describer : public DocumentVisitor {
 public:
  explicit Describer(const QTextDocument& document) : m_document(document) {}

  QStringList Lines() && { return std::move(m_lines); }

  void BeginBlock(const QTextBlock& block) override {
    Line(QLatin1String("paragraph") + Paragraph(block, m_document.indentWidth()));
  }
  void EndBlock(const QTextBlock&, bool) override { Flush(); }

  void Run(QStringView text, const QTextCharFormat& format, int) override {
    const QString facts = Characters(format, m_document.defaultFont());
    if (facts != m_facts) Flush();
    m_facts = facts;
    m_text += text;
  }

  void Image(const QTextImageFormat& format, int) override {
    const QVariant resource = m_document.resource(QTextDocument::ImageResource, QUrl(format.name()));
    QImage image = resource.value<QImage>();
    if (resource.userType() == QMetaType::QByteArray) image = QImage::fromData(resource.toByteArray());
    image = image.convertToFormat(QImage::Format_ARGB32);
    const QByteArray pixels(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
    const QSizeF size(format.width() > 0 ? format.width() : image.width(),
                      format.height() > 0 ? format.height() : image.height());
    Line(QStringLiteral("picture %1x%2 %3")
             .arg(Twips(size.width()))
             .arg(Twips(size.height()))
             .arg(QLatin1String(QCryptographicHash::hash(pixels, QCryptographicHash::Md5).toHex())));
  }

  void BeginTable(const QTextTable& table) override {
    Line(QStringLiteral("table %1x%2").arg(table.rows()).arg(table.columns()));
  }
  void EndTable(const QTextTable&) override { Line(QStringLiteral("end of table")); }

  void BeginCell(const QTextTable& table, const QTextTableCell& cell) override {
    Line(QStringLiteral("cell %1,%2 spans %3x%4 lines %5 %6")
             .arg(cell.row())
             .arg(cell.column())
             .arg(cell.rowSpan())
             .arg(cell.columnSpan())
             .arg(CellLines(cell.format().toTableCellFormat(), table.format()), ColourOf(cell.format().background())) +
         RowHeight(cell));
  }

 private:
  void Flush() {
    if (!m_text.isEmpty()) m_lines.append(QStringLiteral("run \"%1\"%2").arg(m_text, m_facts));
    m_text.clear();
  }
  void Line(const QString& line) {
    Flush();
    m_lines.append(line);
  }

  const QTextDocument& m_document;
  QStringList m_lines;
  QString m_text;
  QString m_facts;
};

}  // namespace

namespace {

/// Characters that do not show become their numbers.
QString Visible(const QString& line) {
  QString visible;
  for (const QChar character : line.left(1500)) {
    const bool shows = character.isPrint() && character != QChar::Nbsp && character != QChar::SoftHyphen;
    visible += shows || character == u'\n' ? QString(character) : QStringLiteral("<%1>").arg(character.unicode(), 0, 16);
  }
  return visible;
}

}  // namespace

QStringList Describe(const QTextDocument& document) {
  Describer describer(document);
  WalkDocument(document, describer);
  return std::move(describer).Lines();
}

QString FirstDifference(const QTextDocument& expected, const QTextDocument& actual) {
  const QStringList before = Describe(expected), after = Describe(actual);
  for (qsizetype i = 0; i < std::max(before.size(), after.size()); ++i) {
    const QString was = before.value(i, QStringLiteral("(nothing)")), is = after.value(i, QStringLiteral("(nothing)"));
    if (was != is) {
      return QStringLiteral("line %1\n  expected: %2\n  actual:   %3").arg(i).arg(Visible(was), Visible(is));
    }
  }
  return QString();
}

}  // namespace snipdeck::test
