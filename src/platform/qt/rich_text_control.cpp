#include "platform/qt/rich_text_control.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include <QAbstractTextDocumentLayout>
#include <QFontDatabase>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QWheelEvent>

#include "platform/qt/alt_keys.h"
#include "platform/qt/button_bar.h"
#include "platform/qt/dialogs/find_replace_dialog.h"
#include "platform/qt/dialogs/font_dialog.h"
#include "platform/qt/dialogs/paragraph_dialog.h"
#include "platform/qt/endless_word.h"
#include "platform/qt/layout/gradual_fill.h"
#include "platform/qt/layout/long_text_view.h"
#include "platform/qt/layout_pause.h"
#include "platform/qt/list_work.h"
#include "platform/qt/page_view/page_view.h"
#include "platform/qt/printing/page_printing.h"
#include "platform/qt/rich_text_mime.h"
#include "platform/qt/ruler.h"
#include "platform/qt/status_bar.h"
#include "platform/qt/text_menu.h"
#include "platform/qt/zoomed_device.h"
#include "richtext/clipboard_text.h"
#include "richtext/flow_text.h"
#include "richtext/format_properties.h"
#include "richtext/paragraph_marks.h"

namespace snipdeck {
namespace {

constexpr int kDefaultPointSize = 10;
constexpr int kDocumentMargin = 3;    // pixels
constexpr double kTabDistance = 48;   // pixels: half an inch, what RTF means when it names no tab stops
constexpr int kZoomStep = 10;         // percent for a notch of the wheel
constexpr int kLongText = 100'000;    // characters; takes about 20 ms to place
constexpr int kHugeText = 1'000'000;  // characters; takes about 8 MB while it is shown
constexpr QTextOption::Flags kFormattingMarks =
    QTextOption::ShowTabsAndSpaces | QTextOption::ShowLineAndParagraphSeparators;

bool IsBold(const QTextCharFormat& format) {
  return format.fontWeight() >= QFont::DemiBold;
}
bool IsItalic(const QTextCharFormat& format) {
  return format.fontItalic();
}
bool IsUnderlined(const QTextCharFormat& format) {
  return format.underlineStyle() != QTextCharFormat::NoUnderline;
}
bool IsStruckOut(const QTextCharFormat& format) {
  return format.fontStrikeOut();
}

// One character stays one character, so that indexes into the result are positions in the document.
QString PlainFromRaw(QString raw) {
  for (QChar& c : raw) {
    const char16_t code = c.unicode();
    if (code == QChar::ParagraphSeparator || code == QChar::LineSeparator || code == 0xFDD0 || code == 0xFDD1)
      c = u'\n';
  }
  return raw;
}

// The desktop may name its font by an alias that means nothing elsewhere, so the family behind it is taken.
QFont DefaultFont() {
  return QFont(QFontInfo(QFontDatabase::systemFont(QFontDatabase::GeneralFont)).family(), kDefaultPointSize);
}

// Quick for most texts: the pieces hold the characters of paragraphs without anything between them.
bool MayHaveEndlessWord(const RichText& text) {
  if (text.Length() < kEndlessWord) return false;
  const auto flow = text.Flow();
  return !flow || std::any_of(flow->pieces.begin(), flow->pieces.end(), [](const Flow& piece) {
    return !piece.tables.empty() || HasEndlessWord(piece.text);
  });
}

// A text is kept in many small blocks of memory, which the C library of Linux would hold on to.
void ReturnFreeMemory() {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
}

QImage PlaceholderImage() {
  QImage image(16, 16, QImage::Format_ARGB32);
  image.fill(QColor(128, 128, 128, 64));
  return image;
}

}  // namespace

RichTextControl::RichTextControl(QWidget* parent)
    : QTextEdit(parent), m_zoomedDevice(std::make_unique<ZoomedDevice>(*viewport())),
      m_longText(std::make_unique<LongTextView>(*this, *m_zoomedDevice)),
      m_filling(std::make_unique<GradualFill>(*this)) {
  setAcceptRichText(true);
  setFont(DefaultFont());
  setTabStopDistance(kTabDistance);
  document()->setDocumentMargin(kDocumentMargin);
  document()->documentLayout()->setPaintDevice(m_zoomedDevice.get());
  ApplyPalette();
  ClearUndoHistory();  // setting the margin counts as an edit
}

RichTextControl::~RichTextControl() {
  m_filling->Cancel();
  m_pageView.reset();
  document()->documentLayout()->setPaintDevice(viewport());
}

QTextDocument* RichTextControl::document() const {
  m_filling->Finish();
  return QTextEdit::document();
}

QTextCursor RichTextControl::textCursor() const {
  m_filling->Finish();
  return QTextEdit::textCursor();
}

bool RichTextControl::IsFilling() const {
  return m_filling->IsFilling();
}

QString RichTextControl::Text() const {
  return PlainFromRaw(document()->toRawText());
}

void RichTextControl::SetText(const QString& text) {
  m_filling->Cancel();
  QTextDocument* const content = document();
  const bool wasHuge = content->characterCount() > kHugeText;
  content->setUndoRedoEnabled(false);
  content->clear();
  setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  Expect(text);
  const LayoutPause pause(*this, text.size() > kLongText && !m_longText->IsLong());
  content->setPlainText(text);
  if (wasHuge) ReturnFreeMemory();
  content->setUndoRedoEnabled(true);
  setTextCursor(QTextCursor(content));
}

// Endless words are broken until the control is emptied; one such word makes every placing of its lines slow.
void RichTextControl::Expect(const QString& text) {
  m_longText->Expect(text.size(), false);
  if (HasEndlessWord(text)) setWordWrapMode(QTextOption::WrapAnywhere);
}

void RichTextControl::Expect(const RichText& text) {
  m_longText->Expect(text.Length(), text.HasFrames());
  if (MayHaveEndlessWord(text) && HasEndlessWord(text.Characters())) setWordWrapMode(QTextOption::WrapAnywhere);
}

int RichTextControl::LastPosition() const {
  return document()->characterCount() - 1;
}

// The view goes along with the caret or keeps showing what it shows.
void RichTextControl::PlaceCaret(const QTextCursor& cursor, bool inView) {
  const QPoint seen(horizontalScrollBar()->value(), verticalScrollBar()->value());
  setTextCursor(cursor);
  if (inView) return;
  horizontalScrollBar()->setValue(seen.x());
  verticalScrollBar()->setValue(seen.y());
}

int RichTextControl::SelStart() const {
  return textCursor().selectionStart();
}

void RichTextControl::SetSelStart(int position) {
  QTextCursor cursor = textCursor();
  cursor.setPosition(std::clamp(position, 0, LastPosition()));
  PlaceCaret(cursor, hasFocus());
}

int RichTextControl::SelLength() const {
  const QTextCursor cursor = textCursor();
  return cursor.selectionEnd() - cursor.selectionStart();
}

void RichTextControl::SetSelLength(int length) {
  QTextCursor cursor = textCursor();
  const int start = cursor.selectionStart();
  const int rest = LastPosition() - start;
  cursor.setPosition(start);
  cursor.setPosition(start + (length < 0 ? rest : std::min(length, rest)), QTextCursor::KeepAnchor);
  PlaceCaret(cursor, hasFocus());
}

QString RichTextControl::SelText() const {
  return PlainFromRaw(textCursor().selectedText());
}

void RichTextControl::SetSelText(const QString& text) {
  Expect(text);
  QTextCursor cursor = textCursor();
  cursor.insertText(text);
  PlaceCaret(cursor, hasFocus());
}

QByteArray RichTextControl::SelRtf() const {
  return textCursor().hasSelection() ? SelRichText().Rtf() : QByteArray();
}

void RichTextControl::SetSelRtf(const QByteArray& rtf) {
  SetSelRichText(RichText::FromRtf(rtf));
}

RichText RichTextControl::SelRichText() const {
  const QTextCursor cursor = textCursor();
  if (!cursor.hasSelection()) return {};
  return RichText::FromDocument(*document(), cursor.selectionStart(), cursor.selectionEnd());
}

// What fills an empty control can be read from its start, a long text while the rest of it is still being placed.
void RichTextControl::SetSelRichText(const RichText& text) {
  const bool isEmpty = QTextEdit::document()->isEmpty();
  const bool inView = hasFocus() && !isEmpty;
  Expect(text);
  const LayoutPause pause(*this, !inView && !m_longText->IsLong() && text.Length() > kLongText);
  QTextCursor cursor = isEmpty ? QTextEdit::textCursor() : textCursor();
  Insert(text, cursor);
  PlaceCaret(cursor, inView);
}

void RichTextControl::Insert(const RichText& text, QTextCursor& cursor) {
  if (!m_filling->Start(text, cursor)) text.InsertAt(cursor);
}

void RichTextControl::AppendText(const QString& text) {
  Expect(text);
  QTextCursor cursor(QTextEdit::document());
  cursor.movePosition(QTextCursor::End);
  cursor.insertText(text, QTextCharFormat());
  setTextCursor(cursor);
}

void RichTextControl::AppendRichText(const RichText& text) {
  Expect(text);
  QTextCursor cursor(QTextEdit::document());
  cursor.movePosition(QTextCursor::End);
  Insert(text, cursor);
  setTextCursor(cursor);
}

bool RichTextControl::SelectionHas(bool (*attribute)(const QTextCharFormat&)) const {
  const QTextCursor cursor = QTextEdit::textCursor();
  if (!cursor.hasSelection()) return attribute(currentCharFormat());
  const int end = cursor.selectionEnd();
  bool sawText = false;
  for (QTextBlock block = QTextEdit::document()->findBlock(cursor.selectionStart()); block.isValid() && block.position() < end;
       block = block.next()) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextFragment fragment = it.fragment();
      if (fragment.position() >= end || fragment.position() + fragment.length() <= cursor.selectionStart()) continue;
      if (!attribute(fragment.charFormat())) return false;
      sawText = true;
    }
  }
  return sawText || attribute(currentCharFormat());
}

