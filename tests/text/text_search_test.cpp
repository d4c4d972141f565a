#include "text/text_search.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace korvane::detail {
namespace {

TEST(TextFinder, AgreesWithTheLibrarySearchForShortAndLongPatterns) {
  std::mt19937 random(3);
  auto word = [&](std::size_t length) {
    std::string text;
    for (std::size_t n = 0; n < length; ++n) text += "ab"[random() % 4 == 0];
    return text;
  };
  for (int round = 0; round < 3000; ++round) {
    std::string pattern = word(1 + random() % 40);
    std::string text = word(random() % 200);
    if (round % 3 == 0) text.insert(random() % (text.size() + 1), pattern);
    std::size_t from = random() % (text.size() + 2);
    TextFinder finder(pattern);
    ASSERT_EQ(finder.find(text, from), std::string_view(text).find(pattern, from))
        << pattern << " in " << text << " from " << from;
  }
}

TEST(TextFinder, LongPatternThatAlmostMatchesEverywhereIsFoundQuickly) {
  std::string text(2'000'000, 'a');
  std::string pattern = std::string(32766, 'a') + "b";
  TextFinder finder(pattern);
  EXPECT_EQ(finder.find(text), std::string_view::npos);
  text += "b";
  EXPECT_EQ(finder.find(text), text.size() - pattern.size());
}

TEST(TextFinder, EmptyPatternIsFoundWhereTheSearchStarts) {
  TextFinder finder("");
  EXPECT_EQ(finder.find("abc", 2), 2u);
  EXPECT_EQ(finder.find("abc", 4), std::string_view::npos);
}

}  // namespace
}  // namespace korvane::detail
