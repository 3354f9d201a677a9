#include "workspace/Form_GestioneMMC.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QMainWindow>
#include <QTest>

#include "articles/article_database.h"
#include "articles/others.h"
#include "controls/style.h"
#include "workspace/workspace_fixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct GestioneMMC : AreaDiLavoro {};

const Box kModelloAssente{QStringLiteral("Attenzione il file di sistema QzDB.bck potrebbe essere assente!"),
                          Icon::Critical, QStringLiteral("ATTENZIONE"), Buttons::Ok};
const Box kSovrascrivere{QStringLiteral("FILE GIA' ESISTENTE! VUOI SOVRASCIVERLO?"), Icon::None,
                         QStringLiteral("ATTENZIONE"), Buttons::YesNo};

constexpr unsigned long kPochiByte = 4096;
constexpr QFileDevice::Permissions kCartellaInSolaLettura =
    QFileDevice::ReadOwner | QFileDevice::ExeOwner | QFileDevice::ReadOther | QFileDevice::ExeOther;

TEST_F(GestioneMMC, HaTitoloComandiEVociDiMenu) {
  EXPECT_EQ(schermo->objectName(), QStringLiteral("Form_GestioneMMC"));
  EXPECT_EQ(schermo->windowTitle(), QStringLiteral("Gestione Articoli / Venduto"));
  EXPECT_EQ(controllo<QPushButton>("Cmd_Articoli").text(), QStringLiteral("Archivio Articoli"));
  EXPECT_EQ(controllo<QPushButton>("Cmd_Down").text(), QStringLiteral("Trasferimento Articoli"));
  EXPECT_EQ(controllo<QPushButton>("Cmd_Upl").text(), QStringLiteral("Ricezione del Venduto"));
  EXPECT_EQ(controllo<QPushButton>("Cmd_Venduto").text(), QStringLiteral("Analisi del  Venduto"));
  EXPECT_EQ(controllo<QAction>("mnuImporta").text(), QStringLiteral("&Importa Articoli"));
  EXPECT_EQ(controllo<QMenu>("mnuFile").actions().size(), 4);
}

TEST_F(GestioneMMC, OgniVoceDiMenuHaUnaFigura) {
  for (const QAction* azione : controllo<QMenu>("mnuFile").actions()) {
    const QImage figura = azione->icon().pixmap(32).toImage();
    bool dipinta = false;
    for (int y = 0; y < figura.height() && !dipinta; ++y)
      for (int x = 0; x < figura.width() && !dipinta; ++x) dipinta = figura.pixelColor(x, y).alpha() > 0;
    EXPECT_TRUE(dipinta) << azione->objectName().toStdString();
  }
}

TEST_F(GestioneMMC, IlTastoSenzaScrittaHaUnNomeEUnaSpiegazione) {
  const auto& esci = controllo<QAbstractButton>("Cmd_Esci");
  EXPECT_EQ(esci.accessibleName(), QStringLiteral("Esci"));
  EXPECT_NE(esci.toolTip(), QString());
  EXPECT_FALSE(esci.icon().isNull());
}

TEST_F(GestioneMMC, AllAperturaComandiEImportSonoSpenti) {
  EXPECT_EQ(comandiAbilitati(), 0);
  EXPECT_FALSE(attiva("mnuImporta"));
  EXPECT_TRUE(attiva("mnuNuovo"));
  EXPECT_TRUE(attiva("mnuApri"));
  EXPECT_EQ(testo("LabelArchivio"), QStringLiteral("Nessun archivio aperto"));
  EXPECT_TRUE(menu()->isHidden());
}

TEST_F(GestioneMMC, NuovoCopiaIlModelloELoApre) {
  nuovo();
  EXPECT_EQ(varGlobal().NomeDB_Articoli, bottega.cartella.file(QStringLiteral("archivio.mdb")));
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(bottega.righe(QStringLiteral("SELECT auto_id from TAB_ARTICOLI")), 5000);
  EXPECT_EQ(comandiAbilitati(), kComandi);
  EXPECT_TRUE(attiva("mnuImporta"));
  EXPECT_TRUE(attiva("mnuApri"));
  EXPECT_EQ(testo("LabelArchivio"), QStringLiteral("archivio.mdb"));
  EXPECT_EQ(testo("LabelArticoli"), QStringLiteral("0 articoli in 5.000 posizioni"));
}

