#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>

#include "cli/entry.h"

namespace {

std::string utf8(const wchar_t* text) {
  int count = ::WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
  if (count <= 1) return {};
  std::string bytes(static_cast<std::size_t>(count), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes.data(), count, nullptr, nullptr);
  bytes.pop_back();  // the terminating NUL
  return bytes;
}

}  // namespace

// The wide entry gets the arguments as typed, whatever the console's code
// page; the program works in UTF-8 throughout.
int wmain(int argc, wchar_t** argv) {
  // "-o -" writes the file's bytes, and every message ends as on Linux: no CR
  // put before an LF.
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  // The batch's progress bar redraws itself with escape codes.
  HANDLE console = ::GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD mode = 0;
  if (::GetConsoleMode(console, &mode)) ::SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
  // Paths written to the console in UTF-8 show as typed; the console gets its
  // code page back afterwards.
  const UINT codePage = ::GetConsoleOutputCP();
  ::SetConsoleOutputCP(CP_UTF8);
  std::vector<std::string> args;
  for (int i = 1; i < argc; ++i) args.push_back(utf8(argv[i]));
  int status = korvane::cli::runCli(std::move(args));
  std::fflush(stdout);
  std::fflush(stderr);
  if (codePage != 0) ::SetConsoleOutputCP(codePage);
  return status;
}
