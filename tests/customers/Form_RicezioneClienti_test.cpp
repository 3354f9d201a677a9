#include "customers/Form_RicezioneClienti.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QRadioButton>
#include <algorithm>

#include "controls/outcome_bar.h"
#include "customers/customer_database.h"
#include "customers/office.h"
#include "customers/till_files.h"
#include "ecrlink/painted_steps.h"
#include "ecrlink/transfer_lock.h"
#include "sostegno/guided_screen.h"
#include "sostegno/troubles.h"

namespace {

using Kind = OutcomeBar::Kind;

const QString kSchermo = QStringLiteral("Form_RicezioneClienti");
const QString kAvvia = QStringLiteral("Cmd_Avvia");
const QString kEsci = QStringLiteral("Cmd_Esci");
const QString kConnetti = QStringLiteral("CmdInviaModECR");
const QString kBarra = QStringLiteral("vkBar1");
const QString kOpzioneFatture = QStringLiteral("vkOptionButtonFatture");
const QString kOpzioneClienti = QStringLiteral("vkOptionButtonClienti");
const QString kOpzioneCancella = QStringLiteral("vkOptionButtonCancellaFatture");
const QString kFatture = QStringLiteral("fatture.bin");
const QString kClienti = QStringLiteral("clienti.bin");

const Box kFattureRicevute =
    box(QStringLiteral("ARCHIVIO DELLE FATTURE CORRETTAMENTE RICEVUTO"), Icon::Warning);
const Box kClientiRicevuti =
    box(QStringLiteral("ARCHIVIO DEI CLIENTI CORRETTAMENTE RICEVUTO"), Icon::Warning);
const Box kAzzerate =
    box(QStringLiteral("ARCHIVIO DELLE FATTURE AZZERATO CORRETTAMENTE SULLA CASSA"), Icon::Warning);
const Box kComunicazione = box(QStringLiteral("Errore nella comunicazione con ECR: *"), Icon::Critical);
const Box kErroreFatture =
    box(QStringLiteral("Errore nell'invio richiesta dati delle fatture"), Icon::Warning);
const Box kErroreClienti = box(QStringLiteral("Errore nell'invio richiesta dati dei clienti"), Icon::Warning);
const Box kErrore = box(QStringLiteral("Errore durante la trasferimento/ricezione "), Icon::Warning);

const InvoicePlace kUna{.place = 1,
                        .type = 1,
                        .customer = 3,
                        .holder = "ROSSI MARIO",
                        .moment = tillMoment(7, 3, 24, 9, 5, 6),
                        .total = 12345};

class RicezioneDeiClienti : public testing::Test {
 protected:
  RicezioneDeiClienti() {
    ufficio.screens.registra<Form_RicezioneClienti>();
    cassa.put(kFatture, invoicesFile({}));
    cassa.put(kClienti, customersFile({}));
  }

  GuidedScreen aperto() {
    if (!varGlobal().DB_Clienti.isOpen()) ufficio.openArchive();
    return {ufficio, kSchermo};
  }
  GuidedScreen pronto() {
    GuidedScreen schermo = aperto();
    schermo.connectTo(cassa);
    EXPECT_TRUE(schermo.enabled(kAvvia));
    return schermo;
  }
  int chiamate(int modo) {
    const auto tutte = cassa->calls();
    return static_cast<int>(std::ranges::count(tutte, modo, &ecrsim::Call::mode));
  }
  QString fatture() { return ufficio.value(QStringLiteral("SELECT count(*) from TAB_FATTURE")); }
  QStringList anagrafica() {
    return ufficio.rows(QStringLiteral("SELECT * from TAB_ANAG_CLIENTI order by ID_Cliente"));
  }
  static bool scelta(const GuidedScreen& schermo, const QString& opzione) {
    return schermo.control<QRadioButton>(opzione).isChecked();
  }
  /// Which of the three commands are on: start, exit, "Connetti".
  static QString accesi(const GuidedScreen& schermo) {
    QString quali;
    if (schermo.enabled(kAvvia)) quali += u'A';
    if (schermo.enabled(kEsci)) quali += u'E';
    if (schermo.enabled(kConnetti)) quali += u'C';
    return quali;
  }
  static void attendiPiede(const GuidedScreen& schermo, Kind genere, const QString& testo) {
    EXPECT_EQ(schermo.control<OutcomeBar>("BarraEsito").text(), testo);
    EXPECT_EQ(schermo.control<OutcomeBar>("BarraEsito").kind(), genere);
  }

