#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>

#include "devices/loaded_library.h"
#include "ecrcom/codes.h"
#include "sostegno/temporary_folder.h"
#include "sostegno/test_till.h"

using namespace ecrcom;
using ecrsim::FaultKind;

namespace {

constexpr int kModi = 9;
const QString kIva = QStringLiteral("iva.bin");
const QByteArray kVecchio(233, 'v');
const QByteArray kNuovo(233, 'n');

/// One mode against a till that has old data and is offered new ones, with every fault in turn.
struct Guasti : testing::TestWithParam<int> {
  Guasti() {
    libreria.ecr_set_timeout(300, 300);
    cartella.write(kIva, kNuovo);
    cassa.put(kIva, kVecchio);
    cassa.sales({{3, 100, 1, 0}});
    if (vuoleAperto()) {
      EXPECT_EQ(libreria.command(cassa.address(), ECR_OPEN_MODE), kDone);
    }
  }

  int modo() const { return GetParam(); }
  bool vuoleAperto() const { return modo() >= ECR_RESET_MODE && modo() <= ECR_FETCH_MODE; }
  bool conFile() const { return modo() == ECR_SEND_MODE || modo() == ECR_FETCH_MODE; }
  int prova(FaultKind cosa, int codice = 7) {
    cassa->faults({{modo(), "", cosa, codice, 0}});
    return libreria.command(cassa.address(), modo(), conFile() ? "iva.bin" : "");
  }
  /// Neither side has been touched: no data, no stump, no reply over the blanks.
  void nienteCambiato() const {
    EXPECT_EQ(cartella.read(kIva), kNuovo);
    EXPECT_EQ(cassa.byte(kIva), kVecchio);
    EXPECT_EQ(cassa.byte(QStringLiteral("venduto.bin")), salesArchive({{3, 100, 1, 0}}));
    soloQuesto(cartella.path(), {kIva});
    EXPECT_EQ(libreria.reply, QByteArray(256, ' '));
  }
  static void soloQuesto(const QString& dove, const QStringList& nomi) {
    EXPECT_EQ(QDir(dove).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), nomi);
  }

  TemporaryFolder cartella;
  TestTill cassa;
  Library libreria;
};

}  // namespace

TEST_P(Guasti, UnCodiceDellaCassaArrivaComeSta) {
  EXPECT_EQ(prova(FaultKind::Code, 7), 7);
  EXPECT_EQ(prova(FaultKind::Code, 1234), 1234);
  nienteCambiato();
}

TEST_P(Guasti, UnaCassaMutaCostaSoloIlTempoFissato) {
  QElapsedTimer orologio;
  orologio.start();
  EXPECT_EQ(prova(FaultKind::Silence), kTimedOut);
  EXPECT_GE(orologio.elapsed(), 300);
  EXPECT_LT(orologio.elapsed(), 5000);
  nienteCambiato();
}

TEST_P(Guasti, UnTaglioPrimaDelLavoroNonCambiaNiente) {
  EXPECT_EQ(prova(FaultKind::CutBefore), kLineCut);
  nienteCambiato();
}

TEST_P(Guasti, UnTaglioDentroIDatiNonLasciaMonconi) {
  EXPECT_EQ(prova(FaultKind::CutWithin), kLineCut);
  EXPECT_EQ(cartella.read(kIva), kNuovo);
  soloQuesto(cartella.path(), {kIva});
  if (modo() == ECR_SEND_MODE) {
    EXPECT_EQ(cassa.byte(kIva), kVecchio);
  }
  EXPECT_EQ(libreria.reply, QByteArray(256, ' '));
}

TEST_P(Guasti, UnTaglioDopoIlLavoroLoLasciaFatto) {
  EXPECT_EQ(prova(FaultKind::CutAfter), kLineCut);
  EXPECT_EQ(cartella.read(kIva), kNuovo);
  soloQuesto(cartella.path(), {kIva});
  EXPECT_EQ(cassa->calls().back().mode, modo());
  if (modo() == ECR_OPEN_MODE) {
    EXPECT_TRUE(cassa->transferOpen());
  }
  if (modo() == ECR_RESET_MODE) {
    EXPECT_EQ(cassa.byte(kIva), QByteArray(233, '\0'));
  }
  if (modo() == ECR_CLEAR_INVOICES_MODE) {
    EXPECT_EQ(cassa.byte(QStringLiteral("fatture.bin")), QByteArray(77000, '\0'));
  }
  if (modo() == ECR_CLEAR_SALES_MODE) {
    EXPECT_EQ(cassa.byte(QStringLiteral("venduto.bin")), QByteArray(60000, '\0'));
  }
  if (modo() == ECR_SEND_MODE) {
    EXPECT_EQ(cassa.byte(kIva), kNuovo);
  }
}

