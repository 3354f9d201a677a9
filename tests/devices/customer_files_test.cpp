#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include "devices/invoice_bytes.h"
#include "devices/keyboard_scene.h"
#include "ecrcom/codes.h"
#include "ecrsim/command_line.h"

using namespace ecrcom;
using ecrsim::FaultKind;

namespace {

const QString kFatture = QStringLiteral("fatture.bin");
const QString kClienti = QStringLiteral("clienti.bin");

/// Both files on their way between the current folder and a till, in a transfer that is open.
struct FileDeiClienti : testing::Test {
  FileDeiClienti() {
    libreria.ecr_set_timeout(300, 300);
    programTill(cassa);
  }
  void apri() { EXPECT_EQ(comando(ECR_OPEN_MODE), kDone); }
  int comando(int modo, const QString& file = {}) {
    return libreria.command(cassa.address(), modo, file.toLatin1());
  }

  TemporaryFolder cartella;
  TestTill cassa;
  Library libreria;
};

/// A table of which every byte counts.
QByteArray tabellaPiena() {
  QByteArray byte(44250, '\0');
  for (qsizetype i = 0; i < byte.size(); ++i) byte[i] = static_cast<char>(i * 7 + i / 177);
  return byte;
}

/// The dumps of a section of the protocol's document: lines of an offset, counted from 0, and bytes.
QList<QByteArray> recordDelDocumento() {
  QFile file(QStringLiteral(GESTIONALE_SOURCES "/docs/ecr-protocol.md"));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  const QRegularExpression riga(QStringLiteral("^ +([0-9]{1,3})  ((?:[0-9a-f]{2} ?)+)$"));
  QList<QByteArray> record;
  while (!file.atEnd()) {
    const auto trovata = riga.match(QString::fromLatin1(file.readLine()).remove(QLatin1Char('\n')));
    if (!trovata.hasMatch()) continue;
    if (trovata.captured(1) == QStringLiteral("0")) record.append(QByteArray());
    EXPECT_EQ(trovata.captured(1).toInt(), record.back().size());
    record.back().append(QByteArray::fromHex(trovata.captured(2).toLatin1()));
  }
  return record;
}

}  // namespace

TEST_F(FileDeiClienti, LaTabellaDelPcPrendeIlPostoDellaVecchiaETornaComeSta) {
  cassa.put(kClienti, QByteArray(44250, 'v'));
  cartella.write(kClienti, tabellaPiena());
  apri();
  EXPECT_EQ(comando(ECR_SEND_MODE, kClienti), kDone);
  EXPECT_EQ(cassa.byte(kClienti), tabellaPiena());
  cartella.write(kClienti, "altro");
  EXPECT_EQ(comando(ECR_FETCH_MODE, kClienti), kDone);
  EXPECT_EQ(cartella.read(kClienti), tabellaPiena());
}

TEST_F(FileDeiClienti, LaTabellaAppenaInviataValePerLaProssimaFattura) {
  cartella.write(kClienti, customerTable({{12, 1, "NUOVO CLIENTE"}}));
  apri();
  EXPECT_EQ(comando(ECR_SEND_MODE, kClienti), kDone);
  EXPECT_EQ(comando(ECR_CLOSE_MODE), kDone);
  EXPECT_EQ(cassa->issueInvoice({1, 12}, "1R1T"), 1);
  EXPECT_EQ(invoicesOf(cassa.byte(kFatture))[0].holder, "NUOVO CLIENTE");
}

TEST_F(FileDeiClienti, LeFattureArrivanoInSettantasettemilaByte) {
  EXPECT_EQ(cassa->invoices(3, 1), 3);
  apri();
  EXPECT_EQ(comando(ECR_FETCH_MODE, kFatture), kDone);
  const QByteArray arrivate = cartella.read(kFatture);
  EXPECT_EQ(arrivate, cassa.byte(kFatture));
  EXPECT_EQ(invoicesOf(arrivate).size(), 3U);
  EXPECT_EQ(arrivate.mid(3 * 77), QByteArray(997 * 77, '\0'));
  EXPECT_EQ(comando(ECR_CLEAR_INVOICES_MODE), kDone);
  EXPECT_EQ(comando(ECR_FETCH_MODE, kFatture), kDone);
  EXPECT_EQ(cartella.read(kFatture), QByteArray(77000, '\0'));
}

TEST_F(FileDeiClienti, LeFattureNonSiMandanoAllaCassa) {
  EXPECT_EQ(cassa->invoices(1, 1), 1);
  const QByteArray prima = cassa.byte(kFatture);
  cartella.write(kFatture, QByteArray(77000, 'x'));
  apri();
  EXPECT_EQ(comando(ECR_SEND_MODE, kFatture), kUnknownFile);
  EXPECT_EQ(cassa.byte(kFatture), prima);
}

