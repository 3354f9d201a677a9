#include "core/Form_ATTESA.h"

#include <QLabel>

#include "menu_fixture.h"

using FormAttesa = MenuFixture;

TEST_F(FormAttesa, TitoloTestoEFiguraSonoQuelli) {
  QWidget& attesa = program_.screens.mostra(QStringLiteral("Form_ATTESA"), program_.contesto);
  EXPECT_EQ(attesa.windowTitle(), QStringLiteral("Attesa Caricamento Dati"));
  EXPECT_EQ(attesa.findChild<QLabel*>(QStringLiteral("Label1"))->text(),
            QStringLiteral("Attendere prego. Caricamento archivio dati in corso ..."));
  EXPECT_FALSE(attesa.findChild<QLabel*>(QStringLiteral("Picture1"))->pixmap(Qt::ReturnByValue).isNull());
}

TEST_F(FormAttesa, NonBloccaESiScarica) {
  QPointer<QWidget> attesa = &program_.screens.mostra(QStringLiteral("Form_ATTESA"), program_.contesto);
  EXPECT_FALSE(attesa->isModal());
  EXPECT_TRUE(attesa->isVisible());
  program_.screens.scarica(QStringLiteral("Form_ATTESA"));
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(attesa.isNull());
}
