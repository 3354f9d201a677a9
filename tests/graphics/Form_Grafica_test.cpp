#include "graphics/Form_Grafica.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QScrollBar>
#include <QTest>

#include "controls/FlexGrid.h"
#include "graphics/bitmap_file.h"
#include "graphics/graphics_scene.h"
#include "graphics/picture_tile.h"
#include "platform/error.h"
#include "sostegno/troubles.h"

using namespace graphics;

namespace {

const QString kEsci = QStringLiteral("Cmd_Esci");
const QString kAvvia = QStringLiteral("Cmd_Avvia");
const QString kModifica = QStringLiteral("Cmd_Modifica");
const Box kRipristinati = plainBox(QStringLiteral("Sono stati ripristinati i valori di default!"));
const Box kNonEsiste = plainBox(QStringLiteral("FILE NON ESISTE: PREGO CREARE IL FILE E RIPROVARE"));

class SchermoGrafica : public GraphicsScene {
 protected:
  /// With the catalogue's file there already.
  GuidedScreen pronto() {
    RiempiRecGrafica(false, app(QStringLiteral("SetupLOGO.dat")));
    return screen();
  }
  static QByteArray anteprima(const GuidedScreen& schermo) {
    const QImage& punti = schermo.control<QuadroPunti>("Image1").punti();
    return punti.isNull() ? QByteArray() : printedForm(punti);
  }
  static const Esame& tessera(const GuidedScreen& schermo, int riga) {
    return schermo.control<TesseraGrafica>(QStringLiteral("tessera_%1").arg(riga)).esame();
  }
  static bool scelta(const GuidedScreen& schermo, int riga) {
    return schermo.control<TesseraGrafica>(QStringLiteral("tessera_%1").arg(riga)).isChecked();
  }
  QList<QByteArray> righe() const { return readFile(app(QStringLiteral("SetupLOGO.dat"))).split('\n'); }
  static void freccia(const GuidedScreen& schermo, Qt::Key tasto) {
    QTest::keyClick(&schermo.control("MSFlexGridGrafica"), tasto);
  }
};

}  // namespace

// The load

TEST_F(SchermoGrafica, LaPrimaVoltaRipristinaIPredefiniti) {
  const GuidedScreen schermo = screen();
  expectBoxes(program, {kRipristinati});
  EXPECT_EQ(righe().size(), 25);
  EXPECT_EQ(righe().last(), QByteArray());
  EXPECT_EQ(righe().at(11), "FestaPap\xE0.bmp\r");
  int riga = 0;
  for (const QString& tipo : defaultTypes()) {
    ++riga;
    EXPECT_EQ(cell(schermo, riga, 0), QString::number(riga));
    EXPECT_EQ(cell(schermo, riga, 1), tipo);
    EXPECT_EQ(cell(schermo, riga, 2), tipo + QStringLiteral(".bmp"));
  }
}

TEST_F(SchermoGrafica, AllAperturaTitoloCartellaEComandi) {
  drawAll(384);
  modGra1().BitmapCorrente = QStringLiteral("/di/prima.bmp");
  const GuidedScreen schermo = pronto();
  EXPECT_EQ(schermo.window().windowTitle(), QStringLiteral("Qz Grafica "));
  EXPECT_EQ(modGra1().BitmapCorrente, QString());
  EXPECT_EQ(schermo.text(QStringLiteral("LabelPercorso")), images());
  EXPECT_EQ(schermo.control<QComboBox>("Drive1").currentText(), QStringLiteral("/"));
  EXPECT_EQ(items(schermo, "File1").size(), 12);
  EXPECT_EQ(items(schermo, "Dir1"), QStringList{QStringLiteral("..")});
  EXPECT_EQ(schermo.text(QStringLiteral("vkTextBoxIP_ECR")), QStringLiteral("192.168.0.20"));
  EXPECT_EQ(schermo.focus(), QStringLiteral("vkTextBoxIP_ECR"));
  EXPECT_FALSE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(QStringLiteral("CmdInviaModECR")));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_TRUE(schermo.enabled(kModifica));
  EXPECT_EQ(anteprima(schermo), QByteArray());
  EXPECT_TRUE(scelta(schermo, 1));
}

