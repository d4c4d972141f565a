// korvane-cli as a build script runs it: the files it writes against the
// window's for the same jobs, a batch with a failing row, and the command
// lines it refuses.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/temp_files.h"

namespace korvane::cli {
namespace {

using korvane::testing::readBytes;

struct Ran {
  int status = -1;
  std::string out, err;
};

// A work folder holding the scenario fixtures.
class Fixtures : public ::testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::copy(KORVANE_FIXTURES, m_dir.path(), std::filesystem::copy_options::recursive);
  }
  std::string file(const std::string& name) const { return m_dir.file(name); }

  Ran run(const std::string& program, const std::string& args) const {
    std::string command =
        "cd '" + m_dir.path().string() + "' && " + program + " " + args + " >out.txt 2>err.txt";
    int raw = std::system(command.c_str());
    return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, readBytes(file("out.txt")), readBytes(file("err.txt"))};
  }
  Ran cli(const std::string& args) const { return run(KORVANE_CLI, args); }

 private:
  korvane::testing::TempDir m_dir;
};

// The same job through the window's driver and through the cli: the same
// bytes saved, and each message box of the window one line on standard error.
struct Job {
  const char* cli;     // merge's arguments after LOD0 and -o
  const char* window;  // the author's actions, '|' between them
};

TEST_F(Fixtures, MergeWritesWhatTheWindowWrites) {
#ifndef KORVANE_SCENARIO
  GTEST_SKIP() << "the windows are not built";
#else
  const Job jobs[] = {
      {"barrel.kob", "answer barrel.kob|click btnBrowseLOD0"},
      {"barrel.kob --lod1 barrel_low.kob --texture new.tga --autolod 0.3,.1",
       "answer barrel.kob|click btnBrowseLOD0|answer barrel_low.kob|click chkAddLOD1|type txtTextureMap "
       "new.tga|"
       "click btnAdvancedSettings|type mskAutoLOD0 0.3|type mskAutoLOD1 .1|click OKButton"},
      {"barrel.kob --colorkey 7,0,255",
       "answer barrel.kob|click btnBrowseLOD0|click chkAddColorKey|type mskColorKey0 7|type mskColorKey1 0|"
       "type mskColorKey2 255"},
      {"crate.kob --no-colorkey", "answer crate.kob|click btnBrowseLOD0|click chkAddColorKey"},
      {"tower.kob --autolod ,-1 --colorkey 10,20,7",
       "answer tower.kob|click btnBrowseLOD0|click btnAdvancedSettings|type mskAutoLOD1 -1|click OKButton|"
       "type mskColorKey2 7"},
      {"tower_bare.kob", "answer tower_bare.kob|click btnBrowseLOD0"},
      {"spaced.kob --texture s.tga", "answer spaced.kob|click btnBrowseLOD0|type txtTextureMap s.tga"},
      {"key_300.kob --lod1 barrel_low.kob",
       "answer key_300.kob|click btnBrowseLOD0|answer barrel_low.kob|click chkAddLOD1"},
      {"key_007.kob", "answer key_007.kob|click btnBrowseLOD0"},
  };
  for (const Job& job : jobs) {
    SCOPED_TRACE(job.cli);
    std::string script =
        std::string("start|") + job.window + "|answer window.kob|click btnSaveAs|click btnExit";
    for (char& c : script) c = c == '|' ? '\n' : c;
    std::ofstream(file("job.scn")) << script << "\n";
    Ran window = run(KORVANE_SCENARIO, "--store store.ini job.scn");
    ASSERT_EQ(window.status, 0) << window.err;
    std::string expected;
    std::istringstream transcript(window.out);
    for (std::string line; std::getline(transcript, line);)
      if (line.rfind("MSGBOX [Korvane] ", 0) == 0) expected += "korvane-cli: " + line.substr(17) + "\n";

    // One job writes to standard output, the rest to a file.
    bool toStdout = std::string(job.cli) == "key_007.kob";
    Ran merged = cli(std::string("merge ") + job.cli + " -o " + (toStdout ? "-" : "cli.kob"));
    EXPECT_EQ(merged.status, 0);
    EXPECT_EQ(merged.err, expected);
    std::string saved = readBytes(file("window.kob"));
    ASSERT_FALSE(saved.empty());
    EXPECT_EQ(toStdout ? merged.out : readBytes(file("cli.kob")), saved);
  }
#endif
}

TEST_F(Fixtures, BatchGoesOnPastAFailingRow) {
  std::ofstream(file("jobs.tsv")) << "# LOD 0\tLOD 1\toutput\ttexture\tColorKey\tAutoLOD\n"
                                  << "barrel.kob\tbarrel_low.kob\ta.kob\ta.tga\t1,2,3\t0.3,0.1\n"
                                  << "missing.kob\t\tb.kob\n"
                                  << "\n"
                                  << "crate.kob\t\tc.kob\t\toff\n";
  Ran batch = cli("batch jobs.tsv");
  EXPECT_EQ(batch.status, 1);
  EXPECT_NE(batch.out.find("jobs.tsv:3: failed"), std::string::npos) << batch.out;
  EXPECT_EQ(batch.out.substr(batch.out.rfind('\n', batch.out.size() - 2) + 1), "2 merged, 1 failed\n");
  EXPECT_EQ(batch.err, "korvane-cli: Error Reading KOB File: TextureMap Not Found\n");
  EXPECT_EQ(readBytes(file("b.kob")), "");

  // Each column lands where merge's option puts it.
  ASSERT_EQ(cli("merge barrel.kob --lod1 barrel_low.kob --texture a.tga --colorkey 1,2,3 --autolod 0.3,0.1 "
                "-o m.kob")
                .status,
            0);
  EXPECT_EQ(readBytes(file("a.kob")), readBytes(file("m.kob")));
  ASSERT_EQ(cli("merge crate.kob --no-colorkey -o n.kob").status, 0);
  EXPECT_EQ(readBytes(file("c.kob")), readBytes(file("n.kob")));
}

struct CommandLine {
  const char* args;
  int status;
  const char* says;  // on standard output for 0 and 1, on standard error for 2
};

TEST_F(Fixtures, CommandLines) {
  const CommandLine rows[] = {
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
      {"batch nothere.tsv", 2, "cannot read"},
      {"merge --help", 0, "Usage: korvane-cli merge"},
      {"batch --help", 0, "Usage: korvane-cli batch"},
      {"--version", 0, "korvane-cli "},
      {"check crate.kob", 0, ""},
      {"check crate.kob spaced.kob", 1, "spaced.kob:2: warning: "},
      {"check nothere.kob crate.kob", 2, "nothere.kob: cannot read"},
      {"merge barrel.kob --autolod 1,1 -o x.kob", 1, ""},
      {"merge tower.kob --lod1 barrel_low.kob -o x.kob", 1, ""},
  };
  for (const CommandLine& row : rows) {
    SCOPED_TRACE(row.args);
    Ran result = cli(row.args);
    EXPECT_EQ(result.status, row.status) << result.err;
    const std::string& said = row.status == 2 ? result.err : result.out;
    EXPECT_NE(said.find(row.says), std::string::npos) << said;
    if (row.status == 0) {
      EXPECT_EQ(result.err, "");
    }
  }
}

}  // namespace
}  // namespace korvane::cli
