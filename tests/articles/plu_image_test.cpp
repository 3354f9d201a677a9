#include "articles/plu_image.h"

#include <gmock/gmock.h>

#include <QFileInfo>

#include "articles/article_database.h"
#include "articles/back_room.h"
#include "config/image.h"
#include "sostegno/guided_screen.h"
#include "sostegno/troubles.h"

namespace {

const QString kPrefisso = QStringLiteral("RiempiPLU: uscita dal programma per condizione anomala ");
const QString kTabella = QStringLiteral(
    "CREATE TABLE TAB_ARTICOLI (auto_id INTEGER PRIMARY KEY, ID_Position TEXT, Codice_EAN TEXT, "
    "Codice_Articolo TEXT,"
    " Descrizione TEXT, Prezzo INTEGER, Reparto INTEGER, Filler TEXT, VarPrezzo BOOLEAN, PrezzoZero "
    "BOOLEAN)");

/// The record of slot `n`, from 1, as it stands in memory.
QByteArray record(int n) {
  return imageInMemory().mid((n - 1) * 48, 48);
}

/// One article over the template's first slot, filled; the record it makes.
QByteArray recordDi(const TestArticle& articolo) {
  BackRoom bottega;
  bottega.openArchive();
  writeArticles(bottega, {articolo});
  EXPECT_EQ(articles::RiempiPLU(bottega.user), 0);
  return record(1);
}

// RiempiPLU.

TEST(RiempiPLU, CinquemilaArticoliRiempionoTuttaLImmagineByteAByte) {
  BackRoom bottega;
  bottega.openFullArchive();
  soilMemory(0xA5);
  EXPECT_EQ(articles::RiempiPLU(bottega.user), 0);
  EXPECT_TRUE(imageInMemory() == expectedImage(fullArchive(), QByteArray(240000, '\xA5')));
}

TEST(RiempiPLU, NonToccaLeAltreFamiglieDellImmagine) {
  BackRoom bottega;
  bottega.openArchive();
  soilMemory(0xA5);
  EXPECT_EQ(articles::RiempiPLU(bottega.user), 0);
  const config::RecordLetto tutta = std::as_const(config::immagineProgrammazione()).byte();
  const auto intatto = [](std::uint8_t byte) { return byte == 0xA5; };
  const std::size_t inizio = config::kPLU.inizio;
  EXPECT_TRUE(std::ranges::all_of(tutta.first(inizio), intatto));
  EXPECT_TRUE(std::ranges::all_of(tutta.subspan(inizio + config::kByteArchivioPLU), intatto));
}

TEST(RiempiPLU, UnaDescrizioneDiTrentaCaratteriArrivaTagliataEGliAltriCampiRestano) {
  const QByteArray byte = recordDi({QStringLiteral("8001234567890"),
                                    QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ1234"), 1250, 3, true, false});
  EXPECT_EQ(byte.left(25), QByteArray("ABCDEFGHIJKLMNOPQRSTUVWX\0", 25));
  EXPECT_EQ(byte.mid(25, 6), QByteArray("\x02\x01\xE2\x04\x00\x00", 6));
  EXPECT_EQ(byte.mid(31, 14), QByteArray("8001234567890\0", 14));
}

TEST(RiempiPLU, IlRepartoOttantaEsceComeSettantanove) {
  EXPECT_EQ(recordDi({{}, {}, 0, 80}).at(25), char{79});
}

TEST(RiempiPLU, IlRepartoZeroEsceComeDuecentocinquantacinque) {
  EXPECT_EQ(recordDi({{}, {}, 0, 0}).at(25), '\xFF');
}

TEST(RiempiPLU, LeQuattroCoppieDiSegniDannoZeroUnoDueTre) {
  EXPECT_EQ(recordDi({{}, {}, 0, 1, false, false}).at(26), char{0});
  EXPECT_EQ(recordDi({{}, {}, 0, 1, true, false}).at(26), char{1});
  EXPECT_EQ(recordDi({{}, {}, 0, 1, false, true}).at(26), char{2});
  EXPECT_EQ(recordDi({{}, {}, 0, 1, true, true}).at(26), char{3});
}

TEST(RiempiPLU, IlVeroDiUnAltroProgrammaMenoUnoEVero) {
  BackRoom bottega;
  bottega.openWith(
      {kTabella, QStringLiteral("INSERT INTO TAB_ARTICOLI VALUES (1,'','','','',0,1,' ',-1,-1)")});
  EXPECT_EQ(articles::RiempiPLU(bottega.user), 0);
  EXPECT_EQ(record(1).at(26), char{3});
}

TEST(RiempiPLU, UnEanDiQuattordiciCaratteriMetteIlSuoZeroNellaRiserva) {
  BackRoom bottega;
  bottega.openWith(
      {kTabella,
       QStringLiteral("INSERT INTO TAB_ARTICOLI VALUES (1,'','123456789012345','','',0,1,' ',0,0)")});
  soilMemory(0xA5);
  EXPECT_EQ(articles::RiempiPLU(bottega.user), 0);
  EXPECT_EQ(record(1).mid(31), QByteArray("12345678901234\0\xA5\xA5", 17));
}

TEST(RiempiPLU, UnTestoPiuCortoLasciaIByteVecchiDietroIlSuoZero) {
  BackRoom bottega;
  bottega.openWith(
      {kTabella, QStringLiteral("INSERT INTO TAB_ARTICOLI VALUES (1,'','1','','AB',0,1,' ',0,0)")});
  soilMemory(0xA5);
  EXPECT_EQ(articles::RiempiPLU(bottega.user), 0);
  EXPECT_EQ(record(1).left(25), QByteArray("AB\0", 3) + QByteArray(22, '\xA5'));
}

TEST(RiempiPLU, UnArticoloSegnatoErrViaggiaComeGliAltri) {
  BackRoom bottega;
  bottega.openArchive();
  writeArticles(bottega, {{QStringLiteral("123"), QStringLiteral("PANE"), 100, 2}});
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' WHERE auto_id =1"));
  EXPECT_EQ(articles::RiempiPLU(bottega.user), 0);
  EXPECT_EQ(record(1).left(4), QByteArray("PANE"));
}

TEST(RiempiPLU, TreRigheLascianoIntattiGliAltriRecord) {
  BackRoom bottega;
  bottega.openArchive();
  bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 3"));
  soilMemory(0xA5);
  EXPECT_EQ(articles::RiempiPLU(bottega.user), 0);
  EXPECT_NE(record(3), QByteArray(48, '\xA5'));
  EXPECT_EQ(imageInMemory().mid(3 * 48), QByteArray(240000 - 3 * 48, '\xA5'));
}

TEST(RiempiPLU, UnaTabellaVuotaLasciaLImmagineEdEFatto) {
  BackRoom bottega;
  bottega.openArchive();
  bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI"));
  soilMemory(0xA5);
  EXPECT_EQ(articles::RiempiPLU(bottega.user), 0);
  EXPECT_EQ(imageInMemory(), QByteArray(240000, '\xA5'));
}

TEST(RiempiPLU, LaRigaCinquemilaunoEFuoriDaiLimitiESiDiceUnaVoltaSola) {
  BackRoom bottega;
  bottega.openArchive();
  bottega.execute(
      QStringLiteral("INSERT INTO TAB_ARTICOLI (auto_id,Descrizione) Values (5001,'UNO DI TROPPO');"));
  bottega.execute(
      QStringLiteral("INSERT INTO TAB_ARTICOLI (auto_id,Descrizione) Values (5002,'DUE DI TROPPO');"));
  writeArticles(bottega, fullArchive());
  EXPECT_EQ(articles::RiempiPLU(bottega.user), 1);
  const std::vector<Box> visti = bottega.user.takeBoxes();
  ASSERT_EQ(visti.size(), 1U);
  EXPECT_TRUE(visti[0].text.startsWith(kPrefisso + QStringLiteral("9 - "))) << visti[0].text.toStdString();
  EXPECT_EQ(visti[0].icon, Icon::Critical);
  EXPECT_TRUE(imageInMemory() == expectedImage(fullArchive()));
}

/// A row whose column number `colonna`, from 0, is null; the others make a sound article.
QString rigaConNullo(int colonna) {
  QStringList valori{QStringLiteral("1"),     QStringLiteral("'1'"),   QStringLiteral("'EAN'"),
                     QStringLiteral("'COD'"), QStringLiteral("'DES'"), QStringLiteral("12345"),
                     QStringLiteral("4"),     QStringLiteral("' '"),   QStringLiteral("1"),
                     QStringLiteral("1")};
  valori[colonna] = QStringLiteral("NULL");
  return QStringLiteral("INSERT INTO TAB_ARTICOLI VALUES (%1)").arg(valori.join(QLatin1Char(',')));
}

struct Nullo {
  int colonna;
  int inizio;
  int lunghezza;
  QByteArray restano;
};
void PrintTo(const Nullo& nullo, std::ostream* uscita) {
  *uscita << "column " << nullo.colonna << " null";
}
class RiempiPLUNullo : public testing::TestWithParam<Nullo> {};

TEST_P(RiempiPLUNullo, SiDiceIlCampoRestaEGliAltriSiRiempiono) {
  BackRoom bottega;
  bottega.openWith({kTabella, rigaConNullo(GetParam().colonna)});
  soilMemory(0xA5);
  QByteArray prevista(48, '\xA5');
  prevista.replace(0, 4, QByteArray("DES\0", 4));
  prevista.replace(25, 10,
                   QByteArray("\x03\x03\x39\x30\x00\x00"
                              "EAN\0",
                              10));
  prevista.replace(GetParam().inizio, GetParam().lunghezza, GetParam().restano);
  EXPECT_EQ(articles::RiempiPLU(bottega.user), 1);
  EXPECT_EQ(record(1), prevista);
  const std::vector<Box> visti = bottega.user.takeBoxes();
  ASSERT_EQ(visti.size(), 1U);
  EXPECT_TRUE(visti[0].text.startsWith(kPrefisso + QStringLiteral("94 - "))) << visti[0].text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Colonne, RiempiPLUNullo,
    testing::Values(Nullo{2, 31, 4, QByteArray(4, '\xA5')}, Nullo{4, 0, 4, QByteArray(4, '\xA5')},
                    Nullo{5, 27, 4, QByteArray(4, '\xA5')}, Nullo{6, 25, 1, QByteArray(1, '\xA5')},
                    Nullo{8, 26, 1, QByteArray(1, '\x02')}, Nullo{9, 26, 1, QByteArray(1, '\x01')}));

TEST(RiempiPLU, UnNulloNelleDueColonneCheNonViaggianoNonConta) {
  BackRoom bottega;
  bottega.openWith(
      {kTabella, QStringLiteral("INSERT INTO TAB_ARTICOLI VALUES (1,'','1',NULL,'A',0,1,NULL,0,0)")});
  EXPECT_EQ(articles::RiempiPLU(bottega.user), 0);
}

TEST(RiempiPLU, UnPrezzoOltreITrentadueBitSiDiceEIlCampoResta) {
  BackRoom bottega;
  bottega.openWith(
      {kTabella, QStringLiteral("INSERT INTO TAB_ARTICOLI VALUES (1,'','1','','A',2147483648,1,' ',0,0)")});
  soilMemory(0xA5);
  EXPECT_EQ(articles::RiempiPLU(bottega.user), 1);
  EXPECT_EQ(record(1).mid(27, 4), QByteArray(4, '\xA5'));
  EXPECT_EQ(bottega.user.takeBoxes().at(0).text, kPrefisso + QStringLiteral("6 - Overflow"));
}

TEST(RiempiPLU, SenzaUnaColonnaSiDiceENullaSiRiempie) {
  BackRoom bottega;
  bottega.openWith(
      {QStringLiteral("CREATE TABLE TAB_ARTICOLI (auto_id INTEGER PRIMARY KEY, Codice_EAN TEXT)")});
  EXPECT_EQ(articles::RiempiPLU(bottega.user), 1);
  EXPECT_TRUE(bottega.user.takeBoxes().at(0).text.startsWith(kPrefisso + QStringLiteral("3061 - ")));
  EXPECT_FALSE(bottega.user.terminated());
}

// SalvaPLU.

TEST(SalvaPLU, LaTabellaTornaCheEraDopoIlGiroCompleto) {
  BackRoom bottega;
  bottega.openArchive();
  std::vector<TestArticle> articoli = fullArchive();
  for (TestArticle& articolo : articoli)
    articolo.description.replace(QStringLiteral("漢"), QStringLiteral("?"));
  writeArticles(bottega, articoli);
  ASSERT_EQ(articles::RiempiPLU(bottega.user), 0);
  const QByteArray prima = imageInMemory();
  bottega.execute(
      QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='',Codice_EAN ='',Prezzo =0,Reparto =9,VarPrezzo "
                     "=false,PrezzoZero =true"));
  EXPECT_EQ(articles::SalvaPLU(bottega.contesto), 0);
  soilMemory(0);
  ASSERT_EQ(articles::RiempiPLU(bottega.user), 0);
  EXPECT_TRUE(imageInMemory() == prima);
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT Codice_Articolo from TAB_ARTICOLI where auto_id = 42")),
            QStringLiteral("A42"));
}

TEST(SalvaPLU, IlRepartoUnoArrivaComeZeroETornaUno) {
  BackRoom bottega;
  bottega.openArchive();
  writeArticles(bottega, {{{}, {}, 0, 1}});
  ASSERT_EQ(articles::RiempiPLU(bottega.user), 0);
  EXPECT_EQ(record(1).at(25), char{0});
  ASSERT_EQ(articles::SalvaPLU(bottega.contesto), 0);
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT Reparto from TAB_ARTICOLI where auto_id = 1")),
            QStringLiteral("1"));
}

