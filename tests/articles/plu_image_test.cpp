#include "articles/plu_image.h"

#include <gmock/gmock.h>

#include <QFileInfo>

#include "articles/article_database.h"
#include "articles/back_room.h"
#include "articles/guided_screen.h"
#include "articles/others.h"
#include "config/image.h"

namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

const QString kPrefisso = QStringLiteral("RiempiPLU: uscita dal programma per condizione anomala ");
const QString kTabella = QStringLiteral(
    "CREATE TABLE TAB_ARTICOLI (auto_id INTEGER PRIMARY KEY, ID_Position TEXT, Codice_EAN TEXT, "
    "Codice_Articolo TEXT,"
    " Descrizione TEXT, Prezzo INTEGER, Reparto INTEGER, Filler TEXT, VarPrezzo BOOLEAN, PrezzoZero "
    "BOOLEAN)");

/// The record of slot `n`, from 1, as it stands in memory.
QByteArray record(int n) {
  return immagineInMemoria().mid((n - 1) * 48, 48);
}

/// One article over the template's first slot, filled; the record it makes.
QByteArray recordDi(const ArticoloDiProva& articolo) {
  Bottega bottega;
  bottega.apriArchivio();
  scriviArticoli(bottega, {articolo});
  EXPECT_EQ(articles::RiempiPLU(bottega.utente), 0);
  return record(1);
}

// RiempiPLU.

TEST(RiempiPLU, CinquemilaArticoliRiempionoTuttaLImmagineByteAByte) {
  Bottega bottega;
  bottega.apriArchivio();
  const std::vector<ArticoloDiProva> articoli = articoliDiProva(5000);
  scriviArticoli(bottega, articoli);
  sporcaMemoria(0xA5);
  EXPECT_EQ(articles::RiempiPLU(bottega.utente), 0);
  EXPECT_TRUE(immagineInMemoria() == immagineAttesa(articoli, QByteArray(240000, '\xA5')));
}

TEST(RiempiPLU, NonToccaLeAltreFamiglieDellImmagine) {
  Bottega bottega;
  bottega.apriArchivio();
  sporcaMemoria(0xA5);
  EXPECT_EQ(articles::RiempiPLU(bottega.utente), 0);
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
  Bottega bottega;
  bottega.apriVuoto(
      {kTabella, QStringLiteral("INSERT INTO TAB_ARTICOLI VALUES (1,'','','','',0,1,' ',-1,-1)")});
  EXPECT_EQ(articles::RiempiPLU(bottega.utente), 0);
  EXPECT_EQ(record(1).at(26), char{3});
}

TEST(RiempiPLU, UnEanDiQuattordiciCaratteriMetteIlSuoZeroNellaRiserva) {
  Bottega bottega;
  bottega.apriVuoto(
      {kTabella,
       QStringLiteral("INSERT INTO TAB_ARTICOLI VALUES (1,'','123456789012345','','',0,1,' ',0,0)")});
  sporcaMemoria(0xA5);
  EXPECT_EQ(articles::RiempiPLU(bottega.utente), 0);
  EXPECT_EQ(record(1).mid(31), QByteArray("12345678901234\0\xA5\xA5", 17));
}

TEST(RiempiPLU, UnTestoPiuCortoLasciaIByteVecchiDietroIlSuoZero) {
  Bottega bottega;
  bottega.apriVuoto(
      {kTabella, QStringLiteral("INSERT INTO TAB_ARTICOLI VALUES (1,'','1','','AB',0,1,' ',0,0)")});
  sporcaMemoria(0xA5);
  EXPECT_EQ(articles::RiempiPLU(bottega.utente), 0);
  EXPECT_EQ(record(1).left(25), QByteArray("AB\0", 3) + QByteArray(22, '\xA5'));
}

