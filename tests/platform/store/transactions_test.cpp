#include <sqlite3.h>

#include "platform/store/other_process.h"
#include "platform/store/test_archive.h"
#include "sostegno/statements.h"

namespace {

class Transazioni : public ArchiveOfTry {
 protected:
  void prezzo(int valore) {
    archive_.Execute(
        asWritten(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo = %1 WHERE auto_id=1").arg(valore)));
  }
  int prezzo() { return read("SELECT Prezzo from TAB_ARTICOLI where auto_id=1").field(0).int32(); }
  /// Another program in the middle of reading.
  static bool legge(const QString& percorso) {
    sqlite3* db = nullptr;
    return sqlite3_open(percorso.toUtf8().constData(), &db) == SQLITE_OK &&
           sqlite3_exec(db, "BEGIN; SELECT count(*) FROM TAB_VARIE", nullptr, nullptr, nullptr) == SQLITE_OK;
  }
  /// What another program sees.
  int prezzoSuDisco() {
    store::Workspace altra;
    return altra.OpenDatabase(path_)
        .OpenRecordset(u"SELECT Prezzo from TAB_ARTICOLI where auto_id=1")
        .field(0)
        .int32();
  }
};

TEST_F(Transazioni, UnaConfermaRestaEUnAnnullamentoNo) {
  workspace_.BeginTrans();
  prezzo(10);
  EXPECT_EQ(prezzoSuDisco(), 0);
  workspace_.CommitTrans();
  EXPECT_EQ(prezzoSuDisco(), 10);
  workspace_.BeginTrans();
  prezzo(20);
  workspace_.Rollback();
  EXPECT_EQ(prezzo(), 10);
  EXPECT_EQ(workspace_.level(), 0);
}

TEST_F(Transazioni, SenzaTransazioneOgniIstruzioneResta) {
  prezzo(10);
  EXPECT_EQ(prezzoSuDisco(), 10);
}

TEST_F(Transazioni, ConfermareOAnnullareSenzaInizioEUnErrore) {
  EXPECT_EQ(numberError([&] { workspace_.CommitTrans(); }), 3034);
  EXPECT_EQ(numberError([&] { workspace_.Rollback(); }), 3034);
}

TEST_F(Transazioni, UnInizioDentroLAltroEUnPuntoDiRitorno) {
  workspace_.BeginTrans();
  prezzo(10);
  workspace_.BeginTrans();
  EXPECT_EQ(workspace_.level(), 2);
  prezzo(20);
  workspace_.Rollback();
  EXPECT_EQ(prezzo(), 10);
  workspace_.BeginTrans();
  prezzo(30);
  workspace_.CommitTrans();
  EXPECT_EQ(prezzoSuDisco(), 0);
  workspace_.CommitTrans();
  EXPECT_EQ(prezzoSuDisco(), 30);
}

TEST_F(Transazioni, AnnullareIlLivelloEsternoDisfaAncheLInterno) {
  workspace_.BeginTrans();
  workspace_.BeginTrans();
  prezzo(20);
  workspace_.CommitTrans();
  workspace_.Rollback();
  EXPECT_EQ(prezzo(), 0);
}

TEST_F(Transazioni, QuellaLasciataApertaSiConfermaFinoAlLivelloDiPrima) {
  workspace_.BeginTrans();
  prezzo(5);
  workspace_.BeginTrans();
  workspace_.BeginTrans();
  prezzo(10);
  workspace_.CommitDownTo(1);
  EXPECT_EQ(workspace_.level(), 1);
  EXPECT_EQ(prezzoSuDisco(), 0);
  workspace_.CommitDownTo(0);
  EXPECT_EQ(workspace_.level(), 0);
  EXPECT_EQ(prezzoSuDisco(), 10);
}

TEST_F(Transazioni, ConfermareFinoAUnLivelloDoveNonSiEGiaLiNonFaNulla) {
  workspace_.CommitDownTo(0);
  workspace_.BeginTrans();
  prezzo(10);
  workspace_.CommitDownTo(1);
  EXPECT_EQ(workspace_.level(), 1);
  workspace_.Rollback();
  EXPECT_EQ(prezzo(), 0);
}

TEST_F(Transazioni, QuellaLasciataApertaSiConfermaAllaChiusura) {
  workspace_.BeginTrans();
  prezzo(10);
  archive_.Close();
  EXPECT_EQ(prezzoSuDisco(), 10);
  workspace_.CommitDownTo(0);
  EXPECT_EQ(workspace_.level(), 0);
}

TEST_F(Transazioni, AncheUnaCopiaLasciataAndareConferma) {
  workspace_.BeginTrans();
  prezzo(10);
  archive_ = store::Database();
  EXPECT_EQ(prezzoSuDisco(), 10);
}

TEST_F(Transazioni, AbbandonareDisfaEChiudeTutto) {
  workspace_.BeginTrans();
  prezzo(10);
  workspace_.Abandon();
  EXPECT_FALSE(archive_.isOpen());
  EXPECT_EQ(workspace_.level(), 0);
  EXPECT_EQ(prezzoSuDisco(), 0);
}

TEST_F(Transazioni, CopronoAncheUnArchivioApertoDopoLInizio) {
  const QString secondo = folder_.file(QStringLiteral("secondo.mdb"));
  store::CopyArchive(pattern(), secondo);
  workspace_.BeginTrans();
  prezzo(10);
  store::Database altro = workspace_.OpenDatabase(secondo);
  altro.Execute(u"UPDATE TAB_ARTICOLI SET Prezzo = 7 WHERE auto_id=1");
  workspace_.BeginTrans();
  altro.Execute(u"UPDATE TAB_ARTICOLI SET Prezzo = 8 WHERE auto_id=1");
  workspace_.Rollback();
  EXPECT_EQ(altro.OpenRecordset(u"SELECT Prezzo from TAB_ARTICOLI where auto_id=1").int64(0), 7);
  workspace_.Rollback();
  EXPECT_EQ(altro.OpenRecordset(u"SELECT Prezzo from TAB_ARTICOLI where auto_id=1").int64(0), 0);
  EXPECT_EQ(prezzo(), 0);
}

TEST_F(Transazioni, UnErroreDiIstruzioneNonDisfaLeAltre) {
  workspace_.BeginTrans();
  prezzo(10);
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Codice_EAN = '12345678901234'"), 3163);
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET"), 3075);
  workspace_.CommitTrans();
  EXPECT_EQ(prezzoSuDisco(), 10);
}

// The transaction has changed every page before: to take the statement back the engine needs them all a
// second time, more than it keeps in memory.
TEST_F(Transazioni, UnIstruzioneCheFallisceAllUltimaDiMigliaiaDiRigheLeLasciaTutteComErano) {
  const std::string lunga(250, 'x');
  workspace_.BeginTrans();
  run(("UPDATE TAB_ARTICOLI SET Descrizione='" + lunga + "', Filler='" + lunga + "'").c_str());
  prezzo(10);
  // Of the 5000 products only the last is beyond 32 bits with their sign.
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Descrizione='PANE', Filler='', Prezzo = auto_id * 429497"),
            3421);
  workspace_.CommitTrans();
  EXPECT_EQ(
      value(("SELECT count(*) from TAB_ARTICOLI where Descrizione='" + lunga + "' AND Filler='" + lunga + "'")
                .c_str()),
      QStringLiteral("5000"));
  EXPECT_EQ(prezzoSuDisco(), 10);
}

TEST_F(Transazioni, UnLettoreDiUnAltroProgrammaFermaLaConfermaSenzaLasciareUnaParte) {
  {
    OtherProcess altro([&] { return legge(path_); });
    ASSERT_TRUE(altro.ready());
    workspace_.BeginTrans();
    prezzo(10);
    EXPECT_EQ(numberError([&] { workspace_.CommitTrans(); }), 3260);
    EXPECT_EQ(workspace_.level(), 1);
    EXPECT_EQ(numberError([&] { workspace_.CommitTrans(); }), 3260);
    workspace_.Rollback();
  }
  EXPECT_EQ(prezzoSuDisco(), 0);
  workspace_.BeginTrans();
  prezzo(20);
  workspace_.CommitTrans();
  EXPECT_EQ(prezzoSuDisco(), 20);
}

TEST_F(Transazioni, QuellaLasciataApertaCheNonSiConfermaSiDiceESiDisfa) {
  {
    OtherProcess altro([&] { return legge(path_); });
    ASSERT_TRUE(altro.ready());
    workspace_.BeginTrans();
    prezzo(10);
    EXPECT_EQ(numberError([&] { workspace_.CommitDownTo(0); }), 3260);
  }
  EXPECT_EQ(workspace_.level(), 0);
  EXPECT_EQ(prezzoSuDisco(), 0);
  workspace_.BeginTrans();
  prezzo(30);
  workspace_.CommitTrans();
  EXPECT_EQ(prezzoSuDisco(), 30);
}

TEST_F(Transazioni, UnInizioLasciatoSenzaIstruzioniNonTrattieneLeProssime) {
  workspace_.BeginTrans();
  archive_.Close();
  workspace_.CommitDownTo(0);
  archive_ = workspace_.OpenDatabase(path_);
  workspace_.BeginTrans();
  EXPECT_EQ(workspace_.level(), 1);
  prezzo(10);
  workspace_.CommitTrans();
  EXPECT_EQ(workspace_.level(), 0);
  EXPECT_EQ(prezzoSuDisco(), 10);
}

TEST_F(Transazioni, UnUnitaNonConfermataSiDisfaDaSola) {
  {
    store::Transaction unita(workspace_);
    prezzo(10);
    EXPECT_EQ(workspace_.level(), 1);
  }
  EXPECT_EQ(workspace_.level(), 0);
  EXPECT_EQ(prezzo(), 0);
}

TEST_F(Transazioni, UnUnitaConfermataResta) {
  {
    store::Transaction unita(workspace_);
    prezzo(10);
    unita.Commit();
    unita.Rollback();
  }
  EXPECT_EQ(prezzoSuDisco(), 10);
}

TEST_F(Transazioni, ChiuderneUnoDeiDueLasciaLAltroDentro) {
  const QString secondo = folder_.file(QStringLiteral("secondo.mdb"));
  store::CopyArchive(pattern(), secondo);
  store::Database altro = workspace_.OpenDatabase(secondo);
  workspace_.BeginTrans();
  prezzo(10);
  altro.Execute(u"UPDATE TAB_ARTICOLI SET Prezzo = 7 WHERE auto_id=1");
  altro.Close();
  EXPECT_EQ(workspace_.level(), 1);
  EXPECT_EQ(prezzoSuDisco(), 0);
  workspace_.Rollback();
  EXPECT_EQ(prezzo(), 0);
  altro = workspace_.OpenDatabase(secondo);
  EXPECT_EQ(altro.OpenRecordset(u"SELECT Prezzo from TAB_ARTICOLI where auto_id=1").int64(0), 7);
}

TEST_F(Transazioni, CentoLivelliSiDisfannoUnoAllaVolta) {
  constexpr int kLivelli = 100;
  for (int i = 1; i <= kLivelli; ++i) {
    workspace_.BeginTrans();
    prezzo(i);
  }
  for (int i = kLivelli; i > 1; --i) {
    workspace_.Rollback();
    ASSERT_EQ(prezzo(), i - 1);
  }
  workspace_.CommitTrans();
  EXPECT_EQ(prezzoSuDisco(), 1);
}

TEST_F(Transazioni, LArchivioSopravviveAllArea) {
  {
    store::Workspace breve;
    store::Database suo = breve.OpenDatabase(path_);
    archive_.Close();
    archive_ = suo;
    breve.BeginTrans();
    prezzo(10);
  }
  EXPECT_FALSE(archive_.isOpen());
  EXPECT_EQ(prezzoSuDisco(), 0);
}

}  // namespace
