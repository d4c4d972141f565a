#pragma once
// A source file's bytes, read whole in one go and the file closed at once, so
// that the author may save over it. The lookups, the validation and the store
// of one opening share a single read: the bytes stay here from the first
// lookup until the store adopts them or FlushProfileCache drops them.

#include <cstddef>
#include <memory>
#include <string>

namespace korvane {

struct SourceText {
  std::unique_ptr<char[]> bytes;
  std::size_t size = 0;
  // Counted while the bytes arrive: how many CRs, and whether an LF stands
  // anywhere without a CR in front of it (it would stay inside a stored line).
  std::size_t carriageReturns = 0;
  bool bareLineFeed = false;
};

// Reads the whole file. A file that cannot be opened throws RuntimeFailure;
// so does a failing read, after keeping in text the lines that ended before it.
void readSource(const std::string& path, SourceText& text);

// The bytes of path as the lookups see them, read on first use; nullptr for a
// file that cannot be read. Valid until the next call into this file.
const SourceText* sharedSource(const std::string& path);
// Hands over the bytes read for path if the file has not changed on disk since.
bool takeSharedSource(const std::string& path, SourceText& text);
void dropSharedSource();

}  // namespace korvane
