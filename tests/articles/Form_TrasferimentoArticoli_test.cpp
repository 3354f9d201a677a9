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
#include "articles/guided_screen.h"
#include "articles/others.h"

namespace {

const QString kSchermo = QStringLiteral("Form_TrasferimentoArticoli");
const QString kAvvia = QStringLiteral("Cmd_Avvia");
const QString kEsci = QStringLiteral("Cmd_Esci");
const QString kConnetti = QStringLiteral("CmdInviaModECR");
const QString kBarra = QStringLiteral("vkBar1");
const QString kPlu = QStringLiteral("plu.bin");
const Box kTrasferito =
    riquadro(QStringLiteral("ARCHIVIO DEGLI ARTICOLI CORRETTAMENTE TRASFERITO"), Icon::Warning);
const Box kComunicazione = riquadro(QStringLiteral("Errore nella comunicazione con ECR: *"), Icon::Critical);
const Box kFallita = riquadro(QStringLiteral("Fallita operazione trasferimento plu.bin"), Icon::None);
const Box kErrore = riquadro(QStringLiteral("Errore durante il trasferimento/ricezione. "), Icon::Warning);

class TrasferimentoArticoli : public testing::Test {
 protected:
  TrasferimentoArticoli() { registraTrasferimentoArticoli(bottega.schermate); }

  /// The archive with five thousand articles, the screen on it, the till connected.
  SchermoGuidato pronto() {
    bottega.apriArchivio();
    scriviArticoli(bottega, articoli);
    SchermoGuidato schermo(bottega, kSchermo);
    schermo.connetti(cassa);
    EXPECT_TRUE(schermo.abilitato(kAvvia));
    return schermo;
  }
  int invii() {
    const auto chiamate = cassa->calls();
    return static_cast<int>(std::ranges::count(chiamate, 6, &ecrsim::Call::mode));
  }

