// Started on a machine without a display, the program says so in one line.
#include <gtest/gtest.h>

#include <QProcess>

TEST(Main, WithoutADisplaySaysSoInOneLine) {
  QProcess korvane;
  korvane.setProcessEnvironment(QProcessEnvironment());  // no DISPLAY, no Wayland, no Qt platform
  korvane.start(QStringLiteral(KORVANE_EXECUTABLE), {});
  ASSERT_TRUE(korvane.waitForFinished(10000));
  EXPECT_EQ(korvane.exitCode(), 1);
  EXPECT_EQ(korvane.readAllStandardError(),
            "Korvane needs a graphical desktop: no display found (DISPLAY is not set).\n");
}
