#include "richtext/rtf/rtf_openers.h"

#include "richtext/rtf/rtf_old_numbering.h"
#include "richtext/rtf/rtf_parser.h"

namespace snipdeck::rtf_openers {
namespace {

/// A field as a whole: it has no text but that of its result.
class FieldGroup : public RtfDestination {
 public:
  explicit FieldGroup(RtfParser& parser) : m_parser(parser), m_shownBefore(Shown()) {}
  void Close() override {
    if (Shown() == m_shownBefore) ShowInstruction();
    m_parser.Fields().End();
  }

 private:
  // Some fields have no result because they show a part of their instruction.
  void ShowInstruction() {
    const QString section = QString::number(m_parser.Page().sectionsEnded + 1);
    const QString shown = m_parser.Fields().TextWithoutResult(section);
    GroupState& state = m_parser.State();
    state.destination = state.outer;
    if (!m_parser.Body()) return;
    if (const auto& format = m_parser.Fields().Innermost().format) state.character = *format;
    m_parser.Emit(shown);
  }

  qint64 Shown() const { return m_parser.State().body ? m_parser.State().body->Shown() : 0; }

  RtfParser& m_parser;
  const qint64 m_shownBefore;
};

class InstructionCollector : public RtfStringCollector {
 public:
  explicit InstructionCollector(RtfParser& parser)
      : RtfStringCollector(parser.Fields().Innermost().instruction),
        m_parser(parser),
        m_field(parser.Fields().Innermost()) {}
  void Text(QStringView text) override {
    m_field.format = m_parser.State().character;
    RtfStringCollector::Text(text);
  }
  bool Word(std::string_view word, int, bool) override {
    if (word != "formfield") return false;
    m_parser.Open(std::make_unique<RtfFormFieldReader>(m_parser, m_field.form));
    return true;
  }

 private:
  RtfParser& m_parser;
  RtfField& m_field;
};

/// The text twice: for readers without Unicode, which is passed over, and with it.
class TwoVersions : public RtfDestination {
 public:
  explicit TwoVersions(RtfParser& parser) : m_parser(parser) {}
  bool Raw(QByteArrayView) override { return true; }
  bool Word(std::string_view word, int, bool) override {
    if (word == "ud") m_parser.State().destination = m_parser.State().outer;
    return true;
  }

 private:
  RtfParser& m_parser;
};

void CollectInto(RtfParser& parser, QString& target) {
  parser.Open(std::make_unique<RtfStringCollector>(target));
}

void AppendText(QString& target, const Flow& flow) {
  qsizetype at = 0;
  for (const FlowItem& item : flow.items) {
    if (item.kind == FlowItem::Kind::Run) {
      target += QStringView(flow.text).mid(at, item.length);
      at += item.length;
    } else if (item.kind == FlowItem::Kind::ParagraphEnd) {
      target += QLatin1Char('\n');
    } else {
      target += QLatin1Char(' ');
    }
  }
}

}  // namespace

void Transparent(RtfParser&, int) {}

void FontTable(RtfParser& parser, int) {
  parser.OpenShared(parser.Fonts());
}

void AlternativeFont(RtfParser& parser, int) {
  if (parser.State().destination == &parser.Fonts()) return CollectInto(parser, parser.Fonts().Alternative());
  parser.Skip();
}

void ColourTable(RtfParser& parser, int) {
  parser.OpenShared(parser.Colours());
}

void StyleSheet(RtfParser& parser, int) {
  parser.OpenShared(parser.Styles());
  parser.State().character = {};
  parser.State().paragraph = {};
}

void ListTable(RtfParser& parser, int) {
  parser.OpenShared(parser.Lists());
}

void LevelText(RtfParser& parser, int) {
  if (parser.State().destination == &parser.Lists()) return CollectInto(parser, parser.Lists().LevelText());
  parser.Skip();
}

void ListLabel(RtfParser& parser, int) {
  if (!parser.Body()) return parser.Skip();
  parser.ShownLabel().clear();
  parser.Open(std::make_unique<RtfLabelCollector>(parser.ShownLabel()));
}

void OldNumbering(RtfParser& parser, int) {
  if (!parser.Body()) return parser.Skip();
  parser.Open(std::make_unique<RtfOldNumberingReader>(parser));
}

void Field(RtfParser& parser, int) {
  parser.State().outer = parser.State().destination;
  parser.Fields().Begin();
  parser.Open(std::make_unique<FieldGroup>(parser));
}

void FieldInstruction(RtfParser& parser, int) {
  parser.Open(std::make_unique<InstructionCollector>(parser));
}

void FieldResult(RtfParser& parser, int) {
  GroupState& state = parser.State();
  if (state.outer) state.destination = state.outer;
  if (const int link = parser.Fields().Link()) state.character.link = link;
}

void Picture(RtfParser& parser, int) {
  if (!parser.Body() || (parser.State().character.hidden && !parser.IsForDocument())) return parser.Skip();
  parser.Open(std::make_unique<RtfPicture>(parser));
}

void Footnote(RtfParser& parser, int) {
  if (!parser.Body()) return parser.Skip();
  parser.Notes().BeginNote();
  parser.State().insideNote = true;
  parser.State().inTable = false;
  parser.OpenBody(
      std::make_unique<RtfBody>(parser, [&parser](Flow&& flow) { parser.Notes().AddNote(std::move(flow)); }));
}

void Header(RtfParser& parser, int isFooter) {
  if (!parser.IsForDocument()) return parser.Skip();
  QString& target = isFooter ? parser.Notes().FooterText() : parser.Notes().HeaderText();
  if (!target.isEmpty()) return parser.Skip();
  parser.State().inTable = false;
  parser.OpenBody(std::make_unique<RtfBody>(parser, [&target](Flow&& flow) { AppendText(target, flow); }));
}

// The text of a shape follows the paragraph that the shape is anchored in.
void ShapeText(RtfParser& parser, int) {
  RtfBody* body = parser.Body();
  if (!body) return parser.Skip();
  parser.State().inTable = false;
  parser.OpenBody(std::make_unique<RtfBody>(parser, [body](Flow&& flow) { body->AddAfterParagraph(std::move(flow)); }));
}

void ShapePropertyName(RtfParser& parser, int) {
  parser.ShapeProperty().clear();
  CollectInto(parser, parser.ShapeProperty());
}

// Of all that describes a shape, only its picture is shown.
void ShapePropertyValue(RtfParser& parser, int) {
  if (parser.ShapeProperty() != QLatin1String("pib")) parser.Skip();
}

void UnicodeOrNot(RtfParser& parser, int) {
  parser.State().outer = parser.State().destination;
  parser.Open(std::make_unique<TwoVersions>(parser));
}

}  // namespace snipdeck::rtf_openers
