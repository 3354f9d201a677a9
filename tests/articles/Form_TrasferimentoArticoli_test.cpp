#include "articles/Form_TrasferimentoArticoli.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QTest>
#include <algorithm>

#include "articles/article_database.h"
#include "articles/back_room.h"
#include "controls/outcome_bar.h"
#include "ecrlink/painted_steps.h"
#include "sostegno/guided_screen.h"
#include "sostegno/troubles.h"

namespace {

const QString kSchermo = QStringLiteral("Form_TrasferimentoArticoli");
const QString kAvvia = QStringLiteral("Cmd_Avvia");
const QString kEsci = QStringLiteral("Cmd_Esci");
const QString kConnetti = QStringLiteral("CmdInviaModECR");
const QString kBarra = QStringLiteral("vkBar1");
const QString kPlu = QStringLiteral("plu.bin");
const Box kTrasferito =
    box(QStringLiteral("ARCHIVIO DEGLI ARTICOLI CORRETTAMENTE TRASFERITO"), Icon::Warning);
const Box kComunicazione = box(QStringLiteral("Errore nella comunicazione con ECR: *"), Icon::Critical);
const Box kFallita = box(QStringLiteral("Fallita operazione trasferimento plu.bin"), Icon::None);
const Box kErrore = box(QStringLiteral("Errore durante il trasferimento/ricezione. "), Icon::Warning);

class TrasferimentoArticoli : public testing::Test {
 protected:
  TrasferimentoArticoli() { bottega.screens.registra<Form_TrasferimentoArticoli>(); }

  /// The archive with five thousand articles, the screen on it, the till connected.
  GuidedScreen pronto() {
    bottega.openFullArchive();
    GuidedScreen schermo(bottega, kSchermo);
    schermo.connectTo(cassa);
    EXPECT_TRUE(schermo.enabled(kAvvia));
    return schermo;
  }
  int invii() {
    const auto chiamate = cassa->calls();
    return static_cast<int>(std::ranges::count(chiamate, 6, &ecrsim::Call::mode));
  }

  const std::vector<TestArticle>& articoli = fullArchive();
  BackRoom bottega;
  TestTill cassa;
};

TEST_F(TrasferimentoArticoli, AllAperturaMostraLIndirizzoPredefinitoEAvviaESpento) {
  bottega.openArchive();
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(schermo.window().windowTitle(), QStringLiteral("Trasferimento Articoli"));
  EXPECT_EQ(schermo.text(QStringLiteral("vkTextBoxIP_ECR")), QStringLiteral("192.168.0.20"));
  EXPECT_EQ(schermo.text(QStringLiteral("vkOptionAggiornaECR")),
            QStringLiteral("Aggiornamento completo dell'archivio"));
  EXPECT_TRUE(schermo.control<QRadioButton>(QStringLiteral("vkOptionAggiornaECR")).isChecked());
  EXPECT_EQ(schermo.text(QStringLiteral("LabelOpzioni")),
            QStringLiteral("Scegliere una delle seguenti opzioni :"));
  EXPECT_EQ(schermo.text(kConnetti), QStringLiteral("Connetti"));
  EXPECT_FALSE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_EQ(schermo.window().focusWidget()->objectName(), QStringLiteral("vkTextBoxIP_ECR"));
}

TEST_F(TrasferimentoArticoli, UnArchivioVuotoSiDiceAllAperturaEdEInviatoLoStesso) {
  bottega.openArchive();
  bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI"));
  soilMemory(0x11);
  const GuidedScreen schermo(bottega, kSchermo);
  expectBoxes(bottega, {box(QStringLiteral("Attenzione l'archivio degli articoli e' vuoto"), Icon::Warning)});
  schermo.connectTo(cassa);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferito});
  EXPECT_TRUE(cassa.byte(kPlu) == QByteArray(240000, '\x11'));
}

TEST_F(TrasferimentoArticoli, SenzaReteSiDiceSoloQuelloEGliArticoliNonSiContano) {
  bottega.openArchive();
  bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI"));
  bottega.network.name = QString();
  const GuidedScreen schermo(bottega, kSchermo);
  expectBoxes(bottega, {box(QStringLiteral("Attenzione problema di connessione di rete per il PC locale!\r\n"
                                           "Contattare l'amministratore di rete."),
                            Icon::Critical)});
  EXPECT_TRUE(schermo.enabled(kConnetti));
}

