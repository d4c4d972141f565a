// Placeholder until implemented.
#include "shell/file_dialog.h"

#include "mainwindow/main_window.h"
namespace korvane {
std::string ShowFileDialog(frmKorvane&, const std::string&, const std::string&, const std::string&, std::int16_t, bool, const std::string&) { return {}; }
}  // namespace korvane
