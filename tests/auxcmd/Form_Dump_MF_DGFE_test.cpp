#include "auxcmd/Form_Dump_MF_DGFE.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QPlainTextEdit>
#include <QTest>

#include "controls/outcome_bar.h"
#include "sostegno/guided_screen.h"
#include "sostegno/troubles.h"

namespace {

const QString kSchermo = QStringLiteral("Form_Dump_MF_DGFE");
const QString kPreso = QStringLiteral("TempDump_Memory.dat");
const QString kSalva = QStringLiteral("Cmd_Salva");
const QString kTestoBox = QStringLiteral("RichTextBox1");
const QString kAssente =
    QStringLiteral("Attenzione il file temporaneo per il dump della memoria potrebbe essere assente !!!");
constexpr qsizetype kMega = 1024 * 1024;

class DumpMemoria : public testing::Test {
 protected:
  DumpMemoria() {
    programma.screens.registra<Form_Dump_MF_DGFE>();
    programma.contesto.cartella = programma.folder.path();
  }

  void preso(const QByteArray& dump) { programma.folder.write(kPreso, dump); }
  static QString piede(const GuidedScreen& schermo) {
    return schermo.control<OutcomeBar>("BarraEsito").text();
  }
  static OutcomeBar::Kind genere(const GuidedScreen& schermo) {
    return schermo.control<OutcomeBar>("BarraEsito").kind();
  }

  ProgramFixture programma;
};

}  // namespace

TEST_F(DumpMemoria, MostraIlGiornaleConIlSuoTitolo) {
  preso("X\"000101991201\"10F\r\nTOTALE \x80 5,00\r\nfine");
  const GuidedScreen schermo(programma, kSchermo);
  EXPECT_EQ(schermo.window().windowTitle(),
            QStringLiteral("Dump Memoria GIORNALE DI FONDO ELETTRONICO (DGFE)"));
  EXPECT_EQ(schermo.text(kTestoBox), QStringLiteral("X\"000101991201\"10F\nTOTALE € 5,00\nfine"));
  EXPECT_EQ(piede(schermo), QStringLiteral("39 byte"));
  EXPECT_EQ(programma.folder.read(QStringLiteral("Temp.dat")), QByteArray("\r\nTOTALE \x80 5,00\r\nfine"));
}

TEST_F(DumpMemoria, MostraLaMemoriaFiscaleConIlSuoTitolo) {
  preso("X\"0000165536\"13F\r\nazzeramento 1");
  const GuidedScreen schermo(programma, kSchermo);
  EXPECT_EQ(schermo.window().windowTitle(), QStringLiteral("Dump Memoria MEMORIA FISCALE (MF)"));
  EXPECT_EQ(schermo.text(kTestoBox), QStringLiteral("X\"0000165536\"13F\nazzeramento 1"));
}

TEST_F(DumpMemoria, UnFileDiNessunaMemoriaNonSiMostra) {
  preso("X89F e altro");
  const GuidedScreen schermo(programma, kSchermo);
  EXPECT_EQ(schermo.window().windowTitle(), QStringLiteral("Dump Memoria"));
  EXPECT_EQ(schermo.text(kTestoBox), QString());
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Warning);
  EXPECT_EQ(piede(schermo),
            QStringLiteral("Il file TempDump_Memory.dat non contiene un dump del DGFE o della MF"));
}

TEST_F(DumpMemoria, SenzaFileSiApreVuoto) {
  const GuidedScreen schermo(programma, kSchermo);
  EXPECT_EQ(schermo.window().windowTitle(), QStringLiteral("Dump Memoria"));
  EXPECT_EQ(schermo.text(kTestoBox), QString());
  EXPECT_EQ(piede(schermo), QStringLiteral("Nessun dump da mostrare"));
  expectBoxes(programma, {});
}

TEST_F(DumpMemoria, IlTestoSiLeggeENonSiScrive) {
  preso("10F\r\nuna riga");
  const GuidedScreen schermo(programma, kSchermo);
  auto& testo = schermo.control<QPlainTextEdit>(kTestoBox);
  EXPECT_TRUE(testo.hasFocus());
  QTest::keyClicks(&testo, QStringLiteral("x"));
  EXPECT_EQ(testo.toPlainText(), QStringLiteral("10F\nuna riga"));
  testo.selectAll();
  EXPECT_EQ(testo.textCursor().selectedText().size(), 12);
}

TEST_F(DumpMemoria, QuelCheNonSiStampaEUnPuntoEOgniFineRigaVale) {
  preso(QByteArray("10F\0\x01\x7F\tz\runo\ndue\r\n\r\ntre", 23));
  const GuidedScreen schermo(programma, kSchermo);
  EXPECT_EQ(schermo.text(kTestoBox), QStringLiteral("10F···\tz\nuno\ndue\n\ntre"));
}

TEST_F(DumpMemoria, UnaRigaSenzaFineVaACapo) {
  preso("10F" + QByteArray(2500, 'x'));
  const GuidedScreen schermo(programma, kSchermo);
  const QStringList righe = schermo.text(kTestoBox).split(u'\n');
  ASSERT_EQ(righe.size(), 3);
  EXPECT_EQ(righe[0], QStringLiteral("10F") + QString(997, u'x'));
  EXPECT_EQ(righe[1], QString(1000, u'x'));
  EXPECT_EQ(righe[2], QString(503, u'x'));
}