TEST_F(TrasferimentoArticoli, UnConteggioFallitoSiDiceEloSchermoRestaUsabile) {
  bottega.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  const GuidedScreen schermo(bottega, kSchermo);
  expectBoxes(bottega,
              {box(QStringLiteral("CalcolaNumArticoli 3078 - *"), Icon::Critical),
               box(QStringLiteral("Errore nella determinazione del numero degli articoli"), Icon::Warning)});
  EXPECT_TRUE(schermo.alive());
  EXPECT_TRUE(schermo.enabled(kConnetti));
}

TEST_F(TrasferimentoArticoli, ConClicETastiLaCassaRiceveLImmagineByteAByte) {
  const GuidedScreen schermo = pronto();
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferito});
  EXPECT_TRUE(cassa.byte(kPlu) == expectedImage(articoli));
  EXPECT_EQ(schermo.control<QProgressBar>(kBarra).maximum(), 1);
  EXPECT_EQ(schermo.control<QProgressBar>(kBarra).value(), 1);
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_FALSE(cassa->transferOpen());
}

TEST_F(TrasferimentoArticoli, DopoLaRiuscitaLImmagineSiInviaAncora) {
  const GuidedScreen schermo = pronto();
  schermo.click(kAvvia);
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo =1 WHERE auto_id =1"));
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferito, kTrasferito});
  EXPECT_EQ(invii(), 2);
  EXPECT_EQ(cassa.byte(kPlu).mid(27, 4), QByteArray("\1\0\0\0", 4));
}

TEST_F(TrasferimentoArticoli, IlFileSulDiscoMisuraDuecentoquarantamilaByteAncheSopraUnoPiuLungo) {
  bottega.folder.write(kPlu, QByteArray(240001, 'x'));
  const GuidedScreen schermo = pronto();
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferito});
  EXPECT_EQ(bottega.folder.read(kPlu).size(), 240000);
  EXPECT_TRUE(bottega.folder.read(kPlu) == cassa.byte(kPlu));
}

TEST_F(TrasferimentoArticoli, IComandiSonoSpentiMentreInvia) {
  const GuidedScreen schermo = pronto();
  bool spenti = false;
  bottega.user.onBox = [&](const Box&) { spenti = !schermo.enabled(kAvvia) && !schermo.enabled(kEsci); };
  schermo.click(kAvvia);
  bottega.user.onBox = nullptr;
  EXPECT_TRUE(spenti);
  expectBoxes(bottega, {kTrasferito});
}

TEST_F(TrasferimentoArticoli, LArchivioRestaComEra) {
  const GuidedScreen schermo = pronto();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' WHERE auto_id =5"));
  const QString prima = bottega.value(QStringLiteral("SELECT Data_end_update from TAB_VARIE"));
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferito});
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT Data_end_update from TAB_VARIE")), prima);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_VARIAZIONI")), 0);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI where Filler ='ERR'")), 1);
}

TEST_F(TrasferimentoArticoli, UnRiempimentoFallitoSiDiceEPoiMostraLoStessoTestoSenzaInviareNulla) {
  const GuidedScreen schermo = pronto();
  bottega.execute(QStringLiteral("INSERT INTO TAB_ARTICOLI (auto_id,Descrizione) Values (5001,'TROPPO');"));
  schermo.click(kAvvia);
  expectBoxes(bottega, {box(QStringLiteral("RiempiPLU: uscita dal programma per condizione anomala 9 - *"),
                            Icon::Critical),
                        kTrasferito});
  EXPECT_EQ(invii(), 0);
  EXPECT_EQ(schermo.control<QProgressBar>(kBarra).value(), 0);
  EXPECT_TRUE(schermo.enabled(kAvvia));
}

TEST_F(TrasferimentoArticoli, UnArchivioDAltroGenereTerminaIlProgramma) {
  const GuidedScreen schermo = pronto();
  articles::ChiudiDatabase();
  bottega.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  schermo.click(kAvvia);
  EXPECT_TRUE(bottega.user.terminated());
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
  expectBoxes(bottega, {box(QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. "
                                           "PROCEDURA ABORTITA !!!"),
                            Icon::Critical)});
  EXPECT_EQ(invii(), 0);
}

