#include "customers/registry.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "customers/customer_database.h"
#include "customers/office.h"
#include "customers/vat_number.h"
#include "sostegno/troubles.h"

using namespace customers;

namespace {

const QString kVera = QStringLiteral("00905811006");
const QString kAltra = QStringLiteral("12345678903");
const QString kErrata = QStringLiteral("00905811007");

const Box kNessuno = box(QStringLiteral("Attenzione nessun cliente selezionato!!!"), Icon::Warning);
const Box kObbligatori =
    box(QStringLiteral("Attenzione i campi Ragione Sociale, Indirizzo, Citta, Partita IVA "
                       "sono obbligatori!!!"),
        Icon::Critical);
const Box kAnonimo =
    box(QStringLiteral("Attenzione il cliente anonimo non puo' essere eliminato o modificato !!!"),
        Icon::Warning);
const Box kIvaErrata =
    box(QStringLiteral("Attenzione il valore immesso per la partita IVA non e' corretto. Prego verificare le "
                       "cifre immesse!!!"),
        Icon::Critical);
const Box kIvaAltrui =
    box(QStringLiteral("Attenzione la Partita IVA [00905811006] e' gia' associata ad un altro cliente!!!"),
        Icon::Warning);
const Box kIvaPresente =
    box(QStringLiteral("Attenzione la Partita IVA [00905811006] e' gia' presente!!!"), Icon::Warning);
const Box kDomanda{QStringLiteral("Attenzione questa operazione comporterà l'eliminazione definitiva del "
                                  "cliente. Continuare ?"),
                   Icon::Warning, QStringLiteral("Cancellazione Cliente"), Buttons::OkCancel, Preset::Last};

struct Anagrafica : testing::Test {
  Office ufficio;
  void SetUp() override { ufficio.openArchive(); }

  static CampiCliente campi(const QString& codice = QStringLiteral("7")) {
    return {codice,
            QString(),
            QStringLiteral("Caffè à la page"),
            QStringLiteral("via Roma 1"),
            QStringLiteral("Forlì"),
            kVera,
            QStringLiteral("paga € 30 µ")};
  }
  QStringList clienti() {
    return ufficio.rows(
        QStringLiteral("SELECT * FROM TAB_ANAG_CLIENTI WHERE ID_Cliente <> 0 ORDER BY ID_Cliente"));
  }
  EsitoCliente memorizza(CampiCliente scritti) { return MemorizzaCliente(scritti, ufficio.contesto); }
  EsitoCliente modifica(const CampiCliente& scritti) { return ModificaCliente(scritti, ufficio.contesto); }
  EsitoCliente elimina(const QString& codice) { return EliminaCliente(codice, ufficio.contesto); }
  void attendi(const std::vector<Box>& attesi) { expectBoxes(ufficio, attesi); }
};

Box inserimentoFallito(const QString& seguito) {
  return criticalBox(QStringLiteral("Errore nell' inserimento cliente Errore n° ") + seguito);
}
Box modificaFallita(const QString& seguito) {
  return criticalBox(QStringLiteral("Errore nella modifica dati cliente Errore n° ") + seguito);
}
Box eliminazioneFallita(const QString& seguito) {
  return criticalBox(QStringLiteral("Errore nell' eliminazione del cliente Errore n° ") + seguito);
}

/// The fields that a person may write an apostrophe into.
using Campo = QString CampiCliente::*;
const std::vector<Campo> kTesti{&CampiCliente::ragioneSociale, &CampiCliente::indirizzo, &CampiCliente::citta,
                                &CampiCliente::nota};

}  // namespace

// Texts and statements.

TEST(TestiDelCliente, UnApostrofoSoloELQuelloCheNonNeHaUnAltroAccanto) {
  EXPECT_FALSE(ApostrofoSolo(QStringLiteral("ROSSI")));
  EXPECT_FALSE(ApostrofoSolo(QStringLiteral("L''ORO")));
  EXPECT_FALSE(ApostrofoSolo(QStringLiteral("''''")));
  EXPECT_TRUE(ApostrofoSolo(QStringLiteral("L'ORO")));
  EXPECT_TRUE(ApostrofoSolo(QStringLiteral("ORO'")));
  EXPECT_TRUE(ApostrofoSolo(QStringLiteral("'''")));
  EXPECT_TRUE(ApostrofoSolo(QStringLiteral("A'B'C")));
}

