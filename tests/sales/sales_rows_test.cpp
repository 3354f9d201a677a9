#include "sales/sales_rows.h"

#include <gtest/gtest.h>

#include "sales/sales_ledger.h"
#include "sales/sales_search.h"
#include "sales/with_locale.h"

namespace {

using namespace sales;

class RigheVenduto : public testing::Test {
 protected:
  RigheVenduto() { bottega.apriArchivio(); }

  LettoreVenduto leggi(const QString& sql, Elenco elenco) {
    return {varGlobal().DB_Articoli.OpenRecordset(sql), elenco};
  }
  LettoreVenduto tutti() { return leggi(StatementTutti(), Elenco::Tutti); }
  LettoreVenduto cerca() {
    return leggi(StatementCerca({QStringLiteral("20000101"), QStringLiteral("21001231"), {}, {}}),
                 Elenco::Cerca);
  }
  int numeroErrore(const LettoreVenduto& righe, ColonnaVenduto colonna) {
    try {
      righe.cella(colonna, somme);
    } catch (const Errore& errore) {
      return errore.numero;
    }
    return 0;
  }

  ConLocale locale{"C"};
  Bottega bottega;
  SommeVenduto somme;
};

TEST_F(RigheVenduto, LeNoveColonneHannoLeLoroTestate) {
  QStringList testate;
  for (const DescrizioneColonna& colonna : colonneVenduto()) testate.append(colonna.testata);
  EXPECT_EQ(testate, (QStringList{QStringLiteral("Nr."), QStringLiteral("DATA"), QStringLiteral("COD. EAN"),
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
  const ConLocale italiano("it_IT");
  EXPECT_EQ(Maschera(1234.5), QStringLiteral("1234,500"));
}

TEST_F(RigheVenduto, LaDataSiMostraPerCaratteriQualunqueSia) {
  EXPECT_EQ(DataAVideo(QStringLiteral("20261120")), QStringLiteral("20/11/2026"));
  EXPECT_EQ(DataAVideo(QStringLiteral("20269999")), QStringLiteral("99/99/2026"));
  EXPECT_EQ(DataAVideo(QStringLiteral("2026")), QStringLiteral("//2026"));
}

TEST_F(RigheVenduto, UnaRigaDaIlTestoDiOgniColonnaEAumentaLeSomme) {
  registra(bottega, {{.importo = 1250, .pezzi = 3, .sconto = 50}});
  const LettoreVenduto righe = tutti();
  QStringList celle;
  for (int c = 0; c < kColonneVenduto; ++c) celle.append(righe.cella(static_cast<ColonnaVenduto>(c), somme));
  EXPECT_EQ(celle,
            (QStringList{QStringLiteral("1"), QStringLiteral("20/11/2026"), QStringLiteral("A1"),
                         QStringLiteral("8001120000016"), QStringLiteral("PANE"), QStringLiteral("4.167"),
                         QStringLiteral("3"), QStringLiteral("12.500"), QStringLiteral("0.500")}));
  EXPECT_DOUBLE_EQ(somme.prezzi, 12.5 / 3);
  EXPECT_EQ(somme.pezzi, 3);
  EXPECT_EQ(somme.importi, 1250);
  EXPECT_EQ(somme.sconti, 50);
}

TEST_F(RigheVenduto, LaSommaDeiPrezziNonEPesataSuiPezzi) {
  registra(bottega, {{.ean = QStringLiteral("A"), .importo = 1000, .pezzi = 1},
                     {.ean = QStringLiteral("B"), .importo = 1000, .pezzi = 10}});
  for (LettoreVenduto righe = tutti(); !righe.fine(); righe.avanti()) righe.cella(kPrezzoMedio, somme);
  EXPECT_DOUBLE_EQ(somme.prezzi, 11.0);
}

TEST_F(RigheVenduto, ZeroPezziFannoFallireLaDivisioneELaSommaResta) {
  registra(bottega, {{.pezzi = 0}});
  EXPECT_EQ(numeroErrore(tutti(), kPrezzoMedio), 11);
  EXPECT_EQ(somme.prezzi, 0);
}

TEST_F(RigheVenduto, ITestiNulliSonoVuoti) {
  registra(bottega, {{.data = {}, .ean = {}, .articolo = {}, .descrizione = {}}});
  for (const ColonnaVenduto colonna : {kData, kCodEan, kCodArt, kDescrizione})
    EXPECT_EQ(tutti().cella(colonna, somme), QString()) << colonna;
}

TEST_F(RigheVenduto, IPezziNulliSonoZeroEFannoFallireLaDivisione) {
  registra(bottega, {{.pezzi = {}}});
  EXPECT_EQ(tutti().cella(kPezzi, somme), QStringLiteral("0"));
  EXPECT_EQ(numeroErrore(tutti(), kPrezzoMedio), 11);
}

TEST_F(RigheVenduto, UnImportoNulloSiMostraZeroConLaMascheraDellElenco) {
  registra(bottega, {{.importo = {}, .sconto = {}}});
  EXPECT_EQ(tutti().cella(kImporto, somme), QStringLiteral("0.000"));
  EXPECT_EQ(tutti().cella(kSconto, somme), QStringLiteral("0.000"));
  EXPECT_EQ(tutti().cella(kPrezzoMedio, somme), QStringLiteral("0.000"));
  EXPECT_EQ(cerca().cella(kImporto, somme), QStringLiteral("000"));
  EXPECT_EQ(somme.importi, 0);
}

TEST_F(RigheVenduto, UnoScontoNulloChiestoDallaRicercaHaLaMascheraSenzaDecimali) {
  registra(bottega, {{.sconto = {}}});
  EXPECT_EQ(leggi(StatementTutti(), Elenco::Cerca).cella(kSconto, somme), QStringLiteral("000"));
}

TEST_F(RigheVenduto, LaRicercaNonHaLoScontoEOgniLetturaFallisce) {
  registra(bottega, {{.sconto = 50}});
  EXPECT_EQ(numeroErrore(cerca(), kSconto), 3265);
  EXPECT_EQ(somme.sconti, 0);
}

TEST_F(RigheVenduto, ImportiNegativiAbbassanoLeSomme) {
  registra(bottega, {{.importo = -150, .pezzi = 1, .sconto = -5}});
  EXPECT_EQ(tutti().cella(kImporto, somme), QStringLiteral("-1.500"));
  EXPECT_EQ(tutti().cella(kSconto, somme), QStringLiteral("-0.050"));
  EXPECT_EQ(somme.importi, -150);
}

TEST_F(RigheVenduto, ITotaliHannoLaMascheraAnchePerIPezzi) {
  const auto celle = rigaTotale({.prezzi = 4.5, .pezzi = 12, .importi = 123456, .sconti = 7});
  EXPECT_EQ(celle[kData], QStringLiteral("TOTALE"));
  EXPECT_EQ(celle[kPrezzoMedio], QStringLiteral("4.500"));
  EXPECT_EQ(celle[kPezzi], QStringLiteral("12.000"));
  EXPECT_EQ(celle[kImporto], QStringLiteral("1234.560"));
  EXPECT_EQ(celle[kSconto], QStringLiteral("0.070"));
  EXPECT_EQ(celle[kNr], QString());
}

TEST_F(RigheVenduto, LaRigaDeiTotaliSiEvidenziaNelleColonne1E5E6E7E8) {
  std::vector<int> evidenti;
  for (int c = 0; c < kColonneVenduto; ++c)
    if (inEvidenza(static_cast<ColonnaVenduto>(c))) evidenti.push_back(c);
  EXPECT_EQ(evidenti, (std::vector<int>{1, 5, 6, 7, 8}));
}

}  // namespace
