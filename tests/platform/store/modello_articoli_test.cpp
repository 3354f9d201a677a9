#include "platform/store/archivio_di_prova.h"

using ModelloArticoli = ArchivioDiProva;

TEST_F(ModelloArticoli, HaCinquemilaCaselleConPosizioneUgualeAllaCasella) {
  auto righe = leggi("SELECT auto_id,ID_Position from TAB_ARTICOLI");
  ASSERT_EQ(righe.RecordCount(), 5000);
  for (std::int64_t casella = 1; !righe.fine(); righe.MoveNext(), ++casella) {
    ASSERT_EQ(righe.intero64(0), casella);
    ASSERT_EQ(righe.utf8(1), std::to_string(casella));
  }
}

TEST_F(ModelloArticoli, LeCaselleSonoVuoteDelPrimoReparto) {
  EXPECT_EQ(leggi("SELECT auto_id from TAB_ARTICOLI where Codice_EAN = '' and Codice_Articolo = '' and "
                  "Descrizione = '' and Prezzo = 0 and Reparto = 1 and Filler = '' and VarPrezzo = false and "
                  "PrezzoZero = false")
                .RecordCount(),
            5000);
}

TEST_F(ModelloArticoli, NonEAssegnatoAUnaCassa) {
  auto righe = leggi("SELECT NomeCassa from TAB_VARIE ");
  ASSERT_EQ(righe.RecordCount(), 1);
  EXPECT_EQ(righe.campo(QStringLiteral("NomeCassa")).testo(), QStringLiteral("NON_ASSEGNATO"));
}

TEST_F(ModelloArticoli, LeAltreTabelleSonoVuote) {
  EXPECT_TRUE(leggi("SELECT Codice_EAN,TipoOperazione from TAB_VARIAZIONI").vuoto());
  EXPECT_TRUE(leggi("SELECT Codice_EAN,Codice_EAN_Num,Index,Spare from TAB_EAN_NUMERICI").vuoto());
  EXPECT_TRUE(leggi("SELECT Data,id_plu,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,"
                    "sconto_giornaliero,Tot_giorn_articoli_venduti from TAB_VENDUTO")
                  .vuoto());
}

TEST_F(ModelloArticoli, TestiTroppoLunghiPerLaColonna) {
  EXPECT_EQ(numeroDi("UPDATE TAB_ARTICOLI SET Codice_EAN = '12345678901234' WHERE auto_id=1"), 3163);
  EXPECT_EQ(numeroDi("UPDATE TAB_ARTICOLI SET Codice_EAN = '1234567890123' WHERE auto_id=1"), 0);
  EXPECT_EQ(numeroDi("UPDATE TAB_ARTICOLI SET Codice_Articolo = '12345678901234' WHERE auto_id=1"), 3163);
  EXPECT_EQ(numeroDi("INSERT INTO TAB_VARIAZIONI (Codice_EAN,TipoOperazione) Values ('1','IU');"), 3163);
  const QString lunga(256, QLatin1Char('x'));
  EXPECT_EQ(numeroErrore([&] {
              archivio_.Execute(
                  QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione = '%1' WHERE auto_id=1").arg(lunga));
            }),
            3163);
}

TEST_F(ModelloArticoli, IlNomeDellaColonnaStaNelMessaggio) {
  EXPECT_THAT(descrizioneErrore([&] {
                esegui("UPDATE TAB_ARTICOLI SET Codice_EAN = '12345678901234' WHERE auto_id=1");
              }).toStdString(),
              testing::HasSubstr("Codice_EAN"));
}

TEST_F(ModelloArticoli, UnTestoNonEUnPrezzo) {
  EXPECT_EQ(numeroDi("UPDATE TAB_ARTICOLI SET Prezzo = 'dieci' WHERE auto_id=1"), 3421);
  EXPECT_EQ(numeroDi("UPDATE TAB_ARTICOLI SET Prezzo = 4000000000 WHERE auto_id=1"), 3421);
  EXPECT_EQ(numeroDi("UPDATE TAB_ARTICOLI SET Prezzo = '10' WHERE auto_id=1"), 0);
}

TEST_F(ModelloArticoli, LeCaselleTornanoInOrdineDiTabellaAncheConUnaColonnaIndicizzata) {
  esegui("UPDATE TAB_ARTICOLI SET Codice_EAN = 'ZZZ' WHERE auto_id=1");
  EXPECT_EQ(valore("SELECT Codice_EAN from TAB_ARTICOLI "), QStringLiteral("ZZZ"));
}

TEST_F(ModelloArticoli, DueRicezioniDelloStessoGiornoStannoAccanto) {
  for (int volta = 0; volta < 2; ++volta)
    EXPECT_EQ(
        esegui(
            "insert into tab_venduto (Data,id_plu,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,"
            "sconto_giornaliero,Tot_giorn_articoli_venduti) select FORMAT(DATE(), 'yyyymmdd'),7,"
            "codice_articolo,codice_ean,descrizione,100,0,1 from tab_articoli where auto_id=7"),
        1);
  EXPECT_EQ(leggi("SELECT id_plu from TAB_VENDUTO where id_plu = 7").RecordCount(), 2);
}
