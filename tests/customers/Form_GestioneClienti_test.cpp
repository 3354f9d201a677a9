#include "customers/Form_GestioneClienti.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTest>

#include "controls/card.h"
#include "controls/outcome_bar.h"
#include "controls/style.h"
#include "core/help_key.h"
#include "core/manual_viewer.h"
#include "core/menu.h"
#include "customers/customer_database.h"
#include "customers/office.h"
#include "sostegno/guided_screen.h"
#include "sostegno/troubles.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = OutcomeBar::Kind;

constexpr int kCommands = 4;
constexpr const char* kComandi[] = {"Cmd_AnagraficaClienti", "Cmd_ArchivioFatture", "Cmd_Down", "Cmd_Upl"};

const QString kArchivio = QStringLiteral("clienti.mdb");
const QString kSenza =
    QStringLiteral("Prima si apre un archivio: Nuovo Archivio (Ctrl+N) o Apri Archivio (Ctrl+O)");
const QString kAnnullata =
    QStringLiteral("L'ultima apertura è stata annullata: ripetere Apri Archivio (Ctrl+O)");
const QString kFallita = QStringLiteral("L'ultima apertura non è riuscita: ripetere Apri Archivio (Ctrl+O)");
const QString kIlleggibile = QStringLiteral("Il contenuto dell'archivio non è leggibile.");
const QString kBloccato = QStringLiteral("Il database è bloccato da un altro programma.");

const Box kModelloAssente{
    QStringLiteral("Attenzione il file di sistema QzDBClienti.bck potrebbe essere assente !!!"),
    Icon::Critical, QStringLiteral("ATTENZIONE"), Buttons::Ok};
const Box kSovrascrivere{QStringLiteral("FILE GIA' ESISTENTE! VUOI SOVRASCIVERLO?"), Icon::None,
                         QStringLiteral("ATTENZIONE"), Buttons::YesNo, Preset::Last};
const Box kVuoto = box(QStringLiteral("Attenzione l'archivio degli clienti e' vuoto"), Icon::Warning);

constexpr QFileDevice::Permissions kCartellaInSolaLettura = QFileDevice::ReadOwner | QFileDevice::ExeOwner |
                                                            QFileDevice::ReadGroup | QFileDevice::ExeGroup |
                                                            QFileDevice::ReadOther | QFileDevice::ExeOther;
constexpr QFileDevice::Permissions kFileInSolaLettura =
    QFileDevice::ReadOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther;
constexpr QFileDevice::Permissions kCartellaPropria =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;

/// The workspace on the screen, behind the menu of the program, before screens that are windows of these
/// names and no more.
struct GestioneClienti : testing::Test {
  Office ufficio;
  QPointer<QWidget> screen;

  GestioneClienti() {
    style::iconFolder(QStringLiteral(GESTIONALE_APP "/icons"));
    registraSchermateCore(ufficio.screens);
    for (const char* nome : {"Form_AnagraficaClienti", "Form_ArchivioFattureClienti",
                             "Form_TrasferimentoClienti", "Form_RicezioneClienti"})
      ufficio.screens.registra(QLatin1String(nome), [nome](Contesto&) {
        auto* finestra = new QDialog;
        finestra->setObjectName(QLatin1String(nome));
        return finestra;
      });
    ufficio.screens.registra<Form_GestioneClienti>();
  }
  void SetUp() override {
    ufficio.user.answers(Answer::Cancel);
    ufficio.screens.mostra(QStringLiteral("start"), ufficio.contesto);
    ufficio.takeBoxes();
    dalMenu();
  }
  void dalMenu() {
    QTest::mouseClick(menu()->findChild<QWidget*>(QStringLiteral("Label7")), Qt::LeftButton);
    screen = ufficio.screens.trova(QStringLiteral("Form_GestioneClienti"));
    ASSERT_NE(screen, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(screen));
  }
  QWidget* menu() const { return ufficio.screens.trova(QStringLiteral("start")); }

