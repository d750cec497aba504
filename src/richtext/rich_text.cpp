#include "richtext/rich_text.h"

#include <QTextCursor>
#include <QTextFrame>

#include "richtext/document_copier.h"
#include "richtext/flow_text.h"
#include "richtext/format_spread.h"
#include "richtext/html/html_reader.h"
#include "richtext/rtf/rtf_reader.h"
#include "richtext/rtf/rtf_writer.h"
#include "richtext/safe_document.h"
#include "richtext/text/text_decoder.h"
#include "richtext/text/text_writer.h"

namespace snipdeck {

/// Plain text and text that was read from RTF stay as their reader left them until somebody asks for a document: most
/// of it only goes on into the documents of boxes.
struct RichText::Data {
  std::shared_ptr<const FlowText> flow;  ///< The text, until `document` is made of it.
  SafeDocument document;
  QStringList warnings;
  QByteArray rtf;

  const QTextDocument& Document() {
    if (flow) FillDocument(*flow, document);
    flow.reset();
    return document;
  }
};

RichText::RichText() : m_data(std::make_shared<Data>()) {}

RichText::RichText(std::shared_ptr<Data> data) : m_data(std::move(data)) {}

RichText RichText::FromRtf(QByteArrayView rtf, ReadFor purpose) {
  auto data = std::make_shared<Data>();
  RtfContents contents = ReadRtf(rtf, purpose);
  data->warnings = std::move(contents.warnings);
  if (contents.html.isEmpty()) {
    data->flow = std::make_shared<FlowText>(std::move(contents.text));
  } else {
    data->warnings += ReadHtml(contents.html, data->document);
  }
  return RichText(std::move(data));
}

RichText RichText::FromHtml(QByteArrayView html) {
  auto data = std::make_shared<Data>();
  data->warnings = ReadHtml(html, data->document);
  return RichText(std::move(data));
}

/// Word processors write their line and page breaks as the control characters VT and FF, which no document may hold.
static QString BreaksAsLines(QString text) {
  return text.replace(u'\v', QChar::LineSeparator).replace(u'\f', QChar::LineSeparator);
}

RichText RichText::FromPlainText(const QString& text) {
  auto data = std::make_shared<Data>();
  data->flow = std::make_shared<FlowText>(PlainFlow(CleanText(BreaksAsLines(text))));
  return RichText(std::move(data));
}

RichText RichText::FromFlow(FlowText&& text, const QStringList& warnings) {
  auto data = std::make_shared<Data>();
  CutPieces(text);
  SpreadFormats(text.formats);
  data->flow = std::make_shared<FlowText>(std::move(text));
  data->warnings = warnings;
  return RichText(std::move(data));
}

RichText RichText::FromDocument(const QTextDocument& document, int begin, int end) {
  auto data = std::make_shared<Data>();
  data->document.setDefaultFont(document.defaultFont());
  data->document.rootFrame()->setFrameFormat(document.rootFrame()->frameFormat());
  QTextCursor cursor(&data->document);
  CopyText(document, begin, end < 0 ? EndOf(document) : end, cursor);
  return RichText(std::move(data));
}

bool RichText::IsEmpty() const {
  if (m_data->flow) return LengthOf(*m_data->flow) == 0 && !HasTables(*m_data->flow);
  return m_data->document.isEmpty();
}

QString RichText::PlainText() const {
  if (m_data->flow && !HasTables(*m_data->flow)) return CharactersOf(*m_data->flow);
  return WriteText(m_data->Document());
}

QString RichText::Characters() const {
  return m_data->flow ? CharactersOf(*m_data->flow) : m_data->document.toPlainText();
}

qsizetype RichText::Length() const {
  return m_data->flow ? LengthOf(*m_data->flow) : EndOf(m_data->document);
}

bool RichText::HasFrames() const {
  return m_data->flow ? HasTables(*m_data->flow) : !m_data->document.rootFrame()->childFrames().isEmpty();
}

QByteArray RichText::Rtf() const {
  if (m_data->rtf.isNull()) m_data->rtf = WriteRtf(m_data->Document());
  return m_data->rtf;
}

void RichText::InsertAt(QTextCursor& cursor) const {
  const bool outsideTables = !cursor.currentFrame()->parentFrame();
  if (m_data->flow && outsideTables) return InsertFlowText(*m_data->flow, cursor);
  const QTextDocument& document = m_data->Document();
  CopyText(document, 0, EndOf(document), cursor);
}

std::shared_ptr<const FlowText> RichText::Flow() const {
  return m_data->flow;
}

const QTextDocument& RichText::Document() const {
  return m_data->Document();
}

QTextFrameFormat RichText::Page() const {
  return m_data->flow ? m_data->flow->page : m_data->document.rootFrame()->frameFormat();
}

void RichText::MoveToThread(QThread* thread) const {
  m_data->document.moveToThread(thread);
}

QStringList RichText::Warnings() const {
  return m_data->warnings;
}

}  // namespace snipdeck
