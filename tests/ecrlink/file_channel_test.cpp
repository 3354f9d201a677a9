#include "ecrlink/file_channel.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSysInfo>
#include <functional>

#include "ecrlink/link_scene.h"
#include "ecrlink/transfer_lock.h"
#include "sostegno/troubles.h"

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
  return plainBox(QStringLiteral("Error ") + numeroEDescrizione +
                  QStringLiteral(" in procedure CreaFileProgrammazione of Modulo Common_PRG"));
}

Box erroreDiLettura(const QString& numeroEDescrizione) {
  return plainBox(QStringLiteral("Error ") + numeroEDescrizione +
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

/// While it lives the current folder takes no new file from this thread, whoever runs it.
class CartellaSolaLettura {
 public:
  CartellaSolaLettura() {
    EXPECT_EQ(chmod(".", 0555), 0);
    altro_ = std::make_unique<OtherUser>();
  }
  ~CartellaSolaLettura() {
    altro_.reset();
    EXPECT_EQ(chmod(".", 0700), 0);
  }

 private:
  std::unique_ptr<OtherUser> altro_;
};

QStringList fileNellaCartella() {
  return QDir::current().entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

struct CanaleFile : testing::Test {
  ProgramFixture scena;
  TestTill cassa;
  void SetUp() override { commonForKora().IP_ECR = cassa.address(); }
};

}  // namespace

TEST_F(CanaleFile, LImmagineArrivaSullaCassaConIlSuoByteInPiu) {
  EXPECT_EQ(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 0);
  EXPECT_EQ(scena.folder.read(kIva), comeFile(immagine(232)));
  EXPECT_EQ(cassa.byte(kIva), comeFile(immagine(232)));
  EXPECT_EQ(callsOf(cassa),
            (QStringList{QStringLiteral("1:"), QStringLiteral("6:iva.bin"), QStringLiteral("2:")}));
}

TEST_F(CanaleFile, IlPLUArrivaDiDuecentoquarantamilaByteEsatti) {
  EXPECT_EQ(SendPRGTo_ECR(immagine(240000), kPlu, scena.contesto), 0);
  EXPECT_EQ(scena.folder.read(kPlu), QByteArray(240000, 0x42));
  EXPECT_EQ(cassa.byte(kPlu), QByteArray(240000, 0x42));
}

TEST_F(CanaleFile, UnVecchioPLUDi240001ByteTornaDi240000) {
  scena.folder.write(kPlu, QByteArray(240001, 'v'));
  EXPECT_EQ(SendPRGTo_ECR(immagine(240000), kPlu, scena.contesto), 0);
  EXPECT_EQ(scena.folder.read(kPlu), QByteArray(240000, 0x42));
  EXPECT_EQ(cassa.byte(kPlu).size(), 240000);
}

TEST_F(CanaleFile, DiUnVecchioPLUPiuLungoNonRestaLaCoda) {
  scena.folder.write(kPlu, QByteArray(300000, 'v'));
  EXPECT_EQ(SendPRGTo_ECR(immagine(240000), kPlu, scena.contesto), 0);
  EXPECT_EQ(scena.folder.read(kPlu), QByteArray(240000, 0x42));
  EXPECT_EQ(cassa.byte(kPlu), QByteArray(240000, 0x42));
}

TEST_F(CanaleFile, DiUnVecchioFilePiuLungoRestaLaCoda) {
  scena.folder.write(kIva, QByteArray(500, 'v'));
  EXPECT_EQ(CreaFileProgrammazione(kIva, immagine(232), scena.contesto), 0);
  EXPECT_EQ(scena.folder.read(kIva), comeFile(immagine(232)) + QByteArray(500 - 233, 'v'));
}

TEST_F(CanaleFile, IlNomeInMaiuscoloNonSiTaglia) {
  EXPECT_EQ(CreaFileProgrammazione(QStringLiteral("PLU.BIN"), immagine(240000), scena.contesto), 0);
  EXPECT_EQ(scena.folder.read(QStringLiteral("PLU.BIN")).size(), 240001);
}

TEST_F(CanaleFile, UnPercorsoCheFinisceInPluBinNonSiTaglia) {
  EXPECT_EQ(CreaFileProgrammazione(QStringLiteral("./plu.bin"), immagine(480), scena.contesto), 0);
  EXPECT_EQ(scena.folder.read(kPlu).size(), 481);
}

TEST_F(CanaleFile, SenzaIndirizzoFallisceConIlTestoDellaLibreria) {
  commonForKora().IP_ECR.clear();
  EXPECT_EQ(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 1);
  EXPECT_EQ(scena.takeBoxes(),
            (std::vector{communicationError(QStringLiteral("Indirizzo IP della cassa mancante o errato")),
                         plainBox(QStringLiteral("Fallita operazione trasferimento iva.bin"))}));
}

TEST_F(CanaleFile, UnInvioRifiutatoLasciaIlFileEIlTrasferimentoAperto) {
  cassa->faults({{.mode = 6, .what = ecrsim::FaultKind::Code, .code = 16}});
  EXPECT_EQ(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 1);
  EXPECT_EQ(scena.takeBoxes(),
            (std::vector{communicationError(QStringLiteral("Errore nella memoria della cassa")),
                         plainBox(QStringLiteral("Fallita operazione trasferimento iva.bin"))}));
  EXPECT_EQ(scena.folder.read(kIva), comeFile(immagine(232)));
  EXPECT_TRUE(cassa->transferOpen());
}

TEST_F(CanaleFile, UnErroreImprevistoNellInvioSiDice) {
  scena.user.onBox = [](const Box& riquadro) {
    if (riquadro.text.startsWith(QStringLiteral("Fallita")))
      throw Errore{7, QStringLiteral("Memoria esaurita")};
  };
  commonForKora().IP_ECR.clear();
  EXPECT_NE(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 0);
  EXPECT_EQ(scena.takeBoxes().back(), plainBox(QStringLiteral("Errore SendPRGTo_ECR 7 - Memoria esaurita")));
}

TEST_F(CanaleFile, SuDiscoPienoSiDiceNonSiMandaNullaERestaIlFileDiPrima) {
  scena.folder.write(kPlu, QByteArray(240000, 'v'));
  {
    const FullDisk pieno(100000);
    EXPECT_NE(SendPRGTo_ECR(immagine(240000), kPlu, scena.contesto), 0);
  }
  EXPECT_EQ(scena.takeBoxes(), std::vector{erroreDiCreazione(QStringLiteral("61 (Disco pieno: plu.bin)"))});
  EXPECT_EQ(callsOf(cassa), QStringList());
  EXPECT_EQ(scena.folder.read(kPlu), QByteArray(240000, 'v'));
  EXPECT_EQ(fileNellaCartella(), QStringList{kPlu});
}

TEST_F(CanaleFile, SuUnDiscoSenzaPostoPerIlBloccoSiDiceCheIlFileNonSiCrea) {
  {
    const FullDisk pieno(0);
    EXPECT_NE(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 0);
  }
  EXPECT_EQ(scena.takeBoxes(), std::vector{erroreDiCreazione(QStringLiteral("61 (Disco pieno: iva.bin)"))});
  EXPECT_EQ(callsOf(cassa), QStringList());
  EXPECT_EQ(fileNellaCartella(), QStringList());
}

TEST_F(CanaleFile, SenzaIlBloccoNonSiMandaNullaAncheSeIlFileCiSta) {
  {
    const FullDisk quasiPieno(10);
    EXPECT_NE(SendPRGTo_ECR(immagine(2), kIva, scena.contesto), 0);
  }
  EXPECT_EQ(scena.takeBoxes(),
            std::vector{plainBox(
                QStringLiteral("Errore SendPRGTo_ECR 75 - Errore di accesso al percorso o al file: ") +
                QDir::currentPath())});
  EXPECT_EQ(callsOf(cassa), QStringList());
}

TEST_F(CanaleFile, UnCollegamentoAlPostoDelFileSiSostituisceELaSuaMetaResta) {
  scena.folder.write(QStringLiteral("lettera.odt"), "cara zia");
  ASSERT_TRUE(QFile::link(QStringLiteral("lettera.odt"), kPlu));
  EXPECT_EQ(SendPRGTo_ECR(immagine(240000), kPlu, scena.contesto), 0);
  EXPECT_EQ(scena.folder.read(QStringLiteral("lettera.odt")), "cara zia");
  EXPECT_FALSE(QFileInfo(kPlu).isSymLink());
  EXPECT_EQ(cassa.byte(kPlu), QByteArray(240000, 0x42));
}

TEST_F(CanaleFile, UnCollegamentoAUnDispositivoSiSostituisce) {
  ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"), kIva));
  EXPECT_EQ(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 0);
  EXPECT_EQ(cassa.byte(kIva), comeFile(immagine(232)));
}

TEST_F(CanaleFile, UnCollegamentoAlPostoDelFileRicevutoSiSostituisce) {
  scena.folder.write(QStringLiteral("lettera.odt"), "cara zia");
  ASSERT_TRUE(QFile::link(QStringLiteral("lettera.odt"), kIva));
  cassa.put(kIva, QByteArray(232, 'c'));
  Byte letta(232);
  EXPECT_EQ(RiceviFile(letta, kIva, Precedente::Tenuto, scena.contesto), 232);
  EXPECT_EQ(letta, Byte(232, 'c'));
  EXPECT_EQ(scena.folder.read(QStringLiteral("lettera.odt")), "cara zia");
}

TEST_F(CanaleFile, CioCheUnProgrammaUccisoHaLasciatoSparisceAlProssimoInvio) {
  const QString morto = QString::number(endedProcess());
  const QString vivo = QString::number(QCoreApplication::applicationPid());
  scena.folder.write(QStringLiteral(".iva.bin.gestionale-%1-abcdef").arg(morto), "mezzo");
  scena.folder.write(QStringLiteral(".iva.bin.gestionale-%1-abcdef").arg(vivo), "mezzo");
  scena.folder.write(QStringLiteral(".altro.bin.gestionale-%1-abcdef").arg(morto), "mezzo");
  EXPECT_EQ(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 0);
  EXPECT_EQ(fileNellaCartella(),
            (QStringList{QStringLiteral(".altro.bin.gestionale-%1-abcdef").arg(morto),
                         QStringLiteral(".iva.bin.gestionale-%1-abcdef").arg(vivo), kIva}));
}

TEST_F(CanaleFile, InUnaCartellaDiSolaLetturaSiDiceENonSiMandaNulla) {
  {
    const CartellaSolaLettura chiusa;
    EXPECT_NE(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 0);
  }
  EXPECT_EQ(scena.takeBoxes(), std::vector{erroreDiCreazione(
                                   QStringLiteral("75 (Errore di accesso al percorso o al file: iva.bin)"))});
  EXPECT_EQ(callsOf(cassa), QStringList());
}

TEST_F(CanaleFile, InUnaCartellaCheNonCESiDice) {
  EXPECT_NE(CreaFileProgrammazione(QStringLiteral("assente/iva.bin"), immagine(232), scena.contesto), 0);
  EXPECT_EQ(scena.takeBoxes(),
            std::vector{erroreDiCreazione(QStringLiteral("76 (Percorso non trovato: assente/iva.bin)"))});
}

TEST_F(CanaleFile, UnFileDiSolaLetturaRestaENonSiMandaNulla) {
  scena.folder.write(kIva, "di prima");
  ASSERT_EQ(chmod("iva.bin", 0444), 0);
  ASSERT_EQ(chmod(".", 0777), 0);
  {
    const OtherUser altro;
    EXPECT_NE(CreaFileProgrammazione(kIva, immagine(232), scena.contesto), 0);
  }
  EXPECT_EQ(scena.takeBoxes(), std::vector{erroreDiCreazione(
                                   QStringLiteral("75 (Errore di accesso al percorso o al file: iva.bin)"))});
  EXPECT_EQ(scena.folder.read(kIva), "di prima");
}

TEST_F(CanaleFile, UnPLUCheNonSiPuoTagliareNonParte) {
  EXPECT_NE(SendPRGTo_ECR({}, kPlu, scena.contesto), 0);
  EXPECT_EQ(scena.takeBoxes(),
            std::vector{erroreDiCreazione(QStringLiteral("5 (Chiamata di routine o argomento non validi)"))});
  EXPECT_EQ(callsOf(cassa), QStringList());
  EXPECT_FALSE(QFile::exists(kPlu));
}

TEST_F(CanaleFile, MentreUnAltroProgrammaScambiaSiDiceENonSiToccaNulla) {
  const Box occupata =
      plainBox(QStringLiteral("Errore SendPRGTo_ECR 70 - Un altro programma sta scambiando dati "
                              "con una cassa nella cartella ") +
               QDir::currentPath() + QStringLiteral(": attendere che abbia finito e riprovare."));
  scena.folder.write(kIva, "di prima");
  {
    const ScambioEsclusivo altro;
    EXPECT_NE(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 0);
    EXPECT_EQ(scena.takeBoxes(), std::vector{occupata});
    Byte letta(6, 0xA5);
    EXPECT_EQ(RiceviFile(letta, kIva, Precedente::Rimosso, scena.contesto), std::nullopt);
    EXPECT_EQ(scena.takeBoxes().size(), 1U);
    EXPECT_EQ(letta, Byte(6, 0xA5));
  }
  EXPECT_EQ(scena.folder.read(kIva), "di prima");
  EXPECT_EQ(callsOf(cassa), QStringList());
  EXPECT_EQ(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 0);
}

TEST_F(CanaleFile, IlBloccoDiUnProgrammaFinitoNonFermaNessuno) {
  scena.folder.write(QStringLiteral(".scambio-ecr.lock"),
                     QStringLiteral("%1\ngestionale\n%2\n%3\n%4\n")
                         .arg(QString::number(endedProcess()), QSysInfo::machineHostName(),
                              QString::fromLatin1(QSysInfo::machineUniqueId()),
                              QString::fromLatin1(QSysInfo::bootUniqueId()))
                         .toUtf8());
  EXPECT_EQ(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 0);
}

TEST_F(CanaleFile, DuranteLoScambioLaCartellaEBloccataEAlRiquadroDopoNo) {
  std::vector<bool> bloccata;
  scena.user.onBox = [&](const Box&) {
    try {
      const ScambioEsclusivo altro;
      bloccata.push_back(false);
    } catch (const Errore& errore) {
      bloccata.push_back(errore.numero == errors::kAccessDenied);
    }
  };
  cassa->faults({{.mode = 6, .what = ecrsim::FaultKind::Code, .code = 16}});
  EXPECT_EQ(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 1);
  EXPECT_EQ(scena.takeBoxes().size(), 2U);
  // At the library's box, and no more at the one that tells how the sending ended.
  EXPECT_EQ(bloccata, (std::vector{true, false}));
  EXPECT_NO_THROW(ScambioEsclusivo());
}

TEST_F(CanaleFile, UnEccezioneDelLinguaggioNellInvioFinisceComeOgniErrore) {
  scena.user.onBox = [](const Box& riquadro) {
    if (riquadro.text.startsWith(QStringLiteral("Fallita"))) throw std::length_error("troppo");
  };
  commonForKora().IP_ECR.clear();
  EXPECT_NE(SendPRGTo_ECR(immagine(232), kIva, scena.contesto), 0);
  EXPECT_EQ(scena.takeBoxes().back(), plainBox(QStringLiteral("Errore SendPRGTo_ECR 51 - troppo")));
}

TEST_F(CanaleFile, TagliareFunzionaInEntrambiIVersi) {
  scena.folder.write(kIva, "abcdef");
  TagliaFile(kIva, 3);
  EXPECT_EQ(scena.folder.read(kIva), "abc");
  TagliaFile(kIva, 5);
  EXPECT_EQ(scena.folder.read(kIva), QByteArray("abc\0\0", 5));
}

TEST_F(CanaleFile, TagliareUnFileAssenteEErrore53ENonLoCrea) {
  EXPECT_EQ(numeroDi([] { TagliaFile(kIva, 3); }), errors::kFileMissing);
  EXPECT_FALSE(QFile::exists(kIva));
}

TEST_F(CanaleFile, TagliareDoveNonSiPuoEErrore5) {
  scena.folder.write(kIva, "abcdef");
  EXPECT_EQ(numeroDi([] { TagliaFile(kIva, -1); }), errors::kBadArgument);
  {
    const FullDisk pieno(100);
    EXPECT_EQ(numeroDi([] { TagliaFile(kIva, 1000); }), errors::kBadArgument);
  }
  EXPECT_EQ(scena.folder.read(kIva), "abcdef");
}

TEST_F(CanaleFile, LeggereRiempieLImmagineDallInizio) {
  scena.folder.write(kIva, QByteArray(300, 'n'));
  Byte letta(232, 0xA5);
  EXPECT_EQ(ReadByteFromFile(letta, kIva, scena.contesto), 0);
  EXPECT_EQ(letta, Byte(232, 'n'));
}

TEST_F(CanaleFile, UnFilePiuCortoLasciaIlRestoComEra) {
  scena.folder.write(kIva, "abc");
  Byte letta(6, 0xA5);
  EXPECT_EQ(ReadByteFromFile(letta, kIva, scena.contesto), 0);
  EXPECT_EQ(letta, (Byte{'a', 'b', 'c', 0xA5, 0xA5, 0xA5}));
}

TEST_F(CanaleFile, LeggereUnFileVuotoNonCambiaNulla) {
  scena.folder.write(kIva, "");
  Byte letta(6, 0xA5);
  EXPECT_EQ(ReadByteFromFile(letta, kIva, scena.contesto), 0);
  EXPECT_EQ(letta, Byte(6, 0xA5));
}

TEST_F(CanaleFile, LeggereUnFileAssenteSiDice) {
  Byte letta(6, 0xA5);
  EXPECT_NE(ReadByteFromFile(letta, kIva, scena.contesto), 0);
  EXPECT_EQ(scena.takeBoxes(),
            std::vector{erroreDiLettura(QStringLiteral("53 (File non trovato: iva.bin)"))});
  EXPECT_EQ(letta, Byte(6, 0xA5));
}

TEST_F(CanaleFile, LeggereUnaCartellaSiDice) {
  ASSERT_EQ(mkdir("iva.bin", 0700), 0);
  Byte letta(6, 0xA5);
  EXPECT_NE(ReadByteFromFile(letta, kIva, scena.contesto), 0);
  EXPECT_EQ(
      scena.takeBoxes(),
      std::vector{erroreDiLettura(QStringLiteral("75 (Errore di accesso al percorso o al file: iva.bin)"))});
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