  template <typename Type = QWidget>
  Type& control(const char* name) const {
    auto* found = screen->findChild<Type*>(QLatin1String(name));
    if (!found) throw std::runtime_error(std::string("no control ") + name);
    return *found;
  }
  QString text(const char* label) const { return control<QLabel>(label).text(); }
  QString pannello() const { return text("StatusBar_1"); }
  QString outcome() const { return control<OutcomeBar>("BarraEsito").text(); }
  Kind outcomeKind() const { return control<OutcomeBar>("BarraEsito").kind(); }
  void click(const char* name) const { QTest::mouseClick(&control(name), Qt::LeftButton); }
  bool active(const char* name) const { return control<QAction>(name).isEnabled(); }
  /// Opens the File menu and clicks the entry.
  void entry(const char* name) const {
    auto& file = control<QMenu>("mnuFile");
    auto& bar = *screen->findChild<QMenuBar*>();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(file.menuAction()).center());
    ASSERT_TRUE(file.isVisible());
    QTest::mouseClick(&file, Qt::LeftButton, {}, file.actionGeometry(&control<QAction>(name)).center());
    file.hide();
  }
  int enabledCommands() const {
    int enabled = 0;
    for (const char* name : kComandi) enabled += control(name).isEnabled() ? 1 : 0;
    return enabled;
  }
  void create(const QString& name = kArchivio) {
    ufficio.user.chooses(ufficio.folder.file(name));
    entry("mnuNuovo");
  }
  void open(const QString& name = kArchivio) {
    ufficio.user.chooses(ufficio.folder.file(name));
    entry("mnuApri");
  }
  void openCancelled() {
    ufficio.user.chooses(std::nullopt);
    entry("mnuApri");
  }
  bool aperto() const { return varGlobal().DB_Clienti.isOpen(); }
  qsizetype clienti() {
    return ufficio.rows(QStringLiteral("SELECT ID_Cliente from TAB_ANAG_CLIENTI where ID_Cliente <> 0"))
        .size();
  }
  /// The name of the screen that the gesture opens, which is closed again.
  QString apreSchermata(const std::function<void()>& gesto) {
    QString nome;
    withModal(gesto, [&](QWidget& modale) {
      nome = modale.objectName();
      QTest::keyClick(&modale, Qt::Key_Escape);
    });
    return nome;
  }
  void expectTooltips(const QString& perche) {
    for (const char* nome : kComandi) EXPECT_EQ(control(nome).toolTip(), perche) << nome;
  }
  /// The first of the two states.
  void expectClosed() {
    EXPECT_FALSE(aperto());
    EXPECT_EQ(enabledCommands(), 0);
    for (const char* voce : {"mnuNuovo", "mnuApri", "mnuClose"}) EXPECT_TRUE(active(voce)) << voce;
    for (const char* tasto : {"PulsanteNuovo", "PulsanteApri", "PulsanteChiudi", "Cmd_Esci"})
      EXPECT_TRUE(control(tasto).isEnabled()) << tasto;
    EXPECT_EQ(pannello(), QString());
    EXPECT_EQ(text("LabelArchivio"), QStringLiteral("Nessun archivio aperto"));
  }
  /// The second one.
  void expectOpen(const QString& name = kArchivio) {
    EXPECT_TRUE(aperto());
    EXPECT_EQ(varGlobal().NomeDB_Clienti, ufficio.folder.file(name));
    EXPECT_EQ(enabledCommands(), kCommands);
    for (const char* voce : {"mnuNuovo", "mnuApri", "mnuClose"}) EXPECT_TRUE(active(voce)) << voce;
    EXPECT_TRUE(control("Cmd_Esci").isEnabled());
    EXPECT_EQ(pannello(), QStringLiteral("Nome archivio : ") + name);
    EXPECT_EQ(text("LabelArchivio"), name);
  }
};

// What it looks like.

TEST_F(GestioneClienti, HaTitoloComandiEVociDiMenu) {
  EXPECT_EQ(screen->objectName(), QStringLiteral("Form_GestioneClienti"));
  EXPECT_EQ(screen->windowTitle(), QStringLiteral("Gestione Clienti"));
  EXPECT_EQ(control<QAbstractButton>("Cmd_AnagraficaClienti").text(), QStringLiteral("Anagrafe Clienti"));
  EXPECT_EQ(control<QAbstractButton>("Cmd_ArchivioFatture").text(), QStringLiteral("Fatture"));
  EXPECT_EQ(control<QAbstractButton>("Cmd_Down").text(), QStringLiteral("Trasferimento Archivio Clienti"));
  EXPECT_EQ(control<QAbstractButton>("Cmd_Upl").text(),
            QStringLiteral("Ricezione archivio clienti e/o fatture"));
  EXPECT_EQ(control<QAbstractButton>("Cmd_Esci").text(), QStringLiteral("Esci"));
  EXPECT_EQ(control<QMenu>("mnuFile").actions(),
            QList<QAction*>({&control<QAction>("mnuNuovo"), &control<QAction>("mnuApri"),
                             &control<QAction>("mnuClose")}));
}

bool dipinta(const QIcon& icona) {
  const QImage figura = icona.pixmap(32).toImage();
  for (int y = 0; y < figura.height(); ++y)
    for (int x = 0; x < figura.width(); ++x)
      if (figura.pixelColor(x, y).alpha() > 0) return true;
  return false;
}

TEST_F(GestioneClienti, OgniVoceEOgniTastoHannoUnaFiguraEUnaSpiegazione) {
  for (const char* voce : {"mnuNuovo", "mnuApri", "mnuClose"})
    EXPECT_TRUE(dipinta(control<QAction>(voce).icon())) << voce;
  for (const char* nome : {"PulsanteNuovo", "PulsanteApri", "PulsanteChiudi", "Cmd_AnagraficaClienti",
                           "Cmd_ArchivioFatture", "Cmd_Down", "Cmd_Upl", "Cmd_Esci"}) {
    const auto& tasto = control<QAbstractButton>(nome);
    EXPECT_FALSE(tasto.text().isEmpty()) << nome;
    EXPECT_FALSE(tasto.toolTip().isEmpty()) << nome;
    EXPECT_TRUE(dipinta(tasto.icon())) << nome;
  }
  EXPECT_EQ(control("PulsanteChiudi").toolTip(), QStringLiteral("Chiudi l'archivio aperto (Ctrl+W)"));
}

TEST_F(GestioneClienti, LaBarraDiStatoHaUnPannelloSolo) {
  EXPECT_EQ(control<QStatusBar>("StatusBar").findChildren<QLabel*>().size(), 1);
  EXPECT_EQ(control<QLabel>("StatusBar_1").alignment(), Qt::AlignLeft | Qt::AlignVCenter);
}

TEST_F(GestioneClienti, AllAperturaIComandiSonoSpentiEIlPannelloEVuoto) {
  expectClosed();
  expectTooltips(kSenza);
  EXPECT_TRUE(menu()->isHidden());
}

// New.

