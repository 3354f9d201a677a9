#include "controls/steady_progress.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPaintEvent>
#include <QProgressBar>

namespace {

class BarraContata : public QProgressBar {
 public:
  int pitture = 0;
  /// What the last picture showed.
  QString dipinto;

 protected:
  void paintEvent(QPaintEvent* evento) override {
    ++pitture;
    dipinto = text();
    QProgressBar::paintEvent(evento);
  }
};

TEST(AvanzamentoRegolare, UnaBarraCominciaDaCapoConISuoiPassiEIlSuoTesto) {
  QProgressBar barra;
  barra.setRange(0, 10);
  barra.setValue(10);
  beginProgress(barra, 12, QStringLiteral("%v / %m"));
  EXPECT_EQ(barra.text(), QStringLiteral("0 / 12"));
}

TEST(AvanzamentoRegolare, IlValoreSegueOgniPassoELaPitturaAlPiuOgniQuarantaMillisecondi) {
  BarraContata barra;
  barra.setRange(0, 5000);
  barra.show();
  QCoreApplication::processEvents();
  barra.pitture = 0;
  QElapsedTimer orologio;
  orologio.start();
  {
    SteadyProgress avanzamento(barra);
    for (int i = 0; i < 5000; ++i) {
      avanzamento.to(i);
      ASSERT_EQ(barra.value(), i);
      QCoreApplication::processEvents();
    }
    EXPECT_LE(barra.pitture, orologio.elapsed() / 40);
  }
  EXPECT_TRUE(barra.updatesEnabled());
}

TEST(AvanzamentoRegolare, PassatoIlTempoLaBarraSiDipinge) {
  BarraContata barra;
  barra.setRange(0, 1000000);
  barra.show();
  QCoreApplication::processEvents();
  barra.pitture = 0;
  SteadyProgress avanzamento(barra);
  QElapsedTimer orologio;
  orologio.start();
  for (int i = 0; orologio.elapsed() < 100; ++i) avanzamento.to(i);
  EXPECT_GE(barra.pitture, 1);
  EXPECT_LE(barra.pitture, 3);
}

TEST(AvanzamentoRegolare, PrimaDelPrimoPassoLaBarraSiDipingeComeSempre) {
  BarraContata barra;
  barra.show();
  QCoreApplication::processEvents();
  const SteadyProgress avanzamento(barra);
  barra.pitture = 0;
  barra.repaint();
  EXPECT_EQ(barra.pitture, 1);
}

TEST(AvanzamentoRegolare, AllaFermataSiVedeIlPassoRaggiunto) {
  BarraContata barra;
  barra.setRange(0, 100);
  barra.show();
  QCoreApplication::processEvents();
  SteadyProgress avanzamento(barra);
  avanzamento.to(36);
  avanzamento.to(37);
  avanzamento.rest();
  EXPECT_EQ(barra.dipinto, QStringLiteral("37%"));
  EXPECT_TRUE(barra.updatesEnabled());
  avanzamento.to(38);
  EXPECT_FALSE(barra.updatesEnabled());
}

TEST(AvanzamentoRegolare, AllaFineSiVedeIlCentoPerCentoEIlValoreResta) {
  BarraContata barra;
  barra.setRange(0, 5000);
  barra.show();
  QCoreApplication::processEvents();
  SteadyProgress avanzamento(barra);
  avanzamento.to(4999);
  avanzamento.end();
  EXPECT_EQ(barra.dipinto, QStringLiteral("100%"));
  EXPECT_EQ(barra.value(), 4999);
  EXPECT_TRUE(barra.updatesEnabled());
}

}  // namespace
