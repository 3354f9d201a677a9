#include "ecrlink/file_channel.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <csignal>
#include <functional>

#include "link_scene.h"

using namespace ecrlink;

namespace {

using Byte = std::vector<std::uint8_t>;
const QString kIva = QStringLiteral("iva.bin");
const QString kPlu = QStringLiteral("plu.bin");

/// An image as the transfers make it: the record's bytes and one zero.
Byte immagine(std::size_t record, std::uint8_t valore = 0x42) {
  Byte byte(record, valore);
  byte.push_back(0);
  return byte;
}

QByteArray comeFile(const Byte& byte) {
  return {reinterpret_cast<const char*>(byte.data()), static_cast<qsizetype>(byte.size())};
}

Box erroreDiCreazione(const QString& numeroEDescrizione) {
  return semplice(QStringLiteral("Error ") + numeroEDescrizione +
                  QStringLiteral(" in procedure CreaFileProgrammazione of Modulo Common_PRG"));
}

Box erroreDiLettura(const QString& numeroEDescrizione) {
  return semplice(QStringLiteral("Error ") + numeroEDescrizione +
                  QStringLiteral(" in procedure ReadByteFromFile of Modulo CommonForKora"));
}

int numeroDi(const std::function<void()>& passo) {
  try {
    passo();
    return 0;
  } catch (const Errore& errore) {
    return errore.numero;
  }
}

/// While it lives no file of the process grows beyond so many bytes, as on a full disk.
class DiscoPieno {
 public:
  explicit DiscoPieno(rlim_t byte) : segnale_(std::signal(SIGXFSZ, SIG_IGN)) {
    EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &prima_), 0);
    const rlimit ora{byte, prima_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &ora), 0);
  }
  ~DiscoPieno() {
    setrlimit(RLIMIT_FSIZE, &prima_);
    std::signal(SIGXFSZ, segnale_);
  }

 private:
  rlimit prima_{};
  void (*segnale_)(int);
};

/// While it lives the current folder takes no new file from the process, whoever runs it.
class CartellaSolaLettura {
 public:
  CartellaSolaLettura() {
    EXPECT_EQ(chmod(".", 0555), 0);
    if (geteuid() == 0) superutente_ = seteuid(kNessuno) == 0;
  }
  ~CartellaSolaLettura() {
    if (superutente_) {
      EXPECT_EQ(seteuid(0), 0);
    }
    EXPECT_EQ(chmod(".", 0700), 0);
  }

 private:
  static constexpr uid_t kNessuno = 65534;
  bool superutente_ = false;
};

struct CanaleFile : testing::Test {
  Scena scena;
  TestTill cassa;
  void SetUp() override { commonForKora().IP_ECR = cassa.address(); }
};

}  // namespace

TEST_F(CanaleFile, LImmagineArrivaSullaCassaConIlSuoByteInPiu) {
  EXPECT_EQ(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 0);
  EXPECT_EQ(scena.cartella.read(kIva), comeFile(immagine(232)));
  EXPECT_EQ(cassa.byte(kIva), comeFile(immagine(232)));
  EXPECT_EQ(chiamateDi(cassa),
            (QStringList{QStringLiteral("1:"), QStringLiteral("6:iva.bin"), QStringLiteral("2:")}));
}

TEST_F(CanaleFile, IlPLUArrivaDiDuecentoquarantamilaByteEsatti) {
  EXPECT_EQ(SendPRGTo_ECR(immagine(240000), kPlu, scena.contesto), 0);
  EXPECT_EQ(scena.cartella.read(kPlu), QByteArray(240000, 0x42));
  EXPECT_EQ(cassa.byte(kPlu), QByteArray(240000, 0x42));
}

TEST_F(CanaleFile, UnVecchioPLUDi240001ByteTornaDi240000) {
  scena.cartella.write(kPlu, QByteArray(240001, 'v'));
  EXPECT_EQ(SendPRGTo_ECR(immagine(240000), kPlu, scena.contesto), 0);
  EXPECT_EQ(scena.cartella.read(kPlu), QByteArray(240000, 0x42));
  EXPECT_EQ(cassa.byte(kPlu).size(), 240000);
}

TEST_F(CanaleFile, DiUnVecchioFilePiuLungoRestaLaCoda) {
  scena.cartella.write(kIva, QByteArray(500, 'v'));
  EXPECT_EQ(CreaFileProgrammazione(kIva, immagine(232), scena.contesto), 0);
  EXPECT_EQ(scena.cartella.read(kIva), comeFile(immagine(232)) + QByteArray(500 - 233, 'v'));
}

