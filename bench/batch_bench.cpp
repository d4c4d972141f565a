// korvane_batch_bench CLI [--jobs N] [--lines L] [--runs R] [--dir D]
//
// Times `korvane-cli batch` over N small jobs (default 1000): each row its own
// LOD 0 and LOD 1 source of L geometry lines (default 100), a texture name, a
// ColorKey and AutoLOD values, and its own output. The batch runs as a build
// script would run it, its standard output to a file, so it prints plain
// lines. Median of the runs; the target is under 3 s for 1000 jobs.

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "kob_generator.h"
#include "process_tools.h"

namespace fs = std::filesystem;
using namespace korvane::bench;

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: korvane_batch_bench CLI [--jobs N] [--lines L] [--runs R] [--dir D]\n");
    return 2;
  }
  std::string cli = argv[1];
  int jobs = 1000, lines = 100, runs = 3;
  std::string base = "/tmp";
  for (int i = 2; i + 1 < argc; i += 2) {
    std::string option = argv[i];
    if (option == "--jobs") jobs = std::stoi(argv[i + 1]);
    if (option == "--lines") lines = std::stoi(argv[i + 1]);
    if (option == "--runs") runs = std::stoi(argv[i + 1]);
    if (option == "--dir") base = argv[i + 1];
  }

  fs::path dir = fs::path(base) / ("korvane-batch-bench." + std::to_string(getpid()));
  fs::create_directories(dir / "out");
  int status = 0;
  try {
    std::ofstream tsv(dir / "jobs.tsv");
    for (int job = 0; job < jobs; ++job) {
      std::string name = "obj" + std::to_string(job);
      writeLod0Source((dir / (name + ".kob")).string(), lines, 2 * job + 1);
      writeLod1Source((dir / (name + "_low.kob")).string(), lines, 2 * job + 2);
      tsv << name << ".kob\t" << name << "_low.kob\tout/" << name << ".kob\t" << name << ".tga\t" << job % 256
          << ",0,255\t0.3,0.1\n";
    }
    tsv.close();

    std::vector<double> seconds;
    std::string log = (dir / "batch.log").string();
    for (int run = 0; run < runs; ++run) {
      seconds.push_back(timeCommand({cli, "batch", (dir / "jobs.tsv").string()}, log));
    }
    std::ifstream in(log);
    std::string line, last;
    while (std::getline(in, line)) last = line;
    std::sort(seconds.begin(), seconds.end());
    double median = seconds[seconds.size() / 2];
    std::printf("batch of %d jobs (%d + %d geometry lines each): %.3f s median of %d runs, %.2f ms a job\n",
                jobs, lines, lines, median, runs, median * 1000 / jobs);
    std::printf("last line: %s\n", last.c_str());
    bool held = median < 3.0 * jobs / 1000;
    std::printf("target: 1000 jobs under 3 s: %s\n", held ? "held" : "MISSED");
    status = held && last == std::to_string(jobs) + " merged, 0 failed" ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "korvane_batch_bench: %s\n", error.what());
    status = 1;
  }
  fs::remove_all(dir);
  return status;
}