TEST_F(GestioneClienti, NuovoCopiaIlModelloELoApre) {
  create();
  expectOpen();
  EXPECT_EQ(ufficio.rows(QStringLiteral("SELECT ID_Cliente,Stato from TAB_ANAG_CLIENTI")),
            QStringList{QStringLiteral("0|1")});
  EXPECT_EQ(text("LabelClienti"), QStringLiteral("0 clienti e 0 fatture"));
  EXPECT_EQ(outcome(), QStringLiteral("Archivio creato: clienti.mdb"));
  EXPECT_EQ(outcomeKind(), Kind::Done);
}

TEST_F(GestioneClienti, LeFinestreDeiFileOffronoGliArchiviDellaCartellaDelProgramma) {
  create();
  openCancelled();
  ASSERT_EQ(ufficio.user.requests().size(), 2U);
  for (const FileRequest& finestra : ufficio.user.requests()) {
    EXPECT_EQ(finestra.filter, QStringLiteral("mdb (*.mdb)|*.mdb"));
    EXPECT_EQ(finestra.folder, QStringLiteral(GESTIONALE_APP));
  }
}

TEST_F(GestioneClienti, SenzaModelloNuovoSiFermaAlSuoAvviso) {
  ufficio.contesto.cartella = ufficio.folder.path();
  entry("mnuNuovo");
  EXPECT_THAT(ufficio.user.boxes(), ElementsAre(kModelloAssente));
  EXPECT_THAT(ufficio.user.requests(), IsEmpty());
  EXPECT_FALSE(QFile::exists(ufficio.folder.file(kArchivio)));
  EXPECT_EQ(varGlobal().NomeDB_Clienti, QString());
  expectClosed();
}

TEST_F(GestioneClienti, SenzaModelloConUnArchivioApertoQuelloResta) {
  create();
  ufficio.contesto.cartella = ufficio.folder.path();
  entry("mnuNuovo");
  EXPECT_THAT(ufficio.takeBoxes(), ElementsAre(kModelloAssente));
  EXPECT_EQ(ufficio.user.requests().size(), 1U);
  expectOpen();
}

TEST_F(GestioneClienti, NuovoAnnullatoOSenzaNomeLasciaTuttoComEra) {
  for (const std::optional<QString>& scelta : {std::optional<QString>(), std::optional<QString>(QString())}) {
    ufficio.user.chooses(scelta);
    entry("mnuNuovo");
    EXPECT_THAT(ufficio.user.boxes(), IsEmpty());
    EXPECT_EQ(varGlobal().NomeDB_Clienti, QString());
    expectClosed();
  }
}

TEST_F(GestioneClienti, NuovoAnnullatoConUnArchivioApertoNeLasciaIComandi) {
  create();
  ufficio.user.chooses(std::nullopt);
  entry("mnuNuovo");
  expectOpen();
}

TEST_F(GestioneClienti, NoAllaSovrascritturaLasciaIlFileComEra) {
  ufficio.folder.write(kArchivio, "intatto");
  ufficio.user.answers(Answer::No);
  create();
  EXPECT_THAT(ufficio.user.boxes(), ElementsAre(kSovrascrivere));
  EXPECT_EQ(ufficio.folder.read(kArchivio), "intatto");
  expectClosed();
}

TEST_F(GestioneClienti, SovrascrivereConservaLArchivioDiPrima) {
  create();
  ufficio.customer(1, QStringLiteral("ROSSI"));
  ufficio.user.answers(Answer::Yes);
  create();
  EXPECT_THAT(ufficio.user.boxes(), ElementsAre(kSovrascrivere));
  EXPECT_EQ(clienti(), 0);
  expectOpen();
  EXPECT_EQ(outcome(), QStringLiteral("Archivio creato: clienti.mdb. L'archivio di prima è in "
                                      "clienti.mdb.precedente"));
  open(QStringLiteral("clienti.mdb.precedente"));
  EXPECT_EQ(clienti(), 1);
}

TEST_F(GestioneClienti, SovrascrivereUnFileQualsiasiLoConserva) {
  ufficio.folder.write(kArchivio, "vecchio");
  ufficio.user.answers(Answer::Yes);
  create();
  EXPECT_THAT(ufficio.user.boxes(), ElementsAre(kSovrascrivere));
  EXPECT_EQ(ufficio.folder.read(QStringLiteral("clienti.mdb.precedente")), "vecchio");
  expectOpen();
}

TEST_F(GestioneClienti, SeLArchivioDiPrimaNonSiPuoConservareRestaAlSuoPosto) {
  create();
  ufficio.customer(1, QStringLiteral("ROSSI"));
  ASSERT_TRUE(QDir().mkpath(ufficio.folder.file(QStringLiteral("clienti.mdb.precedente/occupata"))));
  ufficio.user.answers(Answer::Yes);
  create();
  EXPECT_THAT(ufficio.user.boxes(), ElementsAre(kSovrascrivere));
  EXPECT_EQ(outcomeKind(), Kind::Failed);
  EXPECT_EQ(clienti(), 1);
  expectOpen();
}

TEST_F(GestioneClienti, UnSecondoNuovoSostituisceLArchivio) {
  create();
  ufficio.customer(1, QStringLiteral("ROSSI"));
  create(QStringLiteral("altro.mdb"));
  expectOpen(QStringLiteral("altro.mdb"));
  EXPECT_EQ(clienti(), 0);
  open();
  EXPECT_EQ(clienti(), 1);
}

TEST_F(GestioneClienti, NuovoInUnaCartellaAssenteFallisceInSilenzioAlPiede) {
  create(QStringLiteral("assente/clienti.mdb"));
  EXPECT_THAT(ufficio.user.boxes(), IsEmpty());
  EXPECT_EQ(outcomeKind(), Kind::Failed);
  EXPECT_NE(outcome(), QString());
  expectClosed();
}

