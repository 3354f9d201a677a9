#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QTimer>

#include "ecrlink/link_scene.h"

using namespace ecrlink;

namespace {

Box indirizzoErrato() {
  return criticalBox(QStringLiteral(
      "Attenzione l'indirizzo IP del dispositivo ECR da connettere al PC potrebbe essere errato"));
}
Box indirizzoDelPC() {
  return criticalBox(
      QStringLiteral("Attenzione l'IP del dispositivo ECR deve essere diverso da quello del PC"));
}
Box ecoImpossibile() {
  return criticalBox(
      QStringLiteral("Attenzione il dispositivo non risponde, controllare lo stato della connessione "
                     "e/o l'indirizzo IP dell'ECR"));
}
Box nessunaRisposta() {
  return criticalBox(QStringLiteral(
      "Attenzione il dispositivo non risponde, controllare lo stato e/o l'indirizzo IP dell'ECR"));
}
Box statoSbagliato() {
  return criticalBox(
      QStringLiteral("Funzione non disponibile! Prego porre la cassa nello stato di IDLE o PROGRAMMAZIONE"));
}

constexpr std::array kCaselle{"TextModello", "vkTextBoxTipoMacchina", "TextBitmap",
                              "TextMMC",     "vkTextBox_VSW",         "vkTextBoxECR"};

QStringList caselle(LinkScreen& schermo) {
  QStringList testi;
  for (const char* nome : kCaselle) testi << schermo.text(nome);
  return testi;
}

QStringList echi(const TestNetwork& rete) {
  return rete.steps.filter(QStringLiteral("eco "));
}

/// A panel that fails where a test says so.
class PannelloGuasto : public PannelloECR {
 public:
  std::function<void()> agliIndirizzi;
  std::function<void()> alleInformazioni;

  QStringList indirizziLocali() const override {
    if (agliIndirizzi) agliIndirizzi();
    return PannelloECR::indirizziLocali();
  }
  void mostraInfo(const EcrInfo& info) override {
    if (alleInformazioni) alleInformazioni();
    PannelloECR::mostraInfo(info);
  }
};

struct Connessione : testing::Test {
  ProgramFixture scena;
  LinkScreen schermo{scena.contesto};

  std::vector<Box> connetti(const QString& indirizzo) {
    schermo.typeAddress(indirizzo);
    schermo.click("CmdInviaModECR");
    return scena.takeBoxes();
  }
  /// Ready after a failed ECR INFO: both commands are on.
  void entrambiAccesi() {
    TestTill muta({.faults = {{.mode = 0, .what = ecrsim::FaultKind::Code, .code = 16}}});
    EXPECT_EQ(connetti(muta.address()).size(), 1U);
    EXPECT_EQ(stateOf(schermo), (LinkState{true, true, muta.address()}));
  }
};

class ConStato : public Connessione, public testing::WithParamInterface<std::pair<char, std::string>> {};

std::string pezzo(const std::string& voce, int quanti) {
  std::string testo;
  for (int i = 0; i < quanti; ++i) testo += (i ? "," : "") + voce;
  return testo;
}

}  // namespace

TEST(ControllaIP, TrePuntiConNumeriDavantiBastano) {
  for (const char* buono : {"1.2.3.4", "999.1.1.x", "300.0.0.1", "192.168.0.20", "1.2.3.", "32767.0.0.1",
                            "-1.0.0.1", " 1.2.3.4", "1e2.0.0.1"})
    EXPECT_TRUE(ControllaIP(QString::fromLatin1(buono))) << buono;
}

TEST(ControllaIP, RifiutaPuntiSbagliatiENonNumeri) {
  for (const char* cattivo :
       {"", "10", "10.0", "10.0.0", "10.0.0.1.5", "a.0.0.1", "1.b.0.1", "1.2.c.1", ".0.0.1", "1..0.1", "...",
        "32768.0.0.1", "1.2.99999.4", "&H10.0.0.1", "0x7f.0.0.1", "nan.0.0.1", "inf.0.0.1"})
    EXPECT_FALSE(ControllaIP(QString::fromLatin1(cattivo))) << cattivo;
}

