#include "rewrite/material_lines.h"

#include <gtest/gtest.h>

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

const std::string kNotFound = "The TextureMap keyword was not found in your KOB file";

class MaterialLines : public ::testing::Test {
 protected:
  MaterialLines() {
    AppTitleName = "Korvane";
    frm.txtTextureMap.SetText("wall.tga");
    frm.mskColorKey0.SetText("12");
    frm.mskColorKey1.SetText("0");
    frm.mskColorKey2.SetText("255");
  }

  void load(const Lines& lines) { testing::addLines(frm.lstDataLOD0.Store(), lines); }
  Lines stored() const { return testing::linesOf(frm.lstDataLOD0.Store()); }

  testing::ScriptedPlatform platform;
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
};

// UpdateTextureMapLOD0

struct TextureMapCase {
  const char* name;
  Lines before;
  Lines after;
  bool reportsMissingKeyword;
};

void PrintTo(const TextureMapCase& row, std::ostream* out) {
  *out << row.name;
}

class TextureMapRewrite : public MaterialLines, public ::testing::WithParamInterface<TextureMapCase> {};

TEST_P(TextureMapRewrite, RewritesTheFirstHoldingLineOrReports) {
  load(GetParam().before);
  UpdateTextureMapLOD0(frm);
  EXPECT_EQ(stored(), GetParam().after);
  EXPECT_EQ(platform.messages, GetParam().reportsMissingKeyword ? Lines{kNotFound} : Lines{});
}

