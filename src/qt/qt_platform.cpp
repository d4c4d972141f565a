#include "qt/qt_platform.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QEvent>
#include <QEventLoop>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>
#include <cstdio>
#include <stdexcept>

#include "advanced/advanced_settings_window.h"
#include "mainwindow/main_window.h"
#include "qt/desktop.h"
#include "qt/form_mirror.h"
#include "qt/main_window_view.h"
#include "qt/settings_window_view.h"
#include "qt/text_bytes.h"
#include "qt/twips.h"
#include "runtime/failure_handling.h"
#include "runtime/message_box.h"
#include "runtime/message_frames.h"
#include "shell/program.h"

namespace korvane {

namespace {

QString toQt(const std::string& text) {
  return textFromBytes(text);
}

// The logic's paths are UTF-8 on every system (the Windows file layer makes
// UTF-16 of them), and the author sees them with the system's separators.
QString pathToQt(const std::string& path) {
  return QDir::fromNativeSeparators(QString::fromUtf8(path.data(), static_cast<qsizetype>(path.size())));
}

std::string pathFromQt(const QString& path) {
  return QDir::toNativeSeparators(path).toUtf8().toStdString();
}

// What a window manager's frame adds before the window has one of its own:
// a thin border round the sides and bottom, a title bar on top.
constexpr int kEstimatedFrameWidthPixels = 8;
constexpr int kEstimatedFrameHeightPixels = 32;

// The settings key of a value: the key path with '/' between its parts.
QString storeKey(const std::string& keyPath, const std::string& valueName) {
  QString key = toQt(keyPath);
  key.replace(QLatin1Char('\\'), QLatin1Char('/'));
  return key + QLatin1Char('/') + toQt(valueName);
}

// The wait cursor stands over the windows while the outermost handler runs,
// so that the author sees a long read or save at work.
class BusyCursor {
 public:
  explicit BusyCursor(bool& busy) : m_busy(busy), m_outermost(!busy) {
    if (!m_outermost) return;
    m_busy = true;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  }
  ~BusyCursor() {
    if (!m_outermost) return;
    m_busy = false;
    QGuiApplication::restoreOverrideCursor();
  }
  BusyCursor(const BusyCursor&) = delete;
  BusyCursor& operator=(const BusyCursor&) = delete;

 private:
  bool& m_busy;
  bool m_outermost;
};

// While a modal window of the platform is up the author works in it: the
// normal cursor comes back, and a handler that runs from it has its own.
class IdleCursor {
 public:
  explicit IdleCursor(bool& busy) : m_busy(busy), m_wasBusy(busy) {
    if (!m_wasBusy) return;
    m_busy = false;
    QGuiApplication::restoreOverrideCursor();
  }
  ~IdleCursor() {
    if (!m_wasBusy) return;
    m_busy = true;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  }
  IdleCursor(const IdleCursor&) = delete;
  IdleCursor& operator=(const IdleCursor&) = delete;

 private:
  bool& m_busy;
  bool m_wasBusy;
};

// Ends the nested event loop when the watched window leaves the screen.
class HideWatcher : public QObject {
 public:
  HideWatcher(QWidget& window, QEventLoop& loop) : m_loop(loop) { window.installEventFilter(this); }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Hide) m_loop.quit();
    return false;
  }

 private:
  QEventLoop& m_loop;
};

}  // namespace

bool storeFilesUsable(const QStringList& files) {
  for (const QString& file : files) {
    // The lock file too: QSettings reads it when it finds one.
    for (const QFileInfo& info : {QFileInfo(file), QFileInfo(file + QStringLiteral(".lock"))}) {
      if (!info.exists() || info.isFile()) continue;
      const QByteArray name = QFile::encodeName(info.filePath());
      std::fprintf(stderr,
                   "Korvane: %s is not a regular file: the remembered folder is neither read nor kept "
                   "this time.\n",
                   name.constData());
      return false;
    }
  }
  return true;
}

QStringList qtNameFilters(const std::string& filter) {
  const QStringList parts = toQt(filter).split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    // The desktop's patterns are separated by ';' and "*.*" means every
    // file; Qt separates by blanks, and "*.*" would miss names without a dot.
    QStringList patterns = parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (QString& pattern : patterns) {
      pattern = pattern.trimmed();
      if (pattern == QLatin1String("*.*")) pattern = QStringLiteral("*");
    }
    filters << parts[i] + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
  }
  return filters;
}

