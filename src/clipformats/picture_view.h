#pragma once

#include <atomic>
#include <memory>

#include <QFutureWatcher>
#include <QPixmap>
#include <QWidget>

#include "clipformats/scaled_picture.h"

namespace snipdeck {

/// Shows a picture, scaled down to fit and never up, with its proportions. It is read in the background, to the size of
/// the screen at most, so that even the largest one keeps nobody waiting.
class PictureView : public QWidget {
  Q_OBJECT

 public:
  explicit PictureView(QWidget* parent);
  /// Gives up reading.
  ~PictureView() override;

  void SetPicture(const EncodedPicture& picture);
  /// In place of a picture: says why there is none.
  void SetNotice(const QString& notice);
  /// The size of the whole picture in pixels; empty until it has been read.
  QSize FullSize() const { return m_picture.fullSize; }
  /// Where the picture is drawn.
  QRect Target() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Take(const ScaledPicture& picture);
  QSize LargestScreen() const;

  ScaledPicture m_picture;
  QPixmap m_drawn;
  QString m_notice;
  QFutureWatcher<ScaledPicture> m_reading;
  std::shared_ptr<std::atomic<bool>> m_isGivenUp;
};

}  // namespace snipdeck
