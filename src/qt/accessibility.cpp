#include "qt/accessibility.h"

#include <QAccessibleValueInterface>
#include <QAccessibleWidget>

#include "controls/form.h"
#include "controls/label.h"
#include "qt/control_widgets.h"
#include "qt/main_window_view.h"
#include "qt/settings_window_view.h"
#include "qt/text_bytes.h"

namespace korvane {

namespace {

// A caption as a name: no access key marker, no colon at its end, single blanks.
QString nameFromCaption(const std::string& caption) {
  QString name = textFromBytes(caption).remove(QLatin1Char('&')).simplified();
  if (name.endsWith(QLatin1Char(':'))) name.chop(1);
  return name;
}

const Control* headingLabel(const Control& control) {
  for (const Control* other : control.Parent().Controls()) {
    if (other->Definition().labelFor == control.Name()) return other;
  }
  return nullptr;
}

// The scroll bar as the record sees it: Min, Max and Value in the record's
// terms, whichever way round the widget runs. A value set through the
// interface moves the bar as the author's hand would.
class ScrollBarAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit ScrollBarAccessible(FocusScrollBar* bar) : QAccessibleWidget(bar, QAccessible::ScrollBar) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }
  QString text(QAccessible::Text type) const override {
    if (type == QAccessible::Value) return QString::number(bar()->recordValue());
    return QAccessibleWidget::text(type);
  }
  QVariant currentValue() const override { return bar()->recordValue(); }
  void setCurrentValue(const QVariant& value) override { bar()->setRecordValue(value.toInt()); }
  QVariant maximumValue() const override { return bar()->recordMaximum(); }
  QVariant minimumValue() const override { return bar()->recordMinimum(); }
  QVariant minimumStepSize() const override { return bar()->singleStep(); }

 private:
  FocusScrollBar* bar() const { return static_cast<FocusScrollBar*>(widget()); }
};

// A window of the program: a reader hears whether it holds the rest of the program back.
class WindowAccessible : public QAccessibleWidget {
 public:
  using QAccessibleWidget::QAccessibleWidget;
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.modal = widget()->isModal();
    return state;
  }
};

QAccessibleInterface* programWidgetInterface(const QString&, QObject* object) {
  if (auto* bar = qobject_cast<FocusScrollBar*>(object)) return new ScrollBarAccessible(bar);
  if (auto* frame = qobject_cast<ClassicFrame*>(object))
    return new QAccessibleWidget(frame, QAccessible::Grouping);
  if (auto* window = qobject_cast<MainWindowView*>(object))
    return new WindowAccessible(window, QAccessible::Window);
  if (auto* window = qobject_cast<SettingsWindowView*>(object))
    return new WindowAccessible(window, QAccessible::Dialog);
  return nullptr;
}

}  // namespace

void installAccessibleInterfaces() {
  QAccessible::installFactory(programWidgetInterface);
}

QString spokenName(const Control& control) {
  const ControlDefinition& d = control.Definition();
  if (!d.spokenName.empty()) return textFromBytes(d.spokenName);
  if (control.Kind() == ControlKind::Label) return {};
  if (const Control* label = headingLabel(control)) return nameFromCaption(label->Definition().caption);
  // "Browse for ...": the tool tip tells the Browse buttons apart.
  const QString caption = nameFromCaption(d.caption);
  const QString toolTip = textFromBytes(d.toolTip).simplified();
  if (control.Kind() == ControlKind::Button && !caption.isEmpty() && toolTip.startsWith(caption))
    return toolTip;
  return caption;
}

QString colourDescription(const Rgb& color) {
  return QStringLiteral("red %1, green %2, blue %3").arg(color.red).arg(color.green).arg(color.blue);
}

}  // namespace korvane
