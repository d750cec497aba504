#include "richtext/rtf/rtf_colours.h"

#include <algorithm>

#include <QColor>

namespace snipdeck {
namespace {

constexpr std::size_t kMaxColours = 32000;
constexpr int kWholeShade = 10000;

}  // namespace

QRgb RtfColours::Find(int index) const {
  return index >= 0 && static_cast<std::size_t>(index) < m_colours.size() ? m_colours[static_cast<std::size_t>(index)]
                                                                          : 0;
}

QRgb RtfColours::Shade(int background, int foreground, int percent) const {
  // 0 means none, also where the table begins with a colour: that one is for the text.
  const QRgb below = background > 0 ? Find(background) : 0;
  if (percent <= 0) return below;
  const QRgb above = qAlpha(Find(foreground)) ? Find(foreground) : qRgb(0, 0, 0);
  const QRgb ground = qAlpha(below) ? below : qRgb(255, 255, 255);
  const int share = std::min(percent, kWholeShade);
  const auto mix = [share](int over, int under) { return under + (over - under) * share / kWholeShade; };
  return qRgb(mix(qRed(above), qRed(ground)), mix(qGreen(above), qGreen(ground)), mix(qBlue(above), qBlue(ground)));
}

void RtfColours::Text(QStringView text) {
  for (const QChar c : text) {
    if (c == QLatin1Char(';')) Store();
  }
}

bool RtfColours::Word(std::string_view word, int value, bool) {
  const int part = word == "red" ? 0 : word == "green" ? 1 : word == "blue" ? 2 : -1;
  if (part < 0) return false;
  m_parts[part] = std::clamp(value, 0, 255);
  m_given = true;
  return true;
}

void RtfColours::Close() {
  if (m_given) Store();
}

void RtfColours::Store() {
  if (m_colours.size() < kMaxColours) m_colours.push_back(m_given ? qRgb(m_parts[0], m_parts[1], m_parts[2]) : 0);
  std::fill(std::begin(m_parts), std::end(m_parts), 0);
  m_given = false;
}

}  // namespace snipdeck