TEST(IstruzioniDelRegistro, LElencoEQuelloDettato) {
  EXPECT_EQ(StatementElencoClienti().sql(),
            QStringLiteral("SELECT ID_Cliente,  Ragione_Sociale,  Indirizzo,  Citta,  Partita_IVA,  Nota, "
                           "Stato FROM TAB_ANAG_CLIENTI ORDER BY ID_Cliente,Ragione_Sociale ASC;"));
}

TEST(IstruzioniDelRegistro, SenzaCampiLaRicercaNonHaCondizioni) {
  EXPECT_EQ(StatementRicercaClienti({}).sql(),
            QStringLiteral("SELECT  ID_Cliente,  Ragione_Sociale,  Indirizzo,  citta,  Partita_IVA,  Nota,  "
                           "Stato FROM TAB_ANAG_CLIENTI ORDER BY ID_Cliente,Ragione_Sociale ASC "));
}

TEST(IstruzioniDelRegistro, OgniCampoPienoAggiungeLaSuaCondizioneEIlCodiceNo) {
  const CampiCliente campi{QStringLiteral("7"), QStringLiteral("*"), QStringLiteral("rò"),
                           QStringLiteral("v"), QStringLiteral("c"), QStringLiteral("01"),
                           QStringLiteral("n")};
  EXPECT_EQ(
      StatementRicercaClienti(campi).sql(),
      QStringLiteral("SELECT  ID_Cliente,  Ragione_Sociale,  Indirizzo,  citta,  Partita_IVA,  Nota,  Stato "
                     "FROM TAB_ANAG_CLIENTI WHERE  Ragione_Sociale like 'RÒ*' AND  Indirizzo like 'V*' AND  "
                     "Citta like 'C*' AND  Partita_IVA like '01*' AND  Nota like 'N*' "
                     "ORDER BY ID_Cliente,Ragione_Sociale ASC "));
}

TEST(IstruzioniDelRegistro, UnSoloCampoUnaSolaCondizione) {
  EXPECT_EQ(
      StatementRicercaClienti({.nota = QStringLiteral("x")}).sql(),
      QStringLiteral("SELECT  ID_Cliente,  Ragione_Sociale,  Indirizzo,  citta,  Partita_IVA,  Nota,  Stato "
                     "FROM TAB_ANAG_CLIENTI WHERE  Nota like 'X*' ORDER BY ID_Cliente,Ragione_Sociale ASC "));
}

TEST(IstruzioniDelRegistro, UnApostrofoRompeLaRicerca) {
  for (const Campo campo : {&CampiCliente::ragioneSociale, &CampiCliente::indirizzo, &CampiCliente::citta,
                            &CampiCliente::partitaIVA, &CampiCliente::nota}) {
    CampiCliente campi;
    campi.*campo = QStringLiteral("A' OR '1'='1");
    EXPECT_TRUE(StatementRicercaClienti(campi).broken().has_value());
  }
}

// The checks.

TEST(ControlliDelCliente, IlCodiceVaDaUnoADuecentocinquanta) {
  const QString messaggio =
      QStringLiteral("Attenzione il codice cliente deve essere compreso tra 1 e 250 !!!!");
  for (const char* buono : {"1", "250", "007"})
    EXPECT_EQ(ControllaCodiceCliente(QLatin1String(buono)), std::nullopt) << buono;
  for (const char* cattivo : {"", "0", "000", "251", "999", "65535"})
    EXPECT_EQ(ControllaCodiceCliente(QLatin1String(cattivo)), messaggio) << cattivo;
}

TEST(ControlliDelCliente, DueVirgoleNonSonoUnNumero) {
  EXPECT_EQ(ControllaVirgole(QStringLiteral("1,2")), std::nullopt);
  EXPECT_EQ(ControllaVirgole(QStringLiteral("1,2,3")),
            QStringLiteral("Attenzione il valore immesso non è di tipo numerico !!!"));
}

TEST(ControlliDelCliente, UnaPartitaIVAVuotaOSbagliataHaIlSuoMessaggio) {
  EXPECT_EQ(ControllaPartitaIVA(kVera), std::nullopt);
  EXPECT_EQ(ControllaPartitaIVA(QStringLiteral("905811006")), std::nullopt) << "filled up with zeros";
  EXPECT_EQ(ControllaPartitaIVA(QStringLiteral("00000000000")), std::nullopt);
  EXPECT_EQ(ControllaPartitaIVA(QString())->messaggio,
            QStringLiteral("Attenzione il campo Partita IVA non e' valorizzato"));
  EXPECT_EQ(ControllaPartitaIVA(kErrata)->messaggio, kIvaErrata.text);
  EXPECT_EQ(ControllaPartitaIVA(kErrata)->icona, Icon::Critical);
  EXPECT_EQ(ControllaPartitaIVA(QStringLiteral("00000008900"))->messaggio, kIvaErrata.text);
}

