// Two programs that receive in one folder at the same moment: no till is cleared of sales that stand in no
// archive, and the one that finds the folder taken is told and loses nothing.
//
// A short race is part of every run of the tests. A long one:
//   GESTIONALE_GIRI=1000 system_test --gtest_filter='*GaraDiDueFinestre*'
#include <gtest/gtest.h>

#include <QDateTime>
#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QSysInfo>
#include <QTest>
#include <iostream>
#include <thread>

#include "articles/article_database.h"
#include "articles/back_room.h"
#include "sostegno/test_till.h"

namespace {

constexpr int kPazienza = 30000;  // milliseconds
constexpr int kVenduti = 3;
constexpr int kRicevi = 7;
/// The second program of a race starts when the first has asked its till for so much: nothing, the
/// connection's closing, then opening, fetch and closing, then opening and clearing. Each comes in turn.
constexpr int kChiusuraDellaRicezione = 4;
constexpr int kFasi = 8;
/// The last one: rows are written into the archive and not committed.
constexpr int kFaseCarica = kFasi - 1;
/// Rounds in which the two must have met, however busy the machine.
constexpr int kAlPiu = 200;
/// How often a person tries again who found the folder taken.
constexpr int kTentativi = 20;
const QByteArray kZeri(60000, '\0');
const QString kVenduto = QStringLiteral("venduto.bin");
const QString kBlocco = QStringLiteral(".scambio-ecr.lock");

const QStringList kRicevuto{
    QStringLiteral("ARCHIVIO DEL VENDUTO RICEVUTO E AZZERATO CORRETTAMENTE SULLA CASSA")};
const QStringList kArchivioBloccato{
    QStringLiteral("Errore nel caricamento dati nella TAB_VENDUTO n° 3260\n"
                   "Il database è bloccato da un altro programma.")};

QStringList cartellaOccupata(const QString& cartella) {
  return {QStringLiteral("Error 70 (Un altro programma sta scambiando dati con una cassa nella cartella ") +
              cartella +
              QStringLiteral(": attendere che abbia finito e riprovare.) in procedure RiceviFile of Modulo "
                             "CommonForKora"),
          QStringLiteral("Errore nell'invio richiesta dati del venduto")};
}

/// How a reception of another program went: the boxes that its person saw.
struct Ricevuta {
  bool fatta = false;
  QStringList riquadri;
};

/// Another window of the program: a process of its own, in a folder and with an archive and a till.
class Finestra {
 public:
  Finestra(const QString& cartella, const QString& archivio, const QString& cassa) {
    processo_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    processo_.start(QStringLiteral(SECOND_PROGRAM), {cartella, archivio, cassa});
    EXPECT_EQ(riga(), "pronto\n");
  }
  ~Finestra() {
    if (processo_.state() == QProcess::NotRunning) return;
    processo_.closeWriteChannel();
    EXPECT_TRUE(processo_.waitForFinished(kPazienza));
    EXPECT_EQ(processo_.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(processo_.exitCode(), 0);
  }

  void comincia() {
    processo_.write("ricevi\n");
    EXPECT_TRUE(processo_.waitForBytesWritten(kPazienza));
  }
  Ricevuta finisce() {
    const QJsonArray detto = QJsonDocument::fromJson(riga()).array();
    Ricevuta ricevuta{detto.at(0).toBool(), {}};
    for (qsizetype i = 1; i < detto.size(); ++i) ricevuta.riquadri << detto.at(i).toString();
    return ricevuta;
  }
  Ricevuta riceve() {
    comincia();
    return finisce();
  }
  /// As a pulled plug would: it has no word to say.
  void uccidi() {
    processo_.kill();
    EXPECT_TRUE(processo_.waitForFinished(kPazienza));
    EXPECT_EQ(processo_.exitStatus(), QProcess::CrashExit);
  }

 private:
  QByteArray riga() {
    while (!processo_.canReadLine() && processo_.waitForReadyRead(kPazienza)) continue;
    return processo_.readLine();
  }

  QProcess processo_;
};

/// Sales that no other round and no other till has.
std::vector<SlotSales> vendite(int importo) {
  std::vector<SlotSales> tutte;
  for (int i = 0; i < kVenduti; ++i) tutte.push_back({i * 100, importo, 1 + i, 0});
  return tutte;
}

class DueFinestre : public testing::Test {
 protected:
  QString nuovoArchivio(const QString& nome) {
    bottega.openArchive(nome);
    articles::ChiudiDatabase();
    return bottega.folder.file(nome);
  }
  /// Sales rows of an amount.
  int righe(const QString& archivio, int importo) {
    articles::ApriDatabase(archivio, bottega.contesto);
    const int quante =
        bottega.rows(QStringLiteral("SELECT * from TAB_VENDUTO where Importo_giornaliero = %1").arg(importo));
    articles::ChiudiDatabase();
    return quante;
  }
  bool azzerata(const TestTill& cassa) const { return cassa.byte(kVenduto) == kZeri; }
  QString cartella() const { return bottega.folder.path(); }

