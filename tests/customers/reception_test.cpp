#include "customers/reception.h"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <csignal>

#include "customers/customer_database.h"
#include "customers/office.h"
#include "customers/till_files.h"
#include "platform/text/windows1252.h"
#include "sostegno/test_till.h"
#include "sostegno/troubles.h"

namespace {

using customers::EsitoRicezione;
using customers::MomentoFattura;
using testing::ElementsAre;

const QString kFatture = QStringLiteral("fatture.bin");
const QString kClienti = QStringLiteral("clienti.bin");
const QString kAnagrafica = QStringLiteral("SELECT * from TAB_ANAG_CLIENTI order by ID_Cliente");
const QString kAnonimo = QStringLiteral("0||||||1");
const Box kFattureRicevute =
    box(QStringLiteral("ARCHIVIO DELLE FATTURE CORRETTAMENTE RICEVUTO"), Icon::Warning);
const Box kClientiRicevuti =
    box(QStringLiteral("ARCHIVIO DEI CLIENTI CORRETTAMENTE RICEVUTO"), Icon::Warning);

Box erroreFattura(const QString& resto) {
  return criticalBox(QStringLiteral("Errore nel caricamento dati nella TAB_FATTURE n° ") + resto);
}
Box erroreCreato(const QString& resto) {
  return criticalBox(QStringLiteral("Errore nel caricamento cliente dai dati fatture n° ") + resto);
}
Box erroreCliente(const QString& resto) {
  return criticalBox(QStringLiteral("Errore nel caricamento dati nella TAB_ANAG_CLIENTI n° ") + resto);
}

record::RecordLetto recordDi(const QByteArray& file, qsizetype larghezza) {
  return {reinterpret_cast<const std::uint8_t*>(file.constData()), static_cast<std::size_t>(larghezza)};
}

/// Every byte that a text of the till may hold and no statement breaks at, in pieces as long as a field.
QByteArrayList tuttiIByte() {
  QByteArray tutti;
  for (int byte = 1; byte < 256; ++byte)
    if (byte != '\'') tutti += static_cast<char>(byte);
  QByteArrayList pezzi;
  for (qsizetype inizio = 0; inizio < tutti.size(); inizio += 41) pezzi << tutti.mid(inizio, 41);
  return pezzi;
}

class Ricezione : public testing::Test {
 protected:
  Ricezione() { commonForKora().IP_ECR = cassa.address(); }

  customers::RicezioneFatture fatture(const QByteArray& file) {
    cassa.put(kFatture, file);
    return customers::RiceviFatture(ufficio.contesto, barra.progress);
  }
  customers::RicezioneFatture fatture(const std::vector<InvoicePlace>& posti) {
    return fatture(invoicesFile(posti));
  }
  customers::RicezioneClienti clienti(const QByteArray& file) {
    cassa.put(kClienti, file);
    return customers::RiceviClienti(ufficio.contesto, barra.progress);
  }
  customers::RicezioneClienti clienti(const std::vector<CustomerPlace>& posti) {
    return clienti(customersFile(posti));
  }
  QString quante(const QString& tabella) {
    return ufficio.value(QStringLiteral("SELECT count(*) from ") + tabella);
  }
  QStringList anagrafica() { return ufficio.rows(kAnagrafica); }

  Office ufficio;
  TestTill cassa;
  UnseenProgress barra;
};

class RicezioneFatture : public Ricezione {
 protected:
  RicezioneFatture() { ufficio.openArchive(); }
};
class RicezioneClienti : public Ricezione {
 protected:
  RicezioneClienti() { ufficio.openArchive(); }
};

const InvoicePlace kUna{.place = 17,
                        .type = 1,
                        .customer = 3,
                        .holder = "ROSSI MARIO",
                        .moment = tillMoment(7, 3, 24, 9, 5, 6),
                        .total = 12345,
                        .taxable = 10119,
                        .tax = 2226,
                        .unpaid = -50};

}  // namespace

// The statements.

TEST(MomentoDellaFattura, SiLeggePerPosizione) {
  const MomentoFattura momento(QStringLiteral("07/03/24 09:05:06"));
  EXPECT_EQ(momento.data, QStringLiteral("07/03/24 09:05:06"));
  EXPECT_EQ(momento.confronto, QStringLiteral("07/03/24 09.05.06"));
  EXPECT_EQ(momento.anno, 2024);
}

TEST(MomentoDellaFattura, IlSecoloESempreDuemila) {
  EXPECT_EQ(MomentoFattura(QStringLiteral("01/01/00 00:00:00")).anno, 2000);
  EXPECT_EQ(MomentoFattura(QStringLiteral("01/01/99 00:00:00")).anno, 2099);
}

TEST(MomentoDellaFattura, CioCheStaDietroEISeparatoriNonContano) {
  const MomentoFattura momento(QStringLiteral("07/03/24x09-05-06altro"));
  EXPECT_EQ(momento.data, QStringLiteral("07/03/24 09-05-06"));
  EXPECT_EQ(momento.confronto, QStringLiteral("07/03/24 09.05.06"));
  EXPECT_EQ(MomentoFattura(QString()).anno, 2000);
}

