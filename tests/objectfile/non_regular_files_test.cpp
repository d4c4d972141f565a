// A file that is not a regular one, picked as a source or as the target: no
// step may wait on it or read it for ever, a source is refused like a file
// that cannot be read, and a target is the writer's failure 75.

#include <gtest/gtest.h>

#include <string>

#include "mainwindow/main_window.h"
#include "mainwindow/save_as.h"
#include "mainwindow/source_loading.h"
#include "mainwindow/window_procedures.h"
#include "objectfile/source_snapshot.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/system.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

TEST(SpecialFile, NeitherWaitsNorIsReadNorWritten) {
  AppTitleName = "Korvane";
  testing::endProcessAfter(60);
  for (const std::string& kind : testing::specialFileKinds()) {
    for (const std::string role : {"AsLOD0", "AsLOD1", "ReadAsLOD0", "AsTarget"}) {
      SCOPED_TRACE(kind + " " + role);
      testing::ScriptedPlatform platform;
      Program program{platform};
      frmKorvane& frm = program.MainWindow();
      testing::TempDir dir;
      const std::string special = testing::makeSpecialFile(kind, role, dir.file("special.kob"));
      const std::string source =
          dir.write("a.kob", testing::crlf({"[Material - 0]", "TextureMap=a.tga", "[LOD Information]",
                                            "NumberOfLOD=1", "[LOD 0]", "NumberOfSurfaces=1"}));
      platform.answer(source);
      btnBrowseLOD0_Click(frm);
      platform.clearLog();
      platform.answer(special);

      std::string expected = "Error Reading KOB File: TextureMap Not Found";
      if (role == "AsLOD0") btnBrowseLOD0_Click(frm);
      if (role == "AsLOD1") frm.chkAddLOD1.SetValue(1);
      if (role == "ReadAsLOD0") ReadFileLOD0(frm, SourceSnapshot(special));
      if (role == "ReadAsLOD0") expected = "Unexpected error in ReadFileLOD0: Path/File access error ( 75)";
      if (role == "AsTarget") btnSaveAs_Click(frm);
      if (role == "AsTarget") expected = "Unexpected error in SaveFileLOD0: Path/File access error ( 75)";
      EXPECT_EQ(platform.messages, std::vector<std::string>{expected});
      if (role == "ReadAsLOD0") continue;
      // Nothing loaded changed, so the author can still save, elsewhere.
      EXPECT_EQ(frm.txtFilePathLOD0.Text(), source);
      EXPECT_EQ(frm.chkAddLOD1.Value(), 0);
      SaveFileLOD0(frm, dir.file("elsewhere.kob"));
      EXPECT_EQ(testing::readBytes(dir.file("elsewhere.kob")), testing::readBytes(source));
    }
  }
  testing::endProcessAfter(0);
}

}  // namespace
}  // namespace korvane
