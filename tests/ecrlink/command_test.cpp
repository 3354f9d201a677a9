#include <gtest/gtest.h>

#include <QLibrary>

#include "ecrlink/link_scene.h"

using namespace ecrlink;

namespace {

/// The other maker's library and what it was called with.
class Estranea {
 public:
  Estranea() : libreria_(QStringLiteral(FOREIGN_LIBRARY "/libecrcom.so")) {
    EXPECT_TRUE(libreria_.load()) << libreria_.errorString().toStdString();
    reinterpret_cast<void (*)()>(libreria_.resolve("estranea_dimentica"))();
  }
  QString traccia() {
    return QString::fromLatin1(reinterpret_cast<const char* (*)()>(libreria_.resolve("estranea_traccia"))());
  }

 private:
  QLibrary libreria_;
};

struct ChiamataDiLibreria : testing::Test {
  Estranea estranea;
  ProgramFixture scena{QStringLiteral(FOREIGN_LIBRARY)};
  QString file = QStringLiteral("iva.bin");
  QString risposta = QStringLiteral("di prima");

  int esegui(Modo modo) { return ComandoECR(file, modo, risposta, scena.contesto); }
  void SetUp() override { commonForKora().IP_ECR = QStringLiteral("127.0.0.1"); }
};

constexpr std::array kSenzaFile{
    Modo::EcrInfo,       Modo::ApriTrasferimento, Modo::ChiudiTrasferimento, Modo::AzzeraProgrammazione,
    Modo::AzzeraFatture, Modo::AzzeraVenduto,     Modo::ChiusuraFiscale};

}  // namespace

TEST_F(ChiamataDiLibreria, SenzaFileIlNomePassaVuotoELaRispostaHa256Caratteri) {
  for (const Modo modo : kSenzaFile) {
    const Estranea nuova;
    commonForKora().IP_ECR = QStringLiteral("127.0.0.1");
    risposta.clear();
    EXPECT_EQ(esegui(modo), 0);
    EXPECT_EQ(estranea.traccia(), QStringLiteral("127.0.0.1||%1|256|1;").arg(static_cast<int>(modo)));
    EXPECT_EQ(risposta, QStringLiteral("####").leftJustified(256, QLatin1Char(' ')));
    EXPECT_EQ(file, QStringLiteral("iva.bin"));
  }
}

TEST_F(ChiamataDiLibreria, ConIlFileIlNomeTornaELaRispostaRestaComEra) {
  for (const Modo modo : {Modo::Invia, Modo::Ricevi}) {
    const Estranea nuova;
    commonForKora().IP_ECR = QStringLiteral("127.0.0.1");
    file = QStringLiteral("iva.bin");
    EXPECT_EQ(esegui(modo), 0);
    EXPECT_EQ(estranea.traccia(), QStringLiteral("127.0.0.1|iva.bin|%1|256|1;").arg(static_cast<int>(modo)));
    EXPECT_EQ(file, QStringLiteral("Xva.bin"));
    EXPECT_EQ(risposta, QStringLiteral("di prima"));
  }
}

TEST_F(ChiamataDiLibreria, LIndirizzoTornaComeLaLibreriaLoHaLasciato) {
  esegui(Modo::EcrInfo);
  EXPECT_EQ(commonForKora().IP_ECR, QStringLiteral("127.0.0.7"));
}

TEST_F(ChiamataDiLibreria, UnCodiceMostraIlTestoDellaLibreriaConISuoiBlank) {
  commonForKora().IP_ECR = QStringLiteral("9.0.0.1");
  EXPECT_EQ(esegui(Modo::AzzeraVenduto), 9);
  EXPECT_EQ(scena.takeBoxes(), std::vector{communicationError(QStringLiteral("Cassa occupata   "))});
}

TEST_F(ChiamataDiLibreria, UnModoOltreLOttoNonChiamaNulla) {
  EXPECT_EQ(esegui(static_cast<Modo>(9)), 1);
  EXPECT_EQ(estranea.traccia(), QString());
  EXPECT_EQ(risposta, QStringLiteral("di prima"));
}

TEST_F(ChiamataDiLibreria, AvviaApreEChiudeAttornoAlComando) {
  EXPECT_EQ(avviaECR(QStringLiteral("venduto.bin"), Modo::Ricevi, scena.contesto), 0);
  EXPECT_EQ(estranea.traccia(),
            QStringLiteral("127.0.0.1||1|256|1;127.0.0.7|venduto.bin|7|256|1;127.0.0.7||2|256|1;"));
}

TEST_F(ChiamataDiLibreria, LaChiusuraFiscaleVaDaSola) {
  EXPECT_EQ(avviaECR(QString(), Modo::ChiusuraFiscale, scena.contesto), 0);
  EXPECT_EQ(estranea.traccia(), QStringLiteral("127.0.0.1||8|256|1;"));
}

