#pragma once
// The "report and leave" failure group: the body's remaining steps are
// dropped, one message box shows, and the procedure returns normally.

#include <new>
#include <stdexcept>
#include <string_view>

#include "runtime/failure.h"
#include "runtime/message_box.h"
#include "runtime/message_frames.h"

namespace korvane {

// Runs body; a failure in it ends up as the value of onFailure's argument.
template <class Body, class OnFailure>
void runGuarded(Body&& body, OnFailure&& onFailure) {
  try {
    body();
  } catch (const RuntimeFailure& failure) {
    onFailure(failure);
  } catch (const std::bad_alloc&) {
    onFailure(RuntimeFailure(failure_number::OutOfMemory));
  } catch (const std::length_error&) {
    onFailure(RuntimeFailure(failure_number::OutOfMemory));
  }
}

// "Unexpected error in <procedure>: ..." for the procedures of the main module.
template <class Body>
void reportAndLeave(Platform& platform, std::string_view procedure, Body&& body) {
  runGuarded(body, [&](const RuntimeFailure& failure) {
    MsgBox(platform, unexpectedErrorMessage(procedure, failure));
  });
}

}  // namespace korvane
