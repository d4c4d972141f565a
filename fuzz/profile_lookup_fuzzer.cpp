// Any file and any section and key: GetINIString gives at most 254
// characters, the same twice, leaves the file as it was, and agrees with a
// plain line-by-line reading of the lookup rules.

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz_support.h"
#include "objectfile/profile_lookup.h"
#include "objectfile/source_snapshot.h"

using namespace korvane;
using namespace korvane::fuzzing;

namespace {

// The names the program really asks for; most inputs use one of them so that
// the fuzzer spends its time on files rather than on guessing names.
constexpr std::pair<const char*, const char*> kAskedFor[] = {
    {"Material - 0", "TextureMap"},   {"Material - 0", "ColorKey"},     {"LOD Information", "NumberOfLOD"},
    {"LOD Information", "AutoLOD#0"}, {"LOD Information", "AutoLOD#1"}, {"LOD 0", "NumberOfSurfaces"},
};

std::string_view trimmed(std::string_view text) {
  const std::size_t first = std::min(text.find_first_not_of(" \t"), text.size());
  return text.substr(first, text.find_last_not_of(" \t") + 1 - first);
}

char upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool sameIgnoringCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, upper, upper);
}

// The lookup rules, one whole line at a time: CR and LF end lines, blanks
// ahead of a line are skipped, ';' starts a comment, '[' ... ']' is a head,
// the first '=' splits a key line, names match without regard to case, only
// the first section of the name counts, a pair of quotes is dropped, the
// value is cut to 254 characters, and "NotFound" is no value. A UTF-8
// byte-order mark ahead of the first line is no part of it.
std::string expectedValue(std::string_view file, std::string_view section, std::string_view key) {
  if (file.starts_with("\xEF\xBB\xBF")) file.remove_prefix(3);
  bool inSection = false;
  for (const std::string& whole : sourceLines(file, true)) {
    std::string_view line = whole;
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (line.starts_with('[')) {
      if (line.find(']') == line.npos) continue;
      if (inSection) return "";
      inSection = sameIgnoringCase(trimmed(line.substr(1, line.find(']') - 1)), trimmed(section));
    } else if (inSection && !line.starts_with(';') && line.find('=') != line.npos &&
               sameIgnoringCase(trimmed(line.substr(0, line.find('='))), trimmed(key))) {
      std::string_view value = trimmed(line.substr(line.find('=') + 1));
      if (value.size() >= 2 && (value[0] == '"' || value[0] == '\'') && value.back() == value[0]) {
        value = value.substr(1, value.size() - 2);
      }
      return value == "NotFound" ? "" : std::string(value.substr(0, 254));
    }
  }
  return "";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const std::uint8_t choice = input.ConsumeIntegral<std::uint8_t>();
  std::string section = kAskedFor[choice % std::size(kAskedFor)].first;
  std::string key = kAskedFor[choice % std::size(kAskedFor)].second;
  if (choice >= 192) {
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
  // The lookup of an opening's snapshot and one of its own agree.
  const std::string first = GetINIString(platform, section, key, SourceSnapshot(path));
  const std::string second = GetINIString(platform, section, key, path);
  const std::string expected = expectedValue(file, section, key);
  const std::string context = "\nsection " + shown(section) + " key " + shown(key) + " file " + shown(file);
  FUZZ_CHECK(platform.messages.empty(), "a lookup showed " + shown(crlf(platform.messages)) + context);
  FUZZ_CHECK(first == second, "two lookups gave " + shown(first) + " and " + shown(second) + context);
  FUZZ_CHECK(readBytes(path) == file, "the lookup changed the file" + context);
  FUZZ_CHECK(first == expected, "expected " + shown(expected) + ", got " + shown(first) + context);
  return 0;
}
