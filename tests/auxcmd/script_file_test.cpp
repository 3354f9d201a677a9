#include "auxcmd/script_file.h"

#include <gtest/gtest.h>

#include "auxcmd/channel.h"
#include "auxcmd/console_scene.h"
#include "auxcmd/serial_line.h"
#include "devices/keyboard_scene.h"
#include "platform/error.h"

namespace {

const QString kScript = QStringLiteral("prova.txt");

/// A screen whose timer fires as soon as the line has taken what was sent.
class VistaScript : public auxcmd::VistaCanale {
 public:
  explicit VistaScript(const QString& cartella) : linea_(cartella) {}
  QString porta() const override { return testoPorta; }
  int velocita() const override { return 9600; }
  LineaCOM& linea() override { return linea_; }
  void fuocoSuEsci() override {}
  void abilitaComandi() override {}
  void scambiaLed() override {}
  void spegniLed() override {}
  void mostraAttesa() override { ++attese; }
  void togliAttesa() override { ++tolte; }
  bool chiusa() const override { return siEChiusa; }
  void annota(auxcmd::Verso verso, const QByteArray& byte) override {
    if (verso == auxcmd::Verso::Inviato) inviate << QString::fromLatin1(byte);
  }

  QString testoPorta = QStringLiteral("COM  7");
  bool siEChiusa = false;
  int attese = 0;
  int tolte = 0;
  QStringList inviate;

 private:
  LineaCOM linea_;
};

class FileScript : public ApplicationFolder, public testing::Test {
 protected:
  FileScript() { plug(peer); }
  // The library has room for few connections, and keeps them from test to test.
  ~FileScript() override {
    const std::int32_t collegamento = commonForKora().hConnXonXoff;
    if (collegamento > 0) program.library.ecr_disc_xonxoff_ntw(collegamento);
  }

  void collega(const KeysTill& cassa) {
    commonForKora().IP_ECR = cassa.address();
    commonForKora().hConnXonXoff = program.library.ecr_conn_xonxoff_ntw(cassa.address().toLatin1());
    ASSERT_GT(commonForKora().hConnXonXoff, 0);
  }
  QString script(const QByteArray& byte) {
    write(kScript, byte);
    return app(kScript);
  }
  /// Each command on the line ends as soon as it is there whole.
  void ogniRigaFinisce() {
    peer.onArrival = [this] {
      if (peer.received().endsWith(vista.inviate.last().toLatin1())) varGlobal().FlagRisposta = 100;
    };
  }

  SerialPeer peer;
  ProgramFixture program{QStringLiteral(GESTIONALE_APP), cartella_.path()};
  VistaScript vista{cartella_.path()};
};

}  // namespace

TEST_F(FileScript, SullaRetePrimaUnaSequenzaVuotaPoiLeRighe) {
  KeysTill cassa;
  collega(cassa);
  EXPECT_EQ(auxcmd::InviaFileXonXoff(script("1R\r\n2R\n\"A \"3R"), vista, program.contesto), 0);
  EXPECT_EQ(cassa.sequences(), texts({"", "1R", "2R", "\"A \"3R"}));
}

TEST_F(FileScript, LeRigheVuoteSiPassanoEGliSpaziRestano) {
  KeysTill cassa;
  collega(cassa);
  auxcmd::InviaFileXonXoff(script("\r\n 1R \r\n   \r\n\r\n2R\r\n"), vista, program.contesto);
  EXPECT_EQ(cassa.sequences(), texts({"", " 1R ", "2R"}));
}

TEST_F(FileScript, UnFileVuotoMandaSoloLApertura) {
  KeysTill cassa;
  collega(cassa);
  EXPECT_EQ(auxcmd::InviaFileXonXoff(script({}), vista, program.contesto), 0);
  EXPECT_EQ(cassa.sequences(), texts({""}));
}

TEST_F(FileScript, LAperturaRifiutataFinisceConUnoELeRigheNonVanno) {
  KeysTill cassa([](const std::string&) { return KeysAnswer{7, {}}; });
  collega(cassa);
  EXPECT_EQ(auxcmd::InviaFileXonXoff(script("1R\n"), vista, program.contesto), 1);
  EXPECT_EQ(cassa.sequences(), texts({""}));
  expectBoxes(program,
              {criticalBox(QStringLiteral("Errore nella comunicazione con ECR: Comando rifiutato nello "
                                          "stato attuale della cassa"))});
}

TEST_F(FileScript, UnaRigaRifiutataSiDiceELeAltreVannoLoStesso) {
  KeysTill cassa([](const std::string& sequenza) { return KeysAnswer{sequenza == "2R" ? 19 : 0, {}}; });
  collega(cassa);
  EXPECT_EQ(auxcmd::InviaFileXonXoff(script("1R\n2R\n3R\n"), vista, program.contesto), 1);
  EXPECT_EQ(cassa.sequences(), texts({"", "1R", "2R", "3R"}));
  expectBoxes(
      program,
      {criticalBox(QStringLiteral("Errore nella comunicazione con ECR: Sequenza di tasti non accettata"))});
}