TEST_F(GestioneMMC, LeFinestreDeiFilePartonoDallaCartellaDelProgramma) {
  nuovo();
  bottega.utente.chooses(std::nullopt);
  voce("mnuApri");
  ASSERT_EQ(bottega.utente.requests().size(), 2U);
  for (const FileRequest& finestra : bottega.utente.requests()) {
    EXPECT_EQ(finestra.filter, QStringLiteral("mdb (*.mdb)|*.mdb"));
    EXPECT_EQ(finestra.folder, QStringLiteral(GESTIONALE_APP));
  }
}

TEST_F(GestioneMMC, NuovoAnnullatoLasciaTuttoComEra) {
  bottega.utente.chooses(std::nullopt);
  voce("mnuNuovo");
  EXPECT_EQ(comandiAbilitati(), 0);
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(varGlobal().NomeDB_Articoli, QString());
}

TEST_F(GestioneMMC, NuovoConNomeVuotoSiFerma) {
  bottega.utente.chooses(QString());
  voce("mnuNuovo");
  EXPECT_EQ(comandiAbilitati(), 0);
}

TEST_F(GestioneMMC, SenzaModelloLoDiceMostraLaFinestraELaCopiaFallisceInSilenzio) {
  bottega.contesto.cartella = bottega.cartella.path();
  nuovo();
  EXPECT_THAT(bottega.utente.boxes(), ElementsAre(kModelloAssente));
  EXPECT_EQ(bottega.utente.requests().size(), 1U);
  EXPECT_FALSE(QFile::exists(bottega.cartella.file(QStringLiteral("archivio.mdb"))));
  EXPECT_EQ(comandiAbilitati(), 0);
  EXPECT_FALSE(attiva("mnuImporta"));
  EXPECT_EQ(varGlobal().NomeDB_Articoli, QString());
}

TEST_F(GestioneMMC, SenzaModelloUnFileEsistenteRestaComEra) {
  bottega.cartella.write(QStringLiteral("archivio.mdb"), "intatto");
  bottega.contesto.cartella = bottega.cartella.path();
  bottega.utente.answers(Answer::Yes);
  nuovo();
  EXPECT_THAT(bottega.utente.boxes(), ElementsAre(kModelloAssente, kSovrascrivere));
  EXPECT_EQ(bottega.cartella.read(QStringLiteral("archivio.mdb")), "intatto");
}

TEST_F(GestioneMMC, NoAllaSovrascritturaSiFerma) {
  bottega.cartella.write(QStringLiteral("archivio.mdb"), "intatto");
  bottega.utente.answers(Answer::No);
  nuovo();
  EXPECT_THAT(bottega.utente.boxes(), ElementsAre(kSovrascrivere));
  EXPECT_EQ(bottega.cartella.read(QStringLiteral("archivio.mdb")), "intatto");
  EXPECT_EQ(comandiAbilitati(), 0);
}

TEST_F(GestioneMMC, SovrascrivereUnArchivioPerdeArticoliEVenduto) {
  nuovo();
  bottega.esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='PANE' WHERE auto_id =1"));
  bottega.esegui(QStringLiteral("insert into TAB_VENDUTO (Data,id_plu) values ('20240307',1)"));
  voce("mnuClose");
  bottega.utente.answers(Answer::Yes);
  nuovo();
  EXPECT_THAT(bottega.utente.boxes(), ElementsAre(kSovrascrivere));
  EXPECT_EQ(bottega.righe(QStringLiteral("SELECT auto_id from TAB_ARTICOLI where Descrizione ='PANE'")), 0);
  EXPECT_EQ(bottega.righe(QStringLiteral("SELECT id_plu from TAB_VENDUTO")), 0);
  EXPECT_EQ(comandiAbilitati(), kComandi);
}

