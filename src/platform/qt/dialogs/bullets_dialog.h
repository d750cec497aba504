#pragma once

#include <QDialog>

#include "platform/qt/list_work.h"

class QListWidget;
class QComboBox;
class QSpinBox;

namespace snipdeck {

class RichTextControl;

/// The bullet or numbering of paragraphs, where its numbers start, and its level.
class TextBulletsDialog : public QDialog {
  Q_OBJECT

 public:
  explicit TextBulletsDialog(const ListTraits& traits, QWidget* parent = nullptr);

  ListTraits Traits() const;

 private:
  void OfferDetails();

  QListWidget* m_kind;
  QComboBox* m_suffix;
  QSpinBox* m_start;
  QSpinBox* m_level;
};

/// Gives the selected paragraphs the list that the user chooses, or none; one undo step.
void RunBulletsDialog(RichTextControl& control);

}  // namespace snipdeck
