// The vectorised searches against plain loops, on random texts of few
// distinct bytes, at every length and offset around the 16-byte lanes.

#include "text/byte_scan.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace korvane::detail {
namespace {

char upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

std::size_t plainFind(const std::string& text, std::size_t from, const std::string& needle, bool fold) {
  for (std::size_t i = from; i + needle.size() <= text.size(); ++i) {
    std::size_t k = 0;
    while (k < needle.size() && (fold ? upper(text[i + k]) : text[i + k]) == needle[k]) ++k;
    if (k == needle.size()) return i;
  }
  return std::string::npos;
}

std::size_t offsetOf(const char* hit, const std::string& text) {
  return hit ? static_cast<std::size_t>(hit - text.data()) : std::string::npos;
}

TEST(ByteScan, AgreesWithPlainLoops) {
  const std::string alphabet = "aAbB#=\r\n0L";
  const std::string needles[] = {"a", "AA", "AB", "A#B=", "LOD 0", "AAAAAAAAAAAAAAAAAAAA"};
  std::mt19937 random(7);
  for (int round = 0; round < 3000; ++round) {
    std::string text(random() % (round % 3 ? 70 : 700), ' ');
    for (char& c : text) c = alphabet[random() % alphabet.size()];
    const std::size_t from = text.empty() ? 0 : random() % text.size();
    const char* begin = text.data() + from;
    const char* end = text.data() + text.size();
    for (const std::string& needle : needles) {
      ASSERT_EQ(offsetOf(findKeyword(begin, end, needle), text), plainFind(text, from, needle, true)) << text;
      ASSERT_EQ(offsetOf(findText(begin, end, needle), text), plainFind(text, from, needle, false)) << text;
      // Left to right, and never where an earlier replacement overlaps.
      const std::string replacement = "b" + needle.substr(1);
      std::string expected = text;
      for (std::size_t at = from; (at = expected.find(needle, at)) != std::string::npos;
           at += needle.size()) {
        expected.replace(at, needle.size(), replacement);
      }
      std::string replaced = text;
      replaceEach(replaced.data() + from, replaced.data() + replaced.size(), needle, replacement);
      ASSERT_EQ(replaced, expected) << text;
    }
    ASSERT_EQ(offsetOf(findLineEnd(begin, end), text), text.find_first_of("\r\n", from)) << text;

    std::size_t crs = 0;
    bool bare = false;
    bool lonelyCR = false;
    std::vector<std::uint64_t> anchors;
    for (std::size_t i = 0; i < text.size(); ++i) {
      bare |= text[i] == '\n' && (i == 0 || text[i - 1] != '\r');
      lonelyCR |= text[i] == '\r' && i + 1 < text.size() && text[i + 1] != '\n';
      if (text[i] == '\r' && ++crs % LineEndCounter::kAnchorEvery == 0) anchors.push_back(i);
    }
    // Pieces of any size keep the CR that closed the last one in mind.
    LineEndCounter counter;
    counter.add(text.data(), text.data() + from);
    counter.add(begin, end);
    ASSERT_EQ(counter.carriageReturns(), crs) << text;
    ASSERT_EQ(counter.bareLineFeed(), bare) << text;
    ASSERT_EQ(counter.loneCarriageReturn(), lonelyCR) << text;
    ASSERT_EQ(counter.takeAnchors(), anchors) << text;
  }
}

}  // namespace
}  // namespace korvane::detail
