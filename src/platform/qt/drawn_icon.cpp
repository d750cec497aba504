#include "platform/qt/drawn_icon.h"

#include <algorithm>
#include <array>

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include "platform/readable_colour.h"

// Outside the namespace, as Qt asks: a static library's resources are registered by whoever needs them.
static void RegisterIcons() {
  Q_INIT_RESOURCE(icons);
}

namespace snipdeck {

namespace {

constexpr char kInkInFiles[] = "#1b2431";
constexpr std::array kAccentsInFiles = {"#2f7fd6", "#1f5fae", "#e8a317", "#d6453d", "#2f9e44"};
constexpr double kLeastContrast = 1.8;
constexpr double kDisabledOpacity = 0.4;

double Contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({Lightness(one), Lightness(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

QColor Mixed(const QColor& colour, const QColor& ink, float share) {
  const auto mix = [share](float from, float to) { return from + (to - from) * share; };
  return QColor::fromRgbF(mix(colour.redF(), ink.redF()), mix(colour.greenF(), ink.greenF()),
                          mix(colour.blueF(), ink.blueF()));
}

// As little of the ink as makes the accent stand out.
QColor AccentOn(const QColor& accent, const QColor& ink, const QColor& ground) {
  constexpr int kSteps = 8;
  QColor colour = accent;
  for (int step = 1; step <= kSteps && Contrast(colour, ground) < kLeastContrast; ++step)
    colour = Mixed(accent, ink, static_cast<float>(step) / kSteps);
  return colour;
}

QByteArray Coloured(QByteArray drawing, const QColor& ink, const QColor& ground) {
  for (const char* accent : kAccentsInFiles) {
    if (ground.isValid()) drawing.replace(accent, AccentOn(QColor(accent), ink, ground).name().toLatin1());
  }
  return drawing.replace(kInkInFiles, ink.name().toLatin1());
}

QPixmap Render(const QString& key, const QSize& pixels, const QColor& ink, const QColor& ground) {
  RegisterIcons();
  QFile file(QStringLiteral(":/icons/") + key);
  if (!file.open(QIODevice::ReadOnly)) return {};
  QSvgRenderer drawing(Coloured(file.readAll(), ink, ground));
  QPixmap picture(pixels);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  drawing.render(&painter);
  return picture;
}

QPixmap Picture(const QString& key, const QSize& pixels, const QColor& ink, const QColor& ground) {
  const QString colours = ground.isValid() ? ink.name() + ground.name() : ink.name();
  const QString cacheKey =
      QStringLiteral("drawn/%1/%2/%3/%4").arg(key).arg(pixels.width()).arg(pixels.height()).arg(colours);
  QPixmap picture;
  if (QPixmapCache::find(cacheKey, &picture)) return picture;
  picture = Render(key, pixels, ink, ground);
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

void PaintDrawnIcon(QPainter& painter, const QString& key, const QRect& target, const QColor& ink,
                    const QColor& ground) {
  const double scale = painter.device()->devicePixelRatio();
  painter.drawPixmap(target, Picture(key, (QSizeF(target.size()) * scale).toSize(), ink, ground));
}

QIcon DrawnIcon(const QString& key, const QColor& ink) {
  return QIcon(new DrawnIconEngine(key, ink));
}

}  // namespace snipdeck
