#include "objectfile/file_transfer.h"

#include <string_view>

#include "mainwindow/main_window.h"
#include "objectfile/line_reader.h"
#include "objectfile/line_store.h"
#include "objectfile/line_writer.h"
#include "runtime/failure_handling.h"

namespace korvane {
namespace {

constexpr std::string_view kLOD0Marker = "[LOD 0]";

void writeStore(LineWriter& writer, const LineStore& store) {
  for (std::int32_t index = 0, count = store.ListCount(); index < count; ++index) {
    writer.writeLine(store.List(index));
  }
}

}  // namespace

void ReadFileLOD0(frmKorvane& frm, const std::string& path) {
  reportAndLeave(frm.platform(), "ReadFileLOD0", [&] {
    LineStore& store = frm.lstDataLOD0.Store();
    // Cleared before the file is opened, so a file that fails leaves no old lines.
    store.Clear();
    readLines(path, [&](std::string_view line) { store.AddItem(line); });
  });
}

void ReadFileLOD1(frmKorvane& frm, const std::string& path) {
  reportAndLeave(frm.platform(), "ReadFileLOD1", [&] {
    bool found = false;
    LineStore& store = frm.lstDataLOD1.Store();
    store.Clear();
    readLines(path, [&](std::string_view line) {
      // Once found, a later marker line is stored like any other.
      if (!found && line == kLOD0Marker) found = true;
      if (found) store.AddItem(line);
    });
  });
}

void SaveFileLOD0(frmKorvane& frm, const std::string& path) {
  reportAndLeave(frm.platform(), "SaveFileLOD0", [&] {
    LineWriter writer(path);
    writeStore(writer, frm.lstDataLOD0.Store());
    writer.close();
  });
}

void SaveFileCombined(frmKorvane& frm, const std::string& path) {
  reportAndLeave(frm.platform(), "SaveFileCombined", [&] {
    LineWriter writer(path);
    writeStore(writer, frm.lstDataLOD0.Store());
    writeStore(writer, frm.lstDataLOD1.Store());
    writer.close();
  });
}

}  // namespace korvane
