// The author's whole job through the main window, from choosing the sources
// to the bytes of the saved file.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "mainwindow/main_window.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using testing::crlf;
using testing::readBytes;
using Lines = std::vector<std::string>;

// One LOD; a comment, a blank line, trailing blanks and a code-page byte that
// must all come through untouched.
const std::string kCrate =
    crlf({"; Crate object", "[Object]", "Name=Kiste \xe4", "Scale=1.0  ", "", "[Material - 0]",
          "TextureMap=crate_old.tga", "Shininess=0.2", "[LOD Information]", "NumberOfLOD=1", "[LOD 0]",
          "NumberOfSurfaces=2", "Surface0=0 1 2", "Surface1=2 3 0"});

const std::string kCrateLow =
    crlf({"[Object]", "Name=Crate low", "[Material - 0]", "TextureMap=crate_low.tga", "ColorKey=0,0,0",
          "[LOD Information]", "NumberOfLOD=1", "[LOD 0]", "NumberOfSurfaces=1", "Surface0=0 1 2",
          "Comment=from LOD 0 of the low model"});

// The head of the merged file, up to the LOD information, for a given block of AutoLOD lines.
Lines mergedHead() {
  return {"; Crate object",
          "[Object]",
          "Name=Kiste \xe4",
          "Scale=1.0  ",
          "",
          "[Material - 0]",
          "TextureMap=wood.tga",
          "ColorKey=255,64,127",
          "Shininess=0.2",
          "[LOD Information]",
          "NumberOfLOD=2"};
}

const Lines kMergedTail = {
    "[LOD 0]", "NumberOfSurfaces=2", "Surface0=0 1 2", "Surface1=2 3 0",
    "[LOD 1]", "NumberOfSurfaces=1", "Surface0=0 1 2", "Comment=from LOD 1 of the low model"};

std::string join(std::initializer_list<Lines> parts) {
  std::string bytes;
  for (const Lines& part : parts)
    for (const std::string& line : part) bytes += line + "\r\n";
  return bytes;
}

class AuthorJob : public ::testing::Test {
 protected:
  AuthorJob() {
    AppTitleName = "Korvane";
    program.Main();
  }

  void openLOD0(const std::string& path) {
    platform.answer(path);
    frm.btnBrowseLOD0.Click();
  }
  void addLOD1(const std::string& path) {
    platform.answer(path);
    frm.chkAddLOD1.AuthorClick();
  }
  void browseTexture(const std::string& path) {
    platform.answer(path);
    frm.btnBrowseTextureMap.Click();
  }
  // Key by key, as the author types into an emptied field.
  static void type(MaskedEdit& field, const std::string& text) {
    field.SetText("");
    for (std::size_t n = 1; n <= text.size(); ++n) field.SetText(text.substr(0, n));
  }
  // Opens the settings window, types both values, leaves each field and clicks OK.
  void editAutoLOD(const std::string& first, const std::string& second) {
    platform.whileModal = [&](Form& window) {
      auto& settings = static_cast<frmAdvancedSettings&>(window);
      type(settings.mskAutoLOD0, first);
      settings.mskAutoLOD0.LostFocus();
      type(settings.mskAutoLOD1, second);
      settings.mskAutoLOD1.LostFocus();
      settings.OKButton.Click();
    };
    frm.btnAdvancedSettings.Click();
    platform.whileModal = nullptr;
  }
  std::string saveAs(const std::string& path) {
    platform.answer(path);
    frm.btnSaveAs.Click();
    return readBytes(path);
  }

  // The job of the first test, up to the save.
  void mergeCrateWithItsLowModel() {
    openLOD0(dir.write("crate.kob", kCrate));
    browseTexture("/home/author/textures/wood.tga");
    frm.chkAddColorKey.AuthorClick();
    type(frm.mskColorKey0, "255");
    frm.sldColorKey1.AuthorMove(64);
    frm.vscrlColorKey2.SetValue(127);  // one click on the down arrow from 128
    addLOD1(dir.write("crate_low.kob", kCrateLow));
    editAutoLOD("0.3", ".1");
  }

