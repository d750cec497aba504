#pragma once

#include <array>
#include <memory>
#include <optional>

#include <QPointer>
#include <QTextEdit>

#include "platform/clipboard.h"
#include "platform/page_geometry.h"
#include "platform/result.h"
#include "platform/units.h"
#include "richtext/document_page.h"
#include "richtext/file_format.h"
#include "richtext/rich_text.h"

namespace snipdeck {

class GradualFill;
class LongTextView;
class LongWork;
class MessageBox;
class PagedCopy;
class PageView;
class PrintJob;
class TXButtonBar;
class TXRuler;
class TXStatusBar;
class ZoomedDevice;

/// The rich-text editing control behind every box, the large view, the cumulative box and the staging text.
/// Positions and lengths count characters as the document does (UTF-16 units, one for a paragraph end). The view
/// follows the caret that these operations move while the control has the focus, and otherwise stays where it is;
/// formatted text that fills an empty control shows from its start.
class RichTextControl : public QTextEdit {
  Q_OBJECT

 public:
  explicit RichTextControl(QWidget* parent = nullptr);
  ~RichTextControl() override;

  /// Of the whole text. A very long one that was put in without undo is still being filled in for a while, bit by bit;
  /// asking for these, or for anything else of it, fills in the rest first.
  QTextDocument* document() const;
  QTextCursor textCursor() const;
  bool IsFilling() const;
  /// Document and caret as far as the text has been filled in: enough to show them.
  const QTextEdit& AsItStands() const { return *this; }

  /// The whole plain text, paragraphs separated by "\n".
  QString Text() const;
  /// Replaces everything by plain text in the control's default format; "" empties. The undo history starts anew.
  void SetText(const QString& text);

  int SelStart() const;
  /// Moves the caret; the selection becomes empty. Out of range is clamped.
  void SetSelStart(int position);
  int SelLength() const;
  /// Selects from the caret's start on; -1, and anything too long, reaches the end.
  void SetSelLength(int length);
  QString SelText() const;
  /// Replaces the selection with plain text and leaves the caret behind it.
  void SetSelText(const QString& text);
  /// The selection as RTF; empty when nothing is selected.
  QByteArray SelRtf() const;
  /// Replaces the selection with formatted text and leaves the caret behind it.
  void SetSelRtf(const QByteArray& rtf);
  /// As SelRtf, without the way over bytes: how a text that was read once travels between controls.
  RichText SelRichText() const;
  void SetSelRichText(const RichText& text);
  /// Add at the end: as if the caret stood there and, for plain text, the default format were chosen. The caret ends up
  /// behind the new text, in view.
  void AppendText(const QString& text);
  void AppendRichText(const RichText& text);

  /// Attributes of the selection: 0 no, -1 yes; callers toggle by writing the bitwise negation.
  int Bold() const;
  void SetBold(int value);
  int Italic() const;
  void SetItalic(int value);
  int Underline() const;
  void SetUnderline(int value);
  int Strikeout() const;
  void SetStrikeout(int value);

  /// Marks for blanks, tabs and paragraph ends.
  bool ShowFormatting() const;
  void SetShowFormatting(bool show);
  /// Where paste takes its text from without waiting for another program; null takes it from Qt's clipboard, which waits.
  /// Outlives the control.
  void SetPasteSource(const Clipboard* source) { m_pasteSource = source; }
  /// 1 cut, 2 copy, 3 paste; any other number does nothing.
  void ClipboardAction(int action);
  /// Whether there is a text to paste, and this control takes it.
  bool CanPaste() const;
  /// Pastes the words alone: they look like what stands before them.
  void PastePlainText();

  /// Dialogs on the characters and the paragraphs of the selection; they return when they are closed.
  void FontDialog();
  void ParagraphDialog();
  /// 1 find, 2 replace; any other number does nothing. Returns at once: the dialog stays open beside the text until it is
  /// closed, or this control is hidden.
  void FindReplaceDialog(int mode);

