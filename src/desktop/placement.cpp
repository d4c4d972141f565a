#include "desktop/placement.h"

#include <cstdint>

#include "controls/form.h"
#include "runtime/failure_handling.h"
#include "runtime/platform.h"
#include "text/number_conversion.h"

namespace korvane {

namespace {

std::int16_t subtract16(std::int16_t a, std::int16_t b) {
  int difference = int{a} - int{b};
  if (difference < INT16_MIN || difference > INT16_MAX) throw RuntimeFailure(failure_number::Overflow);
  return static_cast<std::int16_t>(difference);
}

// Centring must never stop a window from opening: a step that fails is given
// up and the next one runs. The three measures are 16-bit twips, each starting at 0 and keeping 0 when
// its step fails: a screen beyond 32,767 twips thus puts the window at 0.
void centreOnAxis(double (*screenMeasure)(Platform&), double (*windowMeasure)(const Form&),
                  void (Form::*setPosition)(double), Form& window) {
  std::int16_t screen = 0;
  std::int16_t measure = 0;
  std::int16_t difference = 0;
  ignoringFailure([&] {
    screen = static_cast<std::int16_t>(RoundToWhole(screenMeasure(window.platform()), WholeWidth::Bits16));
  });
  ignoringFailure(
      [&] { measure = static_cast<std::int16_t>(RoundToWhole(windowMeasure(window), WholeWidth::Bits16)); });
  ignoringFailure([&] { difference = subtract16(screen, measure); });
  // Half a twip is kept: an odd difference gives a position ending in .5.
  ignoringFailure(
      [&] { (window.*setPosition)(difference > 0 ? static_cast<float>(difference) / 2.0f : 0.0); });
}

}  // namespace

void CenterFormHorizontally(Form& window) {
  centreOnAxis([](Platform& p) { return p.screenSize().width; }, [](const Form& f) { return f.Width(); },
               &Form::SetLeft, window);
}

void CenterFormVertically(Form& window) {
  centreOnAxis([](Platform& p) { return p.screenSize().height; }, [](const Form& f) { return f.Height(); },
               &Form::SetTop, window);
}

}  // namespace korvane