int RichTextControl::Bold() const {
  return SelectionHas(IsBold) ? -1 : 0;
}

void RichTextControl::SetBold(int value) {
  QTextCharFormat change;
  change.setFontWeight(value != 0 ? QFont::Bold : QFont::Normal);
  mergeCurrentCharFormat(change);
}

int RichTextControl::Italic() const {
  return SelectionHas(IsItalic) ? -1 : 0;
}

void RichTextControl::SetItalic(int value) {
  QTextCharFormat change;
  change.setFontItalic(value != 0);
  mergeCurrentCharFormat(change);
}

int RichTextControl::Underline() const {
  return SelectionHas(IsUnderlined) ? -1 : 0;
}

void RichTextControl::SetUnderline(int value) {
  QTextCharFormat change;
  change.setFontUnderline(value != 0);
  change.setProperty(kUnderlineKind, static_cast<int>(UnderlineKind::None));
  mergeCurrentCharFormat(change);
}

int RichTextControl::Strikeout() const {
  return SelectionHas(IsStruckOut) ? -1 : 0;
}

void RichTextControl::SetStrikeout(int value) {
  QTextCharFormat change;
  change.setFontStrikeOut(value != 0);
  change.setProperty(kDoubleStrike, false);
  mergeCurrentCharFormat(change);
}

