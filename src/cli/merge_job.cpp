#include "cli/merge_job.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <vector>

#include "advanced/autolod.h"
#include "cli/cli_platform.h"
#include "shell/program.h"

namespace korvane::cli {

namespace {

constexpr std::size_t kAutoLODTyping = 6;  // the AutoLOD fields stop typing at six characters

// A temporary file for "-o -": the writer wants a regular file.
struct StdoutTarget {
  std::string path;
  StdoutTarget() {
    const char* dir = std::getenv("TMPDIR");
    std::string name = std::string(dir && *dir ? dir : "/tmp") + "/korvane-cli.XXXXXX";
    int fd = mkstemp(name.data());
    if (fd >= 0) {
      close(fd);
      path = name;
    }
  }
  ~StdoutTarget() {
    if (!path.empty()) std::remove(path.c_str());
  }
  bool copyOut() const {
    std::ifstream in(path, std::ios::binary);
    char buffer[65536];
    while (in.read(buffer, sizeof buffer) || in.gcount() > 0) {
      if (std::fwrite(buffer, 1, in.gcount(), stdout) != static_cast<std::size_t>(in.gcount())) return false;
    }
    return std::fflush(stdout) == 0;
  }
};

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
    int number = std::stoi(part);
    if (number > 255) return result;
    rgb[channel] = std::to_string(number);
  }
  result.ok = true;
  return result;
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

  platform.dialogAnswers.clear();
  platform.answer(job.lod0);
  frm.btnBrowseLOD0.Click();
  // A refused source has had its say in a message box and left the window empty.
  if (frm.txtFilePathLOD0.Text().empty()) return outcome;

  if (!job.lod1.empty()) {
    if (!frm.chkAddLOD1.Enabled()) {
      outcome.error = job.lod0 + " already holds two LODs: no LOD 1 source can be added";
      return outcome;
    }
    platform.answer(job.lod1);
    frm.chkAddLOD1.AuthorClick();
    if (frm.chkAddLOD1.Value() != 1) return outcome;
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
  if (target == "-") {
    toStdout.emplace();
    if (toStdout->path.empty()) {
      outcome.error = "no temporary file for the output";
      return outcome;
    }
    target = toStdout->path;
  }
  std::size_t before = platform.messages.size();
  platform.answer(target);
  frm.btnSaveAs.Click();
  // Incomplete input is refused before the dialog asks for the target.
  if (!platform.dialogAnswers.empty()) return outcome;
  for (std::size_t i = before; i < platform.messages.size(); ++i) {
    if (platform.messages[i].rfind("Unexpected error in SaveFile", 0) == 0) return outcome;
  }
  if (toStdout && !toStdout->copyOut()) {
    outcome.error = "cannot write to standard output";
    return outcome;
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