TEST_F(FileScript, SullaPortaOgniRigaVaInteraENienteApertura) {
  ogniRigaFinisce();
  EXPECT_EQ(auxcmd::InviaFileXonXoff(script("1R\r\n100H2R\r\n"), vista, program.contesto), 0);
  EXPECT_EQ(vista.inviate, texts({"1R", "100H2R"}));
  EXPECT_EQ(peer.received(), "1R100H2R");
  EXPECT_EQ(vista.attese, 0);
}

TEST_F(FileScript, UnFileCheNonCEFallisceConErrore53) {
  KeysTill cassa;
  collega(cassa);
  try {
    auxcmd::InviaFileXonXoff(app(QStringLiteral("niente.txt")), vista, program.contesto);
    ADD_FAILURE() << "sent all the same";
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, 53);
  }
}

TEST_F(FileScript, ConRispostaSullaReteNonCEAperturaENonSiAspetta) {
  KeysTill cassa;
  collega(cassa);
  EXPECT_EQ(auxcmd::SendFileTXT(script("1R\n\n2R\n"), vista, program.contesto), 0);
  EXPECT_EQ(cassa.sequences(), texts({"1R", "2R"}));
  EXPECT_EQ(vista.tolte, 1);
}

TEST_F(FileScript, ConRispostaSullaPortaOgniRigaHaLaSuaAttesa) {
  ogniRigaFinisce();
  EXPECT_EQ(auxcmd::SendFileTXT(script("1R\n2R\n"), vista, program.contesto), 0);
  EXPECT_EQ(peer.received(), "1R2R");
  EXPECT_EQ(vista.attese, 2);
}

TEST_F(FileScript, ConRispostaSenzaPortaAvvisaENonMandaNiente) {
  vista.testoPorta = QStringLiteral("Seleziona");
  EXPECT_EQ(auxcmd::SendFileTXT(script("1R\n"), vista, program.contesto), 1);
  expectBoxes(program, {box(QStringLiteral("Attenzione selezionare una porta COM valida"), Icon::Warning)});
  EXPECT_EQ(peer.received(), QByteArray());
}

TEST_F(FileScript, ChiusaNelMezzoLeAltreRigheNonVanno) {
  peer.onArrival = [this] { vista.siEChiusa = true; };
  auxcmd::SendFileTXT(script("1R\n2R\n"), vista, program.contesto);
  EXPECT_EQ(vista.inviate, texts({"1R"}));
}

TEST_F(FileScript, ITreScriptSiMandanoPerNumero) {
  KeysTill cassa;
  collega(cassa);
  for (int numero = 1; numero <= 3; ++numero) {
    write(QStringLiteral("TEST_XON_XOFF/test%1.txt").arg(numero), QByteArray::number(numero) + "R\r\n");
    EXPECT_EQ(auxcmd::InviaScript(numero, vista, program.contesto), 0);
  }
  EXPECT_EQ(cassa.sequences(), texts({"", "1R", "", "2R", "", "3R"}));
}

TEST_F(FileScript, UnoScriptCheMancaSiDiceColSuoPercorso) {
  for (int numero = 1; numero <= 3; ++numero) {
    EXPECT_EQ(auxcmd::InviaScript(numero, vista, program.contesto), 1);
    expectBoxes(program,
                {criticalBox(QStringLiteral("Attenzione PATH [ %1/TEST_XON_XOFF/test%2.txt ] non esistente")
                                 .arg(cartella_.path())
                                 .arg(numero))});
  }
}

TEST_F(FileScript, UnoScriptDelProgrammaNonLasciaRisposteCheNessunoLegge) {
  TestTill cassa;
  programTill(cassa);
  commonForKora().IP_ECR = cassa.address();
  commonForKora().hConnXonXoff = program.library.ecr_conn_xonxoff_ntw(cassa.address().toLatin1());
  ASSERT_GT(commonForKora().hConnXonXoff, 0);
  for (const char* nome : {"test1.txt", "test2.txt", "test3.txt", "test_invio.txt"}) {
    const QString script = QStringLiteral(GESTIONALE_APP "/TEST_XON_XOFF/") + QLatin1String(nome);
    EXPECT_EQ(auxcmd::InviaFileXonXoff(script, vista, program.contesto), 0);
    EXPECT_FALSE(cassa->error()) << nome;
  }
  cassa->press("1R");
  // The state that comes back is the one of now, not of some line of a script.
  EXPECT_EQ(auxcmd::InviaRiceviXonXoff(0, vista, QStringLiteral("X89F"), program.contesto), 0);
  const auto& stato = varGestionePRG().StatoECR;
  EXPECT_EQ(std::string(stato.begin(), stato.end()), cassa->press("X89F"));
}
