#pragma once
// What every fuzz target needs: a way to report a broken invariant so that
// libFuzzer keeps the input, and a scratch directory for files.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::fuzzing {

// Prints what broke and aborts, which libFuzzer records as a finding.
[[noreturn]] void fail(const std::string& what);

#define FUZZ_CHECK(condition, what)                                                    \
  do {                                                                                 \
    if (!(condition)) ::korvane::fuzzing::fail(std::string(#condition ": ") + (what)); \
  } while (false)

// A directory of this process's own, made on first use and removed at exit.
const std::string& scratchDirectory();
std::string scratchFile(std::string_view name);

void writeBytes(const std::string& path, std::string_view bytes);
// The whole file; fails the run if it cannot be read.
std::string readBytes(const std::string& path);

// A text for a failure report: printable bytes as they are, others as \xNN,
// cut after limit bytes.
std::string shown(std::string_view text, std::size_t limit = 200);
std::string shown(const std::vector<std::string>& lines, std::size_t limit = 20);

}  // namespace korvane::fuzzing
