#include "objectfile/file_transfer.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "mainwindow/main_window.h"
#include "objectfile/line_store.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using namespace std::string_literals;
using testing::crlf;
using testing::readBytes;
using testing::TempDir;
using Lines = std::vector<std::string>;

Lines linesOf(const LineStore& store) {
  Lines lines;
  for (std::int32_t i = 0; i < store.ListCount(); ++i) lines.emplace_back(store.List(i));
  return lines;
}

void fill(LineStore& store, const Lines& lines) {
  store.Clear();
  for (const auto& line : lines) store.AddItem(line);
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

TEST_F(FileTransfer, ReadFileLOD0StoresEveryLineInPlaceOfTheOldOnes) {
  fill(lod0(), {"old 1", "old 2", "old 3", "old 4"});
  ReadFileLOD0(frm, dir.write("source.kob", "[Material - 0]\r\nTextureMap=a.tga\r\n\r\n  x = 1\t\r\n"));
  EXPECT_EQ(linesOf(lod0()), (Lines{"[Material - 0]", "TextureMap=a.tga", "", "  x = 1\t"}));
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(FileTransfer, ReadingAndSavingUnchangedGivesTheSameLinesAllWithCrLf) {
  std::string path = dir.write("source.kob", "a\rb\r\n\r\nc\nd\r\ne");
  ReadFileLOD0(frm, path);
  SaveFileLOD0(frm, dir.file("out.kob"));
  EXPECT_EQ(readBytes(dir.file("out.kob")), "a\r\nb\r\n\r\nc\nd\r\ne\r\n");
}

TEST_F(FileTransfer, LfOnlySourceIsOneLineAndComesBackWithOneCrLfAtTheEnd) {
  ReadFileLOD0(frm, dir.write("source.kob", "[A]\nk=v\n"));
  EXPECT_EQ(lod0().ListCount(), 1);
  SaveFileLOD0(frm, dir.file("out.kob"));
  EXPECT_EQ(readBytes(dir.file("out.kob")), "[A]\nk=v\n\r\n");
}

TEST_F(FileTransfer, SavingOverTheFileTheStoreWasReadFromWorks) {
  std::string path = dir.write("source.kob", "one\rtwo\r");
  ReadFileLOD0(frm, path);
  lod0().AddItem("three");
  SaveFileLOD0(frm, path);
  EXPECT_EQ(readBytes(path), crlf({"one", "two", "three"}));
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(FileTransfer, SaveFileCombinedWritesLOD1DirectlyBehindLOD0) {
  fill(lod0(), {"[LOD 0]", "a", ""});
  fill(lod1(), {"[LOD 1]", "b"});
  SaveFileCombined(frm, dir.file("out.kob"));
  EXPECT_EQ(readBytes(dir.file("out.kob")), crlf({"[LOD 0]", "a", "", "[LOD 1]", "b"}));
  EXPECT_EQ(linesOf(lod0()), (Lines{"[LOD 0]", "a", ""}));
  EXPECT_EQ(linesOf(lod1()), (Lines{"[LOD 1]", "b"}));
}

TEST_F(FileTransfer, SaveFileCombinedWithEmptyLOD1WritesWhatSaveFileLOD0Writes) {
  fill(lod0(), {"x", "", "y"});
  SaveFileLOD0(frm, dir.file("alone.kob"));
  SaveFileCombined(frm, dir.file("combined.kob"));
  EXPECT_EQ(readBytes(dir.file("combined.kob")), readBytes(dir.file("alone.kob")));
  EXPECT_EQ(readBytes(dir.file("combined.kob")), crlf({"x", "", "y"}));
}

TEST_F(FileTransfer, SavingTwoEmptyStoresLeavesAnEmptyFileInPlaceOfTheOldOne) {
  std::string path = dir.write("out.kob", "old content\r\n");
  SaveFileCombined(frm, path);
  EXPECT_TRUE(std::filesystem::exists(path));
  EXPECT_EQ(readBytes(path), "");
}

struct MarkerCase {
  const char* name;
  std::string bytes;
  Lines stored;
  friend void PrintTo(const MarkerCase& c, std::ostream* os) { *os << c.name; }
};

class ReadFileLOD1Marker : public FileTransfer, public ::testing::WithParamInterface<MarkerCase> {};

TEST_P(ReadFileLOD1Marker, StoresFromTheFirstExactMarkerLineOn) {
  fill(lod1(), {"left over"});
  ReadFileLOD1(frm, dir.write("lod1.kob", GetParam().bytes));
  EXPECT_EQ(linesOf(lod1()), GetParam().stored);
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(lod0().ListCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ReadFileLOD1Marker,
    ::testing::Values(MarkerCase{"LinesAheadOfTheMarkerDropped",
                                 crlf({"[Material - 0]", "TextureMap=b.tga", "[LOD 0]", "v 1", "v 2"}),
                                 {"[LOD 0]", "v 1", "v 2"}},
                      MarkerCase{"NoMarkerStoresNothing", crlf({"[Material - 0]", "TextureMap=b.tga"}), {}},
                      MarkerCase{"SecondMarkerIsAnOrdinaryLine",
                                 crlf({"a", "[LOD 0]", "b", "[LOD 0]", "c"}),
                                 {"[LOD 0]", "b", "[LOD 0]", "c"}},
                      MarkerCase{"OtherCapitalsAreNoMarker", crlf({"[lod 0]", "a"}), {}},
                      MarkerCase{"BlankAheadIsNoMarker", crlf({" [LOD 0]", "a"}), {}},
                      MarkerCase{"BlankBehindIsNoMarker", crlf({"[LOD 0] ", "a"}), {}},
                      MarkerCase{"MarkerAsLastLineWithoutLineEnd", "a\r\n[LOD 0]", {"[LOD 0]"}},
                      MarkerCase{"CrOnlyLineEnds", "a\r[LOD 0]\rb\r", {"[LOD 0]", "b"}},
                      MarkerCase{"LfOnlyFileHasNoMarkerLine", "a\n[LOD 0]\nb\n", {}}),
    [](const auto& info) { return std::string(info.param.name); });

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
  for (int i = 0; i < 1000; ++i) {
    lines.push_back("line " + std::to_string(i));
    allBytes += lines.back() + "\r\n";
  }
  fill(lod0(), lines);
  fill(lod1(), {"[LOD 1]"});
  std::string path = dir.file("out.kob");
  {
    FileSizeLimit limit(100);
    SaveFileCombined(frm, path);
  }
  EXPECT_EQ(platform.messages, (Lines{"Unexpected error in SaveFileCombined: Disk full ( 61)"}));
  EXPECT_EQ(readBytes(path), allBytes.substr(0, 100));
  EXPECT_EQ(linesOf(lod0()), lines);
  EXPECT_EQ(linesOf(lod1()), (Lines{"[LOD 1]"}));
}

TEST_F(FileTransfer, ReadOnlyTargetIsRefusedAndKeepsItsContent) {
  std::string path = dir.write("locked.kob", "keep\r\n");
  std::filesystem::permissions(path, std::filesystem::perms::owner_read);
  if (::access(path.c_str(), W_OK) == 0) GTEST_SKIP() << "this user may write any file";
  fill(lod0(), {"a"});
  SaveFileLOD0(frm, path);
  EXPECT_EQ(platform.messages, (Lines{"Unexpected error in SaveFileLOD0: Path/File access error ( 75)"}));
  EXPECT_EQ(readBytes(path), "keep\r\n");
}

struct FailureCase {
  const char* name;
  void (*procedure)(frmKorvane&, const std::string&);
  const char* target;  // inside the test's directory; "" is the directory itself
  std::string message;
  friend void PrintTo(const FailureCase& c, std::ostream* os) { *os << c.name; }
};

class TransferFailure : public FileTransfer, public ::testing::WithParamInterface<FailureCase> {};

TEST_P(TransferFailure, ShowsOneMessageInTheProcedureFrame) {
  fill(lod0(), {"zero"});
  fill(lod1(), {"one"});
  std::string target = *GetParam().target ? dir.file(GetParam().target) : dir.path().string();
  GetParam().procedure(frm, target);
  EXPECT_EQ(platform.messages, (Lines{GetParam().message}));
  // Nothing is created where the target cannot be opened.
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TransferFailure,
    ::testing::Values(FailureCase{"ReadLOD0MissingFile", ReadFileLOD0, "absent.kob",
                                  "Unexpected error in ReadFileLOD0: File not found ( 53)"},
                      FailureCase{"ReadLOD1MissingFile", ReadFileLOD1, "absent.kob",
                                  "Unexpected error in ReadFileLOD1: File not found ( 53)"},
                      FailureCase{"ReadLOD0Directory", ReadFileLOD0, "",
                                  "Unexpected error in ReadFileLOD0: Path/File access error ( 75)"},
                      FailureCase{"ReadLOD1MissingDirectory", ReadFileLOD1, "absent/lod1.kob",
                                  "Unexpected error in ReadFileLOD1: Path not found ( 76)"},
                      FailureCase{"SaveLOD0Directory", SaveFileLOD0, "",
                                  "Unexpected error in SaveFileLOD0: Path/File access error ( 75)"},
                      FailureCase{"SaveLOD0MissingDirectory", SaveFileLOD0, "absent/out.kob",
                                  "Unexpected error in SaveFileLOD0: Path not found ( 76)"},
                      FailureCase{"SaveCombinedMissingDirectory", SaveFileCombined, "absent/out.kob",
                                  "Unexpected error in SaveFileCombined: Path not found ( 76)"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(FileTransfer, FailedReadLeavesOnlyItsOwnStoreCleared) {
  fill(lod0(), {"zero"});
  fill(lod1(), {"one"});
  ReadFileLOD0(frm, dir.file("absent.kob"));
  EXPECT_EQ(lod0().ListCount(), 0);
  EXPECT_EQ(linesOf(lod1()), (Lines{"one"}));
  ReadFileLOD1(frm, dir.file("absent.kob"));
  EXPECT_EQ(lod1().ListCount(), 0);
}

TEST_F(FileTransfer, FailedSaveLeavesBothStoresAsTheyWere) {
  fill(lod0(), {"zero"});
  fill(lod1(), {"one"});
  SaveFileCombined(frm, dir.path().string());
  EXPECT_EQ(linesOf(lod0()), (Lines{"zero"}));
  EXPECT_EQ(linesOf(lod1()), (Lines{"one"}));
}

}  // namespace
}  // namespace korvane
