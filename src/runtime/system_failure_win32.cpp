#include <windows.h>

#include "runtime/failure.h"

namespace korvane {

// The same failures as the POSIX side gives for the same trouble. A file held
// by another program has no counterpart there: it is "Permission denied", as
// Windows programs have always reported it.
RuntimeFailure failureFromSystemError(unsigned long error) {
  namespace n = failure_number;
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
      return RuntimeFailure(n::FileNotFound);
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_DIRECTORY:
      return RuntimeFailure(n::PathNotFound);
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_NOT_READY:
      return RuntimeFailure(n::PathFileAccessError);
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
      return RuntimeFailure(n::PermissionDenied);
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_CANT_RESOLVE_FILENAME:
      return RuntimeFailure(n::BadFileNameOrNumber);
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case ERROR_FILE_TOO_LARGE:
      return RuntimeFailure(n::DiskFull);
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      return RuntimeFailure(n::OutOfMemory);
    case ERROR_TOO_MANY_OPEN_FILES:
      return RuntimeFailure(n::TooManyFiles);
    default:
      return RuntimeFailure(n::DeviceIOError);
  }
}

}  // namespace korvane
