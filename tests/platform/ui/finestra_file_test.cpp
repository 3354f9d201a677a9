#include "platform/ui/finestra_file.h"

#include <gtest/gtest.h>

#include <QAbstractFileIconProvider>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <functional>

#include "platform/ui/occupato.h"
#include "platform/ui/utente_desktop.h"
#include "sostegno/cartella_temporanea.h"

namespace {

const FinestraFile kCsv{QStringLiteral("Apri un elenco"), QStringLiteral("csv (*.csv)|*.csv"), {}};

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
  EXPECT_EQ(finestra_file::filtri(QStringLiteral("csv (*.csv)|*.csv")),
            QStringList{QStringLiteral("csv (*.csv)")});
  EXPECT_EQ(finestra_file::filtri(QStringLiteral("Archivi|*.mdb;*.bck|Tutti (*.*)|*.*")),
            (QStringList{QStringLiteral("Archivi (*.mdb *.bck)"), QStringLiteral("Tutti (*)")}));
}

TEST(FiltriDellaFinestra, UnTestoSenzaCoppieNonDaFiltri) {
  EXPECT_TRUE(finestra_file::filtri(QString()).isEmpty());
  EXPECT_TRUE(finestra_file::filtri(QStringLiteral("csv")).isEmpty());
}

TEST(FiltriDellaFinestra, LEstensioneSiAggiungeSoloDoveManca) {
  const QString csv = QStringLiteral("csv (*.csv)");
  EXPECT_EQ(finestra_file::conEstensione(QStringLiteral("/a.b/elenco"), csv),
            QStringLiteral("/a.b/elenco.csv"));
  EXPECT_EQ(finestra_file::conEstensione(QStringLiteral("/a/elenco.txt"), csv),
            QStringLiteral("/a/elenco.txt"));
  EXPECT_EQ(finestra_file::conEstensione(QStringLiteral("/a/x"), QStringLiteral("Archivi (*.mdb *.bck)")),
            QStringLiteral("/a/x.mdb"));
  EXPECT_EQ(finestra_file::conEstensione(QStringLiteral("/a/x"), QStringLiteral("Tutti (*)")),
            QStringLiteral("/a/x"));
  EXPECT_EQ(finestra_file::conEstensione(QStringLiteral("/a/x"), QString()), QStringLiteral("/a/x"));
}

TEST(FinestraApri, DaIlPercorsoDelFileScelto) {
  const CartellaTemporanea cartella;
  cartella.scrivi(QStringLiteral("elenco.csv"), "");
  UtenteDesktop utente(nullptr);
  allaFinestra([](QFileDialog& finestra) {
    EXPECT_EQ(finestra.objectName(), QStringLiteral("FinestraApri"));
    EXPECT_EQ(finestra.windowTitle(), QStringLiteral("Apri un elenco"));
    EXPECT_EQ(finestra.nameFilters(), QStringList{QStringLiteral("csv (*.csv)")});
    scrivi(finestra, QStringLiteral("elenco.csv"));
  });
  EXPECT_EQ(utente.FinestraApri(kCsv), cartella.file(QStringLiteral("elenco.csv")));
}

TEST(FinestraApri, AnnullataNonDaNulla) {
  UtenteDesktop utente(nullptr);
  allaFinestra(annulla);
  EXPECT_EQ(utente.FinestraApri(kCsv), std::nullopt);
}

TEST(FinestraApri, ITipiSonoInItaliano) {
  const CartellaTemporanea cartella;
  cartella.scrivi(QStringLiteral("elenco.csv"), "");
  cartella.scrivi(QStringLiteral("leggimi"), "");
  UtenteDesktop utente(nullptr);
  allaFinestra([&](QFileDialog& finestra) {
    const QAbstractFileIconProvider& tipi = *finestra.iconProvider();
    EXPECT_EQ(tipi.type(QFileInfo(cartella.percorso())), QStringLiteral("Cartella"));
    EXPECT_EQ(tipi.type(QFileInfo(cartella.file(QStringLiteral("elenco.csv")))), QStringLiteral("File csv"));
    EXPECT_EQ(tipi.type(QFileInfo(cartella.file(QStringLiteral("leggimi")))), QStringLiteral("File"));
    annulla(finestra);
  });
  EXPECT_EQ(utente.FinestraApri(kCsv), std::nullopt);
}

TEST(FinestraApri, LaCartellaDellaVoltaPrimaNonSiRicorda) {
  const CartellaTemporanea cartella;
  ASSERT_TRUE(QDir(cartella.percorso()).mkdir(QStringLiteral("altra")));
  UtenteDesktop utente(nullptr);
  FinestraFile altra = kCsv;
  altra.cartella = cartella.file(QStringLiteral("altra"));
  allaFinestra([&](QFileDialog& finestra) {
    EXPECT_EQ(finestra.directory().absolutePath(), cartella.file(QStringLiteral("altra")));
    annulla(finestra);
  });
  EXPECT_EQ(utente.FinestraApri(altra), std::nullopt);
  allaFinestra([&](QFileDialog& finestra) {
    EXPECT_EQ(finestra.directory().absolutePath(), cartella.percorso());
    annulla(finestra);
  });
  EXPECT_EQ(utente.FinestraApri(kCsv), std::nullopt);
}

TEST(FinestraSalva, AggiungeLEstensioneDelFiltro) {
  const CartellaTemporanea cartella;
  UtenteDesktop utente(nullptr);
  allaFinestra([](QFileDialog& finestra) {
    EXPECT_EQ(finestra.objectName(), QStringLiteral("FinestraSalva"));
    scrivi(finestra, QStringLiteral("vendite"));
  });
  EXPECT_EQ(utente.FinestraSalva(kCsv), cartella.file(QStringLiteral("vendite.csv")));
}

TEST(FinestraSalva, UnFileCheCEGiaNonFaDomande) {
  const CartellaTemporanea cartella;
  cartella.scrivi(QStringLiteral("vendite.csv"), "");
  UtenteDesktop utente(nullptr);
  allaFinestra([](QFileDialog& finestra) { scrivi(finestra, QStringLiteral("vendite.csv")); });
  EXPECT_EQ(utente.FinestraSalva(kCsv), cartella.file(QStringLiteral("vendite.csv")));
}

TEST(FinestraSalva, SospendeLaGuardia) {
  const CartellaTemporanea cartella;
  UtenteDesktop utente(nullptr);
  const Occupato guardia;
  allaFinestra([](QFileDialog& finestra) {
    EXPECT_FALSE(Occupato::attivo());
    scrivi(finestra, QStringLiteral("a.csv"));
  });
  EXPECT_EQ(utente.FinestraSalva(kCsv), cartella.file(QStringLiteral("a.csv")));
  EXPECT_TRUE(Occupato::attivo());
}
