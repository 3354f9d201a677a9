// The road of the twelve pictures from the screen to the till.

#include <QCoreApplication>
#include <QDir>
#include <QLineEdit>
#include <QProgressBar>
#include <QTest>

#include "graphics/Form_Grafica.h"
#include "graphics/graphics_scene.h"
#include "graphics/picture_tile.h"
#include "platform/error.h"

using namespace graphics;

namespace {

const QString kAvvia = QStringLiteral("Cmd_Avvia");
const QString kEsci = QStringLiteral("Cmd_Esci");
const QString kConnetti = QStringLiteral("CmdInviaModECR");
const QString kBitmap = QStringLiteral("bitmap.bin");
const Box kSuccesso = plainBox(QStringLiteral("Operazione terminata con successo"));

ecrsim::Options diClasse(const char* classe) {
  ecrsim::Options opzioni;
  opzioni.bitmap = classe;
  return opzioni;
}

class InvioGrafica : public GraphicsScene {
 protected:
  InvioGrafica() { layConverter(); }
  GuidedScreen collegato(TestTill& cassa) {
    RiempiRecGrafica(false, app(QStringLiteral("SetupLOGO.dat")));
    GuidedScreen schermo = screen();
    schermo.connectTo(cassa);
    return schermo;
  }
  static QByteArray attesa(int larghezza) {
    QByteArray tutte;
    for (int seme = 0; seme < 12; ++seme) tutte += printedForm(drawnPicture(larghezza, 24, seme));
    return tutte;
  }
  void comandiAccesi(const GuidedScreen& schermo) {
    for (const QString& comando : {kAvvia, kEsci, kConnetti}) EXPECT_TRUE(schermo.enabled(comando));
  }
  QString percorso(const char* nome) const { return image(QString::fromUtf8(nome)); }
};

}  // namespace

TEST_F(InvioGrafica, LeDodiciArrivanoAllaCassaPuntoPerPuntoNelleDueClassi) {
  for (const auto& [classe, larghezza, parola] : {std::tuple{"S", 384, "SMALL"}, {"L", 640, "LARGE"}}) {
    TestTill cassa(diClasse(classe));
    drawAll(larghezza);
    const GuidedScreen schermo = collegato(cassa);
    EXPECT_EQ(schermo.text(QStringLiteral("TextBitmap")), QString::fromLatin1(parola));
    schermo.click(kAvvia);
    expectBoxes(program, {kSuccesso});
    EXPECT_TRUE(cassa.byte(kBitmap) == attesa(larghezza)) << classe;
    EXPECT_EQ(callsOf(cassa), (QStringList{QStringLiteral("2:"), QStringLiteral("0:"), QStringLiteral("1:"),
                                           QStringLiteral("6:bitmap.bin"), QStringLiteral("2:")}));
    EXPECT_EQ(foot(schermo).kind(), OutcomeBar::Kind::Done);
    EXPECT_TRUE(foot(schermo).text().startsWith(QStringLiteral("Inviate alla cassa 12 immagini, ")));
    EXPECT_EQ(schermo.control<QProgressBar>("vkBar1").value(), 12);
    EXPECT_EQ(schermo.control<QProgressBar>("vkBar1").maximum(), 12);
    comandiAccesi(schermo);
    schermo.click(kEsci);
  }
}

TEST_F(InvioGrafica, DuranteLInvioITreComandiSonoSpentiEDopoAccesi) {
  TestTill cassa(diClasse("S"));
  drawAll(384);
  const GuidedScreen schermo = collegato(cassa);
  int passi = 0;
  program.user.onPass = [&] {
    ++passi;
    for (const QString& comando : {kAvvia, kEsci, kConnetti}) EXPECT_FALSE(schermo.enabled(comando));
  };
  schermo.click(kAvvia);
  program.user.onPass = nullptr;
  expectBoxes(program, {kSuccesso});
  EXPECT_GE(passi, 12);
  comandiAccesi(schermo);
  EXPECT_EQ(schermo.focus(), kEsci);
}

TEST_F(InvioGrafica, ChiCliccaAOgniPassoNonAvviaDueVolteENonEsce) {
  TestTill cassa(diClasse("S"));
  drawAll(384);
  const GuidedScreen schermo = collegato(cassa);
  program.user.onPass = [&] { schermo.impatience(); };
  schermo.click(kAvvia);
  program.user.onPass = nullptr;
  expectBoxes(program, {kSuccesso});
  EXPECT_EQ(orders.size(), 12U);
  EXPECT_TRUE(schermo.alive());
}

