#pragma once
// Whether a chosen file can serve as the LOD 0 or the LOD 1 source. A refusal
// shows its one message; a failure refuses without a word.

#include <string>

namespace korvane {

class Platform;

bool ValidateFileLOD0(Platform& platform, const std::string& path);
bool ValidateFileLOD1(Platform& platform, const std::string& path);

}  // namespace korvane
