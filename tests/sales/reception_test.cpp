#include "sales/reception.h"

#include <gmock/gmock.h>

#include "articles/back_room.h"
#include "sostegno/test_till.h"

namespace {

TEST(VendutoDi, OgniSerieSiLeggeAlSuoPostoColSuoSegno) {
  const QByteArray byte = salesArchive({{0, 1250, 3, -50}, {4999, -1, -2, 2147483647}, {7, 1, 2, 3}});
  ASSERT_EQ(byte.size(), static_cast<qsizetype>(sales::kByteVenduto));
  const std::vector<std::uint8_t> venduto(byte.begin(), byte.end());
  EXPECT_EQ(sales::vendutoDi(venduto, 0), (sales::VendutoSlot{1250, 3, -50}));
  EXPECT_EQ(sales::vendutoDi(venduto, 7), (sales::VendutoSlot{1, 2, 3}));
  EXPECT_EQ(sales::vendutoDi(venduto, 8), (sales::VendutoSlot{0, 0, 0}));
  EXPECT_EQ(sales::vendutoDi(venduto, 4999), (sales::VendutoSlot{-1, -2, 2147483647}));
}

TEST(Inserimento, LoStatementPortaIncrociatiCodiceEdEan) {
  EXPECT_EQ(
      sales::inserimento(41, {1250, 3, -50}).sql(),
      QStringLiteral("insert into tab_venduto (Data,id_plu,Codice_EAN,Codice_Articolo,Descrizione,"
                     "Importo_giornaliero,sconto_giornaliero,Tot_giorn_articoli_venduti) select "
                     "FORMAT(DATE(), 'yyyymmdd'),42,codice_articolo,codice_ean,descrizione,1250,-50,3 from "
                     "tab_articoli where auto_id=42"));
}

TEST(Inserimento, LaRigaHaIlGiornoDelPcEICampiIncrociati) {
  BackRoom bottega;
  bottega.openArchive();
  writeArticles(bottega, {{QStringLiteral("8001"), QStringLiteral("PANE"), 100, 1}});
  EXPECT_EQ(varGlobal().DB_Articoli.Execute(sales::inserimento(0, {1250, 3, -50})), 1);
  const store::Recordset riga = varGlobal().DB_Articoli.OpenRecordset(u"SELECT * from TAB_VENDUTO");
  ASSERT_EQ(riga.RecordCount(), 1);
  EXPECT_EQ(riga.field(QStringLiteral("Data")).text(), QStringLiteral("20240307"));
  EXPECT_EQ(riga.field(QStringLiteral("id_plu")).int32(), 1);
  EXPECT_EQ(riga.field(QStringLiteral("Codice_EAN")).text(), QStringLiteral("A1"));
  EXPECT_EQ(riga.field(QStringLiteral("Codice_Articolo")).text(), QStringLiteral("8001"));
  EXPECT_EQ(riga.field(QStringLiteral("Descrizione")).text(), QStringLiteral("PANE"));
  EXPECT_EQ(riga.field(QStringLiteral("Importo_giornaliero")).int32(), 1250);
  EXPECT_EQ(riga.field(QStringLiteral("sconto_giornaliero")).int32(), -50);
  EXPECT_EQ(riga.field(QStringLiteral("Tot_giorn_articoli_venduti")).int32(), 3);
}

TEST(Inserimento, UnApostrofoNellArticoloNonRompeNulla) {
  BackRoom bottega;
  bottega.openArchive();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione =\"TE' VERDE\" WHERE auto_id =1"));
  EXPECT_EQ(varGlobal().DB_Articoli.Execute(sales::inserimento(0, {100, 1, 0})), 1);
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT Descrizione from TAB_VENDUTO")),
            QStringLiteral("TE' VERDE"));
}

}  // namespace
