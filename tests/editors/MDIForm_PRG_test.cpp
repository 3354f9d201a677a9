#include "editors/MDIForm_PRG.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QStackedWidget>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include "articles/Form_ArchivioArticoli.h"
#include "config/configuration_file.h"
#include "controls/FlexGrid.h"
#include "controls/outcome_bar.h"
#include "core/start.h"
#include "editors/Form_Reparti.h"
#include "editors/frmTastiOpzione.h"
#include "editors/guided_editor.h"
#include "editors/recorded_editor.h"
#include "platform/text/whole_file.h"
#include "sostegno/guided_screen.h"
#include "sostegno/troubles.h"

namespace {

const QString kNegozio = QStringLiteral("negozio.dat");
const QString kCompagno = QStringLiteral("negozio_art.mdb");
const QString kTastiera = QStringLiteral("Form_GestioneCodiceTastiera");
const QString kModello = QStringLiteral(GESTIONALE_APP "/QzPRG.bck");
const QString kModelloArticoli = QStringLiteral(GESTIONALE_APP "/QzDB.bck");
const Box kDomanda{QStringLiteral("Attenzione sono stati modificati dei parametri di configurazione: salvare "
                                  "prima di proseguire ?"),
                   Icon::Question, QStringLiteral("ATTENZIONE"), Buttons::YesNo};
constexpr qsizetype kTanto = 1 << 24;

QByteArray byteDi(const QString& percorso) {
  return ReadWholeFile(percorso, kTanto);
}

struct AreaProgrammazione : testing::Test {
  explicit AreaProgrammazione(const QString& cartella = QStringLiteral(GESTIONALE_APP))
      : bottega(QStringLiteral(GESTIONALE_APP), cartella) {
    config::azzeraConfigurazione();
    bottega.screens.registra(QStringLiteral("start"), [](Contesto& c) { return new start(c, {1280, 1024}); });
    bottega.screens.registra<MDIForm_PRG>();
    bottega.screens.registra<Form_ArchivioArticoli>();
    registerRecordedEditors(bottega, chiamate);
    bottega.screens.registra(kTastiera, [](Contesto&) {
      auto* tastiera = new QWidget;
      tastiera->setObjectName(kTastiera);
      return tastiera;
    });
    bottega.screens.registra(QStringLiteral("Form_TrasferimentoProgrammazione"), [this](Contesto&) {
      auto* finestra = new QDialog;
      finestra->setObjectName(QStringLiteral("Form_TrasferimentoProgrammazione"));
      QMetaObject::invokeMethod(
          finestra,
          [this, finestra] {
            if (durante) durante();
            finestra->reject();
          },
          Qt::QueuedConnection);
      return finestra;
    });
    bottega.screens.mostra(QStringLiteral("start"), bottega.contesto);
    schermo = &bottega.screens.mostra(QStringLiteral("MDIForm_PRG"), bottega.contesto);
  }

  /// The frame asks when it goes with the test.
  void TearDown() override { editors::azzeraModifiche(); }

  QAction& azione(const QString& nome) const {
    auto* trovata = schermo->findChild<QAction*>(nome);
    if (!trovata) throw std::runtime_error("no action " + nome.toStdString());
    return *trovata;
  }
  QAction& tasto(int posizione) const { return azione(QStringLiteral("Toolbar1_%1").arg(posizione)); }
  /// A click of the mouse on a button of the toolbar.
  void premi(int posizione) const {
    auto* barra = schermo->findChild<QToolBar*>(QStringLiteral("Toolbar1"));
    QWidget* pulsante = barra->widgetForAction(&tasto(posizione));
    ASSERT_TRUE(pulsante != nullptr);
    QTest::mouseClick(pulsante, Qt::LeftButton);
  }
  void menu(const char* nome) const { azione(QLatin1String(nome)).trigger(); }
  QString pannello() const { return schermo->findChild<QLabel*>(QStringLiteral("StatusBar1_1"))->text(); }
  QString stato() const { return schermo->findChild<QLabel*>(QStringLiteral("StatusBar1_2"))->text(); }
  QString piede() const { return schermo->findChild<OutcomeBar*>(QStringLiteral("BarraEsito"))->text(); }
  QString nelRiquadro() const {
    return schermo->findChild<QStackedWidget*>(QStringLiteral("AreaEditor"))->currentWidget()->objectName();
  }
  QString file(const QString& nome) const { return bottega.folder.file(nome); }
  void crea(const QString& nome = kNegozio) {
    bottega.user.chooses(file(nome));
    premi(1);
    ASSERT_TRUE(tasto(6).isEnabled());
  }
  std::vector<int> accesi() const {
    std::vector<int> quali;
    for (const int posizione : {1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 13, 14, 17})
      if (tasto(posizione).isEnabled()) quali.push_back(posizione);
    return quali;
  }
  bool aperto(const QString& nome) const { return bottega.screens.trova(nome) != nullptr; }
  /// Of a command of the tool bar.
  void expectGuasto(int numero) { expectFailure(bottega, numero, "Toolbar1_ButtonClick", "MDIForm_PRG"); }

