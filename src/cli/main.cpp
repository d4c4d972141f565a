// korvane-cli: the author's job from a terminal or a build script, on the
// same procedures and handlers as the window.

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "cli/batch.h"
#include "cli/check.h"
#include "cli/cli_platform.h"
#include "cli/entry.h"
#include "cli/merge_job.h"

using namespace korvane::cli;

namespace {

constexpr const char* kUsage =
    "Usage: korvane-cli merge LOD0 [--lod1 FILE] -o OUT [--texture NAME]\n"
    "                         [--colorkey R,G,B | --no-colorkey] [--autolod A0,A1]\n"
    "       korvane-cli check FILE...\n"
    "       korvane-cli batch JOBS.tsv\n"
    "       korvane-cli --help | --version\n";

constexpr const char* kMergeHelp =
    "Usage: korvane-cli merge LOD0 [--lod1 FILE] -o OUT [options]\n"
    "Opens LOD0 as the window does, adds the LOD 1 source, applies the edits and\n"
    "saves: the output is byte for byte what the window writes.\n"
    "  --lod1 FILE        the LOD 1 source\n"
    "  -o, --output OUT   the file to write; - or /dev/stdout for standard output\n"
    "  --texture NAME     the texture map name (default: as the source says)\n"
    "  --colorkey R,G,B   the ColorKey on, each channel 0 to 255, written as given\n"
    "  --no-colorkey      the ColorKey off\n"
    "  --autolod A0,A1    the AutoLOD transition points; leave one empty to keep it\n"
    "Exit status: 0 written, 1 not written, 2 usage error.\n";

constexpr const char* kCheckHelp =
    "Usage: korvane-cli check FILE...\n"
    "Reports each place where the window would read one thing and rewrite\n"
    "another, as FILE:LINE: warning: TEXT.\n"
    "Exit status: 0 clean, 1 warnings, 2 a file cannot be read.\n";

constexpr const char* kBatchHelp =
    "Usage: korvane-cli batch JOBS.tsv\n"
    "One merge per row; tab-separated columns: LOD 0, LOD 1, output, texture,\n"
    "ColorKey (R,G,B or off), AutoLOD (A0,A1). An empty cell keeps what the\n"
    "source says; relative paths are taken from the folder of JOBS.tsv (from the\n"
    "current directory for /dev/stdin); rows beginning with # are skipped. Goes on\n"
    "past a failing row. JOBS.tsv must be a regular file.\n"
    "Exit status: 0 all merged, 1 any failed, 2 usage error or unreadable JOBS.tsv.\n";

int usageError(const std::string& command, const std::string& what) {
  std::fprintf(stderr, "korvane-cli: %s%s\n", command.empty() ? "" : (command + ": ").c_str(), what.c_str());
  std::fprintf(stderr, "Try 'korvane-cli %s--help'.\n", command.empty() ? "" : (command + " ").c_str());
  return 2;
}

bool wantsHelp(const std::vector<std::string>& args) {
  for (const std::string& arg : args) {
    if (arg == "--") return false;
    if (arg == "--help" || arg == "-h") return true;
  }
  return false;
}

int merge(const std::vector<std::string>& args) {
  MergeJob job;
  std::vector<std::string> sources;
  bool colorKeyGiven = false;
  bool outputGiven = false;
  bool optionsEnded = false;
  for (std::size_t i = 0; i < args.size(); ++i) {
    std::string arg = args[i];
    if (optionsEnded || arg == "-" || arg.empty() || arg[0] != '-') {
      sources.push_back(arg);
      continue;
    }
    if (arg == "--") {
      optionsEnded = true;
      continue;
    }
    std::string value;
    bool inlineValue = false;
    if (std::size_t equals = arg.find('='); arg.rfind("--", 0) == 0 && equals != std::string::npos) {
      value = arg.substr(equals + 1);
      arg = arg.substr(0, equals);
      inlineValue = true;
    }
    auto takeValue = [&]() -> bool {
      if (inlineValue) return true;
      if (i + 1 >= args.size()) return false;
      value = args[++i];
      return true;
    };
    if (arg == "--no-colorkey" && !inlineValue) {
      if (colorKeyGiven) return usageError("merge", "--colorkey and --no-colorkey exclude each other");
      colorKeyGiven = true;
      job.colorKey = MergeJob::ColorKey::Off;
      continue;
    }
    if (arg != "--lod1" && arg != "-o" && arg != "--output" && arg != "--texture" && arg != "--colorkey" &&
        arg != "--autolod")
      return usageError("merge", "unknown option " + arg);
    if (!takeValue()) return usageError("merge", arg + " needs a value");
    if (value.empty() && (arg == "--lod1" || arg == "-o" || arg == "--output"))
      return usageError("merge", arg + " needs a file name, not an empty one");
    if (arg == "--lod1") {
      job.lod1 = value;
    } else if (arg == "-o" || arg == "--output") {
      job.output = value;
      outputGiven = true;
    } else if (arg == "--texture") {
      Parsed parsed = parseTexture(value);
      if (!parsed.ok) return usageError("merge", parsed.error);
      job.texture = value;
    } else if (arg == "--colorkey") {
      if (colorKeyGiven) return usageError("merge", "--colorkey and --no-colorkey exclude each other");
      colorKeyGiven = true;
      Parsed parsed = parseColorKey(value, job.rgb);
      if (!parsed.ok) return usageError("merge", parsed.error);
      job.colorKey = MergeJob::ColorKey::On;
    } else if (arg == "--autolod") {
      Parsed parsed = parseAutoLOD(value, job.autoLOD);
      if (!parsed.ok) return usageError("merge", parsed.error);
    }
  }
  if (sources.size() != 1)
    return usageError("merge", sources.empty() ? "no LOD 0 source" : "one LOD 0 source only");
  if (!outputGiven) return usageError("merge", "no output: give -o OUT");
  if (job.lod1 == "-" || sources[0] == "-")
    return usageError("merge", "sources are files, not standard input");
  if (sources[0].empty()) return usageError("merge", "the LOD 0 source needs a file name, not an empty one");
  job.lod0 = sources[0];

  CliPlatform platform;
  MergeOutcome outcome = runMerge(platform, job);
  if (!outcome.error.empty()) std::fprintf(stderr, "korvane-cli: %s\n", outcome.error.c_str());
  return outcome.merged ? 0 : 1;
}

int check(const std::vector<std::string>& args) {
  std::vector<std::string> files;
  bool optionsEnded = false;
  for (const std::string& arg : args) {
    if (!optionsEnded && arg == "--") {
      optionsEnded = true;
    } else if (!optionsEnded && arg.size() > 1 && arg[0] == '-') {
      return usageError("check", "unknown option " + arg);
    } else {
      files.push_back(arg);
    }
  }
  if (files.empty()) return usageError("check", "no file to check");
  int status = 0;
  for (const std::string& file : files) {
    CheckResult result = checkFile(file);
    if (!result.readable) {
      std::fprintf(stderr, "korvane-cli: %s: cannot read: %s\n", file.c_str(), result.error.c_str());
      status = 2;
      continue;
    }
    for (const Warning& warning : result.warnings)
      std::printf("%s:%d: warning: %s\n", file.c_str(), warning.line, warning.text.c_str());
    if (!result.warnings.empty() && status == 0) status = 1;
  }
  return status;
}

int batch(const std::vector<std::string>& args) {
  if (args.size() != 1) return usageError("batch", args.empty() ? "no jobs file" : "one jobs file only");
  if (args[0].size() > 1 && args[0][0] == '-') return usageError("batch", "unknown option " + args[0]);
  return runBatch(args[0]);
}

}  // namespace

int korvane::cli::runCli(std::vector<std::string> args) {
  if (args.empty()) return usageError("", std::string("no command\n") + kUsage);
  std::string command = args.front();
  args.erase(args.begin());
  if (command == "--help" || command == "-h") return std::fputs(kUsage, stdout), 0;
  if (command == "--version") return std::printf("korvane-cli %s\n", KORVANE_VERSION), 0;
  struct Command {
    const char* name;
    const char* help;
    int (*run)(const std::vector<std::string>&);
  };
  for (const Command& c : {Command{"merge", kMergeHelp, merge}, Command{"check", kCheckHelp, check},
                           Command{"batch", kBatchHelp, batch}}) {
    if (command != c.name) continue;
    if (wantsHelp(args)) return std::fputs(c.help, stdout), 0;
    return c.run(args);
  }
  return usageError("", "unknown command " + command);
}
