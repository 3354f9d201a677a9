#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "articles/article_database.h"
#include "articles/back_room.h"
#include "sales/hidden_progress.h"
#include "sales/reception.h"
#include "sostegno/test_till.h"

namespace {

const QByteArray kZeri(60000, '\0');

/// Where the program dies: at a slot, or at the box that follows the clearing.
struct Morte {
  int slot;
  bool dopoLAzzeramento;
};
void PrintTo(const Morte& morte, std::ostream* uscita) {
  *uscita << (morte.dopoLAzzeramento ? "behind the clearing" : "at slot " + std::to_string(morte.slot));
}

/// A program of its own that opens the archive, receives and kills itself on the way.
[[noreturn]] void riceviEMuori(const QString& archivio, const QString& indirizzo, Morte morte) {
  BackRoom bottega;
  articles::ApriDatabase(archivio, bottega.contesto);
  commonForKora().IP_ECR = indirizzo;
  bottega.user.onBox = [&](const Box&) {
    if (morte.dopoLAzzeramento) kill(getpid(), SIGKILL);
  };
  bottega.user.onPass = [&, slot = 0]() mutable {
    if (slot++ == morte.slot) kill(getpid(), SIGKILL);
  };
  HiddenProgress barra;
  sales::RiceviVenduto(bottega.contesto, barra.progress);
  _exit(1);
}

class RicezioneUccisa : public testing::TestWithParam<Morte> {};

TEST_P(RicezioneUccisa, LArchivioEComePrimaOComeDopoELeVenditeSonoDaUnaParte) {
  TestTill cassa;
  std::vector<SlotSales> tutti;
  for (int i = 0; i < 5000; ++i) tutti.push_back({i, i, 1, 0});
  cassa.sales(tutti);
  const QByteArray vendite = cassa.byte(QStringLiteral("venduto.bin"));
  BackRoom bottega;
  bottega.openArchive();
  const QString archivio = varGlobal().NomeDB_Articoli;
  articles::ChiudiDatabase();

  const pid_t figlio = fork();
  ASSERT_GE(figlio, 0);
  if (figlio == 0) riceviEMuori(archivio, cassa.address(), GetParam());
  int stato = 0;
  ASSERT_EQ(waitpid(figlio, &stato, 0), figlio);
  ASSERT_TRUE(WIFSIGNALED(stato) && WTERMSIG(stato) == SIGKILL);

  articles::ApriDatabase(archivio, bottega.contesto);
  const int righe = bottega.rows(QStringLiteral("SELECT * from TAB_VENDUTO"));
  EXPECT_EQ(righe, GetParam().dopoLAzzeramento ? 5000 : 0);
  EXPECT_TRUE(cassa.byte(QStringLiteral("venduto.bin")) == (GetParam().dopoLAzzeramento ? kZeri : vendite));
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI")), 5000);
}

INSTANTIATE_TEST_SUITE_P(Momenti, RicezioneUccisa,
                         testing::Values(Morte{0, false}, Morte{1, false}, Morte{2500, false},
                                         Morte{4999, false}, Morte{-1, true}));

TEST(RicezioneInterrotta, SeLaCassaSiSpegnePrimaDellAzzeramentoLeVenditeStannoDaTutteEDueLeParti) {
  TestTill cassa;
  cassa.sales({{0, 100, 1, 0}});
  BackRoom bottega;
  bottega.openArchive();
  commonForKora().IP_ECR = cassa.address();
  // The line goes down once the last slot is in: the clearing finds nobody.
  bottega.user.onPass = [&, slot = 0]() mutable {
    if (++slot == sales::kSlot) cassa.switchOff();
  };
  HiddenProgress barra;
  EXPECT_EQ(sales::RiceviVenduto(bottega.contesto, barra.progress).esito, sales::EsitoVenduto::Comunicazione);
  EXPECT_EQ(bottega.user.takeBoxes().size(), 2U);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_VENDUTO")), 1);
  EXPECT_FALSE(cassa.byte(QStringLiteral("venduto.bin")) == kZeri);
}

}  // namespace
