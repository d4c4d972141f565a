#include "runtime/message_frames.h"

namespace korvane {

std::string failureNumberText(int number) {
  std::string digits = std::to_string(number);
  return number < 0 ? digits : " " + digits;
}

std::string unexpectedErrorMessage(std::string_view procedure, const RuntimeFailure& failure) {
  std::string text = "Unexpected error in ";
  text += procedure;
  text += ": ";
  text += failure.description();
  text += " (" + failureNumberText(failure.number()) + ")";
  return text;
}

std::string getIniStringErrorMessage(const RuntimeFailure& failure) {
  return "Unexpected error in GetINIString. \n" + failure.description() + " (" +
         failureNumberText(failure.number()) + ")";
}

std::string getRegStrErrorMessage(const RuntimeFailure& failure) {
  return "Unexpected error in GetRegStr \n\n" + failureNumberText(failure.number()) + " - " +
         failure.description();
}

std::string textFunctionErrorMessage(std::string_view function, const RuntimeFailure& failure) {
  std::string text(function);
  return text + ": " + failureNumberText(failure.number()) + " - 0";
}

}  // namespace korvane
