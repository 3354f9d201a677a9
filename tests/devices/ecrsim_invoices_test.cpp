#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "devices/invoice_bytes.h"
#include "devices/keyboard_scene.h"
#include "ecrcom/codes.h"

using ecrsim::InvoiceOrder;

namespace {

const QString kFatture = QStringLiteral("fatture.bin");
const QString kClienti = QStringLiteral("clienti.bin");
const QString kVenduto = QStringLiteral("venduto.bin");
const QString kGiornale = QStringLiteral("giornale.txt");

struct Fattura : testing::Test {
  std::vector<InvoiceRead> emesse() const { return invoicesOf(scena.till.byte(kFatture)); }
  int emetti(const InvoiceOrder& ordine, const char* tasti) {
    return scena.till->issueInvoice(ordine, tasti);
  }
  /// The only invoice, issued with these keys.
  InvoiceRead unica(const InvoiceOrder& ordine, const char* tasti) {
    EXPECT_EQ(emetti(ordine, tasti), 1);
    const std::vector<InvoiceRead> tutte = emesse();
    EXPECT_EQ(tutte.size(), 1U);
    return tutte.empty() ? InvoiceRead() : tutte[0];
  }
  int scontrini() { return scena.state().mid(16, 6).toInt(); }

  KeyboardScene scena;
};

}  // namespace

TEST_F(Fattura, IlRecordHaOgniByteAlSuoPostoEGliAltriPostiSonoVuoti) {
  // 123,45 at 22 %: tax 22,26 within, 50,00 not paid.
  EXPECT_EQ(emetti({3, 517, "CAFF\xC8 DELLE ROSE", 5000}, "12345H1R1T"), 1);
  const QByteArray atteso = QByteArray::fromHex(
      "03"
      "0502"
      "43414646c82044454c4c4520524f534500000000000000000000000000000000000000000000000000"
      "4501a139"
      "39300000"
      "87270000"
      "b2080000"
      "88130000"
      "00000000000000000000000000");
  ASSERT_EQ(atteso.size(), 77);
  const QByteArray archivio = scena.till.byte(kFatture);
  EXPECT_EQ(archivio.left(77).toHex(' '), atteso.toHex(' '));
  EXPECT_EQ(archivio.mid(77), QByteArray(76923, '\0'));
}

TEST_F(Fattura, IlMomentoSiLeggeComeLoLeggeIlPc) {
  scena.now = {2028, 2, 29, 23, 59, 58};
  const InvoiceRead fattura = unica({}, "1R1T");
  const Library libreria;
  QByteArray testo(80, '\0');
  libreria.ecr_oro_encode(fattura.moment, testo.data());
  EXPECT_STREQ(testo.constData(), "29/02/28 23:59:58");
}

TEST_F(Fattura, LImpostaVieneDalleAliquoteDelloScontrino) {
  // 1,50 at 22 %: 0,27; 2,00 at 10 %: 0,18; 3,00 at 4 %: 0,12.
  const InvoiceRead fattura = unica({}, "1R2R3R1T");
  EXPECT_EQ(fattura.total, 650);
  EXPECT_EQ(fattura.tax, 57);
  EXPECT_EQ(fattura.taxable, 593);
}

TEST_F(Fattura, LoScontoSulSubtotaleSiDivideFraLeAliquote) {
  // 1,35: 0,24; 1,80: 0,16; 2,70: 0,10.
  const InvoiceRead fattura = unica({}, "1R2R3R10*2M1T");
  EXPECT_EQ(fattura.total, 585);
  EXPECT_EQ(fattura.tax, 50);
  EXPECT_EQ(fattura.taxable, 535);
}

TEST_F(Fattura, SenzaAliquoteProgrammateTuttoEImponibile) {
  scena.till.put(QStringLiteral("iva.bin"), QByteArray(233, '\0'));
  const InvoiceRead fattura = unica({}, "1R1T");
  EXPECT_EQ(fattura.total, 150);
  EXPECT_EQ(fattura.taxable, 150);
  EXPECT_EQ(fattura.tax, 0);
}

TEST_F(Fattura, UnResoHaImportiSottoZero) {
  EXPECT_EQ(emetti({}, "9M1R1T"), 1);
  EXPECT_EQ(scena.till.byte(kFatture).mid(48, 16).toHex(' '),
            "6a ff ff ff 85 ff ff ff e5 ff ff ff 00 00 00 00");
}