TEST_F(CanaleFile, IlNomeInMaiuscoloNonSiTaglia) {
  EXPECT_EQ(CreaFileProgrammazione(QStringLiteral("PLU.BIN"), immagine(240000), scena.contesto), 0);
  EXPECT_EQ(scena.cartella.read(QStringLiteral("PLU.BIN")).size(), 240001);
}

TEST_F(CanaleFile, UnPercorsoCheFinisceInPluBinNonSiTaglia) {
  EXPECT_EQ(CreaFileProgrammazione(QStringLiteral("./plu.bin"), immagine(480), scena.contesto), 0);
  EXPECT_EQ(scena.cartella.read(kPlu).size(), 481);
}

TEST_F(CanaleFile, SenzaIndirizzoFallisceConIlTestoDellaLibreria) {
  commonForKora().IP_ECR.clear();
  EXPECT_EQ(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 1);
  EXPECT_EQ(scena.riquadri(),
            (std::vector{erroreDiComunicazione(QStringLiteral("Indirizzo IP della cassa mancante o errato")),
                         semplice(QStringLiteral("Fallita operazione trasferimento iva.bin"))}));
}

TEST_F(CanaleFile, UnInvioRifiutatoLasciaIlFileEIlTrasferimentoAperto) {
  cassa->faults({{.mode = 6, .what = ecrsim::FaultKind::Code, .code = 16}});
  EXPECT_EQ(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 1);
  EXPECT_EQ(scena.riquadri(),
            (std::vector{erroreDiComunicazione(QStringLiteral("Errore nella memoria della cassa")),
                         semplice(QStringLiteral("Fallita operazione trasferimento iva.bin"))}));
  EXPECT_EQ(scena.cartella.read(kIva), comeFile(immagine(232)));
  EXPECT_TRUE(cassa->transferOpen());
}

TEST_F(CanaleFile, UnErroreImprevistoNellInvioSiDice) {
  scena.utente.onBox = [](const Box& riquadro) {
    if (riquadro.text.startsWith(QStringLiteral("Fallita")))
      throw Errore{7, QStringLiteral("Memoria esaurita")};
  };
  commonForKora().IP_ECR.clear();
  EXPECT_NE(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 0);
  EXPECT_EQ(scena.riquadri().back(), semplice(QStringLiteral("Errore SendPRGTo_ECR 7 - Memoria esaurita")));
}

TEST_F(CanaleFile, SuDiscoPienoSiDiceENonSiMandaNulla) {
  {
    const DiscoPieno pieno(100000);
    EXPECT_NE(SendPRGTo_ECR(immagine(240000), kPlu, scena.contesto), 0);
  }
  EXPECT_EQ(scena.riquadri(), std::vector{erroreDiCreazione(QStringLiteral("61 (Disco pieno)"))});
  EXPECT_EQ(chiamateDi(cassa), QStringList());
}

TEST_F(CanaleFile, SuUnDispositivoPienoSiDiceENonSiMandaNulla) {
  ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"), kIva));
  EXPECT_NE(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 0);
  EXPECT_EQ(scena.riquadri(), std::vector{erroreDiCreazione(QStringLiteral("61 (Disco pieno)"))});
  EXPECT_EQ(chiamateDi(cassa), QStringList());
}

TEST_F(CanaleFile, InUnaCartellaDiSolaLetturaSiDiceENonSiMandaNulla) {
  {
    const CartellaSolaLettura chiusa;
    EXPECT_NE(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 0);
  }
  EXPECT_EQ(scena.riquadri(),
            std::vector{erroreDiCreazione(QStringLiteral("75 (Errore nell'accesso al percorso/file)"))});
  EXPECT_EQ(chiamateDi(cassa), QStringList());
}

TEST_F(CanaleFile, InUnaCartellaCheNonCESiDice) {
  EXPECT_NE(CreaFileProgrammazione(QStringLiteral("assente/iva.bin"), immagine(232), scena.contesto), 0);
  EXPECT_EQ(scena.riquadri(), std::vector{erroreDiCreazione(QStringLiteral("76 (Percorso non trovato)"))});
}

