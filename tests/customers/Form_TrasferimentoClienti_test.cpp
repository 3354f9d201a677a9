#include "customers/Form_TrasferimentoClienti.h"

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

const QString kSchermo = QStringLiteral("Form_TrasferimentoClienti");
const QString kAvvia = QStringLiteral("Cmd_Avvia");
const QString kEsci = QStringLiteral("Cmd_Esci");
const QString kConnetti = QStringLiteral("CmdInviaModECR");
const QString kBarra = QStringLiteral("vkBar1");
const QString kOpzione = QStringLiteral("vkOptionAggiornaECR");
const QString kFile = QStringLiteral("clienti.bin");
const Box kTrasferito = box(QStringLiteral("ARCHIVIO DEI CLIENTI CORRETTAMENTE TRASFERITO"), Icon::Warning);
const Box kComunicazione = box(QStringLiteral("Errore nella comunicazione con ECR: *"), Icon::Critical);
const Box kFallita = box(QStringLiteral("Errore nell'invio richiesta dati dei clienti"), Icon::Warning);
const Box kErrore = box(QStringLiteral("Errore durante la programmazione. "), Icon::Warning);

class TrasferimentoClienti : public testing::Test {
 protected:
  TrasferimentoClienti() { ufficio.screens.registra<Form_TrasferimentoClienti>(); }

  /// An archive with three customers and what the till gets of it.
  void apri() {
    ufficio.openArchive();
    ufficio.customer(1, QStringLiteral("BIANCHI"), QStringLiteral("12345678903"));
    ufficio.customer(2, QStringLiteral("VERDI"), {}, 2);
    ufficio.customer(5, QStringLiteral("NERI"));
  }
  GuidedScreen pronto() {
    if (!varGlobal().DB_Clienti.isOpen()) apri();
    GuidedScreen schermo(ufficio, kSchermo);
    schermo.connectTo(cassa);
    EXPECT_TRUE(schermo.enabled(kAvvia));
    return schermo;
  }
  int invii() {
    const auto chiamate = cassa->calls();
    return static_cast<int>(std::ranges::count(chiamate, 6, &ecrsim::Call::mode));
  }
  void attendiPiede(const GuidedScreen& schermo, Kind genere, const QString& testo) {
    EXPECT_EQ(schermo.control<OutcomeBar>("BarraEsito").text(), testo);
    EXPECT_EQ(schermo.control<OutcomeBar>("BarraEsito").kind(), genere);
  }

  const QByteArray atteso = customersFile({{.code = 1, .name = "BIANCHI", .vat = "12345678903"},
                                           {.code = 2, .name = "VERDI"},
                                           {.code = 5, .name = "NERI"}});
  Office ufficio;
  TestTill cassa;
};

}  // namespace

TEST_F(TrasferimentoClienti, AllAperturaCELaSolaOpzioneEAvviaESpento) {
  apri();
  const GuidedScreen schermo(ufficio, kSchermo);
  EXPECT_EQ(schermo.window().windowTitle(), QStringLiteral("Trasferimento Anagrafica Clienti"));
  EXPECT_EQ(schermo.text(kOpzione), QStringLiteral("Aggiornamento anagrafica clienti"));
  EXPECT_TRUE(schermo.control<QRadioButton>(kOpzione).isChecked());
  EXPECT_EQ(schermo.text(kAvvia), QStringLiteral("Avvia"));
  EXPECT_EQ(schermo.text(kEsci), QStringLiteral("Esci"));
  EXPECT_EQ(schermo.text(kConnetti), QStringLiteral("Connetti"));
  EXPECT_EQ(schermo.text(QStringLiteral("vkTextBoxIP_ECR")), QStringLiteral("192.168.0.20"));
  EXPECT_EQ(schermo.text(QStringLiteral("LabelArchivio")), QStringLiteral("Archivio: clienti.mdb"));
  EXPECT_FALSE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_EQ(schermo.focus(), QStringLiteral("vkTextBoxIP_ECR"));
  EXPECT_EQ(schermo.control<QProgressBar>(kBarra).text(), QString());
  attendiPiede(schermo, Kind::Plain, QString());
}

