// One row per kind of warning: the file, the line it names, and what the
// warning has to say about the window's behaviour there.

#include "cli/check.h"

#include <gtest/gtest.h>

#include "support/temp_files.h"

namespace korvane::cli {
namespace {

std::string kob(std::string lines) {
  for (std::size_t at; (at = lines.find('|')) != std::string::npos;) lines.replace(at, 1, "\r\n");
  return lines + "\r\n";
}

constexpr const char* kTail = "|[LOD Information]|NumberOfLOD=1|[LOD 0]|NumberOfSurfaces=1";

struct Row {
  const char* kind;
  std::string file;
  int line;  // 0: no warning
  const char* says;
};

TEST(Check, OneWarningPerKindAtItsLine) {
  const std::string m = "[Material - 0]|TextureMap=a.tga";
  const std::string two = "|[LOD Information]|NumberOfLOD=2|AutoLOD#0=0.25|AutoLOD#1=0";
  const Row rows[] = {
      {"clean, one LOD", kob(m + "|ColorKey=1,2,3" + kTail), 0, ""},
      {"clean, two LODs", kob(m + two), 0, ""},
      {"blank before TextureMap's =", kob("[Material - 0]|TextureMap =a.tga" + std::string(kTail)), 2,
       "\"The TextureMap keyword was not found in your KOB file\""},
      {"comment holding the key ahead",
       kob("[Material - 0]|;TextureMap=old.tga|TextureMap=a.tga" + std::string(kTail)), 2,
       "not line 3 that the window reads"},
      {"same key in an earlier section", kob("[Other]|colorkey=9,9,9|" + m + kTail), 2,
       "does not read this line as the ColorKey, but saving rewrites it, or with the ColorKey off removes "
       "it"},
      {"blank before ColorKey's =", kob(m + "|ColorKey = 1,2,3" + kTail), 3, "this one stays"},
      {"blank before NumberOfLOD's =",
       kob(m + "|[LOD Information]|NumberOfLOD =1|[LOD 0]|NumberOfSurfaces=1"), 4,
       "says one LOD while holding two"},
      {"NumberOfLOD in an earlier section", kob("[Old]|NumberOfLOD=1|" + m + kTail), 2,
       "not line 6 that the window reads"},
      {"blank before AutoLOD's =", kob(m + "|[LOD Information]|NumberOfLOD=2|AutoLOD#0 =1|AutoLOD#1=0"), 5,
       "a new AutoLOD#0 line is added"},
      {"marker in other capitals", kob(m + "|[LOD Information]|NumberOfLOD=1|[lod 0]|NumberOfSurfaces=1"), 5,
       "not exactly \"[LOD 0]\""},
      {"LF alone", kob(m) + "[LOD Information]\nNumberOfLOD=1\r\n", 3, "LF alone"},
      {"value past 254", kob("[Material - 0]|TextureMap=" + std::string(300, 'x') + kTail), 2,
       "300 characters"},
      {"ColorKey refused", kob(m + "|ColorKey=300,0,0" + kTail), 3, "refuses \"300,0,0\""},
      {"ColorKey changed", kob(m + "|ColorKey=10,20" + kTail), 3, "changes \"10,20\" to 10,20,0"},
      {"NumberOfLOD not 1 or 2", kob(m + "|[LOD Information]|NumberOfLOD=2.6"), 4, "counts as 3"},
      {"NumberOfLOD beyond 32 bits", kob(m + "|[LOD Information]|NumberOfLOD=99999999999"), 4,
       "without a message"},
      {"two LODs, AutoLOD#1 missing", kob(m + "|[LOD Information]|NumberOfLOD=2|AutoLOD#0=0.25"), 4,
       "\"AutoLOD#1=0.000\""},
  };
  testing::TempDir dir;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.kind);
    CheckResult result = checkFile(dir.write("source.kob", row.file));
    ASSERT_TRUE(result.readable);
    if (row.line == 0) {
      EXPECT_TRUE(result.warnings.empty()) << result.warnings.front().text;
      continue;
    }
    ASSERT_EQ(result.warnings.size(), 1u) << result.warnings.back().text;
    EXPECT_EQ(result.warnings[0].line, row.line);
    EXPECT_NE(result.warnings[0].text.find(row.says), std::string::npos) << result.warnings[0].text;
  }
}

TEST(Check, AFolderOrAMissingFileIsUnreadable) {
  testing::TempDir dir;
  EXPECT_FALSE(checkFile(dir.path().string()).readable);
  EXPECT_FALSE(checkFile(dir.file("missing.kob")).readable);
}

}  // namespace
}  // namespace korvane::cli
