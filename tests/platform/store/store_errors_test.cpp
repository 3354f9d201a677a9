#include <gmock/gmock.h>

#include "platform/store/test_archive.h"

using ErroriStore = ArchiveOfTry;

TEST_F(ErroriStore, ColonnaIgnotaEUnParametroMancante) {
  EXPECT_EQ(numberOfReading("SELECT Pippo from TAB_ARTICOLI"), 3061);
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Pippo = 1"), 3061);
  EXPECT_EQ(numberOf("INSERT INTO TAB_VARIAZIONI (Pippo) Values (1)"), 3061);
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Reparto = abc WHERE auto_id=1"), 3061);
}

TEST_F(ErroriStore, UnNomeTraVirgoletteNonEUnaColonna) {
  EXPECT_TRUE(read("SELECT auto_id FROM TAB_ARTICOLI WHERE \"Codice_EAN\" = Descrizione").empty());
}

TEST_F(ErroriStore, TabellaIgnota) {
  EXPECT_EQ(numberOfReading("SELECT a from TAB_PIPPO"), 3078);
  EXPECT_EQ(numberOf("DELETE FROM TAB_PIPPO"), 3078);
  EXPECT_THAT(descriptionError([&] { read("SELECT a from TAB_PIPPO"); }).toStdString(),
              testing::HasSubstr("TAB_PIPPO"));
}

TEST_F(ErroriStore, UnApostrofoRompeLaIstruzioneECitaIlPezzo) {
  const char* sql =
      "UPDATE TAB_ARTICOLI SET Codice_Articolo = '1',Descrizione = 'DELL'ACQUA', Prezzo = 5 WHERE auto_id=1";
  EXPECT_EQ(numberOf(sql), 3075);
  const std::string descrizione = descriptionError([&] { run(sql); }).toStdString();
  EXPECT_THAT(descrizione, testing::HasSubstr("Errore di sintassi"));
  const char* chiuso = "UPDATE TAB_ARTICOLI SET Descrizione = 'L'ACQUA' WHERE Filler ='x'";
  EXPECT_EQ(numberOf(chiuso), 3075);
  EXPECT_THAT(
      descriptionError([&] { run("SELECT auto_id FROM TAB_ARTICOLI WHERE 'L'ACQUA 'x'"); }).toStdString(),
      testing::HasSubstr("'ACQUA 'x''"));
  EXPECT_EQ(value("SELECT Descrizione from TAB_ARTICOLI where auto_id=1"), QString());
}

TEST_F(ErroriStore, TestoDopoLaFine) {
  EXPECT_EQ(numberOf("DELETE FROM TAB_VARIE; DELETE FROM TAB_ARTICOLI"), 3142);
  EXPECT_EQ(read("SELECT NomeCassa from TAB_VARIE ").RecordCount(), 1);
}

TEST_F(ErroriStore, ChiaveDuplicata) {
  EXPECT_EQ(numberOf("INSERT INTO TAB_ARTICOLI (auto_id) VALUES (1)"), 3022);
}

TEST_F(ErroriStore, NumeroDeiValoriDiverso) {
  EXPECT_EQ(numberOf("INSERT INTO TAB_VARIAZIONI (Codice_EAN,TipoOperazione) VALUES ('1')"), 3346);
  EXPECT_EQ(numberOf("INSERT INTO TAB_VARIAZIONI VALUES ('1','I','x')"), 3346);
}

TEST_F(ErroriStore, UnaLetturaNonSiEsegueEUnaModificaNonSiApre) {
  EXPECT_EQ(numberOf("SELECT NomeCassa from TAB_VARIE"), 3065);
  EXPECT_EQ(numberOfReading("DELETE FROM TAB_VARIE"), 3219);
  EXPECT_EQ(read("SELECT NomeCassa from TAB_VARIE ").RecordCount(), 1);
}

TEST_F(ErroriStore, FunzioneIgnota) {
  EXPECT_EQ(numberOfReading("SELECT pippo(1) from TAB_VARIE"), 3085);
}

TEST_F(ErroriStore, CampoAmbiguo) {
  EXPECT_EQ(numberOfReading("SELECT Codice_EAN from TAB_ARTICOLI, TAB_VENDUTO"), 3079);
}

TEST_F(ErroriStore, ValoreObbligatorioERegola) {
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET VarPrezzo = NULL WHERE auto_id=1"), 3314);
  run("CREATE TABLE T (a INTEGER CHECK (a > 0))");
  EXPECT_EQ(numberOf("INSERT INTO T VALUES (0)"), 3317);
}

TEST_F(ErroriStore, UnHandleChiusoNonServePiu) {
  store::Database copia = archive_;
  archive_.Close();
  EXPECT_FALSE(copia.isOpen());
  EXPECT_EQ(numberError([&] { copia.Execute(u"DELETE FROM TAB_VARIE"); }), 3420);
  EXPECT_EQ(numberError([&] { archive_.Close(); }), 0);
  EXPECT_EQ(numberError([] { store::Database().Execute(u"DELETE FROM T"); }), 3420);
}

TEST_F(ErroriStore, DopoUnErroreLaStessaIstruzioneFunzionaAncora) {
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Codice_EAN = '12345678901234' WHERE auto_id=1"), 3163);
  EXPECT_EQ(run("UPDATE TAB_ARTICOLI SET Codice_EAN = '123' WHERE auto_id=1"), 1);
}