TEST_F(SchermoGrafica, UnCatalogoCortoLasciaPostiVuoti) {
  layCatalogue("Logo\r\nuno.bmp\r\nNatale\r\n");
  const GuidedScreen schermo = screen();
  EXPECT_EQ(cell(schermo, 1, 2), QStringLiteral("uno.bmp"));
  EXPECT_EQ(cell(schermo, 2, 1), QStringLiteral("Natale"));
  EXPECT_EQ(cell(schermo, 2, 2), QString());
  EXPECT_EQ(cell(schermo, 12, 0), QStringLiteral("12"));
  EXPECT_EQ(cell(schermo, 12, 1), QString());
  EXPECT_TRUE(tessera(schermo, 12).vuoto);
}

TEST_F(SchermoGrafica, UnCatalogoSenzaRigheMostraDodiciPostiVuotiENonRipristinaNulla) {
  layCatalogue({});
  const GuidedScreen schermo = screen();
  for (int riga = 1; riga <= 12; ++riga) {
    EXPECT_EQ(cell(schermo, riga, 0), QString::number(riga));
    EXPECT_EQ(cell(schermo, riga, 1) + cell(schermo, riga, 2), QString());
    EXPECT_TRUE(tessera(schermo, riga).vuoto);
  }
  clickRow(schermo, 7);
  expectBoxes(program, {kNonEsiste});
  EXPECT_EQ(readFile(app(QStringLiteral("SetupLOGO.dat"))), QByteArray());
}

TEST_F(SchermoGrafica, InUnaCartellaDiSolaLetturaIPredefinitiSiMostranoENonSiScrivono) {
  mayWrite(app({}), false);
  {
    const OtherUser altro;
    const GuidedScreen schermo = screen();
    expectBoxes(program, {kRipristinati,
                          plainBox(QStringLiteral("Error 75 (Errore di accesso al percorso o al file: ") +
                                   app(QStringLiteral("SetupLOGO.dat")) +
                                   QStringLiteral(") in procedure RiempiRecGrafica of Modulo ModGra1"))});
    EXPECT_EQ(cell(schermo, 12, 2), QStringLiteral("Promozione2.bmp"));
    schermo.click(kEsci);
    EXPECT_FALSE(schermo.alive());
  }
  EXPECT_FALSE(QFile::exists(app(QStringLiteral("SetupLOGO.dat"))));
  mayWrite(app({}), true);
}

TEST_F(SchermoGrafica, UnaCartellaAlPostoDelCatalogoSiDiceENonSiTocca) {
  ASSERT_TRUE(QDir(app({})).mkpath(QStringLiteral("SetupLOGO.dat")));
  const GuidedScreen schermo = screen();
  expectBoxes(program, {kRipristinati, plainBox(QStringLiteral("Error 75 (*"))});
  schermo.click(kEsci);
  EXPECT_FALSE(schermo.alive());
  EXPECT_TRUE(QFileInfo(app(QStringLiteral("SetupLOGO.dat"))).isDir());
}

TEST_F(SchermoGrafica, UnCatalogoCheNonSiLeggeRestaComEraFinoAllaPrimaScelta) {
  drawAll(384);
  const QByteArray suo = "Logo\r\nmia.bmp\r\n";
  layCatalogue(suo);
  const QString file = app(QStringLiteral("SetupLOGO.dat"));
  mayWrite(app({}), true);
  mayWrite(images(), true);
  for (const bool sceglie : {false, true}) {
    ASSERT_TRUE(QFile::setPermissions(file, {}));
    {
      const OtherUser altro;
      const GuidedScreen schermo = screen();
      expectBoxes(program, {plainBox(QStringLiteral("Error 75 (*"))});
      EXPECT_EQ(cell(schermo, 1, 1) + cell(schermo, 1, 2), QString());
      if (sceglie) clickItem(schermo, "File1", QStringLiteral("Natale.bmp"));
      schermo.click(kEsci);
      EXPECT_FALSE(schermo.alive());
    }
    expectBoxes(program, {});
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner));
    if (sceglie)
      EXPECT_EQ(righe().at(1), "Natale.bmp\r");
    else
      EXPECT_EQ(readFile(file), suo);
  }
}

