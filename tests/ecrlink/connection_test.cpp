#include <gtest/gtest.h>

#include <QMouseEvent>
#include <QTimer>

#include "link_scene.h"

using namespace ecrlink;

namespace {

Box indirizzoErrato() {
  return critico(QStringLiteral(
      "Attenzione l'indirizzo IP del dispositivo ECR da connettere al PC potrebbe essere errato"));
}
Box indirizzoDelPC() {
  return critico(QStringLiteral("Attenzione l'IP del dispositivo ECR deve essere diverso da quello del PC"));
}
Box ecoImpossibile() {
  return critico(
      QStringLiteral("Attenzione il dispositivo non risponde, controllare lo stato della connessione "
                     "e/o l'indirizzo IP dell'ECR"));
}
Box nessunaRisposta() {
  return critico(QStringLiteral(
      "Attenzione il dispositivo non risponde, controllare lo stato e/o l'indirizzo IP dell'ECR"));
}
Box statoSbagliato() {
  return critico(
      QStringLiteral("Funzione non disponibile! Prego porre la cassa nello stato di IDLE o PROGRAMMAZIONE"));
}

constexpr std::array kCaselle{"TextModello", "vkTextBoxTipoMacchina", "TextBitmap",
                              "TextMMC",     "vkTextBox_VSW",         "vkTextBoxECR"};

QStringList caselle(SchermoLink& schermo) {
  QStringList testi;
  for (const char* nome : kCaselle) testi << schermo.testo(nome);
  return testi;
}

QStringList echi(const ReteDiProva& rete) {
  return rete.passi.filter(QStringLiteral("eco "));
}

struct Connessione : testing::Test {
  Scena scena;
  SchermoLink schermo{scena.contesto};

  std::vector<Box> connetti(const QString& indirizzo) {
    schermo.digita(indirizzo);
    schermo.clicca("CmdInviaModECR");
    return scena.riquadri();
  }
  /// Ready after a failed ECR INFO: both commands are on.
  void entrambiAccesi() {
    TestTill muta({.faults = {{.mode = 0, .what = ecrsim::FaultKind::Code, .code = 16}}});
    EXPECT_EQ(connetti(muta.address()).size(), 1U);
    EXPECT_EQ(statoDi(schermo), (StatoLink{true, true, muta.address()}));
  }
};

class ConStato : public Connessione, public testing::WithParamInterface<std::pair<char, const char*>> {};

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
    EXPECT_EQ(statoDi(schermo), (StatoLink{false, true, QString()})) << cattivo;
  }
  EXPECT_EQ(echi(scena.rete), QStringList());
}

TEST_F(Connessione, UnIndirizzoErratoSpegneAncheUnAvvioAcceso) {
  entrambiAccesi();
  EXPECT_EQ(connetti(QStringLiteral("10.0.0")), std::vector{indirizzoErrato()});
  EXPECT_EQ(statoDi(schermo), (StatoLink{false, true, QString()}));
}

TEST(ConnessioneDiUnPC, LIndirizzoPredefinitoDellaCassaSulPCSiRifiutaSenzaEco) {
  Scena scena;
  scena.rete.indirizzi = {QStringLiteral("192.168.0.20")};
  SchermoLink schermo(scena.contesto);
  schermo.digita(QStringLiteral("192.168.0.20"));
  schermo.clicca("CmdInviaModECR");
  EXPECT_EQ(scena.riquadri(), std::vector{indirizzoDelPC()});
  EXPECT_EQ(echi(scena.rete), QStringList());
  EXPECT_EQ(statoDi(schermo), (StatoLink{false, true, QString()}));
}

TEST(ConnessioneDiUnPC, DiDueIndirizziSiProvanoEntrambi) {
  Scena scena;
  scena.rete.indirizzi = {QStringLiteral("127.1.1.1"), QStringLiteral("127.2.2.2")};
  SchermoLink schermo(scena.contesto);
  for (const QString& indirizzo : scena.rete.indirizzi) {
    schermo.digita(indirizzo);
    schermo.clicca("CmdInviaModECR");
    EXPECT_EQ(scena.riquadri(), std::vector{indirizzoDelPC()}) << indirizzo.toStdString();
  }
  EXPECT_EQ(echi(scena.rete), QStringList());
}

