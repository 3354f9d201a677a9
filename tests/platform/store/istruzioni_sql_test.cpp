// The statements of the program, as their callers word them.

#include "platform/store/archivio_di_prova.h"
#include "platform/store/orologio.h"

namespace {

class IstruzioniArticoli : public ArchivioDiProva {
 protected:
  IstruzioniArticoli() {
    store::ImpostaOrologio([] { return QDateTime(QDate(2024, 3, 5), QTime(23, 59, 59)); });
  }
  ~IstruzioniArticoli() override { store::ImpostaOrologio({}); }
};

TEST_F(IstruzioniArticoli, LetturaENumerazione) {
  EXPECT_EQ(leggi("SELECT Codice_EAN from TAB_ARTICOLI ").RecordCount(), 5000);
  EXPECT_EQ(leggi("SELECT Auto_ID,Codice_EAN from TAB_ARTICOLI ORDER by Auto_ID ASC").RecordCount(), 5000);
  EXPECT_EQ(leggi("SELECT Auto_ID,Codice_EAN ,ID_Position from TAB_ARTICOLI ").RecordCount(), 5000);
  EXPECT_EQ(esegui("UPDATE TAB_ARTICOLI SET ID_Position = '4999' WHERE Codice_EAN ='';"), 5000);
  EXPECT_EQ(
      leggi("SELECT "
            "ID_Position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler,VarPrezzo,PrezzoZero "
            "from TAB_ARTICOLI")
          .campo(QStringLiteral("id_position"))
          .intero(),
      4999);
}

TEST_F(IstruzioniArticoli, RicercaConTuttiIFiltri) {
  esegui(
      "UPDATE TAB_ARTICOLI SET Codice_Articolo = 'LT1',Descrizione = 'LATTE', Prezzo = 150,Codice_EAN "
      "='8012345678901'"
      ",VarPrezzo = true,PrezzoZero = false,Reparto = 3,Filler =' ' WHERE auto_id=17");
  auto righe = leggi(
      "SELECT id_position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler from TAB_ARTICOLI  "
      "WHERE   Codice_EAN LIKE '80*' AND  Codice_Articolo like 'lt*' AND  Descrizione like 'lat*' AND  "
      "Prezzo >=120  AND  Reparto =3 ORDER BY Codice_EAN ASC");
  ASSERT_EQ(righe.RecordCount(), 1);
  EXPECT_EQ(righe.campo(QStringLiteral("ID_POSITION")).testo(), QStringLiteral("17"));
  EXPECT_TRUE(leggi("SELECT VarPrezzo from TAB_ARTICOLI where auto_id=17").campo(0).booleano());
}

TEST_F(IstruzioniArticoli, EanDuplicatoEGiornaleDelleVariazioni) {
  esegui("UPDATE TAB_ARTICOLI SET Codice_EAN = 'abc' WHERE auto_id=3");
  EXPECT_FALSE(leggi("SELECT Codice_EAN from TAB_ARTICOLI where auto_id <>4 and Codice_Ean ='ABC';").vuoto());
  EXPECT_TRUE(leggi("SELECT Codice_EAN from TAB_ARTICOLI where auto_id <>3 and Codice_Ean ='ABC';").vuoto());
  EXPECT_TRUE(leggi("SELECT Codice_EAN from TAB_ARTICOLI where Codice_Articolo <> '' and Codice_EAN = 'abc';")
                  .vuoto());
  EXPECT_EQ(esegui("INSERT INTO TAB_ARTICOLI (Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler) "
                   "Values ('80           ','A1','PANE',120,2,' ');"),
            1);
  EXPECT_EQ(valore("SELECT max(auto_id) from TAB_ARTICOLI"), QStringLiteral("5001"));
  EXPECT_EQ(esegui("INSERT INTO TAB_VARIAZIONI (Codice_EAN,TipoOperazione) Values ('80','C');"), 1);
  EXPECT_FALSE(
      leggi("SELECT TipoOperazione from TAB_VARIAZIONI where Codice_EAN = '80' AND (TipoOperazione ='C') ;")
          .vuoto());
  EXPECT_EQ(esegui("UPDATE TAB_VARIAZIONI SET TipoOperazione = 'I' WHERE Codice_EAN ='80'"), 1);
  EXPECT_FALSE(
      leggi("SELECT TipoOperazione from TAB_VARIAZIONI where Codice_EAN = '80' AND (TipoOperazione ='I' OR "
            "TipoOperazione ='U') ;")
          .vuoto());
  EXPECT_EQ(esegui("DELETE FROM TAB_VARIAZIONI where Codice_EAN = '80';"), 1);
  EXPECT_EQ(esegui("Delete  from TAB_ARTICOLI where Codice_EAN ='abc';"), 1);
}

TEST_F(IstruzioniArticoli, IndiceDegliEan) {
  EXPECT_EQ(esegui("INSERT INTO TAB_EAN_NUMERICI (Codice_EAN,Codice_EAN_Num,Index,Spare) Values "
                   "('80',4294967295,12,'');"),
            1);
  EXPECT_EQ(esegui("UPDATE TAB_EAN_NUMERICI SET Index = -1 WHERE Codice_Ean_num = 4294967295;"), 1);
  auto righe = leggi("SELECT Index,Codice_EAN_Num from TAB_EAN_NUMERICI");
  EXPECT_EQ(righe.campo(QStringLiteral("Index")).intero(), -1);
  EXPECT_EQ(righe.campo(1).testo(), QStringLiteral("4294967295"));
}

TEST_F(IstruzioniArticoli, ImportazioneConCodaPersaFallisce) {
  EXPECT_EQ(esegui("UPDATE TAB_ARTICOLI SET  Codice_ean ='80', Codice_Articolo ='0',Descrizione ='X',Prezzo "
                   "=10,Reparto =1,"
                   "Filler ='ERR' WHERE auto_id=9"),
            1);
  EXPECT_EQ(leggi("SELECT Filler from TAB_ARTICOLI where Filler ='ERR';").RecordCount(), 1);
  EXPECT_EQ(numeroDi("UPDATE TAB_ARTICOLI SET  Codice_ean ='80', Codice_Articolo ='0',Descrizione "
                     "='X',Prezzo =10,Reparto =1,"),
            3075);
}

TEST_F(IstruzioniArticoli, UnaCasellaSenzaRigaNonToccaNulla) {
  EXPECT_EQ(
      esegui(
          "UPDATE TAB_ARTICOLI SET Descrizione = 'A',Codice_EAN ='1',Prezzo =1,Reparto =1,varprezzo = true,"
          "prezzozero = false WHERE auto_id =9999"),
      0);
}

TEST_F(IstruzioniArticoli, SenzaCasellaIlSalvataggioFallisce) {
  EXPECT_EQ(numeroDi("UPDATE TAB_ARTICOLI SET Prezzo = 1 WHERE auto_id="), 3075);
}

TEST_F(IstruzioniArticoli, IlVendutoHaIlGiornoDelPcEICodiciIncrociati) {
  esegui(
      "UPDATE TAB_ARTICOLI SET Codice_Articolo = 'ART',Codice_EAN ='EAN',Descrizione='PANE' WHERE auto_id=2");
  EXPECT_EQ(
      esegui(
          "insert into tab_venduto (Data,id_plu,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,"
          "sconto_giornaliero,Tot_giorn_articoli_venduti) select FORMAT(DATE(), "
          "'yyyymmdd'),2,codice_articolo,"
          "codice_ean,descrizione,-150,10,3 from tab_articoli where auto_id=2"),
      1);
  auto righe = leggi(
      "SELECT Data,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,Tot_giorn_articoli_venduti,"
      "Sconto_giornaliero from TAB_VENDUTO ORDER BY DATA, Codice_EAN ASC");
  ASSERT_EQ(righe.RecordCount(), 1);
  EXPECT_EQ(righe.campo(QStringLiteral("Data")).testo(), QStringLiteral("20240305"));
  EXPECT_EQ(righe.campo(QStringLiteral("Codice_EAN")).testo(), QStringLiteral("ART"));
  EXPECT_EQ(righe.campo(QStringLiteral("Codice_Articolo")).testo(), QStringLiteral("EAN"));
  EXPECT_EQ(righe.campo(QStringLiteral("importo_giornaliero")).intero(), -150);
}

TEST_F(IstruzioniArticoli, LaRicercaDelVendutoNonSceglieLoSconto) {
  esegui("INSERT INTO TAB_VENDUTO VALUES ('20240305',1,'ART','EAN','PANE',100,0,1)");
  auto righe = leggi(
      "SELECT Data,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,Tot_giorn_articoli_venduti "
      "from "
      "TAB_VENDUTO WHERE (Data >= '20240301' AND Data <= '20240331')  AND Codice_EAN like 'a*' AND "
      "Descrizione "
      "like 'pa*' ORDER BY Data, Codice_EAN ASC");
  ASSERT_EQ(righe.RecordCount(), 1);
  EXPECT_EQ(numeroErrore([&] { righe.campo(QStringLiteral("Sconto_giornaliero")); }), 3265);
}

TEST_F(IstruzioniArticoli, ImpostazioniDellArchivio) {
  EXPECT_EQ(leggi("SELECT Num_Articoli_Cassa,Data_end_update,Data_end_scarico from TAB_VARIE").RecordCount(),
            1);
}

/// Two tables as the customers' archive has them.
class IstruzioniClienti : public ArchivioDiProva {
 protected:
  IstruzioniClienti() {
    esegui(
        "CREATE TABLE TAB_ANAG_CLIENTI (ID_Cliente INTEGER PRIMARY KEY, Ragione_Sociale TEXT COLLATE NOCASE, "
        "Indirizzo "
        "TEXT COLLATE NOCASE, Citta TEXT COLLATE NOCASE, Partita_IVA TEXT COLLATE NOCASE, Nota TEXT COLLATE "
        "NOCASE, Stato "
        "INTEGER)");
    esegui(
        "CREATE TABLE TAB_FATTURE (ID_Cliente INTEGER REFERENCES TAB_ANAG_CLIENTI, NumFattura TEXT COLLATE "
        "NOCASE, "
        "Tipo_Fattura TEXT, DataFattura DATETIME, Corr_Non_Pagato INTEGER, Importo_Fattura INTEGER, "
        "Imponibile INTEGER, "
        "Imposta INTEGER, Nota TEXT)");
    esegui("CREATE INDEX F ON TAB_FATTURE (ID_Cliente)");
    esegui("INSERT INTO TAB_ANAG_CLIENTI VALUES (0,'','','','','',1)");
  }
  void fattura(const char* momento) {
    archivio_.Execute(
        QStringLiteral("INSERT INTO TAB_FATTURE VALUES (0,'2024/17',' 1','%1',0,12200,10000,2200,'ROSSI')")
            .arg(QString::fromUtf8(momento)));
  }
};

TEST_F(IstruzioniClienti, InserimentoModificaECancellazione) {
  EXPECT_EQ(esegui("INSERT INTO TAB_ANAG_Clienti "
                   "(ID_CLiente,Ragione_Sociale,Indirizzo,Citta,Partita_Iva,Nota,Stato) Values "
                   "(1,'ROSSI','VIA','ROMA','12345678903','',1);"),
            1);
  EXPECT_EQ(esegui("INSERT INTO TAB_ANAG_CLIENTI VALUES (7,'','','','','',2)"), 1);
  EXPECT_EQ(esegui("UPDATE TAB_ANAG_CLIENTI SET Ragione_Sociale = 'BIANCHI', Indirizzo = 'V', Citta = "
                   "'C',Partita_IVA = "
                   "'1',Nota = '',Stato = 1 WHERE ID_CLIENTE =7"),
            1);
  EXPECT_EQ(valore("select max(ID_Cliente) as NumMaxCl from tab_anag_CLienti "), QStringLiteral("7"));
  EXPECT_EQ(leggi("SELECT max(ID_Cliente) as max_cliente from TAB_ANAG_CLIENTI ")
                .campo(QStringLiteral("MAX_CLIENTE"))
                .intero(),
            7);
  EXPECT_EQ(leggi("SELECT ID_Cliente,Ragione_Sociale,Indirizzo,Citta,Partita_IVA,Nota,Stato from "
                  "TAB_ANAG_CLIENTI where "
                  "ID_Cliente <> 0 order by ID_Cliente,Ragione_Sociale,Partita_IVA")
                .RecordCount(),
            2);
  EXPECT_EQ(leggi("SELECT  ID_Cliente,  Ragione_Sociale,  Indirizzo,  citta,  Partita_IVA,  Nota,  Stato "
                  "FROM TAB_ANAG_CLIENTI "
                  "WHERE  Ragione_Sociale like 'BIAN*' AND  Partita_IVA like '1*' ORDER BY "
                  "ID_Cliente,Ragione_Sociale ASC ")
                .RecordCount(),
            1);
  EXPECT_EQ(esegui("Delete  cascade from TAB_ANAG_CLIENTI where ID_Cliente =7;"), 1);
  EXPECT_EQ(leggi("SELECT ID_Cliente from TAB_ANAG_CLIENTI ").RecordCount(), 2);
}

TEST_F(IstruzioniClienti, LeDateScritteInDueModiStannoInUnaForma) {
  fattura("05/03/24 10.20.30");
  fattura("06/03/24 10:20:30");
  auto righe = leggi("SELECT DataFattura FROM TAB_FATTURE ORDER BY DataFattura");
  EXPECT_EQ(righe.campo(0).testo(), QStringLiteral("05/03/2024 10:20:30"));
  EXPECT_EQ(righe.utf8(0), "05/03/2024 10:20:30");
  righe.MoveNext();
  EXPECT_EQ(righe.campo(QStringLiteral("datafattura")).testo(), QStringLiteral("06/03/2024 10:20:30"));
  EXPECT_EQ(
      esegui("UPDATE TAB_FATTURE SET DataFattura = '31/12/2023 00:00:01' WHERE DataFattura >= #06/03/2024#"),
      1);
  EXPECT_EQ(valore("SELECT DataFattura FROM TAB_FATTURE ORDER BY DataFattura"),
            QStringLiteral("31/12/2023 00:00:01"));
}

TEST_F(IstruzioniClienti, UnTestoCheNonEUnaDataERifiutato) {
  EXPECT_EQ(numeroErrore([&] { fattura("31/02/24 10:20:30"); }), 13);
  EXPECT_TRUE(leggi("SELECT Nota FROM TAB_FATTURE").vuoto());
}

TEST_F(IstruzioniClienti, LaFatturaGiaRicevutaSiRitrovaAlSecondo) {
  fattura("05/03/24 10:20:30");
  EXPECT_FALSE(leggi("SELECT NumFattura From TAB_FATTURE where ID_Cliente =0 and "
                     "format(datafattura,'dd/mm/yy hh:mm:ss') = "
                     "'05/03/24 10.20.30'")
                   .vuoto());
  EXPECT_TRUE(leggi("SELECT NumFattura From TAB_FATTURE where ID_Cliente =0 and format(datafattura,'dd/mm/yy "
                    "hh:mm:ss') = "
                    "'05/03/24 10.20.31'")
                  .vuoto());
}

TEST_F(IstruzioniClienti, ElencoDelleFattureConIClientiSenza) {
  fattura("05/03/24 10:20:30");
  esegui("INSERT INTO TAB_ANAG_CLIENTI VALUES (7,'VERDI','','','','',1)");
  auto righe = leggi(
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
  EXPECT_EQ(righe.campo(QStringLiteral("Nota")).testo(), QStringLiteral("ROSSI"));
  EXPECT_EQ(righe.campo(QStringLiteral("DataFattura")).testo(), QStringLiteral("05/03/2024 10:20:30"));
  righe.MoveNext();
  EXPECT_TRUE(righe.campo(QStringLiteral("DataFattura")).nullo());
  EXPECT_EQ(righe.campo(QStringLiteral("GET_ID_Cliente")).intero(), 7);
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
  EXPECT_EQ(valore(testa), QStringLiteral("2024/17"));
  EXPECT_EQ(leggi("SELECT NumFattura FROM TAB_FATTURE WHERE DataFattura >= #03/05/2024#").RecordCount(), 0);
}

TEST_F(IstruzioniClienti, UnClienteConFattureNonSiCancellaSeLaRelazioneNonLoDice) {
  fattura("05/03/24 10:20:30");
  EXPECT_EQ(numeroDi("DELETE FROM TAB_ANAG_CLIENTI WHERE ID_Cliente =0"), 3200);
}

TEST_F(IstruzioniClienti, UnaChiaveGiaPresenteEUnDuplicato) {
  EXPECT_EQ(numeroDi("INSERT INTO TAB_ANAG_CLIENTI VALUES (0,'','','','','',2)"), 3022);
}

}  // namespace
