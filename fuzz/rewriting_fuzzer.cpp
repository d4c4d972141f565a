// The rewriting procedures on random stores and control values, one or more
// saves in a row: after every procedure both stores equal what a plain model
// of the rewriting rules gives, so line counts change exactly as the rules
// say and no other line changes.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "advanced/advanced_settings_window.h"
#include "fuzz_support.h"
#include "mainwindow/main_window.h"
#include "rewrite/lod_merge.h"
#include "rewrite/material_lines.h"
#include "runtime/headless_platform.h"
#include "shell/program.h"

using namespace korvane;
using namespace korvane::fuzzing;

namespace {

using Lines = std::vector<std::string>;

const std::string kTextureMapMissing = "The TextureMap keyword was not found in your KOB file";

// Lines that hold the keywords in the ways a source may: other capitals,
// blanks, comments, several on one line, and the LOD markers.
const Lines& vocabulary() {
  static const Lines lines = [] {
    const std::string_view all =
        "TextureMap=wall.tga|texturemap=old.tga|  TEXTUREMAP=x.tga|TextureMap =spaced.tga|; TextureMap=note|"
        "MyTextureMap=a|ColorKey=1,2,3|colorkey=9,9,9|ColorKey =0,0,0|NumberOfLOD=1|numberoflod=2|"
        "NumberOfLOD = 1|UseAutoLOD=T|AutoLOD#0=0.5|autolod#0=0.1|AutoLOD#1=0.2|AutoLOD#0=1 AutoLOD#1=2|"
        "[LOD 0]|[LOD 1]|[lod 0]|LOD 0 and LOD 0|LOD 00|NumberOfSurfaces=3|[Material - 0]|[LOD Information]||"
        "LLOD 0OD 0|[Material - 1]";
    Lines split(1);
    for (char c : all) {
      if (c == '|') {
        split.emplace_back();
      } else {
        split.back() += c;
      }
    }
    return split;
  }();
  return lines;
}

std::string randomLine(FuzzedDataProvider& input) {
  const std::uint8_t kind = input.ConsumeIntegral<std::uint8_t>();
  std::string line;
  if (kind < 176) line = vocabulary()[kind % vocabulary().size()];
  if (kind >= 128) line += input.ConsumeRandomLengthString(24);
  return line;
}

Lines randomLines(FuzzedDataProvider& input, std::size_t most) {
  Lines lines(input.ConsumeIntegralInRange<std::size_t>(0, most));
  for (std::string& line : lines) line = randomLine(input);
  return lines;
}

std::string randomColour(FuzzedDataProvider& input) {
  const int number = input.ConsumeIntegralInRange<int>(0, 1000);
  if (number == 1000) return "";
  std::string text = std::to_string(number);
  if (text.size() < 3 && input.ConsumeBool()) text.insert(0, "0");
  return text;
}

// The keyword test of the rewriting: the upper-cased copy contains it.
bool holds(std::string_view line, std::string_view keyword) {
  std::string upper(line);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return upper.find(keyword) != std::string::npos;
}

std::optional<std::size_t> firstHolding(const Lines& lines, std::string_view keyword) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (holds(lines[i], keyword)) return i;
  }
  return std::nullopt;
}

void insertAt(Lines& lines, std::size_t index, std::string text) {
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(index), std::move(text));
}

// What the four procedures do, written straight from their rules.
struct Model {
  Lines lod0;
  Lines lod1;
  std::vector<std::string> messages;

  void updateTextureMap(const std::string& textureMap) {
    if (auto i = firstHolding(lod0, "TEXTUREMAP=")) {
      lod0[*i] = "TextureMap=" + textureMap;
    } else {
      messages.push_back(kTextureMapMissing);
    }
  }

  void updateColorKey(bool on, const std::string& value) {
    if (auto i = firstHolding(lod0, "COLORKEY=")) {
      if (on) {
        lod0[*i] = "ColorKey=" + value;
      } else {
        lod0.erase(lod0.begin() + static_cast<std::ptrdiff_t>(*i));
      }
    } else if (on) {
      if (auto j = firstHolding(lod0, "TEXTUREMAP=")) insertAt(lod0, *j + 1, "ColorKey=" + value);
    }
  }