TEST_F(TrasferimentoClienti, AccantoAllOpzioneSiLeggeInRossoCheCosaSiPerde) {
  apri();
  const GuidedScreen schermo(ufficio, kSchermo);
  const QString perdita = QStringLiteral("I clienti che la cassa ha e l'archivio no vanno persi.");
  const auto& frase = schermo.control<QLabel>("LabelPerdita");
  EXPECT_EQ(frase.text(), perdita);
  EXPECT_TRUE(frase.property("danger").toBool());
  EXPECT_TRUE(frase.isVisible());
  EXPECT_EQ(schermo.control(kOpzione).accessibleDescription(), perdita);
}

TEST_F(TrasferimentoClienti, UnArchivioVuotoSiDiceAllAperturaEDaUnaTabellaVuota) {
  ufficio.openArchive();
  const GuidedScreen schermo(ufficio, kSchermo);
  expectBoxes(ufficio, {box(QStringLiteral("Attenzione l'archivio degli clienti e' vuoto"), Icon::Warning)});
  schermo.connectTo(cassa);
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kTrasferito});
  EXPECT_TRUE(cassa.byte(kFile) == QByteArray(44250, '\0'));
  attendiPiede(schermo, Kind::Done, QStringLiteral("Trasferiti 0 clienti, 44.250 byte"));
}

TEST_F(TrasferimentoClienti, UnErroreDelloStoreSiDiceAllAperturaELoSchermoRestaUsabile) {
  ufficio.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  const GuidedScreen schermo(ufficio, kSchermo);
  expectBoxes(ufficio,
              {box(QStringLiteral("Errore nella determinazione del numero degli clienti"), Icon::Warning)});
  EXPECT_TRUE(schermo.alive());
  EXPECT_TRUE(schermo.enabled(kConnetti));
}

TEST_F(TrasferimentoClienti, LaCassaRiceveLaTabellaByteAByte) {
  const GuidedScreen schermo = pronto();
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kTrasferito});
  EXPECT_TRUE(cassa.byte(kFile) == atteso);
  EXPECT_TRUE(ufficio.folder.read(kFile) == atteso);
  attendiPiede(schermo, Kind::Done, QStringLiteral("Trasferiti 3 clienti, 44.250 byte"));
  EXPECT_EQ(schermo.control<QProgressBar>(kBarra).minimum(), 0);
  EXPECT_EQ(schermo.control<QProgressBar>(kBarra).maximum(), 250);
  EXPECT_EQ(schermo.control<QProgressBar>(kBarra).text(), QStringLiteral("100%"));
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_EQ(schermo.focus(), kEsci);
  EXPECT_FALSE(cassa->transferOpen());
}

TEST_F(TrasferimentoClienti, LArchivioRestaComEra) {
  const GuidedScreen schermo = pronto();
  const QStringList prima = ufficio.rows(QStringLiteral("SELECT * from TAB_ANAG_CLIENTI"));
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kTrasferito});
  EXPECT_EQ(ufficio.rows(QStringLiteral("SELECT * from TAB_ANAG_CLIENTI")), prima);
}

TEST_F(TrasferimentoClienti, DopoLaRiuscitaSiInviaAncora) {
  const GuidedScreen schermo = pronto();
  schermo.click(kAvvia);
  ufficio.execute(QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI where ID_Cliente = 1"));
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kTrasferito, kTrasferito});
  EXPECT_EQ(invii(), 2);
  EXPECT_TRUE(cassa.byte(kFile).left(177) == QByteArray(177, '\0'));
}

TEST_F(TrasferimentoClienti, DiChiNonHaPostoSullaCassaSiDiceAllAperturaAllaConnessioneEAllaFine) {
  apri();
  ufficio.customer(251, QStringLiteral("OLTRE"));
  const QString avviso =
      QStringLiteral("I clienti con un codice oltre 250 restano sul PC: la cassa non ha posto per loro.");
  const GuidedScreen schermo(ufficio, kSchermo);
  attendiPiede(schermo, Kind::Warning, avviso);
  schermo.connectTo(cassa);
  attendiPiede(schermo, Kind::Warning,
               QStringLiteral("Collegato a %1: IDLE. ").arg(cassa.address()) + avviso);
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kTrasferito});
  attendiPiede(schermo, Kind::Warning, QStringLiteral("Trasferiti 3 clienti, 44.250 byte. ") + avviso);
  EXPECT_TRUE(cassa.byte(kFile) == atteso);
}

