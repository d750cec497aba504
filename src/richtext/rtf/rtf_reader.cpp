#include "richtext/rtf/rtf_reader.h"

#include <QTextDocument>

#include "richtext/document_page.h"
#include "richtext/format_spread.h"
#include "richtext/html/html_reader.h"
#include "richtext/rtf/rtf_html.h"
#include "richtext/rtf/rtf_parser.h"

namespace snipdeck {
namespace {

// What stands before the first group is not RTF; the part of the stream after it is.
QByteArrayView FromFirstGroup(QByteArrayView bytes) {
  const qsizetype plain = bytes.indexOf(QByteArrayView("{\\rtf"));
  const qsizetype unicode = bytes.indexOf(QByteArrayView("{\\urtf"));
  const qsizetype begin = plain < 0 ? unicode : unicode < 0 ? plain : std::min(plain, unicode);
  return begin < 0 ? QByteArrayView() : bytes.sliced(begin);
}

RtfContents ReadAsText(QByteArrayView rtf, ReadFor purpose, const std::function<bool(double part)>& progress) {
  RtfContents contents;
  FlowText& text = contents.text;
  RtfParser parser(
      rtf, [&text](Flow&& piece) { text.pieces.push_back(std::move(piece)); }, purpose);
  parser.Run(progress);
  text.pieces.push_back(parser.Notes().TakeAll());
  text.formats = parser.Formats().Take();
  SpreadFormats(text.formats);
  text.pictures = parser.Pictures().Take();
  parser.Page().Store(text.page);
  SetPageTexts(text.page, {parser.Notes().HeaderText().trimmed(), parser.Notes().FooterText().trimmed()});
  contents.warnings = parser.Warnings().List();
  return contents;
}

}  // namespace

RtfContents ReadRtf(QByteArrayView rtf, ReadFor purpose, const std::function<bool(double part)>& progress) {
  const QByteArrayView stream = FromFirstGroup(rtf);
  if (stream.isEmpty()) return {{}, {}, {QStringLiteral("no RTF in the bytes")}};
  if (WrapsHtml(stream)) return {{}, UnwrapHtml(stream), {}};
  return ReadAsText(stream, purpose, progress);
}

QStringList ReadRtf(QByteArrayView rtf, QTextDocument& document, ReadFor purpose) {
  const RtfContents contents = ReadRtf(rtf, purpose);
  if (!contents.html.isEmpty()) return ReadHtml(contents.html, document);
  FillDocument(contents.text, document);
  return contents.warnings;
}

}  // namespace snipdeck
