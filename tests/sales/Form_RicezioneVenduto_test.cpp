#include "sales/Form_RicezioneVenduto.h"

#include <gmock/gmock.h>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <algorithm>

#include "articles/article_database.h"
#include "articles/back_room.h"
#include "controls/outcome_bar.h"
#include "ecrlink/painted_steps.h"
#include "sostegno/guided_screen.h"
#include "sostegno/troubles.h"

namespace {

using testing::Each;

const QString kSchermo = QStringLiteral("Form_RicezioneVenduto");
const QString kAvvia = QStringLiteral("Cmd_Avvia");
const QString kEsci = QStringLiteral("Cmd_Esci");
const QString kConnetti = QStringLiteral("CmdInviaModECR");
const QString kBarra = QStringLiteral("vkBar1");
const QString kGlobale = QStringLiteral("vkOptionButtonGlobale");
const QString kReset = QStringLiteral("vkOptionButtonReset");
const QString kFile = QStringLiteral("venduto.bin");
/// A folder that anybody writes to.
constexpr QFile::Permissions kDiTutti = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                        QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
const QByteArray kZeri(60000, '\0');

const Box kRicevuto =
    box(QStringLiteral("ARCHIVIO DEL VENDUTO RICEVUTO E AZZERATO CORRETTAMENTE SULLA CASSA"), Icon::Warning);
const Box kAzzerato =
    box(QStringLiteral("ARCHIVIO DEL VENDUTO AZZERATO CORRETTAMENTE SULLA CASSA"), Icon::Warning);
const Box kComunicazione = box(QStringLiteral("Errore nella comunicazione con ECR: *"), Icon::Critical);
const Box kErroreDati = box(QStringLiteral("Errore nell'invio richiesta dati del venduto"), Icon::Warning);
const Box kErroreReset =
    box(QStringLiteral("Errore nell'invio richiesta reset dati del venduto"), Icon::Warning);
const Box kErrore = box(QStringLiteral("Errore durante la trasmissione/ricezione. "), Icon::Warning);

Box caricamento(const QString& numero) {
  return box(QStringLiteral("Errore nel caricamento dati nella TAB_VENDUTO n° ") + numero, Icon::Critical);
}

class RicezioneVenduto : public testing::Test {
 protected:
  RicezioneVenduto() { bottega.screens.registra<Form_RicezioneVenduto>(); }

  GuidedScreen pronto() {
    if (!varGlobal().DB_Articoli.isOpen()) bottega.openArchive();
    GuidedScreen schermo(bottega, kSchermo);
    schermo.connectTo(cassa);
    EXPECT_TRUE(schermo.enabled(kAvvia));
    return schermo;
  }
  int venduti() { return bottega.rows(QStringLiteral("SELECT * from TAB_VENDUTO")); }
  int chiamate(int modo) {
    const auto tutte = cassa->calls();
    return static_cast<int>(std::ranges::count(tutte, modo, &ecrsim::Call::mode));
  }
  /// Another database, opened by its bare tables.
  void apriSenzaVenduto() {
    bottega.openWith(
        {QStringLiteral("CREATE TABLE TAB_ARTICOLI (auto_id INTEGER PRIMARY KEY, Codice_EAN TEXT)")});
  }

