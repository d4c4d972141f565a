#include "text/delimited_text.h"

#include <gtest/gtest.h>

#include <optional>
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

// The walk exactly as written down, with positions checked as 16-bit values.
std::optional<std::string> referenceElement(const std::string& text, const std::string& delimiter,
                                            int index) {
  std::size_t start = 1;
  for (int count = 0;; ++count) {
    std::size_t found = start - 1 <= text.size() ? text.find(delimiter, start - 1) : std::string::npos;
    std::size_t hit = found == std::string::npos ? 0 : found + 1;
    if (hit > 32767) return std::nullopt;
    if (count == index) {
      if (start - 1 >= text.size()) return std::string();
      return hit ? text.substr(start - 1, hit - start) : text.substr(start - 1);
    }
    if (hit == 0) return std::string();
    if (hit + delimiter.size() > 32767) return std::nullopt;
    start = hit + delimiter.size();
  }
}

TEST(GetElement, AgreesWithTheStepByStepWalk) {
  std::mt19937 random(7);
  for (int round = 0; round < 20000; ++round) {
    std::string text, delimiter;
    for (int n = random() % 9; n > 0; --n) text += ",;a"[random() % 3];
    for (int n = 1 + random() % 2; n > 0; --n) delimiter += ",;"[random() % 2];
    int index = static_cast<int>(random() % 7) - 1;
    ScriptedPlatform platform;
    ASSERT_EQ(GetElement(platform, text, delimiter, static_cast<std::int16_t>(index)),
              *referenceElement(text, delimiter, index))
        << '"' << text << "\" \"" << delimiter << "\" " << index;
  }
}

TEST(GetFileName, GivesTheElementBeforeTheFirstEmptyOne) {
  const std::pair<std::string, std::string> cases[] = {
      {"C:\\maps\\wall.tga", "wall.tga"},
      {"wall.tga", "wall.tga"},
      {"\\\\server\\maps\\wall.tga", "wall.tga"},
      {"C:\\maps\\", "maps"},
      {"C:\\maps\\\\wall.tga", "maps"},
      {"\\", ""},
      {"\\\\\\x", "x"},
      {"C:/maps/wall.tga", "C:/maps/wall.tga"},
  };
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
      {"a-b-c", "-", "", 0, "abc", false},
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

TEST(Substitute, AgreesWithRestartingAtPositionOne) {
  std::mt19937 random(5);
  auto word = [&](int shortest, int longest) {
    std::string text;
    for (int n = shortest + static_cast<int>(random() % (longest - shortest + 1)); n > 0; --n)
      text += "ab"[random() % 2];
    return text;
  };
  for (int round = 0; round < 20000; ++round) {
    std::string text = word(0, 12), search = word(1, 3), replacement = word(0, 4);
    // A replacement that holds the search text, or grows, may never run out of hits.
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
