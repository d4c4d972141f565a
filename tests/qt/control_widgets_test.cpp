// The widgets' own mappings, where no window of the program reaches every case.

#include "qt/control_widgets.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

// The record's Min stands at the top whichever end is larger, and the widget
// runs from 0 there; the program's bars fall from 255 to 0.
TEST(FocusScrollBarTest, HoldsTheRecordsValuesWithMinAtTheTop) {
  struct Row {
    const char* name;
    int top, bottom, record, widget, minimum, maximum;
  };
  for (const Row& row : {Row{"falling", 255, 0, 200, 55, 0, 255}, Row{"rising", 10, 20, 12, 2, 10, 20}}) {
    FocusScrollBar bar(row.top, row.bottom, nullptr);
    bar.setRecordValue(row.record);
    EXPECT_EQ(bar.value(), row.widget) << row.name;
    EXPECT_EQ(bar.recordValue(), row.record) << row.name;
    EXPECT_EQ(bar.maximum() - bar.minimum(), row.maximum - row.minimum) << row.name;
    EXPECT_EQ(std::pair(bar.recordMinimum(), bar.recordMaximum()), std::pair(row.minimum, row.maximum))
        << row.name;
  }
}

}  // namespace
}  // namespace korvane