  ProgramFixture bottega;
  QStringList chiamate;
  /// What the transfer screen does before it closes by itself.
  std::function<void()> durante;
  QPointer<QWidget> schermo;
};

TEST_F(AreaProgrammazione, HaTitoloDidascalieESuggerimentiDellaBarra) {
  crea();
  EXPECT_EQ(schermo->windowTitle(), QStringLiteral("Programmazione ECR"));
  const std::vector<std::tuple<int, QString, QString>> attesi{
      {1, QStringLiteral("NUOVO"), QStringLiteral("Crea Nuovaconfigurazione")},
      {2, QStringLiteral("MODIFICA"), QStringLiteral("Modifica configurazione esistente")},
      {3, QStringLiteral("CREA DA."), QStringLiteral("Crea configurazione a partire da una esistente")},
      {5, QStringLiteral("NEGOZIO"), QStringLiteral("Configurazione parametri Negozio")},
      {6, QStringLiteral("REPARTI"), QStringLiteral("Configurazione parametri Reparti")},
      {7, QStringLiteral("PLU"), QStringLiteral("Configurazione parametri PLU")},
      {8, QStringLiteral("IVA"), QStringLiteral("Configurazione parametri IVA")},
      {9, QStringLiteral("VALUTE"), QStringLiteral("Configurazione parametri Valute")},
      {11, QStringLiteral("OPZIONI"), QStringLiteral("Configurazione parametri Opzioni Generali")},
      {14, QStringLiteral("LETT./INVIO"), QStringLiteral("Lettura / Invio Configurazione")},
      {17, QStringLiteral("Esci"), QStringLiteral("Uscita")}};
  for (const auto& [posizione, testo, suggerimento] : attesi) {
    EXPECT_EQ(tasto(posizione).text(), testo);
    EXPECT_EQ(tasto(posizione).toolTip(), suggerimento);
    EXPECT_FALSE(tasto(posizione).icon().isNull()) << posizione;
  }
  EXPECT_EQ(tasto(10).toolTip(), QStringLiteral("Configurazione parametri Operatori"));
  EXPECT_FALSE(tasto(13).icon().isNull());
}

TEST_F(AreaProgrammazione, LeAltrePosizioniDellaBarraSonoSeparatori) {
  const QList<QAction*> barra = schermo->findChild<QToolBar*>(QStringLiteral("Toolbar1"))->actions();
  QStringList posti;
  for (const QAction* azione : barra)
    posti << (azione->isSeparator() ? QStringLiteral("|") : azione->objectName().section(u'_', 1));
  EXPECT_EQ(posti.join(u' '), QStringLiteral("1 2 3 | 5 6 7 8 9 10 11 | 13 14 | 17"));
}

TEST_F(AreaProgrammazione, EsportaNonFaNullaNemmenoConUnFileAperto) {
  crea();
  EXPECT_FALSE(azione(QStringLiteral("mnuEsporta")).isEnabled());
  menu("mnuEsporta");
  expectBoxes(bottega, {});
  EXPECT_EQ(bottega.user.requests().size(), 1U) << "that of the new configuration alone";
  EXPECT_EQ(piede(), QStringLiteral("Configurazione creata: negozio.dat"));
}

TEST_F(AreaProgrammazione, UnTastoSpentoDicePerche) {
  EXPECT_EQ(tasto(6).toolTip(),
            QStringLiteral("Configurazione parametri Reparti (prima NUOVO, MODIFICA o CREA DA.)"));
  EXPECT_EQ(tasto(13).toolTip(), QStringLiteral("Gestione Tastiera (prima NUOVO, MODIFICA o CREA DA.)"));
}

TEST_F(AreaProgrammazione, AllAperturaSenzaUnFileITastiDa5A14SonoSpentiEISegniAzzerati) {
  EXPECT_EQ(accesi(), (std::vector{1, 2, 3, 17}));
  EXPECT_FALSE(azione(QStringLiteral("mnuInvio")).isEnabled());
  for (const int posizione : {5, 6, 7, 8, 9, 10, 11, 13, 14}) premi(posizione);
  EXPECT_TRUE(chiamate.isEmpty());
  EXPECT_FALSE(aperto(kTastiera));
  EXPECT_FALSE(aperto(QStringLiteral("Form_Reparti")));
  EXPECT_EQ(varGestionePRG().ConfigurazioneCaricata, 1);
  EXPECT_EQ(pannello(), QString());
}

TEST_F(AreaProgrammazione, AllAperturaISegniDelleModificheSonoAzzerati) {
  bottega.screens.scarica(QStringLiteral("MDIForm_PRG"));
  varGestionePRG().ModificaReparti = kVero;
  varGestionePRG().ModificaNegozio = kVero;
  schermo = &bottega.screens.mostra(QStringLiteral("MDIForm_PRG"), bottega.contesto);
  EXPECT_EQ(varGestionePRG().ModificaReparti, kFalso);
  EXPECT_EQ(varGestionePRG().ModificaNegozio, kFalso);
}

TEST_F(AreaProgrammazione, NuovoCopiaIDueModelliCaricaEAccendeITasti) {
  crea();
  EXPECT_EQ(byteDi(file(kNegozio)), byteDi(kModello));
  EXPECT_EQ(byteDi(file(kCompagno)).size(), byteDi(kModelloArticoli).size());
  EXPECT_EQ(accesi(), (std::vector{1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 13, 14, 17}));
  EXPECT_TRUE(azione(QStringLiteral("mnuInvio")).isEnabled());
  EXPECT_EQ(pannello(), QStringLiteral("File : [negozio.dat] - Versione V03.00"));
  EXPECT_EQ(schermo->findChild<QLabel*>(QStringLiteral("StatusBar1_1"))->alignment(), Qt::AlignCenter);
  EXPECT_EQ(piede(), QStringLiteral("Configurazione creata: negozio.dat"));
  EXPECT_EQ(varGestionePRG().PathConfigurazione, file(kNegozio));
  EXPECT_EQ(config::versioneFile(), QStringLiteral("V03.00"));
  ASSERT_EQ(bottega.user.requests().size(), 1U);
  EXPECT_EQ(bottega.user.requests()[0].filter, QStringLiteral("dat (*.dat)|*.dat"));
}

TEST_F(AreaProgrammazione, AnnullareLaFinestraDeiFileLasciaTuttoComEra) {
  crea();
  const QByteArray memoria = byteDi(file(kNegozio));
  for (const int posizione : {1, 2, 3}) {
    bottega.user.chooses(std::nullopt);
    premi(posizione);
    EXPECT_EQ(varGestionePRG().PathConfigurazione, file(kNegozio));
    EXPECT_EQ(pannello(), QStringLiteral("File : [negozio.dat] - Versione V03.00"));
    EXPECT_TRUE(tasto(6).isEnabled());
  }
  EXPECT_EQ(byteDi(file(kNegozio)), memoria);
}

TEST_F(AreaProgrammazione, NuovoSuUnFileCheCEChiedeENoNonTocca) {
  bottega.folder.write(kNegozio, "mio");
  bottega.user.chooses(file(kNegozio)).answers(Answer::No);
  premi(1);
  expectBoxes(bottega, {{QStringLiteral("FILE GIA' ESISTENTE! VUOI SOVRASCIVERLO?"), Icon::None,
                         QStringLiteral("ATTENZIONE"), Buttons::YesNo, Preset::Last}});
  EXPECT_EQ(bottega.folder.read(kNegozio), QByteArray("mio"));
  EXPECT_FALSE(QFileInfo::exists(file(kCompagno)));
  EXPECT_EQ(accesi(), (std::vector{1, 2, 3, 17}));
}

TEST_F(AreaProgrammazione, NuovoSuUnFileCheCEConSiTieneAccantoIlPrecedente) {
  bottega.folder.write(kNegozio, "mio");
  bottega.user.chooses(file(kNegozio)).answers(Answer::Yes);
  premi(1);
  EXPECT_EQ(bottega.takeBoxes().size(), 1U);
  EXPECT_EQ(byteDi(file(kNegozio)), byteDi(kModello));
  EXPECT_EQ(bottega.folder.read(kNegozio + QStringLiteral(".precedente")), QByteArray("mio"));
  EXPECT_EQ(piede(), QStringLiteral("Configurazione creata: negozio.dat. I file di prima sono accanto, con "
                                    ".precedente in fondo al nome."));
}

/// A configuration with a file, a memory and a frame of which nothing changes where a new one fails.
struct NuovaCheFallisce : AreaProgrammazione {
  void SetUp() override {
    crea();
    config::immagineProgrammazione().record(config::kReparto, 0)[0] = 'Z';
    prima = bottega.folder.read(kNegozio);
    compagno = bottega.folder.read(kCompagno);
    premi(6);
  }
  /// A command on a disk that takes the file and not the archive, with what it tells.
  void conDiscoPieno(const std::function<void()>& comando, const char* procedura, const QString& guasto) {
    {
      const FullDisk disco(kTraLeDueCopie);
      comando();
    }
    const std::vector<Box> visti = bottega.takeBoxes();
    ASSERT_FALSE(visti.empty());
    EXPECT_EQ(visti.back(), plainBox(QStringLiteral("Error 61 (%1) in procedure %2 of Modulo MDIForm_PRG")
                                         .arg(guasto, QLatin1String(procedura))));
    EXPECT_EQ(piede(), visti.back().text);
    for (std::size_t i = 0; i + 1 < visti.size(); ++i)
      EXPECT_EQ(visti[i].text, QStringLiteral("FILE GIA' ESISTENTE! VUOI SOVRASCIVERLO?"));
  }
  QString pieno(const QString& nome) const { return QStringLiteral("Disco pieno: ") + file(nome); }
  void TearDown() override {
    EXPECT_EQ(varGestionePRG().PathConfigurazione, file(kNegozio));
    EXPECT_EQ(varGestionePRG().NomeFileDat, kNegozio);
    EXPECT_EQ(pannello(), QStringLiteral("File : [negozio.dat] - Versione V03.00"));
    EXPECT_EQ(config::immagineProgrammazione().record(config::kReparto, 0)[0], 'Z');
    EXPECT_EQ(config::modelloFile(), QStringLiteral("001"));
    EXPECT_TRUE(bottega.folder.read(kNegozio) == prima);
    EXPECT_TRUE(bottega.folder.read(kCompagno) == compagno);
    EXPECT_EQ(accesi(), (std::vector{1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 13, 14, 17}));
    EXPECT_EQ(nelRiquadro(), QStringLiteral("Form_Reparti")) << "nothing else was opened";
    AreaProgrammazione::TearDown();
  }