TEST_F(FileDeiClienti, CiascunGuastoFalsaSoloQuelloCheArrivaAlPc) {
  EXPECT_EQ(cassa->invoices(600, 1), 600);
  cassa.put(kClienti, tabellaPiena());
  apri();
  for (const QString& file : {kFatture, kClienti}) {
    const QByteArray vero = cassa.byte(file);
    const std::string nome = file.toStdString();
    cassa->faults({{ECR_FETCH_MODE, nome, FaultKind::ShortFile}});
    EXPECT_EQ(comando(ECR_FETCH_MODE, file), kDone);
    EXPECT_EQ(cartella.read(file), vero.left(vero.size() / 2)) << nome;
    cassa->faults({{ECR_FETCH_MODE, nome, FaultKind::LongFile}});
    EXPECT_EQ(comando(ECR_FETCH_MODE, file), kDone);
    const QByteArray lungo = cartella.read(file);
    EXPECT_EQ(lungo.size(), vero.size() + 100) << nome;
    EXPECT_TRUE(lungo.startsWith(vero)) << nome;
    const std::vector<std::pair<FaultKind, int>> senzaFile{{FaultKind::Garbage, kGarbledReply},
                                                           {FaultKind::Silence, kTimedOut},
                                                           {FaultKind::Code, 7},
                                                           {FaultKind::CutBefore, kLineCut},
                                                           {FaultKind::CutWithin, kLineCut},
                                                           {FaultKind::CutAfter, kLineCut}};
    for (const auto& [guasto, codice] : senzaFile) {
      cassa->faults({{ECR_FETCH_MODE, nome, guasto}});
      EXPECT_EQ(comando(ECR_FETCH_MODE, file), codice) << nome;
      EXPECT_EQ(cartella.read(file), lungo) << "what stood there stands";
    }
    EXPECT_EQ(cassa.byte(file), vero);
  }
}

TEST_F(FileDeiClienti, UnInvioGuastoLasciaLaTabellaDiPrima) {
  cassa.put(kClienti, tabellaPiena());
  cartella.write(kClienti, QByteArray(44250, 'n'));
  apri();
  const std::vector<std::pair<FaultKind, int>> guasti{
      {FaultKind::ShortFile, kBadLength},  {FaultKind::LongFile, kBadLength},
      {FaultKind::Garbage, kGarbledReply}, {FaultKind::CutBefore, kLineCut},
      {FaultKind::CutWithin, kLineCut},    {FaultKind::Code, 7}};
  for (const auto& [guasto, codice] : guasti) {
    cassa->faults({{ECR_SEND_MODE, "clienti.bin", guasto}});
    EXPECT_EQ(comando(ECR_SEND_MODE, kClienti), codice);
    EXPECT_EQ(cassa.byte(kClienti), tabellaPiena());
  }
}

TEST_F(FileDeiClienti, UnAzzeramentoGuastoLasciaLeFatture) {
  EXPECT_EQ(cassa->invoices(2, 1), 2);
  const QByteArray prima = cassa.byte(kFatture);
  apri();
  for (const FaultKind guasto : {FaultKind::Code, FaultKind::CutBefore, FaultKind::Garbage}) {
    cassa->faults({{ECR_CLEAR_INVOICES_MODE, "", guasto}});
    EXPECT_NE(comando(ECR_CLEAR_INVOICES_MODE), kDone);
    EXPECT_EQ(cassa.byte(kFatture), prima);
  }
}

TEST_F(FileDeiClienti, IRecordDelDocumentoSonoQuelliDellaCassa) {
  const QList<QByteArray> record = recordDelDocumento();
  ASSERT_EQ(record.size(), 2);
  KeyboardScene scena;
  QByteArray tabella(44250, '\0');
  tabella.replace(4 * 177, 177, record[0]);
  scena.till.put(kClienti, tabella);
  EXPECT_EQ(record[0].size(), 177);
  EXPECT_EQ(scena.till->issueInvoice({2, 5, "", 5000}, "12345H1R1T"), 1);
  EXPECT_EQ(scena.till.byte(kFatture).left(77).toHex(' '), record[1].toHex(' '));
}

TEST(RigaComandoFatture, IlNumeroArrivaAlSuoPostoEISbagliatiSiRifiutano) {
  const auto leggi = [](const std::vector<const char*>& argomenti) {
    return ecrsim::readCommandLine(argomenti);
  };
  EXPECT_EQ(leggi({}).invoices, 0);
  EXPECT_EQ(leggi({"--fatture", "250"}).invoices, 250);
  for (const auto& argomenti :
       std::vector<std::vector<const char*>>{{"--fatture"}, {"--fatture", "-1"}, {"--fatture", "dieci"}})
    EXPECT_THROW(leggi(argomenti), std::invalid_argument);
  EXPECT_TRUE(QByteArray(ecrsim::helpText()).contains("  --fatture N "));
}

TEST_F(FileDeiClienti, IlProgrammaEmetteLeFatturePrimaDiRispondereEOgniGuastoLeColpisce) {
  for (const char* file : {"reparti.bin", "plu.bin", "iva.bin"})
    cartella.write(QString::fromLatin1(file), cassa.byte(QString::fromLatin1(file)));
  const QString indirizzo = ownAddress();
  QProcess processo;
  processo.start(QStringLiteral(GESTIONALE_APP "/ecrsim"),
                 {QStringLiteral("--address"), indirizzo, QStringLiteral("--dir"), cartella.path(),
                  QStringLiteral("--fatture"), QStringLiteral("5"), QStringLiteral("--guasto"),
                  QStringLiteral("7:fatture.bin:corto")});
  const auto riga = [&] {
    while (!processo.canReadLine() && processo.waitForReadyRead(10000)) continue;
    return processo.readLine();
  };
  EXPECT_EQ(riga(), "ECRSIM fatture emesse: 5 di 5\n");
  EXPECT_TRUE(riga().startsWith("ECRSIM pronto su "));
  EXPECT_EQ(invoicesOf(cartella.read(kFatture)).size(), 5U);
  const TemporaryFolder delPc;
  EXPECT_EQ(libreria.command(indirizzo, ECR_OPEN_MODE), kDone);
  EXPECT_EQ(libreria.command(indirizzo, ECR_FETCH_MODE, "fatture.bin"), kDone);
  EXPECT_EQ(delPc.read(kFatture).size(), 38500);
  processo.terminate();
  EXPECT_TRUE(processo.waitForFinished(10000));
}
