// Every byte of a line survives showing and editing, whatever its code page,
// and no length limit cuts a field between the source and the saved file.

#include "qt/text_bytes.h"

#include <QLineEdit>

#include "window_fixture.h"

namespace korvane {
namespace {

using TextBytes = testing::QtWindowTest;

TEST_F(TextBytes, AnEditedFieldKeepsEveryByteToTheSavedFile) {
  start();
  const std::string name(39996, 'm');
  // The source's TextureMap, a name picked in the dialog over it, the field as UTF-8, the saved value
  // after erasing at the end and typing.
  const struct {
    std::string textureMap, browsed, shown, saved;
    int erased;
    QString typed;
  } rows[] = {
      {"caf\xe9.tga", "", "caf\xc3\xa9.tga", "caf\xe9\xfc.tga", 4, QStringLiteral("\u00fc.tga")},
      {"caf\xc3\xa9.tga", "", "caf\xc3\xa9.tga", "caf\xc3\xa9\xc3\xbc.tga", 4, QStringLiteral("\u00fc.tga")},
      {"wood.tga", dir.file(name + ".tga"), name + ".tga", name + ".tgp", 1, "p"},
  };
  for (const auto& row : rows) {
    openLOD0(row.textureMap);
    if (!row.browsed.empty()) platform.answers.push_back(row.browsed);
    if (!row.browsed.empty()) click(mainWidget("btnBrowseTextureMap"));
    auto* field = mainWidget<QLineEdit>("txtTextureMap");
    EXPECT_EQ(field->text().toStdString(), row.shown);
    click(field);
    QTest::keyClick(field, Qt::Key_End);
    for (int i = 0; i < row.erased; ++i) QTest::keyClick(field, Qt::Key_Backspace);
    for (QChar c : row.typed) QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(c), {});
    EXPECT_NE(saveAs().find("\r\nTextureMap=" + row.saved + "\r\n"), std::string::npos) << row.saved.size();
  }
}

}  // namespace
}  // namespace korvane