TEST_F(CanaleFile, UnPLUCheNonSiPuoTagliareNonParte) {
  ASSERT_TRUE(QFile::link(QStringLiteral("/dev/null"), kPlu));
  EXPECT_NE(SendPRGTo_ECR(immagine(240000), kPlu, scena.contesto), 0);
  EXPECT_EQ(scena.riquadri(),
            std::vector{erroreDiCreazione(QStringLiteral("5 (Chiamata di routine o argomento non validi)"))});
  EXPECT_EQ(chiamateDi(cassa), QStringList());
}

TEST_F(CanaleFile, TagliareFunzionaInEntrambiIVersi) {
  scena.cartella.write(kIva, "abcdef");
  TagliaFile(kIva, 3);
  EXPECT_EQ(scena.cartella.read(kIva), "abc");
  TagliaFile(kIva, 5);
  EXPECT_EQ(scena.cartella.read(kIva), QByteArray("abc\0\0", 5));
}

TEST_F(CanaleFile, TagliareUnFileAssenteEErrore53ENonLoCrea) {
  EXPECT_EQ(numeroDi([] { TagliaFile(kIva, 3); }), errors::kFileMissing);
  EXPECT_FALSE(QFile::exists(kIva));
}

TEST_F(CanaleFile, TagliareDoveNonSiPuoEErrore5) {
  scena.cartella.write(kIva, "abcdef");
  EXPECT_EQ(numeroDi([] { TagliaFile(kIva, -1); }), errors::kBadArgument);
  {
    const DiscoPieno pieno(100);
    EXPECT_EQ(numeroDi([] { TagliaFile(kIva, 1000); }), errors::kBadArgument);
  }
  EXPECT_EQ(scena.cartella.read(kIva), "abcdef");
}

TEST_F(CanaleFile, LeggereRiempieLImmagineDallInizio) {
  scena.cartella.write(kIva, QByteArray(300, 'n'));
  Byte letta(232, 0xA5);
  EXPECT_EQ(ReadByteFromFile(letta, kIva, scena.contesto), 0);
  EXPECT_EQ(letta, Byte(232, 'n'));
}

TEST_F(CanaleFile, UnFilePiuCortoLasciaIlRestoComEra) {
  scena.cartella.write(kIva, "abc");
  Byte letta(6, 0xA5);
  EXPECT_EQ(ReadByteFromFile(letta, kIva, scena.contesto), 0);
  EXPECT_EQ(letta, (Byte{'a', 'b', 'c', 0xA5, 0xA5, 0xA5}));
}

TEST_F(CanaleFile, LeggereUnFileVuotoNonCambiaNulla) {
  scena.cartella.write(kIva, "");
  Byte letta(6, 0xA5);
  EXPECT_EQ(ReadByteFromFile(letta, kIva, scena.contesto), 0);
  EXPECT_EQ(letta, Byte(6, 0xA5));
}

TEST_F(CanaleFile, LeggereUnFileAssenteSiDice) {
  Byte letta(6, 0xA5);
  EXPECT_NE(ReadByteFromFile(letta, kIva, scena.contesto), 0);
  EXPECT_EQ(scena.riquadri(), std::vector{erroreDiLettura(QStringLiteral("53 (File non trovato)"))});
  EXPECT_EQ(letta, Byte(6, 0xA5));
}

TEST_F(CanaleFile, LeggereUnaCartellaSiDice) {
  ASSERT_EQ(mkdir("iva.bin", 0700), 0);
  Byte letta(6, 0xA5);
  EXPECT_NE(ReadByteFromFile(letta, kIva, scena.contesto), 0);
  EXPECT_EQ(scena.riquadri(),
            std::vector{erroreDiLettura(QStringLiteral("75 (Errore nell'accesso al percorso/file)"))});
}

TEST_F(CanaleFile, RicevereELeggereRidannoCioCheLaCassaHa) {
  cassa.put(kIva, QByteArray(232, 'c'));
  EXPECT_EQ(avviaECR(kIva, Modo::Ricevi, scena.contesto), 0);
  Byte letta(232);
  EXPECT_EQ(ReadByteFromFile(letta, kIva, scena.contesto), 0);
  EXPECT_EQ(letta, Byte(232, 'c'));
}

TEST_F(CanaleFile, IlProssimoInvioRiscriveIlFileDiPrima) {
  EXPECT_EQ(SendPRGTo_ECR(immagine(232, 1), kIva, scena.contesto), 0);
  EXPECT_EQ(SendPRGTo_ECR(immagine(232, 2), kIva, scena.contesto), 0);
  EXPECT_EQ(cassa.byte(kIva), comeFile(immagine(232, 2)));
}
