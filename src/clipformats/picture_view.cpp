#include "clipformats/picture_view.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QPainter>
#include <QPromise>
#include <QScreen>
#include <QThreadPool>

namespace snipdeck {

namespace {

/// Bytes that end as soon as nobody wants the picture any more.
class AbandonableBuffer : public QBuffer {
 public:
  explicit AbandonableBuffer(std::shared_ptr<std::atomic<bool>> isGivenUp) : m_isGivenUp(std::move(isGivenUp)) {}

 protected:
  qint64 readData(char* data, qint64 length) override { return *m_isGivenUp ? -1 : QBuffer::readData(data, length); }

 private:
  std::shared_ptr<std::atomic<bool>> m_isGivenUp;
};

}  // namespace

PictureView::PictureView(QWidget* parent) : QWidget(parent), m_isGivenUp(std::make_shared<std::atomic<bool>>(false)) {
  setAccessibleName(tr("Picture"));
  connect(&m_reading, &QFutureWatcherBase::finished, this, [this] { Take(m_reading.result()); });
}

PictureView::~PictureView() {
  *m_isGivenUp = true;
}

QSize PictureView::LargestScreen() const {
  QSize largest;
  for (const QScreen* screen : QGuiApplication::screens()) {
    largest = largest.expandedTo((QSizeF(screen->size()) * screen->devicePixelRatio()).toSize());
  }
  return largest;
}

void PictureView::SetPicture(const EncodedPicture& picture) {
  SetNotice(tr("Reading the picture ..."));
  const auto promise = std::make_shared<QPromise<ScaledPicture>>();
  promise->start();
  m_reading.setFuture(promise->future());
  QThreadPool::globalInstance()->start([promise, picture, most = LargestScreen(), isGivenUp = m_isGivenUp] {
    AbandonableBuffer buffer(isGivenUp);
    buffer.setData(picture.bytes);
    buffer.open(QIODevice::ReadOnly);
    promise->addResult(ReadScaled(buffer, picture.kind, most));
    promise->finish();
  });
}

void PictureView::SetNotice(const QString& notice) {
  m_notice = notice;
  setAccessibleDescription(notice);
  update();
}

void PictureView::Take(const ScaledPicture& picture) {
  m_picture = picture;
  m_drawn = {};
  const QSize size = picture.fullSize;
  const QString pixels = tr("%1 x %2 pixels").arg(size.width()).arg(size.height());
  if (!picture.image.isNull()) {
    SetNotice(pixels);
  } else {
    SetNotice(tr("This picture cannot be shown") + (size.isEmpty() ? QString() : QStringLiteral(": ") + pixels));
  }
}

QRect PictureView::Target() const {
  const QSize full = (QSizeF(m_picture.fullSize) / devicePixelRatioF()).toSize().expandedTo(QSize(1, 1));
  const bool fits = full.width() <= width() && full.height() <= height();
  return {QPoint(0, 0), fits ? full : full.scaled(size(), Qt::KeepAspectRatio).expandedTo(QSize(1, 1))};
}

void PictureView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (m_picture.image.isNull()) {
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, m_notice);
    return;
  }
  const QRect target = Target();
  const QSize pixels = (QSizeF(target.size()) * devicePixelRatioF()).toSize();
  if (m_drawn.size() != pixels) {
    m_drawn = QPixmap::fromImage(m_picture.image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  }
  painter.drawPixmap(target, m_drawn);
}

}  // namespace snipdeck
