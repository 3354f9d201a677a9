#include "customers/invoice_search.h"

#include <gtest/gtest.h>

#include <QFile>

#include "customers/office.h"

using customers::CheckData;
using customers::EsitoPeriodo;
using customers::Giorno;
using customers::RicercaFatture;
using customers::StatementCercaFatture;

namespace {

const Giorno kPrimo{QStringLiteral("01"), QStringLiteral("03"), QStringLiteral("2024")};
const Giorno kOggi{QStringLiteral("07"), QStringLiteral("03"), QStringLiteral("2024")};
const QString kTesta = QStringLiteral(
    "SELECT TAB_ANAG_CLIENTI.ID_Cliente AS GET_ID_Cliente, TAB_ANAG_CLIENTI.Ragione_Sociale, "
    "TAB_ANAG_CLIENTI.Partita_iva, TAB_FATTURE.ID_Cliente AS TAB_FATTURE_ID_Cliente, TAB_FATTURE.NumFattura, "
    "TAB_FATTURE.Tipo_Fattura, TAB_FATTURE.DataFattura, TAB_FATTURE.Corr_Non_Pagato,"
    "TAB_FATTURE.Importo_Fattura, TAB_FATTURE.Imponibile, TAB_FATTURE.Imposta, TAB_FATTURE.Nota "
    "FROM TAB_ANAG_CLIENTI LEFT JOIN TAB_FATTURE ON TAB_ANAG_CLIENTI.ID_Cliente = TAB_FATTURE.ID_Cliente "
    "WHERE (TAB_FATTURE.DataFattura >= #01/03/2024 00.00.00# AND TAB_FATTURE.DataFattura  <= "
    "#07/03/2024 23.59.59#) ");
const QString kCoda = QStringLiteral(" ORDER BY TAB_ANAG_CLIENTI.Ragione_Sociale,TAB_FATTURE.NumFattura ASC");

RicercaFatture nelPeriodo() {
  return {
      .inizio = kPrimo, .fine = kOggi, .cliente = {}, .ragioneSociale = {}, .partitaIVA = {}, .numero = {}};
}

Box rifiuto(const QString& data) {
  Box atteso = box(QStringLiteral("La Data di inizio ") + data +
                       QStringLiteral(" e' invalida\r\nControllare che il giorno immesso è compatibile con "
                                      "il mese prescelto"),
                   Icon::Information);
  atteso.title = QStringLiteral("Errore");
  return atteso;
}

}  // namespace

// The wording.

TEST(RicercaFattureClienti, LElencoInteroUnisceOgniClienteAlleSueFatture) {
  EXPECT_EQ(
      customers::StatementFatture().sql(),
      QStringLiteral("SELECT TAB_ANAG_CLIENTI.ID_Cliente AS GET_ID_Cliente, TAB_ANAG_CLIENTI.Ragione_Sociale,"
                     "TAB_ANAG_CLIENTI.Indirizzo,TAB_ANAG_CLIENTI.Partita_IVA, TAB_FATTURE.ID_Cliente AS "
                     "TAB_FATTURE_ID_Cliente, TAB_FATTURE.NumFattura, TAB_FATTURE.Tipo_Fattura, "
                     "TAB_FATTURE.DataFattura, "
                     "TAB_FATTURE.Corr_Non_Pagato,TAB_FATTURE.Importo_Fattura, TAB_FATTURE.Imponibile, "
                     "TAB_FATTURE.Imposta,TAB_FATTURE.Nota FROM TAB_ANAG_CLIENTI LEFT JOIN TAB_FATTURE ON "
                     "TAB_ANAG_CLIENTI.ID_Cliente = TAB_FATTURE.ID_Cliente  ORDER BY "
                     "TAB_ANAG_CLIENTI.Ragione_Sociale,TAB_FATTURE.NumFattura ASC"));
}

TEST(RicercaFattureClienti, SenzaFiltriRestaIlPeriodoDallaMezzanotteAllUltimoSecondo) {
  EXPECT_EQ(StatementCercaFatture(nelPeriodo()).sql(), kTesta + kCoda);
}

