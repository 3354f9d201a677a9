#include <gtest/gtest.h>

#include "devices/keyboard_scene.h"

namespace {

/// A sequence of the test bench, what is pressed before it, and the paper that its caption promises.
struct Sequenza {
  const char* nome;
  const char* prima;
  const char* tasti;
  QByteArrayList carta;
};
void PrintTo(const Sequenza& una, std::ostream* uscita) {
  *uscita << una.nome;
}

const QByteArray kNonFiscale = centrata("*** NON FISCALE ***");
const QByteArrayList kVenduto{riga("ALIMENTARI", "1,50")};

const std::vector<Sequenza> kVendita{
    {"Vendita1", "", "1R", kVenduto},
    {"Vendita2", "", "\"PROVA\"8R", {riga("PROVA", "8,00")}},
    {"Vendita3", "", "\"PROVA\"123H7R", {riga("PROVA", "1,23")}},
    {"Vendita4", "", "8P", {riga("PANE", "1,80")}},
    {"Vendita5", "", "\"ART\"8P", {riga("ART", "1,80")}},
    {"Vendita6", "", "\"ART\"234H4P", {riga("ART", "2,34")}},
    {"Vendita7", "", "10*2P", {"  10 x 1,39", riga("LATTE", "13,90")}},
    // The caption says code 4.
    {"Vendita8", "", "4,5*10P", {"  4,5 x 2,10", riga("MELE", "9,45")}},
    {"Vendita9", "", "G100H1R", {"  1 x 1,00", riga("ALIMENTARI", "1,00")}},
    {"Vendita10", "", "100H1R=", {riga("ALIMENTARI", "1,00"), riga("SUBTOTALE", "1,00")}},
    {"Vendita11", "", "100H1R1234567890#", {riga("ALIMENTARI", "1,00"), "COD. 1234567890"}},
    {"Vendita12", "", "3O", {}},
    {"Vendita13", "", "100H1R\"PROMOZIONE\"@", {riga("ALIMENTARI", "1,00"), "PROMOZIONE"}},
    {"Vendita14", "", "j\"PROVA\"@J", QByteArrayList{kNonFiscale, "PROVA", kNonFiscale} + piede("SG 000001")},
};

const std::vector<Sequenza> kModificatori{
    {"Modificatori0", "300H2R", "0M100H2R", {"STORNO", riga("BEVANDE", "-1,00")}},
    {"Modificatori1", "", "200H2R10,00*1M", {riga("BEVANDE", "2,00"), riga("SCONTO 10,00%", "-0,20")}},
    {"Modificatori2", "1000H1R", "5,25*2M", {riga("SUBTOTALE", "10,00"), riga("SCONTO 5,25%", "-0,53")}},
    {"Modificatori3", "", "250H3R50H3M", {riga("FRUTTA", "2,50"), riga("SCONTO", "-0,50")}},
    {"Modificatori4", "200H1R", "25H4M", {riga("SUBTOTALE", "2,00"), riga("SCONTO", "-0,25")}},
    {"Modificatori5", "", "200H3R10,00*5M", {riga("FRUTTA", "2,00"), riga("MAGGIORAZIONE 10,00%", "0,20")}},
    {"Modificatori6",
     "200H1R",
     "10,00*6M",
     {riga("SUBTOTALE", "2,00"), riga("MAGGIORAZIONE 10,00%", "0,20")}},
    {"Modificatori7", "", "123H4R40H7M", {riga("REPARTO 4", "1,23"), riga("MAGGIORAZIONE", "0,40")}},
    {"Modificatori8", "200H1R", "35H8M", {riga("SUBTOTALE", "2,00"), riga("MAGGIORAZIONE", "0,35")}},
    {"Modificatori9", "", "9M100H1R", {"RESO", riga("ALIMENTARI", "-1,00")}},
    {"Modificatori10", "", "10M10H1T",
     QByteArrayList{centrata("VERSAMENTO IN CASSA"), riga("CONTANTI", "0,10")} + piede("SG 000001")},
    {"Modificatori11", "", "11M20H2T",
     QByteArrayList{centrata("PRELIEVO DA CASSA"), riga("ASSEGNI", "-0,20")} + piede("SG 000001")},
    {"Modificatori12", "", "1,00H1R12M",
     QByteArrayList{riga("ALIMENTARI", "1,00"), riga("TOTALE EURO", "1,00"), riga("CONTANTI", "1,00")} +
         piede("SF 000001")},
};

const std::vector<Sequenza> kPagamento{
    {"Pagamento1", "750H1R", "1000H1T",
     QByteArrayList{riga("TOTALE EURO", "7,50"), riga("CONTANTI", "10,00"), riga("RESTO", "2,50")} +
         piede("SF 000001")},
    {"Pagamento2", "750H1R", "1000H2T",
     QByteArrayList{riga("TOTALE EURO", "7,50"), riga("ASSEGNI", "10,00"), riga("RESTO", "2,50")} +
         piede("SF 000001")},
    {"Pagamento3", "750H1R", "3T",
     QByteArrayList{riga("TOTALE EURO", "7,50"), riga("CARTA DI CREDITO", "7,50")} + piede("SF 000001")},
    {"Pagamento4", "750H1R", "1000H4T",
     QByteArrayList{riga("TOTALE EURO", "7,50"), riga("TICKET", "10,00"), riga("RESTO", "2,50")} +
         piede("SF 000001")},
    {"Pagamento5", "750H1R", "5T",
     QByteArrayList{riga("TOTALE EURO", "7,50"), riga("CREDITO", "7,50")} + piede("SF 000001")},
};

/// What a day of one receipt of 1,50 comes to.
QByteArrayList giornata(const QByteArray& nonFiscali) {
  return {riga("SCONTRINI FISCALI", "1"), riga("SCONTRINI NON FISCALI", nonFiscali),
          riga("CORRISPETTIVI", "1,50"),  riga("SCONTI", "0,00"),
          riga("MAGGIORAZIONI", "0,00"),  riga("RESI", "0,00"),
          riga("STORNI", "0,00")};
}

QByteArrayList chiusura(const QByteArray& nonFiscali) {
  return QByteArrayList{centrata("CHIUSURA FISCALE")} + giornata(nonFiscali) +
         QByteArrayList{riga("AZZERAMENTO N. 0001", "22/11/2026 10:15"), riga("SCONTRINI FISCALI", "1"),
                        riga("CORRISPETTIVI", "1,50"), riga("TOTALE GENERALE", "1,50")} +
         piede("AZ 000001");
}

QByteArrayList reparti(const char* titolo) {
  return QByteArrayList{centrata(titolo), "REP. 1 ALIMENTARI", riga("  1", "1,50"),
                        riga("TOTALE REPARTI", "1,50")} +
         piede("SG 000001");
}

QByteArrayList finanziario(const char* titolo) {
  return QByteArrayList{centrata(titolo),
                        riga("CONTANTI", "1,50"),
                        riga("ASSEGNI", "0,00"),
                        riga("CARTA DI CREDITO", "0,00"),
                        riga("TICKET", "0,00"),
                        riga("CREDITO", "0,00"),
                        riga("CONTANTI IN CASSA", "1,50")} +
         piede("SG 000001");
}

QByteArrayList imposta(const char* numero) {
  return QByteArrayList{centrata("AZZERAMENTO IVA"), riga("IVA 1 22,00%", "1,50"), riga("  IMPOSTA", "0,27"),
                        riga("TOTALE IVA COMPRESA", "1,50")} +
         piede(numero);
}

constexpr const char* kUnoScontrino = "1R1T";

const std::vector<Sequenza> kUtilita{
    {"Utilita1", kUnoScontrino, "z1Fc", chiusura("0")},
    {"Utilita2", kUnoScontrino, "x1Fc",
     QByteArrayList{centrata("LETTURA GIORNALIERA")} + giornata("0") + piede("SG 000001")},
    {"Utilita3", kUnoScontrino, "x2Fc", reparti("LETTURA REPARTI")},
    {"Utilita4", kUnoScontrino, "z2Fc", reparti("AZZERAMENTO REPARTI")},
    {"Utilita5", kUnoScontrino, "x3Fc", finanziario("LETTURA FINANZIARIA")},
    {"Utilita6", kUnoScontrino, "z3Fc", finanziario("AZZERAMENTO FINANZIARIO")},
    {"Utilita7", kUnoScontrino, "x4Fc",
     QByteArrayList{centrata("LETTURA OPERATORI"), "OPERATORE 1 ", riga("  SCONTRINI 1", "1,50"),
                    riga("TOTALE OPERATORI", "1,50")} +
         piede("SG 000001")},
    // The caption says operators.
    {"Utilita8", kUnoScontrino, "z3Fc", finanziario("AZZERAMENTO FINANZIARIO")},
    {"Utilita9", kUnoScontrino, "z5Fc", reparti("AZZERAMENTO REPARTI") + chiusura("1")},
    {"Utilita10", kUnoScontrino, "z6Fc", imposta("SG 000001") + chiusura("1")},
    {"Utilita11", kUnoScontrino, "z7Fc",
     reparti("AZZERAMENTO REPARTI") + imposta("SG 000002") + chiusura("2")},
    {"Utilita12", "1R", "\"12345678903\"@39F ", {}},
    {"Utilita13", "", "\"BNCLRA80A41F205K\"@39FG\"OCCHIALI DA VISTA\"12300H1R1T",
     QByteArrayList{"  1 x 123,00", riga("OCCHIALI DA VISTA", "123,00"), riga("TOTALE EURO", "123,00"),
                    riga("CONTANTI", "123,00"), riga("PEZZI", "1"), "C.F. CLIENTE BNCLRA80A41F205K"} +
         piede("SF 000001")},
};

class SequenzeDelBanco : public testing::TestWithParam<std::tuple<Line, Sequenza>> {};

std::string nomeDi(const testing::TestParamInfo<std::tuple<Line, Sequenza>>& una) {
  const bool rete = std::get<0>(una.param) == Line::Network;
  return std::get<1>(una.param).nome + std::string(rete ? "InRete" : "InSeriale");
}

TEST_P(SequenzeDelBanco, FaCioCheLaSuaDidascaliaDice) {
  const auto& [linea, sequenza] = GetParam();
  KeyboardScene scena(linea);
  scena.press(sequenza.prima);
  scena.paper.tearOff();
  scena.send(sequenza.tasti);
  EXPECT_EQ(scena.paper.lines(sequenza.carta), sequenza.carta);
  // What is read back over the same line comes behind the sequence, and shows that the till obeyed.
  scena.send("X89F");
  const QByteArray eco = scena.carrier().echo("X89F");
  EXPECT_EQ(scena.carrier().receive(eco.size() + 39).left(eco.size() + 6), eco + "ECRSIM");
  EXPECT_EQ(scena.paper.lines(), sequenza.carta);
  EXPECT_FALSE(scena.till->error());
}

const auto kLinee = testing::Values(Line::Network, Line::Serial);
INSTANTIATE_TEST_SUITE_P(Vendita, SequenzeDelBanco, testing::Combine(kLinee, testing::ValuesIn(kVendita)),
                         nomeDi);
INSTANTIATE_TEST_SUITE_P(Modificatori, SequenzeDelBanco,
                         testing::Combine(kLinee, testing::ValuesIn(kModificatori)), nomeDi);
INSTANTIATE_TEST_SUITE_P(Pagamento, SequenzeDelBanco, testing::Combine(kLinee, testing::ValuesIn(kPagamento)),
                         nomeDi);
INSTANTIATE_TEST_SUITE_P(Utilita, SequenzeDelBanco, testing::Combine(kLinee, testing::ValuesIn(kUtilita)),
                         nomeDi);

}  // namespace

TEST(SequenzeCheNonStampano, LOperatoreSceltoStaSulloScontrino) {
  KeyboardScene scena;
  scena.send("3O");
  EXPECT_EQ(scena.display.value(0), riga("OPERATORE", "3").remove(9, 20));
  scena.send("1R1T");
  EXPECT_TRUE(scena.paper.lines().contains("OPERATORE 3"));
  scena.send("x4Fc");
  EXPECT_TRUE(scena.paper.lines().contains("OPERATORE 3 "));
}

TEST(SequenzeCheNonStampano, LaPartitaIvaStaSulloScontrinoESoloSuQuello) {
  KeyboardScene scena;
  scena.send("1R");
  scena.send("\"12345678903\"@39F ");
  scena.send("1T");
  EXPECT_EQ(scena.paper.lines().count("P.IVA CLIENTE 12345678903"), 1);
  scena.paper.tearOff();
  scena.send("1R1T");
  EXPECT_EQ(scena.paper.lines().count("P.IVA CLIENTE 12345678903"), 0);
}
