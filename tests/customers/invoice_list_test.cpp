#include "customers/invoice_list.h"

#include <gtest/gtest.h>

#include <QPalette>
#include <limits>

#include "controls/FlexGrid.h"
#include "controls/contrast.h"
#include "customers/invoice_search.h"
#include "customers/office.h"
#include "sostegno/statements.h"
#include "sostegno/troubles.h"

namespace {

const QString kMarzo = QStringLiteral("05/03/2024 10:20:30");
constexpr int kMassimo = std::numeric_limits<std::int32_t>::max();

class ElencoFatture : public testing::Test {
 protected:
  ElencoFatture() {
    ufficio.openArchive();
    customers::GestGridCentral(griglia);
  }

  elenco::EsitoElenco tutte() { return customers::RiempiGridCentral(griglia, ufficio.contesto); }
  elenco::EsitoElenco cerca(const store::Statement& istruzione) {
    return customers::CercaFatture(griglia, istruzione, ufficio.contesto);
  }
  QString riga(int numero) const {
    QStringList celle;
    for (int colonna = 0; colonna < griglia.Cols(); ++colonna) celle << griglia.TextMatrix(numero, colonna);
    return celle.join(u'|');
  }
  QStringList righe() const {
    QStringList tutte;
    for (int numero = 1; numero < griglia.Rows(); ++numero) tutte << riga(numero);
    return tutte;
  }
  static QStringList testi(std::initializer_list<const char*> questi) {
    QStringList tutti;
    for (const char* testo : questi) tutti << QString::fromUtf8(testo);
    return tutti;
  }
  /// The archive without the customer who buys without a name.
  void senzaAnonimo() { ufficio.execute(QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI")); }
  void attendiFine(const QString& messaggio) {
    expectBoxes(ufficio, {criticalBox(messaggio)});
    EXPECT_TRUE(ufficio.user.terminated());
  }

  WithLocale locale{"C"};
  Office ufficio;
  FlexGrid griglia;
};

const QString kUscita = QStringLiteral("RiempiGridCentral: uscita dal programma per condizione anomala ");
const QString kUscitaRicerca =
    QStringLiteral("Cmd_Cerca_Click: uscita dal programma per condizione anomala ");

}  // namespace

// Columns and rows.

TEST_F(ElencoFatture, LeDieciColonneHannoLeLoroTestateEGliImportiADestra) {
  EXPECT_EQ(riga(0), QStringLiteral(
                         "CODICE CLIENTE|RAGIONE SOCIALE|PARTITA IVA|NUMERO FATTURA|DATA|IMPORTO|IMPONIBILE|"
                         "IMPOSTA|CORRISPETTIVO NON PAGATO|INTESTATARIO"));
  EXPECT_EQ(griglia.Rows(), 2);
  for (int colonna = 5; colonna <= 8; ++colonna)
    EXPECT_TRUE(griglia.CellAlignment(1, colonna).testFlag(Qt::AlignRight)) << colonna;
  for (const int colonna : {1, 2, 3, 4, 9})
    EXPECT_TRUE(griglia.CellAlignment(1, colonna).testFlag(Qt::AlignLeft)) << colonna;
}

TEST_F(ElencoFatture, ColSoloAnonimoSiVedeLuiSoloConSommeDiZero) {
  const elenco::EsitoElenco esito = tutte();
  EXPECT_EQ(righe(), testi({"0|||||||||", " | | | | |0.00|0.00|0.00|0.00| "}));
  EXPECT_EQ(esito.righe, 1);
  EXPECT_EQ(customers::RaccontoFatture(esito), QStringLiteral("Nessuna fattura; 1 cliente senza fatture"));
}

TEST_F(ElencoFatture, LeFattureDiOgniClienteSiSommanoAlCentesimo) {
  senzaAnonimo();
  ufficio.customer(2, QStringLiteral("ROSSI"), QStringLiteral("00488410010"));
  ufficio.customer(1, QStringLiteral("BIANCHI"), QStringLiteral("00905811006"));
  ufficio.customer(3, QStringLiteral("NUOVO"));
  ufficio.invoice(1, QStringLiteral("2024/2"), kMarzo, 12200, 10000, 2200, 5, QStringLiteral("MARIO"));
  ufficio.invoice(1, QStringLiteral("2024/1"), kMarzo, 1, 1, 0, 0, QStringLiteral("ANNA"));
  ufficio.invoice(2, QStringLiteral("2024/3"), kMarzo, -500, -410, -90, 1999);
  const elenco::EsitoElenco esito = tutte();
  EXPECT_EQ(righe(), testi({"1|BIANCHI|00905811006|2024/1|05/03/2024 10:20:30|0.01|0.01|0.00|0.00|ANNA",
                            "1|BIANCHI|00905811006|2024/2|05/03/2024 10:20:30|122.00|100.00|22.00|0.05|MARIO",
                            " | | | | |122.01|100.01|22.00|0.05| ",  //
                            "3|NUOVO||||||||",                       //
                            " | | | | |0.00|0.00|0.00|0.00| ",
                            "2|ROSSI|00488410010|2024/3|05/03/2024 10:20:30|-5.00|-4.10|-0.90|19.99|",
                            " | | | | |-5.00|-4.10|-0.90|19.99| "}));
  EXPECT_EQ(griglia.Row(), 1);
  EXPECT_EQ(griglia.Col(), 0);
  EXPECT_EQ(customers::RaccontoFatture(esito).replace(QChar(0xA0), u' '),
            QStringLiteral("3 fatture: totale € 117,01, imponibile € 95,91, imposta € 21,10, non pagato "
                           "€ 20,04; 1 cliente senza fatture"));
}

TEST_F(ElencoFatture, ClientiDiUgualNomeSiAlternanoPerNumeroDiFatturaOgnunoConLaSuaSomma) {
  // Those made up from invoices have no name, like the anonymous one.
  ufficio.customer(7, {}, {}, 2);
  ufficio.invoice(0, QStringLiteral("2024/1"), kMarzo, 100);
  ufficio.invoice(7, QStringLiteral("2024/2"), kMarzo, 200);
  ufficio.invoice(0, QStringLiteral("2024/3"), kMarzo, 400);
  tutte();
  QStringList importi;
  for (int numero = 1; numero < griglia.Rows(); ++numero)
    importi << griglia.TextMatrix(numero, 0) + u':' + griglia.TextMatrix(numero, 5);
  EXPECT_EQ(importi, testi({"0:1.00", " :1.00", "7:2.00", " :2.00", "0:4.00", " :4.00"}));
}

TEST_F(ElencoFatture, LOrdineEPerNomeEPoiPerNumeroComeTesto) {
  ufficio.invoice(0, QStringLiteral("2024/9"), kMarzo, 100);
  ufficio.invoice(0, QStringLiteral("2024/10"), kMarzo, 100);
  ufficio.invoice(0, QStringLiteral("2023/50"), kMarzo, 100);
  tutte();
  EXPECT_EQ(griglia.TextMatrix(1, 3), QStringLiteral("2023/50"));
  EXPECT_EQ(griglia.TextMatrix(2, 3), QStringLiteral("2024/10"));
  EXPECT_EQ(griglia.TextMatrix(3, 3), QStringLiteral("2024/9"));
}

TEST_F(ElencoFatture, UnNulloEUnaCellaVuotaENonSiSomma) {
  ufficio.execute(
      QStringLiteral("INSERT INTO TAB_FATTURE VALUES (0,'2024/1',null,null,null,null,null,null,"
                     "null)"));
  ufficio.invoice(0, QStringLiteral("2024/2"), kMarzo, 5, 4, 1, 2);
  tutte();
  EXPECT_EQ(riga(1), QStringLiteral("0|||2024/1||||||"));
  EXPECT_EQ(riga(3), QStringLiteral(" | | | | |0.05|0.04|0.01|0.02| "));
}

TEST_F(ElencoFatture, SoloLeRigheDelleSommeHannoIlBiancoNellaColonnaZero) {
  ufficio.customer(1, QStringLiteral(" "));
  ufficio.invoice(1, QStringLiteral("2024/1"), kMarzo, 100);
  tutte();
  std::vector<int> bianche;
  for (int numero = 1; numero < griglia.Rows(); ++numero)
    if (griglia.TextMatrix(numero, 0) == u" ") bianche.push_back(numero);
  EXPECT_EQ(bianche, (std::vector<int>{2, 4}));
}

TEST_F(ElencoFatture, LeSommeSonoRosseSulFondoDelleFinestreESiLeggonoAncheAlBuio) {
  tutte();
  for (int colonna = 0; colonna < 10; ++colonna) {
    EXPECT_EQ(griglia.CellForeColor(2, colonna), QColor(255, 0, 0)) << colonna;
    EXPECT_EQ(griglia.CellBackColor(2, colonna), griglia.palette().color(QPalette::Window)) << colonna;
    EXPECT_FALSE(griglia.CellForeColor(1, colonna).isValid()) << colonna;
    EXPECT_FALSE(griglia.CellBackColor(1, colonna).isValid()) << colonna;
  }
  QPalette buio;
  buio.setColor(QPalette::Base, QColor(0x24, 0x2C, 0x31));
  buio.setColor(QPalette::Text, QColor(0xE9, 0xEE, 0xF0));
  buio.setColor(QPalette::Window, QColor(0x1A, 0x20, 0x24));
  griglia.setPalette(buio);
  tutte();
  const QModelIndex cella = griglia.model()->index(1, 5);
  const auto testo = cella.data(Qt::ForegroundRole).value<QColor>();
  const auto fondo = cella.data(Qt::BackgroundRole).value<QColor>();
  EXPECT_GE(contrast::between(testo, fondo), 4.5);
  EXPECT_EQ(testo.hslHue(), 0) << "still red";
  EXPECT_LT(fondo.lightnessF(), 0.5F);
}

TEST_F(ElencoFatture, IlSegnoDecimaleEQuelloDellaPiattaforma) {
  const WithLocale italiano("it_IT");
  ufficio.invoice(0, QStringLiteral("2024/1"), kMarzo, 123456);
  tutte();
  EXPECT_EQ(griglia.TextMatrix(1, 5), QStringLiteral("1234,56"));
  EXPECT_EQ(griglia.TextMatrix(2, 5), QStringLiteral("1234,56"));
}

TEST_F(ElencoFatture, SenzaNemmenoLAnonimoLElencoEVuotoELoDice) {
  senzaAnonimo();
  EXPECT_EQ(tutte().righe, 0);
  EXPECT_EQ(righe(), testi({"|||||||||"}));
  EXPECT_EQ(griglia.Notice(), QStringLiteral("Nessun cliente in archivio"));
  cerca(customers::StatementFatture());
  EXPECT_EQ(griglia.Notice(), QStringLiteral("Nessuna fattura trovata"));
}

TEST_F(ElencoFatture, RiempitoDiNuovoNonRestaNullaDiPrima) {
  ufficio.customer(1, QStringLiteral("A"));
  ufficio.customer(2, QStringLiteral("B"));
  tutte();
  ASSERT_EQ(griglia.Rows(), 7);
  ufficio.execute(QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI WHERE ID_Cliente > 0"));
  for (const QString& numero : {QStringLiteral("2024/1"), QStringLiteral("2024/2")})
    ufficio.invoice(0, numero, kMarzo, 100);
  tutte();
  EXPECT_EQ(griglia.Rows(), 4);
  EXPECT_FALSE(griglia.CellForeColor(2, 0).isValid()) << "a row of sums stood there";
}

// Sums of 32 bits.

TEST_F(ElencoFatture, LaSommaArrivaAllUltimoCentesimoDei32Bit) {
  ufficio.invoice(0, QStringLiteral("2024/1"), kMarzo, kMassimo - 1, -kMassimo);
  ufficio.invoice(0, QStringLiteral("2024/2"), kMarzo, 1, -1);
  const elenco::EsitoElenco esito = tutte();
  EXPECT_EQ(riga(3), QStringLiteral(" | | | | |21474836.47|-21474836.48|0.00|0.00| "));
  EXPECT_EQ(esito.totali[5].intero, 2147483647);
}

TEST_F(ElencoFatture, OltreI32BitIlProgrammaFinisceConLErrore6) {
  ufficio.invoice(0, QStringLiteral("2024/1"), kMarzo, kMassimo);
  ufficio.invoice(0, QStringLiteral("2024/2"), kMarzo, 1);
  EXPECT_THROW(tutte(), ProgramEnded);
  attendiFine(kUscita + QStringLiteral("6 - Overflow"));
}

TEST_F(ElencoFatture, AncheSottoIlMinimoLaSommaNonStaIn32Bit) {
  for (const QString& numero : {QStringLiteral("2024/1"), QStringLiteral("2024/2")})
    ufficio.invoice(0, numero, kMarzo, 0, 0, 0, -kMassimo);
  EXPECT_THROW(cerca(customers::StatementFatture()), ProgramEnded);
  attendiFine(kUscitaRicerca + QStringLiteral("6 - Overflow"));
}

TEST_F(ElencoFatture, LeSommeSonoDelClienteEITotaliDellElencoNonHannoQuelLimite) {
  ufficio.customer(1, QStringLiteral("A"));
  ufficio.invoice(0, QStringLiteral("2024/1"), kMarzo, kMassimo);
  ufficio.invoice(1, QStringLiteral("2024/2"), kMarzo, kMassimo);
  const elenco::EsitoElenco esito = tutte();
  EXPECT_TRUE(esito.intero);
  EXPECT_EQ(esito.totali[5].intero, 4294967294);
  EXPECT_EQ(customers::RaccontoFatture(esito).replace(QChar(0xA0), u' '),
            QStringLiteral("2 fatture: totale € 42.949.672,94, imponibile € 0,00, imposta € 0,00, non pagato "
                           "€ 0,00"));
}

TEST_F(ElencoFatture, GliImportiGrandiAllarganoLeLoroColonneEIPiccoliLeRestringono) {
  griglia.resize(900, 300);
  ufficio.invoice(0, QStringLiteral("2024/1"), kMarzo, kMassimo);
  tutte();
  const int larga = griglia.columnWidth(5);
  EXPECT_GE(larga, griglia.sizeHintForIndex(griglia.model()->index(0, 5)).width());
  ufficio.execute(QStringLiteral("UPDATE TAB_FATTURE SET Importo_Fattura = 1"));
  tutte();
  EXPECT_LT(griglia.columnWidth(5), larga);
}

// Failures.

TEST_F(ElencoFatture, SenzaUnaTabellaIlProgrammaFinisceConIlMessaggioGrave) {
  const QString grave =
      QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. PROCEDURA ABORTITA !!!");
  ufficio.openWith({QStringLiteral("CREATE TABLE TAB_ANAG_CLIENTI (ID_Cliente INTEGER)")});
  EXPECT_THROW(tutte(), ProgramEnded);
  attendiFine(grave);
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
  EXPECT_THROW(cerca(customers::StatementFatture()), ProgramEnded);
  attendiFine(grave);
}

TEST_F(ElencoFatture, OgniAltroErroreSiDiceEFinisceIlProgramma) {
  EXPECT_THROW(cerca(store::Statement(u"SELECT Pippo FROM TAB_FATTURE")), ProgramEnded);
  attendiFine(kUscitaRicerca + QStringLiteral("3061 - Parametri insufficienti. Previsto 1: 'Pippo'."));
  ufficio.openWith({QStringLiteral("CREATE TABLE TAB_ANAG_CLIENTI (ID_Cliente INTEGER)"),
                    QStringLiteral("CREATE TABLE TAB_FATTURE (ID_Cliente INTEGER)")});
  EXPECT_THROW(tutte(), ProgramEnded);
  const std::vector<Box> detti = ufficio.takeBoxes();
  ASSERT_EQ(detti.size(), 1U);
  EXPECT_TRUE(detti[0].text.startsWith(kUscita + QStringLiteral("3061 - "))) << detti[0].text.toStdString();
}

TEST_F(ElencoFatture, UnApostrofoNellaRicercaFinisceIlProgramma) {
  const customers::Giorno giorno{QStringLiteral("01"), QStringLiteral("03"), QStringLiteral("2024")};
  tutte();
  const QStringList prima = righe();
  EXPECT_THROW(cerca(customers::StatementCercaFatture({.inizio = giorno,
                                                       .fine = giorno,
                                                       .cliente = {},
                                                       .ragioneSociale = QStringLiteral("D'ORO"),
                                                       .partitaIVA = {},
                                                       .numero = {}})),
               ProgramEnded);
  expectBoxes(ufficio, {criticalBox(kUscitaRicerca + QStringLiteral("3075 - *"))});
  EXPECT_EQ(righe(), prima);
}

TEST_F(ElencoFatture, ConLArchivioChiusoIlProgrammaFinisce) {
  varGlobal().DB_Clienti.Close();
  EXPECT_THROW(tutte(), ProgramEnded);
  expectBoxes(ufficio, {criticalBox(kUscita + QStringLiteral("3420 - *"))});
}

// The export.

TEST_F(ElencoFatture, IlFileHaLeColonneDaUnoANoveSenzaLeSomme) {
  ufficio.customer(1, QStringLiteral("CAFFÈ"), QStringLiteral("00905811006"));
  ufficio.invoice(1, QStringLiteral("2024/1"), kMarzo, 12200, 10000, 2200, 5, QStringLiteral("MARIO"));
  tutte();
  EXPECT_EQ(
      elenco::TestoCSV(griglia, customers::ColonneFatture(), customers::kFormaFatture),
      QByteArray(";;;;;;;;; \r\n"
                 "CAFF\xC8;00905811006;2024/1;05/03/2024 10:20:30;122.00;100.00;22.00;0.05;MARIO; \r\n"));
}

TEST_F(ElencoFatture, UnNomeDiUnSoloBiancoRestaFuoriDalFileComeUnaSomma) {
  ufficio.customer(1, QStringLiteral(" "));
  tutte();
  EXPECT_EQ(elenco::TestoCSV(griglia, customers::ColonneFatture(), customers::kFormaFatture),
            QByteArray(";;;;;;;;; \r\n"));
}

TEST_F(ElencoFatture, UnElencoSenzaRigheSiEsportaInUnaRigaDiColonneVuote) {
  senzaAnonimo();
  tutte();
  EXPECT_EQ(elenco::TestoCSV(griglia, customers::ColonneFatture(), customers::kFormaFatture),
            QByteArray(";;;;;;;;; \r\n"));
}

// Many.

TEST_F(ElencoFatture, VentimilaFattureConLeLoroSommeInUnPassaggioPerRiga) {
  constexpr int kClienti = 250;
  constexpr int kPerCliente = 80;
  ufficio.workspace.BeginTrans();
  for (int cliente = 1; cliente <= kClienti; ++cliente) {
    ufficio.customer(cliente, QStringLiteral("CLIENTE %1").arg(cliente, 3, 10, QLatin1Char('0')));
    for (int numero = 1; numero <= kPerCliente; ++numero)
      ufficio.invoice(cliente, QStringLiteral("2024/%1").arg(numero, 5, 10, QLatin1Char('0')), kMarzo,
                      cliente * 100 + numero);
  }
  ufficio.workspace.CommitTrans();
  const int prima = ufficio.user.passes();
  bool ferma = true;
  ufficio.user.onPass = [&] { ferma = ferma && !griglia.Redraw(); };
  const elenco::EsitoElenco esito = tutte();
  ufficio.user.onPass = nullptr;
  EXPECT_EQ(ufficio.user.passes() - prima, kClienti * kPerCliente + 1) << "and the anonymous customer";
  EXPECT_TRUE(ferma);
  EXPECT_EQ(griglia.Rows(), 1 + (kClienti * kPerCliente + 1) + (kClienti + 1));
  // 80 invoices of 250,01 to 250,80.
  EXPECT_EQ(griglia.TextMatrix(griglia.Rows() - 1, 5), QStringLiteral("20032.40"));
  // 80 * 100 * (1 + ... + 250) + 250 * (1 + ... + 80) hundredths.
  EXPECT_EQ(esito.totali[5].intero, 251810000);
}