TEST_F(TrasferimentoClienti, SeIlFileNonSiPuoScrivereSiMostraLoStessoTestoSenzaInviareNullaEIlPiedeLoDice) {
  const GuidedScreen schermo = pronto();
  ASSERT_TRUE(QDir().mkdir(ufficio.folder.file(kFile)));
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kTrasferito});
  EXPECT_EQ(invii(), 0);
  attendiPiede(schermo, Kind::Failed,
               QStringLiteral("Nulla è stato inviato: il file clienti.bin non si può scrivere."));
  EXPECT_NE(schermo.control<QProgressBar>(kBarra).text(), QStringLiteral("100%"));
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
}

TEST_F(TrasferimentoClienti, SulDiscoPienoIlProgrammaTerminaENullaParte) {
  const GuidedScreen schermo = pronto();
  {
    const FullDisk pieno(20000);
    schermo.click(kAvvia);
  }
  expectBoxes(ufficio,
              {criticalBox(QStringLiteral("RiempiCLI: uscita dal programma per condizione anomala 61 "
                                          "- Disco pieno: clienti.bin"))});
  EXPECT_TRUE(ufficio.user.terminated());
  EXPECT_EQ(invii(), 0);
}

TEST_F(TrasferimentoClienti, UnArchivioDAltroGenereTerminaIlProgramma) {
  const GuidedScreen schermo = pronto();
  customers::ChiudiDatabase();
  ufficio.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  schermo.click(kAvvia);
  EXPECT_TRUE(ufficio.user.terminated());
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
  expectBoxes(ufficio, {criticalBox(QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON "
                                                   "CORRETTO. PROCEDURA ABORTITA !!!"))});
  EXPECT_EQ(invii(), 0);
}

TEST_F(TrasferimentoClienti, UnArchivioBloccatoTerminaIlProgrammaEUnoInLetturaSiInvia) {
  const GuidedScreen schermo = pronto();
  {
    const OtherProgram lettore(varGlobal().NomeDB_Clienti,
                               {QStringLiteral("BEGIN"), QStringLiteral("SELECT * FROM TAB_FATTURE")});
    schermo.click(kAvvia);
  }
  expectBoxes(ufficio, {kTrasferito});
  {
    const OtherProgram altro(varGlobal().NomeDB_Clienti, {QStringLiteral("BEGIN EXCLUSIVE")});
    schermo.click(kAvvia);
  }
  expectBoxes(
      ufficio,
      {criticalBox(QStringLiteral("RiempiCLI: uscita dal programma per condizione anomala 3260 - *"))});
  EXPECT_TRUE(ufficio.user.terminated());
  EXPECT_EQ(invii(), 1);
}

TEST_F(TrasferimentoClienti, IComandiSonoSpentiMentreInviaEClicEscEChiusuraNonFannoNulla) {
  const GuidedScreen schermo = pronto();
  bool spenti = true;
  ufficio.user.onPass = [&] {
    spenti = spenti && !schermo.enabled(kAvvia) && !schermo.enabled(kEsci);
    schermo.impatience();
  };
  schermo.click(kAvvia);
  ufficio.user.onPass = nullptr;
  expectBoxes(ufficio, {kTrasferito});
  EXPECT_TRUE(spenti);
  EXPECT_GE(ufficio.user.passes(), 250);
  EXPECT_EQ(invii(), 1);
  EXPECT_TRUE(schermo.alive());
  EXPECT_TRUE(varGlobal().DB_Clienti.isOpen());
}

