#include <gtest/gtest.h>

#include <QDir>
#include <QList>

#include "devices/loaded_library.h"
#include "ecrcom/codes.h"
#include "sostegno/temporary_folder.h"
#include "sostegno/test_till.h"

using namespace ecrcom;

namespace {

struct Comandi : testing::Test {
  int comando(int modo, const QByteArray& file = {}) { return libreria.command(cassa.address(), modo, file); }
  /// With a transfer opened before and closed behind.
  int traAperturaEChiusura(int modo, const QByteArray& file = {}) {
    EXPECT_EQ(comando(ECR_OPEN_MODE), kDone);
    const int codice = comando(modo, file);
    EXPECT_EQ(comando(ECR_CLOSE_MODE), kDone);
    return codice;
  }

  TemporaryFolder cartella;
  TestTill cassa;
  Library libreria;
};

QByteArray archivio(char seme) {
  QByteArray byte(240000, '\0');
  for (qsizetype i = 0; i < byte.size(); ++i) byte[i] = static_cast<char>(i * 7 + seme);
  return byte;
}

}  // namespace

TEST_F(Comandi, EcrInfoRispondeConDiciannoveVociSopraGliSpazi) {
  EXPECT_EQ(comando(ECR_INFO_MODE), kDone);
  ASSERT_EQ(libreria.reply.size(), 256);
  const QList<QByteArray> voci = libreria.reply.trimmed().split(',');
  ASSERT_EQ(voci.size(), 19);
  for (const QByteArray& voce : voci) EXPECT_EQ(voce.count('='), 1) << voce.toStdString();
  EXPECT_EQ(voci[0], "VER=3.00");
  EXPECT_EQ(voci[1], "BMP=L");
  EXPECT_EQ(voci[2], "MMC=4");
  EXPECT_EQ(voci[10], "STATO=I");
  EXPECT_EQ(voci[11], "MOD=KPR_80mm");
  EXPECT_EQ(voci[16], "FISC=0");
  EXPECT_FALSE(libreria.reply.contains('\0'));
  EXPECT_TRUE(libreria.reply.endsWith(' '));
}

TEST_F(Comandi, UnArchivioDiArticoliArrivaInteroNellaMemoria) {
  const QByteArray byte = archivio(3);
  cartella.write(QStringLiteral("plu.bin"), byte);
  EXPECT_EQ(traAperturaEChiusura(ECR_SEND_MODE, "plu.bin"), kDone);
  EXPECT_EQ(cassa.byte(QStringLiteral("plu.bin")), byte);
  const std::vector<ecrsim::Call> previste{
      {ECR_OPEN_MODE, "", 0}, {ECR_SEND_MODE, "plu.bin", 240000}, {ECR_CLOSE_MODE, "", 0}};
  EXPECT_EQ(cassa->calls(), previste);
}

TEST_F(Comandi, IlVendutoArrivaNellaCartellaCorrenteComeSta) {
  cassa.sales({{0, 150, 1, 0}, {4999, -5, 3, 7}});
  EXPECT_EQ(traAperturaEChiusura(ECR_FETCH_MODE, "venduto.bin"), kDone);
  EXPECT_EQ(cartella.read(QStringLiteral("venduto.bin")), cassa.byte(QStringLiteral("venduto.bin")));
}

TEST_F(Comandi, AzzerareIlVendutoLasciaSoliZeri) {
  cassa.sales({{7, 150, 1, 0}});
  EXPECT_EQ(traAperturaEChiusura(ECR_CLEAR_SALES_MODE), kDone);
  EXPECT_EQ(cassa.byte(QStringLiteral("venduto.bin")), QByteArray(60000, '\0'));
}

TEST_F(Comandi, LaChiusuraFiscaleGiraSenzaTrasferimento) {
  EXPECT_EQ(comando(ECR_FISCAL_CLOSURE_MODE), kDone);
  EXPECT_EQ(libreria.reply.trimmed(), "OK");
}

