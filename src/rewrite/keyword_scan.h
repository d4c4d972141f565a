#pragma once
// The scan that the rewriting rests on: it knows no sections, only whether a
// stored line holds a keyword, and replaces a line by an insert and a remove.

#include <optional>
#include <string_view>

#include "objectfile/line_store.h"

namespace korvane {

// Whether the upper-cased line contains keyword (upper-case ASCII) anywhere.
// The line is compared in place: only a to z fold, so a byte of 0x80 or above
// never matches a letter of the keyword.
bool holdsKeyword(std::string_view line, std::string_view keyword);

// The index of the first line from `from` on that holds keyword, if any.
std::optional<LineStore::Index> findKeyword(const LineStore& lines, std::string_view keyword,
                                            LineStore::Index from = 0);

// The store has no replace: the new text goes in at index and the old line,
// now one further down, comes out. Count and order of the others stay. text
// must not view into lines.
void replaceLine(LineStore& lines, LineStore::Index index, std::string_view text);

}  // namespace korvane
