#include "workspace/workspace_fixture.h"

#include <QMenuBar>
#include <QTest>

#include "articles/Form_ArchivioArticoli.h"
#include "articles/Form_TrasferimentoArticoli.h"
#include "controls/style.h"
#include "core/menu.h"
#include "sales/Form_ArchivioVenduto.h"
#include "sales/Form_RicezioneVenduto.h"
#include "workspace/Form_GestioneMMC.h"

WorkspaceFixture::WorkspaceFixture() {
  style::iconFolder(QStringLiteral(GESTIONALE_APP "/icons"));
  registraSchermateCore(bottega.screens);
  bottega.screens.registra<Form_ArchivioArticoli>();
  bottega.screens.registra<Form_TrasferimentoArticoli>();
  bottega.screens.registra<Form_RicezioneVenduto>();
  bottega.screens.registra<Form_ArchivioVenduto>();
  bottega.screens.registra<Form_GestioneMMC>();
}

void WorkspaceFixture::SetUp() {
  bottega.user.answers(Answer::Cancel);
  bottega.screens.mostra(QStringLiteral("start"), bottega.contesto);
  bottega.user.takeBoxes();
  QTest::mouseClick(menu()->findChild<QWidget*>(QStringLiteral("Label2")), Qt::LeftButton);
  screen = bottega.screens.trova(QStringLiteral("Form_GestioneMMC"));
  ASSERT_NE(screen, nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowActive(screen));
}

void WorkspaceFixture::click(const char* name) const {
  QTest::mouseClick(&control(name), Qt::LeftButton);
}

void WorkspaceFixture::entry(const char* name) const {
  auto& file = control<QMenu>("mnuFile");
  auto& bar = *screen->findChild<QMenuBar*>();
  QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(file.menuAction()).center());
  ASSERT_TRUE(file.isVisible());
  QTest::mouseClick(&file, Qt::LeftButton, {}, file.actionGeometry(&control<QAction>(name)).center());
  file.hide();
}

int WorkspaceFixture::enabledCommands() const {
  int enabled = 0;
  for (const char* name : {"Cmd_Articoli", "Cmd_Down", "Cmd_Upl", "Cmd_Venduto"})
    if (control(name).isEnabled()) ++enabled;
  return enabled;
}

void WorkspaceFixture::create(const QString& name) {
  bottega.user.chooses(bottega.folder.file(name));
  entry("mnuNuovo");
}

void WorkspaceFixture::open(const QString& name) {
  bottega.user.chooses(bottega.folder.file(name));
  entry("mnuApri");
}
