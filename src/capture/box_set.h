#pragma once

#include <array>
#include <cstdint>

#include <QObject>

#include "capture/text_panel.h"
#include "platform/message_box.h"
#include "platform/qt/rich_text_control.h"
#include "platform/units.h"
#include "richtext/rich_text.h"
#include "richtext/staged_text.h"

class QLabel;

namespace snipdeck {

inline constexpr int kBoxCount = 12;
/// Every box, and the box of the latest capture: a faint yellow.
inline constexpr OleColour kBoxColour = OleFromRgb(255, 255, 255);
inline constexpr OleColour kLatestBoxColour = OleFromRgb(255, 255, 247);

/// The twelve capture boxes, the cumulative box and the large view, with what the main window remembers about them.
class BoxSet : public QObject {
  Q_OBJECT

 public:
  /// Makes the controls as children of `host`, the boxes shown and both panels hidden.
  BoxSet(QWidget& host, MessageBox& messages);

  /// Where paste takes its text from in every control; outlives the boxes.
  void SetPasteSource(const Clipboard& source);
  /// Box n, 1 to 12.
  RichTextControl& Box(int n) { return *m_boxes[static_cast<size_t>(n - 1)]; }
  /// 1 to 12, or 0 for a control that is none of the boxes.
  int NumberOf(const RichTextControl& control) const;
  RichTextControl& TXTextControl1() { return Frame1->TextControl(); }
  RichTextControl& TXTextControl2() { return Frame2->TextControl(); }

  /// Enlarges box n; any other number shows the large view as it was last. Refuses with a message while a panel is
  /// shown.
  void OpenBoxInLargeView(int n);
  void ShowAllBoxes();
  void HideAllBoxes();
  bool PanelIsShown() const;
  /// Gives the keyboard to the text that is seen: a panel's, or that of the box last worked in.
  void FocusText();
  void ShowLeaveLargeView();
  void ShowNeedsLargeView();
  /// " Text box 1 " to " Text box 12 ".
  static QString BoxCaption(int n);

  TextPanel* Frame1;
  TextPanel* Frame2;
  StagedText txtView;
  /// What the user retrieved from the clipboard, on its way into a box.
  StagedText WhichTXControl;
  QLabel* lblFormats;
  QLabel* lblFormat;

  /// Box of the latest capture, 1 to 12; 0 before the first.
  std::int16_t CurrentBox = 0;
  /// Box that the user last worked in or enlarged, 1 to 12; 0 at start.
  std::int16_t FocusedBox = 0;
  /// The large view holds the texts of all boxes instead of one.
  bool LargeViewHoldsAll = false;
  /// The user changed the text of a box.
  bool BoxesAltered = false;
  /// Entry n is what a capture last filed into box n; entry 0 stays empty.
  std::array<RichText, kBoxCount + 1> CapturedRtf;

 private:
  void PrepareBox(int n, QWidget& host);
  void PreparePanel(TextPanel& panel, const QString& accessibleName);

  MessageBox& m_messages;
  std::array<RichTextControl*, kBoxCount> m_boxes;
};

}  // namespace snipdeck
