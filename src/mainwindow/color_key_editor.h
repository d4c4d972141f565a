#pragma once
// The ColorKey editor: three channels, each a field, a scroll bar and a
// slider that follow each other, and the swatch that shows the bars' colour.

#include <string>

namespace korvane {

class frmKorvane;
class SourceSnapshot;

void mskColorKey_Change(frmKorvane& frm, int channel);
void vscrlColorKey_Change(frmKorvane& frm, int channel);
void sldColorKey_Change(frmKorvane& frm, int channel);
void chkAddColorKey_Click(frmKorvane& frm);
void ReadColorKeyINI(frmKorvane& frm, const SourceSnapshot& source);
// What ReadColorKeyINI does with the value it looked up ("" for none), in its
// frame: korvane-cli check hands it the value its own scan found.
void ShowColorKeyValue(frmKorvane& frm, const std::string& value);

}  // namespace korvane
