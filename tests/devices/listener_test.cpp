// The simulated till under many lines at once: what a line has taken goes when the line ends.
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <QDir>
#include <QProcess>
#include <QTest>
#include <utility>
#include <vector>

#include "ecrcom/codes.h"
#include "ecrcom/ecrcom_service.h"
#include "ecrcom/socket.h"
#include "sostegno/process_memory.h"
#include "sostegno/temporary_folder.h"
#include "sostegno/test_till.h"

using namespace ecrcom;

namespace {

constexpr int kMolte = 200;
/// Lines that bring a file each; what they bring together stands out from all that the program needs else.
constexpr int kConFile = 64;
constexpr int kKiBDelFile = static_cast<int>(kMaxBytes / 1024);
/// Of the main one, those that wait for the next line, and the last that ended.
constexpr int kPochi = 8;

auto traDieciSecondi() {
  return within(std::chrono::seconds(10));
}

std::vector<std::uint8_t> comando(std::uint8_t modo, const std::vector<std::uint8_t>& dati = {}) {
  Header testa;
  testa.mode = modo;
  if (modo == ECR_SEND_MODE) testa.name = "plu.bin";
  return compose(testa, dati);
}

/// Code of the reply to what was sent on the line.
int codice(const Socket& linea) {
  Frame risposta;
  EXPECT_EQ(receiveFrame(linea, traDieciSecondi(), risposta), IoResult::Done);
  return risposta.header.code;
}

int chiede(const Socket& linea, const std::vector<std::uint8_t>& trama) {
  EXPECT_EQ(dispatch(linea, trama, traDieciSecondi()), IoResult::Done);
  return codice(linea);
}

/// The program of the simulated till, looked at from outside.
class CassaAccesa : public testing::Test {
 protected:
  CassaAccesa() {
    // What the program has given back is to be seen as such: neither the allocator's own reserves for each
    // thread nor a sanitizer's store of freed blocks.
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.insert(QStringLiteral("MALLOC_ARENA_MAX"), QStringLiteral("1"));
    ambiente.insert(QStringLiteral("ASAN_OPTIONS"),
                    ambiente.value(QStringLiteral("ASAN_OPTIONS")) +
                        QStringLiteral(":quarantine_size_mb=0:thread_local_quarantine_size_kb=0"));
    processo_.setProcessEnvironment(ambiente);
    processo_.start(QStringLiteral(GESTIONALE_APP "/ecrsim"),
                    {QStringLiteral("--address"), indirizzo_, QStringLiteral("--dir"), cartella_.path()});
    while (!processo_.canReadLine() && processo_.waitForReadyRead(10000)) continue;
    EXPECT_TRUE(processo_.readLine().startsWith("ECRSIM pronto su "));
  }
  ~CassaAccesa() override {
    processo_.terminate();
    EXPECT_TRUE(processo_.waitForFinished(10000));
    EXPECT_EQ(processo_.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(processo_.exitCode(), 0);
  }

  Socket linea() const {
    Socket presa;
    EXPECT_EQ(connect(*ecrcom::address(indirizzo_.toStdString()), traDieciSecondi(), presa), IoResult::Done);
    return presa;
  }
  /// Open lines, each in the hands of a thread: it has answered.
  std::vector<Socket> linee(int quante) const {
    std::vector<Socket> tutte;
    for (int i = 0; i < quante; ++i) {
      tutte.push_back(linea());
      EXPECT_EQ(chiede(tutte.back(), comando(ECR_INFO_MODE)), kDone);
    }
    return tutte;
  }
  /// Says on each line that nothing more comes, waits until the till has said the same and has let go of what
  /// the lines took.
  void congeda(std::vector<Socket> linee) const {
    for (const Socket& una : linee) una.dismiss(traDieciSecondi());
    linee.clear();
    EXPECT_TRUE(restanoPochiThread()) << thread();
  }
  int thread() const {
    return static_cast<int>(
        QDir(proc(QStringLiteral("task"))).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size());
  }
  bool restanoPochiThread() const {
    return QTest::qWaitFor([&] { return thread() <= kPochi; }, 10000);
  }
  qint64 KiB(const char* riga) const {
    return memoryInKiB(QLatin1String(riga), QString::number(processo_.processId()));
  }

 private:
  QString proc(const QString& nome) const {
    return QStringLiteral("/proc/%1/%2").arg(processo_.processId()).arg(nome);
  }

  TemporaryFolder cartella_;
  QString indirizzo_ = ownAddress();
  QProcess processo_;
};

}  // namespace

TEST_F(CassaAccesa, LineeUnaDopoLAltraNonAggiungonoThread) {
  for (int i = 0; i < kMolte; ++i) EXPECT_EQ(chiede(linea(), comando(ECR_INFO_MODE)), kDone);
  EXPECT_TRUE(restanoPochiThread()) << thread();
}

TEST_F(CassaAccesa, FiniteMolteLineeInsiemeNeRestanoPochiThreadELaCassaServeAncora) {
  const qint64 prima = KiB("VmSize");
  for (int volta = 0; volta < 3; ++volta) {
    std::vector<Socket> tutte = linee(kMolte);
    EXPECT_GE(thread(), kMolte);
    congeda(std::move(tutte));
  }
  // A thread that has ended and that nobody joins keeps its stack, eight megabytes as a rule.
  EXPECT_LT(KiB("VmSize") - prima, kMolte * 2 * 1024);
  EXPECT_EQ(chiede(linea(), comando(ECR_INFO_MODE)), kDone);
}

TEST_F(CassaAccesa, UnaTestaCheAnnunciaMoltoNonCostaFincheNonArriva) {
  congeda(linee(kConFile));
  const qint64 prima = KiB("VmHWM");
  const auto intera = comando(ECR_SEND_MODE, std::vector<std::uint8_t>(kMaxBytes, 'x'));
  std::vector<Socket> tutte = linee(kConFile);
  for (const Socket& una : tutte)
    EXPECT_EQ(dispatch(una, Bytes(intera).first(kHeaderBytes + 1), traDieciSecondi()), IoResult::Done);
  congeda(std::move(tutte));
  EXPECT_LT(KiB("VmHWM") - prima, kConFile * kKiBDelFile / 8);
}

TEST_F(CassaAccesa, FiniteLeLineeTornaLaMemoriaDeiFileArrivati) {
  congeda(linee(kConFile));
  const qint64 prima = KiB("VmRSS");
  const auto intera = comando(ECR_SEND_MODE, std::vector<std::uint8_t>(kMaxBytes, 'x'));
  std::vector<Socket> tutte = linee(kConFile);
  for (const Socket& una : tutte) EXPECT_EQ(chiede(una, intera), kTransferClosed);
  EXPECT_GT(KiB("VmRSS") - prima, kConFile * kKiBDelFile / 2);
  congeda(std::move(tutte));
  EXPECT_LT(KiB("VmRSS") - prima, 2 * kKiBDelFile);
}
