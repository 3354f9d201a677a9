#include "graphics/preparation.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProgressBar>
#include <QTest>
#include <QTimer>
#include <memory>

#include "controls/steady_progress.h"
#include "core/state.h"
#include "graphics/graphics_scene.h"
#include "platform/error.h"
#include "sostegno/troubles.h"

using namespace graphics;

namespace {

const QString kAbortita = QStringLiteral("\r\nPROCEDURA ABORTITA");

class PreparazioneBitmap : public GraphicsScene {
 protected:
  PreparazioneBitmap() {
    RiempiRecGrafica(false, app(QStringLiteral("SetupLOGO.dat")));
    classe("S");
    barra.setRange(0, 12);
  }
  static void classe(const char* lettera) {
    commonForKora().ECR_INFO.InfoTipoBitmap = QString::fromLatin1(lettera);
  }
  int prepara() { return prepara(images()); }
  int prepara(const QString& cartella) {
    SteadyProgress avanzamento(barra);
    const auto annuncia = [this](int numero, const QString& file) {
      annunciate.append(QStringLiteral("%1 %2").arg(numero).arg(file));
    };
    return ManageFileBMP(cartella, {avanzamento, annuncia}, converter, scambio, program.contesto);
  }
  int inverti() {
    return InvertoFileBMP(image(QStringLiteral("Logo.bmp")), images(), converter, program.contesto);
  }
  static QByteArray attesa(int larghezza, int quante = 12) {
    QByteArray tutte;
    for (int seme = 0; seme < quante; ++seme) tutte += printedForm(drawnPicture(larghezza, 24, seme));
    return tutte;
  }
  QByteArray insieme() const { return program.folder.read(QStringLiteral("bitmap.bin")); }
  QStringList convertite() const {
    return QDir(images()).entryList({QStringLiteral("*.bin")}, QDir::Files, QDir::Name);
  }
  QString percorso(const char* nome) const { return image(QString::fromUtf8(nome)); }
  Box nonCongruente(const QString& bitmap) const {
    return plainBox(QStringLiteral("ERRORE: BITMAP NON CONGRUENTE CON IL TIPO DI CASSA [ ") + bitmap +
                    QStringLiteral("]") + kAbortita);
  }
  Box inPreparazione(const QString& bitmap) const {
    return plainBox(QStringLiteral("ERRORE durante preparazione bitmap [") + bitmap + QStringLiteral("]") +
                    kAbortita);
  }
  Box nonEsiste(const QString& bitmap) const {
    return plainBox(QStringLiteral("ERRORE: Il file [") + bitmap + QStringLiteral("] non esiste") +
                    kAbortita);
  }

  QProgressBar barra;
  QStringList annunciate;
  std::optional<ecrlink::ScambioEsclusivo> scambio;
};

}  // namespace

TEST_F(PreparazioneBitmap, LeDodiciConvertiteStannoUnaDietroLAltra) {
  for (const auto& [lettera, larghezza] : {std::pair{"S", 384}, {"L", 640}}) {
    classe(lettera);
    drawAll(larghezza);
    QFile::remove(percorso("bitmap.exe"));
    layConverter();
    EXPECT_EQ(prepara(), 0);
    EXPECT_TRUE(insieme() == attesa(larghezza)) << larghezza;
    EXPECT_EQ(convertite(), QStringList());
    EXPECT_EQ(barra.value(), 12);
    scambio.reset();
  }
}

TEST_F(PreparazioneBitmap, IlConvertitorePrendeLarghezzaEPercorsoSenzaChiudereLeVirgolette) {
  drawAll(384);
  layConverter();
  EXPECT_EQ(prepara(), 0);
  ASSERT_EQ(orders.size(), 12U);
  EXPECT_EQ(orders.front().program, percorso("bitmap.exe"));
  EXPECT_EQ(orders.front().parameters, QStringLiteral("384 \"") + percorso("Logo.bmp"));
  EXPECT_EQ(orders.front().folder, images());
  EXPECT_EQ(orders.back().parameters, QStringLiteral("384 \"") + percorso("Promozione2.bmp"));
  EXPECT_EQ(annunciate.first(), QStringLiteral("1 Logo.bmp"));
  EXPECT_EQ(annunciate.last(), QStringLiteral("12 Promozione2.bmp"));
}

