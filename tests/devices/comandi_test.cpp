#include <gtest/gtest.h>

#include <QDir>
#include <QList>

#include "devices/libreria.h"
#include "ecrcom/codici.h"
#include "sostegno/cartella_temporanea.h"
#include "sostegno/cassa.h"

using namespace ecrcom;

namespace {

struct Comandi : testing::Test {
  int comando(int modo, const QByteArray& file = {}) {
    return libreria.comando(cassa.indirizzo(), modo, file);
  }
  /// With a transfer opened before and closed behind.
  int traAperturaEChiusura(int modo, const QByteArray& file = {}) {
    EXPECT_EQ(comando(ECR_OPEN_MODE), kFatto);
    const int codice = comando(modo, file);
    EXPECT_EQ(comando(ECR_CLOSE_MODE), kFatto);
    return codice;
  }

  CartellaTemporanea cartella;
  Cassa cassa;
  Libreria libreria;
};

QByteArray archivio(char seme) {
  QByteArray byte(240000, '\0');
  for (qsizetype i = 0; i < byte.size(); ++i) byte[i] = static_cast<char>(i * 7 + seme);
  return byte;
}

}  // namespace

TEST_F(Comandi, EcrInfoRispondeConDiciannoveVociSopraGliSpazi) {
  EXPECT_EQ(comando(ECR_INFO_MODE), kFatto);
  ASSERT_EQ(libreria.risposta.size(), 256);
  const QList<QByteArray> voci = libreria.risposta.trimmed().split(',');
  ASSERT_GE(voci.size(), 19);
  for (const QByteArray& voce : voci) EXPECT_EQ(voce.count('='), 1) << voce.toStdString();
  EXPECT_EQ(voci[0], "VER=3.00");
  EXPECT_EQ(voci[1], "BMP=L");
  EXPECT_EQ(voci[2], "MMC=4");
  EXPECT_EQ(voci[10], "STATO=I");
  EXPECT_EQ(voci[11], "MOD=KPR_80mm");
  EXPECT_EQ(voci[16], "FISC=0");
  EXPECT_FALSE(libreria.risposta.contains('\0'));
  EXPECT_TRUE(libreria.risposta.endsWith(' '));
}

TEST_F(Comandi, UnArchivioDiArticoliArrivaInteroNellaMemoria) {
  const QByteArray byte = archivio(3);
  cartella.scrivi(QStringLiteral("plu.bin"), byte);
  EXPECT_EQ(traAperturaEChiusura(ECR_SEND_MODE, "plu.bin"), kFatto);
  EXPECT_EQ(cassa.byte(QStringLiteral("plu.bin")), byte);
  const std::vector<ecrsim::Chiamata> attese{
      {ECR_OPEN_MODE, "", 0}, {ECR_SEND_MODE, "plu.bin", 240000}, {ECR_CLOSE_MODE, "", 0}};
  EXPECT_EQ(cassa->chiamate(), attese);
}

TEST_F(Comandi, IlVendutoArrivaNellaCartellaCorrenteComeSta) {
  cassa.venduto({{0, 150, 1, 0}, {4999, -5, 3, 7}});
  EXPECT_EQ(traAperturaEChiusura(ECR_FETCH_MODE, "venduto.bin"), kFatto);
  EXPECT_EQ(cartella.leggi(QStringLiteral("venduto.bin")), cassa.byte(QStringLiteral("venduto.bin")));
}

TEST_F(Comandi, AzzerareIlVendutoLasciaSoliZeri) {
  cassa.venduto({{7, 150, 1, 0}});
  EXPECT_EQ(traAperturaEChiusura(ECR_CLEAR_SALES_MODE), kFatto);
  EXPECT_EQ(cassa.byte(QStringLiteral("venduto.bin")), QByteArray(60000, '\0'));
}

TEST_F(Comandi, LaChiusuraFiscaleGiraSenzaTrasferimento) {
  EXPECT_EQ(comando(ECR_FISCAL_CLOSURE_MODE), kFatto);
  EXPECT_EQ(libreria.risposta.trimmed(), "OK");
}