TEST_F(DumpMemoria, DiUnFileEnormeSiMostraLInizioESiDice) {
  QByteArray enorme = "10F\r\n";
  while (enorme.size() < 5 * kMega) enorme += QByteArray(62, 'x') + "\r\n";
  preso(enorme);
  const GuidedScreen schermo(programma, kSchermo);
  // The first line, 32767 whole lines of 62 letters and the cut one's first 59.
  EXPECT_EQ(schermo.text(kTestoBox).size(), 4 + 32767 * 63 + 59);
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Warning);
  EXPECT_EQ(piede(schermo),
            QStringLiteral("Mostrati i primi 2.097.152 byte di 5.242.885: \"Salva\" copia il file intero"));
}

TEST_F(DumpMemoria, SalvaCopiaIlFileInteroDoveSiSceglie) {
  const QByteArray dump = "12F\r\n" + QByteArray(3 * kMega, '\0');
  preso(dump);
  const GuidedScreen schermo(programma, kSchermo);
  EXPECT_EQ(schermo.text(kSalva), QStringLiteral("Salva"));
  programma.user.chooses(programma.folder.file(QStringLiteral("mio.dat")));
  schermo.click(kSalva);
  EXPECT_TRUE(programma.folder.read(QStringLiteral("mio.dat")) == dump);
  ASSERT_EQ(programma.user.requests().size(), 1U);
  EXPECT_EQ(programma.user.requests()[0].filter, QStringLiteral("dat (*.dat)|*.dat"));
  EXPECT_TRUE(programma.user.requests()[0].asksBeforeReplacing);
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Done);
  EXPECT_EQ(piede(schermo), QStringLiteral("Salvati 3.145.733 byte in mio.dat"));
  expectBoxes(programma, {});
}

TEST_F(DumpMemoria, CtrlSSalva) {
  preso("12F");
  const GuidedScreen schermo(programma, kSchermo);
  programma.user.chooses(programma.folder.file(QStringLiteral("mio.dat")));
  QTest::keyClick(&schermo.window(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(programma.folder.read(QStringLiteral("mio.dat")), QByteArray("12F"));
}

TEST_F(DumpMemoria, SalvaAnnullatoNonScrive) {
  preso("12F");
  const GuidedScreen schermo(programma, kSchermo);
  programma.user.chooses(std::nullopt).chooses(QString());
  schermo.click(kSalva);
  schermo.click(kSalva);
  EXPECT_EQ(programma.user.requests().size(), 2U);
  EXPECT_EQ(piede(schermo), QString());
  expectBoxes(programma, {});
}

TEST_F(DumpMemoria, SalvaSenzaFileAvvisa) {
  preso("12F");
  const GuidedScreen schermo(programma, kSchermo);
  QFile::remove(programma.folder.file(kPreso));
  schermo.click(kSalva);
  expectBoxes(programma, {Box{kAssente, Icon::None, QStringLiteral("ATTENZIONE")}});
  EXPECT_TRUE(programma.user.requests().empty());
}

TEST_F(DumpMemoria, ColDiscoPienoLaCopiaDiPrimaResta) {
  preso("12F" + QByteArray(5000, 'x'));
  const GuidedScreen schermo(programma, kSchermo);
  const QString mio = programma.folder.write(QStringLiteral("mio.dat"), "di prima");
  programma.user.chooses(mio);
  {
    const FullDisk pieno(1000);
    schermo.click(kSalva);
  }
  EXPECT_EQ(programma.folder.read(QStringLiteral("mio.dat")), QByteArray("di prima"));
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Warning);
  EXPECT_TRUE(piede(schermo).contains(QStringLiteral("Disco pieno: ")));
  expectBoxes(programma, {plainBox(QStringLiteral("Error 61 (Disco pieno: *"))});
}

TEST_F(DumpMemoria, ColDiscoPienoAllAperturaLoDiceIlPiede) {
  preso("12F" + QByteArray(5000, 'x'));
  const FullDisk pieno(1000);
  const GuidedScreen schermo(programma, kSchermo);
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Failed);
  EXPECT_TRUE(piede(schermo).startsWith(QStringLiteral("Disco pieno: ")));
  EXPECT_EQ(schermo.text(kTestoBox), QString());
}

TEST_F(DumpMemoria, EscEIlPulsanteChiudonoInvioNo) {
  preso("12F");
  const GuidedScreen coiTasti(programma, kSchermo);
  coiTasti.key(Qt::Key_Return);
  EXPECT_TRUE(coiTasti.alive());
  coiTasti.key(Qt::Key_Escape);
  EXPECT_FALSE(coiTasti.alive());
  const GuidedScreen colMouse(programma, kSchermo);
  EXPECT_EQ(colMouse.text(QStringLiteral("Cmd_Esci")), QStringLiteral("Esci"));
  colMouse.click(QStringLiteral("Cmd_Esci"));
  EXPECT_FALSE(colMouse.alive());
  EXPECT_EQ(programma.screens.trova(kSchermo), nullptr);
}

TEST_F(DumpMemoria, StaNelloSchermoADodiciPunti) {
  preso("12F");
  const GuidedScreen schermo(programma, kSchermo);
  expectFitsAtTwelvePoints(schermo);
}