TEST_F(GestioneMMC, NuovoSopraLArchivioApertoLoSvuota) {
  nuovo();
  bottega.esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='PANE' WHERE auto_id =1"));
  bottega.utente.answers(Answer::Yes);
  nuovo();
  EXPECT_THAT(bottega.utente.boxes(), ElementsAre(kSovrascrivere));
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(bottega.righe(QStringLiteral("SELECT auto_id from TAB_ARTICOLI where Descrizione ='PANE'")), 0);
  bottega.esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='LATTE' WHERE auto_id =1"));
  EXPECT_EQ(bottega.righe(QStringLiteral("SELECT auto_id from TAB_ARTICOLI where Descrizione ='LATTE'")), 1);
}

TEST_F(GestioneMMC, UnSecondoNuovoSostituisceLArchivioSenzaChiudereIlPrimo) {
  nuovo();
  store::Database primo = varGlobal().DB_Articoli;
  nuovo(QStringLiteral("altro.mdb"));
  EXPECT_TRUE(primo.isOpen());
  EXPECT_EQ(primo.path(), bottega.cartella.file(QStringLiteral("archivio.mdb")));
  EXPECT_EQ(varGlobal().DB_Articoli.path(), bottega.cartella.file(QStringLiteral("altro.mdb")));
  EXPECT_EQ(comandiAbilitati(), kComandi);
  primo.Execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='PANE' WHERE auto_id =1"));
  EXPECT_EQ(bottega.righe(QStringLiteral("SELECT auto_id from TAB_ARTICOLI where Descrizione ='PANE'")), 0);
}

TEST_F(GestioneMMC, UnaCopiaFallitaLasciaLArchivioDiPrima) {
  nuovo();
  bottega.utente.chooses(bottega.cartella.file(QStringLiteral("assente/nuovo.mdb")));
  voce("mnuNuovo");
  EXPECT_EQ(varGlobal().NomeDB_Articoli, bottega.cartella.file(QStringLiteral("archivio.mdb")));
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(comandiAbilitati(), kComandi);
  EXPECT_TRUE(attiva("mnuImporta"));
  EXPECT_NE(testo("LabelEsito"), QString());
}

TEST_F(GestioneMMC, NuovoSopraUnFileInSolaLetturaLoLasciaComEra) {
  bottega.cartella.write(QStringLiteral("archivio.mdb"), "intatto");
  ASSERT_TRUE(QFile::setPermissions(bottega.cartella.file(QStringLiteral("archivio.mdb")),
                                    QFileDevice::ReadOwner | QFileDevice::ReadOther));
  ASSERT_TRUE(QFile::setPermissions(bottega.cartella.path(), kCartellaInSolaLettura));
  bottega.utente.answers(Answer::Yes);
  {
    const AltroUtente altro;
    nuovo();
  }
  ASSERT_TRUE(QFile::setPermissions(
      bottega.cartella.path(), QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner));
  EXPECT_THAT(bottega.utente.boxes(), ElementsAre(kSovrascrivere));
  EXPECT_EQ(bottega.cartella.read(QStringLiteral("archivio.mdb")), "intatto");
  EXPECT_EQ(comandiAbilitati(), 0);
}

TEST_F(GestioneMMC, NuovoSuUnDiscoPienoLasciaTuttoComEra) {
  bottega.cartella.write(QStringLiteral("archivio.mdb"), "intatto");
  bottega.utente.answers(Answer::Yes);
  {
    const DiscoPieno pieno(kPochiByte);
    nuovo();
  }
  EXPECT_THAT(bottega.utente.boxes(), ElementsAre(kSovrascrivere));
  EXPECT_EQ(bottega.cartella.read(QStringLiteral("archivio.mdb")), "intatto");
  EXPECT_EQ(comandiAbilitati(), 0);
}

