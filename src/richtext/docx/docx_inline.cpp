// What runs hold, for DocxBody.

#include <algorithm>
#include <cmath>

#include <QRegularExpression>

#include "platform/units.h"
#include "richtext/docx/docx_body.h"
#include "richtext/rtf/rtf_symbols.h"

namespace snipdeck {
namespace {

constexpr double kEmuPerTwip = 635;
constexpr char16_t kPrivateUse = 0xF000;

bool IsForbidden(char16_t c) {
  if (c < 0x20) return c != u'\t';
  return (c >= 0x7F && c < 0xA0) || c == 0x2029 || c == 0xFFFC || (c >= 0xFDD0 && c <= 0xFDEF) || c >= 0xFFFE;
}

RtfSymbolFont SymbolFontOf(const QTextCharFormat& format) {
  return RtfFonts::SymbolKind(format.fontFamilies().toStringList().value(0));
}

/// The line ends of the file's own text are blanks; what no document may hold is left out.
QString Cleaned(QStringView text, RtfSymbolFont symbols) {
  QString cleaned;
  cleaned.reserve(text.size());
  for (const QChar c : text) {
    const char16_t code = c.unicode();
    if (c == u'\n' || c == u'\r') {
      cleaned += u' ';
    } else if (symbols != RtfSymbolFont::None && code > kPrivateUse && code <= kPrivateUse + 0xFF) {
      cleaned += QChar(SymbolToUnicode(symbols, code - kPrivateUse));
    } else if (!IsForbidden(code)) {
      cleaned += c;
    }
  }
  return cleaned;
}

/// A length in a style attribute, as "12.5pt", in twips; 0 when there is none.
int StyleLength(const QString& style, const char* name) {
  const QRegularExpression length(
      QStringLiteral("(?:^|;)\\s*%1\\s*:\\s*([0-9.]+)(pt|in|cm|mm|px)?").arg(QLatin1String(name)));
  const QRegularExpressionMatch match = length.match(style.left(1000));
  const QString unit = match.captured(2);
  const double perUnit = unit == QLatin1String("in")   ? 1440
                         : unit == QLatin1String("cm") ? 567
                         : unit == QLatin1String("mm") ? 56.7
                         : unit == QLatin1String("px") ? 15
                                                       : 20;
  return static_cast<int>(std::clamp(match.captured(1).toDouble() * perUnit, 0.0, 1e6));
}

}  // namespace

void DocxBody::Run(XmlPart& xml) {
  const QTextCharFormat outer = std::exchange(m_direct, QTextCharFormat());
  while (xml.readNextStartElement()) {
    if (xml.Is("rPr") && !xml.IsMath()) {
      m_direct = ReadRunProperties(xml, m_context.theme);
    } else {
      Deeper(xml, &DocxBody::RunElement);
    }
  }
  m_direct = outer;
}

void DocxBody::RunElement(XmlPart& xml) {
  if (xml.Is("t")) {
    const bool keepsBlanks = xml.Value("space") == QLatin1String("preserve") || xml.IsMath();
    const bool isAligned = m_mathAligns && xml.IsMath();
    QString text = xml.readElementText(QXmlStreamReader::SkipChildElements);
    if (isAligned) text.remove(u'&');
    return AddText(keepsBlanks ? text : text.trimmed());
  }
  if (xml.Is("instrText")) return m_fields.AddInstruction(xml.readElementText(QXmlStreamReader::SkipChildElements));
  if (xml.Is("drawing") || xml.Is("pict") || xml.Is("object")) {
    m_pictureSize = QSize();
    return Drawing(xml);
  }
  if (xml.Is("AlternateContent")) return Alternatives(xml, &DocxBody::Run);
  if (xml.Is("ruby") || xml.Is("rubyBase")) return Inline(xml);
  RunMark(xml);
  xml.skipCurrentElement();
}

// Elements that stand for a character or say something about fields.
void DocxBody::RunMark(XmlPart& xml) {
  if (xml.Is("tab") || xml.Is("ptab")) return AddText(u"\t");
  if (xml.Is("br") || xml.Is("cr")) return Break(xml);
  if (xml.Is("noBreakHyphen")) return AddText(u"\u2011");
  if (xml.Is("softHyphen")) return AddText(u"\u00AD");
  if (xml.Is("sym")) return Symbol(xml);
  if (xml.Is("fldChar")) return FieldCharacter(xml);
  if (xml.Is("footnoteReference")) return NoteReference(xml, false);
  if (xml.Is("endnoteReference")) return NoteReference(xml, true);
  if (xml.Is("footnoteRef") || xml.Is("endnoteRef")) AddText(m_noteMark);
}

QTextCharFormat DocxBody::RunFormat() const {
  QTextCharFormat format = m_context.formats.Run(m_paragraph ? m_paragraph->base : QTextCharFormat(), m_direct);
  if (m_mathShift != QTextCharFormat::AlignNormal) format.setVerticalAlignment(m_mathShift);
  const QString link = m_link.isEmpty() ? m_fields.Link() : m_link;
  if (!link.isEmpty()) {
    format.setAnchor(true);
    format.setAnchorHref(link);
  }
  return format;
}

void DocxBody::AddText(QStringView text) {
  if (!m_paragraph || text.isEmpty() || !m_fields.ShowsText()) return;
  if (std::exchange(m_breakPending, false)) {
    if (!m_paragraph->runs.IsEmpty()) {
      OpenParagraph next;
      next.properties = m_paragraph->properties;
      next.base = m_paragraph->base;
      m_paragraph->properties.startsPageAfter = false;
      FinishParagraph(*m_paragraph);
      *m_paragraph = std::move(next);
    }
    m_paragraph->breaksPage = true;
  }
  const QTextCharFormat format = RunFormat();
  m_paragraph->runs.AddRun(Cleaned(text, SymbolFontOf(format)), m_context.formats.Character(format));
}

void DocxBody::Break(XmlPart& xml) {
  if (xml.Value("type") == QLatin1String("page")) {
    m_breakPending = true;
  } else {
    AddText(u"\u2028");
  }
}

void DocxBody::Symbol(XmlPart& xml) {
  bool isNumber = false;
  uint code = xml.Value("char").toUInt(&isNumber, 16);
  if (!isNumber || code == 0 || code > 0xFFFF) return;
  const RtfSymbolFont font = RtfFonts::SymbolKind(xml.Value("font"));
  if (code > kPrivateUse && code <= kPrivateUse + 0xFF) code -= kPrivateUse;
  const QChar symbol(code <= 0xFF && font != RtfSymbolFont::None ? SymbolToUnicode(font, static_cast<int>(code))
                                                                 : static_cast<char16_t>(code));
  AddText(QStringView(&symbol, 1));
}

void DocxBody::NoteReference(XmlPart& xml, bool endnote) {
  const QString mark = m_context.notes.Refer(xml.Value("id"), endnote);
  if (!xml.IsOn("customMarkFollows") || xml.Value("customMarkFollows").isEmpty()) AddText(mark);
}

void DocxBody::FieldCharacter(XmlPart& xml) {
  const QString kind = xml.Value("fldCharType");
  if (kind == QLatin1String("begin")) m_fields.Begin();
  if (kind == QLatin1String("separate")) m_fields.Separate();
  if (kind == QLatin1String("end")) m_fields.End();
}

void DocxBody::Drawing(XmlPart& xml) {
  while (xml.readNextStartElement()) Deeper(xml, &DocxBody::DrawingElement);
}

void DocxBody::DrawingElement(XmlPart& xml) {
  if (xml.Is("txbxContent")) {
    Flow frame = NestedFlow(xml);
    if (m_paragraph) m_paragraph->after.Append(std::move(frame));
    return;
  }
  if (xml.Is("AlternateContent")) return Alternatives(xml, &DocxBody::Drawing);
  if (xml.Is("extent")) {
    m_pictureSize = QSize(static_cast<int>(std::min(xml.Value("cx").toDouble() / kEmuPerTwip, 1e6)),
                          static_cast<int>(std::min(xml.Value("cy").toDouble() / kEmuPerTwip, 1e6)));
  }
  if (xml.Is("shape") || xml.Is("rect")) VmlSize(xml.Value("style"));
  if (xml.Is("blip")) Picture(xml.RelationshipId("embed"));
  if (xml.Is("imagedata")) Picture(xml.RelationshipId());
  Drawing(xml);
}

void DocxBody::VmlSize(const QString& style) {
  m_pictureSize = QSize(StyleLength(style, "width"), StyleLength(style, "height"));
}

void DocxBody::Picture(const QString& relationshipId) {
  const Relationship image = m_relationships.value(relationshipId);
  if (!m_paragraph || !m_fields.ShowsText()) return;
  if (image.external || image.target.isEmpty())
    return m_context.warnings.Add(QStringLiteral("picture outside of the file left out"));
  const Result<QByteArray> data = m_context.package.Part(image.target);
  if (!data) return m_context.warnings.Add(QStringLiteral("picture that cannot be read left out"));
  RtfPictureInfo info;
  const QString name = image.target.toLower();
  if (name.endsWith(QLatin1String(".wmf")) || name.endsWith(QLatin1String(".emf")))
    info.type = RtfPictureInfo::Type::Metafile;
  if (name.endsWith(QLatin1String(".bmp"))) info.type = RtfPictureInfo::Type::Dib;
  info.goalWidth = std::max(m_pictureSize.width(), 0);
  info.goalHeight = std::max(m_pictureSize.height(), 0);
  QTextImageFormat format = m_context.pictures.Add(info, data.Value());
  QTextCharFormat run = RunFormat();
  run.merge(format);
  static constexpr QChar kObject = QChar::ObjectReplacementCharacter;
  QTextImageFormat whole = run.toImageFormat();
  whole.setObjectType(QTextFormat::ImageObject);
  m_breakPending = false;
  m_paragraph->runs.AddRun(QStringView(&kObject, 1), m_context.formats.Character(whole));
}

}  // namespace snipdeck
