#include "shell/command_line.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

TEST(CommandLine, ArgumentsGiveTheFileOrAStatedRefusal) {
  using Action = CommandLine::Action;
  // The arguments, then what comes of them: the file to open, or the first line told.
  const std::tuple<std::vector<std::string>, Action, std::string> rows[] = {
      {{}, Action::Run, ""},
      {{"crate.kob"}, Action::Run, "crate.kob"},
      {{"--", "-crate.kob"}, Action::Run, "-crate.kob"},
      {{"a.kob", "b.kob"}, Action::Refuse, "korvane: too many files (2): give one at most"},
      {{"-x", "a.kob"}, Action::Refuse, "korvane: unknown option \"-x\""},
      {{""}, Action::Refuse, "korvane: the file name is empty"},
      {{"a.kob", "--help"}, Action::Help, "Usage: korvane [FILE]"},
      {{"--version"}, Action::Version, ""},
  };
  for (const auto& [arguments, action, told] : rows) {
    SCOPED_TRACE(::testing::PrintToString(arguments));
    const CommandLine parsed = ParseCommandLine(arguments);
    EXPECT_EQ(parsed.action, action);
    EXPECT_EQ(action == Action::Run ? parsed.file : parsed.text.substr(0, parsed.text.find('\n')), told);
    // A refusal says how it is done right.
    EXPECT_EQ(parsed.text.find("\nUsage: korvane [FILE]\n") != std::string::npos, action == Action::Refuse);
  }
}

}  // namespace
}  // namespace korvane
