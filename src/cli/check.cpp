#include "cli/check.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <optional>
#include <system_error>

#include "desktop/headless_platform.h"
#include "mainwindow/color_key_editor.h"
#include "mainwindow/main_window.h"
#include "objectfile/file.h"
#include "objectfile/profile_lookup.h"
#include "rewrite/keyword_scan.h"
#include "runtime/failure.h"
#include "runtime/failure_handling.h"
#include "runtime/utf8_path.h"
#include "shell/program.h"
#include "text/number_conversion.h"

namespace korvane::cli {

namespace {

constexpr std::size_t kLongestValue = 254;
constexpr std::size_t kReadPiece = std::size_t{64} << 10;

std::string inQuotes(const std::string& text) {
  return "\"" + text + "\"";
}

struct Key {
  const char* section;
  const char* name;
  const char* keyword;  // as the scan seeks it; none for a key saving never looks for
};
constexpr Key kTextureMap{"Material - 0", "TextureMap", "TEXTUREMAP="};
constexpr Key kColorKey{"Material - 0", "ColorKey", "COLORKEY="};
constexpr Key kNumberOfLOD{"LOD Information", "NumberOfLOD", "NUMBEROFLOD="};
constexpr Key kAutoLOD[2] = {{"LOD Information", "AutoLOD#0", "AUTOLOD#0="},
                             {"LOD Information", "AutoLOD#1", "AUTOLOD#1="}};
constexpr Key kNumberOfSurfaces{"LOD 0", "NumberOfSurfaces", nullptr};
constexpr const Key* kKeys[] = {&kTextureMap, &kColorKey,   &kNumberOfLOD,
                                &kAutoLOD[0], &kAutoLOD[1], &kNumberOfSurfaces};

// Both views of one key, gathered in one pass over the lines: the lookup's
// own scan says on which line it found the key (and its section's head), the
// rewriting's scan on which line saving would take it.
struct KeyViews {
  explicit KeyViews(const Key* k) : key(*k), lookup(iniStringScan(k->section, k->name)) {}

  const Key& key;
  ProfileKeyScan lookup;
  bool answered = false;
  int read = -1;  // the line the lookup found the key on
  int head = -1;  // the line of the key's section head
  int rewritten = -1;
  std::string value;  // as GetINIString gives it
  std::size_t length = 0;

  void line(std::string_view text, int index, bool lineEnd) {
    if (rewritten < 0 && key.keyword != nullptr && holdsKeyword(text, key.keyword)) rewritten = index;
    if (answered) return;
    bool inSection = lookup.sectionFound();
    // The lookup's line ends are CR and LF alike; the CR stands for CR LF too.
    answered = lookup.feed(text) || (lineEnd && lookup.feed("\r"));
    if (!lineEnd && !answered) lookup.finish();
    if (!inSection && lookup.sectionFound()) head = index;
    if (read < 0 && lookup.value()) read = index;
  }

  void end() {
    value = iniStringOf(lookup);
    length = lookup.valueLength();
  }
};

class Checker {
 public:
  explicit Checker(const std::string& path) : m_path(path) {}

  // One line as the reader takes it; lineEnd is false for the last one.
  void line(std::string_view text, bool lineEnd) {
    for (KeyViews& views : m_views) views.line(text, m_lines, lineEnd);
    if (text == "[LOD 0]") m_marker = true;
    ++m_lines;
  }

  // A line feed on its own ends the check: past it the reader's lines and an
  // editor's no longer agree.
  std::vector<Warning> bareLineFeed() {
    return {{m_lines + 1,
             "this line ends in LF alone, not CR LF: the window does not read the file line by "
             "line and cannot rewrite it"}};
  }

