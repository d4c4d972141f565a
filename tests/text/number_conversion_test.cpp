#include "text/number_conversion.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <ostream>
#include <string>

#include "runtime/failure.h"

namespace korvane {
namespace {

// Runs f and gives the number of the failure it throws, 0 for none.
template <class F>
int failureOf(F&& f) {
  try {
    f();
  } catch (const RuntimeFailure& failure) {
    return failure.number();
  }
  return 0;
}

struct LeadingCase {
  const char* name;
  std::string text;
  double expected;
  friend std::ostream& operator<<(std::ostream& out, const LeadingCase& c) { return out << c.name; }
};

class LeadingNumberReads : public ::testing::TestWithParam<LeadingCase> {};

TEST_P(LeadingNumberReads, TheNumberTheTextBeginsWith) {
  double got = LeadingNumber(GetParam().text);
  EXPECT_EQ(got, GetParam().expected) << '"' << GetParam().text << '"';
  EXPECT_FALSE(std::signbit(got) && got == 0) << "negative zero";
}

INSTANTIATE_TEST_SUITE_P(
    Texts, LeadingNumberReads,
    ::testing::Values(
        LeadingCase{"Empty", "", 0}, LeadingCase{"PlainWhole", "42", 42},
        LeadingCase{"LettersBehindDigits", "12abc", 12}, LeadingCase{"PeriodFirst", ".5", 0.5},
        LeadingCase{"Minus", "-3", -3}, LeadingCase{"Plus", "+7", 7}, LeadingCase{"LetterFirst", "abc12", 0},
        LeadingCase{"WordTwo", "two", 0}, LeadingCase{"SecondPeriodEnds", "1.2.3", 1.2},
        LeadingCase{"CommaEnds", "1,5", 1}, LeadingCase{"BlankBetweenDigits", "1 2", 12},
        LeadingCase{"TabsLineFeedsAnywhere", " \t\n-\t1 \n2 . 5", -12.5},
        LeadingCase{"CarriageReturnEnds", "1\r2", 1}, LeadingCase{"BlankBetweenSignAndDigit", "- 3", -3},
        LeadingCase{"TwoSigns", "+-3", 0}, LeadingCase{"SignAlone", "-", 0},
        LeadingCase{"PeriodAlone", ".", 0}, LeadingCase{"SignPeriod", "-.", 0},
        LeadingCase{"TrailingPeriod", "5.", 5}, LeadingCase{"MinusZero", "-0.000", 0},
        LeadingCase{"LeadingZeros", "000123.4500", 123.45}, LeadingCase{"ObjectsBehind", "2 objects", 2},
        LeadingCase{"SmallE", "1e2", 100}, LeadingCase{"CapitalE", "1E2", 100},
        LeadingCase{"SmallD", "1d2", 100}, LeadingCase{"CapitalD", "1D-2", 0.01},
        LeadingCase{"ExponentPlus", "2.5e+1", 25}, LeadingCase{"ExponentWithoutDigits", "1e", 1},
        LeadingCase{"ExponentSignWithoutDigits", "1e-x", 1}, LeadingCase{"BlankInsideExponent", "1 e 2", 100},
        LeadingCase{"SecondExponentEnds", "1e2e3", 100}, LeadingCase{"PeriodInExponentEnds", "1e2.5", 100},
        LeadingCase{"ExponentWithoutMantissa", "e5", 0}, LeadingCase{"PeriodThenExponent", ".e5", 0},
        LeadingCase{"FractionExponent", "0.00125E3", 1.25}, LeadingCase{"TinyUnderflowsToZero", "1e-999", 0},
        LeadingCase{"NegativeTiny", "-1e-400", 0}, LeadingCase{"ZeroWithHugeExponent", "0e999999", 0},
        LeadingCase{"HugeNegativeExponentDigits", "5e-99999999999999999999999", 0},
        LeadingCase{"LargestDouble", "1.7976931348623157e308", 1.7976931348623157e308},
        LeadingCase{"ManyZerosThenExponent", "0." + std::string(500, '0') + "1e600", 1e99},
        LeadingCase{"HexSmall", "&H1F", 31}, LeadingCase{"HexSmallLetters", "&hff", 255},
        LeadingCase{"HexWrapsSixteenBits", "&HFFFF", -1},
        LeadingCase{"HexSixteenBitLowest", "&H8000", -32768},
        LeadingCase{"HexSixteenBitHighest", "&H7FFF", 32767},
        LeadingCase{"HexBeyondSixteenBits", "&H10000", 65536},
        LeadingCase{"HexWrapsThirtyTwoBits", "&HFFFFFFFF", -1},
        LeadingCase{"HexThirtyTwoBitLowest", "&H80000000", -2147483648.0},
        LeadingCase{"HexLeadingZeros", "&H00000000000001", 1}, LeadingCase{"HexStopsAtNonDigit", "&H1G", 1},
        LeadingCase{"HexExponentLetterIsDigit", "&H1E2", 482}, LeadingCase{"HexWithoutDigits", "&H", 0},
        LeadingCase{"OctalSmall", "&O17", 15}, LeadingCase{"OctalSmallLetter", "&o777", 511},
        LeadingCase{"OctalWraps", "&O177777", -1}, LeadingCase{"OctalStopsAtEight", "&O78", 7},
        LeadingCase{"AmpersandOther", "&X12", 0}, LeadingCase{"AmpersandAlone", "&", 0},
        LeadingCase{"SignBeforeMark", "-&H1", 0}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(LeadingNumber, OrdinaryDecimalsAreExact) {
  EXPECT_EQ(LeadingNumber("0.1"), 0.1);
  EXPECT_EQ(LeadingNumber("123.456"), 123.456);
  EXPECT_EQ(LeadingNumber("9007199254740993"), 9007199254740993.0);
  EXPECT_EQ(LeadingNumber("2.2250738585072014e-308"), 2.2250738585072014e-308);
  EXPECT_EQ(LeadingNumber("4.9e-324"), 4.9e-324);
}

TEST(LeadingNumber, ReadsThePeriodWhateverTheLocale) {
  const char* previous = std::setlocale(LC_NUMERIC, nullptr);
  std::string saved = previous ? previous : "C";
  bool switched = std::setlocale(LC_NUMERIC, "de_DE.UTF-8") || std::setlocale(LC_NUMERIC, "fr_FR.UTF-8");
  EXPECT_EQ(LeadingNumber("2.5"), 2.5);
  EXPECT_EQ(LeadingNumber("2,5"), 2);
  std::setlocale(LC_NUMERIC, saved.c_str());
  if (!switched) GTEST_SKIP() << "no locale with a decimal comma installed";
}

struct OverflowCase {
  const char* name;
  std::string text;
  friend std::ostream& operator<<(std::ostream& out, const OverflowCase& c) { return out << c.name; }
};

class LeadingNumberOverflows : public ::testing::TestWithParam<OverflowCase> {};

TEST_P(LeadingNumberOverflows, FailsWithOverflowNeverInfinity) {
  EXPECT_EQ(failureOf([&] { LeadingNumber(GetParam().text); }), failure_number::Overflow);
}

INSTANTIATE_TEST_SUITE_P(Texts, LeadingNumberOverflows,
                         ::testing::Values(OverflowCase{"ExponentBeyondDouble", "1e999"},
                                           OverflowCase{"NegativeBeyondDouble", "-1e999"},
                                           OverflowCase{"JustAboveLargest", "1.8e308"},
                                           OverflowCase{"DExponent", "1D309"},
                                           OverflowCase{"ManyDigits", std::string(400, '9')},
                                           OverflowCase{"HugeExponentDigits", "1e99999999999999999999999"},
                                           OverflowCase{"HexBeyondThirtyTwoBits", "&H100000000"},
                                           OverflowCase{"HexLongDigits", "&H" + std::string(40, 'F')},
                                           OverflowCase{"OctalBeyondThirtyTwoBits", "&O40000000000"}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(LeadingNumber, LongAndOddTextsEndQuickly) {
  EXPECT_EQ(LeadingNumber(std::string(1'000'000, ' ') + "7"), 7);
  EXPECT_EQ(LeadingNumber("1" + std::string(1'000'000, '0') + "e-1000000"), 1);
  EXPECT_EQ(LeadingNumber("0." + std::string(1'000'000, '0')), 0);
  std::string everyByte;
  for (int c = 1; c < 256; ++c) everyByte += static_cast<char>(c);
  EXPECT_EQ(LeadingNumber(everyByte), 0);
  EXPECT_EQ(LeadingNumber(std::string("5\0"
                                      "6",
                                      3)),
            5);
}

struct RoundCase {
  const char* name;
  double value;
  WholeWidth width;
  int expected;  // failure 6 is written as kOverflow
  friend std::ostream& operator<<(std::ostream& out, const RoundCase& c) { return out << c.name; }
};
constexpr int kOverflow = 1 << 30;

class RoundToWholeGives : public ::testing::TestWithParam<RoundCase> {};

TEST_P(RoundToWholeGives, NearestHalvesToEvenWithinTheWidth) {
  const RoundCase& c = GetParam();
  if (c.expected == kOverflow) {
    EXPECT_EQ(failureOf([&] { RoundToWhole(c.value, c.width); }), failure_number::Overflow);
  } else {
    EXPECT_EQ(RoundToWhole(c.value, c.width), c.expected);
  }
}

constexpr auto b16 = WholeWidth::Bits16;
constexpr auto b32 = WholeWidth::Bits32;

INSTANTIATE_TEST_SUITE_P(
    Values, RoundToWholeGives,
    ::testing::Values(
        RoundCase{"ZeroPointFiveToZero", 0.5, b16, 0}, RoundCase{"OnePointFiveToTwo", 1.5, b16, 2},
        RoundCase{"TwoPointFiveToTwo", 2.5, b16, 2}, RoundCase{"MinusHalfToZero", -0.5, b16, 0},
        RoundCase{"MinusOnePointFive", -1.5, b16, -2}, RoundCase{"MinusTwoPointFive", -2.5, b32, -2},
        RoundCase{"AboveHalfUp", 2.51, b16, 3}, RoundCase{"BelowHalfDown", 2.49, b16, 2},
        RoundCase{"JustBelowHalf", 0.49999999999999994, b32, 0}, RoundCase{"Whole", -7, b32, -7},
        RoundCase{"Highest16", 32767, b16, 32767}, RoundCase{"Highest16Plus", 32767.4, b16, 32767},
        RoundCase{"Highest16HalfUpOverflows", 32767.5, b16, kOverflow},
        RoundCase{"Above16", 32768, b16, kOverflow}, RoundCase{"Lowest16", -32768, b16, -32768},
        RoundCase{"Lowest16HalfToEven", -32768.5, b16, -32768},
        RoundCase{"Below16", -32768.6, b16, kOverflow}, RoundCase{"Above16Fits32", 32768, b32, 32768},
        RoundCase{"Highest32", 2147483647.0, b32, 2147483647},
        RoundCase{"Highest32HalfOverflows", 2147483647.5, b32, kOverflow},
        RoundCase{"Lowest32", -2147483648.0, b32, -2147483647 - 1},
        RoundCase{"Lowest32HalfToEven", -2147483648.5, b32, -2147483647 - 1},
        RoundCase{"Below32", -2147483649.0, b32, kOverflow}, RoundCase{"Huge", 1e300, b32, kOverflow},
        RoundCase{"Infinity", INFINITY, b32, kOverflow}, RoundCase{"NotANumber", NAN, b16, kOverflow}),
    [](const auto& info) { return std::string(info.param.name); });

// Text to whole number as a source's NumberOfLOD is read.
struct WholeCase {
  const char* name;
  const char* text;
  int expected;
  friend std::ostream& operator<<(std::ostream& out, const WholeCase& c) { return out << c.name; }
};

class TextToWholeNumber : public ::testing::TestWithParam<WholeCase> {};

TEST_P(TextToWholeNumber, LeadingNumberThenRoundToWhole) {
  EXPECT_EQ(RoundToWhole(LeadingNumber(GetParam().text), WholeWidth::Bits32), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    NumberOfLOD, TextToWholeNumber,
    ::testing::Values(WholeCase{"One", "1", 1}, WholeCase{"Two", "2", 2}, WholeCase{"Three", "3", 3},
                      WholeCase{"Zero", "0", 0}, WholeCase{"MinusOne", "-1", -1},
                      WholeCase{"HalfToEvenZero", "0.5", 0}, WholeCase{"PointSix", "0.6", 1},
                      WholeCase{"OneAndHalfToTwo", "1.5", 2}, WholeCase{"TwoPointFour", "2.4", 2},
                      WholeCase{"TwoAndHalfToTwo", "2.5", 2}, WholeCase{"TwoPointSix", "2.6", 3},
                      WholeCase{"TwoObjects", "2 objects", 2}, WholeCase{"WordTwo", "two", 0}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(TextToWholeNumber, TenThousandMillionOverflows) {
  EXPECT_EQ(failureOf([] { RoundToWhole(LeadingNumber("10000000000"), WholeWidth::Bits32); }),
            failure_number::Overflow);
}

}  // namespace
}  // namespace korvane
