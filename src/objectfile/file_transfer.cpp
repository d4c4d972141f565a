#include "objectfile/file_transfer.h"

#include <string_view>

#include "objectfile/line_store.h"
#include "objectfile/line_writer.h"
#include "objectfile/source_snapshot.h"
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
void loadSource(LineStore& store, SourceSnapshot& source) {
  SourceText text;
  try {
    source.moveTo(text);
  } catch (const RuntimeFailure&) {
    // The lines that ended before a failing read stay stored.
    store.Load(std::move(text));
    throw;
  }
  store.Load(std::move(text));
}

}  // namespace

std::optional<RuntimeFailure> ReadFileLOD0(Platform& platform, LineStore& store, SourceSnapshot&& source) {
  return reportAndLeave(platform, "ReadFileLOD0", [&] {
    // Cleared before the file is opened, so a file that fails leaves no old lines.
    store.Clear();
    loadSource(store, source);
  });
}

std::optional<RuntimeFailure> ReadFileLOD1(Platform& platform, LineStore& store, SourceSnapshot&& source) {
  return reportAndLeave(platform, "ReadFileLOD1", [&] {
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
    loadSource(store, source);
  });
}

std::optional<RuntimeFailure> SaveFileLOD0(Platform& platform, const LineStore& lod0,
                                           const std::string& path) {
  return reportAndLeave(platform, "SaveFileLOD0", [&] {
    LineWriter writer(path);
    writeStore(writer, lod0);
    writer.close();
  });
}

std::optional<RuntimeFailure> SaveFileCombined(Platform& platform, const LineStore& lod0,
                                               const LineStore& lod1, const std::string& path) {
  return reportAndLeave(platform, "SaveFileCombined", [&] {
    LineWriter writer(path);
    writeStore(writer, lod0);
    writeStore(writer, lod1);
    writer.close();
  });
}

}  // namespace korvane
