#include "richtext/rtf/rtf_writer.h"

#include <QTextDocument>
#include <QTextFrame>

#include "richtext/document_page.h"
#include "richtext/document_walker.h"
#include "richtext/format_properties.h"
#include "richtext/format_values.h"
#include "richtext/pictures.h"
#include "richtext/rtf/rtf_writer_characters.h"
#include "richtext/rtf/rtf_writer_lists.h"
#include "richtext/rtf/rtf_writer_paragraphs.h"
#include "richtext/rtf/rtf_writer_tables.h"

namespace snipdeck {
namespace {

void WriteHex(RtfOutput& out, const QByteArray& bytes) {
  constexpr qsizetype kBytesPerLine = 64;
  for (qsizetype at = 0; at < bytes.size(); at += kBytesPerLine) {
    out.LineEnd();
    out.Raw(bytes.mid(at, kBytesPerLine).toHex());
  }
}

/// What stands between quotation marks in a field: a backslash would start a switch there, a quotation mark end it.
QString FieldArgument(QString target) {
  return target.replace(u'\\', QLatin1String("\\\\")).replace(u'"', QLatin1String("%22"));
}

class RtfVisitor : public DocumentVisitor {
 public:
  explicit RtfVisitor(const QTextDocument& document)
      : m_document(document),
        m_characters(m_header, document.defaultFont()),
        m_paragraphs(m_header, document.indentWidth()),
        m_textWidth(TextWidthTwips(document)) {
    m_header.Font(FontFamilies(QTextCharFormat(), document.defaultFont()).value(0));
  }

  /// The text, when the walk is done.
  const RtfOutput& Body() {
    CloseRun();
    return m_body;
  }
  const RtfHeader& Header() const { return m_header; }
  const RtfLists& Lists() const { return m_lists; }

  void BeginBlock(const QTextBlock& block) override {
    CloseRun();
    m_body.Append(m_paragraphs.For(block));
    MarkCell();
    m_lists.WriteParagraph(m_body, block);
    m_empty = true;
  }

  void EndBlock(const QTextBlock& block, bool last) override {
    CloseLink();
    if (m_openRun < 0) OpenRun(block.charFormat(), block.charFormatIndex());
    // A cell's last paragraph ends with the cell and the text's last one with the text; but readers take an end behind
    // nothing for none.
    const bool isLostAtEnd = m_empty && m_tables.isEmpty() && m_hasParagraphs;
    m_hasParagraphs = true;
    if (last && !isLostAtEnd) return;
    m_body.Word("par");
    if (m_empty) EndRaised(block.charFormat());
    CloseRun();
    m_body.LineEnd();
  }

  void Run(QStringView text, const QTextCharFormat& format, int index) override {
    EnterLink(format);
    OpenRun(format, index);
    m_body.Text(text);
    EndRaised(format);
    m_empty = false;
  }

  void Image(const QTextImageFormat& format, int index) override {
    const QByteArray png = PngOfPicture(m_document, format);
    if (png.isEmpty()) return;
    EnterLink(format);
    OpenRun(format, index);
    const QSizeF size = ShownSize(m_document, format);
    m_body.OpenGroup("pict");
    m_body.Word("pngblip");
    m_body.Word("picw", qRound(size.width()));
    m_body.Word("pich", qRound(size.height()));
    m_body.Word("picwgoal", TwipsFromLength(size.width()));
    m_body.Word("pichgoal", TwipsFromLength(size.height()));
    WriteHex(m_body, png);
    m_body.CloseGroup();
    m_empty = false;
  }

  void BeginTable(const QTextTable& table) override { m_tables.append(ShapeOf(table, m_textWidth)); }
  void EndTable(const QTextTable&) override { m_tables.removeLast(); }

  void BeginRow(const QTextTable& table, int row) override {
    if (!IsNested()) WriteRowDefinition(m_body, m_header, table, row, m_tables.last());
  }

  // A nested row is defined behind its cells, in a group that readers without nested tables skip.
  void EndRow(const QTextTable& table, int row) override {
    if (!IsNested()) {
      m_body.Word("row");
      return m_body.LineEnd();
    }
    m_body.OpenOptional("nesttableprops");
    WriteRowDefinition(m_body, m_header, table, row, m_tables.last());
    m_body.Word("nestrow");
    m_body.CloseGroup();
    m_body.Raw("{\\nonesttables\\par}\n");
  }

  void EndCell(const QTextTable&, const QTextTableCell& cell) override {
    EndOfCell();
    EmptyCells(m_tables.last().spansAreNamed ? cell.columnSpan() - 1 : 0);
  }

