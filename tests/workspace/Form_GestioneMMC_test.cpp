#include "workspace/Form_GestioneMMC.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QMainWindow>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>

#include "articles/article_database.h"
#include "controls/markdown_view.h"
#include "controls/style.h"
#include "core/help_key.h"
#include "core/manual_viewer.h"
#include "sostegno/troubles.h"
#include "workspace/workspace_fixture.h"

namespace {

using testing::ElementsAre;

struct GestioneMMC : WorkspaceFixture {
  /// Ctrl and this key, once the window has the keys again: a menu that was open gives them back late.
  void premiCtrl(Qt::Key tasto) const {
    screen->activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == screen; }));
    QTest::keyClick(screen->focusWidget(), tasto, Qt::ControlModifier);
  }
};

const Box kModelloAssente{QStringLiteral("Attenzione il file di sistema QzDB.bck potrebbe essere assente!"),
                          Icon::Critical, QStringLiteral("ATTENZIONE"), Buttons::Ok};
const Box kSovrascrivere{QStringLiteral("FILE GIA' ESISTENTE! VUOI SOVRASCIVERLO?"), Icon::None,
                         QStringLiteral("ATTENZIONE"), Buttons::YesNo, Preset::Last};

constexpr unsigned long kPochiByte = 4096;
constexpr QFileDevice::Permissions kCartellaInSolaLettura =
    QFileDevice::ReadOwner | QFileDevice::ExeOwner | QFileDevice::ReadOther | QFileDevice::ExeOther;

TEST_F(GestioneMMC, HaTitoloComandiEVociDiMenu) {
  EXPECT_EQ(screen->objectName(), QStringLiteral("Form_GestioneMMC"));
  EXPECT_EQ(screen->windowTitle(), QStringLiteral("Gestione Articoli / Venduto"));
  EXPECT_EQ(control<QPushButton>("Cmd_Articoli").text(), QStringLiteral("Archivio Articoli"));
  EXPECT_EQ(control<QPushButton>("Cmd_Down").text(), QStringLiteral("Trasferimento Articoli"));
  EXPECT_EQ(control<QPushButton>("Cmd_Upl").text(), QStringLiteral("Ricezione del Venduto"));
  EXPECT_EQ(control<QPushButton>("Cmd_Venduto").text(), QStringLiteral("Analisi del  Venduto"));
  EXPECT_EQ(control<QAction>("mnuImporta").text(), QStringLiteral("&Importa Articoli"));
  EXPECT_EQ(control<QMenu>("mnuFile").actions().size(), 4);
}

TEST_F(GestioneMMC, OgniVoceDiMenuHaUnaFigura) {
  for (const QAction* azione : control<QMenu>("mnuFile").actions()) {
    const QImage figura = azione->icon().pixmap(32).toImage();
    bool dipinta = false;
    for (int y = 0; y < figura.height() && !dipinta; ++y)
      for (int x = 0; x < figura.width() && !dipinta; ++x) dipinta = figura.pixelColor(x, y).alpha() > 0;
    EXPECT_TRUE(dipinta) << azione->objectName().toStdString();
  }
}

TEST_F(GestioneMMC, EsciHaScrittaSpiegazioneEIcona) {
  const auto& esci = control<QAbstractButton>("Cmd_Esci");
  EXPECT_EQ(esci.text(), QStringLiteral("Esci"));
  EXPECT_NE(esci.toolTip(), QString());
  EXPECT_FALSE(esci.icon().isNull());
}

TEST_F(GestioneMMC, OgniTastoHaUnaScrittaUnaFiguraEUnaSpiegazione) {
  for (const char* nome : {"PulsanteNuovo", "PulsanteApri", "PulsanteImporta", "PulsanteChiudi",
                           "Cmd_Articoli", "Cmd_Down", "Cmd_Upl", "Cmd_Venduto"}) {
    const auto& tasto = control<QAbstractButton>(nome);
    EXPECT_FALSE(tasto.text().isEmpty()) << nome;
    EXPECT_FALSE(tasto.toolTip().isEmpty()) << nome;
    EXPECT_FALSE(tasto.icon().isNull()) << nome;
  }
  EXPECT_EQ(control("Cmd_Venduto").accessibleName(), QStringLiteral("Analisi del Venduto"));
  EXPECT_EQ(control("PulsanteChiudi").toolTip(), QStringLiteral("Chiudi l'archivio aperto (Ctrl+W)"));
}