  /// Takes a configuration, but not the archive beside it.
  static constexpr unsigned long kTraLeDueCopie = 250000;
  QByteArray prima;
  QByteArray compagno;
};

TEST_F(NuovaCheFallisce, ColDiscoPienoPerLArchivioNonRestaMezzaConfigurazione) {
  bottega.user.chooses(file(QStringLiteral("altra.dat")));
  conDiscoPieno([this] { premi(1); }, "Toolbar1_ButtonClick", pieno(QStringLiteral("altra_art.mdb")));
  EXPECT_FALSE(QFileInfo::exists(file(QStringLiteral("altra.dat"))));
  EXPECT_FALSE(QFileInfo::exists(file(QStringLiteral("altra_art.mdb"))));
}

TEST_F(NuovaCheFallisce, DalMenuLaProceduraEQuellaDelMenu) {
  bottega.user.chooses(file(QStringLiteral("altra.dat")));
  conDiscoPieno([this] { menu("mnuNuova"); }, "mnuNuova_Click", pieno(QStringLiteral("altra_art.mdb")));
  EXPECT_FALSE(QFileInfo::exists(file(QStringLiteral("altra.dat"))));
}

TEST_F(NuovaCheFallisce, SopraQuellaApertaLaLasciaComEra) {
  bottega.user.chooses(file(kNegozio)).answers(Answer::Yes);
  conDiscoPieno([this] { premi(1); }, "Toolbar1_ButtonClick", QStringLiteral("Disco pieno"));
}

TEST_F(NuovaCheFallisce, CreaDaColDiscoPienoPerLArchivio) {
  bottega.user.chooses(file(kNegozio)).chooses(file(QStringLiteral("copia.dat")));
  conDiscoPieno([this] { menu("mnuCrea"); }, "mnuCrea_Click", pieno(QStringLiteral("copia_art.mdb")));
  EXPECT_FALSE(QFileInfo::exists(file(QStringLiteral("copia.dat"))));
  EXPECT_FALSE(QFileInfo::exists(file(QStringLiteral("copia_art.mdb"))));
}

TEST_F(NuovaCheFallisce, CreaDaDaUnFileCheNonSiLeggeSiDice) {
  const QString tubo = file(QStringLiteral("tubo.dat"));
  ASSERT_EQ(::mkfifo(tubo.toUtf8().constData(), 0600), 0);
  bottega.user.chooses(tubo);
  menu("mnuCrea");
  expectBoxes(bottega, {plainBox(QStringLiteral("Error 75 (Errore di accesso al percorso o al file: %1) in "
                                                "procedure mnuCrea_Click of Modulo MDIForm_PRG")
                                     .arg(tubo))});
}

TEST_F(NuovaCheFallisce, DaUnModelloDiUnAltraVersioneSiRifiuta) {
  const QTemporaryDir cartella;
  QByteArray altro = byteDi(kModello);
  altro[5] = '1';
  WriteWholeFile(cartella.filePath(QStringLiteral("QzPRG.bck")), altro);
  ASSERT_TRUE(QFile::copy(kModelloArticoli, cartella.filePath(QStringLiteral("QzDB.bck"))));
  bottega.contesto.cartella = cartella.path();
  const QString nuova = file(QStringLiteral("altra.dat"));
  bottega.user.chooses(nuova);
  premi(1);
  expectBoxes(bottega,
              {criticalBox(
                  QStringLiteral("Attenzione il file %1 non e' compatibile con la versione SW").arg(nuova))});
}

struct SenzaModelli : AreaProgrammazione {
  SenzaModelli() : AreaProgrammazione(QDir::tempPath() + QStringLiteral("/senza-modelli")) {}
};

TEST_F(SenzaModelli, SenzaQzPrgSiDiceEIlComandoFinisce) {
  premi(1);
  expectBoxes(
      bottega,
      {criticalBox(QStringLiteral("Attenzione il file di sistema QzPRG.bck potrebbe essere assente !!!"))});
  EXPECT_TRUE(bottega.user.requests().empty());
}

TEST_F(AreaProgrammazione, SenzaQzDbSiDiceEIlComandoFinisce) {
  const QTemporaryDir cartella;
  ASSERT_TRUE(QFile::copy(kModello, cartella.filePath(QStringLiteral("QzPRG.bck"))));
  bottega.contesto.cartella = cartella.path();
  premi(1);
  expectBoxes(
      bottega,
      {criticalBox(QStringLiteral("Attenzione il file di sistema QzDB.bck potrebbe essere assente !!!"))});
  EXPECT_TRUE(bottega.user.requests().empty());
}

TEST_F(AreaProgrammazione, ModificaDiUnFileCheNonEsisteSiDice) {
  bottega.user.chooses(file(QStringLiteral("manca.dat")));
  premi(2);
  expectBoxes(bottega, {criticalBox(QStringLiteral("Attenzione il file scelto manca.dat non esiste !!!"))});
  EXPECT_EQ(varGestionePRG().PathConfigurazione, QString());
}

TEST_F(AreaProgrammazione, UnFileDiUnAltraVersioneSiRifiutaELaConfigurazioneApertaRestaQuella) {
  crea();
  QByteArray altra = byteDi(file(kNegozio));
  altra[5] = '1';
  const QString percorso = bottega.folder.write(QStringLiteral("altra.dat"), altra);
  bottega.user.chooses(percorso);
  premi(2);
  expectBoxes(
      bottega,
      {criticalBox(
          QStringLiteral("Attenzione il file %1 non e' compatibile con la versione SW").arg(percorso))});
  EXPECT_EQ(varGestionePRG().PathConfigurazione, file(kNegozio));
  EXPECT_EQ(config::versioneFile(), QStringLiteral("V03.00"));
  EXPECT_EQ(pannello(), QStringLiteral("File : [negozio.dat] - Versione V03.00"));
  EXPECT_TRUE(tasto(6).isEnabled());
}

TEST_F(AreaProgrammazione, UnFileCheNonSiLeggeSiDiceELaConfigurazioneApertaRestaQuella) {
  crea();
  const QString tubo = file(QStringLiteral("tubo.dat"));
  ASSERT_EQ(::mkfifo(tubo.toUtf8().constData(), 0600), 0);
  bottega.user.chooses(tubo);
  premi(2);
  expectBoxes(
      bottega,
      {plainBox(QStringLiteral("Error 75 (*")),
       criticalBox(QStringLiteral("Attenzione Errore nel caricamento del file %1 in memoria").arg(tubo))});
  EXPECT_EQ(varGestionePRG().PathConfigurazione, file(kNegozio));
  EXPECT_TRUE(tasto(6).isEnabled());
}

TEST_F(AreaProgrammazione, UnFileRifiutatoSenzaNullaDiApertoLasciaITastiSpenti) {
  bottega.user.chooses(bottega.folder.write(QStringLiteral("vuoto.dat"), {}));
  premi(2);
  EXPECT_EQ(bottega.takeBoxes().size(), 1U);
  EXPECT_EQ(accesi(), (std::vector{1, 2, 3, 17}));
}

TEST_F(AreaProgrammazione, ModificaCaricaIByteDelFile) {
  QByteArray mia = byteDi(kModello);
  mia.replace(146 + 382, 4, "PANE");
  bottega.user.chooses(bottega.folder.write(QStringLiteral("mia.dat"), mia));
  premi(2);
  EXPECT_EQ(config::leggiTesto(config::immagineProgrammazione().record(config::kReparto, 0),
                               config::reparto::kDescrizione)
                .left(4),
            QStringLiteral("PANE"));
  EXPECT_EQ(piede(), QStringLiteral("Configurazione aperta: mia.dat"));
}

TEST_F(AreaProgrammazione, CreaDaCopiaFileEDatabaseEDiceIlModello) {
  crea();
  {
    store::Database compagno = bottega.workspace.OpenDatabase(file(kCompagno));
    compagno.Execute(u"UPDATE TAB_ARTICOLI SET Descrizione = 'LATTE' WHERE auto_id=1");
    compagno.Close();
  }
  bottega.user.chooses(file(kNegozio)).chooses(file(QStringLiteral("copia.dat")));
  premi(3);
  EXPECT_EQ(bottega.folder.read(QStringLiteral("copia.dat")), bottega.folder.read(kNegozio));
  EXPECT_EQ(varGestionePRG().PathConfigurazione, file(QStringLiteral("copia.dat")));
  EXPECT_EQ(pannello(),
            QStringLiteral("File : [copia.dat] - Versione V03.00 Modello ") + config::modelloFile());
  store::Database copia = bottega.workspace.OpenDatabase(file(QStringLiteral("copia_art.mdb")));
  EXPECT_EQ(copia.OpenRecordset(u"SELECT Descrizione from TAB_ARTICOLI where auto_id=1")
                .field(QStringLiteral("Descrizione"))
                .text(),
            QStringLiteral("LATTE"));
  copia.Close();
}

TEST_F(AreaProgrammazione, CreaDaChiedePrimaDiSostituireETieneAccantoFileEDatabaseDiPrima) {
  crea();
  bottega.folder.write(QStringLiteral("copia.dat"), "vecchio file");
  bottega.folder.write(QStringLiteral("copia_art.mdb"), "vecchio database");
  bottega.user.chooses(file(kNegozio)).chooses(file(QStringLiteral("copia.dat")));
  premi(3);
  ASSERT_EQ(bottega.user.requests().size(), 3U);
  EXPECT_FALSE(bottega.user.requests()[1].asksBeforeReplacing);
  EXPECT_TRUE(bottega.user.requests()[2].asksBeforeReplacing);
  EXPECT_EQ(bottega.folder.read(QStringLiteral("copia.dat.precedente")), QByteArray("vecchio file"));
  EXPECT_EQ(bottega.folder.read(QStringLiteral("copia_art.mdb.precedente")), QByteArray("vecchio database"));
  EXPECT_EQ(piede(),
            QStringLiteral("Configurazione creata da negozio.dat: copia.dat. I file di prima sono accanto, "
                           "con .precedente in fondo al nome."));
}

TEST_F(AreaProgrammazione, CreaDaAnnullatoAllaSecondaFinestraLasciaTestataEMemoria) {
  crea();
  QByteArray altra = byteDi(file(kNegozio));
  altra.replace(6, 3, "999");
  bottega.user.chooses(bottega.folder.write(QStringLiteral("altra.dat"), altra)).chooses(std::nullopt);
  premi(3);
  EXPECT_EQ(config::modelloFile(), QStringLiteral("001"));
  EXPECT_EQ(varGestionePRG().PathConfigurazione, file(kNegozio));
}

TEST_F(AreaProgrammazione, CreaDaUnFileDiUnAltraVersioneNonChiedeDoveSalvare) {
  const QString altra = bottega.folder.write(QStringLiteral("altra.dat"), QByteArray("V02.00001"));
  bottega.user.chooses(altra);
  premi(3);
  expectBoxes(bottega,
              {criticalBox(
                  QStringLiteral("Attenzione il file %1 non e' compatibile con la versione SW").arg(altra))});
  EXPECT_EQ(bottega.user.requests().size(), 1U);
}

TEST_F(AreaProgrammazione, CreaDaSeStessaSiRifiutaELasciaIlFile) {
  crea();
  const QByteArray prima = bottega.folder.read(kNegozio);
  bottega.user.chooses(file(kNegozio)).chooses(file(kNegozio));
  premi(3);
  expectGuasto(70);
  EXPECT_EQ(bottega.folder.read(kNegozio), prima);
}

TEST_F(AreaProgrammazione, CreaDaUnaConfigurazioneSenzaDatabaseFalliscePrimaDiCaricare) {
  crea();
  ASSERT_TRUE(QFile::remove(file(kCompagno)));
  bottega.user.chooses(file(kNegozio)).chooses(file(QStringLiteral("copia.dat")));
  premi(3);
  expectGuasto(53);
  EXPECT_EQ(varGestionePRG().PathConfigurazione, file(kNegozio));
}

TEST_F(AreaProgrammazione, UnEditorAllaVoltaStaNelRiquadroEDiceIlSuoStato) {
  crea();
  const std::vector<std::tuple<int, QString, QString>> tasti{
      {5, QStringLiteral("Form_Negozio"), QStringLiteral("Configurazione Negozio")},
      {6, QStringLiteral("Form_Reparti"), QStringLiteral("Gestione Reparti")},
      {8, QStringLiteral("Form_IVA"), QStringLiteral("Gestione IVA")},
      {9, QStringLiteral("Form_Valuta"), QStringLiteral("Gestione VALUTA")},
      {10, QStringLiteral("Form_OPE"), QStringLiteral("Gestione OPERATORI")},
      {11, QStringLiteral("Form_OpzioniGen"), QStringLiteral("Gestione Opzioni Generali")},
      {13, kTastiera, QStringLiteral("Gestione Tastiera")}};
  const auto& area = dynamic_cast<MDIForm_PRG&>(*schermo);
  for (const auto& [posizione, nome, testo] : tasti) {
    premi(posizione);
    EXPECT_EQ(nelRiquadro(), nome);
    EXPECT_EQ(stato(), testo);
    for (const auto& [altra, altro, _] : tasti)
      EXPECT_EQ(area.DammiFormOpen(altro), altro == nome ? 1 : 0) << altro.toStdString();
  }
}

TEST_F(AreaProgrammazione, IlTastoPluApreLArchivioSulDatabaseCompagnoEPoiLoChiude) {
  crea();
  premi(6);
  withModal([&] { premi(7); },
            [&](QWidget& archivio) {
              EXPECT_EQ(archivio.objectName(), QStringLiteral("Form_ArchivioArticoli"));
              EXPECT_FALSE(aperto(QStringLiteral("Form_Reparti")));
              EXPECT_EQ(stato(), QStringLiteral("Gestione PLU/Articoli"));
              EXPECT_EQ(varGlobal().NomeDB_Articoli, file(kCompagno));
              QTest::keyClick(&archivio, Qt::Key_Escape);
            });
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(varGlobal().NomeDB_Articoli, QString());
}

TEST_F(AreaProgrammazione, DallArchivioDelTastoPluEsciTornaQuiENonAllaGestioneArticoli) {
  bottega.screens.registra(QStringLiteral("Form_GestioneMMC"), [](Contesto&) { return new QWidget; });
  crea();
  withModal([&] { premi(7); },
            [](QWidget& archivio) { GuidedScreen(archivio).click(QStringLiteral("Cmd_Esci")); });
  EXPECT_FALSE(aperto(QStringLiteral("Form_GestioneMMC")));
  EXPECT_FALSE(aperto(QStringLiteral("Form_ArchivioArticoli")));
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(stato(), QString()) << "nothing is being worked on any more";
}

TEST_F(AreaProgrammazione, UnaCellaSvuotataFermaIlSalvataggioDellaDomandaESiFaVedere) {
  bottega.screens.registra<Form_Reparti>();
  crea();
  premi(6);
  const GuidedScreen reparti(*bottega.screens.trova(QStringLiteral("Form_Reparti")));
  reparti.control<FlexGrid>("MSFlexGridReparti").setCell(2, 3);
  auto& casella = reparti.control<QLineEdit>("casella_3");
  casella.selectAll();
  QTest::keyClick(&casella, Qt::Key_Backspace);
  ASSERT_EQ(varGestionePRG().ModificaReparti, kVero);
  const QByteArray prima = bottega.folder.read(kNegozio);
  bottega.user.answers(Answer::Yes);
  premi(8);
  expectBoxes(bottega, {kDomanda});
  EXPECT_TRUE(aperto(QStringLiteral("Form_Reparti")));
  EXPECT_EQ(reparti.control<OutcomeBar>("BarraEsito").text(),
            QStringLiteral("Non salvato: correggere IVA, reparto 2"));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kVero);
  EXPECT_EQ(bottega.folder.read(kNegozio), prima);
}

