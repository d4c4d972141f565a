// The material steps on a store loaded as from a file, each case run twice
// as a save repeated with the same controls: the second changes nothing.

#include "rewrite/material_lines.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "objectfile/source_text.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/store_lines.h"

namespace korvane {
namespace {

using Lines = std::vector<std::string>;
const std::string kNotFound = "The TextureMap keyword was not found in your KOB file";

struct MaterialCase {
  int colorKey;  // Value of chkAddColorKey
  Lines before;
  Lines after;
  bool reportsMissingTextureMap = false;
};

TEST(MaterialLines, TextureMapThenColorKeyFollowTheTables) {
  const MaterialCase cases[] = {
      {0,
       {"; TextureMap=draft", "   texturemap=old ; x", "Shine"},
       {"TextureMap= m.tga ", "   texturemap=old ; x", "Shine"}},
      {0, {"TextureMap=hi", "[LOD 1]", "TextureMap=lo"}, {"TextureMap= m.tga ", "[LOD 1]", "TextureMap=lo"}},
      {0, {"TextureMap =old", "x"}, {"TextureMap =old", "x"}, true},
      {1, {}, {}, true},
      {0, {"TextureMap=a", "colorKey=1,2,3", "S"}, {"TextureMap= m.tga ", "S"}},
      {1,
       {"TextureMap=a", "S", "  colorKey=9 ; old", "ColorKey=4"},
       {"TextureMap= m.tga ", "S", "ColorKey=12,0,255", "ColorKey=4"}},
      {1,
       {"M", "TextureMap=a", "S", "TextureMap=b"},
       {"M", "TextureMap= m.tga ", "ColorKey=12,0,255", "S", "TextureMap=b"}},
      {2, {"M", "TextureMap=a"}, {"M", "TextureMap= m.tga ", "ColorKey=12,0,255"}},
      {1, {"TextureMap=a", "ColorKey =1"}, {"TextureMap= m.tga ", "ColorKey=12,0,255", "ColorKey =1"}},
      {0, {"ColorKey =1", "TextureMap=a"}, {"ColorKey =1", "TextureMap= m.tga "}},
      {1, {"S"}, {"S"}, true},
  };
  AppTitleName = "Korvane";
  for (const MaterialCase& c : cases) {
    testing::ScriptedPlatform platform;
    Program program{platform};
    frmKorvane& frm = program.MainWindow();
    frm.txtTextureMap.SetText(" m.tga ");
    frm.mskColorKey0.SetText("12");
    frm.mskColorKey1.SetText("0");
    frm.mskColorKey2.SetText("255");
    frm.chkAddColorKey.SetValue(c.colorKey);
    std::string bytes;
    for (const std::string& line : c.before) bytes += line + "\r\n";
    SourceText text;
    text.bytes = std::make_unique<char[]>(bytes.size() + 1);
    std::memcpy(text.bytes.get(), bytes.data(), bytes.size());
    text.size = bytes.size();
    text.carriageReturns = c.before.size();
    frm.lstDataLOD0.Store().Load(std::move(text));
    testing::addLines(frm.lstDataLOD1.Store(), {"TextureMap=lo", "ColorKey=1"});
    for (int save = 0; save < 2; ++save) {
      UpdateTextureMapLOD0(frm);
      UpdateColorKeyLOD0(frm);
      EXPECT_EQ(testing::linesOf(frm.lstDataLOD0.Store()), c.after)
          << c.before.size() << " lines, save " << save;
    }
    const Lines reports = c.reportsMissingTextureMap ? Lines{kNotFound, kNotFound} : Lines{};
    EXPECT_EQ(platform.messages, reports);
    EXPECT_EQ(testing::linesOf(frm.lstDataLOD1.Store()), (Lines{"TextureMap=lo", "ColorKey=1"}));
  }
}

}  // namespace
}  // namespace korvane
