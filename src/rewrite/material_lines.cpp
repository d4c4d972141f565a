#include "rewrite/material_lines.h"

#include <string>

#include "objectfile/line_store.h"
#include "rewrite/keyword_scan.h"
#include "runtime/failure_handling.h"
#include "runtime/message_box.h"

namespace korvane {

namespace {

constexpr std::string_view kTextureMapKeyword = "TEXTUREMAP=";
constexpr std::string_view kColorKeyKeyword = "COLORKEY=";

}  // namespace

void UpdateTextureMapLOD0(Platform& platform, LineStore& lod0, const std::string& textureMap) {
  reportAndLeave(platform, "UpdateTextureMapLOD0", [&] {
    LineStore& lines = lod0;
    const std::optional<LineStore::Index> at = findKeyword(lines, kTextureMapKeyword);
    if (!at) {
      MsgBox(platform, "The TextureMap keyword was not found in your KOB file");
      return;
    }
    replaceLine(lines, *at, "TextureMap=" + textureMap);
  });
}

void UpdateColorKeyLOD0(Platform& platform, LineStore& lod0, bool colorKeyOn,
                        const std::array<std::string, 3>& channels) {
  reportAndLeave(platform, "UpdateColorKeyLOD0", [&] {
    std::string line;
    if (colorKeyOn) line = "ColorKey=" + channels[0] + "," + channels[1] + "," + channels[2];
    LineStore& lines = lod0;
    if (const std::optional<LineStore::Index> at = findKeyword(lines, kColorKeyKeyword)) {
      if (colorKeyOn) {
        replaceLine(lines, *at, line);
      } else {
        lines.RemoveItem(*at);
      }
      return;
    }
    if (!colorKeyOn) return;
    // A new ColorKey line belongs to the material of the texture map. Without
    // a TextureMap line there is nowhere to put it, and UpdateTextureMapLOD0
    // has already told the author.
    if (const std::optional<LineStore::Index> textureMap = findKeyword(lines, kTextureMapKeyword)) {
      lines.AddItem(line, *textureMap + 1);
    }
  });
}

}  // namespace korvane