  BackRoom bottega;
  TestTill cassa;
};

TEST_F(RicezioneVenduto, AllAperturaLeDueOpzioniSonoScritteEAvviaESpento) {
  bottega.openArchive();
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(schermo.window().windowTitle(), QStringLiteral("Ricezione del Venduto"));
  EXPECT_EQ(schermo.text(QStringLiteral("LabelOpzioni")),
            QStringLiteral("Scegliere una delle seguenti opzioni :"));
  EXPECT_EQ(schermo.text(kGlobale), QStringLiteral("Ricezione intero Archivio del Venduto"));
  EXPECT_EQ(schermo.text(kReset), QStringLiteral("Cancellazione archivio Venduto della Cassa"));
  EXPECT_TRUE(schermo.control<QRadioButton>(kGlobale).isChecked());
  EXPECT_EQ(schermo.text(QStringLiteral("vkTextBoxIP_ECR")), QStringLiteral("192.168.0.20"));
  EXPECT_EQ(schermo.text(kConnetti), QStringLiteral("Connetti"));
  EXPECT_FALSE(schermo.enabled(kAvvia));
  EXPECT_EQ(schermo.window().focusWidget()->objectName(), QStringLiteral("vkTextBoxIP_ECR"));
}

TEST_F(RicezioneVenduto, UnaRigaPerOgniSlotVendutoEPoiLaCassaEAzzerata) {
  cassa.sales({{0, 1250, 3, -50}, {41, 990, 1, 0}, {4999, 100, 2, 10}});
  const GuidedScreen schermo = pronto();
  writeArticles(bottega, testArticles(50));
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuto});
  EXPECT_EQ(venduti(), 3);
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT Importo_giornaliero from TAB_VENDUTO where id_plu = 42")),
            QStringLiteral("990"));
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT Codice_EAN from TAB_VENDUTO where id_plu = 42")),
            QStringLiteral("A42"));
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT Codice_Articolo from TAB_VENDUTO where id_plu = 42")),
            testArticles(50).at(41).ean);
  EXPECT_TRUE(cassa.byte(kFile) == kZeri);
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_FALSE(schermo.enabled(kConnetti));
}

TEST_F(RicezioneVenduto, LaBarraHaIlNumeroDelloSlotEdEUnPassaggioPerSlot) {
  cassa.sales({});
  const GuidedScreen schermo = pronto();
  std::vector<int> valori;
  const auto& barra = schermo.control<QProgressBar>(kBarra);
  bottega.user.onPass = [&] { valori.push_back(barra.value()); };
  schermo.click(kAvvia);
  bottega.user.onPass = nullptr;
  expectBoxes(bottega, {kRicevuto});
  ASSERT_GE(valori.size(), 5000U);
  for (int i = 0; i < 5000; ++i) ASSERT_EQ(valori[static_cast<std::size_t>(i)], i);
  EXPECT_EQ(barra.minimum(), 0);
  EXPECT_EQ(barra.maximum(), 5000);
}

TEST_F(RicezioneVenduto, UnFileDiSoliZeriNonScriveRigheEAzzeraLaCassa) {
  cassa.sales({});
  const GuidedScreen schermo = pronto();
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuto});
  EXPECT_EQ(venduti(), 0);
  EXPECT_EQ(chiamate(5), 1);
}

TEST_F(RicezioneVenduto, UnoSlotDiSoliResiSiSaltaEIlSuoImportoSiPerde) {
  cassa.sales({{3, -500, -2, 0}, {4, 300, 0, 0}});
  const GuidedScreen schermo = pronto();
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuto});
  EXPECT_EQ(venduti(), 0);
  EXPECT_TRUE(cassa.byte(kFile) == kZeri);
}

TEST_F(RicezioneVenduto, UnaSecondaRicezioneNelGiornoAggiungeUnaRigaAccantoAllAltra) {
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  schermo.click(kAvvia);
  cassa.sales({{0, 250, 2, 0}});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuto, kRicevuto});
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_VENDUTO where id_plu = 1 and Data ='20240307'")),
            2);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_VENDUTO where Importo_giornaliero = 250")), 1);
}

TEST_F(RicezioneVenduto, SeLAzzeramentoFalliscePoiSiMemorizzanoDiNuovoLeStesseVendite) {
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  ecrsim::Fault guasto;
  guasto.mode = 5;
  cassa->faults({guasto});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kComunicazione, kErroreReset, kErrore});
  EXPECT_FALSE(schermo.alive());
  EXPECT_EQ(venduti(), 1);
  cassa->faults({});
  const GuidedScreen ancora = pronto();
  ancora.click(kAvvia);
  expectBoxes(bottega, {kRicevuto});
  EXPECT_EQ(venduti(), 2);
}

