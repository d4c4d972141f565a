#include "objectfile/profile_lookup.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "objectfile/source_snapshot.h"
#include "support/scripted_platform.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using namespace std::string_literals;
using testing::crlf;

class Lookup : public ::testing::Test {
 protected:
  std::string textureMap(const std::string& path) {
    return GetINIString(platform, "Material - 0", "TextureMap", path);
  }

  testing::ScriptedPlatform platform;
  testing::TempDir dir;
};

TEST_F(Lookup, MaterialTextureMapByTheLookupRules) {
  const std::string k254(254, 'v');
  const std::tuple<const char*, std::string, std::string> cases[] = {
      {"whole at 254", crlf({"[Material - 0]", "TextureMap=" + k254}), k254},
      {"cut to 254", crlf({"[Material - 0]", "TextureMap=" + k254 + "w"}), k254},
      {"empty", crlf({"[Material - 0]", "TextureMap="}), ""},
      {"NotFound is no value", crlf({"[Material - 0]", "TextureMap=NotFound"}), ""},
      {"blanks and tabs around key and value", crlf({"[Material - 0]", " \tTextureMap\t = \t a b.tga \t"}),
       "a b.tga"},
      {"quotes dropped, blanks inside kept", crlf({"[Material - 0]", "TextureMap = \" a \" "}), " a "},
      {"quoted value cut behind the opening quote", crlf({"[Material - 0]", "TextureMap=\"" + k254 + "ww\""}),
       k254},
      {"comment", crlf({"[Material - 0]", ";TextureMap=a.tga"}), ""},
      {"longer key", crlf({"[Material - 0]", "MyTextureMap=x.tga"}), ""},
      {"blank inside the section name counts", crlf({"[Material  - 0]", "TextureMap=a.tga"}), ""},
      {"blanks around the section name and text behind the head",
       crlf({"  [ Material - 0 ] ; the material", "TextureMap=a.tga"}), "a.tga"},
      {"key ahead of the first head", crlf({"TextureMap=a.tga", "[Material - 0]"}), ""},
      // Outside its section the lookup skips from head to head.
      {"only a bracket opening its line is a head",
       crlf({std::string(100000, 'x') + "[Material - 0]", "TextureMap=no", " \t[Material - 0] x", "  ;[b]",
             "TextureMap=yes"}),
       "yes"},
      {"section ends at the next head", crlf({"[Material - 0]", "ColorKey=1", "[Other]", "TextureMap=a"}),
       ""},
      {"first section of the name counts",
       crlf({"[Material - 0]", "ColorKey=1", "[MATERIAL - 0]", "TextureMap=b.tga"}), ""},
      {"line without equals sign", crlf({"[Material - 0]", "TextureMap", "TextureMap=b.tga"}), "b.tga"},
      {"head without closing bracket", crlf({"[Material - 0]", "[Other", "TextureMap=a.tga"}), "a.tga"},
      {"LF ends", "[A]\nx=1\n[Material - 0]\nTextureMap=a.tga\n", "a.tga"},
      {"CR ends", "[A]\rx=1\r[Material - 0]\rTextureMap=a.tga\r", "a.tga"},
      {"byte-order mark", "\xEF\xBB\xBF[Material - 0]\r\nTextureMap=a.tga", "a.tga"},
      {"half a byte-order mark is part of the first line", "\xEF\xBBx\r\n[Material - 0]\r\nTextureMap=a",
       "a"},
      {"NUL is ordinary", "[Material - 0]\r\nTextureMap=a\0b\r\n"s, "a\0b"s},
  };
  for (const auto& [name, file, expected] : cases) {
    EXPECT_EQ(textureMap(dir.write("source.kob", file)), expected) << name;
  }
  const std::string path =
      dir.write("source.kob", crlf({"[LOD Information]", "AutoLOD#0=0.25", "AutoLOD#1=0.1"}));
  EXPECT_EQ(GetINIString(platform, "LOD Information", "AutoLOD#1", path), "0.1");
  EXPECT_EQ(textureMap(dir.file("absent.kob")), "");
  EXPECT_EQ(textureMap(dir.path().string()), "");
  EXPECT_TRUE(platform.messages.empty());
}

// The file changes only under the lookup's feet, never by it. The lookups of
// one opening see the bytes of its snapshot until a flush reads the file anew.
TEST_F(Lookup, NeitherLookupNorFlushChangesTheFile) {
  const std::string bytes = "[Material - 0]\nTextureMap = \"old.tga\"\r\n;note\r\n";
  const std::string path = dir.write("source.kob", bytes);
  const auto before = std::filesystem::last_write_time(path);
  SourceSnapshot source(path);
  SourceSnapshot absent(dir.file("absent.kob"));
  EXPECT_EQ(GetINIString(platform, "Material - 0", "TextureMap", source), "old.tga");
  GetINIString(platform, "Nowhere", "Nothing", source);
  FlushProfileCache(source);
  FlushProfileCache(absent);
  EXPECT_EQ(testing::readBytes(path), bytes);
  EXPECT_EQ(std::filesystem::last_write_time(path), before);
  EXPECT_FALSE(std::filesystem::exists(dir.file("absent.kob")));
  dir.write("source.kob", crlf({"[Material - 0]", "TextureMap=new.tga"}));
  EXPECT_EQ(GetINIString(platform, "Material - 0", "TextureMap", source), "old.tga");
  FlushProfileCache(source);
  EXPECT_EQ(GetINIString(platform, "Material - 0", "TextureMap", source), "new.tga");
}

}  // namespace
}  // namespace korvane
