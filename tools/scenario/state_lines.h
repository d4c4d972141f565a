#pragma once
// What `print` shows of the program's state, taken from the records alone:
//   button, frame                     NAME Enabled=0|1
//   check box, scroll bar, slider     NAME Value=N Enabled=0|1
//   text box, field                   NAME Text=TEXT Enabled=0|1
//   label                             NAME Caption=TEXT Enabled=0|1
//   the swatch                        lblShowColor BackColor=R,G,B Enabled=0|1
//   list                              NAME ListCount=N
//   window                            NAME Loaded=0|1 Visible=0|1
// Enabled is the control's own flag, whatever its frame says.

#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"

namespace korvane::scenario {

inline constexpr std::string_view kSwatchName = "lblShowColor";

struct Property {
  std::string name;
  std::string value;  // unescaped
  bool operator==(const Property&) const = default;
};

// The file dialog control has no print form.
bool hasPrintForm(ControlKind kind);

std::vector<Property> printedProperties(const Control& control);
// A control of a window that does not exist yet: the state it will start with.
std::vector<Property> printedProperties(const ControlDefinition& definition);
std::vector<Property> windowProperties(bool loaded, bool visible);

// "NAME P=v P=v", each value escaped.
std::string printLine(std::string_view name, const std::vector<Property>& properties);

}  // namespace korvane::scenario
