#include "mainwindow/color_key_editor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "mainwindow/main_window.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

class ColorKey : public ::testing::Test {
 protected:
  ColorKey() { program.Main(); }

  testing::ScriptedPlatform platform;
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
};

// Whatever the author does, in whatever order, each channel comes to rest
// with the value given, bar and slider agreeing, and the swatch showing the bars.
TEST_F(ColorKey, EveryActionComesToRestWithTheChannelAgreeing) {
  std::mt19937 random(16);
  for (int step = 0; step < 3000; ++step) {
    const int channel = static_cast<int>(random() % 3);
    const int number = static_cast<int>(random() % 1000);
    MaskedEdit& field = frm.colorKeyField(channel);
    // Typed, typed with leading zeros, a slider move, a bar move, or the field emptied.
    const int kind = static_cast<int>(random() % 5);
    const int moved = kind == 2 || kind == 3 ? number % 256 : -1;
    const std::string typed = kind == 0   ? std::to_string(number)
                              : kind == 1 ? std::string(1 + number % 2, '0') + std::to_string(number % 10)
                                          : "";
    // A move to where the control stands runs nothing.
    const int before = kind == 2 ? frm.colorKeySlider(channel).Value() : frm.colorKeyBar(channel).Value();
    const bool moves = moved >= 0 && before != moved;
    if (kind == 2) frm.colorKeySlider(channel).AuthorMove(moved);
    if (kind == 3) frm.colorKeyBar(channel).SetValue(moved);
    if (kind < 2 || kind == 4) field.SetText(typed);
    SCOPED_TRACE("step " + std::to_string(step) + ", channel " + std::to_string(channel) + ", typed [" +
                 typed + "], moved " + std::to_string(moved));

    if (!typed.empty()) {
      ASSERT_EQ(frm.colorKeyBar(channel).Value(), std::min(std::stoi(typed), 255));
      ASSERT_TRUE(std::stoi(typed) <= 255 || field.Text() == "255");
    }
    ASSERT_TRUE(!moves || field.Text() == std::to_string(moved)) << field.Text();
    ASSERT_TRUE(moved < 0 || frm.colorKeyBar(channel).Value() == moved);
    for (int c = 0; c < 3; ++c) {
      const std::string& text = frm.colorKeyField(c).Text();
      ASSERT_EQ(frm.colorKeyBar(c).Value(), frm.colorKeySlider(c).Value());
      ASSERT_TRUE(text.empty() || std::stoi(text) == frm.colorKeyBar(c).Value()) << text;
    }
    ASSERT_EQ(frm.lblShowColor.BackColor(),
              (Rgb{frm.vscrlColorKey0.Value(), frm.vscrlColorKey1.Value(), frm.vscrlColorKey2.Value()}));
  }
}

// Sources read one after another into the same window, from the start state
// (all at 128, off): each value fills the editor through the chains, or a
// control refuses it, which ends the reading with the box left as it was.
TEST_F(ColorKey, ASourceValueFillsTheEditorOrEndsTheReadingWhereAControlRefusesIt) {
  const struct {
    const char* value;  // nullptr: no ColorKey line
    const char* fields;
    bool on, refused;
  } cases[] = {{nullptr, "128,128,128", false, false},
               {"", "128,128,128", false, false},
               {"1000,0,0", "128,128,128", false, true},
               {"-1,0,0", "128,128,128", false, true},
               {"1.5,0,0", "128,128,128", false, true},
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
  testing::TempDir dir;
  for (const auto& c : cases) {
    std::string line = c.value ? std::string("ColorKey=") + c.value : "Shininess=1";
    SCOPED_TRACE(line);
    platform.clearLog();
    ReadColorKeyINI(frm,
                    dir.write("source.kob", testing::crlf({"[Material - 0]", "TextureMap=a.tga", line})));
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
