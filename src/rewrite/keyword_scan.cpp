#include "rewrite/keyword_scan.h"

#include "objectfile/line_store.h"
#include "text/byte_scan.h"

namespace korvane {

bool holdsKeyword(std::string_view line, std::string_view keyword) {
  return detail::findKeyword(line.data(), line.data() + line.size(), keyword) != nullptr;
}

std::optional<LineStore::Index> findKeyword(const LineStore& lines, std::string_view keyword,
                                            LineStore::Index from) {
  // The read at ListCount gives the empty string, which holds no keyword, so
  // the search over the stored lines is the whole scan.
  if (auto hit = lines.Find(from, keyword, detail::findKeyword)) return hit->index;
  return std::nullopt;
}

void replaceLine(LineStore& lines, LineStore::Index index, std::string_view text) {
  lines.AddItem(text, index);
  lines.RemoveItem(index + 1);
}

}  // namespace korvane
