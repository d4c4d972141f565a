#pragma once
// A source file's bytes, read whole in one go and the file closed at once, so
// that the author may save over it.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

struct SourceText {
  std::unique_ptr<char[]> bytes;
  std::size_t size = 0;
  // Counted while the bytes arrive: how many CRs, whether an LF stands
  // anywhere without a CR in front of it (it would stay inside a stored line),
  // whether a CR stands without an LF behind it, and where every
  // LineEndCounter::kAnchorEvery-th CR stands.
  std::size_t carriageReturns = 0;
  bool bareLineFeed = false;
  bool loneCarriageReturn = false;
  std::vector<std::uint64_t> lineEndAnchors;
};

// A source made of bytes already in memory, counted as a read counts them.
SourceText sourceOf(std::string_view bytes);

// Reads the whole file. A file that cannot be opened throws RuntimeFailure;
// so does a failing read, after keeping in text the lines that ended before it.
void readSource(const std::string& path, SourceText& text);

}  // namespace korvane
