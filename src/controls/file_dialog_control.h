#pragma once

#include "controls/control.h"

namespace korvane {

// The window's one file dialog: no position, no tab index, on screen only
// while a dialog runs. Its properties are set anew for every dialog.
class FileDialogControl : public Control {
 public:
  using Control::Control;
  bool CancelError = false;
  std::string DialogTitle;
  std::string InitDir;
  std::string Filter;
  int FilterIndex = 0;
  std::string FileName;
};

}  // namespace korvane