TEST(RicercaFattureClienti, OgniFiltroSiAggiungeNelSuoOrdine) {
  RicercaFatture tutti = nelPeriodo();
  tutti.cliente = 7;
  tutti.ragioneSociale = QStringLiteral("caffè rossi");
  tutti.partitaIVA = QStringLiteral("009");
  tutti.numero = QStringLiteral("2024/");
  EXPECT_EQ(StatementCercaFatture(tutti).sql(),
            kTesta +
                QStringLiteral(" AND TAB_FATTURE.ID_Cliente = 7 AND Ragione_Sociale like 'CAFFÈ ROSSI*' AND "
                               "Partita_iva like '009*' AND NumFattura like '2024/*'") +
                kCoda);
}

TEST(RicercaFattureClienti, IlClienteAnonimoEUnFiltroComeGliAltri) {
  RicercaFatture anonimo = nelPeriodo();
  anonimo.cliente = 0;
  EXPECT_EQ(StatementCercaFatture(anonimo).sql(),
            kTesta + QStringLiteral(" AND TAB_FATTURE.ID_Cliente = 0") + kCoda);
}

TEST(RicercaFattureClienti, UnApostrofoInUnFiltroRompeLIstruzione) {
  for (QString RicercaFatture::*campo :
       {&RicercaFatture::ragioneSociale, &RicercaFatture::partitaIVA, &RicercaFatture::numero}) {
    RicercaFatture ricerca = nelPeriodo();
    ricerca.*campo = QStringLiteral("D'ORO");
    EXPECT_TRUE(StatementCercaFatture(ricerca).broken());
    ricerca.*campo = QStringLiteral("D''ORO");
    EXPECT_FALSE(StatementCercaFatture(ricerca).broken());
  }
}

TEST(RicercaFattureClienti, UnGiornoCheNonEDiCifreRompeLIstruzione) {
  for (const char* parte : {"", "7#", "#", "1 OR 1", "01/02", "'", "x"})
    for (QString Giorno::*quale : {&Giorno::giorno, &Giorno::mese, &Giorno::anno})
      for (Giorno RicercaFatture::*data : {&RicercaFatture::inizio, &RicercaFatture::fine}) {
        RicercaFatture ricerca = nelPeriodo();
        (ricerca.*data).*quale = QString::fromLatin1(parte);
        EXPECT_TRUE(StatementCercaFatture(ricerca).broken()) << parte;
      }
}

TEST(RicercaFattureClienti, IlFiltroDellAnagraficaValeDalCodiceZeroInSu) {
  const auto cliente = [](const char* codice) {
    return customers::ClienteDelFiltro(
        {.acceso = true, .partitaIVA = {}, .ragioneSociale = {}, .codice = QString::fromLatin1(codice)});
  };
  EXPECT_EQ(cliente("0"), 0);
  EXPECT_EQ(cliente("250"), 250);
  EXPECT_EQ(cliente("65535"), 65535);
  EXPECT_EQ(cliente("-1"), std::nullopt);
  EXPECT_EQ(cliente(""), std::nullopt);
  EXPECT_EQ(cliente("1 OR 1"), std::nullopt);
}

// What is found.

namespace {

class FattureTrovate : public testing::Test {
 protected:
  FattureTrovate() {
    ufficio.openArchive();
    ufficio.customer(1, QStringLiteral("BIANCHI"), QStringLiteral("00905811006"));
    ufficio.customer(2, QStringLiteral("ROSSI"), QStringLiteral("00488410010"));
    ufficio.customer(3, QStringLiteral("SENZA FATTURE"));
  }
  QStringList trovate(const RicercaFatture& ricerca) {
    QStringList numeri;
    store::Recordset righe = varGlobal().DB_Clienti.OpenRecordset(StatementCercaFatture(ricerca));
    for (; !righe.atEnd(); righe.MoveNext()) numeri << righe.field(QStringLiteral("NumFattura")).text();
    return numeri;
  }
  Office ufficio;
};

}  // namespace

