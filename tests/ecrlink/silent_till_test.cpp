// A till that takes the call and says nothing: what the person sees meanwhile, and what is thrown away.

#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QTimer>
#include <algorithm>
#include <chrono>

#include "ecrcom/ecrcom_service.h"
#include "ecrlink/link_scene.h"
#include "ecrlink/painted_steps.h"

using namespace ecrlink;

namespace {

// Milliseconds.
constexpr int kSilenzio = 300;
constexpr int kLungoSilenzio = 1000;

/// A screen that notes when it is painted.
class SchermoDipinto : public LinkScreen {
 public:
  using LinkScreen::LinkScreen;
  std::function<void()> allaPittura;

 protected:
  void paintEvent(QPaintEvent* evento) override {
    LinkScreen::paintEvent(evento);
    if (allaPittura) allaPittura();
  }
};

struct CassaMuta : testing::Test {
  explicit CassaMuta(int silenzio = kSilenzio) : breve(kSilenzio, silenzio) {}

  ShortTimeouts breve;
  ProgramFixture scena;
  TestTill cassa{{.faults = {{.mode = 2, .what = ecrsim::FaultKind::Silence}}}};
  SchermoDipinto schermo{scena.contesto};
  QTimer orologio;
  int battiti = 0;
  bool finita = false;

  /// Clicks "Connetti"; `battito` runs at each beat of the event loop beside the silence, from the call's
  /// arrival at the till to its end.
  void connetti(const std::function<void()>& battito, int ogni = 10) {
    QObject::connect(&orologio, &QTimer::timeout, [this, battito] {
      if (finita || callsOf(cassa) != QStringList{QStringLiteral("2:")}) return;
      ++battiti;
      battito();
    });
    if (!scena.user.onBox) scena.user.onBox = [this](const Box&) { finita = true; };
    schermo.typeAddress(cassa.address());
    orologio.start(ogni);
    schermo.click("CmdInviaModECR");
    orologio.stop();
    scena.user.onBox = nullptr;
  }
  std::vector<Box> scaduta() {
    return {communicationError(QStringLiteral("Tempo scaduto, la cassa non risponde"))};
  }
};

struct CassaMutaALungo : CassaMuta {
  CassaMutaALungo() : CassaMuta(kLungoSilenzio) {}
};

Qt::CursorShape puntatore() {
  const QCursor* sopra = QGuiApplication::overrideCursor();
  return sopra ? sopra->shape() : Qt::ArrowCursor;
}

}  // namespace

TEST_F(CassaMutaALungo, LaFinestraSiRidipingeEntroUnDecimoDiSecondo) {
  QElapsedTimer daQuando;
  std::vector<qint64> attese;
  schermo.allaPittura = [&] {
    if (daQuando.isValid()) attese.push_back(daQuando.elapsed());
    daQuando.invalidate();
  };
  QElapsedTimer intero;
  intero.start();
  connetti(
      [&] {
        if (daQuando.isValid()) return;
        daQuando.start();
        schermo.update();
      },
      50);
  EXPECT_GE(intero.elapsed(), kLungoSilenzio);
  EXPECT_EQ(scena.takeBoxes(), scaduta());
  ASSERT_GE(attese.size(), 5U);
  // The median: a loaded machine may let a single one wait.
  std::ranges::sort(attese);
  EXPECT_LT(attese[attese.size() / 2], 100);
}

TEST_F(CassaMuta, NessunAltroComandoParteENullaRestaInCoda) {
  connetti([&] {
    for (const char* comando : {"CmdInviaModECR", "Cmd_Avvia", "Cmd_Esci"})
      postClick(schermo.control(comando));
    for (const auto tasto : {Qt::Key_Return, Qt::Key_F9, Qt::Key_Escape, Qt::Key_Space})
      QCoreApplication::postEvent(schermo.focusWidget(),
                                  new QKeyEvent(QEvent::KeyPress, tasto, Qt::NoModifier));
  });
  QCoreApplication::processEvents();
  EXPECT_GE(battiti, 5);
  EXPECT_EQ(callsOf(cassa), (QStringList{QStringLiteral("2:"), QStringLiteral("0:")}));
  EXPECT_EQ(scena.takeBoxes(), scaduta());
  EXPECT_TRUE(schermo.isVisible());
  EXPECT_EQ(stateOf(schermo), (LinkState{true, false, cassa.address()}));
}

