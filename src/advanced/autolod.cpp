#include "advanced/autolod.h"

#include <charconv>
#include <cmath>

#include "advanced/advanced_settings_window.h"
#include "objectfile/profile_lookup.h"
#include "runtime/failure_handling.h"
#include "runtime/platform.h"
#include "text/number_conversion.h"

namespace korvane {

namespace {

constexpr int kDecimals = 3;

// Rounds the real itself: only a real that lies exactly halfway between two
// thousandths goes to the even one, so 0.0625 gives 0.062 while 0.0025, a
// hair above its half as a real, gives 0.003. to_chars is exact and ignores
// the locale, so the point stays a point.
std::string formatThreeDecimals(double value) {
  if (!std::isfinite(value)) throw RuntimeFailure(failure_number::Overflow);
  // The largest real has 309 digits before the point.
  char buffer[320];
  auto [end, error] =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, kDecimals);
  if (error != std::errc()) throw RuntimeFailure(failure_number::Overflow);
  std::string text(buffer, end);
  // A negative that rounds to nothing is written without its sign.
  if (text.front() == '-' && text.find_first_not_of("-0.") == std::string::npos) text.erase(0, 1);
  return text;
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

// Blanks, a sign, digits with at most one period, an exponent, blanks: the
// texts that the field's display format shows as a number.
bool isWholeNumber(std::string_view text) {
  std::size_t i = 0;
  auto skipBlanks = [&] {
    while (i < text.size() && text[i] == ' ') ++i;
  };
  auto digitRun = [&] {
    std::size_t start = i;
    while (i < text.size() && isDigit(text[i])) ++i;
    return i - start;
  };
  skipBlanks();
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  std::size_t mantissaDigits = digitRun();
  if (i < text.size() && text[i] == '.') {
    ++i;
    mantissaDigits += digitRun();
  }
  if (mantissaDigits == 0) return false;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E' || text[i] == 'd' || text[i] == 'D')) {
    ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    if (digitRun() == 0) return false;
  }
  skipBlanks();
  return i == text.size();
}

// Leaving a field puts its value into the normal form. A number that cannot
// be converted stays as typed: a handler of the focus must not fail.
void normalizeOnLeave(MaskedEdit& field) {
  silentLeave([&] { field.SetText(NormalizeAutoLOD(field.Text())); });
}

}  // namespace

std::string NormalizeAutoLOD(std::string_view text) {
  return formatThreeDecimals(LeadingNumber(text));
}

std::string FormatAutoLODForDisplay(std::string_view text) {
  if (!isWholeNumber(text)) return std::string(text);
  try {
    return NormalizeAutoLOD(text);
  } catch (const RuntimeFailure&) {
    return std::string(text);
  }
}

void ReadAutoLODinfo(frmAdvancedSettings& settings, const SourceSnapshot& source) {
  Platform& platform = settings.platform();
  reportAndLeave(platform, "ReadAutoLODinfo", [&] {
    // Both keys are read whatever became of the first.
    std::string value = GetINIString(platform, "LOD Information", "AutoLOD#0", source);
    if (value.empty()) {
      MsgBox(platform, "AutoLOD#0 not found.  Using default value...");
      settings.mskAutoLOD0.SetText(kDefaultAutoLOD0);
    } else {
      settings.mskAutoLOD0.SetText(NormalizeAutoLOD(value));
    }
    value = GetINIString(platform, "LOD Information", "AutoLOD#1", source);
    if (value.empty()) {
      MsgBox(platform, "AutoLOD#1 not found.  Using default value...");
      settings.mskAutoLOD1.SetText(kDefaultAutoLOD1);
    } else {
      settings.mskAutoLOD1.SetText(NormalizeAutoLOD(value));
    }
  });
}

void UseDefaultAutoLOD(frmAdvancedSettings& settings) {
  reportAndLeave(settings.platform(), "UseDefaultAutoLOD", [&] {
    settings.mskAutoLOD0.SetText(kDefaultAutoLOD0);
    settings.mskAutoLOD1.SetText(kDefaultAutoLOD1);
  });
}

void OKButton_Click(frmAdvancedSettings& frm) {
  frm.SetVisible(false);
  frm.platform().hideWindow(frm);
}

void btnUseDefault_Click(frmAdvancedSettings& frm) {
  UseDefaultAutoLOD(frm);
}

void mskAutoLOD0_LostFocus(frmAdvancedSettings& frm) {
  normalizeOnLeave(frm.mskAutoLOD0);
}

void mskAutoLOD1_LostFocus(frmAdvancedSettings& frm) {
  normalizeOnLeave(frm.mskAutoLOD1);
}

}  // namespace korvane