TEST(ConnessioneDiUnPC, SenzaIndirizziSiConnetteLoStesso) {
  Scena scena;
  scena.rete.indirizzi.clear();
  TestTill cassa;
  SchermoLink schermo(scena.contesto);
  schermo.digita(cassa.address());
  schermo.clicca("CmdInviaModECR");
  EXPECT_EQ(statoDi(schermo), (StatoLink{true, false, cassa.address()}));
}

TEST_F(Connessione, UnIndirizzoCheNonSiConverteNonSiRaggiunge) {
  for (const char* strano : {"300.0.0.1", "999.1.1.x", "0.0.0.0", "255.255.255.255"}) {
    EXPECT_EQ(connetti(QString::fromLatin1(strano)), std::vector{ecoImpossibile()}) << strano;
    EXPECT_EQ(statoDi(schermo), (StatoLink{false, true, QString()})) << strano;
  }
}

TEST_F(Connessione, ChiNonRispondeAllEcoLasciaLAvvioComEra) {
  scena.rete.esitoEco = 11010;
  EXPECT_EQ(connetti(QStringLiteral("127.7.7.7")), std::vector{nessunaRisposta()});
  EXPECT_EQ(statoDi(schermo), (StatoLink{false, true, QString()}));
  scena.rete.esitoEco.reset();
  entrambiAccesi();
  scena.rete.esitoEco = 11010;
  EXPECT_EQ(connetti(QStringLiteral("127.7.7.7")), std::vector{nessunaRisposta()});
  EXPECT_EQ(statoDi(schermo), (StatoLink{true, true, QString()}));
  EXPECT_EQ(connetti(QStringLiteral("300.0.0.1")), std::vector{nessunaRisposta()});
  EXPECT_EQ(statoDi(schermo), (StatoLink{true, true, QString()}));
}

TEST_F(Connessione, LEcoPortaCinqueLettereEDuecentocinquantaMillisecondi) {
  TestTill cassa;
  EXPECT_EQ(connetti(cassa.address()), std::vector<Box>());
  EXPECT_EQ(echi(scena.rete), QStringList{QStringLiteral("eco %1 hello 250").arg(cassa.address())});
}

TEST_F(Connessione, LaCassaProntaRiempieLoSchermoEAccendeLAvvio) {
  TestTill cassa({.bitmap = "S", .state = 'I', .pattern = "KPR_58mm", .version = "2.10", .mmc = "8"});
  EXPECT_EQ(connetti(cassa.address()), std::vector<Box>());
  EXPECT_EQ(caselle(schermo),
            (QStringList{QStringLiteral("KPR_58mm"), QStringLiteral("KPR_58mm"), QStringLiteral("SMALL"),
                         QStringLiteral("8"), QStringLiteral("2.10"), QStringLiteral("IDLE")}));
  EXPECT_EQ(statoDi(schermo), (StatoLink{true, false, cassa.address()}));
  EXPECT_TRUE(schermo.haIlFuoco("Cmd_Esci"));
  EXPECT_EQ(chiamateDi(cassa), (QStringList{QStringLiteral("2:"), QStringLiteral("0:")}));
}

TEST_F(Connessione, OgniClasseCheNonSiaSSiLeggeLarge) {
  for (const char* classe : {"L", "M", "s"}) {
    Scena altra;
    SchermoLink questo(altra.contesto);
    TestTill cassa({.bitmap = classe});
    questo.digita(cassa.address());
    questo.clicca("CmdInviaModECR");
    EXPECT_EQ(questo.testo("TextBitmap"), QStringLiteral("LARGE")) << classe;
  }
}

