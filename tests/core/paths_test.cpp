#include "core/paths.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QMap>
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
  /// The same in a process that may write no file of more than 100000 bytes.
  int numeroErroreAlDiscoPieno() const {
    const pid_t figlio = ::fork();
    if (figlio == 0) {
      std::signal(SIGXFSZ, SIG_IGN);
      const rlimit limite{100000, 100000};
      ::setrlimit(RLIMIT_FSIZE, &limite);
      ::_exit(numeroErrore());
    }
    int stato = 0;
    return ::waitpid(figlio, &stato, 0) == figlio && WIFEXITED(stato) ? WEXITSTATUS(stato) : -1;
  }
  bool riempita() const { return QFileInfo::exists(cartelle.dati); }

  /// A share of these files, with its list of contents.
  void installa(const QMap<QString, QByteArray>& file) const {
    ASSERT_TRUE(QDir(cartelle.condivisa).removeRecursively());
    QByteArray contenuto;
    for (auto uno = file.cbegin(); uno != file.cend(); ++uno) {
      ASSERT_TRUE(QFileInfo(condiviso(uno.key())).dir().mkpath(QStringLiteral(".")));
      cartella.write(condiviso(uno.key()), uno.value());
      contenuto += QCryptographicHash::hash(uno.value(), QCryptographicHash::Sha256).toHex() + "  " +
                   uno.key().toUtf8() + '\n';
    }
    cartella.write(condiviso(QStringLiteral("contenuto.sha256")), contenuto);
  }
  static QString condiviso(const QString& nome) { return QStringLiteral("share/") + nome; }
  static QString mio(const QString& nome) { return QStringLiteral("casa/dati/") + nome; }
  QByteArray dellUtente(const QString& nome) const { return cartella.read(mio(nome)); }
};

const QString kLogo = QStringLiteral("Immagini GRAFICA/FestaPapà.bmp");
const QString kIcona = QStringLiteral("icons/nuova.svg");
const QString kModello = QStringLiteral("QzDB.bck");

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
  EXPECT_EQ(installato.numeroErroreAlDiscoPieno(), errors::kDiskFull);
  EXPECT_FALSE(installato.riempita());
  EXPECT_FALSE(QFileInfo::exists(installato.cartelle.dati + QStringLiteral(".nuova")));
}

TEST(CartellaApplicazione, InstallatoNonScriveAccantoAlProgrammaNemmenoDoveSiPuo) {
  Installato installato;
  installato.cartelle.programma = installato.cartella.path();
  EXPECT_EQ(CartellaApplicazione(installato.cartelle), installato.cartelle.dati);
}

TEST(CartellaApplicazione, UnaCopiaPortatileAccantoAllaCartellaDellUtenteRestaPortatile) {
  Installato installato;
  installato.cartelle.programma = installato.cartella.path();
  installato.cartelle.dati = installato.cartelle.condivisa;
  EXPECT_EQ(CartellaApplicazione(installato.cartelle), installato.cartella.path());
}

TEST(CartellaApplicazione, UnaVersioneNuovaSostituisceCioCheLUtenteNonHaCambiato) {
  const Installato installato;
  installato.installa({{kModello, "modello 1"}, {kLogo, "logo 1"}});
  CartellaApplicazione(installato.cartelle);
  installato.installa({{kModello, "modello 2"}, {kLogo, "logo 2"}, {kIcona, "icona"}});
  EXPECT_EQ(CartellaApplicazione(installato.cartelle), installato.cartelle.dati);
  EXPECT_EQ(installato.dellUtente(kModello), "modello 2");
  EXPECT_EQ(installato.dellUtente(kLogo), "logo 2");
  EXPECT_EQ(installato.dellUtente(kIcona), "icona");
}

TEST(CartellaApplicazione, UnaVersioneNuovaLasciaCioCheLUtenteHaCambiato) {
  const Installato installato;
  installato.installa({{kModello, "modello 1"}, {kLogo, "logo 1"}});
  CartellaApplicazione(installato.cartelle);
  installato.cartella.write(Installato::mio(kLogo), "logo del negozio");
  installato.cartella.write(Installato::mio(QStringLiteral("negozio.mdb")), "archivio");
  for (const QByteArray& versione : {QByteArray("2"), QByteArray("3")}) {
    installato.installa({{kModello, "modello " + versione}, {kLogo, "logo " + versione}});
    CartellaApplicazione(installato.cartelle);
    EXPECT_EQ(installato.dellUtente(kModello), "modello " + versione);
    EXPECT_EQ(installato.dellUtente(kLogo), "logo del negozio");
    EXPECT_EQ(installato.dellUtente(QStringLiteral("negozio.mdb")), "archivio");
  }
}

