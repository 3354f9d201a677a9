#include "platform/ui/hidden_program.h"

#include <QDir>
#include <QTest>

#include "graphics/graphics_scene.h"
#include "sostegno/troubles.h"

namespace {

constexpr int kDeadline = 20000;

class ProgrammaNascosto : public GraphicsScene {
 protected:
  int start(const QString& parameters) const {
    return StartHidden({image(QStringLiteral("bitmap.exe")), parameters, images()});
  }
  /// What the program wrote in the folder that it was started in, once it has.
  QByteArray written() const {
    const QString path = image(QStringLiteral("detto"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(path); }, kDeadline));
    return readFile(path);
  }
};

}  // namespace

TEST_F(ProgrammaNascosto, PrendeLaLarghezzaEIlPercorsoInteroConGliSpazi) {
  layScript("printf '%s|' \"$#\" \"$1\" \"$2\" > tmp; mv tmp detto");
  EXPECT_EQ(start(QStringLiteral("384 \"") + image(QStringLiteral("con due  spazi.bmp"))), launch::kStarted);
  EXPECT_EQ(written(), "2|384|" + image(QStringLiteral("con due  spazi.bmp")).toUtf8() + "|");
}

TEST_F(ProgrammaNascosto, LavoraNellaCartellaDetta) {
  layScript("pwd > tmp; mv tmp detto");
  EXPECT_EQ(start({}), launch::kStarted);
  EXPECT_EQ(written().trimmed(), QDir(images()).canonicalPath().toUtf8());
}

TEST_F(ProgrammaNascosto, NonSiAspettaLaSuaFine) {
  layScript("while [ ! -e via ]; do sleep 0.01; done; echo x > tmp; mv tmp detto");
  EXPECT_EQ(start({}), launch::kStarted);
  EXPECT_FALSE(QFile::exists(image(QStringLiteral("detto"))));
  writeFile(image(QStringLiteral("via")), {});
  EXPECT_EQ(written(), "x\n");
}

TEST_F(ProgrammaNascosto, QuelloCheNonParteHaIlSuoNumero) {
  EXPECT_EQ(start({}), 2);
  EXPECT_EQ(StartHidden({image(QStringLiteral("bitmap.exe")), {}, app(QStringLiteral("manca"))}), 3);
  writeFile(image(QStringLiteral("bitmap.exe")), "#!/bin/sh\n");
  EXPECT_EQ(start({}), 5);
  ASSERT_TRUE(QDir(images()).mkpath(QStringLiteral("cartella")));
  EXPECT_EQ(StartHidden({image(QStringLiteral("cartella")), {}, images()}), 5);
  layScript({});
  writeFile(image(QStringLiteral("bitmap.exe")), QByteArray(64, '\1'));
  EXPECT_EQ(start({}), 11);
}