INSTANTIATE_TEST_SUITE_P(
    Table, TextureMapRewrite,
    ::testing::Values(TextureMapCase{"ReplacesInPlace",
                                     {"[Material - 0]", "TextureMap=old.tga", "Shine=3"},
                                     {"[Material - 0]", "TextureMap=wall.tga", "Shine=3"},
                                     false},
                      TextureMapCase{"SmallLetterKeyComesOutInExactCapitals",
                                     {"[Material - 0]", "texturemap=old.tga"},
                                     {"[Material - 0]", "TextureMap=wall.tga"},
                                     false},
                      TextureMapCase{"LeadingBlanksAndTrailingTextAreLost",
                                     {"   TEXTUREMAP=old.tga ; note"},
                                     {"TextureMap=wall.tga"},
                                     false},
                      TextureMapCase{"CommentAheadTakesTheHitAndTheRealLineKeepsItsValue",
                                     {"; TextureMap=draft.tga", "[Material - 0]", "TextureMap=old.tga"},
                                     {"TextureMap=wall.tga", "[Material - 0]", "TextureMap=old.tga"},
                                     false},
                      TextureMapCase{"SecondLodKeepsItsOwnTextureMap",
                                     {"TextureMap=hi.tga", "[LOD 1]", "TextureMap=lo.tga"},
                                     {"TextureMap=wall.tga", "[LOD 1]", "TextureMap=lo.tga"},
                                     false},
                      TextureMapCase{"LastLineIsFound",
                                     {"a", "b", "TextureMap=old.tga"},
                                     {"a", "b", "TextureMap=wall.tga"},
                                     false},
                      TextureMapCase{"BlankBeforeEqualsSignIsNotFound",
                                     {"[Material - 0]", "TextureMap =old.tga"},
                                     {"[Material - 0]", "TextureMap =old.tga"},
                                     true},
                      TextureMapCase{"EmptyStoreReports", {}, {}, true}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(MaterialLines, TextureMapValueIsWrittenAsTyped) {
  frm.txtTextureMap.SetText(" my map.tga ");
  load({"TextureMap=old.tga"});
  UpdateTextureMapLOD0(frm);
  EXPECT_EQ(stored(), Lines{"TextureMap= my map.tga "});
}

TEST_F(MaterialLines, MissingTextureMapMessageCarriesTheTitle) {
  load({"Shine=3"});
  UpdateTextureMapLOD0(frm);
  ASSERT_EQ(platform.messages, Lines{kNotFound});
  EXPECT_EQ(platform.messageTitles, Lines{"Korvane"});
}

// UpdateColorKeyLOD0

struct ColorKeyCase {
  const char* name;
  int colorKey;  // Value of chkAddColorKey
  Lines before;
  Lines after;
};

void PrintTo(const ColorKeyCase& row, std::ostream* out) {
  *out << row.name;
}

class ColorKeyRewrite : public MaterialLines, public ::testing::WithParamInterface<ColorKeyCase> {};

TEST_P(ColorKeyRewrite, FollowsTheTable) {
  frm.chkAddColorKey.SetValue(GetParam().colorKey);
  load(GetParam().before);
  UpdateColorKeyLOD0(frm);
  EXPECT_EQ(stored(), GetParam().after);
  EXPECT_EQ(platform.messages, Lines{});
}

INSTANTIATE_TEST_SUITE_P(
    Table, ColorKeyRewrite,
    ::testing::Values(
        ColorKeyCase{"OffNoColorKeyWithTextureMapChangesNothing",
                     0,
                     {"[Material - 0]", "TextureMap=a.tga", "Shine=3"},
                     {"[Material - 0]", "TextureMap=a.tga", "Shine=3"}},
        ColorKeyCase{"OffNoColorKeyNoTextureMapChangesNothing", 0, {"Shine=3"}, {"Shine=3"}},
        ColorKeyCase{"OffRemovesOnlyTheFirstColorKeyLine",
                     0,
                     {"TextureMap=a.tga", "ColorKey=1,2,3", "Shine=3", "ColorKey=4,5,6"},
                     {"TextureMap=a.tga", "Shine=3", "ColorKey=4,5,6"}},
        ColorKeyCase{"OffRemovesWithoutTextureMap", 0, {"x", "colorkey=1,2,3", "y"}, {"x", "y"}},
        ColorKeyCase{"OffRemovesACommentThatComesFirst",
                     0,
                     {"; ColorKey=0,0,0 was tried", "TextureMap=a.tga", "ColorKey=1,2,3"},
                     {"TextureMap=a.tga", "ColorKey=1,2,3"}},
        ColorKeyCase{"OnReplacesInPlaceFarFromTextureMap",
                     1,
                     {"TextureMap=a.tga", "Shine=3", "[Other]", "  colorKey=9,9,9 ; old"},
                     {"TextureMap=a.tga", "Shine=3", "[Other]", "ColorKey=12,0,255"}},
        ColorKeyCase{"OnReplacesOnlyTheFirst",
                     1,
                     {"ColorKey=1,2,3", "ColorKey=4,5,6"},
                     {"ColorKey=12,0,255", "ColorKey=4,5,6"}},
        ColorKeyCase{"OnReplacesWithoutTextureMap", 1, {"ColorKey=1,2,3"}, {"ColorKey=12,0,255"}},
        ColorKeyCase{
            "OnInsertsBehindTheFirstTextureMapLine",
            1,
            {"[Material - 0]", "TextureMap=a.tga", "Shine=3", "TextureMap=b.tga"},
            {"[Material - 0]", "TextureMap=a.tga", "ColorKey=12,0,255", "Shine=3", "TextureMap=b.tga"}},
        ColorKeyCase{"OnAppendsBehindATextureMapOnTheLastLine",
                     1,
                     {"[Material - 0]", "TextureMap=a.tga"},
                     {"[Material - 0]", "TextureMap=a.tga", "ColorKey=12,0,255"}},
        ColorKeyCase{"OnNoColorKeyNoTextureMapChangesNothing", 1, {"Shine=3"}, {"Shine=3"}},
        ColorKeyCase{"GrayedCountsAsOn", 2, {"TextureMap=a.tga"}, {"TextureMap=a.tga", "ColorKey=12,0,255"}},
        ColorKeyCase{"OnKeyWithBlankBeforeEqualsSignStaysAndGetsACompanion",
                     1,
                     {"TextureMap=a.tga", "ColorKey =1,2,3"},
                     {"TextureMap=a.tga", "ColorKey=12,0,255", "ColorKey =1,2,3"}},
        ColorKeyCase{"OffKeyWithBlankBeforeEqualsSignStays",
                     0,
                     {"TextureMap=a.tga", "ColorKey =1,2,3"},
                     {"TextureMap=a.tga", "ColorKey =1,2,3"}},
        ColorKeyCase{"OnEmptyStore", 1, {}, {}}, ColorKeyCase{"OffEmptyStore", 0, {}, {}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(MaterialLines, SaveOrderPutsTheNewNameAheadOfTheNewColorKey) {
  frm.chkAddColorKey.SetValue(1);
  load({"[Material - 0]", "texturemap = wrong", "TextureMap=old.tga", "Shine=3"});
  UpdateTextureMapLOD0(frm);
  UpdateColorKeyLOD0(frm);
  EXPECT_EQ(stored(), (Lines{"[Material - 0]", "texturemap = wrong", "TextureMap=wall.tga",
                             "ColorKey=12,0,255", "Shine=3"}));
}

TEST_F(MaterialLines, RepeatedSavesFollowTheControls) {
  const Lines source{"[Material - 0]", "TextureMap=old.tga", "Shine=3"};
  load(source);
  auto save = [&] {
    UpdateTextureMapLOD0(frm);
    UpdateColorKeyLOD0(frm);
  };

  frm.chkAddColorKey.SetValue(1);
  save();
  const Lines withColorKey{"[Material - 0]", "TextureMap=wall.tga", "ColorKey=12,0,255", "Shine=3"};
  EXPECT_EQ(stored(), withColorKey);
  save();
  EXPECT_EQ(stored(), withColorKey) << "unchanged controls leave the lines as they are";

  frm.mskColorKey1.SetText("7");
  save();
  EXPECT_EQ(stored(), (Lines{"[Material - 0]", "TextureMap=wall.tga", "ColorKey=12,7,255", "Shine=3"}));

  frm.chkAddColorKey.SetValue(0);
  save();
  EXPECT_EQ(stored(), (Lines{"[Material - 0]", "TextureMap=wall.tga", "Shine=3"}));

  frm.chkAddColorKey.SetValue(1);
  frm.txtTextureMap.SetText("stone.tga");
  save();
  EXPECT_EQ(stored(), (Lines{"[Material - 0]", "TextureMap=stone.tga", "ColorKey=12,7,255", "Shine=3"}));
  EXPECT_EQ(platform.messages, Lines{});
}

TEST_F(MaterialLines, LeavesTheLowDetailLinesAlone) {
  frm.chkAddColorKey.SetValue(1);
  testing::addLines(frm.lstDataLOD1.Store(), {"[LOD 0]", "TextureMap=lo.tga", "ColorKey=1,1,1"});
  load({"TextureMap=hi.tga"});
  UpdateTextureMapLOD0(frm);
  UpdateColorKeyLOD0(frm);
  EXPECT_EQ(testing::linesOf(frm.lstDataLOD1.Store()),
            (Lines{"[LOD 0]", "TextureMap=lo.tga", "ColorKey=1,1,1"}));
}

}  // namespace
}  // namespace korvane