TEST_F(Comandi, OgniModoRispondeNelSuoPosto) {
  cassa.sales({});
  cartella.write(QStringLiteral("iva.bin"), QByteArray(233, 'i'));
  EXPECT_EQ(comando(ECR_INFO_MODE), kDone);
  EXPECT_EQ(comando(ECR_OPEN_MODE), kDone);
  EXPECT_EQ(libreria.reply.trimmed(), "OK");
  EXPECT_TRUE(cassa->transferOpen());
  EXPECT_EQ(comando(ECR_RESET_MODE), kDone);
  EXPECT_EQ(comando(ECR_CLEAR_INVOICES_MODE), kDone);
  EXPECT_EQ(comando(ECR_CLEAR_SALES_MODE), kDone);
  EXPECT_EQ(libreria.reply.trimmed(), "OK");
  EXPECT_EQ(comando(ECR_SEND_MODE, "iva.bin"), kDone);
  EXPECT_EQ(comando(ECR_FETCH_MODE, "venduto.bin"), kDone);
  EXPECT_EQ(libreria.reply, QByteArray(256, ' ')) << "a file is no reply";
  EXPECT_EQ(comando(ECR_CLOSE_MODE), kDone);
  EXPECT_FALSE(cassa->transferOpen());
  EXPECT_EQ(comando(ECR_FISCAL_CLOSURE_MODE), kDone);
}

TEST_F(Comandi, UnModoFuoriElencoNonArrivaSullaLinea) {
  EXPECT_EQ(comando(9), kUnknownCommand);
  EXPECT_EQ(comando(-1), kUnknownCommand);
  EXPECT_EQ(comando(256), kUnknownCommand);
  EXPECT_TRUE(cassa->calls().empty());
}

TEST_F(Comandi, SenzaTrasferimentoApertoIDatiNonSiToccano) {
  cassa.sales({{1, 1, 1, 1}});
  cartella.write(QStringLiteral("iva.bin"), QByteArray(233, 'i'));
  for (const int modo : {ECR_RESET_MODE, ECR_CLEAR_INVOICES_MODE, ECR_CLEAR_SALES_MODE})
    EXPECT_EQ(comando(modo), kTransferClosed) << modo;
  EXPECT_EQ(comando(ECR_SEND_MODE, "iva.bin"), kTransferClosed);
  EXPECT_EQ(comando(ECR_FETCH_MODE, "venduto.bin"), kTransferClosed);
  EXPECT_FALSE(cassa.exists(QStringLiteral("iva.bin")));
  EXPECT_EQ(cassa.byte(QStringLiteral("venduto.bin")), salesArchive({{1, 1, 1, 1}}));
}

TEST_F(Comandi, UnSecondoTrasferimentoSiRifiutaFinoAllaChiusura) {
  EXPECT_EQ(comando(ECR_OPEN_MODE), kDone);
  EXPECT_EQ(comando(ECR_OPEN_MODE), kTransferOpen);
  EXPECT_EQ(comando(ECR_CLOSE_MODE), kDone);
  EXPECT_EQ(comando(ECR_OPEN_MODE), kDone);
}

TEST_F(Comandi, ChiudereSenzaTrasferimentoEInnocuo) {
  EXPECT_EQ(comando(ECR_CLOSE_MODE), kDone);
  EXPECT_EQ(comando(ECR_CLOSE_MODE), kDone);
}

TEST_F(Comandi, LaChiusuraFiscaleSiRifiutaDentroUnTrasferimento) {
  EXPECT_EQ(comando(ECR_OPEN_MODE), kDone);
  EXPECT_EQ(comando(ECR_FISCAL_CLOSURE_MODE), kTransferOpen);
}