TEST_F(GestioneMMC, UnComandoSpentoDicePerche) {
  const QString senza =
      QStringLiteral("Prima si apre un archivio: Nuovo Archivio (Ctrl+N) o Apri Archivio (Ctrl+O)");
  for (const char* nome : {"Cmd_Articoli", "Cmd_Down", "Cmd_Upl", "Cmd_Venduto", "PulsanteImporta"})
    EXPECT_EQ(control(nome).toolTip(), senza) << nome;
  EXPECT_EQ(control("PulsanteApri").toolTip(), QStringLiteral("Apri un archivio esistente (Ctrl+O)"));
  create();
  open();
  EXPECT_EQ(control("Cmd_Upl").toolTip(), QStringLiteral("Ricevi il venduto dal misuratore fiscale"));
  EXPECT_EQ(control("PulsanteImporta").toolTip(),
            QStringLiteral("Importa gli articoli da un file csv (Ctrl+I)"));
  EXPECT_EQ(control("PulsanteApri").toolTip(),
            QStringLiteral("Un archivio è già aperto: prima Chiudi Archivio (Ctrl+W)"));
}

TEST_F(GestioneMMC, AllAperturaComandiEImportSonoSpenti) {
  EXPECT_EQ(enabledCommands(), 0);
  EXPECT_FALSE(active("mnuImporta"));
  EXPECT_TRUE(active("mnuNuovo"));
  EXPECT_TRUE(active("mnuApri"));
  EXPECT_EQ(text("LabelArchivio"), QStringLiteral("Nessun archivio aperto"));
  EXPECT_TRUE(menu()->isHidden());
}

TEST_F(GestioneMMC, NuovoCopiaIlModelloELoApre) {
  create();
  EXPECT_EQ(varGlobal().NomeDB_Articoli, bottega.folder.file(QStringLiteral("archivio.mdb")));
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT auto_id from TAB_ARTICOLI")), 5000);
  EXPECT_EQ(enabledCommands(), kCommands);
  EXPECT_TRUE(active("mnuImporta"));
  EXPECT_TRUE(active("mnuApri"));
  EXPECT_EQ(text("LabelArchivio"), QStringLiteral("archivio.mdb"));
  EXPECT_EQ(text("LabelArticoli"), QStringLiteral("0 articoli in 5.000 posizioni"));
}

TEST_F(GestioneMMC, LeFinestreDeiFilePartonoDallaCartellaDelProgramma) {
  create();
  bottega.user.chooses(std::nullopt);
  entry("mnuApri");
  ASSERT_EQ(bottega.user.requests().size(), 2U);
  for (const FileRequest& finestra : bottega.user.requests()) {
    EXPECT_EQ(finestra.filter, QStringLiteral("mdb (*.mdb)|*.mdb"));
    EXPECT_EQ(finestra.folder, QStringLiteral(GESTIONALE_APP));
  }
}

TEST_F(GestioneMMC, NuovoAnnullatoLasciaTuttoComEra) {
  bottega.user.chooses(std::nullopt);
  entry("mnuNuovo");
  EXPECT_EQ(enabledCommands(), 0);
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(varGlobal().NomeDB_Articoli, QString());
}

TEST_F(GestioneMMC, NuovoConNomeVuotoSiFerma) {
  bottega.user.chooses(QString());
  entry("mnuNuovo");
  EXPECT_EQ(enabledCommands(), 0);
}

TEST_F(GestioneMMC, SenzaModelloLoDiceMostraLaFinestraELaCopiaFallisceInSilenzio) {
  bottega.contesto.cartella = bottega.folder.path();
  create();
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(kModelloAssente));
  EXPECT_EQ(bottega.user.requests().size(), 1U);
  EXPECT_FALSE(QFile::exists(bottega.folder.file(QStringLiteral("archivio.mdb"))));
  EXPECT_EQ(enabledCommands(), 0);
  EXPECT_FALSE(active("mnuImporta"));
  EXPECT_EQ(varGlobal().NomeDB_Articoli, QString());
}

TEST_F(GestioneMMC, SenzaModelloUnFileEsistenteRestaComEra) {
  bottega.folder.write(QStringLiteral("archivio.mdb"), "intatto");
  bottega.contesto.cartella = bottega.folder.path();
  bottega.user.answers(Answer::Yes);
  create();
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(kModelloAssente, kSovrascrivere));
  EXPECT_EQ(bottega.folder.read(QStringLiteral("archivio.mdb")), "intatto");
}

TEST_F(GestioneMMC, NoAllaSovrascritturaSiFerma) {
  bottega.folder.write(QStringLiteral("archivio.mdb"), "intatto");
  bottega.user.answers(Answer::No);
  create();
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(kSovrascrivere));
  EXPECT_EQ(bottega.folder.read(QStringLiteral("archivio.mdb")), "intatto");
  EXPECT_EQ(enabledCommands(), 0);
}