TEST_F(PreparazioneBitmap, IlVecchioFileSparisceSubito) {
  program.folder.write(QStringLiteral("bitmap.bin"), "di prima");
  EXPECT_EQ(prepara(), 1);
  expectBoxes(program, {nonEsiste(percorso("Logo.bmp"))});
  EXPECT_EQ(insieme(), QByteArray());
}

TEST_F(PreparazioneBitmap, SeMancaIlDodicesimoSiFermaDopoUndici) {
  drawAll(384);
  layConverter();
  ASSERT_TRUE(QFile::remove(percorso("Promozione2.bmp")));
  EXPECT_EQ(prepara(), 1);
  expectBoxes(program, {nonEsiste(percorso("Promozione2.bmp"))});
  EXPECT_EQ(orders.size(), 11U);
  EXPECT_EQ(barra.value(), 11);
  EXPECT_TRUE(insieme() == attesa(384, 11));
}

TEST_F(PreparazioneBitmap, UnNomeVuotoEUnoCheEsceDallaCartellaNonEsistono) {
  drawAll(384);
  layConverter();
  ASSERT_TRUE(drawnPicture(384, 24, 0).save(app(QStringLiteral("fuori.bmp")), "BMP"));
  modGra1().RecGrafica[0].file.clear();
  EXPECT_EQ(prepara(), 1);
  expectBoxes(program, {nonEsiste(images() + QStringLiteral("/"))});
  modGra1().RecGrafica[0].file = QStringLiteral("../fuori.bmp");
  EXPECT_EQ(prepara(), 1);
  expectBoxes(program, {nonEsiste(images() + QStringLiteral("/../fuori.bmp"))});
  EXPECT_TRUE(orders.empty());
}

TEST_F(PreparazioneBitmap, UnaBitmapDellaLarghezzaSbagliataNonECongruente) {
  drawAll(384);
  layConverter();
  ASSERT_TRUE(drawnPicture(640, 24, 2).save(percorso("Natale.bmp"), "BMP"));
  EXPECT_EQ(prepara(), 1);
  expectBoxes(program, {nonCongruente(percorso("Natale.bmp"))});
  EXPECT_TRUE(insieme() == attesa(384, 2));
  EXPECT_EQ(readFile(percorso("Natale.bin")), QByteArray());
}

TEST_F(PreparazioneBitmap, SenzaClasseSiFermaAllaPrima) {
  drawAll(384);
  layConverter();
  for (const char* lettera : {"", "M", "s", "LS"}) {
    classe(lettera);
    EXPECT_EQ(prepara(), 1);
    expectBoxes(program, {{QStringLiteral("Il tipo di grafica non è congruente a quella dell'ECR"),
                           Icon::Critical, QStringLiteral("Errore invio file per la grafica")},
                          inPreparazione(percorso("Logo.bmp"))});
  }
  EXPECT_TRUE(orders.empty());
}

TEST_F(PreparazioneBitmap, SenzaConvertitoreSiDiceQualeManca) {
  drawAll(384);
  EXPECT_EQ(prepara(), 1);
  expectBoxes(program, {{QStringLiteral("STATO DELLA CASSA NON CONGRUENTE \r\n") + percorso("bitmap.exe") +
                             QStringLiteral(" non presente !!!"),
                         Icon::None, QStringLiteral("ATTENZIONE")},
                        inPreparazione(percorso("Logo.bmp"))});
}

