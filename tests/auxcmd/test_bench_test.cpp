#include "auxcmd/test_bench.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QRadioButton>
#include <QScopeGuard>
#include <QTest>
#include <algorithm>

#include "auxcmd/Form_ATTESA_MF_DGFE.h"
#include "auxcmd/channel.h"
#include "auxcmd/console_scene.h"
#include "platform/serial/serial_port.h"

namespace {

const QString kAvvio = QStringLiteral("Cmd_Avvio");
const QString kEsci = QStringLiteral("vkCommandEsci");

struct Attesa {
  int numero;
  const char* didascalia;
  const char* sequenza;
};

struct Banco {
  const char* schermata;
  const char* titolo;
  std::vector<Attesa> prove;
};

void PrintTo(const Banco& banco, std::ostream* output) {
  *output << banco.schermata;
}

const Banco kVendita{
    "Form_TestVendita",
    "Test comandi XON XOFF per la Vendita",
    {{1, "Vendita a reparto con descrizione e importo programmato", "1R"},
     {2, "Vendita a reparto con descrizione \"PROVA\" e importo programmato", "\"PROVA\"8R"},
     {3, "Vendita a reparto con descrizione \"PROVA\" e importo 1,23 euro", "\"PROVA\"123H7R"},
     {4, "Vendita a PLU con descrizione e importo programmato", "8P"},
     {5, "Vendita a PLU con descrizione \"ART\" e importo programmato", "\"ART\"8P"},
     {6, "Vendita a PLU con descrizione \"ART\" e importo 2,34 euro", "\"ART\"234H4P"},
     {7, "Vendita di 10 pz. dell'articolo con codice 2", "10*2P"},
     {8, "Vendita di 4,5 kg. dell'articolo con codice 4", "4,5*10P"},
     {9, "Inizio di uno scontrino con l'evidenza in automatico della quantità venduta:", "G100H1R"},
     {10, "Stampa e visualizzazione del subtotale di uno scontrino aperto", "100H1R="},
     {11, "Stampa di un codice numerico a scontrino aperto", "100H1R1234567890#"},
     {12, "Seleziona l'operatore", "3O"},
     {13, "Stampa messaggio alfanumerico PROMOZIONE in uno scontrino di vendita", "100H1R\"PROMOZIONE\"@"},
     {14, "Apertura/chiusura di uno scontrino non fiscale", "j\"PROVA\"@J"}}};

const Banco kModificatori{
    "Form_TestModificatori",
    "Form Test Modificatori",
    {{0, "Storno di 1,00 euro sul reparto 2", "0M100H2R"},
     {1, "Sconto del 10,00% sulla vendita di 2,00 euro sul reparto 2", "200H2R10,00*1M"},
     {2, "Sconto del 5.25% sul subtotale della transazione", "5,25*2M"},
     {3, "Sconto in ammontare di 0,50 euro sulla vendita di 2,50 euro sul reparto 3", "250H3R50H3M"},
     {4, "Sconto in ammontare di 0,25 euro sul subtotale della transazione", "25H4M"},
     {5, "Maggiorazione del 10,00% sulla vendita di 2,00 euro sul reparto 3", "200H3R10,00*5M"},
     {6, "Maggiorazione del 10,00% sul subtotale della transazione", "10,00*6M"},
     {7, "Maggiorazione  in ammontare di 0,40 euro sulla vendita di 1,23 euro sul reparto 4", "123H4R40H7M"},
     {8, "Maggiorazione di 0,35 euro sul subtotale della transazione", "35H8M"},
     {9, "Reso di 1,00 euro sul reparto 1", "9M100H1R"},
     {10, "Versamento in cassa di 0,10 euro in contanti", "10M10H1T"},
     {11, "Prelievo da cassa di un assegno di 0,20 euro", "11M20H2T"},
     {12, "Chiusura di uno scontrino di 1,00 euro sul reparto 1", "1,00H1R12M"}}};

const Banco kPagamento{
    "Form_TestPagamento",
    "Test sulle forme di pagamento",
    {{1, "Chiusura di uno scontino con subtotale pari a 10,00 euro in contanti", "1000H1T"},
     {2, "chiusura di uno scontino con subtotale pari a 10,00 euro con la forma di pagamento 2", "1000H2T"},
     {3, "Chiusura di uno scontino con subtotale pari a quanto dovuto con la forma di pagamento 3", "3T"},
     {4, "Chiusura di uno scontino con subtotale pari a 10,00 euro con la forma di pagamento 4", "1000H4T"},
     {5, "Chiusura di uno scontino a credito con subtotale pari a quanto dovuto", "5T"}}};

const Banco kUtilita{
    "Form_TestUtilità",
    "Test Utilità generali e rapporti",
    {{1, "Rapporto fiscale con ritorno del reg. di cassa in modalità vendita", "z1Fc"},
     {2, "Rapporto di lettura giornaliero con ritorno del reg. di cassa in modalità vendita", "x1Fc"},
     {3, "Rapporto di lettura dei reparti con ritorno del reg. di cassa in modalità vendita", "x2Fc"},
     {4, "Rapporto dei reparti in azzeramento con ritorno del reg. di cassa in modalità vendita", "z2Fc"},
     {5, "Rapporto finanziario in lettura con ritorno del reg. di cassa in modalità vendita", "x3Fc"},
     {6, "Rapporto finanziario in azzeramento con ritorno del reg. di cassa in modalità vendita", "z3Fc"},
     {7, "Rapporto operatori in lettura con ritorno del reg. di cassa in modalità vendita", "x4Fc"},
     {8, "Rapporto operatori in azzeramento e ritorno ECR in modalità vendita", "z3Fc"},
     {9, "Rapporto in azzeramento  reparto + rapporto  chiusura fiscale con ritorno ECR in modalità vendita",
      "z5Fc"},
     {10,
      "Rapporto IVA in azzeramento seguito dal rapporto di chiusura fiscale con ritorno ECR in modalità "
      "vendita",
      "z6Fc"},
     {11,
      "rapporto in azzeramento  reparti + rapporti IVA  azzeramento e di chiusura fiscale con ritornoECR in "
      "modalità vendita",
      "z7Fc"},
     {12, "Impostazione della p.i. 12345678903 prima della chiusura dello scontrino", "\"12345678903\"@39F "},
     {13, "scontrino completo autocertificante",
      "\"BNCLRA80A41F205K\"@39FG\"OCCHIALI DA VISTA\"12300H1R1T"}}};

class BancoDiProvaTest : public ConsoleScene {
 protected:
  GuidedScreen banco(const char* nome) { return {program, QString::fromUtf8(nome)}; }
  static QString opzione(int numero) { return QStringLiteral("vkOptionButtonTest_%1").arg(numero); }
  static void scegli(const GuidedScreen& schermo, int numero) {
    auto& bottone = schermo.control<QRadioButton>(opzione(numero));
    QTest::mouseClick(&bottone, Qt::LeftButton, Qt::NoModifier, QPoint(8, bottone.height() / 2));
    EXPECT_TRUE(bottone.isChecked()) << numero;
  }
  /// Ends the wait for a sequence as the timer would, once `quanto` has come in.
  void scadeA(const QByteArray& quanto) {
    steps.when([this, quanto] { return peer.received() == quanto; },
               [] { varGlobal().FlagRisposta = auxcmd::kTempoScaduto; });
  }
};

class OgniBanco : public BancoDiProvaTest, public testing::WithParamInterface<Banco> {
 protected:
  const Attesa& conNumero(int numero) const {
    return *std::ranges::find(GetParam().prove, numero, &Attesa::numero);
  }
};

}  // namespace