TEST_F(GestioneMMC, SovrascrivereUnArchivioPerdeArticoliEVenduto) {
  create();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='PANE' WHERE auto_id =1"));
  bottega.execute(QStringLiteral("insert into TAB_VENDUTO (Data,id_plu) values ('20240307',1)"));
  entry("mnuClose");
  bottega.user.answers(Answer::Yes);
  create();
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(kSovrascrivere));
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT auto_id from TAB_ARTICOLI where Descrizione ='PANE'")), 0);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT id_plu from TAB_VENDUTO")), 0);
  EXPECT_EQ(enabledCommands(), kCommands);
}

TEST_F(GestioneMMC, SovrascrivereUnArchivioDiceDoveEQuelloDiPrima) {
  create();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='PANE' WHERE auto_id =1"));
  bottega.execute(QStringLiteral("insert into TAB_VENDUTO (Data,id_plu) values ('20240307',1)"));
  bottega.user.answers(Answer::Yes);
  create();
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(kSovrascrivere));
  EXPECT_EQ(outcome(), QStringLiteral("Archivio creato: archivio.mdb. L'archivio di prima è in "
                                      "archivio.mdb.precedente"));
  EXPECT_EQ(outcomeKind(), OutcomeBar::Kind::Done);
  entry("mnuClose");
  open(QStringLiteral("archivio.mdb.precedente"));
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT auto_id from TAB_ARTICOLI where Descrizione ='PANE'")), 1);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT id_plu from TAB_VENDUTO")), 1);
}

TEST_F(GestioneMMC, SeLArchivioDiPrimaNonSiPuoConservareRestaAlSuoPosto) {
  create();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='PANE' WHERE auto_id =1"));
  ASSERT_TRUE(QDir().mkpath(bottega.folder.file(QStringLiteral("archivio.mdb.precedente/occupata"))));
  bottega.user.answers(Answer::Yes);
  create();
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(kSovrascrivere));
  EXPECT_TRUE(outcome().contains(QStringLiteral("archivio.mdb.precedente"))) << outcome().toStdString();
  EXPECT_EQ(outcomeKind(), OutcomeBar::Kind::Failed);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT auto_id from TAB_ARTICOLI where Descrizione ='PANE'")), 1);
  EXPECT_EQ(enabledCommands(), kCommands);
}

TEST_F(GestioneMMC, NuovoSopraLArchivioApertoLoSvuota) {
  create();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='PANE' WHERE auto_id =1"));
  bottega.user.answers(Answer::Yes);
  create();
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(kSovrascrivere));
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT auto_id from TAB_ARTICOLI where Descrizione ='PANE'")), 0);
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='LATTE' WHERE auto_id =1"));
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT auto_id from TAB_ARTICOLI where Descrizione ='LATTE'")), 1);
}

TEST_F(GestioneMMC, UnSecondoNuovoSostituisceLArchivioSenzaChiudereIlPrimo) {
  create();
  store::Database primo = varGlobal().DB_Articoli;
  create(QStringLiteral("altro.mdb"));
  EXPECT_TRUE(primo.isOpen());
  EXPECT_EQ(primo.path(), bottega.folder.file(QStringLiteral("archivio.mdb")));
  EXPECT_EQ(varGlobal().DB_Articoli.path(), bottega.folder.file(QStringLiteral("altro.mdb")));
  EXPECT_EQ(enabledCommands(), kCommands);
  primo.Execute(u"UPDATE TAB_ARTICOLI SET Descrizione ='PANE' WHERE auto_id =1");
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT auto_id from TAB_ARTICOLI where Descrizione ='PANE'")), 0);
}

TEST_F(GestioneMMC, UnaCopiaFallitaLasciaLArchivioDiPrima) {
  create();
  bottega.user.chooses(bottega.folder.file(QStringLiteral("assente/nuovo.mdb")));
  entry("mnuNuovo");
  EXPECT_EQ(varGlobal().NomeDB_Articoli, bottega.folder.file(QStringLiteral("archivio.mdb")));
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(enabledCommands(), kCommands);
  EXPECT_TRUE(active("mnuImporta"));
  EXPECT_NE(outcome(), QString());
}

TEST_F(GestioneMMC, NuovoSopraUnFileInSolaLetturaLoLasciaComEra) {
  bottega.folder.write(QStringLiteral("archivio.mdb"), "intatto");
  ASSERT_TRUE(QFile::setPermissions(bottega.folder.file(QStringLiteral("archivio.mdb")),
                                    QFileDevice::ReadOwner | QFileDevice::ReadOther));
  ASSERT_TRUE(QFile::setPermissions(bottega.folder.path(), kCartellaInSolaLettura));
  bottega.user.answers(Answer::Yes);
  {
    const OtherUser altro;
    create();
  }
  ASSERT_TRUE(QFile::setPermissions(
      bottega.folder.path(), QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(kSovrascrivere));
  EXPECT_EQ(bottega.folder.read(QStringLiteral("archivio.mdb")), "intatto");
  EXPECT_EQ(enabledCommands(), 0);
}

TEST_F(GestioneMMC, NuovoSuUnDiscoPienoLasciaTuttoComEra) {
  bottega.folder.write(QStringLiteral("archivio.mdb"), "intatto");
  bottega.user.answers(Answer::Yes);
  {
    const FullDisk pieno(kPochiByte);
    create();
  }
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(kSovrascrivere));
  EXPECT_EQ(bottega.folder.read(QStringLiteral("archivio.mdb")), "intatto");
  EXPECT_EQ(enabledCommands(), 0);
}