  /// 0 normal, 2 page view: the text on sheets of the document's size, broken where printing breaks it. The caret and
  /// what is seen stay where they are when the view changes. Any other number shows the normal view.
  int ViewMode() const { return m_viewMode; }
  void SetViewMode(int mode);
  int PageDisplayOption() const { return m_pageDisplayOption; }
  void SetPageDisplayOption(int option) { m_pageDisplayOption = option; }
  /// Indexed numbers of the host, 0 to 15; an index out of range reads 0 and writes nothing.
  int ControlOption(int index) const;
  void SetControlOption(int index, int value);

  OleColour BackColor() const { return m_backColor; }
  /// Colours the whole background. The default text colour is always a dark one, whatever the desktop's theme.
  void SetBackColor(OleColour colour);

  /// The changed flag that the host keeps.
  bool Modified() const { return m_modified; }
  void SetModified(bool modified) { m_modified = modified; }

  /// Percent; 100 is the given size. 10 to 500, clamped. Changes how large the text is drawn, never what is stored.
  int ZoomValue() const { return m_zoomValue; }
  void SetZoomValue(int percent);

  /// The document's page in twips, also saved with it. Setting is one undo step; sizes that leave no room for text are
  /// widened. The margins are 0 left, 1 top, 2 right, 3 bottom.
  PageGeometry Page() const;
  void SetPage(const PageGeometry& page);
  int PageWidth() const { return Page().width; }
  void SetPageWidth(int twips);
  int PageHeight() const { return Page().height; }
  void SetPageHeight(int twips);
  int PageMargins(int side) const;
  void SetPageMargins(int side, int twips);
  /// Printed pages, 1 or more.
  int PageCount() const;
  /// How the units of the document's layout are shown: where its left edge stands, in pixels of the control, and how many
  /// pixels a unit takes. `perPixel` tells how many of them stand for a pixel of the unzoomed text, as far as Qt fits
  /// lengths to the resolution; `pageHeight` how many a page takes, 0 where the layout has no pages.
  struct LayoutScale {
    double left = 0;
    double shown = 1;
    double perPixel = 1;
    double pageHeight = 0;
  };
  LayoutScale ScaleOfLayout() const;
  /// The job that PrintPage draws on; null for none. Not owned.
  void SetPrintDevice(PrintJob* job);
  /// Draws a page, from 1, on the print device as page view shows it, on a sheet that was begun. A number out of range
  /// draws nothing.
  void PrintPage(int page);
  /// Modal dialog on the document's page; the argument is ignored.
  void PageSetupDialog(int page);

  /// Modal dialogs; each is one undo step, and none when it is cancelled.
  void InsertTableDialog();
  void TableAttributesDialog();
  void BulletsDialog();
  /// A number above 0 that names the innermost table with the caret; 0 outside, and when several cells are selected.
  int TableAtCaret() const;
  /// Inserts a frame for text of its own at the caret, which goes on inside it; gives the frame's number for
  /// TextFrameAttribute. The arguments say how it is anchored and where; a frame always stands in the text.
  int TextFrameInsert(int kind, int anchor, int position);
  /// Attributes of a frame: 2 its border (0 none, 3 a line all around), 9 to 12 the distance of the text from it on the
  /// left, top, right and bottom in twips. Unknown ones read 0 and write nothing, and so does a frame that is gone.
  int TextFrameAttribute(int frame, int kind, int anchor, int index) const;
  void SetTextFrameAttribute(int frame, int kind, int anchor, int index, int value);

  /// Replace the whole contents by those of a file, or write them to one, which is then replaced as a whole. The number
  /// is ignored. A load leaves the caret at the start and no undo steps; a failure leaves text and file as they were and
  /// is reported.
  Outcome LoadFile(const QString& path, int position, FileFormat format);
  Outcome SaveFile(const QString& path, int position, FileFormat format);
  /// Numbers that travel with a file, 0 to 63: 0 page width, 1 height, 2 to 5 the margins as in PageMargins, in twips.
  /// After a load they are what the file says, 0 where it says nothing; a save writes those that are above 0. Others are
  /// kept as given.
  int LoadSaveAttribute(int index) const;
  void SetLoadSaveAttribute(int index, int value);
  /// Headers and footers are no part of the text: a host that keeps them for a file gives back to the saves what the
  /// load found.
  const PageTexts& LoadedPageTexts() const { return m_loadedPageTexts; }
  void SetPageTextsToSave(const PageTexts& texts) { m_pageTextsToSave = texts; }
  /// Where the control shows that a load or save failed; null, as it is made, for nowhere. Outlives the control.
  void SetMessages(MessageBox* messages) { m_messages = messages; }
  /// What keeps the windows alive while a file is read or written, and lets the user cancel; null, as it is made, reads
  /// and writes at once. Nobody changes the text meanwhile. Outlives the control.
  void SetLongWork(LongWork* work) { m_longWork = work; }