  BackRoom bottega;
};

/// What the two windows have in common beside the folder.
struct Gara {
  const char* nome;
  bool stessaCassa;
  bool stessoArchivio;
};
void PrintTo(const Gara& gara, std::ostream* uscita) {
  *uscita << gara.nome;
}

class GaraDiDueFinestre : public DueFinestre, public testing::WithParamInterface<Gara> {
 protected:
  struct Concorrente {
    TestTill& cassa;
    QString archivio;
    Finestra finestra;
    int importo = 0;
    int occupate = 0;
  };

  static int giri() {
    const int chiesti = qEnvironmentVariableIntValue("GESTIONALE_GIRI");
    return chiesti > 0 ? chiesti : kFasi;
  }
  /// Rows of its sales: in its own archive, or wherever they are where both receive from one till.
  int scritte(const Concorrente& uno) {
    if (!GetParam().stessaCassa) return righe(uno.archivio, uno.importo);
    int quante = 0;
    for (const QString& archivio : archivi_) quante += righe(archivio, uno.importo);
    return quante;
  }
  /// Never the one thing: cleared, and in no archive.
  void controlla(const Concorrente& uno, const QString& quando) {
    if (azzerata(uno.cassa)) {
      EXPECT_GE(scritte(uno), kVenduti) << "cleared and lost, " << quando.toStdString();
    } else {
      EXPECT_EQ(uno.cassa.byte(kVenduto), salesArchive(vendite(uno.importo))) << quando.toStdString();
    }
  }
  /// A reception ends in one of the ways that a person is told of.
  void controlla(Concorrente& uno, const Ricevuta& ricevuta) {
    if (ricevuta.fatta) {
      EXPECT_EQ(ricevuta.riquadri, kRicevuto);
    } else if (ricevuta.riquadri == cartellaOccupata(cartella())) {
      ++uno.occupate;
    } else if (ricevuta.riquadri != kArchivioBloccato) {
      // One till refuses what two ask of it at once.
      EXPECT_TRUE(GetParam().stessaCassa) << testing::PrintToString(ricevuta.riquadri);
      EXPECT_TRUE(
          ricevuta.riquadri.value(0).startsWith(QStringLiteral("Errore nella comunicazione con ECR: ")))
          << testing::PrintToString(ricevuta.riquadri);
    }
  }
  void riprova(Concorrente& uno) {
    for (int i = 0; i < kTentativi && !azzerata(uno.cassa); ++i) controlla(uno, uno.finestra.riceve());
    EXPECT_TRUE(azzerata(uno.cassa));
  }
  static bool arrivata(const Concorrente& prima, int fase) {
    const auto chiamate = static_cast<int>(prima.cassa->calls().size());
    if (fase != kFaseCarica) return chiamate >= fase;
    return chiamate > kChiusuraDellaRicezione ||
           QFileInfo(prima.archivio + QStringLiteral("-journal")).size() > 0;
  }
  static void attendi(const Concorrente& prima, int fase) {
    const QDeadlineTimer scadenza(kPazienza);
    while (!arrivata(prima, fase) && !scadenza.hasExpired()) std::this_thread::yield();
    EXPECT_FALSE(scadenza.hasExpired()) << "phase " << fase;
  }
  void giro(Concorrente& prima, Concorrente& seconda, int numero) {
    const QString quando = QStringLiteral("round %1").arg(numero);
    for (Concorrente* uno : {&prima, &seconda}) {
      uno->importo = 10 * numero + (uno == &prima || GetParam().stessaCassa ? 1 : 2);
      uno->cassa.sales(vendite(uno->importo));
    }
    prima.cassa->forgetCalls();
    prima.finestra.comincia();
    attendi(prima, numero % kFasi);
    seconda.finestra.comincia();
    controlla(prima, prima.finestra.finisce());
    controlla(seconda, seconda.finestra.finisce());
    controlla(prima, quando);
    controlla(seconda, quando);
    riprova(prima);
    riprova(seconda);
    conta(prima, quando);
    if (!GetParam().stessaCassa) conta(seconda, quando);
  }
  void conta(const Concorrente& uno, const QString& quando) {
    controlla(uno, quando);
    // Who connects closes what another has open on the till: its clearing is refused behind the commit, and
    // the next reception stores the same sales again. Nothing else does.
    const int volte = scritte(uno) / kVenduti;
    perse_ += volte == 0 ? 1 : 0;
    doppie_ += volte > 1 ? 1 : 0;
    EXPECT_TRUE(volte == 1 || GetParam().stessaCassa) << volte << " times, " << quando.toStdString();
  }