TEST_F(SchermoGrafica, SenzaLaCartellaDelleImmaginiSiApreLoStesso) {
  ASSERT_TRUE(QDir(images()).removeRecursively());
  const GuidedScreen schermo = pronto();
  EXPECT_TRUE(items(schermo, "File1").isEmpty());
  EXPECT_TRUE(tessera(schermo, 1).vuoto);
}

// Rows

TEST_F(SchermoGrafica, UnClicSuUnaRigaMostraLaSuaBitmap) {
  drawAll(384);
  const GuidedScreen schermo = pronto();
  clickRow(schermo, 3);
  EXPECT_EQ(modGra1().BitmapCorrente, image(QStringLiteral("Natale.bmp")));
  EXPECT_EQ(anteprima(schermo), printedForm(drawnPicture(384, 24, 2)));
  EXPECT_TRUE(scelta(schermo, 3));
}

TEST_F(SchermoGrafica, UnaRigaSenzaFileLasciaLAnteprimaEAggiornaIlTipo) {
  drawAll(384);
  ASSERT_TRUE(QFile::remove(image(QStringLiteral("Pasqua.bmp"))));
  const GuidedScreen schermo = pronto();
  clickRow(schermo, 3);
  schermo.control<FlexGrid>("MSFlexGridGrafica").setTextMatrix(4, 1, QStringLiteral("Estate"));
  clickRow(schermo, 4);
  expectBoxes(program, {kNonEsiste});
  EXPECT_EQ(anteprima(schermo), printedForm(drawnPicture(384, 24, 2)));
  EXPECT_EQ(modGra1().RecGrafica[3].tipo, QStringLiteral("Estate"));
  EXPECT_EQ(modGra1().RecGrafica[3].file, QStringLiteral("Pasqua.bmp"));
  EXPECT_EQ(modGra1().BitmapCorrente, image(QStringLiteral("Pasqua.bmp")));
}

TEST_F(SchermoGrafica, LeFreccePassanoSenzaRiquadri) {
  drawAll(384);
  ASSERT_TRUE(QFile::remove(image(QStringLiteral("Natale.bmp"))));
  const GuidedScreen schermo = pronto();
  clickRow(schermo, 2);
  freccia(schermo, Qt::Key_Down);
  EXPECT_EQ(modGra1().BitmapCorrente, image(QStringLiteral("Natale.bmp")));
  EXPECT_EQ(anteprima(schermo), printedForm(drawnPicture(384, 24, 1)));
  freccia(schermo, Qt::Key_Down);
  EXPECT_EQ(anteprima(schermo), printedForm(drawnPicture(384, 24, 3)));
  EXPECT_TRUE(scelta(schermo, 4));
}

TEST_F(SchermoGrafica, UnNomeCheEsceDallaCartellaNonSiApre) {
  ASSERT_TRUE(drawnPicture(384, 24, 0).save(app(QStringLiteral("fuori.bmp")), "BMP"));
  layCatalogue("Logo\r\n../fuori.bmp\r\n");
  const GuidedScreen schermo = screen();
  clickRow(schermo, 1);
  expectBoxes(program, {kNonEsiste});
  EXPECT_EQ(anteprima(schermo), QByteArray());
  EXPECT_TRUE(tessera(schermo, 1).vuoto);
}

TEST_F(SchermoGrafica, UnaTesseraScegliELaSuaRiga) {
  drawAll(384);
  const GuidedScreen schermo = pronto();
  schermo.click(QStringLiteral("tessera_5"));
  EXPECT_EQ(schermo.control<FlexGrid>("MSFlexGridGrafica").Row(), 5);
  EXPECT_EQ(modGra1().BitmapCorrente, image(QStringLiteral("FestaMamma.bmp")));
  EXPECT_EQ(anteprima(schermo), printedForm(drawnPicture(384, 24, 4)));
}

// Files

