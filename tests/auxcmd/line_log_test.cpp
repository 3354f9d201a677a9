#include "auxcmd/line_log.h"

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QTest>

#include "sostegno/fixed_clock.h"

namespace {

using auxcmd::Verso;

/// The clock of the tests stands at 09:05:01.
class RegistroDellaLinea : public testing::Test {
 protected:
  RegistroDellaLinea() {
    registro.usa(orologio);
    registro.resize(900, 120);
    registro.show();
  }

  QStringList righe() { return registro.toPlainText().split(u'\n'); }
  void annota(Verso verso, const QByteArray& byte) { registro.annota(verso, byte); }

  FixedClock orologio;
  RegistroLinea registro;
};

}  // namespace

TEST_F(RegistroDellaLinea, QuelloCheSiMandaStaSubitoInUnaRigaConOraVersoTestoEEsadecimale) {
  annota(Verso::Inviato, "X89F");
  EXPECT_EQ(registro.toPlainText(),
            QStringLiteral("09:05:01.000  → inviato   X89F                      58 38 39 46"));
}

TEST_F(RegistroDellaLinea, QuelloCheArrivaACaratteriStaInUnaRigaDopoUnaPausa) {
  for (const char uno : QByteArray("SC.1")) annota(Verso::Ricevuto, QByteArray(1, uno));
  EXPECT_EQ(registro.toPlainText(), QString());
  EXPECT_TRUE(QTest::qWaitFor([&] { return !registro.toPlainText().isEmpty(); }));
  EXPECT_EQ(registro.toPlainText(),
            QStringLiteral("09:05:01.000  ← ricevuto  SC.1                      53 43 2e 31"));
}

TEST_F(RegistroDellaLinea, UnVersoNuovoChiudeLaRigaDiPrima) {
  annota(Verso::Ricevuto, "A");
  annota(Verso::Inviato, "B");
  ASSERT_EQ(righe().size(), 2);
  EXPECT_TRUE(righe()[0].contains(QStringLiteral("← ricevuto  A")));
  EXPECT_TRUE(righe()[1].contains(QStringLiteral("→ inviato   B")));
}

TEST_F(RegistroDellaLinea, OgniVentiquattroByteUnaRiga) {
  annota(Verso::Inviato, QByteArray(24, 'a') + QByteArray(24, 'b') + "c");
  ASSERT_EQ(righe().size(), 3);
  EXPECT_TRUE(righe()[0].contains(QString(24, u'a')));
  EXPECT_TRUE(righe()[1].contains(QString(24, u'b')));
  EXPECT_TRUE(righe()[2].endsWith(QStringLiteral("63")));
}

TEST_F(RegistroDellaLinea, UnGuastoSiDiceAParole) {
  annota(Verso::Guasto, "linea interrotta");
  EXPECT_EQ(registro.toPlainText(), QStringLiteral("09:05:01.000  ✗ errore    linea interrotta"));
}

TEST_F(RegistroDellaLinea, ICaratteriDiControlloSonoPuntiEIlTestoE1252) {
  annota(Verso::Inviato, QByteArray("\r\n\0\x80\xE8", 5));
  EXPECT_TRUE(righe()[0].contains(QStringLiteral("···€è"))) << righe()[0].toStdString();
  EXPECT_TRUE(righe()[0].endsWith(QStringLiteral("0d 0a 00 80 e8")));
}

TEST_F(RegistroDellaLinea, DiUnArrivoLungoSiMostraLInizioEIlNumeroDegliAltri) {
  for (int i = 0; i < 5000; ++i) annota(Verso::Ricevuto, "x");
  registro.completa();
  // 4096 bytes at 24 a line are 171 lines; the number of the 904 others is the last.
  EXPECT_EQ(righe().size(), 172);
  EXPECT_EQ(righe().last(), QStringLiteral("09:05:01.000  ← ricevuto  … e altri 904 byte"));
  annota(Verso::Inviato, "1R");
  annota(Verso::Ricevuto, "y");
  registro.completa();
  EXPECT_TRUE(righe().last().contains(QStringLiteral("← ricevuto  y"))) << "the next answer is shown again";
}

TEST_F(RegistroDellaLinea, TieneLeUltimeDuemilaRighe) {
  for (int i = 0; i < 2005; ++i) annota(Verso::Inviato, QByteArray::number(i));
  EXPECT_EQ(righe().size(), 2000);
  EXPECT_TRUE(righe().first().contains(QStringLiteral("inviato   5 ")));
  EXPECT_TRUE(righe().last().contains(QStringLiteral("inviato   2004 ")));
}

TEST_F(RegistroDellaLinea, ScorreSoloSeSeNeVedeLaFine) {
  for (int i = 0; i < 100; ++i) annota(Verso::Inviato, "riga");
  QScrollBar& barra = *registro.verticalScrollBar();
  EXPECT_EQ(barra.value(), barra.maximum());
  barra.setValue(10);
  annota(Verso::Inviato, "altra");
  EXPECT_EQ(barra.value(), 10);
}

TEST_F(RegistroDellaLinea, NonSiScriveEIlTabulatoreEsce) {
  QTest::keyClicks(&registro, QStringLiteral("x"));
  EXPECT_EQ(registro.toPlainText(), QString());
  EXPECT_TRUE(registro.tabChangesFocus());
}