TEST_F(Fattura, CioCheVaACreditoNonEPagato) {
  EXPECT_EQ(unica({}, "1R100H5T1T").unpaid, 100);
  EXPECT_EQ(emetti({1, 0, "", 30}, "1R100H5T1T"), 2);
  EXPECT_EQ(emesse()[1].unpaid, 130);
  EXPECT_EQ(emetti({}, "1R5T"), 3);
  EXPECT_EQ(emesse()[2].unpaid, 150);
}

TEST_F(Fattura, NonPagatoPiuDelTotaleLoScontrinoRestaAperto) {
  EXPECT_EQ(emetti({1, 0, "", 151}, "1R1T"), 0);
  EXPECT_TRUE(scena.till->error());
  EXPECT_EQ(scena.display.value(1).trimmed(), "IMPORTO ERRATO");
  EXPECT_FALSE(scena.till.exists(kFatture));
  EXPECT_EQ(scena.state().mid(14, 1), "A");
  scena.press("c1T");
  EXPECT_EQ(scontrini(), 1);
  EXPECT_FALSE(scena.till.exists(kFatture)) << "the order went with its keys";
}

TEST_F(Fattura, SenzaIntestatarioValeIlNomeDellAnagrafica) {
  const QByteArray pieno(41, 'N');
  scena.till.put(
      kClienti,
      customerTable({{5, 1, "ROSSI MARIO"}, {6, 0, "CANCELLATO"}, {249, 255, pieno}, {250, 2, ""}}));
  const std::vector<std::pair<InvoiceOrder, QByteArray>> ordini{
      {{1, 5}, "ROSSI MARIO"},
      {{1, 5, "ALTRO NOME"}, "ALTRO NOME"},
      {{1, 6}, ""},
      {{1, 249}, pieno},
      {{1, 250}, ""},
      {{1, 251}, ""},
      {{1, 0}, ""},
      {{1, 65535}, ""},
      {{1, 7, std::string(42, 'X')}, QByteArray(41, 'X')}};
  for (std::size_t i = 0; i < ordini.size(); ++i) {
    ASSERT_EQ(emetti(ordini[i].first, "1R1T"), static_cast<int>(i) + 1);
    EXPECT_EQ(emesse()[i].customer, ordini[i].first.customer);
    EXPECT_EQ(emesse()[i].holder, ordini[i].second) << i;
  }
}

TEST_F(Fattura, UnAnagraficaCortaHaSoloICodiciCheVisStannoInteri) {
  scena.till.put(kClienti, customerTable({{1, 1, "PRIMO"}, {2, 1, "SECONDO"}}).left(2 * 177 - 1));
  EXPECT_EQ(unica({1, 1}, "1R1T").holder, "PRIMO");
  EXPECT_EQ(emetti({1, 2}, "1R1T"), 2);
  EXPECT_EQ(emesse()[1].holder, "");
}

TEST_F(Fattura, UnOrdineImpossibileNonBatteNiente) {
  for (const InvoiceOrder& ordine :
       {InvoiceOrder{0, 0}, {256, 0}, {-1, 0}, {1, -1}, {1, 65536}, {1, 0, "", -1}}) {
    EXPECT_EQ(emetti(ordine, "1R1T"), 0) << ordine.type << ' ' << ordine.customer;
    EXPECT_TRUE(scena.till->error());
    scena.press("c");
  }
  EXPECT_EQ(scontrini(), 0);
  EXPECT_FALSE(scena.till.exists(kFatture));
}

TEST_F(Fattura, TipoECodiceArrivanoAlLoroMassimo) {
  const InvoiceRead fattura = unica({255, 65535}, "1R1T");
  EXPECT_EQ(fattura.type, 255);
  EXPECT_EQ(fattura.customer, 65535);
  EXPECT_EQ(fattura.reserved, QByteArray(13, '\0'));
}