TEST_F(SchermoGrafica, UnFileVaAllaRigaSceltaEAlCatalogo) {
  drawAll(384);
  ASSERT_TRUE(drawnPicture(384, 24, 40).save(image(QStringLiteral("Nuova.bmp")), "BMP"));
  const GuidedScreen schermo = pronto();
  clickRow(schermo, 3);
  clickItem(schermo, "File1", QStringLiteral("Nuova.bmp"));
  EXPECT_EQ(cell(schermo, 3, 2), QStringLiteral("Nuova.bmp"));
  EXPECT_EQ(modGra1().RecGrafica[2].file, QStringLiteral("Nuova.bmp"));
  EXPECT_EQ(modGra1().BitmapCorrente, image(QStringLiteral("Nuova.bmp")));
  EXPECT_EQ(anteprima(schermo), printedForm(drawnPicture(384, 24, 40)));
  EXPECT_EQ(printedForm(tessera(schermo, 3).punti), printedForm(drawnPicture(384, 24, 40)));
  EXPECT_EQ(foot(schermo).text(), QStringLiteral("Natale: Nuova.bmp"));
  EXPECT_EQ(foot(schermo).kind(), OutcomeBar::Kind::Done);
  schermo.click(kEsci);
  EXPECT_EQ(righe().at(5), "Nuova.bmp\r");
}

TEST_F(SchermoGrafica, InvioNellElencoFaComeUnClic) {
  drawAll(384);
  const GuidedScreen schermo = pronto();
  clickRow(schermo, 2);
  auto& elenco = schermo.control<QListWidget>("File1");
  elenco.setFocus();
  elenco.setCurrentRow(static_cast<int>(items(schermo, "File1").indexOf(QStringLiteral("Pasqua.bmp"))));
  QTest::keyClick(&elenco, Qt::Key_Return);
  EXPECT_EQ(cell(schermo, 2, 2), QStringLiteral("Pasqua.bmp"));
  EXPECT_TRUE(schermo.alive());
}

TEST_F(SchermoGrafica, UnFileCheNonSiCaricaDiceIlSuoErroreENonSiAssegna) {
  drawAll(384);
  writeFile(image(QStringLiteral("Rotta.bmp")), "ciao");
  const GuidedScreen schermo = pronto();
  clickItem(schermo, "File1", QStringLiteral("Rotta.bmp"));
  expectBoxes(program, {plainBox(QStringLiteral("Error 481 (Immagine non valida: ") +
                                 image(QStringLiteral("Rotta.bmp")) +
                                 QStringLiteral(") Fallita operazione di caricamento immagine"))});
  EXPECT_EQ(modGra1().BitmapCorrente, image(QStringLiteral("Rotta.bmp")));
  EXPECT_EQ(cell(schermo, 1, 2), QStringLiteral("Logo.bmp"));
}

TEST_F(SchermoGrafica, UnFileSparitoNelFrattempoDiceIlSuoErrore) {
  drawAll(384);
  const GuidedScreen schermo = pronto();
  ASSERT_TRUE(QFile::remove(image(QStringLiteral("Natale.bmp"))));
  clickItem(schermo, "File1", QStringLiteral("Natale.bmp"));
  expectBoxes(program, {plainBox(QStringLiteral("Error 53 (*"))});
  EXPECT_EQ(cell(schermo, 1, 2), QStringLiteral("Logo.bmp"));
}

TEST_F(SchermoGrafica, UnNomeCheIlCatalogoNonConservaSiDice) {
  drawAll(384);
  ASSERT_TRUE(drawnPicture(384, 24, 0).save(image(QStringLiteral("праздник.bmp")), "BMP"));
  const GuidedScreen schermo = pronto();
  clickItem(schermo, "File1", QStringLiteral("праздник.bmp"));
  EXPECT_EQ(foot(schermo).kind(), OutcomeBar::Kind::Warning);
  EXPECT_TRUE(foot(schermo).text().contains(QStringLiteral("lettere che il catalogo non conserva")));
}

TEST_F(SchermoGrafica, UnaBitmapRifiutataSiDiceGiaQui) {
  drawAll(384);
  ASSERT_TRUE(drawnPicture(400, 24, 0).save(image(QStringLiteral("Larga.bmp")), "BMP"));
  const GuidedScreen schermo = pronto();
  clickItem(schermo, "File1", QStringLiteral("Larga.bmp"));
  EXPECT_EQ(foot(schermo).text(), QStringLiteral("Logo: Larga.bmp. Larga 400 punti: ne servono 384 o 640"));
  EXPECT_EQ(tessera(schermo, 1).rifiuto, QStringLiteral("Larga 400 punti: ne servono 384 o 640"));
}

