// The rewriting procedures on random stores and control values, one or more
// saves in a row: after every procedure both stores and the messages equal
// what a plain model of the rewriting rules gives, so line counts change
// exactly as the rules say and no other line changes.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "advanced/advanced_settings_window.h"
#include "fuzz_support.h"
#include "rewrite/lod_merge.h"
#include "rewrite/material_lines.h"

using namespace korvane;
using namespace korvane::fuzzing;

namespace {

// Lines that hold the keywords in the ways a source may: other capitals,
// blanks, comments, several on one line, and the LOD markers.
const Lines kVocabulary = sourceLines(
    "TextureMap=wall.tga\ntexturemap=old.tga\n  TEXTUREMAP=x.tga\nTextureMap =spaced.tga\n; TextureMap=note\n"
    "MyTextureMap=a\nColorKey=1,2,3\ncolorkey=9,9,9\nColorKey =0,0,0\nNumberOfLOD=1\nnumberoflod=2\n"
    "NumberOfLOD = 1\nUseAutoLOD=T\nAutoLOD#0=0.5\nautolod#0=0.1\nAutoLOD#1=0.2\nAutoLOD#0=1 AutoLOD#1=2\n"
    "[LOD 0]\n[LOD 1]\n[lod 0]\nLOD 0 and LOD 0\nLOD 00\nNumberOfSurfaces=3\n[Material - 0]\n"
    "[LOD Information]\n\nLLOD 0OD 0\n[Material - 1]\n",
    true);

Lines randomLines(FuzzedDataProvider& input, std::size_t most) {
  Lines lines(input.ConsumeIntegralInRange<std::size_t>(0, most));
  for (std::string& line : lines) {
    const std::uint8_t kind = input.ConsumeIntegral<std::uint8_t>();
    if (kind < 176) line = kVocabulary[kind % kVocabulary.size()];
    if (kind >= 128) line += input.ConsumeRandomLengthString(24);
  }
  return lines;
}

std::string randomColour(FuzzedDataProvider& input) {
  const int number = input.ConsumeIntegralInRange<int>(0, 1000);
  if (number == 1000) return "";
  return (number < 100 && input.ConsumeBool() ? "0" : "") + std::to_string(number);
}

std::optional<std::size_t> firstHolding(const Lines& lines, std::string_view keyword) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (upperHolds(lines[i], keyword)) return i;
  }
  return std::nullopt;
}

// What the four procedures do to the LOD 0 lines, written straight from their rules.
struct Model {
  Lines lines;
  Lines messages;

  void insert(std::size_t at, const std::string& text) { lines.insert(lines.begin() + at, text); }

  void updateTextureMap(const std::string& textureMap) {
    if (auto i = firstHolding(lines, "TEXTUREMAP=")) {
      lines[*i] = "TextureMap=" + textureMap;
    } else {
      messages.push_back("The TextureMap keyword was not found in your KOB file");
    }
  }

  void updateColorKey(bool on, const std::string& value) {
    if (auto i = firstHolding(lines, "COLORKEY=")) {
      if (on) lines[*i] = "ColorKey=" + value;
      if (!on) lines.erase(lines.begin() + *i);
    } else if (auto j = firstHolding(lines, "TEXTUREMAP="); on && j) {
      insert(*j + 1, "ColorKey=" + value);
    }
  }

  void updateLODInformation(int value, const std::string& line0, const std::string& line1) {
    if (value != 2) {
      if (auto i = firstHolding(lines, "NUMBEROFLOD=")) {
        lines[*i] = "NumberOfLOD=2";
        insert(*i + 1, line1);
        insert(*i + 1, line0);
        insert(*i + 1, "UseAutoLOD=T");
      }
      return;
    }
    // One pass rewrites both kinds of line; a line holding both ends as the second.
    bool found0 = false;
    bool found1 = false;
    for (std::size_t i = 0; i < lines.size() && !(found0 && found1); ++i) {
      const bool holds0 = upperHolds(lines[i], "AUTOLOD#0=");
      const bool holds1 = upperHolds(lines[i], "AUTOLOD#1=");
      if (holds0) lines[i] = line0;
      if (holds1) lines[i] = line1;
      found0 = found0 || holds0;
      found1 = found1 || holds1;
    }
    if (auto i = firstHolding(lines, "NUMBEROFLOD="); !found0 && i) insert(*i + 1, line0);
    if (auto j = firstHolding(lines, "AUTOLOD#0="); !found1 && j) insert(*j + 1, line1);
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  Session session;
  frmKorvane& frm = session.frm;
  frmAdvancedSettings& settings = session.program.AdvancedSettings();
  Model model{randomLines(input, 40), {}};
  Lines lod1 = randomLines(input, 12);
  for (const std::string& line : model.lines) frm.lstDataLOD0.Store().AddItem(line);
  for (const std::string& line : lod1) frm.lstDataLOD1.Store().AddItem(line);
  // The box's own handler would ask for a LOD 1 source; here the value alone
  // is what the rewriting reads.
  frm.chkAddLOD1.onClick = nullptr;

  std::string log;
  auto check = [&](const std::string& step) {
    log += "\n" + step + ", expected " + shown(crlf(model.lines)) + " and " + shown(crlf(lod1));
    FUZZ_CHECK(storedLines(frm.lstDataLOD0.Store()) == model.lines &&
                   storedLines(frm.lstDataLOD1.Store()) == lod1 &&
                   session.platform.messages == model.messages,
               "got " + shown(crlf(storedLines(frm.lstDataLOD0.Store()))) + " and " +
                   shown(crlf(storedLines(frm.lstDataLOD1.Store()))) + ", shown " +
                   shown(crlf(session.platform.messages)) + log);
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
    model.updateLODInformation(frm.chkAddLOD1.Value(), "AutoLOD#0=" + settings.mskAutoLOD0.Text(),
                               "AutoLOD#1=" + settings.mskAutoLOD1.Text());
    UpdateLODInformation(frm);
    check("UpdateLODInformation with chkAddLOD1 " + std::to_string(frm.chkAddLOD1.Value()));
    for (std::string& line : lod1) line = renamedLOD0(line);
    UpdateLOD1(frm);
    check("UpdateLOD1");
  }
  return 0;
}
