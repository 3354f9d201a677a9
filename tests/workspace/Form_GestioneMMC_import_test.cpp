#include <gmock/gmock.h>

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QProgressBar>
#include <QWindow>

#include "platform/ui/busy_guard.h"
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

struct ImportaDaMenu : AreaDiLavoro {
  void SetUp() override {
    AreaDiLavoro::SetUp();
    nuovo();
  }

  void importa(const QByteArray& csv) {
    bottega.utente.chooses(bottega.cartella.write(QStringLiteral("lista.csv"), csv));
    voce("mnuImporta");
  }
  QWidget* attesa() const { return bottega.schermate.trova(QStringLiteral("Form_ATTESA")); }
  QString descrizione(int auto_id) {
    return bottega.valore(QStringLiteral("SELECT Descrizione from TAB_ARTICOLI where auto_id =") +
                          QString::number(auto_id));
  }
  /// What an impatient person does while it runs.
  void impazienza() {
    for (const char* nome : {"Cmd_Esci", "Cmd_Articoli", "PulsanteNuovo", "PulsanteImporta"}) {
      QWidget& widget = controllo(nome);
      const QPointF centro = widget.rect().center();
      for (const auto tipo : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
        QCoreApplication::postEvent(
            &widget, new QMouseEvent(tipo, centro, widget.mapToGlobal(centro), Qt::LeftButton,
                                     tipo == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                                     Qt::NoModifier));
    }
    QCoreApplication::postEvent(schermo, new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
    QCoreApplication::postEvent(schermo, new QCloseEvent);
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
  EXPECT_THAT(bottega.utente.boxes(), ElementsAre(kRiuscita));
  EXPECT_EQ(descrizione(30), QStringLiteral("ART 30"));
  EXPECT_EQ(testo("LabelArticoli"), QStringLiteral("30 articoli in 5.000 posizioni"));
  EXPECT_EQ(attesa(), nullptr);
}

TEST_F(ImportaDaMenu, MostraLAttesaConLAvanzamentoMentreLegge) {
  bool vista = false;
  bottega.utente.onPass = [&] {
    ASSERT_NE(attesa(), nullptr);
    const auto* barra = attesa()->findChild<QProgressBar*>(QStringLiteral("Avanzamento"));
    vista = attesa()->isVisible() && barra && barra->isVisible();
    EXPECT_EQ(attesa()->windowHandle()->transientParent(), schermo->windowHandle());
  };
  bottega.utente.onBox = [this](const Box&) { EXPECT_EQ(attesa(), nullptr); };
  importa(righe(3));
  EXPECT_TRUE(vista);
  EXPECT_THAT(bottega.utente.boxes(), ElementsAre(kRiuscita));
}

TEST_F(ImportaDaMenu, ClicTastiEChiusureAOgniPassaggioNonFannoNulla) {
  bottega.utente.onPass = [this] { impazienza(); };
  importa(righe(200));
  bottega.utente.onPass = {};
  QCoreApplication::processEvents();
  EXPECT_THAT(bottega.utente.boxes(), ElementsAre(kRiuscita));
  EXPECT_EQ(descrizione(200), QStringLiteral("ART 200"));
  EXPECT_TRUE(schermo->isVisible());
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
  EXPECT_FALSE(BusyGuard::active());
}

TEST_F(ImportaDaMenu, UnImportFermatoEConfermatoDalComandoDopo) {
  importa(righe(2) + "rotta\r\n");
  EXPECT_THAT(bottega.utente.takeBoxes(), ElementsAre(kFallita));
  EXPECT_EQ(bottega.area.level(), 1);
  EXPECT_EQ(testo("LabelEsito"), QStringLiteral("Importazione fermata alla riga 3."));
  importa(righe(1));
  EXPECT_THAT(bottega.utente.takeBoxes(), ElementsAre(kRiuscita));
  EXPECT_EQ(bottega.area.level(), 0);
  EXPECT_EQ(descrizione(2), QStringLiteral("ART 2"));
}

TEST_F(ImportaDaMenu, UnNuovoArchivioNonPerdeQuantoUnImportFermatoHaScritto) {
  importa(righe(2) + "rotta\r\n");
  EXPECT_THAT(bottega.utente.takeBoxes(), ElementsAre(kFallita));
  nuovo(QStringLiteral("altro.mdb"));
  EXPECT_EQ(bottega.area.level(), 0);
  voce("mnuClose");
  apri();
  EXPECT_EQ(descrizione(2), QStringLiteral("ART 2"));
}

TEST_F(ImportaDaMenu, NuovoSopraLArchivioConUnImportFermatoLoSvuota) {
  importa(righe(2) + "rotta\r\n");
  bottega.utente.takeBoxes();
  bottega.utente.answers(Answer::Yes);
  nuovo();
  EXPECT_EQ(bottega.utente.takeBoxes().size(), 1U);
  EXPECT_EQ(descrizione(2), QString());
  EXPECT_EQ(testo("LabelArticoli"), QStringLiteral("0 articoli in 5.000 posizioni"));
}

TEST_F(ImportaDaMenu, LUscitaTieneQuantoUnImportFermatoHaScritto) {
  importa(righe(2) + "rotta\r\n");
  EXPECT_THAT(bottega.utente.takeBoxes(), ElementsAre(kFallita));
  clic("Cmd_Esci");
  store::Database base = bottega.area.OpenDatabase(bottega.cartella.file(QStringLiteral("archivio.mdb")));
  EXPECT_EQ(base.OpenRecordset(QStringLiteral("SELECT auto_id from TAB_ARTICOLI where Descrizione ='ART 2'"))
                .RecordCount(),
            1);
  base.Close();
}

TEST_F(ImportaDaMenu, LaFinestraAnnullataNonDiceNulla) {
  bottega.utente.chooses(std::nullopt);
  voce("mnuImporta");
  EXPECT_THAT(bottega.utente.boxes(), IsEmpty());
  EXPECT_EQ(comandiAbilitati(), kComandi);
  EXPECT_EQ(bottega.area.level(), 1);
}

TEST_F(ImportaDaMenu, UnFileCheNonSiLeggeLoDiceSoloAlPiede) {
  bottega.utente.chooses(bottega.cartella.file(QStringLiteral("assente.csv")));
  voce("mnuImporta");
  EXPECT_THAT(bottega.utente.boxes(), IsEmpty());
  EXPECT_TRUE(testo("LabelEsito").startsWith(QStringLiteral("Importazione interrotta dopo 0 righe.")));
}

TEST_F(ImportaDaMenu, UnImportAnnullatoLoDiceAlPiede) {
  importa("1;8001;A;L'OLIO;1,00;1;N;N; \r\n");
  EXPECT_EQ(bottega.utente.takeBoxes().size(), 2U);
  EXPECT_EQ(testo("LabelEsito"), QStringLiteral("Importazione annullata: l'archivio è rimasto com'era."));
  EXPECT_EQ(testo("LabelArticoli"), QStringLiteral("0 articoli in 5.000 posizioni"));
}

}  // namespace
