// What the author's scripts cannot see of a load: the order of its steps, the
// number of LODs at its limits, the moves between states no script takes.

#include "mainwindow/source_loading.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "mainwindow/main_window.h"
#include "objectfile/source_snapshot.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using testing::crlf;

std::string kob(const std::string& lods) {
  return crlf({"[Material - 0]", "TextureMap=crate.tga", "[LOD Information]", "NumberOfLOD=" + lods}) +
         (lods == "2" ? crlf({"AutoLOD#0=0.3", "AutoLOD#1=0.05"}) : "") +
         crlf({"[LOD 0]", "NumberOfSurfaces=4", "Surface0=LOD 0 part"});
}

class SourceLoading : public ::testing::Test {
 protected:
  SourceLoading() {
    program.Main();
    dir.write("one.kob", kob("1"));
    dir.write("two.kob", kob("2"));
  }

  void click(Button& button, const std::string& source) {
    platform.answer(dir.file(source));
    button.Click();
  }

  // Each change of a record of either window, as name, + or - for Enabled, and its value.
  void recordChanges() {
    auto observer = [this](Control* c) {
      if (c == nullptr) return;
      std::string value;
      if (auto* text = dynamic_cast<TextBox*>(c))
        value = text->Text().empty() ? "''" : "'" + text->Text() + "'";
      if (auto* label = dynamic_cast<Label*>(c)) value = label->Caption();
      if (auto* box = dynamic_cast<CheckBox*>(c)) value = std::to_string(box->Value());
      if (auto* field = dynamic_cast<MaskedEdit*>(c)) value = field->Text();
      std::string path = (dir.path() / "").string();
      if (auto at = value.find(path); at != std::string::npos) value.erase(at, path.size());
      changes += (changes.empty() ? "" : " ") + c->Name() + (c->Enabled() ? "+" : "-") + value;
    };
    frm.SetObserver(observer);
    program.AdvancedSettings().SetObserver(observer);
    changes.clear();
  }

  testing::ScriptedPlatform platform;
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
  testing::TempDir dir;
  std::string changes;
};

TEST_F(SourceLoading, ALoadSwitchesTheControlsInItsOrder) {
  recordChanges();
  click(frm.btnBrowseLOD0, "one.kob");
  EXPECT_EQ(changes,
            "txtFilePathLOD0+'' Frame2+ lblTextureMap+TextureMap: txtTextureMap+'' btnBrowseTextureMap+ "
            "lblNumberOfLOD+Number Of LOD: lblLODnum+ btnSaveAs+ chkAddColorKey+0 txtFilePathLOD0+'one.kob' "
            "txtTextureMap+'crate.tga' lblLODnum+1 chkAddLOD1+0");

  // Two LODs over a LOD 1: the box's closing branch runs on the way to 0 and
  // again on the way to 2; btnAdvancedSettings opens only after both.
  platform.answer(dir.file("one.kob"));
  frm.chkAddLOD1.AuthorClick();
  recordChanges();
  click(frm.btnBrowseLOD0, "two.kob");
  EXPECT_EQ(
      changes,
      "chkAddLOD1+0 Frame4- btnBrowseLOD1- txtFilePathLOD1-'one.kob' btnAdvancedSettings- txtFilePathLOD1-'' "
      "chkAddLOD1-0 txtFilePathLOD0+'two.kob' txtTextureMap+'' txtTextureMap+'crate.tga' lblLODnum+ "
      "lblLODnum+2 chkAddLOD1-2 mskAutoLOD0+0.300 mskAutoLOD1+0.050 btnAdvancedSettings+");
}

