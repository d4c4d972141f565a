#pragma once
// Everything the logic takes from the desktop goes through this one interface:
// message boxes, file dialogs, the per-user store, opening a document, the
// screen, and the window system's show/hide/focus/exit. The Qt layer provides
// the real one; tests provide a scripted one.

#include <optional>
#include <string>

namespace korvane {

class Form;
class Control;

struct FileDialogRequest {
  std::string title;
  std::string initialDirectory;
  std::string filter;   // "description|pattern|description|pattern..."
  int filterIndex = 1;  // counted from 1
  bool saveMode = false;
  std::string fileName;
};

struct TwipsSize {
  double width = 0;
  double height = 0;
};

class Platform {
 public:
  virtual ~Platform() = default;

  // A modal box with the prompt, one OK button, no icon. Its answer is not looked at.
  virtual void messageBox(const std::string& prompt, const std::string& title) = 0;

  // A modal Open or Save dialog. The chosen file's full path, or nullopt when
  // the author cancelled. A dialog that cannot be shown throws RuntimeFailure.
  virtual std::optional<std::string> fileDialog(const FileDialogRequest& request) = 0;

  // The per-user store. A value never written (or its key) reads as nullopt.
  // The text is kept exactly. A store that cannot be written says false.
  virtual std::optional<std::string> readUserValue(const std::string& keyPath,
                                                   const std::string& valueName) = 0;
  virtual bool writeUserValue(const std::string& keyPath, const std::string& valueName,
                              const std::string& data) = 0;

  // Hands a document to the application the desktop associates with it.
  virtual bool openDocument(const std::string& path) = 0;

  // The whole screen, in twips, with no allowance for task bars.
  virtual TwipsSize screenSize() = 0;
  // What a window's frame and title bar add to its client area, in twips.
  virtual TwipsSize windowFrameSize(const Form& window) = 0;

  virtual std::string currentDirectory() = 0;
  virtual std::string programDirectory() = 0;

  // The window system. showModal comes back when the window has been hidden.
  virtual void showWindow(Form& window) = 0;
  virtual void showModal(Form& window, Form& owner) = 0;
  virtual void hideWindow(Form& window) = 0;
  virtual void unloadWindow(Form& window) = 0;
  virtual void setFocus(Form& window, Control& control) = 0;

  // The process is to end; the caller unwinds with ProcessEnded afterwards.
  virtual void endProcess() = 0;
};

}  // namespace korvane
