#include "objectfile/file_transfer.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "mainwindow/main_window.h"
#include "objectfile/line_store.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/store_lines.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using namespace std::string_literals;
using testing::crlf;
using testing::readBytes;
using testing::TempDir;
using Lines = std::vector<std::string>;

using testing::linesOf;

void fill(LineStore& store, const Lines& lines) {
  store.Clear();
  testing::addLines(store, lines);
}

class FileTransfer : public ::testing::Test {
 protected:
  FileTransfer() { AppTitleName = "Korvane"; }

  LineStore& lod0() { return frm.lstDataLOD0.Store(); }
  LineStore& lod1() { return frm.lstDataLOD1.Store(); }

  testing::ScriptedPlatform platform;
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
  TempDir dir;
};

struct RoundTrip {
  const char* name;
  std::string source;
  Lines stored;
  std::string saved;
};

// Read into the LOD 0 store in place of old lines, then saved over the source.
TEST_F(FileTransfer, ReadingAndSavingGivesTheLinesEachWithCrLf) {
  const RoundTrip cases[] = {
      {"blanks and empty lines",
       "[M]\r\n\r\n  x = 1\t\r\n",
       {"[M]", "", "  x = 1\t"},
       "[M]\r\n\r\n  x = 1\t\r\n"},
      {"CR, LF and no end", "a\rb\r\nc\nd\r\ne", {"a", "b", "c\nd", "e"}, "a\r\nb\r\nc\nd\r\ne\r\n"},
      {"LF only is one line", "a\nb\n", {"a\nb\n"}, "a\nb\n\r\n"},
      {"empty", "", {}, ""},
  };
  for (const RoundTrip& c : cases) {
    fill(lod0(), {"old 1", "old 2", "old 3", "old 4", "old 5"});
    std::string path = dir.write("source.kob", c.source);
    ReadFileLOD0(frm, path);
    EXPECT_EQ(linesOf(lod0()), c.stored) << c.name;
    SaveFileLOD0(frm, path);
    EXPECT_EQ(readBytes(path), c.saved) << c.name;
    SaveFileCombined(frm, path);
    EXPECT_EQ(readBytes(path), c.saved) << c.name;
  }
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(FileTransfer, SaveFileCombinedWritesLOD1DirectlyBehindLOD0) {
  fill(lod0(), {"a", "b"});
  fill(lod1(), {"[LOD 1]", "c"});
  std::string path = dir.file("out.kob");
  SaveFileCombined(frm, path);
  EXPECT_EQ(readBytes(path), crlf({"a", "b", "[LOD 1]", "c"}));
}

struct MarkerCase {
  const char* name;
  std::string bytes;
  Lines stored;
};

TEST_F(FileTransfer, ReadFileLOD1StoresFromTheFirstExactMarkerLineOn) {
  const MarkerCase cases[] = {
      {"lines ahead dropped", crlf({"[Material - 0]", "[LOD 0]", "v 1"}), {"[LOD 0]", "v 1"}},
      {"second marker is ordinary", crlf({"a", "[LOD 0]", "b", "[LOD 0]"}), {"[LOD 0]", "b", "[LOD 0]"}},
      {"near misses are no marker", crlf({"[lod 0]", " [LOD 0]", "[LOD 0] ", "x[LOD 0]"}), {}},
      {"last line without end", "a\r\n[LOD 0]", {"[LOD 0]"}},
      {"CR only", "a\r[LOD 0]\rb\r", {"[LOD 0]", "b"}},
      {"LF only", "a\n[LOD 0]\nb\n", {}},
  };
  for (const MarkerCase& c : cases) {
    fill(lod1(), {"left over"});
    ReadFileLOD1(frm, dir.write("lod1.kob", c.bytes));
    EXPECT_EQ(linesOf(lod1()), c.stored) << c.name;
  }
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(lod0().ListCount(), 0);
}

// Ignores SIGXFSZ and caps the size of files this process writes, so that a
// write stops half way as on a full disk.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    m_oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &m_old);
    rlimit limit = m_old;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &m_old);
    std::signal(SIGXFSZ, m_oldHandler);
  }

 private:
  rlimit m_old{};
  void (*m_oldHandler)(int);
};

TEST_F(FileTransfer, WriteFailingHalfWayLeavesThePartialFileAndTheStores) {
  Lines lines;
  std::string allBytes;
  for (int i = 0; i < 200000; ++i) {
    lines.push_back("line " + std::to_string(i));
    allBytes += lines.back() + "\r\n";
  }
  // Read from a file, so that the lines go out as one run of the source.
  ReadFileLOD0(frm, dir.write("source.kob", allBytes));
  fill(lod1(), {"[LOD 1]"});
  std::string path = dir.file("out.kob");
  {
    FileSizeLimit limit(1500000);
    SaveFileCombined(frm, path);
  }
  EXPECT_EQ(platform.messages, (Lines{"Unexpected error in SaveFileCombined: Disk full ( 61)"}));
  EXPECT_EQ(readBytes(path), allBytes.substr(0, 1500000));
  EXPECT_EQ(linesOf(lod0()), lines);
  EXPECT_EQ(linesOf(lod1()), (Lines{"[LOD 1]"}));
}

struct FailureCase {
  void (*procedure)(frmKorvane&, const std::string&);
  const char* target;  // inside the test's directory; "" is the directory itself
  std::string message;
};

// A failed read leaves its own store empty, a failed save both as they were,
// and nothing is created where the target cannot be opened.
TEST_F(FileTransfer, FailuresShowOneMessageInTheProcedureFrame) {
  const FailureCase cases[] = {
      {ReadFileLOD0, "absent.kob", "Unexpected error in ReadFileLOD0: File not found ( 53)"},
      {ReadFileLOD0, "", "Unexpected error in ReadFileLOD0: Path/File access error ( 75)"},
      {ReadFileLOD1, "absent/lod1.kob", "Unexpected error in ReadFileLOD1: Path not found ( 76)"},
      {SaveFileLOD0, "", "Unexpected error in SaveFileLOD0: Path/File access error ( 75)"},
      {SaveFileCombined, "absent/out.kob", "Unexpected error in SaveFileCombined: Path not found ( 76)"},
  };
  for (const FailureCase& c : cases) {
    fill(lod0(), {"zero"});
    fill(lod1(), {"one"});
    platform.messages.clear();
    c.procedure(frm, *c.target ? dir.file(c.target) : dir.path().string());
    EXPECT_EQ(platform.messages, (Lines{c.message}));
    EXPECT_EQ(linesOf(lod0()), c.procedure == ReadFileLOD0 ? Lines{} : Lines{"zero"}) << c.message;
    EXPECT_EQ(linesOf(lod1()), c.procedure == ReadFileLOD1 ? Lines{} : Lines{"one"}) << c.message;
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 0);
  }
}

}  // namespace
}  // namespace korvane
