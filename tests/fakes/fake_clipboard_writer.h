#pragma once

#include <QStringList>

#include "platform/clipboard_writer.h"

namespace snipdeck {

/// A clipboard that remembers what was put on it, and in which order it was called.
class FakeClipboardWriter : public ClipboardWriter {
 public:
  Outcome EmptyClipboard() override {
    calls.append("empty");
    offer = {};
    return Done{};
  }
  Outcome PutRichText(const TextOffer& given) override {
    calls.append("put");
    offer = given;
    return Done{};
  }
  Outcome AddRtf(const QByteArray& rtf) override {
    calls.append("add");
    offer.rtf = rtf;
    return Done{};
  }
  Outcome HandOverAtExit() override {
    calls.append("hand over");
    return Done{};
  }

  TextOffer offer;
  QStringList calls;
};

}  // namespace snipdeck
