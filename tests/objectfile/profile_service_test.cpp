#include "objectfile/profile_service.h"

#include <gtest/gtest.h>

#include <string>

#include "support/temp_files.h"

namespace korvane {
namespace {

using testing::crlf;
using testing::TempDir;

ProfileString textureMap(const std::string& path, std::size_t size) {
  return GetPrivateProfileString("Material - 0", "TextureMap", "NotFound", size, path);
}

TEST(ProfileService, ValueAndDefaultAreCutToOneLessThanTheSizeAndCounted) {
  TempDir dir;
  std::string path = dir.write("source.kob", crlf({"[Material - 0]", "TextureMap='abcdefg'"}));
  ProfileString answer = textureMap(path, 5);
  EXPECT_EQ(answer.text, "abcd");
  EXPECT_EQ(answer.count, 4u);
  EXPECT_EQ(textureMap(path, 9).text, "abcdefg");
  EXPECT_EQ(textureMap(path, 0).text, "");
  EXPECT_EQ(textureMap(dir.file("absent.kob"), 5).text, "NotF");
}

// Outside its section the lookup skips from head to head; a '[' that does
// not open its line is no head, however far it lies.
TEST(ProfileService, OnlyABracketOpeningItsLineIsAHead) {
  TempDir dir;
  std::string filler(100000, 'x');
  std::string path = dir.write("source.kob", crlf({filler + "[Material - 0]", "TextureMap=no",
                                                   " \t[Material - 0] x", "  ;[b]", "TextureMap=yes"}));
  EXPECT_EQ(textureMap(path, 255).text, "yes");
}

}  // namespace
}  // namespace korvane
