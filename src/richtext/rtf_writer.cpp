#include "richtext/rtf_writer.h"

#include <QTextDocument>

#include "richtext/document_walker.h"
#include "richtext/rtf_writer_characters.h"
#include "richtext/rtf_writer_paragraphs.h"

namespace snipdeck {
namespace {

class RtfVisitor : public DocumentVisitor {
 public:
  explicit RtfVisitor(const QTextDocument& document)
      : m_characters(m_header, document.defaultFont()), m_paragraphs(m_header, document.indentWidth()) {
    m_header.Font(document.defaultFont().families().value(0));
  }

  void BeginBlock(const QTextBlock& block) override { m_body.Append(m_paragraphs.For(block)); }

  void EndBlock(const QTextBlock&, bool last) override {
    if (last) return;
    m_body.Word("par");
    m_body.LineEnd();
  }

  void Run(QStringView text, const QTextCharFormat& format, int index) override {
    m_body.Append(m_characters.For(format, index));
    m_body.Text(text);
  }

  RtfOutput& Body() { return m_body; }
  const RtfHeader& Header() const { return m_header; }

 private:
  RtfOutput m_body;
  RtfHeader m_header;
  RtfCharacterWords m_characters;
  RtfParagraphWords m_paragraphs;
};

}  // namespace

QByteArray WriteRtf(const QTextDocument& document, int begin, int end) {
  RtfVisitor visitor(document);
  WalkDocument(document, visitor, begin, end);
  RtfOutput rtf;
  rtf.Reserve(visitor.Body().Bytes().size() + 4096);
  rtf.Raw("{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1\n");
  visitor.Header().WriteTables(rtf);
  rtf.Append(visitor.Body());
  rtf.CloseGroup();
  return rtf.TakeBytes();
}

}  // namespace snipdeck
