#pragma once
// What the benchmark needs of the system: running a command and timing it,
// and the process's peak resident memory.

#include <cstdint>
#include <string>
#include <vector>

namespace korvane::bench {

// Runs the program with the arguments (no shell), its standard output sent to
// stdoutPath when one is given, and waits for it. Seconds from start to end;
// throws if it cannot start or does not exit with 0.
double timeCommand(const std::vector<std::string>& argv, const std::string& stdoutPath = "");

// Runs the program with the arguments and gives what it wrote to its
// standard output; its standard error goes where ours goes. Throws if it
// does not exit with 0.
std::string captureCommand(const std::vector<std::string>& argv);

// Ends the command that is running now, if any, and waits for it. Safe to
// call from a signal handler.
void stopRunningCommand();

// The peak resident set of the command that ended last, in bytes.
std::uint64_t lastCommandPeakBytes();

// The peak resident set of this process so far (VmHWM), in bytes.
std::uint64_t peakResidentBytes();

// Free bytes on the file system that holds path.
std::uint64_t freeBytes(const std::string& path);

// The path of the running executable, to start it again for one N.
std::string selfExecutable();

}  // namespace korvane::bench
