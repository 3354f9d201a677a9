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

TEST_F(TesseraDiProva, UnaScrittaLungaStaInDueRighe) {
  QFont grassetto = tessera.font();
  grassetto.setWeight(QFont::DemiBold);
  tessera.setText(QStringLiteral("Ricezione archivio clienti e/o fatture"));
  const QFontMetrics misure(grassetto);
  EXPECT_LT(tessera.minimumSizeHint().width(), misure.horizontalAdvance(tessera.text()));
  EXPECT_GT(tessera.minimumSizeHint().width(),
            misure.horizontalAdvance(QStringLiteral("clienti e/o fatture")));
  EXPECT_GE(tessera.minimumSizeHint().height(), 2 * misure.lineSpacing());
}

TEST_F(TesseraDiProva, UnaScrittaLungaNonSiTagliaInUnPostoAlto) {
  tessera.setText(QStringLiteral("Ricezione archivio clienti e/o fatture"));
  const QImage figura = dipinta({260, 200});
  // Nothing of the caption reaches the border: its columns look as they do without one.
  tessera.setText(QString());
  const QImage senza = dipinta({260, 200});
  const auto diverse = [&](int x) {
    for (int y = 0; y < figura.height(); ++y)
      if (figura.pixel(x, y) != senza.pixel(x, y)) return true;
    return false;
  };
  for (int x = 0; x < 10; ++x) {
    EXPECT_FALSE(diverse(x)) << x;
    EXPECT_FALSE(diverse(figura.width() - 1 - x)) << x;
  }
  bool nelMezzo = false;
  for (int x = 60; x < 200; ++x) nelMezzo = nelMezzo || diverse(x);
  EXPECT_TRUE(nelMezzo);
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
