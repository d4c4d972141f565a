#pragma once
// How a record's values stand on its widget: one mapping for the windows, the
// scenario driver and its screen check. A field's display format is the
// logic's own (FormatAutoLODForDisplay).

#include <Qt>

namespace korvane {

// Check box Value 0, 1 and 2: unchecked, checked and grayed.
Qt::CheckState checkStateOfValue(int value);
int valueOfCheckState(Qt::CheckState state);

// A bar's widget runs from 0 at its top, where the record's Min stands, down
// to its Max, whichever of the two is larger.
long long barPosition(long long min, long long max, long long recordValue);
long long barRecordValue(long long min, long long max, long long position);

}  // namespace korvane