  std::vector<Warning> run() {
    for (KeyViews& views : m_views) views.end();
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
  KeyViews& views(const Key& key) {
    return *std::find_if(m_views.begin(), m_views.end(), [&](const KeyViews& v) { return &v.key == &key; });
  }
  const std::string& value(const Key& key) { return views(key).value; }

  // The line the lookup reads, if it gives a value.
  int located(const Key& key) { return value(key).empty() ? -1 : views(key).read; }

  void add(int index, std::string text) {
    m_warnings.push_back({index < 0 ? 1 : index + 1, std::move(text)});
  }

  void compareViews(const Key& key, const std::string& unseen, const std::string& when = "") {
    int read = located(key);
    int rewritten = views(key).rewritten;
    std::string name = key.name;
    if (read >= 0 && rewritten < 0) add(read, "the window reads this " + name + ", but " + unseen);
    if (rewritten >= 0 && rewritten != read) {
      std::string what =
          &key == &kColorKey ? "rewrites it, or with the ColorKey off removes it" : "rewrites it";
      add(rewritten, read >= 0 ? when + "saving " + what + " as the " + name + " line, not line " +
                                     std::to_string(read + 1) + " that the window reads"
                               : "the window does not read this line as the " + name + ", but " + when +
                                     "saving " + what);
    }
  }

  void checkLength(const Key& key) {
    const KeyViews& found = views(key);
    if (found.read >= 0 && found.length > kLongestValue)
      add(found.read, "this " + std::string(key.name) + " is " + std::to_string(found.length) +
                          " characters long: the window reads only its first " +
                          std::to_string(kLongestValue));
  }

  // The editor of a fresh window takes the ColorKey as the window would.
  void checkColorKey() {
    const std::string& text = value(kColorKey);
    if (text.empty()) return;
    HeadlessPlatform quiet;
    Program program(quiet);
    frmKorvane& frm = program.MainWindow();
    frm.Form_Load();
    ShowColorKeyValue(frm, text);
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
    if (value(kTextureMap).empty() || value(kNumberOfSurfaces).empty() || m_marker) return;
    add(views(kNumberOfSurfaces).head,
        "this line is not exactly \"[LOD 0]\": taken as a LOD 1 source the file is accepted, but none of its "
        "lines reach the output");
  }

  const std::string& m_path;
  std::vector<KeyViews> m_views{std::begin(kKeys), std::end(kKeys)};
  int m_lines = 0;
  bool m_marker = false;
  std::vector<Warning> m_warnings;
};

// Hands the file's lines to the checker as the reader splits them (CR LF or
// a CR on its own ends one), holding no more than one line at a time. False
// at a line feed on its own.
bool readLines(const std::string& path, Checker& checker) {
  File file = File::openForReading(path);
  std::unique_ptr<char[]> piece = std::make_unique_for_overwrite<char[]>(kReadPiece);
  std::string line;
  bool afterCR = false;
  for (std::size_t count; (count = file.readSome(piece.get(), kReadPiece)) > 0;) {
    std::string_view bytes(piece.get(), count);
    if (afterCR && bytes.front() == '\n') bytes.remove_prefix(1);
    afterCR = false;
    while (!bytes.empty()) {
      std::size_t end = bytes.find_first_of("\r\n");
      if (end == std::string_view::npos) {
        line.append(bytes);
        break;
      }
      if (bytes[end] == '\n') return false;
      line.append(bytes.substr(0, end));
      checker.line(line, true);
      line.clear();
      bytes.remove_prefix(end + 1);
      if (bytes.empty()) {
        afterCR = true;
      } else if (bytes.front() == '\n') {
        bytes.remove_prefix(1);
      }
    }
  }
  checker.line(line, false);
  return true;
}

}  // namespace

CheckResult checkFile(const std::string& path) {
  CheckResult result;
  std::error_code code;
  std::filesystem::file_status status = std::filesystem::status(pathFromUtf8(path), code);
  if (std::filesystem::is_directory(status)) {
    result.readable = false;
    result.error = "is a directory";
    return result;
  }
  // A FIFO or a device could block or never end: only files are read.
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    result.readable = false;
    result.error = "not a regular file";
    return result;
  }
  reportAndLeave(
      [&] {
        Checker checker(path);
        result.warnings = readLines(path, checker) ? checker.run() : checker.bareLineFeed();
      },
      [&](const RuntimeFailure& failure) {
        result.readable = false;
        result.warnings.clear();
        result.error = failure.description();
      });
  return result;
}

}  // namespace korvane::cli
