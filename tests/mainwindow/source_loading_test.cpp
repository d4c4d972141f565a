#include "mainwindow/source_loading.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "mainwindow/main_window.h"
#include "runtime/shared_strings.h"
#include "shell/file_dialog.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using testing::crlf;

// The sources every test can pick by name.
const std::map<std::string, std::string> kSources = {
    {"one.kob", crlf({"[Object]", "Name=Crate", "[Material - 0]", "TextureMap=crate.tga", "[LOD Information]",
                      "NumberOfLOD=1", "[LOD 0]", "NumberOfSurfaces=12", "Surface0=1 2 3"})},
    {"other.kob", crlf({"[Material - 0]", "TextureMap=barrel.tga", "[LOD Information]", "NumberOfLOD=1",
                        "[LOD 0]", "NumberOfSurfaces=3"})},
    {"two.kob",
     crlf({"[Material - 0]", "TextureMap=crate.tga", "[LOD Information]", "NumberOfLOD=2", "AutoLOD#0=0.3",
           "AutoLOD#1=0.05", "[LOD 0]", "NumberOfSurfaces=12", "[LOD 1]", "NumberOfSurfaces=4"})},
    {"low.kob", crlf({"[Material - 0]", "TextureMap=low.tga", "[LOD Information]", "NumberOfLOD=1", "[LOD 0]",
                      "NumberOfSurfaces=4", "Surface0=LOD 0 part"})},
    {"lower.kob", crlf({"[Material - 0]", "TextureMap=lower.tga", "[LOD Information]", "NumberOfLOD=1",
                        "[LOD 0]", "NumberOfSurfaces=2", "Surface0=a", "Surface1=b"})},
    {"notkob.kob", crlf({"[Material - 0]", "Shininess=1"})},
};

std::int32_t linesOf(const std::string& source) {
  std::int32_t lines = 0;
  for (std::size_t at = source.find("\r\n"); at != std::string::npos; at = source.find("\r\n", at + 2))
    ++lines;
  return lines;
}

std::int32_t linesFromMarker(const std::string& source) {
  return linesOf(source.substr(source.find("[LOD 0]\r\n")));
}

const std::vector<std::string> kOpenedByLOD0 = {
    "txtFilePathLOD0", "Frame2",    "lblTextureMap", "txtTextureMap", "btnBrowseTextureMap",
    "lblNumberOfLOD",  "lblLODnum", "btnSaveAs",     "chkAddColorKey"};

class SourceLoadingTest : public ::testing::Test {
 protected:
  SourceLoadingTest() {
    AppTitleName = "Korvane";
    program.Main();
    for (const auto& [name, bytes] : kSources) dir.write(name, bytes);
    platform.clearLog();
  }

  std::string path(const std::string& name) const { return dir.file(name); }

  void openLOD0(const std::string& name) {
    platform.answer(path(name));
    frm.btnBrowseLOD0.Click();
  }
  void cancelLOD0() {
    platform.cancel();
    frm.btnBrowseLOD0.Click();
  }
  void checkLOD1(const std::string& name) {
    platform.answer(path(name));
    frm.chkAddLOD1.AuthorClick();
  }
  void checkAndCancel() {
    platform.cancel();
    frm.chkAddLOD1.AuthorClick();
  }
  void browseLOD1(const std::string& name) {
    platform.answer(path(name));
    frm.btnBrowseLOD1.Click();
  }
  void cancelBrowseLOD1() {
    platform.cancel();
    frm.btnBrowseLOD1.Click();
  }

