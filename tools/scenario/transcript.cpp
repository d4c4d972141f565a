#include "scenario/transcript.h"

namespace korvane::scenario {

void Transcript::write(std::string_view line) {
  if (m_closed) return;
  std::fwrite(line.data(), 1, line.size(), m_out);
  std::fputc('\n', m_out);
  std::fflush(m_out);
}

}  // namespace korvane::scenario
