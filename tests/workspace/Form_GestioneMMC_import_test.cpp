#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QProgressBar>
#include <QWindow>

#include "platform/error.h"
#include "platform/ui/busy_guard.h"
#include "sostegno/troubles.h"
#include "workspace/Form_GestioneMMC.h"
#include "workspace/workspace_fixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Box kRiuscita{QStringLiteral("Operazione di Import ARTICOLI eseguita correttamente"),
                    Icon::Information,
                    {},
                    Buttons::Ok};
const Box kFallita{
    QStringLiteral("OPERAZIONE DI IMPORTAZIONE ARTICOLI FALLITA"), Icon::Critical, {}, Buttons::Ok};

struct ImportaDaMenu : WorkspaceFixture {
  void SetUp() override {
    WorkspaceFixture::SetUp();
    create();
  }

  void importa(const QByteArray& csv) {
    bottega.user.chooses(bottega.folder.write(QStringLiteral("lista.csv"), csv));
    entry("mnuImporta");
  }
  QWidget* attesa() const { return bottega.screens.trova(QStringLiteral("Form_ATTESA")); }
  QString descrizione(int auto_id) {
    return bottega.value(QStringLiteral("SELECT Descrizione from TAB_ARTICOLI where auto_id =") +
                         QString::number(auto_id));
  }
  /// What an impatient person does while it runs.
  void impazienza() {
    for (const char* nome : {"Cmd_Esci", "Cmd_Articoli", "PulsanteNuovo", "PulsanteImporta"}) {
      QWidget& widget = control(nome);
      const QPointF centro = widget.rect().center();
      for (const auto tipo : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
        QCoreApplication::postEvent(
            &widget, new QMouseEvent(tipo, centro, widget.mapToGlobal(centro), Qt::LeftButton,
                                     tipo == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                                     Qt::NoModifier));
    }
    QCoreApplication::postEvent(screen, new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
    QCoreApplication::postEvent(screen, new QCloseEvent);
    if (attesa()) QCoreApplication::postEvent(attesa(), new QCloseEvent);
  }
};

QByteArray righe(int quante) {
  QByteArray csv;
  for (int i = 1; i <= quante; ++i)
    csv += QByteArray::number(i) + ";80" + QByteArray::number(i) + ";A;ART " + QByteArray::number(i) +
           ";1,00;1;N;N; \r\n";
  return csv;
}

TEST_F(ImportaDaMenu, ScriveGliArticoliEAggiornaIlConto) {
  importa(righe(30));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(kRiuscita));
  EXPECT_EQ(descrizione(30), QStringLiteral("ART 30"));
  EXPECT_EQ(text("LabelArticoli"), QStringLiteral("30 articoli in 5.000 posizioni"));
  EXPECT_EQ(attesa(), nullptr);
}

TEST_F(ImportaDaMenu, MostraLAttesaConLAvanzamentoMentreLegge) {
  bool vista = false;
  bottega.user.onPass = [&] {
    ASSERT_NE(attesa(), nullptr);
    const auto* barra = attesa()->findChild<QProgressBar*>(QStringLiteral("Avanzamento"));
    vista = attesa()->isVisible() && barra && barra->isVisible();
    EXPECT_EQ(attesa()->windowHandle()->transientParent(), screen->windowHandle());
  };
  bottega.user.onBox = [this](const Box&) { EXPECT_EQ(attesa(), nullptr); };
  importa(righe(3));
  EXPECT_TRUE(vista);
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(kRiuscita));
}

TEST_F(ImportaDaMenu, ClicTastiEChiusureAOgniPassaggioNonFannoNulla) {
  bottega.user.onPass = [this] { impazienza(); };
  importa(righe(200));
  bottega.user.onPass = {};
  QCoreApplication::processEvents();
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(kRiuscita));
  EXPECT_EQ(descrizione(200), QStringLiteral("ART 200"));
  EXPECT_TRUE(screen->isVisible());
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
  EXPECT_FALSE(BusyGuard::active());
}

