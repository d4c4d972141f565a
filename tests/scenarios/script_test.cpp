#include "scenario/script.h"

#include <gtest/gtest.h>

#include "scenario/escapes.h"

namespace korvane::scenario {
namespace {

// The scenarios parse every verb; these are the corners none of them writes.
TEST(Commands, CornersOfAGoodLine) {
  const Command typed = parseCommand("  type  txtTextureMap   my  wood\\\\\\s \r", 7).value();
  EXPECT_TRUE(typed.verb == Verb::Type && typed.lineNumber == 7);
  EXPECT_EQ(typed.name + "|" + typed.text + "|" + typed.line,
            "txtTextureMap|my  wood\\ |type  txtTextureMap   my  wood\\\\\\s");
  EXPECT_EQ(parseCommand("slide sldColorKey2 +4", 1)->number, 4);
  EXPECT_EQ(parseCommand("keys mskColorKey0 {{x}}{PgDn}", 1)->keys,
            (std::vector<KeyStroke>{{Key::Text, "{x}"}, {Key::PgDn, {}}}));
  EXPECT_EQ(escapeText("a\\b\r\t"), "a\\\\b\\r\\t");
}

TEST(Commands, ABadLineIsRefusedSayingWhatIsWrong) {
  const struct {
    std::string line, error;
  } cases[] = {
      {"Click btnExit", "unknown command \"Click\""},
      {"click", "click needs a control name"},
      {"click btnExit now", "click takes nothing after the name"},
      {"tab now", "tab takes nothing after it"},
      {"cwd  ", "cwd needs a text"},
      {"scroll vscrlColorKey0", "scroll needs a whole number, not \"\""},
      {"slide sldColorKey0 1.5", "slide needs a whole number, not \"1.5\""},
      {"type txtTextureMap C:\\tex\\wood.tga", "unknown escape \\w"},
      {"answer end\\", "a backslash at the end of the text"},
      {"keys mskColorKey0", "keys needs a text"},
      {"keys mskColorKey0 {Enter}", "unknown key {Enter}"},
      {"keys mskColorKey0 {Home", "a { with no } (write {{ for a brace)"},
      {"keys mskColorKey0 a}b", "a lone } (write }} for a brace)"},
      {"key sldColorKey0 {Up}", "key presses only {Left} {Right} {PgUp} {PgDn} {Home} {End}"},
      {"arrow vscrlColorKey0 top", "arrow needs one of up down left right, not \"top\""},
      {"track vscrlColorKey0", "track needs one of before after, not \"\""},
      {"alt sd", "alt needs one letter or digit, not \"sd\""},
  };
  for (const auto& c : cases) {
    try {
      parseCommand(c.line, 12);
      ADD_FAILURE() << "accepted: " << c.line;
    } catch (const ScriptError& error) {
      EXPECT_EQ(std::to_string(error.lineNumber()) + ": " + error.what(), "12: " + c.error);
    }
  }
}

}  // namespace
}  // namespace korvane::scenario
