// A seeded day, dumped by the console and read back by words alone, comes to what the till counted and to
// what the program receives as its sales. And a dump that goes wrong, at each of its phases.

#include <gtest/gtest.h>

#include <QtEndian>
#include <map>

#include "articles/article_database.h"
#include "auxcmd/channel.h"
#include "auxcmd/console_scene.h"
#include "sales/Form_RicezioneVenduto.h"
#include "sostegno/test_till.h"
#include "sostegno/troubles.h"

namespace {

const QString kAvvia = QStringLiteral("Cmd_Avvia");
const QString kEsci = QStringLiteral("Cmd_Esci");
const QByteArray kFine(46, '@');
/// Bytes of the three head lines of a journal.
constexpr qsizetype kTesta = 56;
constexpr const char* kGiornale = "vkOptionButton_DGFE";
constexpr const char* kMemoria = "vkOptionButton_MF";

struct Articolo {
  int posto;
  const char* nome;
  std::int32_t prezzo;
};

const std::vector<Articolo> kTre{{0, "PANE", 150}, {7, "LATTE", 139}, {4999, "SALE", 45}};

/// The till's plu.bin with these articles: 48 bytes each, the name first, the price behind 27.
QByteArray archivio(const std::vector<Articolo>& articoli) {
  QByteArray byte(240000, '\0');
  for (const Articolo& uno : articoli) {
    const QByteArray nome = uno.nome;
    byte.replace(uno.posto * 48, nome.size(), nome);
    qToLittleEndian(uno.prezzo, byte.data() + uno.posto * 48 + 27);
  }
  return byte;
}

std::int64_t centesimi(QByteArray importo) {
  EXPECT_EQ(importo.indexOf(','), importo.size() - 3) << importo.constData();
  return importo.replace(",", "").replace(".", "").toLongLong();
}

/// Amount, pieces and discount of one article.
struct Venduto {
  std::int64_t importo = 0;
  std::int64_t pezzi = 0;
  std::int64_t sconto = 0;
  bool operator==(const Venduto&) const = default;
};

void PrintTo(const Venduto& uno, std::ostream* output) {
  *output << uno.importo << ' ' << uno.pezzi << ' ' << uno.sconto;
}

struct Letto {
  std::map<QByteArray, Venduto> articoli;
  std::int64_t totale = 0;
  std::int64_t contanti = 0;
  int scontrini = 0;
};

/// What stands between the three head lines and the run of "@", with or without the blanks that a network
/// adds.
QByteArray corpo(const QByteArray& file) {
  EXPECT_TRUE(file.endsWith(kFine));
  qsizetype inizio = 0;
  for (int riga = 0; riga < 3; ++riga) inizio = file.indexOf("\r\n", inizio) + 2;
  qsizetype fine = file.size();
  while (fine > inizio && (file[fine - 1] == '@' || file[fine - 1] == ' ')) --fine;
  return file.mid(inizio, fine - inizio);
}

/// The paper of a journal, read as a person reads it: nothing here knows how till or program keep it.
Letto leggi(const QByteArray& dump) {
  Letto letto;
  QByteArray nome;
  std::int64_t pezzi = 1;
  for (const QByteArray& riga : corpo(dump).split('\n')) {
    const QByteArrayList parole = riga.simplified().split(' ');
    const QByteArray& prima = parole.first();
    if (parole.size() == 3 && parole[1] == "x") {
      pezzi = prima.toLongLong();
    } else if (prima == "SCONTO") {
      letto.articoli[nome].sconto -= centesimi(parole.last());
    } else if (prima == "TOTALE") {
      letto.totale += centesimi(parole.last());
      ++letto.scontrini;
    } else if (prima == "CONTANTI") {
      letto.contanti += centesimi(parole.last());
    } else if (prima == "PANE" || prima == "LATTE" || prima == "SALE") {
      nome = prima;
      letto.articoli[nome].importo += centesimi(parole.last());
      letto.articoli[nome].pezzi += std::exchange(pezzi, 1);
    }
  }
  return letto;
}

/// What follows a caption on the only line of a dump that begins with it.
QByteArray dietro(const QByteArray& didascalia, const QByteArray& dump) {
  QByteArrayList trovate;
  for (const QByteArray& riga : corpo(dump).split('\n'))
    if (riga.startsWith(didascalia)) trovate << riga.mid(didascalia.size()).trimmed();
  EXPECT_EQ(trovate.size(), 1) << didascalia.constData();
  return trovate.value(0);
}

/// A counter of venduto.bin: series 0 amounts, 1 pieces, 2 discounts.
std::int64_t contatore(const QByteArray& venduto, int serie, int posto) {
  return qFromLittleEndian<std::int32_t>(venduto.constData() + (serie * 5000 + posto) * 4);
}

class DumpDallaConsole : public ConsoleScene {
 protected:
  DumpDallaConsole() {
    cassa.put(QStringLiteral("plu.bin"), archivio(kTre));
    EXPECT_TRUE(QDir().mkpath(app(QStringLiteral("Porte"))));
    cassa->openSerial(app(QStringLiteral("Porte/COM3")).toStdString());
  }
  ~DumpDallaConsole() override { program.screens.scaricaTutte(); }

