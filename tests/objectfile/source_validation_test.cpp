#include "objectfile/source_validation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "runtime/shared_strings.h"
#include "support/scripted_platform.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using testing::crlf;
using testing::TempDir;
using Messages = std::vector<std::string>;

const std::string kTextureMapNotFound = "Error Reading KOB File: TextureMap Not Found";
const std::string kNumberOfLODNotFound = "Error Reading KOB File: NumberOfLOD Not Found";
const std::string kInvalidLOD0 = "Error Reading KOB File: Invalid NumberOfLOD";
const std::string kInvalidLOD1 = "Error Reading KOB File: Invalid NumberOfLOD for LOD 1";
const std::string kSurfacesNotFound = "Error Reading KOB File: NumberOfSurfaces Not Found";
const std::string kBareLineFeeds =
    "Error Reading KOB File: Lines End In LF Only (Save It With CR LF Line Ends)";

// A source that both validators accept, but for its NumberOfLOD.
std::string sourceWithNumberOfLOD(const std::string& text) {
  return crlf({"[Material - 0]", "TextureMap=a.tga", "[LOD Information]", "NumberOfLOD=" + text, "[LOD 0]",
               "NumberOfSurfaces=4"});
}

struct Verdict {
  bool accepted;
  Messages messages;
  bool operator==(const Verdict&) const = default;
  friend std::ostream& operator<<(std::ostream& os, const Verdict& v) {
    os << (v.accepted ? "accepted" : "refused");
    for (const auto& message : v.messages) os << " [" << message << "]";
    return os;
  }
};

Verdict validate(bool (*validator)(Platform&, const std::string&), const std::string& path) {
  testing::ScriptedPlatform platform;
  AppTitleName = "Korvane";
  bool accepted = validator(platform, path);
  for (const auto& title : platform.messageTitles) EXPECT_EQ(title, "Korvane");
  return {accepted, platform.messages};
}

const Verdict kAccepted{true, {}};
Verdict refused(const std::string& message) {
  return {false, {message}};
}
const Verdict kRefusedSilently{false, {}};

struct NumberCase {
  const char* name;
  std::string text;
  Verdict lod0;
  Verdict lod1;
  friend void PrintTo(const NumberCase& c, std::ostream* os) { *os << c.name; }
};

class NumberOfLODRange : public ::testing::TestWithParam<NumberCase> {};

TEST_P(NumberOfLODRange, CountsByWhatTheTextRoundsTo) {
  TempDir dir;
  std::string path = dir.write("source.kob", sourceWithNumberOfLOD(GetParam().text));
  EXPECT_EQ(validate(ValidateFileLOD0, path), GetParam().lod0) << "LOD 0";
  EXPECT_EQ(validate(ValidateFileLOD1, path), GetParam().lod1) << "LOD 1";
}

INSTANTIATE_TEST_SUITE_P(
    Table, NumberOfLODRange,
    ::testing::Values(NumberCase{"One", "1", kAccepted, kAccepted},
                      NumberCase{"Two", "2", kAccepted, refused(kInvalidLOD1)},
                      NumberCase{"Zero", "0", refused(kInvalidLOD0), refused(kInvalidLOD1)},
                      NumberCase{"HalfRoundsToEvenZero", "0.5", refused(kInvalidLOD0), refused(kInvalidLOD1)},
                      NumberCase{"PointSixRoundsToOne", "0.6", kAccepted, kAccepted},
                      NumberCase{"TwoPointFourRoundsToTwo", "2.4", kAccepted, refused(kInvalidLOD1)},
                      NumberCase{"TextBehindTheNumber", "2 objects", kAccepted, refused(kInvalidLOD1)},
                      NumberCase{"NoNumberIsZero", "two", refused(kInvalidLOD0), refused(kInvalidLOD1)},
                      NumberCase{"FarBelowThirtyTwoBitsRefusedSilently", "-3000000000", kRefusedSilently,
                                 kRefusedSilently}),
    [](const auto& info) { return std::string(info.param.name); });

struct LayoutCase {
  const char* name;
  std::string file;
  Verdict lod0;
  Verdict lod1;
  friend void PrintTo(const LayoutCase& c, std::ostream* os) { *os << c.name; }
};

