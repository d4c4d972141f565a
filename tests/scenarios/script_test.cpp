#include "scenario/script.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "scenario/escapes.h"

namespace korvane::scenario {
namespace {

TEST(Escapes, ScriptTextMeansTheTextAndTheTranscriptWritesItBack) {
  const struct {
    std::string script, text;
  } cases[] = {{"C:/Objects/barrel 2.kob", "C:/Objects/barrel 2.kob"},
               {"a\\nb\\r\\tx", "a\nb\r\tx"},
               {"Software\\\\Korvane", "Software\\Korvane"},
               {"\\\\n", "\\n"},
               {"", ""}};
  for (const auto& c : cases) {
    EXPECT_EQ(unescapeText(c.script), c.text) << c.script;
    EXPECT_EQ(escapeText(c.text), c.script) << c.script;
  }
  // A blank is written as it stands; "\s" only keeps one at an end of an argument.
  EXPECT_EQ(unescapeText("\\sa b\\s"), " a b ");
  EXPECT_EQ(escapeText(" a "), " a ");
}

TEST(Commands, ParseIntoVerbNameAndArgument) {
  const struct {
    std::string line;
    Verb verb;
    std::string name, text;
    long long number = 0;
  } cases[] = {
      {"  type  txtTextureMap   my  wood.tga  \r", Verb::Type, "txtTextureMap", "my  wood.tga"},
      {"type txtTextureMap \\s\\s", Verb::Type, "txtTextureMap", "  "},
      {"slide sldColorKey2 -4", Verb::Slide, "sldColorKey2", "", -4},
      {"slide sldColorKey2 +4", Verb::Slide, "sldColorKey2", "", 4},
      {"alt d", Verb::Alt, "", "d"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    const std::optional<Command> command = parseCommand(c.line, 7);
    ASSERT_TRUE(command.has_value());
    EXPECT_EQ(command->verb, c.verb);
    EXPECT_EQ(command->name, c.name);
    EXPECT_EQ(command->text, c.text);
    EXPECT_EQ(command->number, c.number);
    EXPECT_EQ(command->lineNumber, 7);
  }
  EXPECT_EQ(parseCommand("  type txtTextureMap a\\sb \r", 1)->line, "type txtTextureMap a\\sb");
  for (const char* skipped : {"", "   \t\r", "# click btnExit"}) EXPECT_FALSE(parseCommand(skipped, 1));
}

TEST(Commands, KeysAreNamedKeysBracesAndText) {
  const std::vector<KeyStroke> keys{{Key::Home, {}}, {Key::Text, "0{x} "}, {Key::PgDn, {}}, {Key::End, {}}};
  EXPECT_EQ(parseCommand("keys mskColorKey0 {Home}0{{x}}\\s{PgDn}{End}", 1)->keys, keys);
  EXPECT_EQ(parseCommand("key sldColorKey1 {Left}", 1)->keys, (std::vector<KeyStroke>{{Key::Left, {}}}));
}

TEST(Commands, ABadLineIsRefusedSayingWhatIsWrong) {
  const struct {
    std::string line, error;
  } cases[] = {
      {"Click btnExit", "unknown command \"Click\""},
      {"click", "click needs a control name"},
      {"click btnExit now", "click takes nothing after the name"},
      {"start now", "start takes nothing after it"},
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
      EXPECT_EQ(error.lineNumber(), 12);
      EXPECT_EQ(std::string(error.what()), c.error);
    }
  }
}

}  // namespace
}  // namespace korvane::scenario
