#pragma once

#include <optional>
#include <string>

#include "mainwindow/workflow_outcome.h"

namespace korvane {

class frmKorvane;

// Refuses incomplete input, asks for the target, rewrites the stored lines and writes them.
void btnSaveAs_Click(frmKorvane& frm);

// The click's first step: incomplete input is refused before the dialog, with
// its message and the focus where the author has to type; the message, if so.
std::optional<std::string> RefuseIncompleteInput(frmKorvane& frm);
// The click from the moment the dialog has given a path on (empty: cancelled).
SaveOutcome SaveSourcesAs(frmKorvane& frm, const std::string& path);
// Both, for a front end that has its path already.
SaveOutcome SaveAs(frmKorvane& frm, const std::string& path);

}  // namespace korvane
