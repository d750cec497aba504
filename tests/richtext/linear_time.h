#pragma once

#include <algorithm>
#include <ctime>
#include <functional>

#include <QByteArray>
#include <QString>

namespace snipdeck::test {

/// About `bytes` bytes of `unit`, in which every "#" stands for the number of the repetition.
inline QByteArray Repeated(const QByteArray& unit, qsizetype bytes) {
  QByteArray all;
  for (int i = 1; all.size() < bytes; ++i) all += QByteArray(unit).replace('#', QByteArray::number(i));
  return all;
}

/// Ten times the input may take no more than thirty times the processor time: a square would take a hundred times.
/// Empty, or what it took instead.
inline QString GrowsTooFast(const QByteArray& unit, const std::function<void(const QByteArray&)>& work) {
  const auto time = [&](qsizetype bytes) {
    const QByteArray input = Repeated(unit, bytes);
    const std::clock_t begin = std::clock();
    work(input);
    return std::max<std::clock_t>(std::clock() - begin, CLOCKS_PER_SEC / 200);
  };
  const std::clock_t small = time(60'000);
  const std::clock_t large = time(600'000);
  return large < 30 * small ? QString() : QStringLiteral("%1 to %2").arg(small).arg(large);
}

}  // namespace snipdeck::test
