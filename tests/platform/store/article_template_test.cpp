#include <gmock/gmock.h>

#include "platform/store/test_archive.h"
#include "sostegno/statements.h"

using ModelloArticoli = ArchiveOfTry;

TEST_F(ModelloArticoli, HaCinquemilaCaselleConPosizioneUgualeAllaCasella) {
  auto righe = read("SELECT auto_id,ID_Position from TAB_ARTICOLI");
  ASSERT_EQ(righe.RecordCount(), 5000);
  for (std::int64_t casella = 1; !righe.atEnd(); righe.MoveNext(), ++casella) {
    ASSERT_EQ(righe.int64(0), casella);
    ASSERT_EQ(righe.utf8(1), std::to_string(casella));
  }
}

TEST_F(ModelloArticoli, LeCaselleSonoVuoteDelPrimoReparto) {
  EXPECT_EQ(read("SELECT auto_id from TAB_ARTICOLI where Codice_EAN = '' and Codice_Articolo = '' and "
                 "Descrizione = '' and Prezzo = 0 and Reparto = 1 and Filler = '' and VarPrezzo = false and "
                 "PrezzoZero = false")
                .RecordCount(),
            5000);
}

TEST_F(ModelloArticoli, NonEAssegnatoAUnaCassa) {
  auto righe = read("SELECT NomeCassa from TAB_VARIE ");
  ASSERT_EQ(righe.RecordCount(), 1);
  EXPECT_EQ(righe.field(QStringLiteral("NomeCassa")).text(), QStringLiteral("NON_ASSEGNATO"));
}

TEST_F(ModelloArticoli, LeAltreTabelleSonoVuote) {
  EXPECT_TRUE(read("SELECT Codice_EAN,TipoOperazione from TAB_VARIAZIONI").empty());
  EXPECT_TRUE(read("SELECT Codice_EAN,Codice_EAN_Num,Index,Spare from TAB_EAN_NUMERICI").empty());
  EXPECT_TRUE(read("SELECT Data,id_plu,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,"
                   "sconto_giornaliero,Tot_giorn_articoli_venduti from TAB_VENDUTO")
                  .empty());
}

TEST_F(ModelloArticoli, TestiTroppoLunghiPerLaColonna) {
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Codice_EAN = '12345678901234' WHERE auto_id=1"), 3163);
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Codice_EAN = '1234567890123' WHERE auto_id=1"), 0);
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Codice_Articolo = '12345678901234' WHERE auto_id=1"), 3163);
  EXPECT_EQ(numberOf("INSERT INTO TAB_VARIAZIONI (Codice_EAN,TipoOperazione) Values ('1','IU');"), 3163);
  const QString lunga(256, QLatin1Char('x'));
  EXPECT_EQ(numberError([&] {
              archive_.Execute(asWritten(
                  QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione = '%1' WHERE auto_id=1").arg(lunga)));
            }),
            3163);
}

TEST_F(ModelloArticoli, IlNomeDellaColonnaStaNelMessaggio) {
  EXPECT_THAT(descriptionError([&] {
                run("UPDATE TAB_ARTICOLI SET Codice_EAN = '12345678901234' WHERE auto_id=1");
              }).toStdString(),
              testing::HasSubstr("Codice_EAN"));
}

TEST_F(ModelloArticoli, UnTestoNonEUnPrezzo) {
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Prezzo = 'dieci' WHERE auto_id=1"), 3421);
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Prezzo = 4000000000 WHERE auto_id=1"), 3421);
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Prezzo = '10' WHERE auto_id=1"), 0);
}

TEST_F(ModelloArticoli, LeCaselleTornanoInOrdineDiTabellaAncheConUnaColonnaIndicizzata) {
  run("UPDATE TAB_ARTICOLI SET Codice_EAN = 'ZZZ' WHERE auto_id=1");
  EXPECT_EQ(value("SELECT Codice_EAN from TAB_ARTICOLI "), QStringLiteral("ZZZ"));
}

TEST_F(ModelloArticoli, DueRicezioniDelloStessoGiornoStannoAccanto) {
  for (int volta = 0; volta < 2; ++volta)
    EXPECT_EQ(
        run("insert into tab_venduto (Data,id_plu,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,"
            "sconto_giornaliero,Tot_giorn_articoli_venduti) select FORMAT(DATE(), 'yyyymmdd'),7,"
            "codice_articolo,codice_ean,descrizione,100,0,1 from tab_articoli where auto_id=7"),
        1);
  EXPECT_EQ(read("SELECT id_plu from TAB_VENDUTO where id_plu = 7").RecordCount(), 2);
}