TEST_F(ImportaDaMenu, UnImportFermatoEConfermatoAllaFineDelComandoEIlPiedeDiceQuanteRigheRestano) {
  importa(righe(2) + "rotta\r\n");
  EXPECT_THAT(bottega.user.takeBoxes(), ElementsAre(kFallita));
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_EQ(outcome(),
            QStringLiteral("Importazione fermata alla riga 3. Restano scritte nell'archivio le 2 righe "
                           "precedenti."));
  EXPECT_EQ(outcomeKind(), OutcomeBar::Kind::Warning);
  store::Workspace altra{bottega.clock};
  store::Database base = altra.OpenDatabase(bottega.folder.file(QStringLiteral("archivio.mdb")));
  EXPECT_EQ(base.OpenRecordset(u"SELECT auto_id from TAB_ARTICOLI where Descrizione ='ART 2'").RecordCount(),
            1);
  base.Close();
  importa(righe(1));
  EXPECT_THAT(bottega.user.takeBoxes(), ElementsAre(kRiuscita));
  EXPECT_EQ(descrizione(2), QStringLiteral("ART 2"));
}

TEST_F(ImportaDaMenu, UnImportFermatoCheNonSiPuoConfermareSiDiceENonRestaNulla) {
  // A reader elsewhere lets the statements run and stops the commit.
  const QString archivio = bottega.folder.file(QStringLiteral("archivio.mdb"));
  {
    const OtherProgram altro(archivio,
                             {QStringLiteral("BEGIN"), QStringLiteral("SELECT count(*) FROM TAB_ARTICOLI")});
    importa(righe(2) + "rotta\r\n");
  }
  EXPECT_THAT(bottega.user.takeBoxes(), ElementsAre(kFallita));
  EXPECT_TRUE(outcome().startsWith(
      QStringLiteral("Importazione fermata alla riga 3. Nulla è stato scritto nell'archivio: ")))
      << outcome().toStdString();
  EXPECT_EQ(outcomeKind(), OutcomeBar::Kind::Failed);
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_EQ(descrizione(2), QString());
  EXPECT_EQ(text("LabelArticoli"), QStringLiteral("0 articoli in 5.000 posizioni"));
}

TEST_F(ImportaDaMenu, UnaConfermaFallitaHaIlRiquadroDelloStatementFallitoESiAnnulla) {
  const QString archivio = bottega.folder.file(QStringLiteral("archivio.mdb"));
  {
    const OtherProgram altro(archivio,
                             {QStringLiteral("BEGIN"), QStringLiteral("SELECT count(*) FROM TAB_ARTICOLI")});
    importa(righe(3));
  }
  expectBoxes(bottega,
              {criticalBox(QStringLiteral("Errore nell'aggiornamento articoli Errore n° 3260\r\n*"))});
  EXPECT_EQ(outcome(), QStringLiteral("Importazione annullata: l'archivio è rimasto com'era."));
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_EQ(descrizione(1), QString());
}

TEST_F(ImportaDaMenu, UnNuovoArchivioNonPerdeQuantoUnImportFermatoHaScritto) {
  importa(righe(2) + "rotta\r\n");
  EXPECT_THAT(bottega.user.takeBoxes(), ElementsAre(kFallita));
  create(QStringLiteral("altro.mdb"));
  EXPECT_EQ(bottega.workspace.level(), 0);
  entry("mnuClose");
  open();
  EXPECT_EQ(descrizione(2), QStringLiteral("ART 2"));
}

TEST_F(ImportaDaMenu, NuovoSopraLArchivioConUnImportFermatoLoSvuota) {
  importa(righe(2) + "rotta\r\n");
  bottega.user.takeBoxes();
  bottega.user.answers(Answer::Yes);
  create();
  EXPECT_EQ(bottega.user.takeBoxes().size(), 1U);
  EXPECT_EQ(descrizione(2), QString());
  EXPECT_EQ(text("LabelArticoli"), QStringLiteral("0 articoli in 5.000 posizioni"));
}

TEST_F(ImportaDaMenu, LUscitaTieneQuantoUnImportFermatoHaScritto) {
  importa(righe(2) + "rotta\r\n");
  EXPECT_THAT(bottega.user.takeBoxes(), ElementsAre(kFallita));
  click("Cmd_Esci");
  store::Database base = bottega.workspace.OpenDatabase(bottega.folder.file(QStringLiteral("archivio.mdb")));
  EXPECT_EQ(base.OpenRecordset(u"SELECT auto_id from TAB_ARTICOLI where Descrizione ='ART 2'").RecordCount(),
            1);
  base.Close();
}

