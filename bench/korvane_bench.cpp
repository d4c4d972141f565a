// korvane_bench [--runs R] [--dir D] [N...]
//
// For each N it generates a LOD 0 and a LOD 1 source of N geometry lines (each
// row of the LOD 1 source holds one "LOD 0": the renaming, and sed, work on
// nearly every line) and, run by run on the same files, times the author's
// whole job (each run in a fresh process, so that its peak resident memory is
// its own), `cp` of the two sources and `sed 's/LOD 0/LOD 1/g'` over the LOD 1
// source. The page cache is left alone: the sources are warm for the job and
// for cp and sed alike.
// Medians of the runs go into the tables, followed by the targets.
//
// Internal modes, used when the benchmark starts itself again:
//   --job steps|clicks LOD0 LOD1 OUT   one job; prints its times
//   --startup                          Program::Main with nothing loaded

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "bench_job.h"
#include "kob_generator.h"
#include "process_tools.h"
#include "qt_startup.h"

namespace fs = std::filesystem;
using namespace korvane::bench;

namespace {

constexpr double kMB = 1e6;

// The real program, driven offscreen by its scenario driver, and the floor.
std::string g_scenario;
std::string g_floor;

double median(std::vector<double> values) {
  if (values.empty()) return 0;
  std::sort(values.begin(), values.end());
  std::size_t middle = values.size() / 2;
  return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

// ---- the child modes ---------------------------------------------------------

int runOneJob(const std::string& mode, const JobFiles& files) {
  JobOutcome outcome = mode == "clicks" ? runJobByClicks(files) : runJobInSteps(files);
  for (const std::string& message : outcome.messages)
    std::cerr << "message during the job: " << message << "\n";
  std::cout << "JOB " << outcome.seconds;
  for (double seconds : outcome.steps.seconds) std::cout << ' ' << seconds;
  std::cout << ' ' << peakResidentBytes() << ' ' << outcome.messages.size() << ' ' << outcome.autoLOD0 << ' '
            << outcome.autoLOD1 << '\n';
  return 0;
}

int runStartUp() {
  // The first start in a fresh process is what the author meets; the median
  // of further starts shows what is left once everything is paged in.
  double first = timeStartUp();
  std::vector<double> later;
  for (int i = 0; i < 200; ++i) later.push_back(timeStartUp());
  std::cout << "STARTUP " << first << ' ' << median(later) << '\n';
  return 0;
}

// ---- files of one N, removed on the way out, also on Ctrl-C --------------------

// Plain C strings, so that the signal handler can unlink them.
constexpr int kMaxCleanup = 24;
char g_cleanup[kMaxCleanup][4096];
int g_cleanupCount = 0;

void removeAll() {
  for (int i = g_cleanupCount - 1; i >= 0; --i) {
    unlink(g_cleanup[i]);
    rmdir(g_cleanup[i]);
  }
}

extern "C" void onSignal(int signal) {
  // The job or command still running could write into the directory after it was emptied.
  stopRunningCommand();
  removeAll();
  _exit(128 + signal);
}

std::string cleanedUp(const std::string& path) {
  if (g_cleanupCount < kMaxCleanup && path.size() < sizeof g_cleanup[0]) {
    std::strcpy(g_cleanup[g_cleanupCount], path.c_str());
    ++g_cleanupCount;
  }
  return path;
}

void removeFile(const std::string& path) {
  std::error_code ignored;
  fs::remove(path, ignored);
}

// Makes the generated sources clean in the page cache without dropping them,
// so that their write-back does not land in the middle of a timed run.
void settle(const std::string& path) {
  int fd = open(path.c_str(), O_RDONLY);
  if (fd < 0) return;
  fdatasync(fd);
  close(fd);
}

bool sameBytes(const std::string& a, const std::string& b) {
  std::ifstream left(a, std::ios::binary);
  std::ifstream right(b, std::ios::binary);
  if (!left || !right) return false;
  std::vector<char> x(1 << 20), y(1 << 20);
  for (;;) {
    left.read(x.data(), static_cast<std::streamsize>(x.size()));
    right.read(y.data(), static_cast<std::streamsize>(y.size()));
    if (left.gcount() != right.gcount()) return false;
    if (std::memcmp(x.data(), y.data(), static_cast<std::size_t>(left.gcount())) != 0) return false;
    if (left.gcount() == 0) return true;
  }
}

// ---- one N -------------------------------------------------------------------

struct JobRun {
  double seconds = 0;
  StepTimes steps;
  std::uint64_t peakBytes = 0;
  int messages = 0;
  std::string autoLOD0, autoLOD1;
};

struct Row {
  long long lines = 0;
  std::uint64_t inputBytes = 0;
  std::vector<double> stepMedians;
  double total = 0;
  double clicks = 0;
  double cp = 0;
  double sed = 0;
  double real = 0;   // the whole job through the real program, offscreen
  double floor = 0;  // the floor program
  std::uint64_t peakBytes = 0;
  std::uint64_t realPeakBytes = 0;
  std::uint64_t floorPeakBytes = 0;
  bool outputChecked = false;
  bool quiet = true;  // no message box in any job
};

JobRun runJobProcess(const std::string& mode, const JobFiles& files) {
  std::istringstream in(
      captureCommand({selfExecutable(), "--job", mode, files.lod0, files.lod1, files.output}));
  std::string tag;
  JobRun run;
  in >> tag >> run.seconds;
  for (double& seconds : run.steps.seconds) in >> seconds;
  in >> run.peakBytes >> run.messages >> run.autoLOD0 >> run.autoLOD1;
  if (tag != "JOB" || !in) throw std::runtime_error("the job process gave no result");
  return run;
}

// A new directory below baseDir, removed again at the end or on Ctrl-C.
std::string scratchDirectory(const std::string& baseDir, const std::string& prefix) {
  std::string pattern = baseDir + "/" + prefix + ".XXXXXX";
  std::vector<char> name(pattern.begin(), pattern.end());
  name.push_back('\0');
  if (!mkdtemp(name.data())) throw std::runtime_error("cannot make a directory in " + baseDir);
  return cleanedUp(name.data());
}

Row measure(long long lines, int runs, const std::string& baseDir) {
  Row row;
  std::string dir = scratchDirectory(baseDir, "korvane-bench");
  std::string copies = cleanedUp(dir + "/copies");
  fs::create_directory(copies);
  JobFiles files{cleanedUp(dir + "/lod0.kob"), cleanedUp(dir + "/lod1.kob"),
                 cleanedUp(dir + "/out-steps.kob")};
  std::string clicksOutput = cleanedUp(dir + "/out-clicks.kob");
  std::string realOutput = cleanedUp(dir + "/out-real.kob");
  std::string floorOutput = cleanedUp(dir + "/out-floor.kob");
  std::string script = cleanedUp(dir + "/job.scn");
  std::string store = cleanedUp(dir + "/store.ini");
  std::string transcript = cleanedUp(dir + "/transcript.txt");
  std::string idleScript = cleanedUp(dir + "/idle.scn");
  // Starting and ending the windows is timed alone and taken off: the job is
  // what the author waits for once the window is up.
  std::ofstream(idleScript) << "start\nclick btnExit\n";
  std::ofstream(script) << "start\nanswer " << files.lod0 << "\nclick btnBrowseLOD0\nanswer " << files.lod1
                        << "\nclick chkAddLOD1\nanswer " << realOutput
                        << "\nclick btnSaveAs\nclick btnExit\n";
  auto runReal = [&] {
    double idle = timeCommand({g_scenario, "--store", store, idleScript}, transcript);
    double seconds = timeCommand({g_scenario, "--store", store, script}, transcript) - idle;
    std::ifstream in(transcript);
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (text.find("MSGBOX") != std::string::npos) row.quiet = false;
    return seconds;
  };
  std::string sedOutput = cleanedUp(dir + "/sed.kob");
  cleanedUp(copies + "/lod0.kob");
  cleanedUp(copies + "/lod1.kob");

  // Sources and two outputs of the job stand on disk at once.
  std::uint64_t estimate = static_cast<std::uint64_t>(lines) * 80 * 2;
  if (freeBytes(dir) < estimate * 4) throw std::runtime_error("not enough free space in " + baseDir);

  std::cerr << "N=" << lines << ": generating..." << std::flush;
  auto start = std::chrono::steady_clock::now();
  KobSourceInfo lod0 = writeLod0Source(files.lod0, lines);
  KobSourceInfo lod1 = writeLod1Source(files.lod1, lines);
  settle(files.lod0);
  settle(files.lod1);
  std::cerr << ' ' << (lod0.bytes + lod1.bytes) / kMB << " MB in "
            << std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() << " s; runs:";

  row.lines = lines;
  row.inputBytes = lod0.bytes + lod1.bytes;

  // An untimed first run checks the output of both ways of running the job.
  // Both outputs stand on disk together only here: in the timed runs each is
  // removed at once, so that no run pays for the write-back of another's file.
  {
    JobRun inSteps = runJobProcess("steps", files);
    JobRun byClicks = runJobProcess("clicks", JobFiles{files.lod0, files.lod1, clicksOutput});
    // The combined file: the LOD 0 source with three lines more, then the
    // LOD 1 source from its marker on; the renaming keeps every length.
    std::uint64_t expected = lod0.bytes + std::strlen("UseAutoLOD=T\r\n") + std::strlen("AutoLOD#0=\r\n") +
                             inSteps.autoLOD0.size() + std::strlen("AutoLOD#1=\r\n") +
                             inSteps.autoLOD1.size() + (lod1.bytes - lod1.markerOffset);
    std::error_code error;
    row.outputChecked =
        fs::file_size(files.output, error) == expected && sameBytes(files.output, clicksOutput);
    timeCommand({g_floor, files.lod0, files.lod1, floorOutput, inSteps.autoLOD0, inSteps.autoLOD1});
    row.outputChecked = row.outputChecked && sameBytes(files.output, floorOutput);
    removeFile(floorOutput);
    if (!g_scenario.empty()) {
      runReal();
      row.outputChecked = row.outputChecked && sameBytes(files.output, realOutput);
      removeFile(realOutput);
    }
    if (!row.outputChecked) std::cerr << " [output differs from what was expected]";
    row.quiet = inSteps.messages == 0 && byClicks.messages == 0;
    removeFile(files.output);
    removeFile(clicksOutput);
    std::cerr << " check";
  }

  std::vector<std::vector<double>> steps(kStepCount);
  std::vector<double> totals, clicks, cps, seds, reals, floors;
  for (int run = 0; run < runs; ++run) {
    // Taking turns which way goes first, so that neither always follows the other.
    JobRun inSteps, byClicks;
    auto stepsRun = [&] {
      inSteps = runJobProcess("steps", files);
      removeFile(files.output);
    };
    auto clicksRun = [&] {
      byClicks = runJobProcess("clicks", JobFiles{files.lod0, files.lod1, clicksOutput});
      removeFile(clicksOutput);
    };
    if (run % 2 == 0) {
      stepsRun();
      clicksRun();
    } else {
      clicksRun();
      stepsRun();
    }
    for (int s = 0; s < kStepCount; ++s) steps[s].push_back(inSteps.steps.seconds[s]);
    totals.push_back(inSteps.seconds);
    clicks.push_back(byClicks.seconds);
    row.peakBytes = std::max({row.peakBytes, inSteps.peakBytes, byClicks.peakBytes});
    row.quiet = row.quiet && inSteps.messages == 0 && byClicks.messages == 0;

    floors.push_back(
        timeCommand({g_floor, files.lod0, files.lod1, floorOutput, inSteps.autoLOD0, inSteps.autoLOD1}));
    row.floorPeakBytes = std::max(row.floorPeakBytes, lastCommandPeakBytes());
    removeFile(floorOutput);
    if (!g_scenario.empty()) {
      reals.push_back(runReal());
      row.realPeakBytes = std::max(row.realPeakBytes, lastCommandPeakBytes());
      removeFile(realOutput);
    }
    cps.push_back(timeCommand({"cp", files.lod0, files.lod1, copies + "/"}));
    removeFile(copies + "/lod0.kob");
    removeFile(copies + "/lod1.kob");
    seds.push_back(timeCommand({"sed", "s/LOD 0/LOD 1/g", files.lod1}, sedOutput));
    removeFile(sedOutput);
    std::cerr << ' ' << run + 1 << std::flush;
  }
  std::cerr << '\n';
  removeAll();
  g_cleanupCount = 0;

  for (auto& values : steps) row.stepMedians.push_back(median(values));
  row.total = median(totals);
  row.clicks = median(clicks);
  row.cp = median(cps);
  row.sed = median(seds);
  row.real = median(reals);
  row.floor = median(floors);
  return row;
}

// ---- the report ----------------------------------------------------------------

void printTables(const std::vector<Row>& rows, int runs) {
  std::printf("\nKorvane benchmark: open the LOD 0 source, add the LOD 1 source, Save As (combined).\n");
  std::printf("Median of %d runs; each job in a fresh process; page cache warm and never dropped,\n", runs);
  std::printf("for the job and for cp and sed alike.\n\n");

  std::printf("Seconds per step\n%10s %8s", "N", "MB in");
  for (const char* name : kStepNames) std::printf(" %9s", name);
  std::printf(" %9s %9s\n", "total", "by clicks");
  for (const Row& row : rows) {
    std::printf("%10lld %8.1f", row.lines, row.inputBytes / kMB);
    for (double seconds : row.stepMedians) std::printf(" %9.4f", seconds);
    std::printf(" %9.3f %9.3f\n", row.total, row.clicks);
  }

  std::printf(
      "\nAgainst the machine (real: the job through the real program, offscreen; floor: the least\n"
      "program for the same job; sed: s/LOD 0/LOD 1/g over the LOD 1 source alone)\n");
  std::printf("%10s %8s %8s %8s %8s %8s %8s %10s %9s %9s %9s %9s %s\n", "N", "MB in", "real s", "floor s",
              "steps s", "sed s", "cp s", "real/floor", "real/sed", "peak/in", "steps p/in", "floor p/in",
              "output");
  for (const Row& row : rows) {
    auto perInput = [&](std::uint64_t bytes) {
      return static_cast<double>(bytes) / static_cast<double>(row.inputBytes);
    };
    std::printf("%10lld %8.1f %8.3f %8.3f %8.3f %8.3f %8.3f %10.2f %9.2f %9.2f %9.2f %9.2f %s\n", row.lines,
                row.inputBytes / kMB, row.real, row.floor, row.total, row.sed, row.cp, row.real / row.floor,
                row.real / row.sed, perInput(row.realPeakBytes), perInput(row.peakBytes),
                perInput(row.floorPeakBytes),
                !row.outputChecked ? "WRONG"
                : row.quiet        ? "same bytes"
                                   : "same bytes, but messages were shown");
  }
}

void printTargets(const std::vector<Row>& rows, const std::optional<std::pair<double, double>>& startUp,
                  const std::optional<double>& qtStart) {
  auto verdict = [](bool holds) { return holds ? "holds" : "MISSED"; };
  std::printf("\nTargets\n");

  for (const Row& row : rows) {
    if (row.lines < 1000000) continue;
    std::printf("  N=%lld: real program <= 1.25x floor: %.2fx  %s;  <= 0.7x sed: %.2fx  %s\n", row.lines,
                row.real / row.floor, verdict(row.real <= 1.25 * row.floor), row.real / row.sed,
                verdict(row.real <= 0.7 * row.sed));
    if (row.lines < 10000000) continue;
    double ratio =
        static_cast<double>(std::max(row.realPeakBytes, row.peakBytes)) / static_cast<double>(row.inputBytes);
    std::printf("  N=%lld: peak memory <= 1.25x input: %.2fx  %s\n", row.lines, ratio,
                verdict(ratio <= 1.25));
  }
  for (std::size_t i = 1; i < rows.size(); ++i) {
    double lines = static_cast<double>(rows[i].lines) / static_cast<double>(rows[i - 1].lines);
    double time = rows[i].real / rows[i - 1].real;
    // 10x the lines may take 11x the time: 10% above proportional, for any step of N.
    std::printf("  linear in N, %lld -> %lld: %.1fx the lines took %.2fx the time  %s\n", rows[i - 1].lines,
                rows[i].lines, lines, time, verdict(time <= lines * 1.1));
  }

  if (startUp) {
    std::printf(
        "  opening the window < 300 ms, logic (Program::Main, headless): first %.2f ms, then %.3f ms  %s\n",
        startUp->first * 1e3, startUp->second * 1e3, verdict(startUp->first < 0.3));
  }
  if (qtStart) {
    std::printf(
        "  opening the window < 300 ms, Qt (start to first idle after showing, offscreen): %.0f ms  %s\n",
        *qtStart * 1e3, verdict(*qtStart < 0.3));
  } else {
    std::printf("  opening the window, Qt: not measured (no build/qt/src/qt/korvane)\n");
  }
}

// ---- worst cases -----------------------------------------------------------------

const char* const kLod1Head[] = {"[Material - 0]", "TextureMap=low.tga", "[LOD Information]", "NumberOfLOD=1",
                                 "[LOD 0]",        "NumberOfSurfaces=1"};

// A source of the head's lines and then count copies of body, each a line.
std::uint64_t writeCase(const std::string& path, const std::vector<std::string>& head,
                        const std::string& body, long long count) {
  detail::Writer out(path);
  for (const std::string& line : head) out.line(line);
  for (long long i = 0; i < count; ++i) out.line(body);
  std::uint64_t bytes = out.written();
  out.close();
  return bytes;
}

// Each case is the whole job in steps in a fresh process; medians of runs.
void measureCases(long long n, int runs, const std::string& baseDir) {
  std::string dir = scratchDirectory(baseDir, "korvane-cases");
  std::string small = cleanedUp(dir + "/small.kob");
  std::string big = cleanedUp(dir + "/big.kob");
  std::string output = cleanedUp(dir + "/out.kob");
  std::string sedOutput = cleanedUp(dir + "/sed.kob");
  std::uint64_t smallBytes = writeLod0Source(small, 1000).bytes;
  const std::vector<std::string> lod1Head(std::begin(kLod1Head), std::end(kLod1Head));
  const std::vector<std::string> twoLodHead = {"[Material - 0]", "TextureMap=a.tga", "[LOD Information]",
                                               "NumberOfLOD=2",  "[LOD 0]",          "NumberOfSurfaces=1"};

  struct Case {
    std::string name;
    std::function<std::uint64_t()> write;
    bool bigIsLod1;
  };
  const Case cases[] = {
      {"six \"LOD 0\" in each of N LOD 1 lines",
       [&] {
         return writeCase(big, lod1Head, "Name=LOD 0,LOD 0,LOD 0,LOD 0,LOD 0,LOD 0 and some more text", n);
       },
       true},
      {"N empty lines in the LOD 0 source",
       [&] {
         return writeCase(big, {"[Material - 0]", "TextureMap=a.tga", "[LOD Information]", "NumberOfLOD=1"},
                          "", n);
       },
       false},
      {"one 500 MB line in the LOD 1 source",
       [&] { return writeCase(big, lod1Head, "LOD 0" + std::string(500000000, 'x'), 1); }, true},
      {"two-LOD source of N lines, no AutoLOD lines",
       [&] {
         return writeCase(big, twoLodHead, "Vertex=0.125000,-3.500000,12.000000,0.5,0.5,0.25,1.000000", n);
       },
       false},
  };
  std::printf("\nWorst cases (N=%lld, median of %d runs)\n%-46s %8s %9s %9s %9s %9s %s\n", n, runs, "case",
              "MB in", "job s", "save s", "sed s", "peak/in", "");
  for (const Case& c : cases) {
    std::uint64_t bigBytes = c.write();
    settle(big);
    JobFiles files{c.bigIsLod1 ? small : big, c.bigIsLod1 ? big : (c.name[0] == 't' ? "" : small), output};
    std::uint64_t input = bigBytes + (files.lod1.empty() ? 0 : smallBytes);
    std::vector<double> totals, saves, seds;
    std::uint64_t peak = 0;
    int messages = 0;
    for (int run = 0; run < runs; ++run) {
      JobRun job = runJobProcess("steps", files);
      removeFile(output);
      totals.push_back(job.seconds);
      saves.push_back(job.steps.seconds[kSaveAs]);
      peak = std::max(peak, job.peakBytes);
      messages += job.messages;
      if (c.bigIsLod1) {
        seds.push_back(timeCommand({"sed", "s/LOD 0/LOD 1/g", big}, sedOutput));
        removeFile(sedOutput);
      }
    }
    double ratio = static_cast<double>(peak) / static_cast<double>(input);
    std::printf("%-46s %8.1f %9.3f %9.3f %9.3f %9.2f", c.name.c_str(), input / kMB, median(totals),
                median(saves), median(seds), ratio);
    auto verdict = [](bool holds) { return holds ? "holds" : "MISSED"; };
    if (c.name[0] == 's')
      std::printf("  job <= 0.5x sed: %.2fx %s", median(totals) / median(seds),
                  verdict(median(totals) <= 0.5 * median(seds)));
    if (c.name[0] == 'N') std::printf("  peak <= 3x: %s", verdict(ratio <= 3));
    if (c.name[0] == 'o') std::printf("  peak <= 1.3x: %s", verdict(ratio <= 1.3));
    std::printf("%s\n", messages > 0 && c.name[0] != 't' ? "  (messages were shown)" : "");
    removeFile(big);
  }
  removeAll();
  g_cleanupCount = 0;
}

std::optional<std::pair<double, double>> measureStartUp() {
  try {
    std::istringstream in(captureCommand({selfExecutable(), "--startup"}));
    std::string tag;
    double first = 0, later = 0;
    in >> tag >> first >> later;
    if (tag == "STARTUP" && in) return std::make_pair(first, later);
  } catch (const std::exception& failure) {
    std::cerr << "start-up: " << failure.what() << "\n";
  }
  return std::nullopt;
}

int usage() {
  std::cerr << "usage: korvane_bench [--runs R] [--dir D] [--qt PATH] [--scenario PATH] [--cases N] [N...]\n"
               "  default N: 100000 1000000; --cases alone runs only the worst cases\n";
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
  try {
    if (args.size() == 5 && args[0] == "--job")
      return runOneJob(args[1], JobFiles{args[2], args[3], args[4]});
    if (args.size() == 1 && args[0] == "--startup") return runStartUp();

    std::optional<int> runs;
    std::string dir = "/tmp";
    std::string qt;
    std::vector<long long> counts;
    long long cases = 0;
    for (std::size_t i = 0; i < args.size(); ++i) {
      if (args[i] == "--runs" && i + 1 < args.size()) {
        runs = std::stoi(args[++i]);
      } else if (args[i] == "--dir" && i + 1 < args.size()) {
        dir = args[++i];
      } else if (args[i] == "--qt" && i + 1 < args.size()) {
        qt = args[++i];
      } else if (args[i] == "--scenario" && i + 1 < args.size()) {
        g_scenario = args[++i];
      } else if (args[i] == "--cases" && i + 1 < args.size()) {
        cases = std::stoll(args[++i]);
      } else if (!args[i].empty() && std::isdigit(static_cast<unsigned char>(args[i][0]))) {
        counts.push_back(std::stoll(args[i]));
      } else {
        return usage();
      }
    }
    const bool countsGiven = !counts.empty();
    if (counts.empty()) counts = {100000, 1000000};
    std::sort(counts.begin(), counts.end());
    // Five runs where a run takes a second or two, three where it takes ten.
    int runCount = runs.value_or(counts.back() > 1000000 ? 3 : 5);
    if (runCount < 1) return usage();

    std::signal(SIGINT, onSignal);
    std::signal(SIGTERM, onSignal);
    auto startUp = measureStartUp();
    std::optional<double> qtStart;
    if (!qt.empty()) qtStart = timeQtStartUp(qt);

    g_floor = (fs::path(selfExecutable()).parent_path() / "korvane_floor").string();
    std::vector<Row> rows;
    if (countsGiven || cases == 0) {
      for (long long lines : counts) rows.push_back(measure(lines, runCount, dir));
      printTables(rows, runCount);
      printTargets(rows, startUp, qtStart);
    }
    if (cases > 0) measureCases(cases, runCount, dir);
    return 0;
  } catch (const std::exception& failure) {
    removeAll();
    std::cerr << "\nkorvane_bench: " << failure.what() << "\n";
    return 1;
  }
}
