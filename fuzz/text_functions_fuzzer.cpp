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
#include <optional>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include "advanced/autolod.h"
#include "fuzz_support.h"
#include "runtime/failure.h"
#include "runtime/headless_platform.h"
#include "text/delimited_text.h"
#include "text/number_conversion.h"

using namespace korvane;
using namespace korvane::fuzzing;

namespace {

constexpr std::size_t kLargestPosition = 32767;
const std::string kGetElementOverflow = "GetElement:  6 - 0";
const std::string kSubstituteOverflow = "Substitute:  6 - 0";

// What a model says a text function gives: a result, or the overflow.
struct Outcome {
  std::string result;
  bool overflow = false;
};

// GetElement's walk from delimiter to delimiter, positions counted from 1.
Outcome modelGetElement(std::string_view text, std::string_view delimiter, std::int16_t index) {
  std::size_t start = 1;
  std::int32_t count = 0;
  for (;;) {
    std::size_t found = start - 1 <= text.size() ? text.find(delimiter, start - 1) : std::string_view::npos;
    std::size_t hit = found == std::string_view::npos ? 0 : found + 1;
    if (hit > kLargestPosition) return {"", true};
    if (count == index) {
      if (hit == 0) return {std::string(text.substr(start - 1)), false};
      return {std::string(text.substr(start - 1, hit - start)), false};
    }
    if (hit == 0) return {"", false};
    ++count;
    if (hit + delimiter.size() > kLargestPosition) return {"", true};
    start = hit + delimiter.size();
  }
}

Outcome modelGetFileName(std::string_view path) {
  std::string_view copy = path.substr(0, 2) == "\\\\" ? path.substr(2) : path;
  std::int16_t index = !copy.empty() && copy.front() == '\\' ? 1 : 0;
  std::string previous;
  for (;; ++index) {
    Outcome element = modelGetElement(copy, "\\", index);
    // GetElement shows its overflow and gives the empty string, which ends
    // the walk like any empty element.
    if (element.overflow) return {previous, true};
    if (element.result.empty()) return {previous, false};
    previous = element.result;
  }
}

// The search starts over after each replacement; within Substitute's limit a
// new hit can only begin behind the point where the joined parts meet, so the
// model looks from there on.
Outcome modelSubstitute(std::string_view text, std::string_view search, std::string_view replacement) {
  std::string copy(text);
  std::size_t from = 0;
  for (;;) {
    std::size_t found = copy.find(search, from);
    if (found == std::string::npos) return {copy, false};
    std::size_t hit = found + 1;
    if (hit > kLargestPosition || hit + search.size() > kLargestPosition) return {"", true};
    copy.replace(found, search.size(), replacement);
    from = found >= search.size() - 1 ? found - (search.size() - 1) : 0;
  }
}

// Whether the search text could turn up again where the replacement meets the
// text around it.
bool canReappear(std::string_view search, std::string_view replacement) {
  const auto m = static_cast<std::ptrdiff_t>(search.size());
  const auto r = static_cast<std::ptrdiff_t>(replacement.size());
  for (std::ptrdiff_t shift = -(m - 1); shift < r; ++shift) {
    bool agrees = true;
    for (std::ptrdiff_t p = std::max<std::ptrdiff_t>(0, shift); p < std::min(r, shift + m) && agrees; ++p) {
      agrees = replacement[static_cast<std::size_t>(p)] == search[static_cast<std::size_t>(p - shift)];
    }
    if (agrees) return true;
  }
  return false;
}

// Substitute's limit: a search text, and a replacement that neither holds it
// nor forms it anew. A shorter replacement always runs out of hits.
bool withinSubstituteLimit(std::string_view search, std::string_view replacement) {
  if (search.empty() || replacement.find(search) != std::string_view::npos) return false;
  return replacement.size() < search.size() || !canReappear(search, replacement);
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
  const std::vector<std::string> messages =
      expected.overflow ? std::vector<std::string>{frame} : std::vector<std::string>{};
  FUZZ_CHECK(platform.messages == messages, call + " showed " + shown(platform.messages));
  platform.messages.clear();
}

// Runs a conversion that may fail only with the overflow.
template <class Call>
bool overflowsOnly(Call&& call, const std::string& what) {
  try {
    call();
    return false;
  } catch (const RuntimeFailure& failure) {
    FUZZ_CHECK(failure.number() == failure_number::Overflow,
               what + " failed with " + std::to_string(failure.number()) + " " + failure.description());
    return true;
  } catch (...) {
    fail(what + " let something other than a run-time failure out");
  }
}

// A text that is a plain decimal number and nothing a number could go on with
// behind it reads as the standard parser reads it.
void checkPlainNumber(std::string_view text, double value) {
  static const std::regex plain(R"(^[+-]?[0-9]{1,15}(\.[0-9]{1,6})?)");
  std::cmatch match;
  if (!std::regex_search(text.data(), text.data() + text.size(), match, plain)) return;
  std::string_view rest = text.substr(static_cast<std::size_t>(match.length(0)));
  if (!rest.empty() && std::strchr("0123456789.eEdD \t\n", rest.front()) != nullptr) return;
  double expected = std::strtod(std::string(match.str(0)).c_str(), nullptr);
  FUZZ_CHECK(std::fabs(value - expected) <= 1e-12 * std::max(1.0, std::fabs(expected)),
             "LeadingNumber(" + shown(text) + ") gave " + std::to_string(value));
}

void checkLeadingNumber(std::string_view text) {
  double value = 0;
  const std::string call = "LeadingNumber(" + shown(text) + ")";
  if (overflowsOnly([&] { value = LeadingNumber(text); }, call)) return;
  FUZZ_CHECK(!std::isnan(value), call + " gave NaN");
  checkPlainNumber(text, value);
}

void checkRoundToWhole(double value) {
  for (WholeWidth width : {WholeWidth::Bits16, WholeWidth::Bits32}) {
    const bool narrow = width == WholeWidth::Bits16;
    const double lowest = narrow ? -32768.0 : -2147483648.0;
    const double highest = narrow ? 32767.0 : 2147483647.0;
    char shownValue[64];
    std::snprintf(shownValue, sizeof shownValue, "%.17g", value);
    const std::string call = std::string("RoundToWhole(") + shownValue + (narrow ? ", 16)" : ", 32)");
    // nearbyint under the default rounding mode: nearest, halves to even.
    const double nearest = std::nearbyint(value);
    const bool fits = std::isfinite(value) && nearest >= lowest && nearest <= highest;
    std::int32_t result = 0;
    bool overflowed = overflowsOnly([&] { result = RoundToWhole(value, width); }, call);
    FUZZ_CHECK(overflowed == !fits, call + (fits ? " overflowed" : " did not overflow"));
    if (fits)
      FUZZ_CHECK(result == static_cast<std::int32_t>(nearest), call + " gave " + std::to_string(result));
  }
}

void checkNormalizeAutoLOD(std::string_view text) {
  const std::string call = "NormalizeAutoLOD(" + shown(text) + ")";
  std::string result;
  if (overflowsOnly([&] { result = NormalizeAutoLOD(text); }, call)) return;
  static const std::regex form(R"(^-?(0|[1-9][0-9]*)\.[0-9]{3}$)");
  FUZZ_CHECK(std::regex_match(result, form) && result != "-0.000", call + " gave " + shown(result));
  double number = 0;
  try {
    number = LeadingNumber(text);
  } catch (const RuntimeFailure&) {
    fail(call + " gave " + shown(result) + " where LeadingNumber overflows");
  }
  const double written = std::strtod(result.c_str(), nullptr);
  FUZZ_CHECK(std::fabs(written - number) <= 0.0005 * (1 + 1e-9) + 1e-13 * std::fabs(number),
             call + " gave " + shown(result) + " for the number " + std::to_string(number));
}

// Long texts are what the 16-bit guard is about: filler that holds no
// character of the delimiter or search text moves the rest of the text past
// position 32,767.
std::string padded(FuzzedDataProvider& input, const std::string& text, std::string_view avoid) {
  if (!input.ConsumeBool()) return text;
  std::size_t length = input.ConsumeIntegralInRange<std::size_t>(32000, 33500);
  std::size_t split = input.ConsumeIntegralInRange<std::size_t>(0, text.size());
  char filler = 'x';
  for (char candidate : std::string_view("x_#Q~")) {
    if (avoid.find(candidate) == std::string_view::npos) {
      filler = candidate;
      break;
    }
  }
  return text.substr(0, split) + std::string(length, filler) + text.substr(split);
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
  std::uint64_t bits = input.ConsumeIntegral<std::uint64_t>();
  std::memcpy(&raw, &bits, sizeof raw);
  const std::string longText = padded(input, text, delimiter + ",\\LOD 0");

  checkLeadingNumber(text);
  checkLeadingNumber(delimiter);
  checkNormalizeAutoLOD(text);
  checkNormalizeAutoLOD(delimiter);
  checkRoundToWhole(raw);
  try {
    checkRoundToWhole(LeadingNumber(text));
  } catch (const RuntimeFailure&) {
  }

  HeadlessPlatform platform;
  for (const std::string& by : {delimiter, std::string(",")}) {
    auto run = [&] { return GetElement(platform, longText, by, index); };
    if (by.empty()) {
      // No caller passes an empty delimiter: it only has to come back.
      run();
      platform.messages.clear();
      continue;
    }
    checkAgainstModel(platform,
                      "GetElement(" + shown(longText) + ", " + shown(by) + ", " + std::to_string(index) + ")",
                      run, modelGetElement(longText, by, index), kGetElementOverflow);
  }
  for (const std::string* path : {&text, &longText}) {
    if (path == &longText &&
        (longText.size() == text.size() || std::count(text.begin(), text.end(), '\\') > 64))
      continue;
    checkAgainstModel(
        platform, "GetFileName(" + shown(*path) + ")", [&] { return GetFileName(platform, *path); },
        modelGetFileName(*path), kGetElementOverflow);
  }
  for (const auto& job : {std::pair<std::string, std::string>{delimiter, replacement}, {"LOD 0", "LOD 1"}}) {
    const std::string& search = job.first;
    const std::string& with = job.second;
    if (!withinSubstituteLimit(search, with)) continue;
    checkAgainstModel(
        platform, "Substitute(" + shown(longText) + ", " + shown(search) + ", " + shown(with) + ")",
        [&] { return Substitute(platform, longText, search, with); }, modelSubstitute(longText, search, with),
        kSubstituteOverflow);
  }
  return 0;
}
