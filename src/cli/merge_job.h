#pragma once
// One merge, driven through the main window's own handlers as an author
// would: open the LOD 0 source, tick "add LOD 1" for the LOD 1 source, edit
// the texture map name, the ColorKey and the AutoLOD values, and Save As.

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace korvane::cli {

class CliPlatform;

struct MergeJob {
  std::string lod0;
  std::string lod1;    // empty: no LOD 1 source
  std::string output;  // "-": standard output
  std::optional<std::string> texture;
  enum class ColorKey { AsSource, Off, On } colorKey = ColorKey::AsSource;
  std::array<std::string, 3> rgb;                     // for On: each 1 to 3 digits, 0 to 255, as given
  std::array<std::optional<std::string>, 2> autoLOD;  // each as typed; none: as the source says
};

// "R,G,B", each a whole number from 0 to 255 in one to three digits: the
// three channels' texts as given, as the window's fields keep what is typed.
// Otherwise the reason why not.
struct Parsed {
  bool ok = false;
  std::string error;
};
Parsed parseColorKey(const std::string& text, std::array<std::string, 3>& rgb);
// A texture map name fits on its line: no CR, LF or NUL, which the window's
// field cannot hold either.
Parsed parseTexture(const std::string& text);

// "-" and the names of this process's standard output: the output is written
// there, not to a file put in the place of whatever it is.
bool isStandardOutput(const std::string& path);
// "A0,A1", either may be empty; each at most as long as the field lets the author type.
Parsed parseAutoLOD(const std::string& text, std::array<std::optional<std::string>, 2>& values);

// Runs the job on a fresh window. Messages go through the platform. Whether
// the file was written; if not, the file concerned and why. Nothing is
// written once a source is refused or fails to read.
struct MergeOutcome {
  bool merged = false;
  std::string error;
};
MergeOutcome runMerge(CliPlatform& platform, const MergeJob& job);

// The pieces between separators: "a,,b" gives "a", "", "b"; "" gives one empty piece.
std::vector<std::string> splitAt(const std::string& text, char separator);

}  // namespace korvane::cli