TEST_F(TrasferimentoArticoli, ClicEscEChiusuraImbucatiAOgniPassaggioNonFannoNulla) {
  const GuidedScreen schermo = pronto();
  bottega.user.onPass = [&] { schermo.impatience(); };
  schermo.click(kAvvia);
  bottega.user.onPass = nullptr;
  expectBoxes(bottega, {kTrasferito});
  EXPECT_GE(bottega.user.passes(), 1);
  EXPECT_EQ(invii(), 1);
  EXPECT_TRUE(schermo.alive());
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
}

TEST_F(TrasferimentoArticoli, SeIlFileNonSiPuoScrivereNullaParte) {
  const GuidedScreen schermo = pronto();
  ASSERT_TRUE(QDir().mkdir(bottega.folder.file(kPlu)));
  schermo.click(kAvvia);
  expectBoxes(bottega, {{QStringLiteral("Error 75 (*"), Icon::None, {}, Buttons::Ok}, kErrore});
  EXPECT_EQ(invii(), 0);
  EXPECT_FALSE(schermo.alive());
}

TEST_F(TrasferimentoArticoli, SulDiscoPienoNullaParteELaCassaTieneIlSuo) {
  const GuidedScreen schermo = pronto();
  cassa.put(kPlu, QByteArray(240000, 'v'));
  {
    const FullDisk pieno(100000);
    schermo.click(kAvvia);
  }
  expectBoxes(bottega, {box(QStringLiteral("Error 61 (*"), Icon::None), kErrore});
  EXPECT_EQ(invii(), 0);
  EXPECT_TRUE(cassa.byte(kPlu) == QByteArray(240000, 'v'));
  EXPECT_FALSE(schermo.alive());
}

TEST_F(TrasferimentoArticoli, LaCassaSpentaDopoLaConnessioneSiDiceELoSchermoSiChiude) {
  const GuidedScreen schermo = pronto();
  cassa.switchOff();
  schermo.click(kAvvia);
  expectBoxes(bottega, {kComunicazione, kFallita, kErrore});
  EXPECT_FALSE(schermo.alive());
}

TEST_F(TrasferimentoArticoli, EsciChiudeLoSchermoERiportaAllaGestione) {
  bottega.screens.registra(QStringLiteral("Form_GestioneMMC"), [](Contesto&) { return new QWidget; });
  bottega.openArchive();
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.click(kEsci);
  EXPECT_FALSE(schermo.alive());
  EXPECT_EQ(bottega.screens.trova(kSchermo), nullptr);
  ASSERT_NE(bottega.screens.trova(QStringLiteral("Form_GestioneMMC")), nullptr);
  EXPECT_TRUE(bottega.screens.trova(QStringLiteral("Form_GestioneMMC"))->isVisible());
}

TEST_F(TrasferimentoArticoli, EscChiudeLoSchermoFermo) {
  bottega.openArchive();
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.key(Qt::Key_Escape);
  EXPECT_FALSE(schermo.alive());
}

TEST_F(TrasferimentoArticoli, InvioNellIndirizzoConnette) {
  bottega.openArchive();
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.typeAddress(cassa.address());
  schermo.key(Qt::Key_Return);
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_FALSE(schermo.enabled(kConnetti));
  EXPECT_TRUE(schermo.alive());
}

TEST_F(TrasferimentoArticoli, ARiaperturaLIndirizzoTornaQuelloPredefinito) {
  bottega.openArchive();
  {
    const GuidedScreen schermo(bottega, kSchermo);
    schermo.connectTo(cassa);
    schermo.click(kEsci);
  }
  const GuidedScreen ancora(bottega, kSchermo);
  EXPECT_EQ(ancora.text(QStringLiteral("vkTextBoxIP_ECR")), QStringLiteral("192.168.0.20"));
  EXPECT_FALSE(ancora.enabled(kAvvia));
}

TEST_F(TrasferimentoArticoli, ModaleFinisceConEsci) {
  bottega.openArchive();
  QMetaObject::invokeMethod(
      QCoreApplication::instance(),
      [&] {
        QWidget* schermo = bottega.screens.trova(kSchermo);
        ASSERT_NE(schermo, nullptr);
        EXPECT_TRUE(schermo->isModal());
        QTest::mouseClick(schermo->findChild<QWidget*>(kEsci), Qt::LeftButton);
      },
      Qt::QueuedConnection);
  bottega.screens.mostraModale(kSchermo, bottega.contesto);
  EXPECT_EQ(bottega.screens.trova(kSchermo), nullptr);
}

