#include "clipformats/basic_text.h"

#include <QTextCursor>
#include <QTextList>

#include "richtext/document_walker.h"
#include "richtext/format_properties.h"
#include "richtext/list_labels.h"
#include "richtext/safe_document.h"

namespace snipdeck {

namespace {

template <std::size_t count>
void CopyProperties(const QTextFormat& from, QTextFormat& to, const int (&properties)[count]) {
  for (const int property : properties) {
    if (from.hasProperty(property)) to.setProperty(property, from.property(property));
  }
}

QTextCharFormat BasicCharacters(const QTextCharFormat& format) {
  static constexpr int kept[] = {
      QTextFormat::FontFamilies,       QTextFormat::FontPointSize,        QTextFormat::FontPixelSize,
      QTextFormat::FontWeight,         QTextFormat::FontItalic,           QTextFormat::FontStrikeOut,
      QTextFormat::FontUnderline,      QTextFormat::ForegroundBrush,      QTextFormat::BackgroundBrush,
      QTextFormat::TextUnderlineStyle, QTextFormat::TextVerticalAlignment};
  QTextCharFormat basic;
  CopyProperties(format, basic, kept);
  return basic;
}

QTextBlockFormat BasicParagraph(const QTextBlockFormat& format) {
  static constexpr int kept[] = {QTextFormat::BlockAlignment,    QTextFormat::BlockLeftMargin,
                                 QTextFormat::BlockRightMargin,  QTextFormat::BlockTopMargin,
                                 QTextFormat::BlockBottomMargin, QTextFormat::TextIndent,
                                 QTextFormat::LayoutDirection};
  QTextBlockFormat basic;
  CopyProperties(format, basic, kept);
  return basic;
}

class BasicWriter : public DocumentVisitor {
 public:
  explicit BasicWriter(QTextDocument& document) : m_cursor(&document) {}

  void BeginBlock(const QTextBlock& block) override {
    if (m_continuesLine) {
      m_continuesLine = false;
      return;
    }
    const QTextBlockFormat format = BasicParagraph(block.blockFormat());
    if (m_isFirst) {
      m_cursor.setBlockFormat(format);
    } else {
      m_cursor.insertBlock(format, QTextCharFormat());
    }
    m_isFirst = false;
    WriteLabel(block);
  }
  void Run(QStringView text, const QTextCharFormat& format, int) override {
    if (!format.boolProperty(kHiddenText)) m_cursor.insertText(text.toString(), BasicCharacters(format));
  }
  // The first cell of a row begins a line; what its paragraph is like, its line is.
  void BeginCell(const QTextTable&, const QTextTableCell& cell) override { BeginCell(cell); }
  void CoveredCell(const QTextTable&, const QTextTableCell& cell) override { BeginCell(cell); }

 private:
  void BeginCell(const QTextTableCell& cell) {
    m_continuesLine = cell.column() > 0;
    if (m_continuesLine) m_cursor.insertText(QStringLiteral("\t"), QTextCharFormat());
  }
  void WriteLabel(const QTextBlock& block) {
    const QString label = ListLabel(block);
    if (!label.isEmpty()) m_cursor.insertText(label + QLatin1Char('\t'), BasicCharacters(block.charFormat()));
  }

  QTextCursor m_cursor;
  bool m_isFirst = true;
  bool m_continuesLine = false;
};

}  // namespace

RichText BasicText(const RichText& text) {
  SafeDocument document;
  document.setUndoRedoEnabled(false);
  document.setDefaultFont(text.Document().defaultFont());
  BasicWriter writer(document);
  WalkDocument(text.Document(), writer);
  return RichText::FromDocument(document);
}

}  // namespace snipdeck
