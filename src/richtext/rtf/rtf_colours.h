#pragma once

#include <vector>

#include <QRgb>

#include "richtext/rtf/rtf_destination.h"

namespace snipdeck {

/// The colour table, as destination and as look-up.
class RtfColours : public RtfDestination {
 public:
  /// The colour of an index; fully transparent for "automatic" and for an index that the table does not have.
  QRgb Find(int index) const;
  /// Shading: `percent` hundredths of a percent of the foreground over the background; transparent when there is none.
  QRgb Shade(int background, int foreground, int percent) const;

  void Text(QStringView text) override;
  bool Word(std::string_view word, int value, bool hasValue) override;
  void Close() override;

 private:
  void Store();

  std::vector<QRgb> m_colours;
  int m_parts[3] = {0, 0, 0};
  bool m_given = false;
};

}  // namespace snipdeck