// What the person sees around the work.

TEST_F(TrasferimentoArticoli, AlPiedeSiDiconoArticoliEByte) {
  std::vector<TestArticle> tutti;
  for (int i = 0; i < 5000; ++i) tutti.push_back({QString::number(80000000 + i), {}, 100, 1});
  bottega.openArchive();
  writeArticles(bottega, tutti);
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.connectTo(cassa);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferito});
  const auto& piede = schermo.control<OutcomeBar>("BarraEsito");
  EXPECT_EQ(piede.text(), QStringLiteral("Trasferiti 5.000 articoli, 240.000 byte"));
  EXPECT_EQ(piede.kind(), OutcomeBar::Kind::Done);
}

TEST_F(TrasferimentoArticoli, GliSlotVuotiNonContanoComeArticoli) {
  bottega.openArchive();
  writeArticles(bottega, {{QStringLiteral("8001"), {}, 100, 1}, {{}, QStringLiteral("PANE"), 200, 1}});
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.connectTo(cassa);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferito});
  EXPECT_EQ(schermo.control<OutcomeBar>("BarraEsito").text(),
            QStringLiteral("Trasferiti 2 articoli, 240.000 byte"));
}

TEST_F(TrasferimentoArticoli, UnArticoloSoloSiDiceAlSingolare) {
  bottega.openArchive();
  writeArticles(bottega, {{QStringLiteral("8001"), QStringLiteral("PANE"), 100, 1}});
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.connectTo(cassa);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferito});
  EXPECT_EQ(schermo.control<OutcomeBar>("BarraEsito").text(),
            QStringLiteral("Trasferito 1 articolo, 240.000 byte"));
}

TEST_F(TrasferimentoArticoli, UnRiempimentoFallitoNonSiDiceTrasferitoAlPiede) {
  const GuidedScreen schermo = pronto();
  bottega.execute(QStringLiteral("INSERT INTO TAB_ARTICOLI (auto_id,Descrizione) Values (5001,'TROPPO');"));
  schermo.click(kAvvia);
  EXPECT_EQ(bottega.takeBoxes().size(), 2U);
  const auto& piede = schermo.control<OutcomeBar>("BarraEsito");
  EXPECT_TRUE(
      piede.text().startsWith(QStringLiteral("RiempiPLU: uscita dal programma per condizione anomala 9 - ")))
      << piede.text().toStdString();
  EXPECT_EQ(piede.kind(), OutcomeBar::Kind::Failed);
}

TEST_F(TrasferimentoArticoli, OgniPassoSiLeggePrimaDellaSuaChiamata) {
  const GuidedScreen schermo = pronto();
  const qsizetype prima = callsOf(cassa).size();
  PaintedSteps dipinti(schermo.window());
  QStringList fatte;
  dipinti.onStep = [&] { fatte << callsOf(cassa).mid(prima).join(u' '); };
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferito});
  EXPECT_EQ(dipinti.steps(), (QStringList{QStringLiteral("Apertura del trasferimento … (fino a 5 s)"),
                                          QStringLiteral("Invio di plu.bin … (fino a 5 s)"),
                                          QStringLiteral("Chiusura del trasferimento … (fino a 5 s)")}));
  EXPECT_EQ(fatte, (QStringList{QString(), QStringLiteral("1:"), QStringLiteral("1: 6:plu.bin")}));
}

TEST_F(TrasferimentoArticoli, LaBarraEVuotaDaFermaEAllaFinePrimaDelRiquadro) {
  const GuidedScreen schermo = pronto();
  const auto& barra = schermo.control<QProgressBar>(kBarra);
  EXPECT_EQ(barra.text(), QString());
  EXPECT_EQ(barra.value(), 0);
  QString alRiquadro;
  bottega.user.onBox = [&](const Box&) { alRiquadro = barra.text(); };
  schermo.click(kAvvia);
  bottega.user.onBox = nullptr;
  EXPECT_EQ(alRiquadro, QStringLiteral("100%"));
  expectBoxes(bottega, {kTrasferito});
}

TEST_F(TrasferimentoArticoli, F9InviaELoDiceIlSuggerimento) {
  const GuidedScreen schermo = pronto();
  EXPECT_EQ(schermo.control(kAvvia).toolTip(), QStringLiteral("Avvia il trasferimento verso la cassa (F9)"));
  schermo.key(Qt::Key_F9);
  expectBoxes(bottega, {kTrasferito});
  EXPECT_EQ(invii(), 1);
}

