#include "customers/customer_database.h"

#include <gmock/gmock.h>

#include <QFile>

#include "customers/office.h"
#include "sostegno/troubles.h"

namespace {

const QString kPresente =
    QStringLiteral("Attenzione la Partita IVA [00905811006] e' gia' associata ad un altro cliente!!!");
const QString kVera = QStringLiteral("00905811006");

/// The one box of a failure: prefix, number and some description behind it, critical.
void attendiErrore(Office& ufficio, const QString& prefisso, int numero) {
  const std::vector<Box> visti = ufficio.user.takeBoxes();
  ASSERT_EQ(visti.size(), 1U);
  EXPECT_TRUE(visti[0].text.startsWith(prefisso + QString::number(numero) + QStringLiteral(" - ")))
      << visti[0].text.toStdString();
  EXPECT_EQ(visti[0].icon, Icon::Critical);
}

struct BaseDatiClienti : testing::Test {
  Office ufficio;
  void SetUp() override { ufficio.openArchive(); }
};

}  // namespace

TEST_F(BaseDatiClienti, IlModelloHaIlClienteAnonimoESoloLui) {
  EXPECT_EQ(ufficio.rows(QStringLiteral("SELECT * FROM TAB_ANAG_CLIENTI")),
            QStringList{QStringLiteral("0||||||1")});
  EXPECT_EQ(ufficio.rows(QStringLiteral("SELECT * FROM TAB_FATTURE")), QStringList());
  EXPECT_EQ(varGlobal().NomeDB_Clienti, ufficio.folder.file(QStringLiteral("clienti.mdb")));
}

