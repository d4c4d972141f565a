// The real platform: dialogs as the author meets them, the per-user store,
// the screen in twips, and the entry points from Qt into the logic.

#include "qt/qt_platform.h"

#include <QComboBox>
#include <QFileDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>

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
    if (dialog == nullptr) {
      ADD_FAILURE() << "no modal window of the expected kind";
      if (QWidget* other = QApplication::activeModalWidget()) other->hide();
      return;
    }
    act(*dialog);
  });
}

struct FilterCase {
  const char* name;
  std::string filter;
  QStringList expected;
};

class NameFilters : public ::testing::TestWithParam<FilterCase> {};

TEST_P(NameFilters, KeepTheDescriptionAndApplyThePattern) {
  EXPECT_EQ(qtNameFilters(GetParam().filter), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Filters, NameFilters,
                         ::testing::Values(FilterCase{"KobFilter",
                                                      "KOB File (*.kob)|*.kob|All Files (*.*) |*.*",
                                                      {"KOB File (*.kob) (*.kob)", "All Files (*.*)  (*)"}},
                                           FilterCase{"TgaFilter",
                                                      "TGA File (*.tga)|*.tga|All Files (*.*) |*.*",
                                                      {"TGA File (*.tga) (*.tga)", "All Files (*.*)  (*)"}},
                                           FilterCase{"SeveralPatternsOnePair",
                                                      "Pictures|*.tga;*.bmp",
                                                      {"Pictures (*.tga *.bmp)"}},
                                           FilterCase{"DescriptionWithoutPattern", "Lonely", {}}),
                         [](const auto& info) { return std::string(info.param.name); });

class QtPlatformTest : public ::testing::Test {
 protected:
  TempDir dir;
  QtPlatform platform{QString::fromStdString(dir.file("store.ini"))};
};

TEST_F(QtPlatformTest, FileDialogShowsTitleDirectoryAndDescriptions) {
  const std::string existing = dir.write("old.kob", "x");
  onModal<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Save KOB File As...");
    EXPECT_EQ(dialog.directory().absolutePath().toStdString(), dir.path().string());
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_TRUE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
    auto* types = dialog.findChild<QComboBox*>("fileTypeCombo");
    ASSERT_NE(types, nullptr);
    ASSERT_EQ(types->count(), 2);
    EXPECT_EQ(types->itemText(0), "KOB File (*.kob)");
    EXPECT_EQ(types->itemText(1), "All Files (*.*)");
    EXPECT_EQ(types->currentIndex(), 1) << "filter index 2, counted from 1";
    dialog.selectFile(QString::fromStdString(existing));
    static_cast<QDialog&>(dialog).accept();
  });
  const auto chosen = platform.fileDialog({"Save KOB File As...", dir.path().string(),
                                           "KOB File (*.kob)|*.kob|All Files (*.*) |*.*", 2, true, ""});
  EXPECT_EQ(chosen, existing) << "an existing file is taken without a question";
}

TEST_F(QtPlatformTest, OpenDialogTakesATypedNameOfAMissingFileAndCancelGivesNothing) {
  onModal<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
    dialog.selectFile(QStringLiteral("not_there"));
    static_cast<QDialog&>(dialog).accept();
  });
  FileDialogRequest request{"Open KOB File (LOD 0)",
                            dir.path().string(),
                            "KOB File (*.kob)|*.kob|All Files (*.*) |*.*",
                            1,
                            false,
                            ""};
  EXPECT_EQ(platform.fileDialog(request), dir.file("not_there"));

  onModal<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(platform.fileDialog(request), std::nullopt);
}

TEST_F(QtPlatformTest, MessageBoxHasTheTitleThePlainPromptAndOnlyOK) {
  onModal<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), "Korvane");
    EXPECT_EQ(box.text(), "Unexpected error in GetRegStr \n\n 7 - Out of memory");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
    EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
    box.button(QMessageBox::Ok)->click();
  });
  platform.messageBox("Unexpected error in GetRegStr \n\n 7 - Out of memory", "Korvane");
}

struct StoredText {
  const char* name;
  std::string text;
};

class StoreKeepsText : public QtPlatformTest, public ::testing::WithParamInterface<StoredText> {};

