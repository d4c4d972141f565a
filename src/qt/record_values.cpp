#include "qt/record_values.h"

namespace korvane {

Qt::CheckState checkStateOfValue(int value) {
  switch (value) {
    case 1:
      return Qt::Checked;
    case 2:
      return Qt::PartiallyChecked;
    default:
      return Qt::Unchecked;
  }
}

int valueOfCheckState(Qt::CheckState state) {
  switch (state) {
    case Qt::Checked:
      return 1;
    case Qt::PartiallyChecked:
      return 2;
    default:
      return 0;
  }
}

long long barPosition(long long min, long long max, long long recordValue) {
  return min <= max ? recordValue - min : min - recordValue;
}

long long barRecordValue(long long min, long long max, long long position) {
  return min <= max ? min + position : min - position;
}

}  // namespace korvane