TEST(ControlliDelCliente, IlConteggioHaCinqueCifre) {
  EXPECT_EQ(QuantiClientiAVideo(0), QStringLiteral("00000"));
  EXPECT_EQ(QuantiClientiAVideo(250), QStringLiteral("00250"));
  EXPECT_EQ(QuantiClientiAVideo(-1), QStringLiteral("-00001"));
}

/// Store and change make the same checks first.
class ControlliPrimaDiScrivere : public Anagrafica, public testing::WithParamInterface<bool> {
 protected:
  EsitoCliente prova(const CampiCliente& scritti) {
    return GetParam() ? memorizza(scritti) : modifica(scritti);
  }
};
INSTANTIATE_TEST_SUITE_P(MemorizzaEModifica, ControlliPrimaDiScrivere, testing::Bool());

TEST_P(ControlliPrimaDiScrivere, SenzaCodiceNonCENessunoPrimaDiOgniAltraCosa) {
  const EsitoCliente esito = prova({});
  EXPECT_EQ(esito.esito, EsitoRegistro::Rifiutato);
  EXPECT_EQ(esito.campo, kClienteCodice);
  attendi({kNessuno});
}

TEST_P(ControlliPrimaDiScrivere, OgniCampoObbligatorioVuotoFermaEDiceIlSuoPosto) {
  const std::vector<std::pair<Campo, ColonnaCliente>> obbligatori{
      {&CampiCliente::ragioneSociale, kClienteRagioneSociale},
      {&CampiCliente::indirizzo, kClienteIndirizzo},
      {&CampiCliente::citta, kClienteCitta},
      {&CampiCliente::partitaIVA, kClientePartitaIVA}};
  for (const auto& [campo, posto] : obbligatori) {
    CampiCliente scritti = campi();
    scritti.*campo = QString();
    EXPECT_EQ(prova(scritti).campo, posto);
    attendi({kObbligatori});
  }
  EXPECT_EQ(clienti(), QStringList());
}

TEST_P(ControlliPrimaDiScrivere, UnaPartitaIVAVuotaVaBeneAlControlloMaEObbligatoria) {
  EXPECT_EQ(CheckPartitaIVA(QString()), 0);
  CampiCliente scritti = campi();
  scritti.partitaIVA = QString();
  const EsitoCliente esito = prova(scritti);
  EXPECT_EQ(esito.esito, EsitoRegistro::Rifiutato);
  EXPECT_EQ(esito.campo, kClientePartitaIVA);
  attendi({kObbligatori});
  EXPECT_EQ(clienti(), QStringList());
}

TEST_P(ControlliPrimaDiScrivere, LAnonimoSiDiceDopoIObbligatoriEPrimaDellaPartitaIVA) {
  prova({.codice = QStringLiteral("0")});
  attendi({kObbligatori});
  CampiCliente scritti = campi(QStringLiteral("0"));
  scritti.partitaIVA = kErrata;
  const EsitoCliente esito = prova(scritti);
  EXPECT_TRUE(esito.anonimo);
  EXPECT_EQ(esito.esito, EsitoRegistro::Rifiutato);
  attendi({kAnonimo});
  EXPECT_EQ(ufficio.value(QStringLiteral("SELECT Ragione_Sociale FROM TAB_ANAG_CLIENTI WHERE ID_Cliente=0")),
            QString());
}

TEST_P(ControlliPrimaDiScrivere, UnaPartitaIVASbagliataFermaPrimaDiCercarla) {
  ufficio.customer(7, QStringLiteral("ROSSI"));
  ufficio.customer(8, QStringLiteral("VERDI"), kErrata);
  CampiCliente scritti = campi();
  scritti.partitaIVA = kErrata;
  const EsitoCliente esito = prova(scritti);
  EXPECT_EQ(esito.campo, kClientePartitaIVA);
  EXPECT_FALSE(esito.anonimo);
  attendi({kIvaErrata});
}

// Store.

