#include "objectfile/line_writer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "runtime/failure.h"
#include "support/failures.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using namespace std::string_literals;
using testing::readBytes;
using testing::TempDir;

void writeAll(const std::string& path, const std::vector<std::string>& lines) {
  LineWriter writer(path);
  for (const auto& line : lines) writer.writeLine(line);
  writer.close();
}

using testing::failureNumberOf;

TEST(LineWriting, EveryLineEndsInCrLfAndBytesPassUnchanged) {
  TempDir dir;
  std::string path = dir.file("out.kob");
  writeAll(path, {"a", "", " b\t", "x\0y\xff"s, "lf\ninside"});
  EXPECT_EQ(readBytes(path), "a\r\n\r\n b\t\r\nx\0y\xff\r\nlf\ninside\r\n"s);
}

TEST(LineWriting, AnExistingFileIsCutToNothingFirst) {
  TempDir dir;
  std::string path = dir.write("out.kob", std::string(10000, 'o'));
  writeAll(path, {"new"});
  EXPECT_EQ(readBytes(path), "new\r\n");
}

TEST(LineWriting, LinesFillingSeveralBuffersComeOutInOrder) {
  TempDir dir;
  std::string path = dir.file("out.kob");
  std::vector<std::string> lines;
  std::string expected;
  for (int i = 0; expected.size() < 3 * kLineWriteBufferSize; ++i) {
    lines.push_back("line " + std::to_string(i) + std::string(i % 97, '.'));
    expected += lines.back() + "\r\n";
  }
  writeAll(path, lines);
  EXPECT_EQ(readBytes(path), expected);
}

TEST(LineWriting, LineLongerThanTheBufferComesOutWholeBetweenItsNeighbours) {
  TempDir dir;
  std::string path = dir.file("out.kob");
  std::string longLine(2 * kLineWriteBufferSize + 3, 'L');
  std::string nearlyFull(kLineWriteBufferSize - 3, 'n');
  writeAll(path, {"head", longLine, nearlyFull, "tail"});
  EXPECT_EQ(readBytes(path), "head\r\n" + longLine + "\r\n" + nearlyFull + "\r\ntail\r\n");
}

TEST(LineWritingFailures, DirectoryAsTargetIsPathFileAccessError) {
  TempDir dir;
  EXPECT_EQ(failureNumberOf([&] { LineWriter writer(dir.path().string()); }), 75);
}

TEST(LineWritingFailures, MissingDirectoryIsPathNotFoundAndCreatesNothing) {
  TempDir dir;
  EXPECT_EQ(failureNumberOf([&] { LineWriter writer(dir.file("absent/out.kob")); }), 76);
  EXPECT_FALSE(std::filesystem::exists(dir.file("absent")));
}

}  // namespace
}  // namespace korvane
