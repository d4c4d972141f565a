#include "scenario/script.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <sstream>
#include <string>

#include "scenario/escapes.h"

namespace korvane::scenario {
namespace {

// ---- Escapes --------------------------------------------------------------

struct EscapeCase {
  const char* name;
  std::string script;  // as written in a script
  std::string text;    // what it means
  friend std::ostream& operator<<(std::ostream& out, const EscapeCase& c) { return out << c.name; }
};

class EscapesRoundTrip : public ::testing::TestWithParam<EscapeCase> {};

TEST_P(EscapesRoundTrip, ScriptTextMeansTheTextAndTheTranscriptWritesItBack) {
  const EscapeCase& c = GetParam();
  EXPECT_EQ(unescapeText(c.script), c.text);
  EXPECT_EQ(escapeText(c.text), c.script);
}

INSTANTIATE_TEST_SUITE_P(
    Table, EscapesRoundTrip,
    ::testing::Values(EscapeCase{"PlainTextStays", "C:/Objects/barrel 2.kob", "C:/Objects/barrel 2.kob"},
                      EscapeCase{"LineFeed", "a\\nb", "a\nb"}, EscapeCase{"CarriageReturn", "a\\r", "a\r"},
                      EscapeCase{"Tab", "\\tx", "\tx"},
                      EscapeCase{"Backslash", "Software\\\\Korvane", "Software\\Korvane"},
                      EscapeCase{"BackslashBeforeN", "\\\\n", "\\n"},
                      EscapeCase{"TwoLineFeedsThenNumber", "GetRegStr \\n\\n 5 - x", "GetRegStr \n\n 5 - x"},
                      EscapeCase{"Empty", "", ""}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(Escapes, BlankEscapeReadsAsABlankAndIsWrittenAsOne) {
  EXPECT_EQ(unescapeText("\\sa b\\s"), " a b ");
  EXPECT_EQ(escapeText(" a "), " a ");
}

TEST(Escapes, ABackslashThatStartsNoEscapeIsRefused) {
  EXPECT_THROW(unescapeText("C:\\Objects"), std::invalid_argument);
  EXPECT_THROW(unescapeText("end\\"), std::invalid_argument);
}

// ---- Commands -------------------------------------------------------------

struct CommandCase {
  const char* name;
  std::string line;
  Verb verb;
  std::string controlName;
  std::string text;
  long long number = 0;
  friend std::ostream& operator<<(std::ostream& out, const CommandCase& c) { return out << c.name; }
};

class CommandParses : public ::testing::TestWithParam<CommandCase> {};

TEST_P(CommandParses, IntoVerbNameAndArgument) {
  const CommandCase& c = GetParam();
  const std::optional<Command> command = parseCommand(c.line, 7);
  ASSERT_TRUE(command.has_value());
  EXPECT_EQ(command->verb, c.verb);
  EXPECT_EQ(command->name, c.controlName);
  EXPECT_EQ(command->text, c.text);
  EXPECT_EQ(command->number, c.number);
  EXPECT_EQ(command->lineNumber, 7);
}

INSTANTIATE_TEST_SUITE_P(
    Table, CommandParses,
    ::testing::Values(
        CommandCase{"TypeKeepsInnerBlanks", "type txtTextureMap my  wood.tga", Verb::Type, "txtTextureMap",
                    "my  wood.tga"},
        CommandCase{"TypeWithoutTextDeletes", "type mskColorKey1", Verb::Type, "mskColorKey1", ""},
        CommandCase{"BlanksAroundTheTextAreNotPartOfIt", "  type  txtTextureMap   a b  \r", Verb::Type,
                    "txtTextureMap", "a b"},
        CommandCase{"EscapedBlanksAreKept", "type txtTextureMap \\s\\s", Verb::Type, "txtTextureMap", "  "},
        CommandCase{"AnswerTakesTheRestOfTheLine", "answer out dir/new file.kob", Verb::Answer, "",
                    "out dir/new file.kob"},
        CommandCase{"StoredWithoutText", "stored", Verb::Stored, "", ""},
        CommandCase{"StoredWithEscapes", "stored C:\\\\Objects", Verb::Stored, "", "C:\\Objects"},
        CommandCase{"ScrollNumber", "scroll vscrlColorKey0 255", Verb::Scroll, "vscrlColorKey0", "", 255},
        CommandCase{"SlideNegativeNumber", "slide sldColorKey2 -4", Verb::Slide, "sldColorKey2", "", -4},
        CommandCase{"SlidePlusSign", "slide sldColorKey2 +4", Verb::Slide, "sldColorKey2", "", 4},
        CommandCase{"CloseSettings", "close-settings", Verb::CloseSettings, "", ""},
        CommandCase{"QualifiedName", "print frmAdvancedSettings.Frame1", Verb::Print,
                    "frmAdvancedSettings.Frame1", ""}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(Commands, BlankLinesAndCommentsAreSkipped) {
  EXPECT_FALSE(parseCommand("", 1).has_value());
  EXPECT_FALSE(parseCommand("   \t\r", 1).has_value());
  EXPECT_FALSE(parseCommand("# click btnExit", 1).has_value());
}

TEST(Commands, TheLineIsKeptAsWrittenForTheTranscript) {
  EXPECT_EQ(parseCommand("  click btnSaveAs \r", 1)->line, "click btnSaveAs");
  EXPECT_EQ(parseCommand("type txtTextureMap a\\sb", 1)->line, "type txtTextureMap a\\sb");
}

struct BadLineCase {
  const char* name;
  std::string line;
  std::string error;
  friend std::ostream& operator<<(std::ostream& out, const BadLineCase& c) { return out << c.name; }
};

class BadLineIsRefused : public ::testing::TestWithParam<BadLineCase> {};

TEST_P(BadLineIsRefused, WithItsLineNumberAndWhatIsWrong) {
  const BadLineCase& c = GetParam();
  try {
    parseCommand(c.line, 12);
    FAIL() << "accepted: " << c.line;
  } catch (const ScriptError& error) {
    EXPECT_EQ(error.lineNumber(), 12);
    EXPECT_EQ(std::string(error.what()), c.error);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Table, BadLineIsRefused,
    ::testing::Values(
        BadLineCase{"UnknownCommand", "press btnExit", "unknown command \"press\""},
        BadLineCase{"CommandIsCaseSensitive", "Click btnExit", "unknown command \"Click\""},
        BadLineCase{"ClickWithoutName", "click", "click needs a control name"},
        BadLineCase{"ClickWithText", "click btnExit now", "click takes nothing after the name"},
        BadLineCase{"StartWithText", "start now", "start takes nothing after it"},
        BadLineCase{"AnswerWithoutPath", "answer", "answer needs a text"},
        BadLineCase{"CwdWithoutDirectory", "cwd  ", "cwd needs a text"},
        BadLineCase{"ScrollWithoutNumber", "scroll vscrlColorKey0", "scroll needs a whole number, not \"\""},
        BadLineCase{"ScrollWithWord", "scroll vscrlColorKey0 top",
                    "scroll needs a whole number, not \"top\""},
        BadLineCase{"SlideWithFraction", "slide sldColorKey0 1.5", "slide needs a whole number, not \"1.5\""},
        BadLineCase{"BadEscape", "type txtTextureMap C:\\tex\\wood.tga", "unknown escape \\w"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(ScriptReader, CountsEveryLineAndStopsAtTheEnd) {
  std::istringstream in("# a session\n\nstart\r\n  \nclick btnExit\n");
  ScriptReader reader(in);
  std::optional<Command> first = reader.next();
  ASSERT_TRUE(first.has_value());
  EXPECT_EQ(first->verb, Verb::Start);
  EXPECT_EQ(first->lineNumber, 3);
  std::optional<Command> second = reader.next();
  ASSERT_TRUE(second.has_value());
  EXPECT_EQ(second->lineNumber, 5);
  EXPECT_FALSE(reader.next().has_value());
}

TEST(ScriptReader, ABadLineNamesItsNumber) {
  std::istringstream in("start\n\nclick\n");
  ScriptReader reader(in);
  reader.next();
  try {
    reader.next();
    FAIL() << "a name was missing";
  } catch (const ScriptError& error) {
    EXPECT_EQ(error.lineNumber(), 3);
  }
}

}  // namespace
}  // namespace korvane::scenario
