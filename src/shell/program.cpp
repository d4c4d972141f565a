#include "shell/program.h"

#include "runtime/failure.h"
#include "runtime/shared_strings.h"
#include "shell/directory_store.h"

namespace korvane {

Program::Program(Platform& platform) : m_platform(platform) {}

Program::~Program() = default;

void Program::Main() {
  AppTitleName = "Korvane";
  std::string remembered = GetRegStr(m_platform, "Software\\" + AppTitleName, "DefaultDir", HKEY_CURRENT_USER);
  DefaultDirPath = remembered.empty() ? m_platform.currentDirectory() : remembered;
  frmKorvane& main = MainWindow();
  main.Form_Load();
  main.SetVisible(true);
  m_platform.showWindow(main);
}

void Program::ExitProgram() {
  // Every step runs whatever became of the one before it.
  try {
    if (m_advanced) m_platform.unloadWindow(*m_advanced);
  } catch (...) {
  }
  try {
    // The inner run, raised from the close below, finds the window already
    // closing and goes straight on to the end of the process.
    if (m_main && !m_main->closing) {
      m_main->closing = true;
      m_main->Form_QueryUnload();
    }
  } catch (const RuntimeFailure&) {
  }
  m_platform.endProcess();
  throw ProcessEnded{};
}

frmKorvane& Program::MainWindow() {
  if (!m_main) m_main = std::make_unique<frmKorvane>(*this);
  return *m_main;
}

frmAdvancedSettings& Program::AdvancedSettings() {
  if (!m_advanced) {
    m_advanced = std::make_unique<frmAdvancedSettings>(*this);
    m_advanced->Form_Load();
  }
  return *m_advanced;
}

}  // namespace korvane