TEST_F(PreparazioneBitmap, OgniLancioFallitoHaIlSuoTesto) {
  drawAll(384);
  layConverter();
  struct Riga {
    int esito;
    const char* testo;
  };
  for (const Riga& riga :
       {Riga{0, "The file could not be run due to insufficient system memory or a corrupt program file"},
        Riga{2, "File Not Found"}, Riga{3, "Invalid Path"}, Riga{5, "Sharing or protection error"},
        Riga{6, "Separate data segments are required for each task "},
        Riga{8, "Insufficient memory to run the program"}, Riga{10, "Incorrect Windows version"},
        Riga{11, "Invalid Program File"}, Riga{12, "Program file requires a different operating System "},
        Riga{13, "Program requires MS-DOS 4.0"}, Riga{14, "Unknown program file type"},
        Riga{15, "Windows prgram does not support protected memory mode"},
        Riga{16, "Invalid use of data segments when loading a second instance of a program"},
        Riga{19, "Attempt to run a compressed program file"}, Riga{20, "Invalid dynamic link library"},
        Riga{21, "Program requires Windows 32-bit extensions"},
        Riga{31, "No application found for this file"}, Riga{1, ""}}) {
    converter.lancia = [&](const HiddenProgram&) { return riga.esito; };
    EXPECT_NE(inverti(), 0) << riga.esito;
    expectBoxes(program, {criticalBox(QString::fromLatin1(riga.testo))});
  }
}

TEST_F(PreparazioneBitmap, Da32InSuIlLancioERiuscito) {
  drawAll(384);
  layConverter();
  for (const int esito : {32, 33, 42}) {
    converter.lancia = [&](const HiddenProgram&) { return esito; };
    EXPECT_EQ(inverti(), 0);
  }
}

TEST_F(PreparazioneBitmap, UnConvertitoreSenzaIlDirittoDiPartire) {
  drawAll(384);
  writeFile(percorso("bitmap.exe"), "#!/bin/sh\n");
  converter.lancia = StartHidden;
  EXPECT_EQ(prepara(), 1);
  expectBoxes(program, {criticalBox(QStringLiteral("Sharing or protection error")),
                        inPreparazione(percorso("Logo.bmp"))});
}

TEST_F(PreparazioneBitmap, UnConvertitoreCheNonEUnProgramma) {
  drawAll(384);
  layScript({});
  writeFile(percorso("bitmap.exe"), QByteArray(64, '\1'));
  converter.lancia = StartHidden;
  EXPECT_EQ(prepara(), 1);
  expectBoxes(program,
              {criticalBox(QStringLiteral("Invalid Program File")), inPreparazione(percorso("Logo.bmp"))});
}

TEST_F(PreparazioneBitmap, UnConvertitoreCheNonScriveNullaNonECongruente) {
  drawAll(384);
  layScript("exit 1");
  EXPECT_EQ(prepara(), 1);
  expectBoxes(program, {nonCongruente(percorso("Logo.bmp"))});
}

TEST_F(PreparazioneBitmap, UnConvertitoreTroppoLentoNonFaPassareCioCheScrissePrima) {
  drawAll(384);
  // It is started and has written nothing yet when its time is up; what stands there is of an earlier order.
  writeFile(percorso("Logo.bin"), "vecchia");
  layConverter();
  converter.lancia = [](const HiddenProgram&) { return launch::kStarted; };
  EXPECT_EQ(prepara(), 1);
  expectBoxes(program, {nonCongruente(percorso("Logo.bmp"))});
  EXPECT_EQ(insieme(), QByteArray());
}

TEST_F(PreparazioneBitmap, IlTempoDelConvertitorePassaPerIntero) {
  drawAll(384);
  layConverter();
  converter.attesa = std::chrono::milliseconds(50);
  // One that did not start has it too.
  for (const int lancio : {launch::kStarted, 2}) {
    converter.lancia = [&](const HiddenProgram&) { return lancio; };
    QElapsedTimer orologio;
    orologio.start();
    EXPECT_EQ(inverti() == 0, lancio == launch::kStarted);
    EXPECT_GE(orologio.elapsed(), 50);
  }
  expectBoxes(program, {criticalBox(QStringLiteral("File Not Found"))});
  EXPECT_EQ(Convertitore{}.attesa, std::chrono::milliseconds(1000));
}

TEST_F(PreparazioneBitmap, DuranteLAttesaLaFinestraSiDipinge) {
  drawAll(384);
  layConverter();
  converter.lancia = [](const HiddenProgram&) { return launch::kStarted; };
  converter.attesa = std::chrono::milliseconds(200);
  bool passato = false;
  // Behind the event pass that comes before the wait.
  QTimer::singleShot(20, &barra, [&] { passato = true; });
  EXPECT_EQ(inverti(), 0);
  EXPECT_TRUE(passato);
}