TEST_F(AreaProgrammazione, SenzaDatabaseCompagnoIlTastoPluDiceLErrore) {
  crea();
  ASSERT_TRUE(QFile::remove(file(kCompagno)));
  premi(7);
  expectGuasto(3024);
}

TEST_F(AreaProgrammazione, ColDatabaseCompagnoBloccatoIlTastoPluDiceLErrore) {
  crea();
  {
    const OtherProgram altro(file(kCompagno), {QStringLiteral("BEGIN EXCLUSIVE")});
    premi(7);
  }
  expectGuasto(3260);
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(stato(), QString());
}

TEST_F(AreaProgrammazione, ConModificheInUnAltroEditorSiChiedeUnaVoltaSiSalvaESiRicarica) {
  crea();
  premi(6);
  varGestionePRG().ModificaReparti = kVero;
  chiamate.clear();
  bottega.user.answers(Answer::Yes);
  premi(8);
  expectBoxes(bottega, {kDomanda});
  EXPECT_EQ(chiamate,
            (QStringList{QStringLiteral("salva Form_Reparti"), QStringLiteral("ricarica Form_Reparti")}));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kFalso);
  EXPECT_EQ(nelRiquadro(), QStringLiteral("Form_IVA"));
  EXPECT_EQ(piede(), QStringLiteral("Salvato: nessuna differenza nel file"));
}

