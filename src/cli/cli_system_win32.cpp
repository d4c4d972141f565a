#include <io.h>
#include <windows.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "cli/cli_system.h"
#include "objectfile/file.h"
#include "runtime/failure.h"
#include "runtime/utf8_path.h"

namespace korvane::cli {

namespace {

// The C library's words for a failure, as on Linux.
std::string wordsOf(const RuntimeFailure& failure) {
  namespace n = failure_number;
  if (failure.number() == n::FileNotFound || failure.number() == n::PathNotFound)
    return std::strerror(ENOENT);
  if (failure.number() == n::PermissionDenied) return std::strerror(EACCES);
  return failure.description();
}

}  // namespace

// Ctrl+C and Ctrl+Break in a console, and a request to end.
std::span<const int> endingSignals() {
  static constexpr int kSignals[] = {SIGINT, SIGBREAK, SIGTERM};
  return kSignals;
}

// The file layer opens regular disk files only and never waits; its failure
// says why not in the program's words.
std::string readJobs(const std::string& path, std::string& text) {
  std::error_code ignored;
  if (std::filesystem::is_directory(pathFromUtf8(path), ignored)) return "is a folder";
  try {
    File file = File::openForReading(path);
    char buffer[65536];
    while (std::size_t count = file.readSome(buffer, sizeof buffer)) text.append(buffer, count);
  } catch (const RuntimeFailure& failure) {
    return wordsOf(failure);
  }
  return {};
}

std::string unreadable(const std::string& path) {
  try {
    File::openForReading(path);
  } catch (const RuntimeFailure& failure) {
    const std::filesystem::path name = pathFromUtf8(path);
    std::error_code ignored;
    if (std::filesystem::is_directory(name, ignored)) return "is a folder";
    if (failure.number() == failure_number::PathFileAccessError &&
        !std::filesystem::is_regular_file(name, ignored))
      return "not a regular file";
    return wordsOf(failure);
  }
  return {};
}

bool standardOutputIsTerminal() {
  return ::_isatty(::_fileno(stdout)) != 0;
}

void removeFromSignalHandler(const char* path) noexcept {
  wchar_t wide[32768];
  if (::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path, -1, wide,
                            static_cast<int>(std::size(wide))) > 0)
    ::DeleteFileW(wide);
}

}  // namespace korvane::cli
