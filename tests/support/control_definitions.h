#pragma once
// A bare control definition for tests of single control records.

#include "controls/control.h"

namespace korvane::testing {

inline ControlDefinition named(const char* name, ControlKind kind) {
  ControlDefinition definition;
  definition.name = name;
  definition.kind = kind;
  return definition;
}

}  // namespace korvane::testing