TEST_F(AreaProgrammazione, LoStessoTastoConNoTieneLEditorCheCE) {
  crea();
  premi(6);
  const QPointer<QWidget> editor = bottega.screens.trova(QStringLiteral("Form_Reparti"));
  varGestionePRG().ModificaReparti = kVero;
  chiamate.clear();
  bottega.user.answers(Answer::No);
  premi(6);
  expectBoxes(bottega, {kDomanda});
  EXPECT_FALSE(editor.isNull());
  EXPECT_EQ(bottega.screens.trova(QStringLiteral("Form_Reparti")), editor);
  EXPECT_EQ(nelRiquadro(), QStringLiteral("Form_Reparti"));
  EXPECT_TRUE(chiamate.isEmpty());
}

TEST_F(AreaProgrammazione, ConDueEditorModificatiSiChiedeUnaVoltaSiSalvaIlPrimoESiRicaricanoTutti) {
  crea();
  premi(6);
  bottega.screens.carica(QStringLiteral("Form_PLU"), bottega.contesto);
  bottega.screens.carica(QStringLiteral("Form_IVA"), bottega.contesto);
  varGestionePRG().ModificaIVA = kVero;
  varGestionePRG().ModificaReparti = kVero;
  chiamate.clear();
  bottega.user.answers(Answer::Yes);
  premi(9);
  expectBoxes(bottega, {kDomanda});
  EXPECT_EQ(chiamate,
            (QStringList{QStringLiteral("salva Form_Reparti"), QStringLiteral("ricarica Form_Reparti"),
                         QStringLiteral("ricarica Form_PLU"), QStringLiteral("ricarica Form_IVA")}));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kFalso);
  EXPECT_EQ(varGestionePRG().ModificaIVA, kFalso);
  for (const char* altro : {"Form_Reparti", "Form_PLU", "Form_IVA"})
    EXPECT_FALSE(aperto(QLatin1String(altro))) << altro;
}