  // From now on platform.events also tells the changes of Enabled, check box
  // values, the path and texture fields, lblLODnum and the AutoLOD fields, in
  // the order they happen among the dialogs and messages.
  void recordChanges() {
    frmAdvancedSettings& settings = program.AdvancedSettings();
    auto observer = [this, &settings](Control* control) {
      if (control == nullptr) return;
      const std::string& name = control->Name();
      auto last = enabled.find(control);
      if (last == enabled.end() || last->second != control->Enabled()) {
        if (last != enabled.end())
          platform.events.push_back("ENABLE " + name + (control->Enabled() ? " on" : " off"));
        enabled[control] = control->Enabled();
      }
      if (auto* box = dynamic_cast<CheckBox*>(control); box && box == &frm.chkAddLOD1) {
        if (box->Value() != lastValue)
          platform.events.push_back("VALUE " + name + "=" + std::to_string(box->Value()));
        lastValue = box->Value();
      } else if (auto* text = dynamic_cast<TextBox*>(control)) {
        logText(name, text->Text());
      } else if (auto* label = dynamic_cast<Label*>(control); label && label == &frm.lblLODnum) {
        logText(name, label->Caption());
      } else if (auto* field = dynamic_cast<MaskedEdit*>(control); field && &field->Parent() == &settings) {
        logText(name, field->Text());
      }
    };
    for (Form* form : {static_cast<Form*>(&frm), static_cast<Form*>(&settings)}) {
      for (Control* control : form->Controls()) enabled[control] = control->Enabled();
      form->SetObserver(observer);
    }
    lastValue = frm.chkAddLOD1.Value();
    for (const char* name : {"txtFilePathLOD0", "txtFilePathLOD1", "txtTextureMap"})
      texts[name] = static_cast<TextBox*>(frm.FindControl(name))->Text();
    texts["lblLODnum"] = frm.lblLODnum.Caption();
    texts["mskAutoLOD0"] = settings.mskAutoLOD0.Text();
    texts["mskAutoLOD1"] = settings.mskAutoLOD1.Text();
    platform.clearLog();
  }

  void logText(const std::string& name, const std::string& text) {
    auto known = texts.find(name);
    if (known == texts.end() || known->second == text) return;
    known->second = text;
    platform.events.push_back("TEXT " + name + "=" + text);
  }

  // Everything a load can touch, as one text, for "nothing changed" checks.
  std::string snapshot() {
    std::string s;
    for (Control* control : frm.Controls()) s += control->Name() + (control->Enabled() ? "+ " : "- ");
    s += "\nLOD0=" + frm.txtFilePathLOD0.Text() + " LOD1=" + frm.txtFilePathLOD1.Text() +
         " map=" + frm.txtTextureMap.Text() + " num=" + frm.lblLODnum.Caption() +
         " box=" + std::to_string(frm.chkAddLOD1.Value()) +
         " key=" + std::to_string(frm.chkAddColorKey.Value());
    for (int channel = 0; channel < 3; ++channel) s += " " + frm.colorKeyField(channel).Text();
    for (auto* store : {&frm.lstDataLOD0.Store(), &frm.lstDataLOD1.Store()}) {
      s += "\n";
      for (std::int32_t i = 0; i < store->ListCount(); ++i) s += std::string(store->List(i)) + "|";
    }
    if (program.AdvancedSettingsLoaded()) {
      s += "\nAutoLOD " + program.AdvancedSettings().mskAutoLOD0.Text() + " " +
           program.AdvancedSettings().mskAutoLOD1.Text();
    }
    return s;
  }

  std::vector<std::string> eventsStartingWith(const std::string& prefix) const {
    std::vector<std::string> found;
    for (const auto& event : platform.events)
      if (event.rfind(prefix, 0) == 0) found.push_back(event);
    return found;
  }

  testing::ScriptedPlatform platform;
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
  testing::TempDir dir;

  std::map<Control*, bool> enabled;
  std::map<std::string, std::string> texts;
  int lastValue = 0;
};

// ---- The four states of the load and the moves between them ---------------

enum class Load { Nothing, OneLod, OneLodAndLod1, TwoLods };

struct LoadState {
  int value = 0;
  bool boxEnabled = false;
  std::string lod1Controls;  // Enabled of Frame4, btnBrowseLOD1, txtFilePathLOD1
  bool advancedEnabled = false;
  std::string lod1Path;
  std::int32_t lod1Lines = 0;
  std::string lodNum;
  std::string openedByLOD0;  // Enabled of the nine controls a LOD 0 source opens
  std::string lod0Path;
  std::int32_t lod0Lines = 0;
  bool operator==(const LoadState&) const = default;
};

void PrintTo(const LoadState& s, std::ostream* os) {
  *os << "{value " << s.value << ", box " << (s.boxEnabled ? "on" : "off") << ", LOD 1 controls "
      << s.lod1Controls << ", advanced " << (s.advancedEnabled ? "on" : "off") << ", LOD 1 [" << s.lod1Path
      << "] " << s.lod1Lines << " lines, lblLODnum [" << s.lodNum << "], opened " << s.openedByLOD0
      << ", LOD 0 [" << s.lod0Path << "] " << s.lod0Lines << " lines}";
}

