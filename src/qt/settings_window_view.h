#pragma once
// frmAdvancedSettings on screen: a fixed dialog frame, no icon, no task-bar
// entry, owned by the main window. Neither Enter nor Esc does anything, and
// the close box goes to Form_QueryUnload.

#include <QDialog>

#include "qt/form_mirror.h"
#include "qt/window_view.h"

namespace korvane {

class frmAdvancedSettings;

class SettingsWindowView : public QDialog, public WindowView {
  Q_OBJECT
 public:
  SettingsWindowView(frmAdvancedSettings& form, QtPlatform& platform, QWidget& owner);

  QWidget& widget() override { return *this; }
  FormMirror& mirror() override { return m_mirror; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  frmAdvancedSettings& m_form;
  QtPlatform& m_platform;
  FormMirror m_mirror;
};

}  // namespace korvane
