#pragma once
// frmKorvane on screen: a fixed-size window with a close box, an icon and a
// task-bar entry. Enter clicks the default button unless a button has the
// focus; Esc does nothing; every close request goes to Form_QueryUnload.

#include <QWidget>
#include <optional>

#include "mainwindow/source_loading.h"
#include "qt/form_mirror.h"
#include "qt/window_view.h"

namespace korvane {

class frmKorvane;

class MainWindowView : public QWidget, public WindowView {
  Q_OBJECT
 public:
  MainWindowView(frmKorvane& form, QtPlatform& platform);

  QWidget& widget() override { return *this; }
  FormMirror& mirror() override { return m_mirror; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  // The source frame under a point of the window that takes a file now.
  std::optional<SourceFrame> frameTakingFileAt(const QPoint& position) const;

  frmKorvane& m_form;
  QtPlatform& m_platform;
  FormMirror m_mirror;
};

}  // namespace korvane