  Office ufficio;
  TestTill cassa;
};

}  // namespace

TEST_F(RicezioneDeiClienti, AllAperturaLeTreOpzioniSonoScritteEAvviaESpento) {
  const GuidedScreen schermo = aperto();
  EXPECT_EQ(schermo.window().windowTitle(), QStringLiteral("Ricezione archivio clienti e/o fatture"));
  EXPECT_EQ(schermo.text(kOpzioneFatture), QStringLiteral("Ricezione archivio Fatture"));
  EXPECT_EQ(schermo.text(kOpzioneClienti), QStringLiteral("Ricezione archivio Clienti"));
  EXPECT_EQ(schermo.text(kOpzioneCancella), QStringLiteral("Cancellazione archivio Fatture della Cassa"));
  EXPECT_TRUE(scelta(schermo, kOpzioneFatture));
  EXPECT_EQ(schermo.text(QStringLiteral("LabelArchivio")), QStringLiteral("Archivio: clienti.mdb"));
  EXPECT_EQ(schermo.text(QStringLiteral("vkTextBoxIP_ECR")), QStringLiteral("192.168.0.20"));
  EXPECT_EQ(schermo.control<QProgressBar>(kBarra).text(), QString());
  EXPECT_EQ(accesi(schermo), QStringLiteral("EC"));
  EXPECT_EQ(schermo.focus(), QStringLiteral("vkTextBoxIP_ECR"));
}

TEST_F(RicezioneDeiClienti, LeOpzioniSiEscludonoELaSceltaSopravviveAlloSchermo) {
  {
    const GuidedScreen schermo = aperto();
    EXPECT_FALSE(customers::statoClienti().ricezioneClienti);
    schermo.click(kOpzioneClienti);
    EXPECT_TRUE(customers::statoClienti().ricezioneClienti);
    EXPECT_FALSE(scelta(schermo, kOpzioneFatture));
    schermo.click(kOpzioneCancella);
    EXPECT_FALSE(customers::statoClienti().ricezioneClienti);
    EXPECT_FALSE(scelta(schermo, kOpzioneClienti));
    schermo.click(kOpzioneClienti);
    schermo.click(kEsci);
  }
  EXPECT_TRUE(customers::statoClienti().ricezioneClienti);
  const GuidedScreen ancora = aperto();
  EXPECT_TRUE(scelta(ancora, kOpzioneClienti));
  EXPECT_FALSE(scelta(ancora, kOpzioneFatture));
}

TEST_F(RicezioneDeiClienti, AccantoACioCheDistruggeSiLeggeInRossoCheCosaSiPerde) {
  const GuidedScreen schermo = aperto();
  for (const auto& [nome, opzione, perdita] :
       {std::tuple{"LabelPerditaFatture", kOpzioneCancella,
                   QStringLiteral("Le fatture della cassa vanno perse: non entrano nell'archivio.")},
        std::tuple{"LabelPerditaClienti", kOpzioneClienti,
                   QStringLiteral("I clienti che la cassa non ha più vengono eliminati dall'archivio.")}}) {
    const auto& frase = schermo.control<QLabel>(nome);
    const QWidget& scelta = schermo.control(opzione);
    EXPECT_EQ(frase.text(), perdita);
    EXPECT_TRUE(frase.property("danger").toBool());
    EXPECT_TRUE(frase.isVisible());
    EXPECT_EQ(scelta.accessibleDescription(), perdita);
    // On its line, behind it.
    EXPECT_GE(frase.mapTo(&schermo.window(), QPoint()).x(),
              scelta.mapTo(&schermo.window(), QPoint(scelta.width(), 0)).x());
    EXPECT_LT(frase.mapTo(&schermo.window(), QPoint()).y(),
              scelta.mapTo(&schermo.window(), QPoint(0, scelta.height())).y());
  }
}

