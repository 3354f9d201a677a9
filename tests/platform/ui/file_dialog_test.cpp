#include "platform/ui/file_dialog.h"

#include <gtest/gtest.h>

#include <QAbstractFileIconProvider>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <functional>

#include "platform/ui/busy_guard.h"
#include "platform/ui/desktop_user.h"
#include "sostegno/temporary_folder.h"

namespace {

const FileRequest kCsv{QStringLiteral("Apri un elenco"), QStringLiteral("csv (*.csv)|*.csv"), {}};

/// Answers the dialog that the next call opens.
void allaFinestra(std::function<void(QFileDialog&)> risposta) {
  QTimer::singleShot(0, [risposta] {
    auto* finestra = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(finestra, nullptr);
    risposta(*finestra);
  });
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

TEST(FinestraApri, LaCartellaDellaVoltaPrimaNonSiRicorda) {
  const TemporaryFolder cartella;
  ASSERT_TRUE(QDir(cartella.path()).mkdir(QStringLiteral("altra")));
  DesktopUser utente(nullptr);
  FileRequest altra = kCsv;
  altra.folder = cartella.file(QStringLiteral("altra"));
  allaFinestra([&](QFileDialog& finestra) {
    EXPECT_EQ(finestra.directory().absolutePath(), cartella.file(QStringLiteral("altra")));
    annulla(finestra);
  });
  EXPECT_EQ(utente.AskOpenPath(altra), std::nullopt);
  allaFinestra([&](QFileDialog& finestra) {
    EXPECT_EQ(finestra.directory().absolutePath(), cartella.path());
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
