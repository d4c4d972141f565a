#pragma once
// frmAdvancedSettings: the second window, as records. The Text of its two
// fields is the one place where the AutoLOD values live, shown or not, so the
// window is brought into being hidden on first touch and never destroyed
// before the process ends.

#include "controls/button.h"
#include "controls/form.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/masked_edit.h"
#include "controls/window_definition.h"

namespace korvane {

class Platform;

// frmAdvancedSettings as data, and the row of one of its controls by name.
const WindowDefinition& advancedSettingsDefinition();
const ControlDefinition& advancedSettingsControl(const std::string& name);
// Settings shared by the two AutoLOD fields: no mask, six characters, "0.000".
MaskedEditSettings autoLodFieldSettings();

class frmAdvancedSettings : public Form {
 public:
  // The owner is the window it shows over, the main window.
  frmAdvancedSettings(Platform& platform, Form& owner);

  Form& owner() const { return m_owner; }

  // Runs once, at creation: centres the window and sets no field.
  void Form_Load();
  // The close box: hides like OK, so the values survive for the next save.
  void Form_QueryUnload();

  Button OKButton{*this, advancedSettingsControl("OKButton")};
  Button btnUseDefault{*this, advancedSettingsControl("btnUseDefault")};
  Frame Frame1{*this, advancedSettingsControl("Frame1")};
  MaskedEdit mskAutoLOD0{*this, advancedSettingsControl("mskAutoLOD0"), autoLodFieldSettings()};
  MaskedEdit mskAutoLOD1{*this, advancedSettingsControl("mskAutoLOD1"), autoLodFieldSettings()};
  Label lblAutoLOD0{*this, advancedSettingsControl("lblAutoLOD0")};
  Label lblAutoLOD1{*this, advancedSettingsControl("lblAutoLOD1")};

 private:
  void connectHandlers();

  Form& m_owner;
};

}  // namespace korvane
