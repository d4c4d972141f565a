#pragma once
// Many merges from one file of jobs, one a row, tab-separated: LOD 0 source,
// LOD 1 source, output, texture map name, ColorKey ("R,G,B" or "off"),
// AutoLOD ("A0,A1"). An empty cell means "as the source says"; relative
// paths are taken from the folder of the jobs file, or from the current
// directory when the jobs file is a descriptor such as /dev/stdin. Blank rows
// and rows that begin with '#' are skipped. The jobs file is a regular file.

#include <string>

namespace korvane::cli {

// 0 when every row merged, 1 when any failed, 2 when the jobs file cannot be read.
int runBatch(const std::string& jobsPath);

}  // namespace korvane::cli