  const std::vector<ArticoloDiProva> articoli = articoliDiProva(5000);
  Bottega bottega;
  TestTill cassa;
};

TEST_F(TrasferimentoArticoli, AllAperturaMostraLIndirizzoPredefinitoEAvviaESpento) {
  bottega.apriArchivio();
  const SchermoGuidato schermo(bottega, kSchermo);
  EXPECT_EQ(schermo.finestra().windowTitle(), QStringLiteral("Trasferimento Articoli"));
  EXPECT_EQ(schermo.testo(QStringLiteral("vkTextBoxIP_ECR")), QStringLiteral("192.168.0.20"));
  EXPECT_EQ(schermo.testo(QStringLiteral("vkOptionAggiornaECR")),
            QStringLiteral("Aggiornamento completo dell'archivio"));
  EXPECT_TRUE(schermo.controllo<QRadioButton>(QStringLiteral("vkOptionAggiornaECR")).isChecked());
  EXPECT_EQ(schermo.testo(QStringLiteral("LabelOpzioni")),
            QStringLiteral("Scegliere una delle seguenti opzioni :"));
  EXPECT_EQ(schermo.testo(kConnetti), QStringLiteral("Connetti"));
  EXPECT_FALSE(schermo.abilitato(kAvvia));
  EXPECT_TRUE(schermo.abilitato(kEsci));
  EXPECT_EQ(schermo.finestra().focusWidget()->objectName(), QStringLiteral("vkTextBoxIP_ECR"));
}

TEST_F(TrasferimentoArticoli, UnArchivioVuotoSiDiceAllAperturaEdEInviatoLoStesso) {
  bottega.apriArchivio();
  bottega.esegui(QStringLiteral("Delete  from TAB_ARTICOLI"));
  sporcaMemoria(0x11);
  const SchermoGuidato schermo(bottega, kSchermo);
  attendi(bottega,
          {riquadro(QStringLiteral("Attenzione l'archivio degli articoli e' vuoto"), Icon::Warning)});
  schermo.connetti(cassa);
  schermo.clic(kAvvia);
  attendi(bottega, {kTrasferito});
  EXPECT_TRUE(cassa.byte(kPlu) == QByteArray(240000, '\x11'));
}

TEST_F(TrasferimentoArticoli, UnConteggioFallitoSiDiceEloSchermoRestaUsabile) {
  bottega.apriVuoto({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  const SchermoGuidato schermo(bottega, kSchermo);
  attendi(bottega,
          {riquadro(QStringLiteral("CalcolaNumArticoli 3078 - *"), Icon::Critical),
           riquadro(QStringLiteral("Errore nella determinazione del numero degli articoli"), Icon::Warning)});
  EXPECT_TRUE(schermo.vivo());
  EXPECT_TRUE(schermo.abilitato(kConnetti));
}

TEST_F(TrasferimentoArticoli, ConClicETastiLaCassaRiceveLImmagineByteAByte) {
  const SchermoGuidato schermo = pronto();
  schermo.clic(kAvvia);
  attendi(bottega, {kTrasferito});
  EXPECT_TRUE(cassa.byte(kPlu) == immagineAttesa(articoli));
  EXPECT_EQ(schermo.controllo<QProgressBar>(kBarra).maximum(), 1);
  EXPECT_EQ(schermo.controllo<QProgressBar>(kBarra).value(), 1);
  EXPECT_TRUE(schermo.abilitato(kAvvia));
  EXPECT_TRUE(schermo.abilitato(kEsci));
  EXPECT_FALSE(cassa->transferOpen());
}

TEST_F(TrasferimentoArticoli, DopoLaRiuscitaLImmagineSiInviaAncora) {
  const SchermoGuidato schermo = pronto();
  schermo.clic(kAvvia);
  bottega.esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo =1 WHERE auto_id =1"));
  schermo.clic(kAvvia);
  attendi(bottega, {kTrasferito, kTrasferito});
  EXPECT_EQ(invii(), 2);
  EXPECT_EQ(cassa.byte(kPlu).mid(27, 4), QByteArray("\1\0\0\0", 4));
}

TEST_F(TrasferimentoArticoli, IlFileSulDiscoMisuraDuecentoquarantamilaByteAncheSopraUnoPiuLungo) {
  bottega.cartella.write(kPlu, QByteArray(240001, 'x'));
  const SchermoGuidato schermo = pronto();
  schermo.clic(kAvvia);
  attendi(bottega, {kTrasferito});
  EXPECT_EQ(bottega.cartella.read(kPlu).size(), 240000);
  EXPECT_TRUE(bottega.cartella.read(kPlu) == cassa.byte(kPlu));
}

TEST_F(TrasferimentoArticoli, IComandiSonoSpentiMentreInvia) {
  const SchermoGuidato schermo = pronto();
  bool spenti = false;
  bottega.utente.onBox = [&](const Box&) {
    spenti = !schermo.abilitato(kAvvia) && !schermo.abilitato(kEsci);
  };
  schermo.clic(kAvvia);
  bottega.utente.onBox = nullptr;
  EXPECT_TRUE(spenti);
  attendi(bottega, {kTrasferito});
}

TEST_F(TrasferimentoArticoli, LArchivioRestaComEra) {
  const SchermoGuidato schermo = pronto();
  bottega.esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' WHERE auto_id =5"));
  const QString prima = bottega.valore(QStringLiteral("SELECT Data_end_update from TAB_VARIE"));
  schermo.clic(kAvvia);
  attendi(bottega, {kTrasferito});
  EXPECT_EQ(bottega.valore(QStringLiteral("SELECT Data_end_update from TAB_VARIE")), prima);
  EXPECT_EQ(bottega.righe(QStringLiteral("SELECT * from TAB_VARIAZIONI")), 0);
  EXPECT_EQ(bottega.righe(QStringLiteral("SELECT * from TAB_ARTICOLI where Filler ='ERR'")), 1);
}

TEST_F(TrasferimentoArticoli, UnRiempimentoFallitoSiDiceEPoiMostraLoStessoTestoSenzaInviareNulla) {
  const SchermoGuidato schermo = pronto();
  bottega.esegui(QStringLiteral("INSERT INTO TAB_ARTICOLI (auto_id,Descrizione) Values (5001,'TROPPO');"));
  schermo.clic(kAvvia);
  attendi(bottega, {riquadro(QStringLiteral("RiempiPLU: uscita dal programma per condizione anomala 9 - *"),
                             Icon::Critical),
                    kTrasferito});
  EXPECT_EQ(invii(), 0);
  EXPECT_EQ(schermo.controllo<QProgressBar>(kBarra).value(), 0);
  EXPECT_TRUE(schermo.abilitato(kAvvia));
}

TEST_F(TrasferimentoArticoli, UnArchivioDAltroGenereTerminaIlProgramma) {
  const SchermoGuidato schermo = pronto();
  articles::ChiudiDatabase();
  bottega.apriVuoto({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  schermo.clic(kAvvia);
  EXPECT_TRUE(bottega.utente.terminated());
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
  attendi(bottega, {riquadro(QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. "
                                            "PROCEDURA ABORTITA !!!"),
                             Icon::Critical)});
  EXPECT_EQ(invii(), 0);
}

TEST_F(TrasferimentoArticoli, ClicEscEChiusuraImbucatiAOgniPassaggioNonFannoNulla) {
  const SchermoGuidato schermo = pronto();
  bottega.utente.onPass = [&] { schermo.impazienza(); };
  schermo.clic(kAvvia);
  bottega.utente.onPass = nullptr;
  attendi(bottega, {kTrasferito});
  EXPECT_GE(bottega.utente.passes(), 1);
  EXPECT_EQ(invii(), 1);
  EXPECT_TRUE(schermo.vivo());
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
}

TEST_F(TrasferimentoArticoli, SeIlFileNonSiPuoScrivereNullaParte) {
  const SchermoGuidato schermo = pronto();
  ASSERT_TRUE(QDir().mkdir(bottega.cartella.file(kPlu)));
  schermo.clic(kAvvia);
  attendi(bottega, {{QStringLiteral("Error 75 (*"), Icon::None, {}, Buttons::Ok}, kErrore});
  EXPECT_EQ(invii(), 0);
  EXPECT_FALSE(schermo.vivo());
}

TEST_F(TrasferimentoArticoli, SulDiscoPienoNullaParteELaCassaTieneIlSuo) {
  const SchermoGuidato schermo = pronto();
  cassa.put(kPlu, QByteArray(240000, 'v'));
  {
    const DiscoPieno pieno(100000);
    schermo.clic(kAvvia);
  }
  attendi(bottega, {riquadro(QStringLiteral("Error 61 (*"), Icon::None), kErrore});
  EXPECT_EQ(invii(), 0);
  EXPECT_TRUE(cassa.byte(kPlu) == QByteArray(240000, 'v'));
  EXPECT_FALSE(schermo.vivo());
}

TEST_F(TrasferimentoArticoli, LaCassaSpentaDopoLaConnessioneSiDiceELoSchermoSiChiude) {
  const SchermoGuidato schermo = pronto();
  cassa.switchOff();
  schermo.clic(kAvvia);
  attendi(bottega, {kComunicazione, kFallita, kErrore});
  EXPECT_FALSE(schermo.vivo());
}

TEST_F(TrasferimentoArticoli, EsciChiudeLoSchermoERiportaAllaGestione) {
  bottega.schermate.registra(QStringLiteral("Form_GestioneMMC"), [](Contesto&) { return new QWidget; });
  bottega.apriArchivio();
  const SchermoGuidato schermo(bottega, kSchermo);
  schermo.clic(kEsci);
  EXPECT_FALSE(schermo.vivo());
  EXPECT_EQ(bottega.schermate.trova(kSchermo), nullptr);
  ASSERT_NE(bottega.schermate.trova(QStringLiteral("Form_GestioneMMC")), nullptr);
  EXPECT_TRUE(bottega.schermate.trova(QStringLiteral("Form_GestioneMMC"))->isVisible());
}

TEST_F(TrasferimentoArticoli, EscChiudeLoSchermoFermo) {
  bottega.apriArchivio();
  const SchermoGuidato schermo(bottega, kSchermo);
  schermo.tasto(Qt::Key_Escape);
  EXPECT_FALSE(schermo.vivo());
}

TEST_F(TrasferimentoArticoli, InvioNellIndirizzoConnette) {
  bottega.apriArchivio();
  const SchermoGuidato schermo(bottega, kSchermo);
  schermo.scriviIndirizzo(cassa.address());
  schermo.tasto(Qt::Key_Return);
  EXPECT_TRUE(schermo.abilitato(kAvvia));
  EXPECT_FALSE(schermo.abilitato(kConnetti));
  EXPECT_TRUE(schermo.vivo());
}

TEST_F(TrasferimentoArticoli, ARiaperturaLIndirizzoTornaQuelloPredefinito) {
  bottega.apriArchivio();
  {
    const SchermoGuidato schermo(bottega, kSchermo);
    schermo.connetti(cassa);
    schermo.clic(kEsci);
  }
  const SchermoGuidato ancora(bottega, kSchermo);
  EXPECT_EQ(ancora.testo(QStringLiteral("vkTextBoxIP_ECR")), QStringLiteral("192.168.0.20"));
  EXPECT_FALSE(ancora.abilitato(kAvvia));
}

TEST_F(TrasferimentoArticoli, ModaleFinisceConEsci) {
  bottega.apriArchivio();
  QMetaObject::invokeMethod(
      QCoreApplication::instance(),
      [&] {
        QWidget* schermo = bottega.schermate.trova(kSchermo);
        ASSERT_NE(schermo, nullptr);
        EXPECT_TRUE(schermo->isModal());
        QTest::mouseClick(schermo->findChild<QWidget*>(kEsci), Qt::LeftButton);
      },
      Qt::QueuedConnection);
  bottega.schermate.mostraModale(kSchermo, bottega.contesto);
  EXPECT_EQ(bottega.schermate.trova(kSchermo), nullptr);
}

// The till in each state.

class TrasferimentoNelloStato : public TrasferimentoArticoli, public testing::WithParamInterface<char> {};

TEST_P(TrasferimentoNelloStato, CheNonAmmetteTrasferimentiAvviaRestaSpento) {
  bottega.apriArchivio();
  cassa->state(GetParam());
  const SchermoGuidato schermo(bottega, kSchermo);
  schermo.connetti(cassa);
  attendi(bottega,
          {riquadro(QStringLiteral("Funzione non disponibile! Prego porre la cassa nello stato di IDLE o "
                                   "PROGRAMMAZIONE"),
                    Icon::Critical)});
  EXPECT_FALSE(schermo.abilitato(kAvvia));
  QTest::mouseClick(&schermo.controllo(kAvvia), Qt::LeftButton);
  EXPECT_EQ(invii(), 0);
}

INSTANTIATE_TEST_SUITE_P(Stati, TrasferimentoNelloStato, testing::Values('V', 'A', 'L'));

TEST_F(TrasferimentoArticoli, InProgrammazioneLaCassaRiceve) {
  cassa->state('P');
  const SchermoGuidato schermo = pronto();
  schermo.clic(kAvvia);
  attendi(bottega, {kTrasferito});
  EXPECT_EQ(invii(), 1);
}

// The till's faults, each in each of the three calls of a sending.

struct CasoGuasto {
  int modo;
  ecrsim::FaultKind cosa;
};
class TrasferimentoConGuasto : public TrasferimentoArticoli,
                               public testing::WithParamInterface<CasoGuasto> {};

TEST_P(TrasferimentoConGuasto, SiDiceLoSchermoSiChiudeELaCassaHaIlVecchioOIlNuovo) {
  const ShortTimeouts breve;
  const SchermoGuidato schermo = pronto();
  const QByteArray vecchio(240000, 'v');
  cassa.put(kPlu, vecchio);
  ecrsim::Fault guasto;
  guasto.mode = GetParam().modo;
  guasto.what = GetParam().cosa;
  cassa->faults({guasto});
  schermo.clic(kAvvia);
  attendi(bottega, {kComunicazione, kFallita, kErrore});
  EXPECT_FALSE(schermo.vivo());
  const QByteArray rimasto = cassa.byte(kPlu);
  EXPECT_TRUE(rimasto == vecchio || rimasto == immagineAttesa(articoli));
  EXPECT_EQ(bottega.righe(QStringLiteral("SELECT * from TAB_ARTICOLI")), 5000);
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
  return nomeGuasto(caso.param.modo, caso.param.cosa);
}
INSTANTIATE_TEST_SUITE_P(Guasti, TrasferimentoConGuasto, testing::ValuesIn(tuttiIGuasti()), nomeDelCaso);

}  // namespace