TEST_F(SchermoGrafica, UnaBitmapLasciataSuUnaTesseraSiCopiaESiAssegna) {
  drawAll(384);
  ASSERT_TRUE(drawnPicture(384, 24, 50).save(app(QStringLiteral("Mia.bmp")), "BMP"));
  const GuidedScreen schermo = pronto();
  Q_EMIT schermo.control<TesseraGrafica>("tessera_9").lasciata(app(QStringLiteral("Mia.bmp")));
  QCoreApplication::processEvents();
  EXPECT_EQ(cell(schermo, 9, 2), QStringLiteral("Mia.bmp"));
  EXPECT_EQ(modGra1().BitmapCorrente, image(QStringLiteral("Mia.bmp")));
  EXPECT_EQ(readFile(image(QStringLiteral("Mia.bmp"))), readFile(app(QStringLiteral("Mia.bmp"))));
  EXPECT_TRUE(items(schermo, "File1").contains(QStringLiteral("Mia.bmp")));
}

TEST_F(SchermoGrafica, UnaLasciataColNomeDiUnAltraNonLaSovrascrive) {
  drawAll(384);
  ASSERT_TRUE(drawnPicture(384, 24, 50).save(app(QStringLiteral("Logo.bmp")), "BMP"));
  const GuidedScreen schermo = pronto();
  Q_EMIT schermo.control<TesseraGrafica>("tessera_9").lasciata(app(QStringLiteral("Logo.bmp")));
  QCoreApplication::processEvents();
  EXPECT_EQ(foot(schermo).kind(), OutcomeBar::Kind::Failed);
  EXPECT_EQ(cell(schermo, 9, 2), QStringLiteral("Carnevale.bmp"));
  EXPECT_EQ(printedForm(CaricaImmagine(image(QStringLiteral("Logo.bmp")))),
            printedForm(drawnPicture(384, 24, 0)));
}

// Folders and drives

TEST_F(SchermoGrafica, UnaCartellaSiApreColDoppioClicESvuotaLAnteprima) {
  drawAll(384);
  ASSERT_TRUE(QDir(images()).mkpath(QStringLiteral("Altre")));
  ASSERT_TRUE(drawnPicture(384, 24, 9).save(image(QStringLiteral("Altre/Logo.bmp")), "BMP"));
  const GuidedScreen schermo = pronto();
  clickRow(schermo, 1);
  doubleClickItem(schermo, "Dir1", QStringLiteral("Altre"));
  EXPECT_EQ(schermo.text(QStringLiteral("LabelPercorso")), image(QStringLiteral("Altre")));
  EXPECT_EQ(items(schermo, "File1"), QStringList{QStringLiteral("Logo.bmp")});
  EXPECT_EQ(foot(schermo).text(), QStringLiteral("1 bitmap in ") + image(QStringLiteral("Altre")));
  EXPECT_EQ(anteprima(schermo), QByteArray());
  EXPECT_EQ(printedForm(tessera(schermo, 1).punti), printedForm(drawnPicture(384, 24, 9)));
  EXPECT_TRUE(tessera(schermo, 2).vuoto);
  doubleClickItem(schermo, "Dir1", QStringLiteral(".."));
  EXPECT_EQ(schermo.text(QStringLiteral("LabelPercorso")), images());
  EXPECT_EQ(items(schermo, "File1").size(), 12);
}

TEST_F(SchermoGrafica, UnaCartellaSparitaNonPortaVia) {
  drawAll(384);
  ASSERT_TRUE(QDir(images()).mkpath(QStringLiteral("Altre")));
  const GuidedScreen schermo = pronto();
  ASSERT_TRUE(QDir(images()).rmdir(QStringLiteral("Altre")));
  doubleClickItem(schermo, "Dir1", QStringLiteral("Altre"));
  EXPECT_EQ(schermo.text(QStringLiteral("LabelPercorso")), images());
  EXPECT_EQ(items(schermo, "Dir1"), QStringList{QStringLiteral("..")});
  EXPECT_EQ(foot(schermo).kind(), OutcomeBar::Kind::Failed);
}