TEST_F(Connessione, DuePuntiQuattroPuntiOLettereSiRifiutanoSubito) {
  for (const char* cattivo : {"10.0.0", "10.0.0.1.5", "a.0.0.1", ""}) {
    EXPECT_EQ(connetti(QString::fromLatin1(cattivo)), std::vector{indirizzoErrato()}) << cattivo;
    EXPECT_EQ(stateOf(schermo), (LinkState{false, true, QString()})) << cattivo;
  }
  EXPECT_EQ(echi(scena.network), QStringList());
}

TEST_F(Connessione, UnIndirizzoErratoSpegneAncheUnAvvioAcceso) {
  entrambiAccesi();
  EXPECT_EQ(connetti(QStringLiteral("10.0.0")), std::vector{indirizzoErrato()});
  EXPECT_EQ(stateOf(schermo), (LinkState{false, true, QString()}));
}

TEST(ConnessioneDiUnPC, LIndirizzoPredefinitoDellaCassaSulPCSiRifiutaSenzaEco) {
  ProgramFixture scena;
  scena.network.addresses = {QStringLiteral("192.168.0.20")};
  LinkScreen schermo(scena.contesto);
  schermo.typeAddress(QStringLiteral("192.168.0.20"));
  schermo.click("CmdInviaModECR");
  EXPECT_EQ(scena.takeBoxes(), std::vector{indirizzoDelPC()});
  EXPECT_EQ(echi(scena.network), QStringList());
  EXPECT_EQ(stateOf(schermo), (LinkState{false, true, QString()}));
}

TEST(ConnessioneDiUnPC, DiDueIndirizziSiProvanoEntrambi) {
  ProgramFixture scena;
  scena.network.addresses = {QStringLiteral("127.1.1.1"), QStringLiteral("127.2.2.2")};
  LinkScreen schermo(scena.contesto);
  for (const QString& indirizzo : scena.network.addresses) {
    schermo.typeAddress(indirizzo);
    schermo.click("CmdInviaModECR");
    EXPECT_EQ(scena.takeBoxes(), std::vector{indirizzoDelPC()}) << indirizzo.toStdString();
  }
  EXPECT_EQ(echi(scena.network), QStringList());
}

TEST(ConnessioneDiUnPC, SenzaIndirizziSiConnetteLoStesso) {
  ProgramFixture scena;
  scena.network.addresses.clear();
  TestTill cassa;
  LinkScreen schermo(scena.contesto);
  schermo.typeAddress(cassa.address());
  schermo.click("CmdInviaModECR");
  EXPECT_EQ(stateOf(schermo), (LinkState{true, false, cassa.address()}));
}

TEST_F(Connessione, UnIndirizzoCheNonSiConverteNonSiRaggiunge) {
  for (const char* strano : {"300.0.0.1", "999.1.1.x", "0.0.0.0", "255.255.255.255"}) {
    EXPECT_EQ(connetti(QString::fromLatin1(strano)), std::vector{ecoImpossibile()}) << strano;
    EXPECT_EQ(stateOf(schermo), (LinkState{false, true, QString()})) << strano;
  }
}

TEST_F(Connessione, ChiNonRispondeAllEcoLasciaLAvvioComEra) {
  scena.network.echoStatus = 11010;
  EXPECT_EQ(connetti(QStringLiteral("127.7.7.7")), std::vector{nessunaRisposta()});
  EXPECT_EQ(stateOf(schermo), (LinkState{false, true, QString()}));
  scena.network.echoStatus.reset();
  entrambiAccesi();
  scena.network.echoStatus = 11010;
  EXPECT_EQ(connetti(QStringLiteral("127.7.7.7")), std::vector{nessunaRisposta()});
  EXPECT_EQ(stateOf(schermo), (LinkState{true, true, QString()}));
  EXPECT_EQ(connetti(QStringLiteral("300.0.0.1")), std::vector{nessunaRisposta()});
  EXPECT_EQ(stateOf(schermo), (LinkState{true, true, QString()}));
}

TEST_F(Connessione, LEcoPortaCinqueLettereEDuecentocinquantaMillisecondi) {
  TestTill cassa;
  EXPECT_EQ(connetti(cassa.address()), std::vector<Box>());
  EXPECT_EQ(echi(scena.network), QStringList{QStringLiteral("eco %1 hello 250").arg(cassa.address())});
}

