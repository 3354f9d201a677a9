#include "core/placeholder_workspace.h"

#include <QPushButton>

#include "menu_fixture.h"

namespace {

struct Area {
  const char* voce;
  const char* nome;
  QString titolo;
};

const std::array kAree{
    Area{"Label1", "Form_Grafica", QStringLiteral("Qz Grafica ")},
    Area{"Label2", "Form_GestioneMMC", QStringLiteral("Gestione Articoli / Venduto")},
    Area{"Label3", "MDIForm_PRG", QStringLiteral("Programmazione ECR")},
    Area{"Label7", "Form_GestioneClienti", QStringLiteral("Gestione Clienti")},
    Area{"Label_CMD_XONXOFF", "Form_Comandi_XONXOFF", QStringLiteral(" Gestione Comandi Ausiliari ECR")},
};

}  // namespace

class FormProvvisoria : public MenuFixture {
 protected:
  /// Opens each area from the menu, leaves it in the given way, and checks that the menu is back.
  void ognunaTorna(const std::function<void(QWidget&)>& esce) {
    for (const Area& area : kAree) {
      MenuFixture::click(area.voce);
      QPointer<QWidget> finestra = open(area.nome);
      ASSERT_NE(finestra, nullptr) << area.nome;
      EXPECT_EQ(finestra->windowTitle(), area.titolo);
      EXPECT_EQ(finestra->objectName(), QLatin1String(area.nome));
      esce(*finestra);
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      EXPECT_TRUE(finestra.isNull()) << area.nome;
      EXPECT_TRUE(open("start")->isVisible()) << area.nome;
    }
  }
};

TEST_F(FormProvvisoria, EsciRiportaAlMenu) {
  ognunaTorna([](QWidget& finestra) {
    QTest::mouseClick(finestra.findChild<QPushButton*>(QStringLiteral("Cmd_Esci")), Qt::LeftButton);
  });
}

TEST_F(FormProvvisoria, EscRiportaAlMenu) {
  ognunaTorna([](QWidget& finestra) { QTest::keyClick(&finestra, Qt::Key_Escape); });
}

TEST_F(FormProvvisoria, EsciDiceIlSuoTasto) {
  MenuFixture::click("Label7");
  const QPointer<QWidget> finestra = open("Form_GestioneClienti");
  ASSERT_NE(finestra, nullptr);
  EXPECT_EQ(finestra->findChild<QPushButton*>(QStringLiteral("Cmd_Esci"))->toolTip(),
            QStringLiteral("Torna al menu principale (Esc)"));
}

TEST_F(FormProvvisoria, InvioNonEsce) {
  MenuFixture::click("Label7");
  const QPointer<QWidget> finestra = open("Form_GestioneClienti");
  ASSERT_NE(finestra, nullptr);
  QTest::keyClick(finestra, Qt::Key_Return);
  EXPECT_TRUE(finestra && finestra->isVisible());
}

TEST_F(FormProvvisoria, LaCorniceRiportaAlMenu) {
  ognunaTorna([](QWidget& finestra) { finestra.close(); });
}

TEST_F(FormProvvisoria, NonPrendeIlPostoDiUnaSchermataCheCE) {
  program_.screens.registra(QStringLiteral("Form_Grafica"), [](Contesto&) { return new QWidget; });
  registraSchermateMancanti(program_.screens);
  QWidget& vera = program_.screens.carica(QStringLiteral("Form_Grafica"), program_.contesto);
  EXPECT_EQ(dynamic_cast<Form_Provvisoria*>(&vera), nullptr);
}

TEST_F(FormProvvisoria, ScaricareTuttoColMenuNascostoNonLoRiapre) {
  MenuFixture::click("Label7");
  program_.screens.scaricaTutte();
  EXPECT_EQ(open("start"), nullptr);
  EXPECT_EQ(open("Form_GestioneClienti"), nullptr);
}
