// korvane-cli as a build script runs it: the files it writes against those
// the window saved for the same jobs, a batch with a failing row, and the
// command lines it refuses.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "support/temp_files.h"

namespace korvane::cli {
namespace {

using korvane::testing::readBytes;

struct Ran {
  int status;
  std::string out, err;
};

// A work folder holding the scenario fixtures.
class Fixtures : public ::testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::copy(KORVANE_FIXTURES, dir.path(), std::filesystem::copy_options::recursive);
  }
  // The program with args, or a shell line in which {cli} stands for it;
  // what hangs is ended after 10 s.
  Ran cli(std::string args) const {
    if (std::size_t at = args.find("{cli}"); at != std::string::npos) {
      args.replace(at, 5, KORVANE_CLI);
    } else {
      args = KORVANE_CLI " " + args;
    }
    std::ofstream(dir.file("run.sh")) << args << "\n";
    int raw =
        std::system(("cd '" + dir.path().string() + "' && timeout 10 sh run.sh >out.txt 2>err.txt").c_str());
    return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, readBytes(dir.file("out.txt")),
            readBytes(dir.file("err.txt"))};
  }
  // A file a scenario saved through the window.
  static std::string saved(const std::string& name) { return readBytes(KORVANE_SCENARIOS "/" + name); }

  korvane::testing::TempDir dir;
};

// The same jobs as scenarios saved through the window: the same bytes, and
// each message box of the window one line on standard error.
TEST_F(Fixtures, MergeAndBatchWriteWhatTheWindowSaved) {
  const struct {
    const char* args;  // after merge; the output goes to standard output
    const char* saved;
    const char* err;
  } jobs[] = {
      {"barrel.kob --lod1 barrel_low.kob --autolod=-1,2", "autolod_window.output/barrel_autolod.kob", ""},
      {"barrel.kob --texture 'wood grain.tga' --colorkey 12,255,0", "one_lod_job.output/barrel_textured.kob",
       ""},
      {"crate.kob --texture ' ' --no-colorkey", "saveas_refusals.output/blank_name.kob", ""},
      {"spaced.kob --colorkey 1,9,3", "saveas_refusals.output/spaced_saved.kob",
       "korvane-cli: The TextureMap keyword was not found in your KOB file\n"},
      {"tower.kob --autolod ,-1 --colorkey 10,20,7", "two_lod_job.output/tower_edited.kob", ""},
  };
  for (const auto& job : jobs) {
    Ran merged = cli(std::string("merge ") + job.args + " -o -");
    EXPECT_TRUE(merged.status == 0 && merged.err == job.err && merged.out == saved(job.saved))
        << job.args << ": " << merged.err;
  }

  // A batch goes on past a failing row, each column where merge's option puts it;
  // a row may end in CR LF.
  std::ofstream(dir.file("jobs.tsv"))
      << "# LOD 0\tLOD 1\toutput\ttexture\tColorKey\tAutoLOD\nbarrel.kob\tbarrel_low.kob\ta.kob\t\t\t-1,2\n"
         "missing.kob\t\tb.kob\n\ncrate.kob\t\tc.kob\t \toff\r\n"
         "barrel.kob\t\td.kob\twood grain.tga\t12,255,0\n";
  Ran batch = cli("batch jobs.tsv");
  EXPECT_TRUE(batch.status == 1 && batch.out.find("jobs.tsv:3: failed") != std::string::npos &&
              batch.out.ends_with("\n3 merged, 1 failed\n") && readBytes(dir.file("b.kob")).empty())
      << batch.out;
  EXPECT_EQ(batch.err,
            "korvane-cli: Error Reading KOB File: TextureMap Not Found\n"
            "korvane-cli: jobs.tsv:3: missing.kob: cannot be read: No such file or directory\n");
  const std::pair<const char*, int> rows[] = {{"a.kob", 0}, {"c.kob", 2}, {"d.kob", 1}};
  for (const auto& [output, job] : rows)
    EXPECT_EQ(readBytes(dir.file(output)), saved(jobs[job].saved)) << output;
}

