#include "rewrite/lod_merge.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ostream>
#include <string>
#include <vector>

#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/store_lines.h"

namespace korvane {
namespace {

using Lines = std::vector<std::string>;

class LodMerge : public ::testing::Test {
 protected:
  LodMerge() {
    AppTitleName = "Korvane";
    // The loading workflow sets chkAddLOD1 here; only its Value matters.
    frm.chkAddLOD1.onClick = nullptr;
  }

  void setPoints(const std::string& point0, const std::string& point1) {
    program.AdvancedSettings().mskAutoLOD0.SetText(point0);
    program.AdvancedSettings().mskAutoLOD1.SetText(point1);
  }
  void load(const Lines& lines) { testing::addLines(frm.lstDataLOD0.Store(), lines); }
  void loadLod1(const Lines& lines) { testing::addLines(frm.lstDataLOD1.Store(), lines); }
  Lines stored() const { return testing::linesOf(frm.lstDataLOD0.Store()); }
  Lines storedLod1() const { return testing::linesOf(frm.lstDataLOD1.Store()); }

  testing::ScriptedPlatform platform;
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
};

struct LodCase {
  const char* name;
  int addLod1;  // Value of chkAddLOD1
  Lines before;
  Lines after;
};

void PrintTo(const LodCase& row, std::ostream* out) {
  *out << row.name;
}

class LodInformation : public LodMerge, public ::testing::WithParamInterface<LodCase> {};

TEST_P(LodInformation, FollowsTheTable) {
  setPoints("0.250", "0.750");
  frm.chkAddLOD1.SetValue(GetParam().addLod1);
  load(GetParam().before);
  UpdateLODInformation(frm);
  EXPECT_EQ(stored(), GetParam().after);
  EXPECT_EQ(platform.messages, Lines{});
}

INSTANTIATE_TEST_SUITE_P(
    Extend, LodInformation,
    ::testing::Values(
        LodCase{"BlockGoesBehindTheNumberOfLodLine",
                1,
                {"[LOD Information]", "NumberOfLOD=1", "Other=x", "[LOD 0]"},
                {"[LOD Information]", "NumberOfLOD=2", "UseAutoLOD=T", "AutoLOD#0=0.250", "AutoLOD#1=0.750",
                 "Other=x", "[LOD 0]"}},
        LodCase{"AnyValueButTwoExtends",
                0,
                {"NumberOfLOD=1", "x"},
                {"NumberOfLOD=2", "UseAutoLOD=T", "AutoLOD#0=0.250", "AutoLOD#1=0.750", "x"}},
        LodCase{"WholeFirstHoldingLineIsReplacedInExactCapitals",
                1,
                {"  numberOfLod=1 ; one level", "NumberOfLOD=1"},
                {"NumberOfLOD=2", "UseAutoLOD=T", "AutoLOD#0=0.250", "AutoLOD#1=0.750", "NumberOfLOD=1"}},
        LodCase{"OldAutoLodLinesStayBehindTheNewBlock",
                1,
                {"NumberOfLOD=1", "UseAutoLOD=T", "AutoLOD#0=0.100", "AutoLOD#1=0.900"},
                {"NumberOfLOD=2", "UseAutoLOD=T", "AutoLOD#0=0.250", "AutoLOD#1=0.750", "UseAutoLOD=T",
                 "AutoLOD#0=0.100", "AutoLOD#1=0.900"}},
        LodCase{"NumberOfLodOnTheLastLineAppends",
                1,
                {"a", "NumberOfLOD=1"},
                {"a", "NumberOfLOD=2", "UseAutoLOD=T", "AutoLOD#0=0.250", "AutoLOD#1=0.750"}},
        LodCase{"BlankBeforeEqualsSignChangesNothing", 1, {"NumberOfLOD =1", "x"}, {"NumberOfLOD =1", "x"}},
        LodCase{"NoNumberOfLodChangesNothing", 1, {"AutoLOD#0=0.1", "x"}, {"AutoLOD#0=0.1", "x"}},
        LodCase{"EmptyStoreStaysEmpty", 1, {}, {}}),
    [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Update, LodInformation,
    ::testing::Values(
        LodCase{"BothPresentAreReplacedWhereTheyStand",
                2,
                {"NumberOfLOD=2", "UseAutoLOD=T", "autolod#0=0.1", "Mid=1", "AutoLOD#1=0.9", "x"},
                {"NumberOfLOD=2", "UseAutoLOD=T", "AutoLOD#0=0.250", "Mid=1", "AutoLOD#1=0.750", "x"}},
        LodCase{"OnlyPointZeroGetsPointOneBehindIt",
                2,
                {"NumberOfLOD=2", "Mid=1", "AutoLOD#0=0.1", "x"},
                {"NumberOfLOD=2", "Mid=1", "AutoLOD#0=0.250", "AutoLOD#1=0.750", "x"}},
        LodCase{"OnlyPointOneGetsPointZeroBehindNumberOfLod",
                2,
                {"NumberOfLOD=2", "Mid=1", "AutoLOD#1=0.9", "x"},
                {"NumberOfLOD=2", "AutoLOD#0=0.250", "Mid=1", "AutoLOD#1=0.750", "x"}},
        LodCase{"NeitherGoesBehindNumberOfLodInOrder",
                2,
                {"[LOD Information]", "NumberOfLOD=2", "UseAutoLOD=T", "x"},
                {"[LOD Information]", "NumberOfLOD=2", "AutoLOD#0=0.250", "AutoLOD#1=0.750", "UseAutoLOD=T",
                 "x"}},
        LodCase{"OnlyPointOneWithoutNumberOfLodAddsNothing",
                2,
                {"Mid=1", "AutoLOD#1=0.9"},
                {"Mid=1", "AutoLOD#1=0.750"}},
        LodCase{"NothingToFindChangesNothing", 2, {"Mid=1", "x"}, {"Mid=1", "x"}},
        LodCase{"EmptyStoreStaysEmpty", 2, {}, {}},
        LodCase{"PointOneAheadOfPointZeroBothReplaced",
                2,
                {"AutoLOD#1=0.9", "AutoLOD#0=0.1"},
                {"AutoLOD#1=0.750", "AutoLOD#0=0.250"}},
        LodCase{"OneLineHoldingBothEndsAsPointOne",
                2,
                {"NumberOfLOD=2", "AutoLOD#0=0.1 AutoLOD#1=0.9", "x"},
                {"NumberOfLOD=2", "AutoLOD#1=0.750", "x"}},
        LodCase{"SecondPointZeroAheadOfPointOneIsRewrittenTooButNotBehind",
                2,
                {"AutoLOD#0=0.1", "; AutoLOD#0=0.2", "AutoLOD#1=0.9", "AutoLOD#0=0.3", "AutoLOD#1=0.4"},
                {"AutoLOD#0=0.250", "AutoLOD#0=0.250", "AutoLOD#1=0.750", "AutoLOD#0=0.3", "AutoLOD#1=0.4"}},
        LodCase{"NumberOfLodAndUseAutoLodAreNeverRewritten",
                2,
                {"numberoflod=2 ; two", "useautolod=F", "AutoLOD#0=0.1", "AutoLOD#1=0.9"},
                {"numberoflod=2 ; two", "useautolod=F", "AutoLOD#0=0.250", "AutoLOD#1=0.750"}},
        LodCase{"BlankBeforeEqualsSignLeavesTheOldLinesAndAddsNewOnes",
                2,
                {"NumberOfLOD=2", "AutoLOD#0 =0.1", "AutoLOD#1 =0.9"},
                {"NumberOfLOD=2", "AutoLOD#0=0.250", "AutoLOD#1=0.750", "AutoLOD#0 =0.1", "AutoLOD#1 =0.9"}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(LodMerge, PointsComeFromTheSettingsWindowBroughtIntoBeingHidden) {
  frm.chkAddLOD1.SetValue(1);
  load({"NumberOfLOD=1"});
  ASSERT_FALSE(program.AdvancedSettingsLoaded());
  UpdateLODInformation(frm);
  ASSERT_TRUE(program.AdvancedSettingsLoaded());
  EXPECT_FALSE(program.AdvancedSettings().Visible());
  EXPECT_EQ(stored(), (Lines{"NumberOfLOD=2", "UseAutoLOD=T", "AutoLOD#0=", "AutoLOD#1="}));
}

TEST_F(LodMerge, RepeatedExtendingSavesStackBlocksNewestFirst) {
  frm.chkAddLOD1.SetValue(1);
  load({"[LOD Information]", "NumberOfLOD=1", "[LOD 0]"});
  setPoints("0.100", "0.200");
  UpdateLODInformation(frm);
  setPoints("0.300", "0.400");
  UpdateLODInformation(frm);
  setPoints("0.500", "0.600");
  UpdateLODInformation(frm);
  EXPECT_EQ(stored(), (Lines{"[LOD Information]", "NumberOfLOD=2",                  //
                             "UseAutoLOD=T", "AutoLOD#0=0.500", "AutoLOD#1=0.600",  //
                             "UseAutoLOD=T", "AutoLOD#0=0.300", "AutoLOD#1=0.400",  //
                             "UseAutoLOD=T", "AutoLOD#0=0.100", "AutoLOD#1=0.200", "[LOD 0]"}));
}

TEST_F(LodMerge, RepeatedUpdatingSavesDoNotGrow) {
  frm.chkAddLOD1.SetValue(2);
  load({"[LOD Information]", "NumberOfLOD=2", "[LOD 0]"});
  setPoints("0.100", "0.200");
  UpdateLODInformation(frm);
  const Lines first{"[LOD Information]", "NumberOfLOD=2", "AutoLOD#0=0.100", "AutoLOD#1=0.200", "[LOD 0]"};
  EXPECT_EQ(stored(), first);
  UpdateLODInformation(frm);
  EXPECT_EQ(stored(), first);
  setPoints("0.300", "0.400");
  UpdateLODInformation(frm);
  EXPECT_EQ(stored(),
            (Lines{"[LOD Information]", "NumberOfLOD=2", "AutoLOD#0=0.300", "AutoLOD#1=0.400", "[LOD 0]"}));
}

TEST_F(LodMerge, LodInformationLeavesTheLowDetailLinesAlone) {
  frm.chkAddLOD1.SetValue(1);
  setPoints("0.250", "0.750");
  load({"NumberOfLOD=1"});
  loadLod1({"[LOD 0]", "NumberOfLOD=1", "AutoLOD#0=0.1"});
  UpdateLODInformation(frm);
  EXPECT_EQ(storedLod1(), (Lines{"[LOD 0]", "NumberOfLOD=1", "AutoLOD#0=0.1"}));
}

// UpdateLOD1

TEST_F(LodMerge, RenamesEveryLodZeroAndNothingElse) {
  loadLod1({"[LOD 0]", "NumberOfSurfaces=3", "Name=LOD 0 and LOD 0", "lod 0 stays", "LOD  0 stays",
            "TextureMap=LOD 0.tga", "LOD 00", "", "ColorKey=1,2,3"});
  load({"[LOD 0]"});
  UpdateLOD1(frm);
  EXPECT_EQ(storedLod1(), (Lines{"[LOD 1]", "NumberOfSurfaces=3", "Name=LOD 1 and LOD 1", "lod 0 stays",
                                 "LOD  0 stays", "TextureMap=LOD 1.tga", "LOD 10", "", "ColorKey=1,2,3"}));
  EXPECT_EQ(stored(), Lines{"[LOD 0]"}) << "the high-detail lines are not looked at";
  EXPECT_EQ(platform.messages, Lines{});
}

TEST_F(LodMerge, RenamingTwiceFindsNothingMore) {
  loadLod1({"[LOD 0]", "x"});
  UpdateLOD1(frm);
  UpdateLOD1(frm);
  EXPECT_EQ(storedLod1(), (Lines{"[LOD 1]", "x"}));
}

TEST_F(LodMerge, EmptyLowDetailStoreStaysEmpty) {
  UpdateLOD1(frm);
  EXPECT_EQ(storedLod1(), Lines{});
  EXPECT_EQ(platform.messages, Lines{});
}

TEST_F(LodMerge, LineThatSubstituteCannotRenameIsKeptAndTheRestGoOn) {
  // A "LOD 0" beyond the 16-bit positions of Substitute is its overflow.
  const std::string tooFar = std::string(40000, 'v') + "LOD 0";
  loadLod1({"[LOD 0]", tooFar, "Name=LOD 0"});
  UpdateLOD1(frm);
  const Lines after = storedLod1();
  ASSERT_EQ(after.size(), 3u);
  EXPECT_EQ(after[0], "[LOD 1]");
  EXPECT_TRUE(after[1] == tooFar) << "the line Substitute failed on is kept as it was";
  EXPECT_EQ(after[2], "Name=LOD 1");
  EXPECT_EQ(platform.messages, Lines{"Substitute:  6 - 0"});
}

TEST_F(LodMerge, RenamingAVeryLongStoreStaysLinear) {
  constexpr int kLines = 300000;
  LineStore& lines = frm.lstDataLOD1.Store();
  for (int i = 0; i < kLines; ++i) lines.AddItem(i % 2 ? "[LOD 0]" : "Surface=7");
  const auto start = std::chrono::steady_clock::now();
  UpdateLOD1(frm);
  const auto elapsed = std::chrono::steady_clock::now() - start;
  ASSERT_EQ(lines.ListCount(), kLines);
  EXPECT_EQ(lines.List(0), "Surface=7");
  EXPECT_EQ(lines.List(1), "[LOD 1]");
  EXPECT_EQ(lines.List(kLines - 1), "[LOD 1]");
  // Shifting the index at every replace would take minutes here.
  EXPECT_LT(elapsed, std::chrono::seconds(20));
}

}  // namespace
}  // namespace korvane