TEST_P(ConStato, LoStatoDecideChiPuoTrasferire) {
  const auto [lettera, parola] = GetParam();
  TestTill cassa({.state = lettera});
  const bool ammesso = lettera == 'I' || lettera == 'P';
  EXPECT_EQ(connetti(cassa.address()), ammesso ? std::vector<Box>() : std::vector{statoSbagliato()});
  EXPECT_EQ(schermo.testo("vkTextBoxECR"), QString::fromLatin1(parola));
  EXPECT_EQ(schermo.controllo("vkTextBoxECR").property("tillState").toString(),
            QString(QLatin1Char(lettera)));
  EXPECT_EQ(schermo.controllo("vkTextBoxECR").property("badge").toString(),
            ammesso ? QStringLiteral("ready") : QStringLiteral("busy"));
  EXPECT_EQ(statoDi(schermo),
            ammesso ? (StatoLink{true, false, cassa.address()}) : (StatoLink{false, true, QString()}));
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
  EXPECT_EQ(schermo.testo("vkTextBoxECR"), QStringLiteral("LETTURA"));
}

TEST_F(Connessione, NelloStatoSbagliatoUnAvvioAccesoRestaAcceso) {
  entrambiAccesi();
  TestTill vendita({.state = 'V'});
  EXPECT_EQ(connetti(vendita.address()), std::vector{statoSbagliato()});
  EXPECT_EQ(statoDi(schermo), (StatoLink{true, true, QString()}));
}

TEST_F(Connessione, UnaRispostaDiTreVociSenzaStatoSiRifiuta) {
  TestTill cassa({.infoReply = "VER=3.00,BMP=L,MMC=4"});
  EXPECT_EQ(connetti(cassa.address()), std::vector{statoSbagliato()});
  EXPECT_EQ(statoDi(schermo), (StatoLink{false, true, QString()}));
  EXPECT_EQ(schermo.testo("vkTextBox_VSW"), QStringLiteral("3.00"));
  EXPECT_EQ(schermo.testo("TextModello"), QString());
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
    Scena altra;
    SchermoLink questo(altra.contesto);
    TestTill cassa({.infoReply = caso.risposta});
    questo.digita(cassa.address());
    questo.clicca("CmdInviaModECR");
    EXPECT_EQ(altra.riquadri(), caso.pronta ? std::vector<Box>() : std::vector{statoSbagliato()});
    EXPECT_EQ(statoDi(questo),
              caso.pronta ? (StatoLink{true, false, cassa.address()}) : (StatoLink{false, true, QString()}));
  }
}

TEST_F(Connessione, UnaChiusuraFallitaSiDiceESiVaAvanti) {
  TestTill cassa({.faults = {{.mode = 2, .what = ecrsim::FaultKind::Code, .code = 16}}});
  EXPECT_EQ(connetti(cassa.address()),
            std::vector{erroreDiComunicazione(QStringLiteral("Errore nella memoria della cassa"))});
  EXPECT_EQ(statoDi(schermo), (StatoLink{true, false, cassa.address()}));
}

TEST_F(Connessione, UnInfoFallitaAccendeLoStessoLAvvioEConservaLeCaselle) {
  TestTill prima({.state = 'L', .pattern = "VEGA"});
  connetti(prima.address());
  const QStringList tenute = caselle(schermo);
  TestTill cassa({.faults = {{.mode = 0, .what = ecrsim::FaultKind::Code, .code = 7}}});
  EXPECT_EQ(connetti(cassa.address()), std::vector{erroreDiComunicazione(QStringLiteral(
                                           "Comando rifiutato nello stato attuale della cassa"))});
  EXPECT_EQ(statoDi(schermo), (StatoLink{true, true, cassa.address()}));
  EXPECT_EQ(caselle(schermo), tenute);
  EXPECT_TRUE(schermo.haIlFuoco("Cmd_Esci"));
}

TEST_F(Connessione, UnaCassaSpentaMaRaggiungibileFinisceConEntrambiAccesi) {
  TestTill cassa;
  cassa.switchOff();
  const Box spenta = erroreDiComunicazione(QStringLiteral("La cassa non è raggiungibile"));
  EXPECT_EQ(connetti(cassa.address()), (std::vector{spenta, spenta}));
  EXPECT_EQ(statoDi(schermo), (StatoLink{true, true, cassa.address()}));
}