TEST(ComandoSullaCassa, LaRispostaDellaCassaSiLeggeInteraConIBlank) {
  ProgramFixture scena;
  TestTill cassa({.infoReply = "VER=3,BMP=S"});
  commonForKora().IP_ECR = cassa.address();
  QString nessuno;
  QString risposta;
  EXPECT_EQ(ComandoECR(nessuno, Modo::EcrInfo, risposta, scena.contesto), 0);
  EXPECT_EQ(risposta, QStringLiteral("VER=3,BMP=S").leftJustified(256, QLatin1Char(' ')));
  EXPECT_EQ(commonForKora().IP_ECR, cassa.address());
}

TEST(AvviaECR, UnAperturaRifiutataFermaTutto) {
  ProgramFixture scena;
  TestTill cassa({.state = 'V'});
  commonForKora().IP_ECR = cassa.address();
  EXPECT_EQ(avviaECR(QString(), Modo::AzzeraVenduto, scena.contesto), 1);
  EXPECT_EQ(
      scena.takeBoxes(),
      std::vector{communicationError(QStringLiteral("Comando rifiutato nello stato attuale della cassa"))});
  EXPECT_EQ(callsOf(cassa), QStringList{QStringLiteral("1:")});
}

TEST(AvviaECR, UnComandoFallitoLasciaApertoIlTrasferimento) {
  ProgramFixture scena;
  TestTill cassa;
  commonForKora().IP_ECR = cassa.address();
  EXPECT_EQ(avviaECR(QStringLiteral("ignoto.bin"), Modo::Ricevi, scena.contesto), 1);
  EXPECT_EQ(scena.takeBoxes(),
            std::vector{communicationError(QStringLiteral("File sconosciuto alla cassa o assente"))});
  EXPECT_EQ(callsOf(cassa), (QStringList{QStringLiteral("1:"), QStringLiteral("7:ignoto.bin")}));
  EXPECT_TRUE(cassa->transferOpen());
}

TEST(AvviaECR, UnaChiusuraFallitaContaComeFallimento) {
  ProgramFixture scena;
  TestTill cassa({.faults = {{.mode = 2, .what = ecrsim::FaultKind::Code, .code = 16}}});
  commonForKora().IP_ECR = cassa.address();
  EXPECT_EQ(avviaECR(QString(), Modo::AzzeraVenduto, scena.contesto), 1);
  EXPECT_EQ(scena.takeBoxes(),
            std::vector{communicationError(QStringLiteral("Errore nella memoria della cassa"))});
  EXPECT_EQ(callsOf(cassa), (QStringList{QStringLiteral("1:"), QStringLiteral("5:"), QStringLiteral("2:")}));
}

TEST(AvviaECR, SeLaChiusuraFiscaleFallisceNonSiChiudeNulla) {
  ProgramFixture scena;
  TestTill cassa({.faults = {{.mode = 8, .what = ecrsim::FaultKind::Code, .code = 7}}});
  commonForKora().IP_ECR = cassa.address();
  EXPECT_EQ(avviaECR(QString(), Modo::ChiusuraFiscale, scena.contesto), 1);
  EXPECT_EQ(
      scena.takeBoxes(),
      std::vector{communicationError(QStringLiteral("Comando rifiutato nello stato attuale della cassa"))});
  EXPECT_EQ(callsOf(cassa), QStringList{QStringLiteral("8:")});
}

TEST(AvviaECR, SenzaLaLibreriaLoDiceERendeUno) {
  const QTemporaryDir vuota;
  ProgramFixture scena(vuota.path());
  EXPECT_EQ(avviaECR(QString(), Modo::AzzeraVenduto, scena.contesto), 1);
  EXPECT_EQ(scena.takeBoxes(), std::vector{plainBox(QStringLiteral(
                                   "Error 53 (File non trovato: libecrcom.so) nella procedura avviaECR"))});
}

TEST(ControllaFile, SeCERendeZeroESeMancaUno) {
  ProgramFixture scena;
  scena.folder.write(QStringLiteral("venduto.bin"), "x");
  EXPECT_EQ(ControllaFile(QStringLiteral("venduto.bin"), true, scena.contesto), 0);
  EXPECT_EQ(ControllaFile(QStringLiteral("fatture.bin"), false, scena.contesto), 1);
  EXPECT_EQ(ControllaFile(QString(), false, scena.contesto), 1);
}

TEST(ControllaFile, SeRichiestoDiceCheManca) {
  ProgramFixture scena;
  EXPECT_EQ(ControllaFile(QStringLiteral("fatture.bin"), true, scena.contesto), 1);
  const std::vector<Box> previsti{
      {QStringLiteral("STATO DELLA CASSA NON CONGRUENTE \r\nfatture.bin non presente !!!"), Icon::None,
       QStringLiteral("ATTENZIONE"), Buttons::Ok}};
  EXPECT_EQ(scena.takeBoxes(), previsti);
}