TEST_P(OgniBanco, HaTitoloEOpzioniESenzaSceltaNonMandaNiente) {
  KeysTill cassa;
  const GuidedScreen console = networkConsole(cassa.address());
  const GuidedScreen schermo = banco(GetParam().schermata);
  EXPECT_EQ(schermo.window().windowTitle(), QString::fromUtf8(GetParam().titolo));
  EXPECT_EQ(schermo.text(kAvvio), QStringLiteral("Avvia"));
  EXPECT_EQ(schermo.text(kEsci), QStringLiteral("Esci"));
  EXPECT_EQ(schermo.window().findChildren<QRadioButton*>().size(),
            static_cast<qsizetype>(GetParam().prove.size()));
  for (const Attesa& prova : GetParam().prove) {
    EXPECT_EQ(schermo.text(opzione(prova.numero)), QString::fromUtf8(prova.didascalia));
    EXPECT_FALSE(schermo.control<QRadioButton>(opzione(prova.numero)).isChecked());
  }
  schermo.click(kAvvio);
  expectBoxes(program, {});
  EXPECT_EQ(cassa.sequences(), QStringList());
}

TEST_P(OgniBanco, OgniOpzioneMandaLaSuaSequenzaUnaVolta) {
  KeysTill cassa;
  const GuidedScreen console = networkConsole(cassa.address());
  const GuidedScreen schermo = banco(GetParam().schermata);
  QStringList attese;
  for (const Attesa& prova : GetParam().prove) {
    scegli(schermo, prova.numero);
    schermo.click(kAvvio);
    attese << QString::fromUtf8(prova.sequenza);
    EXPECT_EQ(cassa.sequences(), attese);
    EXPECT_EQ(foot(schermo), QStringLiteral("Inviata la sequenza ") + attese.last());
  }
  expectBoxes(program, {});
}