TEST(RiempiPLU, UnArticoloSegnatoErrViaggiaComeGliAltri) {
  Bottega bottega;
  bottega.apriArchivio();
  scriviArticoli(bottega, {{QStringLiteral("123"), QStringLiteral("PANE"), 100, 2}});
  bottega.esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' WHERE auto_id =1"));
  EXPECT_EQ(articles::RiempiPLU(bottega.utente), 0);
  EXPECT_EQ(record(1).left(4), QByteArray("PANE"));
}

TEST(RiempiPLU, TreRigheLascianoIntattiGliAltriRecord) {
  Bottega bottega;
  bottega.apriArchivio();
  bottega.esegui(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 3"));
  sporcaMemoria(0xA5);
  EXPECT_EQ(articles::RiempiPLU(bottega.utente), 0);
  EXPECT_NE(record(3), QByteArray(48, '\xA5'));
  EXPECT_EQ(immagineInMemoria().mid(3 * 48), QByteArray(240000 - 3 * 48, '\xA5'));
}

TEST(RiempiPLU, UnaTabellaVuotaLasciaLImmagineEdEFatto) {
  Bottega bottega;
  bottega.apriArchivio();
  bottega.esegui(QStringLiteral("Delete  from TAB_ARTICOLI"));
  sporcaMemoria(0xA5);
  EXPECT_EQ(articles::RiempiPLU(bottega.utente), 0);
  EXPECT_EQ(immagineInMemoria(), QByteArray(240000, '\xA5'));
}

TEST(RiempiPLU, LaRigaCinquemilaunoEFuoriDaiLimitiESiDiceUnaVoltaSola) {
  Bottega bottega;
  bottega.apriArchivio();
  bottega.esegui(
      QStringLiteral("INSERT INTO TAB_ARTICOLI (auto_id,Descrizione) Values (5001,'UNO DI TROPPO');"));
  bottega.esegui(
      QStringLiteral("INSERT INTO TAB_ARTICOLI (auto_id,Descrizione) Values (5002,'DUE DI TROPPO');"));
  scriviArticoli(bottega, articoliDiProva(5000));
  EXPECT_EQ(articles::RiempiPLU(bottega.utente), 1);
  const std::vector<Box> visti = bottega.utente.takeBoxes();
  ASSERT_EQ(visti.size(), 1U);
  EXPECT_TRUE(visti[0].text.startsWith(kPrefisso + QStringLiteral("9 - "))) << visti[0].text.toStdString();
  EXPECT_EQ(visti[0].icon, Icon::Critical);
  EXPECT_TRUE(immagineInMemoria() == immagineAttesa(articoliDiProva(5000)));
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
class RiempiPLUNullo : public testing::TestWithParam<Nullo> {};

TEST_P(RiempiPLUNullo, SiDiceIlCampoRestaEGliAltriSiRiempiono) {
  Bottega bottega;
  bottega.apriVuoto({kTabella, rigaConNullo(GetParam().colonna)});
  sporcaMemoria(0xA5);
  QByteArray attesa(48, '\xA5');
  attesa.replace(0, 4, QByteArray("DES\0", 4));
  attesa.replace(25, 10,
                 QByteArray("\x03\x03\x39\x30\x00\x00"
                            "EAN\0",
                            10));
  attesa.replace(GetParam().inizio, GetParam().lunghezza, GetParam().restano);
  EXPECT_EQ(articles::RiempiPLU(bottega.utente), 1);
  EXPECT_EQ(record(1), attesa);
  const std::vector<Box> visti = bottega.utente.takeBoxes();
  ASSERT_EQ(visti.size(), 1U);
  EXPECT_TRUE(visti[0].text.startsWith(kPrefisso + QStringLiteral("94 - "))) << visti[0].text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Colonne, RiempiPLUNullo,
    testing::Values(Nullo{2, 31, 4, QByteArray(4, '\xA5')}, Nullo{4, 0, 4, QByteArray(4, '\xA5')},
                    Nullo{5, 27, 4, QByteArray(4, '\xA5')}, Nullo{6, 25, 1, QByteArray(1, '\xA5')},
                    Nullo{8, 26, 1, QByteArray(1, '\x02')}, Nullo{9, 26, 1, QByteArray(1, '\x01')}));

TEST(RiempiPLU, UnNulloNelleDueColonneCheNonViaggianoNonConta) {
  Bottega bottega;
  bottega.apriVuoto(
      {kTabella, QStringLiteral("INSERT INTO TAB_ARTICOLI VALUES (1,'','1',NULL,'A',0,1,NULL,0,0)")});
  EXPECT_EQ(articles::RiempiPLU(bottega.utente), 0);
}

TEST(RiempiPLU, UnPrezzoOltreITrentadueBitSiDiceEIlCampoResta) {
  Bottega bottega;
  bottega.apriVuoto(
      {kTabella, QStringLiteral("INSERT INTO TAB_ARTICOLI VALUES (1,'','1','','A',2147483648,1,' ',0,0)")});
  sporcaMemoria(0xA5);
  EXPECT_EQ(articles::RiempiPLU(bottega.utente), 1);
  EXPECT_EQ(record(1).mid(27, 4), QByteArray(4, '\xA5'));
  EXPECT_EQ(bottega.utente.takeBoxes().at(0).text, kPrefisso + QStringLiteral("6 - Overflow"));
}

TEST(RiempiPLU, SenzaUnaColonnaSiDiceENullaSiRiempie) {
  Bottega bottega;
  bottega.apriVuoto(
      {QStringLiteral("CREATE TABLE TAB_ARTICOLI (auto_id INTEGER PRIMARY KEY, Codice_EAN TEXT)")});
  EXPECT_EQ(articles::RiempiPLU(bottega.utente), 1);
  EXPECT_TRUE(bottega.utente.takeBoxes().at(0).text.startsWith(kPrefisso + QStringLiteral("3061 - ")));
  EXPECT_FALSE(bottega.utente.terminated());
}

// SalvaPLU.

TEST(SalvaPLU, LaTabellaTornaCheEraDopoIlGiroCompleto) {
  Bottega bottega;
  bottega.apriArchivio();
  std::vector<ArticoloDiProva> articoli = articoliDiProva(5000);
  for (ArticoloDiProva& articolo : articoli)
    articolo.descrizione.replace(QStringLiteral("漢"), QStringLiteral("?"));
  scriviArticoli(bottega, articoli);
  ASSERT_EQ(articles::RiempiPLU(bottega.utente), 0);
  const QByteArray prima = immagineInMemoria();
  bottega.esegui(
      QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='',Codice_EAN ='',Prezzo =0,Reparto =9,VarPrezzo "
                     "=false,PrezzoZero =true"));
  EXPECT_EQ(articles::SalvaPLU(bottega.contesto), 0);
  sporcaMemoria(0);
  ASSERT_EQ(articles::RiempiPLU(bottega.utente), 0);
  EXPECT_TRUE(immagineInMemoria() == prima);
  EXPECT_EQ(bottega.area.level(), 0);
  EXPECT_EQ(bottega.valore(QStringLiteral("SELECT Codice_Articolo from TAB_ARTICOLI where auto_id = 42")),
            QStringLiteral("A42"));
}

TEST(SalvaPLU, IlRepartoUnoArrivaComeZeroETornaUno) {
  Bottega bottega;
  bottega.apriArchivio();
  scriviArticoli(bottega, {{{}, {}, 0, 1}});
  ASSERT_EQ(articles::RiempiPLU(bottega.utente), 0);
  EXPECT_EQ(record(1).at(25), char{0});
  ASSERT_EQ(articles::SalvaPLU(bottega.contesto), 0);
  EXPECT_EQ(bottega.valore(QStringLiteral("SELECT Reparto from TAB_ARTICOLI where auto_id = 1")),
            QStringLiteral("1"));
}

TEST(SalvaPLU, ScriveAncheIRecordCheLaTabellaNonHaRiempito) {
  Bottega bottega;
  bottega.apriArchivio();
  config::scriviTesto(config::immagineProgrammazione().record(config::kPLU, 3), config::plu::kDescrizione,
                      QStringLiteral("VECCHIO"));
  ASSERT_EQ(articles::SalvaPLU(bottega.contesto), 0);
  EXPECT_EQ(bottega.valore(QStringLiteral("SELECT Descrizione from TAB_ARTICOLI where auto_id = 4")),
            QStringLiteral("VECCHIO"));
}

TEST(SalvaPLU, UnApostrofoNellaDescrizioneAnnullaTutto) {
  Bottega bottega;
  bottega.apriArchivio();
  scriviArticoli(bottega, {{{}, QStringLiteral("PRIMA"), 100, 1}});
  ASSERT_EQ(articles::RiempiPLU(bottega.utente), 0);
  config::scriviTesto(config::immagineProgrammazione().record(config::kPLU, 0), config::plu::kDescrizione,
                      QStringLiteral("DOPO"));
  config::scriviTesto(config::immagineProgrammazione().record(config::kPLU, 2999), config::plu::kDescrizione,
                      QStringLiteral("TE' VERDE"));
  EXPECT_EQ(articles::SalvaPLU(bottega.contesto), 1);
  const std::vector<Box> visti = bottega.utente.takeBoxes();
  ASSERT_EQ(visti.size(), 1U);
  EXPECT_TRUE(visti[0].text.startsWith(QStringLiteral("Errore nella modifica articoli .\nErrore n° 30")))
      << visti[0].text.toStdString();
  EXPECT_EQ(visti[0].text.split(QLatin1Char('\n')).size(), 3);
  EXPECT_EQ(visti[0].icon, Icon::Critical);
  EXPECT_EQ(bottega.area.level(), 0);
  EXPECT_EQ(bottega.valore(QStringLiteral("SELECT Descrizione from TAB_ARTICOLI where auto_id = 1")),
            QStringLiteral("PRIMA"));
}

TEST(SalvaPLU, UnArchivioBloccatoDaUnAltroProgrammaRestaComEra) {
  Bottega bottega;
  bottega.apriArchivio();
  {
    const AltroProgramma altro(varGlobal().NomeDB_Articoli, {QStringLiteral("BEGIN EXCLUSIVE")});
    EXPECT_EQ(articles::SalvaPLU(bottega.contesto), 1);
  }
  attendi(bottega,
          {riquadro(QStringLiteral("Errore nella modifica articoli .\nErrore n° 3260\n*"), Icon::Critical)});
  EXPECT_EQ(bottega.area.level(), 0);
}

TEST(SalvaPLU, SulDiscoPienoLArchivioRestaComEra) {
  Bottega bottega;
  bottega.apriArchivio();
  ASSERT_EQ(articles::RiempiPLU(bottega.utente), 0);
  for (std::size_t i = 0; i < 5000; ++i)
    config::scriviTesto(config::immagineProgrammazione().record(config::kPLU, i), config::plu::kDescrizione,
                        QStringLiteral("DESCRIZIONE CHE CRESCE"));
  {
    const DiscoPieno pieno(static_cast<unsigned long>(QFileInfo(varGlobal().NomeDB_Articoli).size()));
    EXPECT_EQ(articles::SalvaPLU(bottega.contesto), 1);
  }
  attendi(bottega,
          {riquadro(QStringLiteral("Errore nella modifica articoli .\nErrore n° *"), Icon::Critical)});
  EXPECT_EQ(bottega.area.level(), 0);
  EXPECT_EQ(bottega.righe(QStringLiteral("SELECT * from TAB_ARTICOLI where Descrizione =''")), 5000);
}

TEST(SalvaPLU, SenzaArchivioApertoSiDice) {
  Bottega bottega;
  EXPECT_EQ(articles::SalvaPLU(bottega.contesto), 1);
  EXPECT_TRUE(
      bottega.utente.takeBoxes().at(0).text.startsWith(QStringLiteral("Errore nella modifica articoli .\n")));
  EXPECT_EQ(bottega.area.level(), 0);
}

}  // namespace
