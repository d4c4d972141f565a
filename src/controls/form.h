#pragma once
// A window as a record: its caption, client size, outer position and its
// controls, reachable by name. Both windows of the program derive from it.

#include <functional>
#include <string>
#include <vector>

#include "controls/control.h"

namespace korvane {

class Platform;

struct FormDefinition {
  std::string name;
  std::string caption;
  int clientWidth = 0;   // twips
  int clientHeight = 0;  // twips
};

class Form {
 public:
  Form(Platform& platform, FormDefinition definition);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& Name() const { return m_definition.name; }
  const FormDefinition& Definition() const { return m_definition; }
  Platform& platform() const { return m_platform; }

  // Outer size in twips: the client area plus the platform's frame and title bar.
  double Width() const;
  double Height() const;
  // Outer position in twips, relative to the screen's top left corner.
  double Left() const { return m_left; }
  double Top() const { return m_top; }
  void SetLeft(double left);
  void SetTop(double top);

  bool Visible() const { return m_visible; }
  void SetVisible(bool visible);

  // The controls in declaration order, and by name (nullptr when there is none).
  const std::vector<Control*>& Controls() const { return m_controls; }
  Control* FindControl(const std::string& name) const;

  // The Qt mirror listens here; called after any change of a record's state.
  using Observer = std::function<void(Control*)>;  // nullptr: the form itself changed
  void SetObserver(Observer observer) { m_observer = std::move(observer); }
  void NotifyChanged(Control* control) const;

  // Called by Control's constructor and destructor.
  void registerControl(Control* control);
  void unregisterControl(Control* control);

 private:
  Platform& m_platform;
  FormDefinition m_definition;
  double m_left = 0;
  double m_top = 0;
  bool m_visible = false;
  std::vector<Control*> m_controls;
  Observer m_observer;
};

}  // namespace korvane
