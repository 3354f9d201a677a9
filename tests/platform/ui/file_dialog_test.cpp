#include "platform/ui/file_dialog.h"

#include <gtest/gtest.h>

#include <QAbstractFileIconProvider>
#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <functional>

#include "platform/ui/busy_guard.h"
#include "platform/ui/desktop_user.h"
#include "sostegno/temporary_folder.h"

namespace {

const FileRequest kCsv{QStringLiteral("Apri un elenco"), QStringLiteral("csv (*.csv)|*.csv"), {}};

/// Does something once to the modal window of this kind that comes next.
template <typename Finestra>
void quandoSiApre(std::function<void(Finestra&)> gesto) {
  auto* attesa = new QTimer(qApp);
  QObject::connect(attesa, &QTimer::timeout, attesa, [=] {
    auto* aperta = qobject_cast<Finestra*>(QApplication::activeModalWidget());
    if (aperta == nullptr || !aperta->isVisible()) return;
    attesa->stop();
    attesa->deleteLater();
    gesto(*aperta);
  });
  attesa->start(0);
}

/// Answers the dialog that the next call opens.
void allaFinestra(std::function<void(QFileDialog&)> risposta) {
  quandoSiApre<QFileDialog>(std::move(risposta));
}

void scrivi(QFileDialog& finestra, const QString& nome) {
  auto* casella = finestra.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  ASSERT_NE(casella, nullptr);
  casella->setText(nome);
  QTest::keyClick(casella, Qt::Key_Return);
}

void annulla(QFileDialog& finestra) {
  QTest::keyClick(&finestra, Qt::Key_Escape);
}

FileRequest da(const QString& cartella) {
  FileRequest richiesta = kCsv;
  richiesta.folder = cartella;
  return richiesta;
}

/// Where a dialog with this request starts; it is cancelled.
QString partenza(DesktopUser& utente, const FileRequest& richiesta) {
  QString dove;
  allaFinestra([&](QFileDialog& finestra) {
    dove = finestra.directory().absolutePath();
    annulla(finestra);
  });
  EXPECT_EQ(utente.AskOpenPath(richiesta), std::nullopt);
  return dove;
}

/// A run of the program that has chosen no file yet.
struct NuovoGiro : testing::Test {
  NuovoGiro() { file_dialog::startIn({}); }
  ~NuovoGiro() override { file_dialog::startIn({}); }
  const TemporaryFolder cartella;
  DesktopUser utente{nullptr};

  QString sotto(const char* nome) const {
    QString intera = cartella.file(QLatin1String(nome));
    EXPECT_TRUE(QDir(cartella.path()).mkpath(intera));
    return intera;
  }
};

struct PartenzaDelleFinestre : NuovoGiro {};
struct RigheDellaFinestra : NuovoGiro {};
struct SostituzioneDiUnFile : NuovoGiro {
  SostituzioneDiUnFile() {
    cartella.write(QStringLiteral("vendite.csv"), "vecchio");
    richiesta.asksBeforeReplacing = true;
  }
  FileRequest richiesta = kCsv;

  /// Answers the question that comes once a name has been typed and Enter pressed.
  void scriviERispondi(
      const QString& nome, const std::function<void(QMessageBox&)>& risposta,
      const std::function<void(QFileDialog&)>& poi = [](QFileDialog&) {}) {
    allaFinestra([=, this](QFileDialog& finestra) {
      quandoSiApre<QMessageBox>([=, this](QMessageBox& domanda) {
        ++domande;
        risposta(domanda);
      });
      const QPointer<QFileDialog> aperta(&finestra);
      scrivi(finestra, nome);
      if (aperta && aperta->isVisible()) poi(finestra);
    });
  }
  int domande = 0;
};

}  // namespace

TEST(FiltriDellaFinestra, LeCoppieDiventanoFiltri) {
  EXPECT_EQ(file_dialog::filters(QStringLiteral("csv (*.csv)|*.csv")),
            QStringList{QStringLiteral("csv (*.csv)")});
  EXPECT_EQ(file_dialog::filters(QStringLiteral("Archivi|*.mdb;*.bck|Tutti (*.*)|*.*")),
            (QStringList{QStringLiteral("Archivi (*.mdb *.bck)"), QStringLiteral("Tutti (*)")}));
}

