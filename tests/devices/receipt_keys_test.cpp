#include <gtest/gtest.h>

#include "devices/keyboard_scene.h"

namespace {

const QString kVenduto = QStringLiteral("venduto.bin");
const QString kGiornale = QStringLiteral("giornale.txt");

/// A sequence that the till refuses, and what is pressed before it.
struct Rifiuto {
  const char* nome;
  const char* prima;
  const char* tasti;
};
void PrintTo(const Rifiuto& uno, std::ostream* uscita) {
  *uscita << uno.nome;
}

const Rifiuto kRifiuti[] = {
    {"TastoSconosciuto", "1R", "q"},
    {"RepartoZero", "1R", "100H0R"},
    {"RepartoOltreOttanta", "1R", "100H81R"},
    {"RepartoSenzaPrezzo", "1R", "5R"},
    {"RepartoImportoZero", "1R", "0H1R"},
    {"RepartoSopraIlMassimo", "1R", "2001H9R"},
    {"RepartoSottoIlMinimo", "1R", "99H9R"},
    {"PluZero", "1R", "0P"},
    {"PluOltreCinquemila", "1R", "5001P"},
    {"PluNonProgrammato", "1R", "3P"},
    {"PluPrezzoNonLibero", "1R", "100H2P"},
    {"PluSenzaPrezzo", "1R", "12P"},
    {"QuantitaZero", "1R", "0*2P"},
    {"QuantitaConTroppiDecimali", "1R", "1,2345*2P"},
    {"QuantitaTroppeCifre", "1R", "10000*2P"},
    {"ImportoTroppeCifre", "1R", "1000000000H1R"},
    {"ImportoOltreLeCifre", "1R", "9999*999999999H1R"},
    {"TotaleOltreLeCifre", "999999999H1R", "1R"},
    {"StornoDiPiu", "1R", "0M151H1R"},
    {"StornoDiAltroReparto", "1R", "0M100H2R"},
    {"StornoDiPiuPezzi", "3*2P", "0M4*2P"},
    {"StornoSenzaScontrino", "", "0M100H1R"},
    {"StornoEPoiSubtotale", "1R", "0M="},
    {"ModificatoreInesistente", "1R", "13M"},
    {"DueModificatori", "1R", "0M9M1R"},
    {"ScontoSenzaVendita", "", "10,00*1M"},
    {"ScontoZero", "1R", "0*1M"},
    {"ScontoConTreDecimali", "1R", "5,255*2M"},
    {"ScontoOltreLaRiga", "1R1R", "151H3M"},
    {"ScontoOltreIlSubtotale", "1R", "151H4M"},
    {"ScontoSenzaImporto", "1R", "3M"},
    {"ScontoSulReso", "500H1R9M1R", "10,00*1M"},
    {"PagamentoSenzaScontrino", "", "1T"},
    {"ChiusuraSenzaScontrino", "", "12M"},
    {"PagamentoZero", "1R", "0T"},
    {"PagamentoSei", "1R", "6T"},
    {"PagamentoDiZero", "1R", "0H1T"},
    {"CreditoOltreIlResto", "1R", "1000H5T"},
    {"CartaOltreIlResto", "1R", "1000H3T"},
    {"VenditaDuranteIlPagamento", "1R50H1T", "1R"},
    {"ScontoDuranteIlPagamento", "1R50H1T", "10,00*2M"},
    {"SubtotaleSenzaScontrino", "", "="},
    {"CodiceSenzaScontrino", "", "123#"},
    {"OperatoreZero", "1R", "0O"},
    {"OperatoreUndici", "1R", "11O"},
    {"MessaggioSenzaScontrino", "", "\"PROVA\"@"},
    {"MessaggioSenzaTesto", "1R", "@"},
    {"NonFiscaleConScontrino", "1R", "j"},
    {"ChiusuraNonFiscaleSenzaApertura", "1R", "J"},
    {"VenditaNelNonFiscale", "j", "1R"},
    {"RapportoConScontrino", "1R", "z1Fc"},
    {"LetturaConScontrino", "1R", "x"},
    {"VersamentoConScontrino", "1R", "10M100H1T"},
    {"VersamentoSenzaImporto", "", "10M1T"},
    {"FunzioneInVendita", "1R", "1F"},
    {"CodiceFiscaleCorto", "1R", "\"BNCLRA80A41F205\"@39F"},
    {"CodiceFiscaleSenzaTesto", "1R", "39F"},
    {"PartitaIvaConLettere", "1R", "\"1234567890A\"@39F"},
    {"LetturaCinque", "x", "5F"},
    {"AzzeramentoOtto", "z", "8F"},
    {"VenditaInLettura", "x", "1R"},
    {"FunzioneEstesaSconosciuta", "", "X\"1\"14F"},
    {"TestoAperto", "1R", "\"PROVA"},
};

class TastiRifiutati : public testing::TestWithParam<Rifiuto> {};

/// Nothing moves but the lamp: paper, journal, sales and state stand as they stood.
TEST_P(TastiRifiutati, NonStampanoNienteELascianoTuttoComEra) {
  KeyboardScene scena;
  scena.press(GetParam().prima);
  ASSERT_FALSE(scena.till->error());
  const QByteArrayList carta = scena.paper.lines();
  const QByteArray stato = scena.state();
  scena.send(GetParam().tasti);
  EXPECT_EQ(scena.till->error(), GetParam().tasti != std::string("z1Fc"));
  EXPECT_EQ(scena.paper.lines(), carta);
  EXPECT_EQ(scena.state(), stato);
  EXPECT_FALSE(scena.till.exists(kGiornale));
  EXPECT_FALSE(scena.till.exists(kVenduto));
}

/// The lamp holds every key but "c" and the reading of the state; what is open goes on behind it.
TEST_P(TastiRifiutati, AccendonoLaSpiaFinoAlTastoC) {
  KeyboardScene scena;
  scena.press(GetParam().prima);
  scena.send(GetParam().tasti);
  scena.send("c");
  EXPECT_FALSE(scena.till->error());
  scena.send("q1R1T");
  const QByteArrayList carta = scena.paper.lines();
  EXPECT_TRUE(scena.till->error());
  EXPECT_EQ(scena.display.value(0), "ERRORE             C");
  scena.send("100H1R1T");
  EXPECT_EQ(scena.paper.lines(), carta);
  EXPECT_EQ(scena.state().size(), 39);
}

INSTANTIATE_TEST_SUITE_P(Cassa, TastiRifiutati, testing::ValuesIn(kRifiuti),
                         [](const auto& una) { return std::string(una.param.nome); });

struct Contatori {
  std::int32_t importo;
  std::int32_t pezzi;
  std::int32_t sconto;
  bool operator==(const Contatori&) const = default;
};

Contatori contatori(const KeyboardScene& scena, int plu) {
  const QByteArray venduto = scena.till.byte(kVenduto);
  return {salesCounter(venduto, 0, plu), salesCounter(venduto, 1, plu), salesCounter(venduto, 2, plu)};
}

}  // namespace

