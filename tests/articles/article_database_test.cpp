#include "articles/article_database.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>

#include "articles/back_room.h"
#include "articles/plu_image.h"
#include "articles/transfer.h"
#include "core/reactions.h"
#include "sostegno/troubles.h"

namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

const QString kGrave =
    QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. PROCEDURA ABORTITA !!!");

/// The number of the failure of a call, 0 for none.
template <typename Chiamata>
int numeroDi(Chiamata&& chiamata) {
  try {
    chiamata();
  } catch (const Errore& errore) {
    return errore.numero;
  }
  return 0;
}

/// The one box of a failure: prefix, number and some description behind it, critical.
void attendiErrore(BackRoom& bottega, const QString& prefisso, int numero) {
  const std::vector<Box> visti = bottega.user.takeBoxes();
  ASSERT_EQ(visti.size(), 1U);
  EXPECT_TRUE(visti[0].text.startsWith(prefisso + QString::number(numero) + QStringLiteral(" - ")))
      << visti[0].text.toStdString();
  EXPECT_EQ(visti[0].icon, Icon::Critical);
  EXPECT_EQ(visti[0].buttons, Buttons::Ok);
}

// New, open, close.

TEST(BaseDatiArticoli, IlNuovoArchivioHaLeCinquemilaPosizioniDelModello) {
  BackRoom bottega;
  bottega.openArchive();
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI where ID_Position <> '' ")), 5000);
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT NomeCassa from TAB_VARIE ")),
            QStringLiteral("NON_ASSEGNATO"));
  EXPECT_EQ(varGlobal().NomeDB_Articoli, bottega.folder.file(QStringLiteral("archivio.mdb")));
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
}

TEST(BaseDatiArticoli, IlNuovoArchivioSopraUnoEsistenteNePerdeGliArticoli) {
  BackRoom bottega;
  bottega.openArchive();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='PANE' WHERE auto_id =1"));
  articles::ChiudiDatabase();
  bottega.openArchive();
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI where Descrizione ='PANE'")), 0);
}

// What is overwritten stays beside the new archive.

struct ArchivioDiPrima : testing::Test {
  const QString archivio = QStringLiteral("archivio.mdb");
  const QString copia = QStringLiteral("archivio.mdb.precedente");
  BackRoom bottega;

  void conPane() {
    bottega.openArchive(archivio);
    bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='PANE' WHERE auto_id =1"));
  }
  bool esiste(const QString& nome) const { return QFile::exists(bottega.folder.file(nome)); }
  /// The first description of the copy.
  QString descrizioneNellaCopia() {
    articles::ApriDatabase(bottega.folder.file(copia), bottega.contesto);
    return bottega.value(QStringLiteral("SELECT Descrizione from TAB_ARTICOLI where auto_id =1"));
  }
};

TEST_F(ArchivioDiPrima, UnNomeNuovoNonLasciaCopie) {
  bottega.openArchive(archivio);
  EXPECT_FALSE(esiste(copia));
}

TEST_F(ArchivioDiPrima, ChiusoSiRitrovaAccantoConISuoiArticoli) {
  conPane();
  articles::ChiudiDatabase();
  bottega.openArchive(archivio);
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT Descrizione from TAB_ARTICOLI where auto_id =1")),
            QString());
  ASSERT_TRUE(esiste(copia));
  EXPECT_EQ(descrizioneNellaCopia(), QStringLiteral("PANE"));
}

TEST_F(ArchivioDiPrima, ApertoSiRitrovaAccantoConISuoiArticoli) {
  conPane();
  bottega.openArchive(archivio);
  ASSERT_TRUE(esiste(copia));
  EXPECT_EQ(descrizioneNellaCopia(), QStringLiteral("PANE"));
}

TEST_F(ArchivioDiPrima, RestaSoloLUltimo) {
  conPane();
  bottega.openArchive(archivio);
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='LATTE' WHERE auto_id =1"));
  bottega.openArchive(archivio);
  ASSERT_TRUE(esiste(copia));
  EXPECT_EQ(descrizioneNellaCopia(), QStringLiteral("LATTE"));
}

TEST_F(ArchivioDiPrima, UnFileCheNonEUnArchivioSiConservaByteAByte) {
  const QByteArray lista("una lista della spesa\r\n\0\xE8", 25);
  for (const QByteArray& byte : {lista, QByteArray()}) {
    bottega.folder.write(archivio, byte);
    bottega.openArchive(archivio);
    ASSERT_TRUE(esiste(copia));
    EXPECT_EQ(bottega.folder.read(copia), byte);
    articles::ChiudiDatabase();
  }
}

