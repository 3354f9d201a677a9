// What becomes, at a reception, of the file that an earlier one left.

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>

#include "ecrlink/file_channel.h"
#include "ecrlink/link_scene.h"
#include "ecrlink/transfer_lock.h"
#include "sostegno/troubles.h"

namespace ecrlink {
void PrintTo(Precedente precedente, std::ostream* uscita) {
  *uscita << (precedente == Precedente::Tenuto ? "Tenuto" : "Rimosso");
}
}  // namespace ecrlink

using namespace ecrlink;

namespace {

using testing::ElementsAre;

const QString kFile = QStringLiteral("venduto.bin");
const QString kDiPrima = QStringLiteral("venduto.bin.precedente");

class FileRicevuto : public testing::TestWithParam<Precedente> {
 protected:
  FileRicevuto() { commonForKora().IP_ECR = cassa_.address(); }
  std::optional<std::int64_t> ricevi(Precedente precedente) {
    return RiceviFile(immagine_, kFile, precedente, scena_.contesto);
  }
  bool ce(const QString& nome) const { return QFile::exists(scena_.folder.file(nome)); }
  void cassaRifiuta() { cassa_->faults({{.mode = 7, .what = ecrsim::FaultKind::Code, .code = 16}}); }

  ProgramFixture scena_;
  TestTill cassa_;
  std::vector<std::uint8_t> immagine_ = std::vector<std::uint8_t>(4, 0xA5);
};

TEST_P(FileRicevuto, IByteArrivatiRiempionoLImmagineESiContano) {
  cassa_.put(kFile, "abcd");
  EXPECT_EQ(ricevi(GetParam()), 4);
  EXPECT_EQ(immagine_, (std::vector<std::uint8_t>{'a', 'b', 'c', 'd'}));
  EXPECT_EQ(scena_.folder.read(kFile), "abcd");
  EXPECT_EQ(callsOf(cassa_),
            (QStringList{QStringLiteral("1:"), QStringLiteral("7:venduto.bin"), QStringLiteral("2:")}));
}

TEST_P(FileRicevuto, CioCheUnProgrammaMortoHaLasciatoAMetaSiToglie) {
  // As the library names what it receives, and as the program names what it writes.
  const QString diLibreria = QStringLiteral(".venduto.bin.gestionale-%1-0").arg(endedProcess());
  const QString suo = QStringLiteral(".venduto.bin.gestionale-%1-Xy12Zw").arg(endedProcess());
  const QString diUnVivo = QStringLiteral(".venduto.bin.gestionale-%1-0").arg(::getppid());
  for (const QString& nome : {diLibreria, suo, diUnVivo}) scena_.folder.write(nome, "a");
  cassa_.put(kFile, "abcd");
  EXPECT_EQ(ricevi(GetParam()), 4);
  EXPECT_FALSE(ce(diLibreria));
  EXPECT_FALSE(ce(suo));
  EXPECT_TRUE(ce(diUnVivo));
}

TEST_P(FileRicevuto, DiUnoCortoSiContanoISuoiEIlRestoResta) {
  cassa_.put(kFile, "ab");
  EXPECT_EQ(ricevi(GetParam()), 2);
  EXPECT_EQ(immagine_, (std::vector<std::uint8_t>{'a', 'b', 0xA5, 0xA5}));
}

TEST_P(FileRicevuto, DiUnoLungoSiContanoTuttiESiLeggonoIPrimi) {
  cassa_.put(kFile, "abcdef");
  EXPECT_EQ(ricevi(GetParam()), 6);
  EXPECT_EQ(immagine_, (std::vector<std::uint8_t>{'a', 'b', 'c', 'd'}));
}

TEST_P(FileRicevuto, SeLaCassaRifiutaQuelloDiPrimaNonPassaPerIlNuovo) {
  scena_.folder.write(kFile, "ieri");
  cassaRifiuta();
  EXPECT_EQ(ricevi(GetParam()), std::nullopt);
  EXPECT_EQ(scena_.takeBoxes().size(), 1U);
  EXPECT_FALSE(ce(kFile));
  EXPECT_EQ(immagine_, std::vector<std::uint8_t>(4, 0xA5));
}

TEST_P(FileRicevuto, UnaCartellaAlSuoPostoSiDiceELaCassaNonSiChiama) {
  ASSERT_TRUE(QDir().mkdir(scena_.folder.file(kFile)));
  EXPECT_EQ(ricevi(GetParam()), std::nullopt);
  EXPECT_THAT(scena_.takeBoxes(),
              ElementsAre(plainBox(QStringLiteral("Error 75 (Errore di accesso al percorso o al file: "
                                                  "venduto.bin) in procedure RiceviFile of Modulo "
                                                  "CommonForKora"))));
  EXPECT_EQ(callsOf(cassa_), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Entrambi, FileRicevuto, testing::Values(Precedente::Rimosso, Precedente::Tenuto),
                         testing::PrintToStringParamName());

using FilePrecedente = FileRicevuto;

TEST_F(FilePrecedente, RimossoNonNeRestaTraccia) {
  scena_.folder.write(kFile, "ieri");
  cassa_.put(kFile, "oggi");
  EXPECT_EQ(ricevi(Precedente::Rimosso), 4);
  EXPECT_EQ(scena_.folder.read(kFile), "oggi");
  EXPECT_FALSE(ce(kDiPrima));
}

TEST_F(FilePrecedente, TenutoRestaAccantoAlNuovo) {
  scena_.folder.write(kFile, "ieri");
  cassa_.put(kFile, "oggi");
  EXPECT_EQ(ricevi(Precedente::Tenuto), 4);
  EXPECT_EQ(scena_.folder.read(kFile), "oggi");
  EXPECT_EQ(scena_.folder.read(kDiPrima), "ieri");
}

TEST_F(FilePrecedente, TenutoPrendeIlPostoDiUnoPiuVecchio) {
  scena_.folder.write(kFile, "ieri");
  scena_.folder.write(kDiPrima, "l'altro ieri");
  cassa_.put(kFile, "oggi");
  EXPECT_EQ(ricevi(Precedente::Tenuto), 4);
  EXPECT_EQ(scena_.folder.read(kDiPrima), "ieri");
}

TEST_F(FilePrecedente, SenzaUnFileDiPrimaQuelloTenutoRestaComE) {
  scena_.folder.write(kDiPrima, "l'altro ieri");
  cassaRifiuta();
  for (int volta = 0; volta < 2; ++volta) EXPECT_EQ(ricevi(Precedente::Tenuto), std::nullopt);
  EXPECT_EQ(scena_.takeBoxes().size(), 2U);
  EXPECT_EQ(scena_.folder.read(kDiPrima), "l'altro ieri");
}

TEST_F(FilePrecedente, DoveNonSiPuoTenereSiToglieLoStesso) {
  ASSERT_TRUE(QDir().mkdir(scena_.folder.file(kDiPrima)));
  scena_.folder.write(kFile, "ieri");
  cassa_.put(kFile, "oggi");
  EXPECT_EQ(ricevi(Precedente::Tenuto), 4);
  EXPECT_EQ(scena_.folder.read(kFile), "oggi");
  EXPECT_TRUE(QDir(scena_.folder.file(kDiPrima)).exists());
}

TEST_F(FilePrecedente, UnCollegamentoNonSiTiene) {
  scena_.folder.write(QStringLiteral("lettera.odt"), "cara zia");
  ASSERT_TRUE(QFile::link(QStringLiteral("lettera.odt"), scena_.folder.file(kFile)));
  cassa_.put(kFile, "oggi");
  EXPECT_EQ(ricevi(Precedente::Tenuto), 4);
  EXPECT_FALSE(ce(kDiPrima));
  EXPECT_EQ(scena_.folder.read(QStringLiteral("lettera.odt")), "cara zia");
}

TEST_F(FilePrecedente, LaCartellaTornaLiberaComunqueFinisca) {
  cassa_.put(kFile, "oggi");
  EXPECT_EQ(ricevi(Precedente::Tenuto), 4);
  EXPECT_NO_THROW(ScambioEsclusivo());
  cassaRifiuta();
  EXPECT_EQ(ricevi(Precedente::Tenuto), std::nullopt);
  EXPECT_EQ(scena_.takeBoxes().size(), 1U);
  EXPECT_NO_THROW(ScambioEsclusivo());
}

}  // namespace
