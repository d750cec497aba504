#include "richtext/docx/docx_properties.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "platform/units.h"
#include "richtext/docx/docx_values.h"
#include "richtext/paragraph_borders.h"
#include "richtext/tab_leaders.h"

namespace snipdeck {
namespace {

constexpr int kMostHalfPoints = 3276;
constexpr int kMostTwips = 31680;
constexpr int kSingleLine = 240;
constexpr double kTwipsPerEighth = 2.5;  // borders are counted in eighths of a point

double Pixels(int twips) {
  return std::clamp(twips, -kMostTwips, kMostTwips) / kTwipsPerPixel;
}

void SetFonts(QTextCharFormat& format, const XmlPart& xml, const DocxTheme& theme) {
  const auto font = [&](const char* direct, const char* themed) {
    const QString ofTheme = theme.Font(xml.Value(themed));
    return ofTheme.isEmpty() ? xml.Value(direct) : ofTheme;
  };
  const QString latin = font("ascii", "asciiTheme");
  const QString complex = font("cs", "cstheme");
  if (!latin.isEmpty()) format.setFontFamilies({latin});
  if (!complex.isEmpty()) format.setProperty(kDocxFont, complex);
}

void SetSize(QTextCharFormat& format, int halfPoints) {
  if (halfPoints > 0) format.setFontPointSize(std::min(halfPoints, kMostHalfPoints) / 2.0);
}

void SetUnderline(QTextCharFormat& format, const XmlPart& xml) {
  const DocxUnderline underline = UnderlineFromWord(xml.Value());
  format.setUnderlineStyle(underline.style);
  if (underline.kind != UnderlineKind::Single) {
    format.setProperty(kUnderlineKind, static_cast<int>(underline.kind));
  } else {
    format.clearProperty(kUnderlineKind);
  }
  const QColor colour = ColourFromWord(xml.Value("color"));
  if (colour.isValid()) format.setUnderlineColor(colour);
}

void SetVerticalAlign(QTextCharFormat& format, const QString& word) {
  format.setVerticalAlignment(word == QLatin1String("superscript") ? QTextCharFormat::AlignSuperScript
                              : word == QLatin1String("subscript") ? QTextCharFormat::AlignSubScript
                                                                   : QTextCharFormat::AlignNormal);
}

void SetHighlight(QTextCharFormat& format, const XmlPart& xml) {
  const QColor colour = HighlightFromWord(xml.Value());
  if (!colour.isValid()) return;
  format.setBackground(colour);
  format.setProperty(kHighlight, true);
}

void SetCase(QTextCharFormat& format, const XmlPart& xml, QFont::Capitalization capitals) {
  format.setFontCapitalization(xml.IsOn() ? capitals : QFont::MixedCase);
}

void SetSpacing(QTextCharFormat& format, const XmlPart& xml) {
  format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
  format.setFontLetterSpacing(Pixels(xml.Twips("val")));
}

void SetStretch(QTextCharFormat& format, const XmlPart& xml) {
  const int percent = std::clamp(xml.Number("val", 100), 1, 600);
  format.setFontStretch(percent);
  format.setProperty(kCharScalePercent, percent);
}

using Reader = void (*)(QTextCharFormat&, const XmlPart&);
struct RunEntry {
  const char* element;
  Reader read;
};

// What a run can say, apart from its fonts, which need the theme.
constexpr RunEntry kRunEntries[] = {
    {"rStyle", [](QTextCharFormat& f, const XmlPart& x) { f.setProperty(kDocxStyle, x.Value()); }},
    {"b", [](QTextCharFormat& f, const XmlPart& x) { f.setFontWeight(x.IsOn() ? QFont::Bold : QFont::Normal); }},
    {"bCs", [](QTextCharFormat& f, const XmlPart& x) { f.setProperty(kDocxBold, x.IsOn()); }},
    {"i", [](QTextCharFormat& f, const XmlPart& x) { f.setFontItalic(x.IsOn()); }},
    {"iCs", [](QTextCharFormat& f, const XmlPart& x) { f.setProperty(kDocxItalic, x.IsOn()); }},
    {"caps", [](QTextCharFormat& f, const XmlPart& x) { SetCase(f, x, QFont::AllUppercase); }},
    {"smallCaps", [](QTextCharFormat& f, const XmlPart& x) { SetCase(f, x, QFont::SmallCaps); }},
    {"strike", [](QTextCharFormat& f, const XmlPart& x) { f.setFontStrikeOut(x.IsOn()); }},
    {"dstrike",
     [](QTextCharFormat& f, const XmlPart& x) {
       f.setFontStrikeOut(x.IsOn());
       f.setProperty(kDoubleStrike, x.IsOn());
     }},
    {"outline", [](QTextCharFormat& f, const XmlPart& x) { f.setProperty(kOutline, x.IsOn()); }},
    {"shadow", [](QTextCharFormat& f, const XmlPart& x) { f.setProperty(kShadow, x.IsOn()); }},
    {"emboss", [](QTextCharFormat& f, const XmlPart& x) { f.setProperty(kEmboss, x.IsOn() ? 1 : 0); }},
    {"imprint", [](QTextCharFormat& f, const XmlPart& x) { f.setProperty(kEmboss, x.IsOn() ? -1 : 0); }},
    {"vanish", [](QTextCharFormat& f, const XmlPart& x) { f.setProperty(kHiddenText, x.IsOn()); }},
    {"color",
     [](QTextCharFormat& f, const XmlPart& x) {
       const QColor colour = ColourFromWord(x.Value());
       colour.isValid() ? f.setForeground(colour) : f.clearForeground();
     }},
    {"spacing", SetSpacing},
    {"w", SetStretch},
    {"position", [](QTextCharFormat& f, const XmlPart& x) { f.setProperty(kBaselineShift, x.Number()); }},
    {"sz", [](QTextCharFormat& f, const XmlPart& x) { SetSize(f, x.Twips("val") / (x.Value().endsWith(u't') ? 10 : 1)); }},
    {"szCs", [](QTextCharFormat& f, const XmlPart& x) { f.setProperty(kDocxSize, x.Number()); }},
    {"highlight", SetHighlight},
    {"u", SetUnderline},
    {"shd",
     [](QTextCharFormat& f, const XmlPart& x) {
       const QColor colour = ReadShading(x);
       if (colour.isValid() && !f.boolProperty(kHighlight)) f.setBackground(colour);
     }},
    {"vertAlign", [](QTextCharFormat& f, const XmlPart& x) { SetVerticalAlign(f, x.Value()); }},
    {"rtl", [](QTextCharFormat& f, const XmlPart& x) { f.setProperty(kDocxComplex, x.IsOn()); }},
    {"cs", [](QTextCharFormat& f, const XmlPart& x) { f.setProperty(kDocxComplex, x.IsOn()); }},
    {"del", [](QTextCharFormat& f, const XmlPart&) { f.setProperty(kDocxDeleted, true); }},
};

void SetSpacingAround(QTextBlockFormat& format, const XmlPart& xml) {
  const int before = xml.Twips("before", -1), after = xml.Twips("after", -1), line = xml.Twips("line", -1);
  if (before >= 0) format.setTopMargin(Pixels(before));
  if (after >= 0) format.setBottomMargin(Pixels(after));
  if (line <= 0) return;
  const QString rule = xml.Value("lineRule");
  if (rule == QLatin1String("exact")) {
    format.setLineHeight(Pixels(line), QTextBlockFormat::FixedHeight);
  } else if (rule == QLatin1String("atLeast")) {
    format.setLineHeight(Pixels(line), QTextBlockFormat::MinimumHeight);
  } else if (line != kSingleLine) {
    format.setLineHeight(line * 100.0 / kSingleLine, QTextBlockFormat::ProportionalHeight);
  } else {
    format.setLineHeight(0, QTextBlockFormat::SingleHeight);
  }
}

int EitherTwips(const XmlPart& xml, const char* one, const char* other, int missing) {
  return xml.Twips(one, xml.Twips(other, missing));
}

void SetIndents(QTextBlockFormat& format, const XmlPart& xml) {
  constexpr int kUnsaid = 1'000'000;
  const int left = EitherTwips(xml, "start", "left", kUnsaid), right = EitherTwips(xml, "end", "right", kUnsaid);
  if (left != kUnsaid) format.setLeftMargin(Pixels(left));
  if (right != kUnsaid) format.setRightMargin(Pixels(right));
  const int hanging = xml.Twips("hanging", kUnsaid), first = xml.Twips("firstLine", kUnsaid);
  if (hanging != kUnsaid) {
    format.setTextIndent(Pixels(-hanging));
  } else if (first != kUnsaid) {
    format.setTextIndent(Pixels(first));
  }
}

void SetAlignment(QTextBlockFormat& format, const QString& word) {
  if (word == QLatin1String("center")) return format.setAlignment(Qt::AlignHCenter);
  if (word == QLatin1String("right") || word == QLatin1String("end"))
    return format.setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
  if (word == QLatin1String("both") || word == QLatin1String("distribute"))
    return format.setAlignment(Qt::AlignJustify);
  format.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
}

QTextOption::TabType TabTypeFromWord(const QString& word) {
  if (word == QLatin1String("right") || word == QLatin1String("end")) return QTextOption::RightTab;
  if (word == QLatin1String("center")) return QTextOption::CenterTab;
  return word == QLatin1String("decimal") ? QTextOption::DelimiterTab : QTextOption::LeftTab;
}

void ReadTabs(QTextBlockFormat& format, XmlPart& xml) {
  constexpr qsizetype kMostTabs = 64;
  QList<QTextOption::Tab> tabs;
  while (xml.readNextStartElement()) {
    const QString kind = xml.Value();
    if (xml.Is("tab") && kind != QLatin1String("clear") && tabs.size() < kMostTabs) {
      const QTextOption::TabType type = TabTypeFromWord(kind);
      const QTextOption::Tab stop(Pixels(xml.Twips("pos")), type,
                                  type == QTextOption::DelimiterTab ? QLatin1Char('.') : QChar());
      tabs.append(WithLeader(stop, LeaderFromWord(xml.Value("leader"))));
    }
    xml.skipCurrentElement();
  }
  if (!tabs.isEmpty()) format.setTabPositions(tabs);
}

QByteArray BorderWords(const char* side, const XmlPart& xml) {
  const int width = std::clamp(static_cast<int>(std::lround(xml.Number("sz") * kTwipsPerEighth)), 0, 255);
  const int space = std::clamp(xml.Number("space") * 20, 0, 1000);
  const QColor colour = ColourFromWord(xml.Value("color"));
  return QByteArray("\\") + side + '\\' + BorderWord(BorderFromWord(xml.Value())) + "\\brdrw" + QByteArray::number(width) +
         "\\brsp" + QByteArray::number(space) + (colour.isValid() ? "\\brdrcf" + colour.name().toLatin1() : QByteArray());
}

void ReadParagraphBorders(DocxParagraph& paragraph, XmlPart& xml) {
  struct Side {
    const char* element;
    const char* word;
  };
  static constexpr Side kSides[] = {{"top", "brdrt"},   {"left", "brdrl"}, {"start", "brdrl"}, {"bottom", "brdrb"},
                                    {"right", "brdrr"}, {"end", "brdrr"},  {"between", "brdrbtw"}};
  while (xml.readNextStartElement()) {
    const QString kind = xml.Value();
    for (const Side& side : kSides) {
      if (!xml.Is(side.element) || kind == QLatin1String("nil") || kind == QLatin1String("none")) continue;
      paragraph.borders += BorderWords(side.word, xml);
    }
    xml.skipCurrentElement();
  }
}

void ReadNumbering(QTextBlockFormat& format, XmlPart& xml) {
  while (xml.readNextStartElement()) {
    if (xml.Is("numId")) format.setProperty(kDocxList, std::max(xml.Number(), 0));
    if (xml.Is("ilvl")) format.setProperty(kDocxLevel, std::clamp(xml.Number(), 0, 8));
    xml.skipCurrentElement();
  }
}

using ParagraphReader = void (*)(QTextBlockFormat&, const XmlPart&);
struct ParagraphEntry {
  const char* element;
  ParagraphReader read;
};
constexpr ParagraphEntry kParagraphEntries[] = {
    {"pStyle", [](QTextBlockFormat& f, const XmlPart& x) { f.setProperty(kDocxStyle, x.Value()); }},
    {"jc", [](QTextBlockFormat& f, const XmlPart& x) { SetAlignment(f, x.Value()); }},
    {"ind", SetIndents},
    {"spacing", SetSpacingAround},
    {"keepLines", [](QTextBlockFormat& f, const XmlPart& x) { f.setProperty(kKeepTogether, x.IsOn()); }},
    {"keepNext", [](QTextBlockFormat& f, const XmlPart& x) { f.setProperty(kKeepWithNext, x.IsOn()); }},
    {"pageBreakBefore",
     [](QTextBlockFormat& f, const XmlPart& x) {
       f.setPageBreakPolicy(x.IsOn() ? QTextFormat::PageBreak_AlwaysBefore : QTextFormat::PageBreak_Auto);
     }},
    {"outlineLvl",
     [](QTextBlockFormat& f, const XmlPart& x) {
       const int level = x.Number();
       f.setHeadingLevel(level < 0 || level > 8 ? 0 : std::min(level + 1, 6));
     }},
    {"bidi",
     [](QTextBlockFormat& f, const XmlPart& x) {
       f.setLayoutDirection(x.IsOn() ? Qt::RightToLeft : Qt::LeftToRight);
     }},
    {"shd",
     [](QTextBlockFormat& f, const XmlPart& x) {
       const QColor colour = ReadShading(x);
       if (colour.isValid()) f.setBackground(colour);
     }},
};

QColor Mixed(const QColor& ground, const QColor& ink, int percent) {
  const auto part = [percent](int below, int above) { return below + (above - below) * percent / 100; };
  return QColor(part(ground.red(), ink.red()), part(ground.green(), ink.green()), part(ground.blue(), ink.blue()));
}

}  // namespace

void DocxTheme::Read(const QByteArray& part) {
  XmlPart xml(part);
  if (!xml.EnterRoot()) return;
  QString* font = nullptr;
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    if (xml.Is("majorFont")) font = &m_major;
    if (xml.Is("minorFont")) font = &m_minor;
    if (xml.Is("latin") && font && font->isEmpty()) *font = xml.Value("typeface");
  }
}

