#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>

#include "devices/libreria.h"
#include "ecrcom/codici.h"
#include "sostegno/cartella_temporanea.h"
#include "sostegno/cassa.h"

using namespace ecrcom;
using ecrsim::Cosa;

namespace {

constexpr int kModi = 9;
const QString kIva = QStringLiteral("iva.bin");
const QByteArray kVecchio(233, 'v');
const QByteArray kNuovo(233, 'n');

/// One mode against a till that has old data and is offered new ones, with every fault in turn.
struct Guasti : testing::TestWithParam<int> {
  Guasti() {
    libreria.ecr_set_timeout(300, 300);
    cartella.scrivi(kIva, kNuovo);
    cassa.metti(kIva, kVecchio);
    cassa.venduto({{3, 100, 1, 0}});
    if (vuoleAperto()) {
      EXPECT_EQ(libreria.comando(cassa.indirizzo(), ECR_OPEN_MODE), kFatto);
    }
  }

  int modo() const { return GetParam(); }
  bool vuoleAperto() const { return modo() >= ECR_RESET_MODE && modo() <= ECR_FETCH_MODE; }
  bool conFile() const { return modo() == ECR_SEND_MODE || modo() == ECR_FETCH_MODE; }
  int prova(Cosa cosa, int codice = 7) {
    cassa->guasti({{modo(), "", cosa, codice, 0}});
    return libreria.comando(cassa.indirizzo(), modo(), conFile() ? "iva.bin" : "");
  }
  /// Neither side has been touched: no data, no stump, no reply over the blanks.
  void nienteCambiato() const {
    EXPECT_EQ(cartella.leggi(kIva), kNuovo);
    EXPECT_EQ(cassa.byte(kIva), kVecchio);
    EXPECT_EQ(cassa.byte(QStringLiteral("venduto.bin")), archivioVenduto({{3, 100, 1, 0}}));
    soloQuesto(cartella.percorso(), {kIva});
    EXPECT_EQ(libreria.risposta, QByteArray(256, ' '));
  }
  static void soloQuesto(const QString& dove, const QStringList& nomi) {
    EXPECT_EQ(QDir(dove).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), nomi);
  }

  CartellaTemporanea cartella;
  Cassa cassa;
  Libreria libreria;
};

}  // namespace

TEST_P(Guasti, UnCodiceDellaCassaArrivaComeSta) {
  EXPECT_EQ(prova(Cosa::Codice, 7), 7);
  EXPECT_EQ(prova(Cosa::Codice, 1234), 1234);
  nienteCambiato();
}

TEST_P(Guasti, UnaCassaMutaCostaSoloIlTempoFissato) {
  QElapsedTimer orologio;
  orologio.start();
  EXPECT_EQ(prova(Cosa::Silenzio), kTempoScaduto);
  EXPECT_GE(orologio.elapsed(), 300);
  EXPECT_LT(orologio.elapsed(), 5000);
  nienteCambiato();
}

TEST_P(Guasti, UnTaglioPrimaDelLavoroNonCambiaNiente) {
  EXPECT_EQ(prova(Cosa::TaglioPrima), kLineaInterrotta);
  nienteCambiato();
}

TEST_P(Guasti, UnTaglioDentroIDatiNonLasciaMonconi) {
  EXPECT_EQ(prova(Cosa::TaglioDentro), kLineaInterrotta);
  EXPECT_EQ(cartella.leggi(kIva), kNuovo);
  soloQuesto(cartella.percorso(), {kIva});
  if (modo() == ECR_SEND_MODE) {
    EXPECT_EQ(cassa.byte(kIva), kVecchio);
  }
  EXPECT_EQ(libreria.risposta, QByteArray(256, ' '));
}

