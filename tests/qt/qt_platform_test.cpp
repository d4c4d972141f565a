// The real platform: dialogs as the author meets them, the per-user store,
// the entry points from Qt into the logic, and the busy cursor around them.

#include "qt/qt_platform.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QFileDialog>
#include <QMessageBox>

#include "runtime/failure.h"
#include "window_fixture.h"

namespace korvane {
namespace {

using testing::TempDir;

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
  EXPECT_EQ(qtNameFilters("KOB File (*.kob)|*.kob|All Files (*.*) |*.*"),
            (QStringList{"KOB File (*.kob) (*.kob)", "All Files (*.*)  (*)"}));
  EXPECT_EQ(qtNameFilters("Pictures|*.tga;*.bmp|Lonely"), QStringList{"Pictures (*.tga *.bmp)"});
}

class QtPlatformTest : public ::testing::Test {
 protected:
  QtPlatformTest() { AppTitleName = "Korvane"; }
  TempDir dir;
  QtPlatform platform{QString::fromStdString(dir.file("store.ini"))};
};

TEST_F(QtPlatformTest, FileDialogShowsTitleDirectoryAndDescriptionsAndTakesAnyName) {
  onModal<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Save KOB File As...");
    EXPECT_EQ(dialog.directory().absolutePath().toStdString(), dir.path().string());
    auto* types = dialog.findChild<QComboBox*>("fileTypeCombo");
    ASSERT_NE(types, nullptr);
    EXPECT_EQ(types->itemText(0), "KOB File (*.kob)");
    EXPECT_EQ(types->currentIndex(), 1) << "filter index 2, counted from 1";
    EXPECT_FALSE(cursorIsBusy()) << "the author works in the dialog";
    dialog.selectFile(QStringLiteral("not_there"));
    static_cast<QDialog&>(dialog).accept();
  });
  std::optional<std::string> chosen;
  platform.runEntryPoint("btnSaveAs_Click", [&] {
    chosen = platform.fileDialog({"Save KOB File As...", dir.path().string(),
                                  "KOB File (*.kob)|*.kob|All Files (*.*) |*.*", 2, true, ""});
    EXPECT_TRUE(cursorIsBusy()) << "the handler goes on working";
  });
  EXPECT_EQ(chosen, dir.file("not_there"));
  onModal<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(platform.fileDialog({"Open", dir.path().string(), "All|*", 1, false, ""}), std::nullopt);
}

TEST_F(QtPlatformTest, MessageBoxHasTheTitleThePlainPromptAndOnlyOK) {
  onModal<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), "Korvane");
    EXPECT_EQ(box.text(), "<b>caf\u00e9</b>");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
    EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
    box.button(QMessageBox::Ok)->click();
  });
  platform.messageBox("<b>caf\xe9</b>", "Korvane");
}

TEST_F(QtPlatformTest, StoreKeepsEveryTextExactlyAcrossRuns) {
  for (const std::string text : {"/", "  /home/my author/kob files ", "C:\\Objects\\", "/a \"b\";c=d#e",
                                 "/home/m\xc3\xbcller", "/home/m\xfcller", ""}) {
    ASSERT_TRUE(platform.writeUserValue("Software\\Korvane", "DefaultDir", text));
    EXPECT_EQ(QtPlatform(QString::fromStdString(dir.file("store.ini")))
                  .readUserValue("Software\\Korvane", "DefaultDir"),
              text);
  }
  EXPECT_EQ(platform.readUserValue("Software\\Korvane", "Other"), std::nullopt);
  QtPlatform stuck(QString::fromStdString(dir.write("file", "") + "/store.ini"));
  EXPECT_FALSE(stuck.writeUserValue("Software\\Korvane", "DefaultDir", "/home"));
}

TEST(EntryPoints, FailureShowsInTheFrameOfItsHandlerAndNothingRunsAfterTheEnd) {
  TempDir dir;
  testing::ScriptedQtPlatform platform(QString::fromStdString(dir.file("store.ini")));
  platform.runEntryPoint("mskColorKey0_Change", [] { throw RuntimeFailure(380); });
  platform.runEntryPoint("btnSaveAs_Click", [] { throw std::runtime_error("broken"); });
  platform.runEntryPoint("btnExit_Click", [] { throw std::bad_alloc(); });
  EXPECT_EQ(platform.messages, (std::vector<std::string>{
                                   "Unexpected error in mskColorKey0_Change: Invalid property value ( 380)",
                                   "Unexpected error in btnSaveAs_Click: broken ( 51)",
                                   "Unexpected error in btnExit_Click: Out of memory ( 7)"}));
  EXPECT_FALSE(cursorIsBusy());
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
