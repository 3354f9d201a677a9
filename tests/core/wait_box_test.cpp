#include "core/wait_box.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPointer>
#include <QProgressBar>

#include "core/Form_ATTESA.h"
#include "sostegno/program_fixture.h"

namespace {

using namespace std::chrono_literals;

/// Later than any test.
constexpr auto kMai = 1h;
constexpr qint64 kPazienza = 10000;
constexpr int kRidipingi = 40;

class RiquadroAttesa : public testing::Test {
 protected:
  RiquadroAttesa() {
    programma_.screens.registra(QStringLiteral("Form_ATTESA"), [](Contesto&) { return new Form_ATTESA; });
  }
  QWidget* riquadro() const { return programma_.screens.trova(QStringLiteral("Form_ATTESA")); }
  QProgressBar& barra() const {
    auto* trovata = riquadro()->findChild<QProgressBar*>(QStringLiteral("Avanzamento"));
    if (!trovata) throw std::runtime_error("no bar");
    return *trovata;
  }
  static bool clessidra() {
    const QCursor* puntatore = QGuiApplication::overrideCursor();
    return puntatore && puntatore->shape() == Qt::WaitCursor;
  }

  ProgramFixture programma_;
};

TEST_F(RiquadroAttesa, UnLavoroBreveHaLaClessidraENonIlRiquadro) {
  programma_.contesto.attesaDopo = kMai;
  {
    Attesa attesa(programma_.contesto);
    EXPECT_TRUE(clessidra());
    for (int i = 1; i <= 1000; ++i) attesa.avanza(i, 1000);
    EXPECT_EQ(riquadro(), nullptr);
    EXPECT_TRUE(clessidra());
  }
  EXPECT_FALSE(clessidra());
}

TEST_F(RiquadroAttesa, UnLavoroLungoLoMostraQuandoIlSuoTempoEPassato) {
  programma_.contesto.attesaDopo = 20ms;
  QElapsedTimer orologio;
  orologio.start();
  Attesa attesa(programma_.contesto);
  EXPECT_EQ(riquadro(), nullptr);
  while (!riquadro() && orologio.elapsed() < kPazienza) attesa.avanza(1, 10);
  ASSERT_NE(riquadro(), nullptr);
  EXPECT_GE(orologio.elapsed(), 20);
  EXPECT_TRUE(riquadro()->isVisible());
}

TEST_F(RiquadroAttesa, SenzaUnTempoSiMostraSubito) {
  programma_.contesto.attesaDopo = 0ms;
  const Attesa attesa(programma_.contesto);
  ASSERT_NE(riquadro(), nullptr);
  EXPECT_TRUE(riquadro()->isVisible());
}

TEST_F(RiquadroAttesa, ChiNonDiceQuantoMancaLoMostraSubito) {
  programma_.contesto.attesaDopo = kMai;
  const Attesa attesa(programma_.contesto, Attesa::Quando::Subito);
  ASSERT_NE(riquadro(), nullptr);
  EXPECT_FALSE(barra().isVisible());
}

TEST_F(RiquadroAttesa, LaBarraDiceLaParteFatta) {
  Attesa attesa(programma_.contesto);
  EXPECT_FALSE(barra().isVisible());
  attesa.avanza(1, 4);
  EXPECT_TRUE(barra().isVisible());
  EXPECT_EQ(barra().minimum(), 0);
  EXPECT_EQ(barra().maximum(), 1000);
  EXPECT_EQ(barra().value(), 250);
}

TEST_F(RiquadroAttesa, FileDiMoltiGigabyteNonEsconoDallaBarra) {
  Attesa attesa(programma_.contesto);
  attesa.avanza(3'000'000'000'000, 4'000'000'000'000);
  EXPECT_EQ(barra().value(), 750);
}

TEST_F(RiquadroAttesa, SenzaSapereQuantoMancaNonCEBarra) {
  Attesa attesa(programma_.contesto);
  attesa.avanza(5, 0);
  EXPECT_FALSE(barra().isVisible());
}

TEST_F(RiquadroAttesa, LaBarraSiMuoveAlPiuOgniQuarantaMillisecondi) {
  Attesa attesa(programma_.contesto);
  int mosse = 0;
  QObject::connect(&barra(), &QProgressBar::valueChanged, &barra(), [&] { ++mosse; });
  QElapsedTimer orologio;
  orologio.start();
  qint64 fatti = 0;
  while (mosse < 4 && orologio.elapsed() < kPazienza) attesa.avanza(fatti++ % 1000, 1000);
  EXPECT_EQ(mosse, 4);
  EXPECT_GE(orologio.elapsed(), 3 * kRidipingi);
}

TEST_F(RiquadroAttesa, LaFineLoTogliePrimaDellOggetto) {
  Attesa attesa(programma_.contesto);
  attesa.chiudi();
  EXPECT_EQ(riquadro(), nullptr);
  EXPECT_FALSE(clessidra());
  attesa.chiudi();
  attesa.avanza(1, 10);
  EXPECT_EQ(riquadro(), nullptr);
}

TEST_F(RiquadroAttesa, UnRiquadroChiusoPrimaDelSuoTempoNonCompareDopo) {
  programma_.contesto.attesaDopo = 1ms;
  Attesa attesa(programma_.contesto);
  attesa.chiudi();
  QElapsedTimer orologio;
  orologio.start();
  while (orologio.elapsed() < 5) attesa.avanza(1, 10);
  EXPECT_EQ(riquadro(), nullptr);
}

TEST_F(RiquadroAttesa, LaClessidraDiFuoriResta) {
  const WaitPointer fuori;
  { Attesa attesa(programma_.contesto); }
  EXPECT_TRUE(clessidra());
}

TEST(RiquadroAttesaAssente, SenzaSchermataRestaLaClessidra) {
  ProgramFixture programma;
  {
    Attesa attesa(programma.contesto);
    attesa.avanza(1, 10);
    EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
  }
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

}  // namespace
