#include "platform/qt/page_view/page_starts.h"

#include <algorithm>

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextLayout>

#include "platform/qt/page_view/gradual_copy.h"
#include "platform/qt/rich_text_control.h"

namespace snipdeck {
namespace {

constexpr int kAtOnce = 3'000;    // characters; takes a few milliseconds
constexpr int kMost = 3'000'000;  // characters
constexpr int kPause = 600;       // milliseconds without a change

}  // namespace

PageStarts::PageStarts(std::function<void()> found) : m_found(std::move(found)) {}

PageStarts::~PageStarts() = default;

void PageStarts::LookAt(const RichTextControl& control) {
  QTextDocument* const document = control.AsItStands().document();
  if (document != m_document) Follow(document);
  m_control = &control;
  const PageGeometry page = control.Page();
  if (document->revision() == m_revision && page == m_page) return;
  m_revision = document->revision();
  m_page = page;
  m_copy.reset();
  m_waiting.stop();
  if (document->characterCount() > kAtOnce) return m_waiting.start(kPause, this);
  Read(PagedCopy(*document));
}

void PageStarts::Follow(QTextDocument* document) {
  if (m_document) m_document->disconnect(this);
  m_document = document;
  m_revision = -1;
  m_starts.clear();
  m_count = 0;
  connect(document, &QTextDocument::contentsChange, this, &PageStarts::Move);
}

// Of a text that was replaced nothing is known.
void PageStarts::Move(int position, int removed, int added) {
  if (m_copy) m_waiting.start(kPause, this);
  m_copy.reset();
  if (removed != added && std::max(removed, added) > m_document->characterCount() / 2) {
    m_starts.clear();
    m_count = 0;
  }
  for (int& start : m_starts)
    if (start > position) start = std::max(position, start - removed) + added;
}

int PageStarts::PageOf(int position) const {
  if (m_count == 0) return 0;
  const auto next = std::upper_bound(m_starts.begin(), m_starts.end(), position);
  return std::max(1, static_cast<int>(next - m_starts.begin()));
}

void PageStarts::timerEvent(QTimerEvent*) {
  if (!m_document || m_document->characterCount() > kMost) return m_waiting.stop();
  if (m_control->IsFilling()) return;
  if (!m_copy) {
    m_copy = std::make_unique<GradualCopy>(*m_document);
    m_waiting.start(0, this);
  }
  if (m_copy->GoOn()) return;
  m_waiting.stop();
  Read(m_copy->Pages());
  m_copy.reset();
  m_found();
}

// A row of a table that goes over several pages comes back to the first of them with each of its cells.
void PageStarts::Read(const PagedCopy& pages) {
  const PagedText& text = pages.Text();
  const QTextDocument& copy = pages.Document();
  m_count = text.CountPages();
  m_starts.clear();
  for (QTextBlock block = copy.begin(); block.isValid(); block = block.next()) {
    const double top = copy.documentLayout()->blockBoundingRect(block).top();
    for (int i = 0; i < block.layout()->lineCount(); ++i) {
      const QTextLine line = block.layout()->lineAt(i);
      const int page = text.PageOfDot(top + line.y() + line.ascent());
      while (m_starts.size() <= page) m_starts.append(block.position() + line.textStart());
    }
  }
}

}  // namespace snipdeck
