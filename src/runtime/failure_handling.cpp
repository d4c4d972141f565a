#include "runtime/failure_handling.h"

#include <new>
#include <stdexcept>

namespace korvane::detail {

namespace {

// A fault of the program itself: no procedure expects it.
constexpr int kInternalError = 51;

}  // namespace

RuntimeFailure expectedFailure() {
  try {
    throw;
  } catch (const RuntimeFailure& failure) {
    return failure;
  } catch (const std::bad_alloc&) {
    return RuntimeFailure(failure_number::OutOfMemory);
  } catch (const std::length_error&) {
    // What a container says when asked for more than memory can ever hold.
    return RuntimeFailure(failure_number::OutOfMemory);
  }
}

RuntimeFailure anyFailure() {
  try {
    return expectedFailure();
  } catch (const ProcessEnded&) {
    throw;
  } catch (const std::exception& error) {
    return RuntimeFailure(kInternalError, error.what());
  } catch (...) {
    return RuntimeFailure(kInternalError);
  }
}

}  // namespace korvane::detail
