#include "qt/main_window_view.h"

#include <QCloseEvent>
#include <QDir>
#include <QIcon>
#include <QKeyEvent>
#include <QPushButton>

#include "mainwindow/main_window.h"
#include "qt/qt_platform.h"

namespace korvane {

namespace {

// Every size drawn from the one design, so no task bar or scale factor has to blow one up.
QIcon programIcon() {
  QIcon icon;
  const QDir icons(QStringLiteral(":/korvane"));
  for (const QString& name : icons.entryList({QStringLiteral("korvane-*.png")}))
    icon.addFile(icons.filePath(name));
  return icon;
}

}  // namespace

MainWindowView::MainWindowView(frmKorvane& form, QtPlatform& platform)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint),
      m_form(form),
      m_platform(platform),
      m_mirror(form, *this, platform) {
  setObjectName(QString::fromStdString(form.Name()));
  setWindowIcon(programIcon());
  m_mirror.showBackColor("lblShowColor");
  if (auto* button = qobject_cast<QPushButton*>(m_mirror.widget(form.DefaultButton())))
    button->setDefault(true);
}

void MainWindowView::closeEvent(QCloseEvent* event) {
  // The window goes only when the process ends, which ExitProgram decides.
  event->ignore();
  if (m_platform.ended()) return;
  m_platform.runEntryPoint("Form_QueryUnload", [this] { m_form.RequestClose(); });
}

void MainWindowView::keyPressEvent(QKeyEvent* event) {
  // Only keys that no control took arrive here: a focused button has clicked itself already.
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    auto* button = qobject_cast<QPushButton*>(m_mirror.widget(m_form.DefaultButton()));
    if (button && button->isEnabled() && button->isVisible()) {
      event->accept();
      button->click();
      return;
    }
  }
  QWidget::keyPressEvent(event);
}

}  // namespace korvane
