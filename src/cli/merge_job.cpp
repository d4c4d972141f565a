#include "cli/merge_job.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <vector>

#include "advanced/autolod.h"
#include "cli/cli_platform.h"
#include "cli/cli_system.h"
#include "mainwindow/save_as.h"
#include "mainwindow/source_loading.h"
#include "objectfile/file.h"
#include "runtime/failure.h"
#include "runtime/utf8_path.h"
#include "shell/program.h"

namespace korvane::cli {

namespace {

constexpr std::size_t kAutoLODTyping = 6;  // the AutoLOD fields stop typing at six characters

// "-o -": the writer wants a regular file, so the output goes to a temporary
// one first and is copied out. The copy is removed on every way out: the end
// of the job, a reader that went away (SIGPIPE is ignored, so the copy fails
// and says so), and the signals that end a run from a terminal or a script.
class StdoutTarget {
 public:
  StdoutTarget() {
    std::string name;
    try {
      File::createTemporary(name).close();
    } catch (const RuntimeFailure&) {
      return;
    }
    path = name;
    if (name.size() >= sizeof s_path) return;
    name.copy(s_path, name.size());
    s_path[name.size()] = '\0';
    for (int signal : endingSignals()) std::signal(signal, removeAndEnd);
  }
  ~StdoutTarget() {
    for (int signal : endingSignals()) std::signal(signal, SIG_DFL);
    try {
      if (!path.empty()) File::remove(path);
    } catch (const RuntimeFailure&) {
      // A temporary file left behind harms no one.
    }
    s_path[0] = '\0';
  }
  StdoutTarget(const StdoutTarget&) = delete;
  StdoutTarget& operator=(const StdoutTarget&) = delete;

  // The reason when the copy fails.
  std::string copyOut() const {
    std::ifstream in(pathFromUtf8(path), std::ios::binary);
    std::vector<char> buffer(std::size_t{1} << 20);
    while (in.read(buffer.data(), static_cast<std::streamsize>(buffer.size())) || in.gcount() > 0) {
      const auto count = static_cast<std::size_t>(in.gcount());
      if (std::fwrite(buffer.data(), 1, count, stdout) != count) return std::strerror(errno);
    }
    if (!in.eof()) return "the temporary copy cannot be read";
    return std::fflush(stdout) == 0 ? std::string() : std::strerror(errno);
  }

  std::string path;

 private:
  static inline char s_path[4096] = {};