TEST_F(RicezioneVenduto, UnoSlotSenzaArticoloNonDaRigheELeSueVenditeSiPerdono) {
  cassa.sales({{0, 100, 1, 0}, {9, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id = 10"));
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuto});
  EXPECT_EQ(venduti(), 1);
  EXPECT_TRUE(cassa.byte(kFile) == kZeri);
}

TEST_F(RicezioneVenduto, CinquemilaSlotVendutiDannoCinquemilaRighe) {
  std::vector<SlotSales> tutti;
  for (int i = 0; i < 5000; ++i) tutti.push_back({i, i, 1 + i % 9, i % 3});
  cassa.sales(tutti);
  const GuidedScreen schermo = pronto();
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuto});
  EXPECT_EQ(venduti(), 5000);
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT SUM(Importo_giornaliero) from TAB_VENDUTO")),
            QStringLiteral("12497500"));
}

TEST_F(RicezioneVenduto, NonScriveIlMomentoInTabVarie) {
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  const QString prima = bottega.value(QStringLiteral("SELECT Data_end_scarico from TAB_VARIE"));
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuto});
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT Data_end_scarico from TAB_VARIE")), prima);
}

// Clear only.

TEST_F(RicezioneVenduto, LaSolaCancellazioneAzzeraLaCassaSenzaPrendereNulla) {
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  schermo.click(kReset);
  ASSERT_TRUE(schermo.control<QRadioButton>(kReset).isChecked());
  schermo.click(kAvvia);
  expectBoxes(bottega, {kAzzerato});
  EXPECT_EQ(venduti(), 0);
  EXPECT_EQ(chiamate(7), 0);
  EXPECT_TRUE(cassa.byte(kFile) == kZeri);
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
}

TEST_F(RicezioneVenduto, LaSolaCancellazioneFallitaSiDiceELoSchermoSiChiude) {
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  schermo.click(kReset);
  ecrsim::Fault guasto;
  guasto.mode = 5;
  cassa->faults({guasto});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kComunicazione, kErroreReset, kErrore});
  EXPECT_FALSE(schermo.alive());
  EXPECT_FALSE(cassa.byte(kFile) == kZeri);
}

// What the person sees around the work.

TEST_F(RicezioneVenduto, AccantoAllaCancellazioneSiLeggeInRossoCheCosaSiPerde) {
  bottega.openArchive();
  const GuidedScreen schermo(bottega, kSchermo);
  const QString perdita = QStringLiteral("Le vendite della cassa vanno perse: non entrano nell'archivio.");
  const auto& frase = schermo.control<QLabel>(QStringLiteral("LabelPerdita"));
  EXPECT_EQ(frase.text(), perdita);
  EXPECT_TRUE(frase.property("danger").toBool());
  EXPECT_TRUE(frase.isVisible());
  const QWidget& scelta = schermo.control(kReset);
  EXPECT_EQ(scelta.accessibleDescription(), perdita);
  // On its line, behind it.
  EXPECT_GE(frase.mapTo(&schermo.window(), QPoint()).x(),
            scelta.mapTo(&schermo.window(), QPoint(scelta.width(), 0)).x());
  EXPECT_LT(frase.mapTo(&schermo.window(), QPoint()).y(),
            scelta.mapTo(&schermo.window(), QPoint(0, scelta.height())).y());
}

TEST_F(RicezioneVenduto, OgniPassoSiLeggePrimaDellaSuaChiamata) {
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  PaintedSteps dipinti(schermo.window());
  std::vector<int> fatte;
  const auto prima = static_cast<int>(callsOf(cassa).size());
  dipinti.onStep = [&] { fatte.push_back(static_cast<int>(callsOf(cassa).size()) - prima); };
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuto});
  EXPECT_EQ(dipinti.steps(), (QStringList{QStringLiteral("Apertura del trasferimento … (fino a 5 s)"),
                                          QStringLiteral("Richiesta del venduto … (fino a 5 s)"),
                                          QStringLiteral("Chiusura del trasferimento … (fino a 5 s)"),
                                          QStringLiteral("Apertura del trasferimento … (fino a 5 s)"),
                                          QStringLiteral("Azzeramento del venduto … (fino a 5 s)"),
                                          QStringLiteral("Chiusura del trasferimento … (fino a 5 s)")}));
  EXPECT_EQ(fatte, (std::vector{0, 1, 2, 3, 4, 5}));
}

