// The whole job on sources of 10^5 geometry lines, as the author runs it by
// clicks: the bytes written must be exactly those that the rules give when
// applied with plain string handling. Catches what only shows on a long
// source: a line dropped or doubled at a read-buffer boundary, a line store
// that loses its order after many replacements, a writer that cuts a buffer.

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "../../bench/kob_generator.h"
#include "advanced/advanced_settings_window.h"
#include "mainwindow/main_window.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

constexpr std::int64_t kGeometryLines = 100000;

std::vector<std::string> splitCrLf(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t end; (end = text.find("\r\n", start)) != std::string::npos; start = end + 2) {
    lines.push_back(text.substr(start, end - start));
  }
  if (start < text.size()) lines.push_back(text.substr(start));
  return lines;
}

std::string joinCrLf(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

std::string upper(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return text;
}

std::size_t firstHolding(const std::vector<std::string>& lines, std::string_view keyword) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (upper(lines[i]).find(keyword) != std::string::npos) return i;
  }
  return lines.size();
}

// The rules of a combined save from a source with one LOD, written out the long way.
std::string expectedCombined(const std::string& lod0, const std::string& lod1, const std::string& autoLOD0,
                             const std::string& autoLOD1) {
  std::vector<std::string> lines = splitCrLf(lod0);
  lines.at(firstHolding(lines, "TEXTUREMAP=")) = "TextureMap=" + std::string(bench::kLod0TextureMap);
  lines.at(firstHolding(lines, "COLORKEY=")) = "ColorKey=" + std::string(bench::kLod0ColorKey);
  std::size_t number = firstHolding(lines, "NUMBEROFLOD=");
  lines.at(number) = "NumberOfLOD=2";
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(number) + 1,
               {"UseAutoLOD=T", "AutoLOD#0=" + autoLOD0, "AutoLOD#1=" + autoLOD1});
  std::string text = joinCrLf(lines);
  std::string tail = lod1.substr(lod1.find("\r\n[LOD 0]\r\n") + 2);
  for (std::size_t at = 0; (at = tail.find("LOD 0", at)) != std::string::npos; at += 5)
    tail.replace(at, 5, "LOD 1");
  return text + tail;
}

// Where two long texts part, in words a reader can act on.
std::string firstDifference(const std::string& expected, const std::string& actual) {
  if (expected == actual) return "";
  std::vector<std::string> want = splitCrLf(expected);
  std::vector<std::string> got = splitCrLf(actual);
  for (std::size_t i = 0; i < want.size() && i < got.size(); ++i) {
    if (want[i] != got[i]) {
      return "line " + std::to_string(i) + ": expected \"" + want[i] + "\", written \"" + got[i] + "\"";
    }
  }
  if (want.size() != got.size()) {
    return std::to_string(want.size()) + " lines expected, " + std::to_string(got.size()) + " written";
  }
  return "same lines, different line ends";
}

class BigPath : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    s_dir = new testing::TempDir;
    s_lod0 = s_dir->file("lod0.kob");
    s_lod1 = s_dir->file("lod1.kob");
    bench::writeLod0Source(s_lod0, kGeometryLines);
    bench::writeLod1Source(s_lod1, kGeometryLines);
  }
  static void TearDownTestSuite() {
    delete s_dir;
    s_dir = nullptr;
  }

  BigPath() {
    AppTitleName = "Korvane";
    program.Main();
  }

  frmKorvane& frm() { return program.MainWindow(); }

  void openLod0(const std::string& path) {
    platform.answer(path);
    frm().btnBrowseLOD0.Click();
  }
  void addLod1(const std::string& path) {
    platform.answer(path);
    frm().chkAddLOD1.AuthorClick();
  }
  std::string saveAs(const std::string& name) {
    std::string path = s_dir->file(name);
    platform.answer(path);
    frm().btnSaveAs.Click();
    return testing::readBytes(path);
  }

  static testing::TempDir* s_dir;
  static std::string s_lod0;
  static std::string s_lod1;

  testing::ScriptedPlatform platform;
  Program program{platform};
};

testing::TempDir* BigPath::s_dir = nullptr;
std::string BigPath::s_lod0;
std::string BigPath::s_lod1;

TEST_F(BigPath, SavingOneLodGivesBackTheSourceUnchanged) {
  openLod0(s_lod0);
  std::string written = saveAs("one.kob");

  // The values read from the source are the ones written back.
  EXPECT_EQ(firstDifference(testing::readBytes(s_lod0), written), "");
  EXPECT_TRUE(platform.messages.empty()) << platform.messages.front();
}

TEST_F(BigPath, CombinedSaveHoldsBothSourcesByTheRules) {
  openLod0(s_lod0);
  addLod1(s_lod1);
  ASSERT_EQ(frm().chkAddLOD1.Value(), 1);
  std::string written = saveAs("combined.kob");

  frmAdvancedSettings& settings = program.AdvancedSettings();
  std::string lod1 = testing::readBytes(s_lod1);
  std::string expected = expectedCombined(testing::readBytes(s_lod0), lod1, settings.mskAutoLOD0.Text(),
                                          settings.mskAutoLOD1.Text());
  EXPECT_EQ(firstDifference(expected, written), "");
  EXPECT_EQ(written.size(), expected.size());
  EXPECT_EQ(frm().lstDataLOD1.Store().ListCount(),
            static_cast<std::int32_t>(splitCrLf(lod1.substr(lod1.find("\r\n[LOD 0]\r\n") + 2)).size()));
  EXPECT_TRUE(platform.messages.empty()) << platform.messages.front();
}

TEST_F(BigPath, CombinedOutputReopenedAndSavedComesOutTheSame) {
  openLod0(s_lod0);
  addLod1(s_lod1);
  std::string combined = saveAs("combined.kob");

  // Opened again it holds two LODs; its AutoLOD lines are rewritten where
  // they stand with the values they already hold.
  openLod0(s_dir->file("combined.kob"));
  ASSERT_EQ(frm().chkAddLOD1.Value(), 2);
  std::string again = saveAs("again.kob");

  EXPECT_EQ(firstDifference(combined, again), "");
  EXPECT_TRUE(platform.messages.empty()) << platform.messages.front();
}

}  // namespace
}  // namespace korvane
