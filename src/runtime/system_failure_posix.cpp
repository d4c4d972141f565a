#include <cerrno>

#include "runtime/failure.h"

namespace korvane {

RuntimeFailure failureFromSystemError(unsigned long error) {
  namespace n = failure_number;
  switch (static_cast<int>(error)) {
    case ENOENT:
      return RuntimeFailure(n::FileNotFound);
    case ENOTDIR:
      return RuntimeFailure(n::PathNotFound);
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ETXTBSY:
      return RuntimeFailure(n::PathFileAccessError);
    case ENAMETOOLONG:
    case ELOOP:
      return RuntimeFailure(n::BadFileNameOrNumber);
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return RuntimeFailure(n::DiskFull);
    case ENOMEM:
      return RuntimeFailure(n::OutOfMemory);
    case EMFILE:
    case ENFILE:
      return RuntimeFailure(n::TooManyFiles);
    default:
      return RuntimeFailure(n::DeviceIOError);
  }
}

}  // namespace korvane
