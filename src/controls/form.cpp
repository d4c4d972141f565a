#include "controls/form.h"

#include <algorithm>

#include "runtime/platform.h"

namespace korvane {

Form::Form(Platform& platform, FormDefinition definition)
    : m_platform(platform), m_definition(std::move(definition)) {}

Form::~Form() = default;

double Form::Width() const {
  return m_definition.clientWidth + m_platform.windowFrameSize(*this).width;
}

double Form::Height() const {
  return m_definition.clientHeight + m_platform.windowFrameSize(*this).height;
}

void Form::SetLeft(double left) {
  m_left = left;
  NotifyChanged(nullptr);
}

void Form::SetTop(double top) {
  m_top = top;
  NotifyChanged(nullptr);
}

void Form::SetVisible(bool visible) {
  if (visible == m_visible) return;
  m_visible = visible;
  NotifyChanged(nullptr);
}

Control* Form::FindControl(const std::string& name) const {
  auto found =
      std::find_if(m_controls.begin(), m_controls.end(), [&](const Control* c) { return c->Name() == name; });
  return found == m_controls.end() ? nullptr : *found;
}

void Form::NotifyChanged(Control* control) const {
  if (m_observer) m_observer(control);
}

void Form::registerControl(Control* control) {
  m_controls.push_back(control);
}

void Form::unregisterControl(Control* control) {
  std::erase(m_controls, control);
}

}  // namespace korvane
