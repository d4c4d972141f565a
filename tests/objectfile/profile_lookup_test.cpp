#include "objectfile/profile_lookup.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "runtime/shared_strings.h"
#include "support/scripted_platform.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using namespace std::string_literals;
using testing::crlf;
using testing::readBytes;
using testing::TempDir;

struct LookupCase {
  const char* name;
  std::string file;
  std::string section;
  std::string key;
  std::string expected;
  friend void PrintTo(const LookupCase& c, std::ostream* os) { *os << c.name; }
};

class LookupRules : public ::testing::TestWithParam<LookupCase> {};

TEST_P(LookupRules, GiveTheValueOrNothing) {
  testing::ScriptedPlatform platform;
  TempDir dir;
  std::string path = dir.write("source.kob", GetParam().file);
  EXPECT_EQ(GetINIString(platform, GetParam().section, GetParam().key, path), GetParam().expected);
  EXPECT_TRUE(platform.messages.empty());
}

const std::string kMaterial = "Material - 0";
const std::string k254(254, 'v');

LookupCase material(const char* name, std::initializer_list<std::string> lines, std::string expected) {
  return {name, crlf(lines), kMaterial, "TextureMap", std::move(expected)};
}

INSTANTIATE_TEST_SUITE_P(
    Values, LookupRules,
    ::testing::Values(
        material("PlainValue", {"[Material - 0]", "TextureMap=a.tga"}, "a.tga"),
        material("ValueOf254CharactersWhole", {"[Material - 0]", "TextureMap=" + k254}, k254),
        material("ValueOf255CharactersCutTo254", {"[Material - 0]", "TextureMap=" + k254 + "w"}, k254),
        material("EmptyValue", {"[Material - 0]", "TextureMap="}, ""),
        material("NotFoundValueIsNoValue", {"[Material - 0]", "TextureMap=NotFound"}, ""),
        material("BlanksAroundEqualsSign", {"[Material - 0]", "TextureMap = a.tga"}, "a.tga"),
        material("BlanksAndTabsAroundKeyAndValue", {"[Material - 0]", " \tTextureMap\t = \t a b.tga \t"},
                 "a b.tga"),
        material("DoubleQuotesDropped", {"[Material - 0]", "TextureMap=\"a.tga\""}, "a.tga"),
        material("QuotesInsideBlanksDroppedBlanksInsideKept", {"[Material - 0]", "TextureMap = \" a \" "},
                 " a "),
        material("QuotedLongValueCutBehindTheOpeningQuote",
                 {"[Material - 0]", "TextureMap=\"" + k254 + "wwwww\""}, k254),
        material("CommentLineIsNoKey", {"[Material - 0]", ";TextureMap=a.tga"}, ""),
        material("LongerKeyWithTheSameEndingIsNoMatch", {"[Material - 0]", "MyTextureMap=x.tga"}, ""),
        material("BlankInsideSectionNameCounts", {"[Material  - 0]", "TextureMap=a.tga"}, ""),
        material("BlanksAroundSectionNameIgnored", {"  [ Material - 0 ]", "TextureMap=a.tga"}, "a.tga"),
        material("TextBehindTheHeadIgnored", {"[Material - 0] ; the material", "TextureMap=a.tga"}, "a.tga"),
        material("KeyAheadOfTheFirstHead", {"TextureMap=a.tga", "[Material - 0]"}, ""),
        // Outside its section the lookup skips from head to head.
        material("OnlyABracketOpeningItsLineIsAHead",
                 {std::string(100000, 'x') + "[Material - 0]", "TextureMap=no", " \t[Material - 0] x",
                  "  ;[b]", "TextureMap=yes"},
                 "yes"),
        material("SectionEndsAtTheNextHead",
                 {"[Material - 0]", "ColorKey=1,2,3", "[Other]", "TextureMap=a.tga"}, ""),
        material("FirstSectionOfTheNameCounts",
                 {"[Material - 0]", "TextureMap=a.tga", "[Material - 0]", "TextureMap=b.tga"}, "a.tga"),
        material("KeyUnderASecondHeadOfTheNameIsNotSeen",
                 {"[Material - 0]", "ColorKey=1,2,3", "[MATERIAL - 0]", "TextureMap=b.tga"}, ""),
        material("LineWithoutEqualsSignIsNoKey", {"[Material - 0]", "TextureMap", "TextureMap=b.tga"},
                 "b.tga"),
        material("HeadWithoutClosingBracketIsNoHead", {"[Material - 0]", "[Other", "TextureMap=a.tga"},
                 "a.tga"),
        LookupCase{"HashInKeyIsOrdinary", crlf({"[LOD Information]", "AutoLOD#0=0.25", "AutoLOD#1=0.1"}),
                   "LOD Information", "AutoLOD#1", "0.1"},
        LookupCase{"LfLineEnds", "[A]\nx=1\n[Material - 0]\nTextureMap=a.tga\n", kMaterial, "TextureMap",
                   "a.tga"},
        LookupCase{"CrLineEnds", "[A]\rx=1\r[Material - 0]\rTextureMap=a.tga\r", kMaterial, "TextureMap",
                   "a.tga"},
        LookupCase{"ByteOrderMarkSkipped", "\xEF\xBB\xBF[Material - 0]\r\nTextureMap=a.tga", kMaterial,
                   "TextureMap", "a.tga"},
        LookupCase{"NulBytesAreOrdinary", "[Material - 0]\r\nTextureMap=a\0b\r\n"s, kMaterial, "TextureMap",
                   "a\0b"s}),
    [](const auto& info) { return std::string(info.param.name); });

class Lookup : public ::testing::Test {
 protected:
  Lookup() { AppTitleName = "Korvane"; }

  std::string textureMap(const std::string& path) {
    return GetINIString(platform, "Material - 0", "TextureMap", path);
  }

  testing::ScriptedPlatform platform;
  TempDir dir;
};

TEST_F(Lookup, MissingFileHasNoKeysAndShowsNothing) {
  EXPECT_EQ(textureMap(dir.file("absent.kob")), "");
  EXPECT_EQ(textureMap(dir.path().string()), "");
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(Lookup, FileChangedOnDiskIsSeenByTheNextLookup) {
  std::string path = dir.write("source.kob", crlf({"[Material - 0]", "TextureMap=old.tga"}));
  EXPECT_EQ(textureMap(path), "old.tga");
  dir.write("source.kob", crlf({"[Material - 0]", "TextureMap=new.tga"}));
  FlushProfileCache(path);
  EXPECT_EQ(textureMap(path), "new.tga");
}

TEST_F(Lookup, NeitherLookupNorFlushChangesTheFile) {
  std::string bytes = "[Material - 0]\nTextureMap = \"a.tga\"\r\n;note\r\n";
  std::string path = dir.write("source.kob", bytes);
  auto before = std::filesystem::last_write_time(path);
  textureMap(path);
  GetINIString(platform, "Nowhere", "Nothing", path);
  FlushProfileCache(path);
  FlushProfileCache(dir.file("absent.kob"));
  EXPECT_EQ(readBytes(path), bytes);
  EXPECT_EQ(std::filesystem::last_write_time(path), before);
  EXPECT_FALSE(std::filesystem::exists(dir.file("absent.kob")));
}

}  // namespace
}  // namespace korvane
