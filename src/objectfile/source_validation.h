#pragma once
// Whether a chosen file can serve as the LOD 0 or the LOD 1 source. A refusal
// shows its one message; a failure refuses without a word.

#include <string>

namespace korvane {

class Platform;
class SourceSnapshot;

// The lookups and the line-end check share the bytes of the opening's snapshot.
bool ValidateFileLOD0(Platform& platform, const SourceSnapshot& source);
bool ValidateFileLOD1(Platform& platform, const SourceSnapshot& source);

// The same validation, message and all, with the verdict for a front end that
// needs to know why a file was refused.
struct SourceVerdict {
  bool accepted = false;
  std::string refusal;  // the message shown; empty for a failure, which refuses without a word
};
SourceVerdict ValidateSourceLOD0(Platform& platform, const SourceSnapshot& source);
SourceVerdict ValidateSourceLOD1(Platform& platform, const SourceSnapshot& source);

}  // namespace korvane
