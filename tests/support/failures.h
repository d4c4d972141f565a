#pragma once
// The number of the run-time failure an action throws, 0 when it throws none.

#include "runtime/failure.h"

namespace korvane::testing {

inline int failureNumberOf(auto&& action) {
  try {
    action();
  } catch (const RuntimeFailure& failure) {
    return failure.number();
  }
  return 0;
}

}  // namespace korvane::testing
