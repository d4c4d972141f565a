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

}  // namespace korvane
