// Every byte of a line survives showing and editing, whatever its code page,
// and no length limit cuts a field between the source and the saved file.

#include "qt/text_bytes.h"

#include <QLineEdit>

#include "window_fixture.h"

namespace korvane {
namespace {

struct Edit {
  const char* name;
  std::string textureMap;  // as the source holds it, shown as "café.tga"
  std::string saved;       // after the author replaced ".tga" by "ü.tga"
};

class TextBytes : public testing::QtWindowTest, public ::testing::WithParamInterface<Edit> {
 protected:
  void SetUp() override { start(); }
};

TEST_P(TextBytes, FieldEditKeepsTheCodePageToTheSavedFile) {
  openLOD0(GetParam().textureMap);
  auto* field = mainWidget<QLineEdit>("txtTextureMap");
  EXPECT_EQ(field->text(), QStringLiteral("caf\u00e9.tga"));
  click(field);
  QTest::keyClick(field, Qt::Key_End);
  for (int i = 0; i < 4; ++i) QTest::keyClick(field, Qt::Key_Backspace);
  QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QStringLiteral("\u00fc"), Qt::NoModifier);
  QTest::keyClicks(field, ".tga");
  EXPECT_NE(saveAs().find("\r\nTextureMap=" + GetParam().saved + "\r\n"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Sources, TextBytes,
                         ::testing::Values(Edit{"Latin1", "caf\xe9.tga", "caf\xe9\xfc.tga"},
                                           Edit{"Utf8", "caf\xc3\xa9.tga", "caf\xc3\xa9\xc3\xbc.tga"}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(TextBytes, FortyThousandCharacterTextureMapReachesTheScreenAndTheFileWhole) {
  const std::string name(39996, 'm');
  openLOD0("wood.tga");
  platform.answers.push_back(dir.file(name + ".tga"));
  click(mainWidget("btnBrowseTextureMap"));
  auto* field = mainWidget<QLineEdit>("txtTextureMap");
  EXPECT_EQ(field->text().size(), 40000);
  click(field);
  QTest::keyClick(field, Qt::Key_End);
  QTest::keyClick(field, Qt::Key_Backspace);
  QTest::keyClick(field, Qt::Key_P);
  EXPECT_NE(saveAs().find("\r\nTextureMap=" + name + ".tgp\r\n"), std::string::npos);
}

}  // namespace
}  // namespace korvane