TEST_F(Comandi, NegliStatiDiVenditaEDiLetturaSoloInfoEChiusuraDelTrasferimento) {
  EXPECT_EQ(comando(ECR_OPEN_MODE), kDone);
  cartella.write(QStringLiteral("iva.bin"), QByteArray(233, 'i'));
  for (const char stato : {'V', 'A', 'L'}) {
    cassa->state(stato);
    for (int modo = ECR_OPEN_MODE; modo <= ECR_FETCH_MODE; ++modo) {
      if (modo == ECR_CLOSE_MODE) continue;
      EXPECT_EQ(comando(modo, modo >= ECR_SEND_MODE ? "iva.bin" : ""), kWrongState) << stato << modo;
    }
    EXPECT_EQ(comando(ECR_INFO_MODE), kDone);
    EXPECT_EQ(libreria.reply.split(',')[10], QByteArray("STATO=") + stato);
  }
  EXPECT_EQ(comando(ECR_CLOSE_MODE), kDone);
  EXPECT_EQ(comando(ECR_FISCAL_CLOSURE_MODE), kWrongState);
  cassa->state('V');
  EXPECT_EQ(comando(ECR_FISCAL_CLOSURE_MODE), kWrongState);
  cassa->state('A');
  EXPECT_EQ(comando(ECR_FISCAL_CLOSURE_MODE), kDone);
  cassa->state('P');
  EXPECT_EQ(comando(ECR_OPEN_MODE), kDone);
}

TEST(ComandiFiscali, LaChiusuraFiscaleAzzeraIDatiNonChiusi) {
  ecrsim::Options opzioni;
  opzioni.fiscal = 12;
  TestTill cassa(opzioni);
  Library libreria;
  libreria.command(cassa.address(), ECR_INFO_MODE);
  EXPECT_EQ(libreria.reply.split(',')[16], "FISC=12");
  EXPECT_EQ(libreria.command(cassa.address(), ECR_FISCAL_CLOSURE_MODE), kDone);
  libreria.command(cassa.address(), ECR_INFO_MODE);
  EXPECT_EQ(libreria.reply.split(',')[16], "FISC=0");
}

TEST(ComandiFiscali, FinoAllaChiusuraDeiDatiFiscaliLaCassaTieneLaSuaProgrammazione) {
  TemporaryFolder cartella;
  ecrsim::Options opzioni;
  opzioni.fiscal = 1;
  TestTill cassa(opzioni);
  Library libreria;
  const auto comando = [&](int modo, const char* file = "") {
    return libreria.command(cassa.address(), modo, file);
  };
  cassa.put(QStringLiteral("iva.bin"), QByteArray(233, 'v'));
  cartella.write(QStringLiteral("iva.bin"), QByteArray(233, 'i'));
  cartella.write(QStringLiteral("plu.bin"), QByteArray(240000, 'p'));
  cartella.write(QStringLiteral("clienti.bin"), QByteArray(44250, 'c'));
  EXPECT_EQ(comando(ECR_OPEN_MODE), kDone);
  EXPECT_EQ(comando(ECR_SEND_MODE, "iva.bin"), kWrongState);
  EXPECT_EQ(comando(ECR_RESET_MODE), kWrongState);
  EXPECT_EQ(comando(ECR_FETCH_MODE, "iva.bin"), kDone);
  EXPECT_EQ(cartella.read(QStringLiteral("iva.bin")), QByteArray(233, 'v'));
  EXPECT_EQ(comando(ECR_SEND_MODE, "plu.bin"), kDone);
  EXPECT_EQ(comando(ECR_SEND_MODE, "clienti.bin"), kDone);
  EXPECT_EQ(comando(ECR_CLOSE_MODE), kDone);
  EXPECT_EQ(comando(ECR_FISCAL_CLOSURE_MODE), kDone);
  cartella.write(QStringLiteral("iva.bin"), QByteArray(233, 'n'));
  EXPECT_EQ(comando(ECR_OPEN_MODE), kDone);
  EXPECT_EQ(comando(ECR_SEND_MODE, "iva.bin"), kDone);
  EXPECT_EQ(cassa.byte(QStringLiteral("iva.bin")), QByteArray(233, 'n'));
  EXPECT_EQ(comando(ECR_RESET_MODE), kDone);
}

