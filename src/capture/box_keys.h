#pragma once

#include "capture/box_host.h"
#include "capture/box_set.h"

class QKeyEvent;

namespace snipdeck {

/// The keys of the boxes, the large view and the cumulative box beyond those that the text itself knows.
class BoxKeys {
 public:
  BoxKeys(BoxSet& boxes, const BoxHost& host) : m_boxes(boxes), m_host(host) {}

  /// Runs what the key stands for in `control`. False where the key goes on to the control, because it stands for
  /// nothing or because its own work is only told here.
  bool Handle(RichTextControl& control, const QKeyEvent& event);

 private:
  using Command = void (BoxKeys::*)(RichTextControl&);
  struct Row;
  static const Row kRows[];
  static const Row* Find(int key, int shift, bool isBox);

  void SwitchFocus(RichTextControl&) { m_host.switchFocus(); }
  void ShowClipboard(RichTextControl&) { m_host.showClipboard(); }
  void NextSidebarWidth(RichTextControl&) { m_host.nextSidebarWidth(); }
  void ToggleBold(RichTextControl& control) { control.SetBold(~control.Bold()); }
  void ToggleItalic(RichTextControl& control) { control.SetItalic(~control.Italic()); }
  void ToggleUnderline(RichTextControl& control) { control.SetUnderline(~control.Underline()); }
  void ToggleStrikeout(RichTextControl& control) { control.SetStrikeout(~control.Strikeout()); }
  void ChooseFont(RichTextControl& control) { control.FontDialog(); }
  void ChooseParagraph(RichTextControl& control) { control.ParagraphDialog(); }
  void Find(RichTextControl& control) { control.FindReplaceDialog(1); }
  void Replace(RichTextControl& control) { control.FindReplaceDialog(2); }
  void ToggleFormatting(RichTextControl& control) { control.SetShowFormatting(!control.ShowFormatting()); }
  void SwitchViewMode(RichTextControl& control);
  void SelectAll(RichTextControl& control);
  void InsertTab(RichTextControl& control) { control.SetSelText(QStringLiteral("\t")); }
  void BoxAbove(RichTextControl& control) { FocusBoxAt(control, -1); }
  void BoxBelow(RichTextControl& control) { FocusBoxAt(control, 1); }
  void PlaceLeft(RichTextControl&) { m_host.placeLeft(0); }
  void PlaceRight(RichTextControl&) { m_host.placeRight(0); }
  void FillLeft(RichTextControl&) { m_host.placeLeft(1); }
  void FillRight(RichTextControl&) { m_host.placeRight(1); }
  void FocusBoxAt(const RichTextControl& from, int distance);

  BoxSet& m_boxes;
  const BoxHost& m_host;
};

}  // namespace snipdeck
