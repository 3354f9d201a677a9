#include "sales/sales_search.h"

#include <gtest/gtest.h>

#include "sales/sales_ledger.h"

namespace {

using sales::StatementCerca;
using sales::StatementTutti;

const QString kInizio = QStringLiteral("20000101");
const QString kFine = QStringLiteral("21001231");

TEST(RicercaVenduto, LElencoInteroChiedeAncheLoScontoPerGiornoECodice) {
  EXPECT_EQ(StatementTutti().sql(),
            QStringLiteral("SELECT Data,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,"
                           "Tot_giorn_articoli_venduti,Sconto_giornaliero from TAB_VENDUTO ORDER BY DATA, "
                           "Codice_EAN ASC"));
}

TEST(RicercaVenduto, SenzaFiltriRestaIlPeriodoENonSiChiedeLoSconto) {
  EXPECT_EQ(StatementCerca({QStringLiteral("20261101"), QStringLiteral("20261130"), {}, {}}).sql(),
            QStringLiteral("SELECT Data,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,"
                           "Tot_giorn_articoli_venduti from TAB_VENDUTO WHERE (Data >= '20261101' AND Data "
                           "<= '20261130')  ORDER BY Data, Codice_EAN ASC"));
}

TEST(RicercaVenduto, OgniFiltroScrittoSiAggiungeConLaSuaStella) {
  const QString sql = StatementCerca({kInizio, kFine, QStringLiteral("A1"), QStringLiteral("PA")}).sql();
  EXPECT_TRUE(sql.endsWith(QStringLiteral(
      ")  AND Codice_EAN like 'A1*' AND Descrizione like 'PA*' ORDER BY Data, Codice_EAN ASC")))
      << sql.toStdString();
}

class RicercaNelRegistro : public testing::Test {
 protected:
  RicercaNelRegistro() { bottega.openArchive(); }

  QStringList trovate(const QString& descrizione, const QString& ean = {}) {
    QStringList testi;
    store::Recordset righe =
        varGlobal().DB_Articoli.OpenRecordset(StatementCerca({kInizio, kFine, ean, descrizione}));
    for (; !righe.atEnd(); righe.MoveNext()) testi.append(righe.field(QStringLiteral("Descrizione")).text());
    return testi;
  }
  void descrizioni(const QStringList& testi) {
    std::vector<LedgerRow> righe;
    for (const QString& testo : testi) righe.push_back({.description = testo});
    enter(bottega, righe);
  }

  BackRoom bottega;
};

TEST_F(RicercaNelRegistro, IlFiltroTrovaCioCheCominciaCosiSenzaBadareAlleMaiuscole) {
  descrizioni({QStringLiteral("PANE"), QStringLiteral("PANINO"), QStringLiteral("BIANCO PANE")});
  EXPECT_EQ(trovate(QStringLiteral("pan")).size(), 2);
}

TEST_F(RicercaNelRegistro, IlPerCentoELaSottolineaturaSonoSoloCaratteri) {
  descrizioni({QStringLiteral("50% SCONTO"), QStringLiteral("50 SCONTO"), QStringLiteral("A_B"),
               QStringLiteral("AXB")});
  EXPECT_EQ(trovate(QStringLiteral("50%")), QStringList{QStringLiteral("50% SCONTO")});
  EXPECT_EQ(trovate(QStringLiteral("A_B")), QStringList{QStringLiteral("A_B")});
}

TEST_F(RicercaNelRegistro, AsteriscoEPuntoInterrogativoSonoCaratteriJolly) {
  descrizioni({QStringLiteral("LATTE INTERO"), QStringLiteral("LATTE SCREMATO"), QStringLiteral("PANE")});
  EXPECT_EQ(trovate(QStringLiteral("*SCREM")), QStringList{QStringLiteral("LATTE SCREMATO")});
  EXPECT_EQ(trovate(QStringLiteral("?ANE")), QStringList{QStringLiteral("PANE")});
}

TEST_F(RicercaNelRegistro, LeParentesiQuadreSonoUnInsiemeDiCaratteri) {
  descrizioni({QStringLiteral("PANE"), QStringLiteral("CANE"), QStringLiteral("RANE")});
  EXPECT_EQ(trovate(QStringLiteral("[CP]ANE")).size(), 2);
}

TEST_F(RicercaNelRegistro, LeVirgoletteSonoSoloCaratteri) {
  descrizioni({QStringLiteral("VINO \"NOVELLO\""), QStringLiteral("VINO NOVELLO")});
  EXPECT_EQ(trovate(QStringLiteral("VINO \"")).size(), 1);
}

TEST_F(RicercaNelRegistro, IlFiltroEanLavoraSulCodiceArticoloCheLaRicezioneHaRegistratoLi) {
  enter(bottega, {{.ean = QStringLiteral("ART7"),
                   .article = QStringLiteral("8001"),
                   .description = QStringLiteral("SI")},
                  {.ean = QStringLiteral("ART8"),
                   .article = QStringLiteral("8002"),
                   .description = QStringLiteral("NO")}});
  EXPECT_EQ(trovate({}, QStringLiteral("ART7")), QStringList{QStringLiteral("SI")});
  EXPECT_TRUE(trovate({}, QStringLiteral("8001")).isEmpty());
}

}  // namespace
