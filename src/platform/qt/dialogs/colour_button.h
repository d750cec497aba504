#pragma once

#include <optional>

#include <QColor>
#include <QToolButton>

namespace snipdeck {

/// A button that shows a colour and offers others: none, twenty common ones, and any other from the desktop's dialog.
class ColourButton : public QToolButton {
  Q_OBJECT

 public:
  /// `noneCaption` names the choice of no colour, as in "Automatic".
  ColourButton(const QString& noneCaption, const QString& accessibleName, QWidget* parent = nullptr);

  /// An invalid colour is none; nothing means that the selection holds several.
  std::optional<QColor> Colour() const { return m_colour; }
  void SetColour(std::optional<QColor> colour);

 signals:
  void ColourChosen();

 private:
  void FillMenu(const QString& noneCaption);
  void AddColours(QMenu& menu);
  void Choose(const QColor& colour);
  void ChooseOther();

  QString m_noneCaption;
  std::optional<QColor> m_colour;
};

}  // namespace snipdeck
