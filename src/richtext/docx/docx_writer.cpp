#include "richtext/docx/docx_writer.h"

#include <QHash>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>

#include "richtext/document_page.h"
#include "richtext/document_walker.h"
#include "richtext/docx/docx_writer_properties.h"
#include "richtext/docx/docx_writer_tables.h"
#include "richtext/docx/docx_writer_text.h"
#include "richtext/format_properties.h"
#include "richtext/ooxml/zip_writer.h"
#include "richtext/pictures.h"
#include "richtext/rtf/rtf_writer_tables.h"

namespace snipdeck {
namespace {

constexpr char kOfficeRelationships[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
constexpr char kPackageRelationships[] = "http://schemas.openxmlformats.org/package/2006/relationships";
constexpr char kContentTypes[] = "http://schemas.openxmlformats.org/package/2006/content-types";
constexpr char kDrawing[] = "http://schemas.openxmlformats.org/drawingml/2006/main";
constexpr char kPicture[] = "http://schemas.openxmlformats.org/drawingml/2006/picture";
constexpr char kWordDrawing[] = "http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing";
constexpr int kEmuPerPixel = 9525;

/// The relationships of the text, and the pictures among them.
class References {
 public:
  QString Link(const QString& address) { return Id("hyperlink", address, true); }
  QString Part(const char* type, const QString& target) { return Id(type, target, false); }
  /// Empty for a picture that the document does not have.
  QString Picture(const QTextDocument& document, const QTextImageFormat& format) {
    const auto known = m_pictureIds.constFind(format.name());
    if (known != m_pictureIds.cend()) return *known;
    const QByteArray png = PngOfPicture(document, format);
    QString id;
    if (!png.isEmpty()) {
      m_pictures.append(png);
      id = Id("image", QStringLiteral("media/image%1.png").arg(m_pictures.size()), false);
    }
    return *m_pictureIds.insert(format.name(), id);
  }
  void AddTo(ZipWriter& zip) const {
    zip.Add(QStringLiteral("word/_rels/document.xml.rels"), RelationshipsPart());
    for (qsizetype i = 0; i < m_pictures.size(); ++i)
      zip.Add(QStringLiteral("word/media/image%1.png").arg(i + 1), m_pictures[i]);
  }

 private:
  struct Entry {
    QString type;
    QString target;
    bool external;
  };
  QString Id(const char* type, const QString& target, bool external) {
    const QString key = QLatin1String(type) + u' ' + target;
    const auto known = m_ids.constFind(key);
    if (known != m_ids.cend()) return *known;
    m_entries.append({QLatin1String(type), target, external});
    return *m_ids.insert(key, QStringLiteral("rId%1").arg(m_entries.size()));
  }
  QByteArray RelationshipsPart() const {
    XmlOut out;
    out.Start("Relationships");
    out.Attribute("xmlns", QString::fromLatin1(kPackageRelationships));
    for (qsizetype i = 0; i < m_entries.size(); ++i) {
      out.Empty("Relationship");
      out.Attribute("Id", QStringLiteral("rId%1").arg(i + 1));
      out.Attribute("Type", QLatin1String(kOfficeRelationships) + u'/' + m_entries[i].type);
      out.Attribute("Target", m_entries[i].target);
      if (m_entries[i].external) out.Attribute("TargetMode", QStringLiteral("External"));
    }
    out.End();
    return out.Take();
  }

  QList<Entry> m_entries;
  QHash<QString, QString> m_ids;
  QHash<QString, QString> m_pictureIds;
  QList<QByteArray> m_pictures;
};

class DocxVisitor : public DocumentVisitor {
 public:
  DocxVisitor(const QTextDocument& document, const std::function<bool(double)>& progress)
      : m_document(document),
        m_progress(progress),
        m_textWidth(TextWidthTwips(document)),
        m_texts(PageTextsOf(document.rootFrame()->frameFormat())) {
    m_out.Start("w:document");
    m_out.Attribute("xmlns:w", QString::fromLatin1(kWordNamespace));
    m_out.Attribute("xmlns:r", QString::fromLatin1(kOfficeRelationships));
    m_out.Attribute("xmlns:wp", QString::fromLatin1(kWordDrawing));
    m_out.Attribute("xmlns:a", QString::fromLatin1(kDrawing));
    m_out.Attribute("xmlns:pic", QString::fromLatin1(kPicture));
    m_out.Start("w:body");
  }

  bool IsCancelled() const { return m_cancelled; }

  Result<QByteArray> Finish() {
    WriteSection();
    m_out.End();
    m_out.End();
    m_references.Part("styles", QStringLiteral("styles.xml"));
    if (!m_lists.IsEmpty()) m_references.Part("numbering", QStringLiteral("numbering.xml"));
    ZipWriter zip;
    zip.Add(QStringLiteral("[Content_Types].xml"), ContentTypes());
    zip.Add(QStringLiteral("_rels/.rels"), PackageRelationships());
    zip.Add(QStringLiteral("word/document.xml"), m_out.Take());
    zip.Add(QStringLiteral("word/styles.xml"), m_styles.Part(m_document.defaultFont()));
    if (!m_lists.IsEmpty()) zip.Add(QStringLiteral("word/numbering.xml"), m_lists.Part());
    if (!m_texts.header.isEmpty()) zip.Add(QStringLiteral("word/header1.xml"), PageTextPart("w:hdr", m_texts.header));
    if (!m_texts.footer.isEmpty()) zip.Add(QStringLiteral("word/footer1.xml"), PageTextPart("w:ftr", m_texts.footer));
    m_references.AddTo(zip);
    return zip.Finish();
  }

  void BeginBlock(const QTextBlock& block) override {
    m_out.Start("w:p");
    WriteParagraphProperties(m_out, block, m_document.defaultFont(), m_document.indentWidth(), m_styles, m_lists);
    Progress(block);
  }

  void EndBlock(const QTextBlock&, bool) override {
    CloseLink();
    m_out.End();
  }

  void Run(QStringView text, const QTextCharFormat& format, int) override {
    if (m_cancelled) return;
    EnterLink(format.anchorHref());
    m_out.Start("w:r");
    WriteRunProperties(m_out, format, m_document.defaultFont(), m_styles);
    WriteRunText(m_out, text);
    m_out.End();
  }

  void Image(const QTextImageFormat& format, int) override {
    const QString id = m_references.Picture(m_document, format);
    if (id.isEmpty() || m_cancelled) return;
    EnterLink(format.anchorHref());
    m_out.Start("w:r");
    WriteRunProperties(m_out, format, m_document.defaultFont(), m_styles);
    m_out.Start("w:drawing");
    WritePicture(id, ShownSize(m_document, format));
    m_out.End();
    m_out.End();
  }

  void BeginTable(const QTextTable& table) override {
    m_out.Start("w:tbl");
    m_edges.append(ShapeOf(table, m_textWidth).edges);
    WriteTableStart(m_out, table, m_edges.last());
  }
  void EndTable(const QTextTable&) override {
    m_edges.removeLast();
    m_out.End();
  }
  void BeginRow(const QTextTable& table, int row) override {
    m_out.Start("w:tr");
    WriteRowProperties(m_out, table, row);
  }
  void EndRow(const QTextTable&, int) override { m_out.End(); }
  void BeginCell(const QTextTable& table, const QTextTableCell& cell) override {
    m_out.Start("w:tc");
    WriteCellProperties(m_out, table, cell, cell.row(), m_edges.last());
  }
  void EndCell(const QTextTable&, const QTextTableCell&) override { m_out.End(); }
  void CoveredCell(const QTextTable& table, const QTextTableCell& cell) override {
    m_out.Start("w:tc");
    WriteCellProperties(m_out, table, cell, -1, m_edges.last());
    m_out.Empty("w:p");
    m_out.End();
  }

 private:
  void Progress(const QTextBlock& block) {
    constexpr int kStep = 200;
    if (!m_progress || m_cancelled || block.blockNumber() % kStep != 0) return;
    m_cancelled = !m_progress(static_cast<double>(block.position()) / std::max(m_document.characterCount(), 1));
  }

  void EnterLink(const QString& target) {
    if (target == m_link) return;
    CloseLink();
    m_link = target;
    if (target.isEmpty()) return;
    m_out.Start("w:hyperlink");
    if (target.startsWith(u'#')) {
      m_out.Attribute("w:anchor", target.mid(1));
    } else {
      m_out.Attribute("r:id", m_references.Link(target));
    }
  }

  void CloseLink() {
    if (!m_link.isEmpty()) m_out.End();
    m_link.clear();
  }

  void WritePicture(const QString& id, QSizeF pixels) {
    const int width = std::max(qRound(pixels.width() * kEmuPerPixel), 1);
    const int height = std::max(qRound(pixels.height() * kEmuPerPixel), 1);
    const auto size = [&](const char* element) {
      m_out.Empty(element);
      m_out.Attribute("cx", width);
      m_out.Attribute("cy", height);
    };
    const auto name = [&](const char* element) {
      m_out.Empty(element);
      m_out.Attribute("id", ++m_pictures);
      m_out.Attribute("name", QStringLiteral("Picture %1").arg(m_pictures));
    };
    m_out.Start("wp:inline");
    size("wp:extent");
    name("wp:docPr");
    m_out.Start("a:graphic");
    m_out.Start("a:graphicData");
    m_out.Attribute("uri", QString::fromLatin1(kPicture));
    m_out.Start("pic:pic");
    m_out.Start("pic:nvPicPr");
    name("pic:cNvPr");
    m_out.Empty("pic:cNvPicPr");
    m_out.End();
    m_out.Start("pic:blipFill");
    m_out.Empty("a:blip");
    m_out.Attribute("r:embed", id);
    m_out.Start("a:stretch");
    m_out.Empty("a:fillRect");
    m_out.End();
    m_out.End();
    m_out.Start("pic:spPr");
    m_out.Start("a:xfrm");
    m_out.Empty("a:off");
    m_out.Attribute("x", 0);
    m_out.Attribute("y", 0);
    size("a:ext");
    m_out.End();
    m_out.Start("a:prstGeom");
    m_out.Attribute("prst", QStringLiteral("rect"));
    m_out.Empty("a:avLst");
    m_out.End();
    for (int i = 0; i < 5; ++i) m_out.End();
  }

  void WriteSection() {
    const QTextFrameFormat page = m_document.rootFrame()->frameFormat();
    const auto attribute = [&](const char* name, int property) {
      if (page.hasProperty(property)) m_out.Attribute(name, page.intProperty(property));
    };
    m_out.Start("w:sectPr");
    if (!m_texts.header.isEmpty()) ReferTo("w:headerReference", "header", QStringLiteral("header1.xml"));
    if (!m_texts.footer.isEmpty()) ReferTo("w:footerReference", "footer", QStringLiteral("footer1.xml"));
    if (page.intProperty(kPageWidth) > 0 && page.intProperty(kPageHeight) > 0) {
      m_out.Empty("w:pgSz");
      attribute("w:w", kPageWidth);
      attribute("w:h", kPageHeight);
      if (page.intProperty(kPageWidth) > page.intProperty(kPageHeight))
        m_out.Attribute("w:orient", QStringLiteral("landscape"));
    }
    if (page.hasProperty(kPageMarginLeft)) {
      m_out.Empty("w:pgMar");
      attribute("w:top", kPageMarginTop);
      attribute("w:right", kPageMarginRight);
      attribute("w:bottom", kPageMarginBottom);
      attribute("w:left", kPageMarginLeft);
    }
    m_out.End();
  }

  void ReferTo(const char* element, const char* type, const QString& part) {
    m_out.Empty(element);
    m_out.Attribute("w:type", QStringLiteral("default"));
    m_out.Attribute("r:id", m_references.Part(type, part));
  }

  QByteArray ContentTypes() const {
    static constexpr char kWordType[] = "application/vnd.openxmlformats-officedocument.wordprocessingml.";
    XmlOut out;
    out.Start("Types");
    out.Attribute("xmlns", QString::fromLatin1(kContentTypes));
    const auto type = [&](const char* element, const char* key, const char* name, const QString& content) {
      out.Empty(element);
      out.Attribute(key, QString::fromLatin1(name));
      out.Attribute("ContentType", content);
    };
    const auto part = [&](const char* name, const char* kind) {
      type("Override", "PartName", name, QLatin1String(kWordType) + QLatin1String(kind) + QLatin1String("+xml"));
    };
    type("Default", "Extension", "rels", QStringLiteral("application/vnd.openxmlformats-package.relationships+xml"));
    type("Default", "Extension", "xml", QStringLiteral("application/xml"));
    type("Default", "Extension", "png", QStringLiteral("image/png"));
    part("/word/document.xml", "document.main");
    part("/word/styles.xml", "styles");
    if (!m_lists.IsEmpty()) part("/word/numbering.xml", "numbering");
    if (!m_texts.header.isEmpty()) part("/word/header1.xml", "header");
    if (!m_texts.footer.isEmpty()) part("/word/footer1.xml", "footer");
    out.End();
    return out.Take();
  }

  static QByteArray PackageRelationships() {
    XmlOut out;
    out.Start("Relationships");
    out.Attribute("xmlns", QString::fromLatin1(kPackageRelationships));
    out.Empty("Relationship");
    out.Attribute("Id", QStringLiteral("rId1"));
    out.Attribute("Type", QLatin1String(kOfficeRelationships) + QLatin1String("/officeDocument"));
    out.Attribute("Target", QStringLiteral("word/document.xml"));
    out.End();
    return out.Take();
  }

  const QTextDocument& m_document;
  const std::function<bool(double)>& m_progress;
  const int m_textWidth;
  const PageTexts m_texts;
  XmlOut m_out;
  References m_references;
  DocxWriterStyles m_styles;
  DocxWriterLists m_lists;
  QList<QList<int>> m_edges;  ///< of the tables that the walk is in, the outermost first
  QString m_link;
  int m_pictures = 0;
  bool m_cancelled = false;
};

}  // namespace

Result<QByteArray> WriteDocx(const QTextDocument& document, const std::function<bool(double part)>& progress) {
  DocxVisitor visitor(document, progress);
  WalkDocument(document, visitor);
  if (visitor.IsCancelled()) return Failure{Failure::Kind::Refused, QString()};
  return visitor.Finish();
}

}  // namespace snipdeck
