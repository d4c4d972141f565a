// The help document: built beside the program, and explaining every message
// that the author can meet, in the program's own words.

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <string>

#include "support/temp_files.h"

namespace {

std::string helpDocument() {
  const QString programDir = QFileInfo(QStringLiteral(KORVANE_EXECUTABLE)).absolutePath();
  return korvane::testing::readBytes((programDir + QStringLiteral("/Korvane_Help.html")).toStdString());
}

TEST(HelpDocument, LiesBesideTheBuiltProgram) {
  const std::string page = helpDocument();
  ASSERT_FALSE(page.empty());
  EXPECT_EQ(page.rfind("<!DOCTYPE html>", 0), 0u);
  EXPECT_NE(page.find("<title>Korvane Help</title>"), std::string::npos);
}

class HelpMessage : public ::testing::TestWithParam<const char*> {};

TEST_P(HelpMessage, IsExplainedWordForWord) {
  EXPECT_NE(helpDocument().find(GetParam()), std::string::npos) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(
    Messages, HelpMessage,
    ::testing::Values(
        "Error Reading KOB File: TextureMap Not Found", "Error Reading KOB File: NumberOfLOD Not Found",
        "Error Reading KOB File: Invalid NumberOfLOD<",
        "Error Reading KOB File: Invalid NumberOfLOD for LOD 1",
        "Error Reading KOB File: NumberOfSurfaces Not Found",
        "Error Reading KOB File: Lines End In LF Only (Save It With CR LF Line Ends)",
        "Error Reading the KOB file", "AutoLOD#0 not found.  Using default value...",
        "AutoLOD#1 not found.  Using default value...", "Please enter a TextureMap name",
        "Please complete all ColorKey entries", "The TextureMap keyword was not found in your KOB file",
        "Error launching help file.", "Unexpected error in GetINIString. ", "Unexpected error in GetRegStr ",
        "Use Caution With These Settings!!", "Load Defaults Which Approximate Vastmere's Stock Objects"));

}  // namespace
