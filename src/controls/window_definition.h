#pragma once
// A window as data: its own properties and one complete row per control.
// Both windows are written as one of these; each control of a window takes
// its row by name when the window is made.

#include <map>
#include <string>
#include <vector>

#include "controls/control.h"
#include "controls/form.h"

namespace korvane {

class WindowDefinition {
 public:
  WindowDefinition(FormDefinition form, std::vector<ControlDefinition> rows);

  const FormDefinition& form() const { return m_form; }
  // The row of a control; nullptr for a name the window does not have.
  const ControlDefinition* find(const std::string& name) const;
  // The row of a control the program names: a name the window does not have
  // is a fault of the program (std::logic_error).
  const ControlDefinition& control(const std::string& name) const;

 private:
  FormDefinition m_form;
  std::map<std::string, ControlDefinition> m_rows;
};

}  // namespace korvane