// The first flag is that of an editor that was left with No; what the open one had goes with the refill.
TEST_F(AreaProgrammazione, LeModificheCheIlSiNonHaSalvatoSiDiconoAlPiede) {
  crea();
  premi(6);
  varGestionePRG().ModificaReparti = kVero;
  bottega.user.answers(Answer::No);
  premi(8);
  bottega.screens.trova(QStringLiteral("Form_IVA"))->setWindowTitle(QStringLiteral("Gestione IVA"));
  varGestionePRG().ModificaIVA = kVero;
  chiamate.clear();
  bottega.user.answers(Answer::Yes);
  premi(9);
  expectBoxes(bottega, {kDomanda, kDomanda});
  EXPECT_EQ(chiamate.value(0), QStringLiteral("ricarica Form_IVA"));
  EXPECT_EQ(piede(), QStringLiteral("Salvato: nessuna differenza nel file. Non salvate le modifiche di: "
                                    "Gestione IVA. Si salva un editor alla volta, e prima ce n'era un altro "
                                    "con modifiche"));
  EXPECT_EQ(schermo->findChild<OutcomeBar*>(QStringLiteral("BarraEsito"))->kind(), OutcomeBar::Kind::Warning);
}

TEST_F(AreaProgrammazione, ConNoNonSiSalvaISegniRestanoEIlComandoProsegue) {
  crea();
  premi(6);
  varGestionePRG().ModificaReparti = kVero;
  chiamate.clear();
  bottega.user.answers(Answer::No);
  premi(8);
  expectBoxes(bottega, {kDomanda});
  EXPECT_TRUE(chiamate.isEmpty());
  EXPECT_EQ(varGestionePRG().ModificaReparti, kVero);
  EXPECT_EQ(nelRiquadro(), QStringLiteral("Form_IVA"));
}

TEST_F(AreaProgrammazione, DaMenuSiSalvaSenzaRicaricareTranneCheAllInvio) {
  crea();
  for (const char* voce : {"mnuNuova", "mnuModify", "mnuCrea"}) {
    premi(6);
    varGestionePRG().ModificaReparti = kVero;
    chiamate.clear();
    bottega.user.answers(Answer::Yes).chooses(std::nullopt);
    menu(voce);
    expectBoxes(bottega, {kDomanda});
    EXPECT_EQ(chiamate, QStringList{QStringLiteral("salva Form_Reparti")}) << voce;
  }
  varGestionePRG().ModificaReparti = kVero;
  chiamate.clear();
  bottega.user.answers(Answer::Yes);
  menu("mnuInvio");
  expectBoxes(bottega, {kDomanda});
  EXPECT_EQ(chiamate,
            (QStringList{QStringLiteral("salva Form_Reparti"), QStringLiteral("ricarica Form_Reparti")}));
}

TEST_F(AreaProgrammazione, DallaBarraOgniTastoSalvaERicarica) {
  crea();
  for (const int posizione : {1, 2, 3, 14}) {
    premi(6);
    varGestionePRG().ModificaReparti = kVero;
    chiamate.clear();
    bottega.user.answers(Answer::Yes);
    if (posizione != 14) bottega.user.chooses(std::nullopt);
    premi(posizione);
    expectBoxes(bottega, {kDomanda});
    EXPECT_EQ(chiamate,
              (QStringList{QStringLiteral("salva Form_Reparti"), QStringLiteral("ricarica Form_Reparti")}))
        << posizione;
  }
}

TEST_F(AreaProgrammazione, UnSalvataggioFallitoFermaIlComando) {
  crea();
  premi(6);
  varGestionePRG().ModificaReparti = kVero;
  varGestionePRG().PathConfigurazione = file(QStringLiteral("manca/negozio.dat"));
  bottega.user.answers(Answer::Yes);
  premi(8);
  expectBoxes(bottega, {kDomanda, plainBox(QStringLiteral("Error 76 (*"))});
  EXPECT_EQ(nelRiquadro(), QStringLiteral("Form_Reparti"));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kVero);
}

TEST_F(AreaProgrammazione, DopoUnaRicezioneLEditorApertoMostraCioCheEArrivato) {
  crea();
  premi(6);
  chiamate.clear();
  durante = [] { config::immagineProgrammazione().record(config::kIVA, 0)[25] ^= 1; };
  premi(14);
  EXPECT_EQ(chiamate, QStringList{QStringLiteral("ricarica Form_Reparti")});
}

TEST_F(AreaProgrammazione, DopoUnInvioChePrendeGliArticoliLEditorApertoNonSiTocca) {
  crea();
  premi(6);
  chiamate.clear();
  durante = [] { config::immagineProgrammazione().record(config::kPLU, 4999)[47] ^= 1; };
  premi(14);
  EXPECT_TRUE(chiamate.isEmpty());
}