  /// Forgets all undo and redo steps.
  void ClearUndoHistory();

  /// Attach a companion to this control, in place of the one before; nullptr detaches. Companions are not owned.
  void SetRulerHandle(TXRuler* ruler);
  void SetButtonBarHandle(TXButtonBar* bar);
  void SetStatusBarHandle(TXStatusBar* bar);

  /// Pictures come from data: addresses and from what the document already holds; nothing is fetched or opened.
  QVariant loadResource(int type, const QUrl& name) override;
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

 signals:
  /// The user works in this control: it received the focus or a click.
  void Activity();
  /// The user has changed the text by other means than keys that come with a character: the context menu, a dialog,
  /// dragging, or Shift+Insert.
  void Edited();
  void ZoomChanged(int percent);
  /// A load or save failed. The description names path and reason, and ends with "(1d09)" for a save, which the
  /// control does not show. A receiver that clears `isShown` keeps it from showing anything.
  void Error(int number, const QString& description, bool* isShown);
  /// Another view mode, or page view shows another part of the sheets.
  void ViewChanged();

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  QMimeData* createMimeDataFromSelection() const override;
  bool canInsertFromMimeData(const QMimeData* source) const override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  void PlaceAnew();
  void PlaceLines();
  void ScrollLineTo(int position, double offset);
  void ShowPages();
  void ShowLines();
  void ApplyPalette();
  void ApplyPaper();
  void Paste();
  void Expect(const QString& text);
  void Expect(const RichText& text);
  void Insert(const RichText& text, QTextCursor& cursor);
  int LastPosition() const;
  void BeginLoaded(const RichText& text);
  std::optional<PageGeometry> PageToSave() const;
  Outcome SaveTo(const QString& path, FileFormat format);
  void ReportFailure(int number, const QString& description, const QString& code = QString());
  void PlaceCaret(const QTextCursor& cursor, bool inView);
  bool SelectionHas(bool (*attribute)(const QTextCharFormat&)) const;

  /// What the lines are placed for, while they wait to be placed for another size.
  std::optional<QSize> m_placedFor;
  bool m_isPlacing = false;
  const Clipboard* m_pasteSource = nullptr;
  int m_viewMode = 0;
  /// Where the normal view was scrolled to when page view took its place, and what was so then.
  struct LineScroll {
    int value = 0;
    int inPages = 0;
    int revision = 0;
    int zoom = 100;

    bool operator==(const LineScroll&) const = default;
  };
  LineScroll m_lineScroll;
  std::unique_ptr<PageView> m_pageView;  ///< null in the normal view
  PrintJob* m_printDevice = nullptr;
  std::unique_ptr<PagedCopy> m_printCopy;  ///< what is printed when the control shows it in another way
  int m_printRevision = 0;
  int m_pageDisplayOption = 0;
  std::array<int, 16> m_controlOptions{};
  std::array<int, 64> m_loadSaveAttributes{};
  PageTexts m_loadedPageTexts;
  PageTexts m_pageTextsToSave;
  MessageBox* m_messages = nullptr;
  LongWork* m_longWork = nullptr;
  OleColour m_backColor = OleFromRgb(255, 255, 255);
  bool m_modified = false;
  int m_zoomValue = 100;
  std::unique_ptr<ZoomedDevice> m_zoomedDevice;
  std::unique_ptr<LongTextView> m_longText;
  std::unique_ptr<GradualFill> m_filling;
  QPointer<TXRuler> m_ruler;
  QPointer<TXButtonBar> m_buttonBar;
  QPointer<TXStatusBar> m_statusBar;
};

}  // namespace snipdeck
