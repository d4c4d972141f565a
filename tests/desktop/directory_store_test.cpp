#include "desktop/directory_store.h"

#include <gtest/gtest.h>

#include <new>

#include "runtime/failure.h"
#include "runtime/shared_strings.h"
#include "support/faulty_platform.h"

namespace korvane {
namespace {

const std::string kKey = "Software\\Korvane";

class DirectoryStore : public ::testing::Test {
 protected:
  DirectoryStore() { AppTitleName = "Korvane"; }
  std::string read() { return GetRegStr(platform, kKey, "DefaultDir", HKEY_CURRENT_USER); }
  testing::FaultyPlatform platform;
};

TEST_F(DirectoryStore, NoValueReadsEmptyAndAReadFailureShowsItsFrame) {
  EXPECT_EQ(read(), "");
  SetRegStr(platform, "DefaultDir", "/kept", kKey, HKEY_CURRENT_USER);
  platform.onRead = [] { throw RuntimeFailure(failure_number::PermissionDenied); };
  EXPECT_EQ(read(), "");
  platform.onRead = [] { throw std::bad_alloc(); };
  EXPECT_EQ(read(), "");
  EXPECT_EQ(platform.messages,
            (std::vector<std::string>{"Unexpected error in GetRegStr \n\n 70 - Permission denied",
                                      "Unexpected error in GetRegStr \n\n 7 - Out of memory"}));
  EXPECT_EQ(platform.messageTitles[0], "Korvane");
}

TEST_F(DirectoryStore, SaveDefaultDirWritesOnEveryCallAndAFailedWriteKeepsTheOldSilently) {
  int writes = 0;
  platform.onWrite = [&] { ++writes; };
  DefaultDirPath = " C:\\My Objects\\\"q\" ";
  SaveDefaultDir(platform);
  SaveDefaultDir(platform);
  EXPECT_EQ(writes, 2);
  platform.onWrite = [] { throw RuntimeFailure(failure_number::PermissionDenied); };
  DefaultDirPath = "/newer";
  SaveDefaultDir(platform);
  EXPECT_EQ(read(), " C:\\My Objects\\\"q\" ");
  EXPECT_TRUE(platform.events.empty());
}

}  // namespace
}  // namespace korvane