TEST_F(Anagrafica, UnNuovoClienteSiMemorizzaInMaiuscoleConLoStatoOrdinario) {
  CampiCliente scritti = campi();
  scritti.stato = QStringLiteral("*");
  const EsitoCliente esito = MemorizzaCliente(scritti, ufficio.contesto);
  EXPECT_EQ(esito.esito, EsitoRegistro::Fatto);
  EXPECT_EQ(esito.righe, 1);
  EXPECT_EQ(scritti.stato, QStringLiteral(" "));
  EXPECT_EQ(clienti(),
            QStringList{QStringLiteral("7|CAFFÈ À LA PAGE|VIA ROMA 1|FORLÌ|00905811006|PAGA € 30 µ|1")});
  EXPECT_EQ(ufficio.workspace.level(), 0);
}

TEST_F(Anagrafica, UnaPartitaIVAPresenteSiDiceDueVolteENonSiScrive) {
  ufficio.customer(1, QStringLiteral("ROSSI"), kVera);
  CampiCliente scritti = campi();
  const EsitoCliente esito = MemorizzaCliente(scritti, ufficio.contesto);
  EXPECT_EQ(esito.esito, EsitoRegistro::Rifiutato);
  EXPECT_EQ(esito.campo, kClientePartitaIVA);
  attendi({kIvaAltrui, kIvaPresente});
  EXPECT_EQ(scritti.stato, QString()) << "not yet";
  EXPECT_EQ(clienti().size(), 1);
}

TEST_F(Anagrafica, ConLaRicezioneSuiClientiLaPartitaIVAPresenteSiDiceUnaVoltaSola) {
  ufficio.customer(1, QStringLiteral("ROSSI"), kVera);
  statoClienti().ricezioneClienti = true;
  EXPECT_EQ(memorizza(campi()).esito, EsitoRegistro::Rifiutato);
  attendi({kIvaPresente});
}

TEST_F(Anagrafica, DueClientiSenzaPartitaIVANonSiPossonoMemorizzare) {
  CampiCliente scritti = campi();
  scritti.partitaIVA = QStringLiteral("00000000000");
  EXPECT_EQ(memorizza(scritti).esito, EsitoRegistro::Fatto);
  scritti.codice = QStringLiteral("8");
  EXPECT_EQ(memorizza(scritti).esito, EsitoRegistro::Rifiutato);
  EXPECT_EQ(ufficio.user.takeBoxes().size(), 2U);
}

TEST_F(Anagrafica, UnaPartitaIVACheNonSiPuoCercareFermaColMotivo) {
  CampiCliente scritti = campi();
  // Characters that are no digits count as 0: the check lets this one pass.
  scritti.partitaIVA = QStringLiteral("0000000000'");
  EXPECT_EQ(memorizza(scritti).esito, EsitoRegistro::Fallito);
  attendi({criticalBox(QStringLiteral("CheckEsistenzaPartitaIVA 3075 - *"))});
  EXPECT_EQ(clienti(), QStringList());
}

TEST_F(Anagrafica, UnApostrofoInOgniTestoDelNuovoSiDiceENonLasciaNulla) {
  for (const Campo campo : kTesti) {
    CampiCliente scritti = campi();
    scritti.*campo = QStringLiteral("L'ORO");
    EXPECT_EQ(MemorizzaCliente(scritti, ufficio.contesto).esito, EsitoRegistro::Fallito);
    EXPECT_EQ(scritti.stato, QStringLiteral(" ")) << "the field was set before the statement";
    attendi({inserimentoFallito(QStringLiteral("3075\n*"))});
  }
  EXPECT_EQ(clienti(), QStringList());
  EXPECT_EQ(ufficio.workspace.level(), 0);
}

TEST_F(Anagrafica, DueApostrofiNeSonoUno) {
  CampiCliente scritti = campi();
  scritti.ragioneSociale = QStringLiteral("l''oro");
  EXPECT_EQ(memorizza(scritti).esito, EsitoRegistro::Fatto);
  EXPECT_EQ(ufficio.value(QStringLiteral("SELECT Ragione_Sociale FROM TAB_ANAG_CLIENTI WHERE ID_Cliente=7")),
            QStringLiteral("L'ORO"));
}

