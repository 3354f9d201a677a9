#include "sales/sales_export.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "articles/others.h"
#include "platform/error.h"
#include "sostegno/temporary_folder.h"

namespace {

QString coordinate(int riga, int colonna) {
  return QStringLiteral("%1.%2").arg(riga).arg(colonna);
}

class EsportazioneVenduto : public testing::Test {
 protected:
  Errore errore(const QString& percorso, int righe) {
    try {
      sales::EsportaVenduto(percorso, righe, coordinate);
    } catch (const Errore& errore) {
      return errore;
    }
    return {};
  }
  TemporaryFolder cartella;
};

TEST_F(EsportazioneVenduto, OgniRigaHaLeColonneDa1A8SenzaTestata) {
  sales::EsportaVenduto(cartella.file(QStringLiteral("v.csv")), 2, coordinate);
  EXPECT_EQ(cartella.read(QStringLiteral("v.csv")),
            QByteArray("1.1;1.2;1.3;1.4;1.5;1.6;1.7;1.8\r\n2.1;2.2;2.3;2.4;2.5;2.6;2.7;2.8\r\n"));
}

TEST_F(EsportazioneVenduto, UnElencoVuotoDaUnaRigaDiColonneVuote) {
  sales::EsportaVenduto(cartella.file(QStringLiteral("v.csv")), 1, [](int, int) { return QString(); });
  EXPECT_EQ(cartella.read(QStringLiteral("v.csv")), QByteArray(";;;;;;;\r\n"));
}

TEST_F(EsportazioneVenduto, ITestiDiventanoWindows1252ECioCheMancaUnPuntoInterrogativo) {
  sales::EsportaVenduto(cartella.file(QStringLiteral("v.csv")), 1, [](int, int colonna) {
    return colonna == 4 ? QStringLiteral("CAFFÈ € 漢") : QString();
  });
  EXPECT_EQ(cartella.read(QStringLiteral("v.csv")), QByteArray(";;;CAFF\xC8 \x80 ?;;;;\r\n"));
}

TEST_F(EsportazioneVenduto, UnFileGiaEsistenteSiSostituisce) {
  cartella.write(QStringLiteral("v.csv"), QByteArray(5000, 'x'));
  sales::EsportaVenduto(cartella.file(QStringLiteral("v.csv")), 1, coordinate);
  EXPECT_EQ(cartella.read(QStringLiteral("v.csv")).size(), 33);
}

TEST_F(EsportazioneVenduto, UnaCartellaCheNonCeDa76ENominaIlFile) {
  const Errore visto = errore(cartella.file(QStringLiteral("assente/v.csv")), 1);
  EXPECT_EQ(visto.numero, errors::kPathMissing);
  EXPECT_TRUE(visto.descrizione.contains(QStringLiteral("assente/v.csv"))) << visto.descrizione.toStdString();
}

TEST_F(EsportazioneVenduto, UnPostoProibitoDa75ENonLasciaNulla) {
  ASSERT_TRUE(QDir().mkdir(cartella.file(QStringLiteral("chiusa"))));
  // Whoever it is may look into the test's folder: only the one within is shut.
  ASSERT_TRUE(QFile::setPermissions(cartella.path(), QFile::permissions(cartella.path()) | QFile::ReadGroup |
                                                         QFile::ExeGroup | QFile::ReadOther |
                                                         QFile::ExeOther));
  const AltroUtente altro;
  EXPECT_EQ(errore(cartella.file(QStringLiteral("chiusa/v.csv")), 1).numero, errors::kPathAccess);
  EXPECT_TRUE(QDir(cartella.file(QStringLiteral("chiusa"))).isEmpty());
}

TEST_F(EsportazioneVenduto, SulDiscoPienoDa61ERestaIlFileDiPrima) {
  cartella.write(QStringLiteral("v.csv"), "di prima");
  {
    const DiscoPieno pieno(4096);
    EXPECT_EQ(errore(cartella.file(QStringLiteral("v.csv")), 1000).numero, errors::kDiskFull);
  }
  EXPECT_EQ(cartella.read(QStringLiteral("v.csv")), QByteArray("di prima"));
  EXPECT_EQ(QDir(cartella.path()).entryList(QDir::Files).size(), 1);
}

}  // namespace
