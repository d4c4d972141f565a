#include "advanced/autolod.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "advanced/advanced_settings_window.h"
#include "runtime/failure.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

// --- The normal form -----------------------------------------------------

struct NormalCase {
  const char* name;
  std::string text;
  std::string normal;
};

void PrintTo(const NormalCase& c, std::ostream* os) {
  *os << c.name;
}

class NormalForm : public ::testing::TestWithParam<NormalCase> {};

TEST_P(NormalForm, ThreeDecimalsHalvesToEven) {
  EXPECT_EQ(NormalizeAutoLOD(GetParam().text), GetParam().normal);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, NormalForm,
    ::testing::Values(
        NormalCase{"EmptyIsZero", "", "0.000"}, NormalCase{"PadsToThreeDecimals", "0.25", "0.250"},
        NormalCase{"DigitAddedBeforeThePoint", ".5", "0.500"},
        NormalCase{"RoundsUpBeyondTheHalf", "0.2506", "0.251"},
        NormalCase{"ExactHalfGoesDownToEven", "0.0625", "0.062"},
        NormalCase{"ExactHalfGoesUpToEven", "0.1875", "0.188"},
        NormalCase{"NegativeKeepsItsSign", "-1", "-1.000"}, NormalCase{"CommaEndsTheNumber", "1,5", "1.000"},
        NormalCase{"TrailingLettersIgnored", "12abc", "12.000"}, NormalCase{"NoNumberIsZero", "abc", "0.000"},
        // Decided on the decimal digits as written, not on the binary value.
        NormalCase{"DecimalHalfBelowBinaryGoesToEven", "1.0005", "1.000"},
        NormalCase{"DecimalHalfAboveBinaryGoesToEven", "0.0005", "0.000"},
        NormalCase{"DecimalHalfToEvenUp", "0.0015", "0.002"},
        // Sixteen digits would read this one as 0.008500000000000001.
        NormalCase{"HalfWhoseSixteenthDigitIsNotZero", "0.0085", "0.008"},
        NormalCase{"ExponentHalfToEven", "2.5e-3", "0.002"},
        NormalCase{"NegativeRoundingToZeroHasNoSign", "-0.0004", "0.000"},
        NormalCase{"NegativeRoundsAwayFromZero", "-0.0006", "-0.001"},
        NormalCase{"CarryReachesANewDigit", "999.9996", "1000.000"},
        NormalCase{"NoThousandsSeparator", "1234567", "1234567.000"},
        NormalCase{"BlanksAheadSkipped", "  7", "7.000"}, NormalCase{"TinyIsZero", "1e-300", "0.000"},
        NormalCase{"HugeWritesAllDigits", "1e300", "1" + std::string(300, '0') + ".000"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(NormalFormFailure, NumberBeyondTheRealRangeIsOverflow) {
  try {
    NormalizeAutoLOD("1e999");
    FAIL() << "no failure";
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.number(), 6);
  }
}

struct DisplayCase {
  const char* name;
  std::string text;
  std::string shown;
};

void PrintTo(const DisplayCase& c, std::ostream* os) {
  *os << c.name;
}

class Display : public ::testing::TestWithParam<DisplayCase> {};

TEST_P(Display, NumbersThroughTheFormatOtherTextAsItStands) {
  EXPECT_EQ(FormatAutoLODForDisplay(GetParam().text), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Display,
    ::testing::Values(DisplayCase{"Number", "0.25", "0.250"}, DisplayCase{"BlanksAndSign", " -1 ", "-1.000"},
                      DisplayCase{"PointFirst", ".5", "0.500"}, DisplayCase{"PointLast", "5.", "5.000"},
                      DisplayCase{"Exponent", "1e2", "100.000"}, DisplayCase{"Empty", "", ""},
                      DisplayCase{"TrailingLetters", "12abc", "12abc"},
                      DisplayCase{"TwoPoints", "1.2.3", "1.2.3"}, DisplayCase{"PointAlone", ".", "."},
                      DisplayCase{"SignAlone", "-", "-"}, DisplayCase{"ExponentWithoutDigits", "1e", "1e"},
                      DisplayCase{"Comma", "1,5", "1,5"},
                      DisplayCase{"BeyondTheRealRange", "1e999", "1e999"}),
    [](const auto& info) { return std::string(info.param.name); });

// --- Reading the values and the defaults ----------------------------------

class AutoLODValues : public ::testing::Test {
 protected:
  AutoLODValues() { AppTitleName = "Korvane"; }

  // Field sets and message boxes in one sequence.
  void recordFieldSets() {
    frmAdvancedSettings& settings = program.AdvancedSettings();
    settings.SetObserver([this, &settings](Control* c) {
      if (c == &settings.mskAutoLOD0 || c == &settings.mskAutoLOD1) {
        platform.events.push_back("SET " + c->Name() + "=" + static_cast<MaskedEdit*>(c)->Text());
      }
    });
  }

  std::string source(std::optional<std::string> autoLod0, std::optional<std::string> autoLod1) {
    std::string text = "[Material - 0]\r\nTextureMap=a.tga\r\n[LOD Information]\r\nNumberOfLOD=2\r\n";
    if (autoLod0) text += "AutoLOD#0=" + *autoLod0 + "\r\n";
    if (autoLod1) text += "AutoLOD#1=" + *autoLod1 + "\r\n";
    return dir.write("two.kob", text + "[LOD 0]\r\nNumberOfSurfaces=1\r\n");
  }

  const std::string& field0() { return program.AdvancedSettings().mskAutoLOD0.Text(); }
  const std::string& field1() { return program.AdvancedSettings().mskAutoLOD1.Text(); }

  testing::ScriptedPlatform platform;
  Program program{platform};
  testing::TempDir dir;
};

TEST_F(AutoLODValues, BothPresentAreNormalisedOnReading) {
  ReadAutoLODinfo(program, source("0.25", "-1"));
  EXPECT_EQ(field0(), "0.250");
  EXPECT_EQ(field1(), "-1.000");
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(AutoLODValues, BothMissingTellEachThenSetItsDefault) {
  std::string path = source(std::nullopt, std::nullopt);
  recordFieldSets();
  ReadAutoLODinfo(program, path);
  EXPECT_EQ(platform.events,
            (std::vector<std::string>{
                "MSGBOX AutoLOD#0 not found.  Using default value...", "SET mskAutoLOD0=0.250",
                "MSGBOX AutoLOD#1 not found.  Using default value...", "SET mskAutoLOD1=0.000"}));
  EXPECT_EQ(platform.messageTitles, (std::vector<std::string>{"Korvane", "Korvane"}));
}

TEST_F(AutoLODValues, OnlySecondMissingGivesOneMessage) {
  ReadAutoLODinfo(program, source("0.5", std::nullopt));
  EXPECT_EQ(platform.messages, std::vector<std::string>{"AutoLOD#1 not found.  Using default value..."});
  EXPECT_EQ(field0(), "0.500");
  EXPECT_EQ(field1(), "0.000");
}

TEST_F(AutoLODValues, EmptyValueCountsAsMissingUnreadableOneAsZero) {
  ReadAutoLODinfo(program, source("", "abc"));
  EXPECT_EQ(platform.messages, std::vector<std::string>{"AutoLOD#0 not found.  Using default value..."});
  EXPECT_EQ(field0(), "0.250");
  EXPECT_EQ(field1(), "0.000");
}

TEST_F(AutoLODValues, OverflowInTheSecondValueKeepsTheFirstAndTheOldSecond) {
  UseDefaultAutoLOD(program);
  program.AdvancedSettings().mskAutoLOD1.SetText("9.000");
  ReadAutoLODinfo(program, source("0.125", "1e999"));
  EXPECT_EQ(platform.messages,
            std::vector<std::string>{"Unexpected error in ReadAutoLODinfo: Overflow ( 6)"});
  EXPECT_EQ(field0(), "0.125");
  EXPECT_EQ(field1(), "9.000");
}

TEST_F(AutoLODValues, OverflowInTheFirstValueDropsTheSecondKey) {
  ReadAutoLODinfo(program, source("1e999", std::nullopt));
  EXPECT_EQ(platform.messages,
            std::vector<std::string>{"Unexpected error in ReadAutoLODinfo: Overflow ( 6)"});
  EXPECT_EQ(field0(), "");
  EXPECT_EQ(field1(), "");
}

TEST_F(AutoLODValues, ReadingBringsTheWindowIntoBeingWithoutShowingIt) {
  EXPECT_FALSE(program.AdvancedSettingsLoaded());
  ReadAutoLODinfo(program, source("0.3", "0.1"));
  EXPECT_TRUE(program.AdvancedSettingsLoaded());
  EXPECT_FALSE(program.AdvancedSettings().Visible());
  EXPECT_TRUE(platform.events.empty());
}

TEST_F(AutoLODValues, DefaultsOnAWindowNeverShownLeaveItHidden) {
  UseDefaultAutoLOD(program);
  EXPECT_EQ(field0(), "0.250");
  EXPECT_EQ(field1(), "0.000");
  EXPECT_FALSE(program.AdvancedSettings().Visible());
  EXPECT_TRUE(platform.events.empty());
}

TEST_F(AutoLODValues, DefaultsReplaceValuesReadFromASource) {
  ReadAutoLODinfo(program, source("0.7", "0.3"));
  recordFieldSets();
  UseDefaultAutoLOD(program);
  EXPECT_EQ(platform.events, (std::vector<std::string>{"SET mskAutoLOD0=0.250", "SET mskAutoLOD1=0.000"}));
}

}  // namespace
}  // namespace korvane
