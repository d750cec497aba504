#include "richtext/rich_text.h"

#include <QTextCursor>
#include <QTextFrame>

#include "richtext/document_copier.h"
#include "richtext/html_reader.h"
#include "richtext/rtf_reader.h"
#include "richtext/rtf_writer.h"
#include "richtext/safe_document.h"
#include "richtext/text_decoder.h"
#include "richtext/text_writer.h"

namespace snipdeck {

struct RichText::Data {
  SafeDocument document;
  QStringList warnings;
  QByteArray rtf;
};

RichText::RichText() : m_data(std::make_shared<Data>()) {}

RichText::RichText(std::shared_ptr<Data> data) : m_data(std::move(data)) {}

RichText RichText::FromRtf(QByteArrayView rtf, ReadFor purpose) {
  auto data = std::make_shared<Data>();
  data->warnings = ReadRtf(rtf, data->document, purpose);
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
  data->document.setPlainText(CleanText(BreaksAsLines(text)));
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
  return m_data->document.isEmpty();
}

QString RichText::PlainText() const {
  return WriteText(m_data->document);
}

QByteArray RichText::Rtf() const {
  if (m_data->rtf.isNull()) m_data->rtf = WriteRtf(m_data->document);
  return m_data->rtf;
}

void RichText::InsertAt(QTextCursor& cursor) const {
  CopyText(m_data->document, 0, EndOf(m_data->document), cursor);
}

const QTextDocument& RichText::Document() const {
  return m_data->document;
}

QStringList RichText::Warnings() const {
  return m_data->warnings;
}

}  // namespace snipdeck