TEST_F(GestioneClienti, NuovoInUnaCartellaInSolaLetturaLasciaTuttoComEra) {
  ufficio.folder.write(kArchivio, "intatto");
  ASSERT_TRUE(QFile::setPermissions(ufficio.folder.file(kArchivio), kFileInSolaLettura));
  ASSERT_TRUE(QFile::setPermissions(ufficio.folder.path(), kCartellaInSolaLettura));
  ufficio.user.answers(Answer::Yes);
  {
    const OtherUser altro;
    create();
    create(QStringLiteral("nuovo.mdb"));
  }
  ASSERT_TRUE(QFile::setPermissions(ufficio.folder.path(), kCartellaPropria));
  EXPECT_THAT(ufficio.user.boxes(), ElementsAre(kSovrascrivere));
  EXPECT_EQ(ufficio.folder.read(kArchivio), "intatto");
  EXPECT_FALSE(QFile::exists(ufficio.folder.file(QStringLiteral("nuovo.mdb"))));
  EXPECT_EQ(outcomeKind(), Kind::Failed);
  expectClosed();
}

TEST_F(GestioneClienti, NuovoSuUnDiscoPienoDiceQualeFileNonCiSta) {
  {
    const FullDisk pieno(4096);
    create();
  }
  EXPECT_EQ(outcome(), QStringLiteral("Disco pieno: ") + ufficio.folder.file(kArchivio));
  EXPECT_EQ(outcomeKind(), Kind::Failed);
  expectClosed();
}

/// A template that is none: its copy takes the place of the archive and does not open.
struct ModelloGuasto : GestioneClienti {
  void nuovoSopra(const QString& nome) {
    ufficio.folder.write(QStringLiteral("QzDBClienti.bck"),
                         QByteArray("non sono un archivio\r\n").repeated(500));
    ufficio.contesto.cartella = ufficio.folder.path();
    ufficio.user.answers(Answer::Yes);
    create(nome);
    EXPECT_THAT(ufficio.takeBoxes(), ElementsAre(kSovrascrivere));
    EXPECT_EQ(outcome(), QStringLiteral("Formato di database non riconosciuto"));
    EXPECT_EQ(outcomeKind(), Kind::Failed);
  }
};

TEST_F(ModelloGuasto, NuovoSopraLArchivioApertoLasciaLoSchermoSenzaArchivio) {
  create();
  nuovoSopra(kArchivio);
  expectClosed();
  for (const char* nome : kComandi) click(nome);
  EXPECT_THAT(ufficio.user.boxes(), IsEmpty());
  EXPECT_FALSE(ufficio.user.terminated());
}

TEST_F(ModelloGuasto, NuovoSopraUnAltroFileLasciaLArchivioAperto) {
  create();
  ufficio.folder.write(QStringLiteral("altro.mdb"), "vecchio");
  nuovoSopra(QStringLiteral("altro.mdb"));
  expectOpen();
}

// Open.

TEST_F(GestioneClienti, ApriApreUnArchivioEDiceQuantoContiene) {
  create();
  ufficio.customer(1, QStringLiteral("ROSSI"));
  ufficio.customer(2, QStringLiteral("BIANCHI"));
  ufficio.invoice(1, QStringLiteral("2024/1"), QStringLiteral("07/03/2024 10:11:12"), 12345);
  entry("mnuClose");
  open();
  expectOpen();
  EXPECT_EQ(text("LabelClienti"), QStringLiteral("2 clienti e 1 fattura"));
  EXPECT_EQ(outcome(), QStringLiteral("Archivio aperto: clienti.mdb, 2 clienti e 1 fattura"));
  EXPECT_EQ(outcomeKind(), Kind::Done);
}

TEST_F(GestioneClienti, ApriRestaAccesoESostituisceLArchivioAperto) {
  create();
  create(QStringLiteral("altro.mdb"));
  open();
  expectOpen();
  open(QStringLiteral("altro.mdb"));
  expectOpen(QStringLiteral("altro.mdb"));
}

TEST_F(GestioneClienti, RiaprireLoStessoArchivioNeTieneIDati) {
  create();
  ufficio.customer(1, QStringLiteral("ROSSI"));
  open();
  expectOpen();
  EXPECT_EQ(clienti(), 1);
}

TEST_F(GestioneClienti, ApriAnnullatoSenzaArchivioLasciaIComandiSpenti) {
  openCancelled();
  EXPECT_THAT(ufficio.user.boxes(), IsEmpty());
  expectClosed();
  expectTooltips(kSenza);
  EXPECT_EQ(outcome(), QString());
}

TEST_F(GestioneClienti, ApriAnnullatoSpegneIComandiAncheDiUnArchivioAperto) {
  create();
  openCancelled();
  EXPECT_THAT(ufficio.user.boxes(), IsEmpty());
  EXPECT_EQ(enabledCommands(), 0);
  EXPECT_TRUE(aperto());
  EXPECT_EQ(varGlobal().NomeDB_Clienti, ufficio.folder.file(kArchivio));
  EXPECT_EQ(pannello(), QStringLiteral("Nome archivio : clienti.mdb"));
  expectTooltips(kAnnullata);
  EXPECT_EQ(outcome(),
            QStringLiteral("Apertura annullata: i comandi restano spenti, si riapre l'archivio con Ctrl+O."));
  EXPECT_EQ(outcomeKind(), Kind::Warning);
}

TEST_F(GestioneClienti, DopoUnAperturaAnnullataSiRiapre) {
  create();
  openCancelled();
  open();
  expectOpen();
  EXPECT_EQ(control("Cmd_Upl").toolTip(), QStringLiteral("Ricevi clienti e fatture dal misuratore fiscale"));
}