// The three operations.

TEST_F(RicezioneDeiClienti, LeFattureEntranoNellArchivioELaCassaLeConserva) {
  cassa.put(kFatture, invoicesFile({kUna}));
  const GuidedScreen schermo = pronto();
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_EQ(fatture(), QStringLiteral("1"));
  EXPECT_TRUE(cassa.byte(kFatture) == invoicesFile({kUna}));
  EXPECT_EQ(chiamate(4), 0);
  attendiPiede(schermo, Kind::Done,
               QStringLiteral("Ricevuti 77.000 byte. 1 fattura nuova, 0 già presenti, 1 cliente da "
                              "completare."));
  EXPECT_EQ(schermo.control<QProgressBar>(kBarra).maximum(), 1000);
  EXPECT_EQ(schermo.control<QProgressBar>(kBarra).text(), QStringLiteral("100%"));
  EXPECT_EQ(schermo.focus(), kEsci);
  EXPECT_FALSE(cassa->transferOpen());
}

TEST_F(RicezioneDeiClienti, IClientiEntranoNellArchivio) {
  cassa.put(kClienti, customersFile({{.code = 4, .name = "QUATTRO"}}));
  const GuidedScreen schermo = pronto();
  ufficio.customer(1, QStringLiteral("UNO"));
  schermo.click(kOpzioneClienti);
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kClientiRicevuti});
  EXPECT_EQ(anagrafica(), (QStringList{QStringLiteral("0||||||1"), QStringLiteral("4|QUATTRO|||||1")}));
  EXPECT_EQ(chiamate(7), 1);
  attendiPiede(schermo, Kind::Done,
               QStringLiteral("Ricevuti 44.250 byte. Clienti: 1 nuovo, 0 aggiornati, 1 eliminato."));
  EXPECT_EQ(schermo.control<QProgressBar>(kBarra).maximum(), 250);
}

TEST_F(RicezioneDeiClienti, LaCancellazioneAzzeraLaCassaENullaCambiaNellArchivio) {
  cassa.put(kFatture, invoicesFile({kUna}));
  const GuidedScreen schermo = pronto();
  ufficio.invoice(0, QStringLiteral("2024/1"), QStringLiteral("01/02/2024 10:00:00"), 500);
  schermo.click(kOpzioneCancella);
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kAzzerate});
  EXPECT_EQ(chiamate(4), 1);
  EXPECT_EQ(chiamate(7), 0);
  EXPECT_TRUE(cassa.byte(kFatture) == QByteArray(77000, '\0'));
  EXPECT_EQ(fatture(), QStringLiteral("1"));
  attendiPiede(schermo, Kind::Done, QStringLiteral("Azzerate le fatture della cassa ") + cassa.address());
  EXPECT_EQ(schermo.control<QProgressBar>(kBarra).value(), 0);
  EXPECT_EQ(schermo.control<QProgressBar>(kBarra).text(), QString());
}

TEST_F(RicezioneDeiClienti, RicevereDueVolteNonAggiungeNulla) {
  cassa.put(kFatture, invoicesFile(thousandInvoices()));
  const GuidedScreen schermo = pronto();
  schermo.click(kAvvia);
  attendiPiede(schermo, Kind::Done,
               QStringLiteral("Ricevuti 77.000 byte. 1.000 fatture nuove, 0 già presenti, 250 clienti da "
                              "completare."));
  schermo.click(kAvvia);
  attendiPiede(schermo, Kind::Done,
               QStringLiteral("Ricevuti 77.000 byte. 0 fatture nuove, 1.000 già presenti."));
  expectBoxes(ufficio, {kFattureRicevute, kFattureRicevute});
  EXPECT_EQ(fatture(), QStringLiteral("1000"));
}

