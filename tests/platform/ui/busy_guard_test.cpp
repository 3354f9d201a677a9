#include "platform/ui/busy_guard.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <memory>

namespace {

/// A window with one control of each kind, and how often each was used.
struct FinestraProva : QWidget {
  QPushButton tasto;
  QLineEdit casella;
  QShortcut scorciatoia{QKeySequence(QStringLiteral("F5")), this};
  int clic = 0;
  int scorciatoie = 0;

  FinestraProva() {
    auto* disposizione = new QVBoxLayout(this);
    disposizione->addWidget(&tasto);
    disposizione->addWidget(&casella);
    connect(&tasto, &QPushButton::clicked, this, [this] { ++clic; });
    connect(&scorciatoia, &QShortcut::activated, this, [this] { ++scorciatoie; });
    show();
    activateWindow();
    casella.setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowActive(this));
  }

  /// A click that the next event pass delivers.
  void postaClic() {
    const QPointF punto(2, 2);
    for (const auto tipo : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
      QApplication::postEvent(&tasto, new QMouseEvent(tipo, punto, tasto.mapToGlobal(punto), Qt::LeftButton,
                                                      Qt::LeftButton, Qt::NoModifier));
  }

  void usa() {
    QTest::mouseClick(&tasto, Qt::LeftButton);
    QTest::keyClicks(&casella, QStringLiteral("a"));
    QTest::keyClick(windowHandle(), Qt::Key_F5);
  }
};

}  // namespace

TEST(Occupato, SenzaGuardiaClicTastiEScorciatoiePassano) {
  FinestraProva finestra;
  finestra.usa();
  EXPECT_EQ(finestra.clic, 1);
  EXPECT_EQ(finestra.casella.text(), QStringLiteral("a"));
  EXPECT_EQ(finestra.scorciatoie, 1);
}

TEST(Occupato, ClicTastiEScorciatoieSonoMangiati) {
  FinestraProva finestra;
  const BusyGuard guardia;
  finestra.usa();
  EXPECT_EQ(finestra.clic, 0);
  EXPECT_EQ(finestra.casella.text(), QString());
  EXPECT_EQ(finestra.scorciatoie, 0);
}

