#pragma once
// The bytes of one opening of a source, read once, when the opening starts,
// and handed explicitly to its validation, lookups and store: all of them see
// the same bytes, however the file changes meanwhile.

#include <string>

#include "objectfile/source_text.h"

namespace korvane {

class SourceSnapshot {
 public:
  // Reads the file as it now stands on disk.
  explicit SourceSnapshot(std::string path);

  const std::string& path() const { return m_path; }

  // The bytes as the lookups see them; nullptr for a file that could not be
  // read, or whose bytes a store has taken.
  const SourceText* text() const { return m_readable ? &m_text : nullptr; }

  // Hands the bytes over to a store. A file that could not be read is tried
  // once more, so that the store's reader meets the failure itself: it throws
  // RuntimeFailure after leaving in text the lines that ended before it.
  void moveTo(SourceText& text);

 private:
  std::string m_path;
  bool m_readable = false;
  SourceText m_text;
};

}  // namespace korvane
