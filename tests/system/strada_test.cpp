// The main road with the real list, compared with figures that none of the program's code has computed.
#include <algorithm>

#include "articles/bottega.h"
#include "articles/csv_import.h"
#include "articles/transfer.h"
#include "demo/attese.h"
#include "sales/reception.h"
#include "sostegno/cassa.h"

namespace {

struct Strada : testing::Test {
  Bottega bottega;
  Cassa cassa;
  std::vector<attese::Articolo> elenco;

  void SetUp() override {
    QFile vero(QStringLiteral(GESTIONALE_APP "/articoli.csv"));
    ASSERT_TRUE(vero.open(QIODevice::ReadOnly));
    const QString lista = bottega.cartella.scrivi(QStringLiteral("articoli.csv"), vero.readAll());
    elenco = attese::leggiElenco(lista.toStdString());
    ASSERT_EQ(elenco.size(), 5000U);
    bottega.apriArchivio();
    bottega.utente.sceglie(lista);
    ASSERT_EQ(articles::ImportaArticoli(bottega.contesto, {}).tipo, articles::EsitoImport::Tipo::Importato);
    commonForKora().IP_ECR = cassa.indirizzo();
    ASSERT_EQ(articles::InviaArchivio(bottega.contesto), articles::EsitoInvio::Inviato);
    attendiBox(QStringLiteral("Operazione di Import ARTICOLI eseguita correttamente"), Icona::Informazione);
  }

  void attendiBox(const QString& testo, Icona icona) {
    EXPECT_EQ(bottega.utente.prendiRiquadri(), riquadri({testo}, icona));
  }

  std::vector<attese::Venduto> vendutoNellArchivio() {
    store::Recordset righe = varGlobal().DB_Articoli.OpenRecordset(
        QStringLiteral("SELECT id_plu,Importo_giornaliero,Tot_giorn_articoli_venduti,sconto_giornaliero from "
                       "TAB_VENDUTO order by id_plu"));
    std::vector<attese::Venduto> venduto;
    for (; !righe.fine(); righe.MoveNext())
      venduto.push_back({static_cast<int>(righe.intero64(0)), static_cast<std::int32_t>(righe.intero64(1)),
                         static_cast<std::int32_t>(righe.intero64(2)),
                         static_cast<std::int32_t>(righe.intero64(3))});
    return venduto;
  }
};

TEST_F(Strada, LArchivioSullaCassaEBytePerByteQuelloCalcolatoDallElenco) {
  const QByteArray inCassa = cassa.byte(QStringLiteral("plu.bin"));
  EXPECT_EQ(inCassa.size(), 240000);
  EXPECT_EQ(inCassa.toStdString(), attese::immaginePLU(elenco));
}

TEST_F(Strada, UnaGiornataTornaAlCentesimoConCodiceEdEanIncrociati) {
  const std::int64_t incasso = cassa->giornata(300, 2026);
  const auto inCassa = attese::leggiVenduto(cassa.file(QStringLiteral("venduto.bin")).toStdString());
  ASSERT_EQ(sales::RiceviVenduto(bottega.contesto, [](int) {}), sales::Esito::Fatto);
  attendiBox(QStringLiteral("ARCHIVIO DEL VENDUTO RICEVUTO E AZZERATO CORRETTAMENTE SULLA CASSA"),
             Icona::Esclamazione);

  const auto nellArchivio = vendutoNellArchivio();
  EXPECT_EQ(nellArchivio, inCassa);
  std::int64_t somma = 0;
  for (const attese::Venduto& uno : nellArchivio) somma += uno.importo;
  EXPECT_EQ(somma, incasso);
  EXPECT_GT(incasso, 0);
  EXPECT_EQ(cassa.byte(QStringLiteral("venduto.bin")), archivioVenduto({}));
  for (const attese::Venduto& uno : nellArchivio) {
    const attese::Articolo& articolo = elenco[static_cast<std::size_t>(uno.slot - 1)];
    const QString dove = QStringLiteral(" from TAB_VENDUTO where id_plu =%1").arg(uno.slot);
    ASSERT_EQ(bottega.valore(QStringLiteral("SELECT Codice_EAN") + dove).toStdString(), articolo.codice);
    ASSERT_EQ(bottega.valore(QStringLiteral("SELECT Codice_Articolo") + dove).toStdString(), articolo.ean);
  }
}

}  // namespace
