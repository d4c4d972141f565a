#include "shell/program.h"

#include "desktop/directory_store.h"
#include "runtime/failure_handling.h"
#include "runtime/shared_strings.h"

namespace korvane {

Program::Program(Platform& platform) : m_platform(platform) {}

Program::~Program() = default;

void Program::Main() {
  AppTitleName = kAppTitle;
  std::string remembered =
      GetRegStr(m_platform, defaultDirKeyPath(AppTitleName), kDefaultDirValueName, HKEY_CURRENT_USER);
  // No remembered directory, for whatever reason, is a first run.
  DefaultDirPath = remembered.empty() ? m_platform.currentDirectory() : remembered;
  frmKorvane& main = MainWindow();
  main.Form_Load();
  main.SetVisible(true);
  m_platform.showWindow(main);
}

void Program::ExitProgram() {
  // A step of the exit that fails is given up and the next one runs.
  // A settings window that was never touched is not brought into being here.
  ignoringFailure([&] {
    if (m_advanced && !m_advancedClosed) {
      m_advancedClosed = true;
      m_platform.unloadWindow(*m_advanced);
    }
  });
  // Closing the main window raises its Form_QueryUnload, which runs this
  // procedure again, inside this call. That inner run finds the window already
  // closing and goes straight on to the end, so this call never continues.
  ignoringFailure([&] {
    if (m_main) m_main->RequestClose();
  });
  ignoringFailure([&] { m_platform.endProcess(); });
  throw ProcessEnded{};
}

frmKorvane& Program::MainWindow() {
  if (!m_main) m_main = std::make_unique<frmKorvane>(*this);
  return *m_main;
}

frmAdvancedSettings& Program::AdvancedSettings() {
  if (!m_advanced) {
    m_advanced = std::make_unique<frmAdvancedSettings>(m_platform, MainWindow());
    m_advanced->Form_Load();
  }
  return *m_advanced;
}

}  // namespace korvane