TEST_F(GestioneMMC, UnArchivioBloccatoNonSiApreEIComandiRestanoSpenti) {
  nuovo();
  voce("mnuClose");
  {
    const AltroProgramma altro(bottega.cartella.file(QStringLiteral("archivio.mdb")),
                               {QStringLiteral("BEGIN EXCLUSIVE")});
    apri();
    EXPECT_EQ(comandiAbilitati(), 0);
    EXPECT_TRUE(attiva("mnuApri"));
    EXPECT_NE(testo("LabelEsito"), QString());
  }
  apri();
  EXPECT_EQ(comandiAbilitati(), kComandi);
}

TEST_F(GestioneMMC, ApriApreUnArchivioESpegneSeStesso) {
  nuovo();
  voce("mnuClose");
  apri();
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(varGlobal().NomeDB_Articoli, bottega.cartella.file(QStringLiteral("archivio.mdb")));
  EXPECT_EQ(comandiAbilitati(), kComandi);
  EXPECT_FALSE(attiva("mnuApri"));
  EXPECT_TRUE(attiva("mnuImporta"));
}

TEST_F(GestioneMMC, ApriAnnullatoLasciaTuttoComEra) {
  bottega.utente.chooses(std::nullopt);
  voce("mnuApri");
  EXPECT_EQ(comandiAbilitati(), 0);
  EXPECT_TRUE(attiva("mnuApri"));
  EXPECT_FALSE(attiva("mnuImporta"));
}

TEST_F(GestioneMMC, ApriAnnullatoConUnArchivioApertoNeLasciaIComandi) {
  nuovo();
  bottega.utente.chooses(std::nullopt);
  voce("mnuApri");
  EXPECT_EQ(comandiAbilitati(), kComandi);
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
}

TEST_F(GestioneMMC, UnFileDiTestoNonSiApreEIComandiRestanoSpenti) {
  bottega.cartella.write(QStringLiteral("testo.mdb"), QByteArray("non sono un archivio\r\n").repeated(500));
  apri(QStringLiteral("testo.mdb"));
  EXPECT_EQ(comandiAbilitati(), 0);
  EXPECT_TRUE(attiva("mnuApri"));
  EXPECT_FALSE(attiva("mnuImporta"));
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_NE(testo("LabelEsito"), QString());
}

TEST_F(GestioneMMC, UnFileVuotoNonSiApreERestaVuoto) {
  bottega.cartella.write(QStringLiteral("vuoto.mdb"), {});
  apri(QStringLiteral("vuoto.mdb"));
  EXPECT_EQ(comandiAbilitati(), 0);
  EXPECT_EQ(bottega.cartella.read(QStringLiteral("vuoto.mdb")), QByteArray());
}

TEST_F(GestioneMMC, UnFileAssenteNonSiApreENonNasce) {
  apri(QStringLiteral("assente.mdb"));
  EXPECT_EQ(comandiAbilitati(), 0);
  EXPECT_FALSE(QFile::exists(bottega.cartella.file(QStringLiteral("assente.mdb"))));
}

TEST_F(GestioneMMC, UnAperturaFallitaConUnArchivioApertoNeSpegneIComandi) {
  nuovo();
  bottega.cartella.write(QStringLiteral("testo.mdb"), QByteArray("non sono un archivio\r\n").repeated(500));
  apri(QStringLiteral("testo.mdb"));
  EXPECT_EQ(comandiAbilitati(), 0);
  EXPECT_EQ(varGlobal().NomeDB_Articoli, bottega.cartella.file(QStringLiteral("archivio.mdb")));
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
  EXPECT_TRUE(attiva("mnuApri"));
}

TEST_F(GestioneMMC, UnDatabaseDiAltroGenereSiApreSenzaControlli) {
  bottega.apriVuoto({QStringLiteral("CREATE TABLE ALTRO (a)")});
  articles::ChiudiDatabase();
  apri(QStringLiteral("altro.mdb"));
  EXPECT_EQ(comandiAbilitati(), kComandi);
  EXPECT_EQ(testo("LabelArticoli"), QStringLiteral("Il contenuto dell'archivio non è leggibile."));
}

