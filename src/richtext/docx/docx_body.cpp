#include "richtext/docx/docx_body.h"

#include "platform/units.h"
#include "richtext/docx/docx_table.h"

namespace snipdeck {
namespace {

constexpr int kDeepest = 120;
constexpr int kProgressStep = 200;  // paragraphs
constexpr int kMostPageTexts = 20;  // that are looked at for one that is not empty

/// Elements around paragraphs or runs that only say something about them.
bool IsWrapper(const XmlPart& xml) {
  static constexpr const char* kWrappers[] = {"sdt",    "sdtContent", "customXml", "smartTag",    "ins",
                                              "moveTo", "dir",        "bdo",       "txbxContent", "subDoc"};
  return std::any_of(std::begin(kWrappers), std::end(kWrappers), [&](const char* name) { return xml.Is(name); });
}

}  // namespace

Flow DocxBody::Read(XmlPart& xml) {
  Flow flow;
  m_flow = &flow;
  Blocks(xml);
  FinishHeld();
  return flow;
}

void DocxBody::FinishHeld() {
  if (m_held.IsEmpty()) return;
  m_held.EndParagraph(m_context.formats.Paragraph({}, {}, false), m_context.formats.Character(RunFormat()));
  m_flow->Append(std::move(m_held));
}

void DocxBody::SetNote(int number, bool endnote) {
  m_noteMark = DocxNotes::Mark(number, endnote);
}

void DocxBody::Deeper(XmlPart& xml, Children children) {
  if (m_depth >= kDeepest) {
    m_context.warnings.Add(QStringLiteral("too deep nesting left out"));
    return xml.skipCurrentElement();
  }
  ++m_depth;
  (this->*children)(xml);
  --m_depth;
}

void DocxBody::Blocks(XmlPart& xml) {
  while (!m_cancelled && xml.readNextStartElement()) Deeper(xml, &DocxBody::Block);
}

void DocxBody::Block(XmlPart& xml) {
  if (xml.Is("p")) return Paragraph(xml);
  if (xml.Is("tbl")) return Table(xml);
  if (xml.Is("AlternateContent")) return Alternatives(xml, &DocxBody::Blocks);
  if (xml.Is("sectPr")) {
    ReadSection(xml);
    return;
  }
  if (IsWrapper(xml)) return Blocks(xml);
  xml.skipCurrentElement();
}

void DocxBody::Alternatives(XmlPart& xml, Children children) {
  bool chosen = false;
  while (xml.readNextStartElement()) {
    const bool fits = xml.Is("Fallback") || (xml.Is("Choice") && IsKnown(xml.Value("Requires")));
    if (chosen || !fits) {
      xml.skipCurrentElement();
      continue;
    }
    chosen = true;
    Deeper(xml, children);
  }
}

bool DocxBody::IsKnown(const QString& vocabularies) const {
  static const QStringList kKnown = {"wps", "wpg", "wpc", "wp14", "w14", "w15", "w16", "a14", "m", "pic", "wp"};
  const QStringList asked = vocabularies.split(u' ', Qt::SkipEmptyParts);
  return std::all_of(asked.begin(), asked.end(), [](const QString& one) { return kKnown.contains(one); });
}

void DocxBody::Paragraph(XmlPart& xml) {
  if (m_context.progress && ++m_paragraphs % kProgressStep == 0) {
    m_cancelled = !m_context.progress(static_cast<double>(xml.characterOffset()));
  }
  OpenParagraph paragraph;
  paragraph.base = m_context.formats.RunBase({}, m_tableRun);
  paragraph.runs = std::move(m_held);
  m_held.Clear();
  OpenParagraph* const outer = std::exchange(m_paragraph, &paragraph);
  Inline(xml);
  m_paragraph = outer;
  FinishParagraph(paragraph);
}

void DocxBody::FinishParagraph(OpenParagraph& paragraph) {
  const bool joinsNext = paragraph.properties.joinsNext || paragraph.properties.mark.boolProperty(kDocxDeleted);
  if (joinsNext) {
    m_held = std::move(paragraph.runs);
  } else {
    const bool breaksPage = std::exchange(m_breakBefore, false) || paragraph.breaksPage;
    const int format = m_context.formats.Paragraph(paragraph.properties.format, m_tableParagraph, breaksPage);
    const QTextCharFormat mark = m_context.formats.Run(paragraph.base, paragraph.properties.mark);
    paragraph.runs.EndParagraph(format, m_context.formats.Character(mark));
    m_flow->Append(std::move(paragraph.runs));
  }
  if (!paragraph.after.IsEmpty()) m_flow->Append(std::move(paragraph.after));
  const bool breakFollows = std::exchange(m_breakPending, false) || paragraph.properties.startsPageAfter;
  if (breakFollows) m_breakBefore = true;
}

void DocxBody::Table(XmlPart& xml) {
  DocxTable table(*this);
  if (std::unique_ptr<TableFlow> rows = table.Read(xml)) m_flow->AddTable(std::move(rows));
}

/// Blocks inside of a cell or a frame.
Flow DocxBody::NestedFlow(XmlPart& xml) {
  Flow flow;
  Flow* const outerFlow = std::exchange(m_flow, &flow);
  OpenParagraph* const outerParagraph = std::exchange(m_paragraph, nullptr);
  Flow held = std::exchange(m_held, Flow());
  const QTextCharFormat direct = std::exchange(m_direct, QTextCharFormat());
  const DocxFields fields = std::exchange(m_fields, DocxFields());
  const bool breakBefore = std::exchange(m_breakBefore, false), breakPending = std::exchange(m_breakPending, false);
  const QString link = std::exchange(m_link, QString());
  Blocks(xml);
  FinishHeld();
  m_flow = outerFlow;
  m_paragraph = outerParagraph;
  m_held = std::move(held);
  m_direct = direct;
  m_fields = fields;
  m_breakBefore = breakBefore;
  m_breakPending = breakPending;
  m_link = link;
  return flow;
}

/// True when the section that follows begins on a new page.
bool DocxBody::ReadSection(XmlPart& xml) {
  bool startsPage = true;
  const bool isFirst = !m_context.page.hasProperty(kPageWidth) && !m_context.page.hasProperty(kPageMarginLeft);
  while (xml.readNextStartElement()) {
    if (isFirst) ReadPage(xml);
    NotePageText(xml);
    if (xml.Is("type")) startsPage = xml.Value() != QLatin1String("continuous");
    xml.skipCurrentElement();
  }
  return startsPage;
}

void DocxBody::ReadPage(XmlPart& xml) {
  constexpr int kUnsaid = 1'000'000;
  const auto set = [&](FormatProperty property, const char* attribute, int least) {
    // A negative margin holds even where the page's header needs more.
    const int twips = std::abs(xml.Twips(attribute, kUnsaid));
    if (twips >= least && twips < kUnsaid) m_context.page.setProperty(property, std::min(twips, 100'000));
  };
  if (xml.Is("pgSz")) {
    set(kPageWidth, "w", 1);
    set(kPageHeight, "h", 1);
  } else if (xml.Is("pgMar")) {
    set(kPageMarginLeft, "left", 0);
    set(kPageMarginTop, "top", 0);
    set(kPageMarginRight, "right", 0);
    set(kPageMarginBottom, "bottom", 0);
  }
}

void DocxBody::NotePageText(const XmlPart& xml) {
  const bool isHeader = xml.Is("headerReference");
  if (!isHeader && !xml.Is("footerReference")) return;
  const QString kind = xml.Value("type");
  if (!kind.isEmpty() && kind != QLatin1String("default")) return;
  QStringList& ids = isHeader ? m_context.pageTexts.headers : m_context.pageTexts.footers;
  if (ids.size() < kMostPageTexts) ids.append(xml.RelationshipId());
}

void DocxBody::Inline(XmlPart& xml) {
  while (xml.readNextStartElement()) Deeper(xml, &DocxBody::InlineElement);
}

void DocxBody::InlineElement(XmlPart& xml) {
  if (xml.Is("r")) return Run(xml);
  if (xml.Is("pPr") && m_paragraph) {
    m_paragraph->properties =
        ReadParagraphProperties(xml, m_context.theme, [this](XmlPart& section) { return ReadSection(section); });
    m_paragraph->base = m_context.formats.RunBase(m_paragraph->properties.format, m_tableRun);
    return;
  }
  if (xml.Is("hyperlink")) return Hyperlink(xml);
  if (xml.Is("fldSimple")) {
    m_fields.Begin();
    m_fields.AddInstruction(xml.Value("instr"));
    m_fields.Separate();
    Inline(xml);
    return m_fields.End();
  }
  if (xml.Is("AlternateContent")) return Alternatives(xml, &DocxBody::Inline);
  if (xml.Is("t")) return AddText(xml.readElementText(QXmlStreamReader::SkipChildElements));
  if (xml.IsMath()) return Math(xml);
  if (IsWrapper(xml)) return Inline(xml);
  xml.skipCurrentElement();
}

void DocxBody::Hyperlink(XmlPart& xml) {
  QString target = m_relationships.value(xml.RelationshipId()).target;
  const QString place = xml.Value("anchor");
  if (!place.isEmpty()) target += QLatin1Char('#') + place;
  const QString outer = std::exchange(m_link, target.left(4096));
  Inline(xml);
  m_link = outer;
}

}  // namespace snipdeck
