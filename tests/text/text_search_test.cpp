// Long search texts go through the linear finder: it must find what the
// library's search finds, also where the text repeats parts of itself.

#include "text/text_search.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace korvane::detail {
namespace {

TEST(TextFinder, FindsWhatTheLibraryFindsForSelfOverlappingPatterns) {
  std::mt19937 random(7);
  auto randomText = [&](std::size_t size) {
    std::string text(size, 'a');
    for (char& c : text) c = random() % 4 == 0 ? 'b' : 'a';
    return text;
  };
  for (int round = 0; round < 2000; ++round) {
    const std::string pattern = randomText(17 + random() % 8);
    const std::string text =
        randomText(random() % 120) + (round % 2 ? pattern : "") + randomText(random() % 20);
    const std::size_t from = random() % 8;
    EXPECT_EQ(TextFinder(pattern).find(text, from), std::string_view(text).find(pattern, from))
        << pattern << " in " << text << " from " << from;
  }
}

TEST(TextFinder, NeverLooksPastTheEndOfTheText) {
  const std::string buffer = "xxaaaaaaaaaaaaaaaaaaab";
  const std::string_view pattern = std::string_view(buffer).substr(2);
  EXPECT_EQ(TextFinder(pattern).find(std::string_view(buffer).substr(0, buffer.size() - 1)),
            std::string::npos);
}

}  // namespace
}  // namespace korvane::detail