bool RichTextControl::ShowFormatting() const {
  return QTextEdit::document()->defaultTextOption().flags().testFlag(QTextOption::ShowTabsAndSpaces);
}

void RichTextControl::SetShowFormatting(bool show) {
  QTextOption option = document()->defaultTextOption();
  option.setFlags(show ? option.flags() | kFormattingMarks : option.flags() & ~kFormattingMarks);
  document()->setDefaultTextOption(option);
}

void RichTextControl::ClipboardAction(int action) {
  if (action == 1) cut();
  if (action == 2) copy();
  if (action == 3) Paste();
}

bool RichTextControl::CanPaste() const {
  if (!m_pasteSource) return canPaste();
  return !isReadOnly() && (m_pasteSource->HasFormat(kFormatRichText) || m_pasteSource->HasFormat(kFormatText));
}

void RichTextControl::Paste() {
  if (!acceptRichText()) return PastePlainText();
  if (!m_pasteSource) return paste();
  if (!CanPaste()) return;
  if (const auto text = FormattedText(*m_pasteSource)) {
    SetSelRichText(*text);
  } else {
    SetSelText(m_pasteSource->Text());
  }
  ensureCursorVisible();
}

void RichTextControl::PastePlainText() {
  if (!CanPaste()) return;
  SetSelText(m_pasteSource ? m_pasteSource->Text() : QGuiApplication::clipboard()->text());
  ensureCursorVisible();
}