TEST_F(GestioneClienti, DopoUnAperturaAnnullataChiudiChiudeLArchivio) {
  create();
  openCancelled();
  entry("mnuClose");
  EXPECT_EQ(outcome(), QStringLiteral("Archivio chiuso: clienti.mdb"));
  expectClosed();
  expectTooltips(kSenza);
}

/// Looks at the screen while the dialog of a file stands over it.
struct Osservatore : ScriptedUser {
  std::function<void()> allaFinestra;
  std::optional<QString> AskOpenPath(const FileRequest& finestra) override {
    allaFinestra();
    return ScriptedUser::AskOpenPath(finestra);
  }
};

TEST_F(GestioneClienti, IComandiSonoSpentiGiaMentreSiSceglieIlFile) {
  Osservatore utente;
  Contesto contesto{
      utente,          ufficio.workspace, ufficio.library,           ufficio.network,
      ufficio.screens, ufficio.clock,     ufficio.contesto.cartella, ufficio.contesto.attesaDopo};
  Form_GestioneClienti schermo(contesto);
  schermo.show();
  utente.chooses(ufficio.folder.file(kArchivio));
  schermo.findChild<QAction*>(QStringLiteral("mnuNuovo"))->trigger();
  const auto accesi = [&schermo] {
    QStringList nomi;
    for (const char* nome : kComandi)
      if (schermo.findChild<QWidget*>(QLatin1String(nome))->isEnabled()) nomi << QLatin1String(nome);
    return nomi;
  };
  ASSERT_EQ(accesi().size(), kCommands);
  QStringList allaFinestra{QStringLiteral("never asked")};
  utente.allaFinestra = [&] { allaFinestra = accesi(); };
  utente.chooses(ufficio.folder.file(kArchivio));
  schermo.findChild<QAction*>(QStringLiteral("mnuApri"))->trigger();
  EXPECT_EQ(allaFinestra, QStringList());
  EXPECT_EQ(accesi().size(), kCommands);
}

/// Files that are no archive to open, and those that do not let themselves be opened.
struct NonSiApre : GestioneClienti {
  void fallisce(const QString& nome) {
    SCOPED_TRACE(nome.toStdString());
    open(nome);
    EXPECT_THAT(ufficio.user.boxes(), IsEmpty());
    EXPECT_NE(outcome(), QString());
    EXPECT_EQ(outcomeKind(), Kind::Failed);
    EXPECT_EQ(enabledCommands(), 0);
  }
};

TEST_F(NonSiApre, UnTestoUnFileVuotoOCortoNonSonoArchivi) {
  ufficio.folder.write(QStringLiteral("testo.mdb"), QByteArray("non sono un archivio\r\n").repeated(500));
  ufficio.folder.write(QStringLiteral("vuoto.mdb"), {});
  ufficio.folder.write(QStringLiteral("corto.mdb"), QByteArray("SQLite format 3"));
  for (const char* nome : {"testo.mdb", "vuoto.mdb", "corto.mdb"}) {
    fallisce(QLatin1String(nome));
    expectClosed();
    expectTooltips(kSenza);
  }
  EXPECT_EQ(ufficio.folder.read(QStringLiteral("vuoto.mdb")), QByteArray());
}

TEST_F(NonSiApre, UnArchivioTagliatoNonSiApreOSiDiceIlleggibile) {
  create();
  entry("mnuClose");
  const QByteArray intero = ufficio.folder.read(kArchivio);
  ufficio.folder.write(QStringLiteral("tagliato.mdb"), intero.left(intero.size() / 2));
  open(QStringLiteral("tagliato.mdb"));
  EXPECT_THAT(ufficio.user.boxes(), IsEmpty());
  EXPECT_NE(outcomeKind(), Kind::Done) << outcome().toStdString();
  EXPECT_EQ(ufficio.folder.read(QStringLiteral("tagliato.mdb")), intero.left(intero.size() / 2));
}

TEST_F(NonSiApre, UnFileAssenteNonNasce) {
  fallisce(QStringLiteral("assente.mdb"));
  EXPECT_FALSE(QFile::exists(ufficio.folder.file(QStringLiteral("assente.mdb"))));
  expectClosed();
}

TEST_F(NonSiApre, UnaCartellaNonEUnArchivio) {
  ASSERT_TRUE(QDir().mkpath(ufficio.folder.file(QStringLiteral("cartella.mdb"))));
  fallisce(QStringLiteral("cartella.mdb"));
  expectClosed();
}

TEST_F(NonSiApre, UnArchivioBloccatoSiApreQuandoELibero) {
  create();
  entry("mnuClose");
  {
    const OtherProgram altro(ufficio.folder.file(kArchivio), {QStringLiteral("BEGIN EXCLUSIVE")});
    fallisce(kArchivio);
    EXPECT_EQ(outcome(), kBloccato);
    expectClosed();
  }
  open();
  expectOpen();
}

TEST_F(NonSiApre, UnFallimentoConUnArchivioApertoNeSpegneIComandiELoDice) {
  create();
  ufficio.folder.write(QStringLiteral("testo.mdb"), QByteArray("non sono un archivio\r\n").repeated(500));
  fallisce(QStringLiteral("testo.mdb"));
  EXPECT_TRUE(aperto());
  EXPECT_EQ(varGlobal().NomeDB_Clienti, ufficio.folder.file(kArchivio));
  EXPECT_EQ(pannello(), QStringLiteral("Nome archivio : clienti.mdb"));
  expectTooltips(kFallita);
  open();
  expectOpen();
}