TEST(CartellaApplicazione, UnFileNuovoNonCopreQuelloCheLUtenteHaGiaConQuelNome) {
  const Installato installato;
  installato.installa({{kModello, "modello 1"}});
  CartellaApplicazione(installato.cartelle);
  const QString prova = QStringLiteral("prova.txt");
  installato.cartella.write(Installato::mio(prova), "mio");
  installato.installa({{kModello, "modello 1"}, {prova, "installato"}});
  CartellaApplicazione(installato.cartelle);
  EXPECT_EQ(installato.dellUtente(prova), "mio");
}

TEST(CartellaApplicazione, UnFileCheMancaTornaAlSuoPosto) {
  const Installato installato;
  installato.installa({{kModello, "modello"}, {kLogo, "logo"}});
  CartellaApplicazione(installato.cartelle);
  ASSERT_TRUE(QDir(installato.cartelle.dati + QStringLiteral("/Immagini GRAFICA")).removeRecursively());
  CartellaApplicazione(installato.cartelle);
  EXPECT_EQ(installato.dellUtente(kLogo), "logo");
}

TEST(CartellaApplicazione, UnAggiornamentoInterrottoRiprendeAllAvvioDopo) {
  const Installato installato;
  installato.installa({{kModello, "modello 1"}, {kLogo, "logo 1"}});
  CartellaApplicazione(installato.cartelle);
  installato.installa({{kModello, "modello 2"}, {kLogo, "logo 2"}});
  // As far as the first file: the list is the earlier one, a half copy of the second lies about.
  installato.cartella.write(Installato::mio(kLogo), "logo 2");
  const QString mezza = QStringLiteral(".QzDB.bck.gestionale-999999999-abcdef");
  installato.cartella.write(Installato::mio(mezza), "mod");
  CartellaApplicazione(installato.cartelle);
  EXPECT_EQ(installato.dellUtente(kModello), "modello 2");
  EXPECT_EQ(installato.dellUtente(kLogo), "logo 2");
  EXPECT_FALSE(QFileInfo::exists(installato.cartelle.dati + u'/' + mezza));
  const QString contenuto = QStringLiteral("contenuto.sha256");
  EXPECT_EQ(installato.dellUtente(contenuto), installato.cartella.read(Installato::condiviso(contenuto)));
}

TEST(CartellaApplicazione, UnAggiornamentoAlDiscoPienoLasciaIlFileDiPrima) {
  const Installato installato;
  installato.installa({{kModello, "modello 1"}});
  CartellaApplicazione(installato.cartelle);
  installato.installa({{kModello, QByteArray(300000, 'q')}});
  EXPECT_EQ(installato.numeroErroreAlDiscoPieno(), errors::kDiskFull);
  EXPECT_EQ(installato.dellUtente(kModello), "modello 1");
  EXPECT_EQ(CartellaApplicazione(installato.cartelle), installato.cartelle.dati) << "once there is room";
  EXPECT_EQ(installato.dellUtente(kModello), QByteArray(300000, 'q'));
}

TEST(CartellaApplicazione, LaCondivisaStaAccantoAlProgramma) {
  const Cartelle cartelle = CartelleDelSistema();
  EXPECT_EQ(cartelle.programma, QCoreApplication::applicationDirPath());
  EXPECT_EQ(cartelle.condivisa,
            QFileInfo(cartelle.programma).absolutePath() + QStringLiteral("/share/gestionale"));
  EXPECT_TRUE(cartelle.dati.endsWith(QStringLiteral("/gestionale"))) << cartelle.dati.toStdString();
}

TEST(CartellaTrasferimenti, QuellaCorrenteSeViSiScrive) {
  const Installato installato;
  EXPECT_EQ(CartellaTrasferimenti(installato.cartelle, installato.cartella.path(), QStringLiteral("/mia")),
            installato.cartella.path());
}

TEST(CartellaTrasferimenti, QuellaDellApplicazioneDoveNonSiScriveODoveAvviaIlMenu) {
  const Installato installato;
  EXPECT_EQ(CartellaTrasferimenti(installato.cartelle, installato.cartella.file(QStringLiteral("niente")),
                                  QStringLiteral("/mia")),
            QStringLiteral("/mia"));
  EXPECT_EQ(CartellaTrasferimenti(installato.cartelle, installato.cartelle.condivisa, QStringLiteral("/mia")),
            QStringLiteral("/mia"));
}

TEST(Scrivibile, UnaCartellaAssenteNonLoE) {
  const TemporaryFolder cartella;
  EXPECT_TRUE(Scrivibile(cartella.path()));
  EXPECT_FALSE(Scrivibile(cartella.file(QStringLiteral("niente"))));
}