TEST(TastiDiVendita, LoScontrinoChiusoMuoveIlVendutoQuelloApertoNo) {
  KeyboardScene scena;
  scena.send("10*2P10,00*1M8P1R");
  EXPECT_FALSE(scena.till.exists(kVenduto));
  scena.send("1T");
  EXPECT_EQ(contatori(scena, 2), (Contatori{1390, 10, 139}));
  EXPECT_EQ(contatori(scena, 8), (Contatori{180, 1, 0}));
  EXPECT_EQ(contatori(scena, 1), (Contatori{0, 0, 0})) << "a department is no article";
}

TEST(TastiDiVendita, LeVenditeSiAggiungonoAQuelleCheIlPcNonHaAncoraRicevuto) {
  KeyboardScene scena;
  scena.till.sales({{1, 1000, 7, 5}, {4999, 1, 1, 0}});
  scena.send("2P1T");
  EXPECT_EQ(contatori(scena, 2), (Contatori{1139, 8, 5}));
  EXPECT_EQ(contatori(scena, 5000), (Contatori{1, 1, 0}));
}

TEST(TastiDiVendita, UnaPesataEUnPezzoESiArrotondaAlCentesimo) {
  KeyboardScene scena;
  scena.send("0,345*10P1T");
  // 0,345 x 2,10 is 0,7245.
  EXPECT_EQ(contatori(scena, 10), (Contatori{72, 1, 0}));
}

TEST(TastiDiVendita, StornoResoEMaggiorazioneStannoNelVenduto) {
  KeyboardScene scena;
  scena.send("3*2P0M1*2P");
  scena.send("234H4P10,00*5M");
  scena.send("9M8P1T");
  EXPECT_EQ(contatori(scena, 2), (Contatori{278, 2, 0}));
  EXPECT_EQ(contatori(scena, 4), (Contatori{257, 1, 0}));
  EXPECT_EQ(contatori(scena, 8), (Contatori{-180, -1, 0}));
}

TEST(TastiDiVendita, UnSoloResoSiPagaIndietroInContanti) {
  KeyboardScene scena;
  scena.send("9M100H1R3T");
  EXPECT_TRUE(scena.till->error());
  scena.send("c1T");
  EXPECT_TRUE(scena.paper.lines().contains(riga("CONTANTI", "-1,00")));
  EXPECT_EQ(scena.state().mid(14, 8), "CF000001");
}