TEST(RicercaFattureClienti, LaTestaDiceDiChiSonoLeFatture) {
  const auto testa = [](const char* codice, const char* nome) {
    return customers::ChiMostra({.acceso = true,
                                 .partitaIVA = {},
                                 .ragioneSociale = QString::fromUtf8(nome),
                                 .codice = QString::fromLatin1(codice)});
  };
  EXPECT_EQ(testa("2", "CAFFÈ ROSSI"), QStringLiteral("Cliente: 2 CAFFÈ ROSSI"));
  EXPECT_EQ(testa("77", ""), QStringLiteral("Cliente: 77"));
  EXPECT_EQ(testa("0", ""), QStringLiteral("Cliente: 0 (anonimo)"));
}
TEST_F(FattureTrovate, IlPeriodoComprendePrimoEUltimoSecondoDeiSuoiGiorni) {
  ufficio.invoice(1, QStringLiteral("2024/1"), QStringLiteral("29/02/2024 23:59:59"), 100);
  ufficio.invoice(1, QStringLiteral("2024/2"), QStringLiteral("01/03/2024 00:00:00"), 100);
  ufficio.invoice(2, QStringLiteral("2024/3"), QStringLiteral("07/03/2024 23:59:59"), 100);
  ufficio.invoice(2, QStringLiteral("2024/4"), QStringLiteral("08/03/2024 00:00:00"), 100);
  EXPECT_EQ(trovate(nelPeriodo()), (QStringList{QStringLiteral("2024/2"), QStringLiteral("2024/3")}));
}

TEST_F(FattureTrovate, ChiNonHaFattureNonSiTrova) {
  EXPECT_EQ(trovate(nelPeriodo()), QStringList());
}

TEST_F(FattureTrovate, OgniFiltroTrovaCioCheCominciaCosi) {
  ufficio.invoice(1, QStringLiteral("2024/12"), QStringLiteral("05/03/2024 10:00:00"), 100);
  ufficio.invoice(2, QStringLiteral("2024/13"), QStringLiteral("05/03/2024 10:00:00"), 100);
  RicercaFatture perNome = nelPeriodo();
  perNome.ragioneSociale = QStringLiteral("ros");
  EXPECT_EQ(trovate(perNome), QStringList{QStringLiteral("2024/13")});
  RicercaFatture perPartita = nelPeriodo();
  perPartita.partitaIVA = QStringLiteral("0090");
  EXPECT_EQ(trovate(perPartita), QStringList{QStringLiteral("2024/12")});
  RicercaFatture perNumero = nelPeriodo();
  perNumero.numero = QStringLiteral("2024/1");
  EXPECT_EQ(trovate(perNumero).size(), 2);
  perNumero.numero = QStringLiteral("13");
  EXPECT_EQ(trovate(perNumero), QStringList());
  RicercaFatture perCodice = nelPeriodo();
  perCodice.cliente = 1;
  EXPECT_EQ(trovate(perCodice), QStringList{QStringLiteral("2024/12")});
}

TEST_F(FattureTrovate, IlPuntoInterrogativoStaPerUnApostrofo) {
  ufficio.customer(4, QStringLiteral("D''ORO"));
  ufficio.invoice(4, QStringLiteral("2024/9"), QStringLiteral("05/03/2024 10:00:00"), 100);
  RicercaFatture ricerca = nelPeriodo();
  ricerca.ragioneSociale = QStringLiteral("d?oro");
  EXPECT_EQ(trovate(ricerca), QStringList{QStringLiteral("2024/9")});
}

TEST_F(FattureTrovate, UnaFatturaSenzaClienteInAnagraficaNonSiVede) {
  ufficio.invoice(99, QStringLiteral("2024/5"), QStringLiteral("05/03/2024 10:00:00"), 100);
  EXPECT_EQ(trovate(nelPeriodo()), QStringList());
  ufficio.customer(99, QStringLiteral("TORNATO"));
  EXPECT_EQ(trovate(nelPeriodo()), QStringList{QStringLiteral("2024/5")});
}

// The dates.

namespace {

bool valida(const char* data, const FixedClock& orologio = FixedClock()) {
  return CheckData(QString::fromLatin1(data), orologio) == 0;
}

}  // namespace

