#include "controls/steady_progress.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QPaintEvent>
#include <QProgressBar>

namespace {

class BarraContata : public QProgressBar {
 public:
  int pitture = 0;

 protected:
  void paintEvent(QPaintEvent* evento) override {
    ++pitture;
    QProgressBar::paintEvent(evento);
  }
};

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

}  // namespace
