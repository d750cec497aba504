#include "richtext/xml/xhtml.h"

#include <array>

#include <QRegularExpression>
#include <QTextDocument>
#include <QTextFrame>
#include <QXmlStreamReader>

#include "richtext/document_copier.h"
#include "richtext/format_properties.h"
#include "richtext/html/html_writer.h"
#include "richtext/ooxml/xml_out.h"
#include "richtext/text/text_decoder.h"
#include "richtext/xml/xhtml_styles.h"

namespace snipdeck {
namespace {

constexpr double kTwipsPerPoint = 20;
// As style sheets count margins.
constexpr std::array kMargins = {kPageMarginTop, kPageMarginRight, kPageMarginBottom, kPageMarginLeft};

QString Points(int twips) {
  return QString::number(twips / kTwipsPerPoint) + QLatin1String("pt");
}

/// The page's size and margins as a rule of style sheets; empty where the document does not say.
QString PageRule(const QTextDocument& document) {
  const QTextFrameFormat page = document.rootFrame()->frameFormat();
  QString rule;
  if (page.intProperty(kPageWidth) > 0 && page.intProperty(kPageHeight) > 0) {
    rule += QLatin1String(" size: ") + Points(page.intProperty(kPageWidth)) + u' ' +
            Points(page.intProperty(kPageHeight)) + u';';
  }
  if (page.hasProperty(kPageMarginTop)) {
    rule += QLatin1String(" margin:");
    for (const FormatProperty side : kMargins) rule += u' ' + Points(page.intProperty(side));
    rule += u';';
  }
  return rule.isEmpty() ? QString() : QLatin1String("@page {") + rule + QLatin1String(" }\n");
}

QTextFrameFormat PageFromRule(const QString& text) {
  static const QRegularExpression kSize(QStringLiteral("@page \\{[^}]*size: ([\\d.]+)pt ([\\d.]+)pt;"));
  static const QRegularExpression kMargin(
      QStringLiteral("@page \\{[^}]*margin: ([\\d.]+)pt ([\\d.]+)pt ([\\d.]+)pt ([\\d.]+)pt;"));
  QTextFrameFormat page;
  const auto set = [&](int property, const QString& points) {
    page.setProperty(property, qRound(std::min(points.toDouble(), 1e5) * kTwipsPerPoint));
  };
  if (const auto size = kSize.match(text); size.hasMatch()) {
    set(kPageWidth, size.captured(1));
    set(kPageHeight, size.captured(2));
  }
  if (const auto margin = kMargin.match(text); margin.hasMatch()) {
    for (std::size_t i = 0; i < kMargins.size(); ++i) set(kMargins[i], margin.captured(static_cast<int>(i) + 1));
  }
  return page;
}

/// The page's body. Only elements without an end keep our HTML from being XML.
QString Body(const QTextDocument& document) {
  static const QRegularExpression kEndless(QStringLiteral("<(br|img|hr)([^>]*)>"));
  QString html = XmlText(QString::fromUtf8(WriteHtml(document)));
  const qsizetype begin = html.indexOf(QLatin1String("<body"));
  html = html.mid(begin, html.lastIndexOf(QLatin1String("</html>")) - begin);
  return html.replace(kEndless, QStringLiteral("<\\1\\2/>"));
}

/// The name of the root element; null for what is not well-formed.
QString RootOf(const QByteArray& bytes) {
  QXmlStreamReader xml(bytes);
  QString root;
  while (!xml.atEnd()) {
    if (xml.readNext() == QXmlStreamReader::StartElement && root.isNull()) root = xml.name().toString();
  }
  return xml.hasError() ? QString() : root;
}

}  // namespace

QByteArray WriteXhtml(const QTextDocument& document) {
  const QString body = XhtmlStyles().Classify(Body(document));
  const QString page = PageRule(document);
  QByteArray xhtml =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<html xmlns=\"http://www.w3.org/1999/xhtml\">\n<head>\n"
      "<meta http-equiv=\"Content-Type\" content=\"application/xhtml+xml; charset=utf-8\"/>\n<title/>\n";
  if (!page.isEmpty()) xhtml += "<style type=\"text/css\">" + page.toUtf8() + "</style>\n";
  return xhtml + "</head>\n" + body.toUtf8() + "</html>\n";
}

QByteArray WriteStyleSheet(const QTextDocument& document) {
  XhtmlStyles styles;
  styles.Classify(Body(document));
  return (PageRule(document) + styles.Sheet()).toUtf8();
}

Result<RichText> ReadXhtml(const QByteArray& bytes) {
  const QString root = RootOf(bytes);
  if (root.isNull()) return Failure{Failure::Kind::Malformed, QStringLiteral("The file is not well-formed XML.")};
  if (root != QLatin1String("html")) return RichText::FromPlainText(DecodeText(bytes));
  const RichText text = RichText::FromHtml(bytes);
  const QTextFrameFormat page = PageFromRule(QString::fromUtf8(bytes.left(bytes.indexOf("<body"))));
  if (!page.hasProperty(kPageWidth) && !page.hasProperty(kPageMarginTop)) return text;
  QTextDocument whole;
  whole.setUndoRedoEnabled(false);
  QTextCursor cursor(&whole);
  text.InsertAt(cursor);
  QTextFrameFormat format = whole.rootFrame()->frameFormat();
  format.merge(page);
  whole.rootFrame()->setFrameFormat(format);
  return RichText::FromDocument(whole);
}

}  // namespace snipdeck
