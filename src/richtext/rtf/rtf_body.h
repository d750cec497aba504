#pragma once

#include <functional>
#include <vector>

#include "richtext/rtf/rtf_destination.h"
#include "richtext/rtf/rtf_state.h"
#include "richtext/text_flow.h"

namespace snipdeck {

class RtfParser;

/// Running text with its tables: the body of a document, or the contents of a note, a header or a text box.
class RtfBody : public RtfDestination {
 public:
  using Sink = std::function<void(Flow&&)>;

  /// `sink` gets the text in pieces of whole paragraphs and tables, the last one at Close.
  RtfBody(RtfParser& parser, Sink sink) : m_parser(parser), m_sink(std::move(sink)) {}

  void Text(QStringView text) override;
  bool ShowsText() const override { return true; }
  void Close() override;

  void AddImage(const QTextImageFormat& format);
  void EndParagraph();
  /// \page and the like: what follows begins on a new page.
  void BreakPage();
  /// What follows begins on a new page unless the next section says otherwise.
  void EndSection();
  void ContinuePage() { m_breakBefore = false; }
  void EndCell(int level);
  void EndRow(int level);
  /// Text that is to follow the paragraph that is being read.
  void AddAfterParagraph(Flow&& flow);
  bool HasOpenParagraph() const { return !m_paragraph.IsEmpty(); }
  /// How many characters and pictures it got so far, hidden ones included.
  qint64 Shown() const { return m_shown; }

 private:
  /// A table that is being read: rows that are complete, and the row and cell in progress.
  struct OpenTable {
    std::unique_ptr<TableFlow> table = std::make_unique<TableFlow>();
    std::vector<Flow> cells;
    Flow cell;
  };
  int ParagraphLevel() const;
  bool IsStrayCellEnd(int level) const;
  void SetLevel(std::size_t level);
  void CloseTable();
  void FinishRow(OpenTable& table, std::size_t level);
  Flow& Target() { return m_tables.empty() ? m_flow : m_tables.back().cell; }
  void MoveParagraphTo(Flow& target);
  void JoinParagraphBefore(ParagraphState& paragraph, Flow& target);
  void Deliver();

  RtfParser& m_parser;
  Sink m_sink;
  Flow m_flow;
  Flow m_paragraph;
  Flow m_after;
  std::vector<OpenTable> m_tables;
  QString m_filtered;
  qint64 m_shown = 0;
  std::int32_t m_styleBefore = -1;  ///< Of the paragraph before; -1 where there is none.
  bool m_noSpaceBehind = false;     ///< The paragraph before joins one of its style.
  bool m_breakBefore = false;
};

}  // namespace snipdeck