  GuidedScreen collegata(bool rete) {
    if (rete) return networkConsole(cassa.address());
    GuidedScreen schermo = console();
    pick(schermo, "cboPort", QStringLiteral("COM  3"));
    pick(schermo, "Combo2", QStringLiteral("19200"));
    return schermo;
  }
  /// The file that a dump of the whole record makes.
  QByteArray scarica(const GuidedScreen& schermo, const char* fonte, const QString& nome) {
    picks(schermo, {"vkOptionButton_Rx_PRG", fonte, "vkOptionButtonGlobale"});
    schermo.click(kAvvia);
    expectBoxes(program, {});
    EXPECT_EQ(foot(schermo),
              QStringLiteral("Letto nel file %1: uscire con Esci/Visualizza File per vederlo").arg(nome));
    return read(nome);
  }
  void esci(const GuidedScreen& schermo) {
    program.user.answers(Answer::Cancel);
    schermo.click(kEsci);
    EXPECT_FALSE(schermo.alive());
    program.takeBoxes();
  }
  /// Receives the sales into a new archive, on the screen that does so.
  std::map<int, Venduto> ricevi() {
    program.screens.registra<Form_RicezioneVenduto>();
    program.screens.registra(QStringLiteral("Form_GestioneMMC"), [](Contesto&) { return new QWidget; });
    program.contesto.cartella = QStringLiteral(GESTIONALE_APP);
    articles::NuovoDatabase(program.folder.file(QStringLiteral("archivio.mdb")), program.contesto);
    program.contesto.cartella = cartella_.path();
    const GuidedScreen schermo(program, QStringLiteral("Form_RicezioneVenduto"));
    schermo.connectTo(cassa);
    schermo.click(kAvvia);
    expectBoxes(program, {box(QStringLiteral("ARCHIVIO DEL VENDUTO RICEVUTO E AZZERATO CORRETTAMENTE SULLA "
                                             "CASSA"),
                              Icon::Warning)});
    schermo.click(kEsci);
    std::map<int, Venduto> righe;
    store::Recordset venduto = varGlobal().DB_Articoli.OpenRecordset(
        u"SELECT id_plu,Importo_giornaliero,Tot_giorn_articoli_venduti,sconto_giornaliero from TAB_VENDUTO");
    for (; !venduto.atEnd(); venduto.MoveNext())
      righe[static_cast<int>(venduto.int64(0))] = {venduto.int64(1), venduto.int64(2), venduto.int64(3)};
    return righe;
  }

  TestTill cassa;
};

class GiornataScaricata : public DumpDallaConsole, public testing::WithParamInterface<bool> {};

class DumpTroncato : public DumpDallaConsole, public testing::WithParamInterface<ecrsim::FaultKind> {
 protected:
  void SetUp() override {
    cassa->salesDay(20, 5);
    cassa->faults({{.mode = ecrsim::kKeySequences, .file = ecrsim::kDumpSequence, .what = GetParam()}});
  }
  /// What the till has to say for a whole dump, without the run that ends it.
  QByteArray intero() { return QByteArray::fromStdString(cassa->press("X\"000101991201\"10F")).chopped(46); }
};

}  // namespace

