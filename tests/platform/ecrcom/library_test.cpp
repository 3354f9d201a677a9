#include "platform/ecrcom/library.h"

#include <gtest/gtest.h>

#include "platform/error.h"
#include "sostegno/temporary_folder.h"

namespace {

const QString kBuona = QStringLiteral(LIBRARIES_FOLDER "/ecrcom_overrun");
const QString kVuota = QStringLiteral(LIBRARIES_FOLDER "/ecrcom_empty");

template <typename Passo>
Errore erroreDi(Passo passo) {
  try {
    passo();
  } catch (const Errore& errore) {
    return errore;
  }
  ADD_FAILURE() << "no failure";
  return {};
}

}  // namespace

TEST(EcrLibrary, LAssenzaDellaLibreriaEErrore53ConIlSuoNome) {
  const TemporaryFolder cartella;
  EcrLibrary libreria(cartella.path());
  const Errore errore = erroreDi([&] { libreria.ecr_get_err(1); });
  EXPECT_EQ(errore.numero, errors::kFileMissing);
  EXPECT_EQ(errore.descrizione, QStringLiteral("File non trovato: libecrcom.so"));
}

TEST(EcrLibrary, UnFileCheNonEUnaLibreriaEErrore53) {
  const TemporaryFolder cartella;
  cartella.write(QStringLiteral("libecrcom.so"), "testo");
  EcrLibrary libreria(cartella.path());
  EXPECT_EQ(erroreDi([&] { libreria.ecr_conn_xonxoff_ntw("127.0.0.1"); }).numero, errors::kFileMissing);
}

TEST(EcrLibrary, UnIngressoMancanteEErrore453ConIlSuoNome) {
  EcrLibrary libreria(kVuota);
  const Errore errore = erroreDi([&] { libreria.ecr_date_decode(1, 2, 2011); });
  EXPECT_EQ(errore.numero, errors::kEntryPointMissing);
  EXPECT_TRUE(errore.descrizione.contains(QStringLiteral("ecr_date_decode")))
      << errore.descrizione.toStdString();
  EXPECT_TRUE(errore.descrizione.contains(QStringLiteral("libecrcom.so")))
      << errore.descrizione.toStdString();
}

TEST(EcrLibrary, LaLibreriaSiCaricaAllaPrimaChiamataENonPrima) {
  const TemporaryFolder cartella;
  EcrLibrary libreria(cartella.path());
  EXPECT_EQ(erroreDi([&] { libreria.ecr_get_err(1); }).numero, errors::kFileMissing);
  ASSERT_TRUE(
      QFile::copy(kBuona + QStringLiteral("/libecrcom.so"), cartella.file(QStringLiteral("libecrcom.so"))));
  EXPECT_EQ(libreria.ecr_conn_xonxoff_ntw("127.0.0.1"), 9);
}

TEST(EcrLibrary, IlComandoPassaERiprendeITreTesti) {
  EcrLibrary libreria(kBuona);
  QByteArray ip("127.0.0.1");
  QByteArray file("plu.bin");
  QByteArray buffer(256, ' ');
  EXPECT_EQ(libreria.ecr_command(ip, file, 6, buffer), 0);
  EXPECT_EQ(ip, "927.0.0.1");
  EXPECT_EQ(file, "plu");
  EXPECT_EQ(buffer, QByteArray("ip=127.0.0.1,file=plu.bin,modo=6,lunghezza=256").leftJustified(256, ' '));
}

TEST(EcrLibrary, IlComandoRiportaIlCodiceDellaLibreria) {
  EcrLibrary libreria(kBuona);
  QByteArray ip;
  QByteArray file;
  QByteArray buffer(256, ' ');
  EXPECT_EQ(libreria.ecr_command(ip, file, 7, buffer), -12);
  EXPECT_EQ(ip.size(), 0) << "an empty text stays empty whatever the library writes behind it";
}

TEST(EcrLibrary, IlMessaggioNonPassaLaLunghezzaChiesta) {
  EcrLibrary libreria(kBuona);
  EXPECT_EQ(libreria.ecr_get_err(-7), QByteArray("-7").leftJustified(81, ' '));
  EXPECT_EQ(libreria.ecr_get_err(-7, 80), QByteArray("-7").leftJustified(80, ' '));
}

TEST(EcrLibrary, LeChiamateDellaConnessioneARetePassanoIValori) {
  EcrLibrary libreria(kBuona);
  EXPECT_EQ(libreria.ecr_disc_xonxoff_ntw(4), 5);
  QByteArray testo("ABC");
  EXPECT_EQ(libreria.ecr_send_xonxoff_ntw(3, testo), 3);
  EXPECT_EQ(testo, "ZBC");
  QByteArray buffer(1024, ' ');
  EXPECT_EQ(libreria.ecr_recv_xonxoff_ntw(3, buffer, 30), 1024) << "never more than the buffer holds";
  EXPECT_EQ(buffer, QByteArray("@@").leftJustified(1024, ' '));
  EXPECT_EQ(libreria.ecr_recv_xonxoff_ntw(3, buffer, 1), -1);
}

TEST(EcrLibrary, DaUnaLibreriaAltruiIBlocchiArrivanoUnoAllaVolta) {
  EcrLibrary libreria(kBuona);
  int chiesti = 0;
  const KeysBlocks blocchi = libreria.ReceiveBlocks(3, 30, [&](QByteArrayView) {
    ++chiesti;
    return false;
  });
  ASSERT_EQ(blocchi.count(), 1);
  EXPECT_EQ(chiesti, 1);
  EXPECT_FALSE(blocchi.failed());
  EXPECT_EQ(blocchi.bytes(0).size(), 1024) << "never more than the block holds";
  EXPECT_EQ(blocchi.whole(), QByteArray("@@").leftJustified(1024, ' '));
  EXPECT_FALSE(libreria.BlockWaits(3)) << "it cannot be asked";
}

TEST(EcrLibrary, UnaRicezioneFallitaNonHaBlocchiEHaIlSuoCodice) {
  EcrLibrary libreria(kBuona);
  const KeysBlocks blocchi = libreria.ReceiveBlocks(3, 1, [](QByteArrayView) { return false; });
  EXPECT_EQ(blocchi.count(), 0);
  EXPECT_TRUE(blocchi.failed());
  EXPECT_EQ(blocchi.code, -1);
  EXPECT_EQ(blocchi.whole(), QByteArray());
}

TEST(EcrLibrary, LeDatePassanoNeiDueSensi) {
  EcrLibrary libreria(kBuona);
  EXPECT_EQ(libreria.ecr_date_decode(24, 11, 2011), 20111124u);
  EXPECT_EQ(libreria.ecr_dates_decode(24, 11), 1124u);
  EXPECT_EQ(libreria.ecr_time_decode(1, 2, 3), 10203u);
  EXPECT_EQ(libreria.ecr_oro_encode(12345678), "12345678 01:02:03");
}
