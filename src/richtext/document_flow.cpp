#include "richtext/document_flow.h"

#include <utility>

#include <QElapsedTimer>
#include <QSet>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextFrame>
#include <QTextList>
#include <QUrl>

namespace snipdeck {
namespace {

constexpr int kSlice = 10;  // milliseconds

std::vector<FlowPicture> PicturesOf(const QTextDocument& document) {
  std::vector<FlowPicture> pictures;
  QSet<QString> names;
  for (const QTextFormat& format : document.allFormats()) {
    const QString name = format.isImageFormat() ? format.toImageFormat().name() : QString();
    if (name.isEmpty() || names.contains(name)) continue;
    names.insert(name);
    const QVariant content = document.resource(QTextDocument::ImageResource, QUrl(name));
    if (content.isValid()) pictures.push_back({name, content});
  }
  return pictures;
}

}  // namespace

bool IsPlainFlow(const QTextDocument& document) {
  return document.rootFrame()->childFrames().isEmpty();
}

DocumentFlow::DocumentFlow(const QTextDocument& document)
    : m_document(document), m_last(document.blockCount() - 1), m_next(document.begin()) {}

bool DocumentFlow::ReadPart() {
  QElapsedTimer clock;
  clock.start();
  while (m_next.isValid() && m_next.blockNumber() <= m_last) {
    Flow& piece = m_text.pieces.emplace_back();
    while (m_next.isValid() && m_next.blockNumber() <= m_last && !IsPieceFull(piece)) {
      Read(m_next, piece);
      m_next = m_next.next();
    }
    if (clock.elapsed() >= kSlice) return true;
  }
  return false;
}

FlowText DocumentFlow::Take() {
  m_text.page = m_document.rootFrame()->frameFormat();
  m_text.pictures = PicturesOf(m_document);
  return std::move(m_text);
}

void DocumentFlow::Read(const QTextBlock& block, Flow& piece) {
  const QString text = block.text();
  for (auto it = block.begin(); !it.atEnd(); ++it) {
    const QTextFragment run = it.fragment();
    const QStringView characters = QStringView(text).sliced(run.position() - block.position(), run.length());
    piece.AddRun(characters, CharacterFormat(run));
  }
  piece.EndParagraph(ParagraphFormat(block), CharacterFormat(block));
}

template <typename Formatted>
int DocumentFlow::CharacterFormat(const Formatted& text) {
  const int index = text.charFormatIndex();
  const auto known = m_characters.constFind(index);
  if (known != m_characters.cend()) return *known;
  const int place = static_cast<int>(m_text.formats.characters.size());
  m_text.formats.characters.push_back(text.charFormat());
  m_characters.insert(index, place);
  return place;
}

int DocumentFlow::ParagraphFormat(const QTextBlock& block) {
  const auto known = m_paragraphs.constFind(block.blockFormatIndex());
  if (known != m_paragraphs.cend()) return *known;
  FlowFormats::Paragraph paragraph{block.blockFormat(), ListOf(block)};
  paragraph.format.clearProperty(QTextFormat::ObjectIndex);
  const int place = static_cast<int>(m_text.formats.paragraphs.size());
  m_text.formats.paragraphs.push_back(std::move(paragraph));
  m_paragraphs.insert(block.blockFormatIndex(), place);
  return place;
}

int DocumentFlow::ListOf(const QTextBlock& block) {
  QTextList* const list = block.textList();
  if (!list) return -1;
  const auto known = m_lists.constFind(list);
  if (known != m_lists.cend()) return *known;
  const int place = static_cast<int>(m_text.formats.lists.size());
  m_text.formats.lists.push_back(list->format());
  m_lists.insert(list, place);
  return place;
}

}  // namespace snipdeck
