#pragma once
// A control of a window, held as a record: its definition (name, kind,
// container, geometry in twips, tab index, caption, tool tip, font) and the
// state the program reads and writes. The Qt layer mirrors these records onto
// widgets; the logic never sees a widget.

#include <functional>
#include <string>
#include <vector>

namespace korvane {

class Form;

enum class ControlKind {
  Button,
  CheckBox,
  TextBox,
  Label,
  Frame,
  VScrollBar,
  MaskedEdit,
  Slider,
  List,
  FileDialog
};

struct FontSpec {
  std::string family{};  // empty: the window's font
  double points = 0;
};

// Every member has its default, so that a row of a window's table names only
// what differs from it.
struct ControlDefinition {
  std::string name{};
  ControlKind kind = ControlKind::Button;
  std::string container{};  // empty: the window itself
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  int tabIndex = -1;  // -1: no tab index
  bool enabled = true;
  bool visible = true;
  std::string caption{};
  std::string toolTip{};
  FontSpec font{};
  bool locked = false;   // text box: shows and selects, takes no typing
  bool centred = false;  // label: caption centred
  bool border = false;   // label: single-line border
  // For assistive technology: the name of a control that no caption or
  // heading label names, and for a label, the control it heads.
  std::string spokenName{};
  std::string labelFor{};
};

class Control {
 public:
  Control(Form& form, ControlDefinition definition);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& Name() const { return m_definition.name; }
  ControlKind Kind() const { return m_definition.kind; }
  const ControlDefinition& Definition() const { return m_definition; }
  Form& Parent() const { return m_form; }
  // The frame that holds this control, or nullptr for a child of the window.
  Control* Container() const;

  bool Enabled() const { return m_enabled; }
  void SetEnabled(bool enabled);

  // Asks the window system to give this control the focus.
  void SetFocus();

 protected:
  // Tells the form's observer (the Qt mirror) that this record changed.
  void changed();

 private:
  Form& m_form;
  ControlDefinition m_definition;
  bool m_enabled;
};

}  // namespace korvane
