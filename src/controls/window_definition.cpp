#include "controls/window_definition.h"

#include <stdexcept>

namespace korvane {

WindowDefinition::WindowDefinition(FormDefinition form, std::vector<ControlDefinition> rows)
    : m_form(std::move(form)) {
  for (ControlDefinition& row : rows) {
    const std::string name = row.name;
    if (!m_rows.emplace(name, std::move(row)).second)
      throw std::logic_error(m_form.name + " has two controls named " + name);
  }
}

const ControlDefinition* WindowDefinition::find(const std::string& name) const {
  auto found = m_rows.find(name);
  return found == m_rows.end() ? nullptr : &found->second;
}

const ControlDefinition& WindowDefinition::control(const std::string& name) const {
  if (const ControlDefinition* row = find(name)) return *row;
  throw std::logic_error(m_form.name + " has no control " + name);
}

}  // namespace korvane