TEST_F(GestioneMMC, UnArchivioBloccatoNonSiApreEIComandiRestanoSpenti) {
  create();
  entry("mnuClose");
  {
    const OtherProgram altro(bottega.folder.file(QStringLiteral("archivio.mdb")),
                             {QStringLiteral("BEGIN EXCLUSIVE")});
    open();
    EXPECT_EQ(enabledCommands(), 0);
    EXPECT_TRUE(active("mnuApri"));
    EXPECT_NE(outcome(), QString());
  }
  open();
  EXPECT_EQ(enabledCommands(), kCommands);
}

TEST_F(GestioneMMC, ApriApreUnArchivioESpegneSeStesso) {
  create();
  entry("mnuClose");
  open();
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(varGlobal().NomeDB_Articoli, bottega.folder.file(QStringLiteral("archivio.mdb")));
  EXPECT_EQ(enabledCommands(), kCommands);
  EXPECT_FALSE(active("mnuApri"));
  EXPECT_TRUE(active("mnuImporta"));
}

TEST_F(GestioneMMC, ApriAnnullatoLasciaTuttoComEra) {
  bottega.user.chooses(std::nullopt);
  entry("mnuApri");
  EXPECT_EQ(enabledCommands(), 0);
  EXPECT_TRUE(active("mnuApri"));
  EXPECT_FALSE(active("mnuImporta"));
}

TEST_F(GestioneMMC, ApriAnnullatoConUnArchivioApertoNeLasciaIComandi) {
  create();
  bottega.user.chooses(std::nullopt);
  entry("mnuApri");
  EXPECT_EQ(enabledCommands(), kCommands);
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
}

TEST_F(GestioneMMC, UnFileDiTestoNonSiApreEIComandiRestanoSpenti) {
  bottega.folder.write(QStringLiteral("testo.mdb"), QByteArray("non sono un archivio\r\n").repeated(500));
  open(QStringLiteral("testo.mdb"));
  EXPECT_EQ(enabledCommands(), 0);
  EXPECT_TRUE(active("mnuApri"));
  EXPECT_FALSE(active("mnuImporta"));
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_NE(outcome(), QString());
}

TEST_F(GestioneMMC, UnFileVuotoNonSiApreERestaVuoto) {
  bottega.folder.write(QStringLiteral("vuoto.mdb"), {});
  open(QStringLiteral("vuoto.mdb"));
  EXPECT_EQ(enabledCommands(), 0);
  EXPECT_EQ(bottega.folder.read(QStringLiteral("vuoto.mdb")), QByteArray());
}

TEST_F(GestioneMMC, UnFileAssenteNonSiApreENonNasce) {
  open(QStringLiteral("assente.mdb"));
  EXPECT_EQ(enabledCommands(), 0);
  EXPECT_FALSE(QFile::exists(bottega.folder.file(QStringLiteral("assente.mdb"))));
}

TEST_F(GestioneMMC, UnAperturaFallitaConUnArchivioApertoNeSpegneIComandi) {
  create();
  bottega.folder.write(QStringLiteral("testo.mdb"), QByteArray("non sono un archivio\r\n").repeated(500));
  open(QStringLiteral("testo.mdb"));
  EXPECT_EQ(enabledCommands(), 0);
  EXPECT_EQ(varGlobal().NomeDB_Articoli, bottega.folder.file(QStringLiteral("archivio.mdb")));
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
  EXPECT_TRUE(active("mnuApri"));
  EXPECT_TRUE(active("mnuImporta"));
}

TEST_F(GestioneMMC, UnNuovoDopoUnAperturaLasciaApriSpento) {
  create();
  entry("mnuClose");
  open();
  ASSERT_FALSE(active("mnuApri"));
  create(QStringLiteral("altro.mdb"));
  EXPECT_EQ(varGlobal().DB_Articoli.path(), bottega.folder.file(QStringLiteral("altro.mdb")));
  EXPECT_EQ(enabledCommands(), kCommands);
  EXPECT_FALSE(active("mnuApri"));
  EXPECT_TRUE(active("mnuImporta"));
}

/// A person who looks around while a file dialog is up.
struct AllaFinestra : ScriptedUser {
  std::function<void()> guarda;