TEST_F(AreaProgrammazione, UnAltraConfigurazioneToglieLEditorDiPrima) {
  crea();
  premi(6);
  crea(QStringLiteral("altra.dat"));
  EXPECT_FALSE(aperto(QStringLiteral("Form_Reparti")));
  EXPECT_EQ(nelRiquadro(), QStringLiteral("benvenuto"));
}

TEST_F(AreaProgrammazione, ConNoEUnAltraConfigurazioneISegniDiQuellaDiPrimaSiSpengono) {
  crea();
  premi(6);
  varGestionePRG().ModificaReparti = kVero;
  varGestionePRG().ModificaNegozio = kVero;
  bottega.user.answers(Answer::No);
  crea(QStringLiteral("altra.dat"));
  expectBoxes(bottega, {kDomanda});
  EXPECT_EQ(varGestionePRG().ModificaReparti, kFalso);
  EXPECT_EQ(varGestionePRG().ModificaNegozio, kFalso);
  EXPECT_TRUE(chiamate.isEmpty());
}

TEST_F(AreaProgrammazione, EsciScaricaGliEditorETornaAlMenu) {
  crea();
  premi(6);
  bottega.screens.trova(QStringLiteral("start"))->hide();
  premi(17);
  EXPECT_FALSE(aperto(QStringLiteral("MDIForm_PRG")));
  EXPECT_FALSE(aperto(QStringLiteral("Form_Reparti")));
  EXPECT_TRUE(bottega.screens.trova(QStringLiteral("start"))->isVisible());
}

TEST_F(AreaProgrammazione, DalMenuSiEsceComeDallaBarra) {
  crea();
  premi(6);
  varGestionePRG().ModificaReparti = kVero;
  bottega.screens.trova(QStringLiteral("start"))->hide();
  bottega.user.answers(Answer::Yes);
  menu("mnuEsci");
  expectBoxes(bottega, {kDomanda});
  EXPECT_TRUE(chiamate.contains(QStringLiteral("salva Form_Reparti")));
  EXPECT_FALSE(aperto(QStringLiteral("Form_Reparti")));
  EXPECT_FALSE(aperto(QStringLiteral("MDIForm_PRG")));
  EXPECT_TRUE(bottega.screens.trova(QStringLiteral("start"))->isVisible());
}

TEST_F(AreaProgrammazione, EsciScaricaAncheLaSceltaDiUnTasto) {
  bottega.screens.registra<frmTastiOpzione>();
  crea();
  bottega.screens.mostra(QStringLiteral("frmTastiOpzione"), bottega.contesto);
  premi(6);
  EXPECT_TRUE(aperto(QStringLiteral("frmTastiOpzione"))) << "it is no editor";
  premi(17);
  EXPECT_FALSE(aperto(QStringLiteral("frmTastiOpzione")));
  EXPECT_FALSE(aperto(QStringLiteral("MDIForm_PRG")));
}

TEST_F(AreaProgrammazione, EsciConNoNonSalvaEEsce) {
  crea();
  premi(6);
  const QByteArray prima = bottega.folder.read(kNegozio);
  config::immagineProgrammazione().record(config::kReparto, 0)[0] = 'Z';
  varGestionePRG().ModificaReparti = kVero;
  chiamate.clear();
  bottega.user.answers(Answer::No);
  premi(17);
  expectBoxes(bottega, {kDomanda});
  EXPECT_TRUE(chiamate.isEmpty());
  EXPECT_EQ(bottega.folder.read(kNegozio), prima);
  EXPECT_FALSE(aperto(QStringLiteral("MDIForm_PRG")));
}

TEST_F(AreaProgrammazione, EsciConUnSalvataggioFallitoRestaAperta) {
  crea();
  premi(6);
  varGestionePRG().ModificaReparti = kVero;
  varGestionePRG().PathConfigurazione = file(QStringLiteral("manca/negozio.dat"));
  bottega.user.answers(Answer::Yes);
  premi(17);
  expectBoxes(bottega, {kDomanda, plainBox(QStringLiteral("Error 76 (*"))});
  EXPECT_EQ(nelRiquadro(), QStringLiteral("Form_Reparti"));
  EXPECT_TRUE(schermo->isVisible());
  EXPECT_EQ(varGestionePRG().ModificaReparti, kVero);
}

TEST_F(AreaProgrammazione, ChiudereLaFinestraConModificheChiedeESalva) {
  crea();
  premi(6);
  varGestionePRG().ModificaReparti = kVero;
  bottega.user.answers(Answer::Yes);
  schermo->close();
  expectBoxes(bottega, {kDomanda});
  EXPECT_TRUE(chiamate.contains(QStringLiteral("salva Form_Reparti")));
  EXPECT_FALSE(aperto(QStringLiteral("MDIForm_PRG")));
}

TEST_F(AreaProgrammazione, EscChiudePrimaLEditorEPoiLaFinestra) {
  crea();
  premi(6);
  QTest::keyClick(schermo, Qt::Key_Escape);
  EXPECT_FALSE(aperto(QStringLiteral("Form_Reparti")));
  EXPECT_EQ(nelRiquadro(), QStringLiteral("benvenuto"));
  EXPECT_EQ(stato(), QString());
  QTest::keyClick(schermo, Qt::Key_Escape);
  EXPECT_FALSE(aperto(QStringLiteral("MDIForm_PRG")));
}

TEST_F(AreaProgrammazione, EscConModificheChiedePrima) {
  crea();
  premi(6);
  varGestionePRG().ModificaReparti = kVero;
  chiamate.clear();
  bottega.user.answers(Answer::Yes);
  QTest::keyClick(schermo, Qt::Key_Escape);
  expectBoxes(bottega, {kDomanda});
  EXPECT_EQ(chiamate.value(0), QStringLiteral("salva Form_Reparti"));
  EXPECT_FALSE(aperto(QStringLiteral("Form_Reparti")));
}

TEST_F(AreaProgrammazione, ADodiciPuntiStaIn1024) {
  crea();
  QFont grande = schermo->font();
  grande.setPointSize(12);
  schermo->setFont(grande);
  QCoreApplication::processEvents();
  EXPECT_LE(schermo->minimumSizeHint().width(), 1024);
  schermo->resize(1016, 720);
  QCoreApplication::processEvents();
  auto* barra = schermo->findChild<QToolBar*>(QStringLiteral("Toolbar1"));
  for (const int posizione : {1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 13, 14, 17})
    EXPECT_TRUE(barra->widgetForAction(&tasto(posizione))->isVisible()) << posizione;
}

// The pages of the manual.