class SourceLayout : public ::testing::TestWithParam<LayoutCase> {};

TEST_P(SourceLayout, FirstFailedCheckGivesTheOnlyMessage) {
  TempDir dir;
  std::string path = dir.write("source.kob", GetParam().file);
  EXPECT_EQ(validate(ValidateFileLOD0, path), GetParam().lod0) << "LOD 0";
  EXPECT_EQ(validate(ValidateFileLOD1, path), GetParam().lod1) << "LOD 1";
}

INSTANTIATE_TEST_SUITE_P(
    Files, SourceLayout,
    ::testing::Values(
        LayoutCase{"SmallestLOD0Source",
                   crlf({"[Material - 0]", "TextureMap=a", "[LOD Information]", "NumberOfLOD=1"}), kAccepted,
                   refused(kSurfacesNotFound)},
        LayoutCase{"SmallestLOD1Source",
                   crlf({"[Material - 0]", "TextureMap=a", "[LOD Information]", "NumberOfLOD=1", "[LOD 0]",
                         "NumberOfSurfaces=x"}),
                   kAccepted, kAccepted},
        LayoutCase{"EmptyFile", "", refused(kTextureMapNotFound), refused(kTextureMapNotFound)},
        LayoutCase{"TextureMapNotFound",
                   crlf({"[Material - 0]", "TextureMap=NotFound", "[LOD Information]", "NumberOfLOD=1"}),
                   refused(kTextureMapNotFound), refused(kTextureMapNotFound)},
        LayoutCase{"EmptyNumberOfSurfaces",
                   crlf({"[Material - 0]", "TextureMap=a", "[LOD Information]", "NumberOfLOD=1", "[LOD 0]",
                         "NumberOfSurfaces="}),
                   kAccepted, refused(kSurfacesNotFound)},
        LayoutCase{"NumberOfSurfacesInAnotherSection",
                   crlf({"[Material - 0]", "TextureMap=a", "NumberOfSurfaces=3", "[LOD Information]",
                         "NumberOfLOD=1"}),
                   kAccepted, refused(kSurfacesNotFound)},
        LayoutCase{"TwoLODsWithoutSurfacesIsOnlyTheLOD1Message",
                   crlf({"[Material - 0]", "TextureMap=a", "[LOD Information]", "NumberOfLOD=2"}), kAccepted,
                   refused(kInvalidLOD1)},
        // The lookup reads such a file, but the stores would take it as one
        // line that a rewrite replaces whole.
        LayoutCase{"LfFileWithoutKeysGetsTheKeyMessage", "[Material - 0]\nShininess=1\n",
                   refused(kTextureMapNotFound), refused(kTextureMapNotFound)},
        // A lone LF anywhere would stay inside a stored line.
        LayoutCase{"MixedLineEndsAreRefusedInEitherRole",
                   "[Material - 0]\r\nTextureMap=a\r\n[LOD Information]\r\nNumberOfLOD=1\r\n"
                   "[LOD 0]\r\nNumberOfSurfaces=2\r\nNote=a\nb\r\n",
                   refused(kBareLineFeeds), refused(kBareLineFeeds)},
        LayoutCase{
            "ByteOrderMarkAheadOfTheFirstHead",
            "\xEF\xBB\xBF" + crlf({"[Material - 0]", "TextureMap=a", "[LOD Information]", "NumberOfLOD=1"}),
            kAccepted, refused(kSurfacesNotFound)},
        LayoutCase{"CrOnlyLineEndsAreTaken",
                   "[Material - 0]\rTextureMap=a\r[LOD Information]\rNumberOfLOD=1\r", kAccepted,
                   refused(kSurfacesNotFound)}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(SourceValidation, MissingFileGetsTheTextureMapMessage) {
  TempDir dir;
  EXPECT_EQ(validate(ValidateFileLOD0, dir.file("absent.kob")), refused(kTextureMapNotFound));
  EXPECT_EQ(validate(ValidateFileLOD1, dir.file("absent.kob")), refused(kTextureMapNotFound));
}

}  // namespace
}  // namespace korvane
