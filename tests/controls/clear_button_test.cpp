#include "controls/clear_button.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <algorithm>

#include "controls/contrast.h"
#include "controls/style.h"

namespace {

void mostraPieno(QLineEdit& campo) {
  addClearButton(campo);
  campo.setText(QStringLiteral("8001"));
  campo.resize(200, 30);
  campo.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&campo));
}

}  // namespace

TEST(CroceDelCampo, SvuotaEHaUnNome) {
  QLineEdit campo;
  mostraPieno(campo);
  auto* croce = campo.findChild<QToolButton*>();
  ASSERT_NE(croce, nullptr);
  EXPECT_EQ(croce->accessibleName(), QStringLiteral("Svuota il campo"));
  QTest::mouseClick(croce, Qt::LeftButton);
  EXPECT_EQ(campo.text(), QString());
}

TEST(CroceDelCampo, GliAltriPulsantiDelCampoTengonoIlLoroNome) {
  QLineEdit campo;
  campo.addAction(QIcon(), QLineEdit::LeadingPosition);
  auto* segno = campo.findChild<QToolButton*>();
  segno->setAccessibleName(QStringLiteral("Guasto"));
  addClearButton(campo);
  EXPECT_EQ(segno->accessibleName(), QStringLiteral("Guasto"));
  EXPECT_EQ(campo.findChildren<QToolButton*>().size(), 2);
}

struct CroceSulFondo : testing::TestWithParam<bool> {
  CroceSulFondo() {
    style::iconFolder(QStringLiteral(GESTIONALE_SOURCES "/data/icons"));
    style::apply(*qApp, GetParam() ? style::Theme::Dark : style::Theme::Light);
  }
  ~CroceSulFondo() override { style::apply(*qApp, style::Theme::Light); }
};

TEST_P(CroceSulFondo, SiVede) {
  QLineEdit campo;
  mostraPieno(campo);
  auto* croce = campo.findChild<QToolButton*>();
  const QColor fondo = campo.palette().color(QPalette::Base);
  // The cross fades in.
  double migliore = 1;
  EXPECT_TRUE(QTest::qWaitFor([&] {
    const QImage dipinta = campo.grab(croce->geometry()).toImage();
    for (int y = 0; y < dipinta.height(); ++y)
      for (int x = 0; x < dipinta.width(); ++x)
        migliore = std::max(migliore, contrast::between(dipinta.pixelColor(x, y), fondo));
    return migliore >= 3;
  })) << migliore;
}

INSTANTIATE_TEST_SUITE_P(ChiaroEScuro, CroceSulFondo, testing::Bool());
