#include <gmock/gmock.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>

#include "articles/article_database.h"
#include "articles/csv_import.h"
#include "articles/import_fixture.h"
#include "articles/sync_count.h"
#include "sostegno/troubles.h"

namespace {

using Tipo = articles::EsitoImport::Tipo;

struct ImportGuasti : ImportArticoli {};

TEST_F(ImportGuasti, UnArchivioInSolaLetturaFallisceConIlMessaggioDelloStatement) {
  varGlobal().DB_Articoli.Close();
  const QString lista = bottega.folder.write(QStringLiteral("lista.csv"), listaSana(3));
  ASSERT_EQ(chmod(bottega.folder.path().toUtf8().constData(), 0777), 0);
  ASSERT_EQ(chmod(archivio.toUtf8().constData(), 0444), 0);
  const OtherUser altro;
  articles::ApriDatabase(archivio, bottega.contesto);
  const Fotografia prima = fotografia();
  EXPECT_EQ(importaFile(lista).tipo, Tipo::Annullato);
  const auto riquadri = bottega.user.takeBoxes();
  ASSERT_EQ(riquadri.size(), 2U);
  EXPECT_TRUE(
      riquadri[0].text.startsWith(QStringLiteral("Errore nell'aggiornamento articoli Errore n° 3073\r\n")));
  EXPECT_EQ(fotografia(), prima);
}

TEST_F(ImportGuasti, UnArchivioBloccatoDaUnAltroProgrammaNonCambia) {
  const Fotografia prima = fotografia();
  {
    const OtherProgram altro(archivio, {QStringLiteral("BEGIN EXCLUSIVE")});
    EXPECT_NE(importa(rigaCsv(1, {}, "A", "B", "1,00", "1")).tipo, Tipo::Importato);
  }
  const auto riquadri = bottega.user.takeBoxes();
  ASSERT_EQ(riquadri.size(), 2U);
  EXPECT_TRUE(
      riquadri[0].text.startsWith(QStringLiteral("Errore nell'aggiornamento articoli Errore n° 3260\r\n")));
  EXPECT_EQ(fotografia(), prima);
}

TEST_F(ImportGuasti, UnDiscoPienoLasciaLArchivioComEra) {
  const Fotografia prima = fotografia();
  const QByteArray lista = listaSana(5000);
  const QString percorso = bottega.folder.write(QStringLiteral("lista.csv"), lista);
  {
    const FullDisk pieno(static_cast<unsigned long>(QFileInfo(archivio).size()) / 2);
    EXPECT_NE(importaFile(percorso).tipo, Tipo::Importato);
  }
  const auto riquadri = bottega.user.takeBoxes();
  ASSERT_EQ(riquadri.size(), 2U);
  EXPECT_TRUE(
      riquadri[0].text.startsWith(QStringLiteral("Errore nell'aggiornamento articoli Errore n° 61\r\n")))
      << riquadri[0].text.toStdString();
  EXPECT_EQ(fotografia(), prima);
  EXPECT_EQ(fotografiaDaFuori(), prima);
}

/// Runs the import of `lista` in a process of its own, killed at an event pass or at a sync of the disk, both
/// counted from 1. Returns true if it was killed.
bool importaEMuori(BackRoom& bottega, const QString& archivio, const QString& lista, int passaggio,
                   int sincronismo) {
  const pid_t figlio = fork();
  if (figlio == 0) {
    articles::ApriDatabase(archivio, bottega.contesto);
    bottega.user.chooses(lista);
    bottega.user.onPass = [passaggio, fatti = 0]() mutable {
      if (++fatti == passaggio) raise(SIGKILL);
    };
    sync_count::start([sincronismo](int numero) {
      if (numero == sincronismo) raise(SIGKILL);
    });
    articles::ImportaArticoli(bottega.contesto);
    _exit(0);
  }
  int stato = 0;
  EXPECT_EQ(waitpid(figlio, &stato, 0), figlio);
  return WIFSIGNALED(stato);
}

struct ImportUcciso : ImportArticoli {
  static constexpr int kRighe = 400;
  QString lista;
  Fotografia prima;
  Fotografia dopo;

  void SetUp() override {
    ImportArticoli::SetUp();
    lista = bottega.folder.write(QStringLiteral("lista.csv"), listaSana(kRighe));
    prima = fotografia();
    varGlobal().DB_Articoli.Close();
    const QString copia = bottega.folder.file(QStringLiteral("intera.mdb"));
    ASSERT_TRUE(QFile::copy(archivio, copia));
    articles::ApriDatabase(copia, bottega.contesto);
    importaFile(lista);
    bottega.user.takeBoxes();
    dopo = fotografia();
    ASSERT_NE(prima, dopo);
    varGlobal().DB_Articoli.Close();
  }
};

TEST_F(ImportUcciso, AUnPassaggioQualunqueLArchivioEComePrima) {
  for (const int passaggio : {1, 2, kRighe / 2, kRighe - 1, kRighe}) {
    ASSERT_TRUE(importaEMuori(bottega, archivio, lista, passaggio, 0)) << passaggio;
    ASSERT_EQ(fotografiaDaFuori(), prima) << passaggio;
  }
}

TEST_F(ImportUcciso, AUnSincronismoQualunqueLArchivioEComePrimaOComeDopo) {
  int uccisi = 0;
  while (importaEMuori(bottega, archivio, lista, 0, uccisi + 1)) {
    ++uccisi;
    const Fotografia foto = fotografiaDaFuori();
    ASSERT_TRUE(foto == prima || foto == dopo) << "killed at the sync number " << uccisi;
  }
  EXPECT_GE(uccisi, 2);
  EXPECT_EQ(fotografiaDaFuori(), dopo);
}

}  // namespace
