#pragma once
// The real platform: Qt dialogs and message boxes, QSettings as the per-user
// store, QDesktopServices for the help, and the two windows as Qt widgets
// that mirror their records.
//
// A scenario driver or a test subclasses it to answer the message boxes and
// file dialogs from a script; it drives the real widgets, which it finds by
// the controls' names.

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "runtime/platform.h"

class QSettings;
class QWidget;

namespace korvane {

class WindowView;

// "desc|pattern|desc|pattern" as Qt name filters. Each description is shown
// as it stands; the pattern rides behind it, where Qt reads it but does not
// show it (QFileDialog::HideNameFilterDetails).
QStringList qtNameFilters(const std::string& filter);

// QSettings opens its files to read them as soon as it is made, and such an
// open waits for ever on a FIFO without a writer, or reads a device without
// end. Whether every one of the files is absent or a regular file; if not,
// one line on standard error names it, and the store is not used this run:
// the dialogs start in the current directory and nothing is remembered.
bool storeFilesUsable(const QStringList& files);

class QtPlatform : public Platform {
 public:
  // The store is the user's own (QSettings, user scope, "Korvane").
  QtPlatform();
  // The store is the given settings file instead.
  explicit QtPlatform(const QString& storeFile);
  ~QtPlatform() override;

  void messageBox(const std::string& prompt, const std::string& title) override;
  std::optional<std::string> fileDialog(const FileDialogRequest& request) override;
  std::optional<std::string> readUserValue(const std::string& keyPath, const std::string& valueName) override;
  bool writeUserValue(const std::string& keyPath, const std::string& valueName,
                      const std::string& data) override;
  bool openDocument(const std::string& path) override;
  TwipsSize screenSize() override;
  TwipsSize windowFrameSize(const Form& window) override;
  std::string currentDirectory() override;
  std::string programDirectory() override;
  void showWindow(Form& window) override;
  void showModal(Form& window, Form& owner) override;
  void hideWindow(Form& window) override;
  void unloadWindow(Form& window) override;
  void setFocus(Form& window, Control& control) override;
  void endProcess() override;

  // Every call from Qt into the logic goes through here. The end of the
  // process quits the event loop; a failure that no handler dealt with is
  // shown as "Unexpected error in <handler>: ..." and the program goes on.
  void runEntryPoint(std::string_view handler, const std::function<void()>& body);

  // The window on screen for a form, built on first asking.
  QWidget& windowWidget(Form& window);
  // The widget of a control by its name; nullptr for one never on screen.
  QWidget* controlWidget(Form& window, const std::string& controlName);
  // Whether the author can act on the control now: it and its frames are
  // enabled, its window is on screen and no other modal window is in the way.
  bool controlAcceptsInput(Control& control);

  bool ended() const { return m_ended; }

 protected:
  // Leaves every running event loop. Tests that run no loop replace it.
  virtual void quitEventLoop();
  // The window that a message box or file dialog belongs to.
  QWidget* dialogOwner();

 private:
  WindowView& viewFor(Form& window);
  WindowView* existingView(const Form& window) const;
  void showView(WindowView& view);
  // After a nested event loop: a process that ended meanwhile unwinds the logic.
  void unwindIfEnded() const;

  std::unique_ptr<QSettings> m_store;  // none: the store's files are not usable
  std::vector<std::pair<const Form*, std::unique_ptr<WindowView>>> m_views;  // in order of creation
  bool m_ended = false;
  bool m_busy = false;  // the wait cursor stands
};

}  // namespace korvane