  std::optional<QString> AskOpenPath(const FileRequest& chiesto) override {
    guarda();
    return ScriptedUser::AskOpenPath(chiesto);
  }
  std::optional<QString> AskSavePath(const FileRequest& chiesto) override {
    guarda();
    return ScriptedUser::AskSavePath(chiesto);
  }
};

struct GestioneMMCAllaFinestra : testing::Test {
  BackRoom bottega;
  AllaFinestra utente;
  Contesto contesto{utente,          bottega.workspace, bottega.library,          bottega.network,
                    bottega.screens, bottega.clock,     bottega.contesto.cartella};
  std::unique_ptr<Form_GestioneMMC> schermo;

  void apri() {
    schermo = std::make_unique<Form_GestioneMMC>(contesto);
    schermo->show();
  }
  void voce(const char* nome) { schermo->findChild<QAction*>(QLatin1String(nome))->trigger(); }
  bool acceso(const char* nome) const {
    return schermo->findChild<QAbstractButton*>(QLatin1String(nome))->isEnabled();
  }
};

TEST_F(GestioneMMCAllaFinestra, DiApriIQuattroComandiSonoSpenti) {
  apri();
  utente.guarda = [] {};
  utente.chooses(bottega.folder.file(QStringLiteral("archivio.mdb")));
  voce("mnuNuovo");
  QString accesi;
  int finestre = 0;
  utente.guarda = [&] {
    ++finestre;
    for (const char* nome : {"Cmd_Articoli", "Cmd_Down", "Cmd_Upl", "Cmd_Venduto"})
      if (acceso(nome)) accesi += QLatin1String(nome);
  };
  utente.chooses(std::nullopt);
  voce("mnuApri");
  EXPECT_EQ(finestre, 1);
  EXPECT_EQ(accesi, QString());
  EXPECT_TRUE(acceso("Cmd_Venduto")) << "the workspace as it was";
}

TEST_F(GestioneMMCAllaFinestra, DiNuovoIlModelloAssenteEGiaDetto) {
  contesto.cartella = bottega.folder.path();
  apri();
  std::vector<Box> detti;
  utente.guarda = [&] { detti = utente.takeBoxes(); };
  utente.chooses(std::nullopt);
  voce("mnuNuovo");
  EXPECT_THAT(detti, ElementsAre(kModelloAssente));
}

TEST_F(GestioneMMC, DopoUnAperturaFallitaConUnArchivioApertoIComandiDiconoQuello) {
  const QString fallita = QStringLiteral("L'ultima apertura non è riuscita: ripetere Apri Archivio (Ctrl+O)");
  create();
  bottega.folder.write(QStringLiteral("testo.mdb"), QByteArray("non sono un archivio\r\n").repeated(500));
  open(QStringLiteral("testo.mdb"));
  for (const char* nome : {"Cmd_Articoli", "Cmd_Down", "Cmd_Upl", "Cmd_Venduto"})
    EXPECT_EQ(control(nome).toolTip(), fallita) << nome;
  bottega.user.chooses(std::nullopt);
  entry("mnuApri");
  EXPECT_EQ(control("Cmd_Upl").toolTip(), fallita) << "a cancelled dialog changes nothing";
  open();
  EXPECT_EQ(control("Cmd_Upl").toolTip(), QStringLiteral("Ricevi il venduto dal misuratore fiscale"));
  entry("mnuClose");
  EXPECT_EQ(control("Cmd_Upl").toolTip(),
            QStringLiteral("Prima si apre un archivio: Nuovo Archivio (Ctrl+N) o Apri Archivio (Ctrl+O)"));
}

TEST_F(GestioneMMC, UnDatabaseDiAltroGenereSiApreSenzaControlli) {
  bottega.openWith({QStringLiteral("CREATE TABLE ALTRO (a)")});
  articles::ChiudiDatabase();
  open(QStringLiteral("altro.mdb"));
  EXPECT_EQ(enabledCommands(), kCommands);
  EXPECT_EQ(text("LabelArticoli"), QStringLiteral("Il contenuto dell'archivio non è leggibile."));
  EXPECT_EQ(outcome(),
            QStringLiteral("Archivio aperto: altro.mdb. Il contenuto dell'archivio non è leggibile."));
  EXPECT_EQ(outcomeKind(), OutcomeBar::Kind::Warning);
}

TEST_F(GestioneMMC, ChiudiChiudeLArchivioESpegneIComandi) {
  create();
  entry("mnuClose");
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(enabledCommands(), 0);
  EXPECT_TRUE(active("mnuApri"));
  EXPECT_FALSE(active("mnuImporta"));
  EXPECT_EQ(text("LabelArchivio"), QStringLiteral("Nessun archivio aperto"));
}

