#include "qt/form_mirror.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSlider>
#include <algorithm>
#include <limits>

#include "advanced/autolod.h"
#include "controls/button.h"
#include "controls/check_box.h"
#include "controls/form.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/masked_edit.h"
#include "controls/scroll_bar.h"
#include "controls/slider.h"
#include "controls/text_box.h"
#include "qt/accessibility.h"
#include "qt/control_widgets.h"
#include "qt/fonts.h"
#include "qt/qt_platform.h"
#include "qt/record_values.h"
#include "qt/text_bytes.h"
#include "qt/twips.h"
#include "qt/window_fit.h"

namespace korvane {

namespace {

QString toQt(const std::string& text) {
  return textFromBytes(text);
}

// No text box has a length limit of its own; the masks bind typing only.
constexpr int kNoLengthLimit = std::numeric_limits<int>::max();

QString autoLodDisplay(const QString& text) {
  return toQt(FormatAutoLODForDisplay(bytesFromText(text, false)));
}

bool isContainer(const Control& control) {
  return control.Kind() == ControlKind::Frame;
}

bool neverOnScreen(const Control& control) {
  return control.Kind() == ControlKind::List || control.Kind() == ControlKind::FileDialog ||
         !control.Definition().visible;
}

}  // namespace

FormMirror::FormMirror(Form& form, QWidget& window, QtPlatform& platform)
    : m_form(form), m_window(window), m_platform(platform) {
  installAccessibleInterfaces();
  build();
  m_form.SetObserver([this](Control* control) {
    if (!*m_attached) return;
    if (control == nullptr) {
      refreshWindow();
      return;
    }
    refresh(*control);
  });
}

FormMirror::~FormMirror() {
  detach();
}

void FormMirror::detach() {
  *m_attached = false;
}

void FormMirror::build() {
  m_window.setWindowTitle(toQt(m_form.Definition().caption));
  m_window.setFont(windowFont());
  // Frames first, so that what they hold has its parent, and so that a
  // control that lies over a frame (a later sibling) is drawn in front of it.
  std::vector<Control*> ordered;
  for (Control* c : m_form.Controls()) {
    if (isContainer(*c)) ordered.push_back(c);
  }
  for (Control* c : m_form.Controls()) {
    if (!isContainer(*c)) ordered.push_back(c);
  }
  for (Control* control : ordered) {
    if (neverOnScreen(*control)) continue;
    QWidget* parent = &m_window;
    if (const Control* container = control->Container()) parent = m_widgets.at(container);
    QWidget* widget = createWidget(*control, parent);
    m_widgets[control] = widget;
  }
  for (Control* control : ordered) {
    auto found = m_widgets.find(control);
    if (found == m_widgets.end()) continue;
    nameForReaders(*control, found->second);
    refresh(*control);
    connectInput(*control, found->second);
  }
  layOut();
  fitToFonts();
  applyTabOrder();
  refreshWindow();
}

void FormMirror::layOut() {
  const QRect client(0, 0, twipsToPixels(m_form.Definition().clientWidth * m_scale),
                     twipsToPixels(m_form.Definition().clientHeight * m_scale));
  m_window.setFixedSize(client.size());
  for (const auto& [control, widget] : m_widgets) {
    QRect geometry = pixelGeometry(control->Definition(), m_scale);
    // A control that reaches past the client area ends at its edge, so that
    // what the style draws at its far side (a focus frame) shows. A frame
    // keeps its size: one that reaches out shows only the lines inside.
    if (control->Container() == nullptr && !isContainer(*control)) geometry &= client;
    widget->setGeometry(geometry);
  }
}

void FormMirror::nameForReaders(const Control& control, QWidget* widget) {
  const QString name = spokenName(control);
  if (!name.isEmpty()) widget->setAccessibleName(name);
  if (auto* label = qobject_cast<QLabel*>(widget)) {
    if (!control.Definition().labelFor.empty()) label->setBuddy(this->widget(control.Definition().labelFor));
  }
}

void FormMirror::fitToFonts() {
  // Each round grows the scale by what the tightest widget asks; widgets with
  // a fixed part (a check box's box) may ask once more after rounding.
  for (int round = 0; round < 8; ++round) {
    double grow = 1;
    for (const auto& [control, widget] : m_widgets) {
      grow = std::max(grow, growthForText(*widget, sampleText(*control)));
      if (auto* frame = qobject_cast<ClassicFrame*>(widget)) {
        for (const auto& [other, inside] : m_widgets) {
          if (inside == frame) continue;
          const QRect place(inside->mapTo(&m_window, QPoint()) - frame->mapTo(&m_window, QPoint()),
                            inside->size());
          if (frame->rect().intersects(place)) grow = std::max(grow, growthForFrame(*frame, place));
        }
      }
    }
    if (grow <= 1) return;
    m_scale *= grow;
    layOut();
  }
}

QString FormMirror::sampleText(const Control& control) const {
  if (control.Kind() != ControlKind::MaskedEdit) return {};
  // The widest text the author can type: every place a widest digit.
  const int places = static_cast<const MaskedEdit&>(control).Settings().maxLength;
  return QString(std::max(places, 0), QLatin1Char('0'));
}

std::string FormMirror::typedBytes(const Control& control, const QString& text) const {
  return bytesFromText(text, m_latin1.count(&control) > 0);
}

QString FormMirror::fieldText(const Control& control, const std::string& bytes, const QString& shown) {
  const QString text = toQt(bytes);
  // A text the program put there says which code page the field is in now;
  // plain ASCII the author typed leaves it as it was.
  const bool beyondAscii = std::any_of(bytes.begin(), bytes.end(), [](char b) { return b < 0; });
  if (beyondAscii || text != shown) {
    if (isUtf8(bytes)) {
      m_latin1.erase(&control);
    } else {
      m_latin1.insert(&control);
    }
  }
  return text;
}

QWidget* FormMirror::createWidget(Control& control, QWidget* parent) {
  const ControlDefinition& d = control.Definition();
  const QString caption = toQt(d.caption);
  QWidget* widget = nullptr;
  switch (control.Kind()) {
    case ControlKind::Button: {
      auto* button = new QPushButton(caption, parent);
      // A focused button takes Enter, as buttons do on the desktop.
      button->setAutoDefault(true);
      button->installEventFilter(this);
      widget = button;
      break;
    }
    case ControlKind::CheckBox:
      widget = new MirrorCheckBox(caption, parent);
      break;
    case ControlKind::TextBox: {
      auto* edit = new QLineEdit(parent);
      edit->setMaxLength(kNoLengthLimit);
      edit->setReadOnly(d.locked);
      widget = edit;
      break;
    }
    case ControlKind::Label: {
      auto* label = new QLabel(caption, parent);
      label->setTextFormat(Qt::PlainText);
      label->setAlignment((d.centred ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignTop);
      if (d.border) {
        label->setFrameStyle(QFrame::Box | QFrame::Plain);
        label->setLineWidth(1);
      }
      widget = label;
      break;
    }
    case ControlKind::Frame:
      widget = new ClassicFrame(caption, parent);
      break;
    case ControlKind::VScrollBar: {
      auto& record = static_cast<VScrollBar&>(control);
      auto* bar = new FocusScrollBar(record.Min(), record.Max(), parent);
      bar->setSingleStep(1);
      bar->setPageStep(1);
      bar->setFocusPolicy(Qt::StrongFocus);
      widget = bar;
      break;
    }
    case ControlKind::Slider: {
      auto& record = static_cast<Slider&>(control);
      auto* slider = new QSlider(Qt::Horizontal, parent);
      slider->setRange(record.Min(), record.Max());
      slider->setSingleStep(record.SmallChange());
      slider->setPageStep(record.LargeChange());
      slider->setTickPosition(QSlider::NoTicks);
      widget = slider;
      break;
    }
    case ControlKind::MaskedEdit: {
      auto& record = static_cast<MaskedEdit&>(control);
      auto* edit = new MaskedLineEdit(parent);
      edit->setMaxLength(kNoLengthLimit);
      // The validator lives as long as the widget, which may outlive the
      // record: Qt still asks it when the dying window takes the focus away.
      edit->setValidator(new TypingValidator(
          [this, attached = m_attached, &record](const QString& text) {
            return !*attached || record.AcceptsTyped(typedBytes(record, text));
          },
          edit));
      if (!record.Settings().format.empty()) edit->setDisplayFormat(autoLodDisplay);
      widget = edit;
      break;
    }
    case ControlKind::List:
    case ControlKind::FileDialog:
      break;
  }
  widget->setObjectName(toQt(d.name));
  if (!d.toolTip.empty()) widget->setToolTip(toQt(d.toolTip));
  if (!d.font.family.empty()) widget->setFont(designFont(toQt(d.font.family), d.font.points));
  return widget;
}

void FormMirror::connectInput(Control& control, QWidget* widget) {
  switch (control.Kind()) {
    case ControlKind::Button: {
      auto& record = static_cast<Button&>(control);
      connect(static_cast<QPushButton*>(widget), &QPushButton::clicked, this,
              [this, &record] { enter(record, "_Click", [&record] { record.Click(); }); });
      break;
    }
    case ControlKind::CheckBox: {
      auto& record = static_cast<CheckBox&>(control);
      connect(static_cast<QCheckBox*>(widget), &QCheckBox::clicked, this,
              [this, &record] { enter(record, "_Click", [&record] { record.AuthorClick(); }); });
      break;
    }
    case ControlKind::TextBox: {
      auto& record = static_cast<TextBox&>(control);
      // Typing, pasting and a text set through assistive technology all come
      // here; the mirror's own sets run with the signals blocked.
      connect(static_cast<QLineEdit*>(widget), &QLineEdit::textChanged, this,
              [this, &record](const QString& text) {
                enter(record, "_Change", [this, &record, text] { record.SetText(typedBytes(record, text)); });
              });
      break;
    }
    case ControlKind::VScrollBar: {
      auto& record = static_cast<VScrollBar&>(control);
      auto* bar = static_cast<FocusScrollBar*>(widget);
      connect(bar, &QScrollBar::valueChanged, this, [this, &record, bar] {
        enter(record, "_Change", [&record, value = bar->recordValue()] { record.SetValue(value); });
      });
      break;
    }
    case ControlKind::Slider: {
      auto& record = static_cast<Slider&>(control);
      connect(static_cast<QSlider*>(widget), &QSlider::valueChanged, this, [this, &record](int value) {
        enter(record, "_Change", [&record, value] { record.AuthorMove(value); });
      });
      break;
    }
    case ControlKind::MaskedEdit: {
      auto& record = static_cast<MaskedEdit&>(control);
      auto* edit = static_cast<MaskedLineEdit*>(widget);
      connect(edit, &QLineEdit::textChanged, this, [this, &record](const QString& text) {
        // What the validator let through a text longer than typing allows
        // (one that the program set) goes back to the record's text.
        enter(record, "_Change", [this, &record, text] {
          const std::string typed = typedBytes(record, text);
          if (record.AcceptsTyped(typed)) record.SetText(typed);
        });
      });
      connect(edit, &MaskedLineEdit::focusLeft, this,
              [this, &record] { enter(record, "_LostFocus", [&record] { record.LostFocus(); }); });
      break;
    }
    case ControlKind::Label:
    case ControlKind::Frame:
    case ControlKind::List:
    case ControlKind::FileDialog:
      break;
  }
}

bool FormMirror::eventFilter(QObject* watched, QEvent* event) {
  // An access key takes the focus to its button before the click, as a
  // mouse click does, so that the field being left has its LostFocus first.
  if (event->type() == QEvent::Shortcut) {
    auto* button = static_cast<QWidget*>(watched);
    if (button->isEnabled() && (button->focusPolicy() & Qt::TabFocus))
      button->setFocus(Qt::ShortcutFocusReason);
  }
  return false;
}

void FormMirror::enter(Control& control, const char* event, const std::function<void()>& body) {
  if (!*m_attached) return;
  m_platform.runEntryPoint(control.Name() + event, body);
  // The widget shows what the record holds now, whatever the handler did
  // with the input, so nothing the record refused stays on screen.
  if (*m_attached && !m_platform.ended()) refresh(control);
}

void FormMirror::refresh(Control& control) {
  auto found = m_widgets.find(&control);
  if (found == m_widgets.end()) return;
  QWidget* widget = found->second;
  const QSignalBlocker blocker(widget);
  // Qt keeps a widget disabled while its frame is, whatever its own flag says.
  widget->setEnabled(control.Enabled());
  switch (control.Kind()) {
    case ControlKind::CheckBox:
      static_cast<QCheckBox*>(widget)->setCheckState(
          checkStateOfValue(static_cast<CheckBox&>(control).Value()));
      break;
    case ControlKind::TextBox: {
      auto* edit = static_cast<QLineEdit*>(widget);
      const QString text = fieldText(control, static_cast<TextBox&>(control).Text(), edit->text());
      if (edit->text() != text) edit->setText(text);
      break;
    }
    case ControlKind::Label: {
      auto& record = static_cast<Label&>(control);
      auto* label = static_cast<QLabel*>(widget);
      const QString caption = toQt(record.Caption());
      if (label->text() != caption) label->setText(caption);
      if (m_swatches.count(&control)) {
        const Rgb& rgb = record.BackColor();
        QPalette palette = label->palette();
        palette.setColor(QPalette::Window, QColor(rgb.red, rgb.green, rgb.blue));
        label->setPalette(palette);
        label->setAutoFillBackground(true);
        label->setAccessibleDescription(colourDescription(rgb));
      }
      break;
    }
    case ControlKind::VScrollBar: {
      auto& record = static_cast<VScrollBar&>(control);
      static_cast<FocusScrollBar*>(widget)->setRecordValue(record.Value());
      break;
    }
    case ControlKind::Slider:
      static_cast<QSlider*>(widget)->setValue(static_cast<Slider&>(control).Value());
      break;
    case ControlKind::MaskedEdit: {
      auto* edit = static_cast<MaskedLineEdit*>(widget);
      edit->showText(fieldText(control, static_cast<MaskedEdit&>(control).Text(), edit->recordText()));
      break;
    }
    case ControlKind::Button:
    case ControlKind::Frame:
    case ControlKind::List:
    case ControlKind::FileDialog:
      break;
  }
}

void FormMirror::refreshWindow() {
  m_window.move(twipsToPixels(m_form.Left()), twipsToPixels(m_form.Top()));
  // Showing is the platform's call (modal or not); hiding may come from the record.
  if (!m_form.Visible() && m_window.isVisible()) m_window.hide();
}

void FormMirror::applyTabOrder() {
  std::vector<std::pair<int, QWidget*>> stops;
  for (const auto& [control, widget] : m_widgets) {
    if (control->Definition().tabIndex >= 0 && (widget->focusPolicy() & Qt::TabFocus)) {
      stops.emplace_back(control->Definition().tabIndex, widget);
    }
  }
  std::stable_sort(stops.begin(), stops.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  m_tabOrder.clear();
  for (const auto& stop : stops) m_tabOrder.push_back(stop.second);
  for (std::size_t i = 1; i < m_tabOrder.size(); ++i) QWidget::setTabOrder(m_tabOrder[i - 1], m_tabOrder[i]);
}

QWidget* FormMirror::widget(const std::string& name) const {
  const Control* control = m_form.FindControl(name);
  return control ? widget(*control) : nullptr;
}

QWidget* FormMirror::widget(const Control& control) const {
  auto found = m_widgets.find(&control);
  return found == m_widgets.end() ? nullptr : found->second;
}

QWidget* FormMirror::firstFocusable() const {
  for (QWidget* widget : m_tabOrder) {
    if (widget->isEnabled() && widget->isVisibleTo(&m_window)) return widget;
  }
  return nullptr;
}

bool FormMirror::acceptsInput(const Control& control) const {
  if (control.Kind() == ControlKind::Label || control.Kind() == ControlKind::Frame) return false;
  const QWidget* w = widget(control);
  if (w == nullptr || !w->isEnabled() || !w->isVisible()) return false;
  const QWidget* modal = QApplication::activeModalWidget();
  return modal == nullptr || modal == w->window();
}

void FormMirror::showBackColor(const std::string& labelName) {
  Control* control = m_form.FindControl(labelName);
  if (control == nullptr || control->Kind() != ControlKind::Label) return;
  m_swatches.insert(control);
  refresh(*control);
}

}  // namespace korvane
