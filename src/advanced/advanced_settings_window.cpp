#include "advanced/advanced_settings_window.h"

#include "advanced/autolod.h"
#include "desktop/placement.h"

namespace korvane {

frmAdvancedSettings::frmAdvancedSettings(Platform& platform, Form& owner)
    : Form(platform, advancedSettingsDefinition().form()), m_owner(owner) {
  connectHandlers();
}

void frmAdvancedSettings::connectHandlers() {
  OKButton.onClick = [this] { OKButton_Click(*this); };
  btnUseDefault.onClick = [this] { btnUseDefault_Click(*this); };
  mskAutoLOD0.onLostFocus = [this] { mskAutoLOD0_LostFocus(*this); };
  mskAutoLOD1.onLostFocus = [this] { mskAutoLOD1_LostFocus(*this); };
}

void frmAdvancedSettings::Form_Load() {
  CenterFormHorizontally(*this);
  CenterFormVertically(*this);
}

// The close box hides like OK: closing would lose the values a save needs.
void frmAdvancedSettings::Form_QueryUnload() {
  OKButton_Click(*this);
}

}  // namespace korvane