TEST_F(SourceLoading, TheNumberOfLODsIsTheRoundedLeadingNumberOfTheText) {
  // The line, the caption then ("9": the step failed and left it), and the message.
  const char* const cases[][3] = {
      {"NumberOfLOD=2.5", "2", ""},  // halves go to the even neighbour
      {"NumberOfLOD=1.5", "2", ""},
      {"NumberOfLOD=2 objects", "2", ""},
      {"Other=1", "0", "Error Reading the KOB file"},  // the key gone since the validation
      {"NumberOfLOD=1e10", "9", "Unexpected error in ReadNumberOfLOD: Overflow ( 6)"},
  };
  for (const auto& [line, caption, message] : cases) {
    SCOPED_TRACE(line);
    // As the LOD 0 click leaves them ahead of this step.
    frm.lblLODnum.SetCaption("9");
    frm.chkAddLOD1.SetValue(0);
    frm.chkAddLOD1.SetEnabled(false);
    frm.btnAdvancedSettings.SetEnabled(true);
    platform.clearLog();
    ReadNumberOfLOD(frm, SourceSnapshot(dir.write(
                             "n.kob", crlf({"[LOD Information]", line, "AutoLOD#0=1", "AutoLOD#1=1"}))));
    const bool two = std::string(caption) == "2";
    const bool failed = std::string(caption) == "9";
    EXPECT_EQ(frm.lblLODnum.Caption(), caption);
    EXPECT_EQ(frm.chkAddLOD1.Value(), two ? 2 : 0);
    EXPECT_EQ(frm.chkAddLOD1.Enabled(), !two && !failed);
    EXPECT_EQ(frm.btnAdvancedSettings.Enabled(), two || failed);
    EXPECT_EQ(platform.messages, *message ? std::vector<std::string>{message} : std::vector<std::string>{});
  }
}

// A file handed to a frame (a drop, or LOD 0 from the command line) in each
// state of the load, row after row on one window.
TEST_F(SourceLoading, AHandedFileDoesWhatChoosingItInTheFramesOwnDialogDoes) {
  dir.write("low.kob", kob("1"));
  struct Row {
    const char* what;
    SourceFrame frame;
    const char* file;  // relative ones lie under the platform's current directory
    bool taken;
    const char* after;  // the box, both paths (+ open), the remembered directory, messages
  };
  const Row rows[] = {
      {"nothing loaded: LOD 1 is closed", SourceFrame::LOD1, "one.kob", false,
       "box=0- '' ''- dir=/home/author"},
      {"a missing file is refused, its directory remembered", SourceFrame::LOD0, "sub/missing.kob", true,
       "box=0- '' ''- dir=/home/author/sub Error Reading KOB File: TextureMap Not Found"},
      {"LOD 0 loads", SourceFrame::LOD0, "one.kob", true, "box=0+ 'one.kob' ''- dir=<dir>"},
      {"the box ticked, the file refused: unticked again", SourceFrame::LOD1, "two.kob", true,
       "box=0+ 'one.kob' ''- dir=<dir> Error Reading KOB File: Invalid NumberOfLOD for LOD 1"},
      {"the box ticked and the file added", SourceFrame::LOD1, "one.kob", true,
       "box=1+ 'one.kob' 'one.kob'+ dir=<dir>"},
      {"the LOD 1 source swapped", SourceFrame::LOD1, "low.kob", true,
       "box=1+ 'one.kob' 'low.kob'+ dir=<dir>"},
      {"two LODs over a LOD 1 (the box's own handler closes it)", SourceFrame::LOD0, "two.kob", true,
       "box=2- 'two.kob' ''- dir=<dir>"},
      {"grayed: LOD 1 is closed", SourceFrame::LOD1, "low.kob", false, "box=2- 'two.kob' ''- dir=<dir>"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    platform.clearLog();
    const std::string file =
        std::string(row.file).find('/') == std::string::npos ? dir.file(row.file) : row.file;
    EXPECT_EQ(HandFileToFrame(frm, row.frame, file), row.taken);
    std::string after = "box=" + std::to_string(frm.chkAddLOD1.Value()) +
                        (frm.chkAddLOD1.Enabled() ? "+" : "-") + " '" + frm.txtFilePathLOD0.Text() + "' '" +
                        frm.txtFilePathLOD1.Text() + "'" + (frm.btnBrowseLOD1.Enabled() ? "+" : "-") +
                        " dir=" + DefaultDirPath;
    for (const std::string& message : platform.messages) after += " " + message;
    // Compared with '/' for Windows' own separator.
    std::replace(after.begin(), after.end(), '\\', '/');
    for (const std::string& from : {dir.path().generic_string() + "/", dir.path().generic_string()})
      for (std::string::size_type at; (at = after.find(from)) != std::string::npos;)
        after.replace(at, from.size(), from.back() == '/' ? "" : "<dir>");
    EXPECT_EQ(after, row.after);
    if (row.taken) {
      EXPECT_EQ(platform.store[std::pair("Software\\Korvane", "DefaultDir")], DefaultDirPath);
    }
  }
}

}  // namespace
}  // namespace korvane