TEST_F(Fixtures, CommandLines) {
  // An output of 300 kB: past a pipe's buffer and a small file-size limit.
  std::string big = readBytes(dir.file("barrel.kob"));
  for (int i = 0; i < 10000; ++i) big += "Vertex=0.5 0.25 0.125 ; padding\r\n";
  std::ofstream(dir.file("big.kob"), std::ios::binary) << big;
  std::filesystem::create_directories(dir.path() / "tmp");
  const struct {
    const char* args;
    int status;
    const char* says;  // on standard output or standard error
  } rows[] = {
      {"", 2, "no command"},
      {"frob", 2, "unknown command frob"},
      {"merge barrel.kob", 2, "no output"},
      {"merge -o x.kob", 2, "no LOD 0 source"},
      {"merge barrel.kob -o x.kob --colorkey 256,0,0", 2, "from 0 to 255"},
      {"merge barrel.kob -o x.kob --colorkey 1,x,3", 2, "from 0 to 255"},
      {"merge barrel.kob -o x.kob --colorkey 1,2", 2, "from 0 to 255"},
      {"merge barrel.kob -o x.kob --colorkey 1,2,3 --no-colorkey", 2, "exclude each other"},
      {"merge barrel.kob -o x.kob --autolod 0.12345,0", 2, "six characters"},
      {"merge barrel.kob -o x.kob --frob", 2, "unknown option --frob"},
      {"merge barrel.kob -o", 2, "-o needs a value"},
      {"check", 2, "no file to check"},
      {"batch", 2, "no jobs file"},
      {"batch nothere.tsv", 2, "nothere.tsv: cannot read the jobs file: No such file or directory"},
      {"batch .", 2, ".: cannot read the jobs file: is a folder"},
      {"merge '' -o x.kob", 2, "the LOD 0 source needs a file name"},
      {"merge barrel.kob --lod1 '' -o x.kob", 2, "--lod1 needs a file name"},
      {"merge barrel.kob -o x.kob --texture \"$(printf 'a\\r\\nInjected=1')\"", 2,
       "must not hold a line end"},
      {"merge nothere.kob -o x.kob", 1, "nothere.kob: cannot be read: No such file or directory"},
      {"merge unix.kob -o x.kob", 1, "unix.kob: refused as the LOD 0 source"},
      {"merge barrel.kob --lod1 no_surfaces_low.kob -o x.kob", 1,
       "no_surfaces_low.kob: refused as the LOD 1 source"},
      {"merge crate.kob --colorkey 255,00,255 -o -", 0, "\nColorKey=255,00,255\r\n"},
      {"merge --help", 0, "Usage: korvane-cli merge"},
      {"-h", 0, "Usage: korvane-cli merge"},
      {"check crate.kob tower.kob", 0, ""},
      {"check crate.kob spaced.kob", 1, "spaced.kob:2: warning: "},
      {"check nothere.kob crate.kob", 2, "nothere.kob: cannot read"},
      {"check .", 2, ".: cannot read: is a directory"},
      {"merge barrel.kob --autolod 1,1 -o x.kob", 1, ""},
      {"merge tower.kob --lod1 barrel_low.kob -o x.kob", 1, ""},
      // Runs as a hostile user or a careless script makes them: a message and
      // the right status, the old target intact, nothing left behind.
      // SIGXFSZ would end the program and leave a cut file.
      {"cp barrel.kob keep.kob; ulimit -f 100; {cli} merge big.kob -o keep.kob", 1,
       "Unexpected error in SaveFileLOD0: Disk full ( 61)\nkorvane-cli: keep.kob: not written"},
      // The writer's failure is found behind the rewriting's own message.
      {"(ulimit -f 0; {cli} merge spaced.kob -o gone.kob 2>&1) | cat; ls gone.kob", 2,
       "found in your KOB file\nkorvane-cli: Unexpected error in SaveFileLOD0: Disk full ( 61)\nkorvane-cli: "
       "gone.kob: not written"},
      {"mkfifo fifo.tsv; {cli} batch fifo.tsv", 2, "fifo.tsv: cannot read the jobs file: not a regular file"},
      {"{cli} batch /dev/zero", 2, "/dev/zero: cannot read the jobs file: not a regular file"},
      // Rows of standard input are taken from the current directory, not /dev.
      {"mkdir sub; printf 'barrel.kob\\t\\tpiped.kob\\n' >sub/rel.tsv; {cli} batch /dev/stdin <sub/rel.tsv; "
       "ls piped.kob",
       0, "/dev/stdin:1: merged piped.kob\n1 merged, 0 failed\npiped.kob"},
      {"echo log >log.txt; {cli} merge barrel.kob -o /dev/stdout >>log.txt; head -c 4 log.txt", 0, "log\n"},
      {"export TMPDIR=$PWD/tmp; {cli} merge big.kob -o - 2>err2.txt | head -c 1 >/dev/null; cat err2.txt", 0,
       "korvane-cli: cannot write to standard output: Broken pipe"},
      // Ended by the signal itself (128 + 15), after removing its copy.
      {"export TMPDIR=$PWD/tmp; ({cli} merge big.kob -o - & echo $! >pid; wait $!; echo $? >status) "
       "2>/dev/null | (read -r line; kill -TERM $(cat pid); cat >/dev/null); cat status",
       0, "143"},
  };
  for (const auto& row : rows) {
    Ran result = cli(row.args);
    EXPECT_TRUE(result.status == row.status &&
                (result.out + result.err).find(row.says) != std::string::npos &&
                (row.status != 0 || result.err.empty()))
        << row.args << " exited " << result.status << ": " << result.out << result.err;
    EXPECT_TRUE(std::filesystem::is_empty(dir.path() / "tmp")) << row.args;
  }
  EXPECT_EQ(readBytes(dir.file("keep.kob")), readBytes(dir.file("barrel.kob")));
}

}  // namespace
}  // namespace korvane::cli
