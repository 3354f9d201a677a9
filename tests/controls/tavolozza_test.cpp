#include "controls/tavolozza.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <cmath>

#include "controls/stile.h"

namespace {

constexpr double kContrastoTesto = 4.5;
/// For lines and marks that carry meaning, such as the focus ring.
constexpr double kContrastoSegni = 3.0;

double lineare(double canale) {
  return canale <= 0.04045 ? canale / 12.92 : std::pow((canale + 0.055) / 1.055, 2.4);
}
double luminanza(const QColor& c) {
  return 0.2126 * lineare(c.redF()) + 0.7152 * lineare(c.greenF()) + 0.0722 * lineare(c.blueF());
}
double contrasto(const QColor& a, const QColor& b) {
  const double la = luminanza(a);
  const double lb = luminanza(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

}  // namespace

class Tavolozza : public testing::TestWithParam<bool> {
 protected:
  const stile::Tinte& t_ = stile::tinte(GetParam());
};

INSTANTIATE_TEST_SUITE_P(ChiaroEScuro, Tavolozza, testing::Bool());

TEST_P(Tavolozza, OgniTestoSiLeggeSulSuoFondo) {
  for (const QColor& fondo : {t_.sfondo, t_.carta, t_.rilievo, t_.velo}) {
    EXPECT_GE(contrasto(t_.testo, fondo), kContrastoTesto);
    EXPECT_GE(contrasto(t_.tenue, t_.sfondo), kContrastoTesto);
    EXPECT_GE(contrasto(t_.tenue, t_.carta), kContrastoTesto);
  }
  EXPECT_GE(contrasto(t_.suAccento, t_.accento), kContrastoTesto);
  EXPECT_GE(contrasto(t_.pronto, t_.fondoPronto), kContrastoTesto);
  EXPECT_GE(contrasto(t_.occupato, t_.fondoOccupato), kContrastoTesto);
  EXPECT_GE(contrasto(t_.guasto, t_.fondoGuasto), kContrastoTesto);
}

TEST_P(Tavolozza, IlFuocoSiVede) {
  for (const QColor& fondo : {t_.sfondo, t_.carta, t_.velo})
    EXPECT_GE(contrasto(t_.accento, fondo), kContrastoSegni);
  EXPECT_GE(contrasto(t_.testo, t_.accento), 1.5) << "the ring of a primary button";
}

TEST_P(Tavolozza, IlFoglioDiStileNonLasciaNomiNeSegnaposti) {
  EXPECT_FALSE(stile::foglioDiStile(t_).contains(QLatin1Char('@')));
}

class StileApplicato : public testing::TestWithParam<bool> {
 protected:
  StileApplicato() { stile::applica(*qApp, GetParam() ? stile::Tema::Scuro : stile::Tema::Chiaro); }
  ~StileApplicato() override { qApp->setStyleSheet({}); }
  static QColor fondo(QWidget& controllo) {
    controllo.resize(120, 40);
    return controllo.grab().toImage().pixelColor(8, 20);
  }
  const stile::Tinte& t_ = stile::tinte(GetParam());
};

INSTANTIATE_TEST_SUITE_P(ChiaroEScuro, StileApplicato, testing::Bool());

TEST_P(StileApplicato, IlPulsantePrimarioSiDistingue) {
  QPushButton semplice;
  QPushButton primario;
  stile::primario(primario);
  EXPECT_EQ(fondo(semplice), t_.carta);
  EXPECT_EQ(fondo(primario), t_.accento);
}

TEST_P(StileApplicato, UnaCasellaInSolaLetturaSiDistingue) {
  QLineEdit casella;
  EXPECT_EQ(fondo(casella), t_.carta);
  casella.setReadOnly(true);
  EXPECT_EQ(fondo(casella), t_.rilievo);
}

TEST_P(StileApplicato, LoStatoDellaCassaHaIlSuoColore) {
  QLineEdit stato;
  stato.setReadOnly(true);
  stile::distintivo(stato, stile::Distintivo::Pronto);
  EXPECT_EQ(fondo(stato), t_.fondoPronto);
  stile::distintivo(stato, stile::Distintivo::Occupato);
  EXPECT_EQ(fondo(stato), t_.fondoOccupato);
  stile::distintivo(stato, stile::Distintivo::Guasto);
  EXPECT_EQ(fondo(stato), t_.fondoGuasto);
  stile::distintivo(stato, stile::Distintivo::Neutro);
  EXPECT_EQ(fondo(stato), t_.rilievo);
}

TEST(Stile, SegueIlDesktopChiaroEScuro) {
  const QPalette prima = QApplication::palette();
  for (const bool scuro : {false, true}) {
    QApplication::setPalette(QPalette(scuro ? QColor(0x303030) : QColor(0xEFEFEF)));
    stile::applica(*qApp);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), stile::tinte(scuro).sfondo);
  }
  qApp->setStyleSheet({});
  QApplication::setPalette(prima);
}
