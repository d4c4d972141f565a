#include "qt/main_window_view.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QIcon>
#include <QKeyEvent>
#include <QMimeData>
#include <QPushButton>
#include <QTimer>

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

// The one local file that a drag carries, or the empty string.
QString draggedFile(const QMimeData* data) {
  if (data == nullptr || !data->hasUrls() || data->urls().size() != 1) return {};
  return data->urls().front().isLocalFile() ? data->urls().front().toLocalFile() : QString();
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
  // The window takes every drop, also over disabled frames, and asks the logic per frame.
  setAcceptDrops(true);
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

std::optional<SourceFrame> MainWindowView::frameTakingFileAt(const QPoint& position) const {
  // Nothing is open to the author while a message box, dialog or the settings window is up.
  if (m_platform.ended() || QApplication::activeModalWidget() != nullptr) return std::nullopt;
  const std::pair<const Control*, SourceFrame> frames[] = {{&m_form.Frame1, SourceFrame::LOD0},
                                                           {&m_form.Frame4, SourceFrame::LOD1}};
  for (const auto& [frame, source] : frames) {
    const QWidget* widget = m_mirror.widget(*frame);
    if (widget != nullptr && widget->geometry().contains(position))
      return FrameTakesFile(m_form, source) ? std::optional(source) : std::nullopt;
  }
  return std::nullopt;
}

void MainWindowView::dragEnterEvent(QDragEnterEvent* event) {
  // Taken in for a file at all; where it may land is decided as it moves.
  if (draggedFile(event->mimeData()).isEmpty()) return event->ignore();
  event->acceptProposedAction();
}

void MainWindowView::dragMoveEvent(QDragMoveEvent* event) {
  if (frameTakingFileAt(event->position().toPoint())) return event->acceptProposedAction();
  event->ignore();
}

void MainWindowView::dropEvent(QDropEvent* event) {
  const QString file = draggedFile(event->mimeData());
  const std::optional<SourceFrame> frame = frameTakingFileAt(event->position().toPoint());
  if (file.isEmpty() || !frame) return event->ignore();
  event->acceptProposedAction();
  // After the drop has ended: the program that the file came from waits until
  // then, and a refusal's message box would keep it waiting.
  QTimer::singleShot(0, this, [this, source = *frame, path = QFile::encodeName(file).toStdString()] {
    m_platform.runEntryPoint(source == SourceFrame::LOD0 ? "Frame1_Drop" : "Frame4_Drop",
                             [&] { HandFileToFrame(m_form, source, path); });
  });
}

}  // namespace korvane
