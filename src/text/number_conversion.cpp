// Placeholder until implemented.
#include "text/number_conversion.h"

namespace korvane {
double LeadingNumber(std::string_view) { return 0; }
std::int32_t RoundToWhole(double v, WholeWidth) { return static_cast<std::int32_t>(v); }
}  // namespace korvane
