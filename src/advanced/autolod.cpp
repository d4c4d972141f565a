#include "advanced/autolod.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "advanced/advanced_settings_window.h"
#include "mainwindow/main_window.h"
#include "objectfile/profile_lookup.h"
#include "runtime/failure_handling.h"
#include "shell/program.h"
#include "text/number_conversion.h"

namespace korvane {

namespace {

constexpr int kDecimals = 3;
// The decimal digits a double holds faithfully. Rounding works on these, so
// that a typed 0.0005 is the exact half it looks like and not the binary
// value a hair above it.
constexpr int kSignificantDigits = 15;

// Adds one to the last digit of a run of decimal digits; gives true when the
// carry ran out of the front.
bool incrementDigits(std::string& digits) {
  for (auto it = digits.rbegin(); it != digits.rend(); ++it) {
    if (*it != '9') {
      ++*it;
      return false;
    }
    *it = '0';
  }
  return true;
}

std::string formatThreeDecimals(double value) {
  if (!std::isfinite(value)) throw RuntimeFailure(failure_number::Overflow);
  if (value == 0) return "0.000";

  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*e", kSignificantDigits - 1, std::fabs(value));
  // buffer holds "d.ddddddddddddddde[+-]x": the digits and where the point goes.
  std::string digits(1, buffer[0]);
  digits.append(buffer + 2, kSignificantDigits - 1);
  int pointAt = std::atoi(std::strchr(buffer, 'e') + 1) + 1;

  if (pointAt < 1) {
    digits.insert(0, static_cast<std::size_t>(1 - pointAt), '0');
    pointAt = 1;
  }
  const std::size_t keep = static_cast<std::size_t>(pointAt) + kDecimals;
  if (digits.size() < keep) digits.append(keep - digits.size(), '0');

  std::string kept = digits.substr(0, keep);
  const std::string dropped = digits.substr(keep);
  bool up = false;
  if (!dropped.empty()) {
    const bool beyondHalf = dropped.find_first_not_of('0', 1) != std::string::npos;
    if (dropped[0] > '5' || (dropped[0] == '5' && beyondHalf)) {
      up = true;
    } else if (dropped[0] == '5') {
      up = (kept.back() - '0') % 2 != 0;
    }
  }
  if (up && incrementDigits(kept)) {
    kept.insert(0, 1, '1');
    ++pointAt;
  }

  std::string whole = kept.substr(0, kept.size() - kDecimals);
  const std::string fraction = kept.substr(kept.size() - kDecimals);
  whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size() - 1));

  const bool zero = whole == "0" && fraction == "000";
  return (value < 0 && !zero ? "-" : "") + whole + "." + fraction;
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
  runGuarded([&] { field.SetText(NormalizeAutoLOD(field.Text())); }, [](const RuntimeFailure&) {});
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

void ReadAutoLODinfo(Program& program, const std::string& path) {
  Platform& platform = program.platform();
  reportAndLeave(platform, "ReadAutoLODinfo", [&] {
    frmAdvancedSettings& settings = program.AdvancedSettings();
    // Both keys are read whatever became of the first.
    std::string value = GetINIString(platform, "LOD Information", "AutoLOD#0", path);
    if (value.empty()) {
      MsgBox(platform, "AutoLOD#0 not found.  Using default value...");
      settings.mskAutoLOD0.SetText(kDefaultAutoLOD0);
    } else {
      settings.mskAutoLOD0.SetText(NormalizeAutoLOD(value));
    }
    value = GetINIString(platform, "LOD Information", "AutoLOD#1", path);
    if (value.empty()) {
      MsgBox(platform, "AutoLOD#1 not found.  Using default value...");
      settings.mskAutoLOD1.SetText(kDefaultAutoLOD1);
    } else {
      settings.mskAutoLOD1.SetText(NormalizeAutoLOD(value));
    }
  });
}

void UseDefaultAutoLOD(Program& program) {
  reportAndLeave(program.platform(), "UseDefaultAutoLOD", [&] {
    frmAdvancedSettings& settings = program.AdvancedSettings();
    settings.mskAutoLOD0.SetText(kDefaultAutoLOD0);
    settings.mskAutoLOD1.SetText(kDefaultAutoLOD1);
  });
}

// The window is shown modally over the main window; the call comes back once
// OK or the close box has hidden it. The fields are the live values already.
void btnAdvancedSettings_Click(frmKorvane& frm) {
  frmAdvancedSettings& settings = frm.program().AdvancedSettings();
  settings.SetVisible(true);
  frm.platform().showModal(settings, frm);
}

void OKButton_Click(frmAdvancedSettings& frm) {
  frm.SetVisible(false);
  frm.platform().hideWindow(frm);
}

void btnUseDefault_Click(frmAdvancedSettings& frm) {
  UseDefaultAutoLOD(frm.program());
}

void mskAutoLOD0_LostFocus(frmAdvancedSettings& frm) {
  normalizeOnLeave(frm.mskAutoLOD0);
}

void mskAutoLOD1_LostFocus(frmAdvancedSettings& frm) {
  normalizeOnLeave(frm.mskAutoLOD1);
}

}  // namespace korvane
