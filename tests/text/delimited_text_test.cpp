#include "text/delimited_text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "support/scripted_platform.h"

namespace korvane {
namespace {

using testing::ScriptedPlatform;

const std::string kGetElementOverflow = "GetElement:  6 - 0";
const std::string kSubstituteOverflow = "Substitute:  6 - 0";

std::string repeat(char c, std::size_t count) {
  return std::string(count, c);
}

// ---- GetElement ----------------------------------------------------------

struct ElementCase {
  const char* name;
  std::string text;
  std::string delimiter;
  std::int16_t index;
  std::string expected;
  bool overflows = false;
  friend std::ostream& operator<<(std::ostream& out, const ElementCase& c) { return out << c.name; }
};

class GetElementGives : public ::testing::TestWithParam<ElementCase> {};

TEST_P(GetElementGives, TheElementOrTheOverflowMessage) {
  const ElementCase& c = GetParam();
  ScriptedPlatform platform;
  EXPECT_EQ(GetElement(platform, c.text, c.delimiter, c.index), c.expected);
  if (c.overflows) {
    EXPECT_EQ(platform.messages, std::vector<std::string>{kGetElementOverflow});
  } else {
    EXPECT_TRUE(platform.messages.empty());
  }
}

// A comma at the given 1-based position, 'a' in front of it, then the tail.
std::string commaAt(std::size_t position, const std::string& tail = "z") {
  return repeat('a', position - 1) + "," + tail;
}

INSTANTIATE_TEST_SUITE_P(Table, GetElementGives,
                         ::testing::Values(ElementCase{"FirstOfThree", "1,2,3", ",", 0, "1"},
                                           ElementCase{"LastOfThree", "1,2,3", ",", 2, "3"},
                                           ElementCase{"BeyondTheLast", "1,2,3", ",", 3, ""},
                                           ElementCase{"NegativeIndex", "1,2,3", ",", -1, ""},
                                           ElementCase{"EmptyElementBetween", "1,,3", ",", 1, ""},
                                           ElementCase{"ElementAfterEmptyOneCounts", "1,,3", ",", 2, "3"},
                                           ElementCase{"BehindTrailingDelimiter", "1,2,", ",", 2, ""},
                                           ElementCase{"NoDelimiter", "123", ",", 0, "123"},
                                           ElementCase{"EmptyText", "", ",", 0, ""},
                                           ElementCase{"EmptyTextSecondElement", "", ",", 1, ""},
                                           ElementCase{"LeadingDelimiter", ",x", ",", 0, ""},
                                           ElementCase{"SeveralCharacterDelimiter", "a::b::c", "::", 1, "b"},
                                           ElementCase{"OverlappingDelimiterTakenFromLeft", "a:::b", "::", 1,
                                                       ":b"},
                                           ElementCase{"CapitalsDiffer", "aXbxc", "x", 0, "aXb"},
                                           ElementCase{"EmptyDelimiterWholeText", "a,b", "", 0, "a,b"},
                                           ElementCase{"EmptyDelimiterOtherIndex", "a,b", "", 1, ""}),
                         [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Positions, GetElementGives,
    ::testing::Values(
        ElementCase{"HitAtHighestPosition", commaAt(32767), ",", 0, repeat('a', 32766)},
        ElementCase{"HitAboveHighestPosition", commaAt(32768), ",", 0, "", true},
        ElementCase{"GoingOnBehindHighestHit", commaAt(32767), ",", 1, "", true},
        ElementCase{"LastElementReachesFar", commaAt(32766, repeat('z', 40000)), ",", 1, repeat('z', 40000)},
        ElementCase{"FirstElementOfLongText", "x," + repeat('z', 100000), ",", 0, "x"},
        ElementCase{"DelimiterFoundFarBehind", "x," + repeat('z', 40000) + ",y", ",", 1, "", true},
        ElementCase{"NegativeIndexWalksIntoFarHit", "x," + repeat('z', 40000) + ",y", ",", -1, "", true},
        ElementCase{"TwoCharacterDelimiterEndsAtHighest", repeat('a', 32764) + ",,b", ",,", 1, "b"},
        ElementCase{"TwoCharacterDelimiterEndsBeyond", repeat('a', 32765) + ",,b", ",,", 1, "", true},
        ElementCase{"LongestDelimiterNotFound", "abc", repeat(',', 32767), 0, "abc"},
        ElementCase{"LongestDelimiterAtOneThenBehind", repeat(',', 32767), repeat(',', 32767), 1, "", true},
        ElementCase{"DelimiterTooLong", "abc", repeat(',', 32768), 0, "", true},
        ElementCase{"HighestIndexOfShortText", "a,b", ",", 32767, ""}),
    [](const auto& info) { return std::string(info.param.name); });

// The walk exactly as written down, with positions checked as 16-bit values.
std::optional<std::string> referenceElement(const std::string& text, const std::string& delimiter,
                                            int index) {
  auto checked = [](std::size_t value) -> std::optional<std::size_t> {
    return value > 32767 ? std::nullopt : std::optional<std::size_t>(value);
  };
  std::size_t start = 1;
  for (int count = 0;; ++count) {
    std::size_t found = start - 1 <= text.size() ? text.find(delimiter, start - 1) : std::string::npos;
    std::size_t hit = found == std::string::npos ? 0 : found + 1;
    if (!checked(hit)) return std::nullopt;
    if (count == index) {
      if (start - 1 >= text.size()) return std::string();
      return hit ? text.substr(start - 1, hit - start) : text.substr(start - 1);
    }
    if (hit == 0) return std::string();
    if (!checked(hit + delimiter.size())) return std::nullopt;
    start = hit + delimiter.size();
  }
}

TEST(GetElement, AgreesWithTheStepByStepWalkOnSmallTexts) {
  std::mt19937 random(7);
  const std::string letters = ",;a";
  for (int round = 0; round < 20000; ++round) {
    std::string text, delimiter;
    for (int n = random() % 9; n > 0; --n) text += letters[random() % letters.size()];
    for (int n = 1 + random() % 2; n > 0; --n) delimiter += letters[random() % 2];
    int index = static_cast<int>(random() % 7) - 1;
    ScriptedPlatform platform;
    ASSERT_EQ(GetElement(platform, text, delimiter, static_cast<std::int16_t>(index)),
              *referenceElement(text, delimiter, index))
        << '"' << text << "\" \"" << delimiter << "\" " << index;
  }
}

TEST(GetElement, LeavesItsArgumentsAlone) {
  ScriptedPlatform platform;
  const std::string text = "1,2,3";
  const std::string delimiter = ",";
  GetElement(platform, text, delimiter, 1);
  EXPECT_EQ(text, "1,2,3");
  EXPECT_EQ(delimiter, ",");
}

// ---- GetFileName ---------------------------------------------------------

struct FileNameCase {
  const char* name;
  std::string path;
  std::string expected;
  friend std::ostream& operator<<(std::ostream& out, const FileNameCase& c) { return out << c.name; }
};

class GetFileNameGives : public ::testing::TestWithParam<FileNameCase> {};

TEST_P(GetFileNameGives, TheElementBeforeTheFirstEmptyOne) {
  ScriptedPlatform platform;
  EXPECT_EQ(GetFileName(platform, GetParam().path), GetParam().expected);
  EXPECT_TRUE(platform.messages.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Table, GetFileNameGives,
    ::testing::Values(FileNameCase{"DrivePath", "C:\\maps\\wall.tga", "wall.tga"},
                      FileNameCase{"BareName", "wall.tga", "wall.tga"},
                      FileNameCase{"RootedPath", "\\maps\\wall.tga", "wall.tga"},
                      FileNameCase{"ServerPath", "\\\\server\\maps\\wall.tga", "wall.tga"},
                      FileNameCase{"TrailingBackslashGivesDirectory", "C:\\maps\\", "maps"},
                      FileNameCase{"DoubleBackslashInsideStopsTheWalk", "C:\\maps\\\\wall.tga", "maps"},
                      FileNameCase{"Empty", "", ""}, FileNameCase{"SingleBackslash", "\\", ""},
                      FileNameCase{"OnlyTwoBackslashes", "\\\\", ""},
                      FileNameCase{"ThreeBackslashes", "\\\\\\x", "x"},
                      FileNameCase{"ForwardSlashesAreNotDelimiters", "C:/maps/wall.tga", "C:/maps/wall.tga"},
                      FileNameCase{"LongPathNameBeforeHighest", repeat('d', 32760) + "\\wall.tga",
                                   "wall.tga"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(GetFileName, FailureInsideTheWalkShowsGetElementsMessageOnceAndEndsTheWalk) {
  ScriptedPlatform platform;
  std::string path = "C:\\maps\\" + repeat('d', 40000) + "\\wall.tga";
  EXPECT_EQ(GetFileName(platform, path), "maps");
  EXPECT_EQ(platform.messages, std::vector<std::string>{kGetElementOverflow});
}

TEST(GetFileName, FailureOnTheFirstElementGivesEmpty) {
  ScriptedPlatform platform;
  EXPECT_EQ(GetFileName(platform, repeat('d', 40000) + "\\wall.tga"), "");
  EXPECT_EQ(platform.messages, std::vector<std::string>{kGetElementOverflow});
}

// GetFileName as GetElement calls, one index after the other.
std::string referenceFileName(Platform& platform, const std::string& path) {
  std::string copy = path.rfind("\\\\", 0) == 0 ? path.substr(2) : path;
  std::int16_t index = !copy.empty() && copy[0] == '\\' ? 1 : 0;
  std::string last;
  for (;; ++index) {
    std::string element = GetElement(platform, copy, "\\", index);
    if (element.empty()) return last;
    last = element;
  }
}

TEST(GetFileName, AgreesWithGetElementCallsIncludingTheirMessages) {
  std::mt19937 random(11);
  const std::string letters = "\\\\a";
  std::vector<std::string> paths = {repeat('a', 32765) + "\\b\\c", repeat('a', 32766) + "\\b",
                                    "a\\" + repeat('b', 32764) + "\\c\\d", "\\" + repeat('a', 32766) + "\\b"};
  for (int round = 0; round < 5000; ++round) {
    std::string path;
    for (int n = random() % 10; n > 0; --n) path += letters[random() % letters.size()];
    paths.push_back(path);
  }
  for (const std::string& path : paths) {
    ScriptedPlatform walked, called;
    ASSERT_EQ(GetFileName(walked, path), referenceFileName(called, path)) << path.substr(0, 40);
    ASSERT_EQ(walked.messages, called.messages) << path.substr(0, 40);
  }
}

// ---- Substitute ----------------------------------------------------------

struct SubstituteCase {
  const char* name;
  std::string text;
  std::string search;
  std::string replacement;
  std::string expected;
  bool overflows = false;
  friend std::ostream& operator<<(std::ostream& out, const SubstituteCase& c) { return out << c.name; }
};

class SubstituteGives : public ::testing::TestWithParam<SubstituteCase> {};

TEST_P(SubstituteGives, TheNewTextOrTheOverflowMessage) {
  const SubstituteCase& c = GetParam();
  ScriptedPlatform platform;
  EXPECT_EQ(Substitute(platform, c.text, c.search, c.replacement), c.expected);
  if (c.overflows) {
    EXPECT_EQ(platform.messages, std::vector<std::string>{kSubstituteOverflow});
  } else {
    EXPECT_TRUE(platform.messages.empty());
  }
}

INSTANTIATE_TEST_SUITE_P(
    Table, SubstituteGives,
    ::testing::Values(
        SubstituteCase{"BothOccurrencesOnALine", "[LOD 0] Name=LOD 0 mesh", "LOD 0", "LOD 1",
                       "[LOD 1] Name=LOD 1 mesh"},
        SubstituteCase{"NoOccurrenceUnchanged", "NumberOfLOD=1", "LOD 0", "LOD 1", "NumberOfLOD=1"},
        SubstituteCase{"CapitalsDiffer", "lod 0", "LOD 0", "LOD 1", "lod 0"},
        SubstituteCase{"EmptyReplacementDeletes", "a-b-c", "-", "", "abc"},
        SubstituteCase{"EmptyText", "", "x", "y", ""},
        SubstituteCase{"EmptySearchUnchanged", "abc", "", "x", "abc"},
        SubstituteCase{"OccurrenceFormedByJoiningIsReplaced", "aab", "ab", "b", "b"},
        SubstituteCase{"PairsSwappedUntilNoneIsLeft", "aabb", "ab", "ba", "bbaa"},
        SubstituteCase{"LongerReplacement", "a.b.c", ".", "::", "a::b::c"},
        SubstituteCase{"WholeTextIsTheSearch", "LOD 0", "LOD 0", "LOD 1", "LOD 1"},
        SubstituteCase{"ReplacementHoldingSearchEndsInOverflow", "a", "a", "aa", "", true},
        SubstituteCase{"ReplacementHoldingSearchInTheMiddle", "xLOD 0", "LOD 0", "<LOD 0>", "", true},
        SubstituteCase{"EndlessChainWithoutTheSearchInTheReplacement", "aab", "ab", "bbaa", "", true}),
    [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Positions, SubstituteGives,
    ::testing::Values(
        SubstituteCase{"HitEndingAtHighestPosition", repeat('.', 32761) + "LOD 0", "LOD 0", "LOD 1",
                       repeat('.', 32761) + "LOD 1"},
        SubstituteCase{"HitEndingBeyondHighest", repeat('.', 32762) + "LOD 0", "LOD 0", "LOD 1", "", true},
        SubstituteCase{"HitAboveHighest", repeat('.', 40000) + "LOD 0", "LOD 0", "LOD 1", "", true},
        SubstituteCase{"EarlierReplacementsLostOnOverflow", "LOD 0" + repeat('.', 40000) + "LOD 0", "LOD 0",
                       "LOD 1", "", true},
        SubstituteCase{"LongTailWithoutHitsKept", "LOD 0" + repeat('.', 100000), "LOD 0", "LOD 1",
                       "LOD 1" + repeat('.', 100000)},
        SubstituteCase{"GrowingReplacementPushesHitsBeyond", repeat('x', 20000), "x", "yy", "", true},
        SubstituteCase{"GrowingReplacementStaysInside", repeat('x', 10000), "x", "yy", repeat('y', 20000)},
        SubstituteCase{"LongestSearchFoundAtOne", repeat('s', 32767), repeat('s', 32767), "r", "", true},
        SubstituteCase{"LongestSearchNotFound", "abc", repeat('s', 32767), "r", "abc"},
        SubstituteCase{"SearchTooLong", "abc", repeat('s', 32768), "r", "", true}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(Substitute, ManyHitsAndLongChainsStayFast) {
  ScriptedPlatform platform;
  std::string lines;
  for (int n = 0; n < 5000; ++n) lines += "LOD 0|";
  std::string expected;
  for (int n = 0; n < 5000; ++n) expected += "LOD 1|";
  EXPECT_EQ(Substitute(platform, lines + repeat('.', 1'000'000), "LOD 0", "LOD 1"),
            expected + repeat('.', 1'000'000));
  // Every replacement forms a new hit at position 1.
  EXPECT_EQ(Substitute(platform, repeat('x', 1'000'000), "xx", "x"), "x");
  EXPECT_TRUE(platform.messages.empty());
}

TEST(DelimitedText, LongDelimiterThatAlmostMatchesEverywhereStaysFast) {
  ScriptedPlatform platform;
  std::string text(1'000'000, 'a');
  std::string pattern = std::string(30000, 'a') + "b";
  EXPECT_EQ(GetElement(platform, text, pattern, 0), text);
  EXPECT_EQ(Substitute(platform, text, pattern, "x"), text);
  EXPECT_TRUE(platform.messages.empty());
}

// Substitute exactly as written down: every search starts over at position 1.
// nullopt when it has not ended after a thousand replacements or has grown long.
std::optional<std::string> referenceSubstitute(std::string copy, const std::string& search,
                                               const std::string& replacement) {
  for (int replacements = 0; replacements < 1000; ++replacements) {
    std::size_t found = copy.find(search);
    if (found == std::string::npos) return copy;
    copy = copy.substr(0, found) + replacement + copy.substr(found + search.size());
    if (copy.size() > 2000) return std::nullopt;
  }
  return std::nullopt;
}

TEST(Substitute, AgreesWithRestartingAtPositionOne) {
  std::mt19937 random(5);
  auto word = [&](int shortest, int longest) {
    std::string text;
    for (int n = shortest + static_cast<int>(random() % (longest - shortest + 1)); n > 0; --n) {
      text += "ab"[random() % 2];
    }
    return text;
  };
  for (int round = 0; round < 20000; ++round) {
    std::string text = word(0, 12), search = word(1, 3), replacement = word(0, 4);
    ScriptedPlatform platform;
    std::string got = Substitute(platform, text, search, replacement);
    // A replacement that holds the search text never runs out of hits.
    bool endless = text.find(search) != std::string::npos && replacement.find(search) != std::string::npos;
    std::optional<std::string> expected =
        endless ? std::nullopt : referenceSubstitute(text, search, replacement);
    if (expected) {
      ASSERT_EQ(got, *expected) << text << " / " << search << " / " << replacement;
      ASSERT_TRUE(platform.messages.empty());
    } else if (platform.messages.empty() && !endless) {
      // A long chain that did end: what is left holds no hit.
      ASSERT_EQ(got.find(search), std::string::npos) << text << " / " << search << " / " << replacement;
    } else {
      ASSERT_EQ(got, "") << text << " / " << search << " / " << replacement;
      ASSERT_EQ(platform.messages, std::vector<std::string>{kSubstituteOverflow});
    }
  }
}

}  // namespace
}  // namespace korvane