TEST(TastiDiVendita, LArticoloCheNonCostaNienteSiVendeSoloSePuo) {
  KeyboardScene scena;
  scena.send("11P1T");
  EXPECT_TRUE(scena.paper.lines().contains(riga("TOTALE EURO", "0,00")));
  EXPECT_EQ(contatori(scena, 11), (Contatori{0, 1, 0}));
}

TEST(TastiDiVendita, IlPagamentoInPiuForme) {
  KeyboardScene scena;
  scena.send("1000H1R");
  scena.paper.tearOff();
  scena.send("250H2T");
  EXPECT_EQ(scena.paper.lines(), (QByteArrayList{riga("TOTALE EURO", "10,00"), riga("ASSEGNI", "2,50"),
                                                 riga("DA PAGARE", "7,50")}));
  scena.send("250H3T1000H1T");
  EXPECT_TRUE(scena.paper.lines().contains(riga("RESTO", "5,00")));
  scena.paper.tearOff();
  scena.send("x3Fc");
  const QByteArrayList carta = scena.paper.lines();
  EXPECT_TRUE(carta.contains(riga("CONTANTI", "5,00")));
  EXPECT_TRUE(carta.contains(riga("ASSEGNI", "2,50")));
  EXPECT_TRUE(carta.contains(riga("CARTA DI CREDITO", "2,50")));
}

TEST(TastiDiVendita, VersamentiEPrelieviCambianoICassetti) {
  KeyboardScene scena;
  scena.send("10M5000H1T");
  scena.send("11M2000H1T");
  scena.send("1R1T");
  scena.paper.tearOff();
  scena.send("x3Fc");
  const QByteArrayList carta = scena.paper.lines();
  EXPECT_TRUE(carta.contains(riga("  VERSAMENTI", "50,00")));
  EXPECT_TRUE(carta.contains(riga("  PRELIEVI", "-20,00")));
  EXPECT_TRUE(carta.contains(riga("CONTANTI IN CASSA", "31,50")));
}

TEST(TastiDiVendita, LoScontoSulSubtotaleSiDivideFraLeAliquoteAlCentesimo) {
  KeyboardScene scena;
  scena.send("1000H1R500H2R333H3R100H4M1T");
  scena.paper.tearOff();
  scena.send("z6Fc");
  const QByteArrayList carta = scena.paper.lines();
  // 100 over 1000, 500 and 333: to 54,55, then to 81,83 of the running sums.
  EXPECT_TRUE(carta.contains(riga("IVA 1 22,00%", "9,45")));
  EXPECT_TRUE(carta.contains(riga("IVA 2 10,00%", "4,73")));
  EXPECT_TRUE(carta.contains(riga("IVA 3 4,00%", "3,15")));
  EXPECT_TRUE(carta.contains(riga("TOTALE IVA COMPRESA", "17,33")));
  EXPECT_TRUE(carta.contains(riga("  IMPOSTA", "1,70")));
  EXPECT_TRUE(carta.contains(riga("  IMPOSTA", "0,43")));
  EXPECT_TRUE(carta.contains(riga("  IMPOSTA", "0,12")));
}

TEST(TastiDiVendita, GliAzzeramentiAzzeranoSoloIlLoro) {
  KeyboardScene scena;
  scena.send("3O1R1T");
  scena.send("z2F4Fc");
  scena.paper.tearOff();
  scena.send("x2F3F4Fc");
  const QByteArrayList carta = scena.paper.lines();
  EXPECT_TRUE(carta.contains(riga("TOTALE REPARTI", "0,00")));
  EXPECT_TRUE(carta.contains(riga("TOTALE OPERATORI", "0,00")));
  EXPECT_TRUE(carta.contains(riga("CONTANTI", "1,50")));
  scena.send("z3Fc");
  scena.paper.tearOff();
  scena.send("x3F1Fc");
  EXPECT_TRUE(scena.paper.lines().contains(riga("CONTANTI", "0,00")));
  EXPECT_TRUE(scena.paper.lines().contains(riga("CORRISPETTIVI", "1,50")));
  scena.send("z1Fc");
  scena.paper.tearOff();
  scena.send("x1Fc");
  EXPECT_TRUE(scena.paper.lines().contains(riga("CORRISPETTIVI", "0,00")));
}

