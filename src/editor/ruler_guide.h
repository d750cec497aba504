#pragma once

#include <QFrame>

namespace snipdeck {

class RichTextControl;
class TXRuler;

/// A thin line down the text, under the pointer for as long as the ruler is dragged with the left button.
class RulerGuide : public QFrame {
  Q_OBJECT

 public:
  /// The line lies over `control`; both outlive it.
  RulerGuide(TXRuler& ruler, RichTextControl& control);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowAt(int rulerX);

  TXRuler& m_ruler;
  RichTextControl& m_control;
};

}  // namespace snipdeck