TEST(Occupato, GliEventiPostatiSonoMangiatiAdOgniPassaggio) {
  FinestraProva finestra;
  const BusyGuard guardia;
  for (int passaggio = 0; passaggio < 5; ++passaggio) {
    finestra.postaClic();
    QApplication::postEvent(&finestra.casella,
                            new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a")));
    QApplication::postEvent(&finestra, new QCloseEvent);
    QApplication::processEvents();
    EXPECT_TRUE(finestra.isVisible());
  }
  EXPECT_EQ(finestra.clic, 0);
  EXPECT_EQ(finestra.casella.text(), QString());
}

TEST(Occupato, LaChiusuraERifiutataELaFinestraResta) {
  FinestraProva finestra;
  {
    const BusyGuard guardia;
    EXPECT_FALSE(finestra.close());
    EXPECT_TRUE(finestra.isVisible());
    QApplication::postEvent(finestra.windowHandle(), new QCloseEvent);
    QApplication::processEvents();
    EXPECT_TRUE(finestra.isVisible());
  }
  EXPECT_TRUE(finestra.close());
  EXPECT_FALSE(finestra.isVisible());
}

TEST(Occupato, LaRotellaEMangiata) {
  FinestraProva finestra;
  struct Rotella : QWidget {
    int giri = 0;
    void wheelEvent(QWheelEvent*) override { ++giri; }
  } bersaglio;
  QWheelEvent giro(QPointF(1, 1), QPointF(1, 1), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                   Qt::NoScrollPhase, false);
  {
    const BusyGuard guardia;
    QApplication::sendEvent(&bersaglio, &giro);
    EXPECT_EQ(bersaglio.giri, 0);
  }
  QApplication::sendEvent(&bersaglio, &giro);
  EXPECT_EQ(bersaglio.giri, 1);
}

TEST(Occupato, FinitaLaGuardiaTuttoTorna) {
  FinestraProva finestra;
  { const BusyGuard guardia; }
  EXPECT_FALSE(BusyGuard::active());
  finestra.usa();
  EXPECT_EQ(finestra.clic, 1);
}

TEST(Occupato, LeGuardieSiAnnidano) {
  const BusyGuard fuori;
  { const BusyGuard dentro; }
  EXPECT_TRUE(BusyGuard::active());
}

TEST(Occupato, UnRiquadroSospendeLaGuardiaETuttoTornaDopo) {
  const BusyGuard fuori;
  const BusyGuard dentro;
  {
    const BusyGuard::Suspended sospeso;
    EXPECT_FALSE(BusyGuard::active());
    const BusyGuard nelRiquadro;
    EXPECT_TRUE(BusyGuard::active());
  }
  EXPECT_TRUE(BusyGuard::active());
}

TEST(Occupato, DopoLaSospensioneUnaGuardiaFinitaNonResta) {
  auto guardia = std::make_unique<BusyGuard>();
  { const BusyGuard::Suspended sospeso; }
  guardia.reset();
  EXPECT_FALSE(BusyGuard::active());
}

TEST(Occupato, SenzaGuardiaIlClicPostatoVale) {
  FinestraProva finestra;
  finestra.postaClic();
  QApplication::processEvents();
  EXPECT_EQ(finestra.clic, 1);
}

TEST(Occupato, IlClicRimastoInAttesaNonValePerLoSchermoDiDopo) {
  FinestraProva finestra;
  {
    const BusyGuard guardia;
    finestra.postaClic();
  }
  QApplication::processEvents();
  EXPECT_EQ(finestra.clic, 0);
}

TEST(Occupato, IlClicRimastoInAttesaNonRispondeAlRiquadroCheSiApre) {
  FinestraProva finestra;
  const BusyGuard guardia;
  finestra.postaClic();
  {
    const BusyGuard::Suspended riquadro;
    QApplication::processEvents();
  }
  EXPECT_EQ(finestra.clic, 0);
}

TEST(Occupato, LaFinestraCheSiPuoChiudereSiChiudeLeAltreNo) {
  FinestraProva finestra;
  FinestraProva altra;
  const BusyGuard guardia;
  const BusyGuard::Closable siPuo(finestra);
  EXPECT_FALSE(altra.close());
  EXPECT_TRUE(altra.isVisible());
  EXPECT_TRUE(finestra.close());
  EXPECT_FALSE(finestra.isVisible());
}

TEST(Occupato, ChiusaDallaCorniceLaFinestraCheSiPuoChiudereSiChiude) {
  FinestraProva finestra;
  const BusyGuard guardia;
  const BusyGuard::Closable siPuo(finestra);
  QApplication::postEvent(finestra.windowHandle(), new QCloseEvent);
  QApplication::processEvents();
  EXPECT_FALSE(finestra.isVisible());
}

TEST(Occupato, NellaFinestraCheSiPuoChiudereClicETastiSonoMangiatiLoStesso) {
  FinestraProva finestra;
  const BusyGuard guardia;
  const BusyGuard::Closable siPuo(finestra);
  finestra.usa();
  EXPECT_EQ(finestra.clic, 0);
  EXPECT_EQ(finestra.casella.text(), QString());
  EXPECT_EQ(finestra.scorciatoie, 0);
}

TEST(Occupato, FinitoIlPermessoLaChiusuraERifiutataDiNuovo) {
  FinestraProva finestra;
  const BusyGuard guardia;
  { const BusyGuard::Closable siPuo(finestra); }
  EXPECT_FALSE(finestra.close());
  EXPECT_TRUE(finestra.isVisible());
}

TEST(Occupato, IlPermessoAnnidatoFinendoRidaQuelloDiPrima) {
  FinestraProva finestra;
  FinestraProva altra;
  const BusyGuard guardia;
  const BusyGuard::Closable fuori(finestra);
  {
    const BusyGuard::Closable dentro(altra);
    EXPECT_FALSE(finestra.close());
  }
  EXPECT_FALSE(altra.close());
  EXPECT_TRUE(finestra.close());
}
