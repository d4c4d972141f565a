#include "objectfile/file_transfer.h"

#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "objectfile/line_store.h"
#include "objectfile/source_snapshot.h"
#include "runtime/shared_strings.h"
#include "support/scripted_platform.h"
#include "support/store_lines.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using testing::linesOf;
using testing::readBytes;
using Lines = std::vector<std::string>;

class FileTransfer : public ::testing::Test {
 public:
  FileTransfer() { AppTitleName = "Korvane"; }

  LineStore& fill(LineStore& store, const Lines& lines) {
    store.Clear();
    testing::addLines(store, lines);
    return store;
  }

  // The procedures on the two stores, as the window hands them over.
  void read0(const std::string& path) { ReadFileLOD0(platform, lod0, SourceSnapshot(path)); }
  void read1(const std::string& path) { ReadFileLOD1(platform, lod1, SourceSnapshot(path)); }
  void save0(const std::string& path) { SaveFileLOD0(platform, lod0, path); }
  void saveCombined(const std::string& path) { SaveFileCombined(platform, lod0, lod1, path); }
  using Procedure = void (FileTransfer::*)(const std::string&);

  testing::ScriptedPlatform platform;
  LineStore lod0;
  LineStore lod1;
  testing::TempDir dir;
};

// Read into the LOD 0 store in place of old lines, then saved over the
// source alone, and with the LOD 1 lines directly behind over the LOD 1 source.
TEST_F(FileTransfer, ReadingAndSavingGivesTheLinesEachWithCrLf) {
  const std::tuple<std::string, Lines, std::string> cases[] = {
      {"[M]\r\n\r\n  x = 1\t\r\n", {"[M]", "", "  x = 1\t"}, "[M]\r\n\r\n  x = 1\t\r\n"},
      {"a\rb\r\nc\nd\r\ne", {"a", "b", "c\nd", "e"}, "a\r\nb\r\nc\nd\r\ne\r\n"},
      {"a\nb\n", {"a\nb\n"}, "a\nb\n\r\n"},
      {"\r\r\n\n", {"", "", "\n"}, "\r\n\r\n\n\r\n"},
      {"", {}, ""},
  };
  const std::string lod1Source = dir.write("lod1.kob", "x\r\n[LOD 0]\r\n");
  read1(lod1Source);
  for (const auto& [source, stored, saved] : cases) {
    fill(lod0, {"old 1", "old 2", "old 3", "old 4", "old 5"});
    std::string path = dir.write("source.kob", source);
    read0(path);
    EXPECT_EQ(linesOf(lod0), stored) << source;
    save0(path);
    EXPECT_EQ(readBytes(path), saved) << source;
    saveCombined(lod1Source);
    EXPECT_EQ(readBytes(lod1Source), saved + "[LOD 0]\r\n") << source;
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
    read1(dir.write("lod1.kob", bytes));
    EXPECT_EQ(linesOf(lod1), stored) << bytes;
  }
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(lod0.ListCount(), 0);
}

