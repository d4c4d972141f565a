#include "runtime/failure.h"

namespace korvane {

std::string describeFailure(int number) {
  namespace n = failure_number;
  switch (number) {
    case n::InvalidProcedureCall:
      return "Invalid procedure call or argument";
    case n::Overflow:
      return "Overflow";
    case n::OutOfMemory:
      return "Out of memory";
    case n::SubscriptOutOfRange:
      return "Subscript out of range";
    case n::BadFileNameOrNumber:
      return "Bad file name or number";
    case n::FileNotFound:
      return "File not found";
    case n::DeviceIOError:
      return "Device I/O error";
    case n::DiskFull:
      return "Disk full";
    case n::InputPastEndOfFile:
      return "Input past end of file";
    case n::TooManyFiles:
      return "Too many files";
    case n::PermissionDenied:
      return "Permission denied";
    case n::PathFileAccessError:
      return "Path/File access error";
    case n::PathNotFound:
      return "Path not found";
    case n::InvalidPropertyValue:
      return "Invalid property value";
    default:
      return "Application-defined or object-defined error";
  }
}

RuntimeFailure::RuntimeFailure(int number) : RuntimeFailure(number, describeFailure(number)) {}

RuntimeFailure::RuntimeFailure(int number, std::string description)
    : m_number(number), m_description(std::move(description)) {}

}  // namespace korvane
