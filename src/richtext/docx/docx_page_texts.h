#pragma once

#include <QStringList>

namespace snipdeck {

/// The relationships of the parts that hold the headers and footers of a document's sections, in their order. Those of
/// first pages and of even ones are left out.
struct DocxPageTexts {
  QStringList headers;
  QStringList footers;
};

}  // namespace snipdeck
