#include "customers/registry_list.h"

#include <gtest/gtest.h>

#include <array>

#include "controls/FlexGrid.h"
#include "customers/customer_database.h"
#include "customers/office.h"
#include "platform/ui/busy_guard.h"
#include "sostegno/troubles.h"

using namespace customers;

namespace {

const QString kGrave =
    QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. PROCEDURA ABORTITA !!!");
QString anomalia(int numero) {
  return QStringLiteral("RiempiGridCentral: uscita dal programma per condizione anomala %1 - *").arg(numero);
}

QString anomaliaDellaRicerca(int numero) {
  return QStringLiteral("Vmd_Cerca_Click: uscita dal programma per condizione anomala %1 - *").arg(numero);
}

struct ElencoClienti : testing::Test {
  Office ufficio;
  FlexGrid griglia;

  QString riga(int numero) const {
    QStringList celle;
    for (int colonna = 0; colonna < griglia.Cols(); ++colonna) celle += griglia.TextMatrix(numero, colonna);
    return celle.join(u'|');
  }
  QStringList codici() const {
    QStringList tutti;
    for (int numero = 1; numero < griglia.Rows(); ++numero) tutti += griglia.TextMatrix(numero, 0);
    return tutti;
  }
  void apri() {
    ufficio.openArchive();
    ufficio.execute(
        QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI VALUES (9,'BAR SPORT','VIA PO 1','TORINO',"
                       "'00905811006','PAGA A 30 GG',1)"));
    ufficio.execute(
        QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI VALUES (3,'BARBIERE','CORSO COMO 2','CÒMO',"
                       "'12345678903','',0)"));
    ufficio.customer(250, QString(), {}, 2);
  }
  void riempi() { CheckCampiClienti(griglia, ufficio.contesto); }
  QStringList cerca(const CampiCliente& campi) {
    CercaClienti(griglia, campi, ufficio.contesto);
    return codici();
  }
  template <typename Passo>
  void termina(Passo&& passo, const QString& messaggio) {
    EXPECT_THROW(passo(), ProgramEnded);
    expectBoxes(ufficio, {criticalBox(messaggio)});
    EXPECT_TRUE(ufficio.user.terminated());
    EXPECT_FALSE(BusyGuard::active());
  }
};

}  // namespace

TEST_F(ElencoClienti, LeSetteColonneHannoLeLoroTestate) {
  apri();
  riempi();
  EXPECT_EQ(griglia.Cols(), 7);
  EXPECT_EQ(riga(0), QStringLiteral("CODICE CLIENTE|STATO|RAGIONE SOCIALE|INDIRIZZO|CITTA|PARTITA IVA|NOTE"));
}

TEST_F(ElencoClienti, OgniColonnaHaIlSuoCampoELaSuaLunghezza) {
  const std::array<std::pair<const char*, int>, 7> campi{{{"vkTextBoxIdCliente", 3},
                                                          {"vkTextBoxStato", 1},
                                                          {"vkTextBoxRagioneSociale", 40},
                                                          {"vkTextboxIndirizzo", 40},
                                                          {"vkTextBoxCitta", 40},
                                                          {"vkTextBoxPartitaIVA", 11},
                                                          {"vkTextboxNOTE", 40}}};
  ASSERT_EQ(ColonneClienti().size(), campi.size());
  for (std::size_t i = 0; i < campi.size(); ++i) {
    EXPECT_STREQ(ColonneClienti()[i].casella, campi.at(i).first);
    EXPECT_EQ(ColonneClienti()[i].lunghezza, campi.at(i).second);
  }
}

TEST_F(ElencoClienti, LElencoStaNellOrdineDeiCodiciConLAnonimoInTestaEILoroStati) {
  apri();
  riempi();
  EXPECT_EQ(griglia.Rows(), 5);
  EXPECT_EQ(riga(1), QStringLiteral("0| |||||"));
  EXPECT_EQ(riga(2), QStringLiteral("3|0|BARBIERE|CORSO COMO 2|CÒMO|12345678903|"));
  EXPECT_EQ(riga(3), QStringLiteral("9| |BAR SPORT|VIA PO 1|TORINO|00905811006|PAGA A 30 GG"));
  EXPECT_EQ(riga(4), QStringLiteral("250|*|||||"));
}

