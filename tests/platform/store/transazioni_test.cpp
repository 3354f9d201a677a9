#include <sqlite3.h>

#include "platform/store/altro_processo.h"
#include "platform/store/archivio_di_prova.h"

namespace {

class Transazioni : public ArchivioDiProva {
 protected:
  void prezzo(int valore) {
    archivio_.Execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo = %1 WHERE auto_id=1").arg(valore));
  }
  int prezzo() { return leggi("SELECT Prezzo from TAB_ARTICOLI where auto_id=1").campo(0).intero(); }
  /// Another program in the middle of reading.
  static bool legge(const QString& percorso) {
    sqlite3* db = nullptr;
    return sqlite3_open(percorso.toUtf8().constData(), &db) == SQLITE_OK &&
           sqlite3_exec(db, "BEGIN; SELECT count(*) FROM TAB_VARIE", nullptr, nullptr, nullptr) == SQLITE_OK;
  }
  /// What another program sees.
  int prezzoSuDisco() {
    store::Workspace altra;
    return altra.OpenDatabase(percorso_)
        .OpenRecordset(QStringLiteral("SELECT Prezzo from TAB_ARTICOLI where auto_id=1"))
        .campo(0)
        .intero();
  }
};

TEST_F(Transazioni, UnaConfermaRestaEUnAnnullamentoNo) {
  area_.BeginTrans();
  prezzo(10);
  EXPECT_EQ(prezzoSuDisco(), 0);
  area_.CommitTrans();
  EXPECT_EQ(prezzoSuDisco(), 10);
  area_.BeginTrans();
  prezzo(20);
  area_.Rollback();
  EXPECT_EQ(prezzo(), 10);
  EXPECT_EQ(area_.livello(), 0);
}

TEST_F(Transazioni, SenzaTransazioneOgniIstruzioneResta) {
  prezzo(10);
  EXPECT_EQ(prezzoSuDisco(), 10);
}

TEST_F(Transazioni, ConfermareOAnnullareSenzaInizioEUnErrore) {
  EXPECT_EQ(numeroErrore([&] { area_.CommitTrans(); }), 3034);
  EXPECT_EQ(numeroErrore([&] { area_.Rollback(); }), 3034);
}

TEST_F(Transazioni, UnInizioDentroLAltroEUnPuntoDiRitorno) {
  area_.BeginTrans();
  prezzo(10);
  area_.BeginTrans();
  EXPECT_EQ(area_.livello(), 2);
  prezzo(20);
  area_.Rollback();
  EXPECT_EQ(prezzo(), 10);
  area_.BeginTrans();
  prezzo(30);
  area_.CommitTrans();
  EXPECT_EQ(prezzoSuDisco(), 0);
  area_.CommitTrans();
  EXPECT_EQ(prezzoSuDisco(), 30);
}

TEST_F(Transazioni, AnnullareIlLivelloEsternoDisfaAncheLInterno) {
  area_.BeginTrans();
  area_.BeginTrans();
  prezzo(20);
  area_.CommitTrans();
  area_.Rollback();
  EXPECT_EQ(prezzo(), 0);
}

TEST_F(Transazioni, QuellaLasciataApertaSiConfermaAlProssimoInizioDiUnAltroComando) {
  area_.NuovoComando();
  area_.BeginTrans();
  area_.BeginTrans();
  prezzo(10);
  area_.NuovoComando();
  EXPECT_EQ(prezzoSuDisco(), 0);
  area_.BeginTrans();
  EXPECT_EQ(area_.livello(), 1);
  EXPECT_EQ(prezzoSuDisco(), 10);
  area_.Rollback();
  EXPECT_EQ(prezzo(), 10);
}

TEST_F(Transazioni, QuellaLasciataApertaSiConfermaAllaChiusura) {
  area_.BeginTrans();
  prezzo(10);
  area_.NuovoComando();
  archivio_.Close();
  EXPECT_EQ(prezzoSuDisco(), 10);
  EXPECT_EQ(area_.livello(), 0);
}

TEST_F(Transazioni, AncheUnaCopiaLasciataAndareConferma) {
  area_.BeginTrans();
  prezzo(10);
  archivio_ = store::Database();
  EXPECT_EQ(prezzoSuDisco(), 10);
}

TEST_F(Transazioni, AbbandonareDisfaEChiudeTutto) {
  area_.BeginTrans();
  prezzo(10);
  area_.Abbandona();
  EXPECT_FALSE(archivio_.aperto());
  EXPECT_EQ(area_.livello(), 0);
  EXPECT_EQ(prezzoSuDisco(), 0);
}

TEST_F(Transazioni, CopronoAncheUnArchivioApertoDopoLInizio) {
  const QString secondo = cartella_.file(QStringLiteral("secondo.mdb"));
  store::CopiaArchivio(modello(), secondo);
  area_.BeginTrans();
  prezzo(10);
  store::Database altro = area_.OpenDatabase(secondo);
  altro.Execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo = 7 WHERE auto_id=1"));
  area_.BeginTrans();
  altro.Execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo = 8 WHERE auto_id=1"));
  area_.Rollback();
  EXPECT_EQ(
      altro.OpenRecordset(QStringLiteral("SELECT Prezzo from TAB_ARTICOLI where auto_id=1")).intero64(0), 7);
  area_.Rollback();
  EXPECT_EQ(
      altro.OpenRecordset(QStringLiteral("SELECT Prezzo from TAB_ARTICOLI where auto_id=1")).intero64(0), 0);
  EXPECT_EQ(prezzo(), 0);
}

TEST_F(Transazioni, UnErroreDiIstruzioneNonDisfaLeAltre) {
  area_.BeginTrans();
  prezzo(10);
  EXPECT_EQ(numeroDi("UPDATE TAB_ARTICOLI SET Codice_EAN = '12345678901234'"), 3163);
  EXPECT_EQ(numeroDi("UPDATE TAB_ARTICOLI SET"), 3075);
  area_.CommitTrans();
  EXPECT_EQ(prezzoSuDisco(), 10);
}

TEST_F(Transazioni, UnLettoreDiUnAltroProgrammaFermaLaConfermaSenzaLasciareUnaParte) {
  {
    AltroProcesso altro([&] { return legge(percorso_); });
    ASSERT_TRUE(altro.pronto());
    area_.BeginTrans();
    prezzo(10);
    EXPECT_EQ(numeroErrore([&] { area_.CommitTrans(); }), 3260);
    EXPECT_EQ(area_.livello(), 1);
    EXPECT_EQ(numeroErrore([&] { area_.CommitTrans(); }), 3260);
    area_.Rollback();
  }
  EXPECT_EQ(prezzoSuDisco(), 0);
  area_.BeginTrans();
  prezzo(20);
  area_.CommitTrans();
  EXPECT_EQ(prezzoSuDisco(), 20);
}

TEST_F(Transazioni, QuellaLasciataApertaCheNonSiConfermaSiDiceAlProssimoInizio) {
  {
    AltroProcesso altro([&] { return legge(percorso_); });
    ASSERT_TRUE(altro.pronto());
    area_.BeginTrans();
    prezzo(10);
    area_.NuovoComando();
    EXPECT_EQ(numeroErrore([&] { area_.BeginTrans(); }), 3260);
  }
  EXPECT_EQ(area_.livello(), 0);
  EXPECT_EQ(prezzoSuDisco(), 0);
  area_.BeginTrans();
  prezzo(30);
  area_.CommitTrans();
  EXPECT_EQ(prezzoSuDisco(), 30);
}

TEST_F(Transazioni, UnInizioLasciatoSenzaIstruzioniNonTrattieneLeProssime) {
  area_.BeginTrans();
  archivio_.Close();
  area_.NuovoComando();
  archivio_ = area_.OpenDatabase(percorso_);
  area_.BeginTrans();
  EXPECT_EQ(area_.livello(), 1);
  prezzo(10);
  area_.CommitTrans();
  EXPECT_EQ(area_.livello(), 0);
  EXPECT_EQ(prezzoSuDisco(), 10);
}

TEST_F(Transazioni, ChiuderneUnoDeiDueLasciaLAltroDentro) {
  const QString secondo = cartella_.file(QStringLiteral("secondo.mdb"));
  store::CopiaArchivio(modello(), secondo);
  store::Database altro = area_.OpenDatabase(secondo);
  area_.BeginTrans();
  prezzo(10);
  altro.Execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo = 7 WHERE auto_id=1"));
  altro.Close();
  EXPECT_EQ(area_.livello(), 1);
  EXPECT_EQ(prezzoSuDisco(), 0);
  area_.Rollback();
  EXPECT_EQ(prezzo(), 0);
  altro = area_.OpenDatabase(secondo);
  EXPECT_EQ(
      altro.OpenRecordset(QStringLiteral("SELECT Prezzo from TAB_ARTICOLI where auto_id=1")).intero64(0), 7);
}

TEST_F(Transazioni, CentoLivelliSiDisfannoUnoAllaVolta) {
  constexpr int kLivelli = 100;
  for (int i = 1; i <= kLivelli; ++i) {
    area_.BeginTrans();
    prezzo(i);
  }
  for (int i = kLivelli; i > 1; --i) {
    area_.Rollback();
    ASSERT_EQ(prezzo(), i - 1);
  }
  area_.CommitTrans();
  EXPECT_EQ(prezzoSuDisco(), 1);
}

TEST_F(Transazioni, LArchivioSopravviveAllArea) {
  {
    store::Workspace breve;
    store::Database suo = breve.OpenDatabase(percorso_);
    archivio_.Close();
    archivio_ = suo;
    breve.BeginTrans();
    prezzo(10);
  }
  EXPECT_FALSE(archivio_.aperto());
  EXPECT_EQ(prezzoSuDisco(), 0);
}

}  // namespace
