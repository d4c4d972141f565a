#include "shell/program.h"

#include <gtest/gtest.h>

#include <functional>

#include "runtime/failure.h"
#include "support/faulty_platform.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

// The close of the main window runs Form_QueryUnload, which runs ExitProgram
// again inside the first run: still each window closes once, and a settings
// window never touched is not brought into being to be closed.
TEST(Exit, EveryWayOutClosesEachWindowOnceAndEndsStoringNothing) {
  const std::function<void(Program&)> ways[] = {
      [](Program& p) { p.MainWindow().btnExit.Click(); }, [](Program& p) { p.MainWindow().RequestClose(); },
      [](Program& p) { p.MainWindow().Form_QueryUnload(); }, [](Program& p) { p.ExitProgram(); }};
  for (bool touched : {false, true}) {
    for (const auto& way : ways) {
      testing::FaultyPlatform platform;
      // The last also meets a window that refuses to close, and goes on past it.
      if (&way == &ways[3])
        platform.onUnload = [] { throw RuntimeFailure(failure_number::InvalidProcedureCall); };
      Program program(platform);
      program.Main();
      if (touched) program.AdvancedSettings();
      platform.clearLog();
      EXPECT_THROW(way(program), ProcessEnded);
      EXPECT_EQ(platform.events, (touched ? Texts{"UNLOAD frmAdvancedSettings", "EXIT"} : Texts{"EXIT"}));
      EXPECT_EQ(program.AdvancedSettingsLoaded(), touched);
      EXPECT_TRUE(platform.store.empty());
    }
  }
}

}  // namespace
}  // namespace korvane