std::string flags(std::initializer_list<const Control*> controls) {
  std::string text;
  for (const Control* control : controls) text += control->Enabled() ? 'T' : 'F';
  return text;
}

enum class Act { OpenLOD0, CancelLOD0, Check, CheckCancel, Uncheck, BrowseLOD1, CancelLOD1 };

struct Step {
  Act act;
  const char* source = "";
};

struct Transition {
  const char* name;
  std::vector<Step> steps;
  Load expected;
  const char* lod0 = "";  // the LOD 0 source that stays loaded
  const char* lod1 = "";  // the LOD 1 source that stays loaded
};

void PrintTo(const Transition& row, std::ostream* os) {
  *os << row.name;
}

class LoadStateTransition : public SourceLoadingTest, public ::testing::WithParamInterface<Transition> {
 protected:
  void run(const Step& step) {
    switch (step.act) {
      case Act::OpenLOD0:
        openLOD0(step.source);
        break;
      case Act::CancelLOD0:
        cancelLOD0();
        break;
      case Act::Check:
        checkLOD1(step.source);
        break;
      case Act::CheckCancel:
        checkAndCancel();
        break;
      case Act::Uncheck:
        frm.chkAddLOD1.AuthorClick();
        break;
      case Act::BrowseLOD1:
        browseLOD1(step.source);
        break;
      case Act::CancelLOD1:
        cancelBrowseLOD1();
        break;
    }
  }

  LoadState actual() {
    return {frm.chkAddLOD1.Value(),
            frm.chkAddLOD1.Enabled(),
            flags({&frm.Frame4, &frm.btnBrowseLOD1, &frm.txtFilePathLOD1}),
            frm.btnAdvancedSettings.Enabled(),
            frm.txtFilePathLOD1.Text(),
            frm.lstDataLOD1.Store().ListCount(),
            frm.lblLODnum.Caption(),
            flags({&frm.txtFilePathLOD0, &frm.Frame2, &frm.lblTextureMap, &frm.txtTextureMap,
                   &frm.btnBrowseTextureMap, &frm.lblNumberOfLOD, &frm.lblLODnum, &frm.btnSaveAs,
                   &frm.chkAddColorKey}),
            frm.txtFilePathLOD0.Text(),
            frm.lstDataLOD0.Store().ListCount()};
  }

  LoadState expected(const Transition& row) {
    LoadState s;
    std::string lod0 = row.lod0;
    if (row.expected != Load::Nothing) {
      s.openedByLOD0 = "TTTTTTTTT";
      s.lod0Path = path(lod0);
      s.lod0Lines = linesOf(kSources.at(lod0));
    } else {
      s.openedByLOD0 = "FFFFFFFFF";
    }
    switch (row.expected) {
      case Load::Nothing:
        s.lod1Controls = "FFF";
        break;
      case Load::OneLod:
        s.boxEnabled = true;
        s.lod1Controls = "FFF";
        s.lodNum = "1";
        break;
      case Load::OneLodAndLod1:
        s.value = 1;
        s.boxEnabled = true;
        s.lod1Controls = "TTT";
        s.advancedEnabled = true;
        s.lod1Path = path(row.lod1);
        s.lod1Lines = linesFromMarker(kSources.at(row.lod1));
        s.lodNum = "1";
        break;
      case Load::TwoLods:
        s.value = 2;
        s.lod1Controls = "FFF";
        s.advancedEnabled = true;
        s.lodNum = "2";
        break;
    }
    return s;
  }
};

TEST_P(LoadStateTransition, EndsInTheStateOfTheTable) {
  for (const Step& step : GetParam().steps) run(step);
  EXPECT_EQ(actual(), expected(GetParam()));
  EXPECT_TRUE(platform.dialogAnswers.empty());
}

const Step kOpenOne{Act::OpenLOD0, "one.kob"};
const Step kOpenOther{Act::OpenLOD0, "other.kob"};
const Step kOpenTwo{Act::OpenLOD0, "two.kob"};
const Step kOpenRefused{Act::OpenLOD0, "notkob.kob"};
const Step kCheckLow{Act::Check, "low.kob"};

