// The ColorKey editor under random author and program actions: after each,
// every channel is at rest with bar and slider equal, the swatch shows the
// three bars, and the field is empty or names the bar's number.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz_support.h"
#include "mainwindow/color_key_editor.h"
#include "mainwindow/main_window.h"
#include "runtime/failure.h"
#include "runtime/headless_platform.h"
#include "shell/program.h"

using namespace korvane;
using namespace korvane::fuzzing;

namespace {

const std::string kReadColorKeyRefused = "Unexpected error in ReadColorKeyINI: Invalid property value ( 380)";

bool allDigits(const std::string& text) {
  return text.find_first_not_of("0123456789") == std::string::npos;
}

std::string channelState(frmKorvane& frm, int channel) {
  return "channel " + std::to_string(channel) + ": field " + shown(frm.colorKeyField(channel).Text()) +
         ", bar " + std::to_string(frm.colorKeyBar(channel).Value()) + ", slider " +
         std::to_string(frm.colorKeySlider(channel).Value());
}

std::string state(frmKorvane& frm) {
  const Rgb& swatch = frm.lblShowColor.BackColor();
  std::string text;
  for (int channel = 0; channel < 3; ++channel) text += "\n  " + channelState(frm, channel);
  return text + "\n  swatch " + std::to_string(swatch.red) + "," + std::to_string(swatch.green) + "," +
         std::to_string(swatch.blue);
}

void checkAtRest(frmKorvane& frm, const std::string& log) {
  for (int channel = 0; channel < 3; ++channel) {
    const std::string& text = frm.colorKeyField(channel).Text();
    const int bar = frm.colorKeyBar(channel).Value();
    FUZZ_CHECK(bar >= 0 && bar <= 255, channelState(frm, channel) + log);
    FUZZ_CHECK(bar == frm.colorKeySlider(channel).Value(), channelState(frm, channel) + log);
    // Leading zeros may stay; the number may not differ.
    const bool namesBar = !text.empty() && text.size() <= 3 && allDigits(text) && std::stoi(text) == bar;
    FUZZ_CHECK(text.empty() || namesBar, channelState(frm, channel) + log);
  }
  const Rgb bars{frm.vscrlColorKey0.Value(), frm.vscrlColorKey1.Value(), frm.vscrlColorKey2.Value()};
  FUZZ_CHECK(frm.lblShowColor.BackColor() == bars, "the swatch is not the bars' colour" + state(frm) + log);

  const bool on = frm.chkAddColorKey.Value() != 0;
  for (Control* control : std::vector<Control*>{&frm.mskColorKey0, &frm.vscrlColorKey1, &frm.sldColorKey2,
                                                &frm.lblShowColor, &frm.lblColorKey}) {
    FUZZ_CHECK(control->Enabled() == on, control->Name() + " does not follow chkAddColorKey" + log);
  }
}

// Expects a set to be refused with 380 and to leave the control as it was.
template <class Set>
void expectRefused(Set&& set, const std::string& what, frmKorvane& frm, const std::string& log) {
  const std::string before = state(frm);
  try {
    set();
  } catch (const RuntimeFailure& failure) {
    FUZZ_CHECK(failure.number() == failure_number::InvalidPropertyValue,
               what + " failed with " + std::to_string(failure.number()) + log);
    FUZZ_CHECK(state(frm) == before, what + " was refused but changed" + state(frm) + log);
    return;
  }
  fail(what + " was taken" + state(frm) + log);
}

template <class Set>
void expectTaken(Set&& set, const std::string& what, const std::string& log) {
  try {
    set();
  } catch (const RuntimeFailure& failure) {
    fail(what + " failed with " + std::to_string(failure.number()) + " " + failure.description() + log);
  }
}

std::string randomFieldText(FuzzedDataProvider& input) {
  static const char kCharacters[] = "0123456789000255a -.+";
  std::string text(input.ConsumeIntegralInRange<std::size_t>(0, 4), '0');
  for (char& c : text) c = kCharacters[input.ConsumeIntegralInRange<std::size_t>(0, sizeof kCharacters - 2)];
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  HeadlessPlatform platform;
  Program program(platform);
  frmKorvane& frm = program.MainWindow();
  frm.Form_Load();
  std::string log = "\nactions:";
  checkAtRest(frm, log);

  const std::string sourcePath = scratchFile("colorkey.kob");
  for (int step = 0; step < 64 && input.remaining_bytes() > 0; ++step) {
    const int channel = input.ConsumeIntegralInRange<int>(0, 2);
    MaskedEdit& field = frm.colorKeyField(channel);
    switch (input.ConsumeIntegralInRange<int>(0, 5)) {
      case 0: {
        const std::string text = randomFieldText(input);
        const std::string what = "field " + std::to_string(channel) + " set to " + shown(text);
        log += "\n  " + what;
        if (text.size() <= 3 && allDigits(text)) {
          expectTaken([&] { field.SetText(text); }, what, log);
        } else {
          expectRefused([&] { field.SetText(text); }, what, frm, log);
        }
        break;
      }
      case 1: {
        const int value = input.ConsumeIntegralInRange<int>(-3, 258);
        const std::string what = "bar " + std::to_string(channel) + " set to " + std::to_string(value);
        log += "\n  " + what;
        VScrollBar& bar = frm.colorKeyBar(channel);
        if (value >= 0 && value <= 255) {
          expectTaken([&] { bar.SetValue(value); }, what, log);
        } else {
          expectRefused([&] { bar.SetValue(value); }, what, frm, log);
        }
        break;
      }
      case 2: {
        const int value = input.ConsumeIntegralInRange<int>(0, 255);
        const std::string what = "slider " + std::to_string(channel) + " moved to " + std::to_string(value);
        log += "\n  " + what;
        expectTaken([&] { frm.colorKeySlider(channel).AuthorMove(value); }, what, log);
        break;
      }
      case 3: {
        // The author types or deletes one digit at the end of the field.
        std::string text = field.Text();
        if (input.ConsumeBool() && !text.empty()) {
          text.pop_back();
        } else {
          text += static_cast<char>('0' + input.ConsumeIntegralInRange<int>(0, 9));
        }
        if (!field.AcceptsTyped(text)) break;
        const std::string what = "field " + std::to_string(channel) + " typed to " + shown(text);
        log += "\n  " + what;
        expectTaken([&] { field.SetText(text); }, what, log);
        break;
      }
      case 4: {
        log += "\n  chkAddColorKey clicked";
        frm.chkAddColorKey.AuthorClick();
        break;
      }
      case 5: {
        const std::string value = input.ConsumeRandomLengthString(16);
        log += "\n  a source with ColorKey=" + shown(value) + " read";
        writeBytes(sourcePath, "[Material - 0]\r\nColorKey=" + value + "\r\n");
        ReadColorKeyINI(frm, sourcePath);
        for (const std::string& message : platform.messages) {
          FUZZ_CHECK(message == kReadColorKeyRefused, "ReadColorKeyINI showed " + shown(message) + log);
        }
        platform.messages.clear();
        break;
      }
    }
    FUZZ_CHECK(platform.messages.empty(), "an action showed " + shown(platform.messages) + log);
    checkAtRest(frm, log + state(frm));
  }
  return 0;
}
