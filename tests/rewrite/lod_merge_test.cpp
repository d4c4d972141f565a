// The LOD steps on stores read from files, so that their searches run over
// the source's text as well as over lines added since.

#include "rewrite/lod_merge.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "mainwindow/window_procedures.h"
#include "objectfile/source_snapshot.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/store_lines.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using Lines = std::vector<std::string>;
using testing::linesOf;

class LodMerge : public ::testing::Test {
 protected:
  std::string file(const std::string& name, const Lines& lines) {
    std::string bytes;
    for (const std::string& line : lines) bytes += line + "\r\n";
    return dir.write(name, bytes);
  }

  testing::TempDir dir;
};

TEST_F(LodMerge, UpdateLODInformationExtendsOrUpdatesTheBlock) {
  const Lines block = {"NumberOfLOD=2", "UseAutoLOD=T", "AutoLOD#0=0.250", "AutoLOD#1=0.750"};
  const std::tuple<int, Lines, Lines> cases[] = {
      // chkAddLOD1, before, after
      // Extending: the whole first NumberOfLOD line makes way for the block.
      {1,
       {"[I]", "  numberOfLod=1 ;", "NumberOfLOD=1"},
       {"[I]", block[0], block[1], block[2], block[3], "NumberOfLOD=1"}},
      {1, {"NumberOfLOD =1", "AutoLOD#0=0.1"}, {"NumberOfLOD =1", "AutoLOD#0=0.1"}},
      // Updating.
      {2,
       {"NumberOfLOD=2", "autolod#0=0.1", "M", "AutoLOD#1=0.9"},
       {"NumberOfLOD=2", block[2], "M", block[3]}},
      {2, {"NumberOfLOD=2", "M", "AutoLOD#0=0.1", "x"}, {"NumberOfLOD=2", "M", block[2], block[3], "x"}},
      {2, {"NumberOfLOD=2", "M", "AutoLOD#1=0.9"}, {"NumberOfLOD=2", block[2], "M", block[3]}},
      {2, {"M", "AutoLOD#1=0.9"}, {"M", block[3]}},
      {2, {"NumberOfLOD=2", "AutoLOD#0=0.1 AutoLOD#1=0.9", "x"}, {"NumberOfLOD=2", block[3], "x"}},
      {2,
       {"AutoLOD#0=0.1", "; autoLOD#0=0.2", "AutoLOD#1=0.9", "AutoLOD#0=0.3", "AutoLOD#1=0.4"},
       {block[2], block[2], block[3], "AutoLOD#0=0.3", "AutoLOD#1=0.4"}},
      {2, {"NumberOfLOD=2", "AutoLOD#0 =0.1"}, {"NumberOfLOD=2", block[2], block[3], "AutoLOD#0 =0.1"}},
  };
  for (const auto& [addLOD1, before, after] : cases) {
    testing::ScriptedPlatform platform;
    Program program{platform};
    frmKorvane& frm = program.MainWindow();
    frm.chkAddLOD1.onClick = nullptr;
    frm.chkAddLOD1.SetValue(addLOD1);
    program.AdvancedSettings().mskAutoLOD0.SetText("0.250");
    program.AdvancedSettings().mskAutoLOD1.SetText("0.750");
    ReadFileLOD0(frm, SourceSnapshot(file("lod0.kob", before)));
    ReadFileLOD1(frm, SourceSnapshot(file("lod1.kob", {"[LOD 0]", "NumberOfLOD=1"})));
    UpdateLODInformation(frm);
    EXPECT_EQ(linesOf(frm.lstDataLOD0.Store()), after) << before.size() << " lines, " << addLOD1;
    EXPECT_EQ(linesOf(frm.lstDataLOD1.Store()), (Lines{"[LOD 0]", "NumberOfLOD=1"}));
    EXPECT_TRUE(platform.messages.empty());
  }
}

TEST_F(LodMerge, UpdateLOD1RenamesEveryLodZeroAndKeepsWhatSubstituteCannotRename) {
  AppTitleName = "Korvane";
  testing::ScriptedPlatform platform;
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
  // "LOD 0" is renamed where it stands up to Substitute's last position, the
  // second in a line too; one further on makes the whole line Substitute's failure.
  const std::string inside = "LOD 0" + std::string(32756, 'v') + "LOD 0";
  const std::string beyond = "LOD 0" + std::string(32757, 'v') + "LOD 0";
  ReadFileLOD1(frm, SourceSnapshot(file("lod1.kob", {"[LOD 0]", "Name=LOD 0 and LOD 0",
                                                     "lod 0, LOD  0, LOD 00", inside, beyond, "x"})));
  frm.lstDataLOD1.Store().AddItem("LOD 0 added", 1);
  // A second save renames nothing more and meets the same failure again.
  for (int save = 0; save < 2; ++save) {
    UpdateLOD1(frm);
    EXPECT_EQ(linesOf(frm.lstDataLOD1.Store()),
              (Lines{"[LOD 1]", "LOD 1 added", "Name=LOD 1 and LOD 1", "lod 0, LOD  0, LOD 10",
                     "LOD 1" + std::string(32756, 'v') + "LOD 1", beyond, "x"}));
  }
  EXPECT_EQ(platform.messages, (Lines{"Substitute:  6 - 0", "Substitute:  6 - 0"}));
  EXPECT_EQ(platform.messageTitles[0], "Korvane");
}

}  // namespace
}  // namespace korvane
