#include "platform/store/archivio_di_prova.h"

namespace {

class Transazioni : public ArchivioDiProva {
 protected:
  void prezzo(int valore) {
    archivio_.Execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo = %1 WHERE auto_id=1").arg(valore));
  }
  int prezzo() { return leggi("SELECT Prezzo from TAB_ARTICOLI where auto_id=1").campo(0).intero(); }
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
