// Each canned sequence, sent from its screen to a till that sells, does there what its caption promises. The
// bytes themselves are looked at in test_bench_test.cpp.

#include <gtest/gtest.h>

#include <QRadioButton>
#include <QTest>
#include <mutex>

#include "auxcmd/channel.h"
#include "auxcmd/console_scene.h"
#include "devices/keyboard_scene.h"

namespace {

struct Promessa {
  const char* nome;
  const char* schermata;
  int opzione;
  /// What an operator has pressed before it.
  const char* prima;
  /// Lines of paper that its caption promises, in their order.
  QByteArrayList carta;
  /// What the display shows at last; empty where that is not promised.
  QByteArray display{};
};
void PrintTo(const Promessa& promessa, std::ostream* output) {
  *output << promessa.nome;
}

constexpr const char* kVendita = "Form_TestVendita";
constexpr const char* kModificatori = "Form_TestModificatori";
constexpr const char* kPagamento = "Form_TestPagamento";
constexpr const char* kUtilita = "Form_TestUtilità";
constexpr const char* kUnoScontrino = "1R1T";
const QByteArray kPronta = "CASSA PRONTA";
const QByteArray kNonFiscale = centrata("*** NON FISCALE ***");

const std::vector<Promessa> kPromesse{
    {"Vendita1", kVendita, 1, "", {riga("ALIMENTARI", "1,50")}},
    {"Vendita2", kVendita, 2, "", {riga("PROVA", "8,00")}},
    {"Vendita3", kVendita, 3, "", {riga("PROVA", "1,23")}},
    {"Vendita4", kVendita, 4, "", {riga("PANE", "1,80")}},
    {"Vendita5", kVendita, 5, "", {riga("ART", "1,80")}},
    {"Vendita6", kVendita, 6, "", {riga("ART", "2,34")}},
    {"Vendita7", kVendita, 7, "", {"  10 x 1,39", riga("LATTE", "13,90")}},
    // Its caption says code 4, which is ham: apples are code 10.
    {"Vendita8", kVendita, 8, "", {"  4,5 x 2,10", riga("MELE", "9,45")}},
    {"Vendita9", kVendita, 9, "", {"  1 x 1,00", riga("ALIMENTARI", "1,00")}},
    {"Vendita10", kVendita, 10, "", {riga("SUBTOTALE", "1,00")}, "SUBTOTALE       1,00"},
    {"Vendita11", kVendita, 11, "", {riga("ALIMENTARI", "1,00"), "COD. 1234567890"}},
    {"Vendita12", kVendita, 12, "", {}, "OPERATORE          3"},
    {"Vendita13", kVendita, 13, "", {riga("ALIMENTARI", "1,00"), "PROMOZIONE"}},
    {"Vendita14", kVendita, 14, "", {kNonFiscale, "PROVA", kNonFiscale}, kPronta},
    {"Modificatori0", kModificatori, 0, "100H2R", {"STORNO", riga("BEVANDE", "-1,00")}},
    {"Modificatori1", kModificatori, 1, "", {riga("BEVANDE", "2,00"), riga("SCONTO 10,00%", "-0,20")}},
    {"Modificatori2",
     kModificatori,
     2,
     "1000H1R",
     {riga("SUBTOTALE", "10,00"), riga("SCONTO 5,25%", "-0,53")}},
    {"Modificatori3", kModificatori, 3, "", {riga("FRUTTA", "2,50"), riga("SCONTO", "-0,50")}},
    {"Modificatori4", kModificatori, 4, "200H1R", {riga("SUBTOTALE", "2,00"), riga("SCONTO", "-0,25")}},
    {"Modificatori5", kModificatori, 5, "", {riga("FRUTTA", "2,00"), riga("MAGGIORAZIONE 10,00%", "0,20")}},
    {"Modificatori6",
     kModificatori,
     6,
     "200H1R",
     {riga("SUBTOTALE", "2,00"), riga("MAGGIORAZIONE 10,00%", "0,20")}},
    {"Modificatori7", kModificatori, 7, "", {riga("REPARTO 4", "1,23"), riga("MAGGIORAZIONE", "0,40")}},
    {"Modificatori8", kModificatori, 8, "200H1R", {riga("SUBTOTALE", "2,00"), riga("MAGGIORAZIONE", "0,35")}},
    {"Modificatori9", kModificatori, 9, "", {"RESO", riga("ALIMENTARI", "-1,00")}},
    {"Modificatori10", kModificatori, 10, "", {centrata("VERSAMENTO IN CASSA"), riga("CONTANTI", "0,10")}},
    {"Modificatori11", kModificatori, 11, "", {centrata("PRELIEVO DA CASSA"), riga("ASSEGNI", "-0,20")}},
    {"Modificatori12", kModificatori, 12, "", {riga("TOTALE EURO", "1,00"), riga("CONTANTI", "1,00")}},
    {"Pagamento1", kPagamento, 1, "1000H1R", {riga("TOTALE EURO", "10,00"), riga("CONTANTI", "10,00")}},
    {"Pagamento2", kPagamento, 2, "1000H1R", {riga("TOTALE EURO", "10,00"), riga("ASSEGNI", "10,00")}},
    {"Pagamento3", kPagamento, 3, "750H1R", {riga("TOTALE EURO", "7,50"), riga("CARTA DI CREDITO", "7,50")}},
    {"Pagamento4", kPagamento, 4, "1000H1R", {riga("TOTALE EURO", "10,00"), riga("TICKET", "10,00")}},
    {"Pagamento5", kPagamento, 5, "750H1R", {riga("TOTALE EURO", "7,50"), riga("CREDITO", "7,50")}},
    {"Utilita1", kUtilita, 1, kUnoScontrino, {centrata("CHIUSURA FISCALE")}, kPronta},
    {"Utilita2",
     kUtilita,
     2,
     kUnoScontrino,
     {centrata("LETTURA GIORNALIERA"), riga("CORRISPETTIVI", "1,50")},
     kPronta},
    {"Utilita3",
     kUtilita,
     3,
     kUnoScontrino,
     {centrata("LETTURA REPARTI"), riga("TOTALE REPARTI", "1,50")},
     kPronta},
    {"Utilita4",
     kUtilita,
     4,
     kUnoScontrino,
     {centrata("AZZERAMENTO REPARTI"), riga("TOTALE REPARTI", "1,50")},
     kPronta},
    {"Utilita5",
     kUtilita,
     5,
     kUnoScontrino,
     {centrata("LETTURA FINANZIARIA"), riga("CONTANTI", "1,50")},
     kPronta},
    {"Utilita6",
     kUtilita,
     6,
     kUnoScontrino,
     {centrata("AZZERAMENTO FINANZIARIO"), riga("CONTANTI", "1,50")},
     kPronta},
    {"Utilita7",
     kUtilita,
     7,
     kUnoScontrino,
     {centrata("LETTURA OPERATORI"), riga("TOTALE OPERATORI", "1,50")},
     kPronta},
    // Its caption says operators.
    {"Utilita8",
     kUtilita,
     8,
     kUnoScontrino,
     {centrata("AZZERAMENTO FINANZIARIO"), riga("CONTANTI", "1,50")},
     kPronta},
    {"Utilita9",
     kUtilita,
     9,
     kUnoScontrino,
     {centrata("AZZERAMENTO REPARTI"), centrata("CHIUSURA FISCALE")},
     kPronta},
    {"Utilita10",
     kUtilita,
     10,
     kUnoScontrino,
     {centrata("AZZERAMENTO IVA"), centrata("CHIUSURA FISCALE")},
     kPronta},
    {"Utilita11",
     kUtilita,
     11,
     kUnoScontrino,
     {centrata("AZZERAMENTO REPARTI"), centrata("AZZERAMENTO IVA"), centrata("CHIUSURA FISCALE")},
     kPronta},
    {"Utilita12", kUtilita, 12, "1R", {}, "P.IVA CLIENTE"},
    {"Utilita13",
     kUtilita,
     13,
     "",
     {riga("OCCHIALI DA VISTA", "123,00"), riga("TOTALE EURO", "123,00"), riga("CONTANTI", "123,00"),
      "C.F. CLIENTE BNCLRA80A41F205K"}},
};

/// Whether the lines stand on the paper in this order, whatever stands between them.
bool inOrdine(const QByteArrayList& attese, const QByteArrayList& carta) {
  qsizetype prossima = 0;
  for (const QByteArray& una : carta)
    if (prossima < attese.size() && una == attese[prossima]) ++prossima;
  return prossima == attese.size();
}

/// The upper line of a till's display.
class UpperLine {
 public:
  void show(const std::string& upper) {
    const std::lock_guard alone(mutex_);
    text_ = QByteArray::fromStdString(upper).trimmed();
  }
  QByteArray text() const {
    const std::lock_guard alone(mutex_);
    return text_;
  }

