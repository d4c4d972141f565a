// One row per kind of warning: the file ("|" for CR LF), the line it names
// (0 for none), and what the warning has to say about the window's behaviour there.

#include "cli/check.h"

#include <gtest/gtest.h>

#include "support/temp_files.h"

namespace korvane::cli {
namespace {

TEST(Check, OneWarningPerKindAtItsLine) {
  const std::string m = "[Material - 0]|TextureMap=a.tga", n = "|[LOD Information]|NumberOfLOD=";
  const std::string tail = n + "1|[LOD 0]|NumberOfSurfaces=1";
  const struct {
    std::string file;
    int line;
    const char* says;
  } rows[] = {
      {"[Material - 0]|TextureMap =a.tga" + tail, 2,
       "\"The TextureMap keyword was not found in your KOB file\""},
      {"[Material - 0]|;TextureMap=old.tga|TextureMap=a.tga" + tail, 2, "not line 3 that the window reads"},
      {"[Other]|colorkey=9,9,9|" + m + tail, 2,
       "the ColorKey, but saving rewrites it, or with the ColorKey off"},
      {m + "|ColorKey = 1,2,3" + tail, 3, "this one stays"},
      {m + "|[LOD Information]|NumberOfLOD =1|[LOD 0]|NumberOfSurfaces=1", 4,
       "says one LOD while holding two"},
      {m + n + "2|AutoLOD#0 =1|AutoLOD#1=0", 5, "a new AutoLOD#0 line is added"},
      {m + n + "1|[lod 0]|NumberOfSurfaces=1", 5, "not exactly \"[LOD 0]\""},
      {m + "|[LOD Information]\nNumberOfLOD=1", 3, "LF alone"},
      {"[Material - 0]|TextureMap=" + std::string(300, 'x') + tail, 2, "300 characters"},
      {m + "|ColorKey=300,0,0", 3, "refuses \"300,0,0\""},
      {m + "|ColorKey=10,20" + tail, 3, "changes \"10,20\" to 10,20,0"},
      {m + n + "2.6", 4, "counts as 3"},
      {m + n + "99999999999", 4, "without a message"},
      {m + n + "2|AutoLOD#0=0.25", 4, "\"AutoLOD#1=0.000\""},
      // The window's lookup skips a byte-order mark; line 1 is no warning.
      {"\xEF\xBB\xBF" + m + tail, 0, ""},
      // A first line filling the first piece read, its LF the first byte of the next.
      {";" + std::string(65534, 'x') + "|" + m + "|ColorKey = 1,2,3" + tail, 4, "this one stays"},
  };
  testing::TempDir dir;
  for (auto [file, line, says] : rows) {
    for (std::size_t at; (at = file.find('|')) != std::string::npos;) file.replace(at, 1, "\r\n");
    CheckResult result = checkFile(dir.write("source.kob", file + "\r\n"));
    std::string got;
    for (const auto& warning : result.warnings)
      got += std::to_string(warning.line) + ": " + warning.text + "\n";
    EXPECT_TRUE(result.readable && result.warnings.size() == (line ? 1 : 0) &&
                got.starts_with(line ? std::to_string(line) + ": " : "") &&
                got.find(says) != std::string::npos)
        << file.substr(0, 100) << " gave: " << got;
  }
}

}  // namespace
}  // namespace korvane::cli
