#include "objectfile/source_snapshot.h"

#include <utility>

#include "runtime/failure.h"

namespace korvane {

SourceSnapshot::SourceSnapshot(std::string path) : m_path(std::move(path)) {
  try {
    readSource(m_path, m_text);
    m_readable = true;
  } catch (const RuntimeFailure&) {
    // A file the lookups cannot read has no keys.
    m_text = SourceText{};
  }
}

void SourceSnapshot::moveTo(SourceText& text) {
  if (!m_readable) return readSource(m_path, text);
  text = std::move(m_text);
  m_text = SourceText{};
  m_readable = false;
}

}  // namespace korvane