TEST(IstruzioniDellaRicezione, AllaLetteraPerLeFatture) {
  const MomentoFattura momento(QStringLiteral("07/03/24 09:05:06"));
  EXPECT_EQ(customers::StatementClienteNoto(65535).sql(),
            QStringLiteral("SELECT ID_Cliente From TAB_ANAG_CLIENTI where ID_Cliente =65535"));
  EXPECT_EQ(customers::StatementClienteDaFattura(7).sql(),
            QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI VALUES (7,'','','','','',2)"));
  EXPECT_EQ(customers::StatementFatturaNota(7, momento).sql(),
            QStringLiteral("SELECT NumFattura From TAB_FATTURE where ID_Cliente =7 and "
                           "format(datafattura,'dd/mm/yy hh:mm:ss') = '07/03/24 09.05.06'"));
  InvoicePlace prima = kUna;
  prima.place = 1;
  const QByteArray file = invoicesFile({prima});
  EXPECT_EQ(customers::StatementFatturaRicevuta(recordDi(file, 77), momento, 17).sql(),
            QStringLiteral("INSERT INTO TAB_FATTURE VALUES (3,'2024/17',' 1','07/03/24 09:05:06',-50,12345,"
                           "10119,2226,'ROSSI MARIO')"));
}

TEST(IstruzioniDellaRicezione, AllaLetteraPerIClienti) {
  const QByteArray file = customersFile({{.code = 1,
                                          .flag = 255,
                                          .name = "CAFF\xC8",
                                          .address = "VIA",
                                          .town = "LODI",
                                          .vat = "123",
                                          .note = "N"}});
  const auto cliente = recordDi(file, 177);
  EXPECT_EQ(customers::StatementClienteTolto(250).sql(),
            QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI WHERE ID_Cliente =250"));
  EXPECT_EQ(
      customers::StatementClienteCambiato(cliente, 4).sql(),
      QStringLiteral("UPDATE TAB_ANAG_CLIENTI SET Ragione_Sociale ='CAFFÈ',Indirizzo ='VIA',Citta ='LODI',"
                     "Partita_IVA ='123',Nota ='N',Stato = 255 WHERE ID_Cliente =4"));
  EXPECT_EQ(customers::StatementClienteRicevuto(cliente, 4).sql(),
            QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI VALUES (4,'CAFFÈ','VIA','LODI','123','N',255)"));
}

TEST_F(RicezioneFatture, LaFatturaSiCercaPerClienteEMomentoSenzaScorrereLArchivio) {
  const MomentoFattura momento(QStringLiteral("07/03/24 09:05:06"));
  const QString piano = ufficio.plan(customers::StatementFatturaNota(7, momento).sql());
  EXPECT_TRUE(piano.contains(QStringLiteral("SEARCH TAB_FATTURE USING INDEX FATTURE_CLIENTE")))
      << piano.toStdString();
  EXPECT_FALSE(piano.contains(QStringLiteral("SCAN"))) << piano.toStdString();
}

// Invoices.

TEST_F(RicezioneFatture, UnaFatturaEntraConTuttiISuoiCampi) {
  ufficio.customer(3, QStringLiteral("ROSSI MARIO"));
  const auto esito = fatture({kUna});
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_EQ(esito.esito, EsitoRicezione::Fatto);
  EXPECT_THAT(
      ufficio.rows(QStringLiteral("SELECT * from TAB_FATTURE")),
      ElementsAre(QStringLiteral("3|2024/17| 1|07/03/2024 09:05:06|-50|12345|10119|2226|ROSSI MARIO")));
  EXPECT_EQ(quante(QStringLiteral("TAB_ANAG_CLIENTI")), QStringLiteral("2"));
  EXPECT_EQ(ufficio.workspace.level(), 0);
  EXPECT_EQ(esito.nuove, 1);
  EXPECT_EQ(esito.giaPresenti, 0);
  EXPECT_EQ(esito.creati, 0);
}

TEST_F(RicezioneFatture, MilleFattureDueVolteNonAggiungonoNulla) {
  const auto prima = fatture(thousandInvoices());
  EXPECT_EQ(prima.nuove, 1000);
  EXPECT_EQ(prima.creati, 250);
  const QStringList righe = ufficio.rows(QStringLiteral("SELECT * from TAB_FATTURE"));
  const QStringList clienti = anagrafica();
  ASSERT_EQ(righe.size(), 1000);
  const auto seconda = fatture(thousandInvoices());
  expectBoxes(ufficio, {kFattureRicevute, kFattureRicevute});
  EXPECT_EQ(seconda.nuove, 0);
  EXPECT_EQ(seconda.giaPresenti, 1000);
  EXPECT_EQ(seconda.creati, 0);
  EXPECT_EQ(ufficio.rows(QStringLiteral("SELECT * from TAB_FATTURE")), righe);
  EXPECT_EQ(anagrafica(), clienti);
  EXPECT_EQ(ufficio.value(QStringLiteral("SELECT SUM(Importo_Fattura) from TAB_FATTURE")),
            QStringLiteral("60939000"));
}

TEST_F(RicezioneFatture, UnClienteSconosciutoSiCreaVuotoConStatoDue) {
  const auto esito = fatture({kUna});
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_THAT(anagrafica(), ElementsAre(kAnonimo, QStringLiteral("3||||||2")));
  EXPECT_EQ(esito.creati, 1);
}

TEST_F(RicezioneFatture, PiuFattureDelloStessoSconosciutoLoCreanoUnaVolta) {
  InvoicePlace altra = kUna;
  altra.place = 18;
  altra.moment += 1;
  const auto esito = fatture({kUna, altra});
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_EQ(esito.creati, 1);
  EXPECT_EQ(esito.nuove, 2);
}

TEST_F(RicezioneFatture, UnaFatturaDelClienteZeroEDellAnonimoENonCreaNulla) {
  InvoicePlace anonima = kUna;
  anonima.customer = 0;
  EXPECT_EQ(fatture({anonima}).creati, 0);
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_THAT(anagrafica(), ElementsAre(kAnonimo));
  EXPECT_EQ(ufficio.value(QStringLiteral("SELECT ID_Cliente from TAB_FATTURE")), QStringLiteral("0"));
}

TEST_F(RicezioneFatture, SenzaLAnonimoUnPostoVuotoLoRicrea) {
  ufficio.execute(QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI"));
  EXPECT_EQ(fatture(std::vector<InvoicePlace>{}).creati, 1);
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_THAT(anagrafica(), ElementsAre(QStringLiteral("0||||||2")));
}

TEST_F(RicezioneFatture, ICodiciAgliEstremiEntranoComeSono) {
  std::vector<InvoicePlace> posti;
  int posto = 0;
  for (const int codice : {0, 250, 251, 65535}) {
    InvoicePlace una = kUna;
    una.place = ++posto;
    una.customer = codice;
    posti.push_back(una);
  }
  EXPECT_EQ(fatture(posti).creati, 3);
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_THAT(ufficio.rows(QStringLiteral("SELECT ID_Cliente from TAB_FATTURE order by ID_Cliente")),
              ElementsAre(QStringLiteral("0"), QStringLiteral("250"), QStringLiteral("251"),
                          QStringLiteral("65535")));
  EXPECT_THAT(anagrafica(), ElementsAre(kAnonimo, QStringLiteral("250||||||2"), QStringLiteral("251||||||2"),
                                        QStringLiteral("65535||||||2")));
}

TEST_F(RicezioneFatture, OgniByteDelTipoOltreLoZeroEUnaFatturaCheLoConserva) {
  std::vector<InvoicePlace> posti;
  for (int tipo = 0; tipo < 256; ++tipo)
    posti.push_back(
        {.place = tipo + 1, .type = tipo, .moment = tillMoment(1, 1, 24) + static_cast<std::uint32_t>(tipo)});
  EXPECT_EQ(fatture(posti).nuove, 255);
  expectBoxes(ufficio, {kFattureRicevute});
  const QStringList tipi = ufficio.rows(QStringLiteral("SELECT Tipo_Fattura from TAB_FATTURE"));
  ASSERT_EQ(tipi.size(), 255);
  for (int tipo = 1; tipo < 256; ++tipo) EXPECT_EQ(tipi[tipo - 1], u' ' + QString::number(tipo));
}

TEST_F(RicezioneFatture, GliImportiEstremiEntranoSenzaScala) {
  InvoicePlace una = kUna;
  una.total = 2147483647;
  una.taxable = -2147483647 - 1;
  una.tax = -1;
  una.unpaid = 0;
  fatture({una});
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_THAT(ufficio.rows(QStringLiteral(
                  "SELECT Importo_Fattura,Imponibile,Imposta,Corr_Non_Pagato from TAB_FATTURE")),
              ElementsAre(QStringLiteral("2147483647|-2147483648|-1|0")));
}

TEST_F(RicezioneFatture, OgniByteDelTestoEntraComeLaCassaLoManda) {
  const QByteArrayList pezzi = tuttiIByte();
  std::vector<InvoicePlace> posti;
  for (int i = 0; i < pezzi.size(); ++i)
    posti.push_back(
        {.place = i + 1, .holder = pezzi[i], .moment = tillMoment(1, 1, 24) + static_cast<std::uint32_t>(i)});
  fatture(posti);
  expectBoxes(ufficio, {kFattureRicevute});
  const QStringList note = ufficio.rows(QStringLiteral("SELECT Nota from TAB_FATTURE"));
  ASSERT_EQ(note.size(), pezzi.size());
  for (int i = 0; i < pezzi.size(); ++i) EXPECT_TRUE(windows1252::toBytes(note[i]) == pezzi[i]) << i;
}

TEST_F(RicezioneFatture, UnIntestatarioCheRiempieIlCampoSiLeggeInteroEDietroLoZeroNulla) {
  InvoicePlace piena = kUna;
  piena.place = 1;
  piena.holder = QByteArray(41, 'P');
  InvoicePlace corta = kUna;
  corta.place = 2;
  corta.moment += 1;
  corta.holder = QByteArray("BREVE\0avanzo", 12);
  fatture({piena, corta});
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_THAT(ufficio.rows(QStringLiteral("SELECT Nota from TAB_FATTURE")),
              ElementsAre(QString(41, u'P'), QStringLiteral("BREVE")));
}

TEST_F(RicezioneFatture, LAnnoEDuemilaPiuLeDueCifre) {
  fatture({{.place = 1, .moment = tillMoment(31, 12, 99, 23, 59, 59)},
           {.place = 2, .moment = tillMoment(29, 2, 0)},
           {.place = 1000, .moment = tillMoment(1, 1, 50)}});
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_THAT(
      ufficio.rows(QStringLiteral("SELECT NumFattura,DataFattura from TAB_FATTURE")),
      ElementsAre(QStringLiteral("2099/1|31/12/2099 23:59:59"), QStringLiteral("2000/2|29/02/2000 00:00:00"),
                  QStringLiteral("2050/1000|01/01/2050 00:00:00")));
}

TEST_F(RicezioneFatture, StessoMomentoDiUnAltroClienteEUnAltraFatturaEUnSecondoDopoPure) {
  InvoicePlace altroCliente = kUna;
  altroCliente.place = 18;
  altroCliente.customer = 4;
  InvoicePlace secondoDopo = kUna;
  secondoDopo.place = 19;
  secondoDopo.moment += 1;
  InvoicePlace stessa = kUna;
  stessa.place = 20;
  stessa.total = 1;
  const auto esito = fatture({kUna, altroCliente, secondoDopo, stessa});
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_EQ(esito.nuove, 3);
  EXPECT_EQ(esito.giaPresenti, 1);
}

TEST_F(RicezioneFatture, DopoUnAzzeramentoLaStessaEtichettaSiRipete) {
  fatture({kUna});
  InvoicePlace nuova = kUna;
  nuova.moment = tillMoment(8, 3, 24);
  fatture({nuova});
  expectBoxes(ufficio, {kFattureRicevute, kFattureRicevute});
  EXPECT_THAT(ufficio.rows(QStringLiteral("SELECT NumFattura from TAB_FATTURE")),
              ElementsAre(QStringLiteral("2024/17"), QStringLiteral("2024/17")));
}

TEST_F(RicezioneFatture, LaRiservaNonSiLegge) {
  QByteArray file = invoicesFile({kUna});
  lay(file, 16 * 77 + 64, QByteArray(13, '\''));
  EXPECT_EQ(fatture(file).nuove, 1);
  expectBoxes(ufficio, {kFattureRicevute});
}

TEST_F(RicezioneFatture, UnPostoVuotoConUnCodiceDentroCreaIlClienteMaNonLaFattura) {
  InvoicePlace vuota = kUna;
  vuota.type = 0;
  const auto esito = fatture({vuota});
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_EQ(esito.nuove, 0);
  EXPECT_EQ(esito.creati, 1);
  EXPECT_EQ(quante(QStringLiteral("TAB_FATTURE")), QStringLiteral("0"));
}

TEST_F(RicezioneFatture, UnFileCortoDaLeSueFattureEFinisceNormalmente) {
  InvoicePlace prima = kUna;
  prima.place = 1;
  InvoicePlace seconda = kUna;
  seconda.place = 2;
  seconda.moment += 60;
  const auto esito = fatture(invoicesFile({prima, seconda, kUna}).left(2 * 77));
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_EQ(esito.byte, 154);
  EXPECT_EQ(esito.nuove, 2);
}

TEST_F(RicezioneFatture, UnFileVuotoNonDaFatture) {
  const auto esito = fatture(QByteArray());
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_EQ(esito.byte, 0);
  EXPECT_EQ(esito.nuove, 0);
  EXPECT_THAT(anagrafica(), ElementsAre(kAnonimo));
}

TEST_F(RicezioneFatture, UnaFatturaTagliataInFondoNonEntraEPoiEntraIntera) {
  InvoicePlace prima = kUna;
  prima.place = 1;
  InvoicePlace seconda = kUna;
  seconda.place = 2;
  seconda.moment += 60;
  // The moment is whole, the amounts are not.
  EXPECT_EQ(fatture(invoicesFile({prima, seconda}).left(77 + 50)).nuove, 1);
  EXPECT_EQ(fatture({prima, seconda}).nuove, 1);
  expectBoxes(ufficio, {kFattureRicevute, kFattureRicevute});
  EXPECT_THAT(ufficio.rows(QStringLiteral("SELECT Importo_Fattura,Imponibile from TAB_FATTURE")),
              ElementsAre(QStringLiteral("12345|10119"), QStringLiteral("12345|10119")));
}

TEST_F(RicezioneFatture, UnFileLungoSiLeggeFinoAiMillePosti) {
  InvoicePlace ultima = kUna;
  ultima.place = 1000;
  const auto esito = fatture(invoicesFile({ultima}) + QByteArray(77, '\1'));
  expectBoxes(ufficio, {kFattureRicevute});
  EXPECT_EQ(esito.byte, 77077);
  EXPECT_EQ(esito.nuove, 1);
}

TEST_F(RicezioneFatture, LaBarraHaIlNumeroDelPostoEdEUnPassaggioPerRecord) {
  barra.bar.setRange(0, 1000);
  std::vector<int> valori;
  ufficio.user.onPass = [&] { valori.push_back(barra.bar.value()); };
  fatture({kUna});
  ufficio.user.onPass = nullptr;
  expectBoxes(ufficio, {kFattureRicevute});
  ASSERT_EQ(valori.size(), 1000U);
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(valori[static_cast<std::size_t>(i)], i + 1);
  EXPECT_EQ(barra.bar.text(), QStringLiteral("100%"));
}

TEST_F(RicezioneFatture, UnApostrofoNellIntestatarioAnnullaTuttaLaRicezione) {
  InvoicePlace altra = kUna;
  altra.place = 18;
  altra.moment += 1;
  altra.holder = "DALL'ORTO";
  const auto esito = fatture({kUna, altra});
  expectBoxes(ufficio, {erroreFattura(QStringLiteral("3075\n*"))});
  EXPECT_EQ(esito.esito, EsitoRicezione::NonCaricato);
  EXPECT_EQ(esito.nuove, 0);
  EXPECT_EQ(esito.creati, 0);
  EXPECT_EQ(quante(QStringLiteral("TAB_FATTURE")), QStringLiteral("0"));
  EXPECT_THAT(anagrafica(), ElementsAre(kAnonimo));
  EXPECT_EQ(ufficio.workspace.level(), 0);
}

TEST_F(RicezioneFatture, UnMomentoImpossibileAnnullaTuttaLaRicezione) {
  for (const std::uint32_t momento :
       {0U, tillMoment(31, 2, 24), tillMoment(0, 1, 24), tillMoment(1, 0, 24), 4294967295U}) {
    InvoicePlace altra = kUna;
    altra.place = 18;
    altra.moment = momento;
    EXPECT_EQ(fatture({kUna, altra}).esito, EsitoRicezione::NonCaricato) << momento;
    expectBoxes(ufficio, {erroreFattura(QStringLiteral("13\n*"))});
    EXPECT_EQ(quante(QStringLiteral("TAB_FATTURE")), QStringLiteral("0"));
    EXPECT_EQ(ufficio.workspace.level(), 0);
  }
}

TEST_F(RicezioneFatture, UnClienteCheNonSiPuoCreareHaIlSuoMessaggio) {
  ufficio.execute(QStringLiteral("DROP TABLE TAB_ANAG_CLIENTI"));
  EXPECT_EQ(fatture({kUna}).esito, EsitoRicezione::NonCaricato);
  expectBoxes(ufficio, {erroreCreato(QStringLiteral("3078\n*"))});
  EXPECT_EQ(quante(QStringLiteral("TAB_FATTURE")), QStringLiteral("0"));
  EXPECT_EQ(ufficio.workspace.level(), 0);
}

TEST_F(RicezioneFatture, SenzaLaTabellaDelleFattureSiAnnullaAncheIlClienteCreato) {
  ufficio.execute(QStringLiteral("DROP TABLE TAB_FATTURE"));
  EXPECT_EQ(fatture({kUna}).esito, EsitoRicezione::NonCaricato);
  expectBoxes(ufficio, {erroreFattura(QStringLiteral("3078\n*"))});
  EXPECT_THAT(anagrafica(), ElementsAre(kAnonimo));
}

// Customers.

TEST_F(RicezioneClienti, UnoNuovoUnoCambiatoUnoToltoEGliAltriComeSono) {
  ufficio.customer(1, QStringLiteral("VECCHIO"), QStringLiteral("111"));
  ufficio.customer(2, QStringLiteral("TOLTO"));
  ufficio.customer(251, QStringLiteral("OLTRE"));
  const auto esito = clienti({{.code = 1,
                               .flag = 1,
                               .name = "NUOVO NOME",
                               .address = "VIA",
                               .town = "LODI",
                               .vat = "012345678901",
                               .note = "NOTA"},
                              {.code = 250, .flag = 1, .name = "ARRIVATO"}});
  expectBoxes(ufficio, {kClientiRicevuti});
  EXPECT_THAT(anagrafica(),
              ElementsAre(kAnonimo, QStringLiteral("1|NUOVO NOME|VIA|LODI|012345678901|NOTA|1"),
                          QStringLiteral("250|ARRIVATO|||||1"), QStringLiteral("251|OLTRE|||||1")));
  EXPECT_EQ(esito.esito, EsitoRicezione::Fatto);
  EXPECT_EQ(esito.nuovi, 1);
  EXPECT_EQ(esito.cambiati, 1);
  EXPECT_EQ(esito.tolti, 1);
  EXPECT_EQ(ufficio.workspace.level(), 0);
}

TEST_F(RicezioneClienti, UnFileDiSoliZeriTogliTuttiMaNonLAnonimo) {
  ufficio.customer(1, QStringLiteral("UNO"));
  ufficio.customer(250, QStringLiteral("ULTIMO"));
  EXPECT_EQ(clienti(std::vector<CustomerPlace>{}).tolti, 2);
  expectBoxes(ufficio, {kClientiRicevuti});
  EXPECT_THAT(anagrafica(), ElementsAre(kAnonimo));
}

TEST_F(RicezioneClienti, ChiSparisceDallaCassaSparisceQuiELeSueFattureRestano) {
  ufficio.customer(9, QStringLiteral("CLIENTE"));
  ufficio.invoice(9, QStringLiteral("2024/1"), QStringLiteral("01/02/2024 10:00:00"), 500);
  EXPECT_EQ(clienti(std::vector<CustomerPlace>{}).tolti, 1);
  expectBoxes(ufficio, {kClientiRicevuti});
  EXPECT_EQ(quante(QStringLiteral("TAB_FATTURE where ID_Cliente =9")), QStringLiteral("1"));
  EXPECT_EQ(quante(QStringLiteral("TAB_ANAG_CLIENTI where ID_Cliente =9")), QStringLiteral("0"));
}

TEST_F(RicezioneClienti, OgniByteDelFlagOltreLoZeroELoStato) {
  std::vector<CustomerPlace> posti;
  for (int codice = 1; codice <= 250; ++codice) posti.push_back({.code = codice, .flag = codice});
  EXPECT_EQ(clienti(posti).nuovi, 250);
  const QStringList stati = ufficio.rows(
      QStringLiteral("SELECT Stato from TAB_ANAG_CLIENTI where ID_Cliente > 0 order by ID_Cliente"));
  ASSERT_EQ(stati.size(), 250);
  for (int codice = 1; codice <= 250; ++codice) EXPECT_EQ(stati[codice - 1], QString::number(codice));
  posti.clear();
  for (int flag = 251; flag <= 255; ++flag) posti.push_back({.code = flag - 250, .flag = flag});
  const auto esito = clienti(posti);
  expectBoxes(ufficio, {kClientiRicevuti, kClientiRicevuti});
  EXPECT_EQ(esito.cambiati, 5);
  EXPECT_EQ(esito.tolti, 245);
  EXPECT_THAT(ufficio.rows(QStringLiteral(
                  "SELECT Stato from TAB_ANAG_CLIENTI where ID_Cliente > 0 order by ID_Cliente")),
              ElementsAre(QStringLiteral("251"), QStringLiteral("252"), QStringLiteral("253"),
                          QStringLiteral("254"), QStringLiteral("255")));
}

TEST_F(RicezioneClienti, ITestiCheRiempionoILoroCampiSiLeggonoInteri) {
  clienti({{.code = 1,
            .name = QByteArray(41, 'R'),
            .address = QByteArray(41, 'I'),
            .town = QByteArray(41, 'C'),
            .vat = QByteArray(12, 'P'),
            .note = QByteArray(41, 'N')}});
  expectBoxes(ufficio, {kClientiRicevuti});
  EXPECT_THAT(anagrafica(),
              ElementsAre(kAnonimo, QStringList{QStringLiteral("1"), QString(41, u'R'), QString(41, u'I'),
                                                QString(41, u'C'), QString(12, u'P'), QString(41, u'N'),
                                                QStringLiteral("1")}
                                        .join(u'|')));
}

TEST_F(RicezioneClienti, OgniByteDelTestoEntraComeLaCassaLoManda) {
  const QByteArrayList pezzi = tuttiIByte();
  std::vector<CustomerPlace> posti;
  for (int i = 0; i < pezzi.size(); ++i) posti.push_back({.code = i + 1, .name = pezzi[i], .note = pezzi[i]});
  clienti(posti);
  // Once more over the rows that are there.
  clienti(posti);
  expectBoxes(ufficio, {kClientiRicevuti, kClientiRicevuti});
  const QStringList nomi = ufficio.rows(QStringLiteral(
      "SELECT Ragione_Sociale from TAB_ANAG_CLIENTI where ID_Cliente > 0 order by ID_Cliente"));
  ASSERT_EQ(nomi.size(), pezzi.size());
  for (int i = 0; i < pezzi.size(); ++i) EXPECT_TRUE(windows1252::toBytes(nomi[i]) == pezzi[i]) << i;
}

TEST_F(RicezioneClienti, DueVolteLoStessoFileNonCambiaNulla) {
  const std::vector<CustomerPlace> posti{{.code = 1, .name = "UNO"}, {.code = 7, .name = "SETTE"}};
  clienti(posti);
  const QStringList prima = anagrafica();
  const auto esito = clienti(posti);
  expectBoxes(ufficio, {kClientiRicevuti, kClientiRicevuti});
  EXPECT_EQ(anagrafica(), prima);
  EXPECT_EQ(esito.nuovi, 0);
  EXPECT_EQ(esito.cambiati, 2);
  EXPECT_EQ(esito.tolti, 0);
}

TEST_F(RicezioneClienti, UnClienteCreatoDaUnaFatturaSiCompletaConQuelloDellaCassa) {
  fatture({kUna});
  clienti({{.code = 3, .name = "ROSSI MARIO"}});
  expectBoxes(ufficio, {kFattureRicevute, kClientiRicevuti});
  EXPECT_THAT(anagrafica(), ElementsAre(kAnonimo, QStringLiteral("3|ROSSI MARIO|||||1")));
}

TEST_F(RicezioneClienti, LaPartitaIVADiDueClientiNonSiControlla) {
  EXPECT_EQ(clienti({{.code = 1, .vat = "12345678903"}, {.code = 2, .vat = "12345678903"}}).nuovi, 2);
  expectBoxes(ufficio, {kClientiRicevuti});
}

TEST_F(RicezioneClienti, UnApostrofoAnnullaTuttaLaRicezione) {
  for (const int dove : {1, 2, 3, 4, 5}) {
    ufficio.execute(QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI where ID_Cliente > 0"));
    ufficio.customer(1, QStringLiteral("TOLTO"));
    ufficio.customer(5, QStringLiteral("RESTA"));
    const QStringList prima = anagrafica();
    // At 5 the row is there and is changed, at 200 it is new.
    for (const int codice : {5, 200}) {
      CustomerPlace guasto{.code = codice};
      const QByteArray testo = "L'AQUILA";
      (dove == 1   ? guasto.name
       : dove == 2 ? guasto.address
       : dove == 3 ? guasto.town
       : dove == 4 ? guasto.vat
                   : guasto.note) = testo;
      EXPECT_EQ(clienti({guasto}).esito, EsitoRicezione::NonCaricato);
      expectBoxes(ufficio, {erroreCliente(QStringLiteral("3075\n*"))});
      EXPECT_EQ(anagrafica(), prima) << dove << " " << codice;
      EXPECT_EQ(ufficio.workspace.level(), 0);
    }
  }
}

TEST_F(RicezioneClienti, UnFileCortoOVuotoSiRifiutaENessunoSparisce) {
  ufficio.customer(1, QStringLiteral("UNO"));
  ufficio.customer(250, QStringLiteral("ULTIMO"));
  const QStringList prima = anagrafica();
  const QByteArray intero = customersFile({{.code = 1, .name = "CAMBIATO"}});
  for (const qsizetype byte : {0, 1, 176, 177, 44249}) {
    const auto esito = clienti(intero.left(byte));
    expectBoxes(ufficio, {erroreCliente(QStringLiteral("62\nLettura oltre la fine del file: clienti.bin"))});
    EXPECT_EQ(esito.esito, EsitoRicezione::NonCaricato);
    EXPECT_EQ(esito.byte, byte);
    EXPECT_EQ(anagrafica(), prima);
  }
}

TEST_F(RicezioneClienti, UnFileLungoSiLeggeFinoAiDuecentocinquantaPosti) {
  const auto esito = clienti(customersFile({{.code = 250, .name = "ULTIMO"}}) + QByteArray(177, '\1'));
  expectBoxes(ufficio, {kClientiRicevuti});
  EXPECT_EQ(esito.byte, 44427);
  EXPECT_THAT(anagrafica(), ElementsAre(kAnonimo, QStringLiteral("250|ULTIMO|||||1")));
}

TEST_F(RicezioneClienti, LaBarraHaIlNumeroDelPostoEdEUnPassaggioPerRecord) {
  barra.bar.setRange(0, 250);
  std::vector<int> valori;
  ufficio.user.onPass = [&] { valori.push_back(barra.bar.value()); };
  clienti(std::vector<CustomerPlace>{});
  ufficio.user.onPass = nullptr;
  expectBoxes(ufficio, {kClientiRicevuti});
  ASSERT_EQ(valori.size(), 250U);
  for (int i = 0; i < 250; ++i) EXPECT_EQ(valori[static_cast<std::size_t>(i)], i + 1);
  EXPECT_EQ(barra.bar.text(), QStringLiteral("100%"));
}

// A store that refuses.

TEST_F(RicezioneClienti, UnArchivioDAltroGenereNonSiTocca) {
  customers::ChiudiDatabase();
  ufficio.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  EXPECT_EQ(clienti({{.code = 1}}).esito, EsitoRicezione::NonCaricato);
  EXPECT_EQ(fatture({kUna}).esito, EsitoRicezione::NonCaricato);
  expectBoxes(ufficio, {erroreCliente(QStringLiteral("3078\n*")), erroreCreato(QStringLiteral("3078\n*"))});
  EXPECT_EQ(ufficio.workspace.level(), 0);
}

TEST_F(RicezioneClienti, UnArchivioBloccatoDaUnAltroProgrammaSiDice) {
  {
    const OtherProgram altro(varGlobal().NomeDB_Clienti, {QStringLiteral("BEGIN EXCLUSIVE")});
    EXPECT_EQ(clienti({{.code = 1}}).esito, EsitoRicezione::NonCaricato);
    EXPECT_EQ(fatture({kUna}).esito, EsitoRicezione::NonCaricato);
  }
  expectBoxes(ufficio, {erroreCliente(QStringLiteral("3260\n*")), erroreCreato(QStringLiteral("3260\n*"))});
  EXPECT_THAT(anagrafica(), ElementsAre(kAnonimo));
  EXPECT_EQ(ufficio.workspace.level(), 0);
}

TEST_F(RicezioneClienti, UnCommitRifiutatoSiAnnullaESiDice) {
  {
    // A reader that never ends lets the rows be added and refuses their commit.
    const OtherProgram lettore(varGlobal().NomeDB_Clienti,
                               {QStringLiteral("BEGIN"), QStringLiteral("SELECT * FROM TAB_ANAG_CLIENTI")});
    EXPECT_EQ(clienti({{.code = 1}}).esito, EsitoRicezione::NonCaricato);
    EXPECT_EQ(fatture({kUna}).esito, EsitoRicezione::NonCaricato);
  }
  expectBoxes(ufficio, {erroreCliente(QStringLiteral("3260\n*")), erroreFattura(QStringLiteral("3260\n*"))});
  EXPECT_THAT(anagrafica(), ElementsAre(kAnonimo));
  EXPECT_EQ(quante(QStringLiteral("TAB_FATTURE")), QStringLiteral("0"));
  EXPECT_EQ(ufficio.workspace.level(), 0);
}

TEST_F(RicezioneClienti, UnArchivioDiSolaLetturaRifiutaENullaCambia) {
  ufficio.customer(1, QStringLiteral("UNO"));
  const QStringList prima = anagrafica();
  const QString archivio = varGlobal().NomeDB_Clienti;
  customers::ChiudiDatabase();
  ASSERT_TRUE(QFile::setPermissions(archivio, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
  ASSERT_TRUE(QFile::setPermissions(
      ufficio.folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup |
                                 QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther |
                                 QFile::ExeOther));
  cassa.put(kClienti, customersFile({}));
  cassa.put(kFatture, invoicesFile({kUna}));
  {
    const OtherUser altro;
    customers::ApriDatabase(archivio, ufficio.contesto);
    EXPECT_EQ(customers::RiceviClienti(ufficio.contesto, barra.progress).esito, EsitoRicezione::NonCaricato);
    EXPECT_EQ(customers::RiceviFatture(ufficio.contesto, barra.progress).esito, EsitoRicezione::NonCaricato);
  }
  expectBoxes(ufficio, {erroreCliente(QStringLiteral("3073\n*")), erroreCreato(QStringLiteral("3073\n*"))});
  EXPECT_EQ(anagrafica(), prima);
  EXPECT_EQ(ufficio.workspace.level(), 0);
}

TEST_F(RicezioneClienti, UnArchivioDanneggiatoSiRifiutaPrimaDiScrivere) {
  const QString archivio = varGlobal().NomeDB_Clienti;
  ufficio.execute(QStringLiteral("CREATE TABLE RUBRICA (nome TEXT)"));
  customers::ChiudiDatabase();
  // The last page is the new table's, which no statement of the program reads.
  QFile file(archivio);
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  ASSERT_TRUE(file.seek(file.size() - 4096));
  ASSERT_EQ(file.write(QByteArray(4096, '\x5A')), 4096);
  file.close();
  customers::ApriDatabase(archivio, ufficio.contesto);
  const QByteArray prima = ufficio.folder.read(QStringLiteral("clienti.mdb"));
  EXPECT_EQ(clienti({{.code = 1}}).esito, EsitoRicezione::NonCaricato);
  EXPECT_EQ(fatture({kUna}).esito, EsitoRicezione::NonCaricato);
  expectBoxes(ufficio, {erroreCliente(QStringLiteral("3343\n*")), erroreFattura(QStringLiteral("3343\n*"))});
  EXPECT_TRUE(ufficio.folder.read(QStringLiteral("clienti.mdb")) == prima);
  EXPECT_EQ(ufficio.workspace.level(), 0);
}

TEST_F(RicezioneClienti, SulDiscoPienoLArchivioRestaComEra) {
  cassa.put(kFatture, invoicesFile(thousandInvoices()));
  {
    // Room for the till's file, and for a part of its invoices.
    const FullDisk pieno(80000);
    EXPECT_EQ(customers::RiceviFatture(ufficio.contesto, barra.progress).esito, EsitoRicezione::NonCaricato);
  }
  const std::vector<Box> visti = ufficio.takeBoxes();
  ASSERT_EQ(visti.size(), 1U);
  EXPECT_EQ(visti[0].icon, Icon::Critical);
  EXPECT_TRUE(visti[0].text.endsWith(QStringLiteral("n° 61\nDisco pieno"))) << visti[0].text.toStdString();
  EXPECT_EQ(quante(QStringLiteral("TAB_FATTURE")), QStringLiteral("0"));
  EXPECT_THAT(anagrafica(), ElementsAre(kAnonimo));
}

TEST_F(RicezioneClienti, UnArchivioChiusoSottoLaRicezioneSiDice) {
  int passaggi = 0;
  ufficio.user.onPass = [&] {
    if (++passaggi == 100) varGlobal().DB_Clienti.Close();
  };
  EXPECT_EQ(clienti({{.code = 1}}).esito, EsitoRicezione::NonCaricato);
  ufficio.user.onPass = nullptr;
  expectBoxes(ufficio, {erroreCliente(QStringLiteral("*"))});
  EXPECT_EQ(ufficio.workspace.level(), 0);
}

// The process killed.

namespace {

struct Morte {
  bool fatture;
  /// At which event pass; behind the last one: at the closing box.
  int passaggio;
};
void PrintTo(const Morte& morte, std::ostream* uscita) {
  *uscita << (morte.fatture ? "invoices" : "customers") << " at pass " << morte.passaggio;
}
constexpr int kAlRiquadro = -1;

/// A program of its own that opens the archive, receives and kills itself on the way.
[[noreturn]] void riceviEMuori(const QString& archivio, const QString& indirizzo, Morte morte) {
  Office ufficio;
  customers::ApriDatabase(archivio, ufficio.contesto);
  commonForKora().IP_ECR = indirizzo;
  ufficio.user.onBox = [&](const Box&) {
    if (morte.passaggio == kAlRiquadro) kill(getpid(), SIGKILL);
  };
  ufficio.user.onPass = [&, passaggio = 0]() mutable {
    if (passaggio++ == morte.passaggio) kill(getpid(), SIGKILL);
  };
  UnseenProgress barra;
  if (morte.fatture)
    customers::RiceviFatture(ufficio.contesto, barra.progress);
  else
    customers::RiceviClienti(ufficio.contesto, barra.progress);
  _exit(1);
}

class RicezioneUccisa : public testing::TestWithParam<Morte> {};

}  // namespace

TEST_P(RicezioneUccisa, LArchivioEComePrimaOComeDopo) {
  TestTill cassa;
  cassa.put(kFatture, invoicesFile(thousandInvoices()));
  cassa.put(kClienti, customersFile({{.code = 2, .name = "DUE"}, {.code = 250, .name = "ULTIMO"}}));
  Office ufficio;
  ufficio.openArchive();
  ufficio.customer(1, QStringLiteral("UNO"));
  const QStringList prima = ufficio.rows(kAnagrafica);
  const QString archivio = varGlobal().NomeDB_Clienti;
  customers::ChiudiDatabase();

  const pid_t figlio = fork();
  ASSERT_GE(figlio, 0);
  if (figlio == 0) riceviEMuori(archivio, cassa.address(), GetParam());
  int stato = 0;
  ASSERT_EQ(waitpid(figlio, &stato, 0), figlio);
  ASSERT_TRUE(WIFSIGNALED(stato) && WTERMSIG(stato) == SIGKILL);

  customers::ApriDatabase(archivio, ufficio.contesto);
  const QString righe = ufficio.value(QStringLiteral("SELECT count(*) from TAB_FATTURE"));
  if (GetParam().passaggio != kAlRiquadro) {
    EXPECT_EQ(righe, QStringLiteral("0"));
    EXPECT_EQ(ufficio.rows(kAnagrafica), prima);
  } else if (GetParam().fatture) {
    EXPECT_EQ(righe, QStringLiteral("1000"));
    EXPECT_EQ(ufficio.rows(kAnagrafica).size(), 251);
  } else {
    EXPECT_THAT(ufficio.rows(kAnagrafica),
                ElementsAre(kAnonimo, QStringLiteral("2|DUE|||||1"), QStringLiteral("250|ULTIMO|||||1")));
  }
}

INSTANTIATE_TEST_SUITE_P(Momenti, RicezioneUccisa,
                         testing::Values(Morte{true, 0}, Morte{true, 1}, Morte{true, 500}, Morte{true, 999},
                                         Morte{true, kAlRiquadro}, Morte{false, 0}, Morte{false, 1},
                                         Morte{false, 125}, Morte{false, 249}, Morte{false, kAlRiquadro}));

// What is told at the foot.

TEST(RaccontoDelleFatture, DiceByteFattureEClienti) {
  customers::RicezioneFatture esito{
      .esito = EsitoRicezione::Fatto, .byte = 77000, .nuove = 12, .giaPresenti = 3};
  EXPECT_EQ(customers::RaccontoRicezione(esito),
            QStringLiteral("Ricevuti 77.000 byte. 12 fatture nuove, 3 già presenti."));
  esito = {.esito = EsitoRicezione::Fatto, .byte = 77000, .nuove = 1, .giaPresenti = 1, .creati = 1};
  EXPECT_EQ(
      customers::RaccontoRicezione(esito),
      QStringLiteral("Ricevuti 77.000 byte. 1 fattura nuova, 1 già presente, 1 cliente da completare."));
  esito.creati = 2;
  EXPECT_TRUE(customers::RaccontoRicezione(esito).endsWith(QStringLiteral(", 2 clienti da completare.")));
}

TEST(RaccontoDelleFatture, DiceDeiByteDiMenoEDiPiu) {
  customers::RicezioneFatture esito{.esito = EsitoRicezione::Fatto, .byte = 154};
  EXPECT_EQ(customers::RaccontoRicezione(esito),
            QStringLiteral("Ricevuti 154 byte invece di 77.000. I posti che mancano contano come vuoti. 0 "
                           "fatture nuove, 0 già presenti."));
  esito.byte = 155;
  EXPECT_EQ(customers::RaccontoRicezione(esito),
            QStringLiteral("Ricevuti 155 byte invece di 77.000. L'ultima fattura è incompleta e non è stata "
                           "presa. 0 fatture nuove, 0 già presenti."));
  esito.byte = 77001;
  EXPECT_EQ(customers::RaccontoRicezione(esito),
            QStringLiteral("Ricevuti 77.001 byte invece di 77.000. Quelli in più non sono stati letti. 0 "
                           "fatture nuove, 0 già presenti."));
}

TEST(RaccontoDelleFatture, DiUnaNonCaricataDiceCheNullaEScrittoEDiUnaMancataNulla) {
  EXPECT_EQ(customers::RaccontoRicezione(
                customers::RicezioneFatture{.esito = EsitoRicezione::NonCaricato, .byte = 77000}),
            QStringLiteral("Ricevuti 77.000 byte. Nulla è stato scritto nell'archivio."));
  EXPECT_EQ(customers::RaccontoRicezione(customers::RicezioneFatture{}), QString());
}

TEST(RaccontoDeiClienti, DiceNuoviAggiornatiEdEliminati) {
  EXPECT_EQ(customers::RaccontoRicezione(customers::RicezioneClienti{
                .esito = EsitoRicezione::Fatto, .byte = 44250, .nuovi = 1, .cambiati = 2, .tolti = 0}),
            QStringLiteral("Ricevuti 44.250 byte. Clienti: 1 nuovo, 2 aggiornati, 0 eliminati."));
  EXPECT_EQ(
      customers::RaccontoRicezione(customers::RicezioneClienti{
          .esito = EsitoRicezione::Fatto, .byte = 44251, .nuovi = 0, .cambiati = 1, .tolti = 1}),
      QStringLiteral("Ricevuti 44.251 byte invece di 44.250. Quelli in più non sono stati letti. Clienti: "
                     "0 nuovi, 1 aggiornato, 1 eliminato."));
  EXPECT_EQ(customers::RaccontoRicezione(
                customers::RicezioneClienti{.esito = EsitoRicezione::NonCaricato, .byte = 100}),
            QStringLiteral("Ricevuti 100 byte invece di 44.250. Nulla è stato scritto nell'archivio."));
  EXPECT_EQ(customers::RaccontoRicezione(customers::RicezioneClienti{}), QString());
}