/// The action beside what the foot tells.
const QAbstractButton& azione(const ImportaDaMenu& prova) {
  return prova.control<QAbstractButton>("AzioneEsito");
}

TEST_F(ImportaDaMenu, DalPiedeSiApreIlReport) {
  importa(righe(2));
  bottega.user.takeBoxes();
  EXPECT_EQ(outcome(), QStringLiteral("Importazione: righe lette 2, errori 0."));
  EXPECT_EQ(azione(*this).text(), QStringLiteral("Apri il report"));
  ASSERT_TRUE(azione(*this).isVisible());
  click("AzioneEsito");
  EXPECT_EQ(bottega.user.programs(),
            QStringList{bottega.folder.file(QStringLiteral("lista_20240307090501.log"))});
  EXPECT_EQ(outcome(), QStringLiteral("Importazione: righe lette 2, errori 0.")) << "what was told stays";
}

TEST_F(ImportaDaMenu, IlPiedeContaGliErroriEAvverte) {
  importa(righe(2));
  bottega.user.takeBoxes();
  EXPECT_EQ(outcomeKind(), OutcomeBar::Kind::Done);
  importa(righe(2) + "3;8003;A;CARA;100000;1;N;N; \r\n");
  EXPECT_EQ(bottega.user.takeBoxes().size(), 1U);
  EXPECT_EQ(outcome(), QStringLiteral("Importazione: righe lette 3, errori 1."));
  EXPECT_EQ(outcomeKind(), OutcomeBar::Kind::Warning);
}

TEST_F(ImportaDaMenu, UnReportCheSparisceSiDiceDietroAlConto) {
  const QString log = bottega.folder.file(QStringLiteral("lista_20240307090501.log"));
  bottega.user.onBox = [&](const Box&) {
    ASSERT_TRUE(QFile::remove(log));
    ASSERT_TRUE(QDir().mkdir(log));
  };
  importa(righe(2));
  bottega.user.onBox = nullptr;
  EXPECT_THAT(bottega.user.takeBoxes(), ElementsAre(kRiuscita));
  EXPECT_EQ(outcome(),
            QStringLiteral("Importazione: righe lette 2, errori 0. Errore di accesso al percorso o "
                           "al file: ") +
                log);
  EXPECT_EQ(outcomeKind(), OutcomeBar::Kind::Warning);
}

TEST_F(ImportaDaMenu, AncheDopoUnImportAnnullatoSiApreIlReport) {
  importa("1;8001;A;L'OLIO;1,00;1;N;N; \r\n");
  bottega.user.takeBoxes();
  EXPECT_EQ(outcomeKind(), OutcomeBar::Kind::Warning);
  EXPECT_TRUE(azione(*this).isVisible());
}

TEST_F(ImportaDaMenu, SenzaReportNonCeNullaDaAprire) {
  bottega.user.chooses(bottega.folder.file(QStringLiteral("assente.csv")));
  entry("mnuImporta");
  EXPECT_FALSE(azione(*this).isVisible());
}

TEST_F(ImportaDaMenu, UnAltroComandoToglieIlReportDalPiede) {
  importa(righe(2));
  bottega.user.takeBoxes();
  entry("mnuClose");
  EXPECT_FALSE(azione(*this).isVisible());
}

/// A desktop without a program for texts.
struct SenzaProgrammi : ScriptedUser {
  void OpenWithDesktop(const QString& file) override { throw errors::fileMissing(file); }
};

