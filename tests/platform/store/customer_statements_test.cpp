// The statements on customers and invoices, as their callers word them.

#include "platform/store/test_archive.h"
#include "sostegno/statements.h"

namespace {

/// Two tables as the customers' archive has them.
class IstruzioniClienti : public ArchiveOfTry {
 protected:
  IstruzioniClienti() {
    run("CREATE TABLE TAB_ANAG_CLIENTI (ID_Cliente INTEGER PRIMARY KEY, Ragione_Sociale TEXT COLLATE NOCASE, "
        "Indirizzo "
        "TEXT COLLATE NOCASE, Citta TEXT COLLATE NOCASE, Partita_IVA TEXT COLLATE NOCASE, Nota TEXT COLLATE "
        "NOCASE, Stato "
        "INTEGER)");
    run("CREATE TABLE TAB_FATTURE (ID_Cliente INTEGER REFERENCES TAB_ANAG_CLIENTI, NumFattura TEXT COLLATE "
        "NOCASE, "
        "Tipo_Fattura TEXT, DataFattura DATETIME, Corr_Non_Pagato INTEGER, Importo_Fattura INTEGER, "
        "Imponibile INTEGER, "
        "Imposta INTEGER, Nota TEXT)");
    run("CREATE INDEX F ON TAB_FATTURE (ID_Cliente)");
    run("INSERT INTO TAB_ANAG_CLIENTI VALUES (0,'','','','','',1)");
  }
  void fattura(const char* momento) {
    archive_.Execute(asWritten(
        QStringLiteral("INSERT INTO TAB_FATTURE VALUES (0,'2024/17',' 1','%1',0,12200,10000,2200,'ROSSI')")
            .arg(QString::fromUtf8(momento))));
  }
};

TEST_F(IstruzioniClienti, InserimentoModificaECancellazione) {
  EXPECT_EQ(run("INSERT INTO TAB_ANAG_Clienti "
                "(ID_CLiente,Ragione_Sociale,Indirizzo,Citta,Partita_Iva,Nota,Stato) Values "
                "(1,'ROSSI','VIA','ROMA','12345678903','',1);"),
            1);
  EXPECT_EQ(run("INSERT INTO TAB_ANAG_CLIENTI VALUES (7,'','','','','',2)"), 1);
  EXPECT_EQ(run("UPDATE TAB_ANAG_CLIENTI SET Ragione_Sociale = 'BIANCHI', Indirizzo = 'V', Citta = "
                "'C',Partita_IVA = "
                "'1',Nota = '',Stato = 1 WHERE ID_CLIENTE =7"),
            1);
  EXPECT_EQ(value("select max(ID_Cliente) as NumMaxCl from tab_anag_CLienti "), QStringLiteral("7"));
  EXPECT_EQ(read("SELECT max(ID_Cliente) as max_cliente from TAB_ANAG_CLIENTI ")
                .field(QStringLiteral("MAX_CLIENTE"))
                .int32(),
            7);
  EXPECT_EQ(read("SELECT ID_Cliente,Ragione_Sociale,Indirizzo,Citta,Partita_IVA,Nota,Stato from "
                 "TAB_ANAG_CLIENTI where "
                 "ID_Cliente <> 0 order by ID_Cliente,Ragione_Sociale,Partita_IVA")
                .RecordCount(),
            2);
  EXPECT_EQ(read("SELECT  ID_Cliente,  Ragione_Sociale,  Indirizzo,  citta,  Partita_IVA,  Nota,  Stato "
                 "FROM TAB_ANAG_CLIENTI "
                 "WHERE  Ragione_Sociale like 'BIAN*' AND  Partita_IVA like '1*' ORDER BY "
                 "ID_Cliente,Ragione_Sociale ASC ")
                .RecordCount(),
            1);
  EXPECT_EQ(run("Delete  cascade from TAB_ANAG_CLIENTI where ID_Cliente =7;"), 1);
  EXPECT_EQ(read("SELECT ID_Cliente from TAB_ANAG_CLIENTI ").RecordCount(), 2);
}

TEST_F(IstruzioniClienti, LeDateScritteInDueModiStannoInUnaForma) {
  fattura("05/03/24 10.20.30");
  fattura("06/03/24 10:20:30");
  auto righe = read("SELECT DataFattura FROM TAB_FATTURE ORDER BY DataFattura");
  EXPECT_EQ(righe.field(0).text(), QStringLiteral("05/03/2024 10:20:30"));
  EXPECT_EQ(righe.utf8(0), "05/03/2024 10:20:30");
  righe.MoveNext();
  EXPECT_EQ(righe.field(QStringLiteral("datafattura")).text(), QStringLiteral("06/03/2024 10:20:30"));
  EXPECT_EQ(
      run("UPDATE TAB_FATTURE SET DataFattura = '31/12/2023 00:00:01' WHERE DataFattura >= #06/03/2024#"), 1);
  EXPECT_EQ(value("SELECT DataFattura FROM TAB_FATTURE ORDER BY DataFattura"),
            QStringLiteral("31/12/2023 00:00:01"));
}

TEST_F(IstruzioniClienti, UnTestoCheNonEUnaDataERifiutato) {
  EXPECT_EQ(numberError([&] { fattura("31/02/24 10:20:30"); }), 13);
  EXPECT_TRUE(read("SELECT Nota FROM TAB_FATTURE").empty());
}

// Other centuries look alike in two digits of the year, and the same second in another form is none.
TEST_F(IstruzioniClienti, IlSecoloNonContaELaFormaSi) {
  fattura("05/03/1924 10:20:30");
  const char* const domanda =
      "SELECT NumFattura From TAB_FATTURE where ID_Cliente =0 and "
      "format(datafattura,'dd/mm/yy hh:mm:ss') = ";
  const auto trovate = [&](const char* testo) {
    return archive_.OpenRecordset(asWritten(QString::fromUtf8(domanda) + QString::fromUtf8(testo)))
        .RecordCount();
  };
  EXPECT_EQ(trovate("'05/03/24 10.20.30'"), 1);
  EXPECT_EQ(trovate("'05/03/24 10:20:30'"), 0);
  EXPECT_EQ(trovate("'05/03/1924 10.20.30'"), 0);
  EXPECT_EQ(trovate("'mai'"), 0);
}

TEST_F(IstruzioniClienti, LaFatturaGiaRicevutaSiRitrovaAlSecondo) {
  fattura("05/03/24 10:20:30");
  EXPECT_FALSE(read("SELECT NumFattura From TAB_FATTURE where ID_Cliente =0 and "
                    "format(datafattura,'dd/mm/yy hh:mm:ss') = "
                    "'05/03/24 10.20.30'")
                   .empty());
  EXPECT_TRUE(read("SELECT NumFattura From TAB_FATTURE where ID_Cliente =0 and format(datafattura,'dd/mm/yy "
                   "hh:mm:ss') = "
                   "'05/03/24 10.20.31'")
                  .empty());
}

TEST_F(IstruzioniClienti, ElencoDelleFattureConIClientiSenza) {
  fattura("05/03/24 10:20:30");
  run("INSERT INTO TAB_ANAG_CLIENTI VALUES (7,'VERDI','','','','',1)");
  auto righe = read(
      "SELECT TAB_ANAG_CLIENTI.ID_Cliente AS GET_ID_Cliente, "
      "TAB_ANAG_CLIENTI.Ragione_Sociale,TAB_ANAG_CLIENTI.Indirizzo,"
      "TAB_ANAG_CLIENTI.Partita_IVA, TAB_FATTURE.ID_Cliente AS TAB_FATTURE_ID_Cliente, "
      "TAB_FATTURE.NumFattura, "
      "TAB_FATTURE.Tipo_Fattura, TAB_FATTURE.DataFattura, "
      "TAB_FATTURE.Corr_Non_Pagato,TAB_FATTURE.Importo_Fattura, "
      "TAB_FATTURE.Imponibile, TAB_FATTURE.Imposta,TAB_FATTURE.Nota FROM TAB_ANAG_CLIENTI LEFT JOIN "
      "TAB_FATTURE ON "
      "TAB_ANAG_CLIENTI.ID_Cliente = TAB_FATTURE.ID_Cliente  ORDER BY "
      "TAB_ANAG_CLIENTI.Ragione_Sociale,TAB_FATTURE.NumFattura "
      "ASC");
  ASSERT_EQ(righe.RecordCount(), 2);
  EXPECT_EQ(righe.field(QStringLiteral("Nota")).text(), QStringLiteral("ROSSI"));
  EXPECT_EQ(righe.field(QStringLiteral("DataFattura")).text(), QStringLiteral("05/03/2024 10:20:30"));
  righe.MoveNext();
  EXPECT_TRUE(righe.field(QStringLiteral("DataFattura")).isNull());
  EXPECT_EQ(righe.field(QStringLiteral("GET_ID_Cliente")).int32(), 7);
}

TEST_F(IstruzioniClienti, RicercaDelleFatturePerDate) {
  fattura("05/03/24 10:20:30");
  const char* testa =
      "SELECT TAB_FATTURE.NumFattura FROM TAB_ANAG_CLIENTI LEFT JOIN TAB_FATTURE ON "
      "TAB_ANAG_CLIENTI.ID_Cliente = "
      "TAB_FATTURE.ID_Cliente WHERE (TAB_FATTURE.DataFattura >= #05/03/2024 00.00.00# AND "
      "TAB_FATTURE.DataFattura  <= "
      "#05/03/2024 23.59.59#)  AND TAB_FATTURE.ID_Cliente = 0 AND NumFattura like '2024*' ORDER BY "
      "TAB_ANAG_CLIENTI.Ragione_Sociale,TAB_FATTURE.NumFattura ASC";
  EXPECT_EQ(value(testa), QStringLiteral("2024/17"));
  EXPECT_EQ(read("SELECT NumFattura FROM TAB_FATTURE WHERE DataFattura >= #03/05/2024#").RecordCount(), 0);
}

TEST_F(IstruzioniClienti, UnClienteConFattureNonSiCancellaSeLaRelazioneNonLoDice) {
  fattura("05/03/24 10:20:30");
  EXPECT_EQ(numberOf("DELETE FROM TAB_ANAG_CLIENTI WHERE ID_Cliente =0"), 3200);
}

TEST_F(IstruzioniClienti, UnaChiaveGiaPresenteEUnDuplicato) {
  EXPECT_EQ(numberOf("INSERT INTO TAB_ANAG_CLIENTI VALUES (0,'','','','','',2)"), 3022);
}

/// Condition, condition, ... of the registry's search, between head and tail.
const char* const kRicerche[] = {
    "",
    " WHERE  Ragione_Sociale like 'ROS*'",
    " WHERE  Ragione_Sociale like 'ROS*' AND  Indirizzo like 'VIA*' AND  Citta like 'RO*' AND  Partita_IVA "
    "like "
    "'123*' AND  Nota like 'NO*'",
};

TEST_F(IstruzioniClienti, RicercaInAnagraficaConOgniNumeroDiFiltri) {
  run("INSERT INTO TAB_ANAG_Clienti (ID_CLiente,Ragione_Sociale,Indirizzo,Citta,Partita_Iva,Nota,Stato) "
      "Values (3,'ROSSI','VIA PO','ROMA','12345678903','NOTA',1);");
  const int previsti[] = {2, 1, 1};
  for (std::size_t i = 0; i < std::size(kRicerche); ++i) {
    const std::string sql = std::string(
                                "SELECT  ID_Cliente,  Ragione_Sociale,  Indirizzo,  citta,  Partita_IVA,  "
                                "Nota,  Stato FROM TAB_ANAG_CLIENTI") +
                            kRicerche[i] + " ORDER BY ID_Cliente,Ragione_Sociale ASC ";
    EXPECT_EQ(read(sql.c_str()).RecordCount(), previsti[i]) << sql;
  }
  EXPECT_EQ(read("SELECT ID_Cliente,  Ragione_Sociale,  Indirizzo,  Citta,  Partita_IVA,  Nota, Stato FROM "
                 "TAB_ANAG_CLIENTI ORDER BY ID_Cliente,Ragione_Sociale ASC;")
                .RecordCount(),
            2);
}

TEST_F(IstruzioniClienti, ControlliPrimaDiScrivere) {
  run("INSERT INTO TAB_ANAG_CLIENTI VALUES (3,'ROSSI','VIA PO','ROMA','12345678903','NOTA',1)");
  fattura("05/03/24 10.20.30");
  EXPECT_FALSE(read("SELECT Partita_IVA from TAB_ANAG_CLIENTI where Partita_Iva = '12345678903';").empty());
  EXPECT_EQ(read("SELECT ID_Cliente,Partita_IVA from TAB_ANAG_CLIENTI where Partita_Iva = '12345678903';")
                .field(QStringLiteral("ID_Cliente"))
                .int32(),
            3);
  EXPECT_TRUE(read("SELECT ID_Cliente from TAB_FATTURE where ID_Cliente = 3;").empty());
  EXPECT_FALSE(read("SELECT ID_Cliente from TAB_FATTURE where ID_Cliente = 0;").empty());
  EXPECT_FALSE(read("SELECT ID_Cliente From TAB_ANAG_CLIENTI where ID_Cliente =3").empty());
  EXPECT_TRUE(read("SELECT ID_Cliente From TAB_ANAG_CLIENTI where ID_Cliente =250").empty());
}

TEST_F(IstruzioniClienti, ScrittureDellaRicezione) {
  EXPECT_EQ(run("INSERT INTO TAB_ANAG_CLIENTI VALUES (3,'ROSSI','VIA PO','ROMA','12345678903','NOTA',255)"),
            1);
  EXPECT_EQ(run("UPDATE TAB_ANAG_CLIENTI SET Ragione_Sociale ='BIANCHI',Indirizzo ='',Citta "
                "='',Partita_IVA ='',Nota ='',Stato = 1 WHERE ID_Cliente =3"),
            1);
  EXPECT_EQ(
      run("INSERT INTO TAB_FATTURE VALUES (3,'2024/17',' 1','05/03/24 10.20.30',-1,2147483647,0,-5,'N')"), 1);
  EXPECT_EQ(value("SELECT Corr_Non_Pagato FROM TAB_FATTURE"), QStringLiteral("-1"));
  EXPECT_EQ(value("SELECT Tipo_Fattura FROM TAB_FATTURE"), QStringLiteral(" 1"));
  EXPECT_EQ(run("DELETE FROM TAB_FATTURE"), 1);
  EXPECT_EQ(run("DELETE FROM TAB_ANAG_CLIENTI WHERE ID_Cliente =3"), 1);
}

TEST_F(IstruzioniClienti, IlMassimoDiUnArchivioVuotoENullo) {
  run("DELETE FROM TAB_ANAG_CLIENTI WHERE ID_Cliente =0");
  EXPECT_TRUE(read("select max(ID_Cliente) as NumMaxCl from tab_anag_CLienti ")
                  .field(QStringLiteral("NumMaxCl"))
                  .isNull());
}

TEST_F(IstruzioniClienti, RicercaDelleFattureConTuttiIFiltri) {
  run("INSERT INTO TAB_ANAG_CLIENTI VALUES (3,'ROSSI','VIA PO','ROMA','12345678903','NOTA',1)");
  run("INSERT INTO TAB_FATTURE VALUES (3,'2024/17',' 1','29/02/24 23.59.59',0,12200,10000,2200,'ROSSI')");
  auto righe = read(
      "SELECT TAB_ANAG_CLIENTI.ID_Cliente AS GET_ID_Cliente, TAB_ANAG_CLIENTI.Ragione_Sociale, "
      "TAB_ANAG_CLIENTI.Partita_iva, TAB_FATTURE.ID_Cliente AS TAB_FATTURE_ID_Cliente, "
      "TAB_FATTURE.NumFattura, TAB_FATTURE.Tipo_Fattura, TAB_FATTURE.DataFattura, "
      "TAB_FATTURE.Corr_Non_Pagato,TAB_FATTURE.Importo_Fattura, TAB_FATTURE.Imponibile, "
      "TAB_FATTURE.Imposta, TAB_FATTURE.Nota FROM TAB_ANAG_CLIENTI LEFT JOIN TAB_FATTURE ON "
      "TAB_ANAG_CLIENTI.ID_Cliente = TAB_FATTURE.ID_Cliente WHERE (TAB_FATTURE.DataFattura >= #29/02/2024 "
      "00.00.00# AND TAB_FATTURE.DataFattura  <= #29/02/2024 23.59.59#)  AND TAB_FATTURE.ID_Cliente = 3 AND "
      "Ragione_Sociale like 'ROS*' AND Partita_iva like '123*' AND NumFattura like '2024/*' ORDER BY "
      "TAB_ANAG_CLIENTI.Ragione_Sociale,TAB_FATTURE.NumFattura ASC");
  ASSERT_EQ(righe.RecordCount(), 1);
  EXPECT_EQ(righe.field(QStringLiteral("GET_ID_Cliente")).int32(), 3);
  EXPECT_EQ(righe.field(QStringLiteral("TAB_FATTURE_ID_Cliente")).int32(), 3);
  EXPECT_EQ(righe.field(QStringLiteral("Partita_IVA")).text(), QStringLiteral("12345678903"));
  EXPECT_EQ(righe.field(QStringLiteral("DataFattura")).text(), QStringLiteral("29/02/2024 23:59:59"));
}

TEST_F(IstruzioniClienti, UnApostrofoNelNomeRompeLaIstruzione) {
  EXPECT_EQ(numberOf("INSERT INTO TAB_ANAG_CLIENTI VALUES (3,'DELL'ACQUA','','','','',1)"), 3075);
  EXPECT_EQ(read("SELECT ID_Cliente from TAB_ANAG_CLIENTI ").RecordCount(), 1);
}

}  // namespace
