#pragma once

#include <QList>

#include "app/recovery_record.h"
#include "capture/box_set.h"

namespace snipdeck {

/// Goes the way that the records tell once more: afterwards `CapturedRtf` holds what every box showed, the cumulative
/// box its text, and `CurrentBox` the box of the last copy. The boxes themselves are left empty.
void ReplayRecords(const QList<RecoveryRecord>& records, BoxSet& boxes);

/// Puts one edit, whole or splice, into the control that it was made in.
void ReplayEdit(const RecoveryRecord& record, RichTextControl& control);

}  // namespace snipdeck
