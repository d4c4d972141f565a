#pragma once
// Streams the lines of a file as the stores take them: CR or CR LF ends a
// line, an LF on its own is an ordinary character, a line end at the very end
// opens no further line, and an empty file has no line. Every other byte
// passes unchanged.

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace korvane {

using LineSink = std::function<void(std::string_view line)>;

inline constexpr std::size_t kLineReadBufferSize = std::size_t{1} << 20;

// Hands each line to onLine in order. The view is only valid during the call.
// A file that cannot be opened or read throws RuntimeFailure; lines already
// handed over stay handed over.
void readLines(const std::string& path, const LineSink& onLine);

}  // namespace korvane

namespace korvane {

// Whether the first line end of the file is an LF on its own. Such a file
// reads as one single line, and a rewrite of that line would lose all the
// others, so it is not taken as a source.
bool firstLineEndIsBareLF(const std::string& path);

}  // namespace korvane
