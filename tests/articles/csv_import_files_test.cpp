#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <random>

#include "articles/csv_import.h"
#include "articles/import_fixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tipo = articles::EsitoImport::Tipo;

struct ImportFile : ImportArticoli {};

TEST_F(ImportFile, IlSoloAvanzamentoBasta) {
  EXPECT_EQ(importa(listaSana(3).replace("\r\n", "\n")).righe, 3);
  EXPECT_EQ(colonna(QStringLiteral("Descrizione"), 3), QStringLiteral("ARTICOLO 3"));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
}

TEST_F(ImportFile, IlSoloRitornoBasta) {
  EXPECT_EQ(importa(listaSana(3).replace("\r\n", "\r")).righe, 3);
  EXPECT_EQ(colonna(QStringLiteral("Descrizione"), 3), QStringLiteral("ARTICOLO 3"));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
}

TEST_F(ImportFile, LUltimaRigaSenzaFineELetta) {
  EXPECT_EQ(importa(listaSana(3).chopped(2)).righe, 3);
  EXPECT_EQ(colonna(QStringLiteral("Descrizione"), 3), QStringLiteral("ARTICOLO 3"));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
}

TEST_F(ImportFile, UnFileVuotoRiesceSenzaRighe) {
  const Fotografia prima = fotografia();
  EXPECT_EQ(importa({}).righe, 0);
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
  EXPECT_EQ(fotografia(), prima);
}

TEST_F(ImportFile, UnaRigaVuotaFermaLImport) {
  EXPECT_EQ(importa(listaSana(1) + "\r\n" + listaSana(2)).righe, 1);
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(fallita()));
}

TEST_F(ImportFile, UnaMarcaUtf8InTestaInterrompeAllaPrimaRiga) {
  const Fotografia prima = fotografia();
  const auto esito = importa("\xEF\xBB\xBF" + listaSana(2));
  EXPECT_EQ(esito.tipo, Tipo::Interrotto);
  EXPECT_EQ(esito.righe, 0);
  EXPECT_THAT(bottega.user.boxes(), IsEmpty());
  EXPECT_EQ(fotografia(), prima);
}

TEST_F(ImportFile, UnFileBinarioFermaLImportELasciaLArchivio) {
  const Fotografia prima = fotografia();
  std::mt19937 caso(7);
  QByteArray byte(200000, '\0');
  for (char& c : byte) c = static_cast<char>(caso());
  EXPECT_EQ(importa(byte).tipo, Tipo::Fallito);
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(fallita()));
  EXPECT_EQ(fotografia(), prima);
}

TEST_F(ImportFile, UnByteNulloNelRepartoNonScriveAltreRighe) {
  QByteArray csv = rigaCsv(1, "8001", "A", "B", "1,00", "5");
  csv.replace(";5;", QByteArray(";5\0;", 4));
  const Fotografia prima = fotografia();
  EXPECT_NE(importa(csv).tipo, Tipo::Importato);
  EXPECT_EQ(bottega.user.takeBoxes().size(), 2U);
  EXPECT_EQ(fotografia(), prima);
}

TEST_F(ImportFile, CinquantaMegabyteSenzaFineDiRigaFermanoLImport) {
  const QString percorso = bottega.folder.file(QStringLiteral("lista.csv"));
  QFile file(percorso);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  const QByteArray mega(1 << 20, 'x');
  for (int i = 0; i < 50; ++i) ASSERT_EQ(file.write(mega), mega.size());
  file.close();
  EXPECT_EQ(importaFile(percorso).tipo, Tipo::Fallito);
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(fallita()));
}

TEST_F(ImportFile, CinquantaMegabyteDiRighePassano) {
  const QString percorso = bottega.folder.file(QStringLiteral("lista.csv"));
  QFile file(percorso);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  const QByteArray descrizione(25000, ' ');
  const QByteArray riga = rigaCsv(5001, "8001", "A", "B", descrizione + "1,00", "1");
  int righe = 0;
  for (; file.pos() < 50 * (1 << 20); ++righe) ASSERT_EQ(file.write(riga), riga.size());
  file.close();
  EXPECT_EQ(importaFile(percorso).righe, righe);
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
}

TEST_F(ImportFile, UnFileCheNonCEInterrompeInSilenzio) {
  const auto esito = importaFile(bottega.folder.file(QStringLiteral("assente.csv")));
  EXPECT_EQ(esito.tipo, Tipo::Interrotto);
  EXPECT_NE(esito.dettaglio, QString());
  EXPECT_THAT(QDir(bottega.folder.path()).entryList({QStringLiteral("*.log")}), IsEmpty());
}

TEST_F(ImportFile, UnReportCheNonSiPuoScrivereInterrompeInSilenzioENienteCambia) {
  const Fotografia prima = fotografia();
  ASSERT_TRUE(QDir(bottega.folder.path()).mkdir(QStringLiteral("lista_20240307090501.log")));
  bottega.screens.registra(QStringLiteral("Form_ATTESA"), [](Contesto&) { return new QWidget; });
  const auto esito = importa(listaSana(3));
  EXPECT_EQ(esito.tipo, Tipo::Interrotto);
  EXPECT_NE(esito.dettaglio, QString());
  EXPECT_EQ(bottega.screens.trova(QStringLiteral("Form_ATTESA")), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_EQ(fotografia(), prima);
}

TEST_F(ImportFile, UnReportCheSparisceNonToglieQuantoEScritto) {
  const QString log = bottega.folder.file(QStringLiteral("lista_20240307090501.log"));
  bottega.user.onBox = [&](const Box&) {
    ASSERT_TRUE(QFile::remove(log));
    ASSERT_TRUE(QDir().mkdir(log));
  };
  const auto esito = importa(listaSana(3));
  EXPECT_EQ(esito.tipo, Tipo::Importato);
  EXPECT_NE(esito.dettaglio, QString());
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
  EXPECT_EQ(fotografiaDaFuori(), fotografia());
}

}  // namespace
