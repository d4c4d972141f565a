#pragma once
// The program's two conversions: text to number, and real to whole number.

#include <cstdint>
#include <string_view>

namespace korvane {

// The number the text begins with, 0 when there is none. Blanks, tabs and
// line feeds are skipped wherever they stand; one period; E or D exponents;
// &H and &O prefixes. A number out of range is failure 6.
double LeadingNumber(std::string_view text);

enum class WholeWidth { Bits16, Bits32 };

// Nearest whole number, halves to the even neighbour. Out of the width's range
// (or not a number) is failure 6 "Overflow".
std::int32_t RoundToWhole(double value, WholeWidth width);

}  // namespace korvane