TEST_F(GestioneClienti, UnArchivioInSolaLetturaSiApreLoStesso) {
  create();
  ufficio.customer(1, QStringLiteral("ROSSI"));
  entry("mnuClose");
  ASSERT_TRUE(QFile::setPermissions(ufficio.folder.file(kArchivio), kFileInSolaLettura));
  ASSERT_TRUE(QFile::setPermissions(ufficio.folder.path(), kCartellaInSolaLettura));
  {
    const OtherUser altro;
    open();
  }
  ASSERT_TRUE(QFile::setPermissions(ufficio.folder.path(), kCartellaPropria));
  expectOpen();
  EXPECT_EQ(text("LabelClienti"), QStringLiteral("1 cliente e 0 fatture"));
}

TEST_F(GestioneClienti, UnDatabaseDiAltroGenereSiApreSenzaControlli) {
  ufficio.openWith({QStringLiteral("CREATE TABLE ALTRO (a)")});
  customers::ChiudiDatabase();
  open(QStringLiteral("altro.mdb"));
  expectOpen(QStringLiteral("altro.mdb"));
  EXPECT_EQ(text("LabelClienti"), kIlleggibile);
  EXPECT_EQ(outcome(), QStringLiteral("Archivio aperto: altro.mdb. ") + kIlleggibile);
  EXPECT_EQ(outcomeKind(), Kind::Warning);
}

TEST_F(GestioneClienti, LaViaNonStaNelPannelloComunqueLunga) {
  QString via = QStringLiteral("sotto");
  for (int i = 0; i < 12; ++i) via += QStringLiteral("/cartella dal nome molto lungo %1").arg(i);
  ASSERT_TRUE(QDir().mkpath(ufficio.folder.file(via)));
  create(via + QStringLiteral("/negozio.mdb"));
  EXPECT_EQ(pannello(), QStringLiteral("Nome archivio : negozio.mdb"));
  EXPECT_EQ(control("StatusBar_1").toolTip(), ufficio.folder.file(via + QStringLiteral("/negozio.mdb")));
}

TEST_F(GestioneClienti, UnNomeLungoStaInteroNelPannelloENonAllargaLaFinestra) {
  style::apply(*qobject_cast<QApplication*>(QCoreApplication::instance()), style::Theme::Light);
  const QString lungo = QString(200, QLatin1Char('n')) + QStringLiteral(".mdb");
  create(lungo);
  EXPECT_EQ(pannello(), QStringLiteral("Nome archivio : ") + lungo);
  screen->resize(512, 384);
  QCoreApplication::processEvents();
  EXPECT_EQ(screen->width(), 512);
}

// Close.

TEST_F(GestioneClienti, ChiudiChiudeLArchivioESpegneIComandi) {
  create();
  entry("mnuClose");
  EXPECT_EQ(outcome(), QStringLiteral("Archivio chiuso: clienti.mdb"));
  EXPECT_EQ(outcomeKind(), Kind::Done);
  expectClosed();
  expectTooltips(kSenza);
}

TEST_F(GestioneClienti, ChiudiSenzaArchivioLoDiceENonFaNulla) {
  click("PulsanteChiudi");
  EXPECT_EQ(outcome(), QStringLiteral("Nessun archivio era aperto."));
  EXPECT_EQ(outcomeKind(), Kind::Plain);
  expectClosed();
}

/// An archive whose last transaction cannot be committed: somebody else reads it.
struct ChiusuraGuasta : GestioneClienti {
  std::unique_ptr<OtherProgram> lettore;

  void SetUp() override {
    GestioneClienti::SetUp();
    create();
    ufficio.workspace.BeginTrans();
    ufficio.customer(1, QStringLiteral("ROSSI"));
    lettore = std::make_unique<OtherProgram>(
        ufficio.folder.file(kArchivio),
        QStringList{QStringLiteral("BEGIN"), QStringLiteral("SELECT count(*) FROM TAB_ANAG_CLIENTI")});
  }
};

TEST_F(ChiusuraGuasta, ChiudiLoDiceAlPiedeELoSchermoESenzaArchivio) {
  entry("mnuClose");
  EXPECT_EQ(outcome(), kBloccato);
  EXPECT_EQ(outcomeKind(), Kind::Failed);
  expectClosed();
  lettore.reset();
  open();
  expectOpen();
  EXPECT_EQ(clienti(), 0);
}

TEST_F(ChiusuraGuasta, EsciLoDiceETornaAlMenuLoStesso) {
  click("Cmd_Esci");
  EXPECT_THAT(
      ufficio.user.boxes(),
      ElementsAre(plainBox(QStringLiteral("Error 3260 (") + kBloccato +
                           QStringLiteral(") in procedure Cmd_Esci_Click of Modulo Form_GestioneClienti"))));
  EXPECT_FALSE(aperto());
  EXPECT_FALSE(screen->isVisible());
  EXPECT_TRUE(menu()->isVisible());
}

// The four screens.

TEST_F(GestioneClienti, OgniComandoApreLaSuaSchermata) {
  create();
  ufficio.customer(1, QStringLiteral("ROSSI"));
  EXPECT_EQ(apreSchermata([this] { click("Cmd_AnagraficaClienti"); }),
            QStringLiteral("Form_AnagraficaClienti"));
  EXPECT_EQ(apreSchermata([this] { click("Cmd_ArchivioFatture"); }),
            QStringLiteral("Form_ArchivioFattureClienti"));
  EXPECT_EQ(apreSchermata([this] { click("Cmd_Down"); }), QStringLiteral("Form_TrasferimentoClienti"));
  EXPECT_EQ(apreSchermata([this] { click("Cmd_Upl"); }), QStringLiteral("Form_RicezioneClienti"));
  EXPECT_TRUE(screen->isVisible());
  expectOpen();
}