TEST_F(Connessione, LaCassaProntaRiempieLoSchermoEAccendeLAvvio) {
  TestTill cassa({.bitmap = "S", .state = 'I', .pattern = "KPR_58mm", .version = "2.10", .mmc = "8"});
  EXPECT_EQ(connetti(cassa.address()), std::vector<Box>());
  EXPECT_EQ(caselle(schermo),
            (QStringList{QStringLiteral("KPR_58mm"), QStringLiteral("KPR_58mm"), QStringLiteral("SMALL"),
                         QStringLiteral("8"), QStringLiteral("2.10"), QStringLiteral("IDLE")}));
  EXPECT_EQ(stateOf(schermo), (LinkState{true, false, cassa.address()}));
  EXPECT_TRUE(schermo.hasFocus("Cmd_Esci"));
  EXPECT_EQ(callsOf(cassa), (QStringList{QStringLiteral("2:"), QStringLiteral("0:")}));
}

TEST_F(Connessione, OgniClasseCheNonSiaSSiLeggeLarge) {
  for (const char* classe : {"L", "M", "s"}) {
    ProgramFixture altra;
    LinkScreen questo(altra.contesto);
    TestTill cassa({.bitmap = classe});
    questo.typeAddress(cassa.address());
    questo.click("CmdInviaModECR");
    EXPECT_EQ(questo.text("TextBitmap"), QStringLiteral("LARGE")) << classe;
  }
}

TEST_P(ConStato, LoStatoDecideChiPuoTrasferire) {
  const auto [lettera, parola] = GetParam();
  TestTill cassa({.state = lettera});
  const bool ammesso = lettera == 'I' || lettera == 'P';
  EXPECT_EQ(connetti(cassa.address()), ammesso ? std::vector<Box>() : std::vector{statoSbagliato()});
  EXPECT_EQ(schermo.text("vkTextBoxECR"), QString::fromLatin1(parola));
  EXPECT_EQ(schermo.control("vkTextBoxECR").property("tillState").toString(), QString(QLatin1Char(lettera)));
  EXPECT_EQ(schermo.control("vkTextBoxECR").property("badge").toString(),
            ammesso ? QStringLiteral("ready") : QStringLiteral("busy"));
  EXPECT_EQ(stateOf(schermo),
            ammesso ? (LinkState{true, false, cassa.address()}) : (LinkState{false, true, QString()}));
}

INSTANTIATE_TEST_SUITE_P(Tutti, ConStato,
                         testing::Values(std::pair{'I', "IDLE"}, std::pair{'P', "PROGRAMMAZIONE"},
                                         std::pair{'V', "VENDITA"}, std::pair{'A', "AZZERAMENTO"},
                                         std::pair{'L', "LETTURA"}));

TEST_F(Connessione, UnaLetteraIgnotaLasciaLaParolaDiPrimaERifiuta) {
  TestTill lettura({.state = 'L'});
  EXPECT_EQ(connetti(lettura.address()), std::vector{statoSbagliato()});
  TestTill strana({.state = 'Z'});
  EXPECT_EQ(connetti(strana.address()), std::vector{statoSbagliato()});
  EXPECT_EQ(schermo.text("vkTextBoxECR"), QStringLiteral("LETTURA"));
}

TEST_F(Connessione, NelloStatoSbagliatoUnAvvioAccesoRestaAcceso) {
  entrambiAccesi();
  TestTill vendita({.state = 'V'});
  EXPECT_EQ(connetti(vendita.address()), std::vector{statoSbagliato()});
  EXPECT_EQ(stateOf(schermo), (LinkState{true, true, QString()}));
}

TEST_F(Connessione, UnaRispostaDiTreVociSenzaStatoSiRifiuta) {
  TestTill cassa({.infoReply = "VER=3.00,BMP=L,MMC=4"});
  EXPECT_EQ(connetti(cassa.address()), std::vector{statoSbagliato()});
  EXPECT_EQ(stateOf(schermo), (LinkState{false, true, QString()}));
  EXPECT_EQ(schermo.text("vkTextBox_VSW"), QStringLiteral("3.00"));
  EXPECT_EQ(schermo.text("TextModello"), QString());
}

