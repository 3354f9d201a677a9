#include "articles/transfer.h"

#include <gmock/gmock.h>

#include "articles/back_room.h"
#include "sostegno/guided_screen.h"

namespace {

using testing::IsEmpty;

// RicavaDettagliPC.

TEST(RicavaDettagliPC, UnArchivioConPosizioniTace) {
  BackRoom bottega;
  bottega.openArchive();
  articles::RicavaDettagliPC(bottega.user);
  EXPECT_THAT(bottega.user.takeBoxes(), IsEmpty());
}

TEST(RicavaDettagliPC, UnArchivioVuotoSiDice) {
  BackRoom bottega;
  bottega.openArchive();
  bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI"));
  articles::RicavaDettagliPC(bottega.user);
  expectBoxes(bottega, {box(QStringLiteral("Attenzione l'archivio degli articoli e' vuoto"), Icon::Warning)});
}

TEST(RicavaDettagliPC, UnConteggioFallitoSiDiceDopoIlSuoErrore) {
  BackRoom bottega;
  bottega.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  articles::RicavaDettagliPC(bottega.user);
  expectBoxes(bottega,
              {box(QStringLiteral("CalcolaNumArticoli 3078 - *"), Icon::Critical),
               box(QStringLiteral("Errore nella determinazione del numero degli articoli"), Icon::Warning)});
}

// CheckErrTabArticoli.

TEST(CheckErrTabArticoli, SenzaSegniDa999) {
  BackRoom bottega;
  bottega.openArchive();
  EXPECT_EQ(articles::CheckErrTabArticoli(bottega.user), 999);
}

TEST(CheckErrTabArticoli, ConUnSegnoDa998) {
  BackRoom bottega;
  bottega.openArchive();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' WHERE auto_id =4999"));
  EXPECT_EQ(articles::CheckErrTabArticoli(bottega.user), 998);
}

TEST(CheckErrTabArticoli, SenzaTabellaSiDice) {
  BackRoom bottega;
  bottega.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  EXPECT_EQ(articles::CheckErrTabArticoli(bottega.user), 999);
  expectBoxes(bottega, {box(QStringLiteral("Errore CheckErrTabArticoli 3078 - *"), Icon::Critical)});
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
  BackRoom bottega;
  bottega.openArchive();
  bottega.execute(
      QStringLiteral("UPDATE TAB_VARIE SET Data_end_update = '20261120184507', Data_end_scarico ='2026'"));
  articles::RicavaDettagliECR(bottega.user);
  EXPECT_THAT(bottega.user.takeBoxes(), IsEmpty());
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT Data_end_update from TAB_VARIE")),
            QStringLiteral("20261120184507"));
}

TEST(RicavaDettagliECR, UnMomentoNulloSiDiceELAltroSiLegge) {
  BackRoom bottega;
  bottega.openWith(
      {QStringLiteral("CREATE TABLE TAB_VARIE (Num_Articoli_Cassa INTEGER, Data_end_update TEXT, "
                      "Data_end_scarico TEXT)"),
       QStringLiteral("INSERT INTO TAB_VARIE VALUES (0, NULL, NULL)")});
  articles::RicavaDettagliECR(bottega.user);
  expectBoxes(bottega, {box(QStringLiteral("RicavaDettagliECR 94 - *"), Icon::Critical),
                        box(QStringLiteral("RicavaDettagliECR 94 - *"), Icon::Critical)});
}

TEST(RicavaDettagliECR, SenzaTabellaSiDice) {
  BackRoom bottega;
  bottega.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  articles::RicavaDettagliECR(bottega.user);
  expectBoxes(bottega, {box(QStringLiteral("RicavaDettagliECR 3078 - *"), Icon::Critical)});
}

}  // namespace
