// The program killed at any moment of the reception and of the sending: the archive and the till are each as
// before or as after, and sales are cleared on the till only once they are in the archive.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <csignal>
#include <set>

#include "articles/article_database.h"
#include "articles/back_room.h"
#include "articles/sync_count.h"
#include "articles/transfer.h"
#include "ecrlink/session.h"
#include "sales/hidden_progress.h"
#include "sales/reception.h"
#include "sostegno/test_till.h"
#include "system/interrupted_send.h"

namespace {

constexpr int kVenduti = 300;

/// Runs `corpo` in a process of its own. Returns true if it was killed.
bool muore(const std::function<void()>& corpo) {
  const pid_t figlio = fork();
  if (figlio == 0) {
    corpo();
    _exit(0);
  }
  int stato = 0;
  EXPECT_EQ(waitpid(figlio, &stato, 0), figlio);
  return WIFSIGNALED(stato);
}

/// What a person does who starts the program again: opens the archive, connects (which ends the transfer that
/// the last run left open on the till).
void ricomincia(BackRoom& bottega, const QString& archivio, const TestTill& cassa) {
  articles::ApriDatabase(archivio, bottega.contesto);
  commonForKora().IP_ECR = cassa.address();
  QString file;
  QString risposta;
  ASSERT_EQ(ecrlink::ComandoECR(file, ecrlink::Modo::ChiudiTrasferimento, risposta, bottega.contesto), 0);
}

std::vector<SlotSales> giornata() {
  std::vector<SlotSales> venduto;
  for (int posto = 0; posto < kVenduti; ++posto)
    venduto.push_back({posto * 16, 100 + posto, 1 + posto % 7, posto % 3});
  return venduto;
}

struct RicezioneUccisa : testing::Test {
  BackRoom bottega;
  TestTill cassa;
  const QString archivio = bottega.folder.file(QStringLiteral("archivio.mdb"));
  /// How much the process hands to the network before it dies; 0: it does not.
  std::size_t byteInRete = 0;

  void SetUp() override { rinnova(); }

  /// Archive and till as on the first morning.
  void rinnova() {
    QFile::remove(archivio);
    bottega.openArchive();
    varGlobal().DB_Articoli.Close();
    cassa.sales(giornata());
  }

  void ricevi(const std::function<void()>& passaggio) {
    ricomincia(bottega, archivio, cassa);
    bottega.user.onPass = passaggio;
    interrupted_send::dieAfter(byteInRete);
    HiddenProgress barra;
    sales::RiceviVenduto(bottega.contesto, barra.progress);
  }

  int righe() {
    articles::ApriDatabase(archivio, bottega.contesto);
    const int quante = bottega.rows(QStringLiteral("SELECT id_plu from TAB_VENDUTO"));
    varGlobal().DB_Articoli.Close();
    return quante;
  }
  bool azzerata() { return cassa.byte(QStringLiteral("venduto.bin")) == salesArchive({}); }

  void controlla(int quando) {
    const int scritte = righe();
    EXPECT_TRUE(scritte == 0 || scritte == kVenduti) << scritte << " rows, killed at " << quando;
    EXPECT_TRUE(!azzerata() || scritte == kVenduti) << "sales lost, killed at " << quando;
  }
};

TEST_F(RicezioneUccisa, AUnPassaggioQualunqueNienteEScrittoELeVenditeRestanoSullaCassa) {
  for (const int quando : {1, 2, 17, 2500, 4999, 5000}) {
    ASSERT_TRUE(muore([&] {
      ricevi([quando, fatti = 0]() mutable {
        if (++fatti == quando) raise(SIGKILL);
      });
    })) << quando;
    EXPECT_EQ(righe(), 0) << quando;
    EXPECT_FALSE(azzerata()) << quando;
  }
}

TEST_F(RicezioneUccisa, AUnSincronismoQualunqueLeVenditeSonoNellArchivioOSullaCassa) {
  int quando = 0;
  std::set<int> viste;
  while (muore([&] {
    sync_count::start([quando](int numero) {
      if (numero == quando + 1) raise(SIGKILL);
    });
    ricevi({});
  })) {
    ++quando;
    controlla(quando);
    viste.insert(righe());
    ASSERT_LT(quando, 50);
    rinnova();
  }
  EXPECT_GE(quando, 2);
  EXPECT_TRUE(viste.contains(0));
  EXPECT_EQ(righe(), kVenduti);
  EXPECT_TRUE(azzerata());
}

TEST_F(RicezioneUccisa, MentreChiedeLAzzeramentoLeVenditeSonoGiaNellArchivio) {
  // Every amount of bytes that the four commands of a reception can have handed over when the process dies.
  int complete = 0;
  for (byteInRete = 1; muore([&] { ricevi({}); }); byteInRete += 24) {
    controlla(static_cast<int>(byteInRete));
    complete += righe() == kVenduti ? 1 : 0;
    rinnova();
  }
  EXPECT_GT(complete, 0);
  EXPECT_EQ(righe(), kVenduti);
  EXPECT_TRUE(azzerata());
}

struct InvioUcciso : testing::Test {
  BackRoom bottega;
  TestTill cassa;
  const QByteArray vecchio = QByteArray(240000, 'v');
};

TEST_F(InvioUcciso, AQualunqueByteLaCassaHaLArchivioDiPrimaOQuelloDiDopo) {
  bottega.openArchive();
  const auto articoli = testArticles(400);
  writeArticles(bottega, articoli);
  varGlobal().DB_Articoli.Close();
  const QString archivio = bottega.folder.file(QStringLiteral("archivio.mdb"));
  const QByteArray prima = bottega.folder.read(QStringLiteral("archivio.mdb"));
  int vecchie = 0;
  for (const std::size_t byte :
       {1UL, 40UL, 48UL, 49UL, 100UL, 1000UL, 120000UL, 240000UL, 240060UL, 240090UL, 240110UL}) {
    cassa.put(QStringLiteral("plu.bin"), vecchio);
    ASSERT_TRUE(muore([&] {
      ricomincia(bottega, archivio, cassa);
      interrupted_send::dieAfter(byte);
      articles::InviaArchivio(bottega.contesto);
    })) << byte;
    const QByteArray inCassa = cassa.byte(QStringLiteral("plu.bin"));
    EXPECT_TRUE(inCassa == vecchio || inCassa == expectedImage(articoli)) << byte;
    vecchie += inCassa == vecchio ? 1 : 0;
    EXPECT_EQ(bottega.folder.read(QStringLiteral("archivio.mdb")), prima) << byte;
  }
  EXPECT_GT(vecchie, 0);
}

}  // namespace
