#pragma once

#include <array>

#include "platform/qt/control_companion.h"
#include "platform/qt/glyph_button.h"

class QComboBox;

namespace snipdeck {

/// Font, size, bold, italic, underline and alignment of a control's selection. Each use changes the selection as one
/// step of the control's undo history and gives the keyboard back to the control. Its parts fill whatever height it is
/// given.
class TXButtonBar : public ControlCompanion {
  Q_OBJECT

 public:
  explicit TXButtonBar(QWidget* parent = nullptr);

  TXButtonBar* WindowHandle() { return this; }

 protected:
  void Refresh() override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static constexpr int kGlyphCount = 7;

  QComboBox* AddCombo(const QString& toolTip);
  void AddButton(Glyph glyph, const QString& toolTip);
  GlyphButton* Button(Glyph glyph) const { return m_buttons[static_cast<std::size_t>(glyph)]; }

  void ApplyFamily();
  void ApplySize();
  void ApplyGlyph(Glyph glyph);
  void ReturnFocus();

  QComboBox* m_family;
  QComboBox* m_size;
  std::array<GlyphButton*, kGlyphCount> m_buttons{};
};

}  // namespace snipdeck
