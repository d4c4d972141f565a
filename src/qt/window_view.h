#pragma once
// What the platform needs of either window on screen.

class QWidget;

namespace korvane {

class FormMirror;

class WindowView {
 public:
  virtual ~WindowView() = default;
  virtual QWidget& widget() = 0;
  virtual FormMirror& mirror() = 0;

  // The focus goes to the first control in tab order on the first showing
  // only; later showings keep the control that had it last.
  bool focusPlaced = false;
};

}  // namespace korvane
