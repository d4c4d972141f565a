#include "objectfile/line_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "runtime/failure.h"
#include "support/failures.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using Lines = std::vector<std::string>;
using testing::TempDir;

Lines readAll(const std::string& path) {
  Lines lines;
  readLines(path, [&](std::string_view line) { lines.emplace_back(line); });
  return lines;
}

int failureNumberOf(const std::string& path) {
  return testing::failureNumberOf([&] { readAll(path); });
}

struct ReadCase {
  const char* name;
  std::string bytes;
  Lines expected;
  friend void PrintTo(const ReadCase& c, std::ostream* os) { *os << c.name; }
};

class LineReading : public ::testing::TestWithParam<ReadCase> {};

TEST_P(LineReading, DeliversTheLinesExactly) {
  TempDir dir;
  EXPECT_EQ(readAll(dir.write("source.kob", GetParam().bytes)), GetParam().expected);
}

using namespace std::string_literals;

INSTANTIATE_TEST_SUITE_P(
    Cases, LineReading,
    ::testing::Values(ReadCase{"CrLfEndsALine", "a\r\nb\r\nc\r\n", {"a", "b", "c"}},
                      ReadCase{"CrAloneEndsALine", "a\rb\rc\r", {"a", "b", "c"}},
                      ReadCase{"LfAloneStaysInTheLine", "a\nb\nc\n", {"a\nb\nc\n"}},
                      ReadCase{"LfBeforeCrLfStaysInTheLine", "a\nb\r\nc", {"a\nb", "c"}},
                      ReadCase{"LastLineWithoutLineEnd", "a\r\nb", {"a", "b"}},
                      ReadCase{"EmptyFileHasNoLine", "", {}},
                      ReadCase{"LoneLineEndIsOneEmptyLine", "\r\n", {""}},
                      ReadCase{"BlankLinesKeepTheirPlace", "a\r\n\r\n\rb\r\n", {"a", "", "", "b"}},
                      ReadCase{"CrThenCrLfIsTwoLineEnds", "a\r\r\nb", {"a", "", "b"}},
                      ReadCase{"CrLfThenLfOpensALine", "a\r\n\nb\r\n", {"a", "\nb"}},
                      ReadCase{"BlanksAndTabsAtBothEndsKept", " \ta b\t \r\n\t\r\n", {" \ta b\t ", "\t"}},
                      ReadCase{"ControlAndHighBytesPass",
                               "x\0y\x1a\x7f\xff\xe9\r\n\x1a"s,
                               {"x\0y\x1a\x7f\xff\xe9"s, "\x1a"}}),
    [](const auto& info) { return std::string(info.param.name); });

// Lines that meet the edge of one read buffer must come out as if there were none.
TEST(LineReadingAcrossBuffers, CrLfSplitBetweenTwoReadsIsOneLineEnd) {
  TempDir dir;
  std::string first(kLineReadBufferSize - 1, 'x');
  std::string path = dir.write("split.kob", first + "\r\nnext\r\n");
  EXPECT_EQ(readAll(path), (Lines{first, "next"}));
}

TEST(LineReadingAcrossBuffers, CrClosingOneReadAndCrOpeningTheNextGiveAnEmptyLine) {
  TempDir dir;
  std::string first(kLineReadBufferSize - 1, 'x');
  std::string path = dir.write("split.kob", first + "\r\rnext");
  EXPECT_EQ(readAll(path), (Lines{first, "", "next"}));
}

TEST(LineReadingAcrossBuffers, LfOpeningAReadWithoutCrBeforeItStaysInTheLine) {
  TempDir dir;
  std::string first(kLineReadBufferSize, 'x');
  std::string path = dir.write("split.kob", first + "\nnext\r\n");
  EXPECT_EQ(readAll(path), (Lines{first + "\nnext"}));
}

TEST(LineReadingAcrossBuffers, CrAsTheVeryLastByteOfAFullBufferOpensNoLine) {
  TempDir dir;
  std::string first(kLineReadBufferSize - 1, 'x');
  std::string path = dir.write("split.kob", first + "\r");
  EXPECT_EQ(readAll(path), (Lines{first}));
}

TEST(LineReadingAcrossBuffers, LineLongerThanSeveralBuffersArrivesWhole) {
  TempDir dir;
  std::string longLine;
  for (std::size_t i = 0; longLine.size() < 3 * kLineReadBufferSize; ++i) longLine += std::to_string(i) + ',';
  std::string path = dir.write("long.kob", "a\r\n" + longLine + "\r\nb");
  EXPECT_EQ(readAll(path), (Lines{"a", longLine, "b"}));
}

TEST(LineReadingFailures, MissingFileIsFileNotFound) {
  TempDir dir;
  EXPECT_EQ(failureNumberOf(dir.file("absent.kob")), 53);
}

TEST(LineReadingFailures, MissingDirectoryIsPathNotFound) {
  TempDir dir;
  EXPECT_EQ(failureNumberOf(dir.file("absent/source.kob")), 76);
}

TEST(LineReadingFailures, DirectoryIsRefusedNotReadAsEmpty) {
  TempDir dir;
  EXPECT_EQ(failureNumberOf(dir.path().string()), 75);
}

TEST(LineReadingFailures, LinesBeforeAFailureInTheSinkStayDelivered) {
  TempDir dir;
  std::string path = dir.write("source.kob", "a\r\nb\r\nc\r\n");
  Lines seen;
  EXPECT_THROW(readLines(path,
                         [&](std::string_view line) {
                           if (line == "c") throw RuntimeFailure(7);
                           seen.emplace_back(line);
                         }),
               RuntimeFailure);
  EXPECT_EQ(seen, (Lines{"a", "b"}));
}

}  // namespace
}  // namespace korvane
