// Placeholder until implemented.
#include "objectfile/line_store.h"

namespace korvane {
struct LineStore::Impl {};
LineStore::LineStore() = default;
LineStore::~LineStore() = default;
LineStore::LineStore(LineStore&&) noexcept = default;
LineStore& LineStore::operator=(LineStore&&) noexcept = default;
void LineStore::Clear() {}
void LineStore::AddItem(std::string_view) {}
void LineStore::AddItem(std::string_view, std::int32_t) {}
void LineStore::RemoveItem(std::int32_t) {}
std::int32_t LineStore::ListCount() const { return 0; }
std::string_view LineStore::List(std::int32_t) const { return {}; }
}  // namespace korvane
