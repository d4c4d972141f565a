#include "cli/check.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include "mainwindow/color_key_editor.h"
#include "objectfile/profile_lookup.h"
#include "objectfile/source_snapshot.h"
#include "rewrite/keyword_scan.h"
#include "runtime/failure.h"
#include "runtime/headless_platform.h"
#include "runtime/utf8_path.h"
#include "shell/program.h"
#include "text/number_conversion.h"

namespace korvane::cli {

namespace {

constexpr std::size_t kLongestValue = 254;

std::string inQuotes(const std::string& text) {
  return "\"" + text + "\"";
}

std::string_view trimmed(std::string_view text) {
  std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool sameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return std::tolower((unsigned char)x) == std::tolower((unsigned char)y);
  });
}

// Where a lookup by section and key finds its line, by the lookup's rules,
// for the line number; the value itself comes from the lookup.
struct Located {
  int index = -1;
  std::size_t length = 0;  // of the whole value, before any cut
};

class Lookups {
 public:
  explicit Lookups(const std::vector<std::string>& lines) : m_lines(lines) {}

  std::optional<int> head(std::string_view section) const {
    for (int i = 0; i < static_cast<int>(m_lines.size()); ++i) {
      std::string_view name;
      if (headName(m_lines[i], name) && sameName(name, section)) return i;
    }
    return std::nullopt;
  }

  Located find(std::string_view section, std::string_view key) const {
    std::optional<int> start = head(section);
    if (!start) return {};
    for (int i = *start + 1; i < static_cast<int>(m_lines.size()); ++i) {
      std::string_view name;
      if (headName(m_lines[i], name)) break;
      std::string_view line = trimmed(m_lines[i]);
      std::size_t equals = line.find('=');
      if (line.empty() || line[0] == ';' || equals == std::string_view::npos) continue;
      if (!sameName(trimmed(line.substr(0, equals)), key)) continue;
      std::string_view value = trimmed(line.substr(equals + 1));
      if (value.size() >= 2 && (value[0] == '"' || value[0] == '\'') && value.back() == value[0])
        value = value.substr(1, value.size() - 2);
      return {i, value.size()};
    }
    return {};
  }

 private:
  static bool headName(std::string_view line, std::string_view& name) {
    line = trimmed(line);
    std::size_t close = line.find(']');
    if (line.empty() || line[0] != '[' || close == std::string_view::npos) return false;
    name = trimmed(line.substr(1, close - 1));
    return true;
  }

  const std::vector<std::string>& m_lines;
};

struct Key {
  const char* section;
  const char* name;
  const char* keyword;  // as the scan seeks it
};
constexpr Key kTextureMap{"Material - 0", "TextureMap", "TEXTUREMAP="};
constexpr Key kColorKey{"Material - 0", "ColorKey", "COLORKEY="};
constexpr Key kNumberOfLOD{"LOD Information", "NumberOfLOD", "NUMBEROFLOD="};
constexpr Key kAutoLOD[2] = {{"LOD Information", "AutoLOD#0", "AUTOLOD#0="},
                             {"LOD Information", "AutoLOD#1", "AUTOLOD#1="}};

class Checker {
 public:
  Checker(const std::string& path, const std::vector<std::string>& lines)
      : m_path(path), m_lines(lines), m_lookups(lines) {}

  std::vector<Warning> run() {
    std::string numberText = value(kNumberOfLOD);
    std::optional<std::int32_t> number = wholeNumber(numberText);
    for (const Key* key : {&kTextureMap, &kColorKey, &kNumberOfLOD, &kAutoLOD[0], &kAutoLOD[1]})
      checkLength(*key);
    compareViews(kTextureMap,
                 "saving cannot find it (the key must stand directly before \"=\"): it says \"The TextureMap "
                 "keyword was not found in your KOB file\" and keeps this line as it is");
    compareViews(kColorKey,
                 "saving cannot find it: a new ColorKey line goes behind the TextureMap line and this one "
                 "stays, even with the ColorKey off");
    checkColorKey();
    if (!numberText.empty()) checkNumberOfLOD(numberText, number);
    if (number == 1) {
      compareViews(kNumberOfLOD,
                   "with a LOD 1 source saving cannot find it: it stays, no UseAutoLOD or AutoLOD lines are "
                   "written, and the output says one LOD while holding two",
                   "with a LOD 1 source ");
      checkMarker();
    }
    if (number == 2) {
      for (int i = 0; i < 2; ++i) {
        compareViews(kAutoLOD[i], std::string("saving cannot find it: a new ") + kAutoLOD[i].name +
                                      " line is added and this one stays");
        if (value(kAutoLOD[i]).empty()) {
          add(located(kNumberOfLOD),
              std::string("two LODs and no ") + kAutoLOD[i].name + ": the window says \"" + kAutoLOD[i].name +
                  " not found.  Using default value...\" and saving adds " +
                  inQuotes(std::string(kAutoLOD[i].name) + "=" + (i ? "0.000" : "0.250")));
        }
      }
    }
    std::stable_sort(m_warnings.begin(), m_warnings.end(),
                     [](const Warning& a, const Warning& b) { return a.line < b.line; });
    return std::move(m_warnings);
  }

