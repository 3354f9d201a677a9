#include "workspace/workspace_fixture.h"

#include <QApplication>
#include <QMenuBar>
#include <QTest>
#include <QTimer>

#include "articles/Form_ArchivioArticoli.h"
#include "articles/Form_TrasferimentoArticoli.h"
#include "controls/style.h"
#include "core/menu.h"
#include "sales/Form_ArchivioVenduto.h"
#include "sales/Form_RicezioneVenduto.h"
#include "workspace/Form_GestioneMMC.h"

AreaDiLavoro::AreaDiLavoro() {
  style::iconFolder(QStringLiteral(GESTIONALE_APP "/icons"));
  registraSchermateCore(bottega.schermate);
  registraArchivioArticoli(bottega.schermate);
  registraTrasferimentoArticoli(bottega.schermate);
  registraRicezioneVenduto(bottega.schermate);
  registraArchivioVenduto(bottega.schermate);
  registraGestioneMMC(bottega.schermate);
}

void AreaDiLavoro::SetUp() {
  bottega.utente.answers(Answer::Cancel);
  bottega.schermate.mostra(QStringLiteral("start"), bottega.contesto);
  bottega.utente.takeBoxes();
  QTest::mouseClick(menu()->findChild<QWidget*>(QStringLiteral("Label2")), Qt::LeftButton);
  schermo = bottega.schermate.trova(QStringLiteral("Form_GestioneMMC"));
  ASSERT_NE(schermo, nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowActive(schermo));
}

void AreaDiLavoro::clic(const char* nome) const {
  QTest::mouseClick(&controllo(nome), Qt::LeftButton);
}

void AreaDiLavoro::voce(const char* nome) const {
  auto& file = controllo<QMenu>("mnuFile");
  auto& barra = *schermo->findChild<QMenuBar*>();
  QTest::mouseClick(&barra, Qt::LeftButton, {}, barra.actionGeometry(file.menuAction()).center());
  ASSERT_TRUE(file.isVisible());
  QTest::mouseClick(&file, Qt::LeftButton, {}, file.actionGeometry(&controllo<QAction>(nome)).center());
  file.hide();
}

int AreaDiLavoro::comandiAbilitati() const {
  int abilitati = 0;
  for (const char* nome : {"Cmd_Articoli", "Cmd_Down", "Cmd_Upl", "Cmd_Venduto"})
    if (controllo(nome).isEnabled()) ++abilitati;
  return abilitati;
}

void AreaDiLavoro::nuovo(const QString& nome) {
  bottega.utente.chooses(bottega.cartella.file(nome));
  voce("mnuNuovo");
}

void AreaDiLavoro::apri(const QString& nome) {
  bottega.utente.chooses(bottega.cartella.file(nome));
  voce("mnuApri");
}

void AreaDiLavoro::conModale(const std::function<void()>& gesto,
                             const std::function<void(QWidget&)>& dentro) const {
  bool entrato = false;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
    // A screen that fills itself lets events through before it shows.
    QPointer<QWidget> modale = QApplication::activeModalWidget();
    if (!modale) return;
    timer.stop();
    entrato = true;
    dentro(*modale);
    if (modale && modale->isVisible()) {
      ADD_FAILURE() << "the modal screen stayed open";
      modale->close();
    }
  });
  timer.start(0);
  gesto();
  EXPECT_TRUE(entrato) << "no modal screen";
}
