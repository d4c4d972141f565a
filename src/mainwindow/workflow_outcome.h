#pragma once
// What a workflow step did, for the front ends that drive the window without
// its dialogs (korvane-cli, the benchmark): they learn the outcome here, never
// from a message text. The author hears of it through the messages the steps
// show, as always.

#include <optional>
#include <string>

#include "runtime/failure.h"

namespace korvane {

struct LoadOutcome {
  enum class Result { Loaded, Cancelled, Refused, ReadFailed };
  Result result = Result::Cancelled;
  // Refused: the validator's message, empty where a failure refused the file
  // without a word. ReadFailed: the failure that the reading reported.
  std::string refusal;
  std::optional<RuntimeFailure> failure;
};

struct SaveOutcome {
  enum class Result { Saved, Cancelled, Incomplete, Failed };
  Result result = Result::Cancelled;
  // Incomplete: the message that refused the input. Failed: the writer's failure.
  std::string refusal;
  std::optional<RuntimeFailure> failure;
};

}  // namespace korvane
