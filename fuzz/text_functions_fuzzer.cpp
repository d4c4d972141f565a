// Any text through the text functions and the conversions: no crash, no
// failure but number 6, and messages only in the frames of GetElement and
// Substitute. GetElement and Substitute are also held against plain models of
// their walks, 16-bit position guard included.

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <optional>
#include <regex>
#include <utility>

#include "advanced/autolod.h"
#include "fuzz_support.h"
#include "runtime/failure.h"
#include "text/delimited_text.h"
#include "text/number_conversion.h"

using namespace korvane;
using namespace korvane::fuzzing;

namespace {

constexpr std::size_t kLargestPosition = 32767;

using Outcome = std::optional<std::string>;  // what a model says; nullopt: the overflow

// GetElement's walk from delimiter to delimiter, positions counted from 1.
Outcome modelGetElement(std::string_view text, std::string_view delimiter, std::int16_t index) {
  for (std::size_t start = 1, count = 0;; ++count) {
    const std::size_t found = start - 1 <= text.size() ? text.find(delimiter, start - 1) : text.npos;
    const std::size_t hit = found == text.npos ? 0 : found + 1;
    if (hit > kLargestPosition) return std::nullopt;
    if (std::cmp_equal(count, index))
      return std::string(text.substr(start - 1, hit ? hit - start : text.npos));
    if (hit == 0) return "";
    if (hit + delimiter.size() > kLargestPosition) return std::nullopt;
    start = hit + delimiter.size();
  }
}

// The search starts over after each replacement; within Substitute's limit a new
// hit can only begin behind where the joined parts meet, so the model looks from there.
Outcome modelSubstitute(std::string copy, std::string_view search, std::string_view replacement) {
  for (std::size_t from = 0, found; (found = copy.find(search, from)) != std::string::npos;) {
    if (found + search.size() + 1 > kLargestPosition) return std::nullopt;
    copy.replace(found, search.size(), replacement);
    from = found >= search.size() - 1 ? found - (search.size() - 1) : 0;
  }
  return copy;
}

// Runs a call that may fail only with the overflow; true if it did.
bool overflows(const std::function<void()>& call, const std::string& what) {
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

// A text function against its model: no failure gets out, the result is the
// model's, and the overflow, and only it, shows its one message.
void check(HeadlessPlatform& platform, const std::string& what, const std::function<std::string()>& run,
           const Outcome& expected, const std::string& frame) {
  std::string result;
  FUZZ_CHECK(!overflows([&] { result = run(); }, what) && result == expected.value_or("") &&
                 platform.messages == (expected ? Lines{} : Lines{frame + ":  6 - 0"}),
             what + " gave " + shown(result) + ", expected " + shown(expected.value_or("")) + ", showed " +
                 shown(crlf(platform.messages)));
  platform.messages.clear();
}

// A text in normal form that LeadingNumber reads as the number rounded to three
// places, where it does not overflow; RoundToWhole's values are the unit table's.
void checkNumbers(std::string_view text, double raw) {
  const std::string of = "(" + shown(text) + ")";
  double number = 0;
  const bool tooLarge = overflows([&] { number = LeadingNumber(text); }, "LeadingNumber" + of);
  for (double value : {number, raw})
    for (WholeWidth width : {WholeWidth::Bits16, WholeWidth::Bits32})
      overflows([&] { RoundToWhole(value, width); }, "RoundToWhole(" + std::to_string(value) + ")");
  std::string normal;
  if (overflows([&] { normal = NormalizeAutoLOD(text); }, "NormalizeAutoLOD" + of)) return;
  static const std::regex form(R"(^-?(0|[1-9][0-9]*)\.[0-9]{3}$)");
  const double away = std::fabs(std::strtod(normal.c_str(), nullptr) - number);
  FUZZ_CHECK(!tooLarge && std::regex_match(normal, form) && normal != "-0.000" &&
                 away <= 0.0005 * (1 + 1e-9) + 1e-13 * std::fabs(number),
             "NormalizeAutoLOD" + of + " gave " + shown(normal) + " for " + std::to_string(number));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const std::string text = input.ConsumeRandomLengthString(2000);
  const std::string delimiter = input.ConsumeRandomLengthString(12);
  const std::string replacement = input.ConsumeRandomLengthString(12);
  const auto index = input.ConsumeBool() ? input.ConsumeIntegral<std::int16_t>()
                                         : input.ConsumeIntegralInRange<std::int16_t>(-2, 40);
  const auto raw = std::bit_cast<double>(input.ConsumeIntegral<std::uint64_t>());
  // Long texts are what the 16-bit guard is about: filler with no character of
  // the delimiter or search texts moves the rest past position 32,767.
  std::string longText = text;
  char filler = 'x';
  while ((delimiter + ",\\LOD 0").find(filler) != std::string::npos) ++filler;
  if (input.ConsumeBool())
    longText.insert(input.ConsumeIntegralInRange<std::size_t>(0, text.size()),
                    input.ConsumeIntegralInRange<std::size_t>(32000, 33500), filler);

  checkNumbers(text, raw);
  HeadlessPlatform platform;
  const std::string on = " on " + shown(longText);
  const std::string by = delimiter.empty() ? std::string(",") : delimiter;
  check(
      platform, "GetElement " + std::to_string(index) + " by " + shown(by) + on,
      [&] { return GetElement(platform, longText, by, index); }, modelGetElement(longText, by, index),
      "GetElement");
  GetElement(platform, longText, "", index);  // no caller passes an empty delimiter: it only has to come back
  platform.messages.clear();
  // GetFileName walks GetElement from the start for every index: a text of
  // many backslashes would be too slow. Its values are the unit table's.
  if (std::ranges::count(text, '\\') <= 64 || longText.size() == text.size()) {
    FUZZ_CHECK(!overflows([&] { GetFileName(platform, longText); }, "GetFileName" + on) &&
                   (platform.messages.empty() || platform.messages == Lines{"GetElement:  6 - 0"}),
               "GetFileName" + on + " showed " + shown(crlf(platform.messages)));
    platform.messages.clear();
  }
  for (const auto& job : {std::pair<std::string, std::string>{delimiter, replacement}, {"LOD 0", "LOD 1"}}) {
    const std::string &search = job.first, &with = job.second;
    // Within Substitute's limit: a replacement shorter than the search, one
    // with none of its characters, or LOD 1 for LOD 0 neither holds it nor forms it anew.
    const bool ends = with.size() < search.size() || with.find_first_of(search) == with.npos ||
                      (search == "LOD 0" && with == "LOD 1");
    if (!search.empty() && ends)
      check(
          platform, "Substitute " + shown(search) + " by " + shown(with) + on,
          [&] { return Substitute(platform, longText, search, with); },
          modelSubstitute(longText, search, with), "Substitute");
  }
  return 0;
}
