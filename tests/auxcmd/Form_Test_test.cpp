#include "auxcmd/Form_Test.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTest>

#include "auxcmd/channel.h"
#include "auxcmd/console_scene.h"
#include "platform/serial/serial_port.h"
#include "sostegno/troubles.h"

namespace {

const QString kScript = QStringLiteral("TEST_XON_XOFF/test_invio.txt");
const QString kInvia = QStringLiteral("Cmd_Invia");
const QString kSalva = QStringLiteral("Cmd_Salva");
const QString kReset = QStringLiteral("vkCommandReset");
const QString kEsci = QStringLiteral("Cmd_Esci");
const QString kTesto = QStringLiteral("RichTextBoxTest");

class ProvaLibera : public ConsoleScene {
 protected:
  GuidedScreen prova() { return {program, QStringLiteral("Form_Test")}; }
  static void scrivi(const GuidedScreen& schermo, const QString& testo) {
    auto& casella = schermo.control<QPlainTextEdit>("RichTextBoxTest");
    casella.setFocus();
    casella.selectAll();
    QTest::keyClick(&casella, Qt::Key_Backspace);
    for (const QChar uno : testo) {
      // The test library knows only the keys of an American keyboard.
      QKeyEvent tasto(QEvent::KeyPress, uno == u'\n' ? Qt::Key_Return : 0, Qt::NoModifier, QString(uno));
      QCoreApplication::sendEvent(&casella, &tasto);
    }
  }
  Box assente() const {
    return criticalBox(
        QStringLiteral("Attenzione controllare il percorso [ %1/TEST_XON_XOFF/test_invio.txt ] "
                       "potrebbe essere inesistente")
            .arg(cartella_.path()));
  }
};

}  // namespace

TEST_F(ProvaLibera, MostraIlFileCheCE) {
  write(kScript, "1R\r\n\"\xE0\"2R\r\n");
  const GuidedScreen schermo = prova();
  EXPECT_EQ(schermo.window().windowTitle(), QStringLiteral("Test"));
  EXPECT_EQ(schermo.text(kTesto), QStringLiteral("1R\n\"à\"2R\n"));
  EXPECT_EQ(schermo.text(QStringLiteral("vkLabelTestGenerico")), QStringLiteral("Test_Invio.txt"));
  EXPECT_EQ(schermo.text(kInvia), QStringLiteral("Invia"));
  EXPECT_EQ(schermo.text(kSalva), QStringLiteral("Salva"));
  EXPECT_EQ(schermo.text(kReset), QStringLiteral("Cancella"));
  EXPECT_EQ(schermo.text(kEsci), QStringLiteral("Esci"));
}

TEST_F(ProvaLibera, SenzaFileSiApreVuotaEInviareESalvareLoDicono) {
  KeysTill cassa;
  const GuidedScreen console = networkConsole(cassa.address());
  const GuidedScreen schermo = prova();
  EXPECT_EQ(schermo.text(kTesto), QString());
  scrivi(schermo, QStringLiteral("1R"));
  for (const QString& comando : {kSalva, kInvia}) {
    schermo.click(comando);
    expectBoxes(program, {assente()});
  }
  EXPECT_TRUE(files(QStringLiteral("*")).isEmpty());
  EXPECT_FALSE(QFile::exists(app(kScript)));
  EXPECT_EQ(cassa.sequences(), QStringList());
}