TEST_P(OgniBanco, SullaPortaOgniOpzioneMandaLaSuaSequenzaESenzaSceltaNiente) {
  const GuidedScreen console = serialConsole();
  const GuidedScreen schermo = banco(GetParam().schermata);
  schermo.click(kAvvio);
  EXPECT_EQ(peer.received(), QByteArray());
  EXPECT_EQ(foot(schermo), QString());
  QByteArray attese;
  for (const Attesa& prova : GetParam().prove) {
    scegli(schermo, prova.numero);
    attese += prova.sequenza;
    scadeA(attese);
    schermo.click(kAvvio);
    EXPECT_EQ(peer.received(), attese);
    EXPECT_EQ(foot(schermo), QStringLiteral("Inviata la sequenza ") + QLatin1String(prova.sequenza));
  }
  expectBoxes(program, {});
}

TEST_P(OgniBanco, StaNelloSchermoADodiciPunti) {
  const GuidedScreen console = serialConsole();
  const GuidedScreen schermo = banco(GetParam().schermata);
  expectFitsAtTwelvePoints(schermo);
  for (const QRadioButton* una : schermo.window().findChildren<QRadioButton*>())
    EXPECT_GE(una->width(), una->sizeHint().width()) << una->text().toStdString();
}

TEST_P(OgniBanco, SoloQuelloDellaVenditaToglieLAttesaCheERimasta) {
  KeysTill cassa;
  const GuidedScreen console = networkConsole(cassa.address());
  const GuidedScreen schermo = banco(GetParam().schermata);
  auxcmd::MostraAttesa(program.contesto, console.window(), [] { ADD_FAILURE() << "closed by the person"; });
  scegli(schermo, 1);
  schermo.click(kAvvio);
  EXPECT_EQ(cassa.sequences(), QStringList(QString::fromUtf8(conNumero(1).sequenza)));
  EXPECT_EQ(open("Form_ATTESA_MF_DGFE"), QLatin1String(GetParam().schermata) != u"Form_TestVendita");
  auxcmd::ChiudiAttesa(program.contesto);
}

INSTANTIATE_TEST_SUITE_P(Di, OgniBanco, testing::Values(kVendita, kModificatori, kPagamento, kUtilita),
                         [](const auto& uno) {
                           return QString::fromUtf8(uno.param.schermata)
                               .replace(QStringLiteral("à"), QStringLiteral("a"))
                               .remove(u'_')
                               .toStdString();
                         });

TEST_F(BancoDiProvaTest, UnaDidascaliaTroppoLungaVaACapoERestaIntera) {
  const GuidedScreen console = serialConsole();
  const QFont prima = QApplication::font();
  QFont grande = prima;
  grande.setPointSize(12);
  QApplication::setFont(grande);
  const auto ridaIlCarattere = qScopeGuard([&] { QApplication::setFont(prima); });
  const GuidedScreen schermo = banco("Form_TestUtilità");
  EXPECT_LE(schermo.window().width(), 1024);
  const auto& breve = schermo.control<QRadioButton>(opzione(1));
  const auto& lunga = schermo.control<QRadioButton>(opzione(11));
  EXPECT_GT(lunga.height(), breve.height());
  EXPECT_GE(lunga.width(), lunga.sizeHint().width());
  EXPECT_EQ(lunga.text(), QString::fromUtf8(kUtilita.prove[10].didascalia));
}

TEST_F(BancoDiProvaTest, SullaPortaLoSpazioInFondoParteAncheLui) {
  const GuidedScreen console = serialConsole();
  const GuidedScreen schermo = banco("Form_TestUtilità");
  scegli(schermo, 12);
  scadeA("\"12345678903\"@39F ");
  schermo.click(kAvvio);
  EXPECT_EQ(peer.received(), "\"12345678903\"@39F ");
  EXPECT_EQ(schermo.focus(), kEsci);
  expectBoxes(program, {});
}