TEST_F(InvioGrafica, UnClicSuAvviaGrigioDuranteConnettiSiButtaENullaParte) {
  TestTill cassa(diClasse("S"));
  drawAll(384);
  RiempiRecGrafica(false, app(QStringLiteral("SetupLOGO.dat")));
  const GuidedScreen schermo = screen();
  schermo.typeAddress(cassa.address());
  // The till has told about itself: no call comes behind that, and "Avvia" is about to be on.
  bool grigio = false;
  QObject::connect(&schermo.control<QLineEdit>("TextModello"), &QLineEdit::textChanged, [&] {
    grigio = !schermo.enabled(kAvvia);
    postClick(schermo.control(kAvvia));
  });
  schermo.click(kConnetti);
  ASSERT_TRUE(grigio);
  QCoreApplication::processEvents();
  expectBoxes(program, {});
  EXPECT_EQ(callsOf(cassa), (QStringList{QStringLiteral("2:"), QStringLiteral("0:")}));
  EXPECT_FALSE(cassa.exists(kBitmap));
  EXPECT_TRUE(orders.empty());
  EXPECT_EQ(foot(schermo).text(), QStringLiteral("Collegato a %1: IDLE").arg(cassa.address()));
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_FALSE(schermo.enabled(kConnetti));
  postClick(schermo.control(kAvvia));
  QCoreApplication::processEvents();
  expectBoxes(program, {kSuccesso});
  EXPECT_TRUE(cassa.byte(kBitmap) == attesa(384));
}

TEST_F(InvioGrafica, SiInvianoIFileDellaCartellaMostrata) {
  TestTill cassa(diClasse("S"));
  drawAll(384);
  const GuidedScreen schermo = collegato(cassa);
  ASSERT_TRUE(QDir(images()).mkpath(QStringLiteral("Vuota")));
  schermo.key(Qt::Key_F5);
  doubleClickItem(schermo, "Dir1", QStringLiteral("Vuota"));
  schermo.click(kAvvia);
  expectBoxes(program, {plainBox(QStringLiteral("ERRORE: Il file [") + percorso("Vuota/Logo.bmp") +
                                 QStringLiteral("] non esiste\r\nPROCEDURA ABORTITA"))});
}

TEST_F(InvioGrafica, SeLaPreparazioneFallisceLoSchermoSiChiudeENullaParte) {
  TestTill cassa(diClasse("S"));
  drawAll(384);
  ASSERT_TRUE(QFile::remove(percorso("Promozione2.bmp")));
  const GuidedScreen schermo = collegato(cassa);
  schermo.click(kAvvia);
  expectBoxes(program, {plainBox(QStringLiteral("ERRORE: Il file [") + percorso("Promozione2.bmp") +
                                 QStringLiteral("] non esiste\r\nPROCEDURA ABORTITA"))});
  EXPECT_FALSE(schermo.alive());
  EXPECT_FALSE(open());
  EXPECT_EQ(menusShown, 1);
  EXPECT_FALSE(cassa.exists(kBitmap));
  EXPECT_EQ(orders.size(), 11U);
}

TEST_F(InvioGrafica, UnaCassaDellAltraClasseRifiutaENonSiInvia) {
  TestTill cassa(diClasse("L"));
  drawAll(384);
  const GuidedScreen schermo = collegato(cassa);
  EXPECT_EQ(foot(schermo).kind(), OutcomeBar::Kind::Warning);
  EXPECT_TRUE(foot(schermo).text().endsWith(
      QStringLiteral("12 immagini non vanno bene per questa cassa: la tessera dice perché")));
  EXPECT_EQ(schermo.control<TesseraGrafica>("tessera_1").esame().rifiuto,
            QStringLiteral("Larga 384 punti, serve 640"));
  schermo.click(kAvvia);
  expectBoxes(program, {plainBox(QStringLiteral("ERRORE: BITMAP NON CONGRUENTE CON IL TIPO DI CASSA [ ") +
                                 percorso("Logo.bmp") + QStringLiteral("]\r\nPROCEDURA ABORTITA"))});
  EXPECT_FALSE(cassa.exists(kBitmap));
}