  testing::ScriptedPlatform platform;
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
  testing::TempDir dir;
};

TEST_F(AuthorJob, OneLodSourceAndLowModelMergeIntoOneFile) {
  mergeCrateWithItsLowModel();
  std::string out = dir.file("crate_merged.kob");
  EXPECT_EQ(saveAs(out),
            join({mergedHead(), {"UseAutoLOD=T", "AutoLOD#0=0.300", "AutoLOD#1=0.100"}, kMergedTail}));
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(DefaultDirPath, dir.path().string());
  EXPECT_EQ(platform.store.at({"Software\\Korvane", "DefaultDir"}), dir.path().string());

  // The merged file is itself a source with two LODs and gives the same values back.
  openLOD0(out);
  EXPECT_EQ(frm.chkAddLOD1.Value(), 2);
  EXPECT_EQ(frm.lblLODnum.Caption(), "2");
  EXPECT_EQ(frm.txtTextureMap.Text(), "wood.tga");
  EXPECT_EQ(frm.mskColorKey1.Text(), "64");
  EXPECT_EQ(program.AdvancedSettings().mskAutoLOD0.Text(), "0.300");
  EXPECT_EQ(program.AdvancedSettings().mskAutoLOD1.Text(), "0.100");
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(AuthorJob, SecondSaveAddsAnotherBlockNewestFirst) {
  mergeCrateWithItsLowModel();
  std::string first = saveAs(dir.file("first.kob"));
  editAutoLOD("0.4", "0.2");
  EXPECT_EQ(saveAs(dir.file("second.kob")), join({mergedHead(),
                                                  {"UseAutoLOD=T", "AutoLOD#0=0.400", "AutoLOD#1=0.200",
                                                   "UseAutoLOD=T", "AutoLOD#0=0.300", "AutoLOD#1=0.100"},
                                                  kMergedTail}));
  EXPECT_EQ(readBytes(dir.file("first.kob")), first);
}

TEST_F(AuthorJob, UncheckingAfterASaveWritesTheEarlierBlockWithoutLod1Lines) {
  mergeCrateWithItsLowModel();
  saveAs(dir.file("first.kob"));
  frm.chkAddLOD1.AuthorClick();
  ASSERT_EQ(frm.chkAddLOD1.Value(), 0);
  EXPECT_EQ(saveAs(dir.file("again.kob")),
            join({mergedHead(),
                  {"UseAutoLOD=T", "AutoLOD#0=0.300", "AutoLOD#1=0.100", "[LOD 0]", "NumberOfSurfaces=2",
                   "Surface0=0 1 2", "Surface1=2 3 0"}}));
}

TEST_F(AuthorJob, TwoLodSourceHasItsAutoLODLinesUpdated) {
  std::string source = dir.write(
      "stone.kob", crlf({"[Material - 0]", "textureMap=stone.tga", "ColorKey=10,20,30", "[LOD Information]",
                         "NumberOfLOD=2", "AutoLOD#0=.25", "[LOD 0]", "NumberOfSurfaces=8", "[Material - 1]",
                         "TextureMap=stone_low.tga", "[LOD 1]", "NumberOfSurfaces=2"}));
  openLOD0(source);
  EXPECT_EQ(platform.messages, Lines{"AutoLOD#1 not found.  Using default value..."});
  EXPECT_FALSE(frm.chkAddLOD1.Enabled());
  EXPECT_TRUE(frm.chkAddColorKey.Value() == 1 && frm.mskColorKey2.Text() == "30");
  editAutoLOD("0.25", "0.05");
  EXPECT_EQ(saveAs(dir.file("stone_out.kob")),
            crlf({"[Material - 0]", "TextureMap=stone.tga", "ColorKey=10,20,30", "[LOD Information]",
                  "NumberOfLOD=2", "AutoLOD#0=0.250", "AutoLOD#1=0.050", "[LOD 0]", "NumberOfSurfaces=8",
                  "[Material - 1]", "TextureMap=stone_low.tga", "[LOD 1]", "NumberOfSurfaces=2"}));
  EXPECT_EQ(platform.messages.size(), 1u);
}

TEST_F(AuthorJob, OneLodSourceWithoutLod1SavedOverItself) {
  // The last line has no line end; the saved copy ends in CR LF.
  std::string source = dir.write("barrel.kob",
                                 "[Material - 0]\r\nTextureMap=barrel.tga\r\nColorKey=1,2,3\r\n"
                                 "[LOD Information]\r\nNumberOfLOD=1\r\n[LOD 0]\r\nFaces=6");
  openLOD0(source);
  ASSERT_EQ(frm.chkAddColorKey.Value(), 1);
  frm.chkAddColorKey.AuthorClick();
  frm.txtTextureMap.SetText("barrel new.tga");
  EXPECT_EQ(saveAs(source), crlf({"[Material - 0]", "TextureMap=barrel new.tga", "[LOD Information]",
                                  "NumberOfLOD=1", "[LOD 0]", "Faces=6"}));
  EXPECT_TRUE(platform.messages.empty());

  openLOD0(source);
  EXPECT_EQ(frm.txtTextureMap.Text(), "barrel new.tga");
  EXPECT_EQ(frm.chkAddColorKey.Value(), 0);
}

TEST_F(AuthorJob, RefusedAndCancelledStepsOnTheWayChangeNothingInTheOutput) {
  openLOD0(dir.write("crate.kob", kCrate));
  platform.cancel();  // texture dialog cancelled
  frm.btnBrowseTextureMap.Click();
  addLOD1(dir.write("not_low.kob",
                    crlf({"[Material - 0]", "TextureMap=x.tga", "[LOD Information]", "NumberOfLOD=1"})));
  EXPECT_EQ(platform.messages, Lines{"Error Reading KOB File: NumberOfSurfaces Not Found"});
  platform.cancel();  // save dialog cancelled: nothing written
  frm.btnSaveAs.Click();
  EXPECT_EQ(saveAs(dir.file("out.kob")), kCrate);
}

TEST_F(AuthorJob, Lod1SourceWithAnotherMarkerAddsTheLodBlockButNoLines) {
  openLOD0(dir.write("crate.kob", kCrate));
  std::string low = dir.write("low.kob", crlf({"[Material - 0]", "TextureMap=low.tga", "[LOD Information]",
                                               "NumberOfLOD=1", "[lod 0]", "NumberOfSurfaces=1"}));
  addLOD1(low);
  EXPECT_EQ(frm.txtFilePathLOD1.Text(), low);
  EXPECT_EQ(frm.lstDataLOD1.Store().ListCount(), 0);
  EXPECT_TRUE(platform.messages.empty());
  std::string head = kCrate.substr(0, kCrate.find("NumberOfLOD=1"));
  std::string tail = kCrate.substr(kCrate.find("[LOD 0]"));
  EXPECT_EQ(saveAs(dir.file("out.kob")),
            head + crlf({"NumberOfLOD=2", "UseAutoLOD=T", "AutoLOD#0=0.250", "AutoLOD#1=0.000"}) + tail);
}

TEST_F(AuthorJob, RefusedColorKeyIsReportedAndTheLoadGoesOn) {
  std::string source = dir.write("hot.kob", crlf({"[Material - 0]", "TextureMap=hot.tga", "ColorKey=300,0,0",
                                                  "[LOD Information]", "NumberOfLOD=1"}));
  openLOD0(source);
  EXPECT_EQ(platform.messages, Lines{"Unexpected error in ReadColorKeyINI: Invalid property value ( 380)"});
  EXPECT_EQ(frm.chkAddColorKey.Value(), 0);
  EXPECT_EQ(frm.lblLODnum.Caption(), "1");
  EXPECT_TRUE(frm.chkAddLOD1.Enabled());
  EXPECT_EQ(frm.lstDataLOD0.Store().ListCount(), 5);
  // With the ColorKey off, the source's line is not carried into the output.
  EXPECT_EQ(saveAs(dir.file("out.kob")),
            crlf({"[Material - 0]", "TextureMap=hot.tga", "[LOD Information]", "NumberOfLOD=1"}));
}

}  // namespace
}  // namespace korvane
