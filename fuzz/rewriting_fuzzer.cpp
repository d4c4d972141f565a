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
constexpr const char* kVocabulary[] = {
    "TextureMap=wall.tga",
    "texturemap=old.tga",
    "  TEXTUREMAP=x.tga",
    "TextureMap =spaced.tga",
    "; TextureMap=note",
    "MyTextureMap=a",
    "ColorKey=1,2,3",
    "colorkey=9,9,9",
    "ColorKey =0,0,0",
    "NumberOfLOD=1",
    "numberoflod=2",
    "NumberOfLOD = 1",
    "UseAutoLOD=T",
    "AutoLOD#0=0.5",
    "autolod#0=0.1",
    "AutoLOD#1=0.2",
    "AutoLOD#0=1 AutoLOD#1=2",
    "[LOD 0]",
    "[LOD 1]",
    "[lod 0]",
    "LOD 0 and LOD 0",
    "LOD 00",
    "NumberOfSurfaces=3",
    "[Material - 0]",
    "[LOD Information]",
    "",
    "LLOD 0OD 0",
    "[Material - 1]",
};

std::string randomLine(FuzzedDataProvider& input) {
  const std::uint8_t kind = input.ConsumeIntegral<std::uint8_t>();
  std::string line;
  if (kind < 176) line = kVocabulary[kind % std::size(kVocabulary)];
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
    bool found0 = false;
    bool found1 = false;
    for (std::size_t i = 0; i < lod0.size() && !(found0 && found1); ++i) {
      const std::string asRead = lod0[i];
      if (holds(asRead, "AUTOLOD#0=")) {
        lod0[i] = line0;
        found0 = true;
      }
      if (holds(asRead, "AUTOLOD#1=")) {
        lod0[i] = line1;
        found1 = true;
      }
    }
    if (found0 && found1) return;
    if (!found0) {
      if (auto i = firstHolding(lod0, "NUMBEROFLOD=")) insertAt(lod0, *i + 1, line0);
    }
    if (!found1) {
      if (auto i = firstHolding(lod0, "AUTOLOD#0=")) insertAt(lod0, *i + 1, line1);
    }
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

void fill(LineStore& store, const Lines& lines) {
  store.Clear();
  for (const std::string& line : lines) store.AddItem(line);
}

class Session {
 public:
  explicit Session(const Lines& lod0, const Lines& lod1)
      : m_program(m_platform), m_frm(m_program.MainWindow()) {
    // The box's own handler would ask for a LOD 1 source; here the value
    // alone is what the rewriting reads.
    m_frm.chkAddLOD1.onClick = nullptr;
    fill(m_frm.lstDataLOD0.Store(), lod0);
    fill(m_frm.lstDataLOD1.Store(), lod1);
    m_model.lod0 = lod0;
    m_model.lod1 = lod1;
  }

  void setControls(FuzzedDataProvider& input) {
    m_frm.txtTextureMap.SetText(input.ConsumeRandomLengthString(20));
    m_frm.chkAddColorKey.SetValue(input.ConsumeIntegralInRange<int>(0, 1));
    for (int channel = 0; channel < 3; ++channel) m_frm.colorKeyField(channel).SetText(randomColour(input));
    m_frm.chkAddLOD1.SetValue(input.ConsumeIntegralInRange<int>(0, 2));
    frmAdvancedSettings& settings = m_program.AdvancedSettings();
    settings.mskAutoLOD0.SetText(input.ConsumeRandomLengthString(10));
    settings.mskAutoLOD1.SetText(input.ConsumeRandomLengthString(10));
  }

  // One save's worth of rewriting, in the order of the save.
  void save() {
    m_model.updateTextureMap(m_frm.txtTextureMap.Text());
    UpdateTextureMapLOD0(m_frm);
    check("UpdateTextureMapLOD0");

    const bool on = m_frm.chkAddColorKey.Value() > 0;
    m_model.updateColorKey(
        on, m_frm.mskColorKey0.Text() + "," + m_frm.mskColorKey1.Text() + "," + m_frm.mskColorKey2.Text());
    UpdateColorKeyLOD0(m_frm);
    check("UpdateColorKeyLOD0");

    if (m_frm.chkAddLOD1.Value() == 0) return;
    frmAdvancedSettings& settings = m_program.AdvancedSettings();
    m_model.updateLODInformation(m_frm.chkAddLOD1.Value(), settings.mskAutoLOD0.Text(),
                                 settings.mskAutoLOD1.Text());
    UpdateLODInformation(m_frm);
    check("UpdateLODInformation with chkAddLOD1 " + std::to_string(m_frm.chkAddLOD1.Value()));

    m_model.updateLOD1();
    UpdateLOD1(m_frm);
    check("UpdateLOD1");
  }

 private:
  void check(const std::string& step) {
    m_log += "\n" + step + ":\n  lstDataLOD0 " + shown(m_model.lod0, 40);
    const Lines lod0 = stored(m_frm.lstDataLOD0.Store());
    const Lines lod1 = stored(m_frm.lstDataLOD1.Store());
    FUZZ_CHECK(lod0 == m_model.lod0,
               "lstDataLOD0 after " + step + ": " + shown(lod0, 40) + "\nexpected" + m_log);
    FUZZ_CHECK(lod1 == m_model.lod1, "lstDataLOD1 after " + step + ": " + shown(lod1, 40) + "\nexpected " +
                                         shown(m_model.lod1, 40) + m_log);
    FUZZ_CHECK(m_platform.messages == m_model.messages, step + " showed " + shown(m_platform.messages) +
                                                            ", expected " + shown(m_model.messages) + m_log);
  }

  HeadlessPlatform m_platform;
  Program m_program;
  frmKorvane& m_frm;
  Model m_model;
  std::string m_log;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const Lines lod0 = randomLines(input, 40);
  const Lines lod1 = randomLines(input, 12);
  Session session(lod0, lod1);
  session.setControls(input);
  const int saves = input.ConsumeIntegralInRange<int>(1, 3);
  for (int i = 0; i < saves; ++i) {
    if (i > 0 && input.ConsumeBool()) session.setControls(input);
    session.save();
  }
  return 0;
}