TEST_F(TrasferimentoArticoli, DopoLInvioUnInvioDiTroppoNonEsceENonRipete) {
  const GuidedScreen schermo = pronto();
  schermo.click(kAvvia);
  for (int i = 0; i < 3; ++i) schermo.key(Qt::Key_Return);
  expectBoxes(bottega, {kTrasferito});
  EXPECT_TRUE(schermo.alive());
  EXPECT_EQ(invii(), 1);
}

TEST_F(TrasferimentoArticoli, DaQualeArchivioSiInviaSiLegge) {
  const GuidedScreen schermo = pronto();
  EXPECT_EQ(schermo.text(QStringLiteral("LabelArchivio")), QStringLiteral("Archivio: archivio.mdb"));
}

TEST_F(TrasferimentoArticoli, ADodiciPuntiStaIn1024SenzaTagliareDidascalie) {
  const GuidedScreen schermo = pronto();
  expectFitsAtTwelvePoints(schermo);
}

// The till in each state.

class TrasferimentoNelloStato : public TrasferimentoArticoli, public testing::WithParamInterface<char> {};

TEST_P(TrasferimentoNelloStato, CheNonAmmetteTrasferimentiAvviaRestaSpento) {
  bottega.openArchive();
  cassa->state(GetParam());
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.connectTo(cassa);
  expectBoxes(bottega,
              {box(QStringLiteral("Funzione non disponibile! Prego porre la cassa nello stato di IDLE o "
                                  "PROGRAMMAZIONE"),
                   Icon::Critical)});
  EXPECT_FALSE(schermo.enabled(kAvvia));
  QTest::mouseClick(&schermo.control(kAvvia), Qt::LeftButton);
  EXPECT_EQ(invii(), 0);
}

INSTANTIATE_TEST_SUITE_P(Stati, TrasferimentoNelloStato, testing::Values('V', 'A', 'L'));

TEST_F(TrasferimentoArticoli, InProgrammazioneLaCassaRiceve) {
  cassa->state('P');
  const GuidedScreen schermo = pronto();
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferito});
  EXPECT_EQ(invii(), 1);
}

// The till's faults, each in each of the three calls of a sending.

struct CasoGuasto {
  int modo;
  ecrsim::FaultKind cosa;
};
void PrintTo(const CasoGuasto& caso, std::ostream* uscita) {
  *uscita << faultName(caso.modo, caso.cosa);
}
class TrasferimentoConGuasto : public TrasferimentoArticoli,
                               public testing::WithParamInterface<CasoGuasto> {};

TEST_P(TrasferimentoConGuasto, SiDiceLoSchermoSiChiudeELaCassaHaIlVecchioOIlNuovo) {
  const ShortTimeouts breve;
  const GuidedScreen schermo = pronto();
  const QByteArray vecchio(240000, 'v');
  cassa.put(kPlu, vecchio);
  ecrsim::Fault guasto;
  guasto.mode = GetParam().modo;
  guasto.what = GetParam().cosa;
  cassa->faults({guasto});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kComunicazione, kFallita, kErrore});
  EXPECT_FALSE(schermo.alive());
  const QByteArray rimasto = cassa.byte(kPlu);
  EXPECT_TRUE(rimasto == vecchio || rimasto == expectedImage(articoli));
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI")), 5000);
}

std::vector<CasoGuasto> tuttiIGuasti() {
  std::vector<CasoGuasto> casi;
  for (const int modo : {1, 2, 6})
    for (const ecrsim::FaultKind cosa :
         {ecrsim::FaultKind::Code, ecrsim::FaultKind::Silence, ecrsim::FaultKind::CutBefore,
          ecrsim::FaultKind::CutWithin, ecrsim::FaultKind::CutAfter, ecrsim::FaultKind::Garbage})
      casi.push_back({modo, cosa});
  return casi;
}

std::string nomeDelCaso(const testing::TestParamInfo<CasoGuasto>& caso) {
  return faultName(caso.param.modo, caso.param.cosa);
}
INSTANTIATE_TEST_SUITE_P(Guasti, TrasferimentoConGuasto, testing::ValuesIn(tuttiIGuasti()), nomeDelCaso);

}  // namespace