TEST_F(Connessione, RispostePiuCorteOPiuLungheDelGiustoNonFannoDanni) {
  struct Caso {
    std::string risposta;
    bool pronta;
  };
  const std::string undici = pezzo("K=1", 10) + ",S=P";
  for (const Caso& caso :
       {Caso{" ", false}, Caso{undici + "," + pezzo("K=2", 8), true},
        Caso{undici + "," + pezzo("K=2", 29), true}, Caso{undici, false}, Caso{std::string(256, 'x'), false},
        Caso{std::string(256, ','), false}, Caso{std::string(400, '='), false},
        Caso{std::string("\x01\xFF\x80\x00\x7F,", 6), false}}) {
    ProgramFixture altra;
    LinkScreen questo(altra.contesto);
    TestTill cassa({.infoReply = caso.risposta});
    questo.typeAddress(cassa.address());
    questo.click("CmdInviaModECR");
    EXPECT_EQ(altra.takeBoxes(), caso.pronta ? std::vector<Box>() : std::vector{statoSbagliato()});
    EXPECT_EQ(stateOf(questo),
              caso.pronta ? (LinkState{true, false, cassa.address()}) : (LinkState{false, true, QString()}));
  }
}

TEST_F(Connessione, UnaChiusuraFallitaSiDiceESiVaAvanti) {
  TestTill cassa({.faults = {{.mode = 2, .what = ecrsim::FaultKind::Code, .code = 16}}});
  EXPECT_EQ(connetti(cassa.address()),
            std::vector{communicationError(QStringLiteral("Errore nella memoria della cassa"))});
  EXPECT_EQ(stateOf(schermo), (LinkState{true, false, cassa.address()}));
}

TEST_F(Connessione, UnInfoFallitaAccendeLoStessoLAvvioEConservaLeCaselle) {
  TestTill prima({.state = 'L', .pattern = "VEGA"});
  connetti(prima.address());
  const QStringList tenute = caselle(schermo);
  TestTill cassa({.faults = {{.mode = 0, .what = ecrsim::FaultKind::Code, .code = 7}}});
  EXPECT_EQ(
      connetti(cassa.address()),
      std::vector{communicationError(QStringLiteral("Comando rifiutato nello stato attuale della cassa"))});
  EXPECT_EQ(stateOf(schermo), (LinkState{true, true, cassa.address()}));
  EXPECT_EQ(caselle(schermo), tenute);
  EXPECT_TRUE(schermo.hasFocus("Cmd_Esci"));
}

TEST_F(Connessione, UnaCassaSpentaMaRaggiungibileFinisceConEntrambiAccesi) {
  TestTill cassa;
  cassa.switchOff();
  const Box spenta = communicationError(QStringLiteral("La cassa non è raggiungibile"));
  EXPECT_EQ(connetti(cassa.address()), (std::vector{spenta, spenta}));
  EXPECT_EQ(stateOf(schermo), (LinkState{true, true, cassa.address()}));
}

TEST_F(Connessione, SeLaCassaNonRispondePiuLeCaselleRestano) {
  TestTill cassa({.state = 'A'});
  connetti(cassa.address());
  const QStringList tenute = caselle(schermo);
  EXPECT_EQ(connetti(QStringLiteral("300.0.0.1")), std::vector{ecoImpossibile()});
  EXPECT_EQ(caselle(schermo), tenute);
  EXPECT_EQ(schermo.control("vkTextBoxECR").property("badge").toString(), QStringLiteral("fault"));
}

TEST_F(Connessione, DaProntaNonSiPuoRiconnettere) {
  TestTill cassa;
  connetti(cassa.address());
  schermo.click("CmdInviaModECR");
  QTest::keyClick(&schermo.control("vkTextBoxIP_ECR"), Qt::Key_Return);
  EXPECT_EQ(callsOf(cassa), (QStringList{QStringLiteral("2:"), QStringLiteral("0:")}));
}

TEST_F(Connessione, LaConnessioneChiudeUnTrasferimentoRimastoAperto) {
  TestTill cassa;
  commonForKora().IP_ECR = cassa.address();
  EXPECT_EQ(avviaECR(QStringLiteral("ignoto.bin"), Modo::Ricevi, scena.contesto), 1);
  EXPECT_EQ(scena.takeBoxes().size(), 1U);
  ASSERT_TRUE(cassa->transferOpen());
  connetti(cassa.address());
  EXPECT_FALSE(cassa->transferOpen());
  EXPECT_EQ(avviaECR(QString(), Modo::AzzeraVenduto, scena.contesto), 0);
}

