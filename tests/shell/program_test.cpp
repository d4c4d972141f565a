#include "shell/program.h"

#include <gtest/gtest.h>

#include "runtime/failure.h"
#include "runtime/shared_strings.h"
#include "support/scripted_platform.h"

namespace korvane {
namespace {

const std::pair<std::string, std::string> kDefaultDir{"Software\\Korvane", "DefaultDir"};

class CountingPlatform : public testing::ScriptedPlatform {
 public:
  int writes = 0;
  bool unloadThrows = false;
  bool readThrows = false;
  bool writeUserValue(const std::string& keyPath, const std::string& valueName,
                      const std::string& data) override {
    ++writes;
    return ScriptedPlatform::writeUserValue(keyPath, valueName, data);
  }
  std::optional<std::string> readUserValue(const std::string& keyPath,
                                           const std::string& valueName) override {
    if (readThrows) throw RuntimeFailure(failure_number::OutOfMemory);
    return ScriptedPlatform::readUserValue(keyPath, valueName);
  }
  void unloadWindow(Form& window) override {
    ScriptedPlatform::unloadWindow(window);
    if (unloadThrows) throw RuntimeFailure(failure_number::InvalidProcedureCall);
  }
};

class ProgramTest : public ::testing::Test {
 protected:
  ProgramTest() {
    AppTitleName.clear();
    DefaultDirPath = "left over from an earlier test";
  }
  CountingPlatform platform;
  Program program{platform};
};

// ---- Start-up -------------------------------------------------------------

struct Remembered {
  const char* name;
  std::optional<std::string> stored;
  std::string expected;
};
void PrintTo(const Remembered& row, std::ostream* os) {
  *os << row.name;
}

class MainStartsIn : public ProgramTest, public ::testing::WithParamInterface<Remembered> {};

TEST_P(MainStartsIn, TheRememberedDirectoryOrTheCurrentOne) {
  if (GetParam().stored) platform.store[kDefaultDir] = *GetParam().stored;
  program.Main();
  EXPECT_EQ(AppTitleName, "Korvane");
  EXPECT_EQ(DefaultDirPath, GetParam().expected);
  EXPECT_TRUE(platform.messages.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Stores, MainStartsIn,
    ::testing::Values(Remembered{"FirstRun", std::nullopt, "/home/author"},
                      Remembered{"StoredEmptyText", std::string(), "/home/author"},
                      Remembered{"StoredPath", std::string("/data/objects"), "/data/objects"},
                      Remembered{"BlanksKept", std::string(" /my objects/ "), " /my objects/ "},
                      Remembered{"BackslashesKept", std::string("C:\\Objects\\"), "C:\\Objects\\"},
                      Remembered{"NonAsciiKept",
                                 std::string("/home/autor/\xc3\x9c"
                                             "bung"),
                                 "/home/autor/\xc3\x9c"
                                 "bung"},
                      Remembered{"MissingDirectoryTakenAsItStands", std::string("/gone"), "/gone"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(ProgramTest, MainShowsTheMainWindowLoadedAndWritesNothing) {
  program.Main();
  EXPECT_EQ(platform.events, std::vector<std::string>{"SHOW frmKorvane"});
  frmKorvane& frm = program.MainWindow();
  EXPECT_TRUE(frm.Visible());
  EXPECT_EQ(frm.mskColorKey0.Text(), "128");  // Form_Load ran before the window appeared
  EXPECT_EQ(platform.writes, 0);
  EXPECT_FALSE(program.AdvancedSettingsLoaded());
}

TEST_F(ProgramTest, UnreadableStoreIsReportedBeforeTheWindowAndTakenAsFirstRun) {
  platform.store[kDefaultDir] = "/kept";
  platform.readThrows = true;
  program.Main();
  EXPECT_EQ(platform.events,
            (std::vector<std::string>{"MSGBOX Unexpected error in GetRegStr \n\n 7 - Out of memory",
                                      "SHOW frmKorvane"}));
  EXPECT_EQ(DefaultDirPath, "/home/author");
}

// ---- Exit -----------------------------------------------------------------

TEST_F(ProgramTest, ExitWithTheSettingsWindowNeverTouchedCreatesNothing) {
  program.Main();
  platform.clearLog();
  EXPECT_THROW(program.MainWindow().btnExit.Click(), ProcessEnded);
  EXPECT_EQ(platform.events, std::vector<std::string>{"EXIT"});
  EXPECT_FALSE(program.AdvancedSettingsLoaded());
}

TEST_F(ProgramTest, ExitButtonClosesEachWindowOnceThroughTheNestedRun) {
  program.Main();
  program.AdvancedSettings();
  platform.clearLog();
  // btnExit -> ExitProgram -> close of the main window -> Form_QueryUnload ->
  // ExitProgram again, which ends the process; the outer run never continues.
  EXPECT_THROW(program.MainWindow().btnExit.Click(), ProcessEnded);
  EXPECT_EQ(platform.events, (std::vector<std::string>{"UNLOAD frmAdvancedSettings", "EXIT"}));
  EXPECT_TRUE(program.MainWindow().closing);
}

TEST_F(ProgramTest, CloseBoxEndsLikeTheExitButton) {
  program.Main();
  program.AdvancedSettings();
  platform.clearLog();
  frmKorvane& frm = program.MainWindow();
  EXPECT_THROW(frm.RequestClose(), ProcessEnded);
  EXPECT_EQ(platform.events, (std::vector<std::string>{"UNLOAD frmAdvancedSettings", "EXIT"}));
  EXPECT_TRUE(frm.closing);
}

TEST_F(ProgramTest, CloseRequestDuringAClosingRaisesNothing) {
  program.Main();
  platform.clearLog();
  frmKorvane& frm = program.MainWindow();
  frm.closing = true;
  frm.RequestClose();
  EXPECT_TRUE(platform.events.empty());
}

TEST_F(ProgramTest, CloseRequestWithoutTheClosingMarkStillEndsOnce) {
  program.Main();
  program.AdvancedSettings();
  platform.clearLog();
  EXPECT_THROW(program.MainWindow().Form_QueryUnload(), ProcessEnded);
  EXPECT_EQ(platform.events, (std::vector<std::string>{"UNLOAD frmAdvancedSettings", "EXIT"}));
}

TEST_F(ProgramTest, ExitGoesOnPastAWindowThatRefusesToClose) {
  program.Main();
  program.AdvancedSettings();
  platform.unloadThrows = true;
  platform.clearLog();
  EXPECT_THROW(program.ExitProgram(), ProcessEnded);
  EXPECT_EQ(platform.events, (std::vector<std::string>{"UNLOAD frmAdvancedSettings", "EXIT"}));
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(ProgramTest, ExitAsksNothingAndStoresNothing) {
  program.Main();
  frmKorvane& frm = program.MainWindow();
  frm.txtTextureMap.SetText("unsaved.tga");
  frm.lstDataLOD0.Store().AddItem("TextureMap=old.tga");
  platform.clearLog();
  EXPECT_THROW(frm.btnExit.Click(), ProcessEnded);
  EXPECT_EQ(platform.events, std::vector<std::string>{"EXIT"});
  EXPECT_EQ(platform.writes, 0);
  EXPECT_TRUE(platform.dialogRequests.empty());
}

}  // namespace
}  // namespace korvane