// A save in a child process, which may be limited, killed or run beside
// another: the target holds its old bytes or the new ones whole, except where
// it has to be written in place (several hard links, a folder that takes no
// new file), and no temporary file outlives the next save.
TEST_F(FileTransfer, ASaveReplacesItsTargetWholeOrNotAtAll) {
  enum Target { New, Old0640, SymbolicLink, HardLinked, FolderTakesNoNewFile };
  enum Ending { Completes, FileSizeLimit, Killed, TwoAtOnce };
  constexpr rlim_t kLimit = 1500000;
  std::string source;
  for (int i = 0; i < 400000; ++i) source += "v " + std::to_string(i) + " 0.5 0.25\r\n";
  // Read from a file, so that the lines go out as one run of the source.
  read0(dir.write("source.kob", source));
  fill(lod1, {"[LOD 1]"});
  const std::string full = source + "[LOD 1]\r\n", old = "old\r\n";
  const mode_t umask = ::umask(0);
  ::umask(umask);
  // The child's exit status tells what it showed: 0 nothing, 1 the writer's failure.
  auto saveInChild = [&](const std::string& target, rlim_t limit, bool bound, bool second) {
    const pid_t pid = ::fork();
    if (pid != 0) return pid;
    const rlimit cap{limit, limit};
    if (limit != 0) ::setrlimit(RLIMIT_FSIZE, &cap);
    // Root writes anywhere: it gives up overriding permissions instead, and stays
    // the owner, so the folders above the test's own need not be open to others.
    if (bound && ::geteuid() == 0) {
      __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
      __user_cap_data_struct caps[2]{};
      if (::syscall(SYS_capget, &header, caps) != 0) ::_exit(3);
      caps[0].effective &= ~((1u << CAP_DAC_OVERRIDE) | (1u << CAP_DAC_READ_SEARCH));
      if (::syscall(SYS_capset, &header, caps) != 0) ::_exit(3);
    }
    if (second) lod1.AddItem("second");
    saveCombined(target);
    ::_exit(platform.messages == Lines{"Unexpected error in SaveFileCombined: Disk full ( 61)"}
                ? 1
                : platform.messages.size() * 2);
  };
  auto finish = [](pid_t pid) {
    int status = 0;
    ::waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  };
  auto leftovers = [&] {
    int count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(dir.path()))
      count += entry.path().filename().string().find(".korvane-") != std::string::npos;
    return count;
  };

  for (const Target target : {New, Old0640, SymbolicLink, HardLinked, FolderTakesNoNewFile}) {
    const bool inPlace = target == HardLinked || target == FolderTakesNoNewFile;
    for (const Ending ending : {Completes, FileSizeLimit, Killed, TwoAtOnce}) {
      if (inPlace && (ending == Killed || ending == TwoAtOnce)) continue;
      SCOPED_TRACE("target " + std::to_string(target) + ", ending " + std::to_string(ending));
      const std::filesystem::path folder = dir.path() / "out";
      std::filesystem::remove_all(folder);
      std::filesystem::create_directories(folder / "real");
      const std::string path = (folder / "out.kob").string();
      // Where the target's content is read from: through the link, the file it names.
      const std::string file = target == SymbolicLink ? (folder / "real/out.kob").string() : path;
      if (target != New) {
        std::ofstream(file) << old;
        std::filesystem::permissions(file, std::filesystem::perms(target == Old0640 ? 0640 : 0666));
      }
      if (target == SymbolicLink) std::filesystem::create_symlink("real/out.kob", path);
      if (target == HardLinked) std::filesystem::create_hard_link(path, folder / "real/other.kob");
      if (target == FolderTakesNoNewFile) std::filesystem::permissions(folder, std::filesystem::perms(0555));

      const pid_t saving =
          saveInChild(path, ending == FileSizeLimit ? kLimit : 0, target == FolderTakesNoNewFile, false);
      int shown = 0;
      if (ending == TwoAtOnce) shown = finish(saveInChild(path, 0, false, true));
      if (ending == Killed) {
        // As soon as the new content has begun to arrive.
        for (int wait = 0; wait < 20000 && leftovers() == 0; ++wait) ::usleep(500);
        ::kill(saving, SIGKILL);
      }
      shown += finish(saving);
      const std::string content = readBytes(file);
      const std::string before = target == New ? "" : old;
      EXPECT_EQ(shown, ending == FileSizeLimit ? 1 : ending == Killed ? -SIGKILL : 0);
      EXPECT_EQ(std::filesystem::exists(file), ending == Completes || ending == TwoAtOnce || target != New);
      const std::string wanted = ending == Completes || ending == TwoAtOnce ? full
                                 : ending == FileSizeLimit && inPlace       ? full.substr(0, kLimit)
                                                                            : before;
      EXPECT_TRUE(content == wanted || (ending == TwoAtOnce && content == full + "second\r\n"))
          << content.size();
      // Killed while writing: the temporary file is left for the next save.
      EXPECT_EQ(leftovers(), ending == Killed ? 1 : 0);
      if (target != New) {
        EXPECT_EQ(std::filesystem::status(file).permissions(),
                  std::filesystem::perms(target == Old0640 ? 0640 : 0666));
      } else if (ending != FileSizeLimit && ending != Killed) {
        EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms(0666 & ~umask));
      }
      EXPECT_EQ(std::filesystem::is_symlink(path), target == SymbolicLink);
      EXPECT_EQ(readBytes((folder / "real/other.kob").string()), target == HardLinked ? content : "");
      // The next save cleans up after a killed one.
      if (target != FolderTakesNoNewFile) {
        saveCombined(path);
        EXPECT_EQ(readBytes(file), full);
        EXPECT_EQ(leftovers(), 0);
      }
      std::filesystem::permissions(folder, std::filesystem::perms(0755));
    }
  }
  EXPECT_EQ(platform.messages, Lines{});
}

// A failed read leaves its own store empty, a failed save both as they were,
// and nothing is created where the target cannot be opened.
TEST_F(FileTransfer, FailuresShowOneMessageInTheProcedureFrame) {
  const std::tuple<Procedure, std::string, std::string> cases[] = {
      {&FileTransfer::read0, "absent.kob", "Unexpected error in ReadFileLOD0: File not found ( 53)"},
      {&FileTransfer::read1, "absent/lod1.kob", "Unexpected error in ReadFileLOD1: Path not found ( 76)"},
      {&FileTransfer::saveCombined, "absent/out.kob",
       "Unexpected error in SaveFileCombined: Path not found ( 76)"},
  };
  for (const auto& [procedure, target, message] : cases) {
    fill(lod0, {"zero"});
    fill(lod1, {"one"});
    platform.messages.clear();
    (this->*procedure)(dir.file(target));
    EXPECT_EQ(platform.messages, (Lines{message}));
    EXPECT_EQ(linesOf(lod0), procedure == &FileTransfer::read0 ? Lines{} : Lines{"zero"}) << message;
    EXPECT_EQ(linesOf(lod1), procedure == &FileTransfer::read1 ? Lines{} : Lines{"one"}) << message;
    EXPECT_TRUE(std::filesystem::is_empty(dir.path()));
  }
}

}  // namespace
}  // namespace korvane