TEST_F(Connessione, SeLaCassaNonRispondePiuLeCaselleRestano) {
  TestTill cassa({.state = 'A'});
  connetti(cassa.address());
  const QStringList tenute = caselle(schermo);
  EXPECT_EQ(connetti(QStringLiteral("300.0.0.1")), std::vector{ecoImpossibile()});
  EXPECT_EQ(caselle(schermo), tenute);
  EXPECT_EQ(schermo.controllo("vkTextBoxECR").property("badge").toString(), QStringLiteral("neutral"));
}

TEST_F(Connessione, DaProntaNonSiPuoRiconnettere) {
  TestTill cassa;
  connetti(cassa.address());
  schermo.clicca("CmdInviaModECR");
  QTest::keyClick(&schermo.controllo("vkTextBoxIP_ECR"), Qt::Key_Return);
  EXPECT_EQ(chiamateDi(cassa), (QStringList{QStringLiteral("2:"), QStringLiteral("0:")}));
}

TEST_F(Connessione, LaConnessioneChiudeUnTrasferimentoRimastoAperto) {
  TestTill cassa;
  commonForKora().IP_ECR = cassa.address();
  EXPECT_EQ(avviaECR(QStringLiteral("ignoto.bin"), Modo::Ricevi, scena.contesto), 1);
  EXPECT_EQ(scena.riquadri().size(), 1U);
  ASSERT_TRUE(cassa->transferOpen());
  connetti(cassa.address());
  EXPECT_FALSE(cassa->transferOpen());
  EXPECT_EQ(avviaECR(QString(), Modo::AzzeraVenduto, scena.contesto), 0);
}

TEST(ConnessioneSenzaLibreria, LErroreImprevistoRiaccendeConnettiELoMetteAFuoco) {
  const QTemporaryDir vuota;
  Scena scena(vuota.path());
  SchermoLink schermo(scena.contesto);
  schermo.digita(ownAddress());
  schermo.clicca("CmdInviaModECR");
  EXPECT_EQ(scena.riquadri(),
            std::vector{critico(QStringLiteral("Errore 53 - File non trovato: libecrcom.so"))});
  EXPECT_EQ(statoDi(schermo), (StatoLink{false, true, QString()}));
  EXPECT_TRUE(schermo.haIlFuoco("CmdInviaModECR"));
}

TEST_F(Connessione, UnErroreImprevistoPrimaDiSpegnereConnettiLasciaIlFuocoDovEra) {
  delete &schermo.controllo("vkTextBoxLocal_IP");
  EXPECT_EQ(connetti(ownAddress()),
            std::vector{critico(QStringLiteral(
                "Errore 438 - Proprietà o metodo non supportati dall'oggetto: vkTextBoxLocal_IP"))});
  EXPECT_EQ(commonForKora().IP_ECR, QString());
  EXPECT_TRUE(schermo.acceso("CmdInviaModECR"));
}

TEST_F(Connessione, MentreSiConnetteNessunEventoPassa) {
  TestTill cassa;
  schermo.digita(cassa.address());
  bool passato = false;
  QTimer::singleShot(0, &schermo, [&] { passato = true; });
  ConnettiECR(schermo, scena.contesto);
  EXPECT_FALSE(passato);
  EXPECT_EQ(scena.utente.passes(), 0);
}

TEST_F(Connessione, UnClicRimastoInCodaDopoLaConnessioneNonNeFaUnAltra) {
  TestTill cassa;
  schermo.digita(cassa.address());
  QWidget& comando = schermo.controllo("CmdInviaModECR");
  for (const auto tipo : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
    QCoreApplication::postEvent(
        &comando, new QMouseEvent(tipo, comando.rect().center(), comando.mapToGlobal(comando.rect().center()),
                                  Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
  ConnettiECR(schermo, scena.contesto);
  QCoreApplication::sendPostedEvents();
  EXPECT_EQ(chiamateDi(cassa), (QStringList{QStringLiteral("2:"), QStringLiteral("0:")}));
  EXPECT_EQ(statoDi(schermo), (StatoLink{true, false, cassa.address()}));
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
