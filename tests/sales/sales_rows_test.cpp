#include "sales/sales_rows.h"

#include <gtest/gtest.h>

#include "controls/FlexGrid.h"
#include "sales/sales_ledger.h"
#include "sales/sales_search.h"
#include "sostegno/troubles.h"

namespace {

using namespace sales;

class RigheVenduto : public testing::Test {
 protected:
  RigheVenduto() {
    bottega.openArchive();
    GestGridCentral(griglia);
  }

  elenco::EsitoElenco tutti() {
    return RiempiVenduto(griglia, StatementTutti(), Elenco::Tutti, bottega.contesto);
  }
  elenco::EsitoElenco cerca() {
    return RiempiVenduto(griglia,
                         StatementCerca({QStringLiteral("20000101"), QStringLiteral("21001231"), {}, {}}),
                         Elenco::Cerca, bottega.contesto);
  }
  QStringList riga(int numero) {
    QStringList celle;
    for (int colonna = 0; colonna < griglia.Cols(); ++colonna) celle += griglia.TextMatrix(numero, colonna);
    return celle;
  }
  QString cella(ColonnaVenduto colonna) { return griglia.TextMatrix(1, colonna); }

  WithLocale locale{"C"};
  BackRoom bottega;
  FlexGrid griglia;
};

const Box kDivisione = criticalBox(QStringLiteral("RiempiGridCentral 11 - Divisione per zero"));

TEST_F(RigheVenduto, LeNoveColonneHannoLeLoroTestate) {
  EXPECT_EQ(riga(0), (QStringList{QStringLiteral("Nr."), QStringLiteral("DATA"), QStringLiteral("COD. EAN"),
                                  QStringLiteral("COD. ART."), QStringLiteral("DESCRIZIONE "),
                                  QStringLiteral("PR. MEDIO"), QStringLiteral("N. PEZZI"),
                                  QStringLiteral("IMP. GIORN."), QStringLiteral("SC. GIORN.")}));
}

TEST_F(RigheVenduto, LaMascheraHaTreDecimaliEArrotondaIlMezzoLontanoDaZero) {
  EXPECT_EQ(Maschera(0), QStringLiteral("0.000"));
  EXPECT_EQ(Maschera(12.5), QStringLiteral("12.500"));
  EXPECT_EQ(Maschera(-0.05), QStringLiteral("-0.050"));
  EXPECT_EQ(Maschera(1.0005), QStringLiteral("1.001"));
  EXPECT_EQ(Maschera(-1.0005), QStringLiteral("-1.001"));
  EXPECT_EQ(Maschera(1.00049), QStringLiteral("1.000"));
  EXPECT_EQ(Maschera(-0.0001), QStringLiteral("0.000"));
  EXPECT_EQ(Maschera(21474836.47), QStringLiteral("21474836.470"));
}

TEST_F(RigheVenduto, OgniMezzoMillesimoDiUnaMediaSiArrotondaInSu) {
  for (int centesimi = 1; centesimi < 20000; centesimi += 2)
    ASSERT_EQ(Maschera(static_cast<double>(centesimi) / 20 / 100),
              QStringLiteral("%1.%2")
                  .arg((centesimi + 1) / 2 / 1000)
                  .arg((centesimi + 1) / 2 % 1000, 3, 10, QLatin1Char('0')))
        << centesimi;
}

TEST_F(RigheVenduto, IlSegnoDecimaleEQuelloDellaPiattaforma) {
  const WithLocale italiano("it_IT");
  EXPECT_EQ(Maschera(1234.5), QStringLiteral("1234,500"));
}

TEST_F(RigheVenduto, LaDataSiMostraPerCaratteriQualunqueSia) {
  EXPECT_EQ(DataAVideo(QStringLiteral("20261120")), QStringLiteral("20/11/2026"));
  EXPECT_EQ(DataAVideo(QStringLiteral("20269999")), QStringLiteral("99/99/2026"));
  EXPECT_EQ(DataAVideo(QStringLiteral("2026")), QStringLiteral("//2026"));
}

TEST_F(RigheVenduto, InteriECentesimiNonPerdonoCifre) {
  EXPECT_EQ(MascheraIntero(500'000'000'001), QStringLiteral("500000000001.000"));
  EXPECT_EQ(MascheraIntero(std::numeric_limits<std::int64_t>::max()),
            QStringLiteral("9223372036854775807.000"));
  EXPECT_EQ(MascheraIntero(std::numeric_limits<std::int64_t>::min()),
            QStringLiteral("-9223372036854775808.000"));
  EXPECT_EQ(MascheraCentesimi(-5), QStringLiteral("-0.050"));
  EXPECT_EQ(MascheraCentesimi(922'337'203'685'477'580), QStringLiteral("9223372036854775.800"));
}

TEST_F(RigheVenduto, IPezziDiMilioniDiRigheSiSommanoEsatti) {
  // 5e11 and more: what a mask that goes through thousandths of a double would round.
  std::vector<elenco::Totale> totali(9);
  totali[kPezzi].intero = 9'007'199'254'740'993;
  griglia.setRows(4);
  SetTailGriglia(griglia, 2, totali);
  EXPECT_EQ(griglia.TextMatrix(3, kPezzi), QStringLiteral("9007199254740993.000"));
}

TEST_F(RigheVenduto, UnaRigaDaIlTestoDiOgniColonnaEAumentaLeSomme) {
  enter(bottega, {{.amount = 1250, .pieces = 3, .discount = 50}});
  const elenco::EsitoElenco esito = tutti();
  EXPECT_EQ(riga(1),
            (QStringList{QStringLiteral("1"), QStringLiteral("20/11/2026"), QStringLiteral("A1"),
                         QStringLiteral("8001120000016"), QStringLiteral("PANE"), QStringLiteral("4.167"),
                         QStringLiteral("3"), QStringLiteral("12.500"), QStringLiteral("0.500")}));
  EXPECT_EQ(riga(2), (QStringList{{}, QStringLiteral(" "), {}, {}, {}, {}, {}, {}, {}}));
  EXPECT_EQ(riga(3), (QStringList{{},
                                  QStringLiteral("TOTALE"),
                                  {},
                                  {},
                                  {},
                                  QStringLiteral("4.167"),
                                  QStringLiteral("3.000"),
                                  QStringLiteral("12.500"),
                                  QStringLiteral("0.500")}));
  EXPECT_EQ(griglia.Rows(), 4);
  EXPECT_EQ(esito.righe, 1);
  EXPECT_DOUBLE_EQ(esito.totali[kPrezzoMedio].reale, 12.5 / 3);
  EXPECT_EQ(esito.totali[kPezzi].intero, 3);
  EXPECT_EQ(esito.totali[kImporto].intero, 1250);
  EXPECT_EQ(esito.totali[kSconto].intero, 50);
}

TEST_F(RigheVenduto, LaSommaDeiPrezziNonEPesataSuiPezzi) {
  enter(bottega, {{.ean = QStringLiteral("A"), .amount = 1000, .pieces = 1},
                  {.ean = QStringLiteral("B"), .amount = 1000, .pieces = 10}});
  EXPECT_DOUBLE_EQ(tutti().totali[kPrezzoMedio].reale, 11.0);
}

TEST_F(RigheVenduto, ZeroPezziFannoFallireLaDivisioneELElencoSiFerma) {
  enter(bottega, {{.ean = QStringLiteral("A")},
                  {.ean = QStringLiteral("B"), .pieces = 0},
                  {.ean = QStringLiteral("C")}});
  const elenco::EsitoElenco esito = tutti();
  expectBoxes(bottega, {kDivisione});
  EXPECT_FALSE(esito.intero);
  EXPECT_EQ(griglia.TextMatrix(2, kDescrizione), QStringLiteral("PANE"));
  EXPECT_EQ(griglia.TextMatrix(2, kPezzi), QString());
  EXPECT_EQ(griglia.TextMatrix(3, kCodEan), QString());
  EXPECT_EQ(griglia.TextMatrix(5, kData), QString());
}

TEST_F(RigheVenduto, ITestiNulliSonoVuoti) {
  enter(bottega, {{.date = {}, .ean = {}, .article = {}, .description = {}}});
  tutti();
  for (const ColonnaVenduto colonna : {kData, kCodEan, kCodArt, kDescrizione})
    EXPECT_EQ(cella(colonna), QString()) << colonna;
  EXPECT_EQ(cella(kPezzi), QStringLiteral("2"));
}

TEST_F(RigheVenduto, IPezziNulliSonoZeroNellaLoroColonnaEIlPrezzoMedioEVuoto) {
  enter(bottega, {{.ean = QStringLiteral("A"), .pieces = {}}, {.ean = QStringLiteral("B"), .pieces = 2}});
  const elenco::EsitoElenco esito = tutti();
  EXPECT_TRUE(esito.intero);
  EXPECT_EQ(cella(kPezzi), QStringLiteral("0"));
  EXPECT_EQ(cella(kPrezzoMedio), QString());
  EXPECT_EQ(cella(kImporto), QStringLiteral("2.500"));
  EXPECT_DOUBLE_EQ(esito.totali[kPrezzoMedio].reale, 1.25);
  EXPECT_EQ(esito.totali[kPezzi].intero, 2);
}

TEST_F(RigheVenduto, UnImportoNulloSiMostraZeroConLaMascheraDellElenco) {
  enter(bottega, {{.amount = {}, .discount = {}}});
  EXPECT_EQ(tutti().totali[kImporto].intero, 0);
  EXPECT_EQ(cella(kImporto), QStringLiteral("0.000"));
  EXPECT_EQ(cella(kSconto), QStringLiteral("0.000"));
  EXPECT_EQ(cella(kPrezzoMedio), QStringLiteral("0.000"));
  cerca();
  EXPECT_EQ(cella(kImporto), QStringLiteral("000"));
  EXPECT_EQ(bottega.takeBoxes().size(), 1U);
}

TEST_F(RigheVenduto, UnoScontoNulloChiestoDallaRicercaHaLaMascheraSenzaDecimali) {
  enter(bottega, {{.discount = {}}});
  RiempiVenduto(griglia, StatementTutti(), Elenco::Cerca, bottega.contesto);
  EXPECT_EQ(cella(kSconto), QStringLiteral("000"));
}

TEST_F(RigheVenduto, LaRicercaNonHaLoScontoEOgniLetturaFallisceELaCellaResta) {
  enter(bottega,
        {{.ean = QStringLiteral("A"), .discount = 50}, {.ean = QStringLiteral("B"), .discount = 70}});
  tutti();
  const elenco::EsitoElenco esito = cerca();
  expectBoxes(bottega, {criticalBox(QStringLiteral("3265 - *")), criticalBox(QStringLiteral("3265 - *"))});
  EXPECT_TRUE(esito.intero);
  EXPECT_EQ(griglia.TextMatrix(1, kSconto), QStringLiteral("0.500"));
  EXPECT_EQ(griglia.TextMatrix(2, kSconto), QStringLiteral("0.700"));
  EXPECT_EQ(esito.totali[kSconto].intero, 0);
}

TEST_F(RigheVenduto, ImportiNegativiAbbassanoLeSomme) {
  enter(bottega, {{.amount = -150, .pieces = 1, .discount = -5}});
  EXPECT_EQ(tutti().totali[kImporto].intero, -150);
  EXPECT_EQ(cella(kImporto), QStringLiteral("-1.500"));
  EXPECT_EQ(cella(kSconto), QStringLiteral("-0.050"));
}

TEST_F(RigheVenduto, LaRigaDeiTotaliSiEvidenziaNelleColonne1E5E6E7E8) {
  enter(bottega, {{}});
  tutti();
  std::vector<int> evidenti;
  for (int colonna = 0; colonna < griglia.Cols(); ++colonna)
    if (griglia.CellBackColor(3, colonna) == QColor(Qt::yellow) &&
        griglia.CellForeColor(3, colonna) == QColor(Qt::red))
      evidenti.push_back(colonna);
  EXPECT_EQ(evidenti, (std::vector<int>{1, 5, 6, 7, 8}));
}

}  // namespace
