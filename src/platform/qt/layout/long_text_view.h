#pragma once

#include <functional>

#include <QBasicTimer>
#include <QObject>
#include <QPointer>
#include <QTextBlock>

class QPaintDevice;
class QTextEdit;

namespace snipdeck {

class ParagraphLayout;

/// Chooses the layout of a control's text: Qt's for an ordinary one, ParagraphLayout for a very long one, which Qt would
/// place up to every point that is asked for, and the window would stand still. Keeps what the user sees in its place
/// while heights above it turn from guessed into found ones.
class LongTextView : public QObject {
  Q_OBJECT

 public:
  /// The text is laid out for `device`, which outlives this.
  LongTextView(QTextEdit& control, QPaintDevice& device);

  /// So much text is about to come into the control; `hasFrames` if tables or frames are in it.
  void Expect(qsizetype characters, bool hasFrames);
  /// Whether lines are placed when they are needed, so that no long text needs to be kept from being placed.
  bool IsLong() const;
  /// Whether the layout may be chosen at all: pages are Qt's affair, and a long text becomes Qt's at once when not.
  void AllowLong(bool allow);
  /// Of a long text, what the user sees stays in its place, whatever `change` does to the heights above it.
  void KeepingView(const std::function<void()>& change);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  /// A paragraph and how far below the top of the view it begins.
  struct Anchor {
    QTextBlock block;
    int below = 0;
  };

  void Review();
  void BeforePaint();
  bool WantsLong(qsizetype characters, bool hasFrames) const;
  void SetLong(bool isLong);
  Anchor FindAnchor() const;
  void PlaceAround(const Anchor& anchor);
  void Show(const Anchor& anchor);

  QTextEdit& m_control;
  QPaintDevice& m_device;
  QPointer<ParagraphLayout> m_layout;
  bool m_mayBeLong = true;
  QBasicTimer m_guessing;
  QBasicTimer m_reviewing;
};

}  // namespace snipdeck