QString DocxTheme::Font(const QString& name) const {
  if (name.startsWith(QLatin1String("major"))) return m_major;
  return name.startsWith(QLatin1String("minor")) ? m_minor : QString();
}

QTextCharFormat ReadRunProperties(XmlPart& xml, const DocxTheme& theme) {
  QTextCharFormat format;
  while (xml.readNextStartElement()) {
    if (xml.Is("rFonts")) SetFonts(format, xml, theme);
    const auto entry = std::find_if(std::begin(kRunEntries), std::end(kRunEntries),
                                    [&](const RunEntry& candidate) { return xml.Is(candidate.element); });
    if (entry != std::end(kRunEntries)) entry->read(format, xml);
    xml.skipCurrentElement();
  }
  return format;
}

void ReadParagraphProperty(XmlPart& xml, DocxParagraph& paragraph) {
  if (xml.Is("tabs")) return ReadTabs(paragraph.format, xml);
  if (xml.Is("pBdr")) return ReadParagraphBorders(paragraph, xml);
  if (xml.Is("numPr")) return ReadNumbering(paragraph.format, xml);
  // The large first letter of a paragraph stands in one of its own.
  if (xml.Is("framePr") && !xml.Value("dropCap").isEmpty()) paragraph.joinsNext = true;
  const auto entry = std::find_if(std::begin(kParagraphEntries), std::end(kParagraphEntries),
                                  [&](const ParagraphEntry& candidate) { return xml.Is(candidate.element); });
  if (entry != std::end(kParagraphEntries)) entry->read(paragraph.format, xml);
  xml.skipCurrentElement();
}