TEST_F(RicezioneDeiClienti, SenzaSceltaNullaParteEIComandiTornano) {
  const GuidedScreen schermo = pronto();
  auto& opzione = schermo.control<QRadioButton>(kOpzioneFatture);
  opzione.setAutoExclusive(false);
  opzione.setChecked(false);
  const qsizetype prima = callsOf(cassa).size();
  schermo.click(kAvvia);
  EXPECT_EQ(callsOf(cassa).size(), prima);
  attendiPiede(schermo, Kind::Warning, QStringLiteral("Scegliere prima una delle opzioni."));
  EXPECT_EQ(accesi(schermo), QStringLiteral("AE"));
}

TEST_F(RicezioneDeiClienti, ConPiuOpzioniValeLOrdineCancellazioneFattureClienti) {
  const GuidedScreen schermo = pronto();
  for (const QString& nome : {kOpzioneFatture, kOpzioneClienti, kOpzioneCancella}) {
    schermo.control<QRadioButton>(nome).setAutoExclusive(false);
    schermo.control<QRadioButton>(nome).setChecked(true);
  }
  schermo.click(kAvvia);
  schermo.control<QRadioButton>(kOpzioneCancella).setChecked(false);
  schermo.click(kAvvia);
  schermo.control<QRadioButton>(kOpzioneFatture).setChecked(false);
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kAzzerate, kFattureRicevute, kClientiRicevuti});
}

// The commands.

TEST_F(RicezioneDeiClienti, TuttiETreIComandiSonoSpentiMentreLavoraEClicEscEChiusuraNonFannoNulla) {
  cassa.put(kFatture, invoicesFile({kUna}));
  const GuidedScreen schermo = pronto();
  bool spenti = true;
  ufficio.user.onPass = [&] {
    spenti = spenti && accesi(schermo).isEmpty();
    schermo.impatience();
  };
  schermo.click(kAvvia);
  ufficio.user.onPass = nullptr;
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_TRUE(spenti);
  EXPECT_GE(ufficio.user.passes(), 1000);
  EXPECT_EQ(chiamate(7), 1);
  EXPECT_TRUE(schermo.alive());
  EXPECT_TRUE(varGlobal().DB_Clienti.isOpen());
}

TEST_F(RicezioneDeiClienti, DopoLaRiuscitaAvviaEdEsciTornanoEConnettiRestaSpentoComeDaCollegati) {
  const GuidedScreen schermo = pronto();
  EXPECT_EQ(accesi(schermo), QStringLiteral("AE"));
  for (const QString& opzione : {kOpzioneFatture, kOpzioneClienti, kOpzioneCancella}) {
    schermo.click(opzione);
    schermo.click(kAvvia);
    EXPECT_EQ(accesi(schermo), QStringLiteral("AE")) << opzione.toStdString();
  }
  expectBoxes(ufficio, {kFattureRicevute, kClientiRicevuti, kAzzerate});
}

TEST_F(RicezioneDeiClienti, ConUnaCassaCheNonSiERaccontataConnettiTornaDopoLaRiuscita) {
  const GuidedScreen schermo = aperto();
  cassa->faults({{.mode = 0, .times = 1}});
  schermo.connectTo(cassa);
  expectBoxes(ufficio, {kComunicazione});
  ASSERT_EQ(accesi(schermo), QStringLiteral("AEC"));
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_EQ(accesi(schermo), QStringLiteral("AEC"));
}