TEST_F(GestioneMMC, ChiudiRiaccendeApriCheUnAperturaAvevaSpento) {
  create();
  entry("mnuClose");
  open();
  ASSERT_FALSE(active("mnuApri"));
  entry("mnuClose");
  EXPECT_TRUE(active("mnuApri"));
  EXPECT_FALSE(active("mnuImporta"));
  EXPECT_EQ(enabledCommands(), 0);
  open();
  EXPECT_EQ(enabledCommands(), kCommands);
}

TEST_F(GestioneMMC, UnaChiusuraFallitaSpegneLoStessoIComandiERiaccendeApri) {
  create();
  entry("mnuClose");
  open();
  bottega.workspace.BeginTrans();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='PANE' WHERE auto_id =1"));
  const OtherProgram lettore(bottega.folder.file(QStringLiteral("archivio.mdb")),
                             {QStringLiteral("BEGIN"), QStringLiteral("SELECT count(*) FROM TAB_ARTICOLI")});
  entry("mnuClose");
  EXPECT_NE(outcome(), QString());
  EXPECT_EQ(enabledCommands(), 0);
  EXPECT_TRUE(active("mnuApri"));
  EXPECT_FALSE(active("mnuImporta"));
}

TEST_F(GestioneMMC, IlPiedeDiceCheCosaHaFattoOgniComando) {
  create();
  EXPECT_EQ(outcome(), QStringLiteral("Archivio creato: archivio.mdb"));
  EXPECT_EQ(outcomeKind(), OutcomeBar::Kind::Done);
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='PANE' WHERE auto_id <=1234"));
  entry("mnuClose");
  EXPECT_EQ(outcome(), QStringLiteral("Archivio chiuso: archivio.mdb"));
  EXPECT_EQ(outcomeKind(), OutcomeBar::Kind::Done);
  open();
  EXPECT_EQ(outcome(), QStringLiteral("Archivio aperto: archivio.mdb, 1.234 articoli"));
  EXPECT_EQ(outcomeKind(), OutcomeBar::Kind::Done);
}

TEST_F(GestioneMMC, UnComandoAnnullatoToglieCioCheAvevaDettoQuelloPrima) {
  create();
  bottega.user.chooses(std::nullopt);
  entry("mnuApri");
  EXPECT_EQ(outcome(), QString());
}

TEST_F(GestioneMMC, IlPulsanteChiudiFaQuantoLaVoceDiMenu) {
  create();
  entry("mnuClose");
  open();
  EXPECT_TRUE(control("PulsanteChiudi").isEnabled());
  click("PulsanteChiudi");
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(enabledCommands(), 0);
  EXPECT_TRUE(active("mnuApri"));
  EXPECT_EQ(active("mnuClose"), control("PulsanteChiudi").isEnabled());
  EXPECT_EQ(outcome(), QStringLiteral("Archivio chiuso: archivio.mdb"));
}

TEST_F(GestioneMMC, ChiudiSenzaArchivioLoDice) {
  click("PulsanteChiudi");
  EXPECT_EQ(outcome(), QStringLiteral("Nessun archivio era aperto."));
  EXPECT_EQ(outcomeKind(), OutcomeBar::Kind::Plain);
}

TEST_F(GestioneMMC, ChiudiSenzaArchivioNonFaNulla) {
  entry("mnuClose");
  EXPECT_EQ(enabledCommands(), 0);
  EXPECT_TRUE(active("mnuApri"));
}

TEST_F(GestioneMMC, EsciChiudeLArchivioETornaAlMenu) {
  create();
  click("Cmd_Esci");
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_FALSE(screen->isVisible());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(bottega.screens.trova(QStringLiteral("Form_GestioneMMC")), nullptr);
  EXPECT_TRUE(menu()->isVisible());
}

TEST_F(GestioneMMC, IlTastoEscEQuelloDiUscita) {
  create();
  QTest::keyClick(screen, Qt::Key_Escape);
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_TRUE(menu()->isVisible());
}

TEST_F(GestioneMMC, LaChiusuraDellaCorniceEQuelloDiUscita) {
  create();
  screen->close();
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_TRUE(menu()->isVisible());
}

TEST_F(GestioneMMC, RiapertaDopoLUscitaENuova) {
  create();
  click("Cmd_Esci");
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QTest::mouseClick(menu()->findChild<QWidget*>(QStringLiteral("Label2")), Qt::LeftButton);
  screen = bottega.screens.trova(QStringLiteral("Form_GestioneMMC"));
  ASSERT_NE(screen, nullptr);
  EXPECT_EQ(enabledCommands(), 0);
  EXPECT_TRUE(active("mnuApri"));
}