TEST_F(InvioGrafica, UnaCassaDiClasseIgnotaFermaAllaPrima) {
  TestTill cassa(diClasse("X"));
  drawAll(640);
  const GuidedScreen schermo = collegato(cassa);
  EXPECT_EQ(schermo.text(QStringLiteral("TextBitmap")), QStringLiteral("LARGE"));
  EXPECT_EQ(foot(schermo).kind(), OutcomeBar::Kind::Warning);
  schermo.click(kAvvia);
  expectBoxes(program, {{QStringLiteral("Il tipo di grafica non è congruente a quella dell'ECR"),
                         Icon::Critical, QStringLiteral("Errore invio file per la grafica")},
                        plainBox(QStringLiteral("ERRORE durante preparazione bitmap [") +
                                 percorso("Logo.bmp") + QStringLiteral("]\r\nPROCEDURA ABORTITA"))});
  EXPECT_TRUE(orders.empty());
  EXPECT_FALSE(open());
}

TEST_F(InvioGrafica, UnInvioFallitoHaIlSuoMessaggioELoSchermoResta) {
  TestTill cassa(diClasse("S"));
  drawAll(384);
  const GuidedScreen schermo = collegato(cassa);
  cassa->faults({{.mode = 6, .what = ecrsim::FaultKind::Code, .code = 16}});
  schermo.click(kAvvia);
  expectBoxes(program, {criticalBox(QStringLiteral("Errore nella comunicazione con ECR: *"))});
  EXPECT_TRUE(schermo.alive());
  EXPECT_EQ(foot(schermo).kind(), OutcomeBar::Kind::Failed);
  comandiAccesi(schermo);
  cassa->faults({});
  schermo.click(kConnetti);
  schermo.click(kAvvia);
  expectBoxes(program, {kSuccesso});
  EXPECT_TRUE(cassa.byte(kBitmap) == attesa(384));
}

TEST_F(InvioGrafica, UnaCassaCheTaceSiDiceEntroIlLimite) {
  const ShortTimeouts brevi;
  TestTill cassa(diClasse("S"));
  drawAll(384);
  const GuidedScreen schermo = collegato(cassa);
  cassa->faults({{.mode = 6, .what = ecrsim::FaultKind::Silence}});
  schermo.click(kAvvia);
  expectBoxes(program, {criticalBox(QStringLiteral("Errore nella comunicazione con ECR: *"))});
  EXPECT_FALSE(cassa.exists(kBitmap));
  comandiAccesi(schermo);
}

TEST_F(InvioGrafica, DopoLInvioLaCartellaEDiNuovoDiTutti) {
  TestTill cassa(diClasse("S"));
  drawAll(384);
  const GuidedScreen schermo = collegato(cassa);
  bool presa = false;
  bool libera = false;
  program.user.onPass = [&] {
    try {
      const ecrlink::ScambioEsclusivo altro;
    } catch (const Errore&) {
      presa = true;
    }
  };
  program.user.onBox = [&](const Box&) {
    const ecrlink::ScambioEsclusivo altro;
    libera = true;
  };
  schermo.click(kAvvia);
  program.user.onPass = nullptr;
  expectBoxes(program, {kSuccesso});
  EXPECT_TRUE(presa);
  EXPECT_TRUE(libera);
}

TEST_F(InvioGrafica, AvviaEsisteSoloDopoConnettiEF9LoPreme) {
  TestTill cassa(diClasse("S"));
  drawAll(384);
  RiempiRecGrafica(false, app(QStringLiteral("SetupLOGO.dat")));
  const GuidedScreen schermo = screen();
  EXPECT_EQ(schermo.control(kAvvia).toolTip(), QStringLiteral("Prima collegarsi alla cassa con Connetti"));
  schermo.key(Qt::Key_F9);
  EXPECT_TRUE(orders.empty());
  schermo.connectTo(cassa);
  EXPECT_EQ(foot(schermo).text(), QStringLiteral("Collegato a %1: IDLE").arg(cassa.address()));
  schermo.key(Qt::Key_F9);
  expectBoxes(program, {kSuccesso});
  EXPECT_EQ(orders.size(), 12U);
}

TEST_F(InvioGrafica, NegliStatiCheRifiutanoAvviaRestaSpento) {
  drawAll(384);
  for (const char stato : {'V', 'A', 'L'}) {
    TestTill cassa(diClasse("S"));
    cassa->state(stato);
    const GuidedScreen schermo = collegato(cassa);
    EXPECT_FALSE(schermo.enabled(kAvvia)) << stato;
    expectBoxes(program, {criticalBox(QStringLiteral("Funzione non disponibile! *"))});
    schermo.click(kEsci);
  }
}
