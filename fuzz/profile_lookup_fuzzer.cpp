// Any file and any section and key: GetINIString gives at most 254
// characters, the same twice, leaves the file as it was, and agrees with a
// plain line-by-line reading of the lookup rules.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz_support.h"
#include "objectfile/profile_lookup.h"
#include "runtime/headless_platform.h"

using namespace korvane;
using namespace korvane::fuzzing;

namespace {

constexpr std::size_t kLongestValue = 254;

// The names the program really asks for; most inputs use one of them so that
// the fuzzer spends its time on files rather than on guessing names.
constexpr std::pair<const char*, const char*> kAskedFor[] = {
    {"Material - 0", "TextureMap"},   {"Material - 0", "ColorKey"},     {"LOD Information", "NumberOfLOD"},
    {"LOD Information", "AutoLOD#0"}, {"LOD Information", "AutoLOD#1"}, {"LOD 0", "NumberOfSurfaces"},
};

bool isBlank(char c) {
  return c == ' ' || c == '\t';
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

bool sameIgnoringCase(std::string_view a, std::string_view b) {
  auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (lower(a[i]) != lower(b[i])) return false;
  }
  return true;
}

// The lookup rules, one whole line at a time: CR and LF end lines, blanks
// ahead of a line are skipped, ';' starts a comment, '[' ... ']' is a head,
// the first '=' splits a key line, names match without regard to case, only
// the first section of the name counts, a pair of quotes is dropped, and the
// value is cut to 254 characters. A UTF-8 byte-order mark ahead of the
// first line is no part of it.
std::optional<std::string> expectedValue(std::string_view file, std::string_view section,
                                         std::string_view key) {
  section = trimmed(section);
  key = trimmed(key);
  if (file.starts_with("\xEF\xBB\xBF")) file.remove_prefix(3);
  bool inSection = false;
  std::size_t start = 0;
  while (start <= file.size()) {
    std::size_t end = file.find_first_of("\r\n", start);
    if (end == std::string_view::npos) end = file.size();
    std::string_view line = file.substr(start, end - start);
    start = end + 1;
    while (!line.empty() && isBlank(line.front())) line.remove_prefix(1);
    if (line.empty() || line.front() == ';') continue;
    if (line.front() == '[') {
      std::size_t close = line.find(']');
      if (close == std::string_view::npos) continue;
      if (inSection) return std::nullopt;
      inSection = sameIgnoringCase(trimmed(line.substr(1, close - 1)), section);
      continue;
    }
    if (!inSection) continue;
    std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) continue;
    if (!sameIgnoringCase(trimmed(line.substr(0, equals)), key)) continue;
    std::string_view value = trimmed(line.substr(equals + 1));
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
        value.back() == value.front()) {
      value = value.substr(1, value.size() - 2);
    }
    return std::string(value.substr(0, kLongestValue));
  }
  return std::nullopt;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const std::uint8_t choice = input.ConsumeIntegral<std::uint8_t>();
  std::string section;
  std::string key;
  if (choice < 192) {
    const auto& pair = kAskedFor[choice % std::size(kAskedFor)];
    section = pair.first;
    key = pair.second;
  } else {
    section = input.ConsumeRandomLengthString(64);
    key = input.ConsumeRandomLengthString(64);
  }
  std::string file;
  // Now and then the lines stand behind a long comment, which the search for
  // a head skips in large steps.
  if (choice % 16 == 14) file = "\xEF\xBB\xBF";
  if (choice % 16 == 15) {
    file = ";" + std::string(input.ConsumeIntegralInRange<std::size_t>(65000, 66000), 'x') + "\r\n";
  }
  file += input.ConsumeRemainingBytesAsString();

  const std::string path = scratchFile("lookup.kob");
  writeBytes(path, file);

  HeadlessPlatform platform;
  // The file is new on disk, as after a fresh choice of the author.
  FlushProfileCache(path);
  const std::string first = GetINIString(platform, section, key, path);
  const std::string second = GetINIString(platform, section, key, path);
  const std::string context =
      "\nsection " + shown(section) + " key " + shown(key) + " file " + shown(file, 400);

  FUZZ_CHECK(platform.messages.empty(), "a lookup showed " + shown(platform.messages) + context);
  FUZZ_CHECK(first.size() <= kLongestValue,
             "a value of " + std::to_string(first.size()) + " characters" + context);
  FUZZ_CHECK(first == second, "two lookups gave " + shown(first) + " and " + shown(second) + context);
  FUZZ_CHECK(readBytes(path) == file, "the lookup changed the file" + context);

  std::optional<std::string> value = expectedValue(file, section, key);
  std::string expected = value && *value != "NotFound" ? *value : std::string();
  FUZZ_CHECK(first == expected, "expected " + shown(expected) + ", got " + shown(first) + context);
  return 0;
}