TEST(DataFatture, SenzaTestoOConBarreAltroveSiRifiuta) {
  for (const char* data : {"", "0", "01/01", "01/01/", "01-01-2024", "01/01-2024", "01-01/2024", "1/01/2024",
                           "01/1/2024", "01012024"})
    EXPECT_FALSE(valida(data)) << data;
  EXPECT_TRUE(valida("01/01/2024"));
}

TEST(DataFatture, LAnnoVaDalMilleottocentoAQuelloCorrente) {
  EXPECT_TRUE(valida("01/01/1800"));
  EXPECT_FALSE(valida("31/12/1799"));
  EXPECT_TRUE(valida("31/12/2024")) << "later in this year";
  EXPECT_FALSE(valida("01/01/2025"));
  EXPECT_FALSE(valida("01/01/24"));
  EXPECT_FALSE(valida("01/01/abcd"));
  EXPECT_TRUE(valida("01/01/2025", FixedClock(QDateTime(QDate(2025, 1, 1), QTime(0, 0)))));
}

TEST(DataFatture, OgniMeseHaISuoiGiorni) {
  constexpr std::array kGiorni{31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (int mese = 1; mese <= 12; ++mese) {
    const int ultimo = kGiorni.at(static_cast<std::size_t>(mese - 1));
    const auto data = [&](int giorno) {
      return QStringLiteral("%1/%2/2024")
          .arg(giorno, 2, 10, QLatin1Char('0'))
          .arg(mese, 2, 10, QLatin1Char('0'))
          .toLatin1();
    };
    EXPECT_TRUE(valida(data(1))) << mese;
    EXPECT_TRUE(valida(data(ultimo))) << mese;
    EXPECT_FALSE(valida(data(ultimo + 1))) << mese;
  }
}

TEST(DataFatture, UnAltroMeseSiRifiuta) {
  for (const char* data : {"01/00/2024", "01/13/2024", "01/ 1/2024", "01/1 /2024", "01/xx/2024"})
    EXPECT_FALSE(valida(data)) << data;
}

TEST(DataFatture, FebbraioSegueLaDivisionePerQuattroESenzaSecoli) {
  EXPECT_TRUE(valida("29/02/2020"));
  EXPECT_FALSE(valida("29/02/2023"));
  EXPECT_TRUE(valida("28/02/2023"));
  EXPECT_FALSE(valida("30/02/2024"));
  EXPECT_TRUE(valida("29/02/2000"));
  EXPECT_TRUE(valida("29/02/1900")) << "no rule of the centuries";
}

TEST(DataFatture, IlGiornoEIlNumeroInTestaAlTesto) {
  EXPECT_TRUE(valida("00/01/2024"));
  EXPECT_TRUE(valida(" 5/01/2024"));
  EXPECT_TRUE(valida("xx/01/2024")) << "no number is 0";
  EXPECT_FALSE(valida("99/01/2024"));
}

TEST(PeriodoFatture, DueGiorniValidiNonDiconoNulla) {
  Office ufficio;
  EXPECT_EQ(customers::ControllaPeriodo(kPrimo, kOggi, ufficio.contesto), EsitoPeriodo::Valido);
  EXPECT_EQ(customers::ControllaPeriodo(kOggi, kPrimo, ufficio.contesto), EsitoPeriodo::Valido)
      << "backwards finds nothing, and is no failure";
  EXPECT_TRUE(ufficio.takeBoxes().empty());
}

TEST(PeriodoFatture, IlPrimoGiornoErratoSiDiceSempreComeDataDiInizio) {
  Office ufficio;
  const Giorno errato{QStringLiteral("31"), QStringLiteral("04"), QStringLiteral("2023")};
  EXPECT_EQ(customers::ControllaPeriodo(errato, errato, ufficio.contesto), EsitoPeriodo::InizioRifiutato);
  expectBoxes(ufficio, {rifiuto(QStringLiteral("31/04/2023"))});
  EXPECT_EQ(customers::ControllaPeriodo(kPrimo, errato, ufficio.contesto), EsitoPeriodo::FineRifiutata);
  expectBoxes(ufficio, {rifiuto(QStringLiteral("31/04/2023"))});
}
