#include "auxcmd/Form_ATTESA_MF_DGFE.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCloseEvent>
#include <QProgressBar>
#include <QTest>
#include <QWindow>

#include "sostegno/guided_screen.h"

namespace {

const QString kSchermo = QStringLiteral("Form_ATTESA_MF_DGFE");
const QString kTesto = QStringLiteral(
    "Attendere prego, connessione in corso  con l'ECR. L'ECR deve essere acceso e nello stato di Vendita. "
    "Se l'ECR non è pronto per ricevere i dati i led di ricezione non sono intermittenti , in tal caso  "
    "prego "
    "chiudere la form,  settare correttamente l'ECR e riprovare. ");

class AttesaScarico : public testing::Test {
 protected:
  AttesaScarico() {
    programma.screens.registra<Form_ATTESA_MF_DGFE>();
    console = std::make_unique<QWidget>();
    console->resize(800, 600);
    console->show();
  }

  QWidget& mostra() {
    auxcmd::MostraAttesa(programma.contesto, *console, [this] {
      ++usciti;
      cEraAncora = programma.screens.trova(kSchermo) != nullptr;
    });
    return *programma.screens.trova(kSchermo);
  }

  ProgramFixture programma;
  std::unique_ptr<QWidget> console;
  int usciti = 0;
  bool cEraAncora = false;
};

}  // namespace

TEST_F(AttesaScarico, MostraIlSuoTestoEUnaBarraSenzaFine) {
  const GuidedScreen attesa(mostra());
  EXPECT_TRUE(attesa.alive());
  EXPECT_EQ(attesa.window().windowTitle(), QStringLiteral("Attesa Scarico Dati"));
  EXPECT_EQ(attesa.text(QStringLiteral("Label1")), kTesto);
  const auto& barra = attesa.control<QProgressBar>("Avanzamento");
  EXPECT_TRUE(barra.isVisible());
  EXPECT_EQ(barra.minimum(), barra.maximum());
}

TEST_F(AttesaScarico, NonFermaLaConsoleENonHaPulsanti) {
  const QWidget& attesa = mostra();
  EXPECT_FALSE(attesa.isModal());
  EXPECT_TRUE(attesa.findChildren<QAbstractButton*>().isEmpty());
  EXPECT_TRUE(attesa.windowFlags().testFlag(Qt::WindowCloseButtonHint));
}

TEST_F(AttesaScarico, ChiusaDallaPersonaProsegueQuandoNonCePiu) {
  QWidget& attesa = mostra();
  attesa.close();
  EXPECT_EQ(usciti, 0) << "within its own closing";
  QCoreApplication::processEvents();
  EXPECT_EQ(usciti, 1);
  EXPECT_FALSE(cEraAncora);
  QCoreApplication::processEvents();
  EXPECT_EQ(usciti, 1);
}

TEST_F(AttesaScarico, ChiusaDentroUnGiroDiAttesaProsegueNelGiroDopo) {
  QCoreApplication::postEvent(&mostra(), new QCloseEvent);
  int giri = 0;
  while (usciti == 0 && giri < 10) {
    programma.user.DoEvents();
    ++giri;
  }
  EXPECT_EQ(usciti, 1);
  EXPECT_FALSE(cEraAncora);
  EXPECT_EQ(programma.screens.trova(kSchermo), nullptr);
}

TEST_F(AttesaScarico, ChiusaDalProgrammaNonProsegue) {
  mostra();
  auxcmd::ChiudiAttesa(programma.contesto);
  EXPECT_EQ(programma.screens.trova(kSchermo), nullptr);
  QCoreApplication::processEvents();
  EXPECT_EQ(usciti, 0);
}

TEST_F(AttesaScarico, ChiudereQuellaCheNonCENonFaNiente) {
  auxcmd::ChiudiAttesa(programma.contesto);
  EXPECT_EQ(programma.screens.trova(kSchermo), nullptr);
  EXPECT_EQ(usciti, 0);
}

TEST_F(AttesaScarico, SenzaPiuConsoleNonProsegue) {
  QWidget& attesa = mostra();
  attesa.close();
  console.reset();
  QCoreApplication::processEvents();
  EXPECT_EQ(usciti, 0);
}

TEST_F(AttesaScarico, LaConsoleSparitaPrimaDellaChiusuraNonConta) {
  QWidget& attesa = mostra();
  console.reset();
  attesa.close();
  QCoreApplication::processEvents();
  EXPECT_EQ(usciti, 0);
}

TEST_F(AttesaScarico, MostrataDiNuovoValeLUltimoSeguito) {
  mostra();
  auxcmd::ChiudiAttesa(programma.contesto);
  int altri = 0;
  auxcmd::MostraAttesa(programma.contesto, *console, [&] { ++altri; });
  programma.screens.trova(kSchermo)->close();
  QCoreApplication::processEvents();
  EXPECT_EQ(usciti, 0);
  EXPECT_EQ(altri, 1);
}

TEST_F(AttesaScarico, StaSopraLaConsole) {
  QWidget& attesa = mostra();
  EXPECT_EQ(attesa.windowHandle()->transientParent(), console->windowHandle());
  EXPECT_TRUE(console->geometry().contains(attesa.geometry().center()));
}

TEST_F(AttesaScarico, StaNelloSchermoADodiciPunti) {
  const GuidedScreen attesa(mostra());
  expectFitsAtTwelvePoints(attesa);
  const QWidget& testo = attesa.control("Label1");
  EXPECT_GE(testo.height(), testo.heightForWidth(testo.width()));
}