TEST_F(GestioneMMC, TrasferimentoArticoliSiApreModaleSopraLAreaDiLavoro) {
  create();
  withModal([this] { click("Cmd_Down"); },
            [this](QWidget& modale) {
              EXPECT_EQ(modale.objectName(), QStringLiteral("Form_TrasferimentoArticoli"));
              EXPECT_EQ(modale.windowTitle(), QStringLiteral("Trasferimento Articoli"));
              EXPECT_TRUE(screen->isVisible());
              QTest::mouseClick(modale.findChild<QWidget*>(QStringLiteral("Cmd_Esci")), Qt::LeftButton);
            });
  EXPECT_TRUE(screen->isVisible());
}

TEST_F(GestioneMMC, RicezioneDelVendutoSiApreModale) {
  create();
  withModal([this] { click("Cmd_Upl"); },
            [](QWidget& modale) {
              EXPECT_EQ(modale.objectName(), QStringLiteral("Form_RicezioneVenduto"));
              EXPECT_EQ(modale.windowTitle(), QStringLiteral("Ricezione del Venduto"));
              QTest::mouseClick(modale.findChild<QWidget*>(QStringLiteral("Cmd_Esci")), Qt::LeftButton);
            });
}

TEST_F(GestioneMMC, ArchivioArticoliSiApreModaleESiChiude) {
  create();
  withModal([this] { click("Cmd_Articoli"); },
            [this](QWidget& modale) {
              EXPECT_EQ(modale.objectName(), QStringLiteral("Form_ArchivioArticoli"));
              EXPECT_EQ(modale.windowTitle(), QStringLiteral(" PLU/ARTICOLI - ") +
                                                  bottega.folder.file(QStringLiteral("archivio.mdb")));
              QTest::mouseClick(modale.findChild<QWidget*>(QStringLiteral("Cmd_Esci")), Qt::LeftButton);
            });
}

TEST_F(GestioneMMC, AnalisiDelVendutoSiApreModaleESiChiude) {
  create();
  withModal([this] { click("Cmd_Venduto"); },
            [](QWidget& modale) {
              EXPECT_EQ(modale.objectName(), QStringLiteral("Form_ArchivioVenduto"));
              EXPECT_EQ(modale.windowTitle(), QStringLiteral("Archivio Venduto"));
              QTest::keyClick(&modale, Qt::Key_Escape);
            });
}