TEST_F(RicezioneVenduto, MentreLaCassaTaceIComandiSonoSpentiELaBarraSiDipinge) {
  const ShortTimeouts breve;
  const GuidedScreen schermo = pronto();
  cassa->faults({{.mode = 7, .what = ecrsim::FaultKind::Silence}});
  int battiti = 0;
  bool spenti = true;
  QStringList letti;
  bool finita = false;
  bottega.user.onBox = [&](const Box&) { finita = true; };
  QTimer orologio;
  QObject::connect(&orologio, &QTimer::timeout, [&] {
    if (finita || chiamate(7) == 0) return;
    ++battiti;
    spenti = spenti && !schermo.enabled(kAvvia) && !schermo.enabled(kEsci);
    EXPECT_TRUE(schermo.control(kBarra).updatesEnabled());
    letti << schermo.control<OutcomeBar>("BarraEsito").text();
    schermo.impatience();
  });
  orologio.start(10);
  schermo.click(kAvvia);
  orologio.stop();
  bottega.user.onBox = nullptr;
  expectBoxes(bottega, {kComunicazione, kErroreDati, kErrore});
  EXPECT_GE(battiti, 5);
  EXPECT_TRUE(spenti);
  EXPECT_THAT(letti, Each(QStringLiteral("Richiesta del venduto … (fino a 5 s)")));
  EXPECT_EQ(chiamate(7), 1);
  EXPECT_EQ(chiamate(5), 0);
}

TEST_F(RicezioneVenduto, LaBarraEVuotaDaFermaEAllaFinePrimaDelRiquadro) {
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  const auto& barra = schermo.control<QProgressBar>(kBarra);
  EXPECT_EQ(barra.text(), QString());
  EXPECT_EQ(barra.value(), 0);
  QString alRiquadro;
  bool siDipinge = false;
  bottega.user.onBox = [&](const Box&) {
    alRiquadro = barra.text();
    siDipinge = barra.updatesEnabled();
  };
  schermo.click(kAvvia);
  EXPECT_EQ(alRiquadro, QStringLiteral("100%"));
  EXPECT_TRUE(siDipinge);
  // A clearing alone has no steps.
  schermo.click(kReset);
  schermo.click(kAvvia);
  bottega.user.onBox = nullptr;
  EXPECT_EQ(alRiquadro, QString());
  EXPECT_EQ(barra.value(), 0);
  expectBoxes(bottega, {kRicevuto, kAzzerato});
}

TEST_F(RicezioneVenduto, UnCaricamentoFallitoLasciaVedereLaBarraDoveSiEFermata) {
  apriSenzaVenduto();
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  bool siDipinge = false;
  bottega.user.onBox = [&](const Box&) { siDipinge = schermo.control(kBarra).updatesEnabled(); };
  schermo.click(kAvvia);
  bottega.user.onBox = nullptr;
  EXPECT_TRUE(siDipinge);
  EXPECT_NE(schermo.control<QProgressBar>(kBarra).text(), QStringLiteral("100%"));
  expectBoxes(bottega, {caricamento(QStringLiteral("3078\n*"))});
  EXPECT_EQ(schermo.control(kAvvia).toolTip(),
            QStringLiteral("L'ultimo comando non è riuscito: uscire e rientrare per ripeterlo"));
}

TEST_F(RicezioneVenduto, F9FaCioCheESceltoELoDiceIlSuggerimento) {
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  EXPECT_EQ(schermo.control(kAvvia).toolTip(), QStringLiteral("Avvia l'operazione scelta (F9)"));
  schermo.key(Qt::Key_F9);
  expectBoxes(bottega, {kRicevuto});
  EXPECT_EQ(venduti(), 1);
}