void RichTextControl::keyPressEvent(QKeyEvent* event) {
  if (m_pageView && m_pageView->TurnPage(*event)) return event->accept();
  // The menu key itself asks for the menu; this one is a habit of many.
  if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
    return ShowTextMenu(*this, viewport()->mapToGlobal(cursorRect().bottomLeft()));
  if (IsUnmeantText(*event)) return event->ignore();
  const int before = QTextEdit::document()->revision();
  if (event->matches(QKeySequence::Paste)) {
    Paste();
    event->accept();
  } else {
    QTextEdit::keyPressEvent(event);
    if (event->matches(QKeySequence::InsertParagraphSeparator)) CountNewItem(QTextEdit::textCursor());
  }
  // Keys that come with a character tell of themselves.
  if (event->text().isEmpty() && QTextEdit::document()->revision() != before) emit Edited();
}

// Of our own, since Qt's asks the clipboard's owner whether there is something to paste, and waits.
void RichTextControl::contextMenuEvent(QContextMenuEvent* event) {
  ShowTextMenu(*this, event->globalPos());
}

void RichTextControl::FontDialog() {
  RunFontDialog(*this);
}

void RichTextControl::ParagraphDialog() {
  RunParagraphDialog(*this);
}

void RichTextControl::FindReplaceDialog(int mode) {
  if (mode == 1 || mode == 2) TextFindDialog::Open(*this, mode == 2);
}

int RichTextControl::ControlOption(int index) const {
  const bool valid = index >= 0 && index < static_cast<int>(m_controlOptions.size());
  return valid ? m_controlOptions[static_cast<std::size_t>(index)] : 0;
}

void RichTextControl::SetControlOption(int index, int value) {
  const bool valid = index >= 0 && index < static_cast<int>(m_controlOptions.size());
  if (valid) m_controlOptions[static_cast<std::size_t>(index)] = value;
}

void RichTextControl::SetBackColor(OleColour colour) {
  if (colour == m_backColor) return;
  m_backColor = colour;
  ApplyPaper();
}

// The paper is the viewport's alone: styles keep pictures of a scroll bar's parts for each palette, and Qt never forgets
// their names.
void RichTextControl::ApplyPaper() {
  QPalette paper = palette();
  paper.setColor(QPalette::All, QPalette::Base, m_backColor >= 0 ? ColourFromOle(m_backColor) : QColor(Qt::white));
  viewport()->setPalette(paper);
}

// Every colour that shows beside text is set, so that none of them comes from the desktop's theme.
void RichTextControl::ApplyPalette() {
  QPalette colours = palette();
  const auto set = [&](QPalette::ColorRole role, const QColor& colour) {
    colours.setColor(QPalette::All, role, colour);
  };
  set(QPalette::Base, Qt::white);
  set(QPalette::Text, Qt::black);
  set(QPalette::PlaceholderText, QColor(96, 96, 96));
  set(QPalette::Highlight, QColor(0, 92, 175));
  set(QPalette::HighlightedText, Qt::white);
  set(QPalette::Link, QColor(0, 0, 192));
  set(QPalette::LinkVisited, QColor(96, 0, 128));
  colours.setColor(QPalette::Inactive, QPalette::Highlight, QColor(184, 208, 232));
  colours.setColor(QPalette::Inactive, QPalette::HighlightedText, Qt::black);
  setPalette(colours);
  ApplyPaper();
}

void RichTextControl::SetZoomValue(int percent) {
  const int zoom = std::clamp(percent, 10, 500);
  if (zoom == m_zoomValue) return;
  m_zoomValue = zoom;
  m_zoomedDevice->SetPercent(zoom);
  if (m_pageView) m_pageView->Refit();
  else document()->markContentsDirty(0, document()->characterCount());
  emit ZoomChanged(zoom);
}

// Switching the history off and on also gives back the room of text that only the history still held.
void RichTextControl::ClearUndoHistory() {
  QTextEdit::document()->setUndoRedoEnabled(false);
  QTextEdit::document()->setUndoRedoEnabled(true);
}

namespace {

template <typename Companion>
void Attach(QPointer<Companion>& held, Companion* companion, RichTextControl* control) {
  if (held == companion) return;
  if (held) held->Follow(nullptr);
  held = companion;
  if (held) held->Follow(control);
}

}  // namespace