TEST_F(PreparazioneBitmap, InUnaCartellaColNomeDiUnaBitmapLaConvertitaNonSiTrova) {
  const QString cartella = app(QStringLiteral("le.bmp mie"));
  ASSERT_TRUE(QDir().rename(images(), cartella));
  ASSERT_TRUE(drawnPicture(384, 24, 0).save(cartella + QStringLiteral("/Logo.bmp"), "BMP"));
  ASSERT_TRUE(QFile::copy(QStringLiteral(BITMAP_EXE), cartella + QStringLiteral("/bitmap.exe")));
  EXPECT_EQ(percorsoConvertito(cartella + QStringLiteral("/Logo.bmp")),
            app(QStringLiteral("le.bin mie/Logo.bin")));
  EXPECT_EQ(prepara(cartella), 1);
  expectBoxes(program, {nonCongruente(cartella + QStringLiteral("/Logo.bmp"))});
  EXPECT_TRUE(QFile::exists(cartella + QStringLiteral("/Logo.bin")));
}

TEST_F(PreparazioneBitmap, IlNomeInMaiuscoloHaLaStessaConvertita) {
  EXPECT_EQ(percorsoConvertito(QStringLiteral("/a/LOGO.BMP")), QStringLiteral("/a/LOGO.bin"));
  EXPECT_EQ(percorsoConvertito(QStringLiteral("/a.BMP/Logo.bmp")), QStringLiteral("/a.BMP/Logo.bin"));
  EXPECT_EQ(percorsoConvertito(QStringLiteral("/a/Logo.bmp.bmp")), QStringLiteral("/a/Logo.bin.bin"));
}

TEST_F(PreparazioneBitmap, UnaBitmapConUnAltroNomeNonVienePersa) {
  drawAll(384);
  layConverter();
  ASSERT_TRUE(QFile::rename(percorso("Logo.bmp"), percorso("Logo.png")));
  modGra1().RecGrafica[0].file = QStringLiteral("Logo.png");
  const QByteArray prima = readFile(percorso("Logo.png"));
  EXPECT_EQ(prepara(), 1);
  expectBoxes(program, {nonCongruente(percorso("Logo.png"))});
  EXPECT_EQ(readFile(percorso("Logo.png")), prima);
}

TEST_F(PreparazioneBitmap, UnaConvertitaSmisurataFermaTutto) {
  drawAll(384);
  layScript("head -c 17000000 /dev/zero > \"${2%.bmp}.bin\"");
  EXPECT_EQ(prepara(), 1);
  expectBoxes(program, {plainBox(QStringLiteral("Error 62 (*"))});
}

TEST_F(PreparazioneBitmap, BitmapTroncateSenzaRigheEComunquiSianoNonSonoCongruenti) {
  layConverter();
  const QByteArray buona = [&] {
    drawAll(384);
    return readFile(percorso("Logo.bmp"));
  }();
  QByteArray senzaRighe = buona;
  senzaRighe[22] = 0;
  QByteArray compressa = buona;
  compressa[30] = 1;
  for (const QByteArray& byte :
       {buona.left(60), buona.chopped(1), senzaRighe, compressa, QByteArray("ciao"), QByteArray()}) {
    writeFile(percorso("Logo.bmp"), byte);
    EXPECT_EQ(prepara(), 1);
    expectBoxes(program, {nonCongruente(percorso("Logo.bmp"))});
  }
}

TEST_F(PreparazioneBitmap, UnaCartellaAlPostoDelFileFermaTutto) {
  drawAll(384);
  layConverter();
  ASSERT_TRUE(QDir().mkpath(program.folder.file(QStringLiteral("bitmap.bin"))));
  EXPECT_EQ(prepara(), 1);
  expectBoxes(program, {plainBox(QStringLiteral("Error 75 (*"))});
  EXPECT_TRUE(orders.empty());
}