TEST_F(SchermoGrafica, UnUnitaSparitaDiceDriveErrorETornaQuellaDiPrima) {
  const GuidedScreen schermo = pronto();
  auto& unita = schermo.control<QComboBox>("Drive1");
  unita.addItem(app(QStringLiteral("chiavetta")));
  unita.setFocus();
  QTest::keyClick(&unita, Qt::Key_End);
  expectBoxes(program, {plainBox(QStringLiteral("Drive error !"))});
  EXPECT_EQ(unita.currentText(), QStringLiteral("/"));
  EXPECT_EQ(schermo.text(QStringLiteral("LabelPercorso")), images());
}

TEST_F(SchermoGrafica, UnAltraUnitaPortaNellaSuaCartella) {
  ASSERT_TRUE(QDir(app({})).mkpath(QStringLiteral("chiavetta")));
  ASSERT_TRUE(drawnPicture(384, 24, 9).save(app(QStringLiteral("chiavetta/Una.bmp")), "BMP"));
  const GuidedScreen schermo = pronto();
  auto& unita = schermo.control<QComboBox>("Drive1");
  unita.addItem(app(QStringLiteral("chiavetta")));
  unita.setFocus();
  QTest::keyClick(&unita, Qt::Key_End);
  EXPECT_EQ(schermo.text(QStringLiteral("LabelPercorso")), app(QStringLiteral("chiavetta")));
  EXPECT_EQ(items(schermo, "File1"), QStringList{QStringLiteral("Una.bmp")});
}

TEST_F(SchermoGrafica, F5RileggeLaCartella) {
  drawAll(384);
  const GuidedScreen schermo = pronto();
  ASSERT_TRUE(drawnPicture(384, 24, 9).save(image(QStringLiteral("Zeta.bmp")), "BMP"));
  ASSERT_TRUE(QFile::remove(image(QStringLiteral("Logo.bmp"))));
  schermo.control("MSFlexGridGrafica").setFocus();
  schermo.key(Qt::Key_F5);
  EXPECT_TRUE(items(schermo, "File1").contains(QStringLiteral("Zeta.bmp")));
  EXPECT_EQ(foot(schermo).text(), QStringLiteral("12 bitmap in ") + images());
  EXPECT_TRUE(tessera(schermo, 1).vuoto);
}

// The drawing program

TEST_F(SchermoGrafica, SenzaBitmapSceltaModificaAvvisaENonLanciaNulla) {
  const GuidedScreen schermo = pronto();
  schermo.click(kModifica);
  expectBoxes(program, {plainBox(QStringLiteral("Attenzione selezionare prima una bitmap"))});
  EXPECT_TRUE(program.user.programs().isEmpty());
}

TEST_F(SchermoGrafica, ModificaApreLaBitmapELaRilegge) {
  drawAll(384);
  const GuidedScreen schermo = pronto();
  clickRow(schermo, 1);
  ASSERT_TRUE(drawnPicture(384, 24, 60).save(image(QStringLiteral("Logo.bmp")), "BMP"));
  schermo.click(kModifica);
  EXPECT_EQ(program.user.programs(), QStringList{image(QStringLiteral("Logo.bmp"))});
  EXPECT_EQ(anteprima(schermo), printedForm(drawnPicture(384, 24, 60)));
}

TEST_F(SchermoGrafica, ChiTornaDalDisegnoVedeQuelloCheHaSalvato) {
  drawAll(384);
  const GuidedScreen schermo = pronto();
  clickRow(schermo, 1);
  QWidget paint;
  paint.show();
  paint.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&paint));
  ASSERT_TRUE(drawnPicture(384, 24, 61).save(image(QStringLiteral("Logo.bmp")), "BMP"));
  schermo.window().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&schermo.window()));
  EXPECT_EQ(anteprima(schermo), printedForm(drawnPicture(384, 24, 61)));
  EXPECT_EQ(printedForm(tessera(schermo, 1).punti), printedForm(drawnPicture(384, 24, 61)));
}