TEST_F(RicezioneVenduto, ConLaCancellazioneSceltaUnInvioDiTroppoNonAzzeraENonEsce) {
  cassa.sales({{0, 100, 1, 0}});
  bottega.openArchive();
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.click(kReset);
  schermo.typeAddress(cassa.address());
  for (int i = 0; i < 4; ++i) schermo.key(Qt::Key_Return);
  ASSERT_TRUE(schermo.enabled(kAvvia));
  schermo.control(kReset).setFocus();
  schermo.key(Qt::Key_Return);
  EXPECT_TRUE(schermo.alive());
  EXPECT_EQ(chiamate(5), 0);
  EXPECT_FALSE(cassa.byte(kFile) == kZeri);
}

TEST_F(RicezioneVenduto, InQualeArchivioSiRiceveSiLegge) {
  const GuidedScreen schermo = pronto();
  EXPECT_EQ(schermo.text(QStringLiteral("LabelArchivio")), QStringLiteral("Archivio: archivio.mdb"));
}

TEST_F(RicezioneVenduto, ADodiciPuntiStaIn1024SenzaTagliareDidascalie) {
  const GuidedScreen schermo = pronto();
  expectFitsAtTwelvePoints(schermo);
}

// The file whatever it holds.

TEST_F(RicezioneVenduto, UnFileCortoValeZeroDietroLaSuaFine) {
  cassa.put(kFile, salesArchive({{0, 100, 1, 0}, {1, 200, 2, 0}}).left(20004));
  const GuidedScreen schermo = pronto();
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuto});
  EXPECT_EQ(venduti(), 1);
}

TEST_F(RicezioneVenduto, UnFileLungoSiLeggeFinoAiSuoiSessantamilaByte) {
  cassa.put(kFile, salesArchive({{4999, 100, 1, 7}}) + QByteArray(5000, '\x7F'));
  const GuidedScreen schermo = pronto();
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuto});
  EXPECT_EQ(venduti(), 1);
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT sconto_giornaliero from TAB_VENDUTO")), QStringLiteral("7"));
}

TEST_F(RicezioneVenduto, SenzaFileSullaCassaNonSiMemorizzaQuelloDiIeri) {
  const GuidedScreen schermo = pronto();
  bottega.folder.write(kFile, salesArchive({{0, 100, 1, 0}}));
  QFile::remove(cassa.file(kFile));
  ecrsim::Fault guasto;
  guasto.mode = 7;
  guasto.code = 9;
  cassa->faults({guasto});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kComunicazione, kErroreDati, kErrore});
  EXPECT_FALSE(schermo.alive());
  EXPECT_EQ(venduti(), 0);
  EXPECT_EQ(chiamate(5), 0);
}

TEST_F(RicezioneVenduto, SeIlFileNonSiPuoScrivereSulPcLaCassaTieneLeVendite) {
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  ASSERT_TRUE(QDir().mkdir(bottega.folder.file(kFile)));
  schermo.click(kAvvia);
  expectBoxes(bottega,
              {plainBox(QStringLiteral("Error 75 (Errore di accesso al percorso o al file: venduto.bin) in "
                                       "procedure RiceviFile of Modulo CommonForKora")),
               kErroreDati, kErrore});
  EXPECT_EQ(chiamate(5), 0);
  EXPECT_FALSE(cassa.byte(kFile) == kZeri);
}

TEST(RicezioneVendutoConAltraLibreria, SeNonConsegnaIlFileQuelloDiIeriNonSiMemorizzaENullaSiAzzera) {
  BackRoom bottega{QStringLiteral(SILENT_FOLDER)};
  bottega.screens.registra<Form_RicezioneVenduto>();
  bottega.openArchive();
  bottega.folder.write(kFile, salesArchive({{0, 100, 1, 0}}));
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.typeAddress(ownAddress());
  schermo.click(kConnetti);
  ASSERT_TRUE(schermo.enabled(kAvvia));
  bottega.folder.write(QStringLiteral("chiamate.txt"), {});
  schermo.click(kAvvia);
  expectBoxes(bottega, {box(QStringLiteral("Error 53 (*"), Icon::None), kErroreDati, kErrore});
  EXPECT_FALSE(schermo.alive());
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_VENDUTO")), 0);
  EXPECT_EQ(bottega.folder.read(QStringLiteral("chiamate.txt")), QByteArray("1\n7\n2\n"));
}

