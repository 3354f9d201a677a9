#include "articles/transfer.h"

#include <gmock/gmock.h>

#include "articles/back_room.h"
#include "articles/guided_screen.h"

namespace {

using testing::IsEmpty;

// RicavaDettagliPC.

TEST(RicavaDettagliPC, UnArchivioConPosizioniTace) {
  Bottega bottega;
  bottega.apriArchivio();
  articles::RicavaDettagliPC(bottega.utente);
  EXPECT_THAT(bottega.utente.takeBoxes(), IsEmpty());
}

TEST(RicavaDettagliPC, UnArchivioVuotoSiDice) {
  Bottega bottega;
  bottega.apriArchivio();
  bottega.esegui(QStringLiteral("Delete  from TAB_ARTICOLI"));
  articles::RicavaDettagliPC(bottega.utente);
  attendi(bottega,
          {riquadro(QStringLiteral("Attenzione l'archivio degli articoli e' vuoto"), Icon::Warning)});
}

TEST(RicavaDettagliPC, UnConteggioFallitoSiDiceDopoIlSuoErrore) {
  Bottega bottega;
  bottega.apriVuoto({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  articles::RicavaDettagliPC(bottega.utente);
  attendi(bottega,
          {riquadro(QStringLiteral("CalcolaNumArticoli 3078 - *"), Icon::Critical),
           riquadro(QStringLiteral("Errore nella determinazione del numero degli articoli"), Icon::Warning)});
}

// CheckErrTabArticoli.

TEST(CheckErrTabArticoli, SenzaSegniDa999) {
  Bottega bottega;
  bottega.apriArchivio();
  EXPECT_EQ(articles::CheckErrTabArticoli(bottega.utente), 999);
}

TEST(CheckErrTabArticoli, ConUnSegnoDa998) {
  Bottega bottega;
  bottega.apriArchivio();
  bottega.esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' WHERE auto_id =4999"));
  EXPECT_EQ(articles::CheckErrTabArticoli(bottega.utente), 998);
}

TEST(CheckErrTabArticoli, SenzaTabellaSiDice) {
  Bottega bottega;
  bottega.apriVuoto({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  EXPECT_EQ(articles::CheckErrTabArticoli(bottega.utente), 999);
  attendi(bottega, {riquadro(QStringLiteral("Errore CheckErrTabArticoli 3078 - *"), Icon::Critical)});
}

// RicavaDettagliECR.

TEST(ScomponiMomento, OgniPezzoStaAlSuoPosto) {
  const articles::Momento momento = articles::scomponiMomento(QStringLiteral("20261120184507"));
  EXPECT_EQ(momento, (articles::Momento{QStringLiteral("2026"), QStringLiteral("11"), QStringLiteral("20"),
                                        QStringLiteral("18"), QStringLiteral("45"), QStringLiteral("07")}));
}

TEST(ScomponiMomento, UnTestoCortoDaPezziVuoti) {
  EXPECT_EQ(articles::scomponiMomento(QStringLiteral("202611")),
            (articles::Momento{QStringLiteral("2026"), QStringLiteral("11"), {}, {}, {}, {}}));
}

TEST(RicavaDettagliECR, LeggeInSilenzioELasciaTabVarieComEra) {
  Bottega bottega;
  bottega.apriArchivio();
  bottega.esegui(
      QStringLiteral("UPDATE TAB_VARIE SET Data_end_update = '20261120184507', Data_end_scarico ='2026'"));
  articles::RicavaDettagliECR(bottega.utente);
  EXPECT_THAT(bottega.utente.takeBoxes(), IsEmpty());
  EXPECT_EQ(bottega.valore(QStringLiteral("SELECT Data_end_update from TAB_VARIE")),
            QStringLiteral("20261120184507"));
}

TEST(RicavaDettagliECR, UnMomentoNulloSiDiceELAltroSiLegge) {
  Bottega bottega;
  bottega.apriVuoto(
      {QStringLiteral("CREATE TABLE TAB_VARIE (Num_Articoli_Cassa INTEGER, Data_end_update TEXT, "
                      "Data_end_scarico TEXT)"),
       QStringLiteral("INSERT INTO TAB_VARIE VALUES (0, NULL, NULL)")});
  articles::RicavaDettagliECR(bottega.utente);
  attendi(bottega, {riquadro(QStringLiteral("RicavaDettagliECR 94 - *"), Icon::Critical),
                    riquadro(QStringLiteral("RicavaDettagliECR 94 - *"), Icon::Critical)});
}

TEST(RicavaDettagliECR, SenzaTabellaSiDice) {
  Bottega bottega;
  bottega.apriVuoto({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  articles::RicavaDettagliECR(bottega.utente);
  attendi(bottega, {riquadro(QStringLiteral("RicavaDettagliECR 3078 - *"), Icon::Critical)});
}

}  // namespace