TEST_F(Anagrafica, UnTestoNonDiventaMaiIstruzione) {
  ufficio.customer(1, QStringLiteral("ROSSI"));
  for (const Campo campo : kTesti) {
    CampiCliente scritti = campi();
    scritti.*campo = QStringLiteral("x',0); DELETE FROM TAB_ANAG_CLIENTI; --");
    memorizza(scritti);
    attendi({inserimentoFallito(QStringLiteral("3075\n*"))});
    scritti.codice = QStringLiteral("1");
    modifica(scritti);
    attendi({modificaFallita(QStringLiteral("3075*"))});
  }
  EXPECT_EQ(clienti(), QStringList{QStringLiteral("1|ROSSI|||||1")});
}

TEST_F(Anagrafica, UnCodiceCheCEGiaSiDice) {
  ufficio.customer(7, QStringLiteral("ROSSI"), kAltra);
  EXPECT_EQ(memorizza(campi()).esito, EsitoRegistro::Fallito);
  attendi({inserimentoFallito(QStringLiteral("3022\n*"))});
  EXPECT_EQ(clienti(), QStringList{QStringLiteral("7|ROSSI|||12345678903||1")});
}

TEST_F(Anagrafica, CodiciOltreLaTabellaDellaCassaSiScrivonoEUnCodiceCheNonENumeroNo) {
  for (const char* codice : {"251", "65535"}) {
    ufficio.execute(QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI"));
    EXPECT_EQ(memorizza(campi(QLatin1String(codice))).esito, EsitoRegistro::Fatto) << codice;
    EXPECT_EQ(modifica(campi(QLatin1String(codice))).righe, 1) << codice;
  }
  ufficio.execute(QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI"));
  EXPECT_EQ(memorizza(campi(QStringLiteral("1 OR 1"))).esito, EsitoRegistro::Fallito);
  EXPECT_EQ(ufficio.user.takeBoxes().size(), 1U);
  EXPECT_EQ(clienti(), QStringList());
}

// Change.

TEST_F(Anagrafica, UnaModificaScriveInMaiuscoleETogliLAsterisco) {
  ufficio.customer(7, QString(), {}, 2);
  ufficio.customer(8, QStringLiteral("VERDI"));
  for (const char* stato : {"*", "0", "", " "}) {
    CampiCliente scritti = campi();
    scritti.stato = QLatin1String(stato);
    ufficio.execute(QStringLiteral("UPDATE TAB_ANAG_CLIENTI SET Stato =2 WHERE ID_Cliente =7"));
    const EsitoCliente esito = modifica(scritti);
    EXPECT_EQ(esito.esito, EsitoRegistro::Fatto);
    EXPECT_EQ(esito.righe, 1);
    EXPECT_EQ(clienti(),
              (QStringList{QStringLiteral("7|CAFFÈ À LA PAGE|VIA ROMA 1|FORLÌ|00905811006|PAGA € 30 "
                                          "µ|1"),
                           QStringLiteral("8|VERDI|||||1")}))
        << stato;
  }
  EXPECT_EQ(ufficio.workspace.level(), 0);
}

TEST_F(Anagrafica, LaPropriaPartitaIVASiPuoSalvareDiNuovo) {
  ufficio.customer(7, QStringLiteral("ROSSI"), kVera);
  EXPECT_EQ(modifica(campi()).esito, EsitoRegistro::Fatto);
  EXPECT_EQ(modifica(campi(QStringLiteral("007"))).esito, EsitoRegistro::Fatto) << "the same code";
}

TEST_F(Anagrafica, LaPartitaIVADiUnAltroSiDiceUnaVoltaSola) {
  ufficio.customer(7, QStringLiteral("ROSSI"), kVera);
  ufficio.customer(9, QStringLiteral("BIANCHI"), kVera);
  const EsitoCliente esito = modifica(campi());
  EXPECT_EQ(esito.esito, EsitoRegistro::Rifiutato);
  EXPECT_EQ(esito.campo, kClientePartitaIVA);
  attendi({kIvaAltrui});
  EXPECT_EQ(ufficio.value(QStringLiteral("SELECT Ragione_Sociale FROM TAB_ANAG_CLIENTI WHERE ID_Cliente=7")),
            QStringLiteral("ROSSI"));
}

TEST_F(Anagrafica, ModificareChiNonCENonScriveNulla) {
  const EsitoCliente esito = modifica(campi());
  EXPECT_EQ(esito.esito, EsitoRegistro::Fatto);
  EXPECT_EQ(esito.righe, 0);
  EXPECT_EQ(clienti(), QStringList());
}

TEST_F(Anagrafica, UnApostrofoInOgniTestoAnnullaLaModifica) {
  ufficio.customer(7, QStringLiteral("ROSSI"));
  for (const Campo campo : kTesti) {
    CampiCliente scritti = campi();
    scritti.*campo = QStringLiteral("L'ORO");
    EXPECT_EQ(modifica(scritti).esito, EsitoRegistro::Fallito);
    attendi({modificaFallita(QStringLiteral("3075Errore di sintassi*"))});
    EXPECT_EQ(ufficio.workspace.level(), 0);
  }
  EXPECT_EQ(clienti(), QStringList{QStringLiteral("7|ROSSI|||||1")});
}

TEST_F(Anagrafica, UnaPartitaIVACheNonSiCercaSiDiceColMessaggioDellaModifica) {
  ufficio.customer(7, QStringLiteral("ROSSI"));
  CampiCliente scritti = campi();
  scritti.partitaIVA = QStringLiteral("0000000000'");
  EXPECT_EQ(modifica(scritti).esito, EsitoRegistro::Fallito);
  attendi({modificaFallita(QStringLiteral("3075*"))});
}

TEST_F(Anagrafica, LaModificaNonSiTieneSeNonSiConferma) {
  ufficio.customer(7, QStringLiteral("ROSSI"));
  {
    const OtherProgram lettore(varGlobal().NomeDB_Clienti,
                               {QStringLiteral("BEGIN"), QStringLiteral("SELECT * FROM TAB_ANAG_CLIENTI")});
    EXPECT_EQ(modifica(campi()).esito, EsitoRegistro::Fallito);
  }
  attendi({modificaFallita(QStringLiteral("3260*"))});
  EXPECT_EQ(ufficio.workspace.level(), 0);
  EXPECT_EQ(clienti(), QStringList{QStringLiteral("7|ROSSI|||||1")});
}

// Delete.

TEST_F(Anagrafica, SenzaCodiceNonSiElimina) {
  EXPECT_EQ(elimina({}).esito, EsitoRegistro::Rifiutato);
  attendi({kNessuno});
}

TEST(AnagraficaChiusa, LAnonimoNonSiEliminaENemmenoSiApreLArchivio) {
  Office ufficio;
  EXPECT_EQ(EliminaCliente(QStringLiteral("0"), ufficio.contesto).esito, EsitoRegistro::Rifiutato);
  expectBoxes(ufficio, {kAnonimo});
}

TEST_F(Anagrafica, ChiHaFattureNonSiElimina) {
  ufficio.customer(7, QStringLiteral("ROSSI"));
  ufficio.invoice(7, QStringLiteral("2024/1"), QStringLiteral("05/03/2024 10:20:30"), 100);
  EXPECT_EQ(elimina(QStringLiteral("7")).esito, EsitoRegistro::Rifiutato);
  attendi(
      {box(QStringLiteral("Attenzione non e' possibile eliminare il cliente [7] in quanto ha delle fatture "
                          "associate !!!"),
           Icon::Warning)});
  EXPECT_EQ(ufficio.workspace.level(), 0);
  EXPECT_EQ(clienti().size(), 1);
}

TEST_F(Anagrafica, LeFattureDiUnAltroNonContano) {
  ufficio.customer(7, QStringLiteral("ROSSI"));
  ufficio.invoice(70, QStringLiteral("2024/1"), QStringLiteral("05/03/2024 10:20:30"), 100);
  ufficio.user.answers(Answer::Ok);
  EXPECT_EQ(elimina(QStringLiteral("7")).righe, 1);
  attendi({kDomanda});
}

TEST_F(Anagrafica, ConOkIlClienteSparisceELaDomandaStaNellaTransazione) {
  ufficio.customer(7, QStringLiteral("ROSSI"));
  ufficio.customer(8, QStringLiteral("VERDI"));
  int livello = 0;
  ufficio.user.onBox = [&](const Box&) { livello = ufficio.workspace.level(); };
  ufficio.user.answers(Answer::Ok);
  const EsitoCliente esito = elimina(QStringLiteral("7"));
  ufficio.user.onBox = nullptr;
  EXPECT_EQ(esito.esito, EsitoRegistro::Fatto);
  EXPECT_EQ(esito.righe, 1);
  EXPECT_EQ(livello, 1);
  EXPECT_EQ(ufficio.workspace.level(), 0);
  attendi({kDomanda});
  EXPECT_EQ(clienti(), QStringList{QStringLiteral("8|VERDI|||||1")});
}

TEST_F(Anagrafica, SenzaOkNonSiEliminaENullaRestaAperto) {
  ufficio.customer(7, QStringLiteral("ROSSI"));
  ufficio.user.answers(Answer::Cancel);
  EXPECT_EQ(elimina(QStringLiteral("7")).esito, EsitoRegistro::Annullato);
  attendi({kDomanda});
  EXPECT_EQ(ufficio.workspace.level(), 0);
  EXPECT_EQ(clienti().size(), 1);
}

TEST_F(Anagrafica, EliminareChiNonCENonTogliNulla) {
  ufficio.user.answers(Answer::Ok);
  const EsitoCliente esito = elimina(QStringLiteral("7"));
  EXPECT_EQ(esito.esito, EsitoRegistro::Fatto);
  EXPECT_EQ(esito.righe, 0);
  attendi({kDomanda});
}

TEST_F(Anagrafica, UnCodiceCheNonENumeroNonSiElimina) {
  ufficio.customer(7, QStringLiteral("ROSSI"));
  EXPECT_EQ(elimina(QStringLiteral("7 OR 1=1")).esito, EsitoRegistro::Fallito);
  EXPECT_EQ(ufficio.user.takeBoxes().size(), 1U);
  EXPECT_EQ(clienti().size(), 1);
}

// Archives that cannot be written.

TEST_F(Anagrafica, UnArchivioInSolaLetturaDiceIlSuoNumeroENonCambia) {
  ufficio.customer(7, QStringLiteral("ROSSI"));
  ChiudiDatabase();
  const QString archivio = varGlobal().NomeDB_Clienti;
  ASSERT_EQ(chmod(ufficio.folder.path().toUtf8().constData(), 0777), 0);
  ASSERT_EQ(chmod(archivio.toUtf8().constData(), 0444), 0);
  {
    const OtherUser altro;
    ApriDatabase(archivio, ufficio.contesto);
    memorizza(campi(QStringLiteral("8")));
    attendi({inserimentoFallito(QStringLiteral("3073\n*"))});
    modifica(campi());
    attendi({modificaFallita(QStringLiteral("3073*"))});
    ufficio.user.answers(Answer::Ok);
    elimina(QStringLiteral("7"));
    attendi({kDomanda, eliminazioneFallita(QStringLiteral("3073\n*"))});
    EXPECT_EQ(ufficio.workspace.level(), 0);
    EXPECT_EQ(clienti(), QStringList{QStringLiteral("7|ROSSI|||||1")});
  }
}

TEST_F(Anagrafica, UnArchivioTenutoDaUnAltroProgrammaLoDice) {
  ufficio.customer(7, QStringLiteral("ROSSI"));
  {
    const OtherProgram altro(varGlobal().NomeDB_Clienti, {QStringLiteral("BEGIN IMMEDIATE")});
    memorizza(campi(QStringLiteral("8")));
    attendi({inserimentoFallito(QStringLiteral("3260\n*"))});
    modifica(campi());
    attendi({modificaFallita(QStringLiteral("3260*"))});
    ufficio.user.answers(Answer::Ok);
    elimina(QStringLiteral("7"));
    attendi({kDomanda, eliminazioneFallita(QStringLiteral("3260\n*"))});
  }
  EXPECT_EQ(ufficio.workspace.level(), 0);
  EXPECT_EQ(clienti(), QStringList{QStringLiteral("7|ROSSI|||||1")});
}

TEST(AnagraficaDiUnAltroTipo, OgniScritturaDiceCheLaTabellaNonCE) {
  Office ufficio;
  ufficio.openWith({QStringLiteral("CREATE TABLE ALTRA (A)")});
  CampiCliente scritti = Anagrafica::campi();
  MemorizzaCliente(scritti, ufficio.contesto);
  expectBoxes(ufficio, {criticalBox(QStringLiteral("CheckEsistenzaPartitaIVA 3078 - *"))});
  ModificaCliente(scritti, ufficio.contesto);
  expectBoxes(ufficio, {modificaFallita(QStringLiteral("3078*"))});
  EliminaCliente(QStringLiteral("7"), ufficio.contesto);
  expectBoxes(ufficio, {eliminazioneFallita(QStringLiteral("3078\n*"))});
  EXPECT_EQ(ufficio.workspace.level(), 0);
}
