// A window's table: a row is found by its name only, and a name the program
// asks for that the table lacks, or a name written twice, is a fault of the
// program rather than a control made from nothing.

#include "controls/window_definition.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace korvane {
namespace {

TEST(WindowDefinitionTest, FindsRowsByExactNameAndRefusesUnknownOrRepeatedNames) {
  const WindowDefinition window(
      {"frmTest", "Test", 100, 100},
      {{.name = "btnOK", .caption = "OK"}, {.name = "Frame1", .kind = ControlKind::Frame}});
  EXPECT_EQ(window.control("btnOK").caption, "OK");
  EXPECT_EQ(window.find("Frame1")->kind, ControlKind::Frame);
  for (const char* absent : {"btnok", "btnOK ", "", "Frame"}) {
    EXPECT_EQ(window.find(absent), nullptr) << absent;
    EXPECT_THROW(window.control(absent), std::logic_error) << absent;
  }
  EXPECT_THROW(WindowDefinition({"frmTest", "Test", 1, 1}, {{.name = "a"}, {.name = "b"}, {.name = "a"}}),
               std::logic_error);
}

}  // namespace
}  // namespace korvane
