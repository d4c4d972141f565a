#pragma once
// What korvane-cli does differently per system: cli_system_posix.cpp and
// cli_system_win32.cpp, one of them chosen by the build.

#include <span>
#include <string>

namespace korvane::cli {

// The signals that end a run from a terminal or a script.
std::span<const int> endingSignals();

// The jobs file whole, or why not. Only a regular file is read, and the open
// never waits: a FIFO without a writer would hold the batch for ever, and a
// device such as /dev/zero or /dev/urandom never ends.
std::string readJobs(const std::string& path, std::string& text);

// Whether standard output is a terminal, where a progress bar may be drawn.
bool standardOutputIsTerminal();

// Removes a file from a signal handler: no allocation, no lock. The path is
// UTF-8, as every path of the program.
void removeFromSignalHandler(const char* path) noexcept;

// Why a source cannot even be opened, in the system's words; empty when it
// can, and the window's validation has said what it found wrong.
std::string unreadable(const std::string& path);

}  // namespace korvane::cli
