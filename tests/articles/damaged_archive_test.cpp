#include "articles/damaged_archive.h"

#include <gmock/gmock.h>

#include "articles/article_database.h"
#include "articles/import_fixture.h"
#include "articles/plu_image.h"
#include "config/image.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tipo = articles::EsitoImport::Tipo;

/// An archive one of whose pages does not fit the others.
struct ArchivioDanneggiato : ImportArticoli {
  QByteArray prima;

  void SetUp() override {
    ImportArticoli::SetUp();
    writeArticles(bottega, {{QStringLiteral("8001"), QStringLiteral("PANE"), 100, 2}});
    ASSERT_EQ(articles::RiempiPLU(bottega.user), 0);
    damage(bottega);
    prima = byte();
  }
  QByteArray byte() const { return bottega.folder.read(QStringLiteral("archivio.mdb")); }
  QString formato() const { return QStringLiteral("Formato di database non riconosciuto: ") + archivio; }
};

TEST_F(ArchivioDanneggiato, LeIstruzioniGirerebberoTutte) {
  EXPECT_EQ(bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo =1")), 5000);
  EXPECT_EQ(bottega.execute(QStringLiteral("insert into TAB_VENDUTO (Data,id_plu) values ('20240307',1)")),
            1);
}

TEST_F(ArchivioDanneggiato, LImportLoRifiutaELoLasciaComEra) {
  const auto esito = importa(listaSana(3));
  EXPECT_EQ(esito.tipo, Tipo::Annullato);
  EXPECT_EQ(esito.righe, 0);
  EXPECT_THAT(bottega.user.boxes(),
              ElementsAre(criticalBox(
                  QStringLiteral("Errore nell'aggiornamento articoli Errore n° 3343\r\n") + formato())));
  EXPECT_THAT(annotazioni(), IsEmpty());
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_TRUE(byte() == prima);
}

TEST_F(ArchivioDanneggiato, LeSchedeDellaCassaLoRifiutanoELoLascianoComEra) {
  config::scriviTesto(config::immagineProgrammazione().record(config::kPLU, 0), config::plu::kDescrizione,
                      QStringLiteral("LATTE"));
  EXPECT_EQ(articles::SalvaPLU(bottega.contesto), 1);
  EXPECT_THAT(bottega.user.boxes(),
              ElementsAre(criticalBox(QStringLiteral("Errore nella modifica articoli .\nErrore n° 3343\n") +
                                      formato())));
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_TRUE(byte() == prima);
}

TEST_F(ArchivioDanneggiato, UnoIntegroPassaEntrambi) {
  bottega.openArchive(QStringLiteral("nuovo.mdb"));
  EXPECT_EQ(importa(listaSana(3)).tipo, Tipo::Importato);
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
  EXPECT_EQ(articles::SalvaPLU(bottega.contesto), 0);
}

}  // namespace
