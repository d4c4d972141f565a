#include "mainwindow/color_key_editor.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "mainwindow/main_window.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

const std::vector<std::string> kGroupOrder = {
    "lblColorKey",  "lblR",         "lblG",           "lblB",           "mskColorKey0",
    "mskColorKey1", "mskColorKey2", "vscrlColorKey0", "vscrlColorKey1", "vscrlColorKey2",
    "sldColorKey0", "sldColorKey1", "sldColorKey2",   "lblShowColor"};

class ColorKeyTest : public ::testing::Test {
 protected:
  ColorKeyTest() : frm(program.MainWindow()) {
    AppTitleName = "Korvane";
    frm.Form_Load();
    platform.clearLog();
  }

  // Names of the records that change from now on, in order.
  void recordChanges() {
    changes.clear();
    frm.SetObserver([this](Control* c) { changes.push_back(c ? c->Name() : frm.Name()); });
  }

  // Bar and slider agree, the swatch shows the bars, and a field that is not
  // empty writes the bar's number (perhaps with leading zeros).
  void expectRestingState() {
    for (int channel = 0; channel < 3; ++channel) {
      SCOPED_TRACE("channel " + std::to_string(channel));
      EXPECT_EQ(frm.colorKeyBar(channel).Value(), frm.colorKeySlider(channel).Value());
      const std::string& text = frm.colorKeyField(channel).Text();
      if (!text.empty()) {
        EXPECT_EQ(std::stoi(text), frm.colorKeyBar(channel).Value());
      }
      EXPECT_LE(frm.colorKeyBar(channel).Value(), 255);
    }
    EXPECT_EQ(frm.lblShowColor.BackColor(),
              (Rgb{frm.vscrlColorKey0.Value(), frm.vscrlColorKey1.Value(), frm.vscrlColorKey2.Value()}));
  }

  std::vector<std::string> groupEnabledStates() {
    std::vector<std::string> states;
    for (const auto& name : kGroupOrder)
      states.push_back(name + (frm.FindControl(name)->Enabled() ? "+" : "-"));
    return states;
  }

  testing::ScriptedPlatform platform;
  Program program{platform};
  frmKorvane& frm;
  std::vector<std::string> changes;
};

// --- How a change spreads ------------------------------------------------

struct ChainCase {
  const char* name;
  int channel;
  std::vector<std::string> before;  // field texts typed first, to reach the starting point
  std::function<void(frmKorvane&, int)> act;
  std::vector<std::string>
      order;  // records changed by the action, in order ("msk", "vscrl", "sld", "swatch")
  std::string field;
  int value;  // bar and slider afterwards
};

void PrintTo(const ChainCase& c, std::ostream* os) {
  *os << c.name;
}

void typeText(frmKorvane& frm, int channel, const std::string& text) {
  frm.colorKeyField(channel).SetText(text);
}

std::function<void(frmKorvane&, int)> types(std::string text) {
  return [text](frmKorvane& frm, int channel) { typeText(frm, channel, text); };
}
std::function<void(frmKorvane&, int)> movesSlider(int value) {
  return [value](frmKorvane& frm, int channel) { frm.colorKeySlider(channel).AuthorMove(value); };
}
std::function<void(frmKorvane&, int)> setsBar(int value) {
  return [value](frmKorvane& frm, int channel) { frm.colorKeyBar(channel).SetValue(value); };
}

class ChangeChains : public ColorKeyTest, public ::testing::WithParamInterface<ChainCase> {};