  QStringList archivi_;
  int perse_ = 0;
  int doppie_ = 0;
};

TEST_P(GaraDiDueFinestre, NessunaCassaSiAzzeraSenzaLeSueVenditeELaSecondaNonPerdeNulla) {
  TestTill una;
  TestTill altra;
  archivi_ << nuovoArchivio(QStringLiteral("uno.mdb"));
  if (!GetParam().stessoArchivio) archivi_ << nuovoArchivio(QStringLiteral("due.mdb"));
  TestTill& dellaSeconda = GetParam().stessaCassa ? una : altra;
  Concorrente prima{una, archivi_.first(), {cartella(), archivi_.first(), una.address()}};
  Concorrente seconda{dellaSeconda, archivi_.last(), {cartella(), archivi_.last(), dellaSeconda.address()}};
  const auto incontri = [&] { return prima.occupate + seconda.occupate; };
  int fatti = 0;
  while (!HasFailure() && (fatti < giri() || (incontri() == 0 && fatti < kAlPiu))) {
    ++fatti;
    if (fatti % 2 == 0)
      giro(prima, seconda, fatti);
    else
      giro(seconda, prima, fatti);
  }
  std::cout << GetParam().nome << ": " << fatti << " rounds, folder found taken " << incontri()
            << " times, tills cleared of lost sales " << perse_ << ", sales stored twice " << doppie_ << '\n';
  EXPECT_GT(incontri(), 0);
}

INSTANTIATE_TEST_SUITE_P(Comuni, GaraDiDueFinestre,
                         testing::Values(Gara{"DueCasseUnArchivio", false, true},
                                         Gara{"DueCasseDueArchivi", false, false},
                                         Gara{"UnaCassaUnArchivio", true, true},
                                         Gara{"UnaCassaDueArchivi", true, false}),
                         [](const auto& caso) { return std::string(caso.param.nome); });

TEST_F(DueFinestre, IlBloccoDiUnProgrammaVivoTieneQuantoLuiEQuelloDiUnoUccisoSiRiprende) {
  const QString archivio = nuovoArchivio(QStringLiteral("archivio.mdb"));
  TestTill muta;
  muta->faults({{.mode = kRicevi, .what = ecrsim::FaultKind::Silence}});
  TestTill cassa;
  cassa.sales(vendite(7));
  Finestra lenta(cartella(), archivio, muta.address());
  Finestra altra(cartella(), archivio, cassa.address());
  lenta.comincia();
  ASSERT_TRUE(
      QTest::qWaitFor([&] { return callsOf(muta).contains(QStringLiteral("7:venduto.bin")); }, kPazienza));
  EXPECT_EQ(altra.riceve().riquadri, cartellaOccupata(cartella()));
  // However long it takes: the till may have much to say.
  QFile blocco(bottega.folder.file(kBlocco));
  ASSERT_TRUE(blocco.open(QIODevice::ReadWrite));
  ASSERT_TRUE(blocco.setFileTime(QDateTime::currentDateTime().addDays(-1), QFile::FileModificationTime));
  blocco.close();
  EXPECT_EQ(altra.riceve().riquadri, cartellaOccupata(cartella()));
  EXPECT_EQ(cassa.byte(kVenduto), salesArchive(vendite(7)));
  lenta.uccidi();
  EXPECT_EQ(altra.riceve().riquadri, kRicevuto);
  EXPECT_TRUE(azzerata(cassa));
  EXPECT_EQ(righe(archivio, 7), kVenduti);
  EXPECT_FALSE(blocco.exists());
}

TEST_F(DueFinestre, IlBloccoLasciatoDaUnAltroAvvioODaUnNumeroDiProcessoRiusatoNonFermaNessuno) {
  const QString archivio = nuovoArchivio(QStringLiteral("archivio.mdb"));
  TestTill cassa;
  Finestra finestra(cartella(), archivio, cassa.address());
  const QString vivo = QString::number(QCoreApplication::applicationPid());
  const QString computer =
      QSysInfo::machineHostName() + u'\n' + QString::fromLatin1(QSysInfo::machineUniqueId());
  const QString avvio = QString::fromLatin1(QSysInfo::bootUniqueId());
  const QStringList lasciati{
      QStringList{vivo, QStringLiteral("gestionale"), computer, avvio}.join(u'\n'),
      QStringList{vivo, QStringLiteral("system_test"), computer, QStringLiteral("un-avvio-di-ieri")}.join(
          u'\n')};
  int importo = 0;
  for (const QString& lasciato : lasciati) {
    cassa.sales(vendite(++importo));
    bottega.folder.write(kBlocco, lasciato.toUtf8() + '\n');
    EXPECT_EQ(finestra.riceve().riquadri, kRicevuto) << lasciato.toStdString();
    EXPECT_EQ(righe(archivio, importo), kVenduti);
  }
}

}  // namespace
