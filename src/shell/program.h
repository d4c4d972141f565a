#pragma once
// The running program: the platform it runs on and its two windows, each a
// single instance reached through here. A reference to frmAdvancedSettings
// brings it into being, hidden, with its Form_Load run.

#include <memory>

#include "advanced/advanced_settings_window.h"
#include "mainwindow/main_window.h"
#include "runtime/platform.h"

namespace korvane {

class Program final : public ProgramServices {
 public:
  explicit Program(Platform& platform);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  Platform& platform() const override { return m_platform; }

  // Start-up: the title, the remembered directory with its fallback, and the
  // main window shown (its Form_Load runs first).
  void Main();
  // Closes both windows with failures ignored and ends the process: it calls
  // Platform::endProcess and then throws ProcessEnded.
  [[noreturn]] void ExitProgram() override;

  // The main window; created by Main (or on first call).
  frmKorvane& MainWindow();
  bool MainWindowLoaded() const { return m_main != nullptr; }

  // The settings window, brought into being on first touch.
  frmAdvancedSettings& AdvancedSettings() override;
  bool AdvancedSettingsLoaded() const { return m_advanced != nullptr; }

 private:
  Platform& m_platform;
  std::unique_ptr<frmKorvane> m_main;
  std::unique_ptr<frmAdvancedSettings> m_advanced;
  // Set once ExitProgram has closed the settings window, so that the run of
  // ExitProgram nested in the main window's close finds nothing left to close.
  bool m_advancedClosed = false;
};

}  // namespace korvane
