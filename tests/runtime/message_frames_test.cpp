#include "runtime/message_frames.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

struct FrameCase {
  const char* name;
  std::string message;
  std::string expected;
};

class MessageFrames : public ::testing::TestWithParam<FrameCase> {};

TEST_P(MessageFrames, JoinsThePiecesExactly) { EXPECT_EQ(GetParam().message, GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(
    AllFrames, MessageFrames,
    ::testing::Values(
        FrameCase{"ModuleProcedurePositiveNumber",
                  unexpectedErrorMessage("ReadFileLOD0", RuntimeFailure(53)),
                  "Unexpected error in ReadFileLOD0: File not found ( 53)"},
        FrameCase{"ModuleProcedureNegativeNumber",
                  unexpectedErrorMessage("SaveFileLOD0", RuntimeFailure(-5, "Odd")),
                  "Unexpected error in SaveFileLOD0: Odd (-5)"},
        FrameCase{"ModuleProcedureZero", unexpectedErrorMessage("UpdateLOD1", RuntimeFailure(0, "None")),
                  "Unexpected error in UpdateLOD1: None ( 0)"},
        FrameCase{"GetINIStringFullStopAndLineFeed", getIniStringErrorMessage(RuntimeFailure(7)),
                  "Unexpected error in GetINIString. \nOut of memory ( 7)"},
        FrameCase{"GetRegStrTwoLineFeedsNumberFirst", getRegStrErrorMessage(RuntimeFailure(7)),
                  "Unexpected error in GetRegStr \n\n 7 - Out of memory"},
        FrameCase{"GetRegStrNegativeNumber", getRegStrErrorMessage(RuntimeFailure(-2, "X")),
                  "Unexpected error in GetRegStr \n\n-2 - X"},
        FrameCase{"GetElementOverflow", textFunctionErrorMessage("GetElement", RuntimeFailure(6)),
                  "GetElement:  6 - 0"},
        FrameCase{"SubstituteOverflow", textFunctionErrorMessage("Substitute", RuntimeFailure(6)),
                  "Substitute:  6 - 0"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(FailureDescriptions, StandardNumbersCarryTheirWords) {
  EXPECT_EQ(RuntimeFailure(6).description(), "Overflow");
  EXPECT_EQ(RuntimeFailure(380).description(), "Invalid property value");
  EXPECT_EQ(RuntimeFailure(53).description(), "File not found");
  EXPECT_EQ(RuntimeFailure(75).description(), "Path/File access error");
  EXPECT_EQ(RuntimeFailure(5).description(), "Invalid procedure call or argument");
}

TEST(FailureFromErrno, OperatingSystemErrorsMapOntoProgramNumbers) {
  EXPECT_EQ(failureFromErrno(ENOENT).number(), 53);
  EXPECT_EQ(failureFromErrno(EACCES).number(), 75);
  EXPECT_EQ(failureFromErrno(EISDIR).number(), 75);
  EXPECT_EQ(failureFromErrno(ENOTDIR).number(), 76);
  EXPECT_EQ(failureFromErrno(ENOSPC).number(), 61);
  EXPECT_EQ(failureFromErrno(EIO).number(), 57);
}

}  // namespace
}  // namespace korvane
