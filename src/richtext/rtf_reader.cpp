#include "richtext/rtf_reader.h"

#include <QTextDocument>
#include <QTextFrame>
#include <QUrl>

#include "richtext/document_builder.h"
#include "richtext/format_properties.h"
#include "richtext/html_reader.h"
#include "richtext/rtf_html.h"
#include "richtext/rtf_parser.h"

namespace snipdeck {
namespace {

// What stands before the first group is not RTF; the part of the stream after it is.
QByteArrayView FromFirstGroup(QByteArrayView bytes) {
  const qsizetype plain = bytes.indexOf(QByteArrayView("{\\rtf"));
  const qsizetype unicode = bytes.indexOf(QByteArrayView("{\\urtf"));
  const qsizetype begin = plain < 0 ? unicode : unicode < 0 ? plain : std::min(plain, unicode);
  return begin < 0 ? QByteArrayView() : bytes.sliced(begin);
}

void StoreHeaders(RtfNotes& notes, QTextDocument& document) {
  QTextFrameFormat format = document.rootFrame()->frameFormat();
  const auto set = [&](FormatProperty property, const QString& text) {
    if (!text.trimmed().isEmpty()) format.setProperty(property, text.trimmed());
  };
  set(kHeaderText, notes.HeaderText());
  set(kFooterText, notes.FooterText());
  if (format != document.rootFrame()->frameFormat()) document.rootFrame()->setFrameFormat(format);
}

QStringList ReadAsText(QByteArrayView rtf, QTextDocument& document, ReadFor purpose) {
  DocumentBuilder* builder = nullptr;
  RtfParser parser(
      rtf, [&builder](Flow&& flow) { builder->Append(flow); }, purpose);
  {
    DocumentBuilder building(document, parser.Formats().Formats());
    builder = &building;
    parser.Run();
    building.Append(parser.Notes().TakeAll());
  }
  for (const RtfPictures::Resource& picture : parser.Pictures().Resources()) {
    document.addResource(QTextDocument::ImageResource, QUrl(picture.name), picture.image);
  }
  parser.Page().Store(document);
  StoreHeaders(parser.Notes(), document);
  return parser.Warnings().List();
}

}  // namespace

QStringList ReadRtf(QByteArrayView rtf, QTextDocument& document, ReadFor purpose) {
  const QByteArrayView stream = FromFirstGroup(rtf);
  if (stream.isEmpty()) return {QStringLiteral("no RTF in the bytes")};
  const bool hadUndo = document.isUndoRedoEnabled();
  document.setUndoRedoEnabled(false);
  const QStringList warnings =
      WrapsHtml(stream) ? ReadHtml(UnwrapHtml(stream), document) : ReadAsText(stream, document, purpose);
  document.setUndoRedoEnabled(hadUndo);
  return warnings;
}

}  // namespace snipdeck