 private:
  mutable std::mutex mutex_;
  QByteArray text_;
};

/// The console and its bench before a till that sells.
class BancoECassa : public ConsoleScene {
 protected:
  BancoECassa() {
    programTill(cassa);
    EXPECT_TRUE(QDir().mkpath(app(QStringLiteral("Porte"))));
    cassa->openSerial(app(QStringLiteral("Porte/COM3")).toStdString());
  }
  /// Before the till and its paper go.
  ~BancoECassa() override { program.screens.scaricaTutte(); }

  GuidedScreen collegata(Line linea) {
    if (linea == Line::Network) return networkConsole(cassa.address());
    GuidedScreen schermo = console();
    pick(schermo, "cboPort", QStringLiteral("COM  3"));
    return schermo;
  }
  /// Sends one option; the wait on the serial line ends once `arrivata`, long before its time.
  void manda(const char* schermata, int opzione, const std::function<bool()>& arrivata) {
    const GuidedScreen schermo(program, QString::fromUtf8(schermata));
    auto& bottone = schermo.control<QRadioButton>(QStringLiteral("vkOptionButtonTest_%1").arg(opzione));
    QTest::mouseClick(&bottone, Qt::LeftButton, Qt::NoModifier, QPoint(8, bottone.height() / 2));
    passi.when(arrivata, [] { varGlobal().FlagRisposta = auxcmd::kTempoScaduto; });
    schermo.click(QStringLiteral("Cmd_Avvio"));
  }