 private:
  std::string value(const Key& key) { return GetINIString(m_platform, key.section, key.name, m_path); }

  // The line the lookup reads, if it gives a value.
  int located(const Key& key) {
    return value(key).empty() ? -1 : m_lookups.find(key.section, key.name).index;
  }

  int scanned(const Key& key) const {
    for (int i = 0; i < static_cast<int>(m_lines.size()); ++i)
      if (holdsKeyword(m_lines[i], key.keyword)) return i;
    return -1;
  }

  void add(int index, std::string text) {
    m_warnings.push_back({index < 0 ? 1 : index + 1, std::move(text)});
  }

  void compareViews(const Key& key, const std::string& unseen, const std::string& when = "") {
    int read = located(key);
    int rewritten = scanned(key);
    std::string name = key.name;
    if (read >= 0 && rewritten < 0) add(read, "the window reads this " + name + ", but " + unseen);
    if (rewritten >= 0 && rewritten != read) {
      std::string what = key.keyword == kColorKey.keyword ? "rewrites it, or with the ColorKey off removes it"
                                                          : "rewrites it";
      add(rewritten, read >= 0 ? when + "saving " + what + " as the " + name + " line, not line " +
                                     std::to_string(read + 1) + " that the window reads"
                               : "the window does not read this line as the " + name + ", but " + when +
                                     "saving " + what);
    }
  }

  void checkLength(const Key& key) {
    Located found = m_lookups.find(key.section, key.name);
    if (found.index >= 0 && found.length > kLongestValue)
      add(found.index, "this " + std::string(key.name) + " is " + std::to_string(found.length) +
                           " characters long: the window reads only its first 254");
  }

  // The editor of a fresh window takes the ColorKey as the window would.
  void checkColorKey() {
    std::string text = value(kColorKey);
    if (text.empty()) return;
    HeadlessPlatform quiet;
    Program program(quiet);
    frmKorvane& frm = program.MainWindow();
    frm.Form_Load();
    SourceSnapshot source(m_path);
    ReadColorKeyINI(frm, source);
    int line = located(kColorKey);
    if (frm.chkAddColorKey.Value() == 0) {
      add(line, "the ColorKey editor refuses " + inQuotes(text) +
                    ": the window opens with the ColorKey off, so saving writes no ColorKey");
      return;
    }
    std::string shown =
        frm.mskColorKey0.Text() + "," + frm.mskColorKey1.Text() + "," + frm.mskColorKey2.Text();
    if (shown != text)
      add(line,
          "the ColorKey editor changes " + inQuotes(text) + " to " + shown + ", and saving writes that");
  }

  static std::optional<std::int32_t> wholeNumber(const std::string& text) {
    try {
      return RoundToWhole(LeadingNumber(text), WholeWidth::Bits32);
    } catch (const RuntimeFailure&) {
      return std::nullopt;
    }
  }

  void checkNumberOfLOD(const std::string& text, std::optional<std::int32_t> number) {
    int line = located(kNumberOfLOD);
    if (!number) {
      add(line, "NumberOfLOD " + inQuotes(text) +
                    " is out of range: the window refuses this file without a message");
    } else if (*number != 1 && *number != 2) {
      add(line, "NumberOfLOD " + inQuotes(text) + " counts as " + std::to_string(*number) +
                    ": the window refuses this file (\"Error Reading KOB File: Invalid NumberOfLOD\")");
    }
  }

  // A file the window would accept as a LOD 1 source, whose reader would find no marker line.
  void checkMarker() {
    if (value(kTextureMap).empty() || GetINIString(m_platform, "LOD 0", "NumberOfSurfaces", m_path).empty())
      return;
    if (std::find(m_lines.begin(), m_lines.end(), "[LOD 0]") != m_lines.end()) return;
    add(m_lookups.head("LOD 0").value_or(-1),
        "this line is not exactly \"[LOD 0]\": taken as a LOD 1 source the file is accepted, but none of its "
        "lines "
        "reach the output");
  }

  const std::string& m_path;
  const std::vector<std::string>& m_lines;
  Lookups m_lookups;
  HeadlessPlatform m_platform;
  std::vector<Warning> m_warnings;
};

}  // namespace

CheckResult checkFile(const std::string& path) {
  CheckResult result;
  std::error_code code;
  if (std::filesystem::is_directory(pathFromUtf8(path), code)) {
    result.readable = false;
    result.error = "is a directory";
    return result;
  }
  std::ifstream in(pathFromUtf8(path), std::ios::binary);
  std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (!in.is_open() || in.bad()) {
    result.readable = false;
    result.error = std::strerror(errno);
    return result;
  }

  // The lines as the reader takes them: CR LF or a CR on its own ends one.
  std::vector<std::string> lines(1);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    char c = bytes[i];
    if (c == '\n') {
      // Past this point the reader's lines and an editor's no longer agree.
      result.warnings.push_back(
          {static_cast<int>(lines.size()),
           "this line ends in LF alone, not CR LF: the window does not read the file line by "
           "line and cannot rewrite it"});
      return result;
    }
    if (c == '\r') {
      if (i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
      lines.emplace_back();
    } else {
      lines.back() += c;
    }
  }
  result.warnings = Checker(path, lines).run();
  return result;
}

}  // namespace korvane::cli