namespace {

/// A desktop that has nothing for bitmaps.
class SenzaPaint : public ScriptedUser {
 public:
  void OpenWithDesktop(const QString& file) override { throw errors::fileMissing(file); }
  void StartProgram(const QString& program, const QStringList&) override {
    throw errors::fileMissing(program);
  }
};

}  // namespace

TEST_F(SchermoGrafica, UnLancioFallitoDelDisegnoSiDice) {
  drawAll(384);
  RiempiRecGrafica(false, app(QStringLiteral("SetupLOGO.dat")));
  SenzaPaint persona;
  Contesto altro{persona,         program.workspace, program.library, program.network,
                 program.screens, program.clock,     app({})};
  Form_Grafica schermo(altro, converter);
  schermo.setAttribute(Qt::WA_DeleteOnClose, false);
  schermo.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&schermo));
  const GuidedScreen guida(schermo);
  clickRow(guida, 1);
  guida.click(kModifica);
  ASSERT_EQ(persona.boxes().size(), 1U);
  EXPECT_EQ(persona.boxes().front(),
            plainBox(QStringLiteral("Attenzione problema nel lancio del programma paint di windows")));
}

// The way out

TEST_F(SchermoGrafica, EsciSalvaETornaAlMenu) {
  drawAll(384);
  const GuidedScreen schermo = pronto();
  schermo.control<FlexGrid>("MSFlexGridGrafica").setTextMatrix(1, 1, QStringLiteral("Insegna"));
  schermo.control<FlexGrid>("MSFlexGridGrafica").setTextMatrix(2, 1, QStringLiteral("Ignorato"));
  schermo.click(kEsci);
  EXPECT_FALSE(schermo.alive());
  EXPECT_FALSE(open());
  EXPECT_EQ(menusShown, 1);
  EXPECT_EQ(righe().at(0), "Insegna\r");
  EXPECT_EQ(righe().at(2), "Merceologico1\r");
}

TEST_F(SchermoGrafica, DaUnAltraRigaLaPrimaRestaComEra) {
  drawAll(384);
  const GuidedScreen schermo = pronto();
  clickRow(schermo, 2);
  schermo.control<FlexGrid>("MSFlexGridGrafica").setTextMatrix(1, 1, QStringLiteral("Insegna"));
  schermo.click(kEsci);
  EXPECT_EQ(righe().at(0), "Logo\r");
}

TEST_F(SchermoGrafica, EscELaCorniceFannoComeEsci) {
  drawAll(384);
  for (const bool cornice : {false, true}) {
    program.screens.trova(QStringLiteral("start"))->hide();
    const GuidedScreen schermo = pronto();
    clickItem(schermo, "File1", QStringLiteral("Natale.bmp"));
    if (cornice)
      schermo.window().close();
    else
      schermo.key(Qt::Key_Escape);
    EXPECT_FALSE(schermo.alive());
    EXPECT_EQ(righe().at(1), "Natale.bmp\r");
  }
  EXPECT_EQ(menusShown, 2);
}

TEST_F(SchermoGrafica, InvioNonEsce) {
  const GuidedScreen schermo = pronto();
  schermo.control(kEsci).setFocus();
  schermo.key(Qt::Key_Return);
  EXPECT_TRUE(schermo.alive());
}

TEST_F(SchermoGrafica, SeNonSiSalvaLoSiDiceESiEsceLoStesso) {
  drawAll(384);
  const GuidedScreen schermo = pronto();
  {
    const FullDisk pieno(10);
    schermo.click(kEsci);
  }
  expectBoxes(program, {plainBox(QStringLiteral("Error 61 (*"))});
  EXPECT_FALSE(schermo.alive());
  EXPECT_EQ(righe().at(1), "Logo.bmp\r");
}

TEST_F(SchermoGrafica, RiaprendoIlCatalogoEQuelloSalvato) {
  drawAll(384);
  {
    const GuidedScreen schermo = pronto();
    clickRow(schermo, 6);
    clickItem(schermo, "File1", QStringLiteral("Logo.bmp"));
    schermo.click(kEsci);
  }
  const GuidedScreen schermo = screen();
  EXPECT_EQ(cell(schermo, 6, 1), QStringLiteral("FestaPapà"));
  EXPECT_EQ(cell(schermo, 6, 2), QStringLiteral("Logo.bmp"));
}