  PaperRoll carta;
  UpperLine display;
  TestTill cassa{[this] {
    ecrsim::Options opzioni;
    opzioni.watcher.paper = [this](const std::string& line) { carta.print(line); };
    opzioni.watcher.display = [this](const std::string& upper, const std::string&) { display.show(upper); };
    return opzioni;
  }()};
  Steps passi;
};

class CartaDelBanco : public BancoECassa, public testing::WithParamInterface<std::tuple<Line, Promessa>> {};

class RifiutoDelBanco : public BancoECassa, public testing::WithParamInterface<Line> {};

}  // namespace

TEST_P(CartaDelBanco, MostraCioCheLaDidascaliaPromette) {
  const Promessa& promessa = std::get<Promessa>(GetParam());
  const GuidedScreen console = collegata(std::get<Line>(GetParam()));
  cassa->press(promessa.prima);
  carta.tearOff();
  manda(promessa.schermata, promessa.opzione, [&] {
    return inOrdine(promessa.carta, carta.lines()) &&
           (promessa.display.isEmpty() || display.text() == promessa.display);
  });
  EXPECT_TRUE(inOrdine(promessa.carta, carta.lines())) << carta.lines().join('\n').constData();
  if (!promessa.display.isEmpty()) {
    EXPECT_EQ(display.text(), promessa.display);
  }
  EXPECT_FALSE(cassa->error());
  expectBoxes(program, {});
}

const auto kNomi = [](const auto& una) { return std::string(std::get<1>(una.param).nome); };
INSTANTIATE_TEST_SUITE_P(InRete, CartaDelBanco,
                         testing::Combine(testing::Values(Line::Network), testing::ValuesIn(kPromesse)),
                         kNomi);
INSTANTIATE_TEST_SUITE_P(InSeriale, CartaDelBanco,
                         testing::Combine(testing::Values(Line::Serial), testing::ValuesIn(kPromesse)),
                         kNomi);

TEST_P(RifiutoDelBanco, UnaSequenzaRifiutataSiVedeSoloSullaCassa) {
  const GuidedScreen console = collegata(GetParam());
  // There is no receipt that could be paid.
  manda(kPagamento, 3, [this] { return cassa->error(); });
  EXPECT_TRUE(cassa->error());
  EXPECT_EQ(carta.lines(), QByteArrayList());
  expectBoxes(program, {});
}

INSTANTIATE_TEST_SUITE_P(Di, RifiutoDelBanco, testing::Values(Line::Network, Line::Serial),
                         [](const auto& una) { return una.param == Line::Network ? "InRete" : "InSeriale"; });
