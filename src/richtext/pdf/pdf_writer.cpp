#include "richtext/pdf/pdf_writer.h"

#include <algorithm>

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QTextCursor>

#include "platform/units.h"
#include "richtext/document_copier.h"
#include "richtext/document_page.h"
#include "richtext/page_drawing.h"
#include "richtext/pdf/paper_text.h"
#include "richtext/safe_document.h"

namespace snipdeck {
namespace {

constexpr int kDotsPerInch = 1200;
constexpr double kTabDistance = 48;  // pixels: half an inch, where a paragraph names no tab stops

double Dots(int twips) {
  return twips * static_cast<double>(kDotsPerInch) / kTwipsPerInch;
}

/// A copy of the text, laid out in pages. Tables that would go over the edge of the sheet make all of it smaller. Qt
/// itself makes links of what is drawn with an address.
class Paged {
 public:
  Paged(const QTextDocument& source, QPdfWriter& writer) : m_page(PageOf(source)) {
    m_document.setDefaultFont(ForPaper(source.defaultFont()));
    m_document.setIndentWidth(source.indentWidth());
    m_document.setUseDesignMetrics(true);
    m_document.setDocumentMargin(0);
    QTextOption option = m_document.defaultTextOption();
    option.setTabStopDistance(kTabDistance);
    m_document.setDefaultTextOption(option);
    QTextCursor cursor(&m_document);
    CopyText(source, 0, EndOf(source), cursor);
    PrepareForPaper(m_document, kDotsPerInch);
    m_document.documentLayout()->setPaintDevice(&writer);
    m_document.setPageSize(TextSize());
    FitWidth();
  }

  int Count() const { return std::max(m_document.pageCount(), 1); }

  void Paint(QPainter& painter, int page) {
    const QSizeF size = m_document.pageSize();
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    // What hangs out into a margin shows there.
    context.clip = QRectF(QPointF(0, page * size.height()), size)
                       .adjusted(-Dots(m_page.left) / m_scale, 0, Dots(m_page.right) / m_scale, 0);
    painter.save();
    painter.translate(Dots(m_page.left), Dots(m_page.top));
    painter.scale(m_scale, m_scale);
    painter.translate(0, -context.clip.top());
    painter.setClipRect(context.clip);
    DrawPage(m_document, painter, context, true);
    painter.restore();
  }

 private:
  // Qt writes down one character for each glyph, so that letters that a font joins into one would be lost to all who
  // search or copy. It joins none where letters are spaced, be it by next to nothing.
  static QFont ForPaper(QFont font) {
    constexpr double kLeastSpace = 1.0 / 64;  // dots
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setLetterSpacing(QFont::AbsoluteSpacing, kLeastSpace);
    return font;
  }

  QSizeF TextSize() const {
    return {Dots(m_page.width - m_page.left - m_page.right), Dots(m_page.height - m_page.top - m_page.bottom)};
  }

  void FitWidth() {
    constexpr double kSmallest = 0.2;
    const double widest = m_document.size().width();
    if (widest <= TextSize().width() + Dots(m_page.right)) return;
    m_scale = std::max(TextSize().width() / widest, kSmallest);
    m_document.setPageSize(TextSize() / m_scale);
  }

  SafeDocument m_document;
  const PageGeometry m_page;
  double m_scale = 1;
};

}  // namespace

Result<QByteArray> WritePdf(const QTextDocument& document, const std::function<bool(double)>& progress) {
  const PageGeometry page = PageOf(document);
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(kDotsPerInch);
  writer.setPageSize(
      QPageSize(QSizeF(page.width, page.height) / 20.0, QPageSize::Point, QString(), QPageSize::ExactMatch));
  writer.setPageMargins(QMarginsF(0, 0, 0, 0));
  Paged paged(document, writer);
  QPainter painter(&writer);
  const int count = paged.Count();
  for (int i = 0; i < count; ++i) {
    if (progress && !progress(static_cast<double>(i) / count)) return Failure{Failure::Kind::Refused, QString()};
    if (i > 0) writer.newPage();
    paged.Paint(painter, i);
  }
  painter.end();
  return buffer.data();
}

}  // namespace snipdeck
