// Any bytes as a source: the stores take exactly the lines the reading rules
// give, and a save writes them back, each with CR LF, so that reading the
// saved file gives the same lines again; edits and the renaming of "LOD 0"
// on a loaded store change exactly the lines they should.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz_support.h"
#include "mainwindow/window_procedures.h"
#include "objectfile/source_snapshot.h"
#include "rewrite/lod_merge.h"

using namespace korvane;
using namespace korvane::fuzzing;

namespace {

void checkStore(const LineStore& store, const Lines& expected, const std::string& step) {
  const Lines actual = storedLines(store);
  FUZZ_CHECK(actual == expected,
             step + "\nexpected " + shown(crlf(expected)) + "\nactual " + shown(crlf(actual)));
}

// Inputs that begin with 0xFF are placed behind filler so that they straddle
// the boundary of the pieces the reader counts line ends in: a CR LF pair
// split there is the classic way to lose or invent a line.
std::string sourceBytes(std::string_view raw) {
  if (raw.size() < 2 || raw[0] != '\xFF') return std::string(raw);
  return std::string((std::size_t{256} << 10) - static_cast<unsigned char>(raw[1]), 'x') +
         std::string(raw.substr(2));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string source = sourceBytes({reinterpret_cast<const char*>(data), size});
  const std::string sourcePath = scratchFile("source.kob");
  const std::string savedPath = scratchFile("saved.kob");
  writeBytes(sourcePath, source);
  Session session;
  frmKorvane& frm = session.frm;
  LineStore& lod0 = frm.lstDataLOD0.Store();
  LineStore& lod1 = frm.lstDataLOD1.Store();
  const Lines lines = sourceLines(source);
  const auto marker = std::find(lines.begin(), lines.end(), "[LOD 0]");
  const Lines lod1Lines(marker, lines.end());

  ReadFileLOD0(frm, SourceSnapshot(sourcePath));
  checkStore(lod0, lines, "ReadFileLOD0 of " + shown(source));
  ReadFileLOD1(frm, SourceSnapshot(sourcePath));
  checkStore(lod1, lod1Lines, "ReadFileLOD1 of " + shown(source));
  SaveFileLOD0(frm, savedPath);
  FUZZ_CHECK(readBytes(savedPath) == crlf(lines), "SaveFileLOD0 of the lines of " + shown(source));
  checkStore(lod0, lines, "SaveFileLOD0 changed lstDataLOD0");
  SaveFileCombined(frm, scratchFile("combined.kob"));
  FUZZ_CHECK(readBytes(scratchFile("combined.kob")) == crlf(lines) + crlf(lod1Lines),
             "SaveFileCombined of the lines of " + shown(source));
  ReadFileLOD0(frm, SourceSnapshot(savedPath));
  checkStore(lod0, lines, "reading the saved file back");
  FUZZ_CHECK(session.platform.messages.empty(),
             "a transfer showed " + shown(crlf(session.platform.messages)));

  // Edits between runs of source lines: the input's last bytes say where a
  // line goes in and which one comes out; then every "LOD 0" is renamed.
  Lines model = lines;
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
    // A "LOD 0" beyond Substitute's 16-bit positions leaves its line as it was.
    if (line.size() < 32767 || line.find("LOD 0", 32762) == std::string::npos) line = renamedLOD0(line);
  }
  checkStore(lod0, model, "edits and the renaming of " + shown(source));
  SaveFileLOD0(frm, savedPath);
  FUZZ_CHECK(readBytes(savedPath) == crlf(model), "saving the edited lines of " + shown(source));
  FUZZ_CHECK(readBytes(sourcePath) == source, "the source changed on disk");
  return 0;
}
