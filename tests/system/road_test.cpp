// The main road with the real list, compared with figures that none of the program's code has computed.
#include <gtest/gtest.h>

#include <algorithm>

#include "articles/back_room.h"
#include "articles/csv_import.h"
#include "articles/transfer.h"
#include "demo/expectations.h"
#include "sales/hidden_progress.h"
#include "sales/reception.h"
#include "sostegno/test_till.h"

namespace {

struct Strada : testing::Test {
  BackRoom bottega;
  TestTill cassa;
  std::vector<expectations::Article> elenco;

  void SetUp() override {
    QFile vero(QStringLiteral(GESTIONALE_APP "/articoli.csv"));
    ASSERT_TRUE(vero.open(QIODevice::ReadOnly));
    const QString lista = bottega.folder.write(QStringLiteral("articoli.csv"), vero.readAll());
    elenco = expectations::readList(lista.toStdString());
    ASSERT_EQ(elenco.size(), 5000U);
    bottega.openArchive();
    bottega.user.chooses(lista);
    ASSERT_EQ(articles::ImportaArticoli(bottega.contesto).tipo, articles::EsitoImport::Tipo::Importato);
    commonForKora().IP_ECR = cassa.address();
    ASSERT_EQ(articles::InviaArchivio(bottega.contesto), articles::EsitoInvio::Inviato);
    attendiBox(QStringLiteral("Operazione di Import ARTICOLI eseguita correttamente"), Icon::Information);
  }

  void attendiBox(const QString& testo, Icon icona) {
    EXPECT_EQ(bottega.user.takeBoxes(), boxes({testo}, icona));
  }

  std::vector<expectations::Sales> vendutoNellArchivio() {
    store::Recordset righe = varGlobal().DB_Articoli.OpenRecordset(
        u"SELECT id_plu,Importo_giornaliero,Tot_giorn_articoli_venduti,sconto_giornaliero from "
        u"TAB_VENDUTO order by id_plu");
    std::vector<expectations::Sales> venduto;
    for (; !righe.atEnd(); righe.MoveNext())
      venduto.push_back({static_cast<int>(righe.int64(0)), static_cast<std::int32_t>(righe.int64(1)),
                         static_cast<std::int32_t>(righe.int64(2)),
                         static_cast<std::int32_t>(righe.int64(3))});
    return venduto;
  }
};

TEST_F(Strada, LArchivioSullaCassaEBytePerByteQuelloCalcolatoDallElenco) {
  const QByteArray inCassa = cassa.byte(QStringLiteral("plu.bin"));
  EXPECT_EQ(inCassa.size(), 240000);
  EXPECT_EQ(inCassa.toStdString(), expectations::pluImage(elenco));
}

TEST_F(Strada, UnaGiornataTornaAlCentesimoConCodiceEdEanIncrociati) {
  const std::int64_t incasso = cassa->salesDay(300, 2026);
  const auto inCassa = expectations::readSales(cassa.file(QStringLiteral("venduto.bin")).toStdString());
  HiddenProgress barra;
  ASSERT_EQ(sales::RiceviVenduto(bottega.contesto, barra.progress).esito, sales::EsitoVenduto::Fatto);
  attendiBox(QStringLiteral("ARCHIVIO DEL VENDUTO RICEVUTO E AZZERATO CORRETTAMENTE SULLA CASSA"),
             Icon::Warning);

  const auto nellArchivio = vendutoNellArchivio();
  EXPECT_EQ(nellArchivio, inCassa);
  std::int64_t somma = 0;
  for (const expectations::Sales& uno : nellArchivio) somma += uno.amount;
  EXPECT_EQ(somma, incasso);
  EXPECT_GT(incasso, 0);
  EXPECT_EQ(cassa.byte(QStringLiteral("venduto.bin")), salesArchive({}));
  for (const expectations::Sales& uno : nellArchivio) {
    const expectations::Article& articolo = elenco[static_cast<std::size_t>(uno.slot - 1)];
    const QString dove = QStringLiteral(" from TAB_VENDUTO where id_plu =%1").arg(uno.slot);
    ASSERT_EQ(bottega.value(QStringLiteral("SELECT Codice_EAN") + dove).toStdString(), articolo.code);
    ASSERT_EQ(bottega.value(QStringLiteral("SELECT Codice_Articolo") + dove).toStdString(), articolo.ean);
  }
}

}  // namespace
