#include "rewrite/keyword_scan.h"

#include <gtest/gtest.h>

#include <ostream>

#include "objectfile/line_store.h"
#include "support/store_lines.h"

namespace korvane {
namespace {

struct HoldCase {
  const char* name;
  std::string line;
  std::string keyword;
  bool holds;
};

void PrintTo(const HoldCase& row, std::ostream* out) {
  *out << row.name;
}

class HoldsKeyword : public ::testing::TestWithParam<HoldCase> {};

TEST_P(HoldsKeyword, ComparesTheUpperCasedLine) {
  EXPECT_EQ(holdsKeyword(GetParam().line, GetParam().keyword), GetParam().holds);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, HoldsKeyword,
    ::testing::Values(HoldCase{"ExactCapitals", "TEXTUREMAP=wall.tga", "TEXTUREMAP=", true},
                      HoldCase{"SmallLetters", "texturemap=wall.tga", "TEXTUREMAP=", true},
                      HoldCase{"MixedCase", "TextureMap=", "TEXTUREMAP=", true},
                      HoldCase{"LeadingBlanksAndTab", "  \tColorKey=1,2,3", "COLORKEY=", true},
                      HoldCase{"InsideAComment", "; was ColorKey=1,2,3", "COLORKEY=", true},
                      HoldCase{"LongerKeyEndingInIt", "OldNumberOfLOD=1", "NUMBEROFLOD=", true},
                      HoldCase{"KeywordAtTheVeryEnd", "x autolod#0=", "AUTOLOD#0=", true},
                      HoldCase{"BlankBeforeEqualsSign", "TextureMap =wall.tga", "TEXTUREMAP=", false},
                      HoldCase{"KeywordCutShortAtTheEnd", "TEXTUREMAP", "TEXTUREMAP=", false},
                      HoldCase{"OtherDigit", "AutoLOD#1=0.5", "AUTOLOD#0=", false},
                      HoldCase{"EmptyLine", "", "COLORKEY=", false},
                      HoldCase{"LineShorterThanKeyword", "COLOR", "COLORKEY=", false},
                      // 0xC1 and 0xBD would read as 'A' and '=' if the high bit were dropped.
                      HoldCase{"HighByteIsNoLetter", "\xC1UTOLOD#0=0.5", "AUTOLOD#0=", false},
                      HoldCase{"HighByteIsNoEqualsSign",
                               "AUTOLOD#0\xBD"
                               "0.5",
                               "AUTOLOD#0=", false},
                      // Clearing bit 5 of every byte would turn '{' into '['.
                      HoldCase{"BracesDoNotFoldToBrackets", "{LOD 0}", "[LOD 0]", false},
                      HoldCase{"SecondPlaceAfterAFalseStart", "COLORCOLORKEY=", "COLORKEY=", true}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(FindKeyword, FirstHoldingLineWins) {
  LineStore lines;
  testing::addLines(lines, {"[Material - 0]", "; TextureMap=old", "TextureMap=a.tga", "TEXTUREMAP=b.tga"});
  EXPECT_EQ(findKeyword(lines, "TEXTUREMAP="), 1);
  EXPECT_EQ(findKeyword(lines, "COLORKEY="), std::nullopt);
}

TEST(FindKeyword, FindsTheLastLineAndNothingInAnEmptyStore) {
  LineStore lines;
  EXPECT_EQ(findKeyword(lines, "COLORKEY="), std::nullopt);
  testing::addLines(lines, {"a", "b", "colorkey=1,2,3"});
  EXPECT_EQ(findKeyword(lines, "COLORKEY="), 2);
}

TEST(ReplaceLine, KeepsCountAndNeighbours) {
  LineStore lines;
  testing::addLines(lines, {"first", "middle", "last"});
  replaceLine(lines, 1, "new");
  replaceLine(lines, 2, "end");
  EXPECT_EQ(testing::linesOf(lines), (std::vector<std::string>{"first", "new", "end"}));
}

}  // namespace
}  // namespace korvane