void RichTextControl::SetRulerHandle(TXRuler* ruler) {
  Attach(m_ruler, ruler, this);
}
void RichTextControl::SetButtonBarHandle(TXButtonBar* bar) {
  Attach(m_buttonBar, bar, this);
}
void RichTextControl::SetStatusBarHandle(TXStatusBar* bar) {
  Attach(m_statusBar, bar, this);
}

// An address that yields nothing would be looked up on the disk, so a small grey square is given for it.
QVariant RichTextControl::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::ImageResource) return QByteArray("");
  if (name.scheme().compare(QLatin1String("data"), Qt::CaseInsensitive) == 0) {
    QTextDocument decoder;
    const QVariant picture = decoder.resource(type, name);
    if (!picture.value<QPixmap>().isNull()) return picture;
  }
  return PlaceholderImage();
}

void RichTextControl::focusInEvent(QFocusEvent* event) {
  QTextEdit::focusInEvent(event);
  emit Activity();
}

void RichTextControl::mousePressEvent(QMouseEvent* event) {
  QTextEdit::mousePressEvent(event);
  emit Activity();
}

// Long texts and pages paint everything themselves.
void RichTextControl::paintEvent(QPaintEvent* event) {
  QTextEdit::paintEvent(event);
  if (m_longText->IsLong() || m_pageView) return;
  QPainter painter(viewport());
  const QPointF scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
  painter.translate(-scrolled);
  PaintMarks(painter, *QTextEdit::document(), QRectF(event->rect()).translated(scrolled), palette());
}

// Text that is dragged away leaves while the mouse still moves.
void RichTextControl::mouseMoveEvent(QMouseEvent* event) {
  const int before = document()->revision();
  QTextEdit::mouseMoveEvent(event);
  if (document()->revision() != before) emit Edited();
}

void RichTextControl::wheelEvent(QWheelEvent* event) {
  if (event->modifiers() != Qt::ControlModifier) return QTextEdit::wheelEvent(event);
  const int turned = event->angleDelta().y();
  if (turned != 0) SetZoomValue(m_zoomValue + (turned > 0 ? kZoomStep : -kZoomStep));
  event->accept();
}

// A text whose lines are not all placed yet would be placed to its end by the first change at that end. Nobody sees the
// lines of a hidden control, so the work is put off until it is shown; finished lines are kept.
void RichTextControl::hideEvent(QHideEvent* event) {
  QTextEdit::hideEvent(event);
  if (m_pageView || m_longText->IsLong()) return;
  const bool allPlaced = QTextEdit::document()->lastBlock().layout()->lineCount() > 0;
  if (!allPlaced) document()->setPageSize(QSizeF(0, 0));
}

// Placing the lines of twelve texts anew takes far longer than moving twelve controls. It waits until all of them have
// their places, and several resizes in a row cost it once.
void RichTextControl::resizeEvent(QResizeEvent* event) {
  if (m_pageView) return QAbstractScrollArea::resizeEvent(event);
  if (m_isPlacing || !isVisible() || QTextEdit::document()->isEmpty()) return QTextEdit::resizeEvent(event);
  if (m_placedFor) return;
  m_placedFor = event->oldSize();
  QMetaObject::invokeMethod(this, &RichTextControl::PlaceAnew, Qt::QueuedConnection);
}

void RichTextControl::PlaceAnew() {
  QResizeEvent resized(viewport()->size(), *m_placedFor);
  m_placedFor.reset();
  if (m_pageView) return;
  m_isPlacing = true;
  m_longText->KeepingView([&] { QTextEdit::resizeEvent(&resized); });
  m_isPlacing = false;
}

void RichTextControl::showEvent(QShowEvent* event) {
  QTextDocument& content = *QTextEdit::document();
  if (content.pageSize().isNull()) content.setTextWidth(viewport()->width());
  QTextEdit::showEvent(event);
}

QMimeData* RichTextControl::createMimeDataFromSelection() const {
  return new RichTextMime(SelRichText());
}

bool RichTextControl::canInsertFromMimeData(const QMimeData* source) const {
  return OffersText(*source);
}

void RichTextControl::insertFromMimeData(const QMimeData* source) {
  if (isReadOnly()) return;
  if (const auto text = RichTextFromMime(*source)) SetSelRichText(*text);
  ensureCursorVisible();
  emit Edited();
}

}  // namespace snipdeck
