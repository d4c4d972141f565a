// The material steps on a store read from a file, each case run twice as a
// save repeated with the same controls: the second changes nothing.

#include "rewrite/material_lines.h"

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
const std::string kNotFound = "The TextureMap keyword was not found in your KOB file";

TEST(MaterialLines, TextureMapThenColorKeyReplaceInsertOrRemoveTheirLine) {
  const std::tuple<int, Lines, Lines, Lines> cases[] = {
      // chkAddColorKey, before, after, messages
      {0,
       {"; TextureMap=draft", "   texturemap=old ; x", "Shine"},
       {"TextureMap= m.tga ", "   texturemap=old ; x", "Shine"},
       {}},
      {0, {"TextureMap =old", "x"}, {"TextureMap =old", "x"}, {kNotFound, kNotFound}},
      {1, {}, {}, {kNotFound, kNotFound}},
      {0, {"TextureMap=a", "colorKey=1,2,3", "S"}, {"TextureMap= m.tga ", "S"}, {}},
      {1,
       {"TextureMap=a", "S", "  colorKey=9 ; old", "ColorKey=4"},
       {"TextureMap= m.tga ", "S", "ColorKey=12,0,255", "ColorKey=4"},
       {}},
      {1,
       {"M", "TextureMap=a", "S", "TextureMap=b"},
       {"M", "TextureMap= m.tga ", "ColorKey=12,0,255", "S", "TextureMap=b"},
       {}},
      {2, {"M", "TextureMap=a"}, {"M", "TextureMap= m.tga ", "ColorKey=12,0,255"}, {}},
      {1, {"TextureMap=a", "ColorKey =1"}, {"TextureMap= m.tga ", "ColorKey=12,0,255", "ColorKey =1"}, {}},
      {0, {"ColorKey =1", "TextureMap=a"}, {"ColorKey =1", "TextureMap= m.tga "}, {}},
  };
  AppTitleName = "Korvane";
  testing::TempDir dir;
  for (const auto& [colorKey, before, after, messages] : cases) {
    testing::ScriptedPlatform platform;
    Program program{platform};
    frmKorvane& frm = program.MainWindow();
    frm.txtTextureMap.SetText(" m.tga ");
    frm.mskColorKey0.SetText("12");
    frm.mskColorKey1.SetText("0");
    frm.mskColorKey2.SetText("255");
    frm.chkAddColorKey.SetValue(colorKey);
    std::string bytes;
    for (const std::string& line : before) bytes += line + "\r\n";
    ReadFileLOD0(frm, SourceSnapshot(dir.write("source.kob", bytes)));
    testing::addLines(frm.lstDataLOD1.Store(), {"TextureMap=lo", "ColorKey=1"});
    for (int save = 0; save < 2; ++save) {
      UpdateTextureMapLOD0(frm);
      UpdateColorKeyLOD0(frm);
      EXPECT_EQ(testing::linesOf(frm.lstDataLOD0.Store()), after) << before.size() << " lines, save " << save;
    }
    EXPECT_EQ(platform.messages, messages);
    EXPECT_EQ(testing::linesOf(frm.lstDataLOD1.Store()), (Lines{"TextureMap=lo", "ColorKey=1"}));
  }
}

}  // namespace
}  // namespace korvane
