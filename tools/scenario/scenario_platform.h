#pragma once
// The real Qt platform with the author's side played by a script: every
// message box is shown and then dismissed with OK, each file dialog takes the
// next queued answer (made absolute against the current directory), and what the author would see goes to the
// transcript:
//   MSGBOX [TITLE] TEXT, DIALOG ..., OPEN PATH -> launched|failed,
//   FOCUS NAME, SHOW/HIDE frmAdvancedSettings, EXIT.
// Windows, widgets and the per-user store are the real ones.

#include <QObject>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "qt/qt_platform.h"
#include "scenario/transcript.h"

namespace korvane::scenario {

class ScenarioPlatform : public QtPlatform {
 public:
  ScenarioPlatform(const QString& storeFile, Transcript& transcript);
  ~ScenarioPlatform() override;

  // nullopt: the dialog is cancelled.
  void queueAnswer(std::optional<std::string> answer) { m_answers.push_back(std::move(answer)); }
  // A dialog that opens with no answer queued is reported here and then cancelled.
  std::function<void(const FileDialogRequest&)> onUnansweredDialog;
  // A modal window of the program came up and is about to run its own event loop.
  std::function<void()> onModalWindowShown;

  void messageBox(const std::string& prompt, const std::string& title) override;
  std::optional<std::string> fileDialog(const FileDialogRequest& request) override;
  bool openDocument(const std::string& path) override;
  void setFocus(Form& window, Control& control) override;
  void endProcess() override;

 private:
  Transcript& m_transcript;
  std::deque<std::optional<std::string>> m_answers;
  std::unique_ptr<QObject> m_windowWatcher;
};

}  // namespace korvane::scenario
