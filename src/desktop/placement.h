#pragma once
// Centring a window on the screen, in 16-bit twips, failures ignored.

namespace korvane {

class Form;

void CenterFormHorizontally(Form& window);
void CenterFormVertically(Form& window);

}  // namespace korvane
