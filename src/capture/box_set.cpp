#include "capture/box_set.h"

#include <algorithm>

#include <QCoreApplication>
#include <QLabel>

namespace snipdeck {

BoxSet::BoxSet(QWidget& host, MessageBox& messages)
    : QObject(&host),
      Frame1(new TextPanel(1, &host)),
      Frame2(new TextPanel(2, &host)),
      lblFormats(new QLabel(tr("Format"), &host)),
      lblFormat(new QLabel(&host)),
      m_messages(messages) {
  for (int n = 1; n <= kBoxCount; ++n) PrepareBox(n, host);
  PreparePanel(*Frame1, tr("Large view"));
  PreparePanel(*Frame2, tr("Cumulative clipboard text box"));
  lblFormats->setObjectName("lblFormats");
  lblFormat->setObjectName("lblFormat");
  lblFormat->setAccessibleName(tr("Format"));
}

void BoxSet::PrepareBox(int n, QWidget& host) {
  auto* box = new RichTextControl(&host);
  m_boxes[static_cast<size_t>(n - 1)] = box;
  box->setObjectName(QStringLiteral("rtfBox_%1").arg(n, 2, 10, QLatin1Char('0')));
  box->setAccessibleName(tr("Text box %1").arg(n));
  box->SetControlOption(0, 3);
  connect(box, &RichTextControl::Activity, this, [this, n] { FocusedBox = static_cast<std::int16_t>(n); });
}

void BoxSet::PreparePanel(TextPanel& panel, const QString& accessibleName) {
  RichTextControl& control = panel.TextControl();
  control.setAccessibleName(accessibleName);
  control.SetViewMode(0);
  control.SetPageDisplayOption(0);
  control.SetControlOption(0, 3);
  panel.hide();
}

void BoxSet::SetPasteSource(const Clipboard& source) {
  for (RichTextControl* box : m_boxes) box->SetPasteSource(&source);
  for (TextPanel* panel : {Frame1, Frame2}) panel->TextControl().SetPasteSource(&source);
}

int BoxSet::NumberOf(const RichTextControl& control) const {
  const auto found = std::find(m_boxes.begin(), m_boxes.end(), &control);
  return found == m_boxes.end() ? 0 : static_cast<int>(found - m_boxes.begin()) + 1;
}

QString BoxSet::BoxCaption(int n) {
  return QStringLiteral(" Text box %1 ").arg(n);
}

bool BoxSet::PanelIsShown() const {
  return Frame1->isVisible() || Frame2->isVisible();
}

void BoxSet::OpenBoxInLargeView(int n) {
  if (PanelIsShown()) return ShowLeaveLargeView();
  Frame1->show();
  Frame1->raise();
  HideAllBoxes();
  if (n >= 1 && n <= kBoxCount) {
    RichTextControl& box = Box(n);
    box.SetSelStart(0);
    box.SetSelLength(-1);
    TXTextControl1().SetText(QString());
    TXTextControl1().SetSelRichText(box.SelRichText());
    TXTextControl1().ClearUndoHistory();
    LargeViewHoldsAll = false;
    Frame1->SetCaption(BoxCaption(n));
    FocusedBox = static_cast<std::int16_t>(n);
    box.SetSelLength(0);
  }
  QCoreApplication::processEvents();
  TXTextControl1().setFocus();
}

void BoxSet::ShowAllBoxes() {
  for (RichTextControl* box : m_boxes) box->show();
}

void BoxSet::HideAllBoxes() {
  for (RichTextControl* box : m_boxes) box->hide();
}

void BoxSet::FocusText() {
  for (TextPanel* panel : {Frame2, Frame1})
    if (panel->isVisible()) return panel->TextControl().setFocus();
  Box(FocusedBox >= 1 && FocusedBox <= kBoxCount ? FocusedBox : 1).setFocus();
}

void BoxSet::ShowLeaveLargeView() {
  m_messages.ShowInformation(tr("Exit full screen mode [F5] and return to text boxes for this command."));
}

void BoxSet::ShowNeedsLargeView() {
  m_messages.ShowInformation(tr("Only possible in full-screen mode; toggle with F5."));
}

}  // namespace snipdeck