TEST_F(Comandi, UnaCassaMaiProgrammataConsegnaUnaProgrammazioneDiZeri) {
  EXPECT_EQ(traAperturaEChiusura(ECR_FETCH_MODE, "reparti.bin"), kDone);
  EXPECT_EQ(cartella.read(QStringLiteral("reparti.bin")), QByteArray(3361, '\0'));
  EXPECT_EQ(traAperturaEChiusura(ECR_FETCH_MODE, "clienti.bin"), kUnknownFile);
}

TEST(ComandiClasse, UnaCassaPiccolaMaiProgrammataConsegnaRigheStrette) {
  TemporaryFolder cartella;
  ecrsim::Options opzioni;
  opzioni.bitmap = "S";
  TestTill cassa(opzioni);
  Library libreria;
  EXPECT_EQ(libreria.command(cassa.address(), ECR_OPEN_MODE), kDone);
  EXPECT_EQ(libreria.command(cassa.address(), ECR_FETCH_MODE, "intestazione.bin"), kDone);
  EXPECT_EQ(cartella.read(QStringLiteral("intestazione.bin")), QByteArray(209, '\0'));
}

TEST_F(Comandi, AzzerareLaProgrammazioneLasciaINoveFileDiZeriEGliAltriComeErano) {
  cassa.put(QStringLiteral("clienti.bin"), QByteArray(44250, 'c'));
  cassa.put(QStringLiteral("plu.bin"), QByteArray(240000, 'p'));
  EXPECT_EQ(traAperturaEChiusura(ECR_RESET_MODE), kDone);
  for (const auto& [nome, byte] :
       {std::pair{"intestazione.bin", 305}, std::pair{"reparti.bin", 3361}, std::pair{"plu.bin", 240000},
        std::pair{"iva.bin", 233}, std::pair{"val.bin", 117}, std::pair{"operatori.bin", 331},
        std::pair{"cortesia.bin", 79}, std::pair{"logo.bin", 121}, std::pair{"prog_param.bin", 429}})
    EXPECT_EQ(cassa.byte(QString::fromLatin1(nome)), QByteArray(byte, '\0')) << nome;
  EXPECT_EQ(cassa.byte(QStringLiteral("clienti.bin")), QByteArray(44250, 'c'));
  EXPECT_FALSE(cassa.exists(QStringLiteral("venduto.bin")));
}

TEST_F(Comandi, AzzerareLeFattureLasciaMillePostiVuoti) {
  cassa.put(QStringLiteral("fatture.bin"), QByteArray(77, 'f'));
  EXPECT_EQ(traAperturaEChiusura(ECR_CLEAR_INVOICES_MODE), kDone);
  EXPECT_EQ(cassa.byte(QStringLiteral("fatture.bin")), QByteArray(77000, '\0'));
}

TEST_F(Comandi, UnVendutoAssenteEUnFileSconosciuto) {
  cartella.write(QStringLiteral("venduto.bin"), "vecchio");
  EXPECT_EQ(traAperturaEChiusura(ECR_FETCH_MODE, "venduto.bin"), kUnknownFile);
  EXPECT_EQ(cartella.read(QStringLiteral("venduto.bin")), "vecchio");
}

TEST_F(Comandi, UnVendutoCortoOLungoSiConsegnaComeSta) {
  for (const int byte : {0, 1, 59999, 60001}) {
    cassa.put(QStringLiteral("venduto.bin"), QByteArray(byte, 'v'));
    EXPECT_EQ(traAperturaEChiusura(ECR_FETCH_MODE, "venduto.bin"), kDone);
    EXPECT_EQ(cartella.read(QStringLiteral("venduto.bin")), QByteArray(byte, 'v'));
    EXPECT_EQ(cassa->calls().rbegin()[1],
              (ecrsim::Call{ECR_FETCH_MODE, "venduto.bin", static_cast<std::size_t>(byte)}));
  }
}