TEST_F(TrasferimentoClienti, OgniPassoSiLeggePrimaDellaSuaChiamata) {
  const GuidedScreen schermo = pronto();
  const qsizetype prima = callsOf(cassa).size();
  PaintedSteps dipinti(schermo.window());
  QStringList fatte;
  dipinti.onStep = [&] { fatte << callsOf(cassa).mid(prima).join(u' '); };
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kTrasferito});
  ASSERT_EQ(dipinti.steps().size(), 3);
  EXPECT_EQ(dipinti.steps()[0], QStringLiteral("Apertura del trasferimento … (fino a 5 s)"));
  EXPECT_TRUE(dipinti.steps()[1].startsWith(QStringLiteral("Invio d")));
  EXPECT_EQ(dipinti.steps()[2], QStringLiteral("Chiusura del trasferimento … (fino a 5 s)"));
  EXPECT_EQ(fatte, (QStringList{QString(), QStringLiteral("1:"), QStringLiteral("1: 6:clienti.bin")}));
}

TEST_F(TrasferimentoClienti, ConUnAltroProgrammaAlLavoroNullaSiTocca) {
  const GuidedScreen schermo = pronto();
  ufficio.folder.write(kFile, "suo");
  const ecrlink::ScambioEsclusivo altro;
  schermo.click(kAvvia);
  expectBoxes(ufficio, {box(QStringLiteral("Un altro programma sta scambiando dati con una cassa nella "
                                           "cartella *"),
                            Icon::Warning),
                        kFallita, kErrore});
  EXPECT_EQ(ufficio.folder.read(kFile), QByteArray("suo"));
  EXPECT_EQ(invii(), 0);
  EXPECT_FALSE(schermo.alive());
}

TEST_F(TrasferimentoClienti, LaCartellaEPresaDalFileAllInvioELiberaAiRiquadriDopo) {
  const GuidedScreen schermo = pronto();
  const auto libera = [] {
    try {
      const ecrlink::ScambioEsclusivo altro;
      return true;
    } catch (const Errore&) {
      return false;
    }
  };
  bool presa = true;
  int passaggi = 0;
  // The first pass is the screen's own, before the work.
  ufficio.user.onPass = [&] { presa = presa && (passaggi++ == 0 || !libera()); };
  std::vector<bool> liberaAlRiquadro;
  ufficio.user.onBox = [&](const Box&) { liberaAlRiquadro.push_back(libera()); };
  schermo.click(kAvvia);
  EXPECT_TRUE(presa);
  cassa->faults({{.mode = 6}});
  schermo.click(kAvvia);
  ufficio.user.onPass = nullptr;
  ufficio.user.onBox = nullptr;
  expectBoxes(ufficio, {kTrasferito, kComunicazione, kFallita, kErrore});
  EXPECT_EQ(liberaAlRiquadro, (std::vector{true, false, true, true}));
}

TEST_F(TrasferimentoClienti, LaCassaSpentaDopoLaConnessioneSiDiceELoSchermoSiChiude) {
  const GuidedScreen schermo = pronto();
  cassa.switchOff();
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kComunicazione, kFallita, kErrore});
  EXPECT_FALSE(schermo.alive());
}

TEST_F(TrasferimentoClienti, EsciSiRiaccendePrimaDellUltimoRiquadro) {
  const GuidedScreen schermo = pronto();
  cassa->faults({{.mode = 6}});
  std::vector<bool> esci;
  ufficio.user.onBox = [&](const Box&) { esci.push_back(schermo.enabled(kEsci)); };
  schermo.click(kAvvia);
  ufficio.user.onBox = nullptr;
  expectBoxes(ufficio, {kComunicazione, kFallita, kErrore});
  EXPECT_EQ(esci, (std::vector{false, false, true}));
}

TEST_F(TrasferimentoClienti, EsciRiportaAllaGestioneDeiClienti) {
  ufficio.screens.registra(QStringLiteral("Form_GestioneClienti"), [](Contesto&) { return new QWidget; });
  apri();
  const GuidedScreen schermo(ufficio, kSchermo);
  schermo.click(kEsci);
  EXPECT_FALSE(schermo.alive());
  ASSERT_NE(ufficio.screens.trova(QStringLiteral("Form_GestioneClienti")), nullptr);
  EXPECT_TRUE(ufficio.screens.trova(QStringLiteral("Form_GestioneClienti"))->isVisible());
}

