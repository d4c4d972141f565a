#include <csignal>

#include "cli/entry.h"

int main(int argc, char** argv) {
  // A reader of standard output that goes away makes the writes fail, and
  // the job says so and cleans up, rather than ending without a word.
  std::signal(SIGPIPE, SIG_IGN);
  // Likewise a file-size limit met on standard error or a written file.
  std::signal(SIGXFSZ, SIG_IGN);
  return korvane::cli::runCli(std::vector<std::string>(argv + 1, argv + argc));
}
