#include "controls/control.h"

#include "controls/form.h"
#include "runtime/platform.h"

namespace korvane {

Control::Control(Form& form, ControlDefinition definition)
    : m_form(form), m_definition(std::move(definition)), m_enabled(m_definition.enabled) {
  m_form.registerControl(this);
}

Control::~Control() {
  m_form.unregisterControl(this);
}

Control* Control::Container() const {
  return m_definition.container.empty() ? nullptr : m_form.FindControl(m_definition.container);
}

void Control::SetEnabled(bool enabled) {
  if (enabled == m_enabled) return;
  m_enabled = enabled;
  changed();
}

void Control::SetFocus() {
  m_form.platform().setFocus(m_form, *this);
}

void Control::changed() {
  m_form.NotifyChanged(this);
}

}  // namespace korvane
