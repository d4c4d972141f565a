#pragma once
// Run-time failures: every failure the program can meet carries a number and
// a description, and the procedures' failure handling reports exactly those.

#include <exception>
#include <string>

namespace korvane {

namespace failure_number {
inline constexpr int InvalidProcedureCall = 5;
inline constexpr int Overflow = 6;
inline constexpr int OutOfMemory = 7;
inline constexpr int SubscriptOutOfRange = 9;
inline constexpr int BadFileNameOrNumber = 52;
inline constexpr int FileNotFound = 53;
inline constexpr int DeviceIOError = 57;
inline constexpr int DiskFull = 61;
inline constexpr int InputPastEndOfFile = 62;
inline constexpr int TooManyFiles = 67;
inline constexpr int PermissionDenied = 70;
inline constexpr int PathFileAccessError = 75;
inline constexpr int PathNotFound = 76;
inline constexpr int InvalidPropertyValue = 380;
}  // namespace failure_number

// The standard description of a failure number ("Overflow" for 6, ...).
std::string describeFailure(int number);

class RuntimeFailure : public std::exception {
 public:
  explicit RuntimeFailure(int number);
  RuntimeFailure(int number, std::string description);

  int number() const { return m_number; }
  const std::string& description() const { return m_description; }
  const char* what() const noexcept override { return m_description.c_str(); }

 private:
  int m_number;
  std::string m_description;
};

// Maps an error of the operating system (errno on POSIX, GetLastError() on
// Windows) onto the failure the program reports, so that an author sees the
// same words for the same trouble on either system. One file per system:
// system_failure_posix.cpp, system_failure_win32.cpp.
RuntimeFailure failureFromSystemError(unsigned long error);

// Thrown by ExitProgram once the process is to end: it unwinds every handler
// that is still running, so nothing of the program runs after the exit.
struct ProcessEnded {};

}  // namespace korvane