TEST_F(RicezioneDeiClienti, DopoUnCaricamentoFallitoTornaLaSolaUscitaELoSchermoResta) {
  InvoicePlace guasta = kUna;
  guasta.holder = "DALL'ORTO";
  cassa.put(kFatture, invoicesFile({guasta}));
  const GuidedScreen schermo = pronto();
  schermo.click(kAvvia);
  expectBoxes(ufficio,
              {criticalBox(QStringLiteral("Errore nel caricamento dati nella TAB_FATTURE n° 3075\n*"))});
  EXPECT_TRUE(schermo.alive());
  EXPECT_EQ(accesi(schermo), QStringLiteral("E"));
  EXPECT_EQ(schermo.focus(), kEsci);
  EXPECT_EQ(ufficio.workspace.level(), 0);
  EXPECT_NE(schermo.control<QProgressBar>(kBarra).text(), QStringLiteral("100%"));
  attendiPiede(schermo, Kind::Failed,
               QStringLiteral("Ricevuti 77.000 byte. Nulla è stato scritto nell'archivio."));
  EXPECT_EQ(schermo.control(kAvvia).toolTip(),
            QStringLiteral("L'ultimo comando non è riuscito: uscire e rientrare per ripeterlo"));
}

TEST_F(RicezioneDeiClienti, DopoUnCaricamentoFallitoUscendoERientrandoSiRiceve) {
  cassa.put(kClienti, customersFile({{.code = 1, .name = "L'AQUILA"}}));
  {
    const GuidedScreen schermo = pronto();
    schermo.click(kOpzioneClienti);
    schermo.click(kAvvia);
    expectBoxes(
        ufficio,
        {criticalBox(QStringLiteral("Errore nel caricamento dati nella TAB_ANAG_CLIENTI n° 3075\n*"))});
    EXPECT_EQ(accesi(schermo), QStringLiteral("E"));
    schermo.click(kEsci);
  }
  cassa.put(kClienti, customersFile({{.code = 1, .name = "LAQUILA"}}));
  const GuidedScreen ancora = pronto();
  ancora.click(kAvvia);
  expectBoxes(ufficio, {kClientiRicevuti});
  EXPECT_EQ(anagrafica().last(), QStringLiteral("1|LAQUILA|||||1"));
}

TEST_F(RicezioneDeiClienti, UnClienteCheNonSiPuoCreareSiDiceColSuoMessaggio) {
  cassa.put(kFatture, invoicesFile({kUna}));
  const GuidedScreen schermo = pronto();
  ufficio.execute(QStringLiteral("DROP TABLE TAB_ANAG_CLIENTI"));
  schermo.click(kAvvia);
  expectBoxes(ufficio,
              {criticalBox(QStringLiteral("Errore nel caricamento cliente dai dati fatture n° 3078\n*"))});
  EXPECT_TRUE(schermo.alive());
  EXPECT_EQ(accesi(schermo), QStringLiteral("E"));
}

TEST_F(RicezioneDeiClienti, UnaRichiestaRifiutataRiaccendeLUscitaPrimaDellUltimoRiquadroEChiude) {
  const GuidedScreen schermo = pronto();
  cassa->faults({{.mode = 7}});
  QStringList alRiquadro;
  ufficio.user.onBox = [&](const Box&) { alRiquadro << accesi(schermo); };
  schermo.click(kAvvia);
  ufficio.user.onBox = nullptr;
  expectBoxes(ufficio, {kComunicazione, kErroreFatture, kErrore});
  EXPECT_EQ(alRiquadro, (QStringList{QString(), QString(), QStringLiteral("E")}));
  EXPECT_FALSE(schermo.alive());
}

TEST_F(RicezioneDeiClienti, EsciRiportaAllaGestioneDeiClienti) {
  ufficio.screens.registra(QStringLiteral("Form_GestioneClienti"), [](Contesto&) { return new QWidget; });
  const GuidedScreen schermo = aperto();
  schermo.click(kEsci);
  EXPECT_FALSE(schermo.alive());
  ASSERT_NE(ufficio.screens.trova(QStringLiteral("Form_GestioneClienti")), nullptr);
}

