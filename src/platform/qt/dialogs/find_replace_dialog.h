#pragma once

#include <QDialog>

#include "platform/qt/dialogs/text_search.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace snipdeck {

class RichTextControl;

/// Finds and replaces in one control while its text stays usable. The dialog is shown until it is closed or its control
/// is hidden, and keeps what was looked for. There is one at a time: that of the text which was asked last.
class TextFindDialog : public QDialog {
  Q_OBJECT

 public:
  /// Shows the dialog of `control`, in place of that of another text, or brings the one that it has to the front; what
  /// is selected becomes what is looked for.
  static void Open(RichTextControl& control, bool withReplace);

  void FindNext();
  void ReplaceOne();
  void ReplaceAll();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void reject() override;

 private:
  explicit TextFindDialog(RichTextControl& control);
  static TextFindDialog* For(RichTextControl& control);
  void TakeOver(const TextFindDialog& other);
  void Build();
  void ShowReplace(bool shown);
  void TakeSelection();
  void OfferButtons();
  SearchPattern Pattern() const;
  bool SelectionMatches() const;
  void Select(const TextMatch& match);
  void KeepOutOfTheWay();
  void Say(const QString& words);

  RichTextControl& m_control;
  QLineEdit* m_what;
  QLineEdit* m_with;
  QLabel* m_withLabel;
  QCheckBox* m_matchCase;
  QCheckBox* m_wholeWords;
  QCheckBox* m_backwards;
  QPushButton* m_find;
  QPushButton* m_replace;
  QPushButton* m_replaceAll;
  QLabel* m_answer;
};

}  // namespace snipdeck
