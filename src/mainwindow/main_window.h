#pragma once
// frmKorvane: the main window as records. The program has no document object:
// these controls are its working state, read and written by the workflows.
//
// Layers, each a library that links only those below it (an include of a
// higher folder does not compile):
//   qt, cli             front ends: widgets, korvane-cli (tools/scenario, the
//                       scripted driver for the tests, drives qt)
//   shell               Program: start-up, the two windows, exit
//   mainwindow          frmKorvane, its handlers and workflows; window_procedures
//                       hands its stores and values to the procedures below
//   advanced            frmAdvancedSettings and the AutoLOD values
//   desktop             file dialogs, remembered directory, help, placement
//   controls            the controls as records
//   rewrite             material and LOD lines, on a LineStore and plain values
//   objectfile          line stores, source snapshots, lookups, validation, files
//   text, runtime       text functions; failures, message frames, the Platform
// Data of one job: handler -> path -> SourceSnapshot (read once) -> validation,
// lookups, store -> rewrite on the stores -> saved file.

#include "controls/button.h"
#include "controls/check_box.h"
#include "controls/file_dialog_control.h"
#include "controls/form.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/masked_edit.h"
#include "controls/scroll_bar.h"
#include "controls/slider.h"
#include "controls/text_box.h"
#include "controls/window_definition.h"

namespace korvane {

class Platform;
class frmAdvancedSettings;

// What the main window asks of the program that runs it (shell/program.h):
// the other window and the end of the process.
class ProgramServices {
 public:
  virtual Platform& platform() const = 0;
  // The settings window, brought into being on first touch.
  virtual frmAdvancedSettings& AdvancedSettings() = 0;
  [[noreturn]] virtual void ExitProgram() = 0;

 protected:
  ~ProgramServices() = default;
};

// frmKorvane as data, and the row of one of its controls by name.
const WindowDefinition& mainWindowDefinition();
const ControlDefinition& mainWindowControl(const std::string& name);
// Settings shared by the three ColorKey fields.
MaskedEditSettings colorKeyFieldSettings();

class frmKorvane : public Form {
 public:
  explicit frmKorvane(ProgramServices& program);

  ProgramServices& program() const { return m_program; }

  // Runs once, when the window is first shown, before it appears.
  void Form_Load();
  // Every close request of the window ends here.
  void Form_QueryUnload();
  // A close request, from the close box, the system menu, Alt+F4 or
  // ExitProgram: raises Form_QueryUnload unless a close is already under way.
  void RequestClose();

  // The default button: Enter clicks it wherever the focus is.
  Button& DefaultButton() { return btnBrowseLOD0; }

  // Command column.
  Button btnSaveAs{*this, mainWindowControl("btnSaveAs")};
  Button btnViewHelp{*this, mainWindowControl("btnViewHelp")};
  Button btnExit{*this, mainWindowControl("btnExit")};
  CheckBox chkAddColorKey{*this, mainWindowControl("chkAddColorKey")};
  CheckBox chkAddLOD1{*this, mainWindowControl("chkAddLOD1")};
  Button btnAdvancedSettings{*this, mainWindowControl("btnAdvancedSettings")};

  // High-detail source.
  Frame Frame1{*this, mainWindowControl("Frame1")};
  Button btnBrowseLOD0{*this, mainWindowControl("btnBrowseLOD0")};
  TextBox txtFilePathLOD0{*this, mainWindowControl("txtFilePathLOD0")};

  // Object data.
  Frame Frame2{*this, mainWindowControl("Frame2")};
  Label lblTextureMap{*this, mainWindowControl("lblTextureMap")};
  TextBox txtTextureMap{*this, mainWindowControl("txtTextureMap")};
  Button btnBrowseTextureMap{*this, mainWindowControl("btnBrowseTextureMap")};
  Label lblColorKey{*this, mainWindowControl("lblColorKey")};
  Label lblR{*this, mainWindowControl("lblR")};
  Label lblG{*this, mainWindowControl("lblG")};
  Label lblB{*this, mainWindowControl("lblB")};
  MaskedEdit mskColorKey0{*this, mainWindowControl("mskColorKey0"), colorKeyFieldSettings()};
  MaskedEdit mskColorKey1{*this, mainWindowControl("mskColorKey1"), colorKeyFieldSettings()};
  MaskedEdit mskColorKey2{*this, mainWindowControl("mskColorKey2"), colorKeyFieldSettings()};
  VScrollBar vscrlColorKey0{*this, mainWindowControl("vscrlColorKey0"), 255, 0};
  VScrollBar vscrlColorKey1{*this, mainWindowControl("vscrlColorKey1"), 255, 0};
  VScrollBar vscrlColorKey2{*this, mainWindowControl("vscrlColorKey2"), 255, 0};
  Slider sldColorKey0{*this, mainWindowControl("sldColorKey0"), 0, 255, 1, 5};
  Slider sldColorKey1{*this, mainWindowControl("sldColorKey1"), 0, 255, 1, 5};
  Slider sldColorKey2{*this, mainWindowControl("sldColorKey2"), 0, 255, 1, 5};
  Label lblShowColor{*this, mainWindowControl("lblShowColor")};
  Label lblNumberOfLOD{*this, mainWindowControl("lblNumberOfLOD")};
  Label lblLODnum{*this, mainWindowControl("lblLODnum")};

  // Low-detail source.
  Frame Frame4{*this, mainWindowControl("Frame4")};
  Button btnBrowseLOD1{*this, mainWindowControl("btnBrowseLOD1")};
  TextBox txtFilePathLOD1{*this, mainWindowControl("txtFilePathLOD1")};

  // Bottom strip.
  Frame Frame3{*this, mainWindowControl("Frame3")};
  Label Label1{*this, mainWindowControl("Label1")};
  Label Label2{*this, mainWindowControl("Label2")};

  // Never on screen.
  ListBox lstDataLOD0{*this, mainWindowControl("lstDataLOD0")};
  ListBox lstDataLOD1{*this, mainWindowControl("lstDataLOD1")};
  FileDialogControl CommonDialog1{*this, mainWindowControl("CommonDialog1")};

  // The channels by number: field, bar and slider of channel 0 (red), 1, 2.
  MaskedEdit& colorKeyField(int channel);
  VScrollBar& colorKeyBar(int channel);
  Slider& colorKeySlider(int channel);

  // True from the moment a close of this window is under way.
  bool closing = false;

 private:
  void connectHandlers();

  ProgramServices& m_program;
};

}  // namespace korvane
