// Archives that do not close, do not open or do not end, and what the workspace is then.

#include <gmock/gmock.h>

#include <QFile>

#include "articles/article_database.h"
#include "sostegno/troubles.h"
#include "workspace/archive_summary.h"
#include "workspace/workspace_fixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = OutcomeBar::Kind;

const QString kArchivio = QStringLiteral("archivio.mdb");
const QString kBloccato = QStringLiteral("Il database è bloccato da un altro programma.");
const Box kSovrascrivere{QStringLiteral("FILE GIA' ESISTENTE! VUOI SOVRASCIVERLO?"), Icon::None,
                         QStringLiteral("ATTENZIONE"), Buttons::YesNo, Preset::Last};

/// The workspace as it is laid down with no archive open.
struct SenzaArchivio : WorkspaceFixture {
  void attendiChiuso() {
    EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
    EXPECT_EQ(enabledCommands(), 0);
    EXPECT_FALSE(active("mnuImporta"));
    EXPECT_FALSE(control("PulsanteImporta").isEnabled());
    EXPECT_TRUE(active("mnuApri"));
    EXPECT_TRUE(control("PulsanteApri").isEnabled());
    EXPECT_TRUE(active("mnuNuovo"));
    EXPECT_EQ(text("LabelArchivio"), QStringLiteral("Nessun archivio aperto"));
  }
  /// Clicks on every command that an archive serves: none may find itself without one.
  void premiTutto() {
    ASSERT_EQ(enabledCommands(), 0);
    for (const char* nome : {"Cmd_Articoli", "Cmd_Down", "Cmd_Upl", "Cmd_Venduto", "PulsanteImporta"})
      click(nome);
    EXPECT_THAT(bottega.user.boxes(), IsEmpty());
    EXPECT_FALSE(bottega.user.terminated());
    EXPECT_TRUE(screen->isVisible());
  }
};

/// An archive whose last transaction cannot be committed: somebody else reads it.
struct ChiusuraGuasta : SenzaArchivio {
  std::unique_ptr<OtherProgram> lettore;

  void SetUp() override {
    SenzaArchivio::SetUp();
    create();
    entry("mnuClose");
    open();
    ASSERT_FALSE(active("mnuApri"));
    bottega.workspace.BeginTrans();
    bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='PANE' WHERE auto_id =1"));
    lettore = std::make_unique<OtherProgram>(
        bottega.folder.file(kArchivio),
        QStringList{QStringLiteral("BEGIN"), QStringLiteral("SELECT count(*) FROM TAB_ARTICOLI")});
  }
  int scritti() {
    lettore.reset();
    store::Workspace altra;
    return altra.OpenDatabase(bottega.folder.file(kArchivio))
        .OpenRecordset(u"SELECT auto_id from TAB_ARTICOLI where Descrizione ='PANE'")
        .RecordCount();
  }
};

TEST_F(ChiusuraGuasta, ChiudiLoDiceAlPiedeELoSchermoESenzaArchivio) {
  entry("mnuClose");
  attendiChiuso();
  EXPECT_EQ(outcome(), kBloccato);
  EXPECT_EQ(outcomeKind(), Kind::Failed);
  premiTutto();
  EXPECT_EQ(scritti(), 0);
}

TEST_F(ChiusuraGuasta, DopoSiApreDiNuovo) {
  entry("mnuClose");
  lettore.reset();
  open();
  EXPECT_EQ(enabledCommands(), kCommands);
  EXPECT_FALSE(active("mnuApri"));
}

TEST_F(ChiusuraGuasta, EsciLoDiceETornaAlMenuLoStesso) {
  click("Cmd_Esci");
  EXPECT_THAT(
      bottega.user.boxes(),
      ElementsAre(plainBox(QStringLiteral("Error 3260 (") + kBloccato +
                           QStringLiteral(") in procedure Cmd_Esci_Click of Modulo Form_GestioneMMC"))));
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_FALSE(screen->isVisible());
  EXPECT_TRUE(menu()->isVisible());
}