  static void removeAndEnd(int signal) {
    if (s_path[0] != '\0') removeFromSignalHandler(s_path);
    removeUnfinishedReplacement();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
  }
};

std::string refusal(const std::string& path, const char* role) {
  const std::string why = unreadable(path);
  return path + ": " +
         (why.empty() ? std::string("refused as the ") + role + " source" : "cannot be read: " + why);
}

}  // namespace

Parsed parseColorKey(const std::string& text, std::array<std::string, 3>& rgb) {
  std::vector<std::string> parts = splitAt(text, ',');
  Parsed result;
  result.error =
      "ColorKey \"" + text + "\": red, green and blue must each be a whole number from 0 to 255, as R,G,B";
  if (parts.size() != 3) return result;
  for (int channel = 0; channel < 3; ++channel) {
    const std::string& part = parts[channel];
    if (part.empty() || part.size() > 3 || part.find_first_not_of("0123456789") != std::string::npos)
      return result;
    if (std::stoi(part) > 255) return result;
    rgb[channel] = part;
  }
  result.ok = true;
  return result;
}

Parsed parseTexture(const std::string& text) {
  Parsed result;
  if (text.find_first_of(std::string("\r\n\0", 3)) != std::string::npos) {
    result.error = "the texture map name must not hold a line end (CR or LF) or a NUL";
    return result;
  }
  result.ok = true;
  return result;
}

bool isStandardOutput(const std::string& path) {
  return path == "-" || path == "/dev/stdout" || path == "/dev/fd/1" || path == "/proc/self/fd/1";
}

Parsed parseAutoLOD(const std::string& text, std::array<std::optional<std::string>, 2>& values) {
  std::vector<std::string> parts = splitAt(text, ',');
  Parsed result;
  if (parts.size() != 2) {
    result.error = "AutoLOD \"" + text + "\": give the two transition points as A0,A1";
    return result;
  }
  for (int i = 0; i < 2; ++i) {
    if (parts[i].size() > kAutoLODTyping) {
      result.error = "AutoLOD \"" + parts[i] + "\": the field takes at most six characters";
      return result;
    }
    values[i] = parts[i].empty() ? std::nullopt : std::optional(parts[i]);
  }
  result.ok = true;
  return result;
}

MergeOutcome runMerge(CliPlatform& platform, const MergeJob& job) {
  Program program(platform);
  program.Main();
  frmKorvane& frm = program.MainWindow();
  MergeOutcome outcome;

  const LoadOutcome lod0 = OpenSourceLOD0(frm, job.lod0);
  // A refused source has had its say in a message box and left the window as it was.
  if (lod0.result != LoadOutcome::Result::Loaded) {
    outcome.error = lod0.result == LoadOutcome::Result::ReadFailed
                        ? job.lod0 + ": reading the LOD 0 source failed: nothing written"
                        : refusal(job.lod0, "LOD 0");
    return outcome;
  }

  if (!job.lod1.empty()) {
    if (!frm.chkAddLOD1.Enabled()) {
      outcome.error = job.lod0 + " already holds two LODs: no LOD 1 source can be added";
      return outcome;
    }
    const LoadOutcome lod1 = TickAddLOD1(frm, job.lod1);
    if (lod1.result != LoadOutcome::Result::Loaded) {
      outcome.error = lod1.result == LoadOutcome::Result::ReadFailed
                          ? job.lod1 + ": reading the LOD 1 source failed: nothing written"
                          : refusal(job.lod1, "LOD 1");
      return outcome;
    }
  }

  if (job.texture) frm.txtTextureMap.SetText(*job.texture);
  if (job.colorKey != MergeJob::ColorKey::AsSource) {
    int wanted = job.colorKey == MergeJob::ColorKey::On ? 1 : 0;
    if (frm.chkAddColorKey.Value() != wanted) frm.chkAddColorKey.AuthorClick();
    if (wanted) {
      for (int channel = 0; channel < 3; ++channel) frm.colorKeyField(channel).SetText(job.rgb[channel]);
    }
  }
  if (job.autoLOD[0] || job.autoLOD[1]) {
    if (!frm.btnAdvancedSettings.Enabled()) {
      outcome.error = "AutoLOD values need a LOD 1 source or a LOD 0 source with two LODs";
      return outcome;
    }
    frmAdvancedSettings& settings = program.AdvancedSettings();
    MaskedEdit* fields[] = {&settings.mskAutoLOD0, &settings.mskAutoLOD1};
    for (int i = 0; i < 2; ++i) {
      if (!job.autoLOD[i]) continue;
      // Typed, then left: leaving the field puts the value into its normal form.
      fields[i]->SetText(*job.autoLOD[i]);
      fields[i]->LostFocus();
    }
  }

  std::optional<StdoutTarget> toStdout;
  std::string target = job.output;
  if (isStandardOutput(target)) {
    toStdout.emplace();
    if (toStdout->path.empty()) {
      outcome.error = "no temporary file for the output: " + std::string(std::strerror(errno));
      return outcome;
    }
    target = toStdout->path;
  }
  const SaveOutcome saved = SaveAs(frm, target);
  // Incomplete input is refused before the target is asked for.
  if (saved.result == SaveOutcome::Result::Incomplete) {
    outcome.error = job.output + ": not written: the job is incomplete";
    return outcome;
  }
  if (saved.result != SaveOutcome::Result::Saved) {
    outcome.error = job.output + ": not written";
    return outcome;
  }
  if (toStdout) {
    if (std::string why = toStdout->copyOut(); !why.empty()) {
      outcome.error = "cannot write to standard output: " + why;
      return outcome;
    }
  }
  outcome.merged = true;
  return outcome;
}

std::vector<std::string> splitAt(const std::string& text, char separator) {
  std::vector<std::string> parts(1);
  for (char c : text) {
    if (c == separator) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

}  // namespace korvane::cli