QtPlatform::QtPlatform() {
  const QString user = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  const QString system = QLibraryInfo::path(QLibraryInfo::SettingsPath);
  const QString names[] = {QStringLiteral("/Korvane/Korvane.ini"), QStringLiteral("/Korvane.ini")};
  QStringList files;
  for (const QString& folder : {user, system}) {
    for (const QString& name : names) files << folder + name;
  }
  if (storeFilesUsable(files)) m_store = openUserStore();
}

QtPlatform::QtPlatform(const QString& storeFile) {
  if (storeFilesUsable({storeFile})) m_store = std::make_unique<QSettings>(storeFile, QSettings::IniFormat);
}

QtPlatform::~QtPlatform() {
  // The records may already be gone: no widget may reach them from here on.
  for (auto& [form, view] : m_views) view->mirror().detach();
  while (!m_views.empty()) m_views.pop_back();
}

void QtPlatform::messageBox(const std::string& prompt, const std::string& title) {
  unwindIfEnded();
  const IdleCursor idle(m_busy);
  QMessageBox box(QMessageBox::NoIcon, toQt(title), toQt(prompt), QMessageBox::Ok, dialogOwner());
  box.setTextFormat(Qt::PlainText);
  // What a screen reader says first when the box opens.
  box.setAccessibleDescription(toQt(prompt));
  box.exec();
  unwindIfEnded();
}

std::optional<std::string> QtPlatform::fileDialog(const FileDialogRequest& request) {
  unwindIfEnded();
  const IdleCursor idle(m_busy);
  QFileDialog dialog(dialogOwner(), toQt(request.title), pathToQt(request.initialDirectory));
  dialog.setOption(QFileDialog::DontUseNativeDialog, !nativeFileDialogs());
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setAcceptMode(request.saveMode ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::AnyFile);
  const QStringList filters = qtNameFilters(request.filter);
  dialog.setNameFilters(filters);
  if (request.filterIndex >= 1 && request.filterIndex <= filters.size()) {
    dialog.selectNameFilter(filters[request.filterIndex - 1]);
  }
  if (!request.fileName.empty()) dialog.selectFile(pathToQt(request.fileName));
  const bool chosen = dialog.exec() == QDialog::Accepted;
  unwindIfEnded();
  const QStringList files = dialog.selectedFiles();
  if (!chosen || files.isEmpty()) return std::nullopt;
  return pathFromQt(files.first());
}

std::optional<std::string> QtPlatform::readUserValue(const std::string& keyPath,
                                                     const std::string& valueName) {
  if (!m_store) return std::nullopt;
  const QVariant value = m_store->value(storeKey(keyPath, valueName));
  if (!value.isValid()) return std::nullopt;
  // Bytes that are no text in UTF-8 were kept as bytes; anything else is read as text.
  if (value.typeId() == QMetaType::QByteArray) return value.toByteArray().toStdString();
  return value.toString().toStdString();
}

bool QtPlatform::writeUserValue(const std::string& keyPath, const std::string& valueName,
                                const std::string& data) {
  if (!m_store || !m_store->isWritable()) return false;
  const QString text = toQt(data);
  if (text.toStdString() == data) {
    m_store->setValue(storeKey(keyPath, valueName), text);
  } else {
    m_store->setValue(storeKey(keyPath, valueName), QByteArray::fromStdString(data));
  }
  m_store->sync();
  return m_store->status() == QSettings::NoError;
}

bool QtPlatform::openDocument(const std::string& path) {
  const QFileInfo file(pathToQt(path));
  if (!file.isFile()) return false;
  return QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
}

TwipsSize QtPlatform::screenSize() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) throw RuntimeFailure(failure_number::InvalidProcedureCall);
  const QSize pixels = screen->geometry().size();
  return TwipsSize{pixelsToTwips(pixels.width()), pixelsToTwips(pixels.height())};
}

TwipsSize QtPlatform::windowFrameSize(const Form& window) {
  // Everything the window measures beyond its defined client area: the
  // frame, and what the layout grew to fit the fonts at hand.
  QSize frame(kEstimatedFrameWidthPixels, kEstimatedFrameHeightPixels);
  QSize client(twipsToPixels(window.Definition().clientWidth),
               twipsToPixels(window.Definition().clientHeight));
  if (WindowView* view = existingView(window)) {
    const QWidget& widget = view->widget();
    client = widget.size();
    if (widget.isVisible()) frame = widget.frameGeometry().size() - widget.geometry().size();
  }
  return TwipsSize{pixelsToTwips(client.width() + frame.width()) - window.Definition().clientWidth,
                   pixelsToTwips(client.height() + frame.height()) - window.Definition().clientHeight};
}

