#include "ecrlink/link_scene.h"

#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <ostream>

namespace {

QPushButton& addCommand(QVBoxLayout& layout, const char* name) {
  auto* command = new QPushButton;
  command->setObjectName(QString::fromLatin1(name));
  layout.addWidget(command);
  return *command;
}

}  // namespace

LinkScreen::LinkScreen(Contesto& contesto, PannelloECR* panel)
    : FinestraLink(contesto, QStringLiteral("Casa")), panel_(panel) {
  setObjectName(QStringLiteral("SchermoLink"));
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(panel);
  auto* foot = new OutcomeBar;
  foot->setObjectName(QStringLiteral("BarraEsito"));
  layout->addWidget(foot);
  QPushButton& start = addCommand(*layout, "Cmd_Avvia");
  QPushButton& leave = addCommand(*layout, "Cmd_Esci");
  start.setToolTip(QStringLiteral("Avvia la prova"));
  leave.setToolTip(QStringLiteral("Torna alla casa"));
  caricaSchermo({*panel, start, leave, "upload"});
  show();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(this));
}

Box communicationError(const QString& text) {
  return criticalBox(QStringLiteral("Errore nella comunicazione con ECR: ") + text);
}

LinkState stateOf(LinkScreen& screen) {
  return {screen.enabled("Cmd_Avvia"), screen.enabled("CmdInviaModECR"), commonForKora().IP_ECR};
}

void PrintTo(const LinkState& state, std::ostream* output) {
  *output << "start " << state.start << ", connect " << state.connect << ", address \""
          << state.address.toStdString() << "\"";
}