TEST(FiltriDellaFinestra, UnTestoSenzaCoppieNonDaFiltri) {
  EXPECT_TRUE(file_dialog::filters(QString()).isEmpty());
  EXPECT_TRUE(file_dialog::filters(QStringLiteral("csv")).isEmpty());
}

TEST(FiltriDellaFinestra, LEstensioneSiAggiungeSoloDoveManca) {
  const QString csv = QStringLiteral("csv (*.csv)");
  EXPECT_EQ(file_dialog::withExtension(QStringLiteral("/a.b/elenco"), csv),
            QStringLiteral("/a.b/elenco.csv"));
  EXPECT_EQ(file_dialog::withExtension(QStringLiteral("/a/elenco.txt"), csv),
            QStringLiteral("/a/elenco.txt"));
  EXPECT_EQ(file_dialog::withExtension(QStringLiteral("/a/x"), QStringLiteral("Archivi (*.mdb *.bck)")),
            QStringLiteral("/a/x.mdb"));
  EXPECT_EQ(file_dialog::withExtension(QStringLiteral("/a/x"), QStringLiteral("Tutti (*)")),
            QStringLiteral("/a/x"));
  EXPECT_EQ(file_dialog::withExtension(QStringLiteral("/a/x"), QString()), QStringLiteral("/a/x"));
}

TEST(FinestraApri, DaIlPercorsoDelFileScelto) {
  const TemporaryFolder cartella;
  cartella.write(QStringLiteral("elenco.csv"), "");
  DesktopUser utente(nullptr);
  allaFinestra([](QFileDialog& finestra) {
    EXPECT_EQ(finestra.objectName(), QStringLiteral("FinestraApri"));
    EXPECT_EQ(finestra.windowTitle(), QStringLiteral("Apri un elenco"));
    EXPECT_EQ(finestra.nameFilters(), QStringList{QStringLiteral("csv (*.csv)")});
    scrivi(finestra, QStringLiteral("elenco.csv"));
  });
  EXPECT_EQ(utente.AskOpenPath(kCsv), cartella.file(QStringLiteral("elenco.csv")));
}

TEST(FinestraApri, AnnullataNonDaNulla) {
  DesktopUser utente(nullptr);
  allaFinestra(annulla);
  EXPECT_EQ(utente.AskOpenPath(kCsv), std::nullopt);
}

TEST(FinestraApri, ITipiSonoInItaliano) {
  const TemporaryFolder cartella;
  cartella.write(QStringLiteral("elenco.csv"), "");
  cartella.write(QStringLiteral("leggimi"), "");
  DesktopUser utente(nullptr);
  allaFinestra([&](QFileDialog& finestra) {
    const QAbstractFileIconProvider& tipi = *finestra.iconProvider();
    EXPECT_EQ(tipi.type(QFileInfo(cartella.path())), QStringLiteral("Cartella"));
    EXPECT_EQ(tipi.type(QFileInfo(cartella.file(QStringLiteral("elenco.csv")))), QStringLiteral("File csv"));
    EXPECT_EQ(tipi.type(QFileInfo(cartella.file(QStringLiteral("leggimi")))), QStringLiteral("File"));
    annulla(finestra);
  });
  EXPECT_EQ(utente.AskOpenPath(kCsv), std::nullopt);
}

TEST_F(PartenzaDelleFinestre, LaPrimaParteDallaCartellaDellaRichiesta) {
  file_dialog::startIn(sotto("programma"));
  EXPECT_EQ(partenza(utente, da(sotto("richiesta"))), cartella.file(QStringLiteral("richiesta")));
}

TEST_F(PartenzaDelleFinestre, SenzaCartellaNellaRichiestaParteDaQuellaDelProgramma) {
  EXPECT_EQ(partenza(utente, kCsv), cartella.path()) << "the current folder, where no other is known";
  file_dialog::startIn(sotto("programma"));
  EXPECT_EQ(partenza(utente, kCsv), cartella.file(QStringLiteral("programma")));
}

TEST_F(PartenzaDelleFinestre, LeSeguentiPartonoDallaCartellaDellUltimoFileScelto) {
  const QString altra = sotto("altra");
  cartella.write(QStringLiteral("altra/elenco.csv"), "");
  allaFinestra([&](QFileDialog& finestra) { scrivi(finestra, altra + QStringLiteral("/elenco.csv")); });
  EXPECT_EQ(utente.AskOpenPath(kCsv), altra + QStringLiteral("/elenco.csv"));
  EXPECT_EQ(partenza(utente, kCsv), altra);
}