TEST_P(Guasti, UnFileCortoSiConsegnaCortoESiRifiutaInArrivo) {
  const int codice = prova(FaultKind::ShortFile);
  EXPECT_EQ(codice, modo() == ECR_SEND_MODE ? kBadLength : kDone);
  EXPECT_EQ(cassa.byte(kIva).size(), 233);
  if (modo() == ECR_FETCH_MODE) {
    EXPECT_EQ(cartella.read(kIva), kVecchio.left(116));
  }
}

TEST_P(Guasti, UnFileLungoSiConsegnaLungoESiRifiutaInArrivo) {
  const int codice = prova(FaultKind::LongFile);
  EXPECT_EQ(codice, modo() == ECR_SEND_MODE ? kBadLength : kDone);
  EXPECT_EQ(cassa.byte(kIva).size(), 233);
  EXPECT_EQ(libreria.reply.size(), 256);
  if (modo() == ECR_FETCH_MODE) {
    EXPECT_EQ(cartella.read(kIva).size(), 333);
    EXPECT_TRUE(cartella.read(kIva).startsWith(kVecchio));
  }
}

TEST_P(Guasti, DuecentocinquantaseiByteSenzaFineSiRiconosconoSubito) {
  libreria.ecr_set_timeout(300, 60000);
  EXPECT_EQ(prova(FaultKind::Garbage), kGarbledReply);
  nienteCambiato();
}

TEST_P(Guasti, FinitoIlGuastoLoStessoComandoRiesce) {
  cassa->faults({{modo(), "", FaultKind::Code, 7, 1}});
  const QByteArray file = conFile() ? "iva.bin" : "";
  EXPECT_EQ(libreria.command(cassa.address(), modo(), file), 7);
  EXPECT_EQ(libreria.command(cassa.address(), modo(), file), kDone);
}

INSTANTIATE_TEST_SUITE_P(OgniModo, Guasti, testing::Range(0, kModi));

TEST(GuastiDelFile, UnGuastoConNomeColpisceSoloQuelFile) {
  TemporaryFolder cartella;
  TestTill cassa;
  Library libreria;
  cassa.sales({});
  cassa.put(QStringLiteral("fatture.bin"), "x");
  cassa->faults({{ECR_FETCH_MODE, "venduto.bin", FaultKind::Code, 7, 0}});
  EXPECT_EQ(libreria.command(cassa.address(), ECR_OPEN_MODE), kDone);
  EXPECT_EQ(libreria.command(cassa.address(), ECR_FETCH_MODE, "venduto.bin"), 7);
  EXPECT_EQ(libreria.command(cassa.address(), ECR_FETCH_MODE, "fatture.bin"), kDone);
  EXPECT_EQ(cartella.read(QStringLiteral("fatture.bin")), "x");
}

TEST(GuastiDelFile, UnFileMassimoNonSiAllungaESiConsegnaIntero) {
  constexpr int kMassimo = 4 * 1024 * 1024;
  TemporaryFolder cartella;
  TestTill cassa;
  Library libreria;
  const QString clienti = QStringLiteral("clienti.bin");
  cassa.put(clienti, QByteArray(kMassimo, 'c'));
  EXPECT_EQ(libreria.command(cassa.address(), ECR_OPEN_MODE), kDone);
  cassa->faults({{ECR_FETCH_MODE, "", FaultKind::LongFile, 0, 0}});
  EXPECT_EQ(libreria.command(cassa.address(), ECR_FETCH_MODE, "clienti.bin"), kDone);
  EXPECT_EQ(cartella.read(clienti).size(), kMassimo);
  cassa.put(clienti, QByteArray(kMassimo + 1, 'c'));
  EXPECT_EQ(libreria.command(cassa.address(), ECR_FETCH_MODE, "clienti.bin"), kFileTooLarge);
}

TEST(GuastiDelFile, UnTaglioDentroUnArchivioGrandeNonToccaLaMemoria) {
  TemporaryFolder cartella;
  TestTill cassa;
  Library libreria;
  const QString plu = QStringLiteral("plu.bin");
  cassa.put(plu, QByteArray(240000, 'v'));
  cartella.write(plu, QByteArray(240000, 'n'));
  EXPECT_EQ(libreria.command(cassa.address(), ECR_OPEN_MODE), kDone);
  cassa->faults({{ECR_SEND_MODE, "plu.bin", FaultKind::CutWithin, 0, 1},
                 {ECR_FETCH_MODE, "plu.bin", FaultKind::CutWithin, 0, 1}});
  EXPECT_EQ(libreria.command(cassa.address(), ECR_SEND_MODE, "plu.bin"), kLineCut);
  EXPECT_EQ(cassa.byte(plu), QByteArray(240000, 'v'));
  EXPECT_EQ(libreria.command(cassa.address(), ECR_FETCH_MODE, "plu.bin"), kLineCut);
  EXPECT_EQ(cartella.read(plu), QByteArray(240000, 'n'));
  EXPECT_TRUE(cassa->transferOpen());
}
