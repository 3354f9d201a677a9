#include "controls/card.h"

#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QSignalSpy>
#include <QTest>

namespace {

struct TesseraDiProva : testing::Test {
  Card tessera;

  TesseraDiProva() { tessera.setText(QStringLiteral("Trasferimento Articoli")); }
  QImage dipinta(const QSize& misura) {
    tessera.resize(misura);
    return tessera.grab().toImage();
  }
};

TEST_F(TesseraDiProva, LaSpiegazioneArrivaAChiPassaSopraEAChiAscolta) {
  tessera.setHint(QStringLiteral("Invia gli articoli"));
  EXPECT_EQ(tessera.toolTip(), QStringLiteral("Invia gli articoli"));
  EXPECT_EQ(tessera.accessibleDescription(), QStringLiteral("Invia gli articoli"));
}

TEST_F(TesseraDiProva, IlMinimoContieneLaScrittaIntera) {
  QFont grassetto = tessera.font();
  grassetto.setWeight(QFont::DemiBold);
  EXPECT_GT(tessera.minimumSizeHint().width(), QFontMetrics(grassetto).horizontalAdvance(tessera.text()));
}

TEST_F(TesseraDiProva, SoloInUnPostoAltoMostraLaSpiegazione) {
  const QImage bassaSenza = dipinta({300, 60});
  const QImage altaSenza = dipinta({300, 200});
  tessera.setHint(QStringLiteral("Invia gli articoli"));
  EXPECT_EQ(dipinta({300, 60}), bassaSenza);
  EXPECT_NE(dipinta({300, 200}), altaSenza);
}

TEST_F(TesseraDiProva, SpentaHaUnAltroAspettoENonSiPreme) {
  QSignalSpy premuta(&tessera, &QPushButton::clicked);
  const QImage accesa = dipinta({300, 200});
  tessera.setEnabled(false);
  EXPECT_NE(dipinta({300, 200}), accesa);
  QTest::mouseClick(&tessera, Qt::LeftButton);
  EXPECT_EQ(premuta.count(), 0);
}

}  // namespace
