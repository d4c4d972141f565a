#include "rewrite/keyword_scan.h"

#include "objectfile/line_store.h"

namespace korvane {

namespace {

char asciiUpper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

bool holdsKeywordAt(std::string_view line, std::size_t position, std::string_view keyword) {
  for (std::size_t k = 0; k < keyword.size(); ++k) {
    if (asciiUpper(line[position + k]) != keyword[k]) return false;
  }
  return true;
}

}  // namespace

bool holdsKeyword(std::string_view line, std::string_view keyword) {
  if (keyword.size() > line.size()) return false;
  const std::size_t last = line.size() - keyword.size();
  for (std::size_t position = 0; position <= last; ++position) {
    if (holdsKeywordAt(line, position, keyword)) return true;
  }
  return false;
}

std::optional<std::int32_t> findKeyword(const LineStore& lines, std::string_view keyword) {
  // The index runs up to ListCount itself, where List gives the empty string
  // and so ends the scan without a hit.
  const std::int32_t count = lines.ListCount();
  for (std::int32_t index = 0;; ++index) {
    if (holdsKeyword(lines.List(index), keyword)) return index;
    if (index >= count) return std::nullopt;
  }
}

void replaceLine(LineStore& lines, std::int32_t index, std::string_view text) {
  lines.AddItem(text, index);
  lines.RemoveItem(index + 1);
}

}  // namespace korvane