TEST(ReportDellImport, SeNonSiApreLoDiceIlPiede) {
  BackRoom bottega;
  bottega.openArchive();
  SenzaProgrammi utente;
  Contesto contesto{utente,          bottega.workspace, bottega.library,          bottega.network,
                    bottega.screens, bottega.clock,     bottega.contesto.cartella};
  Form_GestioneMMC schermo(contesto);
  schermo.show();
  utente.chooses(bottega.folder.write(QStringLiteral("lista.csv"), righe(1)));
  schermo.findChild<QAction*>(QStringLiteral("mnuImporta"))->setEnabled(true);
  schermo.findChild<QAction*>(QStringLiteral("mnuImporta"))->trigger();
  EXPECT_EQ(utente.takeBoxes().size(), 1U);
  schermo.findChild<QAbstractButton*>(QStringLiteral("AzioneEsito"))->click();
  const auto& barra = *schermo.findChild<OutcomeBar*>(QStringLiteral("BarraEsito"));
  EXPECT_EQ(barra.text(), QStringLiteral("Il report non si è aperto: ") +
                              bottega.folder.file(QStringLiteral("lista_20240307090501.log")));
  EXPECT_EQ(barra.kind(), OutcomeBar::Kind::Failed);
}

TEST_F(ImportaDaMenu, LaFinestraAnnullataNonDiceNulla) {
  bottega.user.chooses(std::nullopt);
  entry("mnuImporta");
  EXPECT_THAT(bottega.user.boxes(), IsEmpty());
  EXPECT_EQ(outcome(), QString());
  EXPECT_EQ(enabledCommands(), kCommands);
  EXPECT_EQ(bottega.workspace.level(), 0);
}

TEST_F(ImportaDaMenu, UnFileCheNonSiLeggeLoDiceSoloAlPiede) {
  bottega.user.chooses(bottega.folder.file(QStringLiteral("assente.csv")));
  entry("mnuImporta");
  EXPECT_THAT(bottega.user.boxes(), IsEmpty());
  EXPECT_EQ(outcome(),
            QStringLiteral("Importazione interrotta dopo 0 righe: File non trovato: %1. L'archivio è "
                           "rimasto com'era.")
                .arg(bottega.folder.file(QStringLiteral("assente.csv"))));
}

TEST_F(ImportaDaMenu, DiUnaRigaSolaRimastaSiDiceAlSingolare) {
  importa(righe(1) + "rotta\r\n");
  EXPECT_THAT(bottega.user.takeBoxes(), ElementsAre(kFallita));
  EXPECT_EQ(outcome(), QStringLiteral("Importazione fermata alla riga 2. Resta scritta nell'archivio la riga "
                                      "precedente."));
}

TEST_F(ImportaDaMenu, LeRigheDiPosizioniCheNonCiSonoNonContanoFraLeScritte) {
  importa("6001;8001;A;PANE;1,00;1;N;N; \r\n6002;8002;A;PANE;1,00;1;N;N; \r\nrotta\r\n");
  EXPECT_THAT(bottega.user.takeBoxes(), ElementsAre(kFallita));
  EXPECT_EQ(outcome(), QStringLiteral("Importazione fermata alla riga 3. L'archivio è rimasto com'era."));
}

TEST_F(ImportaDaMenu, NessunaTransazioneAspettaLaRispostaAlRiquadro) {
  int livello = -1;
  bottega.user.onBox = [&](const Box&) { livello = bottega.workspace.level(); };
  importa(righe(2) + "rotta\r\n");
  EXPECT_THAT(bottega.user.takeBoxes(), ElementsAre(kFallita));
  EXPECT_EQ(livello, 0);
}

TEST_F(ImportaDaMenu, UnEccezioneDelLinguaggioFinisceComeOgniInterruzione) {
  bottega.user.onPass = [] { throw std::runtime_error("memoria"); };
  importa(righe(2));
  bottega.user.onPass = {};
  EXPECT_EQ(outcome(),
            QStringLiteral("Importazione interrotta dopo 0 righe: memoria. L'archivio è rimasto com'era."));
}

TEST_F(ImportaDaMenu, UnImportAnnullatoLoDiceAlPiede) {
  importa("1;8001;A;L'OLIO;1,00;1;N;N; \r\n");
  EXPECT_EQ(bottega.user.takeBoxes().size(), 2U);
  EXPECT_EQ(outcome(), QStringLiteral("Importazione annullata: l'archivio è rimasto com'era."));
  EXPECT_EQ(text("LabelArticoli"), QStringLiteral("0 articoli in 5.000 posizioni"));
}

}  // namespace
