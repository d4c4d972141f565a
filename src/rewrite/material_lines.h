#pragma once
// Brings the stored LOD 0 lines in line with the texture map name and the
// ColorKey as the main window holds them.

#include <array>
#include <string>

namespace korvane {

class LineStore;
class Platform;

void UpdateTextureMapLOD0(Platform& platform, LineStore& lod0, const std::string& textureMap);
// colorKeyOn: chkAddColorKey above 0; channels: the three fields' texts.
void UpdateColorKeyLOD0(Platform& platform, LineStore& lod0, bool colorKeyOn,
                        const std::array<std::string, 3>& channels);

}  // namespace korvane
