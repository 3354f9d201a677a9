#include "core/avvio.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "sostegno/cartella_temporanea.h"

TEST(Avvio, CancellaIlLogDellApplicazioneELasciaQuelloDellaCartellaCorrente) {
  const CartellaTemporanea corrente;
  QTemporaryDir applicazione;
  const QString qui = corrente.scrivi(QStringLiteral("crc32Log.txt"), "x");
  const QString la = corrente.scrivi(QStringLiteral("altro"), "x");
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
  QTemporaryDir applicazione;
  QDir(applicazione.path()).mkpath(QStringLiteral("crc32Log.txt/pieno"));
  EXPECT_NO_THROW(PreparaAvvio(applicazione.path()));
  EXPECT_TRUE(QDir(applicazione.filePath(QStringLiteral("crc32Log.txt"))).exists());
}

TEST(Avvio, UnaCartellaDellApplicazioneAssenteNonFermaLAvvio) {
  EXPECT_NO_THROW(PreparaAvvio(QStringLiteral("/percorso/che/non/esiste")));
}