TEST_P(ChangeChains, ComeToRestWithEveryControlOfTheChannelAgreeing) {
  const ChainCase& c = GetParam();
  for (const auto& text : c.before) typeText(frm, c.channel, text);
  recordChanges();
  c.act(frm, c.channel);

  const std::string n = std::to_string(c.channel);
  std::vector<std::string> expectedOrder;
  for (const auto& kind : c.order)
    expectedOrder.push_back(kind == "swatch" ? "lblShowColor" : kind + "ColorKey" + n);
  EXPECT_EQ(changes, expectedOrder);
  EXPECT_EQ(frm.colorKeyField(c.channel).Text(), c.field);
  EXPECT_EQ(frm.colorKeyBar(c.channel).Value(), c.value);
  EXPECT_EQ(frm.colorKeySlider(c.channel).Value(), c.value);
  expectRestingState();
  for (int other = 0; other < 3; ++other) {
    if (other == c.channel) continue;
    EXPECT_EQ(frm.colorKeyField(other).Text(), "128") << "channel " << other << " was touched";
    EXPECT_EQ(frm.colorKeyBar(other).Value(), 128);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Author, ChangeChains,
    ::testing::Values(
        ChainCase{"TypedNumberSetsBarThenSlider",
                  0,
                  {"1"},
                  types("12"),
                  {"msk", "vscrl", "sld", "swatch"},
                  "12",
                  12},
        ChainCase{"NumberAbove255IsClampedAndTypedDigitsGo",
                  0,
                  {},
                  types("999"),
                  {"msk", "msk", "vscrl", "sld", "swatch"},
                  "255",
                  255},
        ChainCase{"256IsClamped", 1, {}, types("256"), {"msk", "msk", "vscrl", "sld", "swatch"}, "255", 255},
        ChainCase{"Exactly255Stays", 1, {}, types("255"), {"msk", "vscrl", "sld", "swatch"}, "255", 255},
        ChainCase{"DeletingLastDigitLeavesBarSliderAndSwatch", 0, {"5"}, types(""), {"msk"}, "", 5},
        ChainCase{"LeadingZeroOfSameNumberIsKept", 2, {"7"}, types("07"), {"msk"}, "07", 7},
        ChainCase{"LeadingZerosOfNewNumberAreDropped",
                  0,
                  {"0", "00"},
                  types("007"),
                  {"msk", "vscrl", "msk", "sld", "swatch"},
                  "7",
                  7},
        ChainCase{"SliderMoveSetsFieldFirstThenBar",
                  0,
                  {},
                  movesSlider(200),
                  {"sld", "msk", "vscrl", "swatch"},
                  "200",
                  200},
        ChainCase{"SliderMoveFillsEmptiedField",
                  2,
                  {""},
                  movesSlider(200),
                  {"sld", "msk", "vscrl", "swatch"},
                  "200",
                  200},
        ChainCase{"UpArrowRaisesByOneFieldThenSlider",
                  0,
                  {},
                  setsBar(129),
                  {"vscrl", "msk", "sld", "swatch"},
                  "129",
                  129},
        ChainCase{"DownArrowLowersByOne", 1, {}, setsBar(127), {"vscrl", "msk", "sld", "swatch"}, "127", 127},
        ChainCase{"BarClickFillsEmptiedField",
                  1,
                  {""},
                  setsBar(129),
                  {"vscrl", "msk", "sld", "swatch"},
                  "129",
                  129},
        ChainCase{"UpArrowAtTopRunsNothing", 0, {"255"}, setsBar(255), {}, "255", 255},
        ChainCase{"DownArrowAtBottomRunsNothing", 2, {"0"}, setsBar(0), {}, "0", 0},
        ChainCase{"SliderLeftWhereItIsRunsNothing", 0, {}, movesSlider(128), {}, "128", 128}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(ColorKeyTest, ZerosTypedIntoAnEmptiedFieldSetEverythingOnceThenOnlyGrowTheField) {
  typeText(frm, 1, "");
  recordChanges();
  typeText(frm, 1, "0");
  EXPECT_EQ(changes,
            (std::vector<std::string>{"mskColorKey1", "vscrlColorKey1", "sldColorKey1", "lblShowColor"}));
  for (std::string text : {"00", "000"}) {
    recordChanges();
    typeText(frm, 1, text);
    EXPECT_EQ(changes, std::vector<std::string>{"mskColorKey1"}) << text;
    EXPECT_EQ(frm.mskColorKey1.Text(), text);
    expectRestingState();
  }
  EXPECT_EQ(frm.lblShowColor.BackColor(), (Rgb{128, 0, 128}));
}

TEST_F(ColorKeyTest, SwatchIsRedGreenBlueOfTheBarsWhicheverChannelMoved) {
  typeText(frm, 2, "10");
  frm.sldColorKey0.AuthorMove(20);
  frm.vscrlColorKey1.SetValue(30);
  EXPECT_EQ(frm.lblShowColor.BackColor(), (Rgb{20, 30, 10}));
  expectRestingState();
}

TEST_F(ColorKeyTest, EmptiedFieldKeepsItsEmptinessAcrossAnOffAndOnOfTheCheckBox) {
  typeText(frm, 0, "");
  frm.chkAddColorKey.SetValue(1);
  frm.chkAddColorKey.SetValue(0);
  frm.chkAddColorKey.SetValue(1);
  EXPECT_EQ(frm.mskColorKey0.Text(), "");
  EXPECT_EQ(frm.vscrlColorKey0.Value(), 128);
  EXPECT_EQ(frm.sldColorKey0.Value(), 128);
}

// --- The check box -------------------------------------------------------

TEST_F(ColorKeyTest, CheckBoxSwitchesTheFourteenControlsInGroupOrderAndNothingElse) {
  recordChanges();
  frm.chkAddColorKey.SetValue(1);
  std::vector<std::string> expected = {"chkAddColorKey"};
  expected.insert(expected.end(), kGroupOrder.begin(), kGroupOrder.end());
  EXPECT_EQ(changes, expected);

  recordChanges();
  frm.chkAddColorKey.SetValue(0);
  EXPECT_EQ(changes, expected);
  for (const auto& name : kGroupOrder) EXPECT_FALSE(frm.FindControl(name)->Enabled()) << name;

  // Grayed counts as on, and the colour is not touched either way.
  frm.chkAddColorKey.SetValue(2);
  for (const auto& name : kGroupOrder) EXPECT_TRUE(frm.FindControl(name)->Enabled()) << name;
  EXPECT_FALSE(frm.chkAddColorKey.Enabled());
  EXPECT_EQ(frm.mskColorKey0.Text(), "128");
  EXPECT_EQ(frm.lblShowColor.BackColor(), (Rgb{128, 128, 128}));
}

// --- Reading a source's ColorKey ------------------------------------------

std::string kobWithColorKey(const std::string* colorKey) {
  std::string text = "[Material - 0]\r\nTextureMap=wall.tga\r\n";
  if (colorKey) text += "ColorKey=" + *colorKey + "\r\n";
  return text + "[LOD Information]\r\nNumberOfLOD=1\r\n";
}

struct ReadCase {
  const char* name;
  std::optional<std::string> colorKey;  // nullopt: no such key
  bool refused;
  std::vector<std::string> fields;
  bool on;
};

void PrintTo(const ReadCase& c, std::ostream* os) {
  *os << c.name;
}

class ReadColorKey : public ColorKeyTest, public ::testing::WithParamInterface<ReadCase> {};

TEST_P(ReadColorKey, FromTheStartStateFillsTheEditorOrReportsTheRefusal) {
  const ReadCase& c = GetParam();
  testing::TempDir dir;
  std::string path = dir.write("source.kob", kobWithColorKey(c.colorKey ? &*c.colorKey : nullptr));

  ReadColorKeyINI(frm, path);

  if (c.refused) {
    EXPECT_EQ(platform.messages,
              std::vector<std::string>{"Unexpected error in ReadColorKeyINI: Invalid property value ( 380)"});
    ASSERT_EQ(platform.messageTitles.size(), 1u);
    EXPECT_EQ(platform.messageTitles[0], "Korvane");
  } else {
    EXPECT_TRUE(platform.messages.empty());
  }
  EXPECT_EQ(
      (std::vector<std::string>{frm.mskColorKey0.Text(), frm.mskColorKey1.Text(), frm.mskColorKey2.Text()}),
      c.fields);
  EXPECT_EQ(frm.chkAddColorKey.Value(), c.on ? 1 : 0);
  for (const auto& name : kGroupOrder) EXPECT_EQ(frm.FindControl(name)->Enabled(), c.on) << name;
  expectRestingState();
}

INSTANTIATE_TEST_SUITE_P(
    SourceValues, ReadColorKey,
    ::testing::Values(
        ReadCase{"UsableColour", "255,0,255", false, {"255", "0", "255"}, true},
        ReadCase{"MissingKeyKeepsStartColour", std::nullopt, false, {"128", "128", "128"}, false},
        ReadCase{"EmptyValueCountsAsMissing", "", false, {"128", "128", "128"}, false},
        ReadCase{"FirstAbove255ClampsThenBarRefuses", "300,0,0", true, {"255", "0", "0"}, false},
        ReadCase{"LastAbove255RefusedAtTheBar", "0,0,300", true, {"0", "0", "255"}, false},
        ReadCase{"LettersRefusedByTheFirstField", "a,b,c", true, {"128", "128", "128"}, false},
        ReadCase{"LettersRefusedByTheSecondField", "10,a,30", true, {"10", "128", "128"}, false},
        ReadCase{"FourDigitsRefused", "1000,0,0", true, {"128", "128", "128"}, false},
        ReadCase{"NegativeRefused", "-1,0,0", true, {"128", "128", "128"}, false},
        ReadCase{"FractionRefused", "1.5,0,0", true, {"128", "128", "128"}, false},
        ReadCase{"MissingThirdElementBecomesZero", "10,20", false, {"10", "20", "0"}, true},
        ReadCase{"EmptyMiddleElementBecomesZero", "10,,30", false, {"10", "0", "30"}, true},
        ReadCase{"FourthElementIgnored", "1,2,3,4", false, {"1", "2", "3"}, true},
        ReadCase{"LeadingZerosRewrittenByTheBar", "007,0,0", false, {"7", "0", "0"}, true}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(ColorKeyTest, ReadStepsRunFieldsThenBarsThenSlidersThenGroupThenCheckBox) {
  testing::TempDir dir;
  std::string colour = "128,128,128";
  std::string path = dir.write("same.kob", kobWithColorKey(&colour));
  recordChanges();
  ReadColorKeyINI(frm, path);
  // Nothing of the colour changes, so no field, bar or slider handler runs.
  std::vector<std::string> expected = kGroupOrder;
  expected.push_back("chkAddColorKey");
  EXPECT_EQ(changes, expected);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(ColorKeyTest, EmptyElementWhereTheBarStandsAtZeroLeavesTheFieldEmpty) {
  typeText(frm, 2, "0");
  testing::TempDir dir;
  std::string colour = "10,20";
  ReadColorKeyINI(frm, dir.write("two.kob", kobWithColorKey(&colour)));
  EXPECT_EQ(frm.mskColorKey2.Text(), "");
  EXPECT_EQ(frm.vscrlColorKey2.Value(), 0);
  EXPECT_EQ(frm.chkAddColorKey.Value(), 1);
}

TEST_F(ColorKeyTest, LaterSourceDecidesGroupAndCheckBoxButColourSurvivesASourceWithoutOne) {
  testing::TempDir dir;
  std::string colour = "1,2,3";
  std::string with = dir.write("with.kob", kobWithColorKey(&colour));
  std::string without = dir.write("without.kob", kobWithColorKey(nullptr));

  ReadColorKeyINI(frm, with);
  ReadColorKeyINI(frm, without);
  EXPECT_EQ(frm.chkAddColorKey.Value(), 0);
  EXPECT_EQ(groupEnabledStates()[4], "mskColorKey0-");
  EXPECT_EQ(frm.mskColorKey2.Text(), "3");
  EXPECT_EQ(frm.lblShowColor.BackColor(), (Rgb{1, 2, 3}));

  ReadColorKeyINI(frm, with);
  EXPECT_EQ(frm.chkAddColorKey.Value(), 1);
  EXPECT_EQ(groupEnabledStates().back(), "lblShowColor+");
}

TEST_F(ColorKeyTest, RefusedColorKeyLeavesAnEditorThatWasOnOn) {
  testing::TempDir dir;
  std::string good = "1,2,3";
  std::string bad = "10,x,30";
  ReadColorKeyINI(frm, dir.write("good.kob", kobWithColorKey(&good)));
  ReadColorKeyINI(frm, dir.write("bad.kob", kobWithColorKey(&bad)));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(frm.chkAddColorKey.Value(), 1);
  for (const auto& name : kGroupOrder) EXPECT_TRUE(frm.FindControl(name)->Enabled()) << name;
  // What the save would write: the fields as far as the steps got.
  EXPECT_EQ(frm.mskColorKey0.Text(), "10");
  EXPECT_EQ(frm.mskColorKey1.Text(), "2");
  EXPECT_EQ(frm.mskColorKey2.Text(), "3");
}

TEST_F(ColorKeyTest, MissingFileReadsAsNoColorKey) {
  frm.chkAddColorKey.SetValue(1);
  ReadColorKeyINI(frm, "/nonexistent/korvane/source.kob");
  EXPECT_EQ(frm.chkAddColorKey.Value(), 0);
  EXPECT_TRUE(platform.messages.empty());
}

}  // namespace
}  // namespace korvane
