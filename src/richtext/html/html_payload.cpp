#include "richtext/html/html_payload.h"

#include <QRegularExpression>
#include <QStringDecoder>

#include "richtext/text/encoding_guess.h"
#include "richtext/text/text_decoder.h"

namespace snipdeck {
namespace {

constexpr qsizetype kHeaderReach = 1024;

/// The header in front of the HTML; offsets are -1 where it gives none.
struct Header {
  bool found = false;
  qsizetype html = -1;
  qsizetype begin = -1;
  qsizetype end = -1;
  QString source;
};

qsizetype OffsetOf(QByteArrayView header, QByteArrayView name) {
  const qsizetype at = header.indexOf(name);
  if (at < 0) return -1;
  qsizetype value = 0;
  qsizetype digit = at + name.size();
  if (digit >= header.size() || header[digit] < '0' || header[digit] > '9') return -1;
  for (; digit < header.size() && header[digit] >= '0' && header[digit] <= '9'; ++digit) {
    value = std::min<qsizetype>(value * 10 + (header[digit] - '0'), std::numeric_limits<int>::max());
  }
  return value;
}

QString SourceOf(QByteArrayView header) {
  static const QRegularExpression kSource(QStringLiteral("\\nSourceURL:([^\\r\\n]*)"));
  return kSource.match(QString::fromUtf8(header)).captured(1).trimmed();
}

Header ReadHeader(QByteArrayView bytes) {
  if (!bytes.startsWith("Version:")) return {};
  const qsizetype markup = bytes.indexOf('<');
  const QByteArrayView header = bytes.first(std::min(markup < 0 ? bytes.size() : markup, kHeaderReach));
  Header result{true, header.size(), OffsetOf(header, "StartFragment:"), OffsetOf(header, "EndFragment:"), {}};
  result.source = SourceOf(header);
  if (result.begin < header.size() || result.end < result.begin || result.end > bytes.size())
    result.begin = result.end = -1;
  return result;
}

/// A page in UTF-8 often still carries the name of the eight-bit set it was once written in; its bytes know better.
QString DecodePage(QByteArrayView bytes) {
  if (FindByteOrderMark(bytes).size || IsUtf8(bytes)) return DecodeText(bytes);
  const QByteArray charset = DeclaredCharset(bytes);
  if (charset.startsWith("utf-8") || charset == "utf8") return QString::fromUtf8(bytes);
  const bool isEightBit = !charset.isEmpty() && !charset.startsWith("utf-") && !charset.startsWith("iso-8859-1");
  QStringDecoder decoder(isEightBit ? charset.constData() : "", QStringConverter::Flag::Stateless);
  return decoder.isValid() ? QString(decoder(bytes)) : DecodeText(bytes);
}

/// Multi-byte sets whose bytes may look like UTF-8 are shifted by escape sequences.
QString DecodeHtml(QByteArrayView bytes) {
  if (!bytes.contains('\x1B')) return DecodePage(bytes);
  const QByteArray charset = DeclaredCharset(bytes);
  QStringDecoder decoder(charset.startsWith("iso-2022-") ? charset.constData() : "");
  return decoder.isValid() ? QString(decoder(bytes)) : DecodePage(bytes);
}

bool MarkByComments(HtmlPayload& payload) {
  static const QRegularExpression kBegin(QStringLiteral("<!--\\s*StartFragment\\s*-->"));
  static const QRegularExpression kEnd(QStringLiteral("<!--\\s*EndFragment\\s*-->"));
  const QRegularExpressionMatch begin = kBegin.match(payload.html);
  if (!begin.hasMatch()) return false;
  payload.begin = begin.capturedEnd();
  const qsizetype end = payload.html.lastIndexOf(kEnd);
  payload.end = end >= payload.begin ? end : payload.html.size();
  return true;
}

}  // namespace

namespace {

HtmlPayload FindCopiedPart(QByteArrayView bytes) {
  const Header header = ReadHeader(bytes);
  const QByteArrayView page = header.found ? bytes.sliced(std::max<qsizetype>(header.html, 0)) : bytes;
  HtmlPayload payload{DecodeHtml(page), 0, 0, header.source};
  payload.end = payload.html.size();
  if (MarkByComments(payload) || header.begin < 0) return payload;
  // The offsets count bytes from the start of the header.
  payload.begin = DecodeHtml(page.first(header.begin - header.html)).size();
  payload.end =
      std::min(payload.begin + DecodeHtml(bytes.sliced(header.begin, header.end - header.begin)).size(), payload.end);
  return payload;
}

}  // namespace

HtmlPayload ReadHtmlPayload(QByteArrayView bytes) {
  HtmlPayload payload = FindCopiedPart(bytes);
  // Line ends behind the last element would become a blank at the end of the text.
  while (payload.end > payload.begin && payload.html[payload.end - 1].isSpace()) --payload.end;
  return payload;
}

}  // namespace snipdeck
