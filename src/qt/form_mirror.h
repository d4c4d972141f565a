#pragma once
// Mirrors the records of one window onto real widgets.
//
//   record (controls/)  --Form observer-->  widget, with its signals blocked
//   widget signal (the author)  --entry point-->  record set / click / move
//
// Each control gets one widget whose objectName is the control's name, at its
// geometry in pixels, with its caption, tool tip, font and tab place. Frames
// are the parents of what they hold, so Qt disables the contents of a
// disabled frame on its own. When a text needs more room than the fonts at
// hand give it, the whole window grows by one factor (window_fit.h). The mirror decides nothing: what a
// change means is the record's and its handler's business.

#include <QObject>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

class QWidget;

namespace korvane {

class Control;
class Form;
class QtPlatform;

class FormMirror : public QObject {
  Q_OBJECT
 public:
  // Builds a widget for every control of form that is ever on screen, as a
  // child of window, and keeps them in step with the records from now on.
  FormMirror(Form& form, QWidget& window, QtPlatform& platform);
  ~FormMirror() override;

  Form& form() const { return m_form; }
  // How much the window's layout grew beyond the defined twips to fit the
  // texts in the fonts this machine has; 1 at the designed metrics.
  double scale() const { return m_scale; }

  // nullptr for a control that is never on screen (the lists, the dialog).
  QWidget* widget(const std::string& name) const;
  QWidget* widget(const Control& control) const;

  // The controls' widgets in rising tab index, those that can take the focus.
  const std::vector<QWidget*>& tabOrder() const { return m_tabOrder; }
  // The first of them that can take the focus now, or nullptr.
  QWidget* firstFocusable() const;

  // Whether the author can act on the control at this moment: its widget is
  // enabled with every frame around it, its window is on screen, and no
  // other modal window stands in the way.
  bool acceptsInput(const Control& control) const;

  // The label shows its BackColor (the other labels keep the window's colour).
  void showBackColor(const std::string& labelName);

  // Cuts every tie to the records; called before they go away.
  void detach();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void build();
  void layOut();
  void fitToFonts();
  QString sampleText(const Control& control) const;
  QWidget* createWidget(Control& control, QWidget* parent);
  // The name and heading label that assistive technology reports.
  void nameForReaders(const Control& control, QWidget* widget);
  void connectInput(Control& control, QWidget* widget);
  void applyTabOrder();
  void refresh(Control& control);
  void refreshWindow();
  // The bytes of what the author typed, in the code page of the field's text.
  std::string typedBytes(const Control& control, const QString& text) const;
  // The text on screen for a field's bytes; notes the code page they came in.
  QString fieldText(const Control& control, const std::string& bytes, const QString& shown);
  // One piece of the author's input, handed to the logic.
  void enter(Control& control, const char* event, const std::function<void()>& body);

  Form& m_form;
  QWidget& m_window;
  QtPlatform& m_platform;
  std::map<const Control*, QWidget*> m_widgets;
  std::vector<QWidget*> m_tabOrder;
  std::set<const Control*> m_swatches;
  std::set<const Control*> m_latin1;  // fields whose text came from bytes that are no UTF-8
  double m_scale = 1;
  // Shared with what outlives the mirror inside the widgets.
  std::shared_ptr<bool> m_attached = std::make_shared<bool>(true);
};

}  // namespace korvane