TEST_P(StoreKeepsText, ExactlyAcrossRuns) {
  ASSERT_TRUE(platform.writeUserValue("Software\\Korvane", "DefaultDir", GetParam().text));
  QtPlatform nextRun(QString::fromStdString(dir.file("store.ini")));
  EXPECT_EQ(nextRun.readUserValue("Software\\Korvane", "DefaultDir"), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, StoreKeepsText,
    ::testing::Values(StoredText{"RootDirectory", "/"},
                      StoredText{"BlanksInsideAndAround", "  /home/my author/kob files "},
                      StoredText{"Backslashes", "C:\\Objects\\Crates\\"},
                      StoredText{"QuotesAndSemicolon", "/a \"b\";c=d#e"},
                      StoredText{"NonAsciiUtf8", "/home/m\xc3\xbcller/\xe6\xa8\xa1\xe5\x9e\x8b"},
                      StoredText{"CodePageByte", "/home/m\xfcller"}, StoredText{"EmptyText", ""}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(QtPlatformTest, ValueNeverWrittenIsMissing) {
  EXPECT_EQ(platform.readUserValue("Software\\Korvane", "DefaultDir"), std::nullopt);
  ASSERT_TRUE(platform.writeUserValue("Software\\Korvane", "Other", "x"));
  EXPECT_EQ(platform.readUserValue("Software\\Korvane", "DefaultDir"), std::nullopt);
  EXPECT_EQ(platform.readUserValue("Software\\Elsewhere", "Other"), std::nullopt);
}

TEST_F(QtPlatformTest, UnwritableStoreSaysNoAndThrowsNothing) {
  const std::string blocker = dir.write("not_a_directory", "");
  QtPlatform stuck(QString::fromStdString(blocker + "/store.ini"));
  EXPECT_FALSE(stuck.writeUserValue("Software\\Korvane", "DefaultDir", "/home/author"));
  EXPECT_EQ(stuck.readUserValue("Software\\Korvane", "DefaultDir"), std::nullopt);
}

TEST_F(QtPlatformTest, MissingDocumentIsNotOpened) {
  EXPECT_FALSE(platform.openDocument(dir.file("Korvane_Help.html")));
  EXPECT_FALSE(platform.openDocument(dir.path().string())) << "a directory is no document";
}

TEST_F(QtPlatformTest, ScreenSizeIsThePrimaryScreenInTwips) {
  const QSize pixels = QGuiApplication::primaryScreen()->geometry().size();
  const TwipsSize screen = platform.screenSize();
  EXPECT_DOUBLE_EQ(screen.width, pixels.width() * 15.0);
  EXPECT_DOUBLE_EQ(screen.height, pixels.height() * 15.0);
}

class EntryPoints : public ::testing::Test {
 protected:
  TempDir dir;
  testing::ScriptedQtPlatform platform{QString::fromStdString(dir.file("store.ini"))};
};

TEST_F(EntryPoints, FailureShowsInTheFrameOfTheHandler) {
  AppTitleName = "Korvane";
  platform.runEntryPoint("mskColorKey0_Change", [] { throw RuntimeFailure(380); });
  platform.runEntryPoint("btnSaveAs_Click", [] { throw std::runtime_error("broken"); });
  platform.runEntryPoint("btnExit_Click", [] { throw std::bad_alloc(); });
  EXPECT_EQ(platform.messages, (std::vector<std::string>{
                                   "Unexpected error in mskColorKey0_Change: Invalid property value ( 380)",
                                   "Unexpected error in btnSaveAs_Click: broken ( 51)",
                                   "Unexpected error in btnExit_Click: Out of memory ( 7)"}));
  EXPECT_EQ(platform.messageTitles.front(), "Korvane");
  EXPECT_EQ(platform.eventLoopQuits, 0);
}

TEST_F(EntryPoints, EndOfTheProcessQuitsAndNothingRunsAfterIt) {
  platform.runEntryPoint("btnExit_Click", [this] {
    platform.endProcess();
    throw ProcessEnded{};
  });
  EXPECT_TRUE(platform.ended());
  EXPECT_GE(platform.eventLoopQuits, 1);
  EXPECT_TRUE(platform.messages.empty());
  bool ran = false;
  platform.runEntryPoint("btnViewHelp_Click", [&] { ran = true; });
  EXPECT_FALSE(ran);
}

}  // namespace
}  // namespace korvane
