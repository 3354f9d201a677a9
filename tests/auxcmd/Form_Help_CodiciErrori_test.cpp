#include "auxcmd/Form_Help_CodiciErrori.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>

#include "platform/error.h"
#include "sostegno/guided_screen.h"

namespace {

const QString kSchermo = QStringLiteral("Form_Help_CodiciErrori");
const QString kFile = QStringLiteral("Help_Errori_XONXOFF.rtf");

class HelpCodiciErrori : public testing::Test {
 protected:
  HelpCodiciErrori() {
    programma.screens.registra<Form_Help_CodiciErrori>();
    programma.contesto.cartella = programma.folder.path();
    QByteArray righe;
    for (int numero = 1; numero <= 200; ++numero) righe += QByteArray::number(numero) + " errore\\par\n";
    programma.folder.write(kFile, "{\\rtf1\\ansi {\\b Codici} di errore, perch\\'e9\\par\n" + righe + "}");
  }

  ProgramFixture programma;
};

}  // namespace

TEST_F(HelpCodiciErrori, MostraIlTestoInSolaLettura) {
  const GuidedScreen schermo(programma, kSchermo);
  EXPECT_EQ(schermo.window().windowTitle(), QStringLiteral("Help Codici Errori"));
  EXPECT_EQ(schermo.text(QStringLiteral("Cmd_Esci")), QStringLiteral("Esci"));
  auto& testo = schermo.control<QTextBrowser>("RichTextBox1");
  const QString prima = testo.toPlainText();
  EXPECT_TRUE(prima.startsWith(QStringLiteral("Codici di errore, perché\n1 errore\n2 errore\n")));
  QTest::keyClicks(&testo, QStringLiteral("x"));
  EXPECT_EQ(testo.toPlainText(), prima);
}

TEST_F(HelpCodiciErrori, SiScorreConITasti) {
  const GuidedScreen schermo(programma, kSchermo);
  auto& testo = schermo.control<QTextBrowser>("RichTextBox1");
  EXPECT_TRUE(testo.hasFocus());
  const QScrollBar& barra = *testo.verticalScrollBar();
  EXPECT_EQ(barra.value(), 0);
  schermo.key(Qt::Key_PageDown);
  EXPECT_GT(barra.value(), 0);
  schermo.key(Qt::Key_End);
  EXPECT_EQ(barra.value(), barra.maximum());
}

TEST_F(HelpCodiciErrori, EscEIlPulsanteChiudonoInvioSoloSulPulsante) {
  const GuidedScreen coiTasti(programma, kSchermo);
  coiTasti.key(Qt::Key_Return);
  EXPECT_TRUE(coiTasti.alive());
  coiTasti.key(Qt::Key_Escape);
  EXPECT_FALSE(coiTasti.alive());
  const GuidedScreen colMouse(programma, kSchermo);
  colMouse.click(QStringLiteral("Cmd_Esci"));
  EXPECT_FALSE(colMouse.alive());
  EXPECT_EQ(programma.screens.trova(kSchermo), nullptr);
}

TEST_F(HelpCodiciErrori, IlComandoLoApreModale) {
  QString titolo;
  withModal([&] { auxcmd::MostraCodiciErrori(programma.contesto); },
            [&](QWidget& schermo) {
              titolo = schermo.windowTitle();
              QTest::keyClick(&schermo, Qt::Key_Escape);
            });
  EXPECT_EQ(titolo, QStringLiteral("Help Codici Errori"));
  EXPECT_EQ(programma.screens.trova(kSchermo), nullptr);
  expectBoxes(programma, {});
}

TEST_F(HelpCodiciErrori, SenzaFileAvvisaENonApreNiente) {
  QFile::remove(programma.folder.file(kFile));
  auxcmd::MostraCodiciErrori(programma.contesto);
  expectBoxes(programma,
              {plainBox(QStringLiteral("Attenzione il file di Help per errori Xon Xoff non presente"))});
  EXPECT_EQ(programma.screens.trova(kSchermo), nullptr);
}

TEST_F(HelpCodiciErrori, UnFileRottoOSparitoDiceQualeErrore) {
  const auto numero = [&] {
    try {
      programma.screens.carica(kSchermo, programma.contesto);
    } catch (const Errore& errore) {
      EXPECT_FALSE(errore.descrizione.isEmpty());
      return errore.numero;
    }
    return 0;
  };
  programma.folder.write(kFile, "niente di buono");
  EXPECT_EQ(numero(), 321);
  QFile::remove(programma.folder.file(kFile));
  EXPECT_EQ(numero(), 53);
  EXPECT_EQ(programma.screens.trova(kSchermo), nullptr);
}