TEST(SalvaPLU, ScriveAncheIRecordCheLaTabellaNonHaRiempito) {
  BackRoom bottega;
  bottega.openArchive();
  config::scriviTesto(config::immagineProgrammazione().record(config::kPLU, 3), config::plu::kDescrizione,
                      QStringLiteral("VECCHIO"));
  ASSERT_EQ(articles::SalvaPLU(bottega.contesto), 0);
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT Descrizione from TAB_ARTICOLI where auto_id = 4")),
            QStringLiteral("VECCHIO"));
}

TEST(SalvaPLU, UnApostrofoNellaDescrizioneAnnullaTutto) {
  BackRoom bottega;
  bottega.openArchive();
  writeArticles(bottega, {{{}, QStringLiteral("PRIMA"), 100, 1}});
  ASSERT_EQ(articles::RiempiPLU(bottega.user), 0);
  config::scriviTesto(config::immagineProgrammazione().record(config::kPLU, 0), config::plu::kDescrizione,
                      QStringLiteral("DOPO"));
  config::scriviTesto(config::immagineProgrammazione().record(config::kPLU, 2999), config::plu::kDescrizione,
                      QStringLiteral("TE' VERDE"));
  EXPECT_EQ(articles::SalvaPLU(bottega.contesto), 1);
  const std::vector<Box> visti = bottega.user.takeBoxes();
  ASSERT_EQ(visti.size(), 1U);
  EXPECT_TRUE(visti[0].text.startsWith(QStringLiteral("Errore nella modifica articoli .\nErrore n° 30")))
      << visti[0].text.toStdString();
  EXPECT_EQ(visti[0].text.split(QLatin1Char('\n')).size(), 3);
  EXPECT_EQ(visti[0].icon, Icon::Critical);
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT Descrizione from TAB_ARTICOLI where auto_id = 1")),
            QStringLiteral("PRIMA"));
}