TEST_P(Guasti, UnTaglioDopoIlLavoroLoLasciaFatto) {
  EXPECT_EQ(prova(Cosa::TaglioDopo), kLineaInterrotta);
  EXPECT_EQ(cartella.leggi(kIva), kNuovo);
  soloQuesto(cartella.percorso(), {kIva});
  EXPECT_EQ(cassa->chiamate().back().modo, modo());
  if (modo() == ECR_OPEN_MODE) {
    EXPECT_TRUE(cassa->trasferimentoAperto());
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
  const int codice = prova(Cosa::FileCorto);
  EXPECT_EQ(codice, modo() == ECR_SEND_MODE ? kLunghezzaErrata : kFatto);
  EXPECT_EQ(cassa.byte(kIva).size(), 233);
  if (modo() == ECR_FETCH_MODE) {
    EXPECT_EQ(cartella.leggi(kIva), kVecchio.left(116));
  }
}

TEST_P(Guasti, UnFileLungoSiConsegnaLungoESiRifiutaInArrivo) {
  const int codice = prova(Cosa::FileLungo);
  EXPECT_EQ(codice, modo() == ECR_SEND_MODE ? kLunghezzaErrata : kFatto);
  EXPECT_EQ(cassa.byte(kIva).size(), 233);
  EXPECT_EQ(libreria.risposta.size(), 256);
  if (modo() == ECR_FETCH_MODE) {
    EXPECT_EQ(cartella.leggi(kIva).size(), 333);
    EXPECT_TRUE(cartella.leggi(kIva).startsWith(kVecchio));
  }
}

TEST_P(Guasti, DuecentocinquantaseiByteSenzaFineSiRiconosconoSubito) {
  libreria.ecr_set_timeout(300, 60000);
  EXPECT_EQ(prova(Cosa::Spazzatura), kRispostaIncomprensibile);
  nienteCambiato();
}

TEST_P(Guasti, FinitoIlGuastoLoStessoComandoRiesce) {
  cassa->guasti({{modo(), "", Cosa::Codice, 7, 1}});
  const QByteArray file = conFile() ? "iva.bin" : "";
  EXPECT_EQ(libreria.comando(cassa.indirizzo(), modo(), file), 7);
  EXPECT_EQ(libreria.comando(cassa.indirizzo(), modo(), file), kFatto);
}

INSTANTIATE_TEST_SUITE_P(OgniModo, Guasti, testing::Range(0, kModi));

TEST(GuastiDelFile, UnGuastoConNomeColpisceSoloQuelFile) {
  CartellaTemporanea cartella;
  Cassa cassa;
  Libreria libreria;
  cassa.venduto({});
  cassa.metti(QStringLiteral("fatture.bin"), "x");
  cassa->guasti({{ECR_FETCH_MODE, "venduto.bin", Cosa::Codice, 7, 0}});
  EXPECT_EQ(libreria.comando(cassa.indirizzo(), ECR_OPEN_MODE), kFatto);
  EXPECT_EQ(libreria.comando(cassa.indirizzo(), ECR_FETCH_MODE, "venduto.bin"), 7);
  EXPECT_EQ(libreria.comando(cassa.indirizzo(), ECR_FETCH_MODE, "fatture.bin"), kFatto);
  EXPECT_EQ(cartella.leggi(QStringLiteral("fatture.bin")), "x");
}

TEST(GuastiDelFile, UnFileMassimoNonSiAllungaESiConsegnaIntero) {
  constexpr int kMassimo = 4 * 1024 * 1024;
  CartellaTemporanea cartella;
  Cassa cassa;
  Libreria libreria;
  const QString clienti = QStringLiteral("clienti.bin");
  cassa.metti(clienti, QByteArray(kMassimo, 'c'));
  EXPECT_EQ(libreria.comando(cassa.indirizzo(), ECR_OPEN_MODE), kFatto);
  cassa->guasti({{ECR_FETCH_MODE, "", Cosa::FileLungo, 0, 0}});
  EXPECT_EQ(libreria.comando(cassa.indirizzo(), ECR_FETCH_MODE, "clienti.bin"), kFatto);
  EXPECT_EQ(cartella.leggi(clienti).size(), kMassimo);
  cassa.metti(clienti, QByteArray(kMassimo + 1, 'c'));
  EXPECT_EQ(libreria.comando(cassa.indirizzo(), ECR_FETCH_MODE, "clienti.bin"), kFileTroppoGrande);
}

TEST(GuastiDelFile, UnTaglioDentroUnArchivioGrandeNonToccaLaMemoria) {
  CartellaTemporanea cartella;
  Cassa cassa;
  Libreria libreria;
  const QString plu = QStringLiteral("plu.bin");
  cassa.metti(plu, QByteArray(240000, 'v'));
  cartella.scrivi(plu, QByteArray(240000, 'n'));
  EXPECT_EQ(libreria.comando(cassa.indirizzo(), ECR_OPEN_MODE), kFatto);
  cassa->guasti({{ECR_SEND_MODE, "plu.bin", Cosa::TaglioDentro, 0, 1},
                 {ECR_FETCH_MODE, "plu.bin", Cosa::TaglioDentro, 0, 1}});
  EXPECT_EQ(libreria.comando(cassa.indirizzo(), ECR_SEND_MODE, "plu.bin"), kLineaInterrotta);
  EXPECT_EQ(cassa.byte(plu), QByteArray(240000, 'v'));
  EXPECT_EQ(libreria.comando(cassa.indirizzo(), ECR_FETCH_MODE, "plu.bin"), kLineaInterrotta);
  EXPECT_EQ(cartella.leggi(plu), QByteArray(240000, 'n'));
  EXPECT_TRUE(cassa->trasferimentoAperto());
}
