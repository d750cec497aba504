#pragma once

#include <string_view>

#include <QByteArrayView>
#include <QString>

namespace snipdeck {

/// What receives the contents of a group: the body, a table at the head of the stream, a picture, or nothing at all.
class RtfDestination {
 public:
  virtual ~RtfDestination() = default;

  /// Characters, decoded.
  virtual void Text(QStringView) {}
  /// Whether the characters are to be seen, in the font of their group.
  virtual bool ShowsText() const { return false; }
  /// Undecoded bytes of text; true when the destination takes them so.
  virtual bool Raw(QByteArrayView) { return false; }
  virtual void Binary(QByteArrayView) {}
  /// A control word, before the common handlers see it; true when nothing is left to do.
  virtual bool Word(std::string_view, int /*value*/, bool /*hasValue*/) { return false; }
  /// A group within the destination's own begins or ends. The state is still that of the inner group at its end.
  virtual void GroupStart() {}
  virtual void GroupEnd() {}
  /// The destination's own group ends.
  virtual void Close() {}
};

/// Takes in everything and keeps nothing.
class RtfSkip : public RtfDestination {
 public:
  bool Raw(QByteArrayView) override { return true; }
  bool Word(std::string_view, int, bool) override { return true; }
};

/// Collects plain characters into a string of somebody else's.
class RtfStringCollector : public RtfDestination {
 public:
  explicit RtfStringCollector(QString& target) : m_target(target) {}
  void Text(QStringView text) override {
    if (m_target.size() < kMaxLength) m_target.append(text);
  }

 private:
  static constexpr qsizetype kMaxLength = 64 * 1024;
  QString& m_target;
};

/// The same with a label, as it stands in front of a paragraph.
class RtfLabelCollector : public RtfStringCollector {
 public:
  using RtfStringCollector::RtfStringCollector;
  bool ShowsText() const override { return true; }
};

}  // namespace snipdeck