TEST_F(Comandi, INomiFuoriElencoELeMaiuscoleSonoSconosciuti) {
  cassa.put(QStringLiteral("segreto.txt"), "x");
  EXPECT_EQ(comando(ECR_OPEN_MODE), kDone);
  for (const char* nome : {"segreto.txt", "PLU.BIN", "plu.bi", "bitmap.bin"})
    EXPECT_EQ(comando(ECR_FETCH_MODE, nome), kUnknownFile) << nome;
  cartella.write(QStringLiteral("venduto.bin"), QByteArray(60000, '\0'));
  EXPECT_EQ(comando(ECR_SEND_MODE, "venduto.bin"), kUnknownFile);
}

TEST_F(Comandi, UnNomeCheEsceDallaCartellaNonArrivaSullaLinea) {
  for (const QByteArray& nome :
       {QByteArray(), QByteArray("../plu.bin"), QByteArray("/etc/hosts"), QByteArray("a\\b"), QByteArray("."),
        QByteArray(".."), QByteArray(32, 'n')}) {
    EXPECT_EQ(comando(ECR_SEND_MODE, nome), kBadFileName) << nome.toStdString();
    EXPECT_EQ(comando(ECR_FETCH_MODE, nome), kBadFileName) << nome.toStdString();
  }
  EXPECT_TRUE(cassa->calls().empty());
}

TEST_F(Comandi, UnFileDaInviareAssenteOCartellaOTroppoGrandeNonArrivaSullaLinea) {
  EXPECT_EQ(comando(ECR_SEND_MODE, "iva.bin"), kLocalFileMissing);
  QDir().mkdir(QStringLiteral("val.bin"));
  EXPECT_EQ(comando(ECR_SEND_MODE, "val.bin"), kLocalFileMissing);
  cartella.write(QStringLiteral("bitmap.bin"), QByteArray(4 * 1024 * 1024 + 1, 'b'));
  EXPECT_EQ(comando(ECR_SEND_MODE, "bitmap.bin"), kFileTooLarge);
  EXPECT_TRUE(cassa->calls().empty());
}