TEST_F(Comandi, OgniModoRispondeNelSuoPosto) {
  cassa.venduto({});
  cartella.scrivi(QStringLiteral("iva.bin"), QByteArray(233, 'i'));
  EXPECT_EQ(comando(ECR_INFO_MODE), kFatto);
  EXPECT_EQ(comando(ECR_OPEN_MODE), kFatto);
  EXPECT_EQ(libreria.risposta.trimmed(), "OK");
  EXPECT_TRUE(cassa->trasferimentoAperto());
  EXPECT_EQ(comando(ECR_RESET_MODE), kFatto);
  EXPECT_EQ(comando(ECR_CLEAR_INVOICES_MODE), kFatto);
  EXPECT_EQ(comando(ECR_CLEAR_SALES_MODE), kFatto);
  EXPECT_EQ(libreria.risposta.trimmed(), "OK");
  EXPECT_EQ(comando(ECR_SEND_MODE, "iva.bin"), kFatto);
  EXPECT_EQ(comando(ECR_FETCH_MODE, "venduto.bin"), kFatto);
  EXPECT_EQ(libreria.risposta, QByteArray(256, ' ')) << "a file is no reply";
  EXPECT_EQ(comando(ECR_CLOSE_MODE), kFatto);
  EXPECT_FALSE(cassa->trasferimentoAperto());
  EXPECT_EQ(comando(ECR_FISCAL_CLOSURE_MODE), kFatto);
}

TEST_F(Comandi, UnModoFuoriElencoNonArrivaSullaLinea) {
  EXPECT_EQ(comando(9), kComandoSconosciuto);
  EXPECT_EQ(comando(-1), kComandoSconosciuto);
  EXPECT_EQ(comando(256), kComandoSconosciuto);
  EXPECT_TRUE(cassa->chiamate().empty());
}

TEST_F(Comandi, SenzaTrasferimentoApertoIDatiNonSiToccano) {
  cassa.venduto({{1, 1, 1, 1}});
  cartella.scrivi(QStringLiteral("iva.bin"), QByteArray(233, 'i'));
  for (const int modo : {ECR_RESET_MODE, ECR_CLEAR_INVOICES_MODE, ECR_CLEAR_SALES_MODE})
    EXPECT_EQ(comando(modo), kTrasferimentoChiuso) << modo;
  EXPECT_EQ(comando(ECR_SEND_MODE, "iva.bin"), kTrasferimentoChiuso);
  EXPECT_EQ(comando(ECR_FETCH_MODE, "venduto.bin"), kTrasferimentoChiuso);
  EXPECT_FALSE(cassa.esiste(QStringLiteral("iva.bin")));
  EXPECT_EQ(cassa.byte(QStringLiteral("venduto.bin")), archivioVenduto({{1, 1, 1, 1}}));
}

TEST_F(Comandi, UnSecondoTrasferimentoSiRifiutaFinoAllaChiusura) {
  EXPECT_EQ(comando(ECR_OPEN_MODE), kFatto);
  EXPECT_EQ(comando(ECR_OPEN_MODE), kTrasferimentoAperto);
  EXPECT_EQ(comando(ECR_CLOSE_MODE), kFatto);
  EXPECT_EQ(comando(ECR_OPEN_MODE), kFatto);
}

TEST_F(Comandi, ChiudereSenzaTrasferimentoEInnocuo) {
  EXPECT_EQ(comando(ECR_CLOSE_MODE), kFatto);
  EXPECT_EQ(comando(ECR_CLOSE_MODE), kFatto);
}

TEST_F(Comandi, LaChiusuraFiscaleSiRifiutaDentroUnTrasferimento) {
  EXPECT_EQ(comando(ECR_OPEN_MODE), kFatto);
  EXPECT_EQ(comando(ECR_FISCAL_CLOSURE_MODE), kTrasferimentoAperto);
}