TEST(TastiDiVendita, IntestazioneCortesiaEOperatoreSonoQuelliProgrammati) {
  KeyboardScene scena;
  QByteArray intestazione(305, '\0');
  intestazione.replace(1, 7, "EMPORIO");
  intestazione.replace(38 + 1, 8, "VIA ROMA");
  scena.till.put(QStringLiteral("intestazione.bin"), intestazione);
  QByteArray cortesia(79, '\0');
  cortesia.replace(1, 6, "GRAZIE");
  cortesia.replace(39 + 1, 5, "MUTA!");
  cortesia[38] = 1;
  scena.till.put(QStringLiteral("cortesia.bin"), cortesia);
  QByteArray operatori(331, '\0');
  operatori.replace(33, 5, "MARIA");
  operatori[33 + 25] = 1;
  scena.till.put(QStringLiteral("operatori.bin"), operatori);
  scena.send("2O1R1T");
  const QByteArrayList carta = scena.paper.lines();
  EXPECT_EQ(carta.value(1), centrata("VIA ROMA"));
  EXPECT_TRUE(carta.contains(centrata("GRAZIE")));
  EXPECT_FALSE(carta.contains(centrata("MUTA!")));
  EXPECT_TRUE(carta.contains(riga("OPERATORE 2", "MARIA")));
  scena.send("1O");
  EXPECT_TRUE(scena.till->error()) << "an operator who is not enabled";
}

TEST(TastiDiVendita, UnRepartoPrendeAncheIlSuoMinimoEIlSuoMassimo) {
  KeyboardScene scena;
  scena.send("100H9R2000H9R");
  EXPECT_FALSE(scena.till->error());
  EXPECT_EQ(scena.paper.lines(), (QByteArrayList{riga("CARO", "1,00"), riga("CARO", "20,00")}));
}

TEST(TastiDiVendita, IlMassimoDelleOpzioniGeneraliVale) {
  KeyboardScene scena;
  QByteArray opzioni(429, '\0');
  opzioni[152] = 100;
  scena.till.put(QStringLiteral("prog_param.bin"), opzioni);
  scena.send("100H1R");
  EXPECT_FALSE(scena.till->error());
  scena.send("101H1R");
  EXPECT_TRUE(scena.till->error());
}

TEST(TastiDiVendita, ConUnTrasferimentoApertoNonSiVende) {
  KeyboardScene scena;
  Library libreria;
  EXPECT_EQ(libreria.command(scena.till.address(), ECR_OPEN_MODE), 0);
  scena.send("1R");
  EXPECT_TRUE(scena.till->error());
  EXPECT_EQ(libreria.command(scena.till.address(), ECR_CLOSE_MODE), 0);
  scena.send("c1R");
  EXPECT_FALSE(scena.till->error());
  EXPECT_EQ(libreria.command(scena.till.address(), ECR_OPEN_MODE), 7) << "a receipt is open";
  EXPECT_EQ(libreria.command(scena.till.address(), ECR_INFO_MODE), 0);
  EXPECT_EQ(libreria.reply.split(',').value(10), "STATO=V");
}

TEST(TastiDiVendita, LaChiusuraDalPcVaNellaMemoriaFiscaleComeQuellaDaiTasti) {
  KeyboardScene scena;
  Library libreria;
  scena.send("1R1T1R1T");
  EXPECT_EQ(libreria.command(scena.till.address(), ECR_INFO_MODE), 0);
  EXPECT_EQ(libreria.reply.split(',').value(16), "FISC=2");
  EXPECT_EQ(libreria.command(scena.till.address(), ECR_FISCAL_CLOSURE_MODE), 0);
  EXPECT_TRUE(scena.press("X\"0000100001\"13F").simplified().contains("CORRISPETTIVI 3,00"));
  EXPECT_EQ(libreria.command(scena.till.address(), ECR_INFO_MODE), 0);
  EXPECT_EQ(libreria.reply.split(',').value(16), "FISC=0");
  EXPECT_EQ(libreria.command(scena.till.address(), ECR_FISCAL_CLOSURE_MODE), 0);
  EXPECT_FALSE(scena.press("X\"0000200002\"13F").contains("AZZERAMENTO")) << "there was nothing to close";
}

TEST(StatoDaiTasti, RapportiELettureSiVedonoDalPcEIlTastoCRiporta) {
  KeyboardScene scena;
  Library libreria;
  const auto stato = [&] {
    EXPECT_EQ(libreria.command(scena.till.address(), ECR_INFO_MODE), 0);
    return libreria.reply.split(',').value(10);
  };
  EXPECT_EQ(stato(), "STATO=I");
  scena.send("x");
  EXPECT_EQ(stato(), "STATO=L");
  scena.send("z");
  EXPECT_EQ(stato(), "STATO=A");
  scena.send("c");
  EXPECT_EQ(stato(), "STATO=I");
  scena.till->state('A');
  scena.send("c");
  EXPECT_EQ(stato(), "STATO=V") << "a till that was left at its zeroing";
  scena.till->state('P');
  scena.send("1R");
  EXPECT_TRUE(scena.till->error());
}