TEST_F(BancoDiProvaTest, SullaPortaLaSequenzaVaUnaVoltaEIlTempoEDiDueSecondi) {
  const GuidedScreen console = serialConsole();
  const GuidedScreen schermo = banco("Form_TestVendita");
  scegli(schermo, 8);
  QElapsedTimer cronometro;
  cronometro.start();
  // Data alone end no wait.
  peer.answers("10P", "testo della cassa");
  schermo.click(kAvvio);
  EXPECT_GE(cronometro.elapsed(), 1900);
  EXPECT_EQ(varGlobal().FlagRisposta, 100);
  EXPECT_EQ(peer.received(), "4,5*10P");
  EXPECT_EQ(varGlobal().BufferRisposta, QStringLiteral("testo della cassa"));
  EXPECT_EQ(varGlobal().BufferRx, QString());
  EXPECT_EQ(foot(schermo), QStringLiteral("Inviata la sequenza 4,5*10P"));
}

TEST_F(BancoDiProvaTest, DueClicDiSeguitoMandanoDueSequenzeIntereUnaDopoLAltra) {
  const GuidedScreen console = serialConsole();
  const GuidedScreen schermo = banco("Form_TestVendita");
  scegli(schermo, 11);
  steps.when([this] { return peer.received() == "100H1R1234567890#"; },
             [&] {
               EXPECT_TRUE(schermo.enabled(kAvvio)) << "stays on";
               scegli(schermo, 2);
               schermo.click(kAvvio);
               EXPECT_EQ(peer.received(), "100H1R1234567890#") << "waits for its turn";
               varGlobal().FlagRisposta = auxcmd::kTempoScaduto;
             });
  scadeA("100H1R1234567890#\"PROVA\"8R");
  schermo.click(kAvvio);
  EXPECT_EQ(peer.received(), "100H1R1234567890#\"PROVA\"8R");
  EXPECT_EQ(foot(schermo), QStringLiteral("Inviata la sequenza \"PROVA\"8R"));
  expectBoxes(program, {});
}

TEST_F(BancoDiProvaTest, ChiusaNelMezzoLaPortaSiLasciaELaCodaNonParte) {
  const GuidedScreen console = serialConsole();
  for (const bool colTasto : {false, true}) {
    const QByteArray prima = peer.received();
    modally("Form_TestVendita", [&](const GuidedScreen& schermo) {
      scegli(schermo, 1);
      steps.when([&] { return peer.received() == prima + "1R"; },
                 [&] {
                   schermo.click(kAvvio);
                   if (colTasto)
                     QTest::keyClick(&schermo.window(), Qt::Key_Escape);
                   else
                     schermo.click(kEsci);
                 });
      schermo.click(kAvvio);
      EXPECT_FALSE(schermo.alive());
    });
    EXPECT_EQ(peer.received(), prima + "1R");
    SerialPort altro;
    altro.open(peer.path(), 9600);
    EXPECT_TRUE(altro.isOpen());
  }
  EXPECT_TRUE(console.alive());
}

TEST_F(BancoDiProvaTest, SenzaPortaAvvisaAncheSenzaSceltaENonMandaNiente) {
  const GuidedScreen console = serialConsole();
  const GuidedScreen schermo = banco("Form_TestPagamento");
  console.control<QComboBox>("cboPort").setCurrentIndex(0);
  for (const int scelta : {0, 3}) {
    if (scelta > 0) scegli(schermo, scelta);
    schermo.click(kAvvio);
    expectBoxes(program, {box(QStringLiteral("Attenzione selezionare una porta COM valida"), Icon::Warning)});
  }
  EXPECT_EQ(peer.received(), QByteArray());
}

TEST_F(BancoDiProvaTest, UnaPortaSparitaSiDiceELaProssimaVoltaSiRiprova) {
  const GuidedScreen console = serialConsole();
  const GuidedScreen schermo = banco("Form_TestVendita");
  scegli(schermo, 1);
  peer.unplug();
  for (int volta = 0; volta < 2; ++volta) {
    schermo.click(kAvvio);
    expectBoxes(program, {criticalBox(QStringLiteral("Errore sulla porta COM: La porta %1 non c'è")
                                          .arg(app(QStringLiteral("Porte/COM7"))))});
  }
  EXPECT_TRUE(schermo.alive());
}

