#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QRandomGenerator>

namespace snipdeck {

/// Mixed prose in RTF, of about `bytes` bytes: 400 bytes a paragraph, one run in seven formatted.
inline QByteArray MixedProse(qsizetype bytes) {
  static const QByteArrayList kWords = {"the",         "clipboard", "collects", "every", "text", "that",
                                        "caf\\'e9",    "programs",  "copy",     "with",  "its",  "form",
                                        "\\u8364?uro", "and",       "keeps",    "them"};
  static const QByteArrayList kFormats = {"\\b ", "\\i ", "\\ul ", "\\cf1 ", "\\fs32 ", "\\f1 "};
  constexpr quint32 kSeed = 20;
  QRandomGenerator random(kSeed);
  QByteArray rtf =
      "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0 Times New Roman;}{\\f1 Arial;}}{\\colortbl;\\red255;}\\fs24 ";
  while (rtf.size() < bytes) {
    const qsizetype start = rtf.size();
    while (rtf.size() - start < 385) {
      QByteArray run;
      for (int i = 0; i < 8; ++i) run += kWords[random.bounded(16)] + ' ';
      rtf += random.bounded(7) == 0 ? '{' + kFormats[random.bounded(6)] + run + '}' : run;
    }
    rtf += "\\par\n";
  }
  return rtf + '}';
}

}  // namespace snipdeck