TEST_F(PartenzaDelleFinestre, UnaRichiestaConLaSuaCartellaParteSempreDaQuella) {
  const QString altra = sotto("altra");
  allaFinestra([&](QFileDialog& finestra) { scrivi(finestra, altra + QStringLiteral("/vendite")); });
  ASSERT_TRUE(utente.AskSavePath(kCsv).has_value());
  EXPECT_EQ(partenza(utente, da(sotto("richiesta"))), cartella.file(QStringLiteral("richiesta")));
  EXPECT_EQ(partenza(utente, kCsv), altra) << "the others go on from the last file";
}

TEST_F(PartenzaDelleFinestre, AncheUnSalvataggioSpostaLaPartenza) {
  const QString altra = sotto("altra");
  allaFinestra([&](QFileDialog& finestra) { scrivi(finestra, altra + QStringLiteral("/vendite")); });
  EXPECT_EQ(utente.AskSavePath(kCsv), altra + QStringLiteral("/vendite.csv"));
  EXPECT_EQ(partenza(utente, kCsv), altra);
}

TEST_F(PartenzaDelleFinestre, UnaFinestraAnnullataNonLaSposta) {
  EXPECT_EQ(partenza(utente, da(sotto("altra"))), cartella.file(QStringLiteral("altra")));
  EXPECT_EQ(partenza(utente, kCsv), cartella.path());
}

TEST_F(PartenzaDelleFinestre, UnaCartellaSparitaLasciaIlPostoAllaSeguente) {
  const QString sparita = sotto("sparita");
  allaFinestra([&](QFileDialog& finestra) { scrivi(finestra, sparita + QStringLiteral("/vendite")); });
  ASSERT_TRUE(utente.AskSavePath(kCsv).has_value());
  EXPECT_EQ(partenza(utente, da(cartella.file(QStringLiteral("mai stata")))), sparita);
  ASSERT_TRUE(QDir(sparita).removeRecursively());
  EXPECT_EQ(partenza(utente, kCsv), cartella.path());
}

TEST_F(PartenzaDelleFinestre, DiLatoCiSonoComputerCasaScrivaniaEDocumenti) {
  const QByteArray casa = qgetenv("HOME");
  const QByteArray impostazioni = qgetenv("XDG_CONFIG_HOME");
  qputenv("HOME", sotto("casa").toLocal8Bit());
  qputenv("XDG_CONFIG_HOME", sotto("casa/.config").toLocal8Bit());
  sotto("casa/Desktop");
  sotto("casa/Documents");
  QStringList luoghi;
  allaFinestra([&](QFileDialog& finestra) {
    for (const QUrl& luogo : finestra.sidebarUrls()) luoghi.append(luogo.toLocalFile());
    annulla(finestra);
  });
  EXPECT_EQ(utente.AskOpenPath(kCsv), std::nullopt);
  qputenv("HOME", casa);
  impostazioni.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", impostazioni);
  EXPECT_EQ(luoghi, (QStringList{QString(), cartella.file(QStringLiteral("casa")),
                                 cartella.file(QStringLiteral("casa/Desktop")),
                                 cartella.file(QStringLiteral("casa/Documents"))}));
}

