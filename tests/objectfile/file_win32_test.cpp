// The Win32 side of the file layer: UTF-8 and long paths reach the file, and
// what cannot be had fails as on Linux (special files: non_regular_files_test).

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "objectfile/file.h"
#include "support/failures.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using testing::failureNumberOf;

std::string roundTrip(const std::string& path) {
  File out = File::openForWriting(path);
  out.writeAll("a\r\nb\n", 5);
  out.close();
  File in = File::openForReading(path);
  std::string bytes(16, '\0');
  bytes.resize(in.readSome(bytes.data(), bytes.size()));
  return bytes;
}

TEST(FileWin32, NamesOutsideTheCodePageAndPastMaxPathReachTheFile) {
  testing::TempDir dir;
  std::string folder = dir.file(std::string(200, 'd'));
  std::filesystem::create_directory(std::filesystem::path(folder));
  for (const std::string& path :
       {dir.file("caf\xC3\xA9 \xE2\x82\xAC.kob"), folder + "\\" + std::string(120, 'f')}) {
    EXPECT_EQ(roundTrip(path), "a\r\nb\n") << path.size();
    File::remove(path);
    EXPECT_EQ(failureNumberOf([&] { File::openForReading(path); }), 53);
  }
}

TEST(FileWin32, SystemErrorsFailAsOnLinux) {
  testing::TempDir dir;
  const std::string held = dir.write("held.kob", "x");
  // Held by another program that lets no one else in.
  HANDLE holder = ::CreateFileA(held.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  const struct {
    std::string path;
    bool write;
    int failure;
  } rows[] = {
      {dir.file("missing\\a.kob"), true, 76}, {held, false, 70}, {"caf\xC3", false, 52},  // not UTF-8
  };
  for (const auto& row : rows) {
    EXPECT_EQ(
        failureNumberOf([&] { row.write ? File::openForWriting(row.path) : File::openForReading(row.path); }),
        row.failure)
        << row.path;
  }
  ::CloseHandle(holder);
}

}  // namespace
}  // namespace korvane