TEST_P(GiornataScaricata, TornaConIContatoriDellaCassaEConIlVendutoRicevuto) {
  constexpr int kScontrini = 400;
  const std::int64_t incasso = cassa->salesDay(kScontrini, 77);
  const QByteArray contatori = cassa.byte(QStringLiteral("venduto.bin"));
  ASSERT_EQ(contatori.size(), 60000);
  const GuidedScreen prima = collegata(GetParam());
  const Letto letto = leggi(scarica(prima, kGiornale, QStringLiteral("DGFE_07032024_090501.txt")));
  picks(prima, {"vkOptionButton_RX_STATO_ECR"});
  prima.click(kAvvia);
  {
    const GuidedScreen stato(*program.screens.trova(QStringLiteral("Form_STATO_ECR")));
    EXPECT_EQ(stato.text(QStringLiteral("vkTextBox_Num_Scontr_F")), QStringLiteral("000400"));
  }
  esci(prima);

  const std::map<int, Venduto> ricevuto = ricevi();
  std::int64_t lordo = 0;
  std::int64_t sconti = 0;
  for (const Articolo& uno : kTre) {
    const Venduto& stampato = letto.articoli.at(uno.nome);
    EXPECT_EQ(stampato, (Venduto{contatore(contatori, 0, uno.posto), contatore(contatori, 1, uno.posto),
                                 contatore(contatori, 2, uno.posto)}))
        << uno.nome;
    EXPECT_EQ(stampato, ricevuto.at(uno.posto + 1)) << uno.nome;
    lordo += stampato.importo;
    sconti += stampato.sconto;
  }
  EXPECT_EQ(ricevuto.size(), kTre.size());
  EXPECT_EQ(letto.articoli.size(), kTre.size());
  EXPECT_EQ(letto.scontrini, kScontrini);
  EXPECT_EQ(lordo, incasso);
  EXPECT_GT(sconti, 0);
  EXPECT_EQ(letto.totale, incasso - sconti);
  EXPECT_EQ(letto.contanti, letto.totale);

  ASSERT_TRUE(cassa->closeDay());
  const GuidedScreen dopo = collegata(GetParam());
  const QByteArray memoria = scarica(dopo, kMemoria, QStringLiteral("MF_07032024_090501.txt"));
  EXPECT_EQ(centesimi(dietro("CORRISPETTIVI", memoria)), letto.totale);
  EXPECT_EQ(centesimi(dietro("TOTALE GENERALE", memoria)), letto.totale);
  EXPECT_EQ(dietro("SCONTRINI FISCALI", memoria), QByteArray("400"));
  esci(dopo);
}

INSTANTIATE_TEST_SUITE_P(Su, GiornataScaricata, testing::Bool(), [](const auto& una) {
  return una.param ? std::string("LaRete") : std::string("LaPorta");
});

TEST_F(DumpDallaConsole, SullaReteESullaPortaIlGiornaleELoStesso) {
  cassa->salesDay(60, 3);
  const GuidedScreen inRete = collegata(true);
  const QByteArray diRete = scarica(inRete, kGiornale, QStringLiteral("DGFE_07032024_090501.txt"));
  esci(inRete);
  program.clock.set(QDateTime(QDate(2024, 3, 7), QTime(9, 5, 2)));
  const GuidedScreen inSeriale = collegata(false);
  const QByteArray diPorta = scarica(inSeriale, kGiornale, QStringLiteral("DGFE_07032024_090502.txt"));
  esci(inSeriale);
  EXPECT_GT(corpo(diRete).size(), 5000);
  // On the line the till gives the command back before it prints.
  EXPECT_EQ(corpo(diPorta), "X\"000101991201\"10F\r\n" + corpo(diRete));
}