TEST_F(Comandi, NegliStatiDiVenditaEDiLetturaSoloInfoEChiusuraDelTrasferimento) {
  EXPECT_EQ(comando(ECR_OPEN_MODE), kFatto);
  cartella.scrivi(QStringLiteral("iva.bin"), QByteArray(233, 'i'));
  for (const char stato : {'V', 'A', 'L'}) {
    cassa->stato(stato);
    for (int modo = ECR_OPEN_MODE; modo <= ECR_FETCH_MODE; ++modo) {
      if (modo == ECR_CLOSE_MODE) continue;
      EXPECT_EQ(comando(modo, modo >= ECR_SEND_MODE ? "iva.bin" : ""), kStatoErrato) << stato << modo;
    }
    EXPECT_EQ(comando(ECR_INFO_MODE), kFatto);
    EXPECT_EQ(libreria.risposta.split(',')[10], QByteArray("STATO=") + stato);
  }
  EXPECT_EQ(comando(ECR_CLOSE_MODE), kFatto);
  EXPECT_EQ(comando(ECR_FISCAL_CLOSURE_MODE), kStatoErrato);
  cassa->stato('V');
  EXPECT_EQ(comando(ECR_FISCAL_CLOSURE_MODE), kStatoErrato);
  cassa->stato('A');
  EXPECT_EQ(comando(ECR_FISCAL_CLOSURE_MODE), kFatto);
  cassa->stato('P');
  EXPECT_EQ(comando(ECR_OPEN_MODE), kFatto);
}

TEST(ComandiFiscali, LaChiusuraFiscaleAzzeraIDatiNonChiusi) {
  ecrsim::Opzioni opzioni;
  opzioni.fiscale = 12;
  Cassa cassa(opzioni);
  Libreria libreria;
  libreria.comando(cassa.indirizzo(), ECR_INFO_MODE);
  EXPECT_EQ(libreria.risposta.split(',')[16], "FISC=12");
  EXPECT_EQ(libreria.comando(cassa.indirizzo(), ECR_FISCAL_CLOSURE_MODE), kFatto);
  libreria.comando(cassa.indirizzo(), ECR_INFO_MODE);
  EXPECT_EQ(libreria.risposta.split(',')[16], "FISC=0");
}

TEST_F(Comandi, AzzerareLaProgrammazioneLasciaINoveFileDiZeriEGliAltriComeErano) {
  cassa.metti(QStringLiteral("clienti.bin"), QByteArray(44250, 'c'));
  cassa.metti(QStringLiteral("plu.bin"), QByteArray(240000, 'p'));
  EXPECT_EQ(traAperturaEChiusura(ECR_RESET_MODE), kFatto);
  EXPECT_EQ(cassa.byte(QStringLiteral("plu.bin")), QByteArray(240000, '\0'));
  EXPECT_EQ(cassa.byte(QStringLiteral("intestazione.bin")), QByteArray(305, '\0'));
  EXPECT_EQ(cassa.byte(QStringLiteral("logo.bin")), QByteArray(121, '\0'));
  EXPECT_EQ(cassa.byte(QStringLiteral("clienti.bin")), QByteArray(44250, 'c'));
  EXPECT_FALSE(cassa.esiste(QStringLiteral("venduto.bin")));
}

TEST_F(Comandi, AzzerareLeFattureLasciaMillePostiVuoti) {
  cassa.metti(QStringLiteral("fatture.bin"), QByteArray(77, 'f'));
  EXPECT_EQ(traAperturaEChiusura(ECR_CLEAR_INVOICES_MODE), kFatto);
  EXPECT_EQ(cassa.byte(QStringLiteral("fatture.bin")), QByteArray(77000, '\0'));
}

TEST_F(Comandi, UnVendutoAssenteEUnFileSconosciuto) {
  cartella.scrivi(QStringLiteral("venduto.bin"), "vecchio");
  EXPECT_EQ(traAperturaEChiusura(ECR_FETCH_MODE, "venduto.bin"), kFileSconosciuto);
  EXPECT_EQ(cartella.leggi(QStringLiteral("venduto.bin")), "vecchio");
}