TEST_F(Comandi, UnFileRicevutoCheNonSiPuoScrivereLasciaStareCioCheCEra) {
  cassa.put(QStringLiteral("iva.bin"), QByteArray(233, 'i'));
  QDir().mkdir(QStringLiteral("iva.bin"));
  EXPECT_EQ(traAperturaEChiusura(ECR_FETCH_MODE, "iva.bin"), kLocalFileNotWritten);
  EXPECT_EQ(QDir(cartella.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
            QStringList{QStringLiteral("iva.bin")});
}

TEST_F(Comandi, UnFileRicevutoPrendeIPermessiDiOgniAltro) {
  cassa.sales({});
  EXPECT_EQ(traAperturaEChiusura(ECR_FETCH_MODE, "venduto.bin"), kDone);
  cartella.write(QStringLiteral("altro"), "x");
  EXPECT_EQ(QFile::permissions(cartella.file(QStringLiteral("venduto.bin"))),
            QFile::permissions(cartella.file(QStringLiteral("altro"))));
}

TEST_F(Comandi, UnIndirizzoCheNonEUnIndirizzoNonArrivaSullaLinea) {
  for (const char* ip : {"", "999.1.1.1", "1.2.3", "localhost", "127.0.0.1 ", "::1"})
    EXPECT_EQ(libreria.command(QString::fromLatin1(ip), ECR_INFO_MODE), kBadAddress) << ip;
  EXPECT_EQ(libreria.ecr_command(nullptr, nullptr, ECR_INFO_MODE, nullptr, 0), kBadAddress);
}

TEST_F(Comandi, ArgomentiNulliOVuotiNonSiToccano) {
  QByteArray ip = cassa.address().toLatin1();
  EXPECT_EQ(libreria.ecr_command(ip.data(), nullptr, ECR_INFO_MODE, nullptr, 256), kDone);
  EXPECT_EQ(libreria.ecr_command(ip.data(), nullptr, ECR_FETCH_MODE, nullptr, 256), kBadFileName);
  QByteArray buffer(4, '#');
  EXPECT_EQ(libreria.ecr_command(ip.data(), nullptr, ECR_INFO_MODE, buffer.data(), -1), kDone);
  EXPECT_EQ(libreria.ecr_command(ip.data(), nullptr, ECR_INFO_MODE, buffer.data(), 0), kDone);
  EXPECT_EQ(buffer, "####");
  EXPECT_EQ(libreria.ecr_command(ip.data(), nullptr, ECR_INFO_MODE, buffer.data(), 3), kDone);
  EXPECT_EQ(buffer, "VER#");
}

TEST_F(Comandi, IndirizzoENomeTornanoComeErano) {
  cassa.sales({});
  EXPECT_EQ(comando(ECR_OPEN_MODE), kDone);
  QByteArray ip = cassa.address().toLatin1();
  QByteArray file = "venduto.bin";
  QByteArray buffer(256, ' ');
  EXPECT_EQ(libreria.ecr_command(ip.data(), file.data(), ECR_FETCH_MODE, buffer.data(), 256), kDone);
  EXPECT_EQ(ip, cassa.address().toLatin1());
  EXPECT_EQ(file, "venduto.bin");
}

TEST_F(Comandi, UnaRispostaPiuLungaDelBufferSiFermaAlBuffer) {
  cassa->infoReply(std::string(300, 'r'));
  EXPECT_EQ(comando(ECR_INFO_MODE), kDone);
  EXPECT_EQ(libreria.reply, QByteArray(256, 'r'));
}

TEST(ComandiInfo, LaRispostaNonPassaDuecentocinquantaseiCaratteri) {
  ecrsim::Options opzioni;
  opzioni.pattern = std::string(400, 'm');
  TestTill cassa(opzioni);
  Library libreria;
  QByteArray ip = cassa.address().toLatin1();
  QByteArray buffer(600, ' ');
  EXPECT_EQ(libreria.ecr_command(ip.data(), nullptr, ECR_INFO_MODE, buffer.data(), 600), kDone);
  EXPECT_EQ(buffer.trimmed().size(), 256);
}

TEST(ComandiInfo, LeOpzioniDiconoLaCassa) {
  ecrsim::Options opzioni;
  opzioni.bitmap = "S";
  opzioni.version = "2.10";
  opzioni.mmc = "8";
  opzioni.pattern = "RIGEL";
  opzioni.state = 'P';
  TestTill cassa(opzioni);
  Library libreria;
  libreria.command(cassa.address(), ECR_INFO_MODE);
  EXPECT_TRUE(libreria.reply.startsWith("VER=2.10,BMP=S,MMC=8,"));
  EXPECT_TRUE(libreria.reply.contains(",STATO=P,MOD=RIGEL,"));
}

struct Taglia {
  const char* nome;
  int piccola;
  int grande;
};
void PrintTo(const Taglia& taglia, std::ostream* uscita) {
  *uscita << taglia.nome;
}

struct LunghezzeAccettate : testing::TestWithParam<Taglia> {
  /// Code of sending so many bytes to a till of a size class.
  int invia(const std::string& bitmap, int byte) {
    ecrsim::Options opzioni;
    opzioni.bitmap = bitmap;
    TestTill cassa(opzioni);
    const QString nome = QString::fromLatin1(GetParam().nome);
    cartella.write(nome, QByteArray(byte, 'x'));
    libreria.command(cassa.address(), ECR_OPEN_MODE);
    const int codice = libreria.command(cassa.address(), ECR_SEND_MODE, GetParam().nome);
    EXPECT_EQ(cassa.exists(nome), codice == kDone);
    return codice;
  }

  TemporaryFolder cartella;
  Library libreria;
};

TEST_P(LunghezzeAccettate, SoloQuellaDellaClasse) {
  const auto prova = [&](const std::string& bitmap, int byte) {
    EXPECT_EQ(invia(bitmap, byte), kDone) << bitmap;
    EXPECT_EQ(invia(bitmap, byte - 1), kBadLength) << bitmap;
    EXPECT_EQ(invia(bitmap, byte + 1), kBadLength) << bitmap;
  };
  prova("S", GetParam().piccola);
  prova("L", GetParam().grande);
  prova("X", GetParam().grande);
}

INSTANTIATE_TEST_SUITE_P(OgniFile, LunghezzeAccettate,
                         testing::Values(Taglia{"intestazione.bin", 209, 305}, Taglia{"cortesia.bin", 55, 79},
                                         Taglia{"reparti.bin", 3361, 3361}, Taglia{"plu.bin", 240000, 240000},
                                         Taglia{"iva.bin", 233, 233}, Taglia{"val.bin", 117, 117},
                                         Taglia{"operatori.bin", 331, 331},
                                         Taglia{"prog_param.bin", 429, 429}, Taglia{"logo.bin", 121, 121},
                                         Taglia{"clienti.bin", 44250, 44250}));

TEST(LunghezzeDiClasse, LaCassaPiccolaNonLeggeLaCodaDiUnaGrande) {
  TemporaryFolder cartella;
  ecrsim::Options opzioni;
  opzioni.bitmap = "S";
  TestTill cassa(opzioni);
  Library libreria;
  libreria.command(cassa.address(), ECR_OPEN_MODE);
  for (const auto& [nome, piccola, grande] :
       {Taglia{"intestazione.bin", 209, 305}, Taglia{"cortesia.bin", 55, 79}}) {
    const QByteArray nuovo(piccola, 'n');
    cartella.write(QString::fromLatin1(nome), nuovo + QByteArray(grande - piccola, 'v'));
    EXPECT_EQ(libreria.command(cassa.address(), ECR_SEND_MODE, nome), kDone) << nome;
    EXPECT_EQ(cassa.byte(QString::fromLatin1(nome)), nuovo);
  }
}

TEST_F(Comandi, UnaGraficaDiByteQualsiasiSiRifiutaDiOgniLunghezza) {
  EXPECT_EQ(comando(ECR_OPEN_MODE), kDone);
  for (const int byte : {0, 1, 1008, 100000}) {
    cartella.write(QStringLiteral("bitmap.bin"), QByteArray(byte, 'b'));
    EXPECT_EQ(comando(ECR_SEND_MODE, "bitmap.bin"), kBadLength) << byte;
  }
  EXPECT_FALSE(cassa.exists(QStringLiteral("bitmap.bin")));
}

TEST_F(Comandi, UnaMemoriaNonScrivibileDaUnCodiceSuo) {
  QDir(cassa.file(QString())).mkdir(QStringLiteral("venduto.bin"));
  EXPECT_EQ(traAperturaEChiusura(ECR_CLEAR_SALES_MODE), kTillMemory);
  EXPECT_EQ(traAperturaEChiusura(ECR_FETCH_MODE, "venduto.bin"), kTillMemory);
}

TEST_F(Comandi, DimenticateLeChiamateSiRicominciaDaCapo) {
  comando(ECR_INFO_MODE);
  EXPECT_EQ(cassa->calls().size(), 1U);
  cassa->forgetCalls();
  EXPECT_TRUE(cassa->calls().empty());
}

TEST(Messaggi, OgniCodiceHaIlSuoTestoItalianoDiAlPiuSettantanoveCaratteri) {
  const Library libreria;
  QList<QByteArray> visti;
  for (int codice = kDone; codice <= kNoResources; ++codice) {
    const QByteArray testo = libreria.message(codice);
    EXPECT_FALSE(testo.isEmpty()) << codice;
    EXPECT_LE(testo.size(), 79) << codice;
    EXPECT_FALSE(visti.contains(testo)) << codice;
    EXPECT_EQ(libreria.message(-codice), testo);
    visti.append(testo);
  }
  EXPECT_EQ(libreria.message(kUnreachable), "La cassa non \xE8 raggiungibile");
  for (const int ignoto : {kNoResources + 1, 32767, -32768, -1000})
    EXPECT_EQ(libreria.message(ignoto), "Errore sconosciuto");
  libreria.ecr_get_err(1, nullptr);
}
