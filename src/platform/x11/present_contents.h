#pragma once

#include <memory>
#include <vector>

#include <QByteArray>

#include "platform/result.h"
#include "platform/x11/foreign_contents.h"
#include "platform/x11/own_contents.h"

namespace snipdeck {

/// What the clipboard holds at this moment, whoever put it there, and how to put something else there. What is this
/// program's own is read without the X server.
class PresentContents {
 public:
  explicit PresentContents(WaitLimits limits = {}) : m_foreign(limits) {}

  std::vector<QByteArray> Targets();
  Result<QByteArray> Read(const QByteArray& target);
  /// Everything that is there and can be read within a second and 256 MB; what cannot is left out. Text is read once,
  /// under its best name.
  OfferedData ReadAll();

  /// Makes this program the owner of these targets. A failure leaves the clipboard as it was.
  Outcome Replace(const OfferedData& offers);
  /// As Replace, but what the present owner offers under other names stays.
  Outcome Add(const OfferedData& offers);
  /// Leaves nothing there.
  Outcome Clear();
  /// The owner is another program that does not answer.
  bool OwnerIsSilent() const;
  xcb_window_t Owner() { return m_foreign.Owner(); }

 private:
  bool Own(const OfferedData& offers);

  ForeignContents m_foreign;
};

/// The names under which a text is offered.
OfferedData OffersOfText(const QString& text);
/// The names under which RTF is offered.
OfferedData OffersOfRtf(const QByteArray& rtf);

}  // namespace snipdeck