INSTANTIATE_TEST_SUITE_P(
    Table, LoadStateTransition,
    ::testing::Values(
        Transition{"OneLodFromNothing", {kOpenOne}, Load::OneLod, "one.kob"},
        Transition{"TwoLodsFromNothing", {kOpenTwo}, Load::TwoLods, "two.kob"},
        Transition{"CancelledLOD0FromNothing", {{Act::CancelLOD0}}, Load::Nothing},
        Transition{"RefusedLOD0FromNothing", {kOpenRefused}, Load::Nothing},
        Transition{"CheckAccepted", {kOpenOne, kCheckLow}, Load::OneLodAndLod1, "one.kob", "low.kob"},
        Transition{"CheckCancelled", {kOpenOne, {Act::CheckCancel}}, Load::OneLod, "one.kob"},
        Transition{"CheckRefusedTwoLodFile", {kOpenOne, {Act::Check, "two.kob"}}, Load::OneLod, "one.kob"},
        Transition{"CheckRefusedNotKob", {kOpenOne, {Act::Check, "notkob.kob"}}, Load::OneLod, "one.kob"},
        Transition{"Unchecked", {kOpenOne, kCheckLow, {Act::Uncheck}}, Load::OneLod, "one.kob"},
        Transition{"SwapAccepted",
                   {kOpenOne, kCheckLow, {Act::BrowseLOD1, "lower.kob"}},
                   Load::OneLodAndLod1,
                   "one.kob",
                   "lower.kob"},
        Transition{"SwapCancelledKeepsLod1",
                   {kOpenOne, kCheckLow, {Act::CancelLOD1}},
                   Load::OneLodAndLod1,
                   "one.kob",
                   "low.kob"},
        Transition{"SwapRefusedKeepsLod1",
                   {kOpenOne, kCheckLow, {Act::BrowseLOD1, "two.kob"}},
                   Load::OneLodAndLod1,
                   "one.kob",
                   "low.kob"},
        Transition{"OneLodOverLod1DropsIt", {kOpenOne, kCheckLow, kOpenOther}, Load::OneLod, "other.kob"},
        Transition{"TwoLodsOverLod1", {kOpenOne, kCheckLow, kOpenTwo}, Load::TwoLods, "two.kob"},
        Transition{"OneLodAfterTwoLods", {kOpenTwo, kOpenOne}, Load::OneLod, "one.kob"},
        Transition{"TwoLodsTwice", {kOpenTwo, kOpenTwo}, Load::TwoLods, "two.kob"},
        Transition{"RefusedKeepsTwoLods", {kOpenTwo, kOpenRefused}, Load::TwoLods, "two.kob"},
        Transition{"CancelledLOD0KeepsLod1",
                   {kOpenOne, kCheckLow, {Act::CancelLOD0}},
                   Load::OneLodAndLod1,
                   "one.kob",
                   "low.kob"},
        Transition{"RefusedLOD0KeepsLod1",
                   {kOpenOne, kCheckLow, kOpenRefused},
                   Load::OneLodAndLod1,
                   "one.kob",
                   "low.kob"},
        Transition{"CheckAgainAfterCancel",
                   {kOpenOne, {Act::CheckCancel}, kCheckLow},
                   Load::OneLodAndLod1,
                   "one.kob",
                   "low.kob"}),
    [](const auto& info) { return std::string(info.param.name); });

// ---- The steps in their order ---------------------------------------------

TEST_F(SourceLoadingTest, FirstOneLodSourceOpensTheWindowInOrder) {
  recordChanges();
  openLOD0("one.kob");
  std::vector<std::string> expected = {"DIALOG open Open KOB File (LOD 0)"};
  for (const auto& name : kOpenedByLOD0) expected.push_back("ENABLE " + name + " on");
  expected.insert(expected.end(), {"TEXT txtFilePathLOD0=" + path("one.kob"), "TEXT txtTextureMap=crate.tga",
                                   "TEXT lblLODnum=1", "ENABLE chkAddLOD1 on"});
  EXPECT_EQ(platform.events, expected);
}

