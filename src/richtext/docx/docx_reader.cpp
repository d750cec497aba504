#include "richtext/docx/docx_reader.h"

#include "richtext/document_page.h"
#include "richtext/docx/docx_body.h"

namespace snipdeck {
namespace {

Failure Malformed(const QString& text) {
  return {Failure::Kind::Malformed, text};
}

class Reader {
 public:
  Reader(ZipPackage& package, const std::function<bool(double)>& progress)
      : m_package(package),
        m_context{package, m_theme, m_styles, m_formats, m_warnings, m_pictures, m_notes, m_text.page, m_pageTexts, progress} {}

  Result<FlowText> Read() {
    const QString main = m_package.MainPart(QStringLiteral("word/document.xml"));
    const Result<QByteArray> part = m_package.Part(main);
    if (!part) return part.Error();
    m_relationships = m_package.RelationshipsOf(main);
    ReadDefinitions();
    const Outcome body = ReadBody(part.Value());
    if (!body) return body.Error();
    ReadNotes(PartOfType(m_relationships, "footnotes"), false);
    ReadNotes(PartOfType(m_relationships, "endnotes"), true);
    SetPageTexts(m_text.page, {PageText(m_pageTexts.headers), PageText(m_pageTexts.footers)});
    m_text.formats = std::move(m_formats.Formats());
    m_text.pictures = m_pictures.Take();
    return std::move(m_text);
  }

  QStringList Warnings() const { return m_warnings.List(); }

 private:
  void ReadDefinitions() {
    const auto part = [&](const char* type) { return m_package.OptionalPart(PartOfType(m_relationships, type)); };
    m_theme.Read(part("theme"));
    m_styles.Read(part("styles"), m_theme);
    m_lists.Read(part("numbering"));
  }

  Outcome ReadBody(const QByteArray& part) {
    XmlPart xml(part);
    if (!xml.EnterRoot() || !xml.Is("document")) return Malformed(QStringLiteral("The file is not a Word document."));
    if (m_context.progress) {
      m_context.progress = [whole = static_cast<double>(std::max<qsizetype>(part.size(), 1)),
                            progress = m_context.progress](double at) { return progress(std::min(at / whole, 1.0)); };
    }
    DocxBody body(m_context, m_relationships);
    while (xml.readNextStartElement()) {
      if (!xml.Is("body")) {
        xml.skipCurrentElement();
        continue;
      }
      m_text.pieces.push_back(body.Read(xml));
      if (body.IsCancelled()) return Failure{Failure::Kind::Refused, QString()};
    }
    if (xml.hasError()) return Malformed(QStringLiteral("The text of the file is damaged: ") + xml.errorString());
    return Done{};
  }

  // Notes stand behind the text in the order of their marks.
  void ReadNotes(const QString& name, bool endnotes) {
    const QStringList ids = m_notes.Ids(endnotes);
    const QByteArray part = ids.isEmpty() ? QByteArray() : m_package.OptionalPart(name);
    const Relationships relationships = part.isEmpty() ? Relationships() : m_package.RelationshipsOf(name);
    std::vector<Flow> notes(static_cast<std::size_t>(ids.size()));
    XmlPart xml(part);
    if (!xml.EnterRoot()) return;
    while (xml.readNextStartElement()) {
      const qsizetype index = ids.indexOf(xml.Value("id"));
      if (index < 0) {
        xml.skipCurrentElement();
        continue;
      }
      DocxBody body(m_context, relationships);
      body.SetNote(static_cast<int>(index) + 1, endnotes);
      notes[static_cast<std::size_t>(index)] = body.Read(xml);
    }
    for (Flow& note : notes) m_text.pieces.push_back(std::move(note));
  }

  /// Of the first part that has text.
  QString PageText(const QStringList& ids) {
    for (const QString& id : ids) {
      const QString text = TextOfPart(m_relationships.value(id).target).trimmed();
      if (!text.isEmpty()) return text;
    }
    return {};
  }

  QString TextOfPart(const QString& name) {
    const QByteArray part = m_package.OptionalPart(name);
    XmlPart xml(part);
    if (part.isEmpty() || !xml.EnterRoot()) return {};
    const Relationships relationships = m_package.RelationshipsOf(name);
    FlowText story;
    story.pieces.push_back(DocxBody(m_context, relationships).Read(xml));
    story.formats = m_formats.Formats();
    return CharactersOf(story);
  }

  ZipPackage& m_package;
  Relationships m_relationships;
  DocxTheme m_theme;
  DocxStyles m_styles;
  DocxNumbering m_lists;
  DocxFormats m_formats{m_styles, m_lists};
  RtfWarnings m_warnings;
  RtfPictures m_pictures{m_warnings};
  DocxNotes m_notes;
  DocxPageTexts m_pageTexts;
  FlowText m_text;
  DocxContext m_context;
};

}  // namespace

Result<FlowText> ReadDocx(const QByteArray& bytes, QStringList& warnings, const std::function<bool(double)>& progress) {
  Result<ZipPackage> package = ZipPackage::Open(bytes);
  if (!package) return package.Error();
  Reader reader(package.Value(), progress);
  Result<FlowText> text = reader.Read();
  warnings = reader.Warnings();
  return text;
}

}  // namespace snipdeck
