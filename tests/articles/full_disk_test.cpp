// A full disk is told as one, with its number and its text, wherever it stops the work.

#include <gmock/gmock.h>

#include <QFileInfo>

#include "articles/article_database.h"
#include "articles/guided_archive.h"
#include "articles/import_fixture.h"
#include "articles/import_report.h"
#include "articles/plu_image.h"
#include "config/image.h"
#include "sostegno/troubles.h"

namespace {

using testing::ElementsAre;

struct DiscoPieno : ImportArticoli {
  Fotografia prima;

  void SetUp() override {
    ImportArticoli::SetUp();
    writeArticles(bottega, {{QStringLiteral("8001"), QStringLiteral("PANE"), 100, 2}});
    prima = fotografia();
  }
  void TearDown() override {
    EXPECT_TRUE(fotografia() == prima);
    EXPECT_TRUE(fotografiaDaFuori() == prima);
    EXPECT_EQ(bottega.workspace.level(), 0);
  }
};

// What may not grow is the journal: pages that an archive has already can be written on a full disk.
TEST_F(DiscoPieno, UnSalvataggioDiceDiscoPieno) {
  bottega.screens.registra<Form_ArchivioArticoli>();
  const GuidedArchive schermo(bottega);
  schermo.clickCell(1, 1);
  schermo.type(QStringLiteral("vkTextBoxDesc"), QStringLiteral("LATTE"));
  {
    const FullDisk pieno(600);
    schermo.click(QStringLiteral("Cmd_Modifica"));
  }
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(criticalBox(QStringLiteral(
                                        "Errore nella modifica articoli .\nErrore n° 61\nDisco pieno"))));
}

// A journal that cannot be begun, and one that cannot grow.
class DiscoPienoA : public DiscoPieno, public testing::WithParamInterface<unsigned long> {};

TEST_P(DiscoPienoA, LeSchedeDellaCassaDiconoDiscoPieno) {
  ASSERT_EQ(articles::RiempiPLU(bottega.user), 0);
  for (std::size_t i = 0; i < 5000; ++i)
    config::scriviTesto(config::immagineProgrammazione().record(config::kPLU, i), config::plu::kDescrizione,
                        QStringLiteral("DESCRIZIONE CHE CRESCE"));
  {
    const FullDisk pieno(GetParam());
    EXPECT_EQ(articles::SalvaPLU(bottega.contesto), 1);
  }
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(criticalBox(QStringLiteral(
                                        "Errore nella modifica articoli .\nErrore n° 61\nDisco pieno"))));
}

TEST_P(DiscoPienoA, UnImportDiceDiscoPieno) {
  const QString lista = bottega.folder.write(QStringLiteral("lista.csv"), listaSana(5000));
  {
    const FullDisk pieno(GetParam());
    EXPECT_EQ(importaFile(lista).tipo, articles::EsitoImport::Tipo::Annullato);
  }
  EXPECT_EQ(bottega.user.takeBoxes().at(0),
            criticalBox(QStringLiteral("Errore nell'aggiornamento articoli Errore n° 61\r\nDisco pieno")));
}

INSTANTIATE_TEST_SUITE_P(Byte, DiscoPienoA, testing::Values(600UL, 20000UL, 100000UL));

TEST_F(DiscoPieno, UnEsportazioneDiceDiQualeFile) {
  bottega.screens.registra<Form_ArchivioArticoli>();
  const GuidedArchive schermo(bottega);
  const QString lista = bottega.folder.file(QStringLiteral("lista.csv"));
  bottega.user.chooses(lista);
  {
    const FullDisk pieno(10000);
    schermo.click(QStringLiteral("Cmd_Export"));
  }
  EXPECT_THAT(bottega.user.boxes(),
              ElementsAre(plainBox(QStringLiteral("Error 61 (Disco pieno: ") + lista +
                                   QStringLiteral(") in procedure Cmd_Export_Click of Modulo "
                                                  "Form_ArchivioArticoli"))));
  EXPECT_FALSE(QFileInfo::exists(lista));
}

TEST_F(DiscoPieno, UnArchivioNuovoDiceDiQualeFile) {
  const QString nuovo = bottega.folder.file(QStringLiteral("nuovo.mdb"));
  Errore errore;
  try {
    const FullDisk pieno(10000);
    articles::NuovoDatabase(nuovo, bottega.contesto);
  } catch (const Errore& questo) {
    errore = questo;
  }
  EXPECT_EQ(errore.numero, 61);
  EXPECT_EQ(errore.descrizione, QStringLiteral("Disco pieno: ") + nuovo);
  EXPECT_FALSE(QFileInfo::exists(nuovo));
}

TEST_F(DiscoPieno, UnReportDiceDiQualeFile) {
  const QString report = bottega.folder.file(QStringLiteral("report.log"));
  Errore errore;
  try {
    const FullDisk pieno(100);
    articles::CreaFileLOG(report, QStringLiteral("lista.csv"), bottega.clock.now());
  } catch (const Errore& questo) {
    errore = questo;
  }
  EXPECT_EQ(errore.numero, 61);
  EXPECT_EQ(errore.descrizione, QStringLiteral("Disco pieno: ") + report);
}

}  // namespace