// A killed program leaves the archive half written, and beside it the journal that makes it whole.
TEST_F(ArchivioDiPrima, CioCheUnProgrammaUccisoLasciaAMetaNonVaNellaCopia) {
  conPane();
  articles::ChiudiDatabase();
  {
    const OtherProgram ucciso(bottega.folder.file(archivio),
                              {QStringLiteral("PRAGMA cache_size = 1"), QStringLiteral("BEGIN"),
                               QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='META' || auto_id")});
    ASSERT_TRUE(QFile::copy(bottega.folder.file(archivio), bottega.folder.file(QStringLiteral("meta.mdb"))));
    ASSERT_TRUE(QFile::copy(bottega.folder.file(archivio + QStringLiteral("-journal")),
                            bottega.folder.file(QStringLiteral("meta.mdb-journal"))));
  }
  ASSERT_TRUE(bottega.folder.read(QStringLiteral("meta.mdb")).contains("META1"));
  bottega.openArchive(QStringLiteral("meta.mdb"));
  articles::ApriDatabase(bottega.folder.file(QStringLiteral("meta.mdb.precedente")), bottega.contesto);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI where Descrizione like 'META*'")), 0);
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT Descrizione from TAB_ARTICOLI where auto_id =1")),
            QStringLiteral("PANE"));
}

TEST_F(ArchivioDiPrima, SeNonSiPuoCopiareNullaSiSovrascrive) {
  conPane();
  articles::ChiudiDatabase();
  ASSERT_TRUE(QDir().mkpath(bottega.folder.file(copia + QStringLiteral("/occupata"))));
  EXPECT_EQ(numeroDi([&] { bottega.openArchive(archivio); }), errors::kPathAccess);
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  articles::ApriDatabase(bottega.folder.file(archivio), bottega.contesto);
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT Descrizione from TAB_ARTICOLI where auto_id =1")),
            QStringLiteral("PANE"));
}

TEST_F(ArchivioDiPrima, SenzaModelloLaCopiaDiPrimaNonSiTocca) {
  bottega.folder.write(archivio, "oggi");
  bottega.folder.write(copia, "ieri");
  bottega.contesto.cartella = bottega.folder.path();
  EXPECT_EQ(numeroDi([&] { bottega.openArchive(archivio); }), errors::kFileMissing);
  EXPECT_EQ(bottega.folder.read(archivio), QByteArray("oggi"));
  EXPECT_EQ(bottega.folder.read(copia), QByteArray("ieri"));
}

TEST(BaseDatiArticoli, SenzaModelloLaCopiaFallisceENullaSiApre) {
  BackRoom bottega;
  bottega.contesto.cartella = bottega.folder.path();
  EXPECT_EQ(numeroDi([&] { bottega.openArchive(); }), errors::kFileMissing);
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_FALSE(QFile::exists(bottega.folder.file(QStringLiteral("archivio.mdb"))));
}

TEST(BaseDatiArticoli, IlModelloAssenteSiDiceSottoAttenzione) {
  BackRoom bottega;
  articles::avvisaModelloAssente(bottega.contesto);
  EXPECT_THAT(bottega.user.takeBoxes(), IsEmpty());
  bottega.contesto.cartella = bottega.folder.path();
  articles::avvisaModelloAssente(bottega.contesto);
  EXPECT_THAT(
      bottega.user.takeBoxes(),
      ElementsAreArray({Box{QStringLiteral("Attenzione il file di sistema QzDB.bck potrebbe essere assente!"),
                            Icon::Critical, QStringLiteral("ATTENZIONE"), Buttons::Ok}}));
}

TEST(BaseDatiArticoli, UnFileDiTestoConEstensioneMdbNonSiApre) {
  BackRoom bottega;
  const QString file = bottega.folder.write(QStringLiteral("testo.mdb"), "una lista della spesa\r\n");
  EXPECT_EQ(numeroDi([&] { articles::ApriDatabase(file, bottega.contesto); }), errors::kNotADatabase);
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(bottega.folder.read(QStringLiteral("testo.mdb")), QByteArray("una lista della spesa\r\n"));
}

TEST(BaseDatiArticoli, UnFileVuotoNonDiventaUnArchivio) {
  BackRoom bottega;
  const QString file = bottega.folder.write(QStringLiteral("vuoto.mdb"), {});
  EXPECT_EQ(numeroDi([&] { articles::ApriDatabase(file, bottega.contesto); }), errors::kNotADatabase);
  EXPECT_EQ(bottega.folder.read(QStringLiteral("vuoto.mdb")), QByteArray());
}