TEST_F(GestioneMMC, ChiudiChiudeLArchivioESpegneIComandi) {
  nuovo();
  voce("mnuClose");
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(comandiAbilitati(), 0);
  EXPECT_TRUE(attiva("mnuApri"));
  EXPECT_FALSE(attiva("mnuImporta"));
  EXPECT_EQ(testo("LabelArchivio"), QStringLiteral("Nessun archivio aperto"));
}

TEST_F(GestioneMMC, ChiudiSenzaArchivioNonFaNulla) {
  voce("mnuClose");
  EXPECT_EQ(comandiAbilitati(), 0);
  EXPECT_TRUE(attiva("mnuApri"));
}

TEST_F(GestioneMMC, EsciChiudeLArchivioETornaAlMenu) {
  nuovo();
  clic("Cmd_Esci");
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_FALSE(schermo->isVisible());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(bottega.schermate.trova(QStringLiteral("Form_GestioneMMC")), nullptr);
  EXPECT_TRUE(menu()->isVisible());
}

TEST_F(GestioneMMC, IlTastoEscEQuelloDiUscita) {
  nuovo();
  QTest::keyClick(schermo, Qt::Key_Escape);
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_TRUE(menu()->isVisible());
}

TEST_F(GestioneMMC, LaChiusuraDellaCorniceEQuelloDiUscita) {
  nuovo();
  schermo->close();
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_TRUE(menu()->isVisible());
}

TEST_F(GestioneMMC, RiapertaDopoLUscitaENuova) {
  nuovo();
  clic("Cmd_Esci");
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QTest::mouseClick(menu()->findChild<QWidget*>(QStringLiteral("Label2")), Qt::LeftButton);
  schermo = bottega.schermate.trova(QStringLiteral("Form_GestioneMMC"));
  ASSERT_NE(schermo, nullptr);
  EXPECT_EQ(comandiAbilitati(), 0);
  EXPECT_TRUE(attiva("mnuApri"));
}

TEST_F(GestioneMMC, TrasferimentoArticoliSiApreModaleSopraLAreaDiLavoro) {
  nuovo();
  conModale([this] { clic("Cmd_Down"); },
            [this](QWidget& modale) {
              EXPECT_EQ(modale.objectName(), QStringLiteral("Form_TrasferimentoArticoli"));
              EXPECT_EQ(modale.windowTitle(), QStringLiteral("Trasferimento Articoli"));
              EXPECT_TRUE(schermo->isVisible());
              QTest::mouseClick(modale.findChild<QWidget*>(QStringLiteral("Cmd_Esci")), Qt::LeftButton);
            });
  EXPECT_TRUE(schermo->isVisible());
}

TEST_F(GestioneMMC, RicezioneDelVendutoSiApreModale) {
  nuovo();
  conModale([this] { clic("Cmd_Upl"); },
            [](QWidget& modale) {
              EXPECT_EQ(modale.objectName(), QStringLiteral("Form_RicezioneVenduto"));
              EXPECT_EQ(modale.windowTitle(), QStringLiteral("Ricezione del Venduto"));
              QTest::mouseClick(modale.findChild<QWidget*>(QStringLiteral("Cmd_Esci")), Qt::LeftButton);
            });
}

TEST_F(GestioneMMC, ArchivioArticoliSiApreModaleESiChiude) {
  nuovo();
  conModale([this] { clic("Cmd_Articoli"); },
            [this](QWidget& modale) {
              EXPECT_EQ(modale.objectName(), QStringLiteral("Form_ArchivioArticoli"));
              EXPECT_EQ(modale.windowTitle(), QStringLiteral(" PLU/ARTICOLI - ") +
                                                  bottega.cartella.file(QStringLiteral("archivio.mdb")));
              QTest::mouseClick(modale.findChild<QWidget*>(QStringLiteral("Cmd_Esci")), Qt::LeftButton);
            });
}

TEST_F(GestioneMMC, AnalisiDelVendutoSiApreModaleESiChiude) {
  nuovo();
  conModale([this] { clic("Cmd_Venduto"); },
            [](QWidget& modale) {
              EXPECT_EQ(modale.objectName(), QStringLiteral("Form_ArchivioVenduto"));
              EXPECT_EQ(modale.windowTitle(), QStringLiteral("Archivio Venduto"));
              QTest::keyClick(&modale, Qt::Key_Escape);
            });
}

