#include "shell/directory_store.h"

#include <gtest/gtest.h>

#include <new>

#include "runtime/failure.h"
#include "runtime/shared_strings.h"
#include "support/scripted_platform.h"

namespace korvane {
namespace {

const std::string kKey = "Software\\Korvane";

// A store that can be made to fail inside a read or a write, and counts writes.
class FaultyStore : public testing::ScriptedPlatform {
 public:
  enum class Fault { None, Failure, NoMemory };
  Fault readFault = Fault::None;
  bool writeThrows = false;
  int writes = 0;

  std::optional<std::string> readUserValue(const std::string& keyPath,
                                           const std::string& valueName) override {
    if (readFault == Fault::Failure) throw RuntimeFailure(failure_number::PermissionDenied);
    if (readFault == Fault::NoMemory) throw std::bad_alloc();
    return ScriptedPlatform::readUserValue(keyPath, valueName);
  }
  bool writeUserValue(const std::string& keyPath, const std::string& valueName,
                      const std::string& data) override {
    ++writes;
    if (writeThrows) throw RuntimeFailure(failure_number::PermissionDenied);
    return ScriptedPlatform::writeUserValue(keyPath, valueName, data);
  }
};

class DirectoryStoreTest : public ::testing::Test {
 protected:
  DirectoryStoreTest() { AppTitleName = "Korvane"; }
  FaultyStore platform;
};

struct StoredText {
  const char* name;
  std::string text;
};
void PrintTo(const StoredText& row, std::ostream* os) {
  *os << row.name;
}

class StoredTextReadsBack : public DirectoryStoreTest, public ::testing::WithParamInterface<StoredText> {};

TEST_P(StoredTextReadsBack, WithoutQuotingOrSeparatorChanges) {
  SetRegStr(platform, "DefaultDir", GetParam().text, kKey, HKEY_CURRENT_USER);
  EXPECT_EQ(GetRegStr(platform, kKey, "DefaultDir", HKEY_CURRENT_USER), GetParam().text);
  EXPECT_TRUE(platform.messages.empty());
}

INSTANTIATE_TEST_SUITE_P(Texts, StoredTextReadsBack,
                         ::testing::Values(StoredText{"RootDirectory", "/"},
                                           StoredText{"WindowsRoot", "C:\\"},
                                           StoredText{"Blanks", "/home/author/My Objects/ crates "},
                                           StoredText{"Backslashes", "D:\\Objects\\Crates\\"},
                                           StoredText{"NonAscii",
                                                      "/home/autor/M\xc3\xb6"
                                                      "bel/\xe6\x9c\xa8"},
                                           StoredText{"QuotesKeptAsText", "\"/quoted dir\""},
                                           StoredText{"DirectoryThatDoesNotExist", "/no/such/place"}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(DirectoryStoreTest, MissingKeyOrValueReadsAsEmptyWithoutMessage) {
  EXPECT_EQ(GetRegStr(platform, kKey, "DefaultDir", HKEY_CURRENT_USER), "");
  platform.store[{kKey, "SomethingElse"}] = "/x";
  EXPECT_EQ(GetRegStr(platform, kKey, "DefaultDir", HKEY_CURRENT_USER), "");
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(DirectoryStoreTest, ReadFailureShowsItsFrameAndGivesEmpty) {
  platform.store[{kKey, "DefaultDir"}] = "/kept";
  platform.readFault = FaultyStore::Fault::Failure;
  EXPECT_EQ(GetRegStr(platform, kKey, "DefaultDir", HKEY_CURRENT_USER), "");
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0], "Unexpected error in GetRegStr \n\n 70 - Permission denied");
  EXPECT_EQ(platform.messageTitles[0], "Korvane");
}

TEST_F(DirectoryStoreTest, NoMemoryForTheTextIsFailureSeven) {
  platform.readFault = FaultyStore::Fault::NoMemory;
  EXPECT_EQ(GetRegStr(platform, kKey, "DefaultDir", HKEY_CURRENT_USER), "");
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0], "Unexpected error in GetRegStr \n\n 7 - Out of memory");
}

TEST_F(DirectoryStoreTest, WriteFailuresAreSilentAndKeepTheOldValue) {
  platform.store[{kKey, "DefaultDir"}] = "/old";
  platform.storeWritable = false;
  SetRegStr(platform, "DefaultDir", "/new", kKey, HKEY_CURRENT_USER);
  platform.storeWritable = true;
  platform.writeThrows = true;
  SetRegStr(platform, "DefaultDir", "/newer", kKey, HKEY_CURRENT_USER);
  EXPECT_EQ(platform.store.at({kKey, "DefaultDir"}), "/old");
  EXPECT_TRUE(platform.events.empty());
}

TEST_F(DirectoryStoreTest, SaveDefaultDirStoresTheSharedStringUnderTheTitle) {
  DefaultDirPath = "/home/author/objects";
  SaveDefaultDir(platform);
  ASSERT_EQ(platform.store.size(), 1u);
  EXPECT_EQ(platform.store.at({"Software\\Korvane", "DefaultDir"}), "/home/author/objects");
}

TEST_F(DirectoryStoreTest, SaveDefaultDirWritesOnEveryCallEvenUnchanged) {
  DefaultDirPath = "/same";
  SaveDefaultDir(platform);
  SaveDefaultDir(platform);
  EXPECT_EQ(platform.writes, 2);
}

TEST_F(DirectoryStoreTest, SaveDefaultDirKeepsAnEmptyPathAsEmptyText) {
  DefaultDirPath = "";
  SaveDefaultDir(platform);
  EXPECT_EQ(platform.store.at({kKey, "DefaultDir"}), "");
  // An empty stored text is no value at all.
  EXPECT_EQ(GetRegStr(platform, kKey, "DefaultDir", HKEY_CURRENT_USER), "");
}

}  // namespace
}  // namespace korvane
