#include "richtext/flow_text.h"

#include <algorithm>

#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QUrl>

#include "richtext/document_builder.h"
#include "richtext/format_properties.h"

namespace snipdeck {
namespace {

void AddPictures(const FlowText& text, QTextDocument& document) {
  for (const FlowPicture& picture : text.pictures) {
    document.addResource(QTextDocument::ImageResource, QUrl(picture.name), picture.content);
  }
}

/// Collects the characters of flows, a line a paragraph.
class CharacterCollector {
 public:
  explicit CharacterCollector(const FlowFormats& formats) : m_formats(formats) {}

  void Add(const Flow& flow) {
    qsizetype at = 0;
    std::size_t table = 0;
    for (const FlowItem& item : flow.items) {
      if (item.kind == FlowItem::Kind::ParagraphEnd) m_characters += u'\n';
      if (item.kind == FlowItem::Kind::Table) Add(*flow.tables[table++]);
      if (item.kind != FlowItem::Kind::Run) continue;
      if (!IsHidden(item.format)) m_characters += QStringView(flow.text).mid(at, item.length);
      at += item.length;
    }
  }

  QString Take() {
    m_characters.chop(1);
    m_characters.remove(QChar::ObjectReplacementCharacter);  // pictures
    return m_characters.replace(QChar::LineSeparator, u'\n');
  }

 private:
  bool IsHidden(int format) const {
    return m_formats.characters[static_cast<std::size_t>(format)].boolProperty(kHiddenText);
  }

  void Add(const TableFlow& table) {
    for (const RowFlow& row : table.rows) {
      for (const Flow& cell : row.cells) Add(cell);
    }
  }

  const FlowFormats& m_formats;
  QString m_characters;
};

qsizetype LengthOf(const Flow& flow) {
  qsizetype length = flow.text.size();
  for (const FlowItem& item : flow.items) length += item.kind == FlowItem::Kind::ParagraphEnd;
  for (const auto& table : flow.tables) {
    for (const RowFlow& row : table->rows) {
      for (const Flow& cell : row.cells) length += LengthOf(cell);
    }
  }
  return length;
}

}  // namespace

void FillDocument(const FlowText& text, QTextDocument& document) {
  DocumentBuilder builder(document, text.formats);
  for (const Flow& piece : text.pieces) builder.Append(piece);
  AddPictures(text, document);
  if (text.page.propertyCount() == 0) return;
  QTextFrameFormat format = document.rootFrame()->frameFormat();
  format.merge(text.page);
  document.rootFrame()->setFrameFormat(format);
}

static void InsertPieces(const FlowText& text, std::size_t begin, std::size_t end, QTextCursor& cursor,
                         BegunLists& lists) {
  cursor.beginEditBlock();
  cursor.removeSelectedText();
  const QTextBlockFormat targetFormat = cursor.blockFormat();
  const QTextCharFormat targetCharFormat = cursor.blockCharFormat();
  const bool beforeText = !cursor.atBlockEnd();
  const int firstBlock = cursor.blockNumber();
  DocumentBuilder builder(cursor, text.formats, std::move(lists));
  for (std::size_t i = begin; i < end; ++i) builder.Append(text.pieces[i]);
  cursor = builder.TakeCursor();
  lists = builder.TakeLists();
  if (beforeText && cursor.blockNumber() != firstBlock) {
    cursor.setBlockFormat(targetFormat);
    cursor.setBlockCharFormat(targetCharFormat);
  }
  cursor.endEditBlock();
}

void InsertFlowText(const FlowText& text, QTextCursor& cursor) {
  BegunLists lists;
  AddPictures(text, *cursor.document());
  InsertPieces(text, 0, text.pieces.size(), cursor, lists);
}

void InsertFlowPiece(const FlowText& text, std::size_t piece, QTextCursor& cursor, BegunLists& lists) {
  if (piece == 0) AddPictures(text, *cursor.document());
  if (text.pieces[piece].IsEmpty()) return;
  if (piece > 0) cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
  InsertPieces(text, piece, piece + 1, cursor, lists);
}

bool IsPieceFull(const Flow& piece) {
  constexpr qsizetype kPieceCharacters = 50'000;
  constexpr std::size_t kPieceItems = 4000;
  return piece.text.size() >= kPieceCharacters || piece.items.size() >= kPieceItems;
}

static void CutPiece(Flow& piece, std::vector<Flow>& pieces) {
  qsizetype at = 0;
  std::size_t table = 0;
  Flow* part = &pieces.emplace_back();
  for (const FlowItem& item : piece.items) {
    if (item.kind == FlowItem::Kind::Table) {
      part->AddTable(std::move(piece.tables[table++]));
      continue;
    }
    if (item.kind == FlowItem::Kind::Run) {
      part->AddRun(QStringView(piece.text).sliced(at, item.length), item.format);
      at += item.length;
      continue;
    }
    part->EndParagraph(item.format, item.length);
    if (IsPieceFull(*part)) part = &pieces.emplace_back();
  }
  if (part->IsEmpty()) pieces.pop_back();
}

void CutPieces(FlowText& text) {
  std::vector<Flow> pieces;
  for (Flow& piece : text.pieces) {
    if (IsPieceFull(piece)) {
      CutPiece(piece, pieces);
    } else {
      pieces.push_back(std::move(piece));
    }
  }
  text.pieces = std::move(pieces);
}

FlowText PlainFlow(QStringView text) {
  FlowText flow;
  flow.formats.characters.emplace_back();
  flow.formats.paragraphs.emplace_back();
  for (qsizetype at = 0; at <= text.size();) {
    Flow& piece = flow.pieces.emplace_back();
    while (at <= text.size() && !IsPieceFull(piece)) {
      const qsizetype newline = text.indexOf(u'\n', at);
      const qsizetype end = newline < 0 ? text.size() : newline;
      piece.AddRun(text.sliced(at, end - at), 0);
      piece.EndParagraph(0, 0);
      at = end + 1;
    }
  }
  return flow;
}

bool HasTables(const FlowText& text) {
  return std::any_of(text.pieces.begin(), text.pieces.end(), [](const Flow& piece) { return !piece.tables.empty(); });
}

QString CharactersOf(const FlowText& text) {
  CharacterCollector collector(text.formats);
  for (const Flow& piece : text.pieces) collector.Add(piece);
  return collector.Take();
}

qsizetype LengthOf(const FlowText& text) {
  qsizetype length = 0;
  for (const Flow& piece : text.pieces) length += LengthOf(piece);
  return std::max<qsizetype>(length - 1, 0);
}

}  // namespace snipdeck
