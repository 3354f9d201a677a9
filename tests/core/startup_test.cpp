#include "core/startup.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>

#include "sostegno/temporary_folder.h"
#include "sostegno/troubles.h"

TEST(Avvio, CancellaIlLogDellApplicazioneELasciaQuelloDellaCartellaCorrente) {
  const TemporaryFolder corrente;
  QTemporaryDir applicazione;
  const QString qui = corrente.write(QStringLiteral("crc32Log.txt"), "x");
  const QString la = corrente.write(QStringLiteral("altro"), "x");
  ASSERT_TRUE(QFile::rename(la, applicazione.filePath(QStringLiteral("crc32Log.txt"))));
  PreparaAvvio(applicazione.path());
  EXPECT_TRUE(QFile::exists(qui));
  EXPECT_FALSE(QFile::exists(applicazione.filePath(QStringLiteral("crc32Log.txt"))));
}

TEST(Avvio, SenzaLogNonSuccedeNulla) {
  QTemporaryDir applicazione;
  PreparaAvvio(applicazione.path());
  EXPECT_TRUE(QDir(applicazione.path()).isEmpty());
}

TEST(Avvio, UnLogCheNonSiLasciaCancellareNonFermaLAvvio) {
  const TemporaryFolder applicazione;
  const QString log = applicazione.write(QStringLiteral("crc32Log.txt"), "x");
  ASSERT_EQ(::chmod(qPrintable(applicazione.path()), 0555), 0);
  {
    const OtherUser altro;
    EXPECT_NO_THROW(PreparaAvvio(applicazione.path()));
  }
  ASSERT_EQ(::chmod(qPrintable(applicazione.path()), 0700), 0);
  EXPECT_TRUE(QFile::exists(log));
}

TEST(Avvio, UnaCartellaColNomeDelLogResta) {
  QTemporaryDir applicazione;
  QDir(applicazione.path()).mkpath(QStringLiteral("crc32Log.txt/pieno"));
  EXPECT_NO_THROW(PreparaAvvio(applicazione.path()));
  EXPECT_TRUE(QDir(applicazione.filePath(QStringLiteral("crc32Log.txt"))).exists());
}

TEST(Avvio, UnaCartellaDellApplicazioneAssenteNonFermaLAvvio) {
  EXPECT_NO_THROW(PreparaAvvio(QStringLiteral("/percorso/che/non/esiste")));
}