TEST_F(Fattura, ConLaSpiaAccesaOUnTrasferimentoApertoNonSiEmette) {
  scena.press("q");
  EXPECT_EQ(emetti({}, "1R1T"), 0);
  scena.press("c");
  Library libreria;
  EXPECT_EQ(libreria.command(scena.till.address(), ECR_OPEN_MODE), ecrcom::kDone);
  EXPECT_EQ(emetti({}, "1R1T"), 0);
  EXPECT_EQ(libreria.command(scena.till.address(), ECR_CLOSE_MODE), ecrcom::kDone);
  scena.press("c");
  scena.press("x");
  EXPECT_EQ(emetti({}, "1R1T"), 0);
  scena.press("c");
  scena.press("j");
  EXPECT_EQ(emetti({}, "1T"), 0);
  scena.press("cJ");
  EXPECT_EQ(scontrini(), 0);
  EXPECT_FALSE(scena.till.exists(kFatture));
}

TEST_F(Fattura, SeITastiNonChiudonoLoScontrinoLOrdineCade) {
  EXPECT_EQ(emetti({}, "1R"), 0);
  EXPECT_EQ(emetti({}, "2Rq1T"), 0);
  scena.press("c1T");
  EXPECT_EQ(scontrini(), 1);
  EXPECT_FALSE(scena.till.exists(kFatture));
}

TEST_F(Fattura, ValePerUnSoloScontrino) {
  EXPECT_EQ(emetti({}, "1R1T2R1T"), 1);
  EXPECT_EQ(scontrini(), 2);
  ASSERT_EQ(emesse().size(), 1U);
  EXPECT_EQ(emesse()[0].total, 150);
}

TEST_F(Fattura, LaCartaEIlGiornaleLaDicono) {
  EXPECT_EQ(emetti({2, 5, "CAFF\xC8 DELLE ROSE", 50}, "1R1T"), 1);
  const QByteArrayList righe{riga("ALIMENTARI", "1,50"), riga("TOTALE EURO", "1,50"),
                             riga("CONTANTI", "1,50"),   riga("FATTURA N. 0001", "CLIENTE 00005"),
                             "PER CAFF\xC8 DELLE ROSE",  riga("IMPONIBILE", "1,23"),
                             riga("IMPOSTA", "0,27"),    riga("NON PAGATO", "0,50")};
  EXPECT_EQ(scena.paper.lines(), righe + piede("SF 000001"));
  EXPECT_TRUE(scena.press("X\"000101991201\"10F").contains(righe.join("\r\n") + "\r\n"));
}

TEST_F(Fattura, UnClienteAnonimoPagatoHaTreRighe) {
  EXPECT_EQ(emetti({}, "1R1T"), 1);
  const QByteArrayList righe{riga("ALIMENTARI", "1,50"), riga("TOTALE EURO", "1,50"),
                             riga("CONTANTI", "1,50"),   riga("FATTURA N. 0001", "CLIENTE ANONIMO"),
                             riga("IMPONIBILE", "1,23"), riga("IMPOSTA", "0,27")};
  EXPECT_EQ(scena.paper.lines(), righe + piede("SF 000001"));
}

TEST_F(Fattura, VaNelPrimoPostoLibero) {
  QByteArray archivio(77000, '\0');
  archivio[0] = 1;
  archivio[2 * 77] = 1;
  scena.till.put(kFatture, archivio);
  EXPECT_EQ(emetti({9}, "1R1T"), 2);
  EXPECT_EQ(emetti({9}, "1R1T"), 4);
  QByteArray dopo = scena.till.byte(kFatture);
  EXPECT_EQ(dopo[77], 9);
  EXPECT_EQ(dopo[3 * 77], 9);
  dopo.replace(77, 77, QByteArray(77, '\0')).replace(3 * 77, 77, QByteArray(77, '\0'));
  EXPECT_EQ(dopo, archivio) << "the others stay";
}

TEST_F(Fattura, ArchivioPienoSiRifiutaLaFatturaMaNonLoScontrino) {
  QByteArray pieno(77000, '\0');
  for (int posto = 0; posto < 1000; ++posto) pieno[posto * 77] = 1;
  pieno[999 * 77] = 0;
  scena.till.put(kFatture, pieno);
  EXPECT_EQ(emetti({1, 7}, "1R1T"), 1000);
  const QByteArray archivio = scena.till.byte(kFatture);
  scena.paper.tearOff();
  EXPECT_EQ(emetti({1, 7}, "1R1T"), 0);
  EXPECT_FALSE(scena.till->error());
  EXPECT_EQ(scena.till.byte(kFatture), archivio);
  EXPECT_EQ(scontrini(), 2);
  const QByteArrayList righe{riga("ALIMENTARI", "1,50"), riga("TOTALE EURO", "1,50"),
                             riga("CONTANTI", "1,50"), riga("FATTURA RIFIUTATA", "CLIENTE 00007"),
                             "ARCHIVIO FATTURE PIENO"};
  EXPECT_EQ(scena.paper.lines(), righe + piede("SF 000002"));
  EXPECT_TRUE(scena.press("X\"000101991201\"10F").contains("ARCHIVIO FATTURE PIENO\r\n"));
}