TEST_F(SourceLoadingTest, TwoLodSourceOverALod1RunsTheClosingBranchTwice) {
  openLOD0("one.kob");
  checkLOD1("low.kob");
  recordChanges();
  openLOD0("two.kob");
  std::vector<std::string> expected = {
      "DIALOG open Open KOB File (LOD 0)",
      "VALUE chkAddLOD1=0",
      "ENABLE Frame4 off",
      "ENABLE btnBrowseLOD1 off",
      "ENABLE txtFilePathLOD1 off",
      "ENABLE btnAdvancedSettings off",
      "TEXT txtFilePathLOD1=",
      "ENABLE chkAddLOD1 off",
      "TEXT txtFilePathLOD0=" + path("two.kob"),
      "TEXT txtTextureMap=",
      "TEXT txtTextureMap=crate.tga",
      "TEXT lblLODnum=",
      "TEXT lblLODnum=2",
      "VALUE chkAddLOD1=2",
      "TEXT mskAutoLOD0=0.300",
      "TEXT mskAutoLOD1=0.050",
      // Only after the closing branch has disabled it.
      "ENABLE btnAdvancedSettings on",
  };
  EXPECT_EQ(platform.events, expected);
  EXPECT_EQ(frm.lstDataLOD1.Store().ListCount(), 0);
}

TEST_F(SourceLoadingTest, AcceptedLod1OpensItsControlsThenDefaultsThenPath) {
  openLOD0("one.kob");
  recordChanges();
  checkLOD1("low.kob");
  EXPECT_EQ(
      platform.events,
      (std::vector<std::string>{"VALUE chkAddLOD1=1", "DIALOG open Open KOB File (LOD 1)", "ENABLE Frame4 on",
                                "ENABLE btnBrowseLOD1 on", "ENABLE txtFilePathLOD1 on",
                                "TEXT mskAutoLOD0=0.250", "TEXT mskAutoLOD1=0.000",
                                "ENABLE btnAdvancedSettings on", "TEXT txtFilePathLOD1=" + path("low.kob")}));
  EXPECT_EQ(frm.lstDataLOD1.Store().List(0), "[LOD 0]");
  EXPECT_EQ(frm.lstDataLOD1.Store().List(2), "Surface0=LOD 0 part");
}

TEST_F(SourceLoadingTest, CancelledCheckUnchecksTheBoxThroughTheHandler) {
  openLOD0("one.kob");
  recordChanges();
  checkAndCancel();
  EXPECT_EQ(platform.events,
            (std::vector<std::string>{"VALUE chkAddLOD1=1", "DIALOG open Open KOB File (LOD 1)",
                                      "VALUE chkAddLOD1=0"}));
}

TEST_F(SourceLoadingTest, RefusedCheckShowsTheValidatorsMessageAndLeavesNoTrace) {
  openLOD0("one.kob");
  recordChanges();
  std::string before = snapshot();
  checkLOD1("two.kob");
  EXPECT_EQ(platform.events,
            (std::vector<std::string>{"VALUE chkAddLOD1=1", "DIALOG open Open KOB File (LOD 1)",
                                      "MSGBOX Error Reading KOB File: Invalid NumberOfLOD for LOD 1",
                                      "VALUE chkAddLOD1=0"}));
  EXPECT_EQ(snapshot(), before);
}

TEST_F(SourceLoadingTest, CheckingAgainOpensTheDialogAgain) {
  openLOD0("one.kob");
  checkAndCancel();
  checkAndCancel();
  checkLOD1("low.kob");
  EXPECT_EQ(eventsStartingWith("DIALOG open Open KOB File (LOD 1)").size(), 3u);
  EXPECT_EQ(frm.chkAddLOD1.Value(), 1);
}

// ---- What survives and what does not ---------------------------------------

TEST_F(SourceLoadingTest, RefusedLOD0LeavesEverythingButMovesTheDirectory) {
  openLOD0("one.kob");
  checkLOD1("low.kob");
  std::filesystem::create_directory(dir.path() / "elsewhere");
  std::string refused = (dir.path() / "elsewhere" / "bad.kob").string();
  std::ofstream(refused, std::ios::binary) << kSources.at("notkob.kob");
  std::string before = snapshot();
  platform.clearLog();
  platform.answer(refused);
  frm.btnBrowseLOD0.Click();
  EXPECT_EQ(platform.messages, std::vector<std::string>{"Error Reading KOB File: TextureMap Not Found"});
  EXPECT_EQ(snapshot(), before);
  EXPECT_EQ(DefaultDirPath, (dir.path() / "elsewhere").string());
  EXPECT_EQ(platform.store.at({"Software\\Korvane", "DefaultDir"}), DefaultDirPath);
}

