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
    document.addResource(QTextDocument::ImageResource, QUrl(picture.name), picture.image);
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

void InsertFlowText(const FlowText& text, QTextCursor& cursor) {
  cursor.beginEditBlock();
  cursor.removeSelectedText();
  const QTextBlockFormat targetFormat = cursor.blockFormat();
  const QTextCharFormat targetCharFormat = cursor.blockCharFormat();
  const bool beforeText = !cursor.atBlockEnd();
  const int firstBlock = cursor.blockNumber();
  AddPictures(text, *cursor.document());
  DocumentBuilder builder(cursor, text.formats);
  for (const Flow& piece : text.pieces) builder.Append(piece);
  cursor = builder.TakeCursor();
  if (beforeText && cursor.blockNumber() != firstBlock) {
    cursor.setBlockFormat(targetFormat);
    cursor.setBlockCharFormat(targetCharFormat);
  }
  cursor.endEditBlock();
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
