#pragma once
// The frames in which failures are shown to the author. The pieces are joined
// with nothing between them; a number that is not negative gets a blank ahead.

#include <string>
#include <string_view>

#include "runtime/failure.h"

namespace korvane {

// " 53" for 53, "-5" for -5.
std::string failureNumberText(int number);

// "Unexpected error in <procedure>: <description> ( <number>)"
std::string unexpectedErrorMessage(std::string_view procedure, const RuntimeFailure& failure);

// "Unexpected error in GetINIString. " LF "<description> ( <number>)"
std::string getIniStringErrorMessage(const RuntimeFailure& failure);

// "Unexpected error in GetRegStr " LF LF "<number> - <description>"
std::string getRegStrErrorMessage(const RuntimeFailure& failure);

// "<function>: <number> - 0", as GetElement and Substitute show it.
std::string textFunctionErrorMessage(std::string_view function, const RuntimeFailure& failure);

}  // namespace korvane
