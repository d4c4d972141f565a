// Any bytes as a source: the stores take exactly the lines the reading rules
// give, and a save writes them back, each with CR LF, so that reading the
// saved file gives the same lines again.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz_support.h"
#include "mainwindow/main_window.h"
#include "objectfile/file_transfer.h"
#include "objectfile/line_store.h"
#include "rewrite/lod_merge.h"
#include "runtime/headless_platform.h"
#include "shell/program.h"

using namespace korvane;
using namespace korvane::fuzzing;

namespace {

// The reading rules, written out as plainly as they are stated: CR or CR LF
// ends a line, a lone LF is an ordinary character, a line end at the very end
// opens no further line.
std::vector<std::string> expectedLines(std::string_view bytes) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start < bytes.size()) {
    std::size_t end = bytes.find('\r', start);
    if (end == std::string_view::npos) {
      lines.emplace_back(bytes.substr(start));
      break;
    }
    lines.emplace_back(bytes.substr(start, end - start));
    start = end + 1;
    if (start < bytes.size() && bytes[start] == '\n') ++start;
  }
  return lines;
}

std::vector<std::string> fromMarker(const std::vector<std::string>& lines) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i] == "[LOD 0]") return {lines.begin() + static_cast<std::ptrdiff_t>(i), lines.end()};
  }
  return {};
}

std::string written(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const std::string& line : lines) bytes += line + "\r\n";
  return bytes;
}

std::vector<std::string> stored(const LineStore& store) {
  std::vector<std::string> lines;
  for (std::int32_t i = 0; i < store.ListCount(); ++i) lines.emplace_back(store.List(i));
  return lines;
}

void checkStore(const LineStore& store, const std::vector<std::string>& expected, const std::string& step) {
  std::vector<std::string> actual = stored(store);
  for (std::size_t i = 0; i < actual.size(); ++i) {
    FUZZ_CHECK(actual[i].find('\r') == std::string::npos,
               step + ": stored line " + std::to_string(i) + " holds a CR: " + shown(actual[i]));
  }
  FUZZ_CHECK(actual == expected, step + "\nexpected " + shown(expected) + "\nactual " + shown(actual));
}

void checkQuiet(const HeadlessPlatform& platform, const std::string& step) {
  FUZZ_CHECK(platform.messages.empty(), step + " showed " + shown(platform.messages));
}

// Inputs that begin with 0xFF are placed behind filler so that they straddle
// the boundary of the pieces the reader counts line ends in: a CR LF pair
// split there is the classic way to lose or invent a line.
std::string sourceBytes(const std::uint8_t* data, std::size_t size) {
  std::string_view raw(reinterpret_cast<const char*>(data), size);
  if (size < 2 || data[0] != 0xFF) return std::string(raw);
  std::size_t offset = data[1];
  std::string bytes((std::size_t{256} << 10) - offset, 'x');
  bytes += raw.substr(2);
  return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string source = sourceBytes(data, size);
  const std::string sourcePath = scratchFile("source.kob");
  const std::string savedPath = scratchFile("saved.kob");
  const std::string combinedPath = scratchFile("combined.kob");
  writeBytes(sourcePath, source);

  HeadlessPlatform platform;
  Program program(platform);
  frmKorvane& frm = program.MainWindow();
  LineStore& lod0 = frm.lstDataLOD0.Store();
  LineStore& lod1 = frm.lstDataLOD1.Store();

  const std::vector<std::string> lines = expectedLines(source);
  const std::vector<std::string> lod1Lines = fromMarker(lines);

  ReadFileLOD0(frm, sourcePath);
  checkQuiet(platform, "ReadFileLOD0");
  checkStore(lod0, lines, "ReadFileLOD0 of the source " + shown(source));

  ReadFileLOD1(frm, sourcePath);
  checkQuiet(platform, "ReadFileLOD1");
  checkStore(lod1, lod1Lines, "ReadFileLOD1 of the source " + shown(source));

  SaveFileLOD0(frm, savedPath);
  checkQuiet(platform, "SaveFileLOD0");
  const std::string saved = readBytes(savedPath);
  FUZZ_CHECK(saved == written(lines),
             "SaveFileLOD0 wrote " + shown(saved) + " for the lines " + shown(lines));
  checkStore(lod0, lines, "SaveFileLOD0 changed lstDataLOD0");

  SaveFileCombined(frm, combinedPath);
  checkQuiet(platform, "SaveFileCombined");
  const std::string combined = readBytes(combinedPath);
  FUZZ_CHECK(
      combined == written(lines) + written(lod1Lines),
      "SaveFileCombined wrote " + shown(combined) + " for " + shown(lines) + " and " + shown(lod1Lines));

  ReadFileLOD0(frm, savedPath);
  checkQuiet(platform, "ReadFileLOD0 of the saved file");
  checkStore(lod0, lines, "reading the saved file back");

  // Edits between runs of source lines: the input's last bytes say where a
  // line goes in and which one comes out; then every "LOD 0" is renamed.
  std::vector<std::string> model = lines;
  for (std::size_t i = 0; i + 1 < std::min<std::size_t>(size, 8); i += 2) {
    const auto count = static_cast<std::int32_t>(model.size());
    const auto at = static_cast<std::int32_t>(data[size - 1 - i] % (count + 1));
    if (data[size - 2 - i] % 2 == 0) {
      lod0.AddItem("LOD 0 in", at);
      model.insert(model.begin() + at, "LOD 0 in");
    } else if (at < count) {
      lod0.RemoveItem(at);
      model.erase(model.begin() + at);
    }
  }
  std::swap(lod0, lod1);
  UpdateLOD1(frm);
  std::swap(lod0, lod1);
  for (std::string& line : model) {
    if (line.size() >= 32767 && line.find("LOD 0", 32762) != std::string::npos) continue;
    for (std::size_t at; (at = line.find("LOD 0")) != std::string::npos;) line[at + 4] = '1';
  }
  platform.messages.clear();
  checkStore(lod0, model, "edits and the renaming of " + shown(source));
  SaveFileLOD0(frm, savedPath);
  FUZZ_CHECK(readBytes(savedPath) == written(model), "saving the edited lines of " + shown(source));

  FUZZ_CHECK(readBytes(sourcePath) == source, "the source changed on disk");
  return 0;
}
