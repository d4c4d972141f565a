#include "scenario/driver.h"

#include <QApplication>
#include <QDir>
#include <QScrollBar>
#include <QSlider>
#include <QTimer>
#include <algorithm>
#include <climits>
#include <cstdio>
#include <stdexcept>

#include "advanced/advanced_settings_window.h"
#include "desktop/directory_store.h"
#include "mainwindow/main_window.h"
#include "mainwindow/source_loading.h"
#include "qt/record_values.h"
#include "runtime/shared_strings.h"
#include "scenario/author_actions.h"
#include "scenario/escapes.h"
#include "scenario/scenario_platform.h"
#include "scenario/transcript.h"
#include "shell/program.h"

namespace korvane::scenario {

namespace {

// The store is set before Main has given AppTitleName its value.
const std::string kStoreKeyPath = defaultDirKeyPath(kAppTitle);
const std::string kStoreValueName = kDefaultDirValueName;

constexpr const char* kMainWindowName = "frmKorvane";
constexpr const char* kSettingsWindowName = "frmAdvancedSettings";

std::string verbWord(const Command& command) {
  return command.line.substr(0, command.line.find_first_of(" \t"));
}

int clampToInt(long long value) {
  return static_cast<int>(std::clamp<long long>(value, INT_MIN, INT_MAX));
}

// The control with the focus, by its name; a window itself is no control.
std::string focusName() {
  const QWidget* focus = QApplication::focusWidget();
  if (focus == nullptr || focus->isWindow() || focus->objectName().isEmpty()) return "<none>";
  return focus->objectName().toStdString();
}

std::string activeWindowName() {
  const QWidget* window = QApplication::activeWindow();
  if (window == nullptr || window->objectName().isEmpty()) return "<none>";
  return window->objectName().toStdString();
}

}  // namespace

Driver::Driver(ScriptReader& script, Transcript& transcript, ScenarioPlatform& platform, Program& program)
    : m_script(script), m_transcript(transcript), m_platform(platform), m_program(program) {}

ExitStatus Driver::run() {
  m_platform.onUnansweredDialog = [this](const FileDialogRequest& request) {
    fail(m_lineNumber, "a file dialog opened with no answer queued: \"" + request.title + "\"");
  };
  // The command that opened a modal window is still running; the script goes
  // on inside the window's own event loop.
  m_platform.onModalWindowShown = [this] { queueStep(); };
  queueStep();
  QApplication::exec();
  return m_status;
}

void Driver::queueStep() {
  if (m_stepQueued || m_finished) return;
  m_stepQueued = true;
  QTimer::singleShot(0, [this] { step(); });
}

void Driver::step() {
  m_stepQueued = false;
  if (m_finished) return;
  try {
    std::optional<Command> command = m_script.next();
    if (!command) return finish();
    m_lineNumber = command->lineNumber;
    if (m_platform.ended()) return fail(m_lineNumber, "a command after the program ended");
    if (!m_started && !comesBeforeStart(command->verb)) {
      return fail(m_lineNumber, verbWord(*command) + " before start");
    }
    if (m_started && comesBeforeStart(command->verb)) {
      return fail(m_lineNumber, verbWord(*command) + " after start");
    }
    // The window system's part: the modal window is the active one while
    // there is one, and the main window again once it has gone.
    if (m_started && !m_platform.ended()) activate(activeWindow());
    execute(*command);
    if (m_finished) return;
    if (m_platform.ended()) {
      // Nothing runs after EXIT: only the end of the script may follow it.
      if (std::optional<Command> more = m_script.next()) {
        return fail(more->lineNumber, "a command after the program ended");
      }
      return finish();
    }
  } catch (const ScriptError& error) {
    return fail(error.lineNumber(), error.what());
  } catch (const std::exception& error) {
    // Nothing may leave through the event loop; a fault of the driver itself ends the run.
    return fail(m_lineNumber, std::string("the driver failed: ") + error.what());
  }
  queueStep();
}

void Driver::fail(int lineNumber, const std::string& what) {
  if (m_finished) return;
  m_finished = true;
  m_status = kScriptError;
  m_transcript.close();
  std::fprintf(stderr, "korvane-scenario: line %d: %s\n", lineNumber, what.c_str());
  std::fflush(stderr);
  // Every event loop ends, the modal ones too, and the commands that opened them unwind.
  QCoreApplication::exit(m_status);
}

void Driver::finish() {
  if (m_finished) return;
  m_finished = true;
  m_status = m_mismatch ? kScreenMismatch : kScriptRan;
  m_transcript.close();
  QCoreApplication::exit(m_status);
}

void Driver::execute(const Command& command) {
  switch (command.verb) {
    case Verb::Cwd:
      if (!QDir::setCurrent(QString::fromStdString(command.text))) {
        throw ScriptError(command.lineNumber, "cannot make \"" + command.text + "\" the current directory");
      }
      break;
    case Verb::Stored:
      SetRegStr(m_platform, kStoreValueName, command.text, kStoreKeyPath, HKEY_CURRENT_USER);
      break;
    case Verb::Start:
      start(command.text);
      break;
    case Verb::Answer:
      m_platform.queueAnswer(command.text);
      break;
    case Verb::Cancel:
      m_platform.queueAnswer(std::nullopt);
      break;
    case Verb::Click:
      click(command);
      break;
    case Verb::Type:
      type(command);
      break;
    case Verb::Leave:
      leave(command);
      break;
    case Verb::Scroll:
    case Verb::Slide:
      dragTo(command);
      break;
    case Verb::Keys:
      keys(command);
      break;
    case Verb::Key:
      keysOnBar(command);
      break;
    case Verb::Arrow:
      arrow(command);
      break;
    case Verb::Track:
      track(command);
      break;
    case Verb::Alt:
      pressAccessKey(activeWindow(), command.text[0]);
      break;
    case Verb::Tab:
      pressKey(Qt::Key_Tab);
      break;
    case Verb::Backtab:
      pressKey(Qt::Key_Backtab, Qt::ShiftModifier);
      break;
    case Verb::Enter:
      pressKey(Qt::Key_Return);
      break;
    case Verb::Escape:
      pressKey(Qt::Key_Escape);
      break;
    case Verb::Drop:
      drop(command);
      break;
    case Verb::Close:
      closeMainWindow(command);
      break;
    case Verb::CloseSettings:
      closeSettingsWindow(command);
      break;
    case Verb::Print:
      print(command);
      break;
    case Verb::Dump:
      dump(command);
      break;
  }
}

void Driver::start(const std::string& file) {
  m_started = true;
  m_platform.runEntryPoint("Main", [this] { m_program.Main(); });
  if (!m_platform.ended() && m_program.MainWindowLoaded() && m_program.MainWindow().Visible()) {
    activate(m_platform.windowWidget(m_program.MainWindow()));
    if (!file.empty())
      m_platform.runEntryPoint("Main",
                               [&] { HandFileToFrame(m_program.MainWindow(), SourceFrame::LOD0, file); });
  }
}

void Driver::click(const Command& command) {
  Target target = resolveAs(command, {ControlKind::Button, ControlKind::CheckBox}, "a button or check box");
  if (!acceptsInput(command, target)) return;
  QWidget& widget = widgetOf(*target.record);
  activate(*widget.window());
  clickOn(widget);
}

void Driver::type(const Command& command) {
  Target target = resolveAs(command, {ControlKind::TextBox, ControlKind::MaskedEdit}, "a text box or field");
  if (!acceptsInput(command, target)) return;
  QWidget& widget = widgetOf(*target.record);
  activate(*widget.window());
  typeInto(widget, QString::fromStdString(command.text));
}

void Driver::leave(const Command& command) {
  Target target = resolveAs(command, {ControlKind::TextBox, ControlKind::MaskedEdit}, "a text box or field");
  if (!acceptsInput(command, target)) return;
  QWidget& widget = widgetOf(*target.record);
  activate(*widget.window());
  leaveField(widget);
}

void Driver::dragTo(const Command& command) {
  if (command.verb == Verb::Scroll) {
    Target target = resolveAs(command, {ControlKind::VScrollBar}, "a scroll bar");
    if (!acceptsInput(command, target)) return;
    auto* bar = qobject_cast<QScrollBar*>(&widgetOf(*target.record));
    if (bar == nullptr) return;
    const auto& record = static_cast<const VScrollBar&>(*target.record);
    const long long position = barPosition(record.Min(), record.Max(), command.number);
    activate(*bar->window());
    drag(*bar, clampToInt(position));
    return;
  }
  Target target = resolveAs(command, {ControlKind::Slider}, "a slider");
  if (!acceptsInput(command, target)) return;
  auto* slider = qobject_cast<QSlider*>(&widgetOf(*target.record));
  if (slider == nullptr) return;
  activate(*slider->window());
  drag(*slider, clampToInt(command.number));
}

void Driver::keys(const Command& command) {
  Target target = resolveAs(command, {ControlKind::TextBox, ControlKind::MaskedEdit}, "a text box or field");
  if (!acceptsInput(command, target)) return;
  QWidget& widget = widgetOf(*target.record);
  activate(*widget.window());
  pressKeysIn(widget, command.keys);
}

QAbstractSlider* Driver::reachableBar(const Command& command) {
  Target target =
      resolveAs(command, {ControlKind::VScrollBar, ControlKind::Slider}, "a slider or scroll bar");
  if (!acceptsInput(command, target)) return nullptr;
  auto* bar = qobject_cast<QAbstractSlider*>(&widgetOf(*target.record));
  if (bar != nullptr) activate(*bar->window());
  return bar;
}

void Driver::keysOnBar(const Command& command) {
  QAbstractSlider* bar = reachableBar(command);
  if (bar != nullptr && !pressKeysOn(*bar, command.keys)) m_transcript.write("IGNORED " + command.line);
}

void Driver::arrow(const Command& command) {
  Target target = resolveAs(command, {ControlKind::VScrollBar}, "a scroll bar");
  if (command.text == "left" || command.text == "right") {
    throw ScriptError(command.lineNumber,
                      command.name + " is vertical: it has no " + command.text + " arrow");
  }
  if (!acceptsInput(command, target)) return;
  auto* bar = qobject_cast<QScrollBar*>(&widgetOf(*target.record));
  if (bar == nullptr) return;
  activate(*bar->window());
  clickArrow(*bar, command.text == "up");
}

void Driver::track(const Command& command) {
  QAbstractSlider* bar = reachableBar(command);
  if (bar != nullptr && !clickTrack(*bar, command.text == "before"))
    m_transcript.write("IGNORED " + command.line);
}

QWidget& Driver::activeWindow() {
  if (QWidget* modal = QApplication::activeModalWidget()) return *modal;
  return m_platform.windowWidget(m_program.MainWindow());
}

void Driver::pressKey(int key, Qt::KeyboardModifiers modifiers) {
  QWidget& window = activeWindow();
  activate(window);
  scenario::pressKey(window, key, modifiers);
}

void Driver::drop(const Command& command) {
  Target target = resolveAs(command, {ControlKind::Frame}, "a frame");
  if (target.record == nullptr || !dropFile(widgetOf(*target.record), QString::fromStdString(command.text)))
    m_transcript.write("IGNORED " + command.line);
}

void Driver::closeMainWindow(const Command& command) {
  QWidget& window = m_platform.windowWidget(m_program.MainWindow());
  const QWidget* modal = QApplication::activeModalWidget();
  if (!window.isVisible() || (modal != nullptr && modal != &window)) {
    m_transcript.write("IGNORED " + command.line);
    return;
  }
  window.close();
}

void Driver::closeSettingsWindow(const Command& command) {
  if (!m_program.AdvancedSettingsLoaded() ||
      !m_platform.windowWidget(m_program.AdvancedSettings()).isVisible()) {
    m_transcript.write("IGNORED " + command.line);
    return;
  }
  m_platform.windowWidget(m_program.AdvancedSettings()).close();
}

void Driver::print(const Command& command) {
  const std::string& name = command.name;
  if (name == "DefaultDirPath") {
    m_transcript.write("DefaultDirPath=" + escapeText(DefaultDirPath));
    return;
  }
  if (name == "stored") {
    const std::optional<std::string> stored = m_platform.readUserValue(kStoreKeyPath, kStoreValueName);
    m_transcript.write(stored ? "stored=" + escapeText(*stored) : "stored=<none>");
    return;
  }
  if (name == "focus" || name == "active") {
    m_transcript.write(name + "=" + (name == "focus" ? focusName() : activeWindowName()));
    return;
  }
  if (name == kMainWindowName || name == kSettingsWindowName) {
    const bool main = name == kMainWindowName;
    const bool loaded = main ? m_program.MainWindowLoaded() : m_program.AdvancedSettingsLoaded();
    Form* form = nullptr;
    if (loaded) form = main ? static_cast<Form*>(&m_program.MainWindow()) : &m_program.AdvancedSettings();
    const std::vector<Property> properties = windowProperties(loaded, form != nullptr && form->Visible());
    m_transcript.write(printLine(name, properties));
    if (form != nullptr)
      checkScreen(name, compareWindowWithScreen(m_platform.windowWidget(*form), properties));
    return;
  }
  const Target target = resolve(command);
  if (!hasPrintForm(target.definition->kind)) {
    throw ScriptError(command.lineNumber, name + " has no print form");
  }
  if (target.record == nullptr) {
    m_transcript.write(printLine(name, printedProperties(*target.definition)));
    return;
  }
  const std::vector<Property> properties = printedProperties(*target.record);
  m_transcript.write(printLine(name, properties));
  if (QWidget* widget = m_platform.controlWidget(target.record->Parent(), target.record->Name())) {
    checkScreen(name, compareWithScreen(*target.record, *widget, properties));
  }
}

void Driver::dump(const Command& command) {
  const Target target = resolveAs(command, {ControlKind::List}, "a list");
  const LineStore& store = static_cast<const ListBox&>(*target.record).Store();
  for (std::int32_t i = 0; i < store.ListCount(); ++i) {
    m_transcript.write(command.name + "[" + std::to_string(i) + "]=" + escapeText(store.List(i)));
  }
}

Driver::Target Driver::resolve(const Command& command) const {
  // "frmAdvancedSettings.Frame1" names a control of that window; a bare name
  // is looked for in the main window first.
  std::string window;
  std::string name = command.name;
  if (const std::size_t dot = name.find('.'); dot != std::string::npos) {
    window = name.substr(0, dot);
    name = name.substr(dot + 1);
    if (window != kMainWindowName && window != kSettingsWindowName) {
      throw ScriptError(command.lineNumber, "unknown window \"" + window + "\"");
    }
  }
  Target target;
  if (window != kSettingsWindowName) {
    if (Control* control = m_program.MainWindow().FindControl(name)) {
      target.definition = &control->Definition();
      target.record = control;
      return target;
    }
  }
  if (window != kMainWindowName) {
    if (const ControlDefinition* definition = advancedSettingsDefinition().find(name)) {
      target.definition = definition;
      // Looking must not bring the settings window into being.
      if (m_program.AdvancedSettingsLoaded()) target.record = m_program.AdvancedSettings().FindControl(name);
      return target;
    }
  }
  throw ScriptError(command.lineNumber, "unknown control \"" + command.name + "\"");
}

Driver::Target Driver::resolveAs(const Command& command, std::initializer_list<ControlKind> kinds,
                                 const char* kindsInWords) const {
  Target target = resolve(command);
  if (std::find(kinds.begin(), kinds.end(), target.definition->kind) == kinds.end()) {
    throw ScriptError(command.lineNumber,
                      verbWord(command) + " needs " + kindsInWords + ", and " + command.name + " is none");
  }
  return target;
}

bool Driver::acceptsInput(const Command& command, const Target& target) {
  // A control of a window not yet in being is on no screen.
  if (target.record != nullptr && m_platform.controlAcceptsInput(*target.record)) return true;
  m_transcript.write("IGNORED " + command.line);
  return false;
}

QWidget& Driver::widgetOf(Control& control) {
  QWidget* widget = m_platform.controlWidget(control.Parent(), control.Name());
  if (widget == nullptr) throw std::logic_error(control.Name() + " has no widget");
  return *widget;
}

void Driver::checkScreen(const std::string& name, const std::vector<Disagreement>& disagreements) {
  for (const Disagreement& disagreement : disagreements) {
    m_mismatch = true;
    m_transcript.write("MISMATCH " + name + " " + disagreement.property +
                       " screen=" + escapeText(disagreement.screen));
  }
}

}  // namespace korvane::scenario
