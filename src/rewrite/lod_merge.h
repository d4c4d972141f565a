#pragma once
// Prepares the stored lines for a file with two levels of detail.

#include <string>

namespace korvane {

class LineStore;
class Platform;

// addLOD1: the Value of chkAddLOD1. Value 2 updates the AutoLOD lines with
// the two AutoLOD texts; any other value extends the first NumberOfLOD line
// into the two-LOD block.
void UpdateLODInformation(Platform& platform, LineStore& lod0, int addLOD1, const std::string& autoLOD0,
                          const std::string& autoLOD1);
// Every "LOD 0" in lod1 becomes "LOD 1".
void UpdateLOD1(Platform& platform, LineStore& lod1);

}  // namespace korvane
