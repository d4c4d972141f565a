#pragma once
// The one failure policy. Every procedure handles failures in one of four
// ways, each written here once:
// - reportAndLeave: the remaining steps are dropped, one message shows, the
//   procedure returns normally;
// - silentLeave: the remaining steps are dropped without a word; the caller
//   learns only that the body did not finish;
// - ignoringFailure: the step that failed is given up and the next one runs;
// - runEntryPoint: no handling of the procedure's own; what the author's
//   handler lets through is shown in the handler's frame where the toolkit
//   called it.
// The end of the process (ProcessEnded) is no failure: it always passes on.

#include <optional>
#include <string_view>

#include "runtime/failure.h"
#include "runtime/message_box.h"
#include "runtime/message_frames.h"

namespace korvane {

namespace detail {

// The classifier; call only inside a catch block. A failure the program
// expects (a RuntimeFailure, memory running out) comes back as the failure to
// report; anything else, the end of the process included, is thrown on.
RuntimeFailure expectedFailure();

// As expectedFailure, but a fault of the program itself comes back as
// failure 51 with its own text; only the end of the process is thrown on.
RuntimeFailure anyFailure();

}  // namespace detail

// The failure that was reported, for a caller that wants to know how the
// procedure went; nullopt when the body ran to its end.
template <class Body, class Report>
std::optional<RuntimeFailure> reportAndLeave(Body&& body, Report&& report) {
  try {
    body();
    return std::nullopt;
  } catch (...) {
    RuntimeFailure failure = detail::expectedFailure();
    report(failure);
    return failure;
  }
}

// "Unexpected error in <procedure>: ..." for the procedures of the main module.
template <class Body>
std::optional<RuntimeFailure> reportAndLeave(Platform& platform, std::string_view procedure, Body&& body) {
  return reportAndLeave(body, [&](const RuntimeFailure& failure) {
    MsgBox(platform, unexpectedErrorMessage(procedure, failure));
  });
}

// True when the body ran to its end.
template <class Body>
bool silentLeave(Body&& body) {
  try {
    body();
    return true;
  } catch (...) {
    detail::expectedFailure();
    return false;
  }
}

template <class Step>
void ignoringFailure(Step&& step) {
  try {
    step();
  } catch (...) {
    detail::anyFailure();
  }
}

// A fault of the program is shown like any failure rather than ending the run,
// since nothing may leave through the toolkit's event handling. False once
// the process is to end, also when it ends while the failure is shown.
template <class Body, class Report>
bool runEntryPoint(Body&& body, Report&& report) {
  try {
    body();
  } catch (...) {
    try {
      report(detail::anyFailure());
    } catch (const ProcessEnded&) {
      return false;
    }
  }
  return true;
}

}  // namespace korvane
