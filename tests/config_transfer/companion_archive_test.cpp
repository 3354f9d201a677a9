#include "config/companion_archive.h"

#include <QDir>
#include <QFile>

#include "articles/article_database.h"
#include "config_transfer/transfer_scene.h"

namespace {

class ArchivioAccanto : public BancoTrasferimento {};

}  // namespace

TEST_F(ArchivioAccanto, EApertoPerLaSuaVitaEPoiChiuso) {
  {
    const config::ArchivioCompagno aperto(configurazione, bottega.contesto);
    ASSERT_TRUE(varGlobal().DB_Articoli.isOpen());
    EXPECT_EQ(varGlobal().NomeDB_Articoli, compagno);
    EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI")), 5000);
  }
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(varGlobal().NomeDB_Articoli, QString());
}

TEST_F(ArchivioAccanto, RestituisceQuelloApertoPrima) {
  bottega.openArchive();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo =5 WHERE auto_id =1"));
  {
    const config::ArchivioCompagno aperto(configurazione, bottega.contesto);
    EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI where Prezzo = 5")), 0);
  }
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI where Prezzo = 5")), 1);
}

TEST_F(ArchivioAccanto, CheNonSiApreLasciaApertoQuelloDiPrima) {
  bottega.openArchive();
  ASSERT_TRUE(QFile::remove(compagno));
  EXPECT_THROW(config::ArchivioCompagno(configurazione, bottega.contesto), Errore);
  ASSERT_TRUE(varGlobal().DB_Articoli.isOpen());
  EXPECT_TRUE(varGlobal().NomeDB_Articoli.endsWith(QStringLiteral("archivio.mdb")));
}

TEST_F(ArchivioAccanto, EQuelloDellaCartellaDellaConfigurazione) {
  ASSERT_TRUE(QDir().mkdir(bottega.folder.file(QStringLiteral("altra"))));
  EXPECT_THROW(
      config::ArchivioCompagno(bottega.folder.file(QStringLiteral("altra/negozio.dat")), bottega.contesto),
      Errore);
}
