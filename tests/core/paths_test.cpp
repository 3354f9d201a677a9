#include "core/paths.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <csignal>

#include "platform/error.h"
#include "sostegno/temporary_folder.h"

namespace {

/// A program installed where nobody may write: its folder is no folder, which stops the superuser too.
struct Installato {
  TemporaryFolder cartella;
  Cartelle cartelle;

  Installato() {
    const QDir radice(cartella.path());
    EXPECT_TRUE(radice.mkpath(QStringLiteral("share/Immagini GRAFICA")));
    cartella.write(QStringLiteral("share/QzDB.bck"), QByteArray(300000, 'q'));
    const QString convertitore = cartella.write(QStringLiteral("share/Immagini GRAFICA/bitmap.exe"), "#!");
    EXPECT_TRUE(QFile::setPermissions(convertitore, QFile::ReadOwner | QFile::ExeOwner));
    cartelle = {cartella.write(QStringLiteral("programma"), ""), cartella.file(QStringLiteral("casa/dati")),
                cartella.file(QStringLiteral("share"))};
  }

  int numeroErrore() const {
    try {
      CartellaApplicazione(cartelle);
    } catch (const Errore& errore) {
      return errore.numero;
    }
    return 0;
  }
  bool riempita() const { return QFileInfo::exists(cartelle.dati); }
};

}  // namespace

TEST(CartellaApplicazione, QuellaDelProgrammaSeViSiScrive) {
  const TemporaryFolder cartella;
  const QString niente = cartella.file(QStringLiteral("niente"));
  EXPECT_EQ(CartellaApplicazione({cartella.path() + QLatin1Char('/'), niente, niente}), cartella.path());
  EXPECT_TRUE(QDir(cartella.path()).isEmpty()) << "the trial leaves nothing behind";
}

TEST(CartellaApplicazione, AltrimentiQuellaDellUtenteRiempitaAllaPrimaVolta) {
  const Installato installato;
  EXPECT_EQ(CartellaApplicazione(installato.cartelle), installato.cartelle.dati);
  EXPECT_EQ(installato.cartella.read(QStringLiteral("casa/dati/QzDB.bck")), QByteArray(300000, 'q'));
  const QFileInfo convertitore(installato.cartelle.dati + QStringLiteral("/Immagini GRAFICA/bitmap.exe"));
  EXPECT_TRUE(convertitore.isExecutable());
  EXPECT_TRUE(convertitore.permission(QFile::WriteOwner)) << "the user's own copy";
}

TEST(CartellaApplicazione, LaSecondaVoltaNonToccaNulla) {
  const Installato installato;
  CartellaApplicazione(installato.cartelle);
  installato.cartella.write(QStringLiteral("casa/dati/QzDB.bck"), "mio");
  EXPECT_EQ(CartellaApplicazione(installato.cartelle), installato.cartelle.dati);
  EXPECT_EQ(installato.cartella.read(QStringLiteral("casa/dati/QzDB.bck")), "mio");
}

TEST(CartellaApplicazione, SenzaCartellaCondivisaEErrore76) {
  Installato installato;
  installato.cartelle.condivisa = installato.cartella.file(QStringLiteral("altrove"));
  EXPECT_EQ(installato.numeroErrore(), errors::kPathMissing);
  EXPECT_FALSE(installato.riempita());
}

TEST(CartellaApplicazione, UnResiduoDiUnRiempimentoInterrottoNonResta) {
  const Installato installato;
  ASSERT_TRUE(QDir(installato.cartella.path()).mkpath(QStringLiteral("casa/dati.nuova")));
  installato.cartella.write(QStringLiteral("casa/dati.nuova/mezzo"), "x");
  EXPECT_EQ(CartellaApplicazione(installato.cartelle), installato.cartelle.dati);
  EXPECT_FALSE(QFileInfo::exists(installato.cartelle.dati + QStringLiteral("/mezzo")));
}

TEST(CartellaApplicazione, AlDiscoPienoNonRestaUnaCartellaAMeta) {
  const Installato installato;
  const pid_t figlio = ::fork();
  if (figlio == 0) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limite{100000, 100000};
    ::setrlimit(RLIMIT_FSIZE, &limite);
    ::_exit(installato.numeroErrore());
  }
  int stato = 0;
  ASSERT_EQ(::waitpid(figlio, &stato, 0), figlio);
  ASSERT_TRUE(WIFEXITED(stato));
  EXPECT_EQ(WEXITSTATUS(stato), errors::kDiskFull);
  EXPECT_FALSE(installato.riempita());
  EXPECT_FALSE(QFileInfo::exists(installato.cartelle.dati + QStringLiteral(".nuova")));
}

TEST(CartellaApplicazione, LaCondivisaStaAccantoAlProgramma) {
  const Cartelle cartelle = CartelleDelSistema();
  EXPECT_EQ(cartelle.programma, QCoreApplication::applicationDirPath());
  EXPECT_EQ(cartelle.condivisa,
            QFileInfo(cartelle.programma).absolutePath() + QStringLiteral("/share/gestionale"));
  EXPECT_TRUE(cartelle.dati.endsWith(QStringLiteral("/gestionale"))) << cartelle.dati.toStdString();
}

TEST(Scrivibile, UnaCartellaAssenteNonLoE) {
  const TemporaryFolder cartella;
  EXPECT_TRUE(Scrivibile(cartella.path()));
  EXPECT_FALSE(Scrivibile(cartella.file(QStringLiteral("niente"))));
}
