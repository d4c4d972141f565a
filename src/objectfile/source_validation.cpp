// Placeholder until implemented.
#include "objectfile/source_validation.h"

namespace korvane {
bool ValidateFileLOD0(Platform&, const std::string&) { return false; }
bool ValidateFileLOD1(Platform&, const std::string&) { return false; }
}  // namespace korvane
