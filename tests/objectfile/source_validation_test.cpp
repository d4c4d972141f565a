#include "objectfile/source_validation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "objectfile/source_snapshot.h"
#include "runtime/shared_strings.h"
#include "support/scripted_platform.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using testing::crlf;
using Messages = std::vector<std::string>;

const std::string kTextureMap = "Error Reading KOB File: TextureMap Not Found";
const std::string kNumberOfLOD = "Error Reading KOB File: NumberOfLOD Not Found";
const std::string kInvalid = "Error Reading KOB File: Invalid NumberOfLOD";
const std::string kInvalidLOD1 = "Error Reading KOB File: Invalid NumberOfLOD for LOD 1";
const std::string kSurfaces = "Error Reading KOB File: NumberOfSurfaces Not Found";
const std::string kLineFeeds = "Error Reading KOB File: Lines End In LF Only (Save It With CR LF Line Ends)";
const std::string kAccepted = "";
const std::string kSilent = "silently refused";

// A source that both validators accept, but for its NumberOfLOD.
std::string withNumberOfLOD(const std::string& text) {
  return crlf({"[Material - 0]", "TextureMap=a.tga", "[LOD Information]", "NumberOfLOD=" + text, "[LOD 0]",
               "NumberOfSurfaces=4"});
}

// The verdict as the one message shown, "" for accepted.
std::string verdict(bool (*validator)(Platform&, const SourceSnapshot&), const std::string& path) {
  testing::ScriptedPlatform platform;
  AppTitleName = "Korvane";
  const bool accepted = validator(platform, SourceSnapshot(path));
  for (const auto& title : platform.messageTitles) EXPECT_EQ(title, "Korvane");
  if ((accepted && !platform.messages.empty()) || platform.messages.size() > 1) return "inconsistent";
  return accepted ? kAccepted : platform.messages.empty() ? kSilent : platform.messages[0];
}

// The first failed check gives the only message; NumberOfLOD counts by what
// its text rounds to.
TEST(SourceValidation, AcceptsOrGivesTheFirstFailedCheck) {
  const std::tuple<const char*, std::string, std::string, std::string> cases[] = {
      {"one", withNumberOfLOD("1"), kAccepted, kAccepted},
      {"two", withNumberOfLOD("2"), kAccepted, kInvalidLOD1},
      {"zero", withNumberOfLOD("0"), kInvalid, kInvalidLOD1},
      {"half rounds to even zero", withNumberOfLOD("0.5"), kInvalid, kInvalidLOD1},
      {"0.6 rounds to one", withNumberOfLOD("0.6"), kAccepted, kAccepted},
      {"2.4 and text behind", withNumberOfLOD("2.4 objects"), kAccepted, kInvalidLOD1},
      {"three", withNumberOfLOD("3"), kInvalid, kInvalidLOD1},
      {"no number is zero", withNumberOfLOD("two"), kInvalid, kInvalidLOD1},
      {"beyond 32 bits", withNumberOfLOD("-3000000000"), kSilent, kSilent},
      {"empty file", "", kTextureMap, kTextureMap},
      {"TextureMap NotFound",
       crlf({"[Material - 0]", "TextureMap=NotFound", "[LOD Information]", "NumberOfLOD=1"}), kTextureMap,
       kTextureMap},
      {"no NumberOfLOD", crlf({"[Material - 0]", "TextureMap=a", "[LOD 0]", "NumberOfSurfaces=2"}),
       kNumberOfLOD, kNumberOfLOD},
      {"empty NumberOfSurfaces",
       crlf({"[Material - 0]", "TextureMap=a", "[LOD Information]", "NumberOfLOD=1", "[LOD 0]",
             "NumberOfSurfaces="}),
       kAccepted, kSurfaces},
      {"NumberOfSurfaces in another section",
       crlf({"[Material - 0]", "TextureMap=a", "NumberOfSurfaces=3", "[LOD Information]", "NumberOfLOD=1"}),
       kAccepted, kSurfaces},
      // The lookup reads such a file, but the stores would take it as one
      // line that a rewrite replaces whole.
      {"mixed line ends",
       "[Material - 0]\r\nTextureMap=a\r\n[LOD Information]\r\nNumberOfLOD=1\r\n[LOD "
       "0]\r\nNumberOfSurfaces=2\r\n"
       "Note=a\nb\r\n",
       kLineFeeds, kLineFeeds},
      {"byte-order mark", "\xEF\xBB\xBF" + withNumberOfLOD("1"), kAccepted, kAccepted},
      {"CR only", "[Material - 0]\rTextureMap=a\r[LOD Information]\rNumberOfLOD=1\r", kAccepted, kSurfaces},
  };
  testing::TempDir dir;
  for (const auto& [name, file, lod0, lod1] : cases) {
    const std::string path = dir.write(std::string(name) + ".kob", file);
    EXPECT_EQ(verdict(ValidateFileLOD0, path), lod0) << name;
    EXPECT_EQ(verdict(ValidateFileLOD1, path), lod1) << name;
  }
  EXPECT_EQ(verdict(ValidateFileLOD0, dir.file("absent.kob")), kTextureMap);
  EXPECT_EQ(verdict(ValidateFileLOD1, dir.file("absent.kob")), kTextureMap);
}

}  // namespace
}  // namespace korvane