TEST_F(Fattura, DopoLAzzeramentoDelPcSiRiprendeDalPrimoPosto) {
  EXPECT_EQ(emetti({}, "1R1T"), 1);
  EXPECT_EQ(emetti({}, "1R1T"), 2);
  Library libreria;
  for (const int modo : {ECR_OPEN_MODE, ECR_CLEAR_INVOICES_MODE, ECR_CLOSE_MODE})
    EXPECT_EQ(libreria.command(scena.till.address(), modo), ecrcom::kDone);
  EXPECT_EQ(scena.till.byte(kFatture), QByteArray(77000, '\0'));
  scena.press("1R1T");
  EXPECT_EQ(scena.till.byte(kFatture), QByteArray(77000, '\0')) << "a sale brings nothing back";
  EXPECT_EQ(unica({}, "2R1T").total, 200);
}

TEST_F(Fattura, ASpegnerlaLaCassaTieneLeFatture) {
  EXPECT_EQ(emetti({}, "1R1T"), 1);
  ecrsim::Options opzioni;
  opzioni.address = ownAddress().toStdString();
  opzioni.folder = scena.till.file(QString()).toStdString();
  ecrsim::Simulator riaccesa(opzioni);
  EXPECT_EQ(riaccesa.issueInvoice({}, "2R1T"), 2);
  EXPECT_EQ(emesse().size(), 2U);
}

class ArchivioGuasto : public Fattura, public testing::WithParamInterface<int> {};

TEST_P(ArchivioGuasto, NonSiEmetteNonSiToccaESiVendeSenzaFattura) {
  const QByteArray guasto(GetParam(), 'f');
  scena.till.put(kFatture, guasto);
  EXPECT_EQ(emetti({}, "1R1T"), 0);
  EXPECT_TRUE(scena.till->error());
  EXPECT_EQ(scena.display.value(1).trimmed(), "MEMORIA GUASTA");
  EXPECT_EQ(scontrini(), 0);
  scena.press("c1R1T");
  EXPECT_EQ(scontrini(), 1);
  EXPECT_EQ(scena.till.byte(kFatture), guasto);
}
INSTANTIATE_TEST_SUITE_P(Lunghezze, ArchivioGuasto, testing::Values(0, 1, 77, 76999, 77001));

TEST_F(Fattura, SeIlDiscoNonLaPrendeLoScontrinoRestaApertoENienteCambia) {
  scena.press("2P1T");
  const QByteArray giornale = scena.till.byte(kGiornale);
  const QByteArray venduto = scena.till.byte(kVenduto);
  const QByteArray contatori = scena.till.byte(QStringLiteral("contatori.txt"));
  // Room for the sales, not for the invoices.
  rlimit prima{};
  getrlimit(RLIMIT_FSIZE, &prima);
  rlimit stretto = prima;
  stretto.rlim_cur = 70000;
  const auto vecchio = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &stretto);
  EXPECT_EQ(emetti({}, "2P1T"), 0);
  setrlimit(RLIMIT_FSIZE, &prima);
  std::signal(SIGXFSZ, vecchio);
  EXPECT_TRUE(scena.till->error());
  EXPECT_FALSE(scena.till.exists(kFatture));
  EXPECT_EQ(scena.till.byte(kGiornale), giornale);
  EXPECT_EQ(scena.till.byte(kVenduto), venduto);
  EXPECT_EQ(scena.till.byte(QStringLiteral("contatori.txt")), contatori);
  scena.press("c");
  EXPECT_EQ(emetti({}, "1T"), 1);
  EXPECT_EQ(emesse()[0].total, 139);
  EXPECT_EQ(salesCounter(scena.till.byte(kVenduto), 1, 2), 2);
}