TEST(ConnessioneSenzaLibreria, LErroreImprevistoRiaccendeConnettiELoMetteAFuoco) {
  const QTemporaryDir vuota;
  ProgramFixture scena(vuota.path());
  LinkScreen schermo(scena.contesto);
  schermo.typeAddress(ownAddress());
  schermo.click("CmdInviaModECR");
  EXPECT_EQ(scena.takeBoxes(),
            std::vector{criticalBox(QStringLiteral("Errore 53 - File non trovato: libecrcom.so"))});
  EXPECT_EQ(stateOf(schermo), (LinkState{false, true, QString()}));
  EXPECT_TRUE(schermo.hasFocus("CmdInviaModECR"));
}

TEST(ConnessioneGuasta, UnErroreImprevistoPrimaDiSpegnereConnettiLasciaIlFuocoDovEra) {
  ProgramFixture scena;
  auto* pannello = new PannelloGuasto;
  LinkScreen schermo(scena.contesto, pannello);
  schermo.typeAddress(ownAddress());
  pannello->agliIndirizzi = [] { throw Errore{438, QStringLiteral("indirizzi")}; };
  QTest::keyClick(&schermo.control("vkTextBoxIP_ECR"), Qt::Key_Return);
  EXPECT_EQ(scena.takeBoxes(), std::vector{criticalBox(QStringLiteral("Errore 438 - indirizzi"))});
  EXPECT_EQ(stateOf(schermo), (LinkState{false, true, QString()}));
  EXPECT_TRUE(schermo.hasFocus("vkTextBoxIP_ECR"));
}

TEST(ConnessioneGuasta, UnEccezioneDelLinguaggioRiaccendeConnettiELoMetteAFuoco) {
  ProgramFixture scena;
  auto* pannello = new PannelloGuasto;
  LinkScreen schermo(scena.contesto, pannello);
  TestTill cassa;
  schermo.typeAddress(cassa.address());
  pannello->alleInformazioni = [] { throw std::runtime_error("memoria"); };
  schermo.click("CmdInviaModECR");
  EXPECT_EQ(scena.takeBoxes(), std::vector{criticalBox(QStringLiteral("Errore 51 - memoria"))});
  EXPECT_EQ(stateOf(schermo), (LinkState{false, true, QString()}));
  EXPECT_TRUE(schermo.hasFocus("CmdInviaModECR"));
}

TEST(ConnessioneGuasta, UnLancioSenzaNomeFinisceComeOgniErroreImprevisto) {
  ProgramFixture scena;
  auto* pannello = new PannelloGuasto;
  LinkScreen schermo(scena.contesto, pannello);
  TestTill cassa;
  schermo.typeAddress(cassa.address());
  pannello->alleInformazioni = [] { throw 7; };
  schermo.click("CmdInviaModECR");
  EXPECT_EQ(scena.takeBoxes(), std::vector{criticalBox(QStringLiteral("Errore 51 - Errore interno"))});
  EXPECT_EQ(stateOf(schermo), (LinkState{false, true, QString()}));
}

TEST_F(Connessione, MentreSiConnetteNessunPassaggioEDellaPortaDellUtente) {
  TestTill cassa;
  schermo.typeAddress(cassa.address());
  ConnettiECR(schermo.view(), scena.contesto);
  EXPECT_EQ(scena.user.passes(), 0);
}

TEST_F(Connessione, UnClicRimastoInCodaDopoLaConnessioneNonNeFaUnAltra) {
  TestTill cassa;
  schermo.typeAddress(cassa.address());
  QWidget& comando = schermo.control("CmdInviaModECR");
  for (const auto tipo : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
    QCoreApplication::postEvent(
        &comando, new QMouseEvent(tipo, comando.rect().center(), comando.mapToGlobal(comando.rect().center()),
                                  Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
  ConnettiECR(schermo.view(), scena.contesto);
  QCoreApplication::sendPostedEvents();
  EXPECT_EQ(callsOf(cassa), (QStringList{QStringLiteral("2:"), QStringLiteral("0:")}));
  EXPECT_EQ(stateOf(schermo), (LinkState{true, false, cassa.address()}));
}

TEST_F(Connessione, DopoUnaConnessioneFallitaNonCEIndirizzo) {
  connetti(QStringLiteral("10.0.0"));
  EXPECT_TRUE(commonForKora().IP_ECR.isEmpty());
}

TEST_F(Connessione, ICampiDellaCassaRestanoDopoLaChiusuraDelloSchermo) {
  TestTill cassa({.version = "9.99"});
  connetti(cassa.address());
  schermo.close();
  EXPECT_EQ(commonForKora().ECR_INFO.InfoVersioneSW, QStringLiteral("9.99"));
}
