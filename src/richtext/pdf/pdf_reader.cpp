#include "richtext/pdf/pdf_reader.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfDocument>
#include <QPdfSelection>

#include "richtext/format_properties.h"
#include "richtext/text/text_decoder.h"

namespace snipdeck {
namespace {

constexpr int kMostPages = 20'000;
constexpr qsizetype kMostCharacters = 64 * 1024 * 1024;
constexpr int kTwipsPerPoint = 20;

Failure WhyNot(QPdfDocument::Error error) {
  using Error = QPdfDocument::Error;
  if (error == Error::IncorrectPassword)
    return {Failure::Kind::Refused, QStringLiteral("The file is protected by a password.")};
  if (error == Error::UnsupportedSecurityScheme)
    return {Failure::Kind::Refused, QStringLiteral("The file is protected in a way that is not known.")};
  return {Failure::Kind::Malformed, QStringLiteral("The file is damaged, or not a PDF.")};
}

/// The sheet's size in twips. Files often give it in whole points, which no sheet of the A sizes has: one of those it
/// is.
QSizeF Sheet(const QSizeF& points) {
  constexpr double kTwipsPerMillimetre = 1440 / 25.4;
  const bool isWide = points.width() > points.height();
  const QSizeF upright = isWide ? points.transposed() : points;
  const QPageSize::PageSizeId known = QPageSize::id(upright.toSize(), QPageSize::FuzzyMatch);
  if (known == QPageSize::Custom) return points * kTwipsPerPoint;
  const QSizeF twips = QPageSize::size(known, QPageSize::Millimeter) * kTwipsPerMillimetre;
  return isWide ? twips.transposed() : twips;
}

class PdfFlow {
 public:
  PdfFlow() {
    QTextBlockFormat startsPage;
    startsPage.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    m_text.formats.characters.emplace_back();
    m_text.formats.paragraphs = {{QTextBlockFormat(), -1}, {startsPage, -1}};
    m_text.pieces.emplace_back();
  }

  void AddPage(const QString& page, bool isFirst) {
    int format = isFirst ? 0 : 1;
    for (const QString& line : page.split(u'\n')) {
      m_text.pieces.back().AddRun(line, 0);
      m_text.pieces.back().EndParagraph(format, 0);
      format = 0;
    }
  }

  void SetSize(QSizeF points) {
    if (points.isEmpty()) return;
    const QSizeF twips = Sheet(points);
    m_text.page.setProperty(kPageWidth, qRound(twips.width()));
    m_text.page.setProperty(kPageHeight, qRound(twips.height()));
  }

  qsizetype Size() const { return m_text.pieces.back().text.size(); }
  FlowText Take() { return std::move(m_text); }

 private:
  FlowText m_text;
};

}  // namespace

Result<FlowText> ReadPdf(const QByteArray& bytes, QStringList& warnings, const std::function<bool(double)>& progress) {
  QBuffer buffer;
  buffer.setData(bytes);
  buffer.open(QIODevice::ReadOnly);
  QPdfDocument pdf;
  pdf.load(&buffer);
  if (pdf.status() != QPdfDocument::Status::Ready) return WhyNot(pdf.error());
  PdfFlow flow;
  flow.SetSize(pdf.pagePointSize(0));
  const int pages = std::min(pdf.pageCount(), kMostPages);
  for (int page = 0; page < pages && flow.Size() < kMostCharacters; ++page) {
    if (progress && !progress(static_cast<double>(page) / pages)) return Failure{Failure::Kind::Refused, QString()};
    flow.AddPage(CleanText(pdf.getAllText(page).text()), page == 0);
  }
  if (flow.Size() == 0) warnings.append(QStringLiteral("no text in the file, perhaps pictures of text"));
  return flow.Take();
}

}  // namespace snipdeck
