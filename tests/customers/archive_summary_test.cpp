#include "customers/archive_summary.h"

#include <gtest/gtest.h>

#include "customers/office.h"

namespace {

using customers::Riepiloga;
using customers::TestoRiepilogo;

const QString kMoment = QStringLiteral("07/03/2024 10:11:12");

TEST(RiepilogoClienti, ContaIClientiSenzaLAnonimoELeFatture) {
  Office ufficio;
  ufficio.openArchive();
  ufficio.customer(1, QStringLiteral("ROSSI"));
  ufficio.customer(250, QStringLiteral("BIANCHI"));
  ufficio.invoice(0, QStringLiteral("2024/1"), kMoment, 100);
  ufficio.invoice(1, QStringLiteral("2024/2"), kMoment, 100);
  ufficio.invoice(9, QStringLiteral("2024/3"), kMoment, 100);
  const auto riepilogo = Riepiloga();
  EXPECT_TRUE(riepilogo.leggibile);
  EXPECT_EQ(riepilogo.clienti, 2);
  EXPECT_EQ(riepilogo.fatture, 3);
}

TEST(RiepilogoClienti, UnArchivioNuovoHaNessunClienteENessunaFattura) {
  Office ufficio;
  ufficio.openArchive();
  EXPECT_EQ(TestoRiepilogo(Riepiloga()), QStringLiteral("0 clienti e 0 fatture"));
}

TEST(RiepilogoClienti, SenzaLAnonimoIClientiSonoQuelliCheCiSono) {
  Office ufficio;
  ufficio.openArchive();
  ufficio.customer(1, QStringLiteral("ROSSI"));
  ufficio.execute(QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI WHERE ID_Cliente =0"));
  EXPECT_EQ(Riepiloga().clienti, 1);
  ufficio.execute(QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI WHERE ID_Cliente =1"));
  EXPECT_EQ(Riepiloga().clienti, 0);
  EXPECT_TRUE(Riepiloga().leggibile);
}

TEST(RiepilogoClienti, SenzaArchivioNonELeggibile) {
  const Office ufficio;
  EXPECT_FALSE(Riepiloga().leggibile);
}

TEST(RiepilogoClienti, SenzaUnaDelleDueTabelleNonELeggibileENonDiceNulla) {
  Office ufficio;
  ufficio.openWith({QStringLiteral("CREATE TABLE TAB_ANAG_CLIENTI (ID_Cliente INTEGER)")});
  EXPECT_FALSE(Riepiloga().leggibile);
  EXPECT_EQ(TestoRiepilogo(Riepiloga()), QStringLiteral("Il contenuto dell'archivio non è leggibile."));
  ufficio.openWith({QStringLiteral("CREATE TABLE TAB_FATTURE (ID_Cliente INTEGER)")},
                   QStringLiteral("terzo.mdb"));
  EXPECT_FALSE(Riepiloga().leggibile);
}

TEST(RiepilogoClienti, UnArchivioSenzaFineSiInterrompeENonELeggibile) {
  Office ufficio;
  ufficio.openWith(
      {QStringLiteral("CREATE VIEW TAB_ANAG_CLIENTI AS WITH RECURSIVE n(x) AS "
                      "(SELECT 1 UNION ALL SELECT x + 1 FROM n) SELECT x AS ID_Cliente FROM n")});
  store::Workspace breve(ufficio.clock, std::chrono::milliseconds(50));
  varGlobal().DB_Clienti = breve.OpenDatabase(ufficio.folder.file(QStringLiteral("altro.mdb")));
  EXPECT_FALSE(Riepiloga().leggibile);
}

TEST(RiepilogoClienti, UnoSoloEAlSingolareELeMigliaiaSonoSeparate) {
  EXPECT_EQ(TestoRiepilogo({true, 1, 1}), QStringLiteral("1 cliente e 1 fattura"));
  EXPECT_EQ(TestoRiepilogo({true, 250, 20000}), QStringLiteral("250 clienti e 20.000 fatture"));
}

}  // namespace
