#include "objectfile/file_transfer.h"

#include <string_view>

#include "mainwindow/main_window.h"
#include "objectfile/line_store.h"
#include "objectfile/line_writer.h"
#include "objectfile/source_text.h"
#include "runtime/failure.h"
#include "runtime/failure_handling.h"
#include "text/byte_scan.h"

namespace korvane {
namespace {

constexpr std::string_view kLOD0Marker = "[LOD 0]";

void writeStore(LineWriter& writer, const LineStore& store) {
  store.ForEachPiece([&](std::string_view bytes, bool lineEndToCome) {
    if (lineEndToCome) {
      writer.writeLine(bytes);
    } else {
      writer.writeBytes(bytes);
    }
  });
}

// The bytes that the lookups of this opening read, or else the file anew.
void loadSource(LineStore& store, const std::string& path) {
  SourceText text;
  if (takeSharedSource(path, text)) return store.Load(std::move(text));
  try {
    readSource(path, text);
  } catch (const RuntimeFailure&) {
    // The lines that ended before a failing read stay stored.
    store.Load(std::move(text));
    throw;
  }
  store.Load(std::move(text));
}

}  // namespace

void ReadFileLOD0(frmKorvane& frm, const std::string& path) {
  reportAndLeave(frm.platform(), "ReadFileLOD0", [&] {
    LineStore& store = frm.lstDataLOD0.Store();
    // Cleared before the file is opened, so a file that fails leaves no old lines.
    store.Clear();
    loadSource(store, path);
  });
}

void ReadFileLOD1(frmKorvane& frm, const std::string& path) {
  reportAndLeave(frm.platform(), "ReadFileLOD1", [&] {
    LineStore& store = frm.lstDataLOD1.Store();
    store.Clear();
    // Whatever happens, only the lines from the marker on may stay stored.
    struct KeepFromMarker {
      LineStore& store;
      ~KeepFromMarker() {
        LineStore::Index marker = 0;
        for (auto hit = store.Find(0, kLOD0Marker, detail::findText); hit;
             hit = store.Find(marker + 1, kLOD0Marker, detail::findText)) {
          marker = hit->index;
          if (store.List(marker) == kLOD0Marker) break;
        }
        if (store.List(marker) != kLOD0Marker) marker = store.ListCount();
        // Each of these only moves where the store's first run of lines starts.
        while (marker-- > 0) store.RemoveItem(0);
      }
    } keep{store};
    loadSource(store, path);
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