  void updateLODInformation(int value, const std::string& point0, const std::string& point1) {
    const std::string line0 = "AutoLOD#0=" + point0;
    const std::string line1 = "AutoLOD#1=" + point1;
    if (value != 2) {
      if (auto i = firstHolding(lod0, "NUMBEROFLOD=")) {
        lod0[*i] = "NumberOfLOD=2";
        insertAt(lod0, *i + 1, "UseAutoLOD=T");
        insertAt(lod0, *i + 2, line0);
        insertAt(lod0, *i + 3, line1);
      }
      return;
    }
    // One pass rewrites both kinds of line; a line holding both ends as the second.
    bool found0 = false;
    bool found1 = false;
    for (std::size_t i = 0; i < lod0.size() && !(found0 && found1); ++i) {
      const std::string asRead = lod0[i];
      if (holds(asRead, "AUTOLOD#0=")) lod0[i] = line0;
      if (holds(asRead, "AUTOLOD#1=")) lod0[i] = line1;
      found0 = found0 || holds(asRead, "AUTOLOD#0=");
      found1 = found1 || holds(asRead, "AUTOLOD#1=");
    }
    auto i = firstHolding(lod0, "NUMBEROFLOD=");
    if (!found0 && i) insertAt(lod0, *i + 1, line0);
    auto j = firstHolding(lod0, "AUTOLOD#0=");
    if (!found1 && j) insertAt(lod0, *j + 1, line1);
  }

  void updateLOD1() {
    for (std::string& line : lod1) {
      for (std::size_t at = line.find("LOD 0"); at != std::string::npos; at = line.find("LOD 0")) {
        line.replace(at, 5, "LOD 1");
      }
    }
  }
};

Lines stored(const LineStore& store) {
  Lines lines;
  for (std::int32_t i = 0; i < store.ListCount(); ++i) lines.emplace_back(store.List(i));
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  HeadlessPlatform platform;
  Program program(platform);
  frmKorvane& frm = program.MainWindow();
  frmAdvancedSettings& settings = program.AdvancedSettings();
  Model model{randomLines(input, 40), randomLines(input, 12), {}};
  for (const std::string& line : model.lod0) frm.lstDataLOD0.Store().AddItem(line);
  for (const std::string& line : model.lod1) frm.lstDataLOD1.Store().AddItem(line);
  // The box's own handler would ask for a LOD 1 source; here the value alone
  // is what the rewriting reads.
  frm.chkAddLOD1.onClick = nullptr;

  std::string log;
  auto check = [&](const std::string& step) {
    log += "\n" + step + ":\n  lstDataLOD0 " + shown(model.lod0, 40);
    const Lines lod0 = stored(frm.lstDataLOD0.Store());
    const Lines lod1 = stored(frm.lstDataLOD1.Store());
    FUZZ_CHECK(lod0 == model.lod0 && lod1 == model.lod1 && platform.messages == model.messages,
               "after " + step + ": " + shown(lod0, 40) + "\nlstDataLOD1 " + shown(lod1, 40) + "\nshown " +
                   shown(platform.messages) + "\nexpected " + shown(model.lod1, 40) + ", " +
                   shown(model.messages) + log);
  };

  // One or more saves' worth of rewriting, in the order of the save.
  const int saves = input.ConsumeIntegralInRange<int>(1, 3);
  for (int save = 0; save < saves; ++save) {
    if (save == 0 || input.ConsumeBool()) {
      frm.txtTextureMap.SetText(input.ConsumeRandomLengthString(20));
      frm.chkAddColorKey.SetValue(input.ConsumeIntegralInRange<int>(0, 1));
      for (int channel = 0; channel < 3; ++channel) frm.colorKeyField(channel).SetText(randomColour(input));
      frm.chkAddLOD1.SetValue(input.ConsumeIntegralInRange<int>(0, 2));
      settings.mskAutoLOD0.SetText(input.ConsumeRandomLengthString(10));
      settings.mskAutoLOD1.SetText(input.ConsumeRandomLengthString(10));
    }
    model.updateTextureMap(frm.txtTextureMap.Text());
    UpdateTextureMapLOD0(frm);
    check("UpdateTextureMapLOD0");
    model.updateColorKey(
        frm.chkAddColorKey.Value() > 0,
        frm.mskColorKey0.Text() + "," + frm.mskColorKey1.Text() + "," + frm.mskColorKey2.Text());
    UpdateColorKeyLOD0(frm);
    check("UpdateColorKeyLOD0");
    if (frm.chkAddLOD1.Value() == 0) continue;
    model.updateLODInformation(frm.chkAddLOD1.Value(), settings.mskAutoLOD0.Text(),
                               settings.mskAutoLOD1.Text());
    UpdateLODInformation(frm);
    check("UpdateLODInformation with chkAddLOD1 " + std::to_string(frm.chkAddLOD1.Value()));
    model.updateLOD1();
    UpdateLOD1(frm);
    check("UpdateLOD1");
  }
  return 0;
}