TEST_F(ElencoClienti, IlCursoreVaAllaPrimaCellaDellaPrimaRiga) {
  apri();
  riempi();
  griglia.setCell(3, 2);
  riempi();
  EXPECT_EQ(griglia.Row(), 1);
  EXPECT_EQ(griglia.Col(), 0);
}

TEST_F(ElencoClienti, OgniAltroStatoSiMostraComeAsterisco) {
  ufficio.openArchive();
  for (const int stato : {3, 42, 255, -1, 32767}) {
    ufficio.execute(QStringLiteral("UPDATE TAB_ANAG_CLIENTI SET Stato =%1").arg(stato));
    riempi();
    EXPECT_EQ(griglia.TextMatrix(1, kClienteStato), QStringLiteral("*")) << stato;
  }
}

TEST_F(ElencoClienti, UnNulloEUnaCellaVuota) {
  ufficio.openWith(
      {QStringLiteral("CREATE TABLE TAB_ANAG_CLIENTI (ID_Cliente INTEGER,Ragione_Sociale TEXT,Indirizzo TEXT,"
                      "Citta TEXT,Partita_IVA TEXT,Nota TEXT,Stato INTEGER)"),
       QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI DEFAULT VALUES")});
  riempi();
  EXPECT_EQ(riga(1), QStringLiteral("||||||"));
  EXPECT_EQ(ClientiInElenco(griglia), 0);
}

TEST_F(ElencoClienti, CodiciOltreLaTabellaDellaCassaSiMostrano) {
  ufficio.openArchive();
  ufficio.customer(251, QStringLiteral("X"));
  ufficio.customer(65535, QStringLiteral("Y"));
  riempi();
  EXPECT_EQ(codici(), (QStringList{QStringLiteral("0"), QStringLiteral("251"), QStringLiteral("65535")}));
}

TEST_F(ElencoClienti, UnPassaggioDiEventiPerRigaColPortoneChiuso) {
  apri();
  int chiusi = 0;
  ufficio.user.onPass = [&] { chiusi += BusyGuard::active() && !griglia.Redraw() ? 1 : 0; };
  riempi();
  EXPECT_EQ(ufficio.user.passes(), 4);
  EXPECT_EQ(chiusi, 4);
  EXPECT_TRUE(griglia.Redraw());
}

TEST_F(ElencoClienti, UnArchivioSenzaRigheLoDice) {
  ufficio.openArchive();
  ufficio.execute(QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI"));
  riempi();
  EXPECT_EQ(griglia.Notice(), QStringLiteral("Nessun cliente in archivio"));
  EXPECT_EQ(RaccontoClienti(griglia), QStringLiteral("Nessun cliente in archivio"));
}

TEST_F(ElencoClienti, IlRaccontoNonContaLAnonimo) {
  ufficio.openArchive();
  riempi();
  EXPECT_EQ(RaccontoClienti(griglia), QStringLiteral("Soltanto il cliente anonimo"));
  ufficio.customer(1, QStringLiteral("X"));
  riempi();
  EXPECT_EQ(RaccontoClienti(griglia), QStringLiteral("1 cliente"));
  ufficio.customer(2, QStringLiteral("Y"));
  riempi();
  EXPECT_EQ(RaccontoClienti(griglia), QStringLiteral("2 clienti"));
}

// Search.

TEST_F(ElencoClienti, LaRicercaTrovaPerLInizioDiOgniCampoSenzaBadareAlleMaiuscole) {
  apri();
  riempi();
  const QStringList tutti{QStringLiteral("0"), QStringLiteral("3"), QStringLiteral("9"),
                          QStringLiteral("250")};
  EXPECT_EQ(cerca({}), tutti);
  EXPECT_EQ(cerca({.ragioneSociale = QStringLiteral("bar")}),
            (QStringList{QStringLiteral("3"), QStringLiteral("9")}));
  EXPECT_EQ(cerca({.ragioneSociale = QStringLiteral("ar")}), QStringList{QString()}) << "not in the middle";
  EXPECT_EQ(cerca({.ragioneSociale = QStringLiteral("*ar")}),
            (QStringList{QStringLiteral("3"), QStringLiteral("9")}));
  EXPECT_EQ(cerca({.indirizzo = QStringLiteral("via")}), QStringList{QStringLiteral("9")});
  EXPECT_EQ(cerca({.citta = QStringLiteral("cò")}), QStringList{QStringLiteral("3")});
  EXPECT_EQ(cerca({.partitaIVA = QStringLiteral("009")}), QStringList{QStringLiteral("9")});
  EXPECT_EQ(cerca({.nota = QStringLiteral("paga")}), QStringList{QStringLiteral("9")});
  EXPECT_EQ(cerca({.codice = QStringLiteral("3")}), tutti) << "the code is no condition";
}

TEST_F(ElencoClienti, PiuCampiStringonoLaRicerca) {
  apri();
  riempi();
  EXPECT_EQ(cerca({.ragioneSociale = QStringLiteral("bar"), .citta = QStringLiteral("to")}),
            QStringList{QStringLiteral("9")});
}

TEST_F(ElencoClienti, UnaRicercaSenzaEsitoLasciaLaTestata) {
  apri();
  riempi();
  cerca({.citta = QStringLiteral("ROMA")});
  EXPECT_EQ(riga(0), QStringLiteral("CODICE CLIENTE|STATO|RAGIONE SOCIALE|INDIRIZZO|CITTA|PARTITA IVA|NOTE"));
  EXPECT_EQ(riga(1), QStringLiteral("||||||"));
  EXPECT_EQ(griglia.Rows(), 2);
  EXPECT_EQ(griglia.Notice(), QStringLiteral("Nessun cliente trovato"));
  EXPECT_EQ(griglia.Row(), 0) << "none is picked";
}

// Failures.

TEST_F(ElencoClienti, SenzaLaTabellaIlMessaggioGraveEIlProgrammaTermina) {
  ufficio.openWith({QStringLiteral("CREATE TABLE ALTRA (A)")});
  termina([this] { riempi(); }, kGrave);
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
}

TEST_F(ElencoClienti, SenzaLaTabellaAncheLaRicercaTermina) {
  ufficio.openWith({QStringLiteral("CREATE TABLE ALTRA (A)")});
  termina([this] { cerca({}); }, kGrave);
}

TEST_F(ElencoClienti, UnaColonnaCheMancaTerminaColNumero) {
  ufficio.openWith(
      {QStringLiteral("CREATE TABLE TAB_ANAG_CLIENTI (ID_Cliente INTEGER,Ragione_Sociale TEXT)")});
  termina([this] { riempi(); }, anomalia(3061));
}

TEST_F(ElencoClienti, UnApostrofoNellaRicercaTerminaIlProgramma) {
  apri();
  riempi();
  const QStringList prima = codici();
  termina([this] { cerca({.ragioneSociale = QStringLiteral("L'ORO")}); }, anomaliaDellaRicerca(3075));
  EXPECT_EQ(codici(), prima);
}

TEST_F(ElencoClienti, UnArchivioTenutoDaUnAltroProgrammaTermina) {
  apri();
  const OtherProgram altro(varGlobal().NomeDB_Clienti, {QStringLiteral("BEGIN EXCLUSIVE")});
  termina([this] { riempi(); }, anomalia(3260));
}

TEST_F(ElencoClienti, SenzaArchivioApertoTermina) {
  termina([this] { riempi(); }, anomalia(3420));
}

// CSV.

TEST_F(ElencoClienti, IlCsvHaLeColonneDallaSecondaESiChiudeConUnBianco) {
  apri();
  riempi();
  EXPECT_EQ(elenco::TestoCSV(griglia, ColonneClienti(), kFormaClienti),
            QByteArray(" ;;;;;; \r\n"
                       "0;BARBIERE;CORSO COMO 2;C\xD2MO;12345678903;; \r\n"
                       " ;BAR SPORT;VIA PO 1;TORINO;00905811006;PAGA A 30 GG; \r\n"
                       "*;;;;;; \r\n"));
}

TEST_F(ElencoClienti, UnElencoSenzaRigheSiEsportaInUnaRigaDiColonneVuote) {
  apri();
  riempi();
  cerca({.citta = QStringLiteral("ROMA")});
  EXPECT_EQ(elenco::TestoCSV(griglia, ColonneClienti(), kFormaClienti), QByteArray(";;;;;; \r\n"));
}
