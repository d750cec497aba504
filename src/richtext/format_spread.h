#pragma once

#include <QTextFormat>

#include "richtext/text_flow.h"

namespace snipdeck {

/// Qt's table of a document's formats takes lists (of font families, tab stops, column widths) for alike when they are equally
/// long, and then compares one after the other: with thousands of them a text takes minutes. A number that is made
/// of the list, kSpread, keeps them apart.

/// For the formats of a text that has so many that it matters.
void SpreadFormats(FlowFormats& formats);

void SpreadTableFormat(QTextTableFormat& format);

}  // namespace snipdeck