TEST_F(CassaMuta, LaChiusuraAspettaLaFine) {
  bool rifiutata = true;
  connetti([&] {
    rifiutata = rifiutata && !schermo.close();
    QCoreApplication::postEvent(&schermo, new QCloseEvent);
  });
  QCoreApplication::processEvents();
  EXPECT_GE(battiti, 5);
  EXPECT_TRUE(rifiutata);
  EXPECT_TRUE(schermo.isVisible());
  EXPECT_EQ(scena.takeBoxes(), scaduta());
  EXPECT_TRUE(schermo.close());
  EXPECT_FALSE(schermo.isVisible());
}

TEST_F(CassaMuta, UnaChiamataDaDentroSiRifiuta) {
  int esito = 0;
  connetti([&] {
    if (battiti > 1) return;
    esito = avviaECR(QString(), Modo::AzzeraVenduto, scena.contesto);
    finita = false;
  });
  EXPECT_EQ(esito, 1);
  std::vector<Box> previsti{plainBox(
      QStringLiteral("Error 70 (La cassa sta ancora eseguendo un altro comando: attendere che abbia finito.) "
                     "nella procedura avviaECR"))};
  previsti.push_back(scaduta()[0]);
  EXPECT_EQ(scena.takeBoxes(), previsti);
  EXPECT_EQ(callsOf(cassa), (QStringList{QStringLiteral("2:"), QStringLiteral("0:")}));
}

TEST_F(CassaMuta, IlPuntatoreAspettaEPoiTornaQuelloDiPrima) {
  bool sempre = true;
  connetti([&] { sempre = sempre && puntatore() == Qt::WaitCursor; });
  EXPECT_GE(battiti, 5);
  EXPECT_TRUE(sempre);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_EQ(scena.takeBoxes(), scaduta());
}

TEST_F(CassaMuta, AlRiquadroIlPuntatoreNonAspettaPiu) {
  bool libero = false;
  scena.user.onBox = [&](const Box&) { libero = QGuiApplication::overrideCursor() == nullptr; };
  connetti([] {});
  EXPECT_TRUE(libero);
  EXPECT_EQ(scena.takeBoxes(), scaduta());
}

TEST_F(CassaMuta, ConnettiSiVedeSpentoEIlPassoSiLeggeFinoAllaFine) {
  QStringList letti;
  bool spento = true;
  connetti([&] {
    if (letti.isEmpty() || letti.last() != schermo.foot().text()) letti << schermo.foot().text();
    spento = spento && !schermo.enabled("CmdInviaModECR");
  });
  EXPECT_GE(battiti, 5);
  EXPECT_EQ(letti, QStringList{QStringLiteral("Connessione a %1 … (fino a 5 s)").arg(cassa.address())});
  EXPECT_TRUE(spento);
  EXPECT_EQ(scena.takeBoxes(), scaduta());
}

TEST(PassiDellaCassa, OgnunoEDipintoPrimaDellaSuaChiamata) {
  ProgramFixture scena;
  TestTill cassa;
  LinkScreen schermo(scena.contesto);
  PaintedSteps dipinti(schermo);
  QStringList chiamate;
  dipinti.onStep = [&] { chiamate << callsOf(cassa).join(u' '); };
  schermo.typeAddress(cassa.address());
  schermo.click("CmdInviaModECR");
  const QString passo = QStringLiteral("Connessione a %1 … (fino a 5 s)").arg(cassa.address());
  EXPECT_EQ(dipinti.steps(),
            (QStringList{passo, QStringLiteral("Lettura dello stato della cassa … (fino a 5 s)")}));
  EXPECT_EQ(chiamate, (QStringList{QString(), QStringLiteral("2:")}));
}

TEST(PassiDellaCassa, IlLimiteDettoEQuelloDellaLibreria) {
  ProgramFixture scena;
  EXPECT_EQ(scena.library.AnswerLimit(), std::chrono::milliseconds(ECR_REPLY_MS));
}

TEST(PassiDellaCassa, DiUnaLibreriaDAltriIlLimiteNonSiSa) {
  ProgramFixture scena{QStringLiteral(FOREIGN_LIBRARY)};
  scena.network.echoStatus = 0;
  LinkScreen schermo(scena.contesto);
  const PaintedSteps dipinti(schermo);
  schermo.typeAddress(QStringLiteral("127.9.9.9"));
  schermo.click("CmdInviaModECR");
  scena.takeBoxes();
  ASSERT_FALSE(dipinti.steps().isEmpty());
  EXPECT_EQ(dipinti.steps().first(), QStringLiteral("Connessione a 127.9.9.9 …"));
}

TEST(PassiDellaCassa, SenzaLibreriaNonCELimiteEnullaSiLancia) {
  const QTemporaryDir vuota;
  EcrLibrary libreria(vuota.path());
  EXPECT_EQ(libreria.AnswerLimit(), std::nullopt);
}