TEST_F(GestioneClienti, UnArchivioSenzaClientiNonSiTrasferisceMaRiceve) {
  create();
  click("Cmd_Down");
  EXPECT_THAT(ufficio.takeBoxes(), ElementsAre(kVuoto));
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(apreSchermata([this] { click("Cmd_Upl"); }), QStringLiteral("Form_RicezioneClienti"));
  EXPECT_EQ(apreSchermata([this] { click("Cmd_AnagraficaClienti"); }),
            QStringLiteral("Form_AnagraficaClienti"));
  EXPECT_EQ(apreSchermata([this] { click("Cmd_ArchivioFatture"); }),
            QStringLiteral("Form_ArchivioFattureClienti"));
}

TEST_F(GestioneClienti, UnArchivioCheHaPersoAncheLAnonimoContaMenoUnoESiTrasferisce) {
  create();
  ufficio.execute(QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI"));
  EXPECT_EQ(apreSchermata([this] { click("Cmd_Down"); }), QStringLiteral("Form_TrasferimentoClienti"));
  EXPECT_THAT(ufficio.user.boxes(), IsEmpty());
}

TEST_F(GestioneClienti, UnConteggioFallitoSiDiceEContaZero) {
  ufficio.openWith({QStringLiteral("CREATE TABLE ALTRO (a)")});
  customers::ChiudiDatabase();
  open(QStringLiteral("altro.mdb"));
  click("Cmd_Down");
  expectBoxes(ufficio, {criticalBox(QStringLiteral("CalcolaNumClienti 3078 - *")), kVuoto});
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(GestioneClienti, LAvvisoDellArchivioVuotoRestaAlPiede) {
  create();
  click("Cmd_Down");
  EXPECT_THAT(ufficio.takeBoxes(), ElementsAre(kVuoto));
  EXPECT_EQ(outcome(), kVuoto.text);
  EXPECT_EQ(outcomeKind(), Kind::Warning);
}

TEST_F(GestioneClienti, AlRitornoLaSchedaContaDiNuovo) {
  create();
  withModal([this] { click("Cmd_Upl"); },
            [this](QWidget& modale) {
              ufficio.customer(1, QStringLiteral("ROSSI"));
              QTest::keyClick(&modale, Qt::Key_Escape);
            });
  EXPECT_EQ(text("LabelClienti"), QStringLiteral("1 cliente e 0 fatture"));
}

// The batch, which no command reaches.

struct IstruzioniDalloSchermo : GestioneClienti {
  customers::EsitoIstruzioni importa(const QByteArray& righe) {
    ufficio.user.chooses(ufficio.folder.write(QStringLiteral("istruzioni.dat"), righe));
    return dynamic_cast<Form_GestioneClienti&>(*screen).ImportaIstruzioni();
  }
};

TEST_F(IstruzioniDalloSchermo, RiuscitaLaSchedaContaELeIstruzioniSiDicono) {
  create();
  importa(
      "INSERT INTO TAB_ANAG_CLIENTI VALUES (1,'ROSSI','','','','',1)\r\n"
      "INSERT INTO TAB_ANAG_CLIENTI VALUES (2,'BIANCHI','','','','',1)\r\n");
  EXPECT_THAT(ufficio.takeBoxes(),
              ElementsAre(box(QStringLiteral("Operazione di Import ARTICOLI eseguita correttamente"),
                              Icon::Information)));
  EXPECT_EQ(text("LabelClienti"), QStringLiteral("2 clienti e 0 fatture"));
  EXPECT_EQ(outcome(), QStringLiteral("Eseguite 2 istruzioni."));
  EXPECT_EQ(outcomeKind(), Kind::Done);
}

TEST_F(IstruzioniDalloSchermo, FallitaDiceDopoQuanteRighe) {
  create();
  importa("INSERT INTO TAB_ANAG_CLIENTI VALUES (1,'ROSSI','','','','',1)\r\nDELETE FROM MANCA\r\n");
  expectBoxes(ufficio, {criticalBox(QStringLiteral("Errore nell' inserimento articoli Errore n° 3078\n*"))});
  EXPECT_EQ(outcome(), QStringLiteral("Istruzioni annullate dopo 1 riga: l'archivio è rimasto com'era."));
  EXPECT_EQ(outcomeKind(), Kind::Failed);
  EXPECT_EQ(clienti(), 0);
}

TEST_F(IstruzioniDalloSchermo, AnnullataNonDiceNulla) {
  create();
  ufficio.user.chooses(std::nullopt);
  EXPECT_EQ(dynamic_cast<Form_GestioneClienti&>(*screen).ImportaIstruzioni().tipo,
            customers::EsitoIstruzioni::Tipo::Abbandonato);
  EXPECT_EQ(outcome(), QString());
  expectOpen();
}

TEST_F(IstruzioniDalloSchermo, NessunaVoceENessunTastoLaRaggiunge) {
  create();
  // "Nuovo" and "Apri" ask for a file each, from the menu and from their buttons. A batch would ask too, and
  // with no answer left for it.
  for (int i = 0; i < 4; ++i) ufficio.user.chooses(std::nullopt);
  for (QAction* voce : screen->findChildren<QAction*>()) voce->trigger();
  for (const char* tasto : {"PulsanteNuovo", "PulsanteApri", "PulsanteChiudi"}) click(tasto);
  open();
  ufficio.customer(1, QStringLiteral("ROSSI"));
  for (const char* comando : kComandi) apreSchermata([&] { click(comando); });
  ASSERT_EQ(ufficio.user.requests().size(), 6U);
  for (const FileRequest& finestra : ufficio.user.requests())
    EXPECT_EQ(finestra.filter, QStringLiteral("mdb (*.mdb)|*.mdb"));
}

// The way out.

TEST_F(GestioneClienti, EsciChiudeLArchivioETornaAlMenu) {
  create();
  click("Cmd_Esci");
  EXPECT_FALSE(aperto());
  EXPECT_FALSE(screen->isVisible());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(ufficio.screens.trova(QStringLiteral("Form_GestioneClienti")), nullptr);
  EXPECT_TRUE(menu()->isVisible());
}

TEST_F(GestioneClienti, EscELaCorniceSonoQuelloDiUscita) {
  create();
  QTest::keyClick(screen, Qt::Key_Escape);
  EXPECT_FALSE(aperto());
  EXPECT_TRUE(menu()->isVisible());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  dalMenu();
  expectClosed();
  open();
  screen->close();
  EXPECT_FALSE(aperto());
  EXPECT_TRUE(menu()->isVisible());
}

// Keys and focus.

TEST_F(GestioneClienti, ConLaTastieraSiCreaSiChiudeESiApre) {
  ufficio.user.chooses(ufficio.folder.file(kArchivio));
  QTest::keyClick(screen, Qt::Key_N, Qt::ControlModifier);
  expectOpen();
  QTest::keyClick(screen, Qt::Key_W, Qt::ControlModifier);
  expectClosed();
  ufficio.user.chooses(ufficio.folder.file(kArchivio));
  QTest::keyClick(screen, Qt::Key_O, Qt::ControlModifier);
  expectOpen();
}

TEST_F(GestioneClienti, InvioPremeIlComandoColFuoco) {
  create();
  control("Cmd_ArchivioFatture").setFocus();
  EXPECT_EQ(apreSchermata([this] { QTest::keyClick(&control("Cmd_ArchivioFatture"), Qt::Key_Return); }),
            QStringLiteral("Form_ArchivioFattureClienti"));
  EXPECT_EQ(screen->focusWidget()->objectName(), QStringLiteral("Cmd_ArchivioFatture"));
}

TEST_F(GestioneClienti, InvioTenutoPremutoNonPremeNulla) {
  create();
  for (const char* nome : {"Cmd_ArchivioFatture", "Cmd_Esci"}) {
    control(nome).setFocus();
    QKeyEvent tenuto(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&control(nome), &tenuto);
    EXPECT_TRUE(screen->isVisible()) << nome;
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << nome;
  }
}

TEST_F(GestioneClienti, IlTabulatorePassaPerOgniComandoNelLoroOrdine) {
  create();
  control("PulsanteNuovo").setFocus();
  QStringList visitati;
  for (int i = 0; i < 8; ++i) {
    visitati.append(screen->focusWidget()->objectName());
    QTest::keyClick(screen->focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(
      visitati.join(QLatin1Char(' ')),
      QStringLiteral("PulsanteNuovo PulsanteApri PulsanteChiudi Cmd_AnagraficaClienti Cmd_ArchivioFatture "
                     "Cmd_Down Cmd_Upl Cmd_Esci"));
}

TEST_F(GestioneClienti, ChiudereLArchivioPassaIlFuocoAdApri) {
  create();
  control("Cmd_Down").setFocus();
  screen->activateWindow();
  ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == screen; }));
  QTest::keyClick(screen->focusWidget(), Qt::Key_W, Qt::ControlModifier);
  EXPECT_FALSE(aperto());
  EXPECT_EQ(screen->focusWidget()->objectName(), QStringLiteral("PulsanteApri"));
}

TEST_F(GestioneClienti, UnAperturaAnnullataPassaIlFuocoDaUnComandoAdApri) {
  create();
  control("Cmd_Upl").setFocus();
  screen->activateWindow();
  ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == screen; }));
  ufficio.user.chooses(std::nullopt);
  QTest::keyClick(screen->focusWidget(), Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(screen->focusWidget()->objectName(), QStringLiteral("PulsanteApri"));
}

