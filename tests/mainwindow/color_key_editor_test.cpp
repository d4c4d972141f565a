#include "mainwindow/color_key_editor.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "mainwindow/main_window.h"
#include "objectfile/source_snapshot.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

// Sources read one after another into the same window, from the start state
// (all at 128, off): each value fills the editor through the chains, or a
// control refuses it, which ends the reading with the box left as it was.
TEST(ColorKey, ASourceValueFillsTheEditorOrEndsTheReadingWhereAControlRefusesIt) {
  const struct {
    const char* value;  // nullptr: no ColorKey line
    const char* fields;
    bool on, refused;
  } cases[] = {{nullptr, "128,128,128", false, false},
               {"", "128,128,128", false, false},
               {"1000,0,0", "128,128,128", false, true},
               {"-1,0,0", "128,128,128", false, true},
               {"10,,30", "10,0,30", true, false},
               {"300,0,0", "255,0,0", true, true},
               {"0,0,300", "0,0,255", true, true},
               {"007,0,0", "7,0,0", true, false},
               {"1,2,3,4", "1,2,3", true, false},
               // An emptied field is filled by its bar's move, and by nothing where the bar stays.
               {"10,20", "10,20,0", true, false},
               {"10,20", "10,20,", true, false},
               {"a,b,c", "10,20,", true, true},
               {"10,a,30", "10,20,", true, true},
               {nullptr, "10,20,", false, false}};
  testing::ScriptedPlatform platform;
  Program program{platform};
  program.Main();
  frmKorvane& frm = program.MainWindow();
  testing::TempDir dir;
  for (const auto& c : cases) {
    std::string line = c.value ? std::string("ColorKey=") + c.value : "Shininess=1";
    SCOPED_TRACE(line);
    platform.clearLog();
    ReadColorKeyINI(frm, SourceSnapshot(dir.write(
                             "source.kob", testing::crlf({"[Material - 0]", "TextureMap=a.tga", line}))));
    EXPECT_EQ(platform.messages, c.refused ? std::vector<std::string>{"Unexpected error in ReadColorKeyINI: "
                                                                      "Invalid property value ( 380)"}
                                           : std::vector<std::string>{});
    EXPECT_EQ(frm.mskColorKey0.Text() + "," + frm.mskColorKey1.Text() + "," + frm.mskColorKey2.Text(),
              c.fields);
    EXPECT_EQ(frm.chkAddColorKey.Value(), c.on ? 1 : 0);
    EXPECT_EQ(frm.sldColorKey2.Enabled(), c.on);
  }
}

}  // namespace
}  // namespace korvane