// A store that refuses.

TEST_F(RicezioneVenduto, SenzaTabellaSiAnnullaELaCassaTieneLeVendite) {
  apriSenzaVenduto();
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  schermo.click(kAvvia);
  expectBoxes(bottega, {caricamento(QStringLiteral("3078\n*"))});
  EXPECT_TRUE(schermo.alive());
  EXPECT_FALSE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_EQ(chiamate(5), 0);
  EXPECT_FALSE(cassa.byte(kFile) == kZeri);
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_FALSE(bottega.user.terminated());
}

TEST_F(RicezioneVenduto, UnaRigaRifiutataAMetaAnnullaAnchQuellePrima) {
  cassa.sales({{0, 100, 1, 0}, {1, 100, 1, 0}, {2, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  bottega.execute(QStringLiteral("CREATE UNIQUE INDEX solo_uno ON TAB_VENDUTO (Importo_giornaliero)"));
  schermo.click(kAvvia);
  expectBoxes(bottega, {caricamento(QStringLiteral("3022\n*"))});
  EXPECT_EQ(venduti(), 0);
  EXPECT_EQ(chiamate(5), 0);
  EXPECT_EQ(bottega.workspace.level(), 0);
}

TEST_F(RicezioneVenduto, UnArchivioBloccatoDaUnAltroProgrammaLasciaLeVenditeSullaCassa) {
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  {
    const OtherProgram altro(varGlobal().NomeDB_Articoli, {QStringLiteral("BEGIN EXCLUSIVE")});
    schermo.click(kAvvia);
  }
  expectBoxes(bottega, {caricamento(QStringLiteral("3260\n*"))});
  EXPECT_EQ(chiamate(5), 0);
  EXPECT_EQ(venduti(), 0);
  EXPECT_EQ(bottega.workspace.level(), 0);
}

TEST_F(RicezioneVenduto, UnCommitRifiutatoSiAnnullaENonAzzeraLaCassa) {
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  {
    // A reader that never ends lets the rows be added and refuses their commit.
    const OtherProgram lettore(varGlobal().NomeDB_Articoli,
                               {QStringLiteral("BEGIN"), QStringLiteral("SELECT * FROM TAB_VARIE")});
    schermo.click(kAvvia);
  }
  expectBoxes(bottega, {caricamento(QStringLiteral("3260\n*"))});
  EXPECT_EQ(chiamate(5), 0);
  EXPECT_EQ(venduti(), 0);
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_FALSE(schermo.enabled(kAvvia));
}

TEST_F(RicezioneVenduto, UnArchivioDiSolaLetturaRifiutaELaCassaTieneLeVendite) {
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  const QString archivio = varGlobal().NomeDB_Articoli;
  articles::ChiudiDatabase();
  ASSERT_TRUE(QFile::setPermissions(archivio, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
  ASSERT_TRUE(QFile::setPermissions(bottega.folder.path(), kDiTutti));
  {
    const OtherUser altro;
    articles::ApriDatabase(archivio, bottega.contesto);
    schermo.click(kAvvia);
  }
  expectBoxes(bottega, {caricamento(QStringLiteral("3073\n*"))});
  EXPECT_EQ(chiamate(5), 0);
  EXPECT_EQ(bottega.workspace.level(), 0);
}

TEST_F(RicezioneVenduto, UnaRicezioneNonRiuscitaNonLasciaTransazioniAperteELaProssimaRiesce) {
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  bottega.execute(QStringLiteral("CREATE UNIQUE INDEX solo_uno ON TAB_VENDUTO (Importo_giornaliero)"));
  schermo.click(kAvvia);
  cassa.sales({{0, 100, 1, 0}});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuto, caricamento(QStringLiteral("3022\n*"))});
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_EQ(venduti(), 1);
  cassa.sales({{0, 200, 1, 0}});
  schermo.click(kEsci);
  const GuidedScreen ancora = pronto();
  ancora.click(kAvvia);
  expectBoxes(bottega, {kRicevuto});
  EXPECT_EQ(venduti(), 2);
}

TEST_F(RicezioneVenduto, SulDiscoPienoLArchivioRestaComEraELaCassaTieneLeVendite) {
  std::vector<SlotSales> tutti;
  for (int i = 0; i < 5000; ++i) tutti.push_back({i, i, 1, 0});
  cassa.sales(tutti);
  const GuidedScreen schermo = pronto();
  {
    const FullDisk pieno(static_cast<unsigned long>(QFileInfo(varGlobal().NomeDB_Articoli).size()) + 4096);
    schermo.click(kAvvia);
  }
  const std::vector<Box> visti = bottega.user.takeBoxes();
  ASSERT_EQ(visti.size(), 1U) << testing::PrintToString(visti);
  EXPECT_TRUE(visti[0].text.startsWith(QStringLiteral("Errore nel caricamento dati nella TAB_VENDUTO n° ")));
  EXPECT_EQ(chiamate(5), 0);
  EXPECT_EQ(venduti(), 0);
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI")), 5000);
}

// Impatience.

TEST_F(RicezioneVenduto, ClicEscEChiusuraImbucatiAOgniPassaggioNonFannoNulla) {
  cassa.sales({{0, 100, 1, 0}, {2500, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  bool sempreSpenti = true;
  bottega.user.onPass = [&] {
    if (bottega.user.passes() <= 5000) sempreSpenti = sempreSpenti && !schermo.enabled(kAvvia);
    schermo.impatience();
  };
  schermo.click(kAvvia);
  bottega.user.onPass = nullptr;
  expectBoxes(bottega, {kRicevuto});
  EXPECT_TRUE(sempreSpenti);
  EXPECT_EQ(chiamate(7), 1);
  EXPECT_EQ(chiamate(5), 1);
  EXPECT_EQ(venduti(), 2);
  EXPECT_TRUE(schermo.alive());
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
}

TEST_F(RicezioneVenduto, UnArchivioChiusoSottoLaRicezioneAnnullaENonAzzera) {
  cassa.sales({{0, 100, 1, 0}, {2500, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  bottega.user.onPass = [&] {
    if (bottega.user.passes() == 1000) varGlobal().DB_Articoli.Close();
  };
  schermo.click(kAvvia);
  bottega.user.onPass = nullptr;
  expectBoxes(bottega, {caricamento(QStringLiteral("*"))});
  EXPECT_EQ(chiamate(5), 0);
}

// The till in each state.

class RicezioneNelloStato : public RicezioneVenduto, public testing::WithParamInterface<char> {};

TEST_P(RicezioneNelloStato, CheNonAmmetteTrasferimentiAvviaRestaSpento) {
  bottega.openArchive();
  cassa->state(GetParam());
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.connectTo(cassa);
  expectBoxes(bottega,
              {box(QStringLiteral("Funzione non disponibile! Prego porre la cassa nello stato di IDLE o "
                                  "PROGRAMMAZIONE"),
                   Icon::Critical)});
  schermo.click(kAvvia);
  EXPECT_EQ(chiamate(7), 0);
}

INSTANTIATE_TEST_SUITE_P(Stati, RicezioneNelloStato, testing::Values('V', 'A', 'L'));

// The till's faults.

struct CasoGuasto {
  int modo;
  ecrsim::FaultKind cosa;
  /// Whether the sales are in the archive by then.
  bool memorizzato;
};
void PrintTo(const CasoGuasto& caso, std::ostream* uscita) {
  *uscita << faultName(caso.modo, caso.cosa);
}
class RicezioneConGuasto : public RicezioneVenduto, public testing::WithParamInterface<CasoGuasto> {};

TEST_P(RicezioneConGuasto, SiDiceESiAzzeraSoloCioCheEMemorizzato) {
  const ShortTimeouts breve;
  cassa.sales({{0, 100, 1, 0}, {77, 200, 2, 0}});
  const QByteArray vendite = cassa.byte(kFile);
  const GuidedScreen schermo = pronto();
  ecrsim::Fault guasto;
  guasto.mode = GetParam().modo;
  guasto.what = GetParam().cosa;
  cassa->faults({guasto});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kComunicazione, GetParam().memorizzato ? kErroreReset : kErroreDati, kErrore});
  EXPECT_FALSE(schermo.alive());
  EXPECT_EQ(venduti(), GetParam().memorizzato ? 2 : 0);
  const bool azzerata = cassa.byte(kFile) == kZeri;
  EXPECT_TRUE(!azzerata || GetParam().memorizzato);
  EXPECT_TRUE(azzerata || cassa.byte(kFile) == vendite);
  EXPECT_EQ(bottega.workspace.level(), 0);
}

std::vector<CasoGuasto> tuttiIGuasti() {
  std::vector<CasoGuasto> casi;
  for (const int modo : {1, 2, 5, 7})
    for (const ecrsim::FaultKind cosa :
         {ecrsim::FaultKind::Code, ecrsim::FaultKind::Silence, ecrsim::FaultKind::CutBefore,
          ecrsim::FaultKind::CutWithin, ecrsim::FaultKind::CutAfter, ecrsim::FaultKind::Garbage})
      casi.push_back({modo, cosa, modo == 5});
  return casi;
}

std::string nomeDelCaso(const testing::TestParamInfo<CasoGuasto>& caso) {
  return faultName(caso.param.modo, caso.param.cosa);
}
INSTANTIATE_TEST_SUITE_P(Guasti, RicezioneConGuasto, testing::ValuesIn(tuttiIGuasti()), nomeDelCaso);

TEST_F(RicezioneVenduto, UnFileAccorciatoDallaCassaValeZeroDietroLaSuaFine) {
  cassa.sales({{0, 100, 1, 0}, {4999, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  ecrsim::Fault guasto;
  guasto.mode = 7;
  guasto.what = ecrsim::FaultKind::ShortFile;
  cassa->faults({guasto});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuto});
  EXPECT_EQ(venduti(), 1);
}

TEST_F(RicezioneVenduto, IlTabulatorePassaPerIComandiNellOrdineDelLavoro) {
  const GuidedScreen schermo = pronto();
  QStringList giro;
  schermo.control(QStringLiteral("vkTextBoxIP_ECR")).setFocus();
  for (int i = 0; i < 4; ++i) {
    giro.append(schermo.window().focusWidget()->objectName());
    schermo.key(Qt::Key_Tab);
  }
  EXPECT_EQ(giro, (QStringList{QStringLiteral("vkTextBoxIP_ECR"), kGlobale, kAvvia, kEsci}));
}

TEST_F(RicezioneVenduto, ConISoliTastiSiCancellaIlVendutoDellaCassa) {
  cassa.sales({{0, 100, 1, 0}});
  bottega.openArchive();
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.typeAddress(cassa.address());
  schermo.key(Qt::Key_Return);
  schermo.control(kGlobale).setFocus();
  schermo.key(Qt::Key_Down);
  ASSERT_TRUE(schermo.control<QRadioButton>(kReset).isChecked());
  schermo.key(Qt::Key_Tab);
  ASSERT_EQ(schermo.window().focusWidget()->objectName(), kAvvia);
  schermo.key(Qt::Key_Space);
  expectBoxes(bottega, {kAzzerato});
  EXPECT_TRUE(cassa.byte(kFile) == kZeri);
  EXPECT_EQ(schermo.window().focusWidget()->objectName(), kEsci);
}

TEST_F(RicezioneVenduto, EsciChiudeLoSchermoERiportaAllaGestione) {
  bottega.screens.registra(QStringLiteral("Form_GestioneMMC"), [](Contesto&) { return new QWidget; });
  bottega.openArchive();
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.click(kEsci);
  EXPECT_FALSE(schermo.alive());
  ASSERT_NE(bottega.screens.trova(QStringLiteral("Form_GestioneMMC")), nullptr);
}

}  // namespace