TEST_F(GestioneClienti, IPulsantiDellaSchedaFannoQuantoLeVociDiMenu) {
  ufficio.user.chooses(ufficio.folder.file(kArchivio));
  click("PulsanteNuovo");
  expectOpen();
  click("PulsanteChiudi");
  expectClosed();
  ufficio.user.chooses(ufficio.folder.file(kArchivio));
  click("PulsanteApri");
  expectOpen();
}

TEST_F(GestioneClienti, F1EIlMenuApronoIlManuale) {
  const HelpKey tasto(ufficio.contesto);
  EXPECT_EQ(control<QAction>("mnuManuale").text(), QStringLiteral("&Manuale\tF1"));
  control<QAction>("mnuManuale").trigger();
  auto* manuale = screen->findChild<ManualViewer*>();
  ASSERT_NE(manuale, nullptr);
  manuale->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QTest::keyClick(screen, Qt::Key_F1);
  EXPECT_NE(screen->findChild<ManualViewer*>(), nullptr);
}

// Size.

TEST_F(GestioneClienti, StaInUnoSchermoDi1024Per768AlDuecentoPerCento) {
  style::apply(*qobject_cast<QApplication*>(QCoreApplication::instance()), style::Theme::Light);
  create();
  screen->resize(512, 384);
  QCoreApplication::processEvents();
  EXPECT_LE(screen->width(), 512);
  EXPECT_LE(screen->height(), 384);
}

}  // namespace