/// A page and every text that it can quote of what a person sees, "..." for what changes in it.
struct Pagina {
  const char* nome;
  std::vector<const char16_t*> testi;
};
void PrintTo(const Pagina& pagina, std::ostream* uscita) {
  *uscita << pagina.nome;
}

const Pagina kPaginaProgrammazione{
    "configurazione.md",
    {
        u"Attenzione sono stati modificati dei parametri di configurazione: salvare prima di proseguire ?",
        u"Attenzione il file di sistema QzPRG.bck potrebbe essere assente !!!",
        u"Attenzione il file di sistema QzDB.bck potrebbe essere assente !!!",
        u"FILE GIA' ESISTENTE! VUOI SOVRASCIVERLO?",
        u"Attenzione il file scelto ... non esiste !!!",
        u"Attenzione il file ... non e' compatibile con la versione SW",
        u"Attenzione Errore nel caricamento del file ... in memoria",
        u"Error ... in procedure CaricaConfigurazione of Modulo Common_PRG",
        u"Error ... in procedure SalvaConfigurazione of Modulo CommonForKora",
        u"Error 53 (...) in procedure Toolbar1_ButtonClick of Modulo MDIForm_PRG",
        u"Error 61 (...) in procedure Toolbar1_ButtonClick of Modulo MDIForm_PRG",
        u"Error 70 (...) in procedure Toolbar1_ButtonClick of Modulo MDIForm_PRG",
        u"Error 75 (...) in procedure Toolbar1_ButtonClick of Modulo MDIForm_PRG",
        u"Error 3024 (...) in procedure Toolbar1_ButtonClick of Modulo MDIForm_PRG",
        u"Error 3260 (...) in procedure Toolbar1_ButtonClick of Modulo MDIForm_PRG",
        u"mnuNuova_Click",
        u"mnuCrea_Click",
        u"Configurazione creata: ...",
        u"Configurazione creata da ...: ...",
        u"Configurazione aperta: ...",
        u"Salvato: ...",
        u"I file di prima sono accanto, con .precedente in fondo al nome.",
        u"Non salvato: correggere IVA, reparto ...",
        u"Salvato: nessuna differenza nel file",
        u"Modifiche non salvate: ...",
        u"Modifiche non salvate: ... e un altro",
        u"Modifiche non salvate: ... e altri ...",
        u"Modifiche annullate: ...",
        u"Nessuna modifica da salvare",
        (u"... Non salvate le modifiche di: ... Si salva un editor alla volta, e prima ce n'era un altro con "
         u"modifiche"),
        u"Non salvato nel file: togliere la causa e salvare di nuovo",
        u"Qui ci sono modifiche non salvate",
        u"Modificato, non ancora salvato",
        u"... (prima NUOVO, MODIFICA o CREA DA.)",
        u"File : [...] - Versione ...",
        u"File : [...] - Versione ... Modello ...",
    }};

const Pagina kPaginaGriglie{
    "editor-griglie.md",
    {
        u"Attenzione sono stati modificati dei parametri di configurazione: salvare prima di proseguire ?",
        u"Attenzione il valore immesso non è di tipo numerico !!!",
        u"Attenzione il valore immesso > 99999,99!!!",
        u"Attenzione il valore immesso > 99,99!!!",
        u"Attenzione il valore immesso > 8!!!",
        u"Attenzione il valore non puo' essere 0",
        u"Attenzione il reparto deve essere compreso tra 1 e 32!!!",
        u"Attenzione  deve essere  M o S !!!",
        u"Attenzione  deve essere  S o N !!!",
        u"Solo cifre",
        u"Solo cifre e virgola",
        u"Per i decimali si scrive la virgola",
        u"La virgola c'è già",
        u"I due decimali ci sono già: cancellare con Backspace, poi scrivere",
        u"Solo M o S",
        u"Solo S o N",
        u"Qui non si annulla: riscrivere il valore",
        u"Modifiche non salvate",
        u"15/10 caratteri, gli ultimi si perdono",
        u"... reparti",
        u"... PLU",
        u"... aliquote",
        u"... valute",
        u"Modifiche non salvate: ... (...)",
        u"- .../... caratteri, gli ultimi si perdono",
        u"Salvato: ... reparti",
        u"Salvato: ... PLU",
        u"Salvato: ... aliquote",
        u"Salvato: ... valute",
        u"Nessuna modifica da salvare",
        u"Modifiche annullate: ... (...)",
        u"Non salvato: correggere IVA, reparto ...",
        u"Non salvato nel file: togliere la causa e salvare di nuovo",
        u"RiempiGridReparti",
        u"RiempiGridPLU",
        u"RiempiGridIVA",
        u"RiempiGridVAL",
    }};

class PagineDellaProgrammazione : public testing::TestWithParam<Pagina> {
 protected:
  /// The page without its line ends, which stand anywhere in a sentence.
  static QString testo() {
    const QByteArray byte =
        byteDi(QStringLiteral(GESTIONALE_SOURCES "/docs/manuale/") + QLatin1String(GetParam().nome));
    return QString::fromUtf8(byte).replace(QRegularExpression(QStringLiteral("\n *(?!\\|)")),
                                           QStringLiteral(" "));
  }
  static bool previsto(const QString& citato) {
    return std::ranges::any_of(GetParam().testi,
                               [&](const char16_t* uno) { return citato == QString::fromUtf16(uno); });
  }
};

TEST_P(PagineDellaProgrammazione, HannoOgniTestoCheSiPuoLeggere) {
  const QString pagina = testo();
  for (const char16_t* uno : GetParam().testi)
    EXPECT_TRUE(pagina.contains(u'"' + QString::fromUtf16(uno) + u'"'))
        << QString::fromUtf16(uno).toStdString();
}

TEST_P(PagineDellaProgrammazione, NonCitanoUnTestoCheNessunoLegge) {
  static const QRegularExpression citazione(QStringLiteral("\"([^\"]+)\""));
  int viste = 0;
  for (const QString& riga : testo().split(u'\n')) {
    // The first cell of a row is what the person reads, the others are about it.
    if (!riga.startsWith(QStringLiteral("| "))) continue;
    const QString cella = riga.section(u'|', 1, 1);
    for (auto quale = citazione.globalMatch(cella); quale.hasNext(); ++viste) {
      const QString citato = quale.next().captured(1);
      EXPECT_TRUE(previsto(citato)) << citato.toStdString();
    }
  }
  EXPECT_GT(viste, 15);
}

INSTANTIATE_TEST_SUITE_P(Manuale, PagineDellaProgrammazione,
                         testing::Values(kPaginaProgrammazione, kPaginaGriglie), [](const auto& pagina) {
                           return std::string(pagina.index == 0 ? "Area" : "Griglie");
                         });

}  // namespace