TEST_F(RicezioneDeiClienti, F9FaCioCheESceltoEInvioNo) {
  const GuidedScreen schermo = pronto();
  EXPECT_EQ(schermo.control(kAvvia).toolTip(), QStringLiteral("Avvia l'operazione scelta (F9)"));
  schermo.click(kOpzioneCancella);
  schermo.control(kOpzioneCancella).setFocus();
  for (int i = 0; i < 3; ++i) schermo.key(Qt::Key_Return);
  EXPECT_EQ(chiamate(4), 0);
  EXPECT_TRUE(schermo.alive());
  schermo.key(Qt::Key_F9);
  expectBoxes(ufficio, {kAzzerate});
  EXPECT_EQ(chiamate(4), 1);
}

TEST_F(RicezioneDeiClienti, OgniPassoSiLeggePrimaDellaSuaChiamata) {
  const GuidedScreen schermo = pronto();
  const qsizetype prima = callsOf(cassa).size();
  PaintedSteps dipinti(schermo.window());
  QStringList fatte;
  dipinti.onStep = [&] { fatte << callsOf(cassa).mid(prima).join(u' '); };
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_EQ(dipinti.steps(), (QStringList{QStringLiteral("Apertura del trasferimento … (fino a 5 s)"),
                                          QStringLiteral("Richiesta delle fatture … (fino a 5 s)"),
                                          QStringLiteral("Chiusura del trasferimento … (fino a 5 s)")}));
  EXPECT_EQ(fatte, (QStringList{QString(), QStringLiteral("1:"), QStringLiteral("1: 7:fatture.bin")}));
}

TEST_F(RicezioneDeiClienti, ADodiciPuntiStaIn1024SenzaTagliareDidascalie) {
  const GuidedScreen schermo = pronto();
  expectFitsAtTwelvePoints(schermo);
}

// The files and the folder.

TEST_F(RicezioneDeiClienti, DiUnFileCortoODiUnoLungoSiDice) {
  const GuidedScreen schermo = pronto();
  cassa.put(kFatture, invoicesFile({kUna}).left(77));
  schermo.click(kAvvia);
  attendiPiede(schermo, Kind::Warning,
               QStringLiteral("Ricevuti 77 byte invece di 77.000. I posti che mancano contano come vuoti. 1 "
                              "fattura nuova, 0 già presenti, 1 cliente da completare."));
  cassa.put(kFatture, invoicesFile({kUna}) + "xx");
  schermo.click(kAvvia);
  attendiPiede(schermo, Kind::Warning,
               QStringLiteral("Ricevuti 77.002 byte invece di 77.000. Quelli in più non sono stati letti. 0 "
                              "fatture nuove, 1 già presente."));
  expectBoxes(ufficio, {kFattureRicevute, kFattureRicevute});
}

TEST_F(RicezioneDeiClienti, UnFileDeiClientiCortoSiRifiutaENessunoSparisce) {
  const GuidedScreen schermo = pronto();
  ufficio.customer(200, QStringLiteral("RESTA"));
  cassa.put(kClienti, customersFile({}).left(1000));
  schermo.click(kOpzioneClienti);
  schermo.click(kAvvia);
  expectBoxes(ufficio,
              {criticalBox(QStringLiteral("Errore nel caricamento dati nella TAB_ANAG_CLIENTI n° 62\n"
                                          "Lettura oltre la fine del file: clienti.bin"))});
  EXPECT_EQ(anagrafica().last(), QStringLiteral("200|RESTA|||||1"));
  attendiPiede(schermo, Kind::Failed,
               QStringLiteral("Ricevuti 1.000 byte invece di 44.250. Nulla è stato scritto nell'archivio."));
}

TEST_F(RicezioneDeiClienti, IlFileDiIeriNonPassaPerQuelloDiOggi) {
  const GuidedScreen schermo = pronto();
  ufficio.folder.write(kFatture, invoicesFile({kUna}));
  cassa->faults({{.mode = 7}});
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kComunicazione, kErroreFatture, kErrore});
  EXPECT_EQ(fatture(), QStringLiteral("0"));
  EXPECT_FALSE(QFile::exists(kFatture));
}

