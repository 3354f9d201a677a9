#include "controls/palette.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFrame>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <cmath>
#include <cstdlib>

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

/// Without the look of another test, and without leaving its own.
class FoglioCheArriva : public testing::Test {
 protected:
  FoglioCheArriva() {
    qApp->setStyleSheet({});
    style::begin(*qApp, style::Theme::Light);
  }
  ~FoglioCheArriva() override {
    style::whole();
    qApp->setStyleSheet({});
  }
};

TEST_F(FoglioCheArriva, UnaFinestraNudaNeFaSenzaELaPrimaAltraLoPorta) {
  EXPECT_EQ(qApp->styleSheet(), QString());
  QWidget nuda;
  nuda.setProperty("bare", true);
  QPushButton dentro(&nuda);
  nuda.show();
  EXPECT_EQ(qApp->styleSheet(), QString());
  QWidget altra;
  QPushButton pulsante(QStringLiteral("Avvia"), &altra);
  altra.show();
  EXPECT_EQ(qApp->styleSheet(), style::styleSheetText(style::tints(false)));
  EXPECT_EQ(pulsante.grab().toImage().pixelColor(8, pulsante.height() / 2), style::tints(false).paper);
}

TEST_F(FoglioCheArriva, UnaVoltaStesoNonSiStendeDiNuovo) {
  style::whole();
  EXPECT_EQ(qApp->styleSheet(), style::styleSheetText(style::tints(false)));
  qApp->setStyleSheet({});
  style::whole();
  QWidget altra;
  altra.show();
  EXPECT_EQ(qApp->styleSheet(), QString());
}

TEST_F(FoglioCheArriva, IlTemaEQuelloDellUltimaVolta) {
  style::begin(*qApp, style::Theme::Dark);
  style::whole();
  EXPECT_EQ(qApp->styleSheet(), style::styleSheetText(style::tints(true)));
  style::apply(*qApp, style::Theme::Light);
  EXPECT_EQ(qApp->styleSheet(), style::styleSheetText(style::tints(false)));
}

TEST_F(FoglioCheArriva, IlRiquadroSiDipingeComeLoVuoleIlFoglio) {
  const QRect tutto(0, 0, 200, 120);
  QImage nudo(tutto.size(), QImage::Format_RGB32);
  nudo.fill(style::tints(false).background);
  QPainter pittore(&nudo);
  style::paintCard(pittore, tutto);
  pittore.end();

  style::whole();
  QWidget fondo;
  QFrame riquadro(&fondo);
  riquadro.setFrameShape(QFrame::StyledPanel);
  riquadro.setProperty("card", true);
  fondo.resize(tutto.size());
  riquadro.setGeometry(tutto);
  const QImage vestito = fondo.grab().toImage().convertToFormat(QImage::Format_RGB32);
  ASSERT_EQ(vestito.size(), nudo.size());
  int diversi = 0;
  for (int y = 0; y < nudo.height(); ++y)
    for (int x = 0; x < nudo.width(); ++x)
      if (std::abs(qGreen(nudo.pixel(x, y)) - qGreen(vestito.pixel(x, y))) > 8) ++diversi;
  EXPECT_LE(diversi, 8) << "but for a point or two of the round corners";
}
