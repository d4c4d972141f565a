// generate_kob N LOD0_PATH LOD1_PATH: writes the benchmark's two sources of
// N geometry lines each, the same bytes on every run.

#include <cstdlib>
#include <iostream>
#include <string>

#include "kob_generator.h"

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: generate_kob N LOD0_PATH LOD1_PATH\n";
    return 2;
  }
  try {
    long long lines = std::stoll(argv[1]);
    if (lines < 1) throw std::invalid_argument("N must be 1 or more");
    auto lod0 = korvane::bench::writeLod0Source(argv[2], lines);
    auto lod1 = korvane::bench::writeLod1Source(argv[3], lines);
    std::cout << argv[2] << ": " << lod0.bytes << " bytes\n" << argv[3] << ": " << lod1.bytes << " bytes\n";
    return 0;
  } catch (const std::exception& failure) {
    std::cerr << "generate_kob: " << failure.what() << "\n";
    return 1;
  }
}
