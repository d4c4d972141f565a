#include "objectfile/file_transfer.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "mainwindow/main_window.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/store_lines.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using testing::linesOf;
using testing::readBytes;
using Lines = std::vector<std::string>;

class FileTransfer : public ::testing::Test {
 protected:
  FileTransfer() { AppTitleName = "Korvane"; }

  LineStore& fill(LineStore& store, const Lines& lines) {
    store.Clear();
    testing::addLines(store, lines);
    return store;
  }

  testing::ScriptedPlatform platform;
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
  LineStore& lod0 = frm.lstDataLOD0.Store();
  LineStore& lod1 = frm.lstDataLOD1.Store();
  testing::TempDir dir;
};

// Read into the LOD 0 store in place of old lines, then saved over the
// source, alone and with the LOD 1 lines directly behind.
TEST_F(FileTransfer, ReadingAndSavingGivesTheLinesEachWithCrLf) {
  const std::tuple<std::string, Lines, std::string> cases[] = {
      {"[M]\r\n\r\n  x = 1\t\r\n", {"[M]", "", "  x = 1\t"}, "[M]\r\n\r\n  x = 1\t\r\n"},
      {"a\rb\r\nc\nd\r\ne", {"a", "b", "c\nd", "e"}, "a\r\nb\r\nc\nd\r\ne\r\n"},
      {"a\nb\n", {"a\nb\n"}, "a\nb\n\r\n"},
      {"\r\r\n\n", {"", "", "\n"}, "\r\n\r\n\n\r\n"},
      {"", {}, ""},
  };
  fill(lod1, {"[LOD 1]"});
  for (const auto& [source, stored, saved] : cases) {
    fill(lod0, {"old 1", "old 2", "old 3", "old 4", "old 5"});
    std::string path = dir.write("source.kob", source);
    ReadFileLOD0(frm, path);
    EXPECT_EQ(linesOf(lod0), stored) << source;
    SaveFileLOD0(frm, path);
    EXPECT_EQ(readBytes(path), saved) << source;
    SaveFileCombined(frm, path);
    EXPECT_EQ(readBytes(path), saved + "[LOD 1]\r\n") << source;
  }
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(FileTransfer, ReadFileLOD1StoresFromTheFirstExactMarkerLineOn) {
  const std::pair<std::string, Lines> cases[] = {
      {"[Material - 0]\r\n[LOD 0]\r\nv 1\r\n", {"[LOD 0]", "v 1"}},
      {"a\r[LOD 0]\r\nb\r[LOD 0]", {"[LOD 0]", "b", "[LOD 0]"}},
      {"[lod 0]\r\n [LOD 0]\r\n[LOD 0] \r\nx[LOD 0]\r\n", {}},
      {"a\n[LOD 0]\nb\n", {}},
      {"x[LOD 0]\r\n[LOD 0]\r\nv\r\n", {"[LOD 0]", "v"}},
  };
  for (const auto& [bytes, stored] : cases) {
    fill(lod1, {"left over"});
    ReadFileLOD1(frm, dir.write("lod1.kob", bytes));
    EXPECT_EQ(linesOf(lod1), stored) << bytes;
  }
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(lod0.ListCount(), 0);
}

// Caps the size of files this process writes, with SIGXFSZ ignored, so that
// a write stops half way as on a full disk: in the middle of the lines, or
// only when the last buffered bytes go out as the file is closed.
TEST_F(FileTransfer, WriteFailingHalfWayLeavesThePartialFileAndTheStores) {
  auto saveWithLimit = [&](void (*save)(frmKorvane&, const std::string&), rlim_t bytes) {
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    rlimit limit = old;
    limit.rlim_cur = bytes;
    auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limit);
    save(frm, dir.file("out.kob"));
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);
    return readBytes(dir.file("out.kob"));
  };
  std::string source;
  for (int i = 0; i < 200000; ++i) source += "line " + std::to_string(i) + "\r\n";
  // Read from a file, so that the lines go out as one run of the source.
  ReadFileLOD0(frm, dir.write("source.kob", source));
  const Lines lines = linesOf(lod0);
  fill(lod1, {"[LOD 1]"});
  EXPECT_EQ(saveWithLimit(SaveFileCombined, 1500000), source.substr(0, 1500000));
  EXPECT_EQ(linesOf(lod0), lines);
  EXPECT_EQ(linesOf(lod1), (Lines{"[LOD 1]"}));
  fill(lod0, {"a", "b"});
  EXPECT_EQ(saveWithLimit(SaveFileLOD0, 3), "a\r\n");
  EXPECT_EQ(platform.messages, (Lines{"Unexpected error in SaveFileCombined: Disk full ( 61)",
                                      "Unexpected error in SaveFileLOD0: Disk full ( 61)"}));
}

// A failed read leaves its own store empty, a failed save both as they were,
// and nothing is created where the target cannot be opened.
TEST_F(FileTransfer, FailuresShowOneMessageInTheProcedureFrame) {
  const std::tuple<void (*)(frmKorvane&, const std::string&), std::string, std::string> cases[] = {
      {ReadFileLOD0, "absent.kob", "Unexpected error in ReadFileLOD0: File not found ( 53)"},
      {ReadFileLOD1, "absent/lod1.kob", "Unexpected error in ReadFileLOD1: Path not found ( 76)"},
      {SaveFileCombined, "absent/out.kob", "Unexpected error in SaveFileCombined: Path not found ( 76)"},
  };
  for (const auto& [procedure, target, message] : cases) {
    fill(lod0, {"zero"});
    fill(lod1, {"one"});
    platform.messages.clear();
    procedure(frm, dir.file(target));
    EXPECT_EQ(platform.messages, (Lines{message}));
    EXPECT_EQ(linesOf(lod0), procedure == ReadFileLOD0 ? Lines{} : Lines{"zero"}) << message;
    EXPECT_EQ(linesOf(lod1), procedure == ReadFileLOD1 ? Lines{} : Lines{"one"}) << message;
    EXPECT_TRUE(std::filesystem::is_empty(dir.path()));
  }
}

}  // namespace
}  // namespace korvane
