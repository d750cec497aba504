#include "platform/qt/drawn_icon.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

// Outside the namespace, as Qt asks: a static library's resources are registered by whoever needs them.
static void RegisterIcons() {
  Q_INIT_RESOURCE(icons);
}

namespace snipdeck {

namespace {

constexpr char kInkInFiles[] = "#1b2431";
constexpr double kDisabledOpacity = 0.4;

QPixmap Render(const QString& key, const QSize& pixels, const QColor& ink) {
  RegisterIcons();
  QFile file(QStringLiteral(":/icons/") + key);
  if (!file.open(QIODevice::ReadOnly)) return {};
  QSvgRenderer drawing(file.readAll().replace(kInkInFiles, ink.name().toLatin1()));
  QPixmap picture(pixels);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  drawing.render(&painter);
  return picture;
}

QPixmap Picture(const QString& key, const QSize& pixels, const QColor& ink) {
  const QString cacheKey =
      QStringLiteral("drawn/%1/%2/%3/%4").arg(key).arg(pixels.width()).arg(pixels.height()).arg(ink.name());
  QPixmap picture;
  if (QPixmapCache::find(cacheKey, &picture)) return picture;
  picture = Render(key, pixels, ink);
  QPixmapCache::insert(cacheKey, picture);
  return picture;
}

class DrawnIconEngine : public QIconEngine {
 public:
  DrawnIconEngine(const QString& key, const QColor& ink) : m_key(key), m_ink(ink) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    painter->save();
    if (mode == QIcon::Disabled) painter->setOpacity(painter->opacity() * kDisabledOpacity);
    PaintDrawnIcon(*painter, m_key, rect, m_ink);
    painter->restore();
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, picture.rect(), mode, state);
    return picture;
  }
  QIconEngine* clone() const override { return new DrawnIconEngine(*this); }

 private:
  QString m_key;
  QColor m_ink;
};

}  // namespace

void PaintDrawnIcon(QPainter& painter, const QString& key, const QRect& target, const QColor& ink) {
  const double scale = painter.device()->devicePixelRatio();
  painter.drawPixmap(target, Picture(key, (QSizeF(target.size()) * scale).toSize(), ink));
}

QIcon DrawnIcon(const QString& key, const QColor& ink) {
  return QIcon(new DrawnIconEngine(key, ink));
}

}  // namespace snipdeck
