#include "workspace/archive_summary.h"

#include <gtest/gtest.h>

#include "articles/back_room.h"

namespace {

using workspace::Riepiloga;
using workspace::TestoRiepilogo;

TEST(RiepilogoArchivio, ContaLePosizioniConEanODescrizione) {
  BackRoom bottega;
  bottega.openArchive();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_EAN ='8001' WHERE auto_id =1"));
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='PANE' WHERE auto_id =2"));
  bottega.execute(
      QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_EAN ='8002', Descrizione ='LATTE' WHERE auto_id =3"));
  const auto riepilogo = Riepiloga();
  EXPECT_TRUE(riepilogo.leggibile);
  EXPECT_EQ(riepilogo.articoli, 3);
  EXPECT_EQ(riepilogo.posizioni, 5000);
}

TEST(RiepilogoArchivio, SenzaArchivioNonELeggibile) {
  const BackRoom bottega;
  EXPECT_FALSE(Riepiloga().leggibile);
}

TEST(RiepilogoArchivio, UnDatabaseDiAltroGenereNonELeggibileENonDiceNulla) {
  BackRoom bottega;
  bottega.openWith({QStringLiteral("CREATE TABLE ALTRO (a)")});
  EXPECT_FALSE(Riepiloga().leggibile);
}

TEST(RiepilogoArchivio, UnArticoloSoloEAlSingolare) {
  EXPECT_EQ(workspace::TestoArticoli({true, 5000, 1}), QStringLiteral("1 articolo"));
  EXPECT_EQ(workspace::TestoArticoli({true, 5000, 5000}), QStringLiteral("5.000 articoli"));
  EXPECT_EQ(workspace::TestoArticoli({true, 5000, 0}), QStringLiteral("0 articoli"));
  EXPECT_EQ(TestoRiepilogo({true, 5000, 1}), QStringLiteral("1 articolo in 5.000 posizioni"));
}

TEST(RiepilogoArchivio, IlTestoSeparaLeMigliaia) {
  EXPECT_EQ(TestoRiepilogo({true, 5000, 1234}), QStringLiteral("1.234 articoli in 5.000 posizioni"));
  EXPECT_EQ(TestoRiepilogo({}), QStringLiteral("Il contenuto dell'archivio non è leggibile."));
}

}  // namespace