TEST_F(BancoDiProvaTest, ConDueInCodaUnaPortaSparitaSiDiceUnaVoltaSola) {
  const GuidedScreen console = serialConsole();
  const GuidedScreen schermo = banco("Form_TestVendita");
  scegli(schermo, 1);
  steps.when([this] { return peer.received() == "1R"; },
             [&] {
               schermo.click(kAvvio);
               schermo.click(kAvvio);
               peer.unplug();
             });
  schermo.click(kAvvio);
  expectBoxes(program, {criticalBox(QStringLiteral("Errore sulla porta COM: La porta %1 non c'è")
                                        .arg(app(QStringLiteral("Porte/COM7"))))});
}

TEST_F(BancoDiProvaTest, UnaPortaPresaDaUnAltroSiDice) {
  SerialPort altro;
  altro.open(peer.path(), 9600);
  const GuidedScreen console = serialConsole();
  const GuidedScreen schermo = banco("Form_TestVendita");
  scegli(schermo, 1);
  schermo.click(kAvvio);
  expectBoxes(program, {criticalBox(QStringLiteral("Errore sulla porta COM: Porta già aperta da un altro "
                                                   "programma: %1")
                                        .arg(peer.path()))});
}

TEST_F(BancoDiProvaTest, UnaPortaCheSparisceNelMezzoSiLeggeInFondo) {
  const GuidedScreen console = serialConsole();
  const GuidedScreen schermo = banco("Form_TestVendita");
  scegli(schermo, 1);
  steps.when([this] { return peer.received() == "1R"; }, [this] { peer.unplug(); });
  schermo.click(kAvvio);
  expectBoxes(program, {});
  EXPECT_EQ(foot(schermo), QStringLiteral("La linea si è interrotta dopo la sequenza 1R"));
}

TEST_F(BancoDiProvaTest, UnaSequenzaRifiutataSullaReteSiDice) {
  KeysTill cassa([](const std::string&) { return KeysAnswer{7, {}}; });
  const GuidedScreen console = networkConsole(cassa.address());
  const GuidedScreen schermo = banco("Form_TestVendita");
  scegli(schermo, 1);
  schermo.click(kAvvio);
  const QString testo =
      QStringLiteral("Errore nella comunicazione con ECR: Comando rifiutato nello stato attuale della cassa");
  expectBoxes(program, {criticalBox(testo)});
  EXPECT_EQ(foot(schermo), testo);
}

TEST_F(BancoDiProvaTest, LaPortaDellaConsoleSiLasciaAlBanco) {
  const GuidedScreen console = serialConsole();
  picks(console, {"vkOptionButton_RX_STATO_ECR"});
  peer.answers("X89F", "X89FMISQZ17700123FAG00123400005612.5100%OOP");
  console.click(QStringLiteral("Cmd_Avvia"));
  const GuidedScreen schermo = banco("Form_TestVendita");
  scegli(schermo, 1);
  scadeA("X89F1R");
  schermo.click(kAvvio);
  expectBoxes(program, {});
  EXPECT_EQ(peer.received(), "X89F1R");
}

TEST_F(BancoDiProvaTest, QuelloCheArrivaSiRaccoglieESiVedeSulleSpieDellaConsole) {
  const GuidedScreen console = serialConsole();
  const GuidedScreen schermo = banco("Form_TestVendita");
  scegli(schermo, 1);
  varGlobal().BufferRisposta = QStringLiteral("vecchia");
  peer.answers("1R", "@");
  steps.when([] { return varGlobal().BufferRisposta == QStringLiteral("@"); },
             [&] {
               EXPECT_EQ(console.control("LedDati").property("colore").value<QColor>(), QColor(0, 0xFF, 0));
               varGlobal().FlagRisposta = auxcmd::kTempoScaduto;
             });
  schermo.click(kAvvio);
  EXPECT_EQ(varGlobal().BufferRisposta, QStringLiteral("@"));
}

TEST_F(BancoDiProvaTest, InvioEF9AvvianoEdEscEsce) {
  KeysTill cassa;
  const GuidedScreen console = networkConsole(cassa.address());
  const GuidedScreen schermo = banco("Form_TestVendita");
  scegli(schermo, 4);
  schermo.key(Qt::Key_Return);
  schermo.key(Qt::Key_F9);
  EXPECT_EQ(cassa.sequences(), texts({"8P", "8P"}));
  QTest::keyClick(&schermo.window(), Qt::Key_Escape);
  EXPECT_FALSE(schermo.alive());
  EXPECT_GT(commonForKora().hConnXonXoff, 0) << "the console stays connected";
}