TEST(BaseDatiArticoli, UnArchivioAssenteNonSiApreENonNasce) {
  BackRoom bottega;
  const QString file = bottega.folder.file(QStringLiteral("assente.mdb"));
  EXPECT_EQ(numeroDi([&] { articles::ApriDatabase(file, bottega.contesto); }), errors::kArchiveMissing);
  EXPECT_FALSE(QFile::exists(file));
}

TEST(BaseDatiArticoli, UnAperturaFallitaLasciaApertoLArchivioDiPrima) {
  BackRoom bottega;
  bottega.openArchive();
  const QString file = bottega.folder.write(QStringLiteral("testo.mdb"), "testo");
  EXPECT_NE(numeroDi([&] { articles::ApriDatabase(file, bottega.contesto); }), 0);
  EXPECT_TRUE(varGlobal().NomeDB_Articoli.endsWith(QStringLiteral("archivio.mdb")));
  EXPECT_EQ(articles::CalcolaNumArticoli(bottega.user), 5000);
}

TEST(BaseDatiArticoli, UnDatabaseDAltroGenereSiApreETerminaIlProgrammaAlPrimoRiempimento) {
  BackRoom bottega;
  bottega.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
  EXPECT_THROW(articles::RiempiPLU(bottega.user), ProgramEnded);
  EXPECT_TRUE(bottega.user.terminated());
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
  EXPECT_THAT(bottega.user.takeBoxes(), ElementsAreArray(boxes({kGrave}, Icon::Critical)));
}

TEST(BaseDatiArticoli, ChiudereSenzaArchivioNonFaNulla) {
  BackRoom bottega;
  EXPECT_EQ(numeroDi([] { articles::ChiudiDatabase(); }), 0);
  bottega.openArchive();
  articles::ChiudiDatabase();
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
}

// CheckTabVarie.

TEST(CheckTabVarie, IlModelloNonEAssegnato) {
  BackRoom bottega;
  bottega.openArchive();
  EXPECT_EQ(articles::CheckTabVarie(bottega.user), 0);
}

TEST(CheckTabVarie, UnaTabellaVuotaContaComeNonAssegnata) {
  BackRoom bottega;
  bottega.openArchive();
  bottega.execute(QStringLiteral("Delete  from TAB_VARIE"));
  EXPECT_EQ(articles::CheckTabVarie(bottega.user), 0);
}

TEST(CheckTabVarie, UnaRigaAssegnataFraTanteBasta) {
  BackRoom bottega;
  bottega.openArchive();
  bottega.execute(QStringLiteral("INSERT INTO TAB_VARIE (NomeCassa) Values ('CASSA 1');"));
  bottega.execute(QStringLiteral("INSERT INTO TAB_VARIE (NomeCassa) Values ('NON_ASSEGNATO');"));
  EXPECT_EQ(articles::CheckTabVarie(bottega.user), -1);
}

TEST(CheckTabVarie, UnNomeNulloSiDiceELeAltreRigheContano) {
  BackRoom bottega;
  bottega.openWith({QStringLiteral("CREATE TABLE TAB_VARIE (NomeCassa TEXT)"),
                    QStringLiteral("INSERT INTO TAB_VARIE VALUES (NULL), ('CASSA 1')")});
  EXPECT_EQ(articles::CheckTabVarie(bottega.user), -1);
  attendiErrore(bottega, QStringLiteral("CheckTabVarie "), errors::kNullValue);
}

TEST(CheckTabVarie, SenzaTabellaDiceIlNumeroERestituisceQuelCheAveva) {
  BackRoom bottega;
  bottega.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  EXPECT_EQ(articles::CheckTabVarie(bottega.user), 0);
  attendiErrore(bottega, QStringLiteral("CheckTabVarie "), errors::kTableMissing);
  EXPECT_FALSE(bottega.user.terminated());
}

// CalcolaNumArticoli.

TEST(CalcolaNumArticoli, LePosizioniSenzaDatiContano) {
  BackRoom bottega;
  bottega.openArchive();
  EXPECT_EQ(articles::CalcolaNumArticoli(bottega.user), 5000);
}

TEST(CalcolaNumArticoli, NessunaRigaDaZero) {
  BackRoom bottega;
  bottega.openArchive();
  bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI"));
  EXPECT_EQ(articles::CalcolaNumArticoli(bottega.user), 0);
}

