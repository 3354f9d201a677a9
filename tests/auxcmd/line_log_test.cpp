#include "auxcmd/line_log.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontInfo>
#include <QScopeGuard>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>
#include <QTimer>
#include <algorithm>
#include <cmath>

#include "controls/palette.h"
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
  QColor colore(int riga) {
    const auto formati = registro.document()->findBlockByNumber(riga).layout()->formats();
    return formati.isEmpty() ? QColor() : formati.first().format.foreground().color();
  }

  FixedClock orologio;
  RegistroLinea registro;
};

/// Of two colours, 1 to 21, as the guidelines for readable screens have it.
double contrasto(const QColor& uno, const QColor& altro) {
  const auto luce = [](const QColor& colore) {
    const auto parte = [](double valore) {
      return valore <= 0.03928 ? valore / 12.92 : std::pow((valore + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * parte(colore.redF()) + 0.7152 * parte(colore.greenF()) + 0.0722 * parte(colore.blueF());
  };
  const double alta = std::max(luce(uno), luce(altro));
  const double bassa = std::min(luce(uno), luce(altro));
  return (alta + 0.05) / (bassa + 0.05);
}

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

TEST_F(RegistroDellaLinea, LeRigheCheArrivanoSiMostranoInsiemeAlBattito) {
  int cambi = 0;
  QObject::connect(&registro, &QPlainTextEdit::textChanged, &registro, [&] { ++cambi; });
  for (int i = 0; i < 50 * 24; ++i) annota(Verso::Ricevuto, "x");
  EXPECT_EQ(registro.toPlainText(), QString()) << "not before the beat";
  EXPECT_TRUE(QTest::qWaitFor([&] { return !registro.toPlainText().isEmpty(); }));
  EXPECT_EQ(righe().size(), 50);
  EXPECT_LE(cambi, 2) << "one change of the text for all of them";
}

TEST_F(RegistroDellaLinea, UnaRigaAMetaAspettaLaPausaELeIntereNo) {
  int senzaPausa = 0;
  QTimer goccia;
  QObject::connect(&goccia, &QTimer::timeout, &goccia, [&] {
    annota(Verso::Ricevuto, senzaPausa++ == 0 ? QByteArray(30, 'a') : QByteArray("b"));
    if (!registro.toPlainText().isEmpty()) goccia.stop();
  });
  goccia.start(20);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !registro.toPlainText().isEmpty(); }));
  ASSERT_EQ(righe().size(), 1) << "the half one may still become whole";
  EXPECT_TRUE(QTest::qWaitFor([&] { return righe().size() == 2; }));
  EXPECT_TRUE(righe()[1].contains(QStringLiteral("aaaaaab"))) << righe()[1].toStdString();
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

TEST_F(RegistroDellaLinea, InviatoRicevutoEGuastoHannoColoriDiversiCheSiLeggono) {
  const QPalette prima = QApplication::palette();
  const auto rimetti = qScopeGuard([&] { QApplication::setPalette(prima); });
  annota(Verso::Inviato, "1R");
  annota(Verso::Ricevuto, "ok");
  annota(Verso::Guasto, "linea interrotta");
  for (const bool scuro : {false, true}) {
    const style::Tints& tinte = style::tints(scuro);
    registro.setPalette(style::palette(tinte));
    ASSERT_EQ(righe().size(), 3);
    const QList<QColor> colori{colore(0), colore(1), colore(2)};
    EXPECT_NE(colori[0], colori[1]);
    EXPECT_NE(colori[1], colori[2]);
    EXPECT_NE(colori[0], colori[2]);
    for (const QColor& uno : colori) {
      EXPECT_GE(contrasto(uno, tinte.paper), 4.5) << scuro << uno.name().toStdString();
      EXPECT_GE(contrasto(uno, tinte.emphasis), 4.5) << scuro << uno.name().toStdString();
    }
  }
}

TEST_F(RegistroDellaLinea, LeColonneStannoInFila) {
  EXPECT_TRUE(QFontInfo(registro.font()).fixedPitch());
  EXPECT_EQ(registro.fontMetrics().horizontalAdvance(QStringLiteral("iiii")),
            registro.fontMetrics().horizontalAdvance(QStringLiteral("WWWW")));
}

TEST_F(RegistroDellaLinea, SiVedonoAlmenoOttoRighe) {
  EXPECT_GE(registro.minimumSizeHint().height(), 8 * registro.fontMetrics().lineSpacing());
}

TEST_F(RegistroDellaLinea, UnFiumeSenzaFineRestaDentroISuoiLimiti) {
  const QByteArray blocco(1024, 'x');
  for (int i = 0; i < 100 * 1024; ++i) annota(Verso::Ricevuto, blocco);
  registro.completa();
  // Four blocks are 171 lines; the number of the rest is the last.
  EXPECT_EQ(righe().size(), 172);
  EXPECT_EQ(righe().last(), QStringLiteral("09:05:01.000  ← ricevuto  … e altri 104.853.504 byte"));
}