TEST_F(TrasferimentoClienti, EscChiudeLoSchermoFermoEF9Avvia) {
  const GuidedScreen schermo = pronto();
  EXPECT_EQ(schermo.control(kAvvia).toolTip(), QStringLiteral("Avvia il trasferimento verso la cassa (F9)"));
  EXPECT_EQ(schermo.control(kEsci).toolTip(), QStringLiteral("Torna alla gestione clienti (Esc)"));
  schermo.key(Qt::Key_F9);
  expectBoxes(ufficio, {kTrasferito});
  EXPECT_EQ(invii(), 1);
  schermo.key(Qt::Key_Escape);
  EXPECT_FALSE(schermo.alive());
}

TEST_F(TrasferimentoClienti, ADodiciPuntiStaIn1024SenzaTagliareDidascalie) {
  const GuidedScreen schermo = pronto();
  expectFitsAtTwelvePoints(schermo);
}

// The till in each state, and its faults in each of the three calls of a sending.

namespace {

class TrasferimentoClientiNelloStato : public TrasferimentoClienti,
                                       public testing::WithParamInterface<char> {};

struct CasoGuasto {
  int modo;
  ecrsim::FaultKind cosa;
};
void PrintTo(const CasoGuasto& caso, std::ostream* uscita) {
  *uscita << faultName(caso.modo, caso.cosa);
}
class TrasferimentoClientiConGuasto : public TrasferimentoClienti,
                                      public testing::WithParamInterface<CasoGuasto> {};

std::vector<CasoGuasto> tuttiIGuasti() {
  using ecrsim::FaultKind;
  std::vector<CasoGuasto> casi{{6, FaultKind::ShortFile}, {6, FaultKind::LongFile}};
  for (const int modo : {1, 2, 6})
    for (const FaultKind cosa : {FaultKind::Code, FaultKind::Silence, FaultKind::CutBefore,
                                 FaultKind::CutWithin, FaultKind::CutAfter, FaultKind::Garbage})
      casi.push_back({modo, cosa});
  return casi;
}

}  // namespace

TEST_P(TrasferimentoClientiNelloStato, CheNonAmmetteTrasferimentiAvviaRestaSpento) {
  apri();
  cassa->state(GetParam());
  const GuidedScreen schermo(ufficio, kSchermo);
  schermo.connectTo(cassa);
  expectBoxes(ufficio,
              {criticalBox(QStringLiteral("Funzione non disponibile! Prego porre la cassa nello stato "
                                          "di IDLE o PROGRAMMAZIONE"))});
  EXPECT_FALSE(schermo.enabled(kAvvia));
  schermo.click(kAvvia);
  EXPECT_EQ(invii(), 0);
}

INSTANTIATE_TEST_SUITE_P(Stati, TrasferimentoClientiNelloStato, testing::Values('V', 'A', 'L'));

TEST_P(TrasferimentoClientiConGuasto, SiDiceLoSchermoSiChiudeELaCassaHaIlVecchioOIlNuovo) {
  const ShortTimeouts breve;
  const GuidedScreen schermo = pronto();
  const QByteArray vecchio(44250, 'v');
  cassa.put(kFile, vecchio);
  cassa->faults({{.mode = GetParam().modo, .what = GetParam().cosa}});
  schermo.click(kAvvia);
  expectBoxes(ufficio, {kComunicazione, kFallita, kErrore});
  EXPECT_FALSE(schermo.alive());
  const QByteArray rimasto = cassa.byte(kFile);
  EXPECT_TRUE(rimasto == vecchio || rimasto == atteso);
  EXPECT_EQ(ufficio.rows(QStringLiteral("SELECT * from TAB_ANAG_CLIENTI")).size(), 4);
}

INSTANTIATE_TEST_SUITE_P(Guasti, TrasferimentoClientiConGuasto, testing::ValuesIn(tuttiIGuasti()),
                         [](const testing::TestParamInfo<CasoGuasto>& caso) {
                           return faultName(caso.param.modo, caso.param.cosa);
                         });
