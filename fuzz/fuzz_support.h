#pragma once
// What the fuzz targets share: a way to report a broken invariant so that
// libFuzzer keeps the input, scratch files, a window to drive, and the plain
// models of lines that several targets hold the program against.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/headless_platform.h"
#include "mainwindow/main_window.h"
#include "objectfile/line_store.h"
#include "shell/program.h"

namespace korvane::fuzzing {

using Lines = std::vector<std::string>;

// Prints what broke and aborts, which libFuzzer records as a finding.
[[noreturn]] void fail(const std::string& what);

#define FUZZ_CHECK(condition, what)                                                    \
  do {                                                                                 \
    if (!(condition)) ::korvane::fuzzing::fail(std::string(#condition ": ") + (what)); \
  } while (false)

// A file in a directory of this process's own, removed at exit.
std::string scratchFile(std::string_view name);
void writeBytes(const std::string& path, std::string_view bytes);
// The whole file; fails the run if it cannot be read.
std::string readBytes(const std::string& path);

// For a failure report: printable bytes as they are, others as \xNN, cut
// after limit bytes.
std::string shown(std::string_view text, std::size_t limit = 400);

// The program with its main window, on a platform with no screen.
struct Session {
  HeadlessPlatform platform;
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
};

Lines storedLines(const LineStore& store);
// The lines each followed by CR LF, as the savers write them.
std::string crlf(const Lines& lines);
// CR or CR LF ends a line, and so does a lone LF where lineFeedEnds (as an
// author's editor shows the file); otherwise a lone LF is an ordinary byte.
// A line end at the very end opens no further line.
Lines sourceLines(std::string_view bytes, bool lineFeedEnds = false);
// The keyword test of the rewriting: the upper-cased copy of the line holds it.
bool upperHolds(std::string_view line, std::string_view keyword);
// Every "LOD 0" renamed "LOD 1" where it stands.
std::string renamedLOD0(std::string line);

}  // namespace korvane::fuzzing
