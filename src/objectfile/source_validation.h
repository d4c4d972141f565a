#pragma once
// Whether a chosen file can serve as the LOD 0 or the LOD 1 source. A refusal
// shows its one message; a failure refuses without a word.

namespace korvane {

class Platform;
class SourceSnapshot;

// The lookups and the line-end check share the bytes of the opening's snapshot.
bool ValidateFileLOD0(Platform& platform, const SourceSnapshot& source);
bool ValidateFileLOD1(Platform& platform, const SourceSnapshot& source);

}  // namespace korvane
