#pragma once
// The transcript: one line for each event, written and flushed as it
// happens, so that a tool reading it sees each event before the next command.

#include <cstdio>
#include <string_view>

namespace korvane::scenario {

class Transcript {
 public:
  explicit Transcript(std::FILE* out) : m_out(out) {}

  void write(std::string_view line);
  // Nothing is written from here on: the process has ended, or the script failed.
  void close() { m_closed = true; }
  bool closed() const { return m_closed; }

 private:
  std::FILE* m_out;
  bool m_closed = false;
};

}  // namespace korvane::scenario
