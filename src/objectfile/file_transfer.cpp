// Placeholder until implemented.
#include "objectfile/file_transfer.h"

#include "mainwindow/main_window.h"
namespace korvane {
void ReadFileLOD0(frmKorvane&, const std::string&) {}
void ReadFileLOD1(frmKorvane&, const std::string&) {}
void SaveFileLOD0(frmKorvane&, const std::string&) {}
void SaveFileCombined(frmKorvane&, const std::string&) {}
}  // namespace korvane
