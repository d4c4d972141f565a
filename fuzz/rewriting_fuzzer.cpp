// The rewriting procedures on random stores and control values, one or more saves in a row: after
// every procedure both stores and the messages equal what a plain model of the rewriting rules gives,
// so line counts change exactly as the rules say and no other line changes.

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <functional>

#include "advanced/advanced_settings_window.h"
#include "fuzz_support.h"
#include "mainwindow/window_procedures.h"

using namespace korvane;
using namespace korvane::fuzzing;

namespace {

// Keywords in the ways a source may hold them: other capitals, blanks, comments, two on a line, LOD markers.
const Lines kVocabulary = sourceLines(
    "TextureMap=wall.tga\rtexturemap=old.tga\r  TEXTUREMAP=x.tga\rTextureMap =spaced.tga\r; TextureMap=note\r"
    "MyTextureMap=a\rColorKey=1,2,3\rcolorkey=9,9,9\rColorKey =0,0,0\rNumberOfLOD=1\rnumberoflod=2\r"
    "NumberOfLOD = 1\rUseAutoLOD=T\rAutoLOD#0=0.5\rautolod#0=0.1\rAutoLOD#1=0.2\rAutoLOD#0=1 AutoLOD#1=2\r"
    "[LOD 0]\r[LOD 1]\r[lod 0]\rLOD 0 and LOD 0\rLOD 00\rNumberOfSurfaces=3\r[Material - 0]\r"
    "[LOD Information]\r\rLLOD 0OD 0\r[Material - 1]\r");

Lines randomLines(FuzzedDataProvider& input, std::size_t most, LineStore& store) {
  Lines lines(input.ConsumeIntegralInRange<std::size_t>(0, most));
  for (std::string& line : lines) {
    const std::uint8_t kind = input.ConsumeIntegral<std::uint8_t>();
    if (kind < 176) line = kVocabulary[kind % kVocabulary.size()];
    if (kind >= 128) line += input.ConsumeRandomLengthString(24);
    store.AddItem(line);
  }
  return lines;
}

// The first line holding the keyword, or the number of lines.
std::size_t firstHolding(const Lines& lines, std::string_view keyword) {
  return std::ranges::find_if(lines, [&](const std::string& line) { return upperHolds(line, keyword); }) -
         lines.begin();
}

// What the four procedures do to the stores, straight from their rules, reading the same controls.
struct Model {
  const frmKorvane& frm;
  const frmAdvancedSettings& settings;
  Lines lines, lod1, messages;

  // The new lines go behind the first line holding the keyword, if one does.
  void insertBehind(std::string_view keyword, std::initializer_list<std::string> added) {
    if (const std::size_t i = firstHolding(lines, keyword); i < lines.size())
      lines.insert(lines.begin() + i + 1, added);
  }

  void updateTextureMap() {
    const std::size_t i = firstHolding(lines, "TEXTUREMAP=");
    if (i < lines.size()) lines[i] = "TextureMap=" + frm.txtTextureMap.Text();
    if (i == lines.size()) messages.push_back("The TextureMap keyword was not found in your KOB file");
  }

  void updateColorKey() {
    const bool on = frm.chkAddColorKey.Value() > 0;
    const std::string line =
        "ColorKey=" + frm.mskColorKey0.Text() + "," + frm.mskColorKey1.Text() + "," + frm.mskColorKey2.Text();
    const std::size_t i = firstHolding(lines, "COLORKEY=");
    if (i < lines.size() && on) lines[i] = line;
    if (i < lines.size() && !on) lines.erase(lines.begin() + i);
    if (i == lines.size() && on) insertBehind("TEXTUREMAP=", {line});
  }

  void updateLODInformation() {
    const std::string line0 = "AutoLOD#0=" + settings.mskAutoLOD0.Text(),
                      line1 = "AutoLOD#1=" + settings.mskAutoLOD1.Text();
    const std::size_t n = firstHolding(lines, "NUMBEROFLOD=");
    if (frm.chkAddLOD1.Value() != 2 && n < lines.size()) lines[n] = "NumberOfLOD=2";
    if (frm.chkAddLOD1.Value() != 2) return insertBehind("NUMBEROFLOD=", {"UseAutoLOD=T", line0, line1});
    // One pass rewrites both kinds of line; a line holding both ends as the second.
    bool found0 = false, found1 = false;
    for (std::size_t i = 0; i < lines.size() && !(found0 && found1); ++i) {
      const bool holds0 = upperHolds(lines[i], "AUTOLOD#0="), holds1 = upperHolds(lines[i], "AUTOLOD#1=");
      if (holds0 || holds1) lines[i] = holds1 ? line1 : line0;
      found0 |= holds0;
      found1 |= holds1;
    }
    if (!found0) insertBehind("NUMBEROFLOD=", {line0});
    if (!found1) insertBehind("AUTOLOD#0=", {line1});
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  Session session;
  frmKorvane& frm = session.frm;
  frmAdvancedSettings& settings = session.program.AdvancedSettings();
  LineStore &store0 = frm.lstDataLOD0.Store(), &store1 = frm.lstDataLOD1.Store();
  Model model{frm, settings, randomLines(input, 40, store0), randomLines(input, 12, store1), {}};
  // The box's own handler would ask for a LOD 1 source; here the value alone is what the rewriting reads.
  frm.chkAddLOD1.onClick = nullptr;
  auto run = [&](const std::string& step, void (*procedure)(frmKorvane&), const std::function<void()>& rule) {
    rule();
    procedure(frm);
    const Lines got0 = storedLines(store0), got1 = storedLines(store1);
    FUZZ_CHECK(got0 == model.lines && got1 == model.lod1 && session.platform.messages == model.messages,
               "after " + step + " got " + shown(crlf(got0)) + " and " + shown(crlf(got1)));
  };
  // One or more saves' worth of rewriting, in the order of the save.
  for (int save = 0, saves = input.ConsumeIntegralInRange<int>(1, 3); save < saves; ++save) {
    if (save == 0 || input.ConsumeBool()) {
      frm.txtTextureMap.SetText(input.ConsumeRandomLengthString(20));
      frm.chkAddColorKey.SetValue(input.ConsumeIntegralInRange<int>(0, 1));
      for (int channel = 0; channel < 3; ++channel)
        frm.colorKeyField(channel).SetText(
            input.ConsumeBool() ? std::to_string(input.ConsumeIntegralInRange(0, 999)) : "");
      frm.chkAddLOD1.SetValue(input.ConsumeIntegralInRange<int>(0, 2));
      settings.mskAutoLOD0.SetText(input.ConsumeRandomLengthString(10));
      settings.mskAutoLOD1.SetText(input.ConsumeRandomLengthString(10));
    }
    run("UpdateTextureMapLOD0", static_cast<void (*)(frmKorvane&)>(UpdateTextureMapLOD0),
        [&] { model.updateTextureMap(); });
    run("UpdateColorKeyLOD0", static_cast<void (*)(frmKorvane&)>(UpdateColorKeyLOD0),
        [&] { model.updateColorKey(); });
    if (frm.chkAddLOD1.Value() == 0) continue;
    run("UpdateLODInformation", static_cast<void (*)(frmKorvane&)>(UpdateLODInformation),
        [&] { model.updateLODInformation(); });
    run("UpdateLOD1", static_cast<void (*)(frmKorvane&)>(UpdateLOD1),
        [&] { std::ranges::transform(model.lod1, begin(model.lod1), renamedLOD0); });
  }
  return 0;
}