std::string QtPlatform::currentDirectory() {
  return pathFromQt(QDir::currentPath());
}

std::string QtPlatform::programDirectory() {
  return pathFromQt(QCoreApplication::applicationDirPath());
}

void QtPlatform::showWindow(Form& window) {
  showView(viewFor(window));
}

void QtPlatform::showModal(Form& window, Form& owner) {
  unwindIfEnded();
  const IdleCursor idle(m_busy);
  QWidget& ownerWidget = viewFor(owner).widget();
  WindowView& view = viewFor(window);
  QWidget& widget = view.widget();
  if (!widget.isVisible()) widget.setWindowModality(Qt::ApplicationModal);
  showView(view);
  if (widget.isVisible()) {
    QEventLoop loop;
    HideWatcher watcher(widget, loop);
    loop.exec(QEventLoop::DialogExec);
  }
  unwindIfEnded();
  // The author goes on in the owner, whatever the window system activates next.
  if (ownerWidget.isVisible()) ownerWidget.activateWindow();
}

void QtPlatform::hideWindow(Form& window) {
  if (WindowView* view = existingView(window)) view->widget().hide();
}

void QtPlatform::unloadWindow(Form& window) {
  hideWindow(window);
}

void QtPlatform::setFocus(Form& window, Control& control) {
  QWidget* widget = viewFor(window).mirror().widget(control);
  if (widget == nullptr) return;
  widget->setFocus(Qt::OtherFocusReason);
  // The window comes to the front with its control, also where no window
  // manager hands the focus back after a message box: the focus a control
  // has in an inactive window is never reported.
  if (widget->isVisible()) widget->activateWindow();
}

void QtPlatform::endProcess() {
  m_ended = true;
  for (auto& [form, view] : m_views) view->widget().hide();
  quitEventLoop();
}

void QtPlatform::quitEventLoop() {
  QCoreApplication::exit(0);
}

void QtPlatform::runEntryPoint(std::string_view handler, const std::function<void()>& body) {
  if (m_ended) return;
  const BusyCursor busy(m_busy);
  bool goesOn = korvane::runEntryPoint(
      body, [&](const RuntimeFailure& failure) { MsgBox(*this, unexpectedErrorMessage(handler, failure)); });
  if (!goesOn) quitEventLoop();
}

QWidget& QtPlatform::windowWidget(Form& window) {
  return viewFor(window).widget();
}

QWidget* QtPlatform::controlWidget(Form& window, const std::string& controlName) {
  return viewFor(window).mirror().widget(controlName);
}

bool QtPlatform::controlAcceptsInput(Control& control) {
  return viewFor(control.Parent()).mirror().acceptsInput(control);
}

QWidget* QtPlatform::dialogOwner() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  for (auto& [form, view] : m_views) {
    if (view->widget().isVisible() && view->widget().isWindow() && view->widget().parentWidget() == nullptr) {
      return &view->widget();
    }
  }
  return nullptr;
}

WindowView& QtPlatform::viewFor(Form& window) {
  if (WindowView* view = existingView(window)) return *view;
  std::unique_ptr<WindowView> view;
  if (auto* main = dynamic_cast<frmKorvane*>(&window)) {
    view = std::make_unique<MainWindowView>(*main, *this);
  } else if (auto* settings = dynamic_cast<frmAdvancedSettings*>(&window)) {
    QWidget& owner = viewFor(settings->owner()).widget();
    view = std::make_unique<SettingsWindowView>(*settings, *this, owner);
  } else {
    throw std::logic_error("no view for the window " + window.Name());
  }
  m_views.emplace_back(&window, std::move(view));
  return *m_views.back().second;
}

WindowView* QtPlatform::existingView(const Form& window) const {
  for (const auto& [form, view] : m_views) {
    if (form == &window) return view.get();
  }
  return nullptr;
}

void QtPlatform::showView(WindowView& view) {
  QWidget& widget = view.widget();
  widget.show();
  widget.raise();
  widget.activateWindow();
  if (!view.focusPlaced) {
    view.focusPlaced = true;
    if (QWidget* first = view.mirror().firstFocusable()) first->setFocus(Qt::OtherFocusReason);
  }
}

void QtPlatform::unwindIfEnded() const {
  if (m_ended) throw ProcessEnded{};
}

}  // namespace korvane
