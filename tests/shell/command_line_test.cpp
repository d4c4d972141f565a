#include "shell/command_line.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

TEST(CommandLine, ArgumentsGiveTheFileOrAStatedRefusal) {
  using Action = CommandLine::Action;
  struct Row {
    std::vector<std::string> arguments;
    Action action;
    const char* fileOrFirstLine;
  };
  const Row rows[] = {
      {{}, Action::Run, ""},
      {{"crate.kob"}, Action::Run, "crate.kob"},
      {{"--", "-crate.kob"}, Action::Run, "-crate.kob"},
      {{"a.kob", "b.kob"}, Action::Refuse, "korvane: too many files (2): give one at most"},
      {{"-x", "a.kob"}, Action::Refuse, "korvane: unknown option \"-x\""},
      {{"-"}, Action::Refuse, "korvane: unknown option \"-\""},
      {{""}, Action::Refuse, "korvane: the file name is empty"},
      {{"a.kob", "--help"}, Action::Help, "Usage: korvane [FILE]"},
      {{"--version"}, Action::Version, ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(::testing::PrintToString(row.arguments));
    const CommandLine parsed = ParseCommandLine(row.arguments);
    EXPECT_EQ(parsed.action, row.action);
    EXPECT_EQ(row.action == Action::Run ? parsed.file : parsed.text.substr(0, parsed.text.find('\n')),
              row.fileOrFirstLine);
    // A refusal says how it is done right.
    EXPECT_EQ(parsed.text.find("\nUsage: korvane [FILE]\n") != std::string::npos,
              row.action == Action::Refuse);
  }
}

}  // namespace
}  // namespace korvane