  void CoveredCell(const QTextTable&, const QTextTableCell& cell) override {
    EmptyCells(m_tables.last().spansAreNamed ? cell.columnSpan() : 1);
  }

 private:
  bool IsNested() const { return m_tables.size() > 1; }

  // Each run in a group of its own, with the paragraph's end in that of its last: there are readers that forget
  // the formats of a paragraph at every \plain that stands outside of one.
  void OpenRun(const QTextCharFormat& format, int index) {
    if (index == m_openRun) return;
    CloseRun();
    m_openRun = index;
    m_body.OpenGroup();
    m_body.Append(m_characters.For(format, index));
  }

  void CloseRun() {
    if (m_openRun >= 0) m_body.CloseGroup();
    m_openRun = -1;
  }

  // Readers that take raised text for the mark of a note hold it back until they are told that it ends.
  void EndRaised(const QTextCharFormat& format) {
    m_body.WordIf(format.verticalAlignment() == QTextCharFormat::AlignSuperScript, "nosupersub");
  }

  void MarkCell() {
    if (m_tables.isEmpty()) return;
    m_body.Word("intbl");
    if (IsNested()) m_body.Word("itap", static_cast<int>(m_tables.size()));
  }

  void EmptyCells(int count) {
    for (; count > 0; --count) {
      m_body.Word("pard");
      MarkCell();
      EndOfCell();
    }
  }

  void EndOfCell() {
    m_body.Word(IsNested() ? "nestcell" : "cell");
    CloseRun();
    m_body.Raw(IsNested() ? "{\\nonesttables\\par}\n" : "\n");
  }

  void EnterLink(const QTextCharFormat& format) {
    const QString target = format.anchorHref();
    if (target == m_link) return;
    CloseRun();
    CloseLink();
    m_link = target;
    if (target.isEmpty()) return;
    const bool isInside = target.startsWith(u'#');
    m_body.OpenGroup("field");
    m_body.OpenOptional("fldinst");
    m_body.Text(QLatin1String(isInside ? "HYPERLINK \\l \"" : "HYPERLINK \"") + FieldArgument(target.mid(isInside)) +
                u'"');
    m_body.CloseGroup();
    m_body.OpenGroup("fldrslt");
  }

  void CloseLink() {
    if (m_link.isEmpty()) return;
    CloseRun();
    m_body.CloseGroup();
    m_body.CloseGroup();
    m_link.clear();
  }

  const QTextDocument& m_document;
  RtfOutput m_body;
  RtfHeader m_header;
  RtfLists m_lists;
  RtfCharacterWords m_characters;
  RtfParagraphWords m_paragraphs;
  const int m_textWidth;
  QList<TableShape> m_tables;  ///< of the tables that the walk is in, the outermost first
  QString m_link;
  int m_openRun = -1;  ///< index of the format of the run whose group is open
  bool m_empty = true;
  bool m_hasParagraphs = false;
};

void WritePageGeometry(RtfOutput& out, const QTextFrameFormat& format) {
  const auto write = [&](int property, const char* word) {
    if (format.hasProperty(property)) out.Word(word, format.intProperty(property));
  };
  write(kPageWidth, "paperw");
  write(kPageHeight, "paperh");
  write(kPageMarginLeft, "margl");
  write(kPageMarginRight, "margr");
  write(kPageMarginTop, "margt");
  write(kPageMarginBottom, "margb");
}

void WritePageText(RtfOutput& out, const char* group, const QString& text) {
  if (text.isEmpty()) return;
  out.OpenGroup(group);
  const auto paragraphs = QStringView(text).split(u'\n');
  for (const QStringView paragraph : paragraphs) {
    out.Word("pard");
    out.Word("plain");
    out.Text(paragraph);
    out.Word("par");
  }
  out.CloseGroup();
  out.LineEnd();
}

}  // namespace

QByteArray WriteRtf(const QTextDocument& document, int begin, int end) {
  RtfVisitor visitor(document);
  WalkDocument(document, visitor, begin, end);
  RtfOutput rtf;
  rtf.Reserve(visitor.Body().Bytes().size() + 4096);
  rtf.Raw("{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1\n");
  visitor.Header().WriteTables(rtf);
  visitor.Lists().WriteTables(rtf);
  const QTextFrameFormat page = document.rootFrame()->frameFormat();
  WritePageGeometry(rtf, page);
  rtf.LineEnd();
  WritePageText(rtf, "header", PageTextsOf(page).header);
  WritePageText(rtf, "footer", PageTextsOf(page).footer);
  rtf.Append(visitor.Body());
  rtf.CloseGroup();
  return rtf.TakeBytes();
}

}  // namespace snipdeck