TEST_F(SourceLoadingTest, CancelledLOD0ChangesNothing) {
  openLOD0("one.kob");
  std::string before = snapshot();
  std::string directory = DefaultDirPath;
  cancelLOD0();
  EXPECT_EQ(snapshot(), before);
  EXPECT_EQ(DefaultDirPath, directory);
}

TEST_F(SourceLoadingTest, RecheckWithTheSameFileBringsBackTheDefaults) {
  openLOD0("one.kob");
  checkLOD1("low.kob");
  frmAdvancedSettings& settings = program.AdvancedSettings();
  settings.mskAutoLOD0.SetText("0.500");
  settings.mskAutoLOD1.SetText("0.100");
  frm.chkAddLOD1.AuthorClick();
  // Moving to One LOD does not reset them ...
  EXPECT_EQ(settings.mskAutoLOD0.Text(), "0.500");
  checkLOD1("low.kob");
  // ... but accepting a LOD 1 source does.
  EXPECT_EQ(settings.mskAutoLOD0.Text(), "0.250");
  EXPECT_EQ(settings.mskAutoLOD1.Text(), "0.000");
}

TEST_F(SourceLoadingTest, SwapThroughBrowseLOD1KeepsTheAutoLODValues) {
  openLOD0("one.kob");
  checkLOD1("low.kob");
  frmAdvancedSettings& settings = program.AdvancedSettings();
  settings.mskAutoLOD0.SetText("0.500");
  settings.mskAutoLOD1.SetText("0.100");
  browseLOD1("lower.kob");
  EXPECT_EQ(frm.txtFilePathLOD1.Text(), path("lower.kob"));
  EXPECT_EQ(frm.lstDataLOD1.Store().List(3), "Surface1=b");
  EXPECT_EQ(settings.mskAutoLOD0.Text(), "0.500");
  EXPECT_EQ(settings.mskAutoLOD1.Text(), "0.100");
  EXPECT_EQ(frm.chkAddLOD1.Value(), 1);
}

TEST_F(SourceLoadingTest, TwoLodSourceOpenedTwiceGoesTwoZeroTwoToTheSameResult) {
  openLOD0("two.kob");
  std::string first = snapshot();
  recordChanges();
  openLOD0("two.kob");
  EXPECT_EQ(eventsStartingWith("VALUE"),
            (std::vector<std::string>{"VALUE chkAddLOD1=0", "VALUE chkAddLOD1=2"}));
  EXPECT_EQ(snapshot(), first);
  EXPECT_EQ(program.AdvancedSettings().mskAutoLOD0.Text(), "0.300");
}

// ---- The texture map -------------------------------------------------------

TEST_F(SourceLoadingTest, BrowsedTextureMapShowsItsNameOnly) {
  openLOD0("one.kob");
  platform.clearLog();
  platform.answer("/home/author/textures/oak wood.tga");
  frm.btnBrowseTextureMap.Click();
  EXPECT_EQ(frm.txtTextureMap.Text(), "oak wood.tga");
  EXPECT_EQ(DefaultDirPath, "/home/author/textures");
  EXPECT_TRUE(platform.messages.empty());  // the texture is never opened
  platform.cancel();
  frm.btnBrowseTextureMap.Click();
  EXPECT_EQ(frm.txtTextureMap.Text(), "oak wood.tga");
}

TEST_F(SourceLoadingTest, ReadTextureMapShowsTheValueAsItStands) {
  std::string source = dir.write("path.kob", crlf({"[Material - 0]", "TextureMap=maps\\wood.tga"}));
  frm.txtTextureMap.SetText("typed.tga");
  ReadTextureMap(frm, source);
  EXPECT_EQ(frm.txtTextureMap.Text(), "maps\\wood.tga");
  ReadTextureMap(frm, dir.file("missing.kob"));
  EXPECT_EQ(frm.txtTextureMap.Text(), "");
}

// ---- Every dialog the loading asks for -------------------------------------

struct DialogCase {
  const char* name;
  void (*click)(frmKorvane&);
  std::string title;
  std::string filter;
};

void PrintTo(const DialogCase& row, std::ostream* os) {
  *os << row.name;
}

