#include "cli/batch.h"

#include <cstdio>
#include <filesystem>
#include <sstream>
#include <vector>

#include "cli/cli_platform.h"
#include "cli/cli_system.h"
#include "cli/merge_job.h"
#include "runtime/utf8_path.h"

namespace korvane::cli {

namespace {

struct Row {
  int line = 0;
  std::vector<std::string> cells;
};

// Where relative paths of the rows start: the folder named in the jobs
// file's path, unless the path leads, through links, to a descriptor of
// this process (/dev/stdin, /dev/fd/0): such a file has no folder of its
// own, and the rows are taken from the current directory.
std::filesystem::path rowsFolder(const std::filesystem::path& jobsPath) {
  auto descriptors = [](const std::filesystem::path& path) { return path.string().starts_with("/proc/"); };
  std::error_code error;
  if (descriptors(
          std::filesystem::weakly_canonical(std::filesystem::absolute(jobsPath).parent_path(), error)))
    return {};
  std::filesystem::path hop = jobsPath;
  for (int links = 0; links < 40 && std::filesystem::is_symlink(hop, error); ++links) {
    const std::filesystem::path target = std::filesystem::read_symlink(hop, error);
    if (error) break;
    hop = target.is_absolute() ? target : hop.parent_path() / target;
    if (descriptors(hop.lexically_normal())) return {};
  }
  return jobsPath.parent_path();
}

// The row as a job, or the reason it is none.
std::string makeJob(const Row& row, const std::filesystem::path& folder, MergeJob& job) {
  if (row.cells.size() > 6) return "more than six columns";
  for (const std::string& cell : row.cells) {
    if (cell.find('\0') != std::string::npos) return "a cell holds a NUL byte";
  }
  std::vector<std::string> cells = row.cells;
  cells.resize(6);
  auto place = [&](const std::string& cell) {
    return cell.empty() || pathFromUtf8(cell).is_absolute() ? cell
                                                            : utf8FromPath(folder / pathFromUtf8(cell));
  };
  if (cells[0].empty() || cells[2].empty()) return "a row needs a LOD 0 source and an output";
  if (isStandardOutput(cells[2])) return "a batch writes files, not standard output";
  job.lod0 = place(cells[0]);
  job.lod1 = place(cells[1]);
  job.output = place(cells[2]);
  if (!cells[3].empty()) {
    Parsed parsed = parseTexture(cells[3]);
    if (!parsed.ok) return parsed.error;
    job.texture = cells[3];
  }
  if (cells[4] == "off") {
    job.colorKey = MergeJob::ColorKey::Off;
  } else if (!cells[4].empty()) {
    Parsed parsed = parseColorKey(cells[4], job.rgb);
    if (!parsed.ok) return parsed.error;
    job.colorKey = MergeJob::ColorKey::On;
  }
  if (!cells[5].empty()) {
    Parsed parsed = parseAutoLOD(cells[5], job.autoLOD);
    if (!parsed.ok) return parsed.error;
  }
  return {};
}

class Progress {
 public:
  Progress(std::string jobsPath, int total)
      : m_jobsPath(std::move(jobsPath)), m_total(total), m_bar(standardOutputIsTerminal()) {}

  // Clears the bar so that a line can be written where it stood.
  void stepAside() {
    if (m_bar && m_drawn) std::fputs("\r\033[K", stdout), std::fflush(stdout);
    m_drawn = false;
  }

  void done(const Row& row, const std::string& output, bool merged) {
    ++m_done;
    m_failed += merged ? 0 : 1;
    if (!m_bar || !merged) {
      stepAside();
      std::printf("%s:%d: %s %s\n", m_jobsPath.c_str(), row.line, merged ? "merged" : "failed",
                  output.c_str());
      std::fflush(stdout);
    }
    if (m_bar) draw();
  }

  void finish() {
    stepAside();
    std::printf("%d merged, %d failed\n", m_done - m_failed, m_failed);
    std::fflush(stdout);
  }

  int failed() const { return m_failed; }

 private:
  void draw() {
    constexpr int kWidth = 30;
    int filled = m_total ? m_done * kWidth / m_total : kWidth;
    std::printf("\r[%s%s] %d/%d", std::string(filled, '#').c_str(), std::string(kWidth - filled, ' ').c_str(),
                m_done, m_total);
    if (m_failed) std::printf(", %d failed", m_failed);
    std::fflush(stdout);
    m_drawn = true;
  }

  std::string m_jobsPath;
  int m_total;
  bool m_bar;
  bool m_drawn = false;
  int m_done = 0;
  int m_failed = 0;
};

}  // namespace

int runBatch(const std::string& jobsPath) {
  std::string jobs;
  if (std::string why = readJobs(jobsPath, jobs); !why.empty()) {
    std::fprintf(stderr, "korvane-cli: %s: cannot read the jobs file: %s\n", jobsPath.c_str(), why.c_str());
    return 2;
  }
  std::vector<Row> rows;
  std::istringstream in(jobs);
  std::string text;
  for (int line = 1; std::getline(in, text); ++line) {
    if (!text.empty() && text.back() == '\r') text.pop_back();
    if (text.find_first_not_of(" \t") == std::string::npos || text[0] == '#') continue;
    rows.push_back({line, splitAt(text, '\t')});
  }
  const std::filesystem::path folder = rowsFolder(pathFromUtf8(jobsPath));

  Progress progress(jobsPath, static_cast<int>(rows.size()));
  CliPlatform platform;
  platform.beforeMessage = [&] { progress.stepAside(); };
  for (const Row& row : rows) {
    MergeJob job;
    std::string error = makeJob(row, folder, job);
    bool merged = false;
    if (error.empty()) {
      platform.messages.clear();
      MergeOutcome outcome = runMerge(platform, job);
      merged = outcome.merged;
      error = outcome.error;
    }
    if (!error.empty()) {
      progress.stepAside();
      std::fprintf(stderr, "korvane-cli: %s:%d: %s\n", jobsPath.c_str(), row.line, error.c_str());
    }
    progress.done(row, job.output.empty() ? "(no output)" : job.output, merged);
  }
  progress.finish();
  return progress.failed() ? 1 : 0;
}

}  // namespace korvane::cli