TEST_F(BaseDatiClienti, LeColonneStannoNellOrdineInCuiLaRicezioneLeRiempie) {
  ufficio.execute(QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI VALUES (7,'N','I','C','P','O',2)"));
  EXPECT_EQ(ufficio.rows(QStringLiteral("SELECT ID_Cliente,Ragione_Sociale,Indirizzo,Citta,Partita_IVA,Nota,"
                                        "Stato FROM TAB_ANAG_CLIENTI WHERE ID_Cliente=7")),
            QStringList{QStringLiteral("7|N|I|C|P|O|2")});
  ufficio.execute(
      QStringLiteral("INSERT INTO TAB_FATTURE VALUES (7,'2024/1',' 1','05/03/24 10:20:30',1,2,3,4,'X')"));
  EXPECT_EQ(ufficio.rows(QStringLiteral("SELECT ID_Cliente,NumFattura,Tipo_Fattura,DataFattura,"
                                        "Corr_Non_Pagato,Importo_Fattura,Imponibile,Imposta,Nota "
                                        "FROM TAB_FATTURE")),
            QStringList{QStringLiteral("7|2024/1| 1|05/03/2024 10:20:30|1|2|3|4|X")});
}

TEST_F(BaseDatiClienti, LeDateStannoNelFileInUnaFormaCheSiOrdina) {
  ufficio.invoice(0, QStringLiteral("2024/1"), QStringLiteral("05/03/24 10.20.30"), 100);
  EXPECT_EQ(ufficio.folder.read(QStringLiteral("clienti.mdb")).count("2024-03-05 10:20:30"), 2)
      << "the row and the index of the days";
}

TEST_F(BaseDatiClienti, ConIlSoloAnonimoIClientiSonoZero) {
  EXPECT_EQ(customers::CalcolaNumClienti(ufficio.user), 0);
}

TEST_F(BaseDatiClienti, SenzaNemmenoLAnonimoIlConteggioEMenoUno) {
  ufficio.execute(QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI"));
  EXPECT_EQ(customers::CalcolaNumClienti(ufficio.user), -1);
}

TEST_F(BaseDatiClienti, IClientiSiContanoSenzaLAnonimo) {
  ufficio.customer(1, QStringLiteral("ROSSI"));
  ufficio.customer(250, QStringLiteral("VERDI"));
  EXPECT_EQ(customers::CalcolaNumClienti(ufficio.user), 2);
}

TEST(BaseDatiClientiGuasta, SenzaLaTabellaIlConteggioDiceIlMotivoERestaZero) {
  Office ufficio;
  ufficio.openWith({QStringLiteral("CREATE TABLE ALTRA (A)")});
  EXPECT_EQ(customers::CalcolaNumClienti(ufficio.user), 0);
  attendiErrore(ufficio, QStringLiteral("CalcolaNumClienti "), 3078);
}

TEST_F(BaseDatiClienti, IlProssimoCodiceDiUnArchivioNuovoEUno) {
  EXPECT_EQ(customers::ProssimoCodice(), 1);
  EXPECT_EQ(customers::CodiceMassimo(), 0);
}

TEST_F(BaseDatiClienti, IlProssimoCodiceSenzaAlcunaRigaEUno) {
  ufficio.execute(QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI"));
  EXPECT_EQ(customers::ProssimoCodice(), 1);
  EXPECT_EQ(customers::CodiceMassimo(), 0);
}

TEST_F(BaseDatiClienti, UnBucoRestaUnBucoEIlPiuAltoSiRiusa) {
  for (int codice : {1, 2, 3}) ufficio.customer(codice, QStringLiteral("C"));
  ufficio.execute(customers::StatementElimina(QStringLiteral("2")).sql());
  EXPECT_EQ(customers::ProssimoCodice(), 4);
  ufficio.execute(customers::StatementElimina(QStringLiteral("3")).sql());
  EXPECT_EQ(customers::ProssimoCodice(), 2);
}

TEST(BaseDatiClientiGuasta, UnMassimoCheNonSiLeggeEMenoUno) {
  Office ufficio;
  ufficio.openWith({QStringLiteral("CREATE TABLE ALTRA (A)")});
  EXPECT_EQ(customers::CodiceMassimo(), -1);
}

TEST_F(BaseDatiClienti, LoStatoSiMostraComeCarattere) {
  EXPECT_EQ(customers::StatoAVideo(0), QStringLiteral("0"));
  EXPECT_EQ(customers::StatoAVideo(1), QStringLiteral(" "));
  EXPECT_EQ(customers::StatoAVideo(2), QStringLiteral("*"));
  EXPECT_EQ(customers::StatoAVideo(255), QStringLiteral("*"));
  EXPECT_EQ(customers::StatoDaVideo(QStringLiteral("*")), 2);
  EXPECT_EQ(customers::StatoDaVideo(QStringLiteral(" ")), 1);
  EXPECT_EQ(customers::StatoDaVideo(QStringLiteral("0")), 0);
  EXPECT_EQ(customers::StatoDaVideo({}), 0);
  EXPECT_EQ(customers::StatoDaVideo(QStringLiteral("x")), 0);
}

TEST_F(BaseDatiClienti, UnaPartitaIVALiberaNonSiDice) {
  EXPECT_EQ(customers::CheckEsistenzaPartitaIVA(kVera, ufficio.user), -100);
  EXPECT_TRUE(ufficio.user.takeBoxes().empty());
}

TEST_F(BaseDatiClienti, UnaPartitaIVAPresenteSiDice) {
  ufficio.customer(1, QStringLiteral("ROSSI"), kVera);
  EXPECT_EQ(customers::CheckEsistenzaPartitaIVA(kVera, ufficio.user), 0);
  const std::vector<Box> visti = ufficio.user.takeBoxes();
  ASSERT_EQ(visti.size(), 1U);
  EXPECT_EQ(visti[0].text, kPresente);
  EXPECT_EQ(visti[0].icon, Icon::Warning);
}

TEST_F(BaseDatiClienti, ConLaRicezioneSuiClientiUnaPartitaIVAPresenteNonSiDice) {
  ufficio.customer(1, QStringLiteral("ROSSI"), kVera);
  customers::statoClienti().ricezioneClienti = true;
  EXPECT_EQ(customers::CheckEsistenzaPartitaIVA(kVera, ufficio.user), 0);
  EXPECT_TRUE(ufficio.user.takeBoxes().empty());
}

TEST_F(BaseDatiClienti, UnApostrofoNellaPartitaIVASiDiceEVale1) {
  EXPECT_EQ(customers::CheckEsistenzaPartitaIVA(QStringLiteral("0'1"), ufficio.user), 1);
  attendiErrore(ufficio, QStringLiteral("CheckEsistenzaPartitaIVA "), 3075);
}

TEST_F(BaseDatiClienti, UnApostrofoNelNomeRompeLIstruzione) {
  const customers::Cliente cliente{
      .codice = QStringLiteral("1"), .ragioneSociale = QStringLiteral("L'ORO DI NAPOLI"), .stato = 1};
  for (const auto& sql : {customers::StatementNuovo(cliente), customers::StatementModifica(cliente)}) {
    try {
      varGlobal().DB_Clienti.Execute(sql);
      ADD_FAILURE() << sql.sql().toStdString();
    } catch (const Errore& errore) {
      EXPECT_EQ(errore.numero, 3075);
    }
  }
}

TEST_F(BaseDatiClienti, UnTestoNonDiventaMaiIstruzione) {
  ufficio.customer(1, QStringLiteral("ROSSI"));
  const customers::Cliente cliente{
      .codice = QStringLiteral("1 OR 1"), .ragioneSociale = QStringLiteral("X"), .stato = 1};
  EXPECT_THROW(varGlobal().DB_Clienti.Execute(customers::StatementModifica(cliente)), Errore);
  EXPECT_THROW(varGlobal().DB_Clienti.Execute(customers::StatementElimina(QStringLiteral("1 OR 1"))), Errore);
  EXPECT_EQ(ufficio.value(QStringLiteral("SELECT Ragione_Sociale FROM TAB_ANAG_CLIENTI WHERE ID_Cliente=1")),
            QStringLiteral("ROSSI"));
}

TEST_F(BaseDatiClienti, LeIstruzioniSonoQuelleDettate) {
  const customers::Cliente cliente{QStringLiteral("7"),
                                   QStringLiteral("N"),
                                   QStringLiteral("I"),
                                   QStringLiteral("C"),
                                   QStringLiteral("P"),
                                   QStringLiteral("O"),
                                   1};
  EXPECT_EQ(customers::StatementNuovo(cliente).sql(),
            QStringLiteral("INSERT INTO TAB_ANAG_Clienti "
                           "(ID_CLiente,Ragione_Sociale,Indirizzo,Citta,Partita_Iva,Nota,Stato) "
                           "Values (7,'N','I','C','P','O',1);"));
  EXPECT_EQ(customers::StatementModifica(cliente).sql(),
            QStringLiteral("UPDATE TAB_ANAG_CLIENTI SET Ragione_Sociale = 'N', Indirizzo = 'I', Citta = "
                           "'C',Partita_IVA = 'P',Nota = 'O',Stato = 1 WHERE ID_CLIENTE =7"));
  EXPECT_EQ(customers::StatementElimina(QStringLiteral("7")).sql(),
            QStringLiteral("Delete  cascade from TAB_ANAG_CLIENTI where ID_Cliente =7;"));
}

TEST_F(BaseDatiClienti, ChiSiCancellaLasciaLeSueFatture) {
  ufficio.customer(7, QStringLiteral("ROSSI"));
  ufficio.invoice(7, QStringLiteral("2024/1"), QStringLiteral("05/03/2024 10:20:30"), 100);
  ufficio.execute(customers::StatementElimina(QStringLiteral("7")).sql());
  EXPECT_EQ(ufficio.rows(QStringLiteral("SELECT ID_Cliente FROM TAB_FATTURE")),
            QStringList{QStringLiteral("7")});
}

// Of the reception, which runs them a thousand times.
TEST_F(BaseDatiClienti, LeDomandeDellaRicezioneCercanoPerIndice) {
  const QString fattura = QStringLiteral(
      "SELECT NumFattura From TAB_FATTURE where ID_Cliente =7 and "
      "format(datafattura,'dd/mm/yy hh:mm:ss') = '05/03/24 10.20.30'");
  const QString piano = ufficio.plan(fattura);
  EXPECT_TRUE(piano.startsWith(
      QStringLiteral("SEARCH TAB_FATTURE USING INDEX FATTURE_CLIENTE (ID_Cliente=? AND <expr>=?)")))
      << piano.toStdString();
  EXPECT_TRUE(ufficio.plan(QStringLiteral("SELECT ID_Cliente From TAB_ANAG_CLIENTI where ID_Cliente =7"))
                  .startsWith(QStringLiteral("SEARCH TAB_ANAG_CLIENTI USING INTEGER PRIMARY KEY")));
}

TEST(NuovoArchivioClienti, SenzaIlModelloSiDice) {
  Office ufficio;
  ufficio.contesto.cartella = ufficio.folder.file(QStringLiteral("altrove"));
  EXPECT_FALSE(customers::ControllaModello(ufficio.contesto));
  const std::vector<Box> visti = ufficio.user.takeBoxes();
  ASSERT_EQ(visti.size(), 1U);
  EXPECT_EQ(visti[0].text,
            QStringLiteral("Attenzione il file di sistema QzDBClienti.bck potrebbe essere assente !!!"));
  EXPECT_EQ(visti[0].title, QStringLiteral("ATTENZIONE"));
  EXPECT_EQ(visti[0].icon, Icon::Critical);
}

TEST(NuovoArchivioClienti, CioCheCEraRestaAccanto) {
  Office ufficio;
  ufficio.openArchive();
  ufficio.customer(1, QStringLiteral("ROSSI"));
  ufficio.openArchive();
  EXPECT_EQ(customers::CalcolaNumClienti(ufficio.user), 0);
  customers::ApriDatabase(ufficio.folder.file(QStringLiteral("clienti.mdb.precedente")), ufficio.contesto);
  EXPECT_EQ(customers::CalcolaNumClienti(ufficio.user), 1);
}

TEST(NuovoArchivioClienti, ChiusoNonEPiuAperto) {
  Office ufficio;
  ufficio.openArchive();
  customers::ChiudiDatabase();
  EXPECT_FALSE(varGlobal().DB_Clienti.isOpen());
  customers::ChiudiDatabase();
}
