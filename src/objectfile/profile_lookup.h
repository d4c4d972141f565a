#pragma once
// Lookups of one value by section and key in a KOB file on disk.

#include <string>
#include <string_view>

#include "objectfile/profile_service.h"

namespace korvane {

class Platform;
class SourceSnapshot;

// The value, or the empty string for everything that is not a value (missing
// file, section or key, empty value, the value "NotFound"). At most 254
// characters. A failure shows "Unexpected error in GetINIString. " LF ... and
// gives the empty string.
std::string GetINIString(Platform& platform, const std::string& section, const std::string& key,
                         const SourceSnapshot& source);
// A lookup of its own, in the file as it now stands on disk.
std::string GetINIString(Platform& platform, const std::string& section, const std::string& key,
                         const std::string& path);

// A scan for one key under the rules of GetINIString, for bytes that arrive
// line by line, and what GetINIString would give for its answer.
ProfileKeyScan iniStringScan(std::string_view section, std::string_view key);
std::string iniStringOf(const ProfileKeyScan& scan);

// Reads the snapshot's file anew, so that its next lookup sees the file as it
// now stands on disk.
void FlushProfileCache(SourceSnapshot& source);

}  // namespace korvane