TEST(CalcolaNumArticoli, SenzaTabellaDiceIlNumeroEDaMenoUno) {
  BackRoom bottega;
  bottega.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  EXPECT_EQ(articles::CalcolaNumArticoli(bottega.user), -1);
  attendiErrore(bottega, QStringLiteral("CalcolaNumArticoli "), errors::kTableMissing);
}

TEST(CalcolaNumArticoli, SenzaColonnaDiceIlNumeroEDaMenoUno) {
  BackRoom bottega;
  bottega.openWith({QStringLiteral("CREATE TABLE TAB_ARTICOLI (a INTEGER)")});
  EXPECT_EQ(articles::CalcolaNumArticoli(bottega.user), -1);
  attendiErrore(bottega, QStringLiteral("CalcolaNumArticoli "), errors::kMissingParameter);
}

// GetCodiceEAN.

class GetCodiceEAN : public testing::Test {
 protected:
  GetCodiceEAN() {
    bottega.openArchive();
    bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_EAN ='80012345' WHERE auto_id =7"));
  }
  std::int16_t chiedi(int slot, const QString& ean) {
    return articles::GetCodiceEAN(slot, ean, bottega.user);
  }

  BackRoom bottega;
};

TEST_F(GetCodiceEAN, UnAltraRigaConLoStessoEanDa124) {
  EXPECT_EQ(chiedi(8, QStringLiteral("80012345")), 124);
}

TEST_F(GetCodiceEAN, LaRigaStessaNonConta) {
  EXPECT_EQ(chiedi(7, QStringLiteral("80012345")), 123);
}

TEST_F(GetCodiceEAN, UnEanCheNessunoPortaDa123) {
  EXPECT_EQ(chiedi(8, QStringLiteral("999")), 123);
}

TEST_F(GetCodiceEAN, UnApostrofoRompeLoStatementESiDice) {
  EXPECT_EQ(chiedi(8, QStringLiteral("80'1")), 123);
  const std::vector<Box> visti = bottega.user.takeBoxes();
  ASSERT_EQ(visti.size(), 1U);
  EXPECT_TRUE(visti[0].text.startsWith(QStringLiteral("Errore GetCodiceEAN 30")))
      << visti[0].text.toStdString();
  EXPECT_EQ(visti[0].icon, Icon::Critical);
}

// The shared reaction to failures, one row a test.

class ReazioneComune : public testing::TestWithParam<int> {};

TEST_P(ReazioneComune, IlNumeroSiPassaOltreInSilenzio) {
  ScriptedUser utente;
  const auto fallisce = [] { throw Errore{GetParam(), QStringLiteral("descrizione")}; };
  EXPECT_EQ(reazioni::prossimaIstruzione(utente, QStringLiteral("P "), fallisce), reazioni::Esito::Ignorato);
  EXPECT_EQ(reazioni::prossimaIstruzioneRiempimento(utente, QStringLiteral("P "), fallisce),
            reazioni::Esito::Ignorato);
  EXPECT_THAT(utente.takeBoxes(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Numeri, ReazioneComune, testing::Values(0, 20, 53, 75, 3021));

TEST(ReazioneComuneAgliErrori, OgniAltroNumeroSiDiceConPrefissoEDescrizione) {
  ScriptedUser utente;
  const auto fallisce = [] { throw Errore{3260, QStringLiteral("bloccato")}; };
  EXPECT_EQ(reazioni::prossimaIstruzione(utente, QStringLiteral("P "), fallisce), reazioni::Esito::Segnalato);
  EXPECT_THAT(utente.takeBoxes(),
              ElementsAreArray(boxes({QStringLiteral("P 3260 - bloccato")}, Icon::Critical)));
}

TEST(ReazioneComuneAgliErrori, LaTabellaAssenteTerminaIlProgrammaSoloNeiRiempimenti) {
  azzeraStato();
  ScriptedUser utente;
  const auto fallisce = [] { throw Errore{errors::kTableMissing, QStringLiteral("assente")}; };
  EXPECT_EQ(reazioni::prossimaIstruzione(utente, QStringLiteral("P "), fallisce), reazioni::Esito::Segnalato);
  EXPECT_FALSE(utente.terminated());
  EXPECT_THROW(reazioni::prossimaIstruzioneRiempimento(utente, QStringLiteral("P "), fallisce), ProgramEnded);
  EXPECT_TRUE(utente.terminated());
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
  EXPECT_THAT(utente.takeBoxes(),
              ElementsAreArray(boxes({QStringLiteral("P 3078 - assente"), kGrave}, Icon::Critical)));
  azzeraStato();
}

}  // namespace