TEST(SalvaPLU, UnArchivioBloccatoDaUnAltroProgrammaRestaComEra) {
  BackRoom bottega;
  bottega.openArchive();
  {
    const OtherProgram altro(varGlobal().NomeDB_Articoli, {QStringLiteral("BEGIN EXCLUSIVE")});
    EXPECT_EQ(articles::SalvaPLU(bottega.contesto), 1);
  }
  expectBoxes(bottega,
              {box(QStringLiteral("Errore nella modifica articoli .\nErrore n° 3260\n*"), Icon::Critical)});
  EXPECT_EQ(bottega.workspace.level(), 0);
}

TEST(SalvaPLU, SulDiscoPienoLArchivioRestaComEra) {
  BackRoom bottega;
  bottega.openArchive();
  ASSERT_EQ(articles::RiempiPLU(bottega.user), 0);
  for (std::size_t i = 0; i < 5000; ++i)
    config::scriviTesto(config::immagineProgrammazione().record(config::kPLU, i), config::plu::kDescrizione,
                        QStringLiteral("DESCRIZIONE CHE CRESCE"));
  {
    const FullDisk pieno(static_cast<unsigned long>(QFileInfo(varGlobal().NomeDB_Articoli).size()));
    EXPECT_EQ(articles::SalvaPLU(bottega.contesto), 1);
  }
  expectBoxes(bottega,
              {box(QStringLiteral("Errore nella modifica articoli .\nErrore n° *"), Icon::Critical)});
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI where Descrizione =''")), 5000);
}

TEST(SalvaPLU, SenzaArchivioApertoSiDice) {
  BackRoom bottega;
  EXPECT_EQ(articles::SalvaPLU(bottega.contesto), 1);
  EXPECT_TRUE(
      bottega.user.takeBoxes().at(0).text.startsWith(QStringLiteral("Errore nella modifica articoli .\n")));
  EXPECT_EQ(bottega.workspace.level(), 0);
}

}  // namespace
