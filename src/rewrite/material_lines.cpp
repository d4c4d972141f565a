#include "rewrite/material_lines.h"

#include <string>

#include "mainwindow/main_window.h"
#include "rewrite/keyword_scan.h"
#include "runtime/failure_handling.h"
#include "runtime/message_box.h"

namespace korvane {

namespace {

constexpr std::string_view kTextureMapKeyword = "TEXTUREMAP=";
constexpr std::string_view kColorKeyKeyword = "COLORKEY=";

}  // namespace

void UpdateTextureMapLOD0(frmKorvane& frm) {
  reportAndLeave(frm.platform(), "UpdateTextureMapLOD0", [&] {
    LineStore& lines = frm.lstDataLOD0.Store();
    const std::optional<LineStore::Index> at = findKeyword(lines, kTextureMapKeyword);
    if (!at) {
      MsgBox(frm.platform(), "The TextureMap keyword was not found in your KOB file");
      return;
    }
    replaceLine(lines, *at, "TextureMap=" + frm.txtTextureMap.Text());
  });
}

void UpdateColorKeyLOD0(frmKorvane& frm) {
  reportAndLeave(frm.platform(), "UpdateColorKeyLOD0", [&] {
    const bool colorKeyOn = frm.chkAddColorKey.Value() != 0;
    std::string line;
    if (colorKeyOn) {
      line = "ColorKey=" + frm.mskColorKey0.Text() + "," + frm.mskColorKey1.Text() + "," +
             frm.mskColorKey2.Text();
    }
    LineStore& lines = frm.lstDataLOD0.Store();
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
