// The real platform: dialogs as the author meets them, the per-user store,
// the entry points from Qt into the logic, and the busy cursor around them.

#include "qt/qt_platform.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QAbstractButton>
#include <QFileDialog>
#include <QMessageBox>
#include <QTimer>
#include <filesystem>
#include <memory>

#include "runtime/failure.h"
#include "window_fixture.h"

namespace korvane {
namespace {

// Runs act on the modal window that the platform is about to show.
template <class Dialog>
void onModal(std::function<void(Dialog&)> act) {
  QTimer::singleShot(0, [act] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr) << "no modal window of the expected kind";
    act(*dialog);
  });
}

bool cursorIsBusy() {
  return QGuiApplication::overrideCursor() && QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
}

TEST(NameFilters, KeepTheDescriptionAndApplyThePattern) {
  EXPECT_EQ(qtNameFilters("KOB File (*.kob)|*.kob|All Files (*.*) |*.*|Pictures|*.tga;*.bmp|Lonely"),
            (QStringList{"KOB File (*.kob) (*.kob)", "All Files (*.*)  (*)", "Pictures (*.tga *.bmp)"}));
}

class QtPlatformTest : public ::testing::Test {
 protected:
  testing::TempDir dir;
  testing::ScriptedQtPlatform platform{QString::fromStdString(dir.file("store.ini"))};
};

TEST_F(QtPlatformTest, DialogsShowWhatTheyAreAskedWithTheNormalCursorInsideABusyHandler) {
  onModal<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Save KOB File As...");
    EXPECT_EQ(dialog.directory().absolutePath().toStdString(), dir.path().string());
    EXPECT_TRUE(dialog.selectedNameFilter().startsWith("All Files")) << "filter index 2, counted from 1";
    EXPECT_FALSE(cursorIsBusy());
    dialog.selectFile(QStringLiteral("not_there"));
    static_cast<QDialog&>(dialog).accept();
  });
  std::optional<std::string> chosen;
  platform.runEntryPoint("btnSaveAs_Click", [&] {
    chosen = platform.QtPlatform::fileDialog({"Save KOB File As...", dir.path().string(),
                                              "KOB File (*.kob)|*.kob|All Files (*.*) |*.*", 2, true, ""});
    EXPECT_TRUE(cursorIsBusy()) << "the handler works on";
    onModal<QMessageBox>([](QMessageBox& box) {
      EXPECT_EQ(box.text(), "caf\u00e9") << "bytes that are no UTF-8 as Latin-1";
      EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
      EXPECT_FALSE(cursorIsBusy());
      box.button(QMessageBox::Ok)->click();
    });
    platform.QtPlatform::messageBox("caf\xe9", "Korvane");
  });
  EXPECT_EQ(chosen, dir.file("not_there")) << "a typed name of a missing file is taken";
  EXPECT_FALSE(cursorIsBusy());
}

TEST_F(QtPlatformTest, StoreKeepsEveryTextExactlyAcrossRuns) {
  for (const std::string text : {"  /my author/ ", "C:\\a \"b\";c=d#e", "/m\xc3\xbcller", "/m\xfcller", ""}) {
    ASSERT_TRUE(platform.writeUserValue("Software\\Korvane", "DefaultDir", text));
    QtPlatform nextRun(QString::fromStdString(dir.file("store.ini")));
    EXPECT_EQ(nextRun.readUserValue("Software\\Korvane", "DefaultDir"), text);
  }
}

// QSettings would wait on a FIFO for ever: the window then starts with
// nothing remembered and keeps nothing, whichever of its files is the FIFO.
TEST_F(QtPlatformTest, AStoreFileThatIsAFifoIsNeitherReadNorWritten) {
  ::alarm(60);  // a hang ends the test's process instead of the suite
  std::filesystem::create_directories(dir.path() / "config/Korvane");
  ::setenv("XDG_CONFIG_HOME", dir.file("config").c_str(), 1);
  // The store (empty: the user's own) and the file of it that is the FIFO.
  for (const auto& [store, fifo] : {std::pair{"fifo.ini", "fifo.ini"},
                                    {"locked.ini", "locked.ini.lock"},
                                    {"", "config/Korvane/Korvane.ini"}}) {
    ASSERT_EQ(::mkfifo(dir.file(fifo).c_str(), 0600), 0);
    auto run = *store ? std::make_unique<QtPlatform>(QString::fromStdString(dir.file(store)))
                      : std::make_unique<QtPlatform>();
    EXPECT_FALSE(run->writeUserValue("Software\\Korvane", "DefaultDir", "/a")) << fifo;
    EXPECT_EQ(run->readUserValue("Software\\Korvane", "DefaultDir"), std::nullopt) << fifo;
  }
  ::unsetenv("XDG_CONFIG_HOME");
  ::alarm(0);
}

TEST_F(QtPlatformTest, EntryPointFailureShowsInTheFrameOfItsHandlerAndNothingRunsAfterTheEnd) {
  platform.runEntryPoint("mskColorKey0_Change", [] { throw RuntimeFailure(380); });
  platform.runEntryPoint("btnSaveAs_Click", [] { throw std::runtime_error("broken"); });
  platform.runEntryPoint("btnExit_Click", [] { throw std::bad_alloc(); });
  EXPECT_EQ(platform.messages, (std::vector<std::string>{
                                   "Unexpected error in mskColorKey0_Change: Invalid property value ( 380)",
                                   "Unexpected error in btnSaveAs_Click: broken ( 51)",
                                   "Unexpected error in btnExit_Click: Out of memory ( 7)"}));
  platform.runEntryPoint("btnExit_Click", [&] {
    platform.endProcess();
    throw ProcessEnded{};
  });
  EXPECT_GE(platform.eventLoopQuits, 1);
  bool ran = false;
  platform.runEntryPoint("btnViewHelp_Click", [&] { ran = true; });
  EXPECT_FALSE(ran);
}

}  // namespace
}  // namespace korvane