TEST_F(ProvaLibera, UnFileCheNonSiLeggeNonSiCopre) {
  const QByteArray enorme(2 * 1024 * 1024, 'x');
  write(kScript, enorme);
  const GuidedScreen schermo = prova();
  expectBoxes(program, {plainBox(QStringLiteral("Error 62 (*"))});
  for (const QString& comando : {kInvia, kSalva, kReset}) {
    EXPECT_FALSE(schermo.enabled(comando));
    EXPECT_EQ(schermo.control(comando).toolTip(),
              QStringLiteral("Il file test_invio.txt non si è potuto leggere: resta com'è"));
  }
  QTest::keyClicks(&schermo.control(kTesto), QStringLiteral("1R"));
  schermo.key(Qt::Key_F9);
  QTest::keyClick(&schermo.window(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(schermo.text(kTesto), QString());
  EXPECT_TRUE(read(kScript) == enorme);
  schermo.click(kEsci);
  EXPECT_FALSE(schermo.alive());
}

TEST_F(ProvaLibera, SalvaScriveIlTestoAccendeInviaESiSpegne) {
  write(kScript, "vecchio");
  const GuidedScreen schermo = prova();
  scrivi(schermo, QStringLiteral("1R\n\"€ à\"2R "));
  EXPECT_TRUE(schermo.enabled(kSalva));
  schermo.control(kInvia).setEnabled(false);
  schermo.click(kSalva);
  EXPECT_EQ(read(kScript), "1R\r\n\"\x80 \xE0\"2R ");
  EXPECT_TRUE(schermo.enabled(kInvia));
  EXPECT_FALSE(schermo.enabled(kSalva));
  EXPECT_EQ(foot(schermo), QStringLiteral("Salvato in test_invio.txt"));
  QTest::keyClicks(&schermo.control(kTesto), QStringLiteral("x"));
  EXPECT_TRUE(schermo.enabled(kSalva)) << "there is something to save again";
}

TEST_F(ProvaLibera, InviaSalvaEMandaRigaPerRiga) {
  write(kScript, "vecchio");
  KeysTill cassa;
  const GuidedScreen console = networkConsole(cassa.address());
  const GuidedScreen schermo = prova();
  scrivi(schermo, QStringLiteral("1R\n\n 2R \n1T"));
  schermo.click(kInvia);
  EXPECT_EQ(read(kScript), "1R\r\n\r\n 2R \r\n1T");
  EXPECT_EQ(cassa.sequences(), texts({"", "1R", " 2R ", "1T"}));
  EXPECT_EQ(foot(schermo), QStringLiteral("Inviato test_invio.txt"));
  expectBoxes(program, {});
}

TEST_F(ProvaLibera, UnaRigaRifiutataSiDiceELeAltreVannoLoStesso) {
  write(kScript, "1R\r\n2R\r\n3R\r\n");
  KeysTill cassa([](const std::string& sequenza) { return KeysAnswer{sequenza == "2R" ? 19 : 0, {}}; });
  const GuidedScreen console = networkConsole(cassa.address());
  const GuidedScreen schermo = prova();
  schermo.click(kInvia);
  const QString testo = QStringLiteral("Errore nella comunicazione con ECR: Sequenza di tasti non accettata");
  expectBoxes(program, {criticalBox(testo)});
  EXPECT_EQ(cassa.sequences(), texts({"", "1R", "2R", "3R"}));
  EXPECT_EQ(foot(schermo), testo);
}

TEST_F(ProvaLibera, SullaPortaUnSecondoClicNonMescolaLeRighe) {
  write(kScript, "1R\r\n2R\r\n");
  const GuidedScreen console = serialConsole();
  const GuidedScreen schermo = prova();
  steps.when([this] { return peer.received() == "1R"; },
             [&] {
               schermo.click(kInvia);
               varGlobal().FlagRisposta = auxcmd::kTempoScaduto;
             });
  steps.when([this] { return peer.received() == "1R2R"; },
             [] { varGlobal().FlagRisposta = auxcmd::kTempoScaduto; });
  schermo.click(kInvia);
  EXPECT_EQ(peer.received(), "1R2R");
  EXPECT_EQ(foot(schermo), QStringLiteral("Inviato test_invio.txt"));
}

TEST_F(ProvaLibera, SenzaPortaAvvisaDopoAverSalvato) {
  write(kScript, "vecchio");
  const GuidedScreen console = this->console();
  const GuidedScreen schermo = prova();
  scrivi(schermo, QStringLiteral("1R"));
  schermo.click(kInvia);
  expectBoxes(program, {box(QStringLiteral("Attenzione selezionare una porta COM valida"), Icon::Warning)});
  EXPECT_EQ(read(kScript), "1R");
}

TEST_F(ProvaLibera, UnaPortaCheSparisceFraDueRigheSiDice) {
  write(kScript, "1R\r\n2R\r\n");
  const GuidedScreen console = serialConsole();
  const GuidedScreen schermo = prova();
  steps.when([this] { return peer.received() == "1R"; }, [this] { peer.unplug(); });
  schermo.click(kInvia);
  expectBoxes(program, {criticalBox(QStringLiteral("Errore sulla porta COM: La porta %1 non c'è")
                                        .arg(app(QStringLiteral("Porte/COM7"))))});
}

TEST_F(ProvaLibera, ChiusaNelMezzoLeAltreRigheNonVannoELaPortaSiLascia) {
  write(kScript, "1R\r\n2R\r\n");
  const GuidedScreen console = serialConsole();
  modally("Form_Test", [this](const GuidedScreen& schermo) {
    steps.when([this] { return peer.received() == "1R"; }, [&] { schermo.click(kEsci); });
    schermo.click(kInvia);
    EXPECT_FALSE(schermo.alive());
  });
  EXPECT_EQ(peer.received(), "1R");
  SerialPort altro;
  altro.open(peer.path(), 9600);
  EXPECT_TRUE(altro.isOpen());
}

TEST_F(ProvaLibera, CancellaVuotaLaCasellaENonIlFile) {
  write(kScript, "1R\r\n");
  const GuidedScreen schermo = prova();
  schermo.click(kReset);
  EXPECT_EQ(schermo.text(kTesto), QString());
  EXPECT_EQ(read(kScript), "1R\r\n");
  EXPECT_EQ(schermo.focus(), kTesto);
}

TEST_F(ProvaLibera, UnoScriptVuotoMandaSoloLApertura) {
  write(kScript, "1R\r\n");
  KeysTill cassa;
  const GuidedScreen console = networkConsole(cassa.address());
  const GuidedScreen schermo = prova();
  schermo.click(kReset);
  schermo.click(kInvia);
  EXPECT_EQ(cassa.sequences(), texts({""}));
  EXPECT_EQ(read(kScript), QByteArray());
}

TEST_F(ProvaLibera, UnDiscoPienoLasciaIlFileDiPrimaELoDice) {
  write(kScript, "1R\r\n");
  const GuidedScreen schermo = prova();
  scrivi(schermo, QStringLiteral("2R"));
  {
    const FullDisk pieno(0);
    schermo.click(kSalva);
  }
  expectBoxes(program, {plainBox(QStringLiteral("Error 61 (*"))});
  EXPECT_EQ(read(kScript), "1R\r\n");
  EXPECT_TRUE(schermo.enabled(kSalva));
}

TEST_F(ProvaLibera, CtrlSSalvaF9InviaEdEscEsce) {
  write(kScript, "1R\r\n");
  KeysTill cassa;
  const GuidedScreen console = networkConsole(cassa.address());
  const GuidedScreen schermo = prova();
  scrivi(schermo, QStringLiteral("5P"));
  QTest::keyClick(&schermo.window(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(read(kScript), "5P");
  schermo.key(Qt::Key_F9);
  EXPECT_EQ(cassa.sequences(), texts({"", "5P"}));
  schermo.key(Qt::Key_Escape);
  EXPECT_FALSE(schermo.alive());
}

TEST_F(ProvaLibera, StaNelloSchermoADodiciPunti) {
  const GuidedScreen schermo = prova();
  expectFitsAtTwelvePoints(schermo);
}
