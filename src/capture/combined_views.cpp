#include "capture/combined_views.h"

#include <QTextDocument>

#include "capture/last_paragraph.h"
#include "platform/copy_notice.h"
#include "storage/busy_pointer.h"

namespace snipdeck {

void CombinedViews::ShowAllInOne() {
  if (m_boxes.Frame1->isVisible()) return;
  const BusyPointer busy;
  m_boxes.HideAllBoxes();
  m_boxes.Frame1->SetCaption(QStringLiteral(" Contents of all boxes in one text "));
  m_boxes.LargeViewHoldsAll = true;
  RichTextControl& all = m_boxes.TXTextControl1();
  // It is filled before it is shown, so that its lines are placed once.
  all.SetText(QString());
  for (int n = 1; n <= kBoxCount; ++n) {
    const RichTextControl& box = m_boxes.Box(n);
    if (box.document()->isEmpty()) continue;
    all.AppendRichText(RichText::FromDocument(*box.document()));
    all.AppendText(QStringLiteral("\n"));
    ResetLastParagraph(all);
  }
  all.ClearUndoHistory();
  m_boxes.Frame1->show();
  m_boxes.Frame1->raise();
  all.setFocus();
}

void CombinedViews::CopyOneBox() {
  if (!m_boxes.Frame1->isVisible())
    return m_messages.ShowInformation(QStringLiteral("Option only with all boxes in one (display: F12)"));
  RichTextControl& large = m_boxes.TXTextControl1();
  large.setFocus();
  large.SetSelStart(0);
  large.SetSelLength(-1);
  large.ClipboardAction(2);
  large.SetSelStart(0);
  ShowCopyNotice(m_messages);
}

void CombinedViews::RaiseCumulative() {
  m_boxes.HideAllBoxes();
  m_boxes.Frame2->SetCaption(QStringLiteral(" Cumulative clipboard text box "));
  m_boxes.Frame2->show();
  m_boxes.Frame2->raise();
}

void CombinedViews::ShowCumulative() {
  RaiseCumulative();
  m_boxes.TXTextControl2().setFocus();
}

void CombinedViews::ToggleCumulative() {
  if (m_boxes.Frame2->isVisible()) {
    m_boxes.Frame2->hide();
    m_boxes.ShowAllBoxes();
    m_boxes.FocusText();
    return;
  }
  RaiseCumulative();
  if (m_boxes.TXTextControl2().document()->isEmpty()) m_loadContentsFile();
  m_boxes.TXTextControl2().setFocus();
}

void CombinedViews::EmptyAllBoxes() {
  if (m_boxes.PanelIsShown()) return m_boxes.ShowLeaveLargeView();
  const Message question{.text = QStringLiteral("Empty all text boxes ?\r\n\r\nContents altered:  ") +
                                 (m_boxes.BoxesAltered ? QStringLiteral("YES") : QStringLiteral("NO")),
                         .icon = MessageIcon::Question,
                         .buttons = MessageButtons::YesNo,
                         .defaultButton = MessageAnswer::No};
  if (m_messages.Show(question) != MessageAnswer::Yes) return;
  for (int n = 1; n <= kBoxCount; ++n) m_boxes.Box(n).SetText(QString());
  m_boxes.BoxesAltered = false;
  m_boxes.CurrentBox = 1;
}

}  // namespace snipdeck
