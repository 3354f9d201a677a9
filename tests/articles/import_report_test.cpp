#include "articles/import_report.h"

#include <gtest/gtest.h>

#include "platform/error.h"
#include "sostegno/temporary_folder.h"
#include "sostegno/troubles.h"

namespace {

using articles::CampiImport;
using articles::CloseFileLOG;
using articles::CreaFileLOG;
using articles::NomeFileLOG;
using articles::WriteFileLOG;

const QDateTime kInizio(QDate(2024, 3, 7), QTime(9, 5, 1));
const QDateTime kFine(QDate(2024, 3, 7), QTime(18, 30, 59));
const QByteArray kTratti(80, '-');

struct Report : testing::Test {
  TemporaryFolder cartella;
  QString log = cartella.file(QStringLiteral("r.log"));
  CampiImport campi{3,
                    QStringLiteral("8001"),
                    QStringLiteral("A1"),
                    QStringLiteral("Caffè € 1"),
                    QStringLiteral("2,38"),
                    QStringLiteral("90")};

  QByteArray riga(const QString& codice) {
    cartella.write(QStringLiteral("r.log"), {});
    WriteFileLOG(log, codice, campi);
    return cartella.read(QStringLiteral("r.log"));
  }
};

template <typename Passo>
int erroreDi(Passo passo) {
  try {
    passo();
  } catch (const Errore& errore) {
    return errore.numero;
  }
  return 0;
}

TEST_F(Report, IlNomeEQuelloDellIngressoFinoACsvConIlMomento) {
  EXPECT_EQ(NomeFileLOG(QStringLiteral("/liste/articoli.csv"), kInizio),
            QStringLiteral("/liste/articoli_20240307090501.log"));
}

TEST_F(Report, IlNomeNonBadaAlleMaiuscoleDellEstensione) {
  EXPECT_EQ(NomeFileLOG(QStringLiteral("C:\\liste\\ARTICOLI.CSV"), kInizio),
            QStringLiteral("C:\\liste\\ARTICOLI_20240307090501.log"));
}

TEST_F(Report, UnaCartellaCheFinisceInCsvNonTagliaIlNome) {
  EXPECT_EQ(NomeFileLOG(QStringLiteral("/liste.csv/articoli.txt"), kInizio),
            QStringLiteral("/liste.csv/articoli.txt_20240307090501.log"));
}

TEST_F(Report, LIntestazioneHaDataOraENomeDellIngresso) {
  CreaFileLOG(log, QStringLiteral("/liste/articoli.csv"), kInizio);
  EXPECT_EQ(
      cartella.read(QStringLiteral("r.log")),
      kTratti +
          "\r\nREPORT PER L'IMPORTAZIONE DEGLI ARTICOLI EFFETTUATO IN DATA: 07/03/2024 09:05:01\r\n \r\n"
          "NOME FILE INPUT: articoli.csv\r\n \r\n" +
          kTratti + "\r\n");
}

TEST_F(Report, LIntestazioneSostituisceUnReportDelloStessoNome) {
  cartella.write(QStringLiteral("r.log"), "vecchio");
  CreaFileLOG(log, QStringLiteral("articoli.csv"), kInizio);
  EXPECT_FALSE(cartella.read(QStringLiteral("r.log")).contains("vecchio"));
}

TEST_F(Report, LaChiusuraHaDataOraETotale) {
  CloseFileLOG(log, 2, kFine);
  EXPECT_EQ(cartella.read(QStringLiteral("r.log")),
            kTratti +
                "\r\nFINE REPORT IN DATA: 07/03/2024 18:30:59\r\n \r\nTOTALI ERRORI RISCONTRATI: [2]\r\n" +
                kTratti + "\r\n");
}

TEST_F(Report, EanDuplicatoMarcaLEan) {
  EXPECT_EQ(riga(QStringLiteral("WARNING: EAN DUPLICATO")),
            "8001|A1 Caff\xE8 \x80 1 2,38 90 [CODICE ERRORE=WARNING: EAN DUPLICATO *8001*]\r\n \r\n");
}

TEST_F(Report, ErrorePrezzoMarcaIlPrezzo) {
  EXPECT_EQ(riga(QStringLiteral("ERR: PREZZO")),
            "8001|A1 Caff\xE8 \x80 1 2,38 90 [CODICE ERRORE=ERR: PREZZO *2,38*]\r\n \r\n");
}

TEST_F(Report, ErroreRepartoMarcaIlReparto) {
  EXPECT_EQ(riga(QStringLiteral("ERR: REPARTO")),
            "8001|A1 Caff\xE8 \x80 1 2,38 90 [CODICE ERRORE=ERR: REPARTO *90*]\r\n \r\n");
}

TEST_F(Report, Codice4DiceEanAssente) {
  EXPECT_TRUE(riga(QStringLiteral("4")).endsWith(" 90 [CODICE ERRORE=4 *CODICE EAN ASSENTE*]\r\n \r\n"));
}

TEST_F(Report, Codice5DiceCodiceArticoloAssente) {
  EXPECT_TRUE(riga(QStringLiteral("5")).endsWith(" 90 [CODICE ERRORE=5 *CODICE ARTICOLO ASSENTE*]\r\n \r\n"));
}

TEST_F(Report, Codice6DiceRepartoAssente) {
  EXPECT_TRUE(riga(QStringLiteral("6")).endsWith(" 90 [CODICE ERRORE=6 *NUMERO REPARTO ASSENTE*]\r\n \r\n"));
}

TEST_F(Report, Codice7DiceDescrizioneAssente) {
  EXPECT_TRUE(riga(QStringLiteral("7")).endsWith(" 90 [CODICE ERRORE=7 *DESCRIZIONE ASSENTE*]\r\n \r\n"));
}

TEST_F(Report, UnaCartellaAssenteDaErrore76) {
  EXPECT_EQ(erroreDi([&] { CreaFileLOG(cartella.file(QStringLiteral("no/r.log")), {}, kInizio); }),
            errors::kPathMissing);
}

TEST_F(Report, UnDiscoPienoDaErrore61) {
  {
    const FullDisk pieno(100);
    EXPECT_EQ(erroreDi([&] { CreaFileLOG(cartella.file(QStringLiteral("r.log")), {}, kInizio); }),
              errors::kDiskFull);
  }
  EXPECT_EQ(erroreDi([&] { WriteFileLOG(QStringLiteral("/dev/full"), QStringLiteral("4"), campi); }),
            errors::kDiskFull);
  EXPECT_EQ(erroreDi([&] { CloseFileLOG(QStringLiteral("/dev/full"), 1, kFine); }), errors::kDiskFull);
}

}  // namespace