/// A template that is none: its copy takes the place of the archive and does not open.
struct ModelloGuasto : SenzaArchivio {
  void SetUp() override {
    SenzaArchivio::SetUp();
    create();
    bottega.folder.write(QStringLiteral("QzDB.bck"), QByteArray("non sono un archivio\r\n").repeated(500));
  }
  void nuovoSopra(const QString& nome) {
    bottega.contesto.cartella = bottega.folder.path();
    bottega.user.answers(Answer::Yes);
    create(nome);
    EXPECT_THAT(bottega.user.takeBoxes(), ElementsAre(kSovrascrivere));
    EXPECT_EQ(outcome(), QStringLiteral("Formato di database non riconosciuto"));
    EXPECT_EQ(outcomeKind(), Kind::Failed);
  }
};

TEST_F(ModelloGuasto, NuovoSopraLArchivioAppenaCreatoLasciaLoSchermoSenzaArchivio) {
  nuovoSopra(kArchivio);
  attendiChiuso();
  premiTutto();
}

TEST_F(ModelloGuasto, NuovoSopraLArchivioApertoConApriLasciaLoSchermoSenzaArchivio) {
  entry("mnuClose");
  open();
  ASSERT_FALSE(active("mnuApri"));
  nuovoSopra(kArchivio);
  attendiChiuso();
  premiTutto();
}

TEST_F(ModelloGuasto, NuovoSopraUnAltroFileLasciaLArchivioAperto) {
  bottega.folder.write(QStringLiteral("altro.mdb"), "vecchio");
  nuovoSopra(QStringLiteral("altro.mdb"));
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(varGlobal().NomeDB_Articoli, bottega.folder.file(kArchivio));
  EXPECT_EQ(enabledCommands(), kCommands);
  EXPECT_TRUE(active("mnuImporta"));
}

// A full disk is told as one.

struct DiscoPieno : SenzaArchivio {};

TEST_F(DiscoPieno, NuovoDiceQualeFileNonCiSta) {
  {
    const FullDisk pieno(4096);
    create();
  }
  EXPECT_EQ(outcome(), QStringLiteral("Disco pieno: ") + bottega.folder.file(kArchivio));
  EXPECT_EQ(outcomeKind(), Kind::Failed);
  attendiChiuso();
}

TEST_F(DiscoPieno, UnImportCheNonCiStaLoDiceESiAnnulla) {
  create();
  QByteArray righe;
  for (int i = 1; i <= 3000; ++i) righe += QByteArray::number(i) + ";80;A;ARTICOLO;1,00;1;N;N; \r\n";
  bottega.user.chooses(bottega.folder.write(QStringLiteral("lista.csv"), righe));
  {
    const FullDisk pieno(40000);
    entry("mnuImporta");
  }
  EXPECT_EQ(bottega.user.takeBoxes().at(0),
            criticalBox(QStringLiteral("Errore nell'aggiornamento articoli Errore n° 61\r\nDisco pieno")));
  EXPECT_EQ(outcome(), QStringLiteral("Importazione annullata: l'archivio è rimasto com'era."));
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI where Descrizione ='ARTICOLO'")), 0);
}

// An archive that somebody has forged.

TEST(ArchivioSenzaFine, IlRiepilogoSiInterrompeESiDiceIlleggibile) {
  BackRoom bottega;
  bottega.openWith(
      {QStringLiteral("CREATE VIEW TAB_ARTICOLI AS WITH RECURSIVE n(x) AS "
                      "(SELECT 1 UNION ALL SELECT x + 1 FROM n) "
                      "SELECT x AS auto_id, '' AS Codice_EAN, '' AS Descrizione FROM n")});
  store::Workspace breve(bottega.clock, std::chrono::milliseconds(50));
  varGlobal().DB_Articoli = breve.OpenDatabase(bottega.folder.file(QStringLiteral("altro.mdb")));
  EXPECT_EQ(workspace::TestoRiepilogo(workspace::Riepiloga()),
            QStringLiteral("Il contenuto dell'archivio non è leggibile."));
  EXPECT_THAT(bottega.user.boxes(), IsEmpty());
}

}  // namespace
