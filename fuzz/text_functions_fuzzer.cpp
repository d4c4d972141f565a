// Any text through the text functions and the conversions: no crash, no
// failure but number 6, and messages only in the frames of GetElement and
// Substitute. GetElement, GetFileName and Substitute are also held against
// plain models of their walks, 16-bit position guard included.

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <regex>
#include <string>
#include <string_view>

#include "advanced/autolod.h"
#include "fuzz_support.h"
#include "runtime/failure.h"
#include "text/delimited_text.h"
#include "text/number_conversion.h"

using namespace korvane;
using namespace korvane::fuzzing;

namespace {

constexpr std::size_t kLargestPosition = 32767;

// What a model says a text function gives: a result, or the overflow.
struct Outcome {
  std::string result;
  bool overflow = false;
};

// GetElement's walk from delimiter to delimiter, positions counted from 1.
Outcome modelGetElement(std::string_view text, std::string_view delimiter, std::int16_t index) {
  std::size_t start = 1;
  for (std::int32_t count = 0;; ++count) {
    const std::size_t found = start - 1 <= text.size() ? text.find(delimiter, start - 1) : text.npos;
    const std::size_t hit = found == text.npos ? 0 : found + 1;
    if (hit > kLargestPosition) return {"", true};
    if (count == index) return {std::string(text.substr(start - 1, hit == 0 ? text.npos : hit - start))};
    if (hit == 0) return {};
    if (hit + delimiter.size() > kLargestPosition) return {"", true};
    start = hit + delimiter.size();
  }
}

// GetElement for index 0, 1, 2, ... until an empty element; an overflow shows
// its message and gives the empty string, which ends the walk like any other.
Outcome modelGetFileName(std::string_view path) {
  std::string_view copy = path.starts_with("\\\\") ? path.substr(2) : path;
  std::string previous;
  for (auto index = static_cast<std::int16_t>(copy.starts_with('\\'));; ++index) {
    Outcome element = modelGetElement(copy, "\\", index);
    if (element.overflow || element.result.empty()) return {previous, element.overflow};
    previous = element.result;
  }
}

// The search starts over after each replacement; within Substitute's limit a
// new hit can only begin behind the point where the joined parts meet, so the
// model looks from there on.
Outcome modelSubstitute(std::string copy, std::string_view search, std::string_view replacement) {
  for (std::size_t from = 0, found; (found = copy.find(search, from)) != std::string::npos;) {
    if (found + search.size() + 1 > kLargestPosition) return {"", true};
    copy.replace(found, search.size(), replacement);
    from = found >= search.size() - 1 ? found - (search.size() - 1) : 0;
  }
  return {copy};
}

// Substitute's limit: a search text, and a replacement that neither holds it
// nor could form it anew with the text around it at any overlap. A shorter
// replacement always runs out of hits.
bool withinSubstituteLimit(std::string_view search, std::string_view replacement) {
  if (search.empty() || replacement.find(search) != replacement.npos) return false;
  if (replacement.size() < search.size()) return true;
  const auto m = static_cast<std::ptrdiff_t>(search.size());
  const auto r = static_cast<std::ptrdiff_t>(replacement.size());
  for (std::ptrdiff_t shift = 1 - m; shift < r; ++shift) {
    bool agrees = true;
    for (std::ptrdiff_t p = std::max<std::ptrdiff_t>(0, shift); p < std::min(r, shift + m); ++p) {
      agrees =
          agrees && replacement[static_cast<std::size_t>(p)] == search[static_cast<std::size_t>(p - shift)];
    }
    if (agrees) return false;
  }
  return true;
}

// A text function against its model: no failure gets out, the result is the
// model's, and the overflow, and only it, shows its one message.
template <class Call>
void checkAgainstModel(HeadlessPlatform& platform, const std::string& call, Call&& run,
                       const Outcome& expected, const std::string& frame) {
  std::string result;
  try {
    result = run();
  } catch (...) {
    fail(call + " let a failure out");
  }
  FUZZ_CHECK(result == expected.result,
             call + " gave " + shown(result) + ", expected " + shown(expected.result));
  FUZZ_CHECK(platform.messages == (expected.overflow ? Lines{frame + ":  6 - 0"} : Lines{}),
             call + " showed " + shown(crlf(platform.messages)));
  platform.messages.clear();
}

// Runs a conversion that may fail only with the overflow; true if it did.
template <class Call>
bool overflowsOnly(Call&& call, const std::string& what) {
  try {
    call();
    return false;
  } catch (const RuntimeFailure& failure) {
    FUZZ_CHECK(failure.number() == failure_number::Overflow, what + " failed with " + failure.description());
    return true;
  } catch (...) {
    fail(what + " let something other than a run-time failure out");
  }
}

void checkLeadingNumber(std::string_view text) {
  double value = 0;
  const std::string call = "LeadingNumber(" + shown(text) + ")";
  if (!overflowsOnly([&] { value = LeadingNumber(text); }, call))
    FUZZ_CHECK(!std::isnan(value), call + " gave NaN");
}

void checkRoundToWhole(double value) {
  for (WholeWidth width : {WholeWidth::Bits16, WholeWidth::Bits32}) {
    const double highest = width == WholeWidth::Bits16 ? 32767.0 : 2147483647.0;
    char call[80];
    std::snprintf(call, sizeof call, "RoundToWhole(%.17g, %d)", value, width == WholeWidth::Bits16 ? 16 : 32);
    // nearbyint under the default rounding mode: nearest, halves to even.
    const double nearest = std::nearbyint(value);
    const bool fits = std::isfinite(value) && nearest >= -highest - 1 && nearest <= highest;
    std::int32_t result = 0;
    FUZZ_CHECK(overflowsOnly([&] { result = RoundToWhole(value, width); }, call) == !fits,
               call + std::string(fits ? " overflowed" : " did not overflow"));
    FUZZ_CHECK(!fits || result == static_cast<std::int32_t>(nearest),
               call + (" gave " + std::to_string(result)));
  }
}

void checkNormalizeAutoLOD(std::string_view text) {
  const std::string call = "NormalizeAutoLOD(" + shown(text) + ")";
  std::string result;
  if (overflowsOnly([&] { result = NormalizeAutoLOD(text); }, call)) return;
  static const std::regex form(R"(^-?(0|[1-9][0-9]*)\.[0-9]{3}$)");
  FUZZ_CHECK(std::regex_match(result, form) && result != "-0.000", call + " gave " + shown(result));
  double number = 0;
  FUZZ_CHECK(!overflowsOnly([&] { number = LeadingNumber(text); }, call),
             call + " gave " + shown(result) + " where LeadingNumber overflows");
  FUZZ_CHECK(std::fabs(std::strtod(result.c_str(), nullptr) - number) <=
                 0.0005 * (1 + 1e-9) + 1e-13 * std::fabs(number),
             call + " gave " + shown(result) + " for the number " + std::to_string(number));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const std::string text = input.ConsumeRandomLengthString(2000);
  const std::string delimiter = input.ConsumeRandomLengthString(12);
  const std::string replacement = input.ConsumeRandomLengthString(12);
  const std::int16_t index = input.ConsumeBool() ? input.ConsumeIntegral<std::int16_t>()
                                                 : input.ConsumeIntegralInRange<std::int16_t>(-2, 40);
  double raw = 0;
  const std::uint64_t bits = input.ConsumeIntegral<std::uint64_t>();
  std::memcpy(&raw, &bits, sizeof raw);
  // Long texts are what the 16-bit guard is about: filler that holds no
  // character of the delimiter or search texts moves the rest of the text
  // past position 32,767.
  std::string longText = text;
  if (input.ConsumeBool()) {
    const std::string avoid = delimiter + ",\\LOD 0";
    char filler = 'x';
    while (avoid.find(filler) != std::string::npos) ++filler;
    longText.insert(input.ConsumeIntegralInRange<std::size_t>(0, text.size()),
                    input.ConsumeIntegralInRange<std::size_t>(32000, 33500), filler);
  }

  for (const std::string* number : {&text, &delimiter}) {
    checkLeadingNumber(*number);
    checkNormalizeAutoLOD(*number);
  }
  checkRoundToWhole(raw);
  try {
    checkRoundToWhole(LeadingNumber(text));
  } catch (const RuntimeFailure&) {
  }

  HeadlessPlatform platform;
  for (const std::string& by : {delimiter, std::string(",")}) {
    const std::string call =
        "GetElement(" + shown(longText) + ", " + shown(by) + ", " + std::to_string(index) + ")";
    auto run = [&] { return GetElement(platform, longText, by, index); };
    if (by.empty()) {
      // No caller passes an empty delimiter: it only has to come back.
      run();
      platform.messages.clear();
      continue;
    }
    checkAgainstModel(platform, call, run, modelGetElement(longText, by, index), "GetElement");
  }
  // A text of many backslashes would make the model's walk from the start for
  // every index too slow.
  for (bool padded : {false, true}) {
    const std::string& path = padded ? longText : text;
    if (padded && (longText.size() == text.size() || std::ranges::count(text, '\\') > 64)) continue;
    checkAgainstModel(
        platform, "GetFileName(" + shown(path) + ")", [&] { return GetFileName(platform, path); },
        modelGetFileName(path), "GetElement");
  }
  for (const auto& job : {std::pair<std::string, std::string>{delimiter, replacement}, {"LOD 0", "LOD 1"}}) {
    const std::string& search = job.first;
    const std::string& with = job.second;
    if (!withinSubstituteLimit(search, with)) continue;
    checkAgainstModel(
        platform, "Substitute(" + shown(longText) + ", " + shown(search) + ", " + shown(with) + ")",
        [&] { return Substitute(platform, longText, search, with); }, modelSubstitute(longText, search, with),
        "Substitute");
  }
  return 0;
}
