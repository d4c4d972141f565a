#include "text/delimited_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "support/scripted_platform.h"

namespace korvane {
namespace {

using testing::ScriptedPlatform;
using Messages = std::vector<std::string>;

std::string repeat(char c, std::size_t count) {
  return std::string(count, c);
}

struct Case {
  std::string text, pattern, other;  // other: Substitute's replacement
  int index;                         // GetElement's index
  std::string expected;
  bool overflows;
};

// Positions are 16-bit: a hit or a resume point beyond 32767 is the overflow.
TEST(GetElement, GivesTheElementOrShowsTheOverflow) {
  const Case cases[] = {
      {"1,2,3", ",", "", 2, "3", false},
      {"1,2,3", ",", "", 3, "", false},
      {"1,2,3", ",", "", -1, "", false},
      {"1,,3", ",", "", 2, "3", false},
      {"a:::b", "::", "", 1, ":b", false},
      {"a,b", "", "", 0, "a,b", false},
      {repeat('a', 32766) + ",z", ",", "", 0, repeat('a', 32766), false},
      {repeat('a', 32767) + ",z", ",", "", 0, "", true},
      {repeat('a', 32766) + ",z", ",", "", 1, "", true},
      {repeat('a', 32765) + "," + repeat('z', 40000), ",", "", 1, repeat('z', 40000), false},
      {"x," + repeat('z', 40000) + ",y", ",", "", -1, "", true},
      {repeat('a', 32764) + ",,b", ",,", "", 1, "b", false},
      {"abc", repeat(',', 32768), "", 0, "", true},
  };
  for (const Case& c : cases) {
    ScriptedPlatform platform;
    EXPECT_EQ(GetElement(platform, c.text, c.pattern, static_cast<std::int16_t>(c.index)), c.expected)
        << c.text.substr(0, 20) << " " << c.index;
    EXPECT_EQ(platform.messages, c.overflows ? Messages{"GetElement:  6 - 0"} : Messages{})
        << c.text.substr(0, 20);
  }
}

TEST(GetFileName, GivesTheElementBeforeTheFirstEmptyOne) {
  const std::pair<std::string, std::string> cases[] = {{"C:\\maps\\wall.tga", "wall.tga"},
                                                       {"wall.tga", "wall.tga"},
                                                       {"\\\\server\\maps\\wall.tga", "wall.tga"},
                                                       {"C:\\maps\\", "maps"},
                                                       {"C:\\maps\\\\wall.tga", "maps"},
                                                       {"\\", ""},
                                                       {"\\\\\\x", "x"},
                                                       {"C:/maps/wall.tga", "C:/maps/wall.tga"}};
  for (const auto& [path, expected] : cases) {
    ScriptedPlatform platform;
    EXPECT_EQ(GetFileName(platform, path), expected) << path;
    EXPECT_TRUE(platform.messages.empty());
  }
  // A failure of the walk shows GetElement's message once and ends the walk.
  ScriptedPlatform platform;
  EXPECT_EQ(GetFileName(platform, "C:\\maps\\" + repeat('d', 40000) + "\\wall.tga"), "maps");
  EXPECT_EQ(platform.messages, Messages{"GetElement:  6 - 0"});
}

TEST(Substitute, GivesTheNewTextOrShowsTheOverflow) {
  const Case cases[] = {
      {"[LOD 0] Name=LOD 0 mesh", "LOD 0", "LOD 1", 0, "[LOD 1] Name=LOD 1 mesh", false},
      {"lod 0", "LOD 0", "LOD 1", 0, "lod 0", false},
      {"abc", "", "x", 0, "abc", false},
      {"aabb", "ab", "ba", 0, "bbaa", false},
      {"xLOD 0", "LOD 0", "<LOD 0>", 0, "", true},
      {"aab", "ab", "bbaa", 0, "", true},
      {repeat('.', 32761) + "LOD 0", "LOD 0", "LOD 1", 0, repeat('.', 32761) + "LOD 1", false},
      {repeat('.', 32762) + "LOD 0", "LOD 0", "LOD 1", 0, "", true},
      {"LOD 0" + repeat('.', 40000) + "LOD 0", "LOD 0", "LOD 1", 0, "", true},
      {"LOD 0" + repeat('.', 100000), "LOD 0", "LOD 1", 0, "LOD 1" + repeat('.', 100000), false},
      {repeat('x', 20000), "x", "yy", 0, "", true},
      {repeat('x', 1000000), "xx", "x", 0, "x", false},
      {"abc", repeat('s', 32768), "r", 0, "", true},
  };
  for (const Case& c : cases) {
    ScriptedPlatform platform;
    EXPECT_EQ(Substitute(platform, c.text, c.pattern, c.other), c.expected) << c.text.substr(0, 20);
    EXPECT_EQ(platform.messages, c.overflows ? Messages{"Substitute:  6 - 0"} : Messages{})
        << c.text.substr(0, 20);
  }
}

// A replacement shorter than the search text always runs out of hits, so
// the plain restart from position 1 is a model.
TEST(Substitute, AgreesWithRestartingAtPositionOne) {
  std::mt19937 random(5);
  auto word = [&](int shortest, int longest) {
    std::string text(shortest + random() % (longest - shortest + 1), ' ');
    for (char& c : text) c = "ab"[random() % 2];
    return text;
  };
  for (int round = 0; round < 20000; ++round) {
    std::string text = word(0, 12), search = word(1, 3), replacement = word(0, 2);
    if (replacement.size() >= search.size()) continue;
    std::string expected = text;
    for (std::size_t found; (found = expected.find(search)) != std::string::npos;) {
      expected.replace(found, search.size(), replacement);
    }
    ScriptedPlatform platform;
    ASSERT_EQ(Substitute(platform, text, search, replacement), expected) << text << " / " << search;
    ASSERT_TRUE(platform.messages.empty());
  }
}

}  // namespace
}  // namespace korvane