TEST_F(RicezioneDeiClienti, SeIlFileNonSiPuoScrivereSulPcSiDiceELoSchermoSiChiude) {
  const GuidedScreen schermo = pronto();
  ASSERT_TRUE(QDir().mkdir(ufficio.folder.file(kFatture)));
  schermo.click(kAvvia);
  expectBoxes(ufficio, {plainBox(QStringLiteral("Error 75 (*")), kErroreFatture, kErrore});
  EXPECT_EQ(chiamate(7), 0);
  EXPECT_FALSE(schermo.alive());
}

TEST_F(RicezioneDeiClienti, ConUnAltroProgrammaAlLavoroNullaSiTocca) {
  cassa.put(kFatture, invoicesFile({kUna}));
  {
    const GuidedScreen schermo = pronto();
    const ecrlink::ScambioEsclusivo altro;
    schermo.click(kAvvia);
    expectBoxes(ufficio, {plainBox(QStringLiteral("Error 70 (*")), kErroreFatture, kErrore});
    EXPECT_FALSE(schermo.alive());
  }
  const GuidedScreen schermo = pronto();
  schermo.click(kOpzioneCancella);
  const ecrlink::ScambioEsclusivo altro;
  schermo.click(kAvvia);
  expectBoxes(ufficio, {box(QStringLiteral("Un altro programma sta scambiando dati con una cassa nella "
                                           "cartella *"),
                            Icon::Warning),
                        kErrore});
  EXPECT_EQ(chiamate(4), 0);
  EXPECT_EQ(chiamate(7), 0);
  EXPECT_TRUE(cassa.byte(kFatture) == invoicesFile({kUna}));
}

TEST_F(RicezioneDeiClienti, LaCartellaELiberaAiRiquadriDopoLaCassa) {
  const GuidedScreen schermo = pronto();
  std::vector<bool> libera;
  ufficio.user.onBox = [&](const Box&) {
    try {
      const ecrlink::ScambioEsclusivo altro;
      libera.push_back(true);
    } catch (const Errore&) {
      libera.push_back(false);
    }
  };
  for (const QString& opzione : {kOpzioneFatture, kOpzioneClienti, kOpzioneCancella}) {
    schermo.click(opzione);
    schermo.click(kAvvia);
  }
  ufficio.user.onBox = nullptr;
  expectBoxes(ufficio, {kFattureRicevute, kClientiRicevuti, kAzzerate});
  EXPECT_EQ(libera, (std::vector{true, true, true}));
}

TEST_F(RicezioneDeiClienti, SulDiscoPienoIlFileNonArrivaELArchivioRestaComEra) {
  const GuidedScreen schermo = pronto();
  {
    const FullDisk pieno(1000);
    schermo.click(kAvvia);
  }
  expectBoxes(ufficio, {kComunicazione, kErroreFatture, kErrore});
  EXPECT_EQ(fatture(), QStringLiteral("0"));
}

// The till in each state, and its faults.

namespace {

class RicezioneClientiNelloStato : public RicezioneDeiClienti, public testing::WithParamInterface<char> {};

struct CasoGuasto {
  /// The option, by its caption.
  const char* opzione;
  int modo;
  ecrsim::FaultKind cosa;
};
void PrintTo(const CasoGuasto& caso, std::ostream* uscita) {
  *uscita << caso.opzione << " " << faultName(caso.modo, caso.cosa);
}
class RicezioneClientiConGuasto : public RicezioneDeiClienti,
                                  public testing::WithParamInterface<CasoGuasto> {};

constexpr const char* kNomi[] = {"Fatture", "Clienti", "CancellaFatture"};

std::vector<CasoGuasto> tuttiIGuasti() {
  using ecrsim::FaultKind;
  std::vector<CasoGuasto> casi;
  for (const char* const opzione : kNomi)
    for (const int modo : {1, 2, opzione == kNomi[2] ? 4 : 7})
      for (const FaultKind cosa : {FaultKind::Code, FaultKind::Silence, FaultKind::CutBefore,
                                   FaultKind::CutWithin, FaultKind::CutAfter, FaultKind::Garbage})
        casi.push_back({opzione, modo, cosa});
  return casi;
}

}  // namespace