TEST_F(PreparazioneBitmap, NellaCartellaDiSolaLetturaNulla) {
  drawAll(384);
  layConverter();
  const QString corrente = program.folder.path();
  ASSERT_TRUE(QFile::setPermissions(corrente,
                                    QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
  {
    const OtherUser altro;
    EXPECT_EQ(prepara(), 1);
  }
  expectBoxes(program, {plainBox(QStringLiteral("Error 75 (*"))});
  EXPECT_TRUE(orders.empty());
}

TEST_F(PreparazioneBitmap, SeLeBitmapStannoInUnaCartellaDiSolaLetturaNonSonoCongruenti) {
  drawAll(384);
  layConverter();
  mayWrite(images(), false);
  mayWrite(program.folder.path(), true);
  // The converter has no more rights than whoever starts it.
  converter.lancia = [&](const HiddenProgram&) {
    EXPECT_FALSE(QFile(percorso("Logo.bin")).open(QIODevice::WriteOnly));
    return launch::kStarted;
  };
  {
    const OtherUser altro;
    EXPECT_EQ(prepara(), 1);
  }
  expectBoxes(program, {nonCongruente(percorso("Logo.bmp"))});
  mayWrite(images(), true);
}

TEST_F(PreparazioneBitmap, UnaVecchiaConvertitaCheNonSiPuoTogliereFermaTutto) {
  drawAll(384);
  layConverter();
  ASSERT_TRUE(QDir().mkpath(percorso("Logo.bin")));
  EXPECT_EQ(prepara(), 1);
  expectBoxes(program, {plainBox(QStringLiteral("Error 75 (Errore di accesso al percorso o al file: ") +
                                 percorso("Logo.bin") +
                                 QStringLiteral(") in procedure ManageFileBMP of Modulo CommonForKora"))});
  EXPECT_TRUE(orders.empty());
}

TEST_F(PreparazioneBitmap, UnErroreDellInvertitoreHaIlSuoTestoELaBitmapNonEPreparata) {
  drawAll(384);
  layConverter();
  converter.lancia = [](const HiddenProgram&) -> int { throw Errore{7, QStringLiteral("Memoria esaurita")}; };
  EXPECT_EQ(prepara(), 1);
  expectBoxes(program,
              {plainBox(QStringLiteral(
                   "Error 7 (Memoria esaurita) in procedure InvertoFileBMP of Modulo CommonForKora")),
               inPreparazione(percorso("Logo.bmp"))});
}

TEST_F(PreparazioneBitmap, SulDiscoPienoNonRestaUnFileAMeta) {
  drawAll(384);
  layConverter();
  const QByteArray pronta = printedForm(drawnPicture(384, 24, 0));
  std::unique_ptr<FullDisk> pieno;
  converter.lancia = [&](const HiddenProgram&) {
    writeFile(percorso("Logo.bin"), pronta);
    pieno = std::make_unique<FullDisk>(10);
    return launch::kStarted;
  };
  EXPECT_EQ(prepara(), 1);
  pieno.reset();
  expectBoxes(program, {plainBox(QStringLiteral("Error 61 (*"))});
  EXPECT_FALSE(QFile::exists(program.folder.file(QStringLiteral("bitmap.bin"))));
}

TEST_F(PreparazioneBitmap, LaCartellaEDiUnProgrammaPerVolta) {
  drawAll(384);
  layConverter();
  program.folder.write(QStringLiteral("bitmap.bin"), "dell'altro");
  const ecrlink::ScambioEsclusivo altro;
  EXPECT_EQ(prepara(), 1);
  expectBoxes(program, {plainBox(QStringLiteral("Error 70 (Un altro programma sta scambiando*"))});
  EXPECT_EQ(insieme(), "dell'altro");
  EXPECT_FALSE(scambio.has_value());
}

TEST_F(PreparazioneBitmap, LaCartellaRestaDiChiPreparaFinoAllInvio) {
  drawAll(384);
  layConverter();
  EXPECT_EQ(prepara(), 0);
  EXPECT_THROW(ecrlink::ScambioEsclusivo(), Errore);
  scambio.reset();
  EXPECT_NO_THROW(ecrlink::ScambioEsclusivo());
}