TEST_P(DumpTroncato, InReteLoDiceETieneQuelloCheEArrivato) {
  const QByteArray tutto = intero();
  const GuidedScreen schermo = collegata(true);
  picks(schermo, {"vkOptionButton_Rx_PRG", kGiornale, "vkOptionButtonGlobale"});
  schermo.click(kAvvia);
  expectBoxes(program, {criticalBox(QStringLiteral(
                           "Errore nella comunicazione con ECR: Collegamento con la cassa interrotto"))});
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  const QByteArray file = read(QStringLiteral("DGFE_07032024_090501.txt"));
  EXPECT_FALSE(file.endsWith(kFine));
  qsizetype testa = 0;
  for (int riga = 0; riga < 3; ++riga) testa = file.indexOf("\r\n", testa) + 2;
  EXPECT_EQ((file.size() - testa) % 1024, 0) << "whole blocks";
  QByteArray arrivato = file.mid(testa);
  while (arrivato.endsWith(' ') || arrivato.endsWith('@')) arrivato.chop(1);
  EXPECT_FALSE(arrivato.isEmpty());
  EXPECT_TRUE(tutto.startsWith(arrivato));
  esci(schermo);
}

TEST_P(DumpTroncato, InSerialeLoChiudeLaPersonaESiVaAlMenu) {
  const QByteArray tutto = "X\"000101991201\"10F\r\n" + intero();
  const GuidedScreen schermo = collegata(false);
  picks(schermo, {"vkOptionButton_Rx_PRG", kGiornale, "vkOptionButtonGlobale"});
  // Nothing ends such a dump by itself: who has seen enough closes the box.
  const QString nome = QStringLiteral("DGFE_07032024_090501.txt");
  steps.when(
      [&] { return open("Form_ATTESA_MF_DGFE") && QFile::exists(app(nome)) && read(nome).size() > kTesta; },
      [&] { program.screens.trova(QStringLiteral("Form_ATTESA_MF_DGFE"))->close(); });
  schermo.click(kAvvia);
  EXPECT_FALSE(schermo.alive());
  EXPECT_FALSE(open("Form_ATTESA_MF_DGFE"));
  EXPECT_EQ(menusShown, 1);
  expectBoxes(program, {});
  const QByteArray file = read(nome);
  EXPECT_FALSE(file.endsWith(kFine));
  EXPECT_TRUE((tutto + kFine).contains(file.mid(file.indexOf('X'))));
}

INSTANTIATE_TEST_SUITE_P(Nella, DumpTroncato,
                         testing::Values(ecrsim::FaultKind::CutHead, ecrsim::FaultKind::CutWithin,
                                         ecrsim::FaultKind::CutMarker),
                         [](const auto& una) -> std::string {
                           if (una.param == ecrsim::FaultKind::CutHead) return "Testa";
                           return una.param == ecrsim::FaultKind::CutWithin ? "MezzaCarta" : "Fine";
                         });

TEST_F(DumpDallaConsole, InReteUnDiscoPienoSiDiceUnaVoltaERidaIComandi) {
  cassa->salesDay(60, 3);
  const GuidedScreen schermo = collegata(true);
  picks(schermo, {"vkOptionButton_Rx_PRG", kGiornale, "vkOptionButtonGlobale"});
  {
    const FullDisk pieno(4096);
    schermo.click(kAvvia);
  }
  expectBoxes(program, {criticalBox(QStringLiteral("Errore sulla porta COM: *"))});
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_EQ(read(QStringLiteral("DGFE_07032024_090501.txt")).size(), 4096);
  for (const char* spia : {"LedDati", "LedDati2"})
    EXPECT_EQ(schermo.control(spia).property("colore").value<QColor>(), QColor(0x40, 0x40, 0x40)) << spia;
  esci(schermo);
}

TEST_F(DumpDallaConsole, SeNemmenoLaTestaCiStaNonSiChiedeNullaAllaCassa) {
  KeysTill muta;
  const GuidedScreen schermo = networkConsole(muta.address());
  picks(schermo, {"vkOptionButton_Rx_PRG", kMemoria, "vkOptionButtonGlobale"});
  {
    const FullDisk pieno(10);
    schermo.click(kAvvia);
  }
  expectBoxes(program, {criticalBox(QStringLiteral("Errore sulla porta COM: *"))});
  EXPECT_EQ(muta.sequences(), QStringList());
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  program.screens.scaricaTutte();
}
