#include "text/number_conversion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "support/failures.h"

namespace korvane {
namespace {

using testing::failureNumberOf;

TEST(LeadingNumber, ReadsTheNumberTheTextBeginsWith) {
  const std::pair<std::string, double> cases[] = {
      {"12abc", 12},
      {".5", 0.5},
      {"-3", -3},
      {"abc12", 0},
      {"1.2.3", 1.2},
      {" \t\n-\t1 \n2 . 5", -12.5},
      {"1\r2", 1},
      {"+-3", 0},
      {"-0.000", 0},
      {"1D-2", 0.01},
      {"2.5e+1", 25},
      {"1e-x", 1},
      {"1e2.5", 100},
      {"1e-999", 0},
      {"0." + std::string(500, '0') + "1e600", 1e99},
      {"&hff", 255},
      {"&HFFFF", -1},
      {"&H10000", 65536},
      {"&H80000000", -2147483648.0},
      {"&H1E2", 482},
      {"&H", 0},
      {"&O177777", -1},
      {"&O78", 7},
      {"-&H1", 0},
      {"9007199254740993", 9007199254740993.0},
      {"4.9e-324", 4.9e-324},
      {std::string(100000, ' ') + "7", 7},
      {std::string("5\0006", 3), 5},
  };
  for (const auto& [text, expected] : cases) {
    const double got = LeadingNumber(text);
    EXPECT_EQ(got, expected) << '"' << text.substr(0, 40) << '"';
    EXPECT_FALSE(std::signbit(got) && got == 0) << "negative zero from " << text;
  }
}

TEST(LeadingNumber, BeyondARealIsOverflowNeverInfinity) {
  const std::vector<std::string> texts = {"1e999",       "-1e999",       "1D309", std::string(400, '9'),
                                          "&H100000000", "&O40000000000"};
  for (const std::string& text : texts) {
    EXPECT_EQ(failureNumberOf([&] { LeadingNumber(text); }), 6) << text;
  }
}

TEST(RoundToWhole, NearestHalvesToEvenWithinTheWidth) {
  constexpr auto b16 = WholeWidth::Bits16;
  constexpr auto b32 = WholeWidth::Bits32;
  struct Case {
    double value;
    WholeWidth width;
    int expected;
  };
  const Case cases[] = {{0.5, b16, 0},
                        {1.5, b16, 2},
                        {2.5, b16, 2},
                        {-0.5, b16, 0},
                        {-2.5, b32, -2},
                        {2.51, b16, 3},
                        {0.49999999999999994, b32, 0},
                        {32767.4, b16, 32767},
                        {-32768.5, b16, -32768},
                        {32768, b32, 32768},
                        {-2147483648.5, b32, -2147483647 - 1}};
  for (const Case& c : cases) EXPECT_EQ(RoundToWhole(c.value, c.width), c.expected) << c.value;
  const Case overflows[] = {{32767.5, b16, 0},       {-32768.6, b16, 0}, {2147483647.5, b32, 0},
                            {-2147483649.0, b32, 0}, {INFINITY, b32, 0}, {NAN, b16, 0}};
  for (const Case& c : overflows)
    EXPECT_EQ(failureNumberOf([&] { RoundToWhole(c.value, c.width); }), 6) << c.value;
}

}  // namespace
}  // namespace korvane