TEST_F(GestioneMMC, ConLaTastieraSiCreaESiApreUnComando) {
  bottega.user.chooses(bottega.folder.file(QStringLiteral("archivio.mdb")));
  QTest::keyClick(screen, Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(enabledCommands(), kCommands);
  control("Cmd_Venduto").setFocus();
  withModal([this] { QTest::keyClick(&control("Cmd_Venduto"), Qt::Key_Return); },
            [](QWidget& modale) { QTest::keyClick(&modale, Qt::Key_Escape); });
}

TEST_F(GestioneMMC, IlTabulatorePassaPerOgniComandoNelLoroOrdine) {
  create();
  control("PulsanteNuovo").setFocus();
  QStringList visitati;
  for (int i = 0; i < 9; ++i) {
    visitati.append(screen->focusWidget()->objectName());
    QTest::keyClick(screen->focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(visitati.join(QLatin1Char(' ')),
            QStringLiteral(
                "PulsanteNuovo PulsanteApri PulsanteImporta PulsanteChiudi Cmd_Articoli Cmd_Down Cmd_Upl "
                "Cmd_Venduto Cmd_Esci"));
}

// Enter after Enter: none may land on the exit.

TEST_F(GestioneMMC, ApriSiSpegneEPassaIlFuocoAlPrimoComando) {
  create();
  entry("mnuClose");
  control("PulsanteApri").setFocus();
  bottega.user.chooses(bottega.folder.file(QStringLiteral("archivio.mdb")));
  QTest::keyClick(screen->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(screen->focusWidget()->objectName(), QStringLiteral("Cmd_Articoli"));
}

TEST_F(GestioneMMC, ChiudereLArchivioPassaIlFuocoAdApri) {
  create();
  control("Cmd_Down").setFocus();
  premiCtrl(Qt::Key_W);
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(screen->focusWidget()->objectName(), QStringLiteral("PulsanteApri"));
}

TEST_F(GestioneMMC, UnAperturaAnnullataRidaIlFuocoAChiLoAveva) {
  create();
  control("Cmd_Upl").setFocus();
  bottega.user.chooses(std::nullopt);
  premiCtrl(Qt::Key_O);
  EXPECT_EQ(screen->focusWidget()->objectName(), QStringLiteral("Cmd_Upl"));
}

TEST_F(GestioneMMC, ChiudendoUnaSchermataIlFuocoTornaAlSuoComando) {
  create();
  withModal([this] { click("Cmd_Venduto"); },
            [](QWidget& modale) { QTest::keyClick(&modale, Qt::Key_Escape); });
  EXPECT_EQ(screen->focusWidget()->objectName(), QStringLiteral("Cmd_Venduto"));
}

TEST_F(GestioneMMC, InvioTenutoPremutoNonPremeNulla) {
  create();
  for (const char* nome : {"Cmd_Venduto", "Cmd_Esci"}) {
    control(nome).setFocus();
    QKeyEvent tenuto(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&control(nome), &tenuto);
    EXPECT_TRUE(screen->isVisible()) << nome;
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << nome;
  }
}

// The manual.

TEST_F(GestioneMMC, LaVoceDelManualeApreLaSuaPagina) {
  auto& voce = control<QAction>("mnuManuale");
  EXPECT_EQ(voce.text(), QStringLiteral("&Manuale\tF1"));
  voce.trigger();
  const auto* manuale = screen->findChild<ManualViewer*>();
  ASSERT_NE(manuale, nullptr);
  EXPECT_EQ(manuale->windowTitle(), QStringLiteral("Manuale - Primi passi"));
  EXPECT_EQ(manuale->findChild<MarkdownView*>()->textCursor().block().text(),
            QStringLiteral("Un archivio nuovo"));
}

TEST_F(GestioneMMC, F1ApreIlManualeAncheSopraUnaSchermataModale) {
  const HelpKey tasto(bottega.contesto);
  create();
  QString titolo;
  QString pagina;
  withModal([this] { click("Cmd_Venduto"); },
            [&](QWidget& modale) {
              QTest::keyClick(modale.focusWidget(), Qt::Key_F1);
              if (const auto* manuale = modale.findChild<ManualViewer*>()) {
                titolo = manuale->windowTitle();
                pagina = manuale->findChild<MarkdownView*>()->textCursor().block().text();
              }
              QTest::keyClick(&modale, Qt::Key_Escape);
            });
  EXPECT_EQ(titolo, QStringLiteral("Manuale - Gli archivi"));
  EXPECT_EQ(pagina, QStringLiteral("Analisi del venduto"));
  EXPECT_TRUE(screen->isVisible());
}

TEST_F(GestioneMMC, StaInUnoSchermoDi1024Per768AlDuecentoPerCento) {
  style::apply(*qobject_cast<QApplication*>(QCoreApplication::instance()), style::Theme::Light);
  create();
  screen->resize(512, 384);
  EXPECT_LE(screen->width(), 512);
  EXPECT_LE(screen->height(), 384);
}

TEST_F(GestioneMMC, UnNomeLungoNonAllargaLaFinestra) {
  style::apply(*qobject_cast<QApplication*>(QCoreApplication::instance()), style::Theme::Light);
  const QString lungo = QString(200, QLatin1Char('n')) + QStringLiteral(".mdb");
  create(lungo);
  EXPECT_EQ(text("LabelArchivio"), lungo);
  bottega.user.chooses(bottega.folder.file(QStringLiteral("assente/") + lungo));
  entry("mnuNuovo");
  EXPECT_TRUE(outcome().contains(lungo));
  EXPECT_EQ(control("BarraEsito").accessibleName(), outcome());
  EXPECT_EQ(control("BarraEsito").findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly)->isVisible(),
            true);
  screen->resize(512, 384);
  EXPECT_EQ(screen->width(), 512);
}

TEST_F(GestioneMMC, IPulsantiDellaSchedaFannoQuantoLeVociDiMenu) {
  bottega.user.chooses(bottega.folder.file(QStringLiteral("archivio.mdb")));
  click("PulsanteNuovo");
  EXPECT_EQ(enabledCommands(), kCommands);
  EXPECT_TRUE(control("PulsanteImporta").isEnabled());
  open();
  EXPECT_FALSE(control("PulsanteApri").isEnabled());
}

// The checksum table.

TEST_F(GestioneMMC, LIndiceDegliEanHaUnaRigaPerPosizioneEDaZero) {
  create();
  // Five thousand rows one by one would be as many writes of the disk.
  store::Transaction insieme(bottega.workspace);
  EXPECT_EQ(dynamic_cast<Form_GestioneMMC&>(*screen).CreaIndiceEAN(), 0);
  insieme.Commit();
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT Index from TAB_EAN_NUMERICI")), 5000);
}

TEST_F(GestioneMMC, LIndiceDegliEanDaZeroAncheSenzaArchivio) {
  EXPECT_EQ(dynamic_cast<Form_GestioneMMC&>(*screen).CreaIndiceEAN(), 0);
  const std::vector<Box>& visti = bottega.user.boxes();
  ASSERT_EQ(visti.size(), 1U);
  EXPECT_TRUE(visti[0].text.startsWith(QStringLiteral("UpdateEanNumAndIndex 3420 - ")));
}

}  // namespace