TEST_F(GestioneMMC, ConLaTastieraSiCreaESiApreUnComando) {
  bottega.utente.chooses(bottega.cartella.file(QStringLiteral("archivio.mdb")));
  QTest::keyClick(schermo, Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(comandiAbilitati(), kComandi);
  controllo("Cmd_Venduto").setFocus();
  conModale([this] { QTest::keyClick(&controllo("Cmd_Venduto"), Qt::Key_Return); },
            [](QWidget& modale) { QTest::keyClick(&modale, Qt::Key_Escape); });
}

TEST_F(GestioneMMC, IlTabulatorePassaPerOgniComandoNelLoroOrdine) {
  nuovo();
  controllo("PulsanteNuovo").setFocus();
  QStringList visitati;
  for (int i = 0; i < 8; ++i) {
    visitati.append(schermo->focusWidget()->objectName());
    QTest::keyClick(schermo->focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(
      visitati.join(QLatin1Char(' ')),
      QStringLiteral("PulsanteNuovo PulsanteApri PulsanteImporta Cmd_Articoli Cmd_Down Cmd_Upl Cmd_Venduto "
                     "Cmd_Esci"));
}

TEST_F(GestioneMMC, StaInUnoSchermoDi1024Per768AlDuecentoPerCento) {
  style::apply(*qobject_cast<QApplication*>(QCoreApplication::instance()), style::Theme::Light);
  nuovo();
  schermo->resize(512, 384);
  EXPECT_LE(schermo->width(), 512);
  EXPECT_LE(schermo->height(), 384);
}

TEST_F(GestioneMMC, UnNomeLungoNonAllargaLaFinestra) {
  style::apply(*qobject_cast<QApplication*>(QCoreApplication::instance()), style::Theme::Light);
  const QString lungo = QString(200, QLatin1Char('n')) + QStringLiteral(".mdb");
  nuovo(lungo);
  EXPECT_EQ(testo("LabelArchivio"), lungo);
  bottega.utente.chooses(bottega.cartella.file(QStringLiteral("assente/") + lungo));
  voce("mnuNuovo");
  EXPECT_TRUE(testo("LabelEsito").contains(lungo));
  EXPECT_EQ(controllo("LabelEsito").toolTip(), testo("LabelEsito"));
  schermo->resize(512, 384);
  EXPECT_EQ(schermo->width(), 512);
}

TEST_F(GestioneMMC, IPulsantiDellaSchedaFannoQuantoLeVociDiMenu) {
  bottega.utente.chooses(bottega.cartella.file(QStringLiteral("archivio.mdb")));
  clic("PulsanteNuovo");
  EXPECT_EQ(comandiAbilitati(), kComandi);
  EXPECT_TRUE(controllo("PulsanteImporta").isEnabled());
  apri();
  EXPECT_FALSE(controllo("PulsanteApri").isEnabled());
}

// The checksum table.

TEST_F(GestioneMMC, LIndiceDegliEanHaUnaRigaPerPosizioneEDaZero) {
  nuovo();
  EXPECT_EQ(dynamic_cast<Form_GestioneMMC&>(*schermo).CreaIndiceEAN(), 0);
  EXPECT_EQ(bottega.righe(QStringLiteral("SELECT Index from TAB_EAN_NUMERICI")), 5000);
}

TEST_F(GestioneMMC, LIndiceDegliEanDaZeroAncheSenzaArchivio) {
  EXPECT_EQ(dynamic_cast<Form_GestioneMMC&>(*schermo).CreaIndiceEAN(), 0);
  const std::vector<Box>& visti = bottega.utente.boxes();
  ASSERT_EQ(visti.size(), 1U);
  EXPECT_TRUE(visti[0].text.startsWith(QStringLiteral("UpdateEanNumAndIndex 3420 - ")));
}

}  // namespace
