#include "objectfile/source_validation.h"

#include <cstdint>

#include "objectfile/profile_lookup.h"
#include "objectfile/source_snapshot.h"
#include "runtime/failure_handling.h"
#include "runtime/message_box.h"
#include "text/number_conversion.h"

namespace korvane {
namespace {

constexpr const char* kBareLineFeedMessage =
    "Error Reading KOB File: Lines End In LF Only (Save It With CR LF Line Ends)";

enum class SourceRole { LOD0, LOD1 };

// The checks common to both roles and the range check of each. The first
// check that fails shows its message and refuses; a failure (an overflowing
// NumberOfLOD) refuses without a word.
SourceVerdict validateSource(Platform& platform, const SourceSnapshot& source, SourceRole role) {
  SourceVerdict verdict{true, {}};
  auto refuse = [&](const char* message) {
    verdict = {false, message};
    MsgBox(platform, message);
  };
  bool finished = silentLeave([&] {
    if (GetINIString(platform, "Material - 0", "TextureMap", source).empty()) {
      return refuse("Error Reading KOB File: TextureMap Not Found");
    }
    std::string numberOfLOD = GetINIString(platform, "LOD Information", "NumberOfLOD", source);
    if (numberOfLOD.empty()) return refuse("Error Reading KOB File: NumberOfLOD Not Found");

    // The text counts by what it rounds to: "2.5" is 2, "2 objects" is 2.
    std::int32_t count = RoundToWhole(LeadingNumber(numberOfLOD), WholeWidth::Bits32);
    if (role == SourceRole::LOD0) {
      if (count < 1 || count > 2) return refuse("Error Reading KOB File: Invalid NumberOfLOD");
    } else {
      if (count != 1) return refuse("Error Reading KOB File: Invalid NumberOfLOD for LOD 1");
      // Only its presence counts: the value is never used.
      if (GetINIString(platform, "LOD 0", "NumberOfSurfaces", source).empty()) {
        return refuse("Error Reading KOB File: NumberOfSurfaces Not Found");
      }
    }
    // The lookups see the keys of a file whose lines end in LF, but the
    // stores would hold such lines as one: refused before anything changes.
    // The bytes are those the lookups have just read, so this costs no read.
    const SourceText* text = source.text();
    if (text == nullptr) {
      verdict.accepted = false;
    } else if (text->bareLineFeed) {
      refuse(kBareLineFeedMessage);
    }
  });
  if (!finished) verdict.accepted = false;
  return verdict;
}

}  // namespace

bool ValidateFileLOD0(Platform& platform, const SourceSnapshot& source) {
  return validateSource(platform, source, SourceRole::LOD0).accepted;
}

bool ValidateFileLOD1(Platform& platform, const SourceSnapshot& source) {
  return validateSource(platform, source, SourceRole::LOD1).accepted;
}

SourceVerdict ValidateSourceLOD0(Platform& platform, const SourceSnapshot& source) {
  return validateSource(platform, source, SourceRole::LOD0);
}

SourceVerdict ValidateSourceLOD1(Platform& platform, const SourceSnapshot& source) {
  return validateSource(platform, source, SourceRole::LOD1);
}

}  // namespace korvane