TEST_F(Comandi, UnVendutoCortoOLungoSiConsegnaComeSta) {
  for (const int byte : {0, 1, 59999, 60001}) {
    cassa.metti(QStringLiteral("venduto.bin"), QByteArray(byte, 'v'));
    EXPECT_EQ(traAperturaEChiusura(ECR_FETCH_MODE, "venduto.bin"), kFatto);
    EXPECT_EQ(cartella.leggi(QStringLiteral("venduto.bin")), QByteArray(byte, 'v'));
    EXPECT_EQ(cassa->chiamate().rbegin()[1],
              (ecrsim::Chiamata{ECR_FETCH_MODE, "venduto.bin", static_cast<std::size_t>(byte)}));
  }
}

TEST_F(Comandi, INomiFuoriElencoELeMaiuscoleSonoSconosciuti) {
  cassa.metti(QStringLiteral("segreto.txt"), "x");
  EXPECT_EQ(comando(ECR_OPEN_MODE), kFatto);
  for (const char* nome : {"segreto.txt", "PLU.BIN", "plu.bi", "bitmap.bin"})
    EXPECT_EQ(comando(ECR_FETCH_MODE, nome), kFileSconosciuto) << nome;
  cartella.scrivi(QStringLiteral("venduto.bin"), QByteArray(60000, '\0'));
  EXPECT_EQ(comando(ECR_SEND_MODE, "venduto.bin"), kFileSconosciuto);
}

TEST_F(Comandi, UnNomeCheEsceDallaCartellaNonArrivaSullaLinea) {
  for (const QByteArray& nome :
       {QByteArray(), QByteArray("../plu.bin"), QByteArray("/etc/hosts"), QByteArray("a\\b"), QByteArray("."),
        QByteArray(".."), QByteArray(32, 'n')}) {
    EXPECT_EQ(comando(ECR_SEND_MODE, nome), kNomeFileErrato) << nome.toStdString();
    EXPECT_EQ(comando(ECR_FETCH_MODE, nome), kNomeFileErrato) << nome.toStdString();
  }
  EXPECT_TRUE(cassa->chiamate().empty());
}

TEST_F(Comandi, UnFileDaInviareAssenteOCartellaOTroppoGrandeNonArrivaSullaLinea) {
  EXPECT_EQ(comando(ECR_SEND_MODE, "iva.bin"), kFileLocaleAssente);
  QDir().mkdir(QStringLiteral("val.bin"));
  EXPECT_EQ(comando(ECR_SEND_MODE, "val.bin"), kFileLocaleAssente);
  cartella.scrivi(QStringLiteral("bitmap.bin"), QByteArray(4 * 1024 * 1024 + 1, 'b'));
  EXPECT_EQ(comando(ECR_SEND_MODE, "bitmap.bin"), kFileTroppoGrande);
  EXPECT_TRUE(cassa->chiamate().empty());
}

