#include "mainwindow/color_key_editor.h"

#include <array>
#include <cstdint>

#include "mainwindow/main_window.h"
#include "objectfile/profile_lookup.h"
#include "runtime/failure_handling.h"
#include "text/delimited_text.h"
#include "text/number_conversion.h"

namespace korvane {

namespace {

// The fourteen controls that go on and off together, in the order in which
// they are always switched.
std::array<Control*, 14> colorKeyGroup(frmKorvane& frm) {
  return {&frm.lblColorKey,  &frm.lblR,         &frm.lblG,           &frm.lblB,           &frm.mskColorKey0,
          &frm.mskColorKey1, &frm.mskColorKey2, &frm.vscrlColorKey0, &frm.vscrlColorKey1, &frm.vscrlColorKey2,
          &frm.sldColorKey0, &frm.sldColorKey1, &frm.sldColorKey2,   &frm.lblShowColor};
}

void setColorKeyGroupEnabled(frmKorvane& frm, bool enabled) {
  for (Control* control : colorKeyGroup(frm)) control->SetEnabled(enabled);
}

// The swatch always goes by the three bars, whichever channel changed.
void updateSwatch(frmKorvane& frm) {
  frm.lblShowColor.SetBackColor(
      Rgb{frm.vscrlColorKey0.Value(), frm.vscrlColorKey1.Value(), frm.vscrlColorKey2.Value()});
}

}  // namespace

// Each set below may run the other handlers of the channel inside it, which
// can rewrite the field; so the field is read again after every set.
void mskColorKey_Change(frmKorvane& frm, int channel) {
  MaskedEdit& field = frm.colorKeyField(channel);
  if (LeadingNumber(field.Text()) > 255) field.SetText("255");
  if (field.Text().empty()) return;
  frm.colorKeyBar(channel).SetValue(RoundToWhole(LeadingNumber(field.Text()), WholeWidth::Bits16));
  frm.colorKeySlider(channel).SetValue(RoundToWhole(LeadingNumber(field.Text()), WholeWidth::Bits32));
  updateSwatch(frm);
}

void sldColorKey_Change(frmKorvane& frm, int channel) {
  Slider& slider = frm.colorKeySlider(channel);
  frm.colorKeyField(channel).SetText(std::to_string(slider.Value()));
  frm.colorKeyBar(channel).SetValue(slider.Value());
  updateSwatch(frm);
}

void vscrlColorKey_Change(frmKorvane& frm, int channel) {
  VScrollBar& bar = frm.colorKeyBar(channel);
  frm.colorKeyField(channel).SetText(std::to_string(bar.Value()));
  frm.colorKeySlider(channel).SetValue(bar.Value());
  updateSwatch(frm);
}

void chkAddColorKey_Click(frmKorvane& frm) {
  setColorKeyGroupEnabled(frm, frm.chkAddColorKey.Value() != 0);
}

void ReadColorKeyINI(frmKorvane& frm, const SourceSnapshot& source) {
  // The lookup reports its own failures and gives "" after them.
  ShowColorKeyValue(frm, GetINIString(frm.platform(), "Material - 0", "ColorKey", source));
}

void ShowColorKeyValue(frmKorvane& frm, const std::string& value) {
  Platform& platform = frm.platform();
  reportAndLeave(platform, "ReadColorKeyINI", [&] {
    if (value.empty()) {
      // No ColorKey: the editor goes off but keeps whatever colour it shows.
      setColorKeyGroupEnabled(frm, false);
      frm.chkAddColorKey.SetValue(0);
      return;
    }
    auto element = [&](int channel) {
      return GetElement(platform, value, ",", static_cast<std::int16_t>(channel));
    };
    // The field takes the element first, so that its handler clamps above 255;
    // the bar then gets the unclamped number, and refuses one above 255.
    for (int channel = 0; channel < 3; ++channel) frm.colorKeyField(channel).SetText(element(channel));
    for (int channel = 0; channel < 3; ++channel) {
      frm.colorKeyBar(channel).SetValue(RoundToWhole(LeadingNumber(element(channel)), WholeWidth::Bits16));
    }
    for (int channel = 0; channel < 3; ++channel) {
      frm.colorKeySlider(channel).SetValue(frm.colorKeyBar(channel).Value());
    }
    setColorKeyGroupEnabled(frm, true);
    frm.chkAddColorKey.SetValue(1);
  });
}

}  // namespace korvane
