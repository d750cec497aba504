#pragma once

#include <QDialog>

#include "platform/qt/dialogs/font_traits.h"

class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QGridLayout;
class QTextEdit;

namespace snipdeck {

class ColourButton;
class PickList;

/// Family, size, effects and colours of characters, with a sample.
class TextFontDialog : public QDialog {
  Q_OBJECT

 public:
  TextFontDialog(const FontTraits& traits, const QFont& defaults, QWidget* parent);

  /// As the user has chosen by now; what was mixed and was left alone has no value.
  FontTraits Traits() const;

 private:
  QComboBox* AddChoice(QGridLayout& grid, const QString& caption, const QStringList& choices);
  void LayOut();
  void PrepareSample();
  void FollowChoices();
  QWidget* MakeEffects();
  void Show(const FontTraits& traits);
  void ShowSample();
  std::optional<double> Points() const;

  FontTraits m_given;
  QFont m_defaults;
  PickList* m_family;
  PickList* m_points;
  QCheckBox* m_bold;
  QCheckBox* m_italic;
  QComboBox* m_underline;
  QComboBox* m_strike;
  QComboBox* m_position;
  QComboBox* m_capitals;
  ColourButton* m_colour;
  ColourButton* m_background;
  QTextEdit* m_sample;
  QDialogButtonBox* m_buttons;
};

/// Lets the user change the characters of the selection, or those that are typed next. One undo step.
void RunFontDialog(RichTextControl& control);

}  // namespace snipdeck
