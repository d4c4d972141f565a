// The author's whole job on any bytes, through the window's own handlers:
// validate and load a LOD 0 source, maybe tick in a LOD 1 source, Save As.
// Either a source is refused, or every source line that holds none of the
// rewritten keywords reaches the output unchanged and in order, and the LOD 1
// lines from the first "[LOD 0]" on follow with every "LOD 0" renamed "LOD 1".
// The units each have their own target; this one watches the seams between
// validator, reader, rewriter and writer.
//
// Input: a flags byte, a byte that places a file-size limit, then the LOD 0
// bytes, optionally followed by kSplit and the LOD 1 bytes (without it the
// LOD 0 bytes serve as the LOD 1 source too).
//   flag 1: tick chkAddLOD1 (when the source has one LOD)
//   flag 2: switch chkAddColorKey over before saving
//   flag 4: the save meets the file-size limit, so the write fails half way:
//           the target must keep its old bytes, the writer's failure must be
//           reported, and the stores must still save whole.

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "fuzz_support.h"
#include "mainwindow/save_as.h"
#include "mainwindow/source_loading.h"
#include "mainwindow/window_procedures.h"

using namespace korvane;
using namespace korvane::fuzzing;

namespace {

constexpr std::string_view kSplit{"\0SPLIT\0", 7};
// What the target holds before the save: a save that fails leaves it so.
constexpr std::string_view kOldTarget = "old target\r\n";
constexpr const char* kRewritten[] = {
    "TEXTUREMAP=", "COLORKEY=", "NUMBEROFLOD=", "AUTOLOD#0=", "AUTOLOD#1=", "USEAUTOLOD="};

Lines untouched(const Lines& lines) {
  Lines kept;
  for (const std::string& line : lines) {
    if (std::none_of(std::begin(kRewritten), std::end(kRewritten),
                     [&](const char* keyword) { return upperHolds(line, keyword); }))
      kept.push_back(line);
  }
  return kept;
}

// lod0Source and lod1Source are the lines as an author's editor shows them.
void checkOutput(const std::string& output, const Lines& lod0Source, const std::optional<Lines>& lod1Source) {
  Lines lines = sourceLines(output);
  FUZZ_CHECK(crlf(lines) == output, "not every output line ends in CR LF: " + shown(output));
  if (lod1Source) {
    Lines tail;
    for (auto it = std::find(lod1Source->begin(), lod1Source->end(), "[LOD 0]"); it != lod1Source->end();
         ++it)
      tail.push_back(renamedLOD0(*it));
    FUZZ_CHECK(lines.size() >= tail.size() && std::equal(tail.begin(), tail.end(), lines.end() - tail.size()),
               "the LOD 1 lines " + shown(crlf(tail)) + " do not end the output " + shown(output));
    lines.resize(lines.size() - tail.size());
  }
  FUZZ_CHECK(untouched(lines) == untouched(lod0Source),
             "LOD 0 lines lost or changed: source " + shown(crlf(lod0Source)) + "\noutput " + shown(output));
}

// Past the limit a write fails with EFBIG. SIGXFSZ, which libFuzzer would
// take for a finding, is ignored meanwhile.
void limitFileSize(rlim_t limit) {
  static void (*const previous)(int) = std::signal(SIGXFSZ, SIG_IGN);
  rlimit current{};
  ::getrlimit(RLIMIT_FSIZE, &current);
  current.rlim_cur = std::min(limit, current.rlim_max);
  ::setrlimit(RLIMIT_FSIZE, &current);
  std::signal(SIGXFSZ, limit == RLIM_INFINITY ? previous : SIG_IGN);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // Longer lines would meet Substitute's 16-bit positions, where a rename is
  // given up on purpose.
  if (size < 2 || size > 30000) return 0;
  const unsigned flags = data[0];
  const std::string_view rest(reinterpret_cast<const char*>(data) + 2, size - 2);
  const std::size_t split = rest.find(kSplit);
  const std::string_view lod0Bytes = rest.substr(0, split);
  const std::string_view lod1Bytes = split == rest.npos ? lod0Bytes : rest.substr(split + kSplit.size());

  const std::string lod0Path = scratchFile("lod0.kob");
  const std::string lod1Path = scratchFile("lod1.kob");
  const std::string outPath = scratchFile("out.kob");
  writeBytes(lod0Path, lod0Bytes);
  writeBytes(lod1Path, lod1Bytes);
  writeBytes(outPath, kOldTarget);

  Session session;
  HeadlessPlatform& platform = session.platform;
  frmKorvane& frm = session.frm;
  session.program.Main();

  platform.dialogAnswers = {lod0Path};
  btnBrowseLOD0_Click(frm);
  if (frm.txtFilePathLOD0.Text() != lod0Path) {
    FUZZ_CHECK(frm.lstDataLOD0.Store().ListCount() == 0, "a refused LOD 0 source was loaded");
    return 0;
  }
  if ((flags & 1) && frm.chkAddLOD1.Value() == 0) {
    platform.dialogAnswers = {lod1Path};
    frm.chkAddLOD1.SetValue(1);
  }
  const bool withLOD1 = frm.chkAddLOD1.Value() == 1;
  if (flags & 2) frm.chkAddColorKey.SetValue(frm.chkAddColorKey.Value() == 0 ? 1 : 0);

  // A generous limit sometimes lets the whole file through; that must work too.
  const rlim_t limit = static_cast<rlim_t>(data[1]) * (lod0Bytes.size() + lod1Bytes.size() + 200) / 128;
  platform.messages.clear();
  platform.dialogAnswers = {outPath};
  // The limit is lifted again before any check can report.
  if (flags & 4) limitFileSize(limit);
  btnSaveAs_Click(frm);
  limitFileSize(RLIM_INFINITY);
  const Lines saveMessages = platform.messages;

  if (!platform.dialogAnswers.empty()) {
    // Save As refused incomplete input before its dialog.
    FUZZ_CHECK(platform.messages.size() == 1, "Save As refused with " + shown(crlf(platform.messages)));
    return 0;
  }
  // Without a limit the file is the full output; with one that cuts it, the
  // old target, and the stores, untouched by the failure, still save it whole.
  const std::string output = readBytes(outPath);
  std::string full = output;
  if (flags & 4) {
    const char* saver = frm.chkAddLOD1.Value() > 0 ? "SaveFileCombined" : "SaveFileLOD0";
    platform.messages.clear();
    if (frm.chkAddLOD1.Value() > 0) {
      SaveFileCombined(frm, scratchFile("full.kob"));
    } else {
      SaveFileLOD0(frm, scratchFile("full.kob"));
    }
    FUZZ_CHECK(platform.messages.empty(), "saving again failed: " + shown(crlf(platform.messages)));
    full = readBytes(scratchFile("full.kob"));
    FUZZ_CHECK(output == (limit < full.size() ? std::string(kOldTarget) : full),
               "a save cut at " + std::to_string(limit) + " left " + shown(output));
    const std::string failure = std::string("Unexpected error in ") + saver + ": Disk full ( 61)";
    FUZZ_CHECK((limit < full.size()) == (!saveMessages.empty() && saveMessages.back() == failure),
               "a save cut at " + std::to_string(limit) + " of " + std::to_string(full.size()) +
                   " bytes showed " + shown(crlf(saveMessages)));
  }
  checkOutput(full, sourceLines(lod0Bytes, true),
              withLOD1 ? std::optional(sourceLines(lod1Bytes, true)) : std::nullopt);
  return 0;
}