class LoadingDialog : public SourceLoadingTest, public ::testing::WithParamInterface<DialogCase> {};

TEST_P(LoadingDialog, AsksWithItsTitleAndFilterFromTheRememberedDirectory) {
  openLOD0("one.kob");
  DefaultDirPath = "/remembered";
  platform.clearLog();
  platform.cancel();
  GetParam().click(frm);
  ASSERT_EQ(platform.dialogRequests.size(), 1u);
  const FileDialogRequest& request = platform.dialogRequests[0];
  EXPECT_EQ(request.title, GetParam().title);
  EXPECT_EQ(request.filter, GetParam().filter);
  EXPECT_EQ(request.initialDirectory, "/remembered");
  EXPECT_EQ(request.filterIndex, 1);
  EXPECT_FALSE(request.saveMode);
  EXPECT_EQ(request.fileName, "");
}

INSTANTIATE_TEST_SUITE_P(
    Handlers, LoadingDialog,
    ::testing::Values(DialogCase{"BrowseLOD0", [](frmKorvane& f) { f.btnBrowseLOD0.Click(); },
                                 "Open KOB File (LOD 0)", kKobFilter},
                      DialogCase{"BrowseLOD1", [](frmKorvane& f) { f.btnBrowseLOD1.Click(); },
                                 "Open KOB File (LOD 1)", kKobFilter},
                      DialogCase{"CheckAddLOD1", [](frmKorvane& f) { f.chkAddLOD1.AuthorClick(); },
                                 "Open KOB File (LOD 1)", kKobFilter},
                      DialogCase{"BrowseTextureMap", [](frmKorvane& f) { f.btnBrowseTextureMap.Click(); },
                                 "Open TGA File", kTgaFilter}),
    [](const auto& info) { return std::string(info.param.name); });

// ---- The number of LODs -----------------------------------------------------

struct NumberCase {
  const char* name;
  std::string line;  // the NumberOfLOD line, or none
  std::string caption;
  int value;
  bool boxEnabled;
  bool advancedEnabled;
  std::vector<std::string> messages;
};

void PrintTo(const NumberCase& row, std::ostream* os) {
  *os << row.name;
}

class NumberOfLOD : public SourceLoadingTest, public ::testing::WithParamInterface<NumberCase> {};

TEST_P(NumberOfLOD, ShowsTheWholeNumberAndDecidesTheBox) {
  std::string source =
      dir.write("n.kob", crlf({"[LOD Information]", GetParam().line, "AutoLOD#0=0.25", "AutoLOD#1=0.125"}));
  // As a LOD 0 click leaves them before this step.
  frm.lblLODnum.SetCaption("9");
  frm.chkAddLOD1.SetEnabled(false);
  frm.btnAdvancedSettings.SetEnabled(true);
  ReadNumberOfLOD(frm, source);
  EXPECT_EQ(frm.lblLODnum.Caption(), GetParam().caption);
  EXPECT_EQ(frm.chkAddLOD1.Value(), GetParam().value);
  EXPECT_EQ(frm.chkAddLOD1.Enabled(), GetParam().boxEnabled);
  EXPECT_EQ(frm.btnAdvancedSettings.Enabled(), GetParam().advancedEnabled);
  EXPECT_EQ(platform.messages, GetParam().messages);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, NumberOfLOD,
    ::testing::Values(
        NumberCase{"One", "NumberOfLOD=1", "1", 0, true, false, {}},
        NumberCase{"Two", "NumberOfLOD=2", "2", 2, false, true, {}},
        NumberCase{"TwoAndAHalfRoundsToEvenTwo", "NumberOfLOD=2.5", "2", 2, false, true, {}},
        NumberCase{"OneAndAHalfRoundsToTwo", "NumberOfLOD=1.5", "2", 2, false, true, {}},
        NumberCase{"NumberAheadOfWords", "NumberOfLOD=2 objects", "2", 2, false, true, {}},
        NumberCase{"KeyGoneSinceValidation", "Other=1", "0", 0, true, false, {"Error Reading the KOB file"}},
        NumberCase{"OverflowReportsAndLeaves",
                   "NumberOfLOD=1e10",
                   "9",
                   0,
                   false,
                   true,
                   {"Unexpected error in ReadNumberOfLOD: Overflow ( 6)"}}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace korvane
