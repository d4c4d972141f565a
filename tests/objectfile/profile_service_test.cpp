#include "objectfile/profile_service.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <future>
#include <string>

#include "support/temp_files.h"

namespace korvane {
namespace {

using namespace std::chrono_literals;
using testing::crlf;
using testing::TempDir;

ProfileString textureMap(const std::string& path, std::size_t size) {
  return GetPrivateProfileString("Material - 0", "TextureMap", "NotFound", size, path);
}

TEST(ProfileService, ValueIsCutToOneLessThanTheSizeAndCounted) {
  TempDir dir;
  std::string path = dir.write("source.kob", crlf({"[Material - 0]", "TextureMap=abcdefg"}));
  ProfileString answer = textureMap(path, 5);
  EXPECT_EQ(answer.text, "abcd");
  EXPECT_EQ(answer.count, 4u);
  EXPECT_EQ(textureMap(path, 8).text, "abcdefg");
  EXPECT_EQ(textureMap(path, 1).count, 0u);
  EXPECT_EQ(textureMap(path, 0).text, "");
}

TEST(ProfileService, DefaultIsCutLikeAValue) {
  TempDir dir;
  ProfileString answer = textureMap(dir.file("absent.kob"), 5);
  EXPECT_EQ(answer.text, "NotF");
  EXPECT_EQ(answer.count, 4u);
  EXPECT_EQ(textureMap(dir.file("absent.kob"), 255).text, "NotFound");
}

TEST(ProfileService, QuotesAreDroppedBeforeTheCut) {
  TempDir dir;
  std::string path = dir.write("source.kob", crlf({"[Material - 0]", "TextureMap='abcdefg'"}));
  EXPECT_EQ(textureMap(path, 5).text, "abcd");
  EXPECT_EQ(textureMap(path, 9).text, "abcdefg");
}

TEST(ProfileService, BlanksLongerThanTheReadBufferAroundKeyAndValueDoNotCount) {
  TempDir dir;
  std::string blanks(200 * 1024, ' ');
  std::string path =
      dir.write("source.kob", crlf({"[Material - 0]" + blanks,
                                    "TextureMap" + blanks + "=" + blanks + "\"a" + blanks + "b\"" + blanks}));
  EXPECT_EQ(textureMap(path, 255).text, "a" + std::string(253, ' '));
  EXPECT_EQ(textureMap(path, 300000).text, "a" + blanks + "b");
}

// The bytes, then a hole of a terabyte: a lookup that wanted to read on to
// the end of the file would not come back for minutes. Should it not come
// back in time, the file is cut short so that it ends.
std::string lookUpAheadOfAnEndlessTail(const std::string& bytes) {
  TempDir dir;
  std::string path = dir.write("source.kob", bytes);
  if (::truncate(path.c_str(), off_t{1} << 40) != 0) return "the file system holds no sparse file";
  auto answer = std::async(std::launch::async, [&] { return textureMap(path, 255).text; });
  if (answer.wait_for(10s) == std::future_status::timeout) {
    ADD_FAILURE() << "the lookup went on reading after its answer was known";
    EXPECT_EQ(::truncate(path.c_str(), 0), 0);
  }
  return answer.get();
}

TEST(ProfileService, StopsReadingOnceTheKeyIsFound) {
  EXPECT_EQ(lookUpAheadOfAnEndlessTail(crlf({"[Material - 0]", "TextureMap=a.tga"})), "a.tga");
}

TEST(ProfileService, StopsReadingOnceTheFirstSectionOfTheNameHasEnded) {
  EXPECT_EQ(lookUpAheadOfAnEndlessTail(crlf({"[Material - 0]", "ColorKey=1,2,3", "[Other]"})), "NotFound");
}

}  // namespace
}  // namespace korvane
