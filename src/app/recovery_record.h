#pragma once

#include <cstdint>
#include <optional>

#include <QByteArray>

namespace snipdeck {

/// One step on the way to what the boxes hold, as the recovery file keeps it.
struct RecoveryRecord {
  enum class Kind : std::uint8_t {
    Capture,  ///< A copy was filed into a box and appended to the cumulative text.
    Whole,    ///< The user has changed a text: all of it, as RTF.
    Splice,   ///< The user has changed a part of a long text: what stands there now, as RTF.
    Filing,   ///< A copy was filed into a box; splices bring what it appended to the cumulative text.
  };
  enum class Encoding : std::uint8_t { Text, Rtf, Html };

  static constexpr std::uint8_t kCumulative = 13;

  Kind kind = Kind::Capture;
  /// Box 1 to 12, or kCumulative.
  std::uint8_t target = 1;
  Encoding encoding = Encoding::Text;
  /// Of a splice: where the replaced part begins, and how many characters it had.
  std::int32_t begin = 0;
  std::int32_t removed = 0;
  QByteArray content;

  bool IsCopy() const { return kind == Kind::Capture || kind == Kind::Filing; }
  bool operator==(const RecoveryRecord&) const = default;
};

/// The record as bytes that carry their own length and checksum.
QByteArray Encode(const RecoveryRecord& record);

/// Takes the record that `bytes` begins with away from there; nothing where they begin with no whole, sound record.
std::optional<RecoveryRecord> TakeRecord(QByteArrayView& bytes);

}  // namespace snipdeck