TEST_F(RigheDellaFinestra, IlNomeSiLeggeInteroELaDataEInVista) {
  const QString lungo = QStringLiteral("elenco articoli bottega via Roma 2026-03.csv");
  cartella.write(lungo, "1;2");
  QFile file(cartella.file(lungo));
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  ASSERT_TRUE(file.setFileTime(QDateTime(QDate(2026, 3, 5), QTime(9, 7)), QFileDevice::FileModificationTime));
  file.close();
  allaFinestra([&](QFileDialog& finestra) {
    auto* lista = finestra.findChild<QTreeView*>(QStringLiteral("treeView"));
    ASSERT_NE(lista, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] { return lista->model()->rowCount(lista->rootIndex()) == 1; }));
    ASSERT_TRUE(lista->isVisible());
    const QModelIndex nome = lista->model()->index(0, 0, lista->rootIndex());
    EXPECT_EQ(nome.data().toString(), lungo);
    EXPECT_GE(lista->visualRect(nome).width(), lista->sizeHintForIndex(nome).width());
    const QModelIndex data = nome.siblingAtColumn(3);
    EXPECT_TRUE(lista->viewport()->rect().contains(lista->visualRect(data)));
    EXPECT_GE(lista->visualRect(data).width(), lista->sizeHintForIndex(data).width());
    EXPECT_EQ(lista->horizontalScrollBar()->maximum(), 0);
    QStyleOptionViewItem casella;
    casella.initFrom(lista);
    const auto* scrive = qobject_cast<QStyledItemDelegate*>(lista->itemDelegateForIndex(data));
    EXPECT_GE(scrive->sizeHint(casella, data).width(),
              casella.fontMetrics.horizontalAdvance(QStringLiteral("05/03/2026 09:07")));
    annulla(finestra);
  });
  EXPECT_EQ(utente.AskOpenPath(kCsv), std::nullopt);
}

TEST(FinestraSalva, AggiungeLEstensioneDelFiltro) {
  const TemporaryFolder cartella;
  DesktopUser utente(nullptr);
  allaFinestra([](QFileDialog& finestra) {
    EXPECT_EQ(finestra.objectName(), QStringLiteral("FinestraSalva"));
    scrivi(finestra, QStringLiteral("vendite"));
  });
  EXPECT_EQ(utente.AskSavePath(kCsv), cartella.file(QStringLiteral("vendite.csv")));
}

TEST(FinestraSalva, UnFileCheCEGiaNonFaDomande) {
  const TemporaryFolder cartella;
  cartella.write(QStringLiteral("vendite.csv"), "");
  DesktopUser utente(nullptr);
  allaFinestra([](QFileDialog& finestra) { scrivi(finestra, QStringLiteral("vendite.csv")); });
  EXPECT_EQ(utente.AskSavePath(kCsv), cartella.file(QStringLiteral("vendite.csv")));
}

TEST_F(SostituzioneDiUnFile, ChiedePrimaELaRispostaPrescelteENo) {
  scriviERispondi(
      QStringLiteral("vendite"),
      [](QMessageBox& domanda) {
        EXPECT_TRUE(domanda.text().contains(QStringLiteral("vendite.csv"))) << domanda.text().toStdString();
        ASSERT_NE(domanda.defaultButton(), nullptr);
        EXPECT_EQ(domanda.buttonRole(domanda.defaultButton()), QMessageBox::NoRole);
        QTest::keyClick(&domanda, Qt::Key_Return);
      },
      annulla);
  EXPECT_EQ(utente.AskSavePath(richiesta), std::nullopt);
  EXPECT_EQ(domande, 1);
  EXPECT_EQ(cartella.read(QStringLiteral("vendite.csv")), "vecchio");
}

TEST_F(SostituzioneDiUnFile, ConSiDaIlPercorso) {
  scriviERispondi(QStringLiteral("vendite.csv"), [](QMessageBox& domanda) {
    for (QAbstractButton* tasto : domanda.buttons())
      if (domanda.buttonRole(tasto) == QMessageBox::YesRole) QTest::mouseClick(tasto, Qt::LeftButton);
  });
  EXPECT_EQ(utente.AskSavePath(richiesta), cartella.file(QStringLiteral("vendite.csv")));
  EXPECT_EQ(domande, 1);
}

TEST_F(SostituzioneDiUnFile, UnNomeNuovoNonFaDomande) {
  allaFinestra([](QFileDialog& finestra) { scrivi(finestra, QStringLiteral("nuovo")); });
  EXPECT_EQ(utente.AskSavePath(richiesta), cartella.file(QStringLiteral("nuovo.csv")));
}

TEST(FinestraSalva, SospendeLaGuardia) {
  const TemporaryFolder cartella;
  DesktopUser utente(nullptr);
  const BusyGuard guardia;
  allaFinestra([](QFileDialog& finestra) {
    EXPECT_FALSE(BusyGuard::active());
    scrivi(finestra, QStringLiteral("a.csv"));
  });
  EXPECT_EQ(utente.AskSavePath(kCsv), cartella.file(QStringLiteral("a.csv")));
  EXPECT_TRUE(BusyGuard::active());
}
