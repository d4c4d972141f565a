// The ColorKey editor under random author and program actions: after each, every channel is at rest with
// bar and slider equal, the swatch shows the three bars, and the field is empty or names the bar's number.

#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz_support.h"
#include "mainwindow/color_key_editor.h"
#include "objectfile/source_snapshot.h"
#include "runtime/failure.h"

using namespace korvane;
using namespace korvane::fuzzing;

namespace {

const auto allDigits = [](const std::string& t) { return t.find_first_not_of("0123456789") == t.npos; };

std::string state(frmKorvane& frm) {
  std::string text = "\n  chkAddColorKey " + std::to_string(frm.chkAddColorKey.Value());
  for (int channel = 0; channel < 3; ++channel)
    text += "\n  channel " + std::to_string(channel) + ": field " + shown(frm.colorKeyField(channel).Text()) +
            ", bar " + std::to_string(frm.colorKeyBar(channel).Value()) + ", slider " +
            std::to_string(frm.colorKeySlider(channel).Value());
  return text;
}

void checkAtRest(frmKorvane& frm, const std::string& log) {
  for (int channel = 0; channel < 3; ++channel) {
    const std::string& text = frm.colorKeyField(channel).Text();
    const int bar = frm.colorKeyBar(channel).Value();
    // Leading zeros may stay; the number may not differ.
    const bool namesBar = text.empty() || (text.size() <= 3 && allDigits(text) && std::stoi(text) == bar);
    FUZZ_CHECK(bar >= 0 && bar <= 255 && bar == frm.colorKeySlider(channel).Value() && namesBar, log);
  }
  const Rgb bars{frm.vscrlColorKey0.Value(), frm.vscrlColorKey1.Value(), frm.vscrlColorKey2.Value()};
  FUZZ_CHECK(frm.lblShowColor.BackColor() == bars, "the swatch is not the bars' colour" + log);
  for (Control* control : std::initializer_list<Control*>{
           &frm.mskColorKey0, &frm.vscrlColorKey1, &frm.sldColorKey2, &frm.lblShowColor, &frm.lblColorKey})
    FUZZ_CHECK(control->Enabled() == (frm.chkAddColorKey.Value() != 0),
               control->Name() + " does not follow chkAddColorKey" + log);
}

// A set the control takes runs its chain to the end; one it refuses is failure 380 and changes nothing.
template <class Set>
void expect(frmKorvane& frm, std::string& log, const std::string& what, bool taken, Set&& set) {
  log += "\n  " + what;
  const std::string before = state(frm);
  int failure = 0;
  try {
    set();
  } catch (const RuntimeFailure& refused) {
    failure = refused.number();
  }
  FUZZ_CHECK(taken ? failure == 0 : failure == failure_number::InvalidPropertyValue && state(frm) == before,
             what + " ended with failure " + std::to_string(failure) + state(frm) + log);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  Session session;
  HeadlessPlatform& platform = session.platform;
  frmKorvane& frm = session.frm;
  frm.Form_Load();
  std::string log = "\nactions:";
  for (int step = 0; step < 64 && input.remaining_bytes() > 0; ++step) {
    const int channel = input.ConsumeIntegralInRange<int>(0, 2);
    const std::string n = std::to_string(channel);
    const int value = input.ConsumeIntegralInRange<int>(-3, 258);
    MaskedEdit& field = frm.colorKeyField(channel);
    std::string text = field.Text();
    switch (input.ConsumeIntegralInRange<int>(0, 5)) {
      case 0:
        text = input.ConsumeRandomLengthString(4);
        for (char& c : text) c = "0123456789000255a -.+"[static_cast<unsigned char>(c) % 21];
        expect(frm, log, "field " + n + " set to " + shown(text), text.size() <= 3 && allDigits(text),
               [&] { field.SetText(text); });
        break;
      case 1:
        expect(frm, log, "bar " + n + " set to " + std::to_string(value), value >= 0 && value <= 255,
               [&] { frm.colorKeyBar(channel).SetValue(value); });
        break;
      case 2:
        expect(frm, log, "slider " + n + " moved to " + std::to_string(value & 255), true,
               [&] { frm.colorKeySlider(channel).AuthorMove(value & 255); });
        break;
      case 3:
        // The author types or deletes one digit at the end of the field.
        text = value % 2 && !text.empty() ? text.substr(0, text.size() - 1)
                                          : text + char('0' + (value & 255) % 10);
        if (field.AcceptsTyped(text))
          expect(frm, log, "field " + n + " typed to " + shown(text), true, [&] { field.SetText(text); });
        break;
      case 4:
        expect(frm, log, "chkAddColorKey clicked", true, [&] { frm.chkAddColorKey.AuthorClick(); });
        break;
      case 5:
        text = input.ConsumeRandomLengthString(16);
        log += "\n  a source with ColorKey=" + shown(text) + " read";
        writeBytes(scratchFile("colorkey.kob"), "[Material - 0]\r\nColorKey=" + text + "\r\n");
        ReadColorKeyINI(frm, SourceSnapshot(scratchFile("colorkey.kob")));
        // A value the controls refuse may stop the reading, never anything else.
        std::erase(platform.messages, "Unexpected error in ReadColorKeyINI: Invalid property value ( 380)");
        break;
    }
    FUZZ_CHECK(platform.messages.empty(), "an action showed " + shown(crlf(platform.messages)) + log);
    checkAtRest(frm, state(frm) + log);
  }
  return 0;
}