TEST_F(Comandi, UnFileRicevutoCheNonSiPuoScrivereLasciaStareCioCheCEra) {
  cassa.metti(QStringLiteral("iva.bin"), QByteArray(233, 'i'));
  QDir().mkdir(QStringLiteral("iva.bin"));
  EXPECT_EQ(traAperturaEChiusura(ECR_FETCH_MODE, "iva.bin"), kFileLocaleNonScritto);
  EXPECT_EQ(QDir(cartella.percorso()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
            QStringList{QStringLiteral("iva.bin")});
}

TEST_F(Comandi, UnFileRicevutoPrendeIPermessiDiOgniAltro) {
  cassa.venduto({});
  EXPECT_EQ(traAperturaEChiusura(ECR_FETCH_MODE, "venduto.bin"), kFatto);
  cartella.scrivi(QStringLiteral("altro"), "x");
  EXPECT_EQ(QFile::permissions(cartella.file(QStringLiteral("venduto.bin"))),
            QFile::permissions(cartella.file(QStringLiteral("altro"))));
}

TEST_F(Comandi, UnIndirizzoCheNonEUnIndirizzoNonArrivaSullaLinea) {
  for (const char* ip : {"", "999.1.1.1", "1.2.3", "localhost", "127.0.0.1 ", "::1"})
    EXPECT_EQ(libreria.comando(QString::fromLatin1(ip), ECR_INFO_MODE), kIndirizzoErrato) << ip;
  EXPECT_EQ(libreria.ecr_command(nullptr, nullptr, ECR_INFO_MODE, nullptr, 0), kIndirizzoErrato);
}

TEST_F(Comandi, ArgomentiNulliOVuotiNonSiToccano) {
  QByteArray ip = cassa.indirizzo().toLatin1();
  EXPECT_EQ(libreria.ecr_command(ip.data(), nullptr, ECR_INFO_MODE, nullptr, 256), kFatto);
  EXPECT_EQ(libreria.ecr_command(ip.data(), nullptr, ECR_FETCH_MODE, nullptr, 256), kNomeFileErrato);
  QByteArray buffer(4, '#');
  EXPECT_EQ(libreria.ecr_command(ip.data(), nullptr, ECR_INFO_MODE, buffer.data(), -1), kFatto);
  EXPECT_EQ(libreria.ecr_command(ip.data(), nullptr, ECR_INFO_MODE, buffer.data(), 0), kFatto);
  EXPECT_EQ(buffer, "####");
  EXPECT_EQ(libreria.ecr_command(ip.data(), nullptr, ECR_INFO_MODE, buffer.data(), 3), kFatto);
  EXPECT_EQ(buffer, "VER#");
}

TEST_F(Comandi, IndirizzoENomeTornanoComeErano) {
  cassa.venduto({});
  EXPECT_EQ(comando(ECR_OPEN_MODE), kFatto);
  QByteArray ip = cassa.indirizzo().toLatin1();
  QByteArray file = "venduto.bin";
  QByteArray buffer(256, ' ');
  EXPECT_EQ(libreria.ecr_command(ip.data(), file.data(), ECR_FETCH_MODE, buffer.data(), 256), kFatto);
  EXPECT_EQ(ip, cassa.indirizzo().toLatin1());
  EXPECT_EQ(file, "venduto.bin");
}

TEST_F(Comandi, UnaRispostaPiuLungaDelBufferSiFermaAlBuffer) {
  cassa->rispostaInfo(std::string(300, 'r'));
  EXPECT_EQ(comando(ECR_INFO_MODE), kFatto);
  EXPECT_EQ(libreria.risposta, QByteArray(256, 'r'));
}

TEST(ComandiInfo, LaRispostaNonPassaDuecentocinquantaseiCaratteri) {
  ecrsim::Opzioni opzioni;
  opzioni.modello = std::string(400, 'm');
  Cassa cassa(opzioni);
  Libreria libreria;
  QByteArray ip = cassa.indirizzo().toLatin1();
  QByteArray buffer(600, ' ');
  EXPECT_EQ(libreria.ecr_command(ip.data(), nullptr, ECR_INFO_MODE, buffer.data(), 600), kFatto);
  EXPECT_EQ(buffer.trimmed().size(), 256);
}

TEST(ComandiInfo, LeOpzioniDiconoLaCassa) {
  ecrsim::Opzioni opzioni;
  opzioni.bitmap = "S";
  opzioni.versione = "2.10";
  opzioni.mmc = "8";
  opzioni.modello = "RIGEL";
  opzioni.stato = 'P';
  Cassa cassa(opzioni);
  Libreria libreria;
  libreria.comando(cassa.indirizzo(), ECR_INFO_MODE);
  EXPECT_TRUE(libreria.risposta.startsWith("VER=2.10,BMP=S,MMC=8,"));
  EXPECT_TRUE(libreria.risposta.contains(",STATO=P,MOD=RIGEL,"));
}

struct Taglia {
  const char* nome;
  int piccola;
  int grande;
};

struct LunghezzeAccettate : testing::TestWithParam<Taglia> {
  /// Code of sending so many bytes to a till of a size class.
  int invia(const std::string& bitmap, int byte) {
    ecrsim::Opzioni opzioni;
    opzioni.bitmap = bitmap;
    Cassa cassa(opzioni);
    const QString nome = QString::fromLatin1(GetParam().nome);
    cartella.scrivi(nome, QByteArray(byte, 'x'));
    libreria.comando(cassa.indirizzo(), ECR_OPEN_MODE);
    const int codice = libreria.comando(cassa.indirizzo(), ECR_SEND_MODE, GetParam().nome);
    EXPECT_EQ(cassa.esiste(nome), codice == kFatto);
    return codice;
  }

  CartellaTemporanea cartella;
  Libreria libreria;
};

TEST_P(LunghezzeAccettate, SoloQuellaDellaClasse) {
  const auto prova = [&](const std::string& bitmap, int byte) {
    EXPECT_EQ(invia(bitmap, byte), kFatto) << bitmap;
    EXPECT_EQ(invia(bitmap, byte - 1), kLunghezzaErrata) << bitmap;
    EXPECT_EQ(invia(bitmap, byte + 1), kLunghezzaErrata) << bitmap;
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
  CartellaTemporanea cartella;
  ecrsim::Opzioni opzioni;
  opzioni.bitmap = "S";
  Cassa cassa(opzioni);
  Libreria libreria;
  libreria.comando(cassa.indirizzo(), ECR_OPEN_MODE);
  for (const auto& [nome, piccola, grande] :
       {Taglia{"intestazione.bin", 209, 305}, Taglia{"cortesia.bin", 55, 79}}) {
    const QByteArray nuovo(piccola, 'n');
    cartella.scrivi(QString::fromLatin1(nome), nuovo + QByteArray(grande - piccola, 'v'));
    EXPECT_EQ(libreria.comando(cassa.indirizzo(), ECR_SEND_MODE, nome), kFatto) << nome;
    EXPECT_EQ(cassa.byte(QString::fromLatin1(nome)), nuovo);
  }
}

TEST_F(Comandi, LaGraficaSiAccettaDiOgniLunghezzaMaNonVuota) {
  EXPECT_EQ(comando(ECR_OPEN_MODE), kFatto);
  for (const int byte : {1, 100000}) {
    cartella.scrivi(QStringLiteral("bitmap.bin"), QByteArray(byte, 'b'));
    EXPECT_EQ(comando(ECR_SEND_MODE, "bitmap.bin"), kFatto) << byte;
  }
  cartella.scrivi(QStringLiteral("bitmap.bin"), "");
  EXPECT_EQ(comando(ECR_SEND_MODE, "bitmap.bin"), kLunghezzaErrata);
  EXPECT_EQ(cassa.byte(QStringLiteral("bitmap.bin")).size(), 100000);
}

TEST_F(Comandi, UnaMemoriaNonScrivibileDaUnCodiceSuo) {
  QDir(cassa.file(QString())).mkdir(QStringLiteral("venduto.bin"));
  EXPECT_EQ(traAperturaEChiusura(ECR_CLEAR_SALES_MODE), kMemoriaCassa);
  EXPECT_EQ(traAperturaEChiusura(ECR_FETCH_MODE, "venduto.bin"), kMemoriaCassa);
}

TEST_F(Comandi, DimenticateLeChiamateSiRicominciaDaCapo) {
  comando(ECR_INFO_MODE);
  EXPECT_EQ(cassa->chiamate().size(), 1U);
  cassa->dimenticaChiamate();
  EXPECT_TRUE(cassa->chiamate().empty());
}

TEST(Messaggi, OgniCodiceHaIlSuoTestoItalianoDiAlPiuSettantanoveCaratteri) {
  const Libreria libreria;
  QList<QByteArray> visti;
  for (int codice = kFatto; codice <= kRisorseEsaurite; ++codice) {
    const QByteArray testo = libreria.messaggio(codice);
    EXPECT_FALSE(testo.isEmpty()) << codice;
    EXPECT_LE(testo.size(), 79) << codice;
    EXPECT_FALSE(visti.contains(testo)) << codice;
    EXPECT_EQ(libreria.messaggio(-codice), testo);
    visti.append(testo);
  }
  EXPECT_EQ(libreria.messaggio(kNonRaggiungibile), "La cassa non \xE8 raggiungibile");
  for (const int ignoto : {kRisorseEsaurite + 1, 32767, -32768, -1000})
    EXPECT_EQ(libreria.messaggio(ignoto), "Errore sconosciuto");
  libreria.ecr_get_err(1, nullptr);
}
