#include "auxcmd/console_scene.h"

#include <QComboBox>
#include <QRadioButton>
#include <QShowEvent>
#include <QTest>

#include "auxcmd/Form_ATTESA_MF_DGFE.h"
#include "auxcmd/Form_Comandi_XONXOFF.h"
#include "auxcmd/Form_Help_CodiciErrori.h"
#include "auxcmd/Form_STATO_ECR.h"
#include "auxcmd/Form_Test.h"
#include "auxcmd/bench_screens.h"
#include "controls/outcome_bar.h"

namespace {

const QString kMenu = QStringLiteral("start");

/// Stands in for the menu, and counts how often it is brought to the front.
class Menu : public QWidget {
 public:
  Menu(int& shown, std::int32_t& link) : shown_(shown), link_(link) { setObjectName(kMenu); }

 protected:
  void showEvent(QShowEvent* /*event*/) override {
    ++shown_;
    link_ = commonForKora().hConnXonXoff;
  }

 private:
  int& shown_;
  std::int32_t& link_;
};

}  // namespace

ConsoleScene::ConsoleScene() {
  plug(peer);
  program.screens.registra<Form_Comandi_XONXOFF>();
  program.screens.registra<Form_ATTESA_MF_DGFE>();
  program.screens.registra<Form_STATO_ECR>();
  program.screens.registra<Form_Help_CodiciErrori>();
  program.screens.registra<Form_Test>();
  auxcmd::registraBanchi(program.screens);
  program.screens.registra(kMenu, [this](Contesto&) { return new Menu(menusShown, linkAtMenu); });
  program.screens.carica(kMenu, program.contesto).hide();
}

ConsoleScene::~ConsoleScene() = default;

GuidedScreen ConsoleScene::console() {
  return {program, QStringLiteral("Form_Comandi_XONXOFF")};
}

GuidedScreen ConsoleScene::serialConsole() {
  GuidedScreen screen = console();
  pick(screen, "cboPort", QStringLiteral("COM  7"));
  EXPECT_TRUE(screen.enabled(QStringLiteral("Cmd_Avvia")));
  return screen;
}

GuidedScreen ConsoleScene::networkConsole(const QString& address) {
  GuidedScreen screen = console();
  screen.typeAddress(address);
  screen.click(QStringLiteral("CmdInviaModECR"));
  EXPECT_GT(commonForKora().hConnXonXoff, 0);
  return screen;
}

void ConsoleScene::modally(const char* name, const std::function<void(const GuidedScreen&)>& within) {
  withModal([&] { program.screens.mostraModale(QString::fromUtf8(name), program.contesto); },
            [&](QWidget& screen) { within(GuidedScreen(screen)); });
}

QString ConsoleScene::foot(const GuidedScreen& screen) {
  return screen.control<OutcomeBar>("BarraEsito").text();
}

void ConsoleScene::pick(const GuidedScreen& screen, const char* list, const QString& text) {
  auto& combo = screen.control<QComboBox>(list);
  const int place = combo.findText(text);
  EXPECT_GE(place, 0) << text.toStdString();
  combo.setFocus();
  while (combo.currentIndex() < place) QTest::keyClick(&combo, Qt::Key_Down);
  while (combo.currentIndex() > place) QTest::keyClick(&combo, Qt::Key_Up);
}

void ConsoleScene::picks(const GuidedScreen& screen, const std::vector<const char*>& options) {
  for (const char* option : options) {
    auto& button = screen.control<QRadioButton>(option);
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_TRUE(button.isChecked()) << option;
  }
}