QTextCharFormat Finished(const QTextCharFormat& format) {
  QTextCharFormat finished = format;
  if (format.boolProperty(kDocxComplex)) {
    if (format.hasProperty(kDocxSize)) SetSize(finished, format.intProperty(kDocxSize));
    if (format.hasProperty(kDocxFont)) finished.setFontFamilies({format.stringProperty(kDocxFont)});
    finished.setFontWeight(format.boolProperty(kDocxBold) ? QFont::Bold : QFont::Normal);
    finished.setFontItalic(format.boolProperty(kDocxItalic));
  }
  for (int property = kDocxStyle; property <= kDocxDeleted; ++property) finished.clearProperty(property);
  if (finished.hasProperty(kBaselineShift)) {
    const double size = std::max(finished.fontPointSize(), 1.0);
    finished.setBaselineOffset(finished.intProperty(kBaselineShift) * 50.0 / size);
  }
  if (finished.fontWeight() == QFont::Normal) finished.clearProperty(QTextFormat::FontWeight);
  if (finished.underlineStyle() == QTextCharFormat::NoUnderline) finished.clearProperty(QTextFormat::TextUnderlineStyle);
  return finished;
}

QColor ReadShading(const XmlPart& xml) {
  const QString pattern = xml.Value();
  const QColor fill = ColourFromWord(xml.Value("fill")), ink = ColourFromWord(xml.Value("color"));
  const QColor dark = ink.isValid() ? ink : QColor(Qt::black);
  if (pattern == QLatin1String("solid")) return dark;
  if (!pattern.startsWith(QLatin1String("pct"))) return fill;
  const int percent = std::clamp(QStringView(pattern).mid(3).toInt(), 0, 100);
  return Mixed(fill.isValid() ? fill : QColor(Qt::white), dark, percent);
}

CellBorder ReadBorder(const XmlPart& xml) {
  CellBorder border;
  border.style = BorderFromWord(xml.Value());
  if (border.style == QTextFrameFormat::BorderStyle_None) return border;
  border.width = static_cast<std::int16_t>(
      std::clamp(static_cast<int>(std::lround(xml.Number("sz", 4) * kTwipsPerEighth)), 1, 255));
  const QColor colour = ColourFromWord(xml.Value("color"));
  if (colour.isValid()) border.colour = colour.rgb();
  return border;
}

}  // namespace snipdeck