TEST_P(RicezioneClientiNelloStato, CheNonAmmetteTrasferimentiAvviaRestaSpento) {
  cassa->state(GetParam());
  const GuidedScreen schermo = aperto();
  schermo.connectTo(cassa);
  expectBoxes(ufficio,
              {criticalBox(QStringLiteral("Funzione non disponibile! Prego porre la cassa nello stato "
                                          "di IDLE o PROGRAMMAZIONE"))});
  schermo.click(kAvvia);
  EXPECT_EQ(chiamate(7), 0);
}

INSTANTIATE_TEST_SUITE_P(Stati, RicezioneClientiNelloStato, testing::Values('V', 'A', 'L'));

TEST_P(RicezioneClientiConGuasto, SiDiceLoSchermoSiChiudeELArchivioRestaComEra) {
  const ShortTimeouts breve;
  cassa.put(kFatture, invoicesFile({kUna}));
  cassa.put(kClienti, customersFile({{.code = 9, .name = "NOVE"}}));
  const GuidedScreen schermo = pronto();
  ufficio.customer(1, QStringLiteral("UNO"));
  const QStringList prima = anagrafica();
  cassa->faults({{.mode = GetParam().modo, .what = GetParam().cosa}});
  const QString opzione = QStringLiteral("vkOptionButton") + QLatin1String(GetParam().opzione);
  schermo.click(opzione);
  schermo.click(kAvvia);
  if (opzione == kOpzioneFatture)
    expectBoxes(ufficio, {kComunicazione, kErroreFatture, kErrore});
  else if (opzione == kOpzioneClienti)
    expectBoxes(ufficio, {kComunicazione, kErroreClienti, kErrore});
  else
    expectBoxes(ufficio, {kComunicazione, kErrore});
  EXPECT_FALSE(schermo.alive());
  EXPECT_EQ(fatture(), QStringLiteral("0"));
  EXPECT_EQ(anagrafica(), prima);
  EXPECT_EQ(ufficio.workspace.level(), 0);
  if (opzione != kOpzioneCancella) {
    EXPECT_TRUE(cassa.byte(kFatture) == invoicesFile({kUna}));
  }
}

INSTANTIATE_TEST_SUITE_P(Guasti, RicezioneClientiConGuasto, testing::ValuesIn(tuttiIGuasti()),
                         [](const testing::TestParamInfo<CasoGuasto>& caso) {
                           return caso.param.opzione + faultName(caso.param.modo, caso.param.cosa);
                         });

TEST_F(RicezioneDeiClienti, UnFileAccorciatoOAllungatoDallaCassaNonRovinaLArchivio) {
  cassa.put(kFatture, invoicesFile({kUna}));
  cassa.put(kClienti, customersFile({{.code = 1, .name = "UNO"}}));
  const GuidedScreen schermo = pronto();
  ufficio.customer(250, QStringLiteral("ULTIMO"));
  cassa->faults({{.mode = 7, .what = ecrsim::FaultKind::ShortFile}});
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_EQ(fatture(), QStringLiteral("1"));
  cassa->faults({{.mode = 7, .what = ecrsim::FaultKind::LongFile}});
  schermo.click(kAvvia);
  schermo.click(kOpzioneClienti);
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kFattureRicevute, kClientiRicevuti});
  EXPECT_EQ(fatture(), QStringLiteral("1"));
  EXPECT_EQ(anagrafica(), (QStringList{QStringLiteral("0||||||1"), QStringLiteral("1|UNO|||||1")}));
  ufficio.customer(250, QStringLiteral("ULTIMO"));
  cassa->faults({{.mode = 7, .what = ecrsim::FaultKind::ShortFile}});
  schermo.click(kAvvia);
  expectBoxes(ufficio,
              {criticalBox(QStringLiteral("Errore nel caricamento dati nella TAB_ANAG_CLIENTI n° 62\n*"))});
  EXPECT_EQ(anagrafica().last(), QStringLiteral("250|ULTIMO|||||1"));
}
