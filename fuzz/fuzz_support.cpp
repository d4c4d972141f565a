#include "fuzz_support.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace korvane::fuzzing {

namespace {

struct ScratchDirectory {
  std::string path;
  ScratchDirectory() {
    // Memory-backed when the machine has it: the targets write files on every run.
    std::filesystem::path base = ::access("/dev/shm", W_OK) == 0 ? std::filesystem::path("/dev/shm")
                                                                 : std::filesystem::temp_directory_path();
    std::string pattern = (base / "korvane-fuzz-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
      std::perror("mkdtemp");
      std::abort();
    }
    path = pattern;
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

const std::string& scratchDirectory() {
  static ScratchDirectory directory;
  return directory.path;
}

std::string scratchFile(std::string_view name) {
  return scratchDirectory() + "/" + std::string(name);
}

void writeBytes(const std::string& path, std::string_view bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();
  if (!out) fail("cannot write the scratch file " + path);
}

std::string readBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary | std::ios::ate);
  if (!in) fail("cannot read the scratch file " + path);
  std::string bytes(static_cast<std::size_t>(in.tellg()), '\0');
  in.seekg(0);
  in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!in) fail("cannot read the scratch file " + path);
  return bytes;
}

std::string shown(std::string_view text, std::size_t limit) {
  std::string out = "\"";
  for (std::size_t i = 0; i < text.size() && i < limit; ++i) {
    unsigned char c = static_cast<unsigned char>(text[i]);
    if (c >= 0x20 && c < 0x7f && c != '\\' && c != '"') {
      out += static_cast<char>(c);
    } else {
      char escaped[8];
      std::snprintf(escaped, sizeof escaped, "\\x%02X", c);
      out += escaped;
    }
  }
  out += "\"";
  if (text.size() > limit) out += "... (" + std::to_string(text.size()) + " bytes)";
  return out;
}

std::string shown(const std::vector<std::string>& lines, std::size_t limit) {
  std::string out = "[" + std::to_string(lines.size()) + " lines]";
  for (std::size_t i = 0; i < lines.size() && i < limit; ++i)
    out += "\n  " + std::to_string(i) + ": " + shown(lines[i]);
  if (lines.size() > limit) out += "\n  ...";
  return out;
}

}  // namespace korvane::fuzzing
