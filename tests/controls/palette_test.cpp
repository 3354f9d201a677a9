#include "controls/palette.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <cmath>

#include "controls/style.h"

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
  const style::Tints& t_ = style::tints(GetParam());
};

INSTANTIATE_TEST_SUITE_P(ChiaroEScuro, Tavolozza, testing::Bool());

TEST_P(Tavolozza, OgniTestoSiLeggeSulSuoFondo) {
  for (const QColor& fondo : {t_.background, t_.paper, t_.emphasis, t_.veil}) {
    EXPECT_GE(contrasto(t_.text, fondo), kContrastoTesto);
    EXPECT_GE(contrasto(t_.faint, t_.background), kContrastoTesto);
    EXPECT_GE(contrasto(t_.faint, t_.paper), kContrastoTesto);
  }
  EXPECT_GE(contrasto(t_.onAccent, t_.accent), kContrastoTesto);
  EXPECT_GE(contrasto(t_.ready, t_.readyGround), kContrastoTesto);
  EXPECT_GE(contrasto(t_.busy, t_.busyGround), kContrastoTesto);
  EXPECT_GE(contrasto(t_.fault, t_.faultGround), kContrastoTesto);
}

TEST_P(Tavolozza, IlFuocoSiVede) {
  for (const QColor& fondo : {t_.background, t_.paper, t_.veil})
    EXPECT_GE(contrasto(t_.accent, fondo), kContrastoSegni);
  EXPECT_GE(contrasto(t_.text, t_.accent), 1.5) << "the ring of a primary button";
}

TEST_P(Tavolozza, ILimitiDeiComandiSiVedonoSuOgniFondo) {
  for (const QColor& fondo : {t_.background, t_.paper, t_.emphasis})
    EXPECT_GE(contrasto(t_.border, fondo), kContrastoSegni);
}

TEST_P(Tavolozza, LaBarraSiVedeEIlSuoTestoSiLeggePrimaEDopo) {
  EXPECT_GE(contrasto(t_.bar, t_.barGround), kContrastoSegni);
  EXPECT_GE(contrasto(t_.text, t_.bar), kContrastoTesto);
  EXPECT_GE(contrasto(t_.text, t_.barGround), kContrastoTesto);
}

TEST_P(Tavolozza, GliEsitiAlPiedeEGliAvvisiDiPerditaSiLeggono) {
  for (const QColor& testo : {t_.ready, t_.busy, t_.fault})
    for (const QColor& fondo : {t_.background, t_.paper}) EXPECT_GE(contrasto(testo, fondo), kContrastoTesto);
}

TEST_P(Tavolozza, IlFoglioDiStileNonLasciaNomiNeSegnaposti) {
  EXPECT_FALSE(style::styleSheetText(t_).contains(QLatin1Char('@')));
}

class StileApplicato : public testing::TestWithParam<bool> {
 protected:
  StileApplicato() { style::apply(*qApp, GetParam() ? style::Theme::Dark : style::Theme::Light); }
  ~StileApplicato() override { qApp->setStyleSheet({}); }
  static QColor fondo(QWidget& controllo) {
    controllo.resize(120, 40);
    return controllo.grab().toImage().pixelColor(8, 20);
  }
  const style::Tints& t_ = style::tints(GetParam());
};

INSTANTIATE_TEST_SUITE_P(ChiaroEScuro, StileApplicato, testing::Bool());

TEST_P(StileApplicato, IlPulsantePrimarioSiDistingue) {
  QPushButton semplice;
  QPushButton primario;
  style::primary(primario);
  EXPECT_EQ(fondo(semplice), t_.paper);
  EXPECT_EQ(fondo(primario), t_.accent);
}

TEST_P(StileApplicato, UnaCasellaInSolaLetturaSiDistingue) {
  QLineEdit casella;
  EXPECT_EQ(fondo(casella), t_.paper);
  casella.setReadOnly(true);
  EXPECT_EQ(fondo(casella), t_.emphasis);
}

TEST_P(StileApplicato, LoStatoDellaCassaHaIlSuoColore) {
  QLineEdit stato;
  stato.setReadOnly(true);
  style::badge(stato, style::Badge::Ready);
  EXPECT_EQ(fondo(stato), t_.readyGround);
  style::badge(stato, style::Badge::Busy);
  EXPECT_EQ(fondo(stato), t_.busyGround);
  style::badge(stato, style::Badge::Fault);
  EXPECT_EQ(fondo(stato), t_.faultGround);
  style::badge(stato, style::Badge::Neutral);
  EXPECT_EQ(fondo(stato), t_.emphasis);
}

TEST(Stile, SegueIlDesktopChiaroEScuro) {
  const QPalette prima = QApplication::palette();
  for (const bool scuro : {false, true}) {
    QApplication::setPalette(QPalette(scuro ? QColor(0x303030) : QColor(0xEFEFEF)));
    style::apply(*qApp);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), style::tints(scuro).background);
  }
  qApp->setStyleSheet({});
  QApplication::setPalette(prima);
}
