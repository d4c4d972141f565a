#include "fuzz_support.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace korvane::fuzzing {

namespace {

struct ScratchDirectory {
  std::string path;
  ScratchDirectory() {
    // Memory-backed when the machine has it: the targets write files on every run.
    std::filesystem::path base = ::access("/dev/shm", W_OK) == 0 ? std::filesystem::path("/dev/shm")
                                                                 : std::filesystem::temp_directory_path();
    path = (base / "korvane-fuzz-XXXXXX").string();
    if (::mkdtemp(path.data()) == nullptr) fail("cannot make a scratch directory");
  }
  ~ScratchDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
};

}  // namespace

void fail(const std::string& what) {
  std::fprintf(stderr, "\n==== broken invariant ====\n%s\n", what.c_str());
  std::fflush(stderr);
  std::abort();
}

std::string scratchFile(std::string_view name) {
  static ScratchDirectory directory;
  return directory.path + "/" + std::string(name);
}

void writeBytes(const std::string& path, std::string_view bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();
  if (!out) fail("cannot write the scratch file " + path);
}

std::string readBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) fail("cannot read the scratch file " + path);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::string shown(std::string_view text, std::size_t limit) {
  std::string out = "\"";
  for (unsigned char c : text.substr(0, limit)) {
    char escaped[8];
    std::snprintf(escaped, sizeof escaped, c >= 0x20 && c < 0x7f && c != '\\' ? "%c" : "\\x%02X", c);
    out += escaped;
  }
  out += "\"";
  if (text.size() > limit) out += "... (" + std::to_string(text.size()) + " bytes)";
  return out;
}

Lines storedLines(const LineStore& store) {
  Lines lines;
  for (std::int32_t i = 0; i < store.ListCount(); ++i) lines.emplace_back(store.List(i));
  return lines;
}

std::string crlf(const Lines& lines) {
  std::string bytes;
  for (const std::string& line : lines) bytes += line + "\r\n";
  return bytes;
}

Lines sourceLines(std::string_view bytes, bool lineFeedEnds) {
  Lines lines;
  for (std::size_t start = 0; start < bytes.size();) {
    const std::size_t end = std::min(bytes.find_first_of(lineFeedEnds ? "\r\n" : "\r", start), bytes.size());
    lines.emplace_back(bytes.substr(start, end - start));
    start = end + (bytes.substr(end, 2) == "\r\n" ? 2 : 1);
  }
  return lines;
}

bool upperHolds(std::string_view line, std::string_view keyword) {
  std::string upper(line);
  for (char& c : upper) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return upper.find(keyword) != std::string::npos;
}

std::string renamedLOD0(std::string line) {
  for (std::size_t at = line.find("LOD 0"); at != std::string::npos; at = line.find("LOD 0", at + 5)) {
    line[at + 4] = '1';
  }
  return line;
}

}  // namespace korvane::fuzzing
