#include "runtime/message_frames.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

TEST(MessageFrames, JoinThePiecesExactly) {
  const std::pair<std::string, std::string> frames[] = {
      {unexpectedErrorMessage("ReadFileLOD0", RuntimeFailure(53)),
       "Unexpected error in ReadFileLOD0: File not found ( 53)"},
      {unexpectedErrorMessage("SaveFileLOD0", RuntimeFailure(-5, "Odd")),
       "Unexpected error in SaveFileLOD0: Odd (-5)"},
      {unexpectedErrorMessage("UpdateLOD1", RuntimeFailure(0, "None")),
       "Unexpected error in UpdateLOD1: None ( 0)"},
      {getIniStringErrorMessage(RuntimeFailure(7)), "Unexpected error in GetINIString. \nOut of memory ( 7)"},
      {getRegStrErrorMessage(RuntimeFailure(7)), "Unexpected error in GetRegStr \n\n 7 - Out of memory"},
      {getRegStrErrorMessage(RuntimeFailure(-2, "X")), "Unexpected error in GetRegStr \n\n-2 - X"},
      {textFunctionErrorMessage("GetElement", RuntimeFailure(6)), "GetElement:  6 - 0"},
  };
  for (const auto& [message, expected] : frames) EXPECT_EQ(message, expected);
}

}  // namespace
}  // namespace korvane
