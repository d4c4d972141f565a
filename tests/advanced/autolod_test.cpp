#include "advanced/autolod.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "advanced/advanced_settings_window.h"
#include "objectfile/source_snapshot.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/failures.h"
#include "support/scripted_platform.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using Rows = std::vector<std::pair<std::string, std::string>>;
using Texts = std::vector<std::string>;

TEST(NormalForm, RoundsTheRealToThreeDecimalsExactHalvesToEven) {
  // 0.0625, 0.1875: exact halves as reals. 0.0025 ... 1.0005: halves as typed,
  // a hair above or below as reals.
  const Rows rows{{"", "0.000"},        {"0.25", "0.250"},        {".5", "0.500"},
                  {"0.2506", "0.251"},  {"-1", "-1.000"},         {"1,5", "1.000"},
                  {"12abc", "12.000"},  {"abc", "0.000"},         {"0.0625", "0.062"},
                  {"0.1875", "0.188"},  {"-0.0625", "-0.062"},    {"0.0025", "0.003"},
                  {"0.1235", "0.123"},  {"2.0005", "2.001"},      {"1.0005", "1.000"},
                  {"-0.0004", "0.000"}, {"999.9996", "1000.000"}, {"1e20", "100000000000000000000.000"}};
  for (const auto& [text, normal] : rows) EXPECT_EQ(NormalizeAutoLOD(text), normal) << '"' << text << '"';
  EXPECT_EQ(testing::failureNumberOf([] { NormalizeAutoLOD("1e999"); }), 6);
}

TEST(Display, NumbersThroughTheFormatOtherTextAsItStands) {
  const Rows rows{{" -1 ", "-1.000"}, {"5.", "5.000"},    {"1e2", "100.000"}, {"", ""},
                  {"12abc", "12abc"}, {"1.2.3", "1.2.3"}, {".", "."},         {"1e", "1e"},
                  {"1,5", "1,5"},     {"1e999", "1e999"}};
  for (const auto& [text, shown] : rows)
    EXPECT_EQ(FormatAutoLODForDisplay(text), shown) << '"' << text << '"';
}

class AutoLODValues : public ::testing::Test {
 protected:
  AutoLODValues() { AppTitleName = "Korvane"; }

  std::string source(std::optional<std::string> autoLod0, std::optional<std::string> autoLod1) {
    std::string text = "[LOD Information]\r\nNumberOfLOD=2\r\n";
    if (autoLod0) text += "AutoLOD#0=" + *autoLod0 + "\r\n";
    if (autoLod1) text += "AutoLOD#1=" + *autoLod1 + "\r\n";
    return dir.write("two.kob", text);
  }
  Texts fields() {
    return {program.AdvancedSettings().mskAutoLOD0.Text(), program.AdvancedSettings().mskAutoLOD1.Text()};
  }

  testing::ScriptedPlatform platform;
  Program program{platform};
  testing::TempDir dir;
};

TEST_F(AutoLODValues, EmptyValueCountsAsMissingUnreadableOneAsZero) {
  ReadAutoLODinfo(program.AdvancedSettings(), SourceSnapshot(source("", "abc")));
  EXPECT_EQ(platform.messages, Texts{"AutoLOD#0 not found.  Using default value..."});
  EXPECT_EQ(fields(), (Texts{"0.250", "0.000"}));
}

TEST_F(AutoLODValues, OverflowEndsTheReadingWithWhatWasSetKept) {
  UseDefaultAutoLOD(program.AdvancedSettings());
  program.AdvancedSettings().mskAutoLOD1.SetText("9.000");
  ReadAutoLODinfo(program.AdvancedSettings(), SourceSnapshot(source("0.125", "1e999")));
  EXPECT_EQ(fields(), (Texts{"0.125", "9.000"}));
  ReadAutoLODinfo(program.AdvancedSettings(), SourceSnapshot(source("1e999", std::nullopt)));
  EXPECT_EQ(fields(), (Texts{"0.125", "9.000"}));
  EXPECT_EQ(platform.messages, Texts(2, "Unexpected error in ReadAutoLODinfo: Overflow ( 6)"));
}

}  // namespace
}  // namespace korvane
