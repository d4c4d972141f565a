#include "qt/settings_window_view.h"

#include <QCloseEvent>
#include <QIcon>
#include <QKeyEvent>

#include "advanced/advanced_settings_window.h"
#include "qt/qt_platform.h"

namespace korvane {

SettingsWindowView::SettingsWindowView(frmAdvancedSettings& form, QtPlatform& platform, QWidget& owner)
    : QDialog(&owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                          Qt::MSWindowsFixedSizeDialogHint),
      m_form(form),
      m_platform(platform),
      m_mirror(form, *this, platform) {
  setObjectName(QString::fromStdString(form.Name()));
  // An empty icon of its own, or Qt would lend it the owner's.
  setWindowIcon(QIcon());
  setSizeGripEnabled(false);
}

void SettingsWindowView::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (m_platform.ended()) return;
  m_platform.runEntryPoint("Form_QueryUnload", [this] { m_form.Form_QueryUnload(); });
}

void SettingsWindowView::keyPressEvent(QKeyEvent* event) {
  // QDialog would click a default button on Enter and hide itself on Esc;
  // this window has neither a default nor a cancel button.
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
      event->accept();
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

}  // namespace korvane
