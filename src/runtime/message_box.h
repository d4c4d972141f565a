#pragma once

#include <string>

namespace korvane {

class Platform;

// Every message of the program, refusal or failure: the prompt, OK only, no
// icon, the application title as the box's title.
void MsgBox(Platform& platform, const std::string& prompt);

}  // namespace korvane