namespace {

/// The screen as large as on a small monitor, with letters of so many points.
void inPiccolo(const GuidedScreen& schermo, int punti) {
  QFont carattere = schermo.window().font();
  carattere.setPointSize(punti);
  schermo.window().setFont(carattere);
  schermo.window().resize(1000, 720);
  QCoreApplication::processEvents();
}

}  // namespace

TEST_F(SchermoGrafica, INomiDelCatalogoSiLeggonoInteriSenzaScorrereDiLato) {
  drawAll(640);
  const GuidedScreen schermo = pronto();
  for (const int punti : {9, 11, 12}) {
    inPiccolo(schermo, punti);
    const auto& griglia = schermo.control<FlexGrid>("MSFlexGridGrafica");
    EXPECT_EQ(griglia.horizontalScrollBar()->maximum(), 0) << punti;
    for (int colonna = 0; colonna < 3; ++colonna)
      for (int riga = 1; riga <= 12; ++riga)
        EXPECT_LT(griglia.fontMetrics().horizontalAdvance(griglia.TextMatrix(riga, colonna)),
                  griglia.columnWidth(colonna))
            << punti << ' ' << griglia.TextMatrix(riga, colonna).toStdString();
  }
}

TEST_F(SchermoGrafica, SulleTessereITipiSiLeggonoInteri) {
  drawAll(640);
  const GuidedScreen schermo = pronto();
  for (const int punti : {9, 11, 12}) {
    inPiccolo(schermo, punti);
    int numero = 0;
    for (const QString& tipo : defaultTypes()) {
      auto& una = schermo.control<TesseraGrafica>(QStringLiteral("tessera_%1").arg(++numero));
      const Esame esame = una.esame();
      const auto dipinta = [&](const QString& quale) {
        una.mostra(quale, QStringLiteral("a.bmp"), esame);
        return una.grab().toImage();
      };
      // A type that is cut short looks like one that differs in its last letter.
      EXPECT_NE(dipinta(tipo), dipinta(tipo.chopped(1) + u'#')) << punti << ' ' << tipo.toStdString();
    }
  }
}

TEST_F(SchermoGrafica, UnNomeTagliatoNegliElenchiSiLeggeNelSuggerimento) {
  drawAll(384);
  ASSERT_TRUE(QDir(images()).mkpath(QStringLiteral("Altre")));
  const GuidedScreen schermo = pronto();
  EXPECT_EQ(
      schermo.control<QListWidget>("File1").item(5)->toolTip(),
      QStringLiteral("Merceologico1.bmp\nUn clic, o Invio, dà la bitmap alla riga scelta del catalogo"));
  EXPECT_EQ(schermo.control<QListWidget>("Dir1").item(1)->toolTip(),
            QStringLiteral("Altre\nInvio o doppio clic apre la cartella"));
}

TEST_F(SchermoGrafica, SeIlNomeDelFileNonEntraNellaTesseraCedePrimaLEstensione) {
  drawAll(640);
  const GuidedScreen schermo = pronto();
  inPiccolo(schermo, 12);
  auto& una = schermo.control<TesseraGrafica>("tessera_5");
  const Esame esame = una.esame();
  const auto dipinta = [&](const char* nome) {
    una.mostra(QStringLiteral("FestaMamma"), QString::fromLatin1(nome), esame);
    return una.grab().toImage();
  };
  EXPECT_NE(dipinta("FestaMamma.bmp"), dipinta("FestaMummu.bmp"));
  EXPECT_NE(dipinta("a.bmp"), dipinta("a.BMP")) << "where there is room it stands";
}

TEST_F(SchermoGrafica, A12PuntiStaInUnoSchermo) {
  drawAll(384);
  const GuidedScreen schermo = pronto();
  // A path of any length gives up its middle.
  schermo.control<QLabel>("LabelPercorso").setText(QStringLiteral("/"));
  expectFitsAtTwelvePoints(schermo);
}
