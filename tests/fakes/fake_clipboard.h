#pragma once

#include "platform/change_watch.h"
#include "platform/clipboard.h"

namespace snipdeck {

/// A clipboard that holds what a test puts on it.
class FakeClipboard : public Clipboard {
 public:
  void HoldText(const QString& text) {
    m_snapshot = {};
    m_snapshot.hasText = true;
    m_snapshot.text = text;
  }
  void HoldRtf(const QByteArray& rtf, const QString& text) {
    HoldText(text);
    m_snapshot.hasRichText = true;
    m_snapshot.richText = {RichTextPayload::Encoding::Rtf, rtf};
  }
  void Hold(const ClipboardSnapshot& snapshot) { m_snapshot = snapshot; }

  bool HasFormat(ClipboardFormat format) const override {
    switch (format) {
      case kFormatRichText:
        return m_snapshot.hasRichText;
      case kFormatText:
        return m_snapshot.hasText;
      case kFormatBitmap:
        return m_snapshot.hasBitmap;
      case kFormatFileList:
        return m_snapshot.hasFileList;
      default:
        return false;
    }
  }
  RichTextPayload RichText() const override { return m_snapshot.richText; }
  QString Text() const override { return m_snapshot.text; }
  QStringList FileList() const override { return m_snapshot.files; }

 private:
  ClipboardSnapshot m_snapshot;
};

/// A watch that tells of a change when the test says so.
class FakeChangeWatch : public ChangeWatch {
 public:
  void StartWatching(Handler onChange) override { m_onChange = std::move(onChange); }
  void StopWatching() override { m_onChange = nullptr; }
  void Hold(bool hold) override { isHeld = hold; }
  bool IsWatching() const { return static_cast<bool>(m_onChange); }
  void TellChange() {
    if (m_onChange) m_onChange();
  }
  bool isHeld = false;

 private:
  Handler m_onChange;
};

}  // namespace snipdeck
