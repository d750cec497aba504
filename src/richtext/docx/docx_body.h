#pragma once

#include <functional>

#include "richtext/docx/docx_fields.h"
#include "richtext/docx/docx_formats.h"
#include "richtext/docx/docx_notes.h"
#include "richtext/docx/docx_page_texts.h"
#include "richtext/flow_text.h"
#include "richtext/ooxml/zip_package.h"
#include "richtext/rtf/rtf_picture.h"

namespace snipdeck {

/// What all stories of a document share: its text, and each of its notes.
struct DocxContext {
  ZipPackage& package;
  const DocxTheme& theme;
  const DocxStyles& styles;
  DocxFormats& formats;
  RtfWarnings& warnings;
  RtfPictures& pictures;
  DocxNotes& notes;
  QTextFrameFormat& page;
  DocxPageTexts& pageTexts;
  std::function<bool(double)> progress;  ///< Asked now and then whether to go on; may be empty.
};

/// Reads one story: elements on the level of paragraphs, runs, and tables, into a flow. Changes that were tracked show
/// as if they were accepted. Nesting is bounded.
class DocxBody {
 public:
  DocxBody(DocxContext& context, const Relationships& relationships)
      : m_context(context), m_relationships(relationships) {}

  /// The children of the current element, up to its end; what fields leave open is closed.
  Flow Read(XmlPart& xml);
  /// The number of the note whose story this is, and whether it is an endnote.
  void SetNote(int number, bool endnote);
  bool IsCancelled() const { return m_cancelled; }

 private:
  /// A paragraph while it is read.
  struct OpenParagraph {
    DocxParagraph properties;
    QTextCharFormat base;
    Flow runs;
    Flow after;  ///< Text of frames that hang on the paragraph.
    bool breaksPage = false;
  };
  using Children = void (DocxBody::*)(XmlPart&);

  // Blocks
  void Blocks(XmlPart& xml);
  void Block(XmlPart& xml);
  void Paragraph(XmlPart& xml);
  void FinishParagraph(OpenParagraph& paragraph);
  void FinishHeld();
  void Table(XmlPart& xml);
  Flow NestedFlow(XmlPart& xml);
  bool ReadSection(XmlPart& xml);
  void ReadPage(XmlPart& xml);
  void NotePageText(const XmlPart& xml);

  // Inside of paragraphs
  void Inline(XmlPart& xml);
  void InlineElement(XmlPart& xml);
  void Hyperlink(XmlPart& xml);
  void Run(XmlPart& xml);
  void RunElement(XmlPart& xml);
  void RunMark(XmlPart& xml);
  void Break(XmlPart& xml);
  void Symbol(XmlPart& xml);
  void NoteReference(XmlPart& xml, bool endnote);
  void FieldCharacter(XmlPart& xml);
  void Drawing(XmlPart& xml);
  void DrawingElement(XmlPart& xml);
  void VmlSize(const QString& style);
  void Picture(const QString& relationshipId);
  void AddText(QStringView text);
  void Math(XmlPart& xml);
  void MathBrackets(XmlPart& xml);
  void MathSign(XmlPart& xml, bool isOperator);
  void MathFraction(XmlPart& xml);
  void MathRoot(XmlPart& xml);
  void MathList(XmlPart& xml, QStringView separator);
  void MathShifted(XmlPart& xml, QTextCharFormat::VerticalAlignment alignment);
  QTextCharFormat RunFormat() const;

  /// Of the versions of an element, the first that can be read here.
  void Alternatives(XmlPart& xml, Children children);
  /// Goes one level deeper; skips the element where that is too deep.
  void Deeper(XmlPart& xml, Children children);
  bool IsKnown(const QString& vocabularies) const;

  friend class DocxTable;

  DocxContext& m_context;
  const Relationships& m_relationships;
  DocxFields m_fields;
  Flow* m_flow = nullptr;
  OpenParagraph* m_paragraph = nullptr;
  QTextCharFormat m_direct;  ///< What the run says itself.
  QTextCharFormat::VerticalAlignment m_mathShift = QTextCharFormat::AlignNormal;  ///< of a formula's part
  bool m_mathAligns = false;  ///< In lines of formulas, in which an ampersand is a place to align them at.
  QString m_link;
  QString m_noteMark;
  QSize m_pictureSize;  ///< Twips
  Flow m_held;          ///< Runs of paragraphs whose end was deleted; the next paragraph begins with them.
  QTextCharFormat m_tableRun;
  QTextBlockFormat m_tableParagraph;
  bool m_breakBefore = false;   ///< The next paragraph begins a page.
  bool m_breakPending = false;  ///< A break was met; what follows decides where the page begins.
  bool m_cancelled = false;
  int m_depth = 0;
  int m_paragraphs = 0;
};

}  // namespace snipdeck
