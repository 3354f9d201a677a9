#include "controls/menu_entry.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>

namespace {

struct VoceDiMenu : testing::Test {
  MenuEntry voce;
  VoceDiMenu() { voce.setText(QStringLiteral(" Gestione Programmazione")); }

  QImage dipinta() {
    voce.resize(400, 60);
    return voce.grab().toImage();
  }
};

const QString kNota = QStringLiteral("in preparazione");

}  // namespace

TEST_F(VoceDiMenu, LaNotaSiVedeSiAscoltaENonToccaLaScritta) {
  const QImage senza = dipinta();
  voce.setNote(kNota);
  EXPECT_NE(dipinta(), senza);
  EXPECT_EQ(voce.accessibleDescription(), kNota);
  EXPECT_EQ(voce.text(), QStringLiteral(" Gestione Programmazione"));
  voce.setNote({});
  EXPECT_EQ(dipinta(), senza);
}

TEST_F(VoceDiMenu, LaNotaHaIlSuoPostoAncheDoveCeNePoco) {
  const QSize senza = voce.minimumSizeHint();
  voce.setNote(kNota);
  EXPECT_GE(voce.minimumSizeHint().height(), voce.fontMetrics().height() + 8);
  EXPECT_EQ(voce.minimumSizeHint().width(), senza.width()) << "shorter than the caption";
  voce.setNote(QString(100, QLatin1Char('n')));
  EXPECT_GT(voce.minimumSizeHint().width(), senza.width());
}

TEST_F(VoceDiMenu, LaScrittaEPiuGrandeDiQuelleDelProgramma) {
  EXPECT_GT(voce.font().pointSizeF(), QApplication::font().pointSizeF());
}

TEST_F(VoceDiMenu, InvioTenutoPremutoNonLaRiapre) {
  QSignalSpy scelta(&voce, &MenuEntry::clicked);
  QKeyEvent tenuto(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
  QApplication::sendEvent(&voce, &tenuto);
  EXPECT_EQ(scelta.count(), 0);
  QTest::keyClick(&voce, Qt::Key_Return);
  EXPECT_EQ(scelta.count(), 1);
}
