#include "scenario/scenario_platform.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QFileInfo>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "controls/control.h"
#include "runtime/failure.h"
#include "scenario/escapes.h"

namespace korvane::scenario {

namespace {

constexpr const char* kSettingsWindowName = "frmAdvancedSettings";

std::string escaped(const QString& text) {
  return escapeText(text.toStdString());
}

// Tells when the settings window comes onto the screen and leaves it, and
// when any modal window of the program (not a message box) comes up. Only
// the program's own show and hide count; the window system's restoring of a
// window is no appearance.
class WindowWatcher : public QObject {
 public:
  WindowWatcher(Transcript& transcript, const std::function<void()>& onModalWindowShown)
      : m_transcript(transcript), m_onModalWindowShown(onModalWindowShown) {}

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const QEvent::Type type = event->type();
    if ((type != QEvent::Show && type != QEvent::Hide) || event->spontaneous()) return false;
    auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || !widget->isWindow()) return false;
    if (widget->objectName() == QLatin1String(kSettingsWindowName)) {
      m_transcript.write(std::string(type == QEvent::Show ? "SHOW " : "HIDE ") + kSettingsWindowName);
    }
    if (type == QEvent::Show && widget->isModal() && !qobject_cast<QMessageBox*>(widget) &&
        m_onModalWindowShown) {
      m_onModalWindowShown();
    }
    return false;
  }

 private:
  Transcript& m_transcript;
  const std::function<void()>& m_onModalWindowShown;
};

}  // namespace

ScenarioPlatform::ScenarioPlatform(const QString& storeFile, Transcript& transcript)
    : QtPlatform(storeFile),
      m_transcript(transcript),
      m_windowWatcher(new WindowWatcher(transcript, onModalWindowShown)) {
  qApp->installEventFilter(m_windowWatcher.get());
}

ScenarioPlatform::~ScenarioPlatform() {
  qApp->removeEventFilter(m_windowWatcher.get());
}

void ScenarioPlatform::messageBox(const std::string& prompt, const std::string& title) {
  // The box runs its own event loop; the timer finds it there, writes what it
  // shows and clicks its OK button. The timer lives no longer than this box.
  QTimer dismiss;
  dismiss.setInterval(0);
  QObject::connect(&dismiss, &QTimer::timeout, [this, &dismiss] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || !box->isVisible()) return;
    dismiss.stop();
    m_transcript.write("MSGBOX [" + escaped(box->windowTitle()) + "] " + escaped(box->text()));
    QAbstractButton* ok = box->button(QMessageBox::Ok);
    if (ok != nullptr) {
      QTest::mouseClick(ok, Qt::LeftButton);
    } else {
      box->accept();
    }
  });
  dismiss.start();
  QtPlatform::messageBox(prompt, title);
}

std::optional<std::string> ScenarioPlatform::fileDialog(const FileDialogRequest& request) {
  if (ended()) throw ProcessEnded{};
  if (m_answers.empty()) {
    if (onUnansweredDialog) onUnansweredDialog(request);
    return std::nullopt;
  }
  std::optional<std::string> answer = std::move(m_answers.front());
  m_answers.pop_front();
  m_transcript.write(
      std::string("DIALOG ") + (request.saveMode ? "save" : "open") + " [" + escapeText(request.title) +
      "] dir=" + escapeText(request.initialDirectory) + " filter=" + escapeText(request.filter) +
      " index=" + std::to_string(request.filterIndex) + " file=" + escapeText(request.fileName) + " -> " +
      (answer ? escapeText(*answer) : "cancel"));
  // A real dialog gives full paths: a relative answer names a file in the
  // current directory, where a typed name would land.
  if (answer && !answer->empty() && std::filesystem::path(*answer).is_relative()) {
    answer = (std::filesystem::path(currentDirectory()) / *answer).lexically_normal().string();
  }
  return answer;
}

bool ScenarioPlatform::openDocument(const std::string& path) {
  // No other application is started from a scripted run. The answer is the
  // one the desktop gives at its first check: a document that is no file
  // cannot be launched.
  const bool launched = QFileInfo(QString::fromStdString(path)).isFile();
  m_transcript.write("OPEN " + escapeText(path) + " -> " + (launched ? "launched" : "failed"));
  return launched;
}

void ScenarioPlatform::setFocus(Form& window, Control& control) {
  m_transcript.write("FOCUS " + control.Name());
  QtPlatform::setFocus(window, control);
}

void ScenarioPlatform::endProcess() {
  m_transcript.write("EXIT");
  m_transcript.close();
  QtPlatform::endProcess();
}

}  // namespace korvane::scenario
